/// @file xeafxstr.h
/// CString_X, the text type of the library and of its hosts, and XeQString, the way from it to Qt.
#pragma once

#include "xedef.h"

#include <QString>

#include <cstdarg>
#include <cstddef>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

class QDebug;

namespace xe::detail {

/// Whether a type cannot go through the `...` of a C function: an object with a copy constructor of its own.
template <class T>
inline constexpr bool isManagedObject = std::is_class_v<T> && !std::is_trivially_copyable_v<T>;

/// What stands for an argument of CString_X::Format in the `...`: the text pointer of a wide string, else itself.
template <class T>
decltype(auto) formatArgument(const T& argument)
{
    if constexpr (std::is_base_of_v<std::wstring, T>)
        return argument.c_str();
    else {
        static_assert(!isManagedObject<T>, "this object cannot be formatted: pass a text pointer for %s, such as "
                                           "CString_X(text).GetString(), or its c_str() for %S");
        return (argument);
    }
}

/// Leaves a function to pointers to narrow text.
template <class T>
using IfNarrowText = std::enable_if_t<std::is_pointer_v<T> && std::is_convertible_v<T, const char*>, int>;

/// Leaves a function to narrow characters.
template <class T>
using IfNarrowCharacter =
    std::enable_if_t<std::is_same_v<T, char> || std::is_same_v<T, signed char> || std::is_same_v<T, unsigned char>,
                     int>;

} // namespace xe::detail

/// A wide text: a std::wstring with the operations of the published string class and a UTF-8 copy on demand.
///
///     CString_X name = L"bolt";
///     name += L" M6";
///     CString_X line;
///     line.Format(L"%s: %d in stock", name, 12); // the object goes straight in
///     puts(line);                                // as UTF-8
///     label->setText(XeQString(line));
///
/// An element is a whole code point, `wchar_t` having 32 bits here. Copies are deep: there is no shared buffer. The
/// length counts embedded 0 elements; the operations that go through a text pointer end at the first of them.
/// Comparison and concatenation are those of std::wstring.
///
/// Where a pointer is taken, null means the empty text, unless stated otherwise. Narrow text is UTF-8, whatever the
/// locale. Misuse is reported by the standard library's exceptions alone. Objects have no lock; the narrow conversion
/// writes to the object and therefore is not const.
class XE_EXPORT CString_X : public std::wstring
{
public:
    CString_X() noexcept = default;
    CString_X(std::nullptr_t) noexcept {}
    CString_X(const CString_X& other) : std::wstring(other) {}                           ///< without the UTF-8 copy
    CString_X(CString_X&& other) noexcept : std::wstring(std::move(other.wideText())) {} ///< without the UTF-8 copy
    CString_X(const std::wstring& text) : std::wstring(text) {}
    CString_X(std::wstring&& text) noexcept : std::wstring(std::move(text)) {}
    CString_X(const wchar_t* text) : std::wstring(orEmpty(text)) {}

    /// Exactly `count` elements, embedded zeros too; the caller promises that they are there. For a null text `count`
    /// zeros. Raises std::length_error for a negative count.
    CString_X(const wchar_t* text, int count);

    /// `count` times one element. Raises std::length_error for a negative count.
    CString_X(wchar_t ch, int count) : std::wstring(static_cast<size_type>(count), ch) {}
    explicit CString_X(wchar_t ch) : std::wstring(1, ch) {}

    /// The text up to its first 0; each surrogate pair is one element, a lone surrogate U+FFFD.
    CString_X(const QString& text);

    /// Decodes UTF-8. Raises std::range_error if that is invalid; there is no fallback encoding.
    CString_X(const char* utf8);

    ~CString_X() { delete[] utf8Cache; }

    /// Replaces the wide text; the argument may lie in the object's own storage. The UTF-8 copy stays as it is.
    CString_X& operator=(std::nullptr_t) { return *this = L""; }
    CString_X& operator=(const CString_X& other);
    CString_X& operator=(CString_X&& other) noexcept;
    CString_X& operator=(const std::wstring& text);
    CString_X& operator=(std::wstring&& text) noexcept { return assignWide(std::move(text)); }
    CString_X& operator=(wchar_t ch);
    CString_X& operator=(const wchar_t* text);
    CString_X& operator=(const QString& text) { return assignWide(std::move(CString_X(text).wideText())); }
    CString_X& operator=(const char* utf8); ///< raises as the constructor does; the old text stays then
    CString_X& operator=(const unsigned char* utf8) { return *this = reinterpret_cast<const char*>(utf8); }

    /// Adds a text, which may lie in the object's own storage, or one element. Narrow text is decoded from UTF-8, and
    /// raises as the constructor does.
    CString_X& operator+=(const CString_X& text) { return *this += text.wideText(); }
    CString_X& operator+=(const std::wstring& text);
    CString_X& operator+=(wchar_t ch);
    CString_X& operator+=(const wchar_t* text);
    CString_X& operator+=(const QString& text) { return *this += CString_X(text); }
    CString_X& operator+=(const char* utf8) { return *this += CString_X(utf8); }
    /// Adds one element.
    void AppendChar(wchar_t ch) { push_back(ch); }
    /// Adds a text, or exactly `count` elements of one, as the constructor takes them.
    void Append(const wchar_t* text) { append(orEmpty(text)); }
    void Append(const wchar_t* text, int count) { *this += CString_X(text, count); }
    void Append(const CString_X& text) { *this += text; }

    // -------------------------------------------------------------------------------------------------------- elements

    int GetLength() const noexcept { return static_cast<int>(length()); } ///< in elements
    bool IsEmpty() const noexcept { return empty(); }
    void Empty() noexcept { clear(); } ///< keeps the capacity and the UTF-8 copy

    const wchar_t* GetString() const noexcept { return c_str(); } ///< the live text, never null
    operator const wchar_t*() const noexcept { return c_str(); }

    /// One element by value. Raises std::out_of_range for an index outside the text. The terminator counts as outside
    /// too, unlike in the published class: `text[text.GetLength()]`, and `text[0]` of an empty text, raise.
    wchar_t GetAt(int index) const { return elementAt(static_cast<size_type>(index)); }
    wchar_t operator[](int index) const { return GetAt(index); }
    template <class Index, std::enable_if_t<std::is_integral_v<Index>, int> = 0>
    wchar_t operator[](Index index) const
    {
        return elementAt(static_cast<size_type>(index));
    }

    /// Writes one element, with no check against the length: behind the text it goes into the room that GetBuffer made.
    /// Outside the capacity nothing is written.
    void SetAt(int index, wchar_t ch) noexcept;

    // ----------------------------------------------------------------------------------------------------- narrow text

    /// The whole text as UTF-8, cut at its first 0. Never null. The object owns the copy: it lives until the next call
    /// on the same object, even in the same expression, a CleanUtf8Mem or the object's end. Changing the text neither
    /// updates nor frees it. Raises std::range_error for a surrogate or an element above 0x10FFFF; the copy made before
    /// stays then.
    operator const char*() { return Utf8Ptr(); }
    const char* Utf8Ptr();

    void CleanUtf8Mem() noexcept ///< frees the UTF-8 copy
    {
        delete[] utf8Cache;
        utf8Cache = nullptr;
    }

    // ------------------------------------------------------------------------------------------------------ extraction
    // The results end at the first 0 element.

    CString_X Left(int count) const;  ///< empty for a negative count, the whole text for one beyond the length
    CString_X Right(int count) const; ///< empty for a negative count, the whole text for one beyond the length
    CString_X Mid(int first) const;   ///< the whole text for a negative start, empty for one beyond the length

    /// Empty for a negative start, unlike the form without a count, and for one beyond the length. A negative count
    /// means up to the end.
    CString_X Mid(int first, int count) const;

    /// The text before the first element that is in the set; the whole text if none is.
    CString_X SpanExcluding(const wchar_t* set) const;

    /// The text before the first element that is not in the set. When every element is in the set the result is empty,
    /// where the published function gives the whole text.
    CString_X SpanIncluding(const wchar_t* set) const;

    /// The next token from `start` on, which is then set behind the delimiter that ended it; delimiters in front are
    /// skipped. With nothing left the result is empty and `start` is -1, as it is for a start outside the text. An
    /// empty set gives the rest of the text.
    CString_X Tokenize(const wchar_t* delimiters, int& start) const;

    // ------------------------------------------------------------------------------------------------- change in place

    void MakeUpper();   ///< by towupper: ASCII alone, unless the host has set a C locale
    void MakeLower();   ///< by towlower, likewise
    void MakeReverse(); ///< element by element

    /// Replaces every occurrence of an element. Returns the number of replacements.
    int Replace(wchar_t oldChar, wchar_t newChar);

    /// Replaces a text from left to right; what was put in is not searched again. Returns the number of replacements.
    /// An empty old text is found nowhere.
    int Replace(const wchar_t* oldText, const wchar_t* newText);

    /// Removes every occurrence of an element. Returns the number of elements removed.
    int Remove(wchar_t ch);

    /// Inserts an element or a text in front of a position. Returns the new length. Raises std::out_of_range for a
    /// position below 0 or beyond the length.
    int Insert(int position, wchar_t ch);
    int Insert(int position, const wchar_t* text);

    /// Removes elements, up to the end for a negative count or one beyond the rest. Returns the number of elements
    /// removed, unlike the published function, which returns the new length. Raises std::out_of_range as Insert does.
    int Delete(int position, int count = 1);

    /// Removes elements from the start (Left), the end (Right) or both: without an argument blank, CR, LF and tab, no
    /// other white space, else the element, or those of the set. With an empty set nothing is trimmed. Returns the
    /// object.
    CString_X& TrimLeft();
    CString_X& TrimLeft(wchar_t ch);
    CString_X& TrimLeft(const wchar_t* set);
    CString_X& TrimRight();
    CString_X& TrimRight(wchar_t ch);
    CString_X& TrimRight(const wchar_t* set);
    CString_X& Trim() { return TrimLeft().TrimRight(); }
    CString_X& Trim(wchar_t ch) { return TrimLeft(ch).TrimRight(ch); }
    CString_X& Trim(const wchar_t* set) { return TrimLeft(set).TrimRight(set); }

    // ---------------------------------------------------------------------------------------------------------- search
    // The results are positions from 0 on, -1 for none. A negative start finds nothing.

    /// The first place of an element, from `start` on.
    int Find(wchar_t ch) const { return positionOf(find(ch)); }
    int Find(wchar_t ch, int start) const { return positionOf(find(ch, static_cast<size_type>(start))); }
    /// The first place of a text; -1 for an empty one, unlike the published function, which gives 0.
    int Find(const wchar_t* text) const;
    /// The same from `start` on. An empty text is found at `start` if that is in the text or at its end.
    int Find(const wchar_t* text, int start) const;
    /// The last place of an element.
    int ReverseFind(wchar_t ch) const { return positionOf(rfind(ch)); }
    /// The first place of any element of the set; -1 for an empty set.
    int FindOneOf(const wchar_t* set) const { return positionOf(find_first_of(orEmpty(set))); }

    // ------------------------------------------------------------------------------------------------------ comparison
    // The sign is that of the first difference; the values are not normalised to -1, 0 and 1.

    /// By code points, then by length.
    int Compare(const wchar_t* text) const { return compare(orEmpty(text)); }
    /// The same after towlower on both sides.
    int CompareNoCase(const wchar_t* text) const;
    /// By the locale of the environment, made anew on each call. Raises std::runtime_error if there is no such locale.
    int Collate(const wchar_t* text) const;
    /// The same after towlower on both sides.
    int CollateNoCase(const wchar_t* text) const;

    // ------------------------------------------------------------------------------------------------------ raw buffer

    /// The live text with room for `count` elements and a terminator; the length stays. Raises std::length_error for a
    /// negative count.
    wchar_t* GetBuffer(int count = 0);

    /// Sets the length; new elements are 0. Returns the address that the text had *before*: when the text had to move,
    /// that is no longer its own and must not be used. To grow a text, call GetBuffer first.
    wchar_t* GetBufferSetLength(int count);

    /// With -1 sets the length to where the buffer's first 0 stands, also beyond the old length. With 0 up to the
    /// length cuts the text there, or at its first 0. Any other count does nothing, one above the length too, unlike
    /// the published function: a caller that wrote more terminates it and passes -1.
    void ReleaseBuffer(int count = -1);

    /// Makes room for `count` elements; the text stays.
    void Preallocate(int count) { GetBuffer(count); }
    /// A copy, to be freed by SysFreeString_X; null if there is no memory.
    wchar_t* AllocSysString() const;

    // ---------------------------------------------------------------------------------------- line ends and separators
    // Each returns a changed copy.

    CString_X ToWinReturn() const;     ///< every LF becomes CR LF, also one behind a CR
    CString_X ToUnixReturn() const;    ///< every CR LF becomes LF; a lone CR stays
    CString_X ToWinSeperator() const;  ///< every / becomes a backslash
    CString_X ToUnixSeperator() const; ///< every backslash becomes /

    // ---------------------------------------------------------------------------------------- resources and formatting

    /// Takes the text of an identifier from the calling module's tables (xeresource.h). Returns 1, or 0 with the old
    /// text kept when there is none. Instance and language are ignored.
    BOOL LoadString(unsigned int id);
    BOOL LoadString(void* /*instance*/, unsigned int id) { return LoadString(id); }
    BOOL LoadString(void* /*instance*/, unsigned int id, unsigned short /*language*/) { return LoadString(id); }

    /// Formats by the rules of xeformat.h; the text ends at the first 0 element of the result. The arguments may be
    /// parts of the object itself. A null format gives an empty text. Wide string objects among the arguments stand for
    /// their text; other objects do not compile.
    void Format(const wchar_t* format, ...);
    void FormatV(const wchar_t* format, std::va_list arguments);
    void AppendFormat(const wchar_t* format, ...); ///< Format, behind the present text

    template <class... Arguments, std::enable_if_t<(xe::detail::isManagedObject<Arguments> || ...), int> = 0>
    void Format(const wchar_t* format, const Arguments&... arguments)
    {
        Format(format, xe::detail::formatArgument(arguments)...);
    }

    template <class... Arguments, std::enable_if_t<(xe::detail::isManagedObject<Arguments> || ...), int> = 0>
    void AppendFormat(const wchar_t* format, const Arguments&... arguments)
    {
        AppendFormat(format, xe::detail::formatArgument(arguments)...);
    }

    char* utf8Cache = nullptr; ///< the last UTF-8 copy, owned; null if there is none

private:
    static const wchar_t* orEmpty(const wchar_t* text) noexcept { return text ? text : L""; }
    static int positionOf(size_type found) noexcept { return found == npos ? -1 : static_cast<int>(found); }
    std::wstring& wideText() noexcept { return *this; }
    const std::wstring& wideText() const noexcept { return *this; }
    CString_X& assignWide(std::wstring&& text) noexcept;
    wchar_t elementAt(size_type index) const { return at(index); }
    CString_X extract(size_type first, size_type count) const;
};

// By way of its pointer a narrow text would be compared by address: write CString_X(narrow).
template <class Narrow, xe::detail::IfNarrowText<Narrow> = 0>
bool operator==(const CString_X& text, Narrow narrow) = delete;
template <class Narrow, xe::detail::IfNarrowText<Narrow> = 0>
bool operator==(Narrow narrow, const CString_X& text) = delete;
template <class Narrow, xe::detail::IfNarrowText<Narrow> = 0>
bool operator!=(const CString_X& text, Narrow narrow) = delete;
template <class Narrow, xe::detail::IfNarrowText<Narrow> = 0>
bool operator!=(Narrow narrow, const CString_X& text) = delete;

// By way of its pointer a text and a narrow character would be an address behind the text's.
template <class Narrow, xe::detail::IfNarrowCharacter<Narrow> = 0>
[[deprecated("write L'x' or wchar_t(x)")]] CString_X operator+(const CString_X& text, Narrow ch) = delete;
template <class Narrow, xe::detail::IfNarrowCharacter<Narrow> = 0>
[[deprecated("write L'x' or wchar_t(x)")]] CString_X operator+(Narrow ch, const CString_X& text) = delete;

/// A QString made from wide text, up to its first 0 element. It is a QString: pass it wherever Qt takes one.
///
///     label->setText(XeQString(name));
///
/// The way back is a constructor of CString_X.
class XE_EXPORT XeQString : public QString
{
public:
    XeQString() = default;
    /// Elements above 0xFFFF become surrogate pairs. Empty for null.
    XeQString(const wchar_t* text) : QString(fromWide(text)) {}
    XeQString(const CString_X& text) : QString(fromWide(text.GetString())) {}

    /// Replaces the text.
    XeQString& operator=(const QString& text)
    {
        QString::operator=(text);
        return *this;
    }
    XeQString& operator=(const wchar_t* text);
    XeQString& operator=(const CString_X& text) { return *this = text.GetString(); }

    /// Adds a text or a character.
    XeQString& operator+=(const QString& text)
    {
        append(text);
        return *this;
    }
    XeQString& operator+=(QChar ch)
    {
        append(ch);
        return *this;
    }
    XeQString& operator+=(const wchar_t* text);
    XeQString& operator+=(const CString_X& text) { return *this += text.GetString(); }

private:
    static QString fromWide(const wchar_t* text);
};

/// The text in quotation marks, as QString is shown.
XE_EXPORT QDebug operator<<(QDebug debug, const CString_X& text);

/// Equal to the hash of the std::wstring.
template <>
struct std::hash<CString_X>
{
    std::size_t operator()(const CString_X& text) const noexcept { return std::hash<std::wstring>()(text); }
};

// ---------------------------------------------------------------------------------------------- short and often called

inline CString_X& CString_X::operator=(const CString_X& other)
{
    std::wstring::operator=(other.wideText());
    return *this;
}

inline CString_X& CString_X::operator=(CString_X&& other) noexcept { return assignWide(std::move(other.wideText())); }

inline CString_X& CString_X::operator=(const std::wstring& text)
{
    std::wstring::operator=(text);
    return *this;
}

inline CString_X& CString_X::operator=(wchar_t ch)
{
    assign(1, ch);
    return *this;
}

inline CString_X& CString_X::operator+=(const std::wstring& text)
{
    append(text);
    return *this;
}

inline CString_X& CString_X::operator+=(wchar_t ch)
{
    push_back(ch);
    return *this;
}

inline CString_X& CString_X::operator+=(const wchar_t* text)
{
    append(orEmpty(text));
    return *this;
}

inline int CString_X::Find(const wchar_t* text) const { return text && *text ? positionOf(find(text)) : -1; }

inline int CString_X::Find(const wchar_t* text, int start) const
{
    return positionOf(find(orEmpty(text), static_cast<size_type>(start)));
}
