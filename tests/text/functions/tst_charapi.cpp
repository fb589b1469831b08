// Case conversion in place, the steps from character to character, and ChrCmpI_X.

#include "testclass.h"
#include "textsupport.h"

#include <xestrapi.h>

using namespace std::string_literals;

namespace {

// Texts as a literal shows them, with all zeros that it holds.
template <std::size_t size>
std::string bytes(const char (&literal)[size])
{
    return {literal, size - 1};
}

} // namespace

Q_DECLARE_METATYPE(std::string)

class tst_CharApi : public QObject
{
    Q_OBJECT

private slots:
    void equality_data();
    void equality();
    void caseOfText();
    void caseOfEmptyText();
    void caseOfCharacterValue();
    void caseOfBuffer();
    void caseOfLongText();
    void sequenceLength_data();
    void sequenceLength();
    void nextByUtf8();
    void nextByElement();
    void leadBytes();
    void nullGivesNothing();
};

void tst_CharApi::equality_data()
{
    QTest::addColumn<wchar_t>("left");
    QTest::addColumn<wchar_t>("right");
    QTest::addColumn<int>("expected");

    QTest::newRow("equal gives 1") << L'a' << L'a' << 1;
    QTest::newRow("case gives 0") << L'a' << L'A' << 0;
    QTest::newRow("different gives 0") << L'a' << L'b' << 0;
    QTest::newRow("equal in the low 16 bits") << L'a' << wchar_t(0x10061) << 1;
    QTest::newRow("different in bit 15") << wchar_t(0x8061) << L'a' << 0;
    QTest::newRow("different in the low 16 bits alone") << wchar_t(0x1F600) << wchar_t(0x1F601) << 0;
    QTest::newRow("a value that is no character") << wchar_t(-1) << wchar_t(0xFFFF) << 1;
}

void tst_CharApi::equality()
{
    QFETCH(wchar_t, left);
    QFETCH(wchar_t, right);
    QTEST(ChrCmpI_X(left, right), "expected");
}

void tst_CharApi::caseOfText()
{
    char narrow[] = "@AZ[`az{ 1\xC3\x84\xC3\xA4";
    QVERIFY(CharLowerA_X(narrow) == narrow);
    QCOMPARE(narrow, "@az[`az{ 1\xC3\x84\xC3\xA4");
    QVERIFY(CharUpperA_X(narrow) == narrow);
    QCOMPARE(narrow, "@AZ[`AZ{ 1\xC3\x84\xC3\xA4");

    wchar_t wide[] = L"@AZ[`az{ 1\xC4\xE4\x10041\x10061\xD800";
    QVERIFY(CharLowerW_X(wide) == wide);
    QCOMPARE(std::wstring(wide), L"@az[`az{ 1\xC4\xE4\x10041\x10061\xD800"s);
    QVERIFY(CharUpperW_X(wide) == wide);
    QCOMPARE(std::wstring(wide), L"@AZ[`AZ{ 1\xC4\xE4\x10041\x10061\xD800"s);
}

void tst_CharApi::caseOfEmptyText()
{
    char narrow[] = "";
    wchar_t wide[] = L"";
    QVERIFY(!CharLowerA_X(narrow));
    QVERIFY(!CharUpperA_X(narrow));
    QVERIFY(!CharLowerW_X(wide));
    QVERIFY(!CharUpperW_X(wide));
}

void tst_CharApi::caseOfCharacterValue()
{
    const auto narrow = [](char* (*convert)(char*), quintptr value) {
        return reinterpret_cast<quintptr>(convert(reinterpret_cast<char*>(value)));
    };
    QCOMPARE(narrow(CharLowerA_X, 'A'), quintptr('a'));
    QCOMPARE(narrow(CharUpperA_X, 'z'), quintptr('Z'));
    QCOMPARE(narrow(CharUpperA_X, 0xE4), quintptr(0xE4));
    QCOMPARE(narrow(CharLowerA_X, 0), quintptr(0));
    QCOMPARE(narrow(CharUpperA_X, 0), quintptr(0));

    const auto wide = [](wchar_t* (*convert)(wchar_t*), quintptr value) {
        return reinterpret_cast<quintptr>(convert(reinterpret_cast<wchar_t*>(value)));
    };
    QCOMPARE(wide(CharLowerW_X, L'Z'), quintptr('z'));
    QCOMPARE(wide(CharUpperW_X, L'a'), quintptr('A'));
    QCOMPARE(wide(CharUpperW_X, 0xFFFF), quintptr(0xFFFF));
    QCOMPARE(wide(CharLowerW_X, 0), quintptr(0));
    QCOMPARE(wide(CharUpperW_X, 0), quintptr(0));
}

void tst_CharApi::caseOfBuffer()
{
    std::string narrow = bytes("Ab\0Cd\xC4");
    QCOMPARE(CharUpperBuffA_X(narrow.data(), 4), DWORD(4));
    QCOMPARE(narrow, bytes("AB\0Cd\xC4"));
    QCOMPARE(CharLowerBuffA_X(narrow.data(), 6), DWORD(6));
    QCOMPARE(narrow, bytes("ab\0cd\xC4"));

    std::wstring wide = L"Ab\0Cd\xC4"s;
    QCOMPARE(CharUpperBuffW_X(wide.data(), 4), DWORD(4));
    QCOMPARE(wide, L"AB\0Cd\xC4"s);
    QCOMPARE(CharLowerBuffW_X(wide.data(), 6), DWORD(6));
    QCOMPARE(wide, L"ab\0cd\xC4"s);

    QCOMPARE(CharUpperBuffA_X(narrow.data(), 0), DWORD(0));
    QCOMPARE(CharLowerBuffW_X(wide.data(), 0), DWORD(0));
    QCOMPARE(wide, L"ab\0cd\xC4"s);
}

void tst_CharApi::caseOfLongText()
{
    std::wstring text(million, L'q');
    QVERIFY(CharUpperW_X(text.data()) == text.data());
    QVERIFY(text == std::wstring(million, L'Q'));
}

void tst_CharApi::sequenceLength_data()
{
    QTest::addColumn<std::string>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("ASCII") << bytes("ab") << 1;
    QTest::newRow("the terminator") << bytes("") << 1;
    QTest::newRow("two bytes") << bytes("\xC3\xA4x") << 2;
    QTest::newRow("three bytes") << bytes("\xE2\x82\xAC") << 3;
    QTest::newRow("four bytes") << bytes("\xF0\x9F\x98\x80z") << 4;
    QTest::newRow("two bytes cut by the terminator") << bytes("\xC3") << 1;
    QTest::newRow("three bytes cut by the terminator") << bytes("\xE2\x82") << 1;
    QTest::newRow("four bytes cut by the terminator") << bytes("\xF0\x9F\x98") << 1;
    QTest::newRow("four bytes cut at once") << bytes("\xF0") << 1;
    QTest::newRow("two bytes with a broken end") << bytes("\xC3x") << 1;
    QTest::newRow("three bytes with a broken middle") << bytes("\xE2x\xAC") << 1;
    QTest::newRow("three bytes with a broken end") << bytes("\xE2\x82\xC3\xA4") << 1;
    QTest::newRow("four bytes with a broken end") << bytes("\xF0\x9F\x98z") << 1;
    QTest::newRow("a continuation byte alone") << bytes("\x80\x80") << 1;
    QTest::newRow("a lead of five bytes") << bytes("\xF8\x80\x80\x80\x80") << 1;
    QTest::newRow("the last byte value") << bytes("\xFF\x80") << 1;
}

void tst_CharApi::sequenceLength()
{
    QFETCH(std::string, text);
    QFETCH(int, expected);
    const auto block = exactBlock(text + '\0');
    QCOMPARE(IsDBCSLeadByte_X(static_cast<const char*>(block.get())), expected);
    QCOMPARE(placeOf<char>(CharNextA_X(block.get()), block.get()), text.empty() ? 0 : expected);
}

void tst_CharApi::nextByUtf8()
{
    const char text[] = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xE2\x82";
    QList<long long> places;
    for (const char* at = text; *at; at = CharNextA_X(at))
        places += at - text;
    QCOMPARE(places, (QList<long long>{0, 1, 3, 6, 10, 11}));
}

void tst_CharApi::nextByElement()
{
    const wchar_t text[] = L"\x1F600\xD800";
    QCOMPARE(CharNextW_X(text), text + 1);
    QCOMPARE(CharNextW_X(text + 1), text + 2);
    QCOMPARE(CharNextW_X(text + 2), text + 2);
}

void tst_CharApi::leadBytes()
{
    for (int byte = 0; byte < 256; ++byte)
        QCOMPARE(IsDBCSLeadByte_X(static_cast<unsigned char>(byte)), byte >= 129 && byte <= 254 ? 1 : 0);
}

void tst_CharApi::nullGivesNothing()
{
    QCOMPARE(CharLowerBuffA_X(nullptr, 3), DWORD(0));
    QCOMPARE(CharLowerBuffW_X(nullptr, 3), DWORD(0));
    QCOMPARE(CharUpperBuffA_X(nullptr, 3), DWORD(0));
    QCOMPARE(CharUpperBuffW_X(nullptr, 3), DWORD(0));
    QVERIFY(!CharNextA_X(nullptr));
    QVERIFY(!CharNextW_X(nullptr));
    QCOMPARE(IsDBCSLeadByte_X(nullptr), 0);
}

XE_GUILESS_TEST(tst_CharApi)
#include "tst_charapi.moc"
