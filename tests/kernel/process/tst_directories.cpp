#include "process/widestring.h"
#include "testclass.h"

#include <xeprocess.h>

#include <unistd.h>

// Folders and names in the caller's buffers.

namespace {

constexpr wchar_t untouched = L'\x2603';

QString text(const std::wstring& elements) { return QString::fromStdWString(elements); }

} // namespace

class tst_Directories : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(QDir::setCurrent(m_folder.path())); }
    void cleanup();
    void currentDirectory();
    void currentDirectoryInWideElements();
    void currentDirectoryCut_data();
    void currentDirectoryCut();
    void currentDirectoryRefused_data();
    void currentDirectoryRefused();
    void aLostCurrentDirectoryIsEmpty();
    void setCurrentDirectory();
    void setCurrentDirectoryRefused_data();
    void setCurrentDirectoryRefused();
    void systemDirectoryIsTheCurrentOne();
    void systemDirectoryHasNoTerminator_data();
    void systemDirectoryHasNoTerminator();
    void systemDirectoryRefused_data();
    void systemDirectoryRefused();
    void windowsDirectory_data();
    void windowsDirectory();
    void dllDirectoryIsAddedToTheLibraryPaths();
    void dllDirectories_data();
    void dllDirectories();
    void noBufferForDllDirectories();
    void computerName();
    void userName_data();
    void userName();
    void userNameIsUtf8_data();
    void userNameIsUtf8();
    void noSizeForAName();
    void noBufferForAName();

private:
    const QTemporaryDir m_folder;
    const QStringList m_libraryPaths = QCoreApplication::libraryPaths();
};

void tst_Directories::cleanup()
{
    QDir::setCurrent(QDir::rootPath());
    QCoreApplication::setLibraryPaths(m_libraryPaths);
}

// ---------------------------------------------------------------------------------------------------- current folder

void tst_Directories::currentDirectory()
{
    std::wstring buffer(2047, untouched);
    QCOMPARE(GetCurrentDirectory_X(2047, buffer.data()), DWORD(m_folder.path().size()));
    QCOMPARE(text(buffer.c_str()), m_folder.path());
    QCOMPARE(buffer.back(), L'\0');
}

void tst_Directories::currentDirectoryInWideElements()
{
    const QString name = QString::fromUtf8("Stücke-\xF0\x9F\x94\xA9");
    QVERIFY(QDir().mkdir(name));
    QVERIFY(QDir::setCurrent(name));

    wchar_t buffer[512];
    QCOMPARE(GetCurrentDirectory_X(512, buffer), DWORD(m_folder.path().size() + 1 + 8));
    QCOMPARE(std::wstring(std::wcsrchr(buffer, L'/')), std::wstring(L"/St\u00FCcke-\U0001F529"));
}

void tst_Directories::currentDirectoryCut_data()
{
    QTest::addColumn<int>("capacity");
    QTest::addColumn<QString>("result");
    QTest::newRow("room for the text and its terminator") << 5 << "/usr";
    QTest::newRow("room for the text alone") << 4 << "/us";
    QTest::newRow("room for one") << 2 << "/";
    QTest::newRow("room for the terminator alone") << 1 << "";
}

void tst_Directories::currentDirectoryCut()
{
    QFETCH(int, capacity);
    QFETCH(QString, result);

    QVERIFY(QDir::setCurrent(QStringLiteral("/usr")));
    std::wstring buffer(8, untouched);
    QCOMPARE(GetCurrentDirectory_X(DWORD(capacity), buffer.data()), DWORD(result.size()));
    QCOMPARE(text(buffer.c_str()), result);
    QCOMPARE(buffer[size_t(capacity)], untouched);
}

void tst_Directories::currentDirectoryRefused_data()
{
    QTest::addColumn<uint>("capacity");
    QTest::newRow("no capacity") << 0U;
    QTest::newRow("the first capacity that is too large") << 2048U;
    QTest::newRow("far too large") << 3000U;
    QTest::newRow("a negative number") << ~0U;
}

void tst_Directories::currentDirectoryRefused()
{
    QFETCH(uint, capacity);
    std::wstring buffer(3000, untouched);
    QCOMPARE(GetCurrentDirectory_X(capacity, buffer.data()), 0U);
    QCOMPARE(buffer, std::wstring(3000, untouched));
    QCOMPARE(GetCurrentDirectory_X(100, nullptr), 0U);
}

void tst_Directories::aLostCurrentDirectoryIsEmpty()
{
    QVERIFY(QDir().mkdir(QStringLiteral("lost")));
    QVERIFY(QDir::setCurrent(QStringLiteral("lost")));
    QVERIFY(QDir().rmdir(m_folder.filePath(QStringLiteral("lost"))));

    std::wstring buffer(8, untouched);
    QCOMPARE(GetCurrentDirectory_X(8, buffer.data()), 0U);
    QCOMPARE(buffer, std::wstring(8, L'\0'));
}

void tst_Directories::setCurrentDirectory()
{
    const QString name = QString::fromUtf8("größer");
    QVERIFY(QDir().mkdir(name));
    QCOMPARE(SetCurrentDirectory_X(L"gr\u00F6\u00DFer"), 1);
    QCOMPARE(QDir::currentPath(), m_folder.filePath(name));
    QCOMPARE(SetCurrentDirectory_X(L"/"), 1);
    QCOMPARE(QDir::currentPath(), QStringLiteral("/"));
}

void tst_Directories::setCurrentDirectoryRefused_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::newRow("empty") << std::wstring();
    QTest::newRow("missing") << std::wstring(L"missing");
    QTest::newRow("a file") << std::wstring(L"/etc/passwd");
    QTest::newRow("an element that is no code point") << std::wstring(1, wchar_t(0x7FFFFFFF));
}

void tst_Directories::setCurrentDirectoryRefused()
{
    QFETCH(std::wstring, path);
    QCOMPARE(SetCurrentDirectory_X(path.c_str()), 0);
    QCOMPARE(SetCurrentDirectory_X(nullptr), 0);
    QCOMPARE(QDir::currentPath(), m_folder.path());
}

// ------------------------------------------------------------------------------------------ system and Windows folder

void tst_Directories::systemDirectoryIsTheCurrentOne()
{
    std::wstring buffer(2047, L'\0');
    QCOMPARE(GetSystemDirectory_X(buffer.data(), 2047), UINT(m_folder.path().size()));
    QCOMPARE(text(buffer.c_str()), m_folder.path());
}

void tst_Directories::systemDirectoryHasNoTerminator_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<uint>("capacity");
    QTest::addColumn<QString>("after");
    QTest::addColumn<uint>("result");
    QTest::newRow("the text before shines through") << "abcdefg" << 8U << "/usrefg" << 7U;
    QTest::newRow("the count stops at the capacity") << "abcdefg" << 6U << "/usrefg" << 6U;
    QTest::newRow("a shorter text before") << "ab" << 8U << "/usr" << 4U;
    QTest::newRow("exactly the capacity") << "" << 4U << "/usr" << 4U;
    QTest::newRow("cut to the capacity") << "" << 3U << "/us" << 3U;
    QTest::newRow("no capacity") << "abc" << 0U << "abc" << 0U;
}

void tst_Directories::systemDirectoryHasNoTerminator()
{
    QFETCH(QString, before);
    QFETCH(uint, capacity);
    QFETCH(QString, after);
    QFETCH(uint, result);

    QVERIFY(QDir::setCurrent(QStringLiteral("/usr")));
    std::wstring buffer = before.toStdWString();
    buffer.resize(16);
    QCOMPARE(GetSystemDirectory_X(buffer.data(), capacity), result);
    QCOMPARE(text(buffer.c_str()), after);
}

void tst_Directories::systemDirectoryRefused_data()
{
    QTest::addColumn<uint>("capacity");
    QTest::newRow("the first capacity that is too large") << 2048U;
    QTest::newRow("a negative number") << ~0U;
}

void tst_Directories::systemDirectoryRefused()
{
    QFETCH(uint, capacity);
    std::wstring buffer(2048, untouched);
    QCOMPARE(GetSystemDirectory_X(buffer.data(), capacity), 0U);
    QCOMPARE(buffer, std::wstring(2048, untouched));
    QCOMPARE(GetSystemDirectory_X(nullptr, 100), 0U);
}

void tst_Directories::windowsDirectory_data()
{
    QTest::addColumn<uint>("capacity");
    QTest::addColumn<QString>("after");
    QTest::addColumn<uint>("result");
    QTest::newRow("the whole buffer is cleared") << 4U << QString(QLatin1String("/\0\0\0", 4)) << 1U;
    QTest::newRow("only the capacity is cleared") << 2U << QString(QLatin1String("/\0xx", 4)) << 1U;
    QTest::newRow("no room for a terminator") << 1U << "/xxx" << 1U;
    QTest::newRow("no room") << 0U << "xxxx" << 0U;
}

void tst_Directories::windowsDirectory()
{
    QFETCH(uint, capacity);
    QFETCH(QString, after);
    QFETCH(uint, result);

    std::wstring buffer(4, L'x');
    QCOMPARE(GetWindowsDirectory_X(buffer.data(), capacity), result);
    QCOMPARE(text(buffer), after);
    QCOMPARE(GetWindowsDirectory_X(nullptr, 4), 0U);
}

// ------------------------------------------------------------------------------------------------- library folders

void tst_Directories::dllDirectoryIsAddedToTheLibraryPaths()
{
    QCOMPARE(SetDllDirectory_X(nullptr), 0);
    QCOMPARE(QCoreApplication::libraryPaths(), m_libraryPaths);

    QCOMPARE(SetDllDirectory_X(m_folder.path().toStdWString().c_str()), 1);
    QCOMPARE(QCoreApplication::libraryPaths(), QStringList(m_folder.path()) + m_libraryPaths);

    QCOMPARE(SetDllDirectory_X(L"/no/such/folder"), 1);
    QCOMPARE(SetDllDirectory_X(L""), 1);
    QCOMPARE(QCoreApplication::libraryPaths(), QStringList(m_folder.path()) + m_libraryPaths);
}

void tst_Directories::dllDirectories_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<uint>("capacity");
    QTest::addColumn<QString>("after"); // in a buffer of 20 "x"; "0" for a zero
    QTest::addColumn<uint>("result");

    const QStringList none;
    const QStringList two{QStringLiteral("/ab"), QStringLiteral("/c")};
    QTest::newRow("terminated in the cleared quarter") << two << 20U << "/ab0/cxxxxxxxxxxxxxx" << 7U;
    QTest::newRow("the quarter ends behind a terminator") << two << 16U << "/ab0/cxxxxxxxxxxxxxx" << 7U;
    QTest::newRow("the quarter ends before a terminator") << two << 12U << "/abx/cxxxxxxxxxxxxxx" << 7U;
    QTest::newRow("exactly the capacity") << two << 7U << "/abx/cxxxxxxxxxxxxxx" << 7U;
    QTest::newRow("no free element behind the last") << two << 6U << "/abx/cxxxxxxxxxxxxxx" << 4U;
    QTest::newRow("the last is cut") << two << 5U << "/abx/xxxxxxxxxxxxxxx" << 3U;
    QTest::newRow("the last has no room") << two << 4U << "/abxxxxxxxxxxxxxxxxx" << 2U;
    QTest::newRow("the first has no free element") << two << 3U << "/abxxxxxxxxxxxxxxxxx" << 1U;
    QTest::newRow("room for two") << two << 2U << "/axxxxxxxxxxxxxxxxxx" << 0U;
    QTest::newRow("room for one") << two << 1U << "/xxxxxxxxxxxxxxxxxxx" << 0U;
    QTest::newRow("no room") << two << 0U << "xxxxxxxxxxxxxxxxxxxx" << 0U;
    QTest::newRow("no folders") << none << 20U << "00000xxxxxxxxxxxxxxx" << 0U;
    QTest::newRow("an element a code point") << QStringList(QString::fromUtf8("/\xF0\x9F\x94\xA9")) << 20U
                                             << QString::fromUtf8("/\xF0\x9F\x94\xA9"
                                                                  "000xxxxxxxxxxxxxxx")
                                             << 3U;
}

void tst_Directories::dllDirectories()
{
    QFETCH(QStringList, paths);
    QFETCH(uint, capacity);
    QFETCH(QString, after);
    QFETCH(uint, result);

    QCoreApplication::setLibraryPaths(paths);
    std::wstring buffer(20, L'x');
    QCOMPARE(GetDllDirectory_X(capacity, buffer.data()), result);
    std::replace(buffer.begin(), buffer.end(), L'\0', L'0');
    QCOMPARE(text(buffer), after);
}

void tst_Directories::noBufferForDllDirectories() { QCOMPARE(GetDllDirectory_X(20, nullptr), 0U); }

// ----------------------------------------------------------------------------------------------------------- names

void tst_Directories::computerName()
{
    char host[256] = {};
    QCOMPARE(gethostname(host, sizeof host - 1), 0);

    wchar_t buffer[256] = {};
    DWORD size = 0;
    QVERIFY(GetComputerName_X(buffer, &size));
    QCOMPARE(text(buffer), QString::fromUtf8(host));
    QCOMPARE(size, DWORD(std::wcslen(buffer)));
}

void tst_Directories::userName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("before"); // "0" for a zero
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("result");

    QTest::newRow("into a cleared buffer") << QByteArray("bob") << "00000000"
                                           << "bob00000" << true;
    QTest::newRow("a longer text before is cleared") << QByteArray("bob") << "abcdefg0"
                                                     << "bob00000" << true;
    QTest::newRow("no terminator behind a shorter text before") << QByteArray("bobby") << "ab0xxxx0"
                                                                << "bobbyxx0" << true;
    QTest::newRow("an empty name clears the text before") << QByteArray("") << "abc0xxx0"
                                                          << "0000xxx0" << false;
    QTest::newRow("no name clears the text before") << QByteArray() << "abc0xxx0"
                                                    << "0000xxx0" << false;
}

void tst_Directories::userName()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(bool, result);

    name.isNull() ? qunsetenv("USER") : qputenv("USER", name);
    std::wstring buffer = before.replace(QLatin1Char('0'), QChar()).toStdWString();
    DWORD size = 77; // what comes in plays no part
    QCOMPARE(GetUserName_X(buffer.data(), &size) != 0, result);
    QCOMPARE(text(buffer), after.replace(QLatin1Char('0'), QChar()));
    QCOMPARE(size, DWORD(name.size()));
}

void tst_Directories::userNameIsUtf8_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVector<uint>>("elements");
    QTest::newRow("two bytes") << QByteArray("J\xC3\xB6rg") << QVector<uint>{'J', 0xF6, 'r', 'g'};
    QTest::newRow("four bytes") << QByteArray("\xF0\x9F\x94\xA9") << QVector<uint>{0x1F529};
    QTest::newRow("an invalid byte") << QByteArray("a\xFF"
                                                   "b")
                                     << QVector<uint>{'a', 0xFFFD, 'b'};
}

void tst_Directories::userNameIsUtf8()
{
    QFETCH(QByteArray, name);
    QFETCH(QVector<uint>, elements);

    qputenv("USER", name);
    wchar_t buffer[16] = {};
    DWORD size = 0;
    QVERIFY(GetUserName_X(buffer, &size));
    QCOMPARE(QVector<uint>(buffer, buffer + size), elements);
    QCOMPARE(buffer[size], L'\0');
}

void tst_Directories::noSizeForAName()
{
    qputenv("USER", "bob");
    wchar_t buffer[256] = {};
    QVERIFY(GetUserName_X(buffer, nullptr));
    QCOMPARE(text(buffer), QStringLiteral("bob"));
    QVERIFY(GetComputerName_X(buffer, nullptr));
}

void tst_Directories::noBufferForAName()
{
    qputenv("USER", "bob");
    DWORD size = 77;
    QCOMPARE(GetUserName_X(nullptr, &size), 0);
    QCOMPARE(size, 0U);
    size = 77;
    QCOMPARE(GetComputerName_X(nullptr, &size), 0);
    QCOMPARE(size, 0U);
    QCOMPARE(GetUserName_X(nullptr, nullptr), 0);
}

XE_GUILESS_TEST(tst_Directories)
#include "tst_directories.moc"
