// The parts of a URL, and the buffer that takes one.

#include "testclass.h"
#include "urltext.h"

class tst_UrlGetPart : public QObject
{
    Q_OBJECT

private slots:
    void parts_data();
    void parts();
    void absent_data();
    void absent();
    void sizes_data();
    void sizes();
    void refuses_data();
    void refuses();
    void longTexts();
};

namespace {

constexpr DWORD room = 40;

// "S_OK:" and the part; otherwise the result alone, with what the call should not have written.
QString partOf(const std::wstring& url, DWORD part)
{
    wchar_t buffer[room] = L"untouched";
    DWORD size = room;
    const HRESULT result = UrlGetPart_X(url.c_str(), buffer, &size, part, 0);
    const QString text = QString::fromWCharArray(buffer);
    if (result == S_OK)
        return QStringLiteral("S_OK:") + text + (size == DWORD(text.size()) ? QString() : QStringLiteral(" (size)"));
    return shown(result) + text + (size == room ? QString() : QStringLiteral(" (size)"));
}

const QString absentPart = QStringLiteral("0x00000001");
const QString otherScheme = QStringLiteral("0x80004005");
const QString invalidArgument = QStringLiteral("0x80070057");

} // namespace

void tst_UrlGetPart::parts_data()
{
    QTest::addColumn<std::wstring>("url");
    QTest::addColumn<DWORD>("part");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* name, const wchar_t* url, DWORD part, const char* expected) {
        QTest::newRow(name) << std::wstring(url) << part << QStringLiteral("S_OK:") + QString::fromUtf8(expected);
    };

    const wchar_t* const whole = L"http://u:p@h:80/x?q=1";
    add("scheme", whole, 1, "http");
    add("host", whole, 2, "h");
    add("user name", whole, 3, "u");
    add("password", whole, 4, "p");
    add("port", whole, 5, "80");
    add("query", whole, 6, "?q=1");

    add("scheme: unknown", L"foo://h", 1, "foo");
    add("scheme: without a host", L"mailto:a", 1, "mailto");
    add("scheme: one letter", L"c:\\x", 1, "c");
    add("scheme: digits and signs", L"a+b-c.9:", 1, "a+b-c.9");
    add("scheme: outside ASCII", L"\xE9\x42F:", 1, "\xC3\xA9\xD0\xAF");
    add("host: blank, star, signs", L"http://a b*c-d.e/", 2, "a b*c-d.e");
    add("host: letters outside ASCII", L"http://\x4E2D\xE9/", 2, "\xE4\xB8\xAD\xC3\xA9");
    add("host: ends at another sign", L"http://a_b/", 2, "a");
    add("host: ends at the question mark", L"http://h?q", 2, "h");
    add("host: with what looks like a password", L"http://h:80/", 2, "h");
    add("host: a percent sign is no part of it", L"http://a%41b/", 2, "a");
    add("host: ftp", L"ftp://h", 2, "h");
    add("host: gopher", L"gopher://h", 2, "h");
    add("host: telnet", L"telnet://h", 2, "h");
    add("host: https", L"https://h", 2, "h");
    add("host: file", L"file://h/x", 2, "h");
    add("host: file, one letter without a colon", L"file://h", 2, "h");
    add("host: http, one letter with a colon", L"http://c:/x", 2, "c");
    add("host: file, two letters with a colon", L"file://cd:/x", 2, "cd");
    add("user name: alone", L"http://u@h/", 3, "u");
    add("user name: every sign", L"http:// !$&'()*+,-.;=?_@h/", 3, " !$&'()*+,-.;=?_");
    add("user name: digits behind a percent sign", L"http://a%41%2fb@h/", 3, "a%41%2fb");
    add("user name: file", L"file://u@h/", 3, "u");
    add("password: every sign", L"ftp://u: !$&'()*+,-.;=?_@h/", 4, " !$&'()*+,-.;=?_");
    add("password: without a user name", L"ftp://:p@h", 4, "p");
    add("host: behind a user name", L"ftp://u@h", 2, "h");
    add("host: behind an empty user name", L"ftp://@h", 2, "h");
    add("port: without a host", L"http://:8/", 5, "8");
    add("port: ends at another sign", L"http://h:8x/", 5, "8");
    add("port: leading zeros stay", L"http://u@h:0080", 5, "0080");
    add("query: first question mark", L"http://h/a?b?c", 6, "?b?c");
    add("query: to the end, location included", L"http://h/?q#l/m", 6, "?q#l/m");
    add("query: behind the port", L"https://h:8/?q", 6, "?q");
    add("query: without a host", L"file:///c:/x?q", 6, "?q");
    add("query: the one of the user name counts not", L"http://u?v@h/?q", 6, "?q");
}

void tst_UrlGetPart::parts()
{
    QFETCH(std::wstring, url);
    QFETCH(DWORD, part);
    QTEST(partOf(url, part), "expected");
}

void tst_UrlGetPart::absent_data()
{
    QTest::addColumn<std::wstring>("url");
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("query");
    const QString http = QStringLiteral("S_OK:http");
    const QString host = QStringLiteral("S_OK:h");
    const auto add = [](const char* name, const wchar_t* url, const QString& scheme, const QString& hostName,
                        const QString& user, const QString& password, const QString& port, const QString& query) {
        QTest::newRow(name) << std::wstring(url) << scheme << hostName << user << password << port << query;
    };
    const auto addNoScheme = [add](const char* name, const wchar_t* url) {
        add(name, url, absentPart, invalidArgument, invalidArgument, invalidArgument, invalidArgument, absentPart);
    };
    const auto addOtherScheme = [add](const char* name, const wchar_t* url, const QString& scheme) {
        add(name, url, scheme, otherScheme, otherScheme, otherScheme, otherScheme, otherScheme);
    };

    addNoScheme("empty text", L"");
    addNoScheme("file name", L"index.htm");
    addNoScheme("path with a query", L"/a/b?q");
    addNoScheme("host without a scheme", L"//u:p@h:80/x?q");
    addNoScheme("scheme in capital letters", L"HTTP://h");
    addNoScheme("scheme with a capital letter", L"hTtp://h");
    addNoScheme("blank in front", L" http://h");
    addOtherScheme("unknown scheme", L"foo://u:p@h:80/x?q", QStringLiteral("S_OK:foo"));
    addOtherScheme("known scheme without parts", L"mailto:a@h?q", QStringLiteral("S_OK:mailto"));
    addOtherScheme("drive", L"c:/x?q", QStringLiteral("S_OK:c"));
    addOtherScheme("nothing before the colon", L"://h/?q", absentPart);

    add("no slashes", L"http:h/x?q", http, absentPart, absentPart, absentPart, absentPart, absentPart);
    add("one slash", L"http:/h/x?q", http, absentPart, absentPart, absentPart, absentPart, absentPart);
    add("nothing but slashes", L"http://", http, absentPart, absentPart, absentPart, absentPart, absentPart);
    add("host alone", L"http://h", http, host, absentPart, absentPart, absentPart, absentPart);
    add("query without a slash", L"http://h?q", http, host, absentPart, absentPart, absentPart, absentPart);
    add("empty parts, and a query without content", L"http://:@h:/?", http, host, absentPart, absentPart, absentPart,
        QStringLiteral("S_OK:?"));
    add("nothing before the at sign", L"http://@h/", http, host, absentPart, absentPart, absentPart, absentPart);
    add("slash in the user name", L"http://h/v@w", http, host, absentPart, absentPart, absentPart, absentPart);
    add("port with a letter", L"http://h:x/?q", http, host, absentPart, absentPart, absentPart, absentPart);
    add("percent sign with one digit", L"http://h%4@w", http, host, absentPart, absentPart, absentPart, absentPart);
    add("percent sign with no digits", L"http://h%zz@w", http, host, absentPart, absentPart, absentPart, absentPart);
    add("drive of a file", L"file://c:/x", QStringLiteral("S_OK:file"), absentPart, absentPart, absentPart, absentPart,
        absentPart);
    add("file without a host", L"file:///x", QStringLiteral("S_OK:file"), absentPart, absentPart, absentPart,
        absentPart, absentPart);
}

void tst_UrlGetPart::absent()
{
    QFETCH(std::wstring, url);
    QTEST(partOf(url, URL_PART_SCHEME), "scheme");
    QTEST(partOf(url, URL_PART_HOSTNAME), "host");
    QTEST(partOf(url, URL_PART_USERNAME), "user");
    QTEST(partOf(url, URL_PART_PASSWORD), "password");
    QTEST(partOf(url, URL_PART_PORT), "port");
    QTEST(partOf(url, URL_PART_QUERY), "query");
    QCOMPARE(partOf(url, URL_PART_NONE), invalidArgument);
    QCOMPARE(partOf(url, 7), invalidArgument);
    QCOMPARE(partOf(url, 0xFFFFFFFF), invalidArgument);
}

void tst_UrlGetPart::sizes_data()
{
    QTest::addColumn<DWORD>("part");
    QTest::addColumn<DWORD>("flags");
    QTest::addColumn<DWORD>("size");
    QTest::addColumn<QString>("result");
    QTest::addColumn<DWORD>("newSize");
    QTest::addColumn<std::wstring>("expected");
    const QString ok = QStringLiteral("0x00000000");
    const QString tooSmall = QStringLiteral("0x80004003");
    QTest::newRow("exactly enough") << 2u << 0u << 5u << ok << 4u << L"host"s;
    QTest::newRow("more than enough") << 2u << 0u << 9u << ok << 4u << L"host"s;
    QTest::newRow("no room for the terminator") << 2u << 0u << 4u << tooSmall << 5u << L""s;
    QTest::newRow("one element") << 2u << 0u << 1u << tooSmall << 5u << L""s;
    QTest::newRow("scheme, exactly enough") << 1u << 0u << 4u << ok << 3u << L"ftp"s;
    QTest::newRow("with its scheme, exactly enough") << 2u << 1u << 9u << ok << 8u << L"ftp:host"s;
    QTest::newRow("with its scheme, one too few") << 2u << 1u << 8u << tooSmall << 9u << L""s;
    QTest::newRow("with its scheme, enough without") << 2u << 1u << 5u << tooSmall << 9u << L""s;
    QTest::newRow("scheme with its scheme") << 1u << 1u << 8u << ok << 7u << L"ftp:ftp"s;
    QTest::newRow("port with its scheme") << 5u << 1u << 9u << ok << 6u << L"ftp:21"s;
    QTest::newRow("other flags are ignored") << 2u << 2u << 5u << ok << 4u << L"host"s;
    QTest::newRow("absent with its scheme") << 3u << 1u << 9u << absentPart << 9u << L""s;
}

void tst_UrlGetPart::sizes()
{
    QFETCH(DWORD, part);
    QFETCH(DWORD, flags);
    QFETCH(DWORD, size);
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[size]); // no element more
    QTEST(shown(UrlGetPart_X(L"ftp://host:21/x", buffer.get(), &size, part, flags)), "result");
    QTEST(size, "newSize");
    QTEST(std::wstring(buffer.get()), "expected");
}

void tst_UrlGetPart::refuses_data()
{
    QTest::addColumn<bool>("withUrl");
    QTest::addColumn<bool>("withBuffer");
    QTest::addColumn<bool>("withSize");
    QTest::addColumn<DWORD>("size");
    QTest::newRow("no text") << false << true << true << 10u;
    QTest::newRow("no buffer") << true << false << true << 10u;
    QTest::newRow("no size") << true << true << false << 10u;
    QTest::newRow("size 0") << true << true << true << 0u;
}

void tst_UrlGetPart::refuses()
{
    QFETCH(bool, withUrl);
    QFETCH(bool, withBuffer);
    QFETCH(bool, withSize);
    QFETCH(DWORD, size);
    wchar_t buffer[10] = L"untouched";
    DWORD sizeAfter = size;
    const HRESULT result = UrlGetPart_X(withUrl ? L"http://h" : nullptr, withBuffer ? buffer : nullptr,
                                        withSize ? &sizeAfter : nullptr, URL_PART_HOSTNAME, 0);
    QCOMPARE(shown(result), invalidArgument);
    QCOMPARE(sizeAfter, size);
    QCOMPARE(std::wstring(buffer), L"untouched"s);
}

void tst_UrlGetPart::longTexts()
{
    const std::wstring run(million, L'a');
    const std::wstring query = L'?' + run.substr(1);
    const std::wstring url = L"http://" + run + L':' + run + L'@' + run + L":8/" + run + query;
    std::wstring buffer(million + 1, L'#');
    for (const DWORD part : {URL_PART_HOSTNAME, URL_PART_USERNAME, URL_PART_PASSWORD, URL_PART_QUERY}) {
        auto size = static_cast<DWORD>(buffer.size());
        QCOMPARE(UrlGetPart_X(url.c_str(), buffer.data(), &size, part, 0), S_OK);
        QCOMPARE(size, DWORD(million));
        QVERIFY((part == URL_PART_QUERY ? query : run) == buffer.c_str());
    }
}

XE_GUILESS_TEST(tst_UrlGetPart)
#include "tst_urlgetpart.moc"
