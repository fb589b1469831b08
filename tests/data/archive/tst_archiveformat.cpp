// The stream byte for byte.

#include "archivefiles.h"
#include "leavenothing.h"
#include "testclass.h"
#include "textrows.h"

#include <limits>

class tst_ArchiveFormat : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void values_data();
    void values() { TextRows::compare(); }
    void anyByteButZeroIsTrue();
    void counts_data();
    void counts();
    void texts_data();
    void texts();
    void textLengths_data();
    void textLengths();
    void lengthPrefixes_data();
    void lengthPrefixes();
    void foreignPrefixes_data();
    void foreignPrefixes();
    void aTextWithoutTheMark();
    void bareElements();
    void valuesStandOneBehindTheOther();
    void theUtf8CopyIsNotStored();
    void objectsAreNotStored();
};

// The bytes on the stream and what they are loaded as.
template <class T>
static QString thereAndBack(T value)
{
    const QByteArray stream = stored([&](CArchive_X& archive) { archive << value; });
    T back{};
    loaded(stream, [&](CArchive_X& archive) { archive >> back; });
    return hex(stream) + QLatin1String(back == value ? "" : ", loaded as another value");
}

void tst_ArchiveFormat::values_data()
{
    TextRows::columns();
    const auto row = [](const char* name, const QString& stream, const char* expected) {
        QTest::newRow(name) << stream << QString::fromLatin1(expected);
    };
    row("unsigned char", thereAndBack(static_cast<unsigned char>(0xFE)), "FE");
    row("char", thereAndBack('A'), "41");
    row("negative char", thereAndBack(static_cast<char>(-2)), "FE");
    row("true", thereAndBack(true), "01");
    row("false", thereAndBack(false), "00");
    row("unsigned short", thereAndBack(static_cast<unsigned short>(0xFEDC)), "DC FE");
    row("short", thereAndBack(static_cast<short>(-2)), "FE FF");
    row("int", thereAndBack(0x01020304), "04 03 02 01");
    row("negative int", thereAndBack(-2), "FE FF FF FF");
    row("unsigned int", thereAndBack(0xFEDCBA98U), "98 BA DC FE");
    row("wchar_t has four bytes", thereAndBack(L'\U0001F529'), "29 F5 01 00");
    row("long has eight bytes", thereAndBack(-2L), "FE FF FF FF FF FF FF FF");
    row("long long", thereAndBack(0x0102030405060708LL), "08 07 06 05 04 03 02 01");
    row("unsigned long long", thereAndBack(0xFEDCBA9876543210ULL), "10 32 54 76 98 BA DC FE");
    row("float", thereAndBack(1.5F), "00 00 C0 3F");
    row("infinite float", thereAndBack(-std::numeric_limits<float>::infinity()), "00 00 80 FF");
    row("double", thereAndBack(-2.5), "00 00 00 00 00 00 04 C0");
    row("smallest double", thereAndBack(std::numeric_limits<double>::denorm_min()), "01 00 00 00 00 00 00 00");
}

void tst_ArchiveFormat::anyByteButZeroIsTrue()
{
    for (const char* byte : {"01", "02", "80", "FF"}) {
        bool value = false;
        loaded(bytes(byte), [&](CArchive_X& archive) { archive >> value; });
        QCOMPARE(value, true);
        QCOMPARE(int(reinterpret_cast<unsigned char&>(value)), 1);
    }
    bool value = true;
    loaded(bytes("00"), [&](CArchive_X& archive) { archive >> value; });
    QCOMPARE(value, false);
}

void tst_ArchiveFormat::counts_data()
{
    QTest::addColumn<unsigned long long>("count");
    QTest::addColumn<QString>("stream");
    QTest::addColumn<unsigned long long>("back");

    QTest::newRow("0") << 0ULL << "00 00" << 0ULL;
    QTest::newRow("0x1234") << 0x1234ULL << "34 12" << 0x1234ULL;
    QTest::newRow("0xFFFE has two bytes") << 0xFFFEULL << "FE FF" << 0xFFFEULL;
    QTest::newRow("0xFFFF has six") << 0xFFFFULL << "FF FF FF FF 00 00" << 0xFFFFULL;
    QTest::newRow("0x12345678") << 0x12345678ULL << "FF FF 78 56 34 12" << 0x12345678ULL;
    QTest::newRow("the largest") << 0xFFFFFFFFULL << "FF FF FF FF FF FF" << 0xFFFFFFFFULL;
    QTest::newRow("more than that loses its high half") << 0x512345678ULL << "FF FF 78 56 34 12" << 0x12345678ULL;
}

void tst_ArchiveFormat::counts()
{
    QFETCH(unsigned long long, count);
    const QByteArray stream = stored([&](CArchive_X& archive) { archive.WriteCount(count); });
    QTEST(hex(stream), "stream");
    QTEST(loaded(stream, [](CArchive_X& archive) { return archive.ReadCount(); }), "back");
}

void tst_ArchiveFormat::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stream");

    QTest::newRow("empty") << QString("") << "FF FE FF 00";
    QTest::newRow("ASCII") << QString("ab") << "FF FE FF 02 61 00 00 00 62 00 00 00";
    QTest::newRow("a code point is an element")
        << QStringLiteral("\u00e9\U0001F529") << "FF FE FF 02 E9 00 00 00 29 F5 01 00";
}

void tst_ArchiveFormat::texts()
{
    QFETCH(QString, text);
    const CString_X wide(text);
    const QByteArray stream = stored([&](CArchive_X& archive) { archive << wide; });
    QTEST(hex(stream), "stream");
    CString_X back = L"old";
    loaded(stream, [&](CArchive_X& archive) { archive >> back; });
    QCOMPARE(back, wide);
}

void tst_ArchiveFormat::textLengths_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("prefix");

    QTest::newRow("254: one byte") << 254 << "FF FE FF FE";
    QTest::newRow("255: two bytes more") << 255 << "FF FE FF FF FF 00";
    QTest::newRow("0xFFFD: two bytes more") << 0xFFFD << "FF FE FF FF FD FF";
    QTest::newRow("0xFFFE is the mark's number: six bytes more") << 0xFFFE << "FF FE FF FF FF FF FE FF 00 00";
    QTest::newRow("0xFFFF") << 0xFFFF << "FF FE FF FF FF FF FF FF 00 00";
    QTest::newRow("0x10000") << 0x10000 << "FF FE FF FF FF FF 00 00 01 00";
    QTest::newRow("a million") << 1000000 << "FF FE FF FF FF FF 40 42 0F 00";
}

void tst_ArchiveFormat::textLengths()
{
    QFETCH(int, length);
    QFETCH(QString, prefix);

    std::wstring text(static_cast<std::size_t>(length), L'\0'); // zeros are elements like others
    for (std::size_t i = 0; i < text.size(); i += 3)
        text[i] = static_cast<wchar_t>(i + 1);
    const QByteArray stream = stored([&](CArchive_X& archive) { archive << CString_X(text); });
    const QByteArray head = bytes(prefix.toLatin1());
    QCOMPARE(hex(stream.left(head.size())), prefix);
    QCOMPARE(stream.size(), head.size() + length * 4);
    QCOMPARE(std::memcmp(stream.constData() + head.size(), text.data(), text.size() * 4), 0);
    CString_X back;
    loaded(stream, [&](CArchive_X& archive) { archive >> back; });
    QVERIFY(back == text);
}

void tst_ArchiveFormat::lengthPrefixes_data()
{
    QTest::addColumn<qulonglong>("length");
    QTest::addColumn<bool>("wide");
    QTest::addColumn<QString>("stream");

    QTest::newRow("narrow 0") << 0ULL << false << "00";
    QTest::newRow("narrow 254") << 254ULL << false << "FE";
    QTest::newRow("narrow 255") << 255ULL << false << "FF FF 00";
    QTest::newRow("narrow 0xFFFE") << 0xFFFEULL << false << "FF FF FF FE FF 00 00";
    QTest::newRow("wide 0xFFFFFFFE") << 0xFFFFFFFEULL << true << "FF FE FF FF FF FF FE FF FF FF";
    QTest::newRow("wide 0xFFFFFFFF") << 0xFFFFFFFFULL << true
                                     << "FF FE FF FF FF FF FF FF FF FF FF FF FF FF 00 00 00 00";
    QTest::newRow("narrow, 64 bits") << 0x0102030405060708ULL << false
                                     << "FF FF FF FF FF FF FF 08 07 06 05 04 03 02 01";
}

void tst_ArchiveFormat::lengthPrefixes()
{
    QFETCH(qulonglong, length);
    QFETCH(bool, wide);

    const QByteArray stream =
        stored([&](CArchive_X& archive) { AfxWriteStringLength_X(archive, static_cast<unsigned long>(length), wide); });
    QTEST(hex(stream), "stream");
    int charSize = 0;
    const unsigned long back =
        loaded(stream, [&](CArchive_X& archive) { return AfxReadStringLength_X(archive, charSize); });
    QCOMPARE(qulonglong(back), length);
    QCOMPARE(charSize, wide ? 4 : 1);
}

void tst_ArchiveFormat::foreignPrefixes_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<qulonglong>("length");
    QTest::addColumn<int>("charSize");

    QTest::newRow("a small number in a long form") << bytes("FF 05 00") << 5ULL << 1;
    QTest::newRow("the mark's number behind the mark is a length") << bytes("FF FE FF FF FE FF") << 0xFFFEULL << 4;
    QTest::newRow("a small number in the longest form")
        << bytes("FF FE FF FF FF FF FF FF FF FF 02 00 00 00 00 00 00 00") << 2ULL << 4;
    QTest::newRow("nothing") << bytes("") << 0ULL << 1;
    QTest::newRow("cut in the mark") << bytes("FF FE") << 0ULL << 1;
    QTest::newRow("cut behind the mark") << bytes("FF FE FF") << 0ULL << 4;
    QTest::newRow("cut in 16 bits") << bytes("FF FE FF FF 12") << 0ULL << 4;
    QTest::newRow("cut in 32 bits") << bytes("FF FF FF 12 34 56") << 0ULL << 1;
    QTest::newRow("cut in 64 bits") << bytes("FF FF FF FF FF FF FF 01 02 03") << 0ULL << 1;
}

void tst_ArchiveFormat::foreignPrefixes()
{
    QFETCH(QByteArray, stream);
    int size = 0;
    const qulonglong back = loaded(stream, [&](CArchive_X& archive) { return AfxReadStringLength_X(archive, size); });
    QTEST(back, "length");
    QTEST(size, "charSize");
}

void tst_ArchiveFormat::aTextWithoutTheMark()
{
    CString_X text;
    loaded(bytes("02 41 00 00 00 42 43 00 00"), [&](CArchive_X& archive) { archive >> text; });
    QCOMPARE(text, CString_X(L"A\x4342"));
}

void tst_ArchiveFormat::bareElements()
{
    const QByteArray stream = stored([](CArchive_X& archive) {
        archive.WriteString(L"a\n");
        archive.WriteString(L"");
        archive.WriteString(nullptr);
        archive.WriteString(L"\u4e2d");
    });
    QCOMPARE(hex(stream), QStringLiteral("61 00 00 00 0A 00 00 00 2D 4E 00 00"));
}

void tst_ArchiveFormat::valuesStandOneBehindTheOther()
{
    const QByteArray stream =
        stored([](CArchive_X& archive) { archive << true << static_cast<short>(2) << 3 << CString_X(L"x"); });
    QCOMPARE(hex(stream), QStringLiteral("01 02 00 03 00 00 00 FF FE FF 01 78 00 00 00"));
    bool b = false;
    short s = 0;
    int i = 0;
    CString_X text;
    loaded(stream, [&](CArchive_X& archive) { archive >> b >> s >> i >> text; });
    QVERIFY(b && s == 2 && i == 3 && text == CString_X(L"x"));
}

void tst_ArchiveFormat::theUtf8CopyIsNotStored()
{
    CString_X text = L"\u00e9";
    QCOMPARE(QByteArray(text.Utf8Ptr()), QByteArray("\xC3\xA9"));
    const QByteArray stream = stored([&](CArchive_X& archive) { archive << text; });
    QCOMPARE(hex(stream), QStringLiteral("FF FE FF 01 E9 00 00 00"));
}

void tst_ArchiveFormat::objectsAreNotStored()
{
    CMemFile_X object;
    CMemFile_X* const derived = &object;
    const QByteArray stream = stored([&](CArchive_X& archive) {
        archive << derived << static_cast<const CObject_X*>(&object) << 'x';
        QCOMPARE(&(archive << derived), &archive);
    });
    QCOMPARE(stream, QByteArray("x"));
    CObject_X* pointer = &object;
    const CObject_X* constPointer = &object;
    char byte = 0;
    loaded(stream, [&](CArchive_X& archive) { archive >> pointer >> constPointer >> byte; });
    QCOMPARE(pointer, &object);
    QCOMPARE(constPointer, &object);
    QCOMPARE(byte, 'x');
}

XE_TEST(tst_ArchiveFormat)
#include "tst_archiveformat.moc"
