#include "xestr.h"

#include "text/ascii.h"
#include "text/folding.h"

#include <algorithm>
#include <cwchar>
#include <functional>

namespace {

constexpr DWORD endOfText = 0xFFFFFFFF; // of an offset
constexpr UINT wholeText = 0xFFFFFFFF;  // of a count

// The text may lie in the destination, as it does when a caller cuts off its head.
wchar_t* copyText(wchar_t* dest, const wchar_t* text, std::size_t count)
{
    std::wmemmove(dest, text, count);
    dest[count] = L'\0';
    return dest;
}

wchar_t* append(wchar_t* dest, const wchar_t* text)
{
    if (!dest || !text)
        return nullptr;
    copyText(dest + std::wcslen(dest), text, std::wcslen(text));
    return dest;
}

bool equalAscii(wchar_t left, wchar_t right) { return xe::toUpper(left) == xe::toUpper(right); }

wchar_t* placeIn(const wchar_t* end, const wchar_t* found)
{
    return found == end ? nullptr : const_cast<wchar_t*>(found);
}

template <class Equal>
wchar_t* findCharacter(const wchar_t* text, wchar_t character, UINT count, Equal equal)
{
    for (; text && count > 0 && *text; ++text, --count) {
        if (equal(*text, character))
            return const_cast<wchar_t*>(text);
    }
    return nullptr;
}

template <class Equal>
wchar_t* findPart(const wchar_t* text, UINT count, const wchar_t* part, Equal equal)
{
    if (!text || !part || !*part)
        return nullptr;
    const wchar_t* const end = text + wcsnlen(text, count);
    return placeIn(end, std::search(text, end, part, part + std::wcslen(part), equal));
}

} // namespace

// ----------------------------------------------------------------------------------------------------- copy and append

wchar_t* lstrcpy_X(wchar_t* dest, const wchar_t* text)
{
    return dest && text ? copyText(dest, text, std::wcslen(text)) : nullptr;
}

wchar_t* lstrcpyn_X(wchar_t* dest, const wchar_t* text, int capacity)
{
    if (!dest || capacity < 1)
        return dest;
    if (!text)
        text = L"";
    return copyText(dest, text, wcsnlen(text, static_cast<std::size_t>(capacity - 1)));
}

wchar_t* StrCpyN_X(wchar_t* dest, const wchar_t* text, int capacity)
{
    return lstrcpyn_X(dest, text, std::max(capacity, 1));
}

wchar_t* StrCat_X(wchar_t* dest, const wchar_t* text) { return append(dest, text); }

wchar_t* lstrcat_X(wchar_t* dest, const wchar_t* text) { return append(dest, text); }

wchar_t* StrCatBuff_X(wchar_t* dest, const wchar_t* text, int capacity)
{
    if (!dest || !text)
        return nullptr;
    const auto used = static_cast<int>(wcsnlen(dest, static_cast<std::size_t>(std::max(capacity, 0))));
    lstrcpyn_X(dest + used, text, capacity - used);
    return dest;
}

wchar_t* StrNCat_X(wchar_t* dest, const wchar_t* text, int count)
{
    if (!dest || !text)
        return nullptr;
    StrCpyN_X(dest + std::wcslen(dest), text, count);
    return dest;
}

DWORD StrCatChain_X(wchar_t* dest, DWORD capacity, DWORD offset, const wchar_t* text)
{
    if (!dest)
        return 0;
    if (offset == endOfText)
        offset = static_cast<DWORD>(wcsnlen(dest, capacity));
    if (offset == capacity) {
        if (text && offset != 0)
            dest[offset - 1] = L'\0';
        return offset - 1;
    }
    if (!text || offset > capacity)
        return offset;
    const std::size_t count = wcsnlen(text, capacity - 1 - offset);
    copyText(dest + offset, text, count);
    return offset + static_cast<DWORD>(count);
}

BOOL StrTrim_X(wchar_t* text, const wchar_t* set)
{
    if (!text || !set)
        return 0;
    const wchar_t* const first = text + std::wcsspn(text, set);
    const wchar_t* const end = first + std::wcslen(first);
    const wchar_t* last = end;
    while (last != first && std::wcschr(set, last[-1]))
        --last;
    if (first == text && last == end)
        return 0;
    copyText(text, first, static_cast<std::size_t>(last - first));
    return 1;
}

// -------------------------------------------------------------------------------------------------------------- search

wchar_t* StrChr_X(const wchar_t* text, wchar_t character)
{
    return text ? const_cast<wchar_t*>(std::wcschr(text, character)) : nullptr;
}

wchar_t* StrChrI_X(const wchar_t* text, wchar_t character)
{
    return findCharacter(text, character, wholeText, equalAscii);
}

wchar_t* StrChrN_X(const wchar_t* text, wchar_t character, UINT count)
{
    return findCharacter(text, character, count, std::equal_to<>());
}

wchar_t* StrChrNI_X(const wchar_t* text, wchar_t character, UINT count)
{
    return findCharacter(text, character, count, equalAscii);
}

wchar_t* StrRChrI_X(const wchar_t* text, const wchar_t* end, wchar_t character)
{
    if (!text)
        return nullptr;
    if (!end)
        end = text + std::wcslen(text);
    while (std::less<>()(text, end)) {
        if (!ChrCmpI_X(*--end, character))
            return const_cast<wchar_t*>(end);
    }
    return nullptr;
}

int StrCSpnI_X(const wchar_t* text, const wchar_t* set)
{
    if (!text || !set)
        return 0;
    const wchar_t* end = text;
    while (*end && !StrChrI_X(set, *end))
        ++end;
    return static_cast<int>(end - text);
}

wchar_t* StrStrI_X(const wchar_t* text, const wchar_t* part)
{
    return findPart(text, wholeText, part, xe::equalFolded);
}

wchar_t* StrStrN_X(const wchar_t* text, const wchar_t* part, UINT count)
{
    return findPart(text, count, part, std::equal_to<>());
}

wchar_t* StrStrNI_X(const wchar_t* text, const wchar_t* part, UINT count)
{
    return findPart(text, count, part, xe::equalFolded);
}

wchar_t* StrRStrI_X(const wchar_t* text, const wchar_t* end, const wchar_t* part)
{
    if (!text || !part || !*part)
        return nullptr;
    if (!end)
        end = text + std::wcslen(text);
    if (std::less<>()(end, text))
        return nullptr;
    return placeIn(end, std::find_end(text, end, part, part + std::wcslen(part), xe::equalFolded));
}
