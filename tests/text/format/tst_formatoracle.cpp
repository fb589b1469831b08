#include "streamprintf.h"
#include "testclass.h"

#include <xeformat.h>

#include <climits>
#include <cstring>
#include <locale>
#include <random>
#include <variant>

namespace {

using Random = std::mt19937_64;

/// One of the kinds of arguments that travel differently through the `...` of a C function.
using Argument = std::variant<int, long long, double, const void*>;

/// Any text of random pieces: whole conversions, and single elements that matter to the grammar.
class RandomFormat
{
public:
    explicit RandomFormat(Random& random) : m_random(random) {}

    std::wstring make()
    {
        std::wstring format;
        for (std::size_t pieces = 1 + below(4); pieces > 0; --pieces)
            format += below(3) ? conversion() : below(2) ? literal() : rubble();
        return format;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    template <std::size_t Count>
    std::wstring oneOf(const wchar_t* const (&choices)[Count])
    {
        return choices[below(Count)];
    }

    std::wstring conversion()
    {
        std::wstring text = L"%";
        while (below(3) == 0)
            text += L"-+0 #"[below(5)];
        text += oneOf({L"", L"", L"", L"", L"1", L"5", L"9", L"12", L"40", L"*", L"*-", L"**", L"*7"});
        text += oneOf({L"", L"", L"", L"", L".", L".0", L".1", L".2", L".3", L".10", L".17", L".40", L".*"});
        text += oneOf({L"", L"", L"", L"", L"", L"l", L"h", L"L", L"w", L"F", L"N", L"ll", L"I64"});
        return text + oneOf({L"d", L"i", L"u", L"o", L"x", L"X", L"d", L"x", L"X", L"f", L"e", L"E", L"g", L"G",
                             L"g", L"c", L"C", L"s", L"S", L"s", L"S", L"p", L"n", L"y", L"a", L"%", L"z", L"é"});
    }

    std::wstring literal() { return oneOf({L"a", L" ", L"text", L"%%", L"日本", L"😀", L"1", L"d", L"\n"}); }

    std::wstring rubble()
    {
        static const std::wstring elements = L"%%%*..-+0 #123456789IlhLwFNyzdiuoxXsScCeEfgGpn\t|日";
        std::wstring text;
        for (std::size_t count = 1 + below(8); count > 0; --count)
            text += elements[below(elements.size())];
        return text;
    }

    Random& m_random;
};

/// Invents an argument whenever the interpreter asks for one, and remembers it.
class InventedArguments
{
public:
    explicit InventedArguments(Random& random) : m_random(random) {}

    int nextInt()
    {
        const int choices[] = {0, 1, -1, 7, 65, INT_MAX, INT_MIN, 0x1F600, small(), small(), small(), small(), bits()};
        return keep(choices[m_random() % std::size(choices)]);
    }
    int nextCharacter()
    {
        const int choices[] = {0, 1, 'x', 0xFF, 0x65E5, 0x1F600, 0x10FFFF, INT_MAX};
        return keep(choices[m_random() % std::size(choices)]);
    }
    int nextStar()
    {
        const int choices[] = {0, 1, 5, -1, -7, INT_MIN, small(), small()};
        return keep(choices[m_random() % std::size(choices)]);
    }
    long long nextLong()
    {
        const long long choices[] = {0,         1,       -1,     LLONG_MAX,
                                     LLONG_MIN, small(), bits(), static_cast<long long>(m_random())};
        return keep(choices[m_random() % std::size(choices)]);
    }
    double nextDouble()
    {
        const double choices[] = {0.0,           -0.0,         1.5,         -2.5,           0.1,    1e10,
                                  123456.5,      1e-7,         1e300,       4.9406565e-324, qInf(), qQNaN(),
                                  small() / 8.0, bits() / 1e3, anyDouble(), anyDouble()};
        return keep(choices[m_random() % std::size(choices)]);
    }
    const void* nextPointer()
    {
        const quintptr choices[] = {0, 1, 0xABCDEF, quintptr(m_random())};
        return keepPointer(reinterpret_cast<const void*>(choices[m_random() % std::size(choices)]));
    }
    const wchar_t* nextWide()
    {
        static const wchar_t* const choices[] = {nullptr, L"", L"x", L"wide text", L"日本語😀", L"%d"};
        return keepPointer(choices[m_random() % std::size(choices)]);
    }
    const char* nextNarrow()
    {
        static const char* const choices[] = {nullptr, "", "x", "narrow text", "\xC3\xA9\xFF", "%s"};
        return keepPointer(choices[m_random() % std::size(choices)]);
    }
    const int* nextIntAddress()
    {
        static const int numbers[] = {0, 42, -42, INT_MIN};
        const int* const choices[] = {nullptr, numbers, numbers + 1, numbers + 2, numbers + 3};
        return keepPointer(choices[m_random() % std::size(choices)]);
    }

    const std::vector<Argument>& all() const { return m_all; }

private:
    int small() { return static_cast<int>(m_random() % 101) - 50; }
    int bits() { return static_cast<int>(m_random()); }
    double anyDouble()
    {
        const std::uint64_t pattern = m_random();
        double value;
        std::memcpy(&value, &pattern, sizeof value);
        return value;
    }

    template <class T>
    T keep(T value)
    {
        m_all.emplace_back(value);
        return value;
    }
    template <class T>
    const T* keepPointer(const T* pointer)
    {
        m_all.emplace_back(static_cast<const void*>(pointer));
        return pointer;
    }

    Random& m_random;
    std::vector<Argument> m_all;
};

using Engine = std::wstring (*)(const wchar_t* format, std::va_list arguments);

std::wstring call(Engine engine, const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::wstring text = engine(format, arguments);
    va_end(arguments);
    return text;
}

constexpr std::size_t mostArguments = 4;

/// Calls the engine with the bound arguments and those that are left.
template <class... Bound>
std::wstring callWith(Engine engine, const wchar_t* format, const Argument* next, const Argument* end, Bound... bound)
{
    if constexpr (sizeof...(Bound) < mostArguments) {
        if (next != end) {
            const auto bindNext = [&](auto value) { return callWith(engine, format, next + 1, end, bound..., value); };
            return std::visit(bindNext, *next);
        }
    }
    return call(engine, format, bound...);
}

// A width or precision of four digits makes long texts that prove nothing more.
bool hasLongNumber(const std::wstring& format)
{
    std::size_t digits = 0;
    return std::any_of(format.begin(), format.end(), [&](wchar_t ch) {
        digits = ch >= L'0' && ch <= L'9' ? digits + 1 : 0;
        return digits > 3;
    });
}

QString shown(const std::wstring& format, const std::wstring& text)
{
    return QStringLiteral("\"%1\" gives \"%2\"").arg(QString::fromStdWString(format), QString::fromStdWString(text));
}

/// What the comparison of many random formats found.
struct Comparison
{
    int compared = 0;
    int different = 0;
    QString expected; ///< of the first difference
    QString actual;
};

Comparison compare(Engine engine, int count, Random::result_type seed)
{
    Random random(seed);
    Comparison result;
    while (result.compared < count) {
        const std::wstring format = RandomFormat(random).make();
        if (hasLongNumber(format))
            continue;
        InventedArguments arguments(random);
        const std::wstring expected = StreamPrintf(arguments)(format.c_str());
        const std::vector<Argument>& all = arguments.all();
        if (all.size() > mostArguments)
            continue;
        const std::wstring actual = callWith(engine, format.c_str(), all.data(), all.data() + all.size());
        ++result.compared;
        if (actual != expected && result.different++ == 0) {
            result.expected = shown(format, expected);
            result.actual = shown(format, actual);
        }
    }
    return result;
}

class OtherNumbers : public std::numpunct<wchar_t>
{
    wchar_t do_decimal_point() const override { return L'\u066B'; }
    wchar_t do_thousands_sep() const override { return L'_'; }
    std::string do_grouping() const override { return "\1\2\3"; }
};

/// Writes every number in brackets.
class Brackets : public std::num_put<wchar_t>
{
    template <class Value>
    iter_type put(iter_type out, std::ios_base& stream, wchar_t fill, Value value) const
    {
        *out++ = L'[';
        out = std::num_put<wchar_t>::do_put(out, stream, fill, value);
        *out++ = L']';
        return out;
    }

    using std::num_put<wchar_t>::do_put;
    iter_type do_put(iter_type out, std::ios_base& stream, wchar_t fill, long value) const override
    {
        return put(out, stream, fill, value);
    }
    iter_type do_put(iter_type out, std::ios_base& stream, wchar_t fill, unsigned long long value) const override
    {
        return put(out, stream, fill, value);
    }
    iter_type do_put(iter_type out, std::ios_base& stream, wchar_t fill, double value) const override
    {
        return put(out, stream, fill, value);
    }
    iter_type do_put(iter_type out, std::ios_base& stream, wchar_t fill, const void* value) const override
    {
        return put(out, stream, fill, value);
    }
};

// ------------------------------------------------------------------------------- engines with a fault, for the checker

std::wstring withSmallExponent(const wchar_t* format, std::va_list arguments)
{
    std::wstring text = XeEmu_vswprintfV(format, arguments);
    std::replace(text.begin(), text.end(), L'E', L'e');
    return text;
}

std::wstring withoutLastElement(const wchar_t* format, std::va_list arguments)
{
    std::wstring text = XeEmu_vswprintfV(format, arguments);
    text.resize(std::max<std::size_t>(text.size(), 1) - 1);
    return text;
}

} // namespace

Q_DECLARE_METATYPE(std::locale)
Q_DECLARE_METATYPE(Engine)

/// The engine against a stream that is given one conversion after the other, over many random formats and arguments.
class tst_FormatOracle : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { std::locale::global(std::locale::classic()); }
    void aStreamWritesTheSame_data();
    void aStreamWritesTheSame();
    void aFaultIsNoticed_data();
    void aFaultIsNoticed();
};

void tst_FormatOracle::aStreamWritesTheSame_data()
{
    const std::locale classic = std::locale::classic();
    QTest::addColumn<std::locale>("locale");
    QTest::addColumn<int>("count");
    QTest::newRow("classic locale") << classic << 300000;
    QTest::newRow("grouping and another decimal point") << std::locale(classic, new OtherNumbers) << 50000;
    QTest::newRow("numbers written by a facet") << std::locale(classic, new Brackets) << 50000;
}

void tst_FormatOracle::aStreamWritesTheSame()
{
    QFETCH(std::locale, locale);
    QFETCH(int, count);
    std::locale::global(locale);
    const Comparison result = compare(XeEmu_vswprintfV, count, 5);
    QCOMPARE(result.actual, result.expected);
    QCOMPARE(result.different, 0);
    QCOMPARE(result.compared, count);
}

void tst_FormatOracle::aFaultIsNoticed_data()
{
    QTest::addColumn<Engine>("engine");
    QTest::newRow("upper case") << Engine(withSmallExponent);
    QTest::newRow("a lost element") << Engine(withoutLastElement);
}

void tst_FormatOracle::aFaultIsNoticed()
{
    QFETCH(Engine, engine);
    const Comparison result = compare(engine, 2000, 5);
    QVERIFY(result.different > 0);
    QVERIFY(result.actual != result.expected);
}

XE_APPLESS_TEST(tst_FormatOracle)
#include "tst_formatoracle.moc"
