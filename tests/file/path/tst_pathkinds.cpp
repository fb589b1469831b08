// Questions that the text of a path answers, the kinds of characters, and lower case.

#include "pathrows.h"
#include "testclass.h"

using namespace std::string_literals;

namespace {

// QString::fromUcs4 would take U+FEFF for a byte order mark.
QString ofCode(char32_t code)
{
    if (!QChar::requiresSurrogates(code))
        return QChar(static_cast<ushort>(code));
    return QString(QChar(QChar::highSurrogate(code))) + QChar(QChar::lowSurrogate(code));
}

} // namespace

class tst_PathKinds : public QObject
{
    Q_OBJECT

private slots:
    void questions_data();
    void questions() { QuestionRows::compare(); }
    void charType_data();
    void charType();
    void charTypeOfOddCharacters();
    void lowerCase_data();
    void lowerCase() { ChangeRows::compare(); }
    void lowerCaseIsThatOfQString();
};

void tst_PathKinds::questions_data()
{
    QuestionRows::columns();
    const auto add = QuestionRows::add;

    add("UNC: two backslashes", PathIsUNC_X, L"\\\\srv\\share", 1);
    add("UNC: two and no more", PathIsUNC_X, L"\\\\", 1);
    add("UNC: two slashes", PathIsUNC_X, L"//srv", 0);
    add("UNC: a slash between", PathIsUNC_X, L"\\/srv", 0);
    add("UNC: one backslash", PathIsUNC_X, L"\\", 0);
    add("UNC: an empty text", PathIsUNC_X, L"", 0);

    add("file name: a name", PathIsFileSpec_X, L"a.txt", 1);
    add("file name: slashes do not matter", PathIsFileSpec_X, L"/a/b", 1);
    add("file name: a backslash", PathIsFileSpec_X, L"a\\b", 0);
    add("file name: a colon", PathIsFileSpec_X, L"c:a", 0);
    add("file name: a colon at the end", PathIsFileSpec_X, L"abc:", 0);
    add("file name: an empty text", PathIsFileSpec_X, L"", 1);

    add("relative: a name", PathIsRelative_X, L"a", 1);
    add("relative: a Linux path", PathIsRelative_X, L"/usr", 1);
    add("relative: a drive", PathIsRelative_X, L"c:\\a", 0);
    add("relative: a drive alone", PathIsRelative_X, L"c:", 0);
    add("relative: any element before the colon", PathIsRelative_X, L"/:", 0);
    add("relative: a colon at the start", PathIsRelative_X, L":a", 1);
    add("relative: a colon later", PathIsRelative_X, L"ab:", 1);
    add("relative: the root", PathIsRelative_X, L"\\", 0);
    add("relative: a UNC path", PathIsRelative_X, L"\\\\srv", 0);
    add("relative: an empty text", PathIsRelative_X, L"", 1);

    add("URL: a scheme", PathIsURL_X, L"http://a/b", 1);
    add("URL: a name", PathIsURL_X, L"abc", 1);
    add("URL: a blank and a percent sign", PathIsURL_X, L"a b%", 1);
    add("URL: a Linux path", PathIsURL_X, L"/usr/lib", 1);
    add("URL: a Windows path", PathIsURL_X, L"c:\\a", 1);
    add("URL: a port that is no number", PathIsURL_X, L"http://a:b", 0);
    add("URL: an empty text", PathIsURL_X, L"", 0);

    add("server: a scheme and a host", PathIsUNCServer_X, L"http://srv", 1);
    add("server: a mark alone", PathIsUNCServer_X, L"://", 1);
    add("server: a slash behind the host", PathIsUNCServer_X, L"http://srv/", 0);
    add("server: a slash behind the mark", PathIsUNCServer_X, L"file:///", 0);
    add("server: a slash before the mark", PathIsUNCServer_X, L"a/b://srv", 1);
    add("server: a second mark", PathIsUNCServer_X, L"a://b://c", 0);
    add("server: a backslash is no slash", PathIsUNCServer_X, L"a://b\\c", 1);
    add("server: one slash is no mark", PathIsUNCServer_X, L"c:/a", 0);
    add("server: a UNC server", PathIsUNCServer_X, L"\\\\srv", 0);
    add("server: an empty text", PathIsUNCServer_X, L"", 0);

    add("share: a scheme, a host and a path", PathIsUNCServerShare_X, L"http://srv/share", 1);
    add("share: the mark's own slashes serve", PathIsUNCServerShare_X, L"http://srv", 1);
    add("share: one slash is no mark", PathIsUNCServerShare_X, L"c:/a/b", 0);
    add("share: a UNC share", PathIsUNCServerShare_X, L"\\\\srv\\share", 0);
    add("share: an empty text", PathIsUNCServerShare_X, L"", 0);

    add("long name: eight and three", PathIsLFNFileSpec_X, L"12345678.123", 0);
    add("long name: eight", PathIsLFNFileSpec_X, L"12345678", 0);
    add("long name: nine", PathIsLFNFileSpec_X, L"123456789", 1);
    add("long name: nine and a dot", PathIsLFNFileSpec_X, L"123456789.", 1);
    add("long name: four behind the dot", PathIsLFNFileSpec_X, L"a.1234", 1);
    add("long name: a second dot", PathIsLFNFileSpec_X, L"a.b.c", 1);
    add("long name: two dots", PathIsLFNFileSpec_X, L"..", 1);
    add("long name: a dot", PathIsLFNFileSpec_X, L".", 0);
    add("long name: an extension alone", PathIsLFNFileSpec_X, L".123", 0);
    add("long name: a blank before the dot", PathIsLFNFileSpec_X, L"a b.c", 1);
    add("long name: a blank behind the dot", PathIsLFNFileSpec_X, L"a. ", 1);
    add("long name: separators are part of it", PathIsLFNFileSpec_X, L"a/b/c/d/e.f", 1);
    add("long name: eight wide elements", PathIsLFNFileSpec_X,
        L"\x1F600\x1F600\x1F600\x1F600\x1F600\x1F600\x1F600\x1F600", 0);
    add("long name: an empty text", PathIsLFNFileSpec_X, L"", 0);
}

void tst_PathKinds::charType_data()
{
    QTest::addColumn<std::wstring>("characters");
    QTest::addColumn<UINT>("type");
    const auto add = [](const char* name, const std::wstring& characters, UINT type) {
        QTest::newRow(name) << characters << type;
    };

    add("below the blank", std::wstring(1, L'\0') + L"\x01\n\x1F\xFFFFFFFF\x80000000", 0);
    add("invalid", L"\"/<>|", 0);
    add("wild cards", L"*?", 4);
    add("separators", L":\\", 8);
    add("above the closing brace", L"~\x7F\x80\xE9\xFFFF\x1F600\x7FFFFFFF", 3);
    add("letters", L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", 3);
    add("digits", L"0123456789", 3);
    add("even, and fit for a short name", L"$&'(.@^`", 3);
    add("odd", L"!#%')+-=[]_{}", 3);
    add("fit for a long name alone", L" ,;", 1);
}

void tst_PathKinds::charType()
{
    QFETCH(std::wstring, characters);
    for (const wchar_t character : characters)
        QTEST(PathGetCharType_X(character), "type");
}

void tst_PathKinds::charTypeOfOddCharacters()
{
    const auto special = L"\"/<>|*?:\\;"s;
    for (wchar_t character = L'!'; character <= L'}'; character += 2) {
        if (special.find(character) == special.npos)
            QCOMPARE(PathGetCharType_X(character), 3u);
    }
}

void tst_PathKinds::lowerCase_data()
{
    ChangeRows::columns();
    const auto add = [](const char* name, const wchar_t* text, const wchar_t* shown) {
        ChangeRows::add(name, PathMakePretty_X, text, 1, shown);
    };

    add("all upper case", L"C:\\DIR\\A.TXT", L"c:\\dir\\a.txt|");
    add("mixed case, too", L"ReadMe.Txt", L"readme.txt|");
    add("lower case stays", L"abc", L"abc|");
    add("letters of any script", L"\xC9\x0416\x10400", L"\xE9\x0436\x10428|");
    add("a letter whose lower case has two elements stays", L"A\x0130Z", L"a\x0130z|");
    add("what is no character stays", L"\xD800\x110000\x7FFFFFFF\xFFFFFFFF", L"\xD800\x110000\x7FFFFFFF\xFFFFFFFF|");
    add("an empty text", L"", L"|");
}

void tst_PathKinds::lowerCaseIsThatOfQString()
{
    for (char32_t code = 1; code <= QChar::LastValidCodePoint; ++code) {
        if (QChar::isSurrogate(code) || code == 0x130)
            continue;
        wchar_t text[] = {static_cast<wchar_t>(code), L'\0'};
        QCOMPARE(PathMakePretty_X(text), 1);
        if (ofCode(code).toLower() != ofCode(static_cast<char32_t>(text[0])))
            QFAIL(qPrintable(QString::number(code, 16)));
    }
}

XE_GUILESS_TEST(tst_PathKinds)
#include "tst_pathkinds.moc"
