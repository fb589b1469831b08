// UTF-8 to and from 32-bit elements, strictly: no overlong form, no surrogate, nothing above 0x10FFFF.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace xe {

/// The elements of a text that ends at its first 0. Nothing if that is not valid UTF-8.
std::optional<std::wstring> decodeUtf8(const char* text);

/// The text as UTF-8 with a terminator. Null if an element has no UTF-8 form.
std::unique_ptr<char[]> encodeUtf8(std::wstring_view text);

} // namespace xe
