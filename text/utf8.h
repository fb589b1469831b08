// UTF-8 to and from 32-bit elements, strictly: no overlong form, no surrogate, nothing above 0x10FFFF.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace xe {

/// Nothing if the bytes are not valid UTF-8.
std::optional<std::wstring> decodeUtf8(std::string_view bytes);

/// The number of bytes of the text as UTF-8. Nothing if an element has no UTF-8 form.
std::optional<std::size_t> utf8Size(std::wstring_view text);

/// Writes a text that utf8Size has accepted; returns the end of what it wrote.
char* encodeUtf8(std::wstring_view text, char* out);

} // namespace xe
