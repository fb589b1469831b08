#include "text/numberformat.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>

namespace xe {

using std::ios_base;

namespace {

void makeUpper(char* begin, char* end)
{
    std::transform(begin, end, begin, [](char ch) { return ch >= 'a' && ch <= 'z' ? char(ch - 'a' + 'A') : ch; });
}

// The text of a double that is not negative. No double has more decimals or more significant digits than the limits
// below; what a larger precision adds are zeros, which are counted and not written, so that any precision fits.
class FloatText
{
public:
    FloatText(double value, ios_base::fmtflags flags, int precision)
    {
        if (!std::isfinite(value))
            write(value, std::chars_format::fixed, 0, 0);
        else if (flags & ios_base::fixed)
            write(value, std::chars_format::fixed, precision, mostDecimals);
        else if (flags & ios_base::scientific)
            write(value, std::chars_format::scientific, precision, mostDigits);
        else
            write(value, std::chars_format::general, std::min(precision, mostDigits), mostDigits);
        if (flags & ios_base::showpoint && std::isfinite(value))
            showPoint();
        if (flags & ios_base::uppercase && !(flags & ios_base::fixed))
            makeUpper(m_text, m_end);
    }

    std::size_t size() const { return static_cast<std::size_t>(m_end - m_text) + m_zeros; }

    void appendTo(WideBuffer& out) const
    {
        out.append(m_text, static_cast<std::size_t>(m_zerosAt - m_text));
        out.append(m_zeros, L'0');
        out.append(m_zerosAt, static_cast<std::size_t>(m_end - m_zerosAt));
    }

private:
    static constexpr int mostDecimals = 1074;
    static constexpr int mostDigits = 767;
    static constexpr int mostIntegerDigits = 309;

    void write(double value, std::chars_format format, int precision, int mostPrecision)
    {
        m_end = std::to_chars(m_text, std::end(m_text), value, format, std::min(precision, mostPrecision)).ptr;
        m_zeros = static_cast<std::size_t>(std::max(precision - mostPrecision, 0));
        m_zerosAt = exponent();
    }

    void showPoint()
    {
        if (std::find(m_text, m_end, '.') != m_end)
            return;
        std::copy_backward(exponent(), m_end, m_end + 1);
        *exponent() = '.';
        ++m_end;
        m_zerosAt = exponent();
    }

    char* exponent() { return std::find(m_text, m_end, 'e'); }

    char m_text[mostIntegerDigits + mostDecimals + 16];
    char* m_end = m_text;
    char* m_zerosAt = m_text;
    std::size_t m_zeros = 0;
};

} // namespace

// In any locale but the classic one a stream of its own writes the number: it knows about grouping, the decimal point
// and facets of the host's own.
template <class Value>
void WideInserter::insertByStream(Value value)
{
    // The library's streams keep that many digits on the stack.
    constexpr int mostPrecision = 10000;
    if (!m_stream) {
        m_stream.emplace();
        m_stream->imbue(m_locale);
    }
    m_stream->str({});
    m_stream->flags(flags);
    m_stream->precision(std::min(precision, mostPrecision));
    m_stream->width(width);
    *m_stream << value;
    width = 0;
    const std::wstring text = m_stream->str();
    m_out.append(text.data(), text.size());
}

void WideInserter::insertUnsigned(unsigned long long value, char sign)
{
    const bool octal = hasFlag(ios_base::oct);
    const bool hexadecimal = hasFlag(ios_base::hex);
    char text[32];
    char* begin = text + 3; // room for the sign, or for the base
    char* const end = std::to_chars(begin, std::end(text), value, hexadecimal ? 16 : octal ? 8 : 10).ptr;
    if (hasFlag(ios_base::showbase) && value != 0) {
        if (hexadecimal)
            *--begin = 'x';
        if (hexadecimal || octal)
            *--begin = '0';
    }
    if (hasFlag(ios_base::uppercase))
        makeUpper(begin, end);
    if (sign)
        *--begin = sign;
    const auto size = static_cast<std::size_t>(end - begin);
    insertField(size, [&] { m_out.append(begin, size); });
}

void WideInserter::insert(int value)
{
    if (!m_classic)
        return insertByStream(value);
    const auto pattern = static_cast<unsigned>(value);
    if (hasFlag(ios_base::oct | ios_base::hex))
        insertUnsigned(pattern, '\0');
    else if (value < 0)
        insertUnsigned(0U - pattern, '-');
    else
        insertUnsigned(pattern, hasFlag(ios_base::showpos) ? '+' : '\0');
}

void WideInserter::insert(unsigned long long value)
{
    if (m_classic)
        insertUnsigned(value, '\0');
    else
        insertByStream(value);
}

void WideInserter::insert(const void* value)
{
    if (!m_classic)
        return insertByStream(value);
    const ios_base::fmtflags kept = flags;
    setFlags(ios_base::hex | ios_base::showbase, ios_base::basefield | ios_base::showbase | ios_base::uppercase);
    insertUnsigned(reinterpret_cast<std::uintptr_t>(value), '\0');
    flags = kept;
}

void WideInserter::insert(double value)
{
    const bool isGeneral = !hasFlag(ios_base::floatfield);
    if (!m_classic || (isGeneral && hasFlag(ios_base::showpoint)))
        return insertByStream(value);
    const char sign = std::signbit(value) ? '-' : hasFlag(ios_base::showpos) ? '+' : '\0';
    const FloatText number(std::fabs(value), flags, precision < 0 ? 6 : precision);
    const std::size_t signSize = sign ? 1 : 0;
    insertField(signSize + number.size(), [&] {
        m_out.append(&sign, signSize);
        number.appendTo(m_out);
    });
}

void WideInserter::insert(std::string_view text)
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    insertField(text.size(), [&] { m_out.append(bytes, text.size()); });
}

} // namespace xe
