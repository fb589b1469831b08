#include "xestr.h"

#include "text/ascii.h"

#include <cwctype>

using xe::isDigit;

namespace {

// 0 to 15, or -1 for any other character.
constexpr int hexValue(wchar_t ch)
{
    if (isDigit(ch))
        return ch - L'0';
    const wchar_t lower = xe::toLower(ch);
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
}

// The digits of a number, without a sign so that any number of them is well defined.
unsigned long long readDecimal(const wchar_t* text)
{
    unsigned long long value = 0;
    for (; isDigit(*text); ++text)
        value = value * 10 + static_cast<unsigned>(*text - L'0');
    return value;
}

unsigned long long readHexadecimal(const wchar_t* text)
{
    unsigned long long value = 0;
    for (; hexValue(*text) >= 0; ++text)
        value = value << 4 | static_cast<unsigned>(hexValue(*text));
    return value;
}

bool startsHexadecimal(const wchar_t* text)
{
    return text[0] == L'0' && (text[1] == L'x' || text[1] == L'X') && hexValue(text[2]) >= 0;
}

} // namespace

int StrToInt_X(const wchar_t* text)
{
    int number = 0;
    if (text && (*text == L'-' || isDigit(*text)))
        StrToIntEx_X(text, STIF_DEFAULT, &number);
    return number;
}

BOOL StrToIntEx_X(const wchar_t* text, DWORD flags, int* number)
{
    long long wide = 0;
    if (!number || !StrToInt64Ex_X(text, flags, &wide))
        return 0;
    *number = static_cast<int>(wide);
    return 1;
}

BOOL StrToInt64Ex_X(const wchar_t* text, DWORD flags, long long* number)
{
    if (!text || !number)
        return 0;
    while (std::iswspace(static_cast<std::wint_t>(*text)))
        ++text;
    const bool isNegative = *text == L'-';
    if (isNegative || *text == L'+')
        ++text;
    if (flags & STIF_SUPPORT_HEX && startsHexadecimal(text)) {
        *number = static_cast<long long>(readHexadecimal(text + 2));
        return 1;
    }
    if (!isDigit(*text))
        return 0;
    const unsigned long long value = readDecimal(text);
    *number = static_cast<long long>(isNegative ? 0 - value : value);
    return 1;
}

int MulDiv_X(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    const long long result = static_cast<long long>(number) * numerator / denominator;
    return result > 0x7FFFFFFF ? -1 : static_cast<int>(result);
}
