#include "testclass.h"
#include "textresult.h"

#include <xeafxstr.h>
#include <xefileapi.h>

#include <QRegularExpression>

#include <sys/stat.h>

namespace {

/// Makes a folder the current one, until its end.
class CurrentFolder
{
public:
    explicit CurrentFolder(const QString& path) : m_before(QDir::currentPath()) { QDir::setCurrent(path); }
    ~CurrentFolder() { QDir::setCurrent(m_before); }

private:
    const QString m_before;
};

/// The nine mode bits, octal; -1 if there is no such file.
int modeOf(const QString& path)
{
    struct stat status;
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

void expectQtToComplain()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Empty (or null )?file ?name")));
}

int makeFolder(const QString& path) { return _wmkdir(CString_X(path)); }
int removeFolder(const QString& path) { return _wrmdir(CString_X(path)); }

} // namespace

/// Files and folders by their wide names. Each function has a folder of its own, with a file that keeps it from being
/// removed as an empty parent.
class tst_ConvertFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void makeFolders_data();
    void makeFolders();
    void forbiddenNames_data();
    void forbiddenNames();
    void folderNamesThatFail_data();
    void folderNamesThatFail();
    void makeWithoutAName();
    void makeInTheCurrentFolder();
    void removeFolders_data();
    void removeFolders();
    void removeEmptyParents();
    void foldersThatStay_data();
    void foldersThatStay();
    void theCurrentFolderStays();
    void theRootStays();
    void removeThroughALink();
    void removeInTheCurrentFolder();
    void modes_data();
    void modes();
    void otherModes_data();
    void otherModes();
    void modeOfNothing();
    void removeFiles();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    void touch(const QString& name) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    bool isFolder(const QString& name) const { return QFileInfo(path(name)).isDir(); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_ConvertFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    touch(QStringLiteral("guard"));
}

void tst_ConvertFiles::cleanup()
{
    QVERIFY(QFileInfo::exists(path(QStringLiteral("guard"))));
    QVERIFY(m_folder->remove());
}

void tst_ConvertFiles::makeFolders_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("made");
    QTest::newRow("plain") << "new"
                           << "new";
    QTest::newRow("a slash at the end") << "new/"
                                        << "new";
    QTest::newRow("slashes at the end") << "new///"
                                        << "new";
    QTest::newRow("blanks and dots") << " a.b c"
                                     << " a.b c";
    QTest::newRow("not ASCII") << QStringLiteral("日本é😀") << QStringLiteral("日本é😀");
    QTest::newRow("hidden") << ".hidden"
                            << ".hidden";
}

void tst_ConvertFiles::makeFolders()
{
    QFETCH(QString, name);
    QFETCH(QString, made);
    QCOMPARE(makeFolder(path(name)), 0);
    QVERIFY(isFolder(made));
    QCOMPARE(makeFolder(path(name)), -1); // it is there
    QVERIFY(isFolder(made));
}

void tst_ConvertFiles::forbiddenNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"a\\b", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "*", "\\", "a*/"})
        QTest::newRow(name) << name;
}

void tst_ConvertFiles::forbiddenNames()
{
    QFETCH(QString, name);
    QCOMPARE(makeFolder(path(name)), -1);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList(QStringLiteral("guard")));
    const CurrentFolder current(m_folder->path());
    QCOMPARE(makeFolder(name), -1);
}

void tst_ConvertFiles::folderNamesThatFail_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the parent is missing") << "missing/new";
    QTest::newRow("the parent is a file") << "guard/new";
    QTest::newRow("a file of that name") << "guard";
}

void tst_ConvertFiles::folderNamesThatFail()
{
    QFETCH(QString, name);
    QCOMPARE(makeFolder(path(name)), -1);
    QVERIFY(!QFileInfo::exists(path("missing")));
}

void tst_ConvertFiles::makeWithoutAName()
{
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L"", L"/", L"///"})
        QCOMPARE(_wmkdir(name), -1);
}

void tst_ConvertFiles::makeInTheCurrentFolder()
{
    const CurrentFolder current(m_folder->path());
    QCOMPARE(makeFolder(QStringLiteral("new")), 0);
    QVERIFY(isFolder("new"));
    QCOMPARE(makeFolder(QStringLiteral("new/inner/")), 0);
    QVERIFY(isFolder("new/inner"));
    QCOMPARE(makeFolder(QStringLiteral("./dotted")), 0);
    QVERIFY(isFolder("dotted"));
    QCOMPARE(makeFolder(QStringLiteral("a/b/c")), -1);
    QVERIFY(!isFolder("a"));
    // Only the last name is looked at.
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("odd*parent")));
    QCOMPARE(makeFolder(QStringLiteral("odd*parent/new")), 0);
    QVERIFY(isFolder("odd*parent/new"));
}

void tst_ConvertFiles::removeFolders_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "old";
    QTest::newRow("a slash at the end") << "old/";
    QTest::newRow("by way of itself") << "old/../old";
}

void tst_ConvertFiles::removeFolders()
{
    QFETCH(QString, name);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("old")));
    QCOMPARE(removeFolder(path(name)), 0);
    QVERIFY(!isFolder("old"));
    QVERIFY(isFolder(""));
    QCOMPARE(removeFolder(path(name)), -1); // it is gone
}

void tst_ConvertFiles::removeEmptyParents()
{
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("a/b/c")));
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("kept/b/c")));
    touch(QStringLiteral("kept/file"));
    QCOMPARE(removeFolder(path("a/b/c")), 0);
    QVERIFY(!isFolder("a"));
    QCOMPARE(removeFolder(path("kept/b/c")), 0);
    QVERIFY(!isFolder("kept/b"));
    QVERIFY(QFileInfo::exists(path("kept/file")));
}

void tst_ConvertFiles::foldersThatStay_data()
{
    QTest::addColumn<QString>("entry");
    QTest::newRow("a file in it") << "file";
    QTest::newRow("a hidden file in it") << ".hidden";
    QTest::newRow("a folder in it") << "folder/";
    QTest::newRow("a hidden folder in it") << ".hidden/";
}

void tst_ConvertFiles::foldersThatStay()
{
    QFETCH(QString, entry);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("old")));
    if (entry.endsWith(QLatin1Char('/')))
        QVERIFY(QDir(path("old")).mkdir(entry));
    else
        touch(QStringLiteral("old/") + entry);
    QCOMPARE(removeFolder(path("old")), -1);
    QVERIFY(QFileInfo::exists(path("old/" + entry)));
}

void tst_ConvertFiles::theCurrentFolderStays()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("current")));
    const CurrentFolder current(path("current"));
    QCOMPARE(removeFolder(QStringLiteral(".")), -1);
    QCOMPARE(removeFolder(path("current")), -1);
    QCOMPARE(removeFolder(QStringLiteral("../current")), -1);
    QVERIFY(QFile::link(path("current"), path("link")));
    QCOMPARE(removeFolder(path("link")), -1);
    QVERIFY(isFolder("current"));
    QCOMPARE(removeFolder(QString()), -1);
    QCOMPARE(_wrmdir(nullptr), -1);
    QVERIFY(isFolder("current"));
}

void tst_ConvertFiles::theRootStays()
{
    QCOMPARE(removeFolder(QStringLiteral("/")), -1);
    QCOMPARE(removeFolder(QStringLiteral("//")), -1);
}

// The name is made canonical, so that the folder goes and the link to it stays.
void tst_ConvertFiles::removeThroughALink()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("old")));
    QVERIFY(QFile::link(path("old"), path("link")));
    QCOMPARE(removeFolder(path("link")), 0);
    QVERIFY(!isFolder("old"));
    QVERIFY(QFileInfo(path("link")).isSymLink());
    QCOMPARE(removeFolder(path("link")), -1);
}

void tst_ConvertFiles::removeInTheCurrentFolder()
{
    const CurrentFolder current(m_folder->path());
    QVERIFY(QDir().mkpath(QStringLiteral("a/b")));
    QCOMPARE(removeFolder(QStringLiteral("a/b")), 0);
    QVERIFY(!isFolder("a"));
    QCOMPARE(removeFolder(QStringLiteral("guard")), -1); // a file
    QCOMPARE(removeFolder(QStringLiteral("missing")), -1);
}

void tst_ConvertFiles::modes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("bits");
    QTest::newRow("128 to write") << 128 << 0200;
    QTest::newRow("256 to read") << 256 << 0400;
    QTest::newRow("64 to execute") << 64 << 0100;
}

void tst_ConvertFiles::modes()
{
    QFETCH(int, mode);
    touch(QStringLiteral("日.txt"));
    QVERIFY(::chmod(QFile::encodeName(path("日.txt")).constData(), 0777) == 0);
    QCOMPARE(_wchmod(CString_X(path("日.txt")), mode), 0);
    QTEST(modeOf(path("日.txt")), "bits");
}

void tst_ConvertFiles::otherModes_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, -1, 1, 32, 384, 192, 448, 0x7FFFFFFF})
        QTest::addRow("%d", mode) << mode;
}

void tst_ConvertFiles::otherModes()
{
    QFETCH(int, mode);
    touch(QStringLiteral("file"));
    QVERIFY(::chmod(QFile::encodeName(path("file")).constData(), 0640) == 0);
    QCOMPARE(_wchmod(CString_X(path("file")), mode), -1);
    QCOMPARE(modeOf(path("file")), 0640);
}

void tst_ConvertFiles::modeOfNothing()
{
    for (const int mode : {64, 128, 256}) {
        QCOMPARE(_wchmod(CString_X(path("missing")), mode), -1);
        for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L""}) {
            expectQtToComplain();
            QCOMPARE(_wchmod(name, mode), -1);
        }
    }
}

void tst_ConvertFiles::removeFiles()
{
    touch(QStringLiteral("日.txt"));
    QCOMPARE(_wunlink(CString_X(path("日.txt"))), 1);
    QVERIFY(!QFileInfo::exists(path("日.txt")));
    QCOMPARE(_wunlink(CString_X(path("日.txt"))), 0);
    QCOMPARE(_wunlink(CString_X(m_folder->path())), 0);
    QVERIFY(isFolder(""));
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L""}) {
        expectQtToComplain();
        QCOMPARE(_wunlink(name), 0);
    }
}

XE_GUILESS_TEST(tst_ConvertFiles)
#include "tst_convertfiles.moc"
