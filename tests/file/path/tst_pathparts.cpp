// Extensions, decoration, arguments, blanks and quotes of a path text, and its split into parts.

#include "pathrows.h"
#include "testclass.h"

using namespace std::string_literals;

namespace {

using ExtensionChange = BOOL (*)(wchar_t*, const wchar_t*);

} // namespace

Q_DECLARE_METATYPE(ExtensionChange)

class tst_PathParts : public QObject
{
    Q_OBJECT

private slots:
    void searches_data();
    void searches() { SearchRows::compare(); }
    void changes_data();
    void changes() { ChangeRows::compare(); }
    void extensions_data();
    void extensions();
    void extensionFromTheTextItself();
    void split_data();
    void split();
    void splitSkipsNullBuffers();
    void splitInPlace();
};

void tst_PathParts::searches_data()
{
    SearchRows::columns();
    const auto add = SearchRows::add;

    const Search extension = PathFindExtension_X;
    add("the last of two extensions", extension, L"a.tar.gz", 5);
    add("a dot in a folder's name is none", extension, L"a.b/c", 5);
    add("nor behind a backslash", extension, L"a.b\\c", 5);
    add("nor before a blank", extension, L"a.b c", 5);
    add("an extension behind all three", extension, L"a.b c.d/e.f\\g.h", 13);
    add("a dot at the end", extension, L"a.", 1);
    add("a dot at the start", extension, L".txt", 0);
    add("two dots", extension, L"..", 1);
    add("a folder's end", extension, L"a.b/", 4);
    add("no extension", extension, L"abc", 3);
    add("no extension in an empty text", extension, L"", 0);
    add("a colon and a tab do not matter", extension, L"a.b:c\t", 1);
    add("wide elements count as one", extension, L"\x1F600.\x1F600", 1);

    const Search args = PathGetArgs_X;
    add("arguments behind the first blank", args, L"a.exe -x -y", 6);
    add("a second blank belongs to them", args, L"a.exe  -x", 6);
    add("blanks in quotes do not count", args, L"\"a b\" c", 6);
    add("quotes in the middle do neither", args, L"a\" \"b c", 6);
    add("an open quote has no arguments", args, L"\"a b c", 6);
    add("a blank at the end", args, L"a ", 2);
    add("a blank at the start", args, L" a", 1);
    add("a tab is no blank", args, L"a\tb", 3);
    add("no arguments", args, L"abc", 3);
    add("no arguments in an empty text", args, L"", 0);
}

void tst_PathParts::changes_data()
{
    ChangeRows::columns();
    const auto add = ChangeRows::add;

    const Change removeExtension = silent<PathRemoveExtension_X>;
    add("an extension is cut", removeExtension, L"a.tar.gz", -1, L"a.tar|gz|");
    add("a dot in a folder's name stays", removeExtension, L"a.b/c", -1, L"a.b/c|");
    add("a dot at the end is cut", removeExtension, L"a.", -1, L"a||");
    add("an empty text has no extension", removeExtension, L"", -1, L"|");

    const Change removeArgs = silent<PathRemoveArgs_X>;
    add("arguments are cut, and their blank", removeArgs, L"a.exe -x", -1, L"a.exe|-x|");
    add("a blank at the end is cut", removeArgs, L"a ", -1, L"a||");
    add("quoted blanks stay", removeArgs, L"\"a b\" c", -1, L"\"a b\"|c|");
    add("an open quote stays whole", removeArgs, L"\"a b", -1, L"\"a b|");
    add("all of it can be arguments", removeArgs, L" a", -1, L"|a|");
    add("an empty text has no arguments", removeArgs, L"", -1, L"|");

    const Change undecorate = silent<PathUndecorate_X>;
    add("digits before the extension go", undecorate, L"name[1].txt", -1, L"name.txt|xt|");
    add("many digits go", undecorate, L"n[1234567890].t", -1, L"n.t|34567890].t|");
    add("empty brackets go", undecorate, L"name[].txt", -1, L"name.txt|t|");
    add("digits at the end go", undecorate, L"name[12]", -1, L"name|12]|");
    add("digits in a folder's name stay", undecorate, L"a[1].b/c", -1, L"a[1].b/c|");
    add("only the last brackets go", undecorate, L"a[1][2].t", -1, L"a[1].t|.t|");
    add("letters stay", undecorate, L"name[1a].txt", -1, L"name[1a].txt|");
    add("digits without an opening bracket stay", undecorate, L"name1].txt", -1, L"name1].txt|");
    add("digits without a closing bracket stay", undecorate, L"name[1.txt", -1, L"name[1.txt|");
    add("brackets away from the extension stay", undecorate, L"n[1]ame.txt", -1, L"n[1]ame.txt|");
    add("brackets without a name go", undecorate, L"[3].txt", -1, L".txt|xt|");
    add("brackets without a name behind a slash go", undecorate, L"a/[3].txt", -1, L"a/.txt|xt|");
    add("brackets without a name behind a backslash go", undecorate, L"a\\[3]", -1, L"a\\|3]|");
    add("a bracket alone stays", undecorate, L"]", -1, L"]|");
    add("digits and a bracket stay", undecorate, L"12]", -1, L"12]|");
    add("digits of other scripts stay", undecorate, L"a[\x0663].t", -1, L"a[\x0663].t|");
    add("an empty text has no decoration", undecorate, L"", -1, L"|");

    const Change blanks = silent<PathRemoveBlanks_X>;
    add("blanks at both ends go", blanks, L"  a b ", -1, L"a b|b |");
    add("nothing but blanks leaves nothing", blanks, L"   ", -1, L"|  |");
    add("tabs stay", blanks, L"\ta\t", -1, L"\ta\t|");
    add("an empty text has no blanks", blanks, L"", -1, L"|");

    add("a text with a blank is quoted", PathQuoteSpaces_X, L"a b", 1, L"\"a b\"|");
    add("quotes come on top of quotes", PathQuoteSpaces_X, L"\"a b\"", 1, L"\"\"a b\"\"|");
    add("a percent sign is text", PathQuoteSpaces_X, L"%1 %2", 1, L"\"%1 %2\"|");
    add("a text without a blank is not quoted", PathQuoteSpaces_X, L"a\tb", 0, L"a\tb|");
    add("an empty text is not quoted", PathQuoteSpaces_X, L"", 0, L"|");
    add("a wide and a lone element are quoted", PathQuoteSpaces_X, L"\x1F600 \xD800", 1, L"\"\x1F600 \xD800\"|");

    add("both quotes go", PathUnquoteSpaces_X, L"\"a b\"", 1, L"a b|||");
    add("one pair goes", PathUnquoteSpaces_X, L"\"\"a\"\"", 1, L"\"a\"|||");
    add("nothing between the quotes leaves nothing", PathUnquoteSpaces_X, L"\"\"", 1, L"|||");
    add("a quote alone is not two", PathUnquoteSpaces_X, L"\"", 0, L"\"|");
    add("a quote at the start stays", PathUnquoteSpaces_X, L"\"a", 0, L"\"a|");
    add("a quote at the end stays", PathUnquoteSpaces_X, L"a\"", 0, L"a\"|");
    add("an empty text has no quotes", PathUnquoteSpaces_X, L"", 0, L"|");

    add("an icon's index is not read", PathParseIconLocation_X, L"a.dll,3", 0, L"a.dll,3|");
    add("no icon index", PathParseIconLocation_X, L"a.dll", 0, L"a.dll|");
    add("an empty icon location", PathParseIconLocation_X, L"", 0, L"|");
}

void tst_PathParts::extensions_data()
{
    QTest::addColumn<ExtensionChange>("change");
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<std::wstring>("extension");
    QTest::addColumn<BOOL>("result");
    QTest::addColumn<std::wstring>("shown");
    const auto add = [](const char* name, ExtensionChange change, const wchar_t* text, const wchar_t* extension,
                        BOOL result, const wchar_t* shown) {
        QTest::newRow(name) << change << std::wstring(text) << std::wstring(extension) << result << std::wstring(shown);
    };

    add("an extension is added", PathAddExtension_X, L"name", L".txt", 1, L"name.txt|");
    add("an extension without a dot is added as it is", PathAddExtension_X, L"name", L"txt", 1, L"nametxt|");
    add("an empty extension is added", PathAddExtension_X, L"name", L"", 1, L"name|");
    add("an empty name gets an extension", PathAddExtension_X, L"", L".txt", 1, L".txt|");
    add("a dot in a folder's name is no extension", PathAddExtension_X, L"a.b/c", L".d", 1, L"a.b/c.d|");
    add("a name with an extension gets no other", PathAddExtension_X, L"name.a", L".b", 0, L"name.a|");
    add("a dot at the end is an extension", PathAddExtension_X, L"name.", L".b", 0, L"name.|");

    add("an extension is replaced by a longer one", PathRenameExtension_X, L"name.c", L".html", 1, L"name.html|");
    add("an extension is replaced by a shorter one", PathRenameExtension_X, L"name.html", L".c", 1, L"name.c|ml|");
    add("the last extension is replaced", PathRenameExtension_X, L"a.tar.gz", L".z", 1, L"a.tar.z||");
    add("a name without an extension gets one", PathRenameExtension_X, L"a.b\\c", L".d", 1, L"a.b\\c.d|");
    add("an extension is replaced by nothing", PathRenameExtension_X, L"name.c", L"", 1, L"name|c|");
    add("an empty text becomes the extension", PathRenameExtension_X, L"", L".d", 1, L".d|");
}

void tst_PathParts::extensions()
{
    QFETCH(ExtensionChange, change);
    QFETCH(std::wstring, text);
    QFETCH(std::wstring, extension);
    PathBuffer buffer(text);
    QCOMPARE(change(buffer.data(), nullptr), 0);
    QCOMPARE(change(nullptr, extension.c_str()), 0);
    QTEST(change(buffer.data(), exactBlock(extension + L'\0').get()), "result");
    QTEST(buffer.shown(), "shown");
}

void tst_PathParts::extensionFromTheTextItself()
{
    PathBuffer buffer(L"a.bc");
    QCOMPARE(PathRenameExtension_X(buffer.data(), buffer.data()), 1);
    QCOMPARE(buffer.text(), L"aa.bc"s);
    QCOMPARE(PathRenameExtension_X(buffer.data(), buffer.data() + 3), 1);
    QCOMPARE(buffer.text(), L"aabc"s);
    QCOMPARE(PathAddExtension_X(buffer.data(), buffer.data() + 1), 1);
    QCOMPARE(buffer.text(), L"aabcabc"s);
}

void tst_PathParts::split_data()
{
    QTest::addColumn<std::wstring>("path");
    QTest::addColumn<std::wstring>("parts");
    const auto add = [](const char* name, const wchar_t* path, const wchar_t* parts) {
        QTest::newRow(name) << std::wstring(path) << std::wstring(parts);
    };

    add("all parts", L"/a/b.c/d.tar.gz", L"|/a/b.c/|d.tar|.gz");
    add("a folder", L"/a/b.c/", L"|/a/b.c/||");
    add("the root", L"/", L"|/||");
    add("a name in the root", L"/a", L"|/|a|");
    add("a name alone", L"abc", L"||abc|");
    add("an extension alone", L".abc", L"|||.abc");
    add("a dot at the end", L"a.", L"||a|.");
    add("a dot in a folder's name splits nothing", L"a.b/c", L"|a.b/|c|");
    add("a drive and backslashes are part of the name", L"c:\\a.b\\c", L"||c:\\a|.b\\c");
    add("an empty text", L"", L"|||");
    add("elements that are wide, lone or no code point", L"\x1F600/\xD800.\x7FFFFFFF", L"|\x1F600/|\xD800|.\x7FFFFFFF");
}

void tst_PathParts::split()
{
    QFETCH(std::wstring, path);
    PathBuffer drive(L"###");
    PathBuffer directory(L"###");
    PathBuffer name(L"###");
    PathBuffer extension(L"###");
    const auto parts = [&] {
        return drive.text() + L'|' + directory.text() + L'|' + name.text() + L'|' + extension.text();
    };
    _tsplitpath(exactBlock(path + L'\0').get(), drive.data(), directory.data(), name.data(), extension.data());
    QTEST(parts(), "parts");
    _tsplitpath(nullptr, drive.data(), directory.data(), name.data(), extension.data());
    QCOMPARE(parts(), L"|||"s);
}

void tst_PathParts::splitSkipsNullBuffers()
{
    PathBuffer name(L"");
    _tsplitpath(L"/a/b.c", nullptr, nullptr, name.data(), nullptr);
    QCOMPARE(name.text(), L"b"s);
    _tsplitpath(L"/a/b.c", nullptr, nullptr, nullptr, nullptr);
}

void tst_PathParts::splitInPlace()
{
    PathBuffer path(L"/a/b.c");
    PathBuffer name(L"");
    _tsplitpath(path.data(), nullptr, path.data(), name.data(), nullptr);
    QCOMPARE(path.text(), L"/a/"s);
    QCOMPARE(name.text(), L"b"s);
}

XE_GUILESS_TEST(tst_PathParts)
#include "tst_pathparts.moc"
