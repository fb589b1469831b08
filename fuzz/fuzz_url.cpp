// The URL functions on hostile texts: nothing is read or written outside the buffers (the sanitizers see to that), each
// result is one of those that the function has, and each part lies in the text.

#include <XeMFCEmu.h>

#include "check.h"

#include <cstdint>
#include <cwchar>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::uint8_t guard = 0xA5;

// A byte stands for an element, from those that matter to these functions.
wchar_t element(std::uint8_t byte)
{
    static const std::wstring others = L"\u00e9\u0416\u4e2d\u0660\ufeff\uffff\U0001F529\U0010FFFF\u0130";
    if (byte < 0x80)
        return byte ? static_cast<wchar_t>(byte) : static_cast<wchar_t>(-1);
    return others[byte % others.size()];
}

// On the heap and without spare room, so that a step too far is seen.
std::vector<wchar_t> terminated(const std::uint8_t* data, std::size_t size)
{
    std::vector<wchar_t> text;
    text.reserve(size + 1);
    for (std::size_t i = 0; i < size; ++i)
        text.push_back(element(data[i]));
    text.push_back(0);
    return text;
}

bool isOneOf(HRESULT result, std::initializer_list<HRESULT> results)
{
    for (const HRESULT known : results) {
        if (result == known)
            return true;
    }
    return false;
}

void parse(const std::vector<wchar_t>& url)
{
    tagPARSEDURLW parts{};
    parts.cbSize = sizeof(parts);
    const HRESULT result = ParseURL_X(url.data(), &parts);
    check(isOneOf(result, {S_OK, URL_E_INVALID_SYNTAX}), "a text has a scheme or not");
    check((result == S_OK) == (parts.pszProtocol == url.data()), "the scheme is where the text starts");
    if (result != S_OK)
        return;
    check(parts.cchProtocol >= 2, "a scheme has two letters");
    check(parts.pszProtocol + parts.cchProtocol + 1 == parts.pszSuffix, "the suffix follows the colon");
    check(parts.cchProtocol + 1 + parts.cchSuffix + 1 == url.size(), "nothing is left over");
    check(parts.nScheme <= URL_SCHEME_RES, "the scheme is in the list");
}

// The part in a buffer of exactly so many elements, with the size that the call leaves.
HRESULT partIn(const std::vector<wchar_t>& url, DWORD part, DWORD flags, DWORD& size, std::wstring& text)
{
    std::vector<wchar_t> buffer(size, L'#');
    const HRESULT result = UrlGetPart_X(url.data(), buffer.data(), &size, part, flags);
    check(wcsnlen(buffer.data(), buffer.size()) < buffer.size(), "the buffer is terminated");
    text = buffer.data();
    return result;
}

void getPart(const std::vector<wchar_t>& url, DWORD part, DWORD flags)
{
    std::wstring text;
    DWORD size = 1;
    const HRESULT result = partIn(url, part, flags, size, text);
    check(isOneOf(result, {S_FALSE, E_POINTER, E_FAIL, E_INVALIDARG}), "no part fits in one element");
    check(text.empty(), "a failure leaves the buffer empty");
    check((result == E_POINTER) == (size > 1), "only a buffer that is too small changes the size");
    if (result != E_POINTER)
        return;

    const DWORD need = size;
    --size;
    check(partIn(url, part, flags, size, text) == E_POINTER && size == need, "one element less is too small");
    check(partIn(url, part, flags, size, text) == S_OK, "what it needs is enough");
    check(size == need - 1 && size == text.size(), "the size is the length");
    if (!flags)
        check(std::wcsstr(url.data(), text.c_str()), "the part lies in the text");
}

void hash(const std::uint8_t* data, std::size_t size)
{
    const auto length = static_cast<DWORD>(size);
    const std::unique_ptr<BYTE[]> first(new BYTE[size + 1]);
    const std::unique_ptr<BYTE[]> second(new BYTE[size + 1]);
    first[size] = second[size] = guard;
    check(HashData_X(data, length, first.get(), length) == S_OK, "data has a hash");
    check(HashData_X(data, length, second.get(), length / 2) == S_OK, "data has a shorter hash");
    check(std::equal(first.get(), first.get() + length / 2, second.get()), "a shorter hash is the start of the longer");
    check(first[size] == guard && second[size] == guard, "a hash ends with its length");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<wchar_t> url = terminated(data, size);
    parse(url);
    for (DWORD part = 0; part <= 7; ++part) {
        for (DWORD flags = 0; flags <= 1; ++flags)
            getPart(url, part, flags);
    }
    for (int kind = -1; kind <= 7; ++kind)
        UrlIs_X(url.data(), static_cast<URLIS>(kind));
    const wchar_t* const location = UrlGetLocation_X(url.data());
    check(!location || *location == L'#', "a location starts with its sign");

    const auto capacity = static_cast<DWORD>(size / 2);
    std::vector<wchar_t> copy(capacity);
    check(UrlFixup_X(url.data(), copy.data(), capacity) == (capacity ? S_OK : E_INVALIDARG), "a text can be copied");
    check(wcsnlen(copy.data(), capacity) < capacity || capacity == 0, "the copy is terminated");
    if (data)
        hash(data, size);
    return 0;
}
