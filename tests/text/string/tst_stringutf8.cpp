#include "testclass.h"
#include "textresult.h"

#include <clocale>

namespace {

const QString cannotDecode = QStringLiteral("range_error: wstring_convert::from_bytes");
const QString cannotEncode = QStringLiteral("range_error: wstring_convert::to_bytes");

} // namespace

/// The text as UTF-8 and the life of the copy that the object owns.
class tst_StringUtf8 : public QObject
{
    Q_OBJECT

private slots:
    void narrowText_data();
    void narrowText();
    void noLocaleMatters();
    void aZeroCutsTheNarrowText();
    void elementsWithoutUtf8_data();
    void elementsWithoutUtf8();
    void invalidUtf8_data();
    void invalidUtf8();
    void invalidUtf8AnywhereInLongText();
    void everyConstructorStartsWithoutACopy();
    void aCopyHasNoNarrowText();
    void assignmentKeepsTheNarrowText();
    void movesLeaveTheNarrowTextBehind();
    void changesKeepTheNarrowText();
    void theNextCallReplacesIt();
    void aFailedCallKeepsIt();
    void emptyTextIsNotOwned();
    void cleaning();
    void aMillionElements();
};

void tst_StringUtf8::narrowText_data()
{
    QTest::addColumn<std::wstring>("wide");
    QTest::addColumn<QByteArray>("narrow");
    const auto add = [](const char* name, const wchar_t* wide, const char* narrow) {
        QTest::newRow(name) << std::wstring(wide) << QByteArray(narrow);
    };
    add("ASCII", L"abc \x7F", "abc \x7F");
    add("the first of two bytes", L"\u0080", "\xC2\x80");
    add("the last of two bytes", L"\u07FF", "\xDF\xBF");
    add("the first of three bytes", L"\u0800", "\xE0\xA0\x80");
    add("the last before the surrogates", L"\uD7FF", "\xED\x9F\xBF");
    add("the first behind the surrogates", L"\uE000", "\xEE\x80\x80");
    add("a byte order mark", L"\uFEFF", "\xEF\xBB\xBF");
    add("the last of three bytes", L"\uFFFF", "\xEF\xBF\xBF");
    add("the first of four bytes", L"\U00010000", "\xF0\x90\x80\x80");
    add("the last of all", L"\U0010FFFF", "\xF4\x8F\xBF\xBF");
    add("mixed", L"aé日😀z", "a\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80z");
}

void tst_StringUtf8::narrowText()
{
    QFETCH(std::wstring, wide);
    QFETCH(QByteArray, narrow);
    CString_X text = wide;
    QCOMPARE(QByteArray(static_cast<const char*>(text)), narrow);
    QCOMPARE(QByteArray(text.Utf8Ptr()), narrow);
    QVERIFY(CString_X(narrow.constData()) == wide);
    CString_X assigned = L"old";
    assigned = narrow.constData();
    QVERIFY(assigned == wide);
    assigned = L"old";
    assigned = reinterpret_cast<const unsigned char*>(narrow.constData());
    QVERIFY(assigned == wide);
}

void tst_StringUtf8::noLocaleMatters()
{
    QCOMPARE(std::setlocale(LC_ALL, nullptr), "C");
    QCOMPARE(CString_X(L"日").Utf8Ptr(), "\xE6\x97\xA5");
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    QCOMPARE(CString_X(L"日").Utf8Ptr(), "\xE6\x97\xA5");
    QCOMPARE(thrownBy([] { CString_X("\xE9"); }), cannotDecode);
    std::setlocale(LC_ALL, "C");
}

void tst_StringUtf8::aZeroCutsTheNarrowText()
{
    CString_X text(L"ab\0cd", 5);
    QCOMPARE(text.Utf8Ptr(), "ab");
    text = CString_X(L"\0cd", 3);
    QCOMPARE(text.Utf8Ptr(), "");
    // The whole text is converted all the same.
    text = CString_X(L"ab\0\xD800", 4);
    QCOMPARE(thrownBy([&] { text.Utf8Ptr(); }), cannotEncode);
}

void tst_StringUtf8::elementsWithoutUtf8_data()
{
    QTest::addColumn<unsigned>("element");
    for (const unsigned element :
         {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU, 0x110000U, 0x1FFFFFU, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU})
        QTest::addRow("%x", element) << element;
}

void tst_StringUtf8::elementsWithoutUtf8()
{
    QFETCH(unsigned, element);
    for (int length = 0; length < 40; ++length) {
        CString_X text(L'x', length);
        const CString_X start = text;
        text += static_cast<wchar_t>(element);
        QCOMPARE(thrownBy([&] { text.Utf8Ptr(); }), cannotEncode);
        QCOMPARE(thrownBy([&] { (void)static_cast<const char*>(text); }), cannotEncode);
        text += start;
        QCOMPARE(thrownBy([&] { text.Utf8Ptr(); }), cannotEncode);
    }
    // Two surrogates are no pair here.
    CString_X pair(L"\xD83D\xDE00", 2);
    QCOMPARE(thrownBy([&] { pair.Utf8Ptr(); }), cannotEncode);
}

void tst_StringUtf8::invalidUtf8_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("FF") << QByteArray("\xFF");
    QTest::newRow("FE") << QByteArray("\xFE");
    QTest::newRow("a continuation alone") << QByteArray("\x80");
    QTest::newRow("continuations alone") << QByteArray("\xBF\xBF");
    QTest::newRow("a continuation too many") << QByteArray("\xC3\xA9\xA9");
    QTest::newRow("two bytes, truncated") << QByteArray("\xC3");
    QTest::newRow("two bytes, interrupted") << QByteArray("\xC3x");
    QTest::newRow("three bytes, truncated behind the first") << QByteArray("\xE6");
    QTest::newRow("three bytes, truncated behind the second") << QByteArray("\xE6\x97");
    QTest::newRow("three bytes, interrupted") << QByteArray("\xE6\x97x");
    QTest::newRow("three bytes, interrupted by a beginning") << QByteArray("\xE6\xE6\x97\xA5");
    QTest::newRow("four bytes, truncated") << QByteArray("\xF0\x9F\x98");
    QTest::newRow("four bytes, interrupted") << QByteArray("\xF0\x9Fxx");
    QTest::newRow("overlong slash in two bytes") << QByteArray("\xC0\xAF");
    QTest::newRow("overlong 0") << QByteArray("\xC0\x80");
    QTest::newRow("overlong, the last of two bytes") << QByteArray("\xC1\xBF");
    QTest::newRow("overlong in three bytes") << QByteArray("\xE0\x9F\xBF");
    QTest::newRow("overlong in four bytes") << QByteArray("\xF0\x8F\xBF\xBF");
    QTest::newRow("the first surrogate") << QByteArray("\xED\xA0\x80");
    QTest::newRow("the last surrogate") << QByteArray("\xED\xBF\xBF");
    QTest::newRow("a pair of surrogates") << QByteArray("\xED\xA0\xBD\xED\xB8\x80");
    QTest::newRow("the first behind the last of all") << QByteArray("\xF4\x90\x80\x80");
    QTest::newRow("F5") << QByteArray("\xF5\x80\x80\x80");
    QTest::newRow("five bytes") << QByteArray("\xF8\x88\x80\x80\x80");
    QTest::newRow("six bytes") << QByteArray("\xFC\x84\x80\x80\x80\x80");
    QTest::newRow("Latin-1") << QByteArray("caf\xE9");
}

void tst_StringUtf8::invalidUtf8()
{
    QFETCH(QByteArray, bytes);
    CString_X text = L"old";
    const auto* const unsignedBytes = reinterpret_cast<const unsigned char*>(bytes.constData());
    QCOMPARE(thrownBy([&] { CString_X object(bytes.constData()); }), cannotDecode);
    QCOMPARE(thrownBy([&] { text = bytes.constData(); }), cannotDecode);
    QCOMPARE(thrownBy([&] { text = unsignedBytes; }), cannotDecode);
    QCOMPARE(text, CString_X(L"old"));
}

void tst_StringUtf8::invalidUtf8AnywhereInLongText()
{
    for (int position = 0; position <= 70; ++position) {
        for (const char* invalid : {"\xFF", "\x80", "\xED\xA0\x80", "\xC3", "\xF0\x9F\x98"}) {
            QByteArray bytes(70, 'x');
            bytes.insert(position, invalid);
            QCOMPARE(thrownBy([&] { CString_X object(bytes.constData()); }), cannotDecode);
        }
        QByteArray bytes(70, 'x');
        bytes.insert(position, "\xF0\x9F\x98\x80");
        std::wstring expected(70, L'x');
        expected.insert(static_cast<std::size_t>(position), 1, L'\U0001F600');
        QVERIFY(CString_X(bytes.constData()) == expected);
        QCOMPARE(QByteArray(CString_X(expected).Utf8Ptr()), bytes);
    }
}

void tst_StringUtf8::everyConstructorStartsWithoutACopy()
{
    CString_X text = L"abc";
    text.Utf8Ptr();
    QVERIFY(text.utf8Cache);
    for (const char* cache :
         {CString_X().utf8Cache, CString_X(L"abc").utf8Cache, CString_X(L"abc", 2).utf8Cache,
          CString_X(L'x', 2).utf8Cache, CString_X("abc").utf8Cache, CString_X(QStringLiteral("abc")).utf8Cache,
          CString_X(std::wstring(L"abc")).utf8Cache, CString_X(text).utf8Cache, CString_X(CString_X(L"abc")).utf8Cache})
        QVERIFY(!cache);
}

void tst_StringUtf8::aCopyHasNoNarrowText()
{
    CString_X text = L"first";
    const char* const narrow = text;
    {
        CString_X copy = text;
        QVERIFY(!copy.utf8Cache);
        QCOMPARE(copy.Utf8Ptr(), "first");
        QVERIFY(copy.Utf8Ptr() != narrow);
    }
    QCOMPARE(narrow, "first");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
}

void tst_StringUtf8::assignmentKeepsTheNarrowText()
{
    CString_X text = L"first", other = L"second";
    other.Utf8Ptr();
    const char* const narrow = text;
    text = other;
    QCOMPARE(narrow, "first");
    text = L"x";
    text = L'x';
    text = "x";
    text = QStringLiteral("x");
    text = std::wstring(L"x");
    text = reinterpret_cast<const unsigned char*>("x");
    QCOMPARE(narrow, "first");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
    QCOMPARE(other.utf8Cache, "second");
}

void tst_StringUtf8::movesLeaveTheNarrowTextBehind()
{
    CString_X text = L"first";
    const char* const narrow = text;
    CString_X moved = std::move(text);
    QVERIFY(!moved.utf8Cache);
    QCOMPARE(narrow, "first");
    CString_X target = L"target";
    const char* const targetNarrow = target;
    target = std::move(moved);
    QCOMPARE(target, CString_X(L"first"));
    QCOMPARE(targetNarrow, "target");
    QCOMPARE(static_cast<const char*>(target.utf8Cache), targetNarrow);
}

void tst_StringUtf8::changesKeepTheNarrowText()
{
    CString_X text = L"first";
    const char* const narrow = text;
    text += L" more";
    text.AppendChar(L'!');
    text.Insert(0, L"the ");
    text.Replace(L"more", L"");
    text.Remove(L'!');
    text.MakeUpper();
    text.MakeReverse();
    text.Trim();
    text.SetAt(0, L'x');
    text.Delete(0, 2);
    text.Empty();
    QCOMPARE(narrow, "first");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
}

void tst_StringUtf8::theNextCallReplacesIt()
{
    CString_X text = L"first";
    text.Utf8Ptr();
    text = L"second";
    QCOMPARE(text.utf8Cache, "first"); // stale, and readable
    const char* const narrow = text;
    QCOMPARE(narrow, "second");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
    text = L"third";
    QCOMPARE(text.Utf8Ptr(), "third"); // by the plain name as well
    QCOMPARE(text.utf8Cache, "third");
}

void tst_StringUtf8::aFailedCallKeepsIt()
{
    CString_X text = L"first";
    const char* const narrow = text;
    text = L"\xD800";
    QCOMPARE(thrownBy([&] { text.Utf8Ptr(); }), cannotEncode);
    QCOMPARE(narrow, "first");
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
}

void tst_StringUtf8::emptyTextIsNotOwned()
{
    CString_X text;
    const char* const narrow = text;
    QVERIFY(narrow);
    QCOMPARE(*narrow, '\0');
    QVERIFY(!text.utf8Cache);
    text = L"first";
    text.Utf8Ptr();
    text.Empty();
    QCOMPARE(text.utf8Cache, "first");
    QCOMPARE(text.Utf8Ptr(), "");
    QVERIFY(!text.utf8Cache);
    {
        CString_X other;
        QVERIFY(other.Utf8Ptr());
    }
    QCOMPARE(*narrow, '\0'); // lives on
}

void tst_StringUtf8::cleaning()
{
    CString_X text = L"first";
    text.CleanUtf8Mem(); // nothing there
    text.Utf8Ptr();
    text.CleanUtf8Mem();
    QVERIFY(!text.utf8Cache);
    text.CleanUtf8Mem();
    QCOMPARE(text.Utf8Ptr(), "first");
}

void tst_StringUtf8::aMillionElements()
{
    constexpr int million = 1000000;
    QByteArray expected;
    for (int i = 0; i < million; ++i)
        expected += "\xF0\x9F\x98\x80";
    CString_X text(L'\U0001F600', million);
    QVERIFY(expected == text.Utf8Ptr());
    QVERIFY(CString_X(expected.constData()) == text);
    QVERIFY(CString_X(QByteArray(million, 'x').constData()) == CString_X(L'x', million));
}

XE_APPLESS_TEST(tst_StringUtf8)
#include "tst_stringutf8.moc"
