// What the printf engine makes of a format, for the rows of the tests here.
#pragma once

#include <xeformat.h>

#include <QString>

#include <cstdarg>

inline QString formatted(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = XeEmu_vswprintfV(format, arguments);
    va_end(arguments);
    return QString::fromStdWString(text);
}
