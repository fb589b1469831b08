// Functions on paths: attributes, deletion, copies, moves, names.

#include "folder.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <memory>

#include <sys/stat.h>

namespace {

// What a call wrote into a buffer, up to the mark that was there before.
template <class Function>
QString written(Function function)
{
    std::wstring buffer(4000, L'#');
    function(&buffer[0]);
    return QString::fromStdWString(buffer.substr(0, buffer.find_last_not_of(L'#') + 1));
}

} // namespace

class tst_FilePaths : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<Folder>(); }
    void cleanup();

    void attributesArePermissions();
    void deletes();
    void copies_data();
    void copies();
    void copiesOntoItself();
    void movesFiles_data();
    void movesFiles();
    void movesFolders_data();
    void movesFolders();
    void movesNothing();
    void linksAreSymbolic();
    void renames();

    void makesFolders();
    void removesFolders();

    void fullPathName();
    void fullPathNameWithItsLastPart();
    void tempPath_data();
    void tempPath();
    void tempFileNames();
    void tempFileNamesThatCannotBe_data();
    void tempFileNamesThatCannotBe();
    void aTempFileNameOfManyElements();
    void compressedSize();
    void nullPaths();

private:
    std::wstring wide(const char* name) const { return m_folder->wide(name); }

    std::unique_ptr<Folder> m_folder;
};

void tst_FilePaths::cleanup() { QDir::setCurrent("/"); }

void tst_FilePaths::attributesArePermissions()
{
    m_folder->write("file", "x");
    QVERIFY(QFile::setPermissions(m_folder->path("file"), QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(GetFileAttributes_X(wide("file").c_str()), static_cast<DWORD>(QFile::permissions(m_folder->path("file"))));
    QCOMPARE(GetFileAttributes_X(wide("file").c_str()) & 0x7007U & ~0x0FF0U & 0x7000U, 0x6000U);
    QCOMPARE(GetFileAttributes_X(wide("missing").c_str()), 0U);
    QCOMPARE(SetFileAttributes_X(wide("file").c_str(), 0x4044), 1);
    struct stat info
    {
    };
    QCOMPARE(stat(QFile::encodeName(m_folder->path("file")), &info), 0);
    QCOMPARE(info.st_mode & 0777U, 0444U);
    QCOMPARE(SetFileAttributes_X(wide("missing").c_str(), 0x4044), 0);
}

void tst_FilePaths::deletes()
{
    m_folder->write("file", "x");
    m_folder->makeFolder("folder");
    QCOMPARE(DeleteFile(wide("file").c_str()), 1);
    QVERIFY(!m_folder->has("file"));
    QCOMPARE(DeleteFile(wide("file").c_str()), 0);
    QCOMPARE(DeleteFile(wide("folder").c_str()), 0);
    QVERIFY(m_folder->has("folder"));
}

// ---------------------------------------------------------------------------------------------------- copies and moves

void tst_FilePaths::copies_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("failIfExists");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("to a new name") << "a"
                                   << "c" << 0 << 1 << QByteArray("one");
    QTest::newRow("to a new name, carefully") << "a"
                                              << "c" << 1 << 1 << QByteArray("one");
    QTest::newRow("over a file") << "a"
                                 << "b" << 0 << 1 << QByteArray("one");
    QTest::newRow("over a file, carefully") << "a"
                                            << "b" << 1 << 0 << QByteArray("two");
    QTest::newRow("any flag is careful") << "a"
                                         << "b" << -5 << 0 << QByteArray("two");
    QTest::newRow("no source") << "x"
                               << "b" << 0 << 0 << QByteArray("two");
    QTest::newRow("no source, carefully") << "x"
                                          << "c" << 1 << 0 << QByteArray("no such file");
    QTest::newRow("over a folder") << "a"
                                   << "folder" << 0 << 0 << QByteArray("no such file");
    QTest::newRow("into a folder that is not there") << "a"
                                                     << "x/y" << 0 << 0 << QByteArray("no such file");
}

void tst_FilePaths::copies()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, failIfExists);
    m_folder->write("a", "one");
    m_folder->write("b", "two");
    m_folder->makeFolder("folder/below");
    QTEST(CopyFile(m_folder->wide(from).c_str(), m_folder->wide(to).c_str(), failIfExists), "result");
    QTEST(m_folder->read(to), "content");
    QCOMPARE(m_folder->read("a"), QByteArray("one"));
}

void tst_FilePaths::copiesOntoItself()
{
    m_folder->write("a", "one");
    QVERIFY(QFile::link(m_folder->path("a"), m_folder->path("link")));
    QCOMPARE(CopyFile(wide("a").c_str(), wide("a").c_str(), FALSE), 0);
    QCOMPARE(CopyFile(wide("a").c_str(), wide("../" + QDir(m_folder->root()).dirName().toUtf8() + "/a").c_str(), FALSE),
             0);
    QCOMPARE(CopyFile(wide("a").c_str(), wide("link").c_str(), FALSE), 0);
    QCOMPARE(m_folder->read("a"), QByteArray("one"));
}

void tst_FilePaths::movesFiles_data()
{
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("result");
    QTest::newRow("to a new name") << "c" << 1;
    QTest::newRow("to another folder") << "folder/a" << 1;
    QTest::newRow("never over a file") << "b" << 0;
    QTest::newRow("never over a folder") << "folder" << 0;
    QTest::newRow("never over itself") << "a" << 0;
    QTest::newRow("into a folder that is not there") << "x/y" << 0;
}

void tst_FilePaths::movesFiles()
{
    QFETCH(QString, to);
    QFETCH(int, result);
    m_folder->write("a", "one");
    m_folder->write("b", "two");
    m_folder->makeFolder("folder");
    QCOMPARE(MoveFile_X(wide("a").c_str(), m_folder->wide(to).c_str()), result);
    QCOMPARE(m_folder->read(result ? to : "a"), QByteArray("one"));
    QCOMPARE(m_folder->has("a"), !result);
    QCOMPARE(m_folder->read("b"), QByteArray("two"));
}

void tst_FilePaths::movesFolders_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("result");
    QTest::newRow("renamed") << "one"
                             << "three" << 1;
    QTest::newRow("to another parent") << "one"
                                       << "two/one" << 0;
    QTest::newRow("out of its parent") << "two/below"
                                       << "below" << 0;
    QTest::newRow("over a full folder") << "one"
                                        << "two" << 0;
    QTest::newRow("a slash behind it makes itself the parent") << "one/"
                                                               << "three" << 0;
}

void tst_FilePaths::movesFolders()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, result);
    m_folder->makeFolder("one");
    m_folder->makeFolder("two/below");
    m_folder->write("one/file", "x");
    m_folder->write("two/below/file", "y");
    const QStringList before = m_folder->entries();
    QCOMPARE(MoveFile_X(m_folder->wide(from).c_str(), m_folder->wide(to).c_str()), result);
    if (result)
        QCOMPARE(m_folder->read(to + "/file"), QByteArray("x"));
    else
        QCOMPARE(m_folder->entries(), before);
    QCOMPARE(m_folder->read("two/below/file"), QByteArray("y"));
}

void tst_FilePaths::movesNothing()
{
    QCOMPARE(MoveFile_X(wide("missing").c_str(), wide("b").c_str()), 0);
    QVERIFY(m_folder->entries().isEmpty());
}

void tst_FilePaths::linksAreSymbolic()
{
    m_folder->write("target", "x");
    QCOMPARE(CreateHardLink_X(wide("link").c_str(), wide("target").c_str()), 1);
    QVERIFY(QFileInfo(m_folder->path("link")).isSymLink());
    QCOMPARE(m_folder->read("link"), QByteArray("x"));
    QCOMPARE(CreateHardLink_X(wide("link").c_str(), wide("target").c_str()), 0);
}

void tst_FilePaths::renames()
{
    m_folder->write("a", "one");
    m_folder->write("b", "two");
    QCOMPARE(_wrename(wide("a").c_str(), wide("b").c_str()), -1);
    QCOMPARE(_wrename(wide("missing").c_str(), wide("c").c_str()), -1);
    QCOMPARE(_wrename(wide("a").c_str(), wide("c").c_str()), 0);
    QCOMPARE(m_folder->read("c"), QByteArray("one"));
    QCOMPARE(_wunlink(wide("c").c_str()), 1);
    QCOMPARE(_wunlink(wide("c").c_str()), 0);
}

// ------------------------------------------------------------------------------------------------------------- folders

void tst_FilePaths::makesFolders()
{
    const mode_t before = umask(002);
    QCOMPARE(CreateDirectory(m_folder->wide(QString::fromUtf8("零件")).c_str()), 1);
    umask(before);
    struct stat info
    {
    };
    QCOMPARE(stat(QFile::encodeName(m_folder->path(QString::fromUtf8("零件"))), &info), 0);
    QVERIFY(S_ISDIR(info.st_mode));
    QCOMPARE(info.st_mode & 0777U, 0775U);
    QCOMPARE(CreateDirectory(m_folder->wide(QString::fromUtf8("零件")).c_str()), 0);
    QCOMPARE(CreateDirectory(wide("one/two").c_str()), 0);
    QVERIFY(!m_folder->has("one"));
}

void tst_FilePaths::removesFolders()
{
    m_folder->makeFolder("empty");
    m_folder->makeFolder("empty2");
    m_folder->makeFolder("full/below");
    QCOMPARE(RemoveDirectory_X(wide("empty").c_str()), 1);
    QCOMPARE(RemoveDirectory_X(wide("full").c_str()), 0);
    QCOMPARE(RemoveDirectory_X(wide("missing").c_str()), 0);
    QCOMPARE(DeleteVolumeMountPoint_X(wide("empty2").c_str()), 1);
    QCOMPARE(m_folder->entries(), QStringList{"full"});
}

// --------------------------------------------------------------------------------------------------------------- names

void tst_FilePaths::fullPathName()
{
    QDir::setCurrent(m_folder->root());
    const QString full = QDir::currentPath() + "/one";
    DWORD length = 0;
    const auto ask = [&length](DWORD capacity) {
        return written([&](wchar_t* buffer) { length = GetFullPathName_X(L"one", capacity, buffer, nullptr); });
    };
    QCOMPARE(ask(4000), full);
    QCOMPARE(length, static_cast<DWORD>(full.size()));
    QCOMPARE(ask(5), full.left(5));
    QCOMPARE(length, 5U);
    QCOMPARE(ask(0), QString());
    QCOMPARE(length, 0U);
    QCOMPARE(GetFullPathName_X(L"/a/b", 10, nullptr, nullptr), 4U);
}

void tst_FilePaths::fullPathNameWithItsLastPart()
{
    wchar_t buffer[20] = {};
    wchar_t name[20] = {};
    wchar_t* part = name;
    QCOMPARE(GetFullPathName_X(L"/a/b/c.txt", 3, buffer, &part), 3U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"/a/"));
    QCOMPARE(part, name);
    QCOMPARE(std::wstring(name), std::wstring(L"c.txt"));
    part = nullptr;
    QCOMPARE(GetFullPathName_X(L"/a/b/c.txt", 20, buffer, &part), 10U);
    QCOMPARE(part, nullptr);
}

void tst_FilePaths::tempPath_data()
{
    QTest::addColumn<DWORD>("capacity");
    QTest::addColumn<QString>("text");
    QTest::addColumn<DWORD>("result");
    QTest::newRow("room enough") << 100U << QString("/tmp/") + QChar(0) << 6U;
    QTest::newRow("just enough") << 6U << QString("/tmp/") + QChar(0) << 6U;
    QTest::newRow("no room for the terminator") << 5U << "/tmp/" << 5U;
    QTest::newRow("too little") << 2U << "/t" << 2U;
    QTest::newRow("none") << 0U << "" << 0U;
}

void tst_FilePaths::tempPath()
{
    QFETCH(DWORD, capacity);
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/tmp");
    DWORD result = 77;
    const QString text = written([&](wchar_t* buffer) { result = GetTempPath(capacity, buffer); });
    const DWORD withoutBuffer = GetTempPath(capacity, nullptr);
    qputenv("TMPDIR", before);
    QTEST(text, "text");
    QTEST(result, "result");
    QCOMPARE(withoutBuffer, result);
}

void tst_FilePaths::tempFileNames()
{
    const std::wstring path = wide("") + L'/';
    for (const UINT unique : {0U, 5U}) {
        UINT result = 77;
        const QString name =
            written([&](wchar_t* buffer) { result = GetTempFileName_X(path.c_str(), L"pre", unique, buffer); });
        QCOMPARE(result, 1U);
        QVERIFY2(QRegularExpression("^" + QRegularExpression::escape(m_folder->path("pre"))
                                    + "[0-9a-f]+\\.tmp\\.[A-Za-z]{6}$")
                     .match(name)
                     .hasMatch(),
                 qPrintable(name));
        QVERIFY(!QFile::exists(name));
    }
    QVERIFY(m_folder->entries().isEmpty());
    QCOMPARE(GetTempFileName_X(path.c_str(), L"pre", 0, nullptr), 1U);
}

void tst_FilePaths::tempFileNamesThatCannotBe_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a folder that is not there") << "/nowhere/at/all/";
    QTest::newRow("below a device") << "/dev/null/";
    QTest::newRow("a name that is too long") << "/tmp/" + QString(3000, 'x');
}

void tst_FilePaths::tempFileNamesThatCannotBe()
{
    QFETCH(QString, path);
    UINT result = 77;
    const QString name =
        written([&](wchar_t* buffer) { result = GetTempFileName_X(path.toStdWString().c_str(), L"p", 0, buffer); });
    QCOMPARE(result, 0U);
    QCOMPARE(name, QString());
}

void tst_FilePaths::aTempFileNameOfManyElements()
{
    QString folder = m_folder->root() + '/';
    while (folder.size() < 1900)
        folder += QString(100, 'x') + '/';
    QVERIFY(QDir().mkpath(folder));
    const std::wstring path = folder.toStdWString();
    const std::size_t suffix = std::wcslen(L".tmp.123456");
    for (const std::size_t length : {std::size_t(2034), std::size_t(2050)}) {
        UINT result = 77;
        // Of the number's up to 8 digits there may be less.
        const std::wstring prefix(length - path.size() - suffix - 8, L'p');
        const QString name =
            written([&](wchar_t* buffer) { result = GetTempFileName_X(path.c_str(), prefix.c_str(), 1, buffer); });
        QCOMPARE(result, length == 2034 ? 1U : 111U);
        QCOMPARE(name.isEmpty(), length != 2034);
    }
}

// The program is called with " -" for its archive: that is a file.
void tst_FilePaths::compressedSize()
{
    QDir::setCurrent(m_folder->root());
    m_folder->write("file", QByteArray(1000, 'x'));
    DWORD high = 77;
    QCOMPARE(GetCompressedFileSize_X(L"file", &high), 0U);
    QCOMPARE(high, 0U);
    QCOMPARE(m_folder->entries(), QStringList({" -", "file"}));
    QVERIFY(m_folder->read(" -").size() > 0);
    QVERIFY(QFile::remove(m_folder->path(" -")));
    QCOMPARE(GetCompressedFileSize_X(L"missing", nullptr), 0U);
}

void tst_FilePaths::nullPaths()
{
    wchar_t buffer[4000] = {};
    QDir::setCurrent(m_folder->root());
    for (const char* function : {"remove", "link"})
        QTest::ignoreMessage(QtWarningMsg, QByteArray("QFile::") + function + ": Empty or null file name");
    QCOMPARE(GetFileAttributes_X(nullptr), 0U);
    QCOMPARE(DeleteFile(nullptr), 0);
    QCOMPARE(CopyFile(nullptr, nullptr, FALSE), 0);
    QCOMPARE(MoveFile_X(nullptr, nullptr), 0);
    QCOMPARE(CreateHardLink_X(nullptr, nullptr), 0);
    QCOMPARE(CreateDirectory(nullptr), 0);
    QCOMPARE(CreateDirectory(L""), 0);
    QCOMPARE(RemoveDirectory_X(nullptr), 0);
    QCOMPARE(DeleteVolumeMountPoint_X(nullptr), 0);
    QCOMPARE(_wrename(nullptr, nullptr), -1);
    GetFullPathName_X(nullptr, 100, buffer, nullptr);
    QCOMPARE(GetTempFileName_X(nullptr, nullptr, 1, buffer), 1U);
    QCOMPARE(AreFileApisANSI_X(), 0);
    QVERIFY(m_folder->entries().isEmpty());
}

XE_GUILESS_TEST(tst_FilePaths)
#include "tst_filepaths.moc"
