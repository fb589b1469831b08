// Copying, appending and trimming: what exactly is written to a buffer, and what comes back.

#include "testclass.h"
#include "textsupport.h"

#include <xestrapi.h>

#include <functional>

using namespace std::string_literals;

namespace {

constexpr std::size_t capacity = 8;

// The buffer behind a call: the start text, its terminator, and "#" where nobody has written. Shown with "|" for 0.
class Buffer
{
public:
    explicit Buffer(const std::wstring& start) : m_elements(exactBlock(filled(start))) {}

    wchar_t* data() { return m_elements.get(); }

    std::wstring shown() const
    {
        std::wstring elements(m_elements.get(), capacity);
        std::replace(elements.begin(), elements.end(), L'\0', L'|');
        return elements;
    }

private:
    static std::wstring filled(std::wstring start)
    {
        start += L'\0';
        start.resize(capacity, L'#');
        return start;
    }

    std::unique_ptr<wchar_t[]> m_elements;
};

using Call = std::function<wchar_t*(wchar_t*)>;

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_StrCopy : public QObject
{
    Q_OBJECT

private slots:
    void writes_data();
    void writes();
    void nullChangesNothing_data();
    void nullChangesNothing();
    void chain_data();
    void chain();
    void chainOfCalls();
    void trim_data();
    void trim();
    void trimsLongText();
};

void tst_StrCopy::writes_data()
{
    QTest::addColumn<std::wstring>("start");
    QTest::addColumn<Call>("call");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const wchar_t* start, const Call& call, const wchar_t* expected) {
        QTest::newRow(name) << std::wstring(start) << call << std::wstring(expected);
    };

    add(
        "lstrcpy copies whole", L"vwxyz", [](wchar_t* d) { return lstrcpy_X(d, L"abc"); }, L"abc|z|##");
    add(
        "lstrcpy copies an empty text", L"xyz", [](wchar_t* d) { return lstrcpy_X(d, L""); }, L"|yz|####");
    add(
        "lstrcpy cuts off a head in place", L"--abc", [](wchar_t* d) { return lstrcpy_X(d, d + 2); }, L"abc|c|##");
    add(
        "lstrcpy keeps wide and lone elements", L"", [](wchar_t* d) { return lstrcpy_X(d, L"\x1F600\xD800"); },
        L"\x1F600\xD800|#####");

    add(
        "lstrcpyn cuts and terminates", L"", [](wchar_t* d) { return lstrcpyn_X(d, L"abcdef", 4); }, L"abc|####");
    add(
        "lstrcpyn fits exactly", L"", [](wchar_t* d) { return lstrcpyn_X(d, L"abc", 4); }, L"abc|####");
    add(
        "lstrcpyn does not pad", L"", [](wchar_t* d) { return lstrcpyn_X(d, L"ab", 8); }, L"ab|#####");
    add(
        "lstrcpyn of 1 terminates alone", L"xyz", [](wchar_t* d) { return lstrcpyn_X(d, L"abc", 1); }, L"|yz|####");
    add(
        "lstrcpyn of 0 writes nothing", L"xyz", [](wchar_t* d) { return lstrcpyn_X(d, L"abc", 0); }, L"xyz|####");
    add(
        "lstrcpyn of a negative count writes nothing", L"xyz",
        [](wchar_t* d) { return lstrcpyn_X(d, L"abc", INT_MIN); }, L"xyz|####");
    add(
        "lstrcpyn of null empties", L"xyz", [](wchar_t* d) { return lstrcpyn_X(d, nullptr, 8); }, L"|yz|####");
    add(
        "lstrcpyn of a huge count reads to the terminator", L"",
        [](wchar_t* d) { return lstrcpyn_X(d, L"abc", INT_MAX); }, L"abc|####");
    add(
        "lstrcpyn cuts off a head in place", L"-abc", [](wchar_t* d) { return lstrcpyn_X(d, d + 1, 8); }, L"abc||###");
    add(
        "lstrcpyn moves a text back in place", L"abc", [](wchar_t* d) { return lstrcpyn_X(d + 1, d, 4) - 1; },
        L"aabc|###");

    add(
        "StrCpyN cuts and terminates", L"", [](wchar_t* d) { return StrCpyN_X(d, L"abcdef", 4); }, L"abc|####");
    add(
        "StrCpyN of 2 copies one", L"", [](wchar_t* d) { return StrCpyN_X(d, L"abc", 2); }, L"a|######");
    add(
        "StrCpyN of 1 empties", L"xyz", [](wchar_t* d) { return StrCpyN_X(d, L"abc", 1); }, L"|yz|####");
    add(
        "StrCpyN of 0 empties", L"xyz", [](wchar_t* d) { return StrCpyN_X(d, L"abc", 0); }, L"|yz|####");
    add(
        "StrCpyN of a negative count empties", L"xyz", [](wchar_t* d) { return StrCpyN_X(d, L"abc", -5); },
        L"|yz|####");
    add(
        "StrCpyN of null empties", L"xyz", [](wchar_t* d) { return StrCpyN_X(d, nullptr, 8); }, L"|yz|####");

    add(
        "StrCat appends", L"ab", [](wchar_t* d) { return StrCat_X(d, L"cd"); }, L"abcd|###");
    add(
        "StrCat appends to nothing", L"", [](wchar_t* d) { return StrCat_X(d, L"cd"); }, L"cd|#####");
    add(
        "StrCat appends a text to itself", L"abc", [](wchar_t* d) { return StrCat_X(d, d); }, L"abcabc|#");
    add(
        "lstrcat appends", L"ab", [](wchar_t* d) { return lstrcat_X(d, L"cd"); }, L"abcd|###");

    add(
        "StrCatBuff counts the whole buffer", L"ab", [](wchar_t* d) { return StrCatBuff_X(d, L"cdef", 5); },
        L"abcd|###");
    add(
        "StrCatBuff appends what fits whole", L"ab", [](wchar_t* d) { return StrCatBuff_X(d, L"cd", 8); }, L"abcd|###");
    add(
        "StrCatBuff leaves a full buffer", L"ab", [](wchar_t* d) { return StrCatBuff_X(d, L"cd", 3); }, L"ab|#####");
    add(
        "StrCatBuff leaves a text that is too long", L"abcd", [](wchar_t* d) { return StrCatBuff_X(d, L"ef", 3); },
        L"abcd|###");
    add(
        "StrCatBuff leaves a buffer without terminator", L"abcdefgh",
        [](wchar_t* d) { return StrCatBuff_X(d, L"x", 8); }, L"abcdefgh");
    add(
        "StrCatBuff of capacity 0 writes nothing", L"ab", [](wchar_t* d) { return StrCatBuff_X(d, L"cd", 0); },
        L"ab|#####");
    add(
        "StrCatBuff of a negative capacity writes nothing", L"ab",
        [](wchar_t* d) { return StrCatBuff_X(d, L"cd", INT_MIN); }, L"ab|#####");

    add(
        "StrNCat appends one less than the count", L"ab", [](wchar_t* d) { return StrNCat_X(d, L"cdef", 3); },
        L"abcd|###");
    add(
        "StrNCat appends the whole of a short text", L"ab", [](wchar_t* d) { return StrNCat_X(d, L"c", INT_MAX); },
        L"abc|####");
    add(
        "StrNCat of 1 appends nothing", L"ab", [](wchar_t* d) { return StrNCat_X(d, L"cd", 1); }, L"ab|#####");
    add(
        "StrNCat of 0 appends nothing", L"ab", [](wchar_t* d) { return StrNCat_X(d, L"cd", 0); }, L"ab|#####");
    add(
        "StrNCat of a negative count appends nothing", L"ab", [](wchar_t* d) { return StrNCat_X(d, L"cd", -1); },
        L"ab|#####");
}

void tst_StrCopy::writes()
{
    QFETCH(std::wstring, start);
    QFETCH(Call, call);
    QFETCH(std::wstring, expected);
    Buffer buffer(start);
    QCOMPARE(call(buffer.data()), buffer.data());
    QCOMPARE(buffer.shown(), expected);
}

void tst_StrCopy::nullChangesNothing_data()
{
    QTest::addColumn<Call>("call");
    const auto add = [](const char* name, const Call& call) { QTest::newRow(name) << call; };

    add("lstrcpy to null", [](wchar_t* d) { return lstrcpy_X(nullptr, d); });
    add("lstrcpy from null", [](wchar_t* d) { return lstrcpy_X(d, nullptr); });
    add("lstrcpyn to null", [](wchar_t* d) { return lstrcpyn_X(nullptr, d, 2); });
    add("StrCpyN to null", [](wchar_t* d) { return StrCpyN_X(nullptr, d, 2); });
    add("StrCat to null", [](wchar_t* d) { return StrCat_X(nullptr, d); });
    add("StrCat from null", [](wchar_t* d) { return StrCat_X(d, nullptr); });
    add("lstrcat to null", [](wchar_t* d) { return lstrcat_X(nullptr, d); });
    add("lstrcat from null", [](wchar_t* d) { return lstrcat_X(d, nullptr); });
    add("StrCatBuff to null", [](wchar_t* d) { return StrCatBuff_X(nullptr, d, 8); });
    add("StrCatBuff from null", [](wchar_t* d) { return StrCatBuff_X(d, nullptr, 8); });
    add("StrNCat to null", [](wchar_t* d) { return StrNCat_X(nullptr, d, 8); });
    add("StrNCat from null", [](wchar_t* d) { return StrNCat_X(d, nullptr, 8); });
}

void tst_StrCopy::nullChangesNothing()
{
    QFETCH(Call, call);
    Buffer buffer(L"ab");
    QVERIFY(!call(buffer.data()));
    QCOMPARE(buffer.shown(), L"ab|#####"s);
}

void tst_StrCopy::chain_data()
{
    QTest::addColumn<std::wstring>("start");
    QTest::addColumn<DWORD>("size");
    QTest::addColumn<DWORD>("offset");
    QTest::addColumn<bool>("hasText"); // "xyz"
    QTest::addColumn<DWORD>("result");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const wchar_t* start, DWORD size, DWORD offset, bool hasText, DWORD result,
                        const wchar_t* expected) {
        QTest::newRow(name) << std::wstring(start) << size << offset << hasText << result << std::wstring(expected);
    };

    add("the end of the text", L"ab", 8, 0xFFFFFFFF, true, 5, L"abxyz|##");
    add("the end of the text, cut", L"ab", 5, 0xFFFFFFFF, true, 4, L"abxy|###");
    add("an offset within the text", L"abcdef", 8, 1, true, 4, L"axyz|f|#");
    add("the last element takes the terminator alone", L"abcdef", 4, 3, true, 3, L"abc|ef|#");
    add("a capacity of 1", L"ab", 1, 0, true, 0, L"|b|#####");
    add("a full buffer is terminated within", L"abcdef", 4, 4, true, 3, L"abc|ef|#");
    add("a full buffer without a text is left", L"abcdef", 4, 4, false, 3, L"abcdef|#");
    add("a capacity and an offset of 0", L"ab", 0, 0, true, 0xFFFFFFFF, L"ab|#####");
    add("a capacity of 0 and the end of the text", L"ab", 0, 0xFFFFFFFF, true, 0xFFFFFFFF, L"ab|#####");
    add("an offset past the capacity", L"ab", 4, 5, true, 5, L"ab|#####");
    add("an offset past a capacity of 0", L"ab", 0, 3, true, 3, L"ab|#####");
    add("no text", L"ab", 8, 1, false, 1, L"ab|#####");
    add("no text at the end of the text", L"ab", 8, 0xFFFFFFFF, false, 2, L"ab|#####");
    add("a buffer without terminator counts as full", L"abcdefgh", 8, 0xFFFFFFFF, true, 7, L"abcdefg|");
}

void tst_StrCopy::chain()
{
    QFETCH(std::wstring, start);
    QFETCH(DWORD, size);
    QFETCH(DWORD, offset);
    QFETCH(bool, hasText);
    QFETCH(DWORD, result);
    QFETCH(std::wstring, expected);
    Buffer buffer(start);
    QCOMPARE(StrCatChain_X(buffer.data(), size, offset, hasText ? L"xyz" : nullptr), result);
    QCOMPARE(buffer.shown(), expected);
    QCOMPARE(StrCatChain_X(nullptr, size, offset, L"xyz"), DWORD(0));
}

void tst_StrCopy::chainOfCalls()
{
    Buffer buffer(L"");
    DWORD offset = StrCatChain_X(buffer.data(), capacity, 0, L"ab");
    offset = StrCatChain_X(buffer.data(), capacity, offset, L"cde");
    QCOMPARE(offset, DWORD(5));
    offset = StrCatChain_X(buffer.data(), capacity, offset, L"fghi");
    offset = StrCatChain_X(buffer.data(), capacity, offset, L"jkl");
    QCOMPARE(offset, DWORD(7));
    QCOMPARE(buffer.shown(), L"abcdefg|"s);
}

void tst_StrCopy::trim_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<std::wstring>("set");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const wchar_t* text, const wchar_t* set, const wchar_t* expected) {
        QTest::newRow(name) << std::wstring(text) << std::wstring(set) << std::wstring(expected);
    };

    add("both ends", L" \tab ", L"\t ", L"ab");
    add("the head alone", L"--ab", L"-", L"ab");
    add("the tail alone", L"ab--", L"-", L"ab");
    add("the inside stays", L"-a-b-", L"-", L"a-b");
    add("one character is both ends", L"-", L"-", L"");
    add("nothing is left", L"-+-+", L"+-", L"");
    add("nothing to remove", L"ab", L"-", L"ab");
    add("an empty text", L"", L"-", L"");
    add("an empty set", L" ab ", L"", L" ab ");
    add("case matters", L"xXaX", L"x", L"XaX");
    add("wide and lone elements", L"\x1F600z\xD800", L"\xD800\x1F600", L"z");
}

void tst_StrCopy::trim()
{
    QFETCH(std::wstring, text);
    QFETCH(std::wstring, set);
    QFETCH(std::wstring, expected);
    const auto block = exactBlock(text + L'\0');
    QCOMPARE(StrTrim_X(block.get(), set.c_str()), text == expected ? 0 : 1);
    QCOMPARE(std::wstring(block.get()), expected);
    QCOMPARE(StrTrim_X(nullptr, set.c_str()), 0);
    QCOMPARE(StrTrim_X(block.get(), nullptr), 0);
}

void tst_StrCopy::trimsLongText()
{
    std::wstring blanks(million, L' ');
    std::wstring framed = blanks + L"a b" + blanks;
    QCOMPARE(StrTrim_X(framed.data(), L" "), 1);
    QCOMPARE(std::wstring(framed.c_str()), L"a b"s);
    QCOMPARE(StrTrim_X(blanks.data(), L" "), 1);
    QCOMPARE(std::wstring(blanks.c_str()), L""s);
}

XE_GUILESS_TEST(tst_StrCopy)
#include "tst_strcopy.moc"
