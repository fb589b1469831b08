/// @file xeformat.h
/// The printf engine for wide format strings, as Windows programs write them.
///
/// In a wide format `%s` takes wide text and `%S` narrow text, and `I64` is a size prefix: neither is true of the C
/// library here. The engine is no full printf:
///
/// | in the format | what happens |
/// | --- | --- |
/// | `%c %C` | one character. With `h` the value as a decimal number |
/// | `%s %ls %lS` | wide text. Null gives "(null)"; the precision is ignored |
/// | `%S %hs %hS` | narrow text, each byte an element of the same number: not decoded as UTF-8. Null gives "(null)" |
/// | `%d %i %u` | a signed int, `%u` too: all bits set gives -1. `l` and `h` change nothing: 32 bits are read |
/// | `%o %x %X` | the 32-bit pattern; `#` sets the base in front, not for zero |
/// | `%I64d %lld` and the like | 64 bits, always unsigned |
/// | `%e %E %f %g %G` | a double. After an `%f` or `%e` in the same format `%g` is one of that kind |
/// | `%p` | `0x` and lower-case digits; null is 0 |
/// | `%n` | reads the int behind the pointer and writes it as a decimal number |
/// | `%%` | a percent sign |
/// | any other letter, or one of these that does not go with `I64` or `ll` | nothing; no argument is taken |
///
/// A field is padded with blanks on the left, with `-` on the right: the flags `0` and blank have no effect, and a
/// negative width from `*` pads nothing. The precision counts for floating numbers alone. A width that its conversion
/// did not use pads what comes next. `h` and `l` before a floating conversion, `%p` and `%n` change nothing. A `%` that
/// the format ends in, with or without flags, writes nothing.
#pragma once

#include "xedef.h"

#include <cstdarg>
#include <cstddef>
#include <string>

/// The whole formatted text, embedded zeros included. A null format gives an empty text. Numbers look as the global
/// std::locale writes them. Any thread may call it; more conversions than arguments are the caller's fault, as in
/// printf.
XE_EXPORT std::wstring XeEmu_vswprintfV(const wchar_t* format, std::va_list arguments);

/// The C library's vsnprintf, with its meaning of every conversion: writes at most `size` bytes with the terminator and
/// returns the length of the whole text, or a negative number on an error.
[[gnu::format(printf, 3, 4)]] XE_EXPORT int sprintf_s(char* buffer, std::size_t size, const char* format, ...);

/// The C library's vswprintf, with its meaning of every conversion (`%ls` is wide text): writes at most `size` elements
/// with the terminator and returns the number written without it, or a negative number when the text does not fit.
XE_EXPORT int swprintf_s(wchar_t* buffer, std::size_t size, const wchar_t* format, ...);

/// The same, with the size of the array.
template <std::size_t Size, class... Arguments>
int sprintf_s(char (&buffer)[Size], const char* format, Arguments... arguments)
{
    return sprintf_s(static_cast<char*>(buffer), Size, format, arguments...);
}

template <std::size_t Size, class... Arguments>
int swprintf_s(wchar_t (&buffer)[Size], const wchar_t* format, Arguments... arguments)
{
    return swprintf_s(static_cast<wchar_t*>(buffer), Size, format, arguments...);
}
