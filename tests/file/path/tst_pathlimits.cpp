// Texts of the greatest length in buffers without an element to spare, and texts far beyond it.

#include "pathrows.h"
#include "testclass.h"

using namespace std::string_literals;

namespace {

constexpr std::size_t longest = XE_MAX_PATH - 1;

std::wstring letters(std::size_t count) { return std::wstring(count, L'a'); }

} // namespace

class tst_PathLimits : public QObject
{
    Q_OBJECT

private slots:
    void addBackslash_data();
    void addBackslash();
    void quotes();
    void extensions();
    void canonical();
    void combine_data();
    void combine();
    void append();
    void commonPrefix();
    void split();
    void textsBeyondTheLimit_data();
    void textsBeyondTheLimit();
    void manyComponents();
};

void tst_PathLimits::addBackslash_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<bool>("succeeds");
    QTest::addColumn<std::wstring>("elements"); // from the start of the text on

    QTest::newRow("room for the terminator") << letters(longest - 1) << true << letters(longest - 1) + L"/\0"s;
    QTest::newRow("room for the slash alone") << letters(longest) << true << letters(longest) + L'/';
    QTest::newRow("no room") << letters(longest + 1) << false << letters(longest + 1) + L'\0';
    QTest::newRow("far too long") << letters(100000) << false << letters(100000) + L'\0';
    QTest::newRow("a slash that is there") << letters(longest - 1) + L'/' << true << letters(longest - 1) + L"/\0"s;
    QTest::newRow("a slash at the very end") << letters(longest) + L'/' << true << letters(longest) + L"/\0"s;
    QTest::newRow("a slash beyond the end") << letters(longest + 1) + L'/' << false << letters(longest + 1) + L"/\0"s;
}

void tst_PathLimits::addBackslash()
{
    QFETCH(std::wstring, text);
    QFETCH(bool, succeeds);
    QFETCH(std::wstring, elements);
    const auto block = exactBlock((text + L'\0').append(text.size() < longest ? L"#" : L""));
    QCOMPARE(PathAddBackslash_X(block.get()), succeeds ? block.get() : nullptr);
    QCOMPARE(std::wstring(block.get(), elements.size()), elements);
}

void tst_PathLimits::quotes()
{
    PathBuffer fits(letters(longest - 3) + L' ');
    QCOMPARE(PathQuoteSpaces_X(fits.data()), 1);
    QCOMPARE(fits.elements(), L'"' + letters(longest - 3) + L" \"\0"s);

    PathBuffer tooLong(letters(longest - 2) + L' ');
    QCOMPARE(PathQuoteSpaces_X(tooLong.data()), 0);
    QCOMPARE(tooLong.text(), letters(longest - 2) + L' ');
}

void tst_PathLimits::extensions()
{
    for (const auto change : {PathAddExtension_X, PathRenameExtension_X}) {
        PathBuffer fits(letters(longest - 4));
        QCOMPARE(change(fits.data(), L".txt"), 1);
        QCOMPARE(fits.elements(), letters(longest - 4) + L".txt\0"s);

        PathBuffer tooLong(letters(longest - 3));
        QCOMPARE(change(tooLong.data(), L".txt"), 0);
        QCOMPARE(tooLong.text(), letters(longest - 3));
        QCOMPARE(change(tooLong.data(), letters(100000).c_str()), 0);
    }
    PathBuffer replaced(letters(longest - 2) + L".b");
    QCOMPARE(PathRenameExtension_X(replaced.data(), L".c"), 1);
    QCOMPARE(replaced.elements(), letters(longest - 2) + L".c\0"s);
    QCOMPARE(PathRenameExtension_X(replaced.data(), L".de"), 0);
    QCOMPARE(replaced.elements(), letters(longest - 2) + L".c\0"s);
}

void tst_PathLimits::canonical()
{
    PathBuffer out(L"###");
    QCOMPARE(PathCanonicalize_X(out.data(), letters(longest).c_str()), 1);
    QCOMPARE(out.elements(), letters(longest) + L'\0');
    QCOMPARE(PathCanonicalize_X(out.data(), (letters(100000) + L"\\..\\b").c_str()), 1);
    QCOMPARE(out.text(), L"b"s);
    QCOMPARE(PathCanonicalize_X(out.data(), letters(longest + 1).c_str()), 0);
    QCOMPARE(out.text(), L""s);

    const auto block = exactBlock(letters(longest + 1) + L'\0');
    QCOMPARE(PathCanonicalize_X(block.get(), block.get()), 0);
    QCOMPARE(std::wstring(block.get()), L""s);
}

void tst_PathLimits::combine_data()
{
    QTest::addColumn<std::wstring>("directory");
    QTest::addColumn<std::wstring>("file");
    QTest::addColumn<bool>("succeeds");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const std::wstring& directory, const std::wstring& file,
                        const std::wstring& expected) { QTest::newRow(name) << directory << file << true << expected; };
    const auto fail = [](const char* name, const std::wstring& directory, const std::wstring& file) {
        QTest::newRow(name) << directory << file << false << std::wstring();
    };

    add("the longest sum", letters(longest - 3), L"bc", letters(longest - 3) + L"/bc");
    fail("a sum too long by one", letters(longest - 2), L"bc");
    fail("a sum that would be short without its dots", letters(longest - 4), L"b\\..");
    fail("a directory that is as long as can be", letters(longest), L"b");
    fail("a directory beyond the limit", letters(100000), L"b");
    fail("a file beyond the limit", L"b", letters(100000));
    add("only the root of a long directory counts", L"a/" + letters(100000), L"\\b", L"a/b");
    add("a root beyond the limit is empty", letters(longest) + L"/", L"\\b", L"/b");
    add("a directory alone is cut", letters(longest) + L"bc", L"", letters(longest));
    add("a file alone is cut", L"", letters(longest) + L"bc", letters(longest));
    add("a file on a drive is cut", L"a", L"c:\\" + letters(longest), L"c:\\" + letters(longest - 3));
    add("a cut comes before the dots are gone", L"", letters(longest - 3) + L"\\..\\b", L"\\");
}

void tst_PathLimits::combine()
{
    QFETCH(std::wstring, directory);
    QFETCH(std::wstring, file);
    QFETCH(bool, succeeds);
    PathBuffer out(L"###");
    QCOMPARE(PathCombine_X(out.data(), directory.c_str(), file.c_str()), succeeds ? out.data() : nullptr);
    QTEST(out.text(), "expected");
}

void tst_PathLimits::append()
{
    PathBuffer fits(letters(longest - 2));
    QCOMPARE(PathAppend_X(fits.data(), L"b"), 1);
    QCOMPARE(fits.elements(), letters(longest - 2) + L"/b\0"s);
    QCOMPARE(PathAppend_X(fits.data(), L"c"), 0);
    QCOMPARE(fits.text(), L""s);
}

void tst_PathLimits::commonPrefix()
{
    PathBuffer out(L"###");
    QCOMPARE(PathCommonPrefix_X(letters(longest).c_str(), letters(longest).c_str(), out.data()), int(longest));
    QCOMPARE(out.elements(), letters(longest) + L'\0');
    const std::wstring tooLong = letters(longest + 1);
    QCOMPARE(PathCommonPrefix_X(tooLong.c_str(), tooLong.c_str(), out.data()), 0);
    QCOMPARE(out.text(), L""s);
    QCOMPARE(PathCommonPrefix_X(tooLong.c_str(), tooLong.c_str(), nullptr), int(longest + 1));
    QCOMPARE(PathIsPrefix_X(tooLong.c_str(), tooLong.c_str()), 1);
}

void tst_PathLimits::split()
{
    PathBuffer directory(L"###");
    PathBuffer name(L"###");
    const std::wstring folder = letters(longest - 1) + L'/';
    _tsplitpath(folder.c_str(), nullptr, directory.data(), name.data(), nullptr);
    QCOMPARE(directory.elements(), folder + L'\0');
    _tsplitpath(letters(longest).c_str(), nullptr, directory.data(), name.data(), nullptr);
    QCOMPARE(name.elements(), letters(longest) + L'\0');
    _tsplitpath((folder + L"b").c_str(), nullptr, directory.data(), name.data(), nullptr);
    QCOMPARE(directory.text() + name.text(), L""s);
}

void tst_PathLimits::textsBeyondTheLimit_data()
{
    ChangeRows::columns();
    const auto add = [](const char* name, Change change, const std::wstring& text, BOOL result,
                        const std::wstring& expected) { ChangeRows::add(name, change, text, result, expected); };
    const std::wstring a = letters(100000);

    add("RemoveFileSpec", PathRemoveFileSpec_X, a + L"/b", 1, a);
    add("RemoveFileSpec without a separator", PathRemoveFileSpec_X, a, 0, a);
    add("StripToRoot", PathStripToRoot_X, a + L"/b", 1, a + L'/');
    add("StripPath", silent<PathStripPath_X>, L"/" + a, -1, a);
    add("RemoveExtension", silent<PathRemoveExtension_X>, a + L".b", -1, a);
    add("RemoveArgs", silent<PathRemoveArgs_X>, a + L" b", -1, a);
    add("RemoveBlanks", silent<PathRemoveBlanks_X>, L" " + a + L" ", -1, a);
    add("Undecorate", silent<PathUndecorate_X>, a + L"[" + std::wstring(100000, L'1') + L"]", -1, a);
    add("QuoteSpaces", PathQuoteSpaces_X, a + L" b", 0, a + L" b");
    add("UnquoteSpaces", PathUnquoteSpaces_X, L'"' + a + L'"', 1, a);
    add("MakePretty", PathMakePretty_X, std::wstring(100000, L'A'), 1, a);
}

void tst_PathLimits::textsBeyondTheLimit()
{
    QFETCH(Change, change);
    QFETCH(std::wstring, text);
    const auto block = exactBlock(text + L'\0');
    QTEST(change(block.get()), "result");
    QTEST(std::wstring(block.get()), "shown");
}

void tst_PathLimits::manyComponents()
{
    std::wstring path;
    for (int i = 0; i < 30000; ++i)
        path += L"a\\.\\";
    for (int i = 0; i < 29999; ++i)
        path += L"..\\";
    PathBuffer out(L"###");
    QCOMPARE(PathCanonicalize_X(out.data(), path.c_str()), 1);
    QCOMPARE(out.text(), L"a\\"s);
    QCOMPARE(placeOf(PathFindFileName_X(path.c_str()), path.c_str()), static_cast<long long>(path.size()));
    const auto block = exactBlock(std::wstring(100000, L'/') + L'\0');
    QCOMPARE(PathRemoveBackslash_X(block.get()), block.get());
    QCOMPARE(std::wstring(block.get()), std::wstring(100000, L'/'));
}

XE_GUILESS_TEST(tst_PathLimits)
#include "tst_pathlimits.moc"
