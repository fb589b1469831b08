// Values and blocks that lie across the ends of the buffer, and what is asked of the file for them.

#include "archivefiles.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_ArchiveBuffer : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void loadAtEveryOffset_data();
    void loadAtEveryOffset();
    void storeAtEveryOffset_data();
    void storeAtEveryOffset();
    void readBlocks_data();
    void readBlocks();
    void writeBlocks_data();
    void writeBlocks();
    void mixedSizes_data();
    void mixedSizes();
    void requestsOfValues();
    void requestsOfValuesWhenBlocking();
    void requestsOfBlocks();
    void requestsOfBlocksWhenBlocking();
    void writesOfValues();
    void writesOfBlocks();
    void aFullBufferIsWrittenByTheNextValue();
    void aFileThatGivesMoreThanAsked();
};

// A value of each width, at `offset` behind bytes that are read one by one; false where one comes wrong.
template <class T>
static bool loadsAt(const QString& kind, const QByteArray& content, int offset)
{
    Stage stage(kind, content.left(offset + static_cast<int>(sizeof(T)) * 2 + 1));
    const auto archive = stage.archive(CArchive_X::load);
    unsigned char byte = 0;
    T values[2];
    unsigned char last = 0;
    for (int i = 0; i < offset; ++i)
        *archive >> byte;
    *archive >> values[0] >> values[1] >> last;
    return std::memcmp(values, content.constData() + offset, sizeof(values)) == 0
           && last == static_cast<unsigned char>(content[offset + static_cast<int>(sizeof(values))]);
}

void tst_ArchiveBuffer::loadAtEveryOffset_data() { addKinds(Stage::loadingKinds()); }

void tst_ArchiveBuffer::loadAtEveryOffset()
{
    QFETCH(QString, kind);
    const QByteArray content = pattern(400);
    for (int offset = 0; offset <= 150; ++offset) {
        const QByteArray where = QByteArray::number(offset);
        QVERIFY2(loadsAt<unsigned char>(kind, content, offset), where);
        QVERIFY2(loadsAt<short>(kind, content, offset), where);
        QVERIFY2(loadsAt<int>(kind, content, offset), where);
        QVERIFY2(loadsAt<long long>(kind, content, offset), where);
    }
}

template <class T>
static bool storesAt(const QString& kind, const QByteArray& content, int offset)
{
    Stage stage(kind);
    T values[2];
    std::memcpy(values, content.constData() + offset, sizeof(values));
    const int end = offset + static_cast<int>(sizeof(values));
    const auto archive = stage.archive(CArchive_X::store);
    for (int i = 0; i < offset; ++i)
        *archive << content[i];
    *archive << values[0] << values[1] << content[end];
    archive->Close();
    return stage.content() == content.left(end + 1);
}

void tst_ArchiveBuffer::storeAtEveryOffset_data() { addKinds(Stage::storingKinds()); }

void tst_ArchiveBuffer::storeAtEveryOffset()
{
    QFETCH(QString, kind);
    const QByteArray content = pattern(400);
    for (int offset = 0; offset <= 150; ++offset) {
        const QByteArray where = QByteArray::number(offset);
        QVERIFY2(storesAt<unsigned char>(kind, content, offset), where);
        QVERIFY2(storesAt<short>(kind, content, offset), where);
        QVERIFY2(storesAt<int>(kind, content, offset), where);
        QVERIFY2(storesAt<long long>(kind, content, offset), where);
    }
}

constexpr int blockSizes[] = {1, 22, 23, 106, 127, 128, 129, 150, 151, 255, 256, 257, 1000};
constexpr int offsets[] = {0, 1, 100, 127, 128, 129, 150};

void tst_ArchiveBuffer::readBlocks_data() { addKinds(Stage::loadingKinds()); }

void tst_ArchiveBuffer::readBlocks()
{
    QFETCH(QString, kind);
    const QByteArray content = pattern(1200);
    for (const int offset : offsets) {
        for (const int size : blockSizes) {
            Stage stage(kind, content);
            const auto archive = stage.archive(CArchive_X::load);
            QByteArray head(offset, '\0');
            QByteArray block(size, '\0');
            char last = 0;
            QCOMPARE(archive->Read(head.data(), static_cast<unsigned>(offset)), static_cast<unsigned>(offset));
            QCOMPARE(archive->EnsureRead(block.data(), static_cast<unsigned>(size)), static_cast<unsigned>(size));
            *archive >> last;
            QCOMPARE(head + block + last, content.left(offset + size + 1));
        }
    }
}

void tst_ArchiveBuffer::writeBlocks_data() { addKinds(Stage::storingKinds()); }

void tst_ArchiveBuffer::writeBlocks()
{
    QFETCH(QString, kind);
    const QByteArray content = pattern(1200);
    for (const int offset : offsets) {
        for (const int size : blockSizes) {
            Stage stage(kind);
            const auto archive = stage.archive(CArchive_X::store);
            archive->Write(content.constData(), static_cast<unsigned>(offset));
            archive->Write(content.constData() + offset, static_cast<unsigned>(size));
            *archive << content[offset + size];
            archive->Close();
            QCOMPARE(stage.content(), content.left(offset + size + 1));
        }
    }
}

void tst_ArchiveBuffer::mixedSizes_data()
{
    QTest::addColumn<QString>("storing");
    QTest::addColumn<QString>("loading");
    for (const QString& storing : Stage::storingKinds()) {
        for (const QString& loading : Stage::loadingKinds())
            QTest::newRow((storing + ", " + loading).toUtf8().constData()) << storing << loading;
    }
}

void tst_ArchiveBuffer::mixedSizes()
{
    QFETCH(QString, storing);
    QFETCH(QString, loading);

    Stage from(storing);
    {
        const auto archive = from.archive(CArchive_X::store);
        for (int i = 0; i < 60; ++i) {
            *archive << static_cast<char>(i) << static_cast<short>(-i) << i * 1.5 << CString_X(L'x', i * 3);
            archive->WriteCount(static_cast<unsigned long long>(i) * 5000);
            archive->Write(QByteArray(i * 11, 'y').constData(), static_cast<unsigned>(i) * 11);
        }
    }
    Stage to(loading, from.content());
    const auto archive = to.archive(CArchive_X::load);
    for (int i = 0; i < 60; ++i) {
        char c = 0;
        short s = 0;
        double d = 0;
        CString_X text;
        QByteArray block(i * 11, '\0');
        *archive >> c >> s >> d >> text;
        QCOMPARE(int(c), i);
        QCOMPARE(int(s), -i);
        QCOMPARE(d, i * 1.5);
        QVERIFY(text == CString_X(L'x', i * 3));
        QCOMPARE(archive->ReadCount(), static_cast<unsigned long long>(i) * 5000);
        QCOMPARE(archive->Read(block.data(), static_cast<unsigned>(i) * 11), static_cast<unsigned>(i) * 11);
        QCOMPARE(block, QByteArray(i * 11, 'y'));
    }
}

void tst_ArchiveBuffer::requestsOfValues()
{
    int number = 0;
    short half = 0;
    SlowFile file(pattern(400));
    CArchive_X whole(&file, CArchive_X::load, 130);
    whole >> number >> half;
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 130"));
    for (int i = 0; i < 31; ++i)
        whole >> number;
    QCOMPARE(file.takeCalls(), QString());
    whole >> number;
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 130"));
    whole.Abort();

    // Short reads go on until the value is there, each asking for what the one before did not get.
    SlowFile slow(pattern(400), 3);
    CArchive_X pieces(&slow, CArchive_X::load, 130);
    pieces >> number;
    QCOMPARE(slow.takeCalls(), QStringLiteral("Read 130, Read 127"));
    pieces >> number;
    QCOMPARE(slow.takeCalls(), QStringLiteral("Read 128"));
    pieces >> number;
    QCOMPARE(slow.takeCalls(), QStringLiteral("Read 129"));
    pieces.Close();
    QCOMPARE(slow.takeCalls(), QString());
}

void tst_ArchiveBuffer::requestsOfValuesWhenBlocking()
{
    int number = 0;
    char byte = 0;
    SlowFile file(pattern(400), ~0U, true);
    CArchive_X archive(&file, CArchive_X::load, 130);
    archive >> number >> byte;
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 4, Read 1"));
    file.step = 3;
    archive >> number;
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 4, Read 1"));
    archive.Close();
    QCOMPARE(file.takeCalls(), QString());
    QCOMPARE(file.position, 9ULL);
}

void tst_ArchiveBuffer::requestsOfBlocks()
{
    QByteArray block(400, '\0');
    char byte = 0;
    SlowFile file(pattern(1000));
    CArchive_X archive(&file, CArchive_X::load, 130);
    archive >> byte;
    file.takeCalls();
    QCOMPARE(archive.Read(block.data(), 129), 129U);
    QCOMPARE(file.takeCalls(), QString());
    QCOMPARE(archive.Read(block.data(), 260), 260U);
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 260"));
    QCOMPARE(archive.Read(block.data(), 300), 300U);
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 260, Read 130"));
    QCOMPARE(archive.Read(block.data(), 90), 90U);
    QCOMPARE(file.takeCalls(), QString());
    file.step = 50;
    QCOMPARE(archive.Read(block.data(), 200), 200U);
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 130, Read 80, Read 30, Read 130, Read 80"));
}

void tst_ArchiveBuffer::requestsOfBlocksWhenBlocking()
{
    QByteArray block(400, '\0');
    SlowFile file(pattern(1000), ~0U, true);
    CArchive_X archive(&file, CArchive_X::load, 130);
    QCOMPARE(archive.Read(block.data(), 300), 300U);
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 260, Read 40"));
    file.step = 30;
    QCOMPARE(archive.Read(block.data(), 70), 70U);
    QCOMPARE(file.takeCalls(), QStringLiteral("Read 70, Read 40, Read 10"));
    QCOMPARE(file.position, 370ULL);
}

void tst_ArchiveBuffer::writesOfValues()
{
    SlowFile file;
    CArchive_X archive(&file, CArchive_X::store, 130);
    for (int i = 0; i < 32; ++i)
        archive << i;
    QCOMPARE(file.takeCalls(), QString());
    archive << 1;
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 128"));
    archive << 'x';
    archive.Close();
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 5"));
}

void tst_ArchiveBuffer::writesOfBlocks()
{
    const QByteArray block = pattern(400);
    SlowFile file;
    CArchive_X archive(&file, CArchive_X::store, 130);
    archive.Write(block.constData(), 100);
    archive.Write(block.constData(), 30);
    QCOMPARE(file.takeCalls(), QString());
    archive.Write(block.constData(), 10);
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 130"));
    archive.Write(block.constData(), 400);
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 130, Write 260"));
    archive.Close();
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 20"));
    QCOMPARE(file.content.mid(130), block.left(10) + block);
}

void tst_ArchiveBuffer::aFullBufferIsWrittenByTheNextValue()
{
    SlowFile file;
    CArchive_X archive(&file, CArchive_X::store, 128);
    archive.Write(pattern(128).constData(), 128);
    QCOMPARE(file.takeCalls(), QString());
    archive << 'x';
    QCOMPARE(file.takeCalls(), QStringLiteral("Write 128"));
}

void tst_ArchiveBuffer::aFileThatGivesMoreThanAsked()
{
    class Boaster : public SlowFile
    {
    public:
        using SlowFile::SlowFile;
        unsigned Read(void* buffer, unsigned count) override { return SlowFile::Read(buffer, count) + 1000; }
    };
    Boaster file(pattern(1000));
    OpenArchive archive(&file, CArchive_X::load, 128);
    QByteArray block(600, '\0');
    QCOMPARE(archive.Read(block.data(), 600), 600U);
    QCOMPARE(block, pattern(600));
    QVERIFY(archive.bufferEnd <= archive.bufferStart + 128);
}

XE_TEST(tst_ArchiveBuffer)
#include "tst_archivebuffer.moc"
