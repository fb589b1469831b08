#include "xeconvert.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace {

constexpr auto conversionFailed = static_cast<std::size_t>(-1);

} // namespace

std::string WideCharToMultiByte_X(const std::wstring& text, const char*)
{
    const std::size_t size = std::wcstombs(nullptr, text.c_str(), 0);
    if (size == conversionFailed)
        return {};
    std::string bytes(size, '\0');
    std::wcstombs(bytes.data(), text.c_str(), size);
    return bytes;
}

std::wstring MultiByteToWideChar_X(const std::string& text, const char*)
{
    const std::size_t length = std::mbstowcs(nullptr, text.c_str(), 0);
    if (length == conversionFailed)
        return {};
    std::wstring wide(length, L'\0');
    std::mbstowcs(wide.data(), text.c_str(), length);
    return wide;
}

std::string _W2A(const wchar_t* text) { return WideCharToMultiByte_X(text, "chs"); }

double _wtof(const wchar_t* text)
{
    double value = 0.0;
    std::sscanf(_W2A(text).c_str(), "%lf", &value);
    return value;
}

void _split_whole_name(const wchar_t* path, wchar_t* name, wchar_t* extension)
{
    // A copy: the caller may split a path into its own buffer.
    const std::wstring whole = path ? path : L"";
    const std::size_t dot = std::min(whole.rfind(L'.'), whole.size());
    if (name)
        name[whole.copy(name, dot)] = L'\0';
    if (extension)
        extension[whole.copy(extension, std::wstring::npos, dot)] = L'\0';
}

wchar_t* _wcstok(wchar_t* text, const wchar_t* delimiters)
{
    wchar_t* rest = nullptr;
    return text && delimiters ? std::wcstok(text, delimiters, &rest) : nullptr;
}

wchar_t* _wcsupr(wchar_t* text) { return text; }
