// The CSV reader takes every file apart without losing a byte, and what the writer writes it reads back.

#include "csv.h"
#include "resource.h"
#include "testclass.h"

#include <algorithm>

namespace {

// A record as one text: "line: field|field", or "line! number of the problem's text".
QString shown(const CsvRecord& record)
{
    if (record.problem)
        return QString("%1! %2").arg(record.line).arg(record.problem);
    QStringList fields;
    for (const CString_X& field : record.fields)
        fields += XeQString(field);
    return QString("%1: %2").arg(record.line).arg(fields.join('|'));
}

QByteArray joined(const std::vector<CsvRecord>& records)
{
    QByteArray text;
    for (const CsvRecord& record : records)
        text += record.text;
    return text;
}

} // namespace

class tst_PartsbookCsv : public QObject
{
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void losesNoByte_data();
    void losesNoByte();
    void blankRecords();
    void writes_data();
    void writes();
    void lineEnds();
};

void tst_PartsbookCsv::reads_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("records");
    const auto row = [](const char* name, const QByteArray& file, const QStringList& records) {
        QTest::newRow(name) << file << records;
    };
    row("nothing in an empty file", "", {});
    row("fields and lines", "a,b\nc,d\n", {"1: a|b", "2: c|d"});
    row("the last line without an end", "a,b\nc", {"1: a|b", "2: c"});
    row("CR LF", "a,b\r\nc,d\r\n", {"1: a|b", "2: c|d"});
    row("CR alone", "a\rb\r", {"1: a", "2: b"});
    row("line ends of all kinds", "a\r\nb\nc\rd", {"1: a", "2: b", "3: c", "4: d"});
    row("empty fields", ",a,\n", {"1: |a|"});
    row("a blank line is one empty field", "a\n\nb\n", {"1: a", "2: ", "3: b"});
    row("blanks belong to the field", " a , b\n", {"1:  a | b"});
    row("a quoted field", "\"a\",b\n", {"1: a|b"});
    row("a quoted comma", "\"a,b\",c\n", {"1: a,b|c"});
    row("a doubled quotation mark is one", "\"1/2\"\" pipe\"\n", {"1: 1/2\" pipe"});
    row("nothing but a quotation mark", "\"\"\"\"\n", {"1: \""});
    row("an empty quoted field", "\"\",x\n", {"1: |x"});
    row("a quotation mark inside a bare field stands for itself", "1/2\" pipe,x\n", {"1: 1/2\" pipe|x"});
    row("a quoted line end, and the line numbers behind it", "\"a\nb\",c\nd\n", {"1: a\nb|c", "3: d"});
    row("a quoted CR LF", "\"a\r\nb\"\r\nc", {"1: a\r\nb", "3: c"});
    row("a quoted field at the end of the file", "a,\"b\"", {"1: a|b"});
    row("a comma at the end of the file", "a,", {"1: a|"});
    row("Chinese", "轴承,\"深沟球,轴承\"\n", {"1: 轴承|深沟球,轴承"});
    row("beyond 16 bits", "😀,𠮷\n", {"1: 😀|𠮷"});
}

void tst_PartsbookCsv::reads()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QStringList, records);
    QStringList read;
    for (const CsvRecord& record : readCsv(file))
        read += shown(record);
    QCOMPARE(read, records);
}

void tst_PartsbookCsv::refuses_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<unsigned>("problem");
    const auto row = [](const char* name, const QByteArray& line, unsigned problem) {
        QTest::newRow(name) << line << problem;
    };
    row("a quotation mark that is not closed", "x,\"open", IDS_OPEN_QUOTE);
    row("a quotation mark alone", "\"", IDS_OPEN_QUOTE);
    row("an odd number of them", "\"\"\"", IDS_OPEN_QUOTE);
    row("text behind a closed field", "\"a\"b,c", IDS_BEHIND_QUOTE);
    row("a blank behind a closed field", "\"a\" ,c", IDS_BEHIND_QUOTE);
    row("a byte that is no UTF-8", "a,\xFF", IDS_NO_TEXT);
    row("a character cut short", "a,\xE8\xBD", IDS_NO_TEXT);
    row("an overlong character", "\xC0\xAF", IDS_NO_TEXT);
    row("a surrogate", "\xED\xA0\x80", IDS_NO_TEXT);
    row("Chinese in another encoding", "\xD6\xE1\xB3\xD0,x", IDS_NO_TEXT);
    row("a zero byte", QByteArray("a\0b", 3), IDS_NO_TEXT);
}

// Each between good lines, which are read all the same.
void tst_PartsbookCsv::refuses()
{
    QFETCH(const QByteArray, file);
    QFETCH(const unsigned, problem);
    const std::vector<CsvRecord> records = readCsv("a,b\n" + file + "\nc,d\n");
    QCOMPARE(records.size(), std::size_t(3));
    QCOMPARE(shown(records[0]), QString("1: a|b"));
    QCOMPARE(shown(records[1]), QString("2! %1").arg(problem));
    QCOMPARE(records[1].text, file + '\n');
    QVERIFY(records[1].fields.empty());
    QCOMPARE(shown(records[2]), QString("3: c|d"));
}

void tst_PartsbookCsv::losesNoByte_data()
{
    QTest::addColumn<QByteArray>("file");

    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    QTest::newRow("every byte") << everyByte;
    QByteArray backwards(everyByte);
    std::reverse(backwards.begin(), backwards.end());
    QTest::newRow("every byte, backwards") << backwards;
    QTest::newRow("every byte, quoted") << '"' + everyByte + '"';
    QTest::newRow("a million quotation marks") << QByteArray(1000000, '"');
    QTest::newRow("a million and one quotation marks") << QByteArray(1000001, '"');
    QTest::newRow("a million commas") << QByteArray(1000000, ',');
    QTest::newRow("a million line ends") << QByteArray(1000000, '\n');
    QTest::newRow("lines that each open a field") << QByteArray("a,\"b\n").repeated(100001);
    QTest::newRow("lines that each close a field and open one") << QByteArray("\",\"\n").repeated(100001);
    QTest::newRow("lines with doubled quotation marks behind an open one")
        << '"' + QByteArray("\"\"\n").repeated(99999);
    QTest::newRow("a long field") << QByteArray(5000000, 'x');
}

void tst_PartsbookCsv::losesNoByte()
{
    QFETCH(const QByteArray, file);
    const std::vector<CsvRecord> records = readCsv(file);
    QVERIFY(joined(records) == file);
    for (const CsvRecord& record : records)
        QVERIFY(!record.text.isEmpty());
}

void tst_PartsbookCsv::blankRecords()
{
    const std::vector<CsvRecord> records = readCsv("\n  \t\r\n,\nx\n");
    QCOMPARE(records.size(), std::size_t(4));
    QVERIFY(records[0].isBlank());
    QVERIFY(records[1].isBlank());
    QVERIFY(!records[2].isBlank());
    QVERIFY(!records[3].isBlank());
}

void tst_PartsbookCsv::writes_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QByteArray>("line");

    QTest::newRow("plain fields") << QStringList{"a", "b c", "轴承"} << QByteArray("a,b c,轴承");
    QTest::newRow("empty fields") << QStringList{"", "", ""} << QByteArray(",,");
    QTest::newRow("a comma is quoted") << QStringList{"a,b", "c"} << QByteArray("\"a,b\",c");
    QTest::newRow("a quotation mark is doubled") << QStringList{"1/2\" pipe"} << QByteArray("\"1/2\"\" pipe\"");
    QTest::newRow("line ends are quoted") << QStringList{"a\nb", "c\rd"} << QByteArray("\"a\nb\",\"c\rd\"");
    QTest::newRow("beyond 16 bits") << QStringList{"😀"} << QByteArray("😀");
}

void tst_PartsbookCsv::writes()
{
    QFETCH(const QStringList, fields);
    QFETCH(const QByteArray, line);
    const CsvFields written(fields.begin(), fields.end());
    QCOMPARE(csvLine(written), line);
    const std::vector<CsvRecord> records = readCsv(line + '\n');
    QCOMPARE(records.size(), std::size_t(1));
    QVERIFY(records.front().fields == written);
}

void tst_PartsbookCsv::lineEnds()
{
    QCOMPARE(lineEndOf("a\r\n"), QByteArray("\r\n"));
    QCOMPARE(lineEndOf("a\n"), QByteArray("\n"));
    QCOMPARE(lineEndOf("a\r"), QByteArray("\r"));
    QCOMPARE(lineEndOf("a"), QByteArray());
    QCOMPARE(lineEndOf(""), QByteArray());
}

XE_GUILESS_TEST(tst_PartsbookCsv)
#include "tst_partsbookcsv.moc"
