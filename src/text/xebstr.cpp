#include "xebstr.h"

#include "xeconvert.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <limits>

namespace {

constexpr std::size_t maximum = std::numeric_limits<int>::max();

// A cleared block of at least so many bytes, which starts with the text.
BSTR newText(std::size_t bytes, const wchar_t* text, std::size_t length)
{
    const std::size_t elements = std::max((bytes + sizeof(wchar_t) - 1) / sizeof(wchar_t), length + 1);
    const auto block = static_cast<BSTR>(std::calloc(elements, sizeof(wchar_t)));
    return block ? std::wmemcpy(block, text, length) : nullptr;
}

} // namespace

BSTR SysAllocString_X(const wchar_t* text) { return text ? newText(0, text, std::wcslen(text)) : nullptr; }

BSTR SysAllocStringLen_X(const wchar_t* text, UINT length)
{
    if (length > maximum)
        return nullptr;
    if (!text)
        text = L"";
    return newText((std::size_t(length) + 1) * sizeof(wchar_t), text, wcsnlen(text, length));
}

BSTR SysAllocStringByteLen_X(const char* bytes, UINT length)
{
    if (length > maximum)
        return nullptr;
    const std::wstring text = MultiByteToWideChar_X(bytes ? bytes : "", "chs");
    return newText(std::size_t(length) + 4, text.data(), text.size());
}

void SysFreeString_X(BSTR text) { std::free(text); }

UINT SysStringLen_X(const wchar_t* text) { return text ? static_cast<UINT>(std::wcslen(text)) : 0; }

UINT SysStringByteLen_X(const wchar_t* text) { return SysStringLen_X(text) * sizeof(wchar_t); }
