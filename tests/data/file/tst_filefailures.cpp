// What the disk refuses: the fixed answers, and nothing is lost that was written before.

#include "leavenothing.h"
#include "tempfiles.h"
#include "testclass.h"

#include <xeafxfile.h>

#include <csignal>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// Files cannot become longer than this while the object lives: what a full disk does to a file.
class DiskLimit
{
public:
    explicit DiskLimit(rlim_t bytes)
    {
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{bytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~DiskLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    Q_DISABLE_COPY_MOVE(DiskLimit)

private:
    rlimit m_old{};
    void (*m_oldHandler)(int);
};

} // namespace

class tst_FileFailures : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void aFullDevice();
    void aFullDiskKeepsWhatFitted_data();
    void aFullDiskKeepsWhatFitted();
    void roomAgainAfterAFullDisk();
    void aFolderIsNoFile_data();
    void aFolderIsNoFile();
    void missingRights();
    void aFailedOpenKeepsTheEarlierFile();
    void aFileThatVanishesIsReadToItsEnd();
    void aFileThatVanishesIsWrittenToNowhere();
    void aFileCutShortByOthers();
};

void tst_FileFailures::aFullDevice()
{
    CFile_X file(L"/dev/full", CFile_X::modeWrite);
    QVERIFY(file.Imp<QFile>()->isOpen());
    const QByteArray block(100000, 'x');
    file.Write("abc", 3);
    file.Flush();
    file.Write(block.constData(), 100000);
    file.Flush();
    file.Close();
    QVERIFY(!file.Imp<QFile>()->isOpen());
}

void tst_FileFailures::aFullDiskKeepsWhatFitted_data()
{
    QTest::addColumn<int>("step");
    QTest::newRow("small pieces, through the buffer") << 100;
    QTest::newRow("blocks larger than the buffer") << 50000;
}

void tst_FileFailures::aFullDiskKeepsWhatFitted()
{
    QFETCH(int, step);

    constexpr int room = 70000;
    const TempFiles disk;
    QByteArray data(200000, '\0');
    std::generate(data.begin(), data.end(), [n = 0]() mutable { return static_cast<char>(n++ % 251); });
    CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    {
        const DiskLimit limit(room);
        for (int done = 0; done < data.size(); done += step)
            file.Write(data.constData() + done, static_cast<unsigned>(step));
        file.Flush();
        file.Close();
    }
    QCOMPARE(disk.read("file"), data.left(room));
}

void tst_FileFailures::roomAgainAfterAFullDisk()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    {
        const DiskLimit limit(4);
        file.Write("abcdef", 6);
        file.Flush();
        QCOMPARE(disk.read("file"), QByteArray("abcd"));
    }
    file.Flush();
    QCOMPARE(disk.read("file"), QByteArray("abcdef"));
}

void tst_FileFailures::aFolderIsNoFile_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::newRow("reading") << unsigned(CFile_X::modeRead);
    QTest::newRow("writing") << unsigned(CFile_X::modeWrite);
    QTest::newRow("both ways") << unsigned(CFile_X::modeReadWrite);
}

void tst_FileFailures::aFolderIsNoFile()
{
    QFETCH(unsigned, flags);

    const TempFiles disk;
    QVERIFY(QDir().mkdir(disk.path("folder")));
    disk.write("file", "abc");
    CFile_X file;
    QCOMPARE(file.Open(disk.widePath("folder"), flags), 0);
    QCOMPARE(file.Open(disk.widePath("file/below"), flags), 0);
    QCOMPARE(file.Open(disk.widePath("missing/below"), flags), 0);
    QVERIFY(!file.Imp<QFile>()->isOpen());
    CFile_X::Rename(disk.widePath("missing"), disk.widePath("folder"));
    CFile_X::Remove(disk.widePath("folder"));
    QVERIFY(QFileInfo(disk.path("folder")).isDir());
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

// Root may do everything, so it takes another user's rights. Those may end above the folder: the names are relative.
void tst_FileFailures::missingRights()
{
    const TempFiles disk;
    disk.write("readable", "abc");
    disk.write("closed", "abc");
    const QFile::Permissions reading = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const QFile::Permissions entering = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(disk.path("readable"), reading));
    QVERIFY(QFile::setPermissions(disk.path("closed"), QFile::Permissions()));
    QVERIFY(QFile::setPermissions(disk.path(""), reading | entering | QFile::WriteOwner));
    const QString oldCurrent = QDir::currentPath();
    QVERIFY(QDir::setCurrent(disk.path("")));
    setfsuid(geteuid() == 0 ? 65534 : geteuid());
    CFile_X file;
    const QVector<int> results = {file.Open(L"readable", CFile_X::modeWrite),
                                  file.Open(L"readable", CFile_X::modeReadWrite),
                                  file.Open(L"closed", CFile_X::modeRead), file.Open(L"readable", CFile_X::modeRead)};
    setfsuid(geteuid());
    QDir::setCurrent(oldCurrent);

    QCOMPARE(results, QVector<int>({0, 0, 0, 1}));
    QCOMPARE(file.GetLength(), 3ULL);
}

void tst_FileFailures::aFailedOpenKeepsTheEarlierFile()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeWrite);
    file.Write("abc", 3);
    QCOMPARE(file.Open(disk.widePath("missing/below"), CFile_X::modeWrite), 0);
    QCOMPARE(disk.read("file"), QByteArray("abc"));
    file.Write("lost", 4);
    QCOMPARE(disk.read("file"), QByteArray("abc"));
}

void tst_FileFailures::aFileThatVanishesIsReadToItsEnd()
{
    const TempFiles disk;
    const QByteArray content(100000, 'x');
    disk.write("file", content);
    CFile_X file(disk.widePath("file"), CFile_X::modeRead);
    QByteArray bytes(content.size(), '\0');
    QCOMPARE(file.Read(bytes.data(), 10), 10U);
    CFile_X::Remove(disk.widePath("file"));
    QCOMPARE(file.Read(bytes.data() + 10, 99990), 99990U);
    QCOMPARE(bytes, content);
    CFileStatus_X status;
    QCOMPARE(file.GetStatus(status), 1);
    QCOMPARE(status.m_size, 0LL);
    QVERIFY(!status.m_mtime.isValid());
}

void tst_FileFailures::aFileThatVanishesIsWrittenToNowhere()
{
    const TempFiles disk;
    CFile_X file(disk.widePath("file"), CFile_X::modeReadWrite);
    file.Write("abc", 3);
    CFile_X::Remove(disk.widePath("file"));
    file.Write("def", 3);
    file.SeekToBegin();
    char bytes[6] = {};
    QCOMPARE(file.Read(bytes, 6), 6U);
    QCOMPARE(QByteArray(bytes, 6), QByteArray("abcdef"));
    file.Close();
    QVERIFY(!QFile::exists(disk.path("file")));
}

void tst_FileFailures::aFileCutShortByOthers()
{
    const TempFiles disk;
    disk.write("file", QByteArray(100000, 'x'));
    CFile_X file(disk.widePath("file"), CFile_X::modeRead);
    QCOMPARE(file.Seek(90000, CFile_X::begin), 90000ULL);
    QVERIFY(QFile::resize(disk.path("file"), 10));
    char bytes[4] = {};
    QCOMPARE(file.Read(bytes, 4), 0U);
    QCOMPARE(file.Seek(5, CFile_X::begin), 5ULL);
    QCOMPARE(file.Read(bytes, 4), 4U);
    QCOMPARE(file.Seek(50, CFile_X::begin), 9ULL);
}

XE_TEST(tst_FileFailures)
#include "tst_filefailures.moc"
