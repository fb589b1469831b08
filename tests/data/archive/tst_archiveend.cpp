// The end of a stream, and streams that promise more than they hold.

#include "archivefiles.h"
#include "leavenothing.h"
#include "testclass.h"

#include <new>

static std::size_t largestBlock = 0; // that was asked of the heap, by the library too

void* operator new(std::size_t size)
{
    largestBlock = std::max(largestBlock, size);
    if (void* block = std::malloc(size))
        return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, std::size_t) noexcept { std::free(block); }

class tst_ArchiveEnd : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void valuesBehindTheEndAreZero_data();
    void valuesBehindTheEndAreZero();
    void aCutValueIsZeroAndConsumed_data();
    void aCutValueIsZeroAndConsumed();
    void aShortReadTellsWhatCame_data();
    void aShortReadTellsWhatCame();
    void aCutCount_data();
    void aCutCount();
    void aCutTextKeepsTheOldOne_data();
    void aCutTextKeepsTheOldOne();
    void aTextAtTheEndIsEmpty();
    void hostileLengths_data();
    void hostileLengths();
    void aHostileLengthBeforeManyBytes();
};

static void addKinds()
{
    QTest::addColumn<QString>("kind");
    for (const QString& kind : Stage::loadingKinds())
        QTest::newRow(kind.toUtf8().constData()) << kind;
}

template <class T>
static bool isZeroAtTheEnd(CArchive_X& archive, T value)
{
    archive >> value;
    return value == T{};
}

void tst_ArchiveEnd::valuesBehindTheEndAreZero_data() { addKinds(); }

void tst_ArchiveEnd::valuesBehindTheEndAreZero()
{
    QFETCH(QString, kind);
    for (const int size : {0, 1, 127, 128, 129, 256}) {
        Stage stage(kind, pattern(size));
        const auto archive = stage.archive(CArchive_X::load);
        QByteArray all(size, '\0');
        QCOMPARE(archive->Read(all.data(), static_cast<unsigned>(size)), static_cast<unsigned>(size));
        for (int round = 0; round < 3; ++round) {
            QVERIFY(isZeroAtTheEnd(*archive, static_cast<unsigned char>(7)) && isZeroAtTheEnd(*archive, 'x'));
            QVERIFY(isZeroAtTheEnd(*archive, static_cast<short>(7)) && isZeroAtTheEnd(*archive, 7));
            QVERIFY(isZeroAtTheEnd(*archive, 7L) && isZeroAtTheEnd(*archive, 7LL));
            QVERIFY(isZeroAtTheEnd(*archive, 7.0F) && isZeroAtTheEnd(*archive, 7.0));
            QVERIFY(isZeroAtTheEnd(*archive, true) && isZeroAtTheEnd(*archive, L'x'));
            QCOMPARE(archive->ReadCount(), 0ULL);
            QCOMPARE(archive->Read(all.data(), 100), 0U);
        }
        archive->Flush();
        QCOMPARE(stage.file->GetPosition(), static_cast<unsigned long long>(size));
    }
}

void tst_ArchiveEnd::aCutValueIsZeroAndConsumed_data() { addKinds(); }

void tst_ArchiveEnd::aCutValueIsZeroAndConsumed()
{
    QFETCH(QString, kind);
    for (int there = 1; there < 8; ++there) {
        Stage stage(kind, QByteArray(128 + there, '\xFF'));
        const auto archive = stage.archive(CArchive_X::load);
        QByteArray head(128, '\0');
        QCOMPARE(archive->Read(head.data(), 128), 128U);
        long long number = 7;
        char byte = 'x';
        *archive >> number >> byte;
        QCOMPARE(number, 0LL);
        QCOMPARE(byte, '\0');
    }
}

void tst_ArchiveEnd::aShortReadTellsWhatCame_data() { addKinds(); }

void tst_ArchiveEnd::aShortReadTellsWhatCame()
{
    QFETCH(QString, kind);
    for (const int size : {0, 1, 100, 127, 128, 129, 300}) {
        for (const int more : {1, 50, 128, 500}) {
            Stage stage(kind, pattern(size));
            const auto archive = stage.archive(CArchive_X::load);
            QByteArray block(size + more, '#');
            QCOMPARE(archive->Read(block.data(), static_cast<unsigned>(size + more)), static_cast<unsigned>(size));
            QCOMPARE(block.left(size), pattern(size));
            QCOMPARE(archive->Read(block.data(), 1), 0U);
        }
    }
}

void tst_ArchiveEnd::aCutCount_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::newRow("nothing") << bytes("");
    QTest::newRow("half of the short form") << bytes("05");
    QTest::newRow("the long form without its number") << bytes("FF FF");
    QTest::newRow("the long form with half of it") << bytes("FF FF 01 00 00");
}

void tst_ArchiveEnd::aCutCount()
{
    QFETCH(QByteArray, stream);
    QCOMPARE(loaded(stream, [](CArchive_X& archive) { return archive.ReadCount(); }), 0ULL);
}

void tst_ArchiveEnd::aCutTextKeepsTheOldOne_data() { addKinds(); }

void tst_ArchiveEnd::aCutTextKeepsTheOldOne()
{
    QFETCH(QString, kind);
    const QByteArray whole = stored([](CArchive_X& archive) { archive << CString_X(L'x', 40); });
    for (int size = 4; size < whole.size(); ++size) {
        Stage stage(kind, whole.left(size));
        const auto archive = stage.archive(CArchive_X::load);
        CString_X text = L"old";
        char byte = 'x';
        *archive >> text >> byte;
        QCOMPARE(text, CString_X(L"old"));
        QCOMPARE(byte, '\0');
    }
}

// The bytes of a length that are not there count as 0.
void tst_ArchiveEnd::aTextAtTheEndIsEmpty()
{
    for (const char* stream : {"", "FF", "FF FE", "FF FE FF", "FF FE FF FF", "FF FE FF FF 01", "FF FE FF 00"}) {
        CString_X text = L"old";
        loaded(bytes(stream), [&](CArchive_X& archive) { archive >> text; });
        QCOMPARE(text, CString_X());
    }
}

void tst_ArchiveEnd::hostileLengths_data()
{
    QTest::addColumn<QByteArray>("prefix");
    QTest::newRow("2^64 - 1") << bytes("FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF");
    QTest::newRow("2^63") << bytes("FF FF FF FF FF FF FF 00 00 00 00 00 00 00 80");
    QTest::newRow("2^62, 0 bytes by its low 64 bits") << bytes("FF FF FF FF FF FF FF 00 00 00 00 00 00 00 40");
    QTest::newRow("2^62 + 1, 4 bytes") << bytes("FF FF FF FF FF FF FF 01 00 00 00 00 00 00 40");
    QTest::newRow("2^30, 0 bytes by their low 32 bits") << bytes("FF FF FF 00 00 00 40");
    QTest::newRow("2^30 + 1") << bytes("FF FF FF 01 00 00 40");
    QTest::newRow("2^32 - 2") << bytes("FF FF FF FE FF FF FF");
    QTest::newRow("60000") << bytes("FF 60 EA");
}

void tst_ArchiveEnd::hostileLengths()
{
    QFETCH(QByteArray, prefix);
    for (const QString& kind : Stage::loadingKinds()) {
        for (const char* mark : {"", "FF FE FF"}) {
            Stage stage(kind, bytes(mark) + prefix + pattern(100));
            const auto archive = stage.archive(CArchive_X::load);
            CString_X text = L"old";
            char byte = 'x';
            largestBlock = 0;
            *archive >> text;
            QVERIFY2(largestBlock <= 100000, QByteArray::number(qulonglong(largestBlock)));
            *archive >> byte;
            QCOMPARE(text, CString_X(L"old"));
            QCOMPARE(byte, '\0'); // what was there has been read
        }
    }
}

void tst_ArchiveEnd::aHostileLengthBeforeManyBytes()
{
    Stage stage("direct", bytes("FF FE FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 7F") + pattern(1000000));
    const auto archive = stage.archive(CArchive_X::load);
    CString_X text = L"old";
    largestBlock = 0;
    *archive >> text;
    QVERIFY2(largestBlock <= 4000000, QByteArray::number(qulonglong(largestBlock)));
    QCOMPARE(text, CString_X(L"old"));
}

XE_TEST(tst_ArchiveEnd)
#include "tst_archiveend.moc"
