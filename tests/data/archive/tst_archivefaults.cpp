// A file that does not take everything: the stream ends there, and nothing in it is shifted.

#include "archivefiles.h"
#include "failingcall.h"
#include "smalldisk.h"
#include "testclass.h"

#include <QtTest>

namespace {

constexpr int count = 20000;

void storeNumbers(CFile_X& file, int bufferSize = 4096)
{
    CArchive_X archive(&file, CArchive_X::store, bufferSize);
    for (int number = 1; number <= count; ++number)
        archive << number;
}

QByteArray numbers()
{
    QByteArray all;
    for (int number = 1; number <= count; ++number)
        all.append(reinterpret_cast<const char*>(&number), sizeof number);
    return all;
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

// Whether the numbers that are loaded are those that were stored, up to one from which on there are none.
bool isUnshifted(const std::wstring& name)
{
    CFile_X file(name.c_str(), CFile_X::modeRead);
    CArchive_X archive(&file, CArchive_X::load);
    int present = 0;
    for (int expected = 1; expected <= count; ++expected) {
        int number = 0;
        archive >> number;
        if (number == expected && present == expected - 1)
            present = expected;
        else if (number != 0)
            return false;
    }
    return true;
}

/// A memory file without memory for one step of its growth.
class PoorFile : public CMemFile_X
{
public:
    explicit PoorFile(int failing) : CMemFile_X(128), m_failing(failing) {}

protected:
    unsigned char* Realloc(unsigned char* block, unsigned long long size) override
    {
        return --m_failing == 0 ? nullptr : CMemFile_X::Realloc(block, size);
    }

private:
    int m_failing;
};

} // namespace

class tst_ArchiveFaults : public QObject
{
    Q_OBJECT

private slots:
    void failingCalls_data() { FailingCall::addRows(); }
    void failingCalls();
    void failingBlock();
    void aBlockThatIsCut();
    void aFullDisk();
    void noMemoryForAStep_data();
    void noMemoryForAStep();
    void aFixedBlock();
};

void tst_ArchiveFaults::failingCalls()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    const QByteArray whole = numbers();
    const QTemporaryDir folder;
    const QString name = folder.filePath("numbers");
    const std::wstring path = name.toStdWString();
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        QFile::remove(name);
        FailingCall call(kind, number, error);
        {
            CFile_X file(path.c_str(), CFile_X::modeWrite);
            storeNumbers(file);
        }
        wasReached = call.end();
        QVERIFY(wasReached || contentOf(name) == whole);
        QVERIFY(!QFile::exists(name) || whole.startsWith(contentOf(name)));
        QVERIFY(!QFile::exists(name) || isUnshifted(path));
    }
}

// A block that goes to the file past the buffer.
void tst_ArchiveFaults::failingBlock()
{
    const QByteArray block(30000, 'b');
    const QTemporaryDir folder;
    const QString name = folder.filePath("blocks");
    CFile_X file(name.toStdWString().c_str(), CFile_X::modeWrite);
    FailingCall call(FailingCall::Write, 2);
    {
        CArchive_X archive(&file, CArchive_X::store);
        for (int i = 0; i < 4; ++i)
            archive.Write(block.constData(), static_cast<unsigned>(block.size()));
        archive << 1;
    }
    QVERIFY(call.end());
    file.Close();
    const QByteArray content = contentOf(name);
    QVERIFY(content.size() < 4 * block.size());
    QCOMPARE(content, QByteArray(content.size(), 'b'));
}

// The disk takes the first part of it, and has room again for what follows.
void tst_ArchiveFaults::aBlockThatIsCut()
{
    const QByteArray block(6 * SmallDisk::block, 'b');
    SmallDisk disk;
    const QString name = disk.path() + "/blocks";
    disk.leave(2);
    {
        CFile_X file(name.toStdWString().c_str(), CFile_X::modeWrite);
        CArchive_X archive(&file, CArchive_X::store);
        archive.Write(block.constData(), static_cast<unsigned>(block.size()));
        disk.makeRoom();
        archive << 1;
    }
    const QByteArray content = contentOf(name);
    QVERIFY(content.size() < block.size());
    QCOMPARE(content, QByteArray(content.size(), 'b'));
}

void tst_ArchiveFaults::aFullDisk()
{
    const QByteArray whole = numbers();
    SmallDisk disk;
    for (int free = 0; free <= SmallDisk::blocks; ++free) {
        const QString name = disk.path() + QString::number(free);
        disk.leave(free);
        {
            CFile_X file(name.toStdWString().c_str(), CFile_X::modeWrite);
            storeNumbers(file);
        }
        disk.makeRoom();
        QVERIFY(whole.startsWith(contentOf(name)));
        QVERIFY(isUnshifted(name.toStdWString()));
        QFile::remove(name);
    }
}

void tst_ArchiveFaults::noMemoryForAStep_data()
{
    QTest::addColumn<int>("step");
    for (const int step : {1, 2, 3, 100})
        QTest::addRow("step %d", step) << step;
}

void tst_ArchiveFaults::noMemoryForAStep()
{
    QFETCH(int, step);
    PoorFile file(step);
    storeNumbers(file, 128);
    QByteArray content(static_cast<int>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(content.data(), static_cast<unsigned>(content.size()));
    QVERIFY(content.size() < count * 4);
    QVERIFY(numbers().startsWith(content));
}

void tst_ArchiveFaults::aFixedBlock()
{
    QByteArray block(200, '-');
    CMemFile_X file(reinterpret_cast<unsigned char*>(block.data()), 200, 0);
    {
        CArchive_X archive(&file, CArchive_X::store, 128);
        const QByteArray text(128, 't');
        archive.Write(text.constData(), 128);
        archive.Write(text.constData(), 128); // does not fit, and is dropped whole
        archive << 1;                         // would fit
    }
    QCOMPARE(block, QByteArray(128, 't') + QByteArray(72, '-'));
}

XE_GUILESS_TEST(tst_ArchiveFaults)
#include "tst_archivefaults.moc"
