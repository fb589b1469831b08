#include "xeformat.h"

#include "text/formatter.h"

#include <cstdio>
#include <cwchar>

std::wstring XeEmu_vswprintfV(const wchar_t* format, std::va_list arguments)
{
    xe::WideBuffer text;
    xe::formatInto(text, format, arguments);
    return std::wstring(text.data(), text.size());
}

int sprintf_s(char* buffer, std::size_t size, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int swprintf_s(wchar_t* buffer, std::size_t size, const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}
