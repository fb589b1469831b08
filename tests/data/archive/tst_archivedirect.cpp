// An archive in a memory file's own block.

#include "archivefiles.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_ArchiveDirect : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void nothingIsCopied();
    void theLengthRisesWithFlush();
    void storingOverAndBehindOldBytes();
    void startingBeyondTheEnd();
    void noMemory_data();
    void noMemory();
    void memoryAgain();
    void aBlockThatMovesAtEachStep();
    void loadingFromTheMiddle();
    void aFileThatBreaksItsWord_data();
    void aFileThatBreaksItsWord();
    void thePositionAfterwards();
};

namespace {

/// A memory file that counts copies and whose block can be kept from growing.
class Memory : public CMemFile_X
{
public:
    using CMemFile_X::buffer;
    using CMemFile_X::bufferSize;
    using CMemFile_X::CMemFile_X;
    ~Memory() override { CMemFile_X::Close(); }

    unsigned char* Alloc(unsigned long long size) override { return Realloc(nullptr, size); }
    // Always another block, as a heap may do; the old one is wiped.
    unsigned char* Realloc(unsigned char* block, unsigned long long size) override
    {
        if (size > limit)
            return nullptr;
        auto* const moved = static_cast<unsigned char*>(std::calloc(1, size));
        if (block) {
            std::memcpy(moved, block, bufferSize);
            std::memset(block, 0xDD, bufferSize);
            std::free(block);
        }
        return moved;
    }
    unsigned char* Memcpy(unsigned char* to, const unsigned char* from, unsigned long long count) override
    {
        ++copies;
        return CMemFile_X::Memcpy(to, from, count);
    }

    QByteArray content() const { return QByteArray(reinterpret_cast<char*>(buffer), static_cast<int>(GetLength())); }

    int copies = 0;
    unsigned long long limit = 1 << 20;
};

} // namespace

void tst_ArchiveDirect::nothingIsCopied()
{
    Memory file(64);
    CArchive_X storing(&file, CArchive_X::store, 128);
    for (int i = 0; i < 1000; ++i)
        storing << i;
    storing.Close();
    QCOMPARE(file.GetLength(), 4000ULL);
    QCOMPARE(file.copies, 0);

    file.SeekToBegin();
    CArchive_X loading(&file, CArchive_X::load, 128);
    int number = -1;
    for (int i = 0; i < 1000; ++i) {
        loading >> number;
        QCOMPARE(number, i);
    }
    QCOMPARE(file.copies, 0);
}

void tst_ArchiveDirect::theLengthRisesWithFlush()
{
    Memory file(64);
    CArchive_X archive(&file, CArchive_X::store, 128);
    archive << 1;
    QCOMPARE(file.GetLength(), 0ULL);
    archive.Flush();
    QCOMPARE(file.GetLength(), 4ULL);
    QCOMPARE(file.bufferSize, 192ULL); // room for the next 128
    archive << 2;
    archive.Close();
    QCOMPARE(file.GetLength(), 8ULL);
}

void tst_ArchiveDirect::storingOverAndBehindOldBytes()
{
    Memory file(64);
    file.Write("0123456789", 10);
    file.Seek(2, CFile_X::begin);
    {
        CArchive_X archive(&file, CArchive_X::store);
        archive << 'A' << 'B';
    }
    QCOMPARE(file.content(), QByteArray("01AB456789"));
    QCOMPARE(file.GetPosition(), 4ULL);
    {
        CArchive_X archive(&file, CArchive_X::store);
        archive.Write("abcdefghij", 10);
    }
    QCOMPARE(file.content(), QByteArray("01ABabcdefghij"));
}

void tst_ArchiveDirect::startingBeyondTheEnd()
{
    Memory file(64);
    file.Write("ab", 2);
    file.Seek(5, CFile_X::begin);
    CArchive_X loading(&file, CArchive_X::load);
    char byte = 'x';
    loading >> byte;
    QCOMPARE(byte, '\0');
    loading.Close();
    QCOMPARE(file.GetPosition(), 5ULL);
    CArchive_X storing(&file, CArchive_X::store);
    storing << 'c';
    storing.Close();
    QCOMPARE(file.content(), QByteArray("ab\0\0\0c", 6));
}

void tst_ArchiveDirect::noMemory_data()
{
    QTest::addColumn<unsigned>("limit");
    for (const unsigned limit : {0U, 1U, 64U, 127U, 128U, 192U, 1000U})
        QTest::addRow("%u bytes", limit) << limit;
}

// What was stored before is there, a whole number of buffers; the rest is dropped.
void tst_ArchiveDirect::noMemory()
{
    QFETCH(unsigned, limit);

    const QByteArray bytes = pattern(3000);
    for (const int step : {1, 4, 100, 1000}) {
        Memory file(64);
        file.limit = limit;
        OpenArchive archive(&file, CArchive_X::store, 128);
        for (int done = 0; done < bytes.size(); done += step) {
            if (step == 1)
                archive << bytes[done];
            else
                archive.Write(bytes.constData() + done, static_cast<unsigned>(step));
            QVERIFY(archive.cursor <= archive.bufferEnd);
        }
        archive.Close();
        const QByteArray content = file.content();
        QVERIFY(static_cast<unsigned>(content.size()) <= limit);
        if (step <= 4)
            QCOMPARE(content, bytes.left(static_cast<int>(limit / 128 * 128)));
    }
}

// It comes too late: behind what is missing nothing is stored.
void tst_ArchiveDirect::memoryAgain()
{
    Memory file(64);
    file.limit = 128;
    CArchive_X archive(&file, CArchive_X::store, 128);
    for (int i = 0; i < 50; ++i)
        archive << i;
    file.limit = 1000;
    archive << 50;
    archive.Close();
    QCOMPARE(file.GetLength(), 128ULL);
    QCOMPARE(int(file.content().at(124)), 31);
}

void tst_ArchiveDirect::aBlockThatMovesAtEachStep()
{
    const QByteArray bytes = pattern(5000);
    Memory file(1);
    CArchive_X archive(&file, CArchive_X::store, 128);
    for (int i = 0; i < 1000; ++i)
        archive << bytes[i];
    archive.Write(bytes.constData() + 1000, 3999);
    archive << bytes[4999];
    archive.Close();
    QCOMPARE(file.content(), bytes);
}

void tst_ArchiveDirect::loadingFromTheMiddle()
{
    Memory file(64);
    file.Write(pattern(500).constData(), 500);
    file.Seek(100, CFile_X::begin);
    CArchive_X archive(&file, CArchive_X::load, 128);
    QByteArray block(300, '\0');
    QCOMPARE(archive.Read(block.data(), 300), 300U);
    QCOMPARE(block, pattern(500).mid(100, 300));
    archive.Close();
    QCOMPARE(file.GetPosition(), 400ULL);
}

namespace {

/// Lends by a script: the result, and how many bytes of a block the addresses span.
class Liar : public CFile_X
{
public:
    Liar(unsigned number, int bytes) : result(number), span(bytes) {}

    unsigned GetBufferPtr(unsigned command, unsigned, void** from, void** to) override
    {
        if (command == bufferCheck)
            return bufferDirect;
        if (from && to) {
            *from = span == -1 ? nullptr : block + 50;
            *to = span == -1 ? nullptr : block + 50 + span;
        }
        return result;
    }
    unsigned Read(void*, unsigned count) override { return count; }
    void Write(const void*, unsigned) override {}

    unsigned result;
    int span;
    unsigned char block[256] = {};
};

} // namespace

void tst_ArchiveDirect::aFileThatBreaksItsWord_data()
{
    QTest::addColumn<unsigned>("result");
    QTest::addColumn<int>("span");
    QTest::addColumn<unsigned>("read"); // of 300 bytes, of which 256 come straight from the file
    QTest::newRow("fewer addresses than it says") << 128U << 20 << 0U;
    QTest::newRow("more addresses than it says") << 20U << 128 << 0U;
    QTest::newRow("the end before the start") << 128U << -40 << 0U;
    QTest::newRow("no addresses") << 128U << -1 << 0U;
    QTest::newRow("nothing") << 0U << 0 << 256U;
}

void tst_ArchiveDirect::aFileThatBreaksItsWord()
{
    QFETCH(unsigned, result);
    QFETCH(int, span);

    Liar file(result, span);
    OpenArchive storing(&file, CArchive_X::store, 128);
    storing << 1 << 2;
    storing.Write(pattern(300).constData(), 300);
    QCOMPARE(storing.cursor, storing.bufferEnd);
    storing.Close();
    QCOMPARE(QByteArray(reinterpret_cast<char*>(file.block), 256), QByteArray(256, '\0'));

    OpenArchive loading(&file, CArchive_X::load, 128);
    int number = 7;
    QByteArray bytes(300, '\0');
    loading >> number;
    QCOMPARE(number, 0);
    QCOMPARE(loading.Read(bytes.data(), 100), 0U);
    QTEST(loading.Read(bytes.data(), 300), "read");
    QCOMPARE(loading.cursor, loading.bufferEnd);
}

void tst_ArchiveDirect::thePositionAfterwards()
{
    Memory file(64);
    {
        CArchive_X archive(&file, CArchive_X::store, 128);
        archive << 1 << 2 << 3;
    }
    QCOMPARE(file.GetPosition(), 12ULL);
    file.SeekToBegin();
    {
        CArchive_X archive(&file, CArchive_X::load, 128);
        int number = 0;
        archive >> number;
    }
    QCOMPARE(file.GetPosition(), 4ULL);
}

XE_TEST(tst_ArchiveDirect)
#include "tst_archivedirect.moc"
