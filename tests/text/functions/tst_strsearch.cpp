// Searching for characters and texts: where they are found, and how far a search reads.

#include "testclass.h"
#include "textsupport.h"

#include <xestrapi.h>

#include <cwctype>
#include <random>

using namespace std::string_literals;

namespace {

constexpr UINT all = 0xFFFFFFFF;

// The slow way, for random texts.
bool matchesAt(const std::wstring& text, std::size_t at, const std::wstring& part)
{
    for (std::size_t i = 0; i < part.size(); ++i) {
        if (std::towlower(static_cast<std::wint_t>(text[at + i])) != std::towlower(static_cast<std::wint_t>(part[i])))
            return false;
    }
    return true;
}

long long firstMatch(const std::wstring& text, const std::wstring& part)
{
    for (std::size_t at = 0; !part.empty() && at + part.size() <= text.size(); ++at) {
        if (matchesAt(text, at, part))
            return static_cast<long long>(at);
    }
    return -1;
}

long long lastMatch(const std::wstring& text, const std::wstring& part)
{
    if (part.empty())
        return -1;
    for (auto at = static_cast<long long>(text.size()) - static_cast<long long>(part.size()); at >= 0; --at) {
        if (matchesAt(text, static_cast<std::size_t>(at), part))
            return at;
    }
    return -1;
}

std::wstring randomText(std::mt19937& random, std::size_t longest)
{
    const std::wstring letters = L"aAbB\xE4\xC4\x10400\x10428";
    std::wstring text(random() % (longest + 1), L'\0');
    for (wchar_t& ch : text)
        ch = letters[random() % letters.size()];
    return text;
}

} // namespace

class tst_StrSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(setUtf8Locale()); }
    void character_data();
    void character();
    void terminator();
    void lastOtherCharacter_data();
    void lastOtherCharacter();
    void leadingRun_data();
    void leadingRun();
    void part_data();
    void part();
    void partWithinCount_data();
    void partWithinCount();
    void lastPart_data();
    void lastPart();
    void randomTexts();
    void readsNoFurtherThanCounted();
    void longTexts();
    void nullFindsNothing();
};

void tst_StrSearch::character_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<wchar_t>("character");
    QTest::addColumn<UINT>("count");
    QTest::addColumn<int>("exact");
    QTest::addColumn<int>("folded");

    QTest::newRow("the first of several") << L"abcabc"s << L'b' << all << 1 << 1;
    QTest::newRow("missing") << L"abc"s << L'x' << all << -1 << -1;
    QTest::newRow("lower case for upper case") << L"aBcb"s << L'b' << all << 3 << 1;
    QTest::newRow("upper case for lower case") << L"abcB"s << L'B' << all << 3 << 1;
    QTest::newRow("no ASCII letter folds") << L"\xE4\xC4"s << wchar_t(0xC4) << all << 1 << 1;
    QTest::newRow("neighbours of the letters do not fold") << L"[{@`"s << L'{' << all << 1 << 1;
    QTest::newRow("a letter of a high plane does not fold") << L"\x10400z"s << wchar_t(0x10428) << all << -1 << -1;
    QTest::newRow("the low bits alone do not match") << L"\x10041z"s << L'A' << all << -1 << -1;
    QTest::newRow("a lone surrogate") << L"a\xD800"s << wchar_t(0xD800) << all << 1 << 1;
    QTest::newRow("a value that is no character") << L"ab"s << wchar_t(-1) << all << -1 << -1;
    QTest::newRow("the last one counted") << L"abc"s << L'c' << 3U << 2 << 2;
    QTest::newRow("the first one not counted") << L"abc"s << L'c' << 2U << -1 << -1;
    QTest::newRow("a count of 0") << L"abc"s << L'a' << 0U << -1 << -1;
    QTest::newRow("beyond the terminator") << L"ab\0c"s << L'c' << 4U << -1 << -1;
    QTest::newRow("an empty text") << L""s << L'a' << all << -1 << -1;
}

void tst_StrSearch::character()
{
    QFETCH(std::wstring, text);
    QFETCH(wchar_t, character);
    QFETCH(UINT, count);
    QFETCH(int, exact);
    QFETCH(int, folded);
    const wchar_t* const start = text.c_str();
    QCOMPARE(placeOf<wchar_t>(StrChrN_X(start, character, count), start), exact);
    QCOMPARE(placeOf<wchar_t>(StrChrNI_X(start, character, count), start), folded);
    if (count == all) {
        QCOMPARE(placeOf<wchar_t>(StrChr_X(start, character), start), exact);
        QCOMPARE(placeOf<wchar_t>(StrChrI_X(start, character), start), folded);
    }
}

void tst_StrSearch::terminator()
{
    const wchar_t text[] = L"ab";
    QCOMPARE(StrChr_X(text, L'\0'), text + 2);
    QVERIFY(!StrChrI_X(text, L'\0'));
    QVERIFY(!StrChrN_X(text, L'\0', 3));
    QVERIFY(!StrChrNI_X(text, L'\0', 3));
}

void tst_StrSearch::lastOtherCharacter_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<int>("end"); // -1: null
    QTest::addColumn<wchar_t>("character");
    QTest::addColumn<int>("expected");

    QTest::newRow("the last character that differs") << L"abcc"s << -1 << L'c' << 1;
    QTest::newRow("the last character, when none is equal") << L"abc"s << -1 << L'x' << 2;
    QTest::newRow("none differs") << L"ccc"s << -1 << L'c' << -1;
    QTest::newRow("case makes a difference") << L"cC"s << -1 << L'c' << 1;
    QTest::newRow("high bits make no difference") << L"a\x10063"s << -1 << L'c' << 0;
    QTest::newRow("up to the end") << L"abcc"s << 1 << L'c' << 0;
    QTest::newRow("the end itself is not looked at") << L"ccx"s << 2 << L'c' << -1;
    QTest::newRow("the end is the start") << L"abc"s << 0 << L'x' << -1;
    QTest::newRow("an empty text") << L""s << -1 << L'x' << -1;
}

void tst_StrSearch::lastOtherCharacter()
{
    QFETCH(std::wstring, text);
    QFETCH(int, end);
    QFETCH(wchar_t, character);
    QFETCH(int, expected);
    const wchar_t* const start = text.c_str();
    QCOMPARE(placeOf<wchar_t>(StrRChrI_X(start, end < 0 ? nullptr : start + end, character), start), expected);
}

void tst_StrSearch::leadingRun_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<std::wstring>("set");
    QTest::addColumn<int>("expected");

    QTest::newRow("up to a character of the set") << L"abcd"s << L"xc"s << 2;
    QTest::newRow("by ASCII folding") << L"abCd"s << L"c"s << 2;
    QTest::newRow("no other letter folds") << L"a\xC4"s << L"\xE4"s << 2;
    QTest::newRow("at once") << L"abc"s << L"a"s << 0;
    QTest::newRow("the whole text") << L"abc"s << L"x"s << 3;
    QTest::newRow("an empty set") << L"abc"s << L""s << 3;
    QTest::newRow("an empty text") << L""s << L"a"s << 0;
}

void tst_StrSearch::leadingRun()
{
    QFETCH(std::wstring, text);
    QFETCH(std::wstring, set);
    QTEST(StrCSpnI_X(text.c_str(), set.c_str()), "expected");
}

void tst_StrSearch::part_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<std::wstring>("part");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");

    QTest::newRow("once") << L"abcdef"s << L"cd"s << 2 << 2;
    QTest::newRow("twice") << L"xabab"s << L"ab"s << 1 << 3;
    QTest::newRow("overlapping") << L"aaa"s << L"aa"s << 0 << 1;
    QTest::newRow("folded both ways") << L"xAbxaB"s << L"aB"s << 1 << 4;
    QTest::newRow("letters beyond ASCII fold") << L"x\xC4\x0416"s << L"\xE4\x0436"s << 1 << 1;
    QTest::newRow("letters of a high plane fold") << L"x\x10400"s << L"\x10428"s << 1 << 1;
    QTest::newRow("a lone surrogate") << L"a\xDC00z"s << L"\xDC00"s << 1 << 1;
    QTest::newRow("the whole text") << L"abc"s << L"ABC"s << 0 << 0;
    QTest::newRow("at the end") << L"xxab"s << L"ab"s << 2 << 2;
    QTest::newRow("cut off by the end") << L"xxab"s << L"abc"s << -1 << -1;
    QTest::newRow("longer than the text") << L"ab"s << L"abab"s << -1 << -1;
    QTest::newRow("an empty part") << L"ab"s << L""s << -1 << -1;
    QTest::newRow("an empty text") << L""s << L"a"s << -1 << -1;
}

void tst_StrSearch::part()
{
    QFETCH(std::wstring, text);
    QFETCH(std::wstring, part);
    const wchar_t* const start = text.c_str();
    QTEST(static_cast<int>(placeOf<wchar_t>(StrStrI_X(start, part.c_str()), start)), "first");
    QTEST(static_cast<int>(placeOf<wchar_t>(StrStrNI_X(start, part.c_str(), all), start)), "first");
    QTEST(static_cast<int>(placeOf<wchar_t>(StrRStrI_X(start, nullptr, part.c_str()), start)), "last");
}

void tst_StrSearch::partWithinCount_data()
{
    QTest::addColumn<std::wstring>("part");
    QTest::addColumn<UINT>("count");
    QTest::addColumn<int>("exact"); // in "abCDcdab"
    QTest::addColumn<int>("folded");

    QTest::newRow("case decides") << L"cd"s << 8U << 4 << 2;
    QTest::newRow("the last counted place") << L"CD"s << 4U << 2 << 2;
    QTest::newRow("a part that is counted in part") << L"CD"s << 3U << -1 << -1;
    QTest::newRow("no more than the text") << L"cdab"s << all << 4 << 4;
    QTest::newRow("a count of 0") << L"a"s << 0U << -1 << -1;
    QTest::newRow("an empty part") << L""s << 8U << -1 << -1;
    QTest::newRow("missing") << L"ba"s << 8U << -1 << -1;
}

void tst_StrSearch::partWithinCount()
{
    QFETCH(std::wstring, part);
    QFETCH(UINT, count);
    const wchar_t text[] = L"abCDcdab";
    QTEST(static_cast<int>(placeOf<wchar_t>(StrStrN_X(text, part.c_str(), count), text)), "exact");
    QTEST(static_cast<int>(placeOf<wchar_t>(StrStrNI_X(text, part.c_str(), count), text)), "folded");
}

void tst_StrSearch::lastPart_data()
{
    QTest::addColumn<int>("end"); // in "abABab", for "ab"
    QTest::addColumn<int>("expected");

    QTest::newRow("the end of the text") << 6 << 4;
    QTest::newRow("an end within a match") << 5 << 2;
    QTest::newRow("an end behind a match") << 4 << 2;
    QTest::newRow("an end behind the first match") << 2 << 0;
    QTest::newRow("an end within the first match") << 1 << -1;
    QTest::newRow("the end is the start") << 0 << -1;
}

void tst_StrSearch::lastPart()
{
    QFETCH(int, end);
    const wchar_t text[] = L"abABab";
    QTEST(static_cast<int>(placeOf<wchar_t>(StrRStrI_X(text, text + end, L"ab"), text)), "expected");
    QVERIFY(!StrRStrI_X(text + 2, text, L"ab"));
    QVERIFY(!StrRChrI_X(text + 2, text, L'x'));
}

void tst_StrSearch::randomTexts()
{
    std::mt19937 random(79);
    for (int round = 0; round < 20000; ++round) {
        const std::wstring text = randomText(random, 12);
        const std::wstring part = randomText(random, 3);
        const std::size_t count = random() % 14;
        const wchar_t* const start = text.c_str();
        const std::wstring head = text.substr(0, count);
        QCOMPARE(placeOf<wchar_t>(StrStrI_X(start, part.c_str()), start), firstMatch(text, part));
        QCOMPARE(placeOf<wchar_t>(StrStrNI_X(start, part.c_str(), static_cast<UINT>(count)), start),
                 firstMatch(head, part));
        QCOMPARE(placeOf<wchar_t>(StrRStrI_X(start, nullptr, part.c_str()), start), lastMatch(text, part));
        QCOMPARE(placeOf<wchar_t>(StrRStrI_X(start, start + head.size(), part.c_str()), start), lastMatch(head, part));
    }
}

void tst_StrSearch::readsNoFurtherThanCounted()
{
    const auto block = exactBlock(L"abc"s);
    QVERIFY(!StrChrN_X(block.get(), L'x', 3));
    QVERIFY(!StrChrNI_X(block.get(), L'x', 3));
    QVERIFY(!StrStrN_X(block.get(), L"cd", 3));
    QVERIFY(!StrStrNI_X(block.get(), L"CD", 3));
    QVERIFY(!StrRStrI_X(block.get(), block.get() + 3, L"cd"));
    QCOMPARE(StrRChrI_X(block.get(), block.get() + 3, L'c'), block.get() + 1);
}

void tst_StrSearch::longTexts()
{
    std::wstring text(million, L'a');
    text += L'b';
    text += std::wstring(million, L'a');
    const wchar_t* const start = text.c_str();
    const wchar_t* const middle = start + million;
    QCOMPARE(StrChr_X(start, L'b'), middle);
    QCOMPARE(StrChrI_X(start, L'B'), middle);
    QCOMPARE(StrStrI_X(start, L"ABA"), middle - 1);
    QCOMPARE(StrStrN_X(start, L"aba", all), middle - 1);
    QCOMPARE(StrRStrI_X(start, nullptr, L"ABA"), middle - 1);
    QCOMPARE(StrRChrI_X(start, nullptr, L'a'), middle);
    QCOMPARE(StrCSpnI_X(start, L"xB"), static_cast<int>(million));
    QVERIFY(!StrStrI_X(start, L"bb"));
    QVERIFY(!StrRStrI_X(start, nullptr, L"bb"));
}

void tst_StrSearch::nullFindsNothing()
{
    QVERIFY(!StrChr_X(nullptr, L'a'));
    QVERIFY(!StrChrI_X(nullptr, L'a'));
    QVERIFY(!StrChrN_X(nullptr, L'a', 1));
    QVERIFY(!StrChrNI_X(nullptr, L'a', 1));
    QVERIFY(!StrRChrI_X(nullptr, nullptr, L'a'));
    QVERIFY(!StrRChrI_X(nullptr, L"a", L'b'));
    QCOMPARE(StrCSpnI_X(nullptr, L"a"), 0);
    QCOMPARE(StrCSpnI_X(L"a", nullptr), 0);
    QVERIFY(!StrStrI_X(nullptr, L"a"));
    QVERIFY(!StrStrI_X(L"a", nullptr));
    QVERIFY(!StrStrN_X(nullptr, L"a", 1));
    QVERIFY(!StrStrN_X(L"a", nullptr, 1));
    QVERIFY(!StrStrNI_X(nullptr, L"a", 1));
    QVERIFY(!StrStrNI_X(L"a", nullptr, 1));
    QVERIFY(!StrRStrI_X(nullptr, nullptr, L"a"));
    QVERIFY(!StrRStrI_X(L"a", nullptr, nullptr));
}

XE_GUILESS_TEST(tst_StrSearch)
#include "tst_strsearch.moc"
