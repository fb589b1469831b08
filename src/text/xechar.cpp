#include "xechar.h"
#include "xestr.h"

#include "text/ascii.h"

#include <QChar>

#include <algorithm>
#include <cstdint>
#include <cwctype>
#include <type_traits>

namespace {

constexpr std::uintptr_t addressLimit = 0x10000; // below it an address stands for a character

template <class Char>
DWORD convertBuffer(Char* text, DWORD length, Char (*convert)(Char))
{
    if (!text)
        return 0;
    std::transform(text, text + length, text, convert);
    return length;
}

template <class Char>
Char* convertText(Char* text, Char (*convert)(Char))
{
    const auto value = reinterpret_cast<std::uintptr_t>(text);
    if (value < addressLimit) {
        const auto converted = static_cast<std::make_unsigned_t<Char>>(convert(static_cast<Char>(value)));
        return reinterpret_cast<Char*>(static_cast<std::uintptr_t>(converted));
    }
    if (!*text)
        return nullptr;
    for (Char* ch = text; *ch; ++ch)
        *ch = convert(*ch);
    return text;
}

constexpr bool isContinuation(char byte) { return (byte & 0xC0) == 0x80; }

// What the first byte of a UTF-8 sequence promises.
constexpr int promisedLength(unsigned char lead)
{
    if (lead >= 0xC0 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF8 ? 4 : 1;
}

constexpr wchar_t latin1(char byte) { return static_cast<unsigned char>(byte); }

constexpr uint codePoint(wchar_t character) { return static_cast<uint>(character); }

} // namespace

BOOL ChrCmpI_X(wchar_t left, wchar_t right) { return LOWORD(codePoint(left)) == LOWORD(codePoint(right)); }

// ----------------------------------------------------------------------------------------------- classes of characters

BOOL IsCharSpace_X(wchar_t character) { return std::iswspace(static_cast<std::wint_t>(character)) != 0; }

BOOL IsCharAlphaA_X(char byte) { return IsCharAlphaW_X(latin1(byte)); }

BOOL IsCharAlphaW_X(wchar_t character) { return QChar::isLetter(codePoint(character)); }

BOOL IsCharAlphaNumericA_X(char byte) { return IsCharAlphaNumericW_X(latin1(byte)); }

BOOL IsCharAlphaNumericW_X(wchar_t character)
{
    return QChar::isLetter(codePoint(character)) || QChar::isDigit(codePoint(character));
}

BOOL IsCharUpperA_X(char byte) { return IsCharUpperW_X(latin1(byte)); }

BOOL IsCharUpperW_X(wchar_t character) { return QChar::isUpper(codePoint(character)); }

BOOL IsCharLowerA_X(char byte) { return IsCharLowerW_X(latin1(byte)); }

BOOL IsCharLowerW_X(wchar_t character) { return QChar::isLower(codePoint(character)); }

// ---------------------------------------------------------------------------------------------------------- conversion

char* CharLowerA_X(char* text) { return convertText(text, xe::toLower<char>); }

wchar_t* CharLowerW_X(wchar_t* text) { return convertText(text, xe::toLower<wchar_t>); }

char* CharUpperA_X(char* text) { return convertText(text, xe::toUpper<char>); }

wchar_t* CharUpperW_X(wchar_t* text) { return convertText(text, xe::toUpper<wchar_t>); }

DWORD CharLowerBuffA_X(char* text, DWORD length) { return convertBuffer(text, length, xe::toLower<char>); }

DWORD CharLowerBuffW_X(wchar_t* text, DWORD length) { return convertBuffer(text, length, xe::toLower<wchar_t>); }

DWORD CharUpperBuffA_X(char* text, DWORD length) { return convertBuffer(text, length, xe::toUpper<char>); }

DWORD CharUpperBuffW_X(wchar_t* text, DWORD length) { return convertBuffer(text, length, xe::toUpper<wchar_t>); }

// ------------------------------------------------------------------------------------------------------------ movement

char* CharNextA_X(const char* text) { return const_cast<char*>(text && *text ? text + IsDBCSLeadByte_X(text) : text); }

wchar_t* CharNextW_X(const wchar_t* text) { return const_cast<wchar_t*>(text && *text ? text + 1 : text); }

int IsDBCSLeadByte_X(const char* text)
{
    if (!text)
        return 0;
    const int length = promisedLength(static_cast<unsigned char>(*text));
    return std::all_of(text + 1, text + length, isContinuation) ? length : 1;
}

BOOL IsDBCSLeadByte_X(unsigned char byte) { return byte > 128 && byte < 255; }
