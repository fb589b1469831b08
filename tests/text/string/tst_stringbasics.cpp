#include "testclass.h"
#include "textresult.h"
#include "textrows.h"

#include <climits>

namespace {

const wchar_t* const noWide = nullptr;
const char* const noNarrow = nullptr;

} // namespace

/// Construction, assignment, appending and single elements.
class tst_StringBasics : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void construction_data();
    void construction() { compare(); }
    void badConstruction();
    void lengthAndEmptiness();
    void emptyKeepsTheRoom();
    void copiesAreDeep();
    void moves();
    void assignment_data();
    void assignment();
    void assignmentFromItself();
    void assignmentFromItsTail_data();
    void assignmentFromItsTail();
    void assignmentFromItsRoom();
    void assignmentFromItsNarrowCopy();
    void appending_data();
    void appending() { compare(); }
    void appendingItself();
    void elements();
    void elementsOutside_data();
    void elementsOutside();
    void fromQString_data();
    void fromQString();
    void aMillionElements();
};

void tst_StringBasics::construction_data()
{
    columns();
    QTest::newRow("nothing") << shown(CString_X()) << "";
    QTest::newRow("wide text") << shown(CString_X(L"abc")) << "abc";
    QTest::newRow("wide text up to its first 0") << shown(CString_X(L"ab\0c")) << "ab";
    QTest::newRow("null wide text") << shown(CString_X(noWide)) << "";
    QTest::newRow("elements") << shown(CString_X(L"abcdef", 3)) << "abc";
    QTest::newRow("elements with zeros") << shown(CString_X(L"a\0b\0c", 4)) << QString::fromLatin1("a\0b\0", 4);
    QTest::newRow("no elements") << shown(CString_X(L"abc", 0)) << "";
    QTest::newRow("no elements of null") << shown(CString_X(noWide, 0)) << "";
    QTest::newRow("copies of a character") << shown(CString_X(L'x', 4)) << "xxxx";
    QTest::newRow("copies of 0") << shown(CString_X(L'\0', 2)) << QString::fromLatin1("\0\0", 2);
    QTest::newRow("no copies of a character") << shown(CString_X(L'x', 0)) << "";
    QTest::newRow("a character") << shown(CString_X(L'日')) << QStringLiteral("日");
    QTest::newRow("narrow text") << shown(CString_X("abc")) << "abc";
    QTest::newRow("narrow text as UTF-8")
        << shown(CString_X("\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80")) << QStringLiteral("é日😀");
    QTest::newRow("narrow text up to its first 0") << shown(CString_X("ab\0c")) << "ab";
    QTest::newRow("null narrow text") << shown(CString_X(noNarrow)) << "";
    QTest::newRow("null") << shown(CString_X(nullptr)) << "";
    QTest::newRow("a standard text with zeros")
        << shown(CString_X(std::wstring(L"a\0b", 3))) << QString::fromLatin1("a\0b", 3);
}

void tst_StringBasics::badConstruction()
{
    QCOMPARE(thrownBy([] { CString_X(L"abc", -1); }), QStringLiteral("length_error"));
    QCOMPARE(thrownBy([] { CString_X(L"abc", INT_MIN); }), QStringLiteral("length_error"));
    QCOMPARE(thrownBy([] { CString_X(noWide, -1); }), QStringLiteral("length_error"));
    QCOMPARE(thrownBy([] { CString_X(L'x', -1); }), QStringLiteral("length_error"));
}

void tst_StringBasics::lengthAndEmptiness()
{
    CString_X text;
    QCOMPARE(text.GetLength(), 0);
    QVERIFY(text.IsEmpty());
    QVERIFY(text.GetString());
    QCOMPARE(*text.GetString(), L'\0');
    text = L"😀é";
    QCOMPARE(text.GetLength(), 2);
    QVERIFY(!text.IsEmpty());
    QCOMPARE(text.GetString()[0], wchar_t(0x1F600));
    QCOMPARE(text.GetString()[2], L'\0');
    QCOMPARE(static_cast<const wchar_t*>(text), text.GetString());
    QCOMPARE(CString_X(L"a\0b", 3).GetLength(), 3);
    QVERIFY(!CString_X(L"\0", 1).IsEmpty());
}

void tst_StringBasics::emptyKeepsTheRoom()
{
    CString_X text(L'x', 100);
    const char* const narrow = text;
    const wchar_t* const address = text.GetString();
    const std::size_t room = text.capacity();
    text.Empty();
    QCOMPARE(text.GetLength(), 0);
    QCOMPARE(*text.GetString(), L'\0');
    QCOMPARE(text.GetString(), address);
    QCOMPARE(text.capacity(), room);
    QCOMPARE(static_cast<const char*>(text.utf8Cache), narrow);
    QCOMPARE(narrow, QByteArray(100, 'x').constData());
}

void tst_StringBasics::copiesAreDeep()
{
    CString_X text(L"a\0b and more than fits an object", 20);
    CString_X copy = text;
    QCOMPARE(copy.GetLength(), 20);
    QCOMPARE(copy, text);
    QVERIFY(copy.GetString() != text.GetString());
    copy.SetAt(0, L'X');
    QCOMPARE(text.GetAt(0), L'a');

    CString_X assigned = L"old";
    assigned = text;
    QCOMPARE(assigned.GetLength(), 20);
    QVERIFY(assigned.GetString() != text.GetString());
}

void tst_StringBasics::moves()
{
    CString_X text(L'x', 100);
    const wchar_t* const address = text.GetString();
    CString_X moved = std::move(text);
    QCOMPARE(moved.GetString(), address);
    CString_X assigned = L"old";
    assigned = std::move(moved);
    QCOMPARE(assigned.GetString(), address);
    QCOMPARE(assigned, CString_X(L'x', 100));
    CString_X& same = assigned;
    assigned = std::move(same);
    QCOMPARE(assigned, CString_X(L'x', 100));
}

void tst_StringBasics::assignment_data()
{
    QTest::addColumn<QString>("old");
    QTest::newRow("over nothing") << "";
    QTest::newRow("over short text") << "ab";
    QTest::newRow("over long text") << QString(1000, QLatin1Char('x'));
}

void tst_StringBasics::assignment()
{
    QFETCH(QString, old);
    const CString_X start = old;
    const auto assigned = [&](const auto& value) {
        CString_X text = start;
        text = value;
        return shown(text);
    };
    QCOMPARE(assigned(L'c'), QStringLiteral("c"));
    QCOMPARE(assigned(L"wide"), QStringLiteral("wide"));
    QCOMPARE(assigned(L"wi\0de"), QStringLiteral("wi"));
    QCOMPARE(assigned(noWide), QString());
    QCOMPARE(assigned(nullptr), QString());
    QCOMPARE(assigned(QStringLiteral("é日😀")), QStringLiteral("é日😀"));
    QCOMPARE(assigned(QString()), QString());
    QCOMPARE(assigned(QString::fromLatin1("a\0b", 3)), QStringLiteral("a"));
    QCOMPARE(assigned(CString_X(L"a\0b", 3)), QString::fromLatin1("a\0b", 3));
    QCOMPARE(assigned(std::wstring(L"a\0b", 3)), QString::fromLatin1("a\0b", 3));
    QCOMPARE(assigned("\xC3\xA9"), QStringLiteral("é"));
    QCOMPARE(assigned(noNarrow), QString());
    QCOMPARE(assigned(reinterpret_cast<const unsigned char*>("\xE6\x97\xA5")), QStringLiteral("日"));
    QCOMPARE(assigned(static_cast<const unsigned char*>(nullptr)), QString());
}

void tst_StringBasics::assignmentFromItself()
{
    CString_X text(L"a\0b, and more than fits an object", 20);
    const CString_X before = text;
    const CString_X& same = text;
    text = same;
    QCOMPARE(text, before);
    text = static_cast<const std::wstring&>(same);
    QCOMPARE(text, before);
    text = text.GetString(); // up to its first 0
    QCOMPARE(shown(text), QStringLiteral("a"));
    text = text.GetAt(0);
    QCOMPARE(shown(text), QStringLiteral("a"));
}

void tst_StringBasics::assignmentFromItsTail_data()
{
    QTest::addColumn<QString>("whole");
    QTest::newRow("within the object") << "abc";
    QTest::newRow("on the heap") << "abcdefghijklmnopqrstuvwxyz";
}

void tst_StringBasics::assignmentFromItsTail()
{
    QFETCH(QString, whole);
    for (int i = 0; i <= whole.size(); ++i) {
        CString_X text = whole;
        text = text.GetString() + i;
        QCOMPARE(shown(text), whole.mid(i));
    }
}

// A caller may have put text behind the length by way of GetBuffer, and take that.
void tst_StringBasics::assignmentFromItsRoom()
{
    CString_X text = L"ab";
    wchar_t* const buffer = text.GetBuffer(100);
    std::wcscpy(buffer, L"ab");
    std::wcscpy(buffer + 10, L"the text behind it");
    text = buffer + 10;
    QCOMPARE(shown(text), QStringLiteral("the text behind it"));
    std::wcscpy(text.GetBuffer(100) + 20, L"again");
    text = text.GetString() + 20;
    QCOMPARE(shown(text), QStringLiteral("again"));
}

void tst_StringBasics::assignmentFromItsNarrowCopy()
{
    CString_X text = L"é日";
    text = static_cast<const char*>(text);
    QCOMPARE(shown(text), QStringLiteral("é日"));
    QCOMPARE(text.utf8Cache, "\xC3\xA9\xE6\x97\xA5");
    text += static_cast<const char*>(text.utf8Cache);
    QCOMPARE(shown(text), QStringLiteral("é日é日"));
}

void tst_StringBasics::appending_data()
{
    columns();
    const auto appended = [](const auto& value) {
        CString_X text = L"old ";
        text += value;
        return shown(text);
    };
    const auto by = [](auto append) {
        CString_X text = L"old ";
        append(text);
        return shown(text);
    };
    QTest::newRow("wide text") << appended(L"new") << "old new";
    QTest::newRow("wide text up to its first 0") << appended(L"ne\0w") << "old ne";
    QTest::newRow("null wide text") << appended(noWide) << "old ";
    QTest::newRow("a character") << appended(L'日') << QStringLiteral("old 日");
    QTest::newRow("0") << appended(L'\0') << QString::fromLatin1("old \0", 5);
    QTest::newRow("an object with zeros") << appended(CString_X(L"a\0b", 3)) << QString::fromLatin1("old a\0b", 7);
    QTest::newRow("a standard text") << appended(std::wstring(L"new")) << "old new";
    QTest::newRow("a QString") << appended(QStringLiteral("é😀")) << QStringLiteral("old é😀");
    QTest::newRow("a QString up to its first 0") << appended(QString::fromLatin1("a\0b", 3)) << "old a";
    QTest::newRow("a null QString") << appended(QString()) << "old ";
    QTest::newRow("narrow text") << appended("\xC3\xA9") << QStringLiteral("old é");
    QTest::newRow("null narrow text") << appended(noNarrow) << "old ";
    QTest::newRow("AppendChar") << by([](CString_X& text) { text.AppendChar(L'x'); }) << "old x";
    QTest::newRow("AppendChar of 0") << by([](CString_X& text) { text.AppendChar(L'\0'); })
                                     << QString::fromLatin1("old \0", 5);
    QTest::newRow("Append") << by([](CString_X& text) { text.Append(L"new"); }) << "old new";
    QTest::newRow("Append of null") << by([](CString_X& text) { text.Append(noWide); }) << "old ";
    QTest::newRow("Append of an object") << by([](CString_X& text) { text.Append(CString_X(L"new")); }) << "old new";
    QTest::newRow("Append of elements") << by([](CString_X& text) { text.Append(L"a\0bc", 3); })
                                        << QString::fromLatin1("old a\0b", 7);
}

void tst_StringBasics::appendingItself()
{
    CString_X text = L"abc";
    text += text;
    QCOMPARE(shown(text), QStringLiteral("abcabc"));
    text += text.GetString() + 3;
    QCOMPARE(shown(text), QStringLiteral("abcabcabc"));
    text.Append(text);
    QCOMPARE(shown(text), QStringLiteral("abcabcabcabcabcabc"));
    text.Append(text.GetString() + 15, 2);
    QCOMPARE(shown(text), QStringLiteral("abcabcabcabcabcabcab"));
}

void tst_StringBasics::elements()
{
    const CString_X text(L"a\0日😀", 4);
    QCOMPARE(text.GetAt(0), L'a');
    QCOMPARE(text.GetAt(1), L'\0');
    QCOMPARE(text[2], L'日');
    QCOMPARE(text[3], wchar_t(0x1F600));
    QCOMPARE(text[3L], wchar_t(0x1F600));
    QCOMPARE(text[std::size_t(2)], L'日');
    QCOMPARE(text[2U], L'日');
    QCOMPARE(text[short(2)], L'日');

    CString_X changed = L"abc";
    changed.SetAt(1, L'X');
    QCOMPARE(shown(changed), QStringLiteral("aXc"));
}

void tst_StringBasics::elementsOutside_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("index");
    QTest::newRow("the terminator") << "abc" << 3;
    QTest::newRow("behind it") << "abc" << 4;
    QTest::newRow("the terminator of an empty text") << "" << 0;
    QTest::newRow("negative") << "abc" << -1;
    QTest::newRow("the lowest") << "abc" << INT_MIN;
    QTest::newRow("the highest") << "abc" << INT_MAX;
}

void tst_StringBasics::elementsOutside()
{
    QFETCH(QString, text);
    QFETCH(int, index);
    const CString_X object = text;
    QCOMPARE(thrownBy([&] { (void)object.GetAt(index); }), QStringLiteral("out_of_range"));
    QCOMPARE(thrownBy([&] { (void)object[index]; }), QStringLiteral("out_of_range"));
    QCOMPARE(thrownBy([&] { (void)object[static_cast<long>(index)]; }), QStringLiteral("out_of_range"));
    QCOMPARE(thrownBy([&] { (void)object[static_cast<std::size_t>(index)]; }), QStringLiteral("out_of_range"));
}

void tst_StringBasics::fromQString_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::wstring>("expected");
    QTest::newRow("null") << QString() << std::wstring();
    QTest::newRow("empty") << "" << std::wstring();
    QTest::newRow("ASCII") << "abc" << std::wstring(L"abc");
    QTest::newRow("a pair is one element") << QStringLiteral("a😀b") << std::wstring(L"a\U0001F600b");
    QTest::newRow("the highest code point") << QStringLiteral("\U0010FFFF") << std::wstring(L"\U0010FFFF");
    QTest::newRow("pairs alone") << QStringLiteral("😀😀😀😀😀") << std::wstring(5, L'\U0001F600');
    QTest::newRow("cut at its first 0") << QString::fromLatin1("ab\0cd", 5) << std::wstring(L"ab");
    QTest::newRow("0 first") << QString::fromLatin1("\0cd", 3) << std::wstring();
    QTest::newRow("a byte order mark stays") << QString(QChar(0xFEFF)) + QLatin1Char('a') << std::wstring(L"\uFEFFa");
}

void tst_StringBasics::fromQString()
{
    QFETCH(QString, text);
    QFETCH(std::wstring, expected);
    QVERIFY(CString_X(text) == expected);
    CString_X assigned = L"old";
    assigned = text;
    QVERIFY(assigned == expected);
    CString_X appended = L"old";
    appended += text;
    QVERIFY(appended == L"old" + expected);
    QCOMPARE(CString_X(text).GetLength(), static_cast<int>(expected.size()));
}

void tst_StringBasics::aMillionElements()
{
    constexpr int million = 1000000;
    const CString_X text(L'日', million);
    QCOMPARE(text.GetLength(), million);
    const CString_X copy = text;
    QVERIFY(copy == text);
    CString_X twice = text;
    twice += text;
    QCOMPARE(twice.GetLength(), 2 * million);
    QCOMPARE(twice[2 * million - 1], L'日');
    QVERIFY(CString_X(QString(million, QChar(0x65E5))) == text);
}

XE_APPLESS_TEST(tst_StringBasics)
#include "tst_stringbasics.moc"
