// Questions about what is on the disk.

#include "pathrows.h"
#include "testclass.h"

#include <cerrno>
#include <optional>

#include <sys/stat.h>

using namespace std::string_literals;

namespace {

bool isTopFolder(const QString& path)
{
    struct stat status;
    return stat(path.toUtf8().constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_ino == 2;
}

} // namespace

class tst_PathFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void exists_data();
    void exists();
    void directories_data();
    void directories();
    void directoriesInTheLocale();
    void emptyDirectories_data();
    void emptyDirectories();
    void topFolders_data();
    void topFolders();
    void hostileNames_data();
    void hostileNames();

private:
    std::wstring at(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)).toStdWString(); }
    void makeFile(const char* name) { QVERIFY(QFile(m_folder->filePath(name)).open(QFile::WriteOnly)); }
    void makeFolder(const char* name) { QVERIFY(QDir(m_folder->path()).mkpath(QString::fromUtf8(name))); }

    std::optional<QTemporaryDir> m_folder;
};

void tst_PathFiles::initTestCase()
{
    m_folder.emplace();
    QVERIFY(m_folder->isValid());
    makeFile("file");
    makeFolder("empty");
    makeFolder("full");
    makeFile("full/file");
    makeFolder("nested/inner");
    makeFolder("veiled");
    makeFile("veiled/.hidden");
    makeFolder("d\xC3\xA9j\xC3\xA0");
    QVERIFY(QFile::link(m_folder->filePath("full"), m_folder->filePath("link")));
    QVERIFY(QFile::link(m_folder->filePath("nowhere"), m_folder->filePath("dangling")));
    QVERIFY(QDir::setCurrent(m_folder->filePath("full")));
}

void tst_PathFiles::exists_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<BOOL>("expected");

    QTest::newRow("a file") << at("file") << 1;
    QTest::newRow("a folder") << at("empty") << 1;
    QTest::newRow("a folder with a slash at the end") << at("empty") + L'/' << 1;
    QTest::newRow("a name in the current folder") << L"file"s << 1;
    QTest::newRow("a name beyond ASCII") << at("d\xC3\xA9j\xC3\xA0") << 1;
    QTest::newRow("a link") << at("link") << 1;
    QTest::newRow("a link to nothing") << at("dangling") << 0;
    QTest::newRow("nothing") << at("nowhere") << 0;
    QTest::newRow("backslashes") << L"..\\full"s << 0;
    QTest::newRow("an empty text") << L""s << 0;
}

void tst_PathFiles::exists()
{
    QFETCH(std::wstring, path);
    errno = 0;
    QTEST(PathFileExists_X(path.c_str()), "expected");
    QCOMPARE(errno, ENOENT);
    QCOMPARE(PathFileExists_X(nullptr), 0);
}

void tst_PathFiles::directories_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<BOOL>("expected");

    QTest::newRow("a folder") << at("empty") << 1;
    QTest::newRow("a folder with a slash at the end") << at("empty") + L'/' << 1;
    QTest::newRow("a link to a folder") << at("link") << 1;
    QTest::newRow("the current folder") << L"."s << 1;
    QTest::newRow("a file") << at("file") << 0;
    QTest::newRow("a file with a slash at the end") << at("file") + L'/' << 0;
    QTest::newRow("nothing") << at("nowhere") << 0;
    QTest::newRow("an empty text") << L""s << 0;
}

void tst_PathFiles::directories()
{
    QFETCH(std::wstring, path);
    QTEST(PathIsDirectory(path.c_str()), "expected");
    QCOMPARE(PathIsDirectory(nullptr), 0);
}

void tst_PathFiles::directoriesInTheLocale()
{
    const std::wstring path = at("d\xC3\xA9j\xC3\xA0");
    std::setlocale(LC_CTYPE, "C");
    QCOMPARE(PathIsDirectory(path.c_str()), 0);
    QVERIFY(setUtf8Locale());
    QCOMPARE(PathIsDirectory(path.c_str()), 1);
}

void tst_PathFiles::emptyDirectories_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<BOOL>("expected");

    QTest::newRow("an empty folder") << at("empty") << 1;
    QTest::newRow("a folder with a file") << at("full") << 0;
    QTest::newRow("a folder with a folder") << at("nested") << 0;
    QTest::newRow("a folder with a hidden file") << at("veiled") << 1;
    QTest::newRow("a folder that is not there") << at("nowhere") << 1;
    QTest::newRow("a file") << at("file") << 1;
    QTest::newRow("an empty text is the current folder") << L""s << 0;
}

void tst_PathFiles::emptyDirectories()
{
    QFETCH(std::wstring, path);
    QTEST(PathIsDirectoryEmpty_X(path.c_str()), "expected");
    QCOMPARE(PathIsDirectoryEmpty_X(nullptr), 0);
}

void tst_PathFiles::topFolders_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<BOOL>("expected");

    const QStringList folders = {"/", "/proc", "/sys", "/dev", "/tmp", m_folder->path()};
    for (const QString& path : folders)
        QTest::newRow(qPrintable(path)) << path << BOOL(isTopFolder(path));
    QTest::newRow("a file") << m_folder->filePath("file") << 0;
    QTest::newRow("nothing") << m_folder->filePath("nowhere") << 0;
    QTest::newRow("a name beyond ASCII") << m_folder->filePath(QString::fromUtf8("d\xC3\xA9j\xC3\xA0")) << 0;
    QTest::newRow("an empty text") << QString() << 0;
}

void tst_PathFiles::topFolders()
{
    QFETCH(QString, path);
    QTEST(PathIsRoot_X(path.toStdWString().c_str()), "expected");
    QCOMPARE(PathIsRoot_X(nullptr), 0);
}

void tst_PathFiles::hostileNames_data()
{
    QTest::addColumn<std::wstring>("path");

    QTest::newRow("a lone surrogate") << L"/\xD800"s;
    QTest::newRow("no code points") << L"/\x110000\x7FFFFFFF\xFFFFFFFF"s;
    QTest::newRow("a byte order mark alone") << L"\xFEFF"s;
    QTest::newRow("100,000 elements") << std::wstring(100000, L'a');
    QTest::newRow("100,000 separators and a name") << std::wstring(100000, L'/') + L"nowhere";
}

void tst_PathFiles::hostileNames()
{
    QFETCH(std::wstring, path);
    QCOMPARE(PathIsDirectory(path.c_str()), 0);
    QCOMPARE(PathIsRoot_X(path.c_str()), 0);
    PathFileExists_X(path.c_str()); // what Qt makes of such a name is its own affair
    PathIsDirectoryEmpty_X(path.c_str());
    PathIsURL_X(path.c_str());
}

XE_GUILESS_TEST(tst_PathFiles)
#include "tst_pathfiles.moc"
