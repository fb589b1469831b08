// The block that a memory file lends out.

#include "leavenothing.h"
#include "testclass.h"
#include "watchedmemory.h"

#include <cstring>

class tst_MemFileBuffer : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void check();
    void read_data();
    void read();
    void readBeyondTheBlock();
    void readWithoutABlock();
    void write_data();
    void write();
    void writeWithoutMemory();
    void writeThenCommit();
    void commitBeyondTheBlock();
    void otherCommandsAndNullAddresses_data();
    void otherCommandsAndNullAddresses();
};

/// What a call lends: from where to where in the block, and its result.
static QString lent(WatchedMemory& file, unsigned command, unsigned count)
{
    void* start = nullptr;
    void* end = nullptr;
    const unsigned result = file.GetBufferPtr(command, count, &start, &end);
    return QStringLiteral("%1 to %2: %3")
        .arg(static_cast<unsigned char*>(start) - file.buffer)
        .arg(static_cast<unsigned char*>(end) - file.buffer)
        .arg(result);
}

void tst_MemFileBuffer::check()
{
    void* const nowhere = reinterpret_cast<void*>(1);
    WatchedMemory file(16);
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCheck), 1U);
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCheck, 99, static_cast<void**>(nowhere), static_cast<void**>(nowhere)),
             1U);
    unsigned char block[4] = {};
    WatchedMemory fixed(block, 4);
    QCOMPARE(fixed.GetBufferPtr(CFile_X::bufferCheck), 0U);
    file.Close();
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCheck), 0U);
}

void tst_MemFileBuffer::read_data()
{
    QTest::addColumn<long long>("position");
    QTest::addColumn<unsigned>("count");
    QTest::addColumn<QString>("lending");
    QTest::addColumn<unsigned long long>("after");

    QTest::newRow("from the start") << 0LL << 4U << "0 to 4: 4" << 4ULL;
    QTest::newRow("from the middle") << 3LL << 4U << "3 to 7: 4" << 7ULL;
    QTest::newRow("just to the end") << 3LL << 7U << "3 to 10: 7" << 10ULL;
    QTest::newRow("cut to the length") << 3LL << 100U << "3 to 10: 7" << 10ULL;
    QTest::newRow("all of it, cut to the length") << 3LL << 0xFFFFFFFFU << "3 to 10: 7" << 10ULL;
    QTest::newRow("all but one is no special number") << 3LL << 0xFFFFFFFEU << "3 to 10: 7" << 10ULL;
    QTest::newRow("nothing") << 3LL << 0U << "3 to 3: 0" << 3ULL;
    QTest::newRow("at the end") << 10LL << 4U << "10 to 10: 0" << 10ULL;
    QTest::newRow("beyond the end the span is empty") << 12LL << 4U << "10 to 10: 0" << 12ULL;
}

void tst_MemFileBuffer::read()
{
    QFETCH(long long, position);
    QFETCH(unsigned, count);

    WatchedMemory file(16);
    file.Write("0123456789", 10);
    file.Seek(position, CFile_X::begin);
    QTEST(lent(file, CFile_X::bufferRead, count), "lending");
    QTEST(file.GetPosition(), "after");
    QCOMPARE(file.GetLength(), 10ULL);
}

void tst_MemFileBuffer::readBeyondTheBlock()
{
    WatchedMemory file(16);
    file.Write("0123456789", 10);
    file.limit = 16;
    file.SetLength(100);
    QCOMPARE(lent(file, CFile_X::bufferRead, 50), QStringLiteral("10 to 16: 6"));
    file.position = ~0ULL;
    QCOMPARE(lent(file, CFile_X::bufferRead, 50), QStringLiteral("16 to 16: 0"));
    QCOMPARE(lent(file, CFile_X::bufferRead, 0xFFFFFFFF), QStringLiteral("16 to 16: 0"));
    QCOMPARE(file.position, ~0ULL);
}

void tst_MemFileBuffer::readWithoutABlock()
{
    WatchedMemory file(16);
    QCOMPARE(lent(file, CFile_X::bufferRead, 50), QStringLiteral("0 to 0: 0"));
    QCOMPARE(lent(file, CFile_X::bufferRead, 0xFFFFFFFF), QStringLiteral("0 to 0: 0"));
    QCOMPARE(file.takeCalls(), QString());
}

void tst_MemFileBuffer::write_data()
{
    QTest::addColumn<long long>("position");
    QTest::addColumn<unsigned>("count");
    QTest::addColumn<QString>("lending");
    QTest::addColumn<unsigned long long>("block");

    QTest::newRow("inside the block") << 10LL << 4U << "10 to 14: 4" << 16ULL;
    QTest::newRow("just to the end of the block") << 10LL << 6U << "10 to 16: 6" << 16ULL;
    QTest::newRow("the block grows") << 10LL << 7U << "10 to 17: 7" << 32ULL;
    QTest::newRow("over what is there") << 0LL << 4U << "0 to 4: 4" << 16ULL;
    QTest::newRow("nothing") << 10LL << 0U << "10 to 10: 0" << 16ULL;
}

void tst_MemFileBuffer::write()
{
    QFETCH(long long, position);
    QFETCH(unsigned, count);

    WatchedMemory file(16);
    file.Write("0123456789", 10);
    file.Seek(position, CFile_X::begin);
    QTEST(lent(file, CFile_X::bufferWrite, count), "lending");
    QTEST(file.bufferSize, "block");
    QCOMPARE(file.GetPosition(), static_cast<unsigned long long>(position));
    QCOMPARE(file.content(), QByteArray("0123456789"));
}

void tst_MemFileBuffer::writeWithoutMemory()
{
    WatchedMemory file(16);
    file.Write("0123456789", 10);
    file.limit = 16;
    QCOMPARE(lent(file, CFile_X::bufferWrite, 100), QStringLiteral("10 to 16: 6"));
    file.position = 20;
    QCOMPARE(lent(file, CFile_X::bufferWrite, 100), QStringLiteral("16 to 16: 0"));
    file.position = ~0ULL - 5;
    void* start = &file;
    void* end = &file;
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferWrite, 100, &start, &end), 0U);
    QCOMPARE(start, &file);
    QCOMPARE(end, &file);
    QCOMPARE(file.position, ~0ULL - 5);
}

void tst_MemFileBuffer::writeThenCommit()
{
    WatchedMemory file(16);
    file.Write("0123456789", 10);
    file.Seek(8, CFile_X::begin);
    void* start = nullptr;
    void* end = nullptr;
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferWrite, 20, &start, &end), 20U);
    std::memcpy(start, "ABCD", 4);
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCommit, 1), 0U);
    QCOMPARE(file.content(), QByteArray("01234567AB"));
    QCOMPARE(file.GetPosition(), 9ULL);
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCommit, 3), 0U);
    QCOMPARE(file.content(), QByteArray("01234567ABCD"));
    QCOMPARE(file.GetPosition(), 12ULL);
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCommit, 0), 0U);
    QCOMPARE(file.GetLength(), 12ULL);
}

void tst_MemFileBuffer::commitBeyondTheBlock()
{
    WatchedMemory file(16);
    file.Write("abc", 3);
    QCOMPARE(file.GetBufferPtr(CFile_X::bufferCommit, 1000), 0U);
    QCOMPARE(file.GetLength(), 1003ULL);
    file.SeekToBegin();
    QByteArray bytes(2000, '\0');
    QCOMPARE(file.Read(bytes.data(), 2000), 16U);
}

void tst_MemFileBuffer::otherCommandsAndNullAddresses_data()
{
    QTest::addColumn<unsigned>("command");
    QTest::addColumn<bool>("withStart");
    QTest::addColumn<bool>("withEnd");
    QTest::newRow("command 4") << 4U << true << true;
    QTest::newRow("command -1") << 0xFFFFFFFFU << true << true;
    QTest::newRow("read, no end") << 0U << true << false;
    QTest::newRow("read, no start") << 0U << false << true;
    QTest::newRow("write, no end") << 1U << true << false;
    QTest::newRow("write, no start") << 1U << false << true;
}

void tst_MemFileBuffer::otherCommandsAndNullAddresses()
{
    QFETCH(unsigned, command);
    QFETCH(bool, withStart);
    QFETCH(bool, withEnd);

    WatchedMemory file(16);
    file.Write("abc", 3);
    file.SeekToBegin();
    const QString state = file.state();
    void* start = &file;
    void* end = &file;
    QCOMPARE(file.GetBufferPtr(command, 100, withStart ? &start : nullptr, withEnd ? &end : nullptr), 0U);
    QCOMPARE(start, &file);
    QCOMPARE(end, &file);
    QCOMPARE(file.state(), state);
}

XE_TEST(tst_MemFileBuffer)
#include "tst_memfilebuffer.moc"
