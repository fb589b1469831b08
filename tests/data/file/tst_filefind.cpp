#include "leavenothing.h"
#include "testclass.h"

#include <xeafxfile.h>

class tst_FileFind : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }
    void cleanupTestCase() { QDir::setCurrent(m_oldCurrent); }

    void patterns_data();
    void patterns();
    void theResultSaysThatMoreFollow();
    void nothingFound();
    void beforeTheFirstAndBehindTheLast();
    void namesOfAnEntry();
    void aFolderIsLookedUpInTheCurrentOne();
    void dots();
    void closeForgets();
    void aNewSearchStartsAnew();

private:
    CString_X pattern(const char* text) const { return m_folder.filePath(QString::fromUtf8(text)); }

    QTemporaryDir m_folder; // holds files, "inner" with files, and is not the current one
    QTemporaryDir m_current;
    QString m_oldCurrent = QDir::currentPath();
};

static void makeFiles(const QString& folder, std::initializer_list<const char*> names)
{
    QVERIFY(QDir().mkpath(folder));
    for (const char* name : names) {
        QFile file(folder + QLatin1Char('/') + QString::fromUtf8(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

void tst_FileFind::initTestCase()
{
    makeFiles(m_folder.path(), {"one.txt", "two.TXT", "three.tar.gz", "plain", ".hidden.txt"});
    makeFiles(m_folder.filePath("inner"), {"deep.txt"});
    makeFiles(m_folder.filePath("dotted.dir"), {});
    makeFiles(m_current.path(), {"here.txt", "there"});
    makeFiles(m_current.filePath("inner"), {});
    QVERIFY(QDir::setCurrent(m_current.path()));
}

// All names in sorted order, as the order is the file system's own.
static QString found(CFileFind_X& find, const wchar_t* pattern)
{
    if (!find.FindFile(pattern))
        return QStringLiteral("no such folder");
    QStringList names;
    int more = 1;
    while (more && names.size() < 100) {
        more = find.FindNextFile();
        names += XeQString(find.GetFileName());
    }
    names.sort();
    return names.join(QLatin1Char(' '));
}

void tst_FileFind::patterns_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("names");

    const auto row = [](const char* name, const CString_X& text, const char* names) {
        QTest::newRow(name) << QString(XeQString(text)) << QString::fromUtf8(names);
    };
    const CString_X backslashed = CString_X(m_folder.path()).ToWinSeperator() + std::wstring(L"\\*.txt");
    row("a pattern, whatever the case", pattern("*.txt"), "one.txt two.TXT");
    row("backslashes", backslashed, "one.txt two.TXT");
    row("folders match a pattern too", pattern("*.d*"), "dotted.dir");
    row("a name", pattern("plain"), "plain");
    row("one element", pattern("???.txt"), "one.txt two.TXT");
    row("*.*: all folders, and the files with a dot", pattern("*.*"),
        ". .. dotted.dir inner one.txt three.tar.gz two.TXT");
    row("*: everything that is not hidden", pattern("*"), ". .. dotted.dir inner one.txt plain three.tar.gz two.TXT");
    row("a folder below", pattern("inner/*.txt"), "deep.txt");
    row("no slash: the current folder", L"*.txt", "here.txt");
    row("a slash at the very start: the current folder", L"/*.txt", "here.txt");
    row("a relative folder", L"./*.txt", "here.txt");
    row("a folder without a name behind it", pattern("inner/"), "");
    row("a missing folder", pattern("missing/*.*"), "no such folder");
    row("a file for a folder", pattern("plain/*.*"), "no such folder");
    row("an empty pattern", L"", "");
}

void tst_FileFind::patterns()
{
    QFETCH(QString, text);
    CFileFind_X find;
    QTEST(found(find, CString_X(text)), "names");
}

void tst_FileFind::theResultSaysThatMoreFollow()
{
    CFileFind_X find;
    QCOMPARE(find.FindFile(pattern("*.txt"), 17), 1);
    QCOMPARE(find.FindNextFile(), 1);
    QCOMPARE(find.FindNextFile(), 0);
    QCOMPARE(find.FindNextFile(), 0);

    QCOMPARE(found(find, nullptr), QStringLiteral(". .. here.txt inner"));
}

void tst_FileFind::nothingFound()
{
    CFileFind_X find;
    QCOMPARE(find.FindFile(pattern("*.none")), 1);
    QCOMPARE(find.FindNextFile(), 0);
    QCOMPARE(find.GetFileName(), CString_X());
    QCOMPARE(find.FindFile(pattern("missing/*")), 0);
    QCOMPARE(find.FindNextFile(), 0);
}

void tst_FileFind::beforeTheFirstAndBehindTheLast()
{
    CFileFind_X find;
    const auto isNowhere = [&find] {
        return find.GetFileName().IsEmpty() && find.GetFilePath().IsEmpty() && find.GetFileTitle().IsEmpty()
               && !find.IsDirectory() && !find.IsDots();
    };
    QVERIFY(isNowhere());
    QCOMPARE(find.FindNextFile(), 0);
    QVERIFY(isNowhere());
    QCOMPARE(find.FindFile(pattern("one.txt")), 1);
    QVERIFY(isNowhere());
    QCOMPARE(find.FindNextFile(), 0);
    QCOMPARE(find.GetFileName(), CString_X(L"one.txt"));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(find.FindNextFile(), 0);
        QVERIFY(isNowhere());
    }
}

void tst_FileFind::namesOfAnEntry()
{
    CFileFind_X find;
    QCOMPARE(find.FindFile(pattern("three*")), 1);
    QCOMPARE(find.FindNextFile(), 0);
    QCOMPARE(find.GetFileName(), CString_X(L"three.tar.gz"));
    QCOMPARE(find.GetFilePath(), CString_X(L"three.tar.gz"));
    QCOMPARE(find.GetFileTitle(), CString_X(L"three"));
}

void tst_FileFind::aFolderIsLookedUpInTheCurrentOne()
{
    CFileFind_X find;
    QCOMPARE(find.FindFile(pattern("inner")), 1);
    find.FindNextFile();
    QCOMPARE(find.IsDirectory(), 1); // there is one of that name in the current folder as well
    QCOMPARE(find.FindFile(pattern("dotted.dir")), 1);
    find.FindNextFile();
    QCOMPARE(find.GetFileName(), CString_X(L"dotted.dir"));
    QCOMPARE(find.IsDirectory(), 0);
}

void tst_FileFind::dots()
{
    CFileFind_X find;
    QStringList dots;
    int more = find.FindFile(pattern("*.*"));
    while (more) {
        more = find.FindNextFile();
        if (find.IsDots())
            dots += XeQString(find.GetFileName());
    }
    dots.sort();
    QCOMPARE(dots, QStringList({".", ".."}));
}

void tst_FileFind::closeForgets()
{
    CFileFind_X find;
    QCOMPARE(find.FindFile(pattern("*.txt")), 1);
    find.FindNextFile();
    find.Close();
    QCOMPARE(find.GetFileName(), CString_X());
    QCOMPARE(find.FindNextFile(), 0);
}

void tst_FileFind::aNewSearchStartsAnew()
{
    CFileFind_X find;
    QCOMPARE(found(find, pattern("*.txt")), QStringLiteral("one.txt two.TXT"));
    QCOMPARE(found(find, pattern("plain")), QStringLiteral("plain"));
    QCOMPARE(find.FindFile(pattern("missing/*")), 0);
    QCOMPARE(find.GetFileName(), CString_X());
}

XE_TEST(tst_FileFind)
#include "tst_filefind.moc"
