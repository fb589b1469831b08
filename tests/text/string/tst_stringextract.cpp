#include "string/nulltext.h"
#include "testclass.h"
#include "textresult.h"
#include "textrows.h"

#include <climits>

/// Left, Right, Mid, the two spans and Tokenize.
class tst_StringExtract : public QObject, private TextRows
{
    Q_OBJECT

private slots:
    void parts_data();
    void parts() { compare(); }
    void spans_data();
    void spans() { compare(); }
    void aZeroEndsTheResult_data();
    void aZeroEndsTheResult() { compare(); }
    void theTextStays();
    void tokens_data();
    void tokens();
    void tokenizeOutsideTheText_data();
    void tokenizeOutsideTheText();
    void aMillionElements();
};

void tst_StringExtract::parts_data()
{
    columns();
    const CString_X text = L"abc";
    const CString_X nothing;
    QTest::newRow("Left 2") << shown(text.Left(2)) << "ab";
    QTest::newRow("Left 0") << shown(text.Left(0)) << "";
    QTest::newRow("Left of all") << shown(text.Left(3)) << "abc";
    QTest::newRow("Left -1 is empty") << shown(text.Left(-1)) << "";
    QTest::newRow("Left of the lowest is empty") << shown(text.Left(INT_MIN)) << "";
    QTest::newRow("Left 99 is all") << shown(text.Left(99)) << "abc";
    QTest::newRow("Left of the highest is all") << shown(text.Left(INT_MAX)) << "abc";
    QTest::newRow("Left of an empty text") << shown(nothing.Left(1)) << "";
    QTest::newRow("Right 2") << shown(text.Right(2)) << "bc";
    QTest::newRow("Right 0") << shown(text.Right(0)) << "";
    QTest::newRow("Right of all") << shown(text.Right(3)) << "abc";
    QTest::newRow("Right -1 is empty") << shown(text.Right(-1)) << "";
    QTest::newRow("Right of the lowest is empty") << shown(text.Right(INT_MIN)) << "";
    QTest::newRow("Right 99 is all") << shown(text.Right(99)) << "abc";
    QTest::newRow("Right of the highest is all") << shown(text.Right(INT_MAX)) << "abc";
    QTest::newRow("Right of an empty text") << shown(nothing.Right(1)) << "";
    QTest::newRow("Mid 1") << shown(text.Mid(1)) << "bc";
    QTest::newRow("Mid 0") << shown(text.Mid(0)) << "abc";
    QTest::newRow("Mid -1 is all") << shown(text.Mid(-1)) << "abc";
    QTest::newRow("Mid of the lowest is all") << shown(text.Mid(INT_MIN)) << "abc";
    QTest::newRow("Mid 3 is empty") << shown(text.Mid(3)) << "";
    QTest::newRow("Mid 4 is empty") << shown(text.Mid(4)) << "";
    QTest::newRow("Mid of the highest is empty") << shown(text.Mid(INT_MAX)) << "";
    QTest::newRow("Mid of an empty text") << shown(nothing.Mid(0)) << "";
    QTest::newRow("Mid 1, 1") << shown(text.Mid(1, 1)) << "b";
    QTest::newRow("Mid 0, 3") << shown(text.Mid(0, 3)) << "abc";
    QTest::newRow("Mid 1, 0") << shown(text.Mid(1, 0)) << "";
    QTest::newRow("Mid -1, 2 is empty, unlike Mid -1") << shown(text.Mid(-1, 2)) << "";
    QTest::newRow("Mid of the lowest, 2 is empty") << shown(text.Mid(INT_MIN, 2)) << "";
    QTest::newRow("Mid 1, -5 goes up to the end") << shown(text.Mid(1, -5)) << "bc";
    QTest::newRow("Mid 0, lowest goes up to the end") << shown(text.Mid(0, INT_MIN)) << "abc";
    QTest::newRow("Mid 1, 99 goes up to the end") << shown(text.Mid(1, 99)) << "bc";
    QTest::newRow("Mid 1, highest goes up to the end") << shown(text.Mid(1, INT_MAX)) << "bc";
    QTest::newRow("Mid 3, 1 is empty") << shown(text.Mid(3, 1)) << "";
    QTest::newRow("Mid 4, 1 is empty") << shown(text.Mid(4, 1)) << "";
    QTest::newRow("Mid 4, -1 is empty") << shown(text.Mid(4, -1)) << "";
    QTest::newRow("Mid of an empty text, 1") << shown(nothing.Mid(0, 1)) << "";
    QTest::newRow("by code points") << shown(CString_X(L"😀日é").Mid(1, 1)) << QStringLiteral("日");
}

void tst_StringExtract::spans_data()
{
    columns();
    const CString_X text = L"abc";
    QTest::newRow("SpanExcluding") << shown(CString_X(L"key=value").SpanExcluding(L";=")) << "key";
    QTest::newRow("SpanExcluding nothing of the text is all") << shown(text.SpanExcluding(L"xyz")) << "abc";
    QTest::newRow("SpanExcluding the first element") << shown(text.SpanExcluding(L"a")) << "";
    QTest::newRow("SpanExcluding an empty set") << shown(text.SpanExcluding(L"")) << "abc";
    QTest::newRow("SpanExcluding null") << shown(text.SpanExcluding(null)) << "abc";
    QTest::newRow("SpanExcluding in an empty text") << shown(CString_X().SpanExcluding(L"a")) << "";
    QTest::newRow("SpanIncluding") << shown(CString_X(L"123abc").SpanIncluding(L"0123456789")) << "123";
    QTest::newRow("SpanIncluding the whole text is empty") << shown(text.SpanIncluding(L"abc")) << "";
    QTest::newRow("SpanIncluding all but the last") << shown(text.SpanIncluding(L"ab")) << "ab";
    QTest::newRow("SpanIncluding not the first element") << shown(text.SpanIncluding(L"bc")) << "";
    QTest::newRow("SpanIncluding an empty set") << shown(text.SpanIncluding(L"")) << "";
    QTest::newRow("SpanIncluding null") << shown(text.SpanIncluding(null)) << "";
    QTest::newRow("SpanIncluding in an empty text") << shown(CString_X().SpanIncluding(L"a")) << "";
}

void tst_StringExtract::aZeroEndsTheResult_data()
{
    columns();
    const CString_X text(L"ab\0cd\0ef", 8);
    QTest::newRow("Left before it") << shown(text.Left(1)) << "a";
    QTest::newRow("Left beyond it") << shown(text.Left(5)) << "ab";
    QTest::newRow("Left of all") << shown(text.Left(99)) << "ab";
    QTest::newRow("Right behind it") << shown(text.Right(2)) << "ef";
    QTest::newRow("Right over one") << shown(text.Right(4)) << "d";
    QTest::newRow("Right at one") << shown(text.Right(3)) << "";
    QTest::newRow("Right of all") << shown(text.Right(8)) << "ab";
    QTest::newRow("Mid of all") << shown(text.Mid(0)) << "ab";
    QTest::newRow("Mid of all, by a negative start") << shown(text.Mid(-1)) << "ab";
    QTest::newRow("Mid behind one") << shown(text.Mid(3)) << "cd";
    QTest::newRow("Mid at one") << shown(text.Mid(2)) << "";
    QTest::newRow("Mid with a count over one") << shown(text.Mid(3, 4)) << "cd";
    QTest::newRow("SpanExcluding") << shown(text.SpanExcluding(L"e")) << "ab";
    QTest::newRow("SpanExcluding of all") << shown(text.SpanExcluding(L"x")) << "ab";
    QTest::newRow("SpanIncluding: 0 is in no set") << shown(text.SpanIncluding(L"abcdef")) << "ab";
}

void tst_StringExtract::theTextStays()
{
    CString_X text = L"abc";
    const char* const narrow = text;
    const CString_X part = text.Mid(1, 1) + text.Left(1) + text.Right(1);
    QCOMPARE(part, CString_X(L"bac"));
    QCOMPARE(text, CString_X(L"abc"));
    QCOMPARE(narrow, "abc");
    text = text.Mid(1);
    QCOMPARE(text, CString_X(L"bc"));
    QVERIFY(!text.Left(1).utf8Cache);
}

void tst_StringExtract::tokens_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("delimiters");
    QTest::addColumn<QString>("expected"); // each token in brackets with the start behind it
    QTest::newRow("tokens") << "a,bc;d"
                            << ",;"
                            << "[a]2 [bc]5 [d]6 []-1";
    QTest::newRow("delimiters in a row") << ",,a,,b,,"
                                         << ","
                                         << "[a]4 [b]7 []-1";
    QTest::newRow("one token") << "abc"
                               << ","
                               << "[abc]3 []-1";
    QTest::newRow("delimiters alone") << ",,,"
                                      << ","
                                      << "[]-1";
    QTest::newRow("empty text") << ""
                                << ","
                                << "[]-1";
    QTest::newRow("no delimiters") << "a,b"
                                   << ""
                                   << "[a,b]3 []-1";
}

void tst_StringExtract::tokens()
{
    QFETCH(QString, text);
    QFETCH(QString, delimiters);
    const CString_X object = text, set = delimiters;
    QStringList found;
    for (int start = 0; start != -1;) {
        const CString_X token = object.Tokenize(set, start);
        found += QStringLiteral("[%1]%2").arg(shown(token)).arg(start);
        QVERIFY(found.size() < 10);
    }
    QTEST(found.join(QLatin1Char(' ')), "expected");
}

void tst_StringExtract::tokenizeOutsideTheText_data()
{
    QTest::addColumn<int>("start");
    for (const int start : {-1, -5, INT_MIN, 3, 4, INT_MAX})
        QTest::addRow("from %d", start) << start;
}

void tst_StringExtract::tokenizeOutsideTheText()
{
    QFETCH(int, start);
    int position = start;
    QVERIFY(CString_X(L"a,b").Tokenize(L",", position).IsEmpty());
    QCOMPARE(position, -1);
    position = start;
    QVERIFY(CString_X(L"a,b").Tokenize(nullptr, position).IsEmpty());
    QCOMPARE(position, -1);
}

void tst_StringExtract::aMillionElements()
{
    CString_X text(L'x', 1000000);
    text.SetAt(999999, L'y');
    QCOMPARE(text.Left(999999), CString_X(L'x', 999999));
    QCOMPARE(text.Right(1), CString_X(L"y"));
    QCOMPARE(text.Mid(999998), CString_X(L"xy"));
    QCOMPARE(text.SpanExcluding(L"y").GetLength(), 999999);
    QCOMPARE(text.SpanIncluding(L"x").GetLength(), 999999);
    QVERIFY(text.SpanIncluding(L"xy").IsEmpty());
}

XE_APPLESS_TEST(tst_StringExtract)
#include "tst_stringextract.moc"
