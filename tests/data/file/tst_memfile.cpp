#include "file/offsets.h"
#include "leavenothing.h"
#include "testclass.h"
#include "watchedmemory.h"

namespace {

constexpr auto refused = static_cast<unsigned long long>(-1);

} // namespace

class tst_MemFile : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aNewFile();
    void writeAndRead();
    void writeGrowsByWholeSteps_data();
    void writeGrowsByWholeSteps();
    void writeOverMiddleAndEnd();
    void writeWithoutMemory();
    void writeAtTheEndOfNumbers();
    void readCutsToTheLength();
    void seek_data();
    void seek();
    void seekBeyondTheEnd();
    void seekComparesLow32Bits();
    void setLength();
    void setLengthWithoutMemory();
    void growFileThatCannot_data();
    void growFileThatCannot();
    void aFixedBlock();
    void aCallersBlockThatGrows();
    void attachNullWithASize();
    void attachFreesAnOwnedBlock();
    void attachItsOwnBlock();
    void detach();
    void aBlockMadeAfterDetachIsItsOwn();
    void close();
    void abortCloses();
    void statusOfMemory();
    void theFileOnDiskIsNone();
};

void tst_MemFile::aNewFile()
{
    WatchedMemory file;
    QCOMPARE(file.state(), QStringLiteral("step 1024 at 0 block 0 length 0 none"));
    QVERIFY(file.autoDelete);
    QCOMPARE(WatchedMemory(7).state(), QStringLiteral("step 7 at 0 block 0 length 0 none"));
    char byte = 'x';
    QCOMPARE(file.Read(&byte, 1), 0U);
    QCOMPARE(byte, 'x');
    file.Flush();
    QCOMPARE(file.takeCalls(), QString());
}

void tst_MemFile::writeAndRead()
{
    WatchedMemory file(16);
    file.Write("hello", 5);
    QCOMPARE(file.GetPosition(), 5ULL);
    QCOMPARE(file.GetLength(), 5ULL);
    file.SeekToBegin();
    char bytes[8] = {};
    QCOMPARE(file.Read(bytes, 2), 2U);
    QCOMPARE(file.Read(bytes + 2, 8), 3U);
    QCOMPARE(QByteArray(bytes), QByteArray("hello"));
    QCOMPARE(file.Read(bytes, 8), 0U);
    QCOMPARE(file.takeCalls(), QStringLiteral("GrowFile 5, Alloc 16, Memcpy 5, Memcpy 2, Memcpy 3"));
}

void tst_MemFile::writeGrowsByWholeSteps_data()
{
    QTest::addColumn<unsigned>("step");
    QTest::addColumn<unsigned>("first");
    QTest::addColumn<unsigned>("second");
    QTest::addColumn<QString>("calls");

    QTest::newRow("within the block") << 16U << 10U << 6U << "";
    QTest::newRow("one byte more") << 16U << 10U << 7U << "GrowFile 17, Realloc 32, ";
    QTest::newRow("several steps at once") << 16U << 10U << 50U << "GrowFile 60, Realloc 64, ";
    QTest::newRow("just several steps") << 16U << 10U << 54U << "GrowFile 64, Realloc 64, ";
    QTest::newRow("steps of one") << 1U << 10U << 3U << "GrowFile 13, Realloc 13, ";
}

void tst_MemFile::writeGrowsByWholeSteps()
{
    QFETCH(unsigned, step);
    QFETCH(unsigned, first);
    QFETCH(unsigned, second);
    QFETCH(QString, calls);

    const QByteArray bytes(100, 'x');
    WatchedMemory file(step);
    file.Write(bytes.constData(), first);
    file.takeCalls();
    file.Write(bytes.constData(), second);
    QCOMPARE(file.takeCalls(), calls + QStringLiteral("Memcpy %1").arg(second));
    QCOMPARE(file.content(), bytes.left(int(first + second)));
}

void tst_MemFile::writeOverMiddleAndEnd()
{
    WatchedMemory file(16);
    file.Write("abcdef", 6);
    file.Seek(2, CFile_X::begin);
    file.Write("XY", 2);
    QCOMPARE(file.content(), QByteArray("abXYef"));
    QCOMPARE(file.GetPosition(), 4ULL);
    file.Write("123", 3);
    QCOMPARE(file.content(), QByteArray("abXY123"));
    file.Write(nullptr, 5);
    file.Write("zz", 0);
    QCOMPARE(file.content(), QByteArray("abXY123"));
}

void tst_MemFile::writeWithoutMemory()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.limit = 16;
    file.Write("0123456789abcdef", 16);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 3 block 16 length 3 own"));
    QCOMPARE(file.content(), QByteArray("abc"));
    file.Write("def", 3);
    QCOMPARE(file.content(), QByteArray("abcdef"));
}

void tst_MemFile::writeAtTheEndOfNumbers()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    for (const unsigned long long place : {~0ULL, ~0ULL - 1, ~0ULL - 10, 1ULL << 63}) {
        file.position = place;
        file.Write("defg", 4);
        QCOMPARE(file.position, place);
        QCOMPARE(file.fileSize, 3ULL);
    }
    QCOMPARE(file.bufferSize, 16ULL);
}

void tst_MemFile::readCutsToTheLength()
{
    WatchedMemory file(16);
    file.Write("abcdef", 6);
    file.SetLength(4);
    file.SeekToBegin();
    char bytes[8] = {};
    QCOMPARE(file.Read(bytes, 8), 4U);
    QCOMPARE(QByteArray(bytes), QByteArray("abcd"));
    QCOMPARE(file.Read(nullptr, 8), 0U);
    file.SeekToBegin();
    QCOMPARE(file.Read(nullptr, 4), 0U);
    QCOMPARE(file.Read(bytes, 0), 0U);
    QCOMPARE(file.GetPosition(), 0ULL);
    file.position = ~0ULL;
    QCOMPARE(file.Read(bytes, 8), 0U);
}

void tst_MemFile::seek_data()
{
    QTest::addColumn<long long>("offset");
    QTest::addColumn<unsigned>("from");
    QTest::addColumn<unsigned long long>("result");

    const auto row = [](const char* name, long long offset, unsigned from, unsigned long long result) {
        QTest::newRow(name) << offset << from << result;
    };
    row("begin", 3, 0, 3);
    row("begin: the end", 10, 0, 10);
    row("begin: beyond the end", 30, 0, 30);
    row("begin: negative", -1, 0, refused);
    row("begin: the smallest offset", least, 0, refused);
    row("begin: the largest offset", most, 0, static_cast<unsigned long long>(most));
    row("current: forward", 2, 1, 6);
    row("current: to the first byte", -4, 1, 0);
    row("current: before the first byte", -5, 1, refused);
    row("current: beyond the end", 20, 1, 24);
    row("current: beyond the numbers", most, 1, refused);
    row("current: the smallest offset", least, 1, refused);
    row("end", 0, 2, 10);
    row("end: back", -3, 2, 7);
    row("end: the first byte", -10, 2, 0);
    row("end: before the first byte", -11, 2, refused);
    row("end: forward", 1, 2, refused);
    row("end: the largest offset", most, 2, refused);
    row("end: the smallest offset", least, 2, refused);
    row("3: only the position is given", 7, 3, 4);
    row("any other: only the position is given", 7, 0xFFFFFFFF, 4);
}

void tst_MemFile::seek()
{
    QFETCH(long long, offset);
    QFETCH(unsigned, from);
    QFETCH(unsigned long long, result);

    WatchedMemory file(16);
    file.Write("0123456789", 10);
    QCOMPARE(file.Seek(4, CFile_X::begin), 4ULL);
    QCOMPARE(file.Seek(offset, from), result);
    QCOMPARE(file.GetPosition(), result == refused ? 4ULL : result);
    QCOMPARE(file.content(), QByteArray("0123456789"));
}

void tst_MemFile::seekBeyondTheEnd()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.takeCalls();
    QCOMPARE(file.Seek(20, CFile_X::begin), 20ULL);
    QCOMPARE(file.takeCalls(), QStringLiteral("GrowFile 20, Realloc 32"));
    QCOMPARE(file.state(), QStringLiteral("step 16 at 20 block 32 length 3 own"));
    char bytes[4] = {};
    QCOMPARE(file.Read(bytes, 4), 0U);
    file.Write("x", 1);
    QCOMPARE(file.GetLength(), 21ULL);
    QCOMPARE(file.content().left(3), QByteArray("abc"));
    QCOMPARE(file.content().right(1), QByteArray("x"));
}

void tst_MemFile::seekComparesLow32Bits()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.takeCalls();
    QCOMPARE(file.Seek((1LL << 32) + 3, CFile_X::begin), (1ULL << 32) + 3);
    QCOMPARE(file.takeCalls(), QString());
    QCOMPARE(file.Seek((1LL << 32) + 4, CFile_X::begin), (1ULL << 32) + 4);
    QCOMPARE(file.takeCalls().section(QLatin1Char(','), 0, 0), QStringLiteral("GrowFile 4294967300"));
    QCOMPARE(file.GetLength(), 3ULL);
}

void tst_MemFile::setLength()
{
    WatchedMemory file(16);
    file.Write("abcdef", 6);
    file.SetLength(2);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 2 block 16 length 2 own"));
    file.SetLength(16);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 2 block 16 length 16 own"));
    file.SetLength(17);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 2 block 32 length 17 own"));
    QCOMPARE(file.content().left(6), QByteArray("abcdef"));
    file.SetLength(0);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 0 block 32 length 0 own"));
}

// The length is what was asked for; what can be read is what there is.
void tst_MemFile::setLengthWithoutMemory()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.limit = 16;
    file.SetLength(100);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 3 block 16 length 100 own"));
    QByteArray bytes(100, '\0');
    QCOMPARE(file.Read(bytes.data(), 100), 13U);
    QCOMPARE(file.Read(bytes.data(), 100), 0U);
    QCOMPARE(file.Seek(50, CFile_X::begin), 50ULL);
    QCOMPARE(file.Read(bytes.data(), 100), 0U);
    file.Write("x", 1);
    QCOMPARE(file.GetPosition(), 50ULL);
}

void tst_MemFile::growFileThatCannot_data()
{
    QTest::addColumn<unsigned>("step");
    QTest::addColumn<unsigned long long>("length");
    QTest::newRow("the step 0 does not loop") << 0U << 1000ULL;
    QTest::newRow("below the block") << 16U << 31ULL;
    QTest::newRow("just the block") << 16U << 32ULL;
    QTest::newRow("without memory") << 16U << 33ULL;
    QTest::newRow("steps up to the end of numbers") << 1U << ~0ULL;
    QTest::newRow("steps beyond the end of numbers") << 0xFFFFFFFFU << ~0ULL - 5;
}

void tst_MemFile::growFileThatCannot()
{
    QFETCH(unsigned, step);
    QFETCH(unsigned long long, length);

    WatchedMemory file(32);
    file.Write("abc", 3);
    file.growBytes = step;
    file.limit = 32;
    const QString state = file.state();
    file.GrowFile(length);
    QCOMPARE(file.state(), state);
    QCOMPARE(file.content(), QByteArray("abc"));
}

void tst_MemFile::aFixedBlock()
{
    unsigned char block[] = {'a', 'b', 'c', 'd'};
    WatchedMemory file(block, 4);
    QCOMPARE(file.state(), QStringLiteral("step 0 at 0 block 4 length 4 lent"));
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCheck), 0U);
    char bytes[8] = {};
    QCOMPARE(file.Read(bytes, 8), 4U);
    QCOMPARE(QByteArray(bytes), QByteArray("abcd"));
    file.Seek(2, CFile_X::begin);
    file.Write("XYZ", 3);
    QCOMPARE(file.GetPosition(), 2ULL);
    file.Write("XY", 2);
    QCOMPARE(QByteArray(reinterpret_cast<char*>(block), 4), QByteArray("abXY"));
    QCOMPARE(file.Seek(100, CFile_X::begin), 100ULL);
    file.Write("Z", 1);
    file.SetLength(100);
    QCOMPARE(file.GetLength(), 100ULL);
    file.SeekToBegin();
    QCOMPARE(file.Read(bytes, 8), 4U);
    file.Close();
    QVERIFY(!file.takeCalls().contains(QLatin1String("Free")));
}

void tst_MemFile::aCallersBlockThatGrows()
{
    auto* block = static_cast<unsigned char*>(std::malloc(8));
    WatchedMemory file(block, 8, 16);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 0 block 8 length 0 lent"));
    file.Write("0123456789", 10);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 10 block 24 length 10 lent"));
    QCOMPARE(file.content(), QByteArray("0123456789"));
    std::free(file.Detach());
}

void tst_MemFile::attachNullWithASize()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.Attach(nullptr, 5, 8);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 3 block 16 length 3 own"));
    WatchedMemory made(nullptr, 5, 8);
    QCOMPARE(made.GetLength(), 0ULL);
    made.Write("abc", 3);
    QCOMPARE(made.GetLength(), 0ULL);
}

void tst_MemFile::attachFreesAnOwnedBlock()
{
    unsigned char block[4] = {};
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.takeCalls();
    file.Attach(block, 4, 0);
    QCOMPARE(file.takeCalls(), QStringLiteral("Free"));
    QCOMPARE(file.state(), QStringLiteral("step 0 at 0 block 4 length 4 lent"));
    file.Attach(nullptr, 0, 8);
    QCOMPARE(file.takeCalls(), QString());
    QCOMPARE(file.state(), QStringLiteral("step 8 at 0 block 0 length 0 none"));
}

void tst_MemFile::attachItsOwnBlock()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    unsigned char* const block = file.buffer;
    file.Attach(block, 3, 0);
    QCOMPARE(file.state(), QStringLiteral("step 0 at 0 block 3 length 3 lent"));
    QCOMPARE(file.content(), QByteArray("abc"));
    file.Close();
    std::free(block);
}

void tst_MemFile::detach()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    unsigned char* const block = file.Detach();
    QCOMPARE(QByteArray(reinterpret_cast<char*>(block), 3), QByteArray("abc"));
    QCOMPARE(file.state(), QStringLiteral("step 16 at 0 block 0 length 0 none"));
    QCOMPARE(file.Detach(), static_cast<unsigned char*>(nullptr));
    std::free(block);
    file.Write("def", 3);
    QCOMPARE(file.content(), QByteArray("def"));
}

void tst_MemFile::aBlockMadeAfterDetachIsItsOwn()
{
    unsigned char block[4] = {};
    WatchedMemory file(block, 4, 16);
    QCOMPARE(file.Detach(), static_cast<unsigned char*>(block));
    file.Write("abc", 3);
    QCOMPARE(file.state(), QStringLiteral("step 16 at 3 block 16 length 3 own"));
    file.takeCalls();
    file.Close();
    QCOMPARE(file.takeCalls(), QStringLiteral("Free"));
}

void tst_MemFile::close()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    file.takeCalls();
    file.Close();
    QCOMPARE(file.takeCalls(), QStringLiteral("Free"));
    QCOMPARE(file.state(), QStringLiteral("step 0 at 0 block 0 length 0 none"));
    file.Close();
    file.Write("abc", 3);
    QCOMPARE(file.state(), QStringLiteral("step 0 at 0 block 0 length 0 none"));
    QCOMPARE(file.takeCalls(), QStringLiteral("GrowFile 3"));
}

void tst_MemFile::abortCloses()
{
    class Recorder : public WatchedMemory
    {
    public:
        void Close() override { ++closed; }
        int closed = 0;
    };
    Recorder file;
    file.Abort();
    QCOMPARE(file.closed, 1);
}

void tst_MemFile::statusOfMemory()
{
    CMemFile_X file;
    file.Write("abc", 3);
    const QDateTime old = QDateTime::fromMSecsSinceEpoch(1000);
    CFileStatus_X status;
    status.m_ctime = status.m_mtime = status.m_atime = old;
    status.m_attribute = 77;
    qstrcpy(status.m_szFullName, "old");
    QCOMPARE(file.GetStatus(status), 1);
    QCOMPARE(status.m_size, 3LL);
    QCOMPARE(status.m_attribute, 0);
    QCOMPARE(QByteArray(status.m_szFullName), QByteArray());
    QVERIFY(status.m_ctime == old && status.m_mtime == old && status.m_atime == old);
    QCOMPARE(CMemFile_X::GetStatus(L"/", status), 1);
    QCOMPARE(QByteArray(status.m_szFullName), QByteArray("/"));
}

void tst_MemFile::theFileOnDiskIsNone()
{
    CMemFile_X file;
    file.Write("abc", 3);
    QCOMPARE(file.GetFilePath(), CString_X());
    QCOMPARE(file.GetFileName(), CString_X());
    QCOMPARE(file.GetFileTitle(), CString_X());
    file.SeekToBegin();
    QCOMPARE(file.SeekToEnd(), 0ULL);
    QCOMPARE(file.GetPosition(), 0ULL);
}

XE_TEST(tst_MemFile)
#include "tst_memfile.moc"
