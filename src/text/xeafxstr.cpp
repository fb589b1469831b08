#include "xeafxstr.h"

#include "text/folding.h"
#include "text/formatter.h"
#include "text/utf8.h"
#include "text/widetext.h"

#include <QDebug>

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <functional>
#include <locale>
#include <stdexcept>

namespace {

constexpr wchar_t blanks[] = L" \r\n\t";

std::wstring decoded(const char* utf8)
{
    std::optional<std::wstring> text = xe::decodeUtf8(utf8 ? utf8 : "");
    if (!text)
        throw std::range_error("wstring_convert::from_bytes");
    return std::move(*text);
}

const wchar_t* endOfPlain(const wchar_t* text)
{
    constexpr wchar_t firstSurrogate = 0xD800;
    while (*text > 0 && *text < firstSurrogate)
        ++text;
    return text;
}

std::wstring lowered(std::wstring text)
{
    std::transform(text.begin(), text.end(), text.begin(), xe::lowerCase);
    return text;
}

int collated(const std::wstring& left, const std::wstring& right)
{
    const std::locale environment("");
    return std::use_facet<std::collate<wchar_t>>(environment)
        .compare(left.data(), left.data() + left.size(), right.data(), right.data() + right.size());
}

// Whether an address lies in a block. Addresses in different objects have no order by `<`.
bool isWithin(const wchar_t* address, const wchar_t* first, const wchar_t* last)
{
    return std::less_equal<>()(first, address) && std::less_equal<>()(address, last);
}

} // namespace

// ---------------------------------------------------------------------------------------- construction and assignment

CString_X::CString_X(const wchar_t* text, int count)
    : std::wstring(text ? std::wstring(text, static_cast<size_type>(count))
                        : std::wstring(static_cast<size_type>(count), L'\0'))
{}

CString_X::CString_X(const QString& text) : std::wstring(xe::toWide(text)) { resize(std::wcslen(c_str())); }

CString_X::CString_X(const char* utf8) : std::wstring(decoded(utf8)) {}

CString_X& CString_X::operator=(const wchar_t* text)
{
    // assign() knows about sources inside the text, but not about one in the spare room behind it.
    if (isWithin(text, data(), data() + capacity()))
        return assignWide(std::wstring(text));
    assign(orEmpty(text));
    return *this;
}

CString_X& CString_X::operator=(const char* utf8) { return assignWide(decoded(utf8)); }

CString_X& CString_X::assignWide(std::wstring&& text) noexcept
{
    if (&text != this)
        std::wstring::operator=(std::move(text));
    return *this;
}

// ----------------------------------------------------------------------------------------------- elements, narrow text

// A terminator stands at the very end of the room, where nobody writes an element: one that overwrites that of the text
// ends in the room all the same for whoever goes by the address alone.
void CString_X::SetAt(int index, wchar_t ch) noexcept
{
    if (index < 0 || static_cast<size_type>(index) >= capacity())
        return;
    if (static_cast<size_type>(index) >= length())
        data()[capacity()] = L'\0';
    data()[index] = ch;
}

const char* CString_X::Utf8Ptr()
{
    std::unique_ptr<char[]> utf8 = xe::encodeUtf8(wideText());
    if (!utf8)
        throw std::range_error("wstring_convert::to_bytes");
    CleanUtf8Mem();
    if (IsEmpty())
        return "";
    utf8Cache = utf8.release();
    return utf8Cache;
}

// -------------------------------------------------------------------------------------------------------- extraction

CString_X CString_X::extract(size_type first, size_type count) const
{
    const size_type start = std::min(first, length());
    const size_type room = std::min(count, length() - start);
    return CString_X(data() + start, static_cast<int>(wcsnlen(data() + start, room)));
}

CString_X CString_X::Left(int count) const { return extract(0, static_cast<size_type>(std::max(count, 0))); }

CString_X CString_X::Right(int count) const
{
    const size_type kept = std::min(static_cast<size_type>(std::max(count, 0)), length());
    return extract(length() - kept, kept);
}

CString_X CString_X::Mid(int first) const { return extract(static_cast<size_type>(std::max(first, 0)), npos); }

CString_X CString_X::Mid(int first, int count) const
{
    return first < 0 ? CString_X() : extract(static_cast<size_type>(first), static_cast<size_type>(count));
}

CString_X CString_X::SpanExcluding(const wchar_t* set) const { return extract(0, find_first_of(orEmpty(set))); }

CString_X CString_X::SpanIncluding(const wchar_t* set) const
{
    const size_type end = find_first_not_of(orEmpty(set));
    return end == npos ? CString_X() : extract(0, end);
}

CString_X CString_X::Tokenize(const wchar_t* delimiters, int& start) const
{
    const wchar_t* const set = orEmpty(delimiters);
    const size_type first = start < 0 ? npos : find_first_not_of(set, static_cast<size_type>(start));
    if (first == npos) {
        start = -1;
        return {};
    }
    const size_type end = std::min(find_first_of(set, first), length());
    start = static_cast<int>(std::min(end + 1, length()));
    return extract(first, end - first);
}

// --------------------------------------------------------------------------------------------------- change in place

void CString_X::MakeUpper() { std::transform(begin(), end(), begin(), xe::upperCase); }

void CString_X::MakeLower() { std::transform(begin(), end(), begin(), xe::lowerCase); }

void CString_X::MakeReverse() { std::reverse(begin(), end()); }

int CString_X::Replace(wchar_t oldChar, wchar_t newChar)
{
    int count = 0;
    for (wchar_t& ch : wideText()) {
        if (ch == oldChar) {
            ch = newChar;
            ++count;
        }
    }
    return count;
}

int CString_X::Replace(const wchar_t* oldText, const wchar_t* newText)
{
    const std::wstring searched = orEmpty(oldText);
    const std::wstring inserted = orEmpty(newText);
    if (searched.empty())
        return 0;
    std::wstring result;
    size_type position = 0;
    int count = 0;
    for (size_type hit; (hit = find(searched, position)) != npos; position = hit + searched.size()) {
        result.append(*this, position, hit - position).append(inserted);
        ++count;
    }
    if (count > 0)
        assign(result.append(*this, position, npos));
    return count;
}

int CString_X::Remove(wchar_t ch)
{
    const size_type before = length();
    erase(std::remove(begin(), end(), ch), end());
    return static_cast<int>(before - length());
}

int CString_X::Insert(int position, wchar_t ch)
{
    insert(static_cast<size_type>(position), 1, ch);
    return GetLength();
}

int CString_X::Insert(int position, const wchar_t* text)
{
    insert(static_cast<size_type>(position), orEmpty(text));
    return GetLength();
}

int CString_X::Delete(int position, int count)
{
    const size_type before = length();
    erase(static_cast<size_type>(position), static_cast<size_type>(count));
    return static_cast<int>(before - length());
}

CString_X& CString_X::TrimLeft() { return TrimLeft(blanks); }

CString_X& CString_X::TrimLeft(wchar_t ch)
{
    erase(0, find_first_not_of(ch));
    return *this;
}

CString_X& CString_X::TrimLeft(const wchar_t* set)
{
    erase(0, find_first_not_of(orEmpty(set)));
    return *this;
}

CString_X& CString_X::TrimRight() { return TrimRight(blanks); }

CString_X& CString_X::TrimRight(wchar_t ch)
{
    erase(find_last_not_of(ch) + 1);
    return *this;
}

CString_X& CString_X::TrimRight(const wchar_t* set)
{
    erase(find_last_not_of(orEmpty(set)) + 1);
    return *this;
}

// -------------------------------------------------------------------------------------------------------- comparison

int CString_X::CompareNoCase(const wchar_t* text) const { return lowered(*this).compare(lowered(orEmpty(text))); }

int CString_X::Collate(const wchar_t* text) const { return collated(*this, orEmpty(text)); }

int CString_X::CollateNoCase(const wchar_t* text) const { return collated(lowered(*this), lowered(orEmpty(text))); }

// -------------------------------------------------------------------------------------------------------- raw buffer

wchar_t* CString_X::GetBuffer(int count)
{
    if (static_cast<size_type>(count) > capacity())
        reserve(static_cast<size_type>(count));
    data()[capacity()] = L'\0';
    return data();
}

wchar_t* CString_X::GetBufferSetLength(int count)
{
    wchar_t* const before = data();
    resize(static_cast<size_type>(count));
    return before;
}

void CString_X::ReleaseBuffer(int count)
{
    if (count == -1) {
        const size_type written = wcsnlen(data(), capacity());
        if (written > length()) // resize() would write zeros over what the caller wrote
            append(std::wstring(data() + length(), written - length()));
        resize(written);
        count = GetLength();
    }
    if (count >= 0 && static_cast<size_type>(count) <= length()) {
        data()[count] = L'\0';
        resize(std::wcslen(c_str()));
    } else {
        data()[capacity()] = L'\0';
    }
}

wchar_t* CString_X::AllocSysString() const
{
    auto* const copy = static_cast<wchar_t*>(std::calloc(length() + 1, sizeof(wchar_t)));
    if (copy)
        std::wmemcpy(copy, c_str(), length());
    return copy;
}

// --------------------------------------------------------------------------------------------- line ends, separators

namespace {

template <class Text>
CString_X replaced(CString_X text, Text from, Text to)
{
    text.Replace(from, to);
    return text;
}

} // namespace

CString_X CString_X::ToWinReturn() const { return replaced(*this, L"\n", L"\r\n"); }
CString_X CString_X::ToUnixReturn() const { return replaced(*this, L"\r\n", L"\n"); }
CString_X CString_X::ToWinSeperator() const { return replaced(*this, L'/', L'\\'); }
CString_X CString_X::ToUnixSeperator() const { return replaced(*this, L'\\', L'/'); }

// -------------------------------------------------------------------------------------------- formatting

void CString_X::FormatV(const wchar_t* format, std::va_list arguments)
{
    xe::WideBuffer text;
    xe::formatInto(text, format, arguments);
    assign(text.data(), wcsnlen(text.data(), text.size()));
}

void CString_X::Format(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

void CString_X::AppendFormat(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    CString_X text;
    text.FormatV(format, arguments);
    va_end(arguments);
    *this += text;
}

// --------------------------------------------------------------------------------------------------------- XeQString

// Most texts have nothing but elements below the surrogates, which are copied at a fifth of the cost of a conversion.
QString XeQString::fromWide(const wchar_t* text)
{
    static_assert(sizeof(wchar_t) == sizeof(uint));
    if (!text)
        return {};
    const wchar_t* const end = endOfPlain(text);
    if (*end != 0 || end == text)
        return QString::fromUcs4(reinterpret_cast<const uint*>(text), -1);
    QString plain(static_cast<int>(end - text), Qt::Uninitialized);
    std::transform(text, end, plain.data(), [](wchar_t element) { return QChar(static_cast<ushort>(element)); });
    return plain;
}

XeQString& XeQString::operator=(const wchar_t* text)
{
    QString::operator=(fromWide(text));
    return *this;
}

XeQString& XeQString::operator+=(const wchar_t* text)
{
    QString::operator+=(fromWide(text));
    return *this;
}

QDebug operator<<(QDebug debug, const CString_X& text) { return debug << QString::fromStdWString(text); }
