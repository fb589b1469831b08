// What two paths have in common.

#include "pathrows.h"
#include "testclass.h"

using namespace std::string_literals;

class tst_PathCompare : public QObject
{
    Q_OBJECT

private slots:
    void commonPrefix_data();
    void commonPrefix();
    void foldsByTheLocale();
    void nullsOfCommonPrefix();
    void commonPrefixInPlace();
    void prefix_data();
    void prefix();
    void sameRoot_data();
    void sameRoot();
};

void tst_PathCompare::commonPrefix_data()
{
    QTest::addColumn<std::wstring>("first");
    QTest::addColumn<std::wstring>("second");
    QTest::addColumn<int>("length");
    QTest::addColumn<std::wstring>("written");
    const auto add = [](const char* name, const wchar_t* first, const wchar_t* second, int length,
                        const wchar_t* written) {
        QTest::newRow(name) << std::wstring(first) << std::wstring(second) << length << std::wstring(written);
    };

    add("two components", L"c:\\a\\b\\c", L"c:\\a\\b\\d", 6, L"c:\\a\\b");
    add("a part of a component does not count", L"c:\\a\\bc", L"c:\\a\\bd", 4, L"c:\\a");
    add("one path is the start of the other", L"c:\\a", L"c:\\a\\b", 4, L"c:\\a");
    add("equal paths", L"c:\\a\\b", L"c:\\a\\b", 6, L"c:\\a\\b");
    add("equal paths with a separator at the end", L"c:\\a\\", L"c:\\a\\", 5, L"c:\\a\\");
    add("case does not matter, the first path is written", L"C:\\AB\\x", L"c:\\ab\\y", 5, L"C:\\AB");
    add("a drive has three elements", L"c:\\a", L"c:\\b", 3, L"c:\\");
    add("a drive in front of nothing", L"c:", L"c:\\b", 3, L"c:");
    add("any two elements are a drive", L"ab\\c", L"ab\\d", 3, L"ab\\");
    add("other drives", L"c:\\a", L"d:\\a", 0, L"");
    add("slashes separate nothing", L"/usr/lib", L"/usr/bin", 0, L"");
    add("equal paths of Linux", L"/usr/lib", L"/usr/lib", 8, L"/usr/lib");
    add("the root", L"\\a", L"\\b", 0, L"");
    add("two shares of a server", L"\\\\srv\\a", L"\\\\srv\\b", 5, L"\\\\srv");
    add("two servers", L"\\\\a\\x", L"\\\\b\\x", 1, L"\\");
    add("one UNC path", L"\\\\srv\\a", L"\\srv\\a", 0, L"");
    add("the other UNC path", L"srv", L"\\\\srv", 0, L"");
    add("empty paths", L"", L"", 0, L"");
    add("one empty path", L"a", L"", 0, L"");
    add("elements that are wide, lone or no code point", L"\x1F600\xD800\x7FFFFFFF\\a", L"\x1F600\xD800\x7FFFFFFF\\b",
        3, L"\x1F600\xD800\x7FFFFFFF");
}

void tst_PathCompare::commonPrefix()
{
    QFETCH(std::wstring, first);
    QFETCH(std::wstring, second);
    PathBuffer out(L"###");
    const auto a = exactBlock(first + L'\0');
    const auto b = exactBlock(second + L'\0');
    QTEST(PathCommonPrefix_X(a.get(), b.get(), nullptr), "length");
    QTEST(PathCommonPrefix_X(a.get(), b.get(), out.data()), "length");
    QTEST(out.text(), "written");
    QTEST(PathCommonPrefix_X(b.get(), a.get(), nullptr), "length");
}

void tst_PathCompare::foldsByTheLocale()
{
    QVERIFY(std::setlocale(LC_CTYPE, "C"));
    QCOMPARE(PathCommonPrefix_X(L"\xE9t\xE9\\a", L"\xC9T\xC9\\b", nullptr), 0);
    QVERIFY(setUtf8Locale());
    QCOMPARE(PathCommonPrefix_X(L"\xE9t\xE9\\a", L"\xC9T\xC9\\b", nullptr), 3);
}

void tst_PathCompare::nullsOfCommonPrefix()
{
    using Arguments = std::pair<const wchar_t*, const wchar_t*>;
    for (const auto& [first, second] : {Arguments(L"a", nullptr), Arguments(nullptr, L"a"), Arguments()}) {
        PathBuffer out(L"abc");
        QCOMPARE(PathCommonPrefix_X(first, second, out.data()), 0);
        QCOMPARE(out.text(), L""s);
        QCOMPARE(PathCommonPrefix_X(first, second, nullptr), 0);
    }
}

void tst_PathCompare::commonPrefixInPlace()
{
    PathBuffer path(L"c:\\a\\b");
    QCOMPARE(PathCommonPrefix_X(path.data(), L"c:\\a\\c", path.data()), 4);
    QCOMPARE(path.text(), L"c:\\a"s);
    QCOMPARE(PathCommonPrefix_X(L"C:\\A\\B", path.data(), path.data()), 4);
    QCOMPARE(path.text(), L"C:\\A"s);
}

void tst_PathCompare::prefix_data()
{
    QTest::addColumn<std::wstring>("prefix");
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<BOOL>("expected");
    const auto add = [](const char* name, const wchar_t* prefix, const wchar_t* path, BOOL expected) {
        QTest::newRow(name) << std::wstring(prefix) << std::wstring(path) << expected;
    };

    add("a drive with its separator", L"c:\\", L"c:\\a", 1);
    add("a drive without its separator", L"c:", L"c:\\a", 0);
    add("a component", L"c:\\a", L"C:\\A\\b", 1);
    add("a component with its separator", L"c:\\a\\", L"c:\\a\\b", 0);
    add("a part of a component", L"c:\\a", L"c:\\ab", 0);
    add("the path itself", L"c:\\a", L"c:\\a", 1);
    add("more than the path", L"c:\\a\\b", L"c:\\a", 0);
    add("a Linux folder", L"/usr", L"/usr/lib", 0);
    add("an empty prefix", L"", L"a", 1);
}

void tst_PathCompare::prefix()
{
    QFETCH(std::wstring, prefix);
    QFETCH(std::wstring, path);
    QTEST(PathIsPrefix_X(prefix.c_str(), path.c_str()), "expected");
    QCOMPARE(PathIsPrefix_X(nullptr, path.c_str()), 0);
    QCOMPARE(PathIsPrefix_X(prefix.c_str(), nullptr), 0);
}

void tst_PathCompare::sameRoot_data()
{
    QTest::addColumn<std::wstring>("first");
    QTest::addColumn<std::wstring>("second");
    QTest::addColumn<BOOL>("expected");
    const auto add = [](const char* name, const wchar_t* first, const wchar_t* second, BOOL expected) {
        QTest::newRow(name) << std::wstring(first) << std::wstring(second) << expected;
    };

    add("one drive", L"c:\\a", L"C:\\b\\c", 1);
    add("a drive and its name alone", L"c:\\a", L"c:", 1);
    add("other drives", L"c:\\a", L"d:\\a", 0);
    add("one share", L"\\\\srv\\share\\a", L"\\\\srv\\share\\b", 1);
    add("a share and its name alone", L"\\\\srv\\share\\a", L"\\\\srv\\share", 1);
    add("two shares of a server", L"\\\\srv\\share\\a", L"\\\\srv\\other\\a", 0);
    add("a share that begins alike", L"\\\\srv\\share\\a", L"\\\\srv\\share2\\a", 0);
    add("a share and a drive", L"\\\\srv\\share\\a", L"c:\\a", 0);
    add("one first component", L"abc\\x", L"abc\\y", 1);
    add("no root", L"abc", L"abc", 0);
    add("the name of a drive has no root", L"c:", L"c:\\a", 0);
    add("a share without a folder has no root", L"\\\\srv\\share", L"\\\\srv\\share", 0);
    add("equal paths of Linux", L"/usr/lib", L"/usr/lib", 1);
    add("a folder of Linux is no root", L"/usr/lib", L"/usr/bin", 0);
    add("an empty second path", L"c:\\a", L"", 0);
}

void tst_PathCompare::sameRoot()
{
    QFETCH(std::wstring, first);
    QFETCH(std::wstring, second);
    QTEST(PathIsSameRoot_X(first.c_str(), second.c_str()), "expected");
    QCOMPARE(PathIsSameRoot_X(nullptr, second.c_str()), 0);
    QCOMPARE(PathIsSameRoot_X(first.c_str(), nullptr), 0);
}

XE_GUILESS_TEST(tst_PathCompare)
#include "tst_pathcompare.moc"
