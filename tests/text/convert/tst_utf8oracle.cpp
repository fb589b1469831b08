#include "testclass.h"
#include "textresult.h"

#include <optional>
#include <random>

namespace {

constexpr uint byteOrderMark = 0xFEFF; // which Qt takes away at the start of a text

QString qtText(uint point)
{
    if (point < 0x10000)
        return QChar(point);
    return QString(QChar(QChar::highSurrogate(point))) + QChar(QChar::lowSurrogate(point));
}

/// Decodes one sequence after the other by the definition: the shortest form of a code point that is no surrogate.
std::optional<std::wstring> slowlyDecoded(const std::string& bytes)
{
    std::wstring text;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at++]);
        unsigned tails = 0;
        unsigned long value = lead;
        unsigned long lowest = 0;
        if (lead >= 0x80) {
            if ((lead & 0xE0) == 0xC0) {
                tails = 1, value = lead & 0x1F, lowest = 0x80;
            } else if ((lead & 0xF0) == 0xE0) {
                tails = 2, value = lead & 0x0F, lowest = 0x800;
            } else if ((lead & 0xF8) == 0xF0) {
                tails = 3, value = lead & 0x07, lowest = 0x10000;
            } else {
                return {};
            }
        }
        for (; tails > 0; --tails) {
            if (at == bytes.size() || (bytes[at] & 0xC0) != 0x80)
                return {};
            value = value * 64 + (static_cast<unsigned char>(bytes[at++]) & 0x3F);
        }
        if (value < lowest || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
            return {};
        text += static_cast<wchar_t>(value);
    }
    return text;
}

/// The object's decoding; nothing if it raises what it has to raise.
std::optional<std::wstring> decoded(const std::string& bytes)
{
    try {
        return CString_X(bytes.c_str());
    } catch (const std::range_error&) {
        return {};
    }
}

std::string hexadecimal(const std::string& bytes) { return QByteArray::fromStdString(bytes).toHex(' ').toStdString(); }

/// Text of whole sequences with a few bytes changed, taken out or put in; never a 0 byte.
class RandomBytes
{
public:
    std::string make()
    {
        std::string bytes;
        for (std::size_t pieces = below(40); pieces > 0; --pieces)
            bytes += sequence();
        for (std::size_t faults = below(3); faults > 0 && !bytes.empty(); --faults) {
            const std::size_t at = below(bytes.size());
            switch (below(4)) {
            case 0:
                bytes[at] = anyByte();
                break;
            case 1:
                bytes.insert(at, 1, anyByte());
                break;
            case 2:
                bytes.erase(at, 1);
                break;
            default:
                bytes.resize(at);
                break;
            }
        }
        return bytes;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    char anyByte() { return static_cast<char>(1 + below(255)); }

    std::string sequence()
    {
        static const char* const edges[] = {"\xC2\x80",     "\xDF\xBF",         "\xE0\xA0\x80",     "\xED\x9F\xBF",
                                            "\xEE\x80\x80", "\xEF\xBF\xBF",     "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF",
                                            "\xE6\x97\xA5", "\xF0\x9F\x98\x80", "\xED\xA0\x80",     "\xF4\x90\x80\x80"};
        switch (below(8)) {
        case 0:
            return edges[below(std::size(edges) - 2)];
        case 1:
            return below(50) ? edges[below(std::size(edges) - 2)] : edges[below(std::size(edges))];
        case 2:
            return std::string(below(20), 'x');
        default:
            return std::string(1, static_cast<char>(1 + below(127)));
        }
    }

    std::mt19937 m_random{5};
};

} // namespace

/// UTF-8 both ways: every code point against Qt's conversion, any bytes against a decoder by the definition.
class tst_Utf8Oracle : public QObject
{
    Q_OBJECT

private slots:
    void everyCodePoint();
    void everyPairOfBytes();
    void everyThreeBytes();
    void fourBytes();
    void randomBytes();
};

void tst_Utf8Oracle::everyCodePoint()
{
    CString_X all;
    QByteArray narrow;
    for (uint point = 1; point <= 0x10FFFF; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF)
            continue;
        const QString text = qtText(point);
        const QByteArray expected = text.toUtf8();
        CString_X object(static_cast<wchar_t>(point));
        if (expected != object.Utf8Ptr() || CString_X(expected.constData()) != object || CString_X(text) != object
            || (point != byteOrderMark && XeQString(object) != text))
            QFAIL(qPrintable(QStringLiteral("U+%1").arg(point, 0, 16)));
        all += object;
        narrow += expected;
    }
    QCOMPARE(all.GetLength(), 0x10FFFF - 0x800);
    QVERIFY(narrow == all.Utf8Ptr());
    QVERIFY(CString_X(narrow.constData()) == all);
    QVERIFY(CString_X(QString::fromUtf8(narrow)) == all);
    QVERIFY(XeQString(all) == QString::fromUtf8(narrow));
}

void tst_Utf8Oracle::everyPairOfBytes()
{
    int valid = 0;
    for (unsigned first = 1; first <= 0xFF; ++first) {
        for (unsigned second = 0; second <= 0xFF; ++second) {
            std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
            bytes.resize(second ? 2 : 1);
            const auto expected = slowlyDecoded(bytes);
            QVERIFY2(decoded(bytes) == expected, hexadecimal(bytes).c_str());
            valid += expected.has_value();
        }
    }
    QCOMPARE(valid, 127 + 127 * 127 + 1920);
}

// The first byte of three, and the tails that matter for it.
void tst_Utf8Oracle::everyThreeBytes()
{
    int valid = 0;
    for (unsigned first = 0xC0; first <= 0xFF; ++first) {
        for (unsigned second = 0x7F; second <= 0xC2; ++second) {
            for (unsigned third = 0x7F; third <= 0xC2; ++third) {
                const std::string bytes = {static_cast<char>(first), static_cast<char>(second),
                                           static_cast<char>(third)};
                const auto expected = slowlyDecoded(bytes);
                QVERIFY2(decoded(bytes) == expected, hexadecimal(bytes).c_str());
                valid += expected.has_value() && expected->size() == 1;
            }
        }
    }
    QCOMPARE(valid, 0x10000 - 0x800 - 0x800);
}

void tst_Utf8Oracle::fourBytes()
{
    for (unsigned first = 0xEF; first <= 0xFF; ++first) {
        for (unsigned second = 0x7F; second <= 0xC0; ++second) {
            for (const unsigned third : {0x7FU, 0x80U, 0x9AU, 0xBFU, 0xC0U, 0xE0U}) {
                for (const unsigned fourth : {0x01U, 0x7FU, 0x80U, 0x9AU, 0xBFU, 0xC0U, 0xFFU}) {
                    const std::string bytes = {static_cast<char>(first), static_cast<char>(second),
                                               static_cast<char>(third), static_cast<char>(fourth)};
                    QVERIFY2(decoded(bytes) == slowlyDecoded(bytes), hexadecimal(bytes).c_str());
                }
            }
        }
    }
}

void tst_Utf8Oracle::randomBytes()
{
    RandomBytes random;
    int valid = 0, invalid = 0;
    for (int round = 0; round < 200000; ++round) {
        const std::string bytes = random.make();
        const auto expected = slowlyDecoded(bytes);
        QVERIFY2(decoded(bytes) == expected, hexadecimal(bytes).c_str());
        if (expected)
            QVERIFY2(bytes == CString_X(*expected).Utf8Ptr(), hexadecimal(bytes).c_str());
        ++(expected ? valid : invalid);
    }
    QVERIFY(valid > 20000);
    QVERIFY(invalid > 20000);
}

XE_APPLESS_TEST(tst_Utf8Oracle)
#include "tst_utf8oracle.moc"
