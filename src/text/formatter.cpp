#include "text/formatter.h"
#include "text/numberformat.h"

#include <cstdio>
#include <cwchar>
#include <cwctype>

namespace xe {

using std::ios_base;

namespace {

enum class Size { Default, Narrow, Wide, Long64 };

// One conversion of the format, its type letter included.
struct Conversion
{
    bool left = false;
    bool plus = false;
    bool alternative = false;
    int width = 0;
    int precision = -1;
    Size size = Size::Default;
    wchar_t type = L'\0';
};

class Arguments
{
public:
    explicit Arguments(std::va_list list) { va_copy(m_list, list); }
    ~Arguments() { va_end(m_list); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    template <class T>
    T next()
    {
        return va_arg(m_list, T);
    }

private:
    std::va_list m_list;
};

class Formatter
{
public:
    Formatter(WideBuffer& out, const wchar_t* format, std::va_list arguments)
        : m_out(out),
          m_next(format),
          m_arguments(arguments)
    {}

    void run();

private:
    void writeLiteral(std::size_t count);
    Conversion readConversion();
    void readFlags(Conversion& conversion);
    int readNumber();
    bool skip(const wchar_t* prefix);
    Size readSize();

    void write(const Conversion& conversion);
    void writeCharacter(const Conversion& conversion);
    void writeText(const Conversion& conversion);
    void writeInteger(const Conversion& conversion);
    void writeFloat(const Conversion& conversion);
    template <class Char>
    void writeTextAt(const Char* text);

    WideInserter m_out;
    const wchar_t* m_next;
    Arguments m_arguments;
};

void Formatter::run()
{
    while (*m_next) {
        if (*m_next != L'%')
            writeLiteral(std::wcscspn(m_next, L"%"));
        else if (*++m_next == L'%')
            writeLiteral(1);
        else if (const Conversion conversion = readConversion(); conversion.type)
            write(conversion);
    }
}

// Literals go out one by one: the first of them takes the width that a conversion has left.
void Formatter::writeLiteral(std::size_t count)
{
    m_out.insert(std::wstring_view(m_next, 1));
    m_out.insert(std::wstring_view(m_next + 1, count - 1));
    m_next += count;
}

// ------------------------------------------------------------------------------------------------------------ grammar

Conversion Formatter::readConversion()
{
    Conversion conversion;
    readFlags(conversion);
    if (conversion.width == 0)
        conversion.width = readNumber();
    if (skip(L"."))
        conversion.precision = skip(L"*") ? m_arguments.next<int>() : readNumber();
    conversion.size = readSize();
    conversion.type = *m_next;
    if (conversion.type)
        ++m_next;
    return conversion;
}

// Zero and blank are flags without an effect.
void Formatter::readFlags(Conversion& conversion)
{
    for (;; ++m_next) {
        switch (*m_next) {
        case L'-':
            conversion.left = true;
            break;
        case L'+':
            conversion.plus = true;
            break;
        case L'#':
            conversion.alternative = true;
            break;
        case L'*':
            conversion.width = m_arguments.next<int>();
            break;
        case L'0':
        case L' ':
            break;
        default:
            return;
        }
    }
}

// The number is what wcstol finds, a sign or white space in front of it included; but only digits are skipped.
int Formatter::readNumber()
{
    if (*m_next >= L'A' && *m_next <= L'z')
        return 0;
    const auto number = static_cast<int>(std::wcstol(m_next, nullptr, 10));
    while (std::iswdigit(*m_next))
        ++m_next;
    return number;
}

bool Formatter::skip(const wchar_t* prefix)
{
    const std::size_t length = std::wcslen(prefix);
    if (std::wcsncmp(m_next, prefix, length) != 0)
        return false;
    m_next += length;
    return true;
}

Size Formatter::readSize()
{
    switch (*m_next) {
    case L'I':
        return skip(L"I64") ? Size::Long64 : Size::Default;
    case L'l':
        return skip(L"ll") ? Size::Long64 : (++m_next, Size::Wide);
    case L'L':
    case L'w':
        ++m_next;
        return Size::Wide;
    case L'h':
        ++m_next;
        return Size::Narrow;
    case L'F':
    case L'N':
        ++m_next;
        return Size::Default;
    default:
        return Size::Default;
    }
}

// -------------------------------------------------------------------------------------------------------- conversions

void Formatter::write(const Conversion& conversion)
{
    if (conversion.width != 0)
        m_out.width = conversion.width;
    m_out.setFlag(ios_base::showpos, conversion.plus);
    m_out.setFlags(conversion.left ? ios_base::left : ios_base::right, ios_base::adjustfield);

    switch (conversion.type) {
    case L'd':
    case L'i':
    case L'u':
    case L'o':
    case L'x':
    case L'X':
        return writeInteger(conversion);
    default:
        break;
    }
    if (conversion.size == Size::Long64)
        return;
    switch (conversion.type) {
    case L'c':
    case L'C':
        return writeCharacter(conversion);
    case L's':
    case L'S':
        return writeText(conversion);
    case L'e':
    case L'E':
    case L'f':
    case L'g':
    case L'G':
        return writeFloat(conversion);
    case L'p':
        return m_out.insert(m_arguments.next<const void*>());
    case L'n':
        if (const int* const value = m_arguments.next<const int*>()) {
            m_out.setFlags(ios_base::dec, ios_base::basefield);
            m_out.insert(*value);
        }
        return;
    default:
        return;
    }
}

void Formatter::writeCharacter(const Conversion& conversion)
{
    const int value = m_arguments.next<int>();
    if (conversion.size == Size::Narrow) {
        m_out.setFlags(ios_base::dec, ios_base::basefield);
        m_out.insert(value);
    } else {
        const auto ch = static_cast<wchar_t>(value);
        m_out.insert(std::wstring_view(&ch, 1));
    }
}

void Formatter::writeText(const Conversion& conversion)
{
    const bool narrow =
        conversion.size == Size::Narrow || (conversion.type == L'S' && conversion.size == Size::Default);
    if (narrow)
        writeTextAt(m_arguments.next<const char*>());
    else
        writeTextAt(m_arguments.next<const wchar_t*>());
}

template <class Char>
void Formatter::writeTextAt(const Char* text)
{
    if (text)
        m_out.insert(std::basic_string_view<Char>(text));
    else
        m_out.insert(std::wstring_view(L"(null)"));
}

void Formatter::writeInteger(const Conversion& conversion)
{
    switch (conversion.type) {
    case L'o':
        m_out.setFlags(ios_base::oct, ios_base::basefield);
        m_out.setFlag(ios_base::showbase, conversion.alternative);
        break;
    case L'x':
    case L'X':
        m_out.setFlags(ios_base::hex, ios_base::basefield);
        m_out.setFlag(ios_base::showbase, conversion.alternative);
        m_out.setFlag(ios_base::uppercase, conversion.type == L'X');
        break;
    default:
        m_out.setFlags(ios_base::dec, ios_base::basefield);
        break;
    }
    if (conversion.size == Size::Long64)
        m_out.insert(m_arguments.next<unsigned long long>());
    else
        m_out.insert(m_arguments.next<int>());
}

// `g` and `G` leave the notation as an earlier conversion has set it.
void Formatter::writeFloat(const Conversion& conversion)
{
    m_out.precision = conversion.precision == -1 ? 6 : conversion.precision;
    m_out.setFlag(ios_base::showpoint, conversion.alternative);
    switch (conversion.type) {
    case L'f':
        m_out.setFlags(ios_base::fixed, ios_base::floatfield);
        break;
    case L'e':
    case L'E':
        m_out.setFlags(ios_base::scientific, ios_base::floatfield);
        break;
    default:
        break;
    }
    m_out.setFlag(ios_base::uppercase, conversion.type == L'E' || conversion.type == L'G');
    m_out.insert(m_arguments.next<double>());
}

} // namespace

void formatInto(WideBuffer& out, const wchar_t* format, std::va_list arguments)
{
    if (format)
        Formatter(out, format, arguments).run();
}

} // namespace xe
