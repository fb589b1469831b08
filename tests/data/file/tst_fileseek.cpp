// Where a file's position goes, on small, empty and huge files.

#include "file/offsets.h"
#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxfile.h>

namespace {

constexpr long long GiB = 1LL << 30;

} // namespace

class tst_FileSeek : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void inAHundredBytes_data();
    void inAHundredBytes();
    void inAnEmptyFile_data();
    void inAnEmptyFile();
    void nothingIsExtended();
    void setLengthOnlyMoves();
    void setLengthGoesThroughTheVirtualSeek();
    void seekToEndGivesTheTruth();
    void beyondTwoGigabytes_data();
    void beyondTwoGigabytes();
    void fiveGigabytesKeepTheirData();
    void aPipeHasNoPositions();
};

void tst_FileSeek::inAHundredBytes_data()
{
    QTest::addColumn<long long>("offset");
    QTest::addColumn<unsigned>("from");
    QTest::addColumn<unsigned long long>("position");

    const auto row = [](const char* name, long long offset, unsigned from, unsigned long long position) {
        QTest::newRow(name) << offset << from << position;
    };
    row("begin: the first byte", 0, 0, 0);
    row("begin: the last byte", 99, 0, 99);
    row("begin: just the size is refused", 100, 0, 40);
    row("begin: beyond the end is refused", 101, 0, 40);
    row("begin: a negative offset counts from the position", -10, 0, 30);
    row("begin: a negative offset down to the first byte", -40, 0, 0);
    row("begin: a negative offset too far is refused", -41, 0, 40);
    row("begin: the largest offset is refused", most, 0, 40);
    row("begin: the smallest offset is refused", least, 0, 40);
    row("begin: low 32 bits inside the file do not count", (1LL << 32) + 5, 0, 40);
    row("current: nowhere", 0, 1, 40);
    row("current: forward", 10, 1, 50);
    row("current: to the last byte", 59, 1, 99);
    row("current: just to the end is refused", 60, 1, 40);
    row("current: back to the first byte", -40, 1, 0);
    row("current: before the first byte is refused", -41, 1, 40);
    row("current: the largest offset is refused", most, 1, 40);
    row("current: the smallest offset is refused", least, 1, 40);
    row("end: the end itself", 0, 2, 100);
    row("end: the last byte", -1, 2, 99);
    row("end: the first byte", -100, 2, 0);
    row("end: before the first byte is refused", -101, 2, 40);
    row("end: behind the end is refused", 1, 2, 40);
    row("end: the largest offset is refused", most, 2, 40);
    row("end: the smallest offset is refused", least, 2, 40);
    row("3: only the position is given", 0, 3, 40);
    row("any other: only the position is given", 5, 0xFFFFFFFF, 40);
}

void tst_FileSeek::inAHundredBytes()
{
    QFETCH(long long, offset);
    QFETCH(unsigned, from);
    QFETCH(unsigned long long, position);

    const TempFiles disk;
    disk.write("file", QByteArray(100, 'x'));
    CFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    QCOMPARE(file.Seek(40, CFile_X::begin), 40ULL);
    QCOMPARE(file.Seek(offset, from), position);
    QCOMPARE(file.GetPosition(), position);
    QCOMPARE(file.GetLength(), 100ULL);
}

void tst_FileSeek::inAnEmptyFile_data()
{
    QTest::addColumn<long long>("offset");
    QTest::addColumn<unsigned>("from");
    for (unsigned from = 0; from <= 2; ++from) {
        for (const long long offset : {0LL, 1LL, -1LL})
            QTest::addRow("offset %lld from %u", offset, from) << offset << from;
    }
}

void tst_FileSeek::inAnEmptyFile()
{
    QFETCH(long long, offset);
    QFETCH(unsigned, from);

    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    QCOMPARE(file.Seek(offset, from), 0ULL);
    QCOMPARE(file.GetLength(), 0ULL);
}

void tst_FileSeek::nothingIsExtended()
{
    const TempFiles disk;
    disk.write("file", "abc");
    CFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    QCOMPARE(file.Seek(10, CFile_X::begin), 0ULL);
    file.Write("X", 1);
    file.Close();
    QCOMPARE(disk.read("file"), QByteArray("Xbc"));
}

void tst_FileSeek::setLengthOnlyMoves()
{
    const TempFiles disk;
    disk.write("file", QByteArray(100, 'x'));
    CFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    file.SetLength(10);
    QCOMPARE(file.GetPosition(), 10ULL);
    QCOMPARE(file.GetLength(), 100ULL);
    file.SetLength(200);
    QCOMPARE(file.GetPosition(), 10ULL);
    QCOMPARE(file.GetLength(), 100ULL);
    file.SetLength(~0ULL);
    QCOMPARE(file.GetPosition(), 9ULL);
    file.Close();
    QCOMPARE(disk.read("file").size(), 100);
}

void tst_FileSeek::setLengthGoesThroughTheVirtualSeek()
{
    class Recorder : public CFile_X
    {
    public:
        unsigned long long Seek(long long offset, unsigned from) override
        {
            calls += QStringLiteral("%1 from %2;").arg(offset).arg(from);
            return 0;
        }
        QString calls;
    };
    Recorder file;
    file.SetLength(17);
    file.SeekToBegin();
    QCOMPARE(file.calls, QStringLiteral("17 from 0;0 from 0;"));
}

void tst_FileSeek::seekToEndGivesTheTruth()
{
    const TempFiles disk;
    disk.write("file", QByteArray(100, 'x'));
    CFile_X file(disk.widePath("file"), CFile_X::modeRead);
    QCOMPARE(file.SeekToEnd(), 1ULL);
    QCOMPARE(file.GetPosition(), 100ULL);
    file.Close();
    QCOMPARE(file.SeekToEnd(), 0ULL);
}

void tst_FileSeek::beyondTwoGigabytes_data()
{
    QTest::addColumn<long long>("size");
    QTest::addColumn<long long>("start");
    QTest::addColumn<long long>("offset");
    QTest::addColumn<unsigned>("from");
    QTest::addColumn<long long>("position");

    const auto row = [](const char* name, long long size, long long start, long long offset, unsigned from,
                        long long position) { QTest::newRow(name) << size << start << offset << from << position; };
    row("just below 2 GiB the end is right", 2 * GiB - 1, 0, 0, 2, 2 * GiB - 1);
    row("5 GiB: the end is taken for 1 GiB", 5 * GiB, 0, 0, 2, GiB);
    row("5 GiB: back from the end", 5 * GiB, 0, -GiB, 2, 0);
    row("5 GiB: below 1 GiB from the start", 5 * GiB, 0, GiB - 1, 0, GiB - 1);
    row("5 GiB: 1 GiB from the start is refused", 5 * GiB, 0, GiB, 0, 0);
    row("5 GiB: back from behind 4 GiB lands 4 GiB lower", 5 * GiB, 4 * GiB + 10, -3, 1, 7);
    row("5 GiB: a refused move stays", 5 * GiB, 4 * GiB + 10, -11, 1, 4 * GiB + 10);
    row("3 GiB: the size is negative, the start is refused", 3 * GiB, 5, 0, 0, 5);
    row("3 GiB: the end is refused", 3 * GiB, 5, 0, 2, 5);
    row("3 GiB: back from the end is refused", 3 * GiB, 5, -5, 2, 5);
}

void tst_FileSeek::beyondTwoGigabytes()
{
    QFETCH(long long, size);
    QFETCH(long long, start);
    QFETCH(long long, offset);
    QFETCH(unsigned, from);
    QFETCH(long long, position);

    const TempFiles disk;
    disk.write("sparse", "");
    QVERIFY(QFile::resize(disk.path("sparse"), size));
    CFile_X file(disk.widePath("sparse"), CFile_X::modeRead);
    QCOMPARE(file.GetLength(), static_cast<unsigned long long>(size));
    QVERIFY(file.Imp<QFile>()->seek(start));
    QCOMPARE(file.Seek(offset, from), static_cast<unsigned long long>(position));
}

void tst_FileSeek::fiveGigabytesKeepTheirData()
{
    const TempFiles disk;
    disk.write("sparse", "head");
    QVERIFY(QFile::resize(disk.path("sparse"), 5 * GiB));
    CFile_X file(disk.widePath("sparse"), CFile_X::modeReadWrite);
    QCOMPARE(file.SeekToEnd(), 1ULL);
    file.Write("tail", 4);
    QCOMPARE(file.GetPosition(), static_cast<unsigned long long>(5 * GiB + 4));
    QCOMPARE(file.GetLength(), static_cast<unsigned long long>(5 * GiB + 4));
    file.SeekToBegin();
    char bytes[4] = {};
    QCOMPARE(file.Read(bytes, 4), 4U);
    QCOMPARE(QByteArray(bytes, 4), QByteArray("head"));
    file.Close();

    QFile other(disk.path("sparse"));
    QVERIFY(other.open(QIODevice::ReadOnly) && other.seek(5 * GiB));
    QCOMPARE(other.readAll(), QByteArray("tail"));
}

void tst_FileSeek::aPipeHasNoPositions()
{
    CFile_X file(L"/dev/null", CFile_X::modeReadWrite);
    QVERIFY(file.Imp<QFile>()->isSequential());
    for (unsigned from = 0; from <= 2; ++from)
        QCOMPARE(file.Seek(0, from), 0ULL);
    QCOMPARE(file.SeekToEnd(), 0ULL);
}

XE_TEST(tst_FileSeek)
#include "tst_fileseek.moc"
