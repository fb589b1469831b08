#pragma once

/// No text, typed as one.
constexpr const wchar_t* null = nullptr;
