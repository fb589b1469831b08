// Joining a directory and a file.

#include "pathrows.h"
#include "testclass.h"

using namespace std::string_literals;

namespace {

std::wstring combined(const wchar_t* directory, const wchar_t* file)
{
    PathBuffer out(L"###");
    const wchar_t* const result = PathCombine_X(out.data(), directory, file);
    return result == out.data() ? out.text() : result ? L"(elsewhere)" : L"(null)" + out.text();
}

} // namespace

class tst_PathCombine : public QObject
{
    Q_OBJECT

private slots:
    void combine_data();
    void combine();
    void nullsOfCombine();
    void combineIntoAnArgument();
    void append_data();
    void append();
    void nullsOfAppend();
    void appendToItself();
};

void tst_PathCombine::combine_data()
{
    QTest::addColumn<std::wstring>("directory");
    QTest::addColumn<std::wstring>("file");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const wchar_t* directory, const wchar_t* file, const wchar_t* expected) {
        QTest::newRow(name) << std::wstring(directory) << std::wstring(file) << std::wstring(expected);
    };

    add("a slash comes between", L"/usr", L"lib", L"/usr/lib");
    add("a slash comes behind a backslash", L"c:\\x\\", L"y", L"c:\\x\\/y");
    add("a slash that is there serves", L"/usr/", L"lib", L"/usr/lib");
    add("two dots behind the slash are text", L"c:\\x", L"..\\y", L"c:\\x/..\\y");
    add("two dots later are a component", L"c:\\x", L"a\\..\\y", L"c:\\y");
    add("dots of Linux are text", L"/usr/./lib", L"../bin/.", L"/usr/./lib/../bin/.");
    add("two dots before the slash are text", L"c:\\a\\.\\b\\..", L"y", L"c:\\a\\b\\../y");
    add("dots inside the directory go", L"c:\\a\\..\\b", L"y", L"c:\\b/y");

    add("a file on a drive stands for itself", L"c:\\x", L"d:\\a\\..\\b", L"d:\\b");
    add("a drive stands for itself", L"c:\\x", L"d:", L"d:\\");
    add("a UNC file stands for itself", L"c:\\x", L"\\\\srv\\share\\.\\a", L"\\\\srv\\share\\a");
    add("a backslash leads to the root of the directory", L"c:\\x\\z", L"\\y", L"c:\\/y");
    add("the root of a Linux directory", L"/usr/lib", L"\\y", L"/usr/y");
    add("a directory without a separator has an empty root", L"c:", L"\\y", L"/y");
    add("a backslash alone is the root", L"a/b", L"\\", L"a/");
    add("a Linux file is relative", L"/usr", L"/etc", L"/usr//etc");

    add("an empty file leaves the directory", L"c:\\a\\..\\b", L"", L"c:\\b");
    add("an empty directory leaves the file", L"", L"a\\..\\b", L"b");
    add("an empty directory leaves a rooted file", L"", L"\\a", L"\\a");
    add("two empty texts make the root", L"", L"", L"\\");
}

void tst_PathCombine::combine()
{
    QFETCH(std::wstring, directory);
    QFETCH(std::wstring, file);
    QTEST(combined(exactBlock(directory + L'\0').get(), exactBlock(file + L'\0').get()), "expected");
}

void tst_PathCombine::nullsOfCombine()
{
    QVERIFY(!PathCombine_X(nullptr, L"a", L"b"));
    QCOMPARE(combined(nullptr, nullptr), L"(null)"s);
    QCOMPARE(combined(nullptr, L"a\\..\\b"), L"b"s);
    QCOMPARE(combined(L"c:\\a\\..\\b", nullptr), L"c:\\b"s);
    QCOMPARE(combined(nullptr, L""), L"\\"s);
    QCOMPARE(combined(L"", nullptr), L"\\"s);
}

void tst_PathCombine::combineIntoAnArgument()
{
    PathBuffer path(L"/usr");
    QCOMPARE(PathCombine_X(path.data(), path.data(), L"lib"), path.data());
    QCOMPARE(path.text(), L"/usr/lib"s);
    PathBuffer file(L"lib");
    QCOMPARE(PathCombine_X(file.data(), L"/usr", file.data()), file.data());
    QCOMPARE(file.text(), L"/usr/lib"s);
}

void tst_PathCombine::append_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<std::wstring>("more");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const wchar_t* path, const wchar_t* more, const wchar_t* expected) {
        QTest::newRow(name) << std::wstring(path) << std::wstring(more) << std::wstring(expected);
    };

    add("a slash comes between", L"c:\\a", L"b", L"c:\\a/b");
    add("a leading backslash goes", L"c:\\a\\b", L"\\c", L"c:\\a\\b/c");
    add("a leading slash stays", L"/a", L"/b", L"/a//b");
    add("a UNC path takes the place", L"c:\\a", L"\\\\srv\\share", L"\\\\srv\\share");
    add("more than two backslashes are a UNC path", L"c:\\a", L"\\\\\\b", L"\\\\\\b");
    add("a path on a drive takes the place", L"c:\\a", L"d:\\b", L"d:\\b");
    add("a drive behind a backslash, too", L"c:\\a", L"\\d:\\b", L"d:\\b");
    add("nothing to append makes it canonical", L"c:\\a\\..\\b", L"", L"c:\\b");
    add("a backslash alone is nothing", L"c:\\a\\.", L"\\", L"c:\\a");
    add("an empty text becomes what is appended", L"", L"a\\.\\b", L"a\\b");
}

void tst_PathCombine::append()
{
    QFETCH(std::wstring, path);
    QFETCH(std::wstring, more);
    PathBuffer buffer(path);
    QCOMPARE(PathAppend_X(buffer.data(), exactBlock(more + L'\0').get()), 1);
    QTEST(buffer.text(), "expected");
}

void tst_PathCombine::nullsOfAppend()
{
    PathBuffer buffer(L"a\\.");
    QCOMPARE(PathAppend_X(buffer.data(), nullptr), 0);
    QCOMPARE(PathAppend_X(nullptr, L"a"), 0);
    QCOMPARE(buffer.shown(), L"a\\.|"s);
}

void tst_PathCombine::appendToItself()
{
    PathBuffer buffer(L"a");
    QCOMPARE(PathAppend_X(buffer.data(), buffer.data()), 1);
    QCOMPARE(buffer.text(), L"a/a"s);
}

XE_GUILESS_TEST(tst_PathCombine)
#include "tst_pathcombine.moc"
