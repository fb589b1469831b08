// The wide printf interpreter in its plainest form: a std::wstringstream that lives through the whole format and is
// given one conversion after the other. Slow, and the yardstick for the engine.
#pragma once

#include <cwchar>
#include <cwctype>
#include <sstream>
#include <string>
#include <string_view>

/// Formats with the arguments of a source: `source.nextStar()`, a width or precision, `nextInt()`, `nextLong()`,
/// `nextCharacter()`, `nextDouble()`, `nextPointer()`, `nextWide()`, `nextNarrow()` and `nextIntAddress()` each give
/// the next one, of that kind.
template <class Source>
class StreamPrintf
{
public:
    explicit StreamPrintf(Source& source) : m_source(source) {}

    std::wstring operator()(const wchar_t* format)
    {
        for (m_next = format; *m_next;) {
            if (*m_next != L'%')
                put(*m_next++);
            else if (*++m_next == L'%')
                put(*m_next++);
            else
                convert();
        }
        return m_stream.str();
    }

private:
    enum { Left = 1, Plus = 2, Sharp = 16 };
    enum Size { None, Narrow, Wide, Bits64 };

    void put(wchar_t ch) { m_stream << std::wstring_view(&ch, 1); }

    void convert()
    {
        int flags = 0, width = 0, precision = -1;
        for (;; ++m_next) {
            if (*m_next == L'-')
                flags |= Left;
            else if (*m_next == L'+')
                flags |= Plus;
            else if (*m_next == L'#')
                flags |= Sharp;
            else if (*m_next == L'*')
                width = m_source.nextStar();
            else if (*m_next != L'0' && *m_next != L' ')
                break;
        }
        if (width == 0)
            width = number();
        if (*m_next == L'.') {
            ++m_next;
            if (*m_next == L'*') {
                ++m_next;
                precision = m_source.nextStar();
            } else {
                precision = number();
            }
        }
        const Size size = readSize();
        const wchar_t letter = *m_next;
        if (!letter)
            return;
        ++m_next;

        if (width != 0)
            m_stream.width(width);
        set(std::ios_base::showpos, flags & Plus);
        m_stream.setf(flags & Left ? std::ios_base::left : std::ios_base::right, std::ios_base::adjustfield);
        write(letter, size, flags, precision);
    }

    int number()
    {
        const long value = std::wcstol(m_next, nullptr, 10);
        while (std::iswdigit(static_cast<std::wint_t>(*m_next)))
            ++m_next;
        return static_cast<int>(value);
    }

    Size readSize()
    {
        if (std::wstring_view(m_next).substr(0, 3) == L"I64") {
            m_next += 3;
            return Bits64;
        }
        if (std::wstring_view(m_next).substr(0, 2) == L"ll") {
            m_next += 2;
            return Bits64;
        }
        if (!*m_next || !std::wcschr(L"hlLwFN", *m_next))
            return None;
        const wchar_t prefix = *m_next++;
        return prefix == L'h' ? Narrow : prefix == L'F' || prefix == L'N' ? None : Wide;
    }

    void write(wchar_t letter, Size size, int flags, int precision)
    {
        const bool integer = std::wcschr(L"diuoxX", letter);
        if (size == Bits64 && !integer)
            return;
        if (integer)
            writeInteger(letter, size, flags);
        else if (std::wcschr(L"eEfgG", letter))
            writeFloat(letter, flags, precision);
        else if (letter == L'c' || letter == L'C')
            writeCharacter(size);
        else if (letter == L's' || letter == L'S')
            writeText(size == Narrow || (letter == L'S' && size == None));
        else if (letter == L'p')
            m_stream << m_source.nextPointer();
        else if (letter == L'n')
            if (const int* const value = m_source.nextIntAddress())
                m_stream << std::dec << *value;
    }

    void writeInteger(wchar_t letter, Size size, int flags)
    {
        if (letter == L'o')
            m_stream << std::oct;
        else if (letter == L'x' || letter == L'X')
            m_stream << std::hex;
        else
            m_stream << std::dec;
        if (std::wcschr(L"oxX", letter))
            set(std::ios_base::showbase, flags & Sharp);
        if (letter == L'x' || letter == L'X')
            set(std::ios_base::uppercase, letter == L'X');
        if (size == Bits64)
            m_stream << static_cast<unsigned long long>(m_source.nextLong());
        else
            m_stream << m_source.nextInt();
    }

    void writeFloat(wchar_t letter, int flags, int precision)
    {
        m_stream.precision(precision < 0 ? 6 : precision);
        set(std::ios_base::showpoint, flags & Sharp);
        if (letter == L'f')
            m_stream << std::fixed;
        else if (letter == L'e' || letter == L'E')
            m_stream << std::scientific;
        set(std::ios_base::uppercase, letter == L'E' || letter == L'G');
        m_stream << m_source.nextDouble();
    }

    void writeCharacter(Size size)
    {
        if (size == Narrow)
            m_stream << std::dec << m_source.nextInt();
        else
            put(static_cast<wchar_t>(m_source.nextCharacter()));
    }

    void writeText(bool narrow)
    {
        if (!narrow) {
            const wchar_t* const text = m_source.nextWide();
            m_stream << (text ? text : L"(null)");
        } else if (const char* const text = m_source.nextNarrow()) {
            std::wstring wide;
            for (const char* byte = text; *byte; ++byte)
                wide += static_cast<wchar_t>(static_cast<unsigned char>(*byte));
            m_stream << wide;
        } else {
            m_stream << L"(null)";
        }
    }

    void set(std::ios_base::fmtflags flag, bool on) { m_stream.setf(on ? flag : std::ios_base::fmtflags(), flag); }

    Source& m_source;
    const wchar_t* m_next = nullptr;
    std::wstringstream m_stream;
};
