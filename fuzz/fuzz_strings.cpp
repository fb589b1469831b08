// The Str*, lstr*, Char* and BSTR functions on hostile texts: nothing is read or written outside the buffers (the
// sanitizers see to that), and each result lies where it belongs.

#include <XeMFCEmu.h>

#include "check.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <memory>
#include <string>
#include <vector>

namespace {

// Cuts the input into pieces; a byte stands for an element, from an alphabet that matters to these functions.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

    int number() { return m_next == m_end ? 0 : static_cast<std::int8_t>(*m_next++); }

    wchar_t element()
    {
        static const std::wstring others = L"\u00e9\u0416\u4e2d\ufeff\uffff\U0001F529\U0010FFFF";
        const int byte = number() & 0xFF;
        return byte < 0x80 ? static_cast<wchar_t>(byte) : others[static_cast<std::size_t>(byte) % others.size()];
    }

    // On the heap and without spare room, so that a step too far is seen.
    std::vector<wchar_t> text()
    {
        std::vector<wchar_t> elements;
        for (int left = number() & 0x3F; left > 0 && m_next != m_end; --left) {
            const wchar_t ch = element();
            if (ch != 0)
                elements.push_back(ch);
        }
        elements.push_back(0);
        elements.shrink_to_fit();
        return elements;
    }

    std::vector<char> bytes()
    {
        std::vector<char> bytes(m_next, m_end);
        bytes.erase(std::remove(bytes.begin(), bytes.end(), '\0'), bytes.end());
        bytes.push_back('\0');
        bytes.shrink_to_fit();
        return bytes;
    }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

bool isIn(const wchar_t* found, const std::vector<wchar_t>& text)
{
    return !found || (found >= text.data() && found < text.data() + text.size());
}

void search(const std::vector<wchar_t>& text, const std::vector<wchar_t>& part, wchar_t ch, UINT count)
{
    const wchar_t* const t = text.data();
    const wchar_t* const p = part.data();
    const wchar_t* const middle = t + text.size() / 2;
    for (const wchar_t* found :
         {StrChr_X(t, ch), StrChrI_X(t, ch), StrChrN_X(t, ch, count), StrChrNI_X(t, ch, count),
          StrRChrI_X(t, nullptr, ch), StrRChrI_X(t, middle, ch), StrStrI_X(t, p), StrStrN_X(t, p, count),
          StrStrNI_X(t, p, count), StrRStrI_X(t, nullptr, p), StrRStrI_X(t, middle, p)})
        check(isIn(found, text), "what is found lies in the text");
    check(StrCSpnI_X(t, p) < static_cast<int>(text.size()), "a run ends at the end of the text");
    check(!*p || StrStrN_X(t, p, static_cast<UINT>(text.size())) == std::wcsstr(t, p), "the first place of the part");
}

void compare(const std::vector<wchar_t>& left, const std::vector<wchar_t>& right, int count)
{
    const wchar_t* const a = left.data();
    const wchar_t* const b = right.data();
    using Compare = int (*)(const wchar_t*, const wchar_t*);
    for (const Compare function : {StrCmp_X, StrCmpC_X, lstrcmp_X, StrCmpI_X, lstrcmpi_X, StrCmpIC_X}) {
        const int order = function(a, b);
        check((order < 0) == (function(b, a) > 0), "the order turns round with the arguments");
        check(function(a, a) == 0, "a text equals itself");
    }
    using CompareCounted = int (*)(const wchar_t*, const wchar_t*, int);
    for (const CompareCounted function : {StrCmpN_X, StrCmpNC_X, StrCmpNI_X, StrCmpNIC_X})
        check(function(a, a, count) == 0, "a text equals itself in its first elements");
    StrIsIntlEqual_X(count & 1, a, b, count);
    StrCmpLogical_X(a, b);
    const int lengths[] = {static_cast<int>(left.size()) - 1, -1};
    for (const int length : lengths)
        CompareStringOrdinal_X(a, length, b, -1, count & 1);
}

void copy(const std::vector<wchar_t>& text, const std::vector<wchar_t>& other, int count)
{
    const auto capacity = std::max(count, 1);
    std::vector<wchar_t> buffer(static_cast<std::size_t>(capacity));
    check(std::wcslen(lstrcpyn_X(buffer.data(), text.data(), capacity)) < buffer.size(), "a copy fits its buffer");
    check(std::wcslen(StrCatBuff_X(buffer.data(), other.data(), capacity)) < buffer.size(), "a sum fits its buffer");
    const auto offset = static_cast<DWORD>(count % (capacity + 2));
    StrCatChain_X(buffer.data(), static_cast<DWORD>(capacity), offset, other.data());
    StrCatChain_X(buffer.data(), static_cast<DWORD>(capacity), 0xFFFFFFFF, other.data());

    std::vector<wchar_t> room(text.size() + other.size());
    lstrcpy_X(room.data(), text.data());
    check(std::wcslen(StrCat_X(room.data(), other.data())) == text.size() + other.size() - 2, "lengths add up");
    StrNCat_X(lstrcpy_X(room.data(), text.data()), other.data(), std::min(count, static_cast<int>(other.size())));
    lstrcpy_X(room.data(), text.data());
    StrTrim_X(room.data(), other.data());
    check(!StrTrim_X(room.data(), other.data()), "a trimmed text is trimmed");
    CharUpperW_X(room.data());
    CharLowerBuffW_X(room.data(), static_cast<DWORD>(std::wcslen(room.data())));
}

void readNumbers(const std::vector<wchar_t>& text, DWORD flags)
{
    long long wide = 0;
    int narrow = 0;
    check(StrToInt64Ex_X(text.data(), flags, &wide) == StrToIntEx_X(text.data(), flags, &narrow), "both read a number");
    check(static_cast<int>(wide) == narrow, "the narrow number is the low half of the wide one");
    StrToInt_X(text.data());
}

void walk(std::vector<char> bytes)
{
    const char* place = bytes.data();
    while (*place) {
        const char* const next = CharNextA_X(place);
        check(next > place && next < bytes.data() + bytes.size(), "the next character lies in the text");
        place = next;
    }
    CharUpperA_X(bytes.data());
    CharLowerBuffA_X(bytes.data(), static_cast<DWORD>(bytes.size()));
    const std::unique_ptr<wchar_t, void (*)(BSTR)> text(
        SysAllocStringByteLen_X(bytes.data(), static_cast<UINT>(bytes.size())), SysFreeString_X);
    check(SysStringLen_X(text.get()) <= bytes.size(), "a byte gives at most one element");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const int count = input.number();
    const wchar_t ch = input.element();
    const std::vector<wchar_t> text = input.text();
    const std::vector<wchar_t> other = input.text();
    search(text, other, ch, static_cast<UINT>(count));
    compare(text, other, count);
    copy(text, other, count);
    readNumbers(text, count & 1);
    const std::unique_ptr<wchar_t, void (*)(BSTR)> allocated(
        SysAllocStringLen_X(text.data(), static_cast<UINT>(std::max(count, 0))), SysFreeString_X);
    walk(input.bytes());
    return 0;
}
