#include "testclass.h"
#include "textresult.h"

#include <xeconvert.h>

#include <clocale>
#include <cmath>

namespace {

const wchar_t* const null = nullptr;

} // namespace

/// The conversions by the C locale, and the functions of the Windows C runtime on texts.
class tst_Convert : public QObject
{
    Q_OBJECT

private slots:
    void init() { std::setlocale(LC_ALL, "C"); }
    void ascii_data();
    void ascii();
    void withoutALocaleOfTheHost();
    void withALocaleOfTheHost_data();
    void withALocaleOfTheHost();
    void invalidBytes_data();
    void invalidBytes();
    void invalidElements();
    void theLocaleArgumentIsIgnored();
    void aMillionElements();
    void numbers_data();
    void numbers();
    void nullRaises();
    void splitName_data();
    void splitName();
    void splitNameIntoThePathItself();
    void splitNameNulls();
    void token_data();
    void token();
    void tokensAreNotContinued();
    void upperCaseIsNotMade();
    void appendingNarrowText();
};

void tst_Convert::ascii_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("text") << QByteArray("abc 123\r\n~");
    QTest::newRow("longer than 256") << QByteArray(1000, 'x');
}

void tst_Convert::ascii()
{
    QFETCH(QByteArray, bytes);
    for (const char* locale : {"C", "C.UTF-8"}) {
        QVERIFY(std::setlocale(LC_ALL, locale));
        const std::string narrow = bytes.toStdString();
        const std::wstring wide(narrow.begin(), narrow.end());
        QCOMPARE(WideCharToMultiByte_X(wide, "chs"), narrow);
        QCOMPARE(_W2A(wide.c_str()), narrow);
        QVERIFY(MultiByteToWideChar_X(narrow, "chs") == wide);
    }
    QCOMPARE(WideCharToMultiByte_X(std::wstring(L"ab\0c", 4), "chs"), std::string("ab")); // up to the first 0
    QVERIFY(MultiByteToWideChar_X(std::string("ab\0c", 4), "chs") == L"ab");
}

void tst_Convert::withoutALocaleOfTheHost()
{
    QCOMPARE(WideCharToMultiByte_X(L"日本", "chs"), std::string());
    QCOMPARE(WideCharToMultiByte_X(L"abc日", "chs"), std::string());
    QCOMPARE(_W2A(L"é"), std::string());
    QCOMPARE(_wtof(L"3.5日"), 0.0);
}

void tst_Convert::withALocaleOfTheHost_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("two bytes") << QStringLiteral("é");
    QTest::newRow("three bytes") << QStringLiteral("日本語");
    QTest::newRow("four bytes") << QStringLiteral("😀\U0010FFFF");
    QTest::newRow("mixed") << QStringLiteral("aé日😀z");
}

void tst_Convert::withALocaleOfTheHost()
{
    QFETCH(QString, text);
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    const CString_X wide = text;
    QCOMPARE(WideCharToMultiByte_X(wide, "chs"), text.toStdString());
    QCOMPARE(_W2A(wide), text.toStdString());
    QCOMPARE(shown(MultiByteToWideChar_X(text.toStdString(), "chs")), text);
}

void tst_Convert::invalidBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("FF") << QByteArray("\xFF");
    QTest::newRow("behind ASCII") << QByteArray("abc\xFF");
    QTest::newRow("truncated") << QByteArray("\xE6\x97");
    QTest::newRow("overlong") << QByteArray("\xC0\xAF");
}

void tst_Convert::invalidBytes()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    QVERIFY(MultiByteToWideChar_X(bytes.toStdString(), "chs").empty());
}

void tst_Convert::invalidElements()
{
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    QCOMPARE(WideCharToMultiByte_X(L"abc\xD800", "chs"), std::string());
}

void tst_Convert::theLocaleArgumentIsIgnored()
{
    for (const char* locale : {static_cast<const char*>(nullptr), "", "chs", "C.UTF-8", "no_SUCH.locale"}) {
        QCOMPARE(WideCharToMultiByte_X(L"abc", locale), std::string("abc"));
        QVERIFY(MultiByteToWideChar_X("abc", locale) == L"abc");
        QCOMPARE(WideCharToMultiByte_X(L"日", locale), std::string());
    }
    QCOMPARE(std::setlocale(LC_ALL, nullptr), "C");
}

void tst_Convert::aMillionElements()
{
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    const std::wstring wide(1000000, L'日');
    const std::string narrow = WideCharToMultiByte_X(wide, "chs");
    QCOMPARE(narrow.size(), std::size_t(3000000));
    QVERIFY(MultiByteToWideChar_X(narrow, "chs") == wide);
}

void tst_Convert::numbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("3.5") << _wtof(L"3.5") << 3.5;
    QTest::newRow("empty") << _wtof(L"") << 0.0;
    QTest::newRow("no number") << _wtof(L"abc") << 0.0;
    QTest::newRow("blanks alone") << _wtof(L"  \t") << 0.0;
    QTest::newRow("negative") << _wtof(L"-0.25") << -0.25;
    QTest::newRow("with a plus") << _wtof(L"+2") << 2.0;
    QTest::newRow("exponent") << _wtof(L"1.5e3") << 1500.0;
    QTest::newRow("white space in front") << _wtof(L" \t\n7") << 7.0;
    QTest::newRow("text behind") << _wtof(L"7.5mm") << 7.5;
    QTest::newRow("no comma") << _wtof(L"7,5") << 7.0;
    QTest::newRow("hexadecimal, as the C library reads it") << _wtof(L"0x10") << 16.0;
    QTest::newRow("infinity, as the C library reads it") << _wtof(L"inf") << qInf();
    QTest::newRow("a sign alone") << _wtof(L"-") << 0.0;
    QTest::newRow("many digits") << _wtof(L"123456789.123456789") << 123456789.123456789;
}

void tst_Convert::numbers()
{
    QFETCH(double, value);
    QTEST(value, "expected");
}

void tst_Convert::nullRaises()
{
    QCOMPARE(thrownBy([] { _W2A(null); }), QStringLiteral("logic_error"));
    QCOMPARE(thrownBy([] { _wtof(null); }), QStringLiteral("logic_error"));
}

void tst_Convert::splitName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::newRow("name and extension") << "bolt.txt"
                                        << "bolt"
                                        << ".txt";
    QTest::newRow("at the last dot") << "bolt.m6.txt"
                                     << "bolt.m6"
                                     << ".txt";
    QTest::newRow("no dot") << "bolt"
                            << "bolt"
                            << "";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("with folders") << "/parts/bolt.txt"
                                  << "/parts/bolt"
                                  << ".txt";
    QTest::newRow("a dot in a folder") << "/parts.old/bolt"
                                       << "/parts"
                                       << ".old/bolt";
    QTest::newRow("a dot in front") << ".hidden"
                                    << ""
                                    << ".hidden";
    QTest::newRow("a dot at the end") << "bolt."
                                      << "bolt"
                                      << ".";
    QTest::newRow("a dot alone") << "."
                                 << ""
                                 << ".";
    QTest::newRow("dots") << ".."
                          << "."
                          << ".";
}

void tst_Convert::splitName()
{
    QFETCH(QString, path);
    const std::wstring wide = path.toStdWString();
    std::wstring name(wide.size() + 2, L'#'), extension(wide.size() + 2, L'#');
    _split_whole_name(wide.c_str(), name.data(), extension.data());
    QTEST(shown(name.c_str()), "name");
    QTEST(shown(extension.c_str()), "extension");
    QCOMPARE(name.back(), L'#'); // the last is not the function's
    QCOMPARE(extension.back(), L'#');
}

void tst_Convert::splitNameIntoThePathItself()
{
    wchar_t path[] = L"parts/bolt.txt";
    wchar_t extension[16];
    _split_whole_name(path, path, extension);
    QCOMPARE(shown(path), QStringLiteral("parts/bolt"));
    QCOMPARE(shown(extension), QStringLiteral(".txt"));

    wchar_t other[] = L"parts/bolt.txt";
    wchar_t name[16];
    _split_whole_name(other, name, other);
    QCOMPARE(shown(name), QStringLiteral("parts/bolt"));
    QCOMPARE(shown(other), QStringLiteral(".txt"));
}

void tst_Convert::splitNameNulls()
{
    wchar_t name[16] = L"old", extension[16] = L"old";
    _split_whole_name(null, name, extension);
    QCOMPARE(shown(name), QString());
    QCOMPARE(shown(extension), QString());
    _split_whole_name(L"bolt.txt", nullptr, extension);
    QCOMPARE(shown(extension), QStringLiteral(".txt"));
    _split_whole_name(L"bolt.txt", name, nullptr);
    QCOMPARE(shown(name), QStringLiteral("bolt"));
    _split_whole_name(L"bolt.txt", nullptr, nullptr);
}

void tst_Convert::token_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("token");
    QTest::newRow("the first of many") << "a,b,c"
                                       << "a";
    QTest::newRow("delimiters in front") << ",;ab;c"
                                         << "ab";
    QTest::newRow("the whole") << "abc"
                               << "abc";
}

void tst_Convert::token()
{
    QFETCH(QString, text);
    QFETCH(QString, token);
    std::wstring buffer = text.toStdWString();
    wchar_t* const found = _wcstok(buffer.data(), L",;");
    QVERIFY(found);
    QCOMPARE(shown(found), token);
    QCOMPARE(static_cast<int>(found - buffer.data()), text.indexOf(token));
}

void tst_Convert::tokensAreNotContinued()
{
    wchar_t text[] = L"a,b", delimitersAlone[] = L",,", nothing[] = L"";
    QVERIFY(_wcstok(text, L","));
    QVERIFY(!_wcstok(nullptr, L","));
    QVERIFY(!_wcstok(delimitersAlone, L","));
    QVERIFY(!_wcstok(nothing, L","));
    QVERIFY(!_wcstok(text, nullptr));
}

void tst_Convert::upperCaseIsNotMade()
{
    wchar_t text[] = L"abc";
    QVERIFY(_wcsupr(text) == text);
    QCOMPARE(shown(text), QStringLiteral("abc"));
    QVERIFY(!_wcsupr(nullptr));
}

void tst_Convert::appendingNarrowText()
{
    const QString left = QStringLiteral("é");
    QCOMPARE(QString(left + "\xE6\x97\xA5"), QStringLiteral("é日"));
    QCOMPARE(QString(left + ""), left);
    QCOMPARE(QString(left + static_cast<const char*>(nullptr)), left);
    CString_X narrow = L"日";
    QCOMPARE(QString(left + narrow.Utf8Ptr()), QStringLiteral("é日"));
    QCOMPARE(left, QStringLiteral("é"));
}

XE_APPLESS_TEST(tst_Convert)
#include "tst_convert.moc"
