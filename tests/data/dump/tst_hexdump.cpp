#include "dumpedtext.h"
#include "testclass.h"

#include <xeexcept.h>

// Bytes in lines, and what may stand in front of a line.

namespace {

unsigned char bytes[300] = {};

QString dump(const wchar_t* prefix, int count, int width)
{
    return dumped([&](CDumpContext_X& context) { context.HexDump(prefix, bytes, count, width); });
}

// Addresses that no other data have, whatever the machine.
QString address(int index, const char* format) { return QString::asprintf(format, static_cast<void*>(bytes + index)); }

} // namespace

class tst_HexDump : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (int i = 0; i < 300; ++i)
            bytes[i] = static_cast<unsigned char>(i);
    }

    void lines_data();
    void lines();
    void addressInThePrefix_data();
    void addressInThePrefix();
    void prefixesThatAreNoAddress_data();
    void prefixesThatAreNoAddress();
    void aLongPrefix();
    void badArguments_data();
    void badArguments();
};

void tst_HexDump::lines_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a full line") << 3 << 3 << "> 00 01 02\n";
    QTest::newRow("part of a line") << 2 << 3 << "> 00 01\n";
    QTest::newRow("a second line") << 4 << 3 << "> 00 01 02\n> 03\n";
    QTest::newRow("two full lines") << 4 << 2 << "> 00 01\n> 02 03\n";
    QTest::newRow("a byte to a line") << 3 << 1 << "> 00\n> 01\n> 02\n";
    QTest::newRow("one byte in a wide line") << 1 << INT_MAX << "> 00\n";
    QTest::newRow("20 bytes by 16") << 20 << 16 << "> 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F\n> 10 11 12 13\n";
}

void tst_HexDump::lines()
{
    QFETCH(int, count);
    QFETCH(int, width);
    QTEST(dump(L">", count, width), "expected");
}

void tst_HexDump::addressInThePrefix_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QByteArray>("format");
    const auto row = [](const char* prefix) { QTest::newRow(prefix) << QString(prefix) << QByteArray(prefix); };
    row("%p");
    row("%p:");
    row("at %20p: ");
    row("%-20p|");
    row("%lx");
    row("%016lX");
    row("%#lx");
    row("%.20lx");
    row("%99.99llx");
    row("100%% %p %%");
    row("%%%p");
    row("");
    row("no conversion: %%p");
}

void tst_HexDump::addressInThePrefix()
{
    QFETCH(QString, prefix);
    QFETCH(QByteArray, format);
    const QString expected =
        address(0, format) + QStringLiteral(" 00 01\n") + address(2, format) + QStringLiteral(" 02\n");
    QCOMPARE(dump(prefix.toStdWString().c_str(), 3, 2), expected);
}

void tst_HexDump::prefixesThatAreNoAddress_data()
{
    QTest::addColumn<QString>("prefix");
    for (const char* prefix :
         {"%s",    "%ls",         "%S",     "%n",   "%c",   "%f",    "%Lf",  "%a",    "%m",  "%p %p",
          "%p%n",  "%*p",         "%*.*x",  "%1$p", "%2$s", "%",     "100%", "% ",    "%%%", "%p%",
          "%100p", "%999999999p", "%.100x", "%-",   "%l",   "%I64x", "%y",   "%%p%s", "%s%p"})
        QTest::newRow(prefix) << QString(prefix);
}

void tst_HexDump::prefixesThatAreNoAddress()
{
    QFETCH(QString, prefix);
    QCOMPARE(dump(prefix.toStdWString().c_str(), 1, 2), prefix + QStringLiteral(" 00\n"));
}

void tst_HexDump::aLongPrefix()
{
    const QString blanks(100000, QLatin1Char(' '));
    QCOMPARE(dump((blanks + QStringLiteral("%p")).toStdWString().c_str(), 1, 1),
             blanks + address(0, "%p") + QStringLiteral(" 00\n"));
    QString percents;
    for (int i = 0; i < 50000; ++i)
        percents += QStringLiteral("%%");
    QCOMPARE(dump(percents.toStdWString().c_str(), 1, 1), QString(50000, QLatin1Char('%')) + QStringLiteral(" 00\n"));
}

void tst_HexDump::badArguments_data()
{
    QTest::addColumn<bool>("hasPrefix");
    QTest::addColumn<bool>("hasBytes");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::newRow("no prefix") << false << true << 1 << 1;
    QTest::newRow("no bytes") << true << false << 1 << 1;
    QTest::newRow("count 0") << true << true << 0 << 1;
    QTest::newRow("negative count") << true << true << -1 << 1;
    QTest::newRow("width 0") << true << true << 1 << 0;
    QTest::newRow("negative width") << true << true << 1 << -1;
}

void tst_HexDump::badArguments()
{
    QFETCH(bool, hasPrefix);
    QFETCH(bool, hasBytes);
    QFETCH(int, count);
    QFETCH(int, width);
    CMemFile_X memory;
    for (CFile_X* file : {static_cast<CFile_X*>(&memory), static_cast<CFile_X*>(nullptr)}) {
        CDumpContext_X context(file);
        CInvalidArgException_X* raised = nullptr;
        try {
            context.HexDump(hasPrefix ? L">" : nullptr, hasBytes ? bytes : nullptr, count, width);
        } catch (CInvalidArgException_X* exception) {
            raised = exception;
        }
        QCOMPARE(raised, &_simpleInvalidArgException);
    }
    QCOMPARE(memory.GetLength(), 0ULL);
}

XE_APPLESS_TEST(tst_HexDump)
#include "tst_hexdump.moc"
