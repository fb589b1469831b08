// Lines of bare elements.

#include "archivefiles.h"
#include "leavenothing.h"
#include "testclass.h"

#include <cmath>
#include <limits>

class tst_ArchiveText : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void boundedLines_data();
    void boundedLines();
    void boundsOfNothing();
    void theLargestNegativeBound();
    void anEmptyLineLeavesTheBuffer();
    void lines_data();
    void lines();
    void longLines_data();
    void longLines();
    void aLongLineTakesLinearTime();
    void aLineThatWasNotEmptiedBefore();
};

static QByteArray elements(const std::wstring& text)
{
    return QByteArray(reinterpret_cast<const char*>(text.data()), static_cast<int>(text.size() * sizeof(wchar_t)));
}

static std::wstring wide(const char* text, int length = -1) { return QString::fromUtf8(text, length).toStdWString(); }

static QString visible(const std::wstring& text)
{
    return QString::fromStdWString(text).replace('\r', "\\r").replace('\n', "\\n").replace(QChar(0), "\\0");
}

void tst_ArchiveText::boundedLines_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<int>("max");
    QTest::addColumn<QString>("results"); // each call's text, or "null", until the stream has ended

    const auto row = [](const char* name, const std::wstring& text, int max, const char* results) {
        QTest::newRow(name) << elements(text) << max << QString(results);
    };
    row("LF is dropped", L"one\ntwo\n", 10, "one|two|null");
    row("LF is kept", L"one\ntwo\n", -10, "one\\n|two\\n|null");
    row("CR LF is dropped", L"one\r\ntwo", 10, "one|two|null");
    row("CR LF is kept as LF", L"one\r\ntwo", -10, "one\\n|two|null");
    row("what follows a CR is taken for the LF", L"one\rtwo", 10, "one|wo|null");
    row("what follows a CR is kept in its place", L"one\rtwo", -10, "onet|wo|null");
    row("two CRs are one line end", L"one\r\rtwo", -10, "one\\r|two|null");
    row("a CR at the end", L"one\r", 10, "one|null");
    row("a CR at the end, kept", L"one\r", -10, "one|null");
    row("an empty line is null", L"one\n\ntwo", 10, "one|null|two|null");
    row("an empty line that is kept", L"one\n\ntwo", -10, "one\\n|\\n|two|null");
    row("an empty line of CR LF", L"\r\nend", 10, "null|end|null");
    row("the bound", L"abcdefgh\n", 3, "abc|def|gh|null");
    row("the bound just before the line end", L"abc\nd", 3, "abc|null|d|null");
    row("a negative bound just before the line end", L"abc\nd", -3, "abc|\\n|d|null");
    row("the line end is the last element", L"ab\nd", -3, "ab\\n|d|null");
    row("one element at a time", L"ab", 1, "a|b|null");
    row("a 0 element ends what is seen", std::wstring(L"a\0b\nc", 5), 10, "a|c|null");
    row("code points", L"\u4e2d\U0001F529\n", 10, "\xE4\xB8\xAD\xF0\x9F\x94\xA9|null");
    row("nothing", L"", 10, "null");
}

void tst_ArchiveText::boundedLines()
{
    QFETCH(QByteArray, stream);
    QFETCH(int, max);

    SlowFile file(stream);
    CArchive_X archive(&file, CArchive_X::load);
    QStringList results;
    for (int i = 0; i < 20; ++i) {
        std::vector<wchar_t> buffer(static_cast<std::size_t>(std::abs(max)) + 1, L'#');
        wchar_t* const result = archive.ReadString(buffer.data(), static_cast<unsigned>(max));
        QVERIFY(!result || result == buffer.data());
        results += result ? visible(result) : QStringLiteral("null");
        archive.Flush();
        if (!result && file.position == file.GetLength())
            break;
    }
    QTEST(results.join(QLatin1Char('|')), "results");
}

void tst_ArchiveText::boundsOfNothing()
{
    SlowFile file(elements(L"abc"));
    CArchive_X archive(&file, CArchive_X::load);
    wchar_t buffer[2] = L"#";
    QCOMPARE(archive.ReadString(buffer, 0), static_cast<wchar_t*>(nullptr));
    QCOMPARE(archive.ReadString(nullptr, 10), static_cast<wchar_t*>(nullptr));
    QCOMPARE(buffer[0], L'#');
    QCOMPARE(file.takeCalls(), QString());
}

void tst_ArchiveText::theLargestNegativeBound()
{
    SlowFile file(elements(L"abc\nd"));
    CArchive_X archive(&file, CArchive_X::load);
    wchar_t buffer[10] = {};
    QCOMPARE(archive.ReadString(buffer, static_cast<unsigned>(std::numeric_limits<int>::min())),
             static_cast<wchar_t*>(buffer));
    QCOMPARE(visible(buffer), QStringLiteral("abc\\n"));
}

void tst_ArchiveText::anEmptyLineLeavesTheBuffer()
{
    SlowFile file(elements(L"\n"));
    CArchive_X archive(&file, CArchive_X::load);
    wchar_t buffer[4] = L"###";
    QCOMPARE(archive.ReadString(buffer, 3), static_cast<wchar_t*>(nullptr));
    QCOMPARE(std::wstring(buffer), std::wstring(L"###"));
    QCOMPARE(archive.ReadString(buffer, 3), static_cast<wchar_t*>(nullptr));
    QCOMPARE(std::wstring(buffer), std::wstring(L"###"));
}

// Every line until the result is 0, separated by bars.
static QString readLines(const QByteArray& stream)
{
    return loaded(stream, [](CArchive_X& archive) {
        QStringList lines;
        CString_X line;
        while (archive.ReadString(line) && lines.size() < 50)
            lines += visible(line);
        return lines.join(QLatin1Char('|'));
    });
}

void tst_ArchiveText::lines_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QString>("lines");

    const auto row = [](const char* name, const std::wstring& text, const char* lines) {
        QTest::newRow(name) << elements(text) << QString(lines);
    };
    row("two lines", L"one\ntwo\n", "one|two");
    row("the last line has no end", L"one\ntwo", "one|two");
    row("CR LF", L"one\r\ntwo\r\n", "one|two");
    row("an empty line counts", L"one\n\ntwo\n", "one||two");
    row("an empty line in front counts", L"\r\nend", "|end");
    row("only an empty line", L"\n", "");
    row("a CR alone brings the next element into the line", L"one\rtwo\n", "onet|wo");
    row("one LF is cut off", L"one\r\n\n", "one|");
    row("a 0 element ends the line, whose rest is lost", std::wstring(L"on\0e\ntwo\n", 9), "on|two");
    row("a 0 element loses up to 128 elements", std::wstring(1, L'\0') + std::wstring(130, L'x') + L"\nend",
        "|xxx|end");
    row("nothing", L"", "");
}

void tst_ArchiveText::lines()
{
    QFETCH(QByteArray, stream);
    QTEST(readLines(stream), "lines");
}

void tst_ArchiveText::longLines_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("end");
    for (const int length : {0, 1, 126, 127, 128, 129, 255, 256, 257, 1000}) {
        for (const char* end : {"\n", "\r\n"})
            QTest::addRow("%d elements and %s", length, end[1] ? "CR LF" : "LF") << length << QByteArray(end);
    }
}

void tst_ArchiveText::longLines()
{
    QFETCH(int, length);
    QFETCH(QByteArray, end);

    std::wstring text;
    for (int i = 0; i < length; ++i)
        text += static_cast<wchar_t>(L'a' + i % 26);
    const std::wstring lineEnd = wide(end);
    loaded(elements(text + lineEnd + text + lineEnd + text), [&](CArchive_X& archive) {
        CString_X line;
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(archive.ReadString(line), 1);
            QVERIFY(line == text);
        }
        QCOMPARE(archive.ReadString(line), text.empty() ? 0 : 1);
        QVERIFY(line == text);
        QCOMPARE(archive.ReadString(line), 0);
        QCOMPARE(line, CString_X());
    });
}

void tst_ArchiveText::aLongLineTakesLinearTime()
{
    const std::wstring text(3000000, L'x');
    loaded(elements(text + L"\n"), [&](CArchive_X& archive) {
        CString_X line;
        QCOMPARE(archive.ReadString(line), 1);
        QVERIFY(line == text);
    });
}

void tst_ArchiveText::aLineThatWasNotEmptiedBefore()
{
    loaded(elements(L"one\n"), [](CArchive_X& archive) {
        CString_X line(L'x', 1000);
        QCOMPARE(archive.ReadString(line), 1);
        QCOMPARE(line, CString_X(L"one"));
        line = L"old";
        QCOMPARE(archive.ReadString(line), 0);
        QCOMPARE(line, CString_X());
    });
}

XE_TEST(tst_ArchiveText)
#include "tst_archivetext.moc"
