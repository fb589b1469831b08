// The scheme of a URL, the kinds of URL, and the functions that look at the whole text.

#include "testclass.h"
#include "urltext.h"

class tst_ParseUrl : public QObject
{
    Q_OBJECT

private slots:
    void schemes_data();
    void schemes();
    void schemesAreInOrder();
    void splits_data();
    void splits();
    void invalid_data();
    void invalid();
    void refuses_data();
    void refuses();
    void kinds_data();
    void kinds();
    void locations_data();
    void locations();
    void fixup_data();
    void fixup();
    void longTexts();
    void enhancedSecurityIsOff() { QCOMPARE(IsInternetESCEnabled_X(), FALSE); }
};

namespace {

tagPARSEDURLW parsed(const wchar_t* url)
{
    tagPARSEDURLW parts{};
    parts.cbSize = sizeof(parts);
    if (ParseURL_X(url, &parts) != S_OK)
        parts.nScheme = 0xFFFFFFFF;
    return parts;
}

} // namespace

void tst_ParseUrl::schemes_data()
{
    QTest::addColumn<std::wstring>("url");
    QTest::addColumn<UINT>("number");
    QTest::newRow("ftp") << L"ftp:"s << 1u;
    QTest::newRow("http") << L"http:"s << 2u;
    QTest::newRow("gopher") << L"gopher:"s << 3u;
    QTest::newRow("mailto") << L"mailto:"s << 4u;
    QTest::newRow("news") << L"news:"s << 5u;
    QTest::newRow("nntp") << L"nntp:"s << 6u;
    QTest::newRow("telnet") << L"telnet:"s << 7u;
    QTest::newRow("wais") << L"wais:"s << 8u;
    QTest::newRow("file") << L"file:"s << 9u;
    QTest::newRow("mk") << L"mk:"s << 10u;
    QTest::newRow("https") << L"https:"s << 11u;
    QTest::newRow("shell") << L"shell:"s << 12u;
    QTest::newRow("snews") << L"snews:"s << 13u;
    QTest::newRow("local") << L"local:"s << 14u;
    QTest::newRow("javascript") << L"javascript:"s << 15u;
    QTest::newRow("vbscript") << L"vbscript:"s << 16u;
    QTest::newRow("about") << L"about:"s << 17u;
    QTest::newRow("res") << L"res:"s << 18u;
    QTest::newRow("capital letters") << L"HTTP://a"s << 2u;
    QTest::newRow("mixed letters") << L"JavaScript:x"s << 15u;
    QTest::newRow("start of a known one") << L"htt:"s << 0u;
    QTest::newRow("known one and more") << L"httpss:"s << 0u;
    QTest::newRow("unknown") << L"foo:"s << 0u;
    QTest::newRow("only a sign") << L"+-.:"s << 0u;
}

void tst_ParseUrl::schemes()
{
    QFETCH(std::wstring, url);
    QTEST(parsed(url.c_str()).nScheme, "number");
}

void tst_ParseUrl::schemesAreInOrder()
{
    int expected = 0;
    for (const auto& scheme : url_schemes)
        QCOMPARE(int(scheme.number), ++expected);
    QCOMPARE(expected, 18);
    QCOMPARE(std::wstring(url_schemes[0].name), L"ftp"s);
    QCOMPARE(std::wstring(url_schemes[17].name), L"res"s);
}

void tst_ParseUrl::splits_data()
{
    QTest::addColumn<std::wstring>("url");
    QTest::addColumn<std::wstring>("protocol");
    QTest::addColumn<std::wstring>("suffix");
    QTest::newRow("ordinary") << L"http://a/b?c"s << L"http"s << L"//a/b?c"s;
    QTest::newRow("case stays") << L"HTTP://a"s << L"HTTP"s << L"//a"s;
    QTest::newRow("no suffix") << L"about:"s << L"about"s << L""s;
    QTest::newRow("first colon counts") << L"a1:b2:c"s << L"a1"s << L"b2:c"s;
    QTest::newRow("signs and digits") << L"x+y-z.9:s"s << L"x+y-z.9"s << L"s"s;
    QTest::newRow("host and port look like a scheme") << L"localhost:80"s << L"localhost"s << L"80"s;
    QTest::newRow("letters outside ASCII") << L"\xE9\x4E2D:s"s << L"\xE9\x4E2D"s << L"s"s;
}

void tst_ParseUrl::splits()
{
    QFETCH(std::wstring, url);
    const tagPARSEDURLW parts = parsed(url.c_str());
    QCOMPARE(parts.pszProtocol, url.c_str());
    QTEST(std::wstring(parts.pszProtocol, parts.cchProtocol), "protocol");
    QTEST(std::wstring(parts.pszSuffix), "suffix");
    QCOMPARE(parts.cchSuffix, UINT(std::wcslen(parts.pszSuffix)));
}

void tst_ParseUrl::invalid_data()
{
    QTest::addColumn<std::wstring>("url");
    QTest::newRow("empty") << L""s;
    QTest::newRow("no colon") << L"http"s;
    QTest::newRow("drive") << L"c:\\x"s;
    QTest::newRow("nothing before the colon") << L"://a"s;
    QTest::newRow("slash before the colon") << L"a/b:c"s;
    QTest::newRow("blank before the colon") << L"ht tp:x"s;
    QTest::newRow("blank in front") << L" http:x"s;
    QTest::newRow("underscore") << L"a_b:c"s;
    QTest::newRow("elements that are no characters") << std::wstring(5, wchar_t(0x7FFFFFFF)) + L":"s;
    QTest::newRow("negative elements") << std::wstring(5, wchar_t(-1)) + L":"s;
}

void tst_ParseUrl::invalid()
{
    QFETCH(std::wstring, url);
    tagPARSEDURLW parts{sizeof(parts), L"x", 1, L"y", 2, 3};
    QCOMPARE(shown(ParseURL_X(url.c_str(), &parts)), QStringLiteral("0x80041001"));
    QVERIFY(!parts.pszProtocol);
    QCOMPARE(UrlIsOpaque_X(url.c_str()), FALSE);
}

void tst_ParseUrl::refuses_data()
{
    QTest::addColumn<DWORD>("cbSize");
    QTest::addColumn<bool>("withUrl");
    QTest::newRow("size 0") << 0u << true;
    QTest::newRow("size 39") << 39u << true;
    QTest::newRow("size 41") << 41u << true;
    QTest::newRow("size of the 32-bit record") << 24u << true;
    QTest::newRow("no text") << 40u << false;
}

void tst_ParseUrl::refuses()
{
    QFETCH(DWORD, cbSize);
    QFETCH(bool, withUrl);
    tagPARSEDURLW parts{cbSize, L"untouched", 1, L"y", 2, 3};
    QCOMPARE(shown(ParseURL_X(withUrl ? L"http:x" : nullptr, &parts)), QStringLiteral("0x80070057"));
    QCOMPARE(std::wstring(parts.pszProtocol), L"untouched"s);
    QCOMPARE(shown(ParseURL_X(L"http:x", nullptr)), QStringLiteral("0x80070057"));
}

void tst_ParseUrl::kinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<std::wstring>("url");
    QTest::addColumn<BOOL>("expected");
    QTest::newRow("opaque: mailto") << 1 << L"mailto:a"s << TRUE;
    QTest::newRow("opaque: shell") << 1 << L"shell:x"s << TRUE;
    QTest::newRow("opaque: javascript") << 1 << L"javascript:x"s << TRUE;
    QTest::newRow("opaque: vbscript") << 1 << L"vbscript:x"s << TRUE;
    QTest::newRow("opaque: about in capital letters") << 1 << L"ABOUT:x"s << TRUE;
    QTest::newRow("opaque: not news") << 1 << L"news:x"s << FALSE;
    QTest::newRow("opaque: not http") << 1 << L"http://x"s << FALSE;
    QTest::newRow("opaque: not an unknown scheme") << 1 << L"foo:x"s << FALSE;
    QTest::newRow("opaque: not a text without a colon") << 1 << L"mailto"s << FALSE;
    QTest::newRow("no history") << 2 << L"http://x"s << FALSE;
    QTest::newRow("URL") << 0 << L"http://x"s << TRUE;
    QTest::newRow("URL: nearly any text") << 0 << L"x"s << TRUE;
    QTest::newRow("URL: not the empty text") << 0 << L""s << FALSE;
    QTest::newRow("file URL: the scheme alone") << 3 << L"file:"s << TRUE;
    QTest::newRow("file URL: in capital letters") << 3 << L"FILE:"s << TRUE;
    QTest::newRow("file URL: not with a path") << 3 << L"file:///x"s << FALSE;
    QTest::newRow("file URL: not without its colon") << 3 << L"file"s << FALSE;
    QTest::newRow("appliable") << 4 << L"http://x"s << FALSE;
    QTest::newRow("folder: slash") << 5 << L"http://x/"s << TRUE;
    QTest::newRow("folder: backslash") << 5 << L"x\\"s << TRUE;
    QTest::newRow("folder: not within") << 5 << L"x/y"s << FALSE;
    QTest::newRow("folder: not the empty text") << 5 << L""s << FALSE;
    QTest::newRow("query") << 6 << L"http://x/?q"s << FALSE;
    QTest::newRow("unknown kind") << 7 << L"x/"s << FALSE;
}

void tst_ParseUrl::kinds()
{
    QFETCH(int, kind);
    QFETCH(std::wstring, url);
    QFETCH(BOOL, expected);
    QCOMPARE(UrlIs_X(url.c_str(), static_cast<URLIS>(kind)), expected);
    QCOMPARE(UrlIs_X(nullptr, static_cast<URLIS>(kind)), FALSE);
    if (kind == URLIS_OPAQUE)
        QCOMPARE(UrlIsOpaque_X(url.c_str()), expected);
    QCOMPARE(UrlIsNoHistory_X(url.c_str()), FALSE);
}

void tst_ParseUrl::locations_data()
{
    QTest::addColumn<std::wstring>("url");
    QTest::addColumn<int>("place");
    QTest::newRow("in the middle") << L"http://a#b"s << 8;
    QTest::newRow("first of two") << L"a#b#c"s << 1;
    QTest::newRow("at the end") << L"a#"s << 1;
    QTest::newRow("none") << L"http://a"s << -1;
    QTest::newRow("empty") << L""s << -1;
}

void tst_ParseUrl::locations()
{
    QFETCH(std::wstring, url);
    const wchar_t* const found = UrlGetLocation_X(url.c_str());
    QTEST(found ? static_cast<int>(found - url.c_str()) : -1, "place");
    QVERIFY(!UrlGetLocation_X(nullptr));
}

void tst_ParseUrl::fixup_data()
{
    QTest::addColumn<DWORD>("capacity");
    QTest::addColumn<std::wstring>("expected");
    QTest::newRow("more than enough") << 8u << L"htp:x|##"s;
    QTest::newRow("exactly enough") << 6u << L"htp:x|##"s;
    QTest::newRow("one too few") << 5u << L"htp:|###"s;
    QTest::newRow("room for the terminator") << 1u << L"|#######"s;
    QTest::newRow("no room") << 0u << L"########"s;
    QTest::newRow("largest") << 0xFFFFFFFFu << L"htp:x|##"s;
}

void tst_ParseUrl::fixup()
{
    QFETCH(DWORD, capacity);
    std::wstring buffer(8, L'#');
    QCOMPARE(UrlFixup_X(L"htp:x", buffer.data(), capacity), S_OK); // nothing is repaired
    std::replace(buffer.begin(), buffer.end(), L'\0', L'|');
    QTEST(buffer, "expected");

    QCOMPARE(shown(UrlFixup_X(nullptr, buffer.data(), capacity)), QStringLiteral("0x80004005"));
    QCOMPARE(shown(UrlFixup_X(L"x", nullptr, capacity)), QStringLiteral("0x80070057"));
}

void tst_ParseUrl::longTexts()
{
    const std::wstring scheme(million, L'a');
    const std::wstring url = scheme + L':' + scheme + L'/';
    const tagPARSEDURLW parts = parsed(url.c_str());
    QCOMPARE(parts.cchProtocol, UINT(million));
    QCOMPARE(parts.cchSuffix, UINT(million + 1));
    QCOMPARE(UrlIs_X(url.c_str(), URLIS_DIRECTORY), TRUE);
    QCOMPARE(UrlIs_X(url.c_str(), URLIS_FILEURL), FALSE);
}

XE_GUILESS_TEST(tst_ParseUrl)
#include "tst_parseurl.moc"
