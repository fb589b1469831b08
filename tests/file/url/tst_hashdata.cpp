// The hash and its table.

#include "testclass.h"
#include "urltext.h"

#include <random>
#include <vector>

class tst_HashData : public QObject
{
    Q_OBJECT

private slots:
    void table();
    void hashes_data();
    void hashes();
    void writesItsLengthAlone();
    void everyLengthAgainstTheDefinition();
    void refuses();
};

namespace {

QByteArray hashOf(const QByteArray& data, int length)
{
    QByteArray hash(length, '#');
    const HRESULT result = HashData_X(reinterpret_cast<const BYTE*>(data.constData()), DWORD(data.size()),
                                      reinterpret_cast<BYTE*>(hash.data()), DWORD(length));
    return result == S_OK ? hash.toHex() : QByteArray("failed");
}

// One place of the hash, on its own.
BYTE definition(const std::vector<BYTE>& data, std::size_t place)
{
    auto value = static_cast<BYTE>(place);
    for (auto byte = data.rbegin(); byte != data.rend(); ++byte)
        value = HashDataLookup[*byte ^ value];
    return value;
}

} // namespace

void tst_HashData::table()
{
    std::vector<BYTE> sorted(std::begin(HashDataLookup), std::end(HashDataLookup));
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < 256; ++i)
        QCOMPARE(std::size_t(sorted[i]), i);
    const QByteArray expected = QByteArray::fromHex(
        "01 0E 6E 19 61 AE 84 77 8A AA 7D 76 1B E9 8C 33 57 C5 B1 6B EA A9 38 44 1E 07 AD 49 BC 28 24 41 "
        "31 D5 68 BE 39 D3 94 DF 30 73 0F 02 43 BA D2 1C 0C B5 67 46 16 3A 4B 4E B7 A7 EE 9D 7C 93 AC 90 "
        "B0 A1 8D 56 3C 42 80 53 9C F1 4F 2E A8 C6 29 FE B2 55 FD ED FA 9A 85 58 23 CE 5F 74 FC C0 36 DD "
        "66 DA FF F0 52 6A 9E C9 3D 03 59 09 2A 9B 9F 5D A6 50 32 22 AF C3 64 63 1A 96 10 91 04 21 08 BD "
        "79 40 4D 48 D0 F5 82 7A 8F 37 69 86 1D A4 B9 C2 C1 EF 65 F2 05 AB 7E 0B 4A 3B 89 E4 6C BF E8 8B "
        "06 18 51 14 7F 11 5B 5C FB 97 E1 CF 15 62 71 70 54 E2 12 D6 C7 BB 0D 20 5E DC E0 D4 F7 CC C4 2B "
        "F9 EC 2D F4 6F B6 99 88 81 5A D9 CA 13 A5 E7 47 E6 8E 60 E3 3E B3 F6 72 A2 35 A0 D7 CD B4 2F 6D "
        "2C 26 1F 95 87 00 D8 34 3F 17 25 45 27 75 92 B8 A3 C8 DE EB F8 F3 DB 0A 98 83 7B E5 CB 4C 78 D1 ");
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(HashDataLookup), 256), expected);
}

void tst_HashData::hashes_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("one byte") << QByteArray("\5") << 1 << QByteArray("ae");
    QTest::newRow("no data counts up") << QByteArray("") << 4 << QByteArray("00010203");
    QTest::newRow("a zero byte gives the table") << QByteArray(1, '\0') << 8 << QByteArray("010e6e1961ae8477");
    QTest::newRow("a byte turns the table") << QByteArray("\1") << 4 << QByteArray("0e01196e");
    QTest::newRow("last byte first") << QByteArray("\0\5", 2) << 1 << QByteArray("71");
    QTest::newRow("first byte last") << QByteArray("\5\0", 2) << 1 << QByteArray("61");
    QTest::newRow("no hash") << QByteArray("abc") << 0 << QByteArray("");
}

void tst_HashData::hashes()
{
    QFETCH(QByteArray, data);
    QFETCH(int, length);
    QTEST(hashOf(data, length), "expected");
}

void tst_HashData::writesItsLengthAlone()
{
    BYTE hash[] = {7, 7, 7, 7};
    const BYTE data[] = {1, 2, 3};
    QCOMPARE(HashData_X(data, 3, hash + 1, 2), S_OK);
    QCOMPARE(int(hash[0]), 7);
    QCOMPARE(int(hash[3]), 7);
}

void tst_HashData::everyLengthAgainstTheDefinition()
{
    std::mt19937 random(1);
    std::vector<BYTE> data(300);
    std::generate(data.begin(), data.end(), [&random] { return static_cast<BYTE>(random()); });
    for (std::size_t length = 0; length <= 300; length += 7) { // places behind 255 count from 0 again
        std::vector<BYTE> hash(length + 1, 7);
        QCOMPARE(HashData_X(data.data(), DWORD(data.size()), hash.data(), DWORD(length)), S_OK);
        for (std::size_t place = 0; place < length; ++place)
            QCOMPARE(int(hash[place]), int(definition(data, place)));
        QCOMPARE(int(hash[length]), 7);
    }
}

void tst_HashData::refuses()
{
    BYTE bytes[] = {7};
    QCOMPARE(shown(HashData_X(nullptr, 0, bytes, 1)), QStringLiteral("0x80070057"));
    QCOMPARE(shown(HashData_X(bytes, 1, nullptr, 0)), QStringLiteral("0x80070057"));
    QCOMPARE(int(bytes[0]), 7);
}

XE_GUILESS_TEST(tst_HashData)
#include "tst_hashdata.moc"
