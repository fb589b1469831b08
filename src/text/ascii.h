// The ASCII letters and digits of narrow and wide text, whatever the C locale.
#pragma once

namespace xe {

template <class Char>
constexpr bool isDigit(Char ch)
{
    return ch >= '0' && ch <= '9';
}

template <class Char>
constexpr Char toLower(Char ch)
{
    return ch >= 'A' && ch <= 'Z' ? static_cast<Char>(ch - 'A' + 'a') : ch;
}

template <class Char>
constexpr Char toUpper(Char ch)
{
    return ch >= 'a' && ch <= 'z' ? static_cast<Char>(ch - 'a' + 'A') : ch;
}

} // namespace xe
