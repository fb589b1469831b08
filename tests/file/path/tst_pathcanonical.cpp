// Paths without "." and ".." components.

#include "pathrows.h"
#include "testclass.h"

#include <cerrno>

using namespace std::string_literals;

class tst_PathCanonical : public QObject
{
    Q_OBJECT

private slots:
    void canonical_data();
    void canonical();
    void nullIsAnInvalidParameter();
    void stayingInTheBufferIsAllowed();
    void lastErrorIsLeftAlone();
};

void tst_PathCanonical::canonical_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const wchar_t* path, const wchar_t* expected) {
        QTest::newRow(name) << std::wstring(path) << std::wstring(expected);
    };

    add("an empty text is the root", L"", L"\\");
    add("nothing to do", L"c:\\a\\b.c", L"c:\\a\\b.c");
    add("a dot goes", L"c:\\a\\.\\b", L"c:\\a\\b");
    add("dots in a row go", L"c:\\a\\.\\.\\.\\b", L"c:\\a\\b");
    add("a dot at the start goes", L".\\a", L"a");
    add("a dot behind the root goes", L"\\.\\a", L"\\a");
    add("a dot behind a drive goes", L"c:.\\a", L"c:a");
    add("a dot behind any colon goes", L"ab:.\\.\\c", L"ab:c");
    add("two dots take a component away", L"c:\\a\\b\\..\\c", L"c:\\a\\c");
    add("two dots in a row", L"c:\\a\\b\\..\\..\\c", L"c:\\c");
    add("dots of both kinds", L"A:\\n1\\.\\n2\\..\\n3", L"A:\\n1\\n3");
    add("two dots take an empty component away", L"c:\\a\\\\..\\b", L"c:\\a\\b");

    add("two dots stop at a drive's root", L"c:\\..\\..\\a", L"c:\\a");
    add("two dots stop at the root", L"\\a\\..\\..\\b", L"\\b");
    add("two dots stop at a drive", L"c:a\\..\\b", L"c:b");
    add("two dots at the start are text", L"..\\a", L"..\\a");
    add("two dots behind a drive are text", L"c:..\\a", L"c:..\\a");
    add("two dots are text where nothing is left", L"a\\..\\..\\b", L"..\\b");
    add("two dots take two dots away", L"..\\..\\a", L"a");
    add("a relative path stays one", L"a\\..\\b", L"b");

    add("a share is kept", L"\\\\srv\\share\\..\\..\\a", L"\\\\srv\\share\\a");
    add("a folder in a share goes", L"\\\\srv\\share\\a\\..\\b", L"\\\\srv\\share\\b");
    add("two dots at the end of a share", L"\\\\srv\\share\\..", L"\\\\srv\\share");
    add("a server without a share goes", L"\\\\srv\\..\\a", L"\\\\a");
    add("slashes make no share", L"//srv\\share\\..\\a", L"//srv\\a");

    add("two dots at the end", L"c:\\a\\b\\..", L"c:\\a");
    add("two dots and a separator at the end", L"c:\\a\\b\\..\\", L"c:\\a\\");
    add("two dots at the end, up to the root", L"c:\\a\\..", L"c:\\");
    add("two dots at the end, up to a drive", L"c:a\\..", L"c:\\");
    add("two dots at the end, beyond the root", L"\\..", L"\\");
    add("two dots alone are text", L"..", L"..");
    add("a dot at the end", L"c:\\a\\.", L"c:\\a");
    add("a dot and a separator at the end", L"c:\\a\\.\\", L"c:\\a\\");
    add("a dot at the end of the root", L"c:\\.", L"c:\\");
    add("a dot behind a drive alone", L"c:.", L"c:\\");
    add("a dot alone is the root", L".", L"\\");
    add("where nothing is left is the root", L"a\\..", L"\\");
    add("a separator at the end stays", L"c:\\a\\", L"c:\\a\\");
    add("separators at the end stay", L"a\\\\", L"a\\\\");

    add("a drive becomes its root", L"c:", L"c:\\");
    add("any element may be a drive", L"?:", L"?:\\");
    add("three elements are no drive", L"cc:", L"cc:");

    add("dots in names stay", L"a.b\\.c\\d.\\..e\\f..\\...", L"a.b\\.c\\d.\\..e\\f..\\...");
    add("three dots are a name", L"a\\...\\..\\b", L"a\\b");
    add("slashes separate nothing", L"/a/./b/../c", L"/a/./b/../c");
    add("two dots behind a slash are text", L"c:\\x/..\\y", L"c:\\x/..\\y");
    add("two dots before a slash are text", L"c:\\x\\../y", L"c:\\x\\../y");
    add("a dot behind a slash is text", L"x/.\\y", L"x/.\\y");
    add("a component with slashes goes whole", L"c:\\a/b\\..\\c", L"c:\\c");
    add("elements that are wide, lone or no code point", L"\x1F600\\\xD800\\..\\\x7FFFFFFF", L"\x1F600\\\x7FFFFFFF");
}

void tst_PathCanonical::canonical()
{
    QFETCH(std::wstring, path);
    QFETCH(std::wstring, expected);
    PathBuffer out(L"###");
    QCOMPARE(PathCanonicalize_X(out.data(), exactBlock(path + L'\0').get()), 1);
    QCOMPARE(out.text(), expected);

    PathBuffer again(L"###");
    QCOMPARE(PathCanonicalize_X(again.data(), out.data()), 1);
    QCOMPARE(again.text(), expected);
}

void tst_PathCanonical::nullIsAnInvalidParameter()
{
    PathBuffer out(L"abc");
    errno = 0;
    QCOMPARE(PathCanonicalize_X(nullptr, L"a"), 0);
    QCOMPARE(errno, 87);
    errno = 0;
    QCOMPARE(PathCanonicalize_X(out.data(), nullptr), 0);
    QCOMPARE(errno, 87);
    QCOMPARE(out.shown(), L"abc|"s);
}

void tst_PathCanonical::stayingInTheBufferIsAllowed()
{
    PathBuffer path(L"c:\\a\\..\\b");
    QCOMPARE(PathCanonicalize_X(path.data(), path.data()), 1);
    QCOMPARE(path.text(), L"c:\\b"s);
    QCOMPARE(PathCanonicalize_X(path.data(), path.data() + 3), 1);
    QCOMPARE(path.text(), L"b"s);
    PathBuffer drive(L"xxc:");
    QCOMPARE(PathCanonicalize_X(drive.data(), drive.data() + 2), 1);
    QCOMPARE(drive.text(), L"c:\\"s);
}

void tst_PathCanonical::lastErrorIsLeftAlone()
{
    PathBuffer out(L"");
    errno = 12345;
    QCOMPARE(PathCanonicalize_X(out.data(), L"a"), 1);
    QCOMPARE(errno, 12345);
}

XE_GUILESS_TEST(tst_PathCanonical)
#include "tst_pathcanonical.moc"
