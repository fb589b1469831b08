// BSTR texts: what they hold, what room they have, and which sizes are refused.

#include "testclass.h"
#include "textsupport.h"

#include <xestrapi.h>

#include <cstdlib>

using namespace std::string_literals;

namespace {

struct FreeText
{
    void operator()(wchar_t* text) const { SysFreeString_X(text); }
};

using Text = std::unique_ptr<wchar_t[], FreeText>;

std::wstring elements(const Text& text, std::size_t count) { return {text.get(), count}; }

} // namespace

class tst_Bstr : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(setUtf8Locale()); }
    void copies();
    void isPlainMemory();
    void cutsToLength();
    void clearsRoom();
    void convertsBytes();
    void holdsMoreBytesThanSaid();
    void brokenBytes();
    void refusedSizes();
    void lengths();
};

void tst_Bstr::copies()
{
    wchar_t original[] = L"a\x1F600\xD800";
    const Text copy(SysAllocString_X(original));
    QVERIFY(copy.get() != original);
    original[0] = L'x';
    QCOMPARE(std::wstring(copy.get()), L"a\x1F600\xD800"s);

    const Text empty(SysAllocString_X(L""));
    QVERIFY(empty);
    QCOMPARE(elements(empty, 1), L"\0"s);
    QVERIFY(!SysAllocString_X(nullptr));

    const std::wstring longText(million, L'q');
    const Text longCopy(SysAllocString_X(longText.c_str()));
    QVERIFY(longText == longCopy.get());
}

void tst_Bstr::isPlainMemory()
{
    std::free(SysAllocString_X(L"ab"));
    SysFreeString_X(static_cast<wchar_t*>(std::calloc(3, sizeof(wchar_t))));
    SysFreeString_X(nullptr);
}

void tst_Bstr::cutsToLength()
{
    const Text shorter(SysAllocStringLen_X(L"ab", 4));
    QCOMPARE(elements(shorter, 5), L"ab\0\0\0"s);
    const Text exact(SysAllocStringLen_X(L"abcd", 4));
    QCOMPARE(elements(exact, 5), L"abcd\0"s);
    const Text longer(SysAllocStringLen_X(L"abcdef", 4));
    QCOMPARE(elements(longer, 5), L"abcd\0"s);
    const Text none(SysAllocStringLen_X(L"abcdef", 0));
    QCOMPARE(elements(none, 1), L"\0"s);
    const Text withZero(SysAllocStringLen_X(L"a\0b", 3));
    QCOMPARE(elements(withZero, 4), L"a\0\0\0"s);

    const auto unterminated = exactBlock(L"abc"s);
    const Text copy(SysAllocStringLen_X(unterminated.get(), 3));
    QCOMPARE(elements(copy, 4), L"abc\0"s);
}

void tst_Bstr::clearsRoom()
{
    const Text wide(SysAllocStringLen_X(nullptr, 1000));
    QCOMPARE(elements(wide, 1001), std::wstring(1001, L'\0'));
    const Text none(SysAllocStringLen_X(nullptr, 0));
    QCOMPARE(elements(none, 1), L"\0"s);

    const Text narrow(SysAllocStringByteLen_X(nullptr, 400));
    QCOMPARE(elements(narrow, 101), std::wstring(101, L'\0'));
    const Text oddBytes(SysAllocStringByteLen_X(nullptr, 5));
    QCOMPARE(std::string(reinterpret_cast<const char*>(oddBytes.get()), 9), std::string(9, '\0'));
}

void tst_Bstr::convertsBytes()
{
    const Text text(SysAllocStringByteLen_X("a\xC3\xA4\xF0\x9F\x98\x80", 400));
    QCOMPARE(elements(text, 101), L"a\xE4\x1F600"s + std::wstring(98, L'\0'));
    const Text empty(SysAllocStringByteLen_X("", 0));
    QCOMPARE(elements(empty, 1), L"\0"s);
}

void tst_Bstr::holdsMoreBytesThanSaid()
{
    for (const UINT length : {0U, 1U, 5U, 6U}) {
        const Text text(SysAllocStringByteLen_X("abcdef", length));
        QCOMPARE(elements(text, 7), L"abcdef\0"s);
    }
}

void tst_Bstr::brokenBytes()
{
    const Text text(SysAllocStringByteLen_X("abc\xFF", 4));
    QCOMPARE(elements(text, 2), L"\0\0"s);
}

void tst_Bstr::refusedSizes()
{
    for (const UINT length : {0x80000000U, 0xFFFFFFFFU, static_cast<UINT>(-2)}) {
        QVERIFY(!SysAllocStringLen_X(nullptr, length));
        QVERIFY(!SysAllocStringLen_X(L"ab", length));
        QVERIFY(!SysAllocStringByteLen_X(nullptr, length));
        QVERIFY(!SysAllocStringByteLen_X("ab", length));
    }
}

void tst_Bstr::lengths()
{
    QCOMPARE(SysStringLen_X(L"ab"), 2U);
    QCOMPARE(SysStringByteLen_X(L"ab"), 8U);
    QCOMPARE(SysStringLen_X(L""), 0U);
    QCOMPARE(SysStringByteLen_X(L""), 0U);
    QCOMPARE(SysStringLen_X(L"\x1F600"), 1U);
    QCOMPARE(SysStringLen_X(nullptr), 0U);
    QCOMPARE(SysStringByteLen_X(nullptr), 0U);
    const Text room(SysAllocStringLen_X(L"ab", 100));
    QCOMPARE(SysStringLen_X(room.get()), 2U);
}

XE_GUILESS_TEST(tst_Bstr)
#include "tst_bstr.moc"
