#pragma once

#include <limits>

/// The ends of what an offset in a file can tell.
constexpr long long most = std::numeric_limits<long long>::max();
constexpr long long least = std::numeric_limits<long long>::min();
