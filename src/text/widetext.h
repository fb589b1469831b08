// A QString's text in 32-bit elements, the form of every wide text of the interface.
#pragma once

#include <QString>

#include <algorithm>
#include <string>

namespace xe {

/// One element a code point, embedded zeros kept; a lone surrogate becomes U+FFFD.
inline std::wstring toWide(const QString& text)
{
    std::wstring wide(static_cast<std::size_t>(text.size()), L'\0');
    wide.resize(static_cast<std::size_t>(text.toWCharArray(wide.data())));
    return wide;
}

/// Writes at most `capacity` elements, without a terminator, and returns their number. Nothing goes to a null buffer.
inline int writeWide(const std::wstring& wide, wchar_t* buffer, long long capacity)
{
    if (!buffer || capacity <= 0)
        return 0;
    const auto count = std::min(static_cast<std::size_t>(capacity), wide.size());
    wide.copy(buffer, count);
    return static_cast<int>(count);
}

inline int writeWide(const QString& text, wchar_t* buffer, long long capacity)
{
    return writeWide(toWide(text), buffer, capacity);
}

} // namespace xe
