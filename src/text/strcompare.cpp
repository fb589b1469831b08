#include "xestr.h"

#include "text/ascii.h"

#include <QString>

#include <cwchar>

using xe::isDigit;

namespace {

// A negative count becomes one that no text reaches.
constexpr std::size_t countOf(int count) { return static_cast<std::size_t>(count); }

int compareExactly(const wchar_t* left, const wchar_t* right) { return left && right ? std::wcscmp(left, right) : 0; }

int compareExactly(const wchar_t* left, const wchar_t* right, int count)
{
    return left && right ? std::wcsncmp(left, right, countOf(count)) : 0;
}

int compareFolded(const wchar_t* left, const wchar_t* right, int count)
{
    return left && right ? wcsncasecmp(left, right, countOf(count)) : 0;
}

int compareAsQt(const wchar_t* left, const wchar_t* right)
{
    if (!left || !right)
        return 0;
    return QString::fromWCharArray(left).compare(QString::fromWCharArray(right), Qt::CaseInsensitive);
}

const wchar_t* skipDigits(const wchar_t* text)
{
    while (isDigit(*text))
        ++text;
    return text;
}

} // namespace

int StrCmp_X(const wchar_t* left, const wchar_t* right) { return compareExactly(left, right); }

int StrCmpC_X(const wchar_t* left, const wchar_t* right) { return compareExactly(left, right); }

int lstrcmp_X(const wchar_t* left, const wchar_t* right) { return compareExactly(left, right); }

int StrCmpN_X(const wchar_t* left, const wchar_t* right, int count) { return compareExactly(left, right, count); }

int StrCmpNC_X(const wchar_t* left, const wchar_t* right, int count) { return compareExactly(left, right, count); }

int StrCmpI_X(const wchar_t* left, const wchar_t* right) { return left && right ? wcscasecmp(left, right) : 0; }

int StrCmpNI_X(const wchar_t* left, const wchar_t* right, int count) { return compareFolded(left, right, count); }

int StrCmpNIC_X(const wchar_t* left, const wchar_t* right, int count) { return compareFolded(left, right, count); }

int lstrcmpi_X(const wchar_t* left, const wchar_t* right) { return compareAsQt(left, right); }

int StrCmpIC_X(const wchar_t* left, const wchar_t* right) { return compareAsQt(left, right); }

BOOL StrIsIntlEqual_X(BOOL caseSensitive, const wchar_t* left, const wchar_t* right, int count)
{
    if (!left || !right)
        return 0;
    return (caseSensitive ? compareExactly(left, right, count) : compareFolded(left, right, count)) == 0;
}

int StrCmpLogical_X(const wchar_t* left, const wchar_t* right)
{
    if (!left || !right)
        return 0;
    while (*left && *right) {
        if (isDigit(*left) != isDigit(*right))
            return isDigit(*left) ? -1 : 1;
        if (isDigit(*left)) {
            const int leftNumber = StrToInt_X(left);
            const int rightNumber = StrToInt_X(right);
            if (leftNumber != rightNumber)
                return leftNumber < rightNumber ? -1 : 1;
            left = skipDigits(left);
            right = skipDigits(right);
        } else if (ChrCmpI_X(*left++, *right++)) {
            return 1;
        }
    }
    return *left ? 1 : *right ? -1 : 0;
}

int CompareStringOrdinal_X(const wchar_t* left, int leftLength, const wchar_t* right, int rightLength, BOOL ignoreCase)
{
    if (!left || !right)
        return 0;
    const auto caseSensitivity = ignoreCase ? Qt::CaseInsensitive : Qt::CaseSensitive;
    const int order =
        QString::fromWCharArray(left, leftLength).compare(QString::fromWCharArray(right, rightLength), caseSensitivity);
    return order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL;
}
