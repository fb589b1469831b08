#include "string/nulltext.h"
#include "testclass.h"
#include "textresult.h"
#include "textrows.h"

#include <climits>
#include <clocale>
#include <functional>

namespace {

/// Changes a copy of the text, and gives it with what came out, as "text -> result".
template <class Change>
QString changed(CString_X text, Change change)
{
    const int result = change(text);
    return shown(text) + QStringLiteral(" -> %1").arg(result);
}

template <class Trim>
QString trimmed(CString_X text, Trim trim)
{
    CString_X& result = trim(text);
    return &result == &text ? shown(text) : QStringLiteral("not the object itself");
}

} // namespace

/// The changes in place, and those that make a changed copy.
class tst_StringChange : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void cleanup() { std::setlocale(LC_ALL, "C"); }
    void caseInTheDefaultLocale();
    void caseInALocaleOfTheHost();
    void reverse();
    void replace_data();
    void replace() { compare(); }
    void replaceWithItself();
    void remove_data();
    void remove() { compare(); }
    void insert_data();
    void insert() { compare(); }
    void insertItself();
    void erase_data();
    void erase() { compare(); }
    void positionsOutside_data();
    void positionsOutside();
    void trim_data();
    void trim() { compare(); }
    void trimmingAllKeepsTheRoom();
    void lineEnds_data();
    void lineEnds() { compare(); }
    void separators();
    void aMillionElements();
};

void tst_StringChange::caseInTheDefaultLocale()
{
    CString_X text(L"aZ09é\0ß日b", 9);
    text.MakeUpper();
    QCOMPARE(text, CString_X(L"AZ09é\0ß日B", 9));
    text = L"Az09É日B";
    text.MakeLower();
    QCOMPARE(text, CString_X(L"az09É日b"));
    CString_X().MakeUpper();
}

void tst_StringChange::caseInALocaleOfTheHost()
{
    QVERIFY(std::setlocale(LC_ALL, "C.UTF-8"));
    CString_X text = L"aé日ж";
    text.MakeUpper();
    QCOMPARE(text, CString_X(L"AÉ日Ж"));
    text.MakeLower();
    QCOMPARE(text, CString_X(L"aé日ж"));
}

void tst_StringChange::reverse()
{
    CString_X text(L"ab\0😀", 4);
    text.MakeReverse();
    QCOMPARE(text, CString_X(L"😀\0ba", 4));
    text.Empty();
    text.MakeReverse();
    QVERIFY(text.IsEmpty());
}

void tst_StringChange::replace_data()
{
    columns();
    const auto characters = [](const CString_X& text, wchar_t from, wchar_t to) {
        return changed(text, [=](CString_X& s) { return s.Replace(from, to); });
    };
    const auto texts = [](const CString_X& text, const wchar_t* from, const wchar_t* to) {
        return changed(text, [=](CString_X& s) { return s.Replace(from, to); });
    };
    QTest::newRow("character") << characters(L"a.b.c", L'.', L'/') << "a/b/c -> 2";
    QTest::newRow("character by itself") << characters(L"a.b", L'.', L'.') << "a.b -> 1";
    QTest::newRow("character that is not there") << characters(L"abc", L'x', L'y') << "abc -> 0";
    QTest::newRow("character in an empty text") << characters(L"", L'x', L'y') << " -> 0";
    QTest::newRow("0") << characters(CString_X(L"a\0b", 3), L'\0', L'-') << "a-b -> 1";
    QTest::newRow("text by longer text") << texts(L"a-b-c", L"-", L"---") << "a---b---c -> 2";
    QTest::newRow("text by shorter text") << texts(L"abcabcab", L"abc", L"x") << "xxab -> 2";
    QTest::newRow("text by text of its length") << texts(L"abab", L"ab", L"ba") << "baba -> 2";
    QTest::newRow("text by nothing") << texts(L"a, b, c", L", ", L"") << "abc -> 2";
    QTest::newRow("text by null") << texts(L"a, b, c", L", ", null) << "abc -> 2";
    QTest::newRow("text that holds itself: not searched again") << texts(L"aa", L"a", L"aa") << "aaaa -> 2";
    QTest::newRow("what replacing joins is not searched again") << texts(L"aabb", L"ab", L"") << "ab -> 1";
    QTest::newRow("from left to right") << texts(L"aaa", L"aa", L"b") << "ba -> 1";
    QTest::newRow("text that is not there") << texts(L"abc", L"abd", L"x") << "abc -> 0";
    QTest::newRow("text longer than the whole") << texts(L"abc", L"abcd", L"x") << "abc -> 0";
    QTest::newRow("the whole text") << texts(L"abc", L"abc", L"") << " -> 1";
    QTest::newRow("text behind a 0") << texts(CString_X(L"a\0a", 3), L"a", L"bb")
                                     << QString::fromLatin1("bb\0bb -> 2", 10);
    QTest::newRow("empty text is found nowhere") << texts(L"abc", L"", L"x") << "abc -> 0";
    QTest::newRow("null is found nowhere") << texts(L"abc", null, L"x") << "abc -> 0";
    QTest::newRow("case counts") << texts(L"Aa", L"a", L"b") << "Ab -> 1";
}

void tst_StringChange::replaceWithItself()
{
    CString_X text = L"abcabc";
    QCOMPARE(text.Replace(text.GetString() + 4, text), 2);
    QCOMPARE(text, CString_X(L"aabcabcaabcabc"));
    QCOMPARE(text.Replace(text, text), 1);
    QCOMPARE(text, CString_X(L"aabcabcaabcabc"));
}

void tst_StringChange::remove_data()
{
    columns();
    const auto removed = [](const CString_X& text, wchar_t ch) {
        return changed(text, [=](CString_X& s) { return s.Remove(ch); });
    };
    QTest::newRow("everywhere") << removed(L"-a--b-", L'-') << "ab -> 4";
    QTest::newRow("nowhere") << removed(L"abc", L'-') << "abc -> 0";
    QTest::newRow("all") << removed(L"---", L'-') << " -> 3";
    QTest::newRow("empty text") << removed(L"", L'-') << " -> 0";
    QTest::newRow("0") << removed(CString_X(L"a\0b\0", 4), L'\0') << "ab -> 2";
}

void tst_StringChange::insert_data()
{
    columns();
    const auto inserted = [](const CString_X& text, int position, auto what) {
        return changed(text, [=](CString_X& s) { return s.Insert(position, what); });
    };
    QTest::newRow("character in front") << inserted(L"abc", 0, L'x') << "xabc -> 4";
    QTest::newRow("character within") << inserted(L"abc", 1, L'x') << "axbc -> 4";
    QTest::newRow("character at the end") << inserted(L"abc", 3, L'x') << "abcx -> 4";
    QTest::newRow("character into nothing") << inserted(L"", 0, L'x') << "x -> 1";
    QTest::newRow("0") << inserted(L"ab", 1, L'\0') << QString::fromLatin1("a\0b -> 3", 8);
    QTest::newRow("text in front") << inserted(L"abc", 0, L"xyz") << "xyzabc -> 6";
    QTest::newRow("text at the end") << inserted(L"abc", 3, L"xyz") << "abcxyz -> 6";
    QTest::newRow("empty text") << inserted(L"abc", 1, L"") << "abc -> 3";
    QTest::newRow("null") << inserted(L"abc", 1, null) << "abc -> 3";
}

void tst_StringChange::insertItself()
{
    CString_X text = L"abc";
    QCOMPARE(text.Insert(1, text), 6);
    QCOMPARE(text, CString_X(L"aabcbc"));
    QCOMPARE(text.Insert(6, text.GetString() + 3), 9);
    QCOMPARE(text, CString_X(L"aabcbccbc"));
}

void tst_StringChange::erase_data()
{
    columns();
    const auto erased = [](int position, int count) {
        return changed(L"abc", [=](CString_X& s) { return s.Delete(position, count); });
    };
    QTest::newRow("one by default") << changed(L"abc", [](CString_X& s) { return s.Delete(1); }) << "ac -> 1";
    QTest::newRow("two: the result is what was removed") << erased(0, 2) << "c -> 2";
    QTest::newRow("none") << erased(1, 0) << "abc -> 0";
    QTest::newRow("more than the rest") << erased(1, 100) << "a -> 2";
    QTest::newRow("the highest count") << erased(0, INT_MAX) << " -> 3";
    QTest::newRow("a negative count goes up to the end") << erased(1, -1) << "a -> 2";
    QTest::newRow("the lowest count goes up to the end") << erased(2, INT_MIN) << "ab -> 1";
    QTest::newRow("at the end") << erased(3, 1) << "abc -> 0";
}

void tst_StringChange::positionsOutside_data()
{
    QTest::addColumn<int>("position");
    for (const int position : {4, INT_MAX, -1, INT_MIN})
        QTest::addRow("%d", position) << position;
}

void tst_StringChange::positionsOutside()
{
    QFETCH(int, position);
    CString_X text = L"abc";
    const QString outOfRange = QStringLiteral("out_of_range");
    QCOMPARE(thrownBy([&] { text.Insert(position, L'x'); }), outOfRange);
    QCOMPARE(thrownBy([&] { text.Insert(position, L"xyz"); }), outOfRange);
    QCOMPARE(thrownBy([&] { text.Insert(position, null); }), outOfRange);
    QCOMPARE(thrownBy([&] { text.Delete(position, 1); }), outOfRange);
    QCOMPARE(thrownBy([&] { text.Delete(position, 0); }), outOfRange);
    QCOMPARE(text, CString_X(L"abc"));
}

void tst_StringChange::trim_data()
{
    columns();
    const CString_X spaced = L" \r\n\ta b\t\n\r ";
    const CString_X other = L"\f\v\u00A0a\u3000\f";
    QTest::newRow("TrimLeft") << trimmed(
        spaced, [](auto& s) -> auto& { return s.TrimLeft(); })
                              << "a b\t\n\r ";
    QTest::newRow("TrimRight") << trimmed(
        spaced, [](auto& s) -> auto& { return s.TrimRight(); })
                               << " \r\n\ta b";
    QTest::newRow("Trim") << trimmed(
        spaced, [](auto& s) -> auto& { return s.Trim(); })
                          << "a b";
    QTest::newRow("other white space stays") << trimmed(
        other, [](auto& s) -> auto& { return s.Trim(); })
                                             << shown(other);
    QTest::newRow("Trim of nothing") << trimmed(
        L"", [](auto& s) -> auto& { return s.Trim(); })
                                     << "";
    QTest::newRow("Trim of all") << trimmed(
        L" \t ", [](auto& s) -> auto& { return s.Trim(); })
                                 << "";
    QTest::newRow("TrimLeft of all") << trimmed(
        L" \t ", [](auto& s) -> auto& { return s.TrimLeft(); })
                                     << "";
    QTest::newRow("TrimRight of all") << trimmed(
        L" \t ", [](auto& s) -> auto& { return s.TrimRight(); })
                                      << "";
    QTest::newRow("a 0 stays") << trimmed(
        CString_X(L" \0 ", 3), [](auto& s) -> auto& { return s.Trim(); })
                               << QString(QChar(u'\0'));

    QTest::newRow("TrimLeft x") << trimmed(
        L"xxaxx", [](auto& s) -> auto& { return s.TrimLeft(L'x'); })
                                << "axx";
    QTest::newRow("TrimRight x") << trimmed(
        L"xxaxx", [](auto& s) -> auto& { return s.TrimRight(L'x'); })
                                 << "xxa";
    QTest::newRow("Trim x") << trimmed(
        L"xxaxx", [](auto& s) -> auto& { return s.Trim(L'x'); })
                            << "a";
    QTest::newRow("Trim x of blanks") << trimmed(
        L" a ", [](auto& s) -> auto& { return s.Trim(L'x'); })
                                      << " a ";
    QTest::newRow("Trim x of all") << trimmed(
        L"xxx", [](auto& s) -> auto& { return s.Trim(L'x'); })
                                   << "";
    QTest::newRow("Trim 0") << trimmed(
        CString_X(L"\0a\0", 3), [](auto& s) -> auto& { return s.Trim(L'\0'); })
                            << "a";

    QTest::newRow("TrimLeft set") << trimmed(
        L"xyaxy", [](auto& s) -> auto& { return s.TrimLeft(L"yx"); })
                                  << "axy";
    QTest::newRow("TrimRight set") << trimmed(
        L"xyaxy", [](auto& s) -> auto& { return s.TrimRight(L"yx"); })
                                   << "xya";
    QTest::newRow("Trim set") << trimmed(
        L"xyaxy", [](auto& s) -> auto& { return s.Trim(L"yx"); })
                              << "a";
    QTest::newRow("Trim set of all") << trimmed(
        L"xyx", [](auto& s) -> auto& { return s.Trim(L"yx"); })
                                     << "";
    QTest::newRow("Trim empty set") << trimmed(
        L" a ", [](auto& s) -> auto& { return s.Trim(L""); })
                                    << " a ";
    QTest::newRow("Trim null") << trimmed(
        L" a ", [](auto& s) -> auto& { return s.Trim(null); })
                               << " a ";
    QTest::newRow("TrimLeft empty set") << trimmed(
        L" a ", [](auto& s) -> auto& { return s.TrimLeft(L""); })
                                        << " a ";
    QTest::newRow("TrimRight null") << trimmed(
        L" a ", [](auto& s) -> auto& { return s.TrimRight(null); })
                                    << " a ";
}

void tst_StringChange::trimmingAllKeepsTheRoom()
{
    CString_X text(L' ', 100);
    const std::size_t room = text.capacity();
    text.Trim();
    QCOMPARE(text.GetLength(), 0);
    QCOMPARE(text.capacity(), room);
}

void tst_StringChange::lineEnds_data()
{
    columns();
    QTest::newRow("LF to CR LF") << shown(CString_X(L"a\nb\n").ToWinReturn()) << "a\r\nb\r\n";
    QTest::newRow("CR LF to CR CR LF") << shown(CString_X(L"a\r\nb").ToWinReturn()) << "a\r\r\nb";
    QTest::newRow("CR to Windows stays") << shown(CString_X(L"a\rb").ToWinReturn()) << "a\rb";
    QTest::newRow("LF LF") << shown(CString_X(L"\n\n").ToWinReturn()) << "\r\n\r\n";
    QTest::newRow("CR LF to LF") << shown(CString_X(L"a\r\nb\r\n").ToUnixReturn()) << "a\nb\n";
    QTest::newRow("CR to Unix stays") << shown(CString_X(L"a\rb").ToUnixReturn()) << "a\rb";
    QTest::newRow("CR CR LF to CR LF") << shown(CString_X(L"a\r\r\nb").ToUnixReturn()) << "a\r\nb";
    QTest::newRow("LF to Unix stays") << shown(CString_X(L"a\nb").ToUnixReturn()) << "a\nb";
    QTest::newRow("empty") << shown(CString_X().ToWinReturn() + CString_X().ToUnixReturn()) << "";
}

void tst_StringChange::separators()
{
    const CString_X text = L"/a\\b//c\\";
    QCOMPARE(text.ToWinSeperator(), CString_X(L"\\a\\b\\\\c\\"));
    QCOMPARE(text.ToUnixSeperator(), CString_X(L"/a/b//c/"));
    QCOMPARE(text, CString_X(L"/a\\b//c\\"));
    QVERIFY(CString_X().ToWinSeperator().IsEmpty());
}

void tst_StringChange::aMillionElements()
{
    CString_X text(L'\n', 1000000);
    QCOMPARE(text.ToWinReturn().GetLength(), 2000000);
    QCOMPARE(text.ToWinReturn().ToUnixReturn(), text);
    QCOMPARE(text.Replace(L'\n', L'x'), 1000000);
    QCOMPARE(text.Replace(L"x", L"yz"), 1000000);
    QCOMPARE(text.Remove(L'y'), 1000000);
    QCOMPARE(text, CString_X(L'z', 1000000));
    QCOMPARE(text.Delete(0, 999999), 999999);
    QCOMPARE(text, CString_X(L"z"));
}

XE_APPLESS_TEST(tst_StringChange)
#include "tst_stringchange.moc"
