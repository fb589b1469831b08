// Wide letters without their case, as the C locale has it.
#pragma once

#include <cwctype>

namespace xe {

inline wchar_t lowerCase(wchar_t ch) { return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(ch))); }

inline wchar_t upperCase(wchar_t ch) { return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(ch))); }

/// Whether two letters are one in lower case. A few scripts have letters that agree in upper case alone.
inline bool equalFolded(wchar_t left, wchar_t right) { return lowerCase(left) == lowerCase(right); }

} // namespace xe
