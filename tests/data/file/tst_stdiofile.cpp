#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxfile.h>

class tst_StdioFile : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void writesUtf8_data();
    void writesUtf8();
    void lines_data();
    void lines();
    void writingAndReadingAreNoPair();
    void boundedLines_data();
    void boundedLines();
    void boundedReadingWritesNoMoreThanTheText();
    void boundedReadingOfNothing();
    void aBoundFarAboveTheFile();
    void aLineLongerThanAnyBuffer();
    void textMode();
    void aDeviceWithoutASize();
};

// Elements up to U+00FF as they are, a vertical bar between the lines.
static QString readLines(CStdioFile_X& file)
{
    QStringList lines;
    CString_X line;
    while (file.ReadString(line) && lines.size() < 100)
        lines += XeQString(line);
    return lines.join(QLatin1Char('|'));
}

void tst_StdioFile::writesUtf8_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ASCII") << "bolt" << QByteArray("bolt");
    QTest::newRow("nothing is added to a line end") << "a\nb\r\n" << QByteArray("a\nb\r\n");
    QTest::newRow("empty") << "" << QByteArray("");
    QTest::newRow("two bytes") << QStringLiteral("\u00e9") << QByteArray("\xC3\xA9");
    QTest::newRow("three bytes") << QStringLiteral("\u4e2d") << QByteArray("\xE4\xB8\xAD");
    QTest::newRow("four bytes") << QStringLiteral("\U0001F529") << QByteArray("\xF0\x9F\x94\xA9");
}

void tst_StdioFile::writesUtf8()
{
    QFETCH(QString, text);

    const TempFiles disk;
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    file.WriteString(CString_X(text));
    file.Close();
    QTEST(disk.read("file"), "bytes");
}

void tst_StdioFile::lines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("lines");

    const auto row = [](const char* name, const QByteArray& content, const char* lines) {
        QTest::newRow(name) << content << QString::fromLatin1(lines);
    };
    row("two lines", "one\ntwo\n", "one|two");
    row("the last line has no end", "one\ntwo", "one|two");
    row("CR LF is trimmed", "one\r\ntwo\r\n", "one|two");
    row("an empty line counts", "one\n\ntwo\n", "one||two");
    row("an empty line in front counts", "\nend", "|end");
    row("every CR and LF at the end is trimmed", "one\r\r\r\ntwo", "one|two");
    row("a CR inside stays", "o\rne\n", "o\rne");
    row("blanks at the end stay", "one \t\n", "one \t");
    row("a byte above 127 is an element", "t\xC3\xB6ne\n\xFF\n", "t\xC3\xB6ne|\xFF");
    row("a 0 byte ends the text", QByteArray("on\0e\ntwo\n", 9), "on|two");
    row("a 0 byte behind a CR", QByteArray("one\r\0e\ntwo\n", 11), "one|two");
    row("a line that begins with 0 looks like the end", QByteArray("one\n\0two\nthree\n", 15), "one");
    row("an empty file", "", "");
}

void tst_StdioFile::lines()
{
    QFETCH(QByteArray, content);

    const TempFiles disk;
    disk.write("file", content);
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
    QTEST(readLines(file), "lines");
    CString_X line = L"old";
    if (file.GetPosition() == file.GetLength())
        QCOMPARE(file.ReadString(line), 0);
}

void tst_StdioFile::writingAndReadingAreNoPair()
{
    const TempFiles disk;
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    file.WriteString(L"\u00e9\n");
    file.SeekToBegin();
    CString_X line;
    QCOMPARE(file.ReadString(line), 1);
    QCOMPARE(line, CString_X(L"\u00c3\u00a9"));
}

void tst_StdioFile::boundedLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<unsigned>("max");
    QTest::addColumn<QString>("texts");

    const auto row = [](const char* name, const QByteArray& content, unsigned max, const char* texts) {
        QTest::newRow(name) << content << max << QString::fromLatin1(texts);
    };
    row("the line end stays", "one\ntwo\n", 20, "one\n|two\n");
    row("CR LF stays", "one\r\ntwo", 20, "one\r\n|two");
    row("one less than max", "abcdef\ngh\n", 4, "abc|def|\n|gh\n");
    row("a line that just fits", "abc\nd", 5, "abc\n|d");
    row("a line whose end does not fit", "abc\nd", 4, "abc|\n|d");
    row("one byte at a time", "abc", 2, "a|b|c");
    row("a byte above 127 is an element", "\xC3\xB6\n", 20, "\xC3\xB6\n");
    row("a 0 byte ends the text", QByteArray("a\0b\ncd\n", 7), 20, "a|cd\n");
    row("an empty file", "", 20, "");
}

void tst_StdioFile::boundedLines()
{
    QFETCH(QByteArray, content);
    QFETCH(unsigned, max);

    const TempFiles disk;
    disk.write("file", content);
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
    QStringList texts;
    std::vector<wchar_t> buffer(max, L'#');
    while (*file.ReadString(buffer.data(), max) != 0)
        texts += XeQString(buffer.data());
    QTEST(texts.join(QLatin1Char('|')), "texts");
}

void tst_StdioFile::boundedReadingWritesNoMoreThanTheText()
{
    const TempFiles disk;
    disk.write("file", "ab\n");
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
    wchar_t buffer[6] = L"#####";
    QCOMPARE(file.ReadString(buffer, 6), static_cast<wchar_t*>(buffer));
    QCOMPARE(std::wstring(buffer, 6), std::wstring(L"ab\n\0#\0", 6));
    QCOMPARE(file.ReadString(buffer, 6), static_cast<wchar_t*>(buffer));
    QCOMPARE(std::wstring(buffer, 6), std::wstring(L"\0b\n\0#\0", 6));
}

void tst_StdioFile::boundedReadingOfNothing()
{
    const TempFiles disk;
    disk.write("file", "abc\n");
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
    wchar_t buffer[2] = L"#";
    QCOMPARE(file.ReadString(buffer, 0), static_cast<wchar_t*>(buffer));
    QCOMPARE(buffer[0], L'#');
    QCOMPARE(file.ReadString(buffer, 1), static_cast<wchar_t*>(buffer));
    QCOMPARE(buffer[0], L'\0');
    QCOMPARE(file.GetPosition(), 0ULL);
}

void tst_StdioFile::aBoundFarAboveTheFile()
{
    const TempFiles disk;
    const QByteArray longLine = QByteArray(20000, 'x') + '\n';
    disk.write("file", "abc\n" + longLine + "end");
    for (const unsigned max : {30000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
        std::vector<wchar_t> buffer(30000);
        QCOMPARE(CString_X(file.ReadString(buffer.data(), max)), CString_X(L"abc\n"));
        QCOMPARE(CString_X(file.ReadString(buffer.data(), max)), CString_X(longLine.constData()));
        QCOMPARE(CString_X(file.ReadString(buffer.data(), max)), CString_X(L"end"));
        QCOMPARE(CString_X(file.ReadString(buffer.data(), max)), CString_X());
    }
}

void tst_StdioFile::aLineLongerThanAnyBuffer()
{
    const TempFiles disk;
    disk.write("file", QByteArray(1000000, 'x') + "\r\nnext");
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead);
    CString_X line;
    QCOMPARE(file.ReadString(line), 1);
    QCOMPARE(line, CString_X(L'x', 1000000));
    QCOMPARE(file.ReadString(line), 1);
    QCOMPARE(line, CString_X(L"next"));
}

void tst_StdioFile::textMode()
{
    const TempFiles disk;
    disk.write("file", "one\r\ntwo\r\n");
    CStdioFile_X file(disk.widePath("file"), CFile_X::modeRead | CFile_X::typeText);
    wchar_t buffer[20];
    QCOMPARE(CString_X(file.ReadString(buffer, 20)), CString_X(L"one\n"));
    CString_X line;
    QCOMPARE(file.ReadString(line), 1);
    QCOMPARE(line, CString_X(L"two"));
}

void tst_StdioFile::aDeviceWithoutASize()
{
    CStdioFile_X file(L"/proc/self/status", CFile_X::modeRead);
    QCOMPARE(file.GetLength(), 0ULL);
    std::vector<wchar_t> buffer(10000);
    QCOMPARE(CString_X(file.ReadString(buffer.data(), 10000)).Left(6), CString_X(L"Name:\t"));
    CString_X line;
    QCOMPARE(file.ReadString(line), 1);
    QCOMPARE(line.Left(7), CString_X(L"Umask:\t"));
}

XE_TEST(tst_StdioFile)
#include "tst_stdiofile.moc"
