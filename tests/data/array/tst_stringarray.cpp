#include "openarray.h"
#include "testclass.h"

#include <memory>

namespace {

const CString_X longText = L"long enough for a block of its own";

/// The texts, with bars between them.
QString texts(const CStringArray_X& array)
{
    QStringList list;
    for (long long i = 0; i < array.GetSize(); ++i)
        list << XeQString(array[i]);
    return list.join('|');
}

} // namespace

/// What an array of strings has beyond the other arrays.
class tst_StringArray : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void wideTexts();
    void otherTexts();
    void nullIsTheEmptyText();
    void pointersIntoItsOwnTexts();
    void insertEmpty_data();
    void insertEmpty();
    void elementsAreCopies();
    void textsMoveWithTheirStorage();
    void narrowCopiesGoWithTheirSlots();
    void copyConstructor();
    void assignment();
    void assignmentToItself();
    void growthAndInsertionOfEmbeddedZeros();

private:
    std::unique_ptr<OpenArray<CStringArray_X>> array; ///< a, the long text, c
};

void tst_StringArray::init()
{
    array = std::make_unique<OpenArray<CStringArray_X>>();
    array->Add(L"a");
    array->Add(longText);
    array->Add(L"c");
}

void tst_StringArray::cleanup() { QCOMPARE(array->checkSanity(), QString()); }

void tst_StringArray::wideTexts()
{
    QCOMPARE(array->Add(L"d"), 3LL);
    array->SetAt(1, L"b");
    array->SetAtGrow(5, L"f");
    array->SetAtGrow(4, L"e");
    array->InsertAt(0, L"0");
    array->InsertAt(2, L"-", 2);
    QCOMPARE(texts(*array), QString("0|a|-|-|b|c|d|e|f"));
    QVERIFY(raises([&] { array->SetAt(9, L"x"); }));
    QVERIFY(raises([&] { array->SetAtGrow(-1, L"x"); }));
    QVERIFY(raises([&] { array->InsertAt(0, L"x", 0); }));
    QVERIFY(raises([&] { array->InsertAt(-1, L"x"); }));
}

void tst_StringArray::otherTexts()
{
    array->RemoveAll();
    array->Add(CString_X(L"string"));
    array->Add(std::wstring(L"std"));
    array->Add(QStringLiteral("Qt"));
    array->Add(u8"schön");
    array->SetAt(0, CString_X(L"a") + L"b");
    QCOMPARE(texts(*array), QStringLiteral("ab|std|Qt|schön"));
}

void tst_StringArray::nullIsTheEmptyText()
{
    const wchar_t* const none = nullptr;
    array->SetAt(1, none);
    array->SetAtGrow(0, none);
    array->InsertAt(1, none, 1);
    QCOMPARE(array->Add(none), 4LL);
    QCOMPARE(texts(*array), QString("|||c|"));
}

void tst_StringArray::pointersIntoItsOwnTexts()
{
    for (int i = 0; i < 20; ++i)
        array->Add(array->ElementAt(i).GetString());
    array->InsertAt(0, array->ElementAt(2).GetString());
    array->SetAt(1, array->ElementAt(2).GetString() + 5);
    array->SetAt(2, array->ElementAt(2).GetString() + 12);
    array->SetSize(4);
    QCOMPARE(texts(*array), QString("c|enough for a block of its own|for a block of its own|c"));
}

void tst_StringArray::insertEmpty_data()
{
    QTest::addColumn<qlonglong>("index");
    QTest::addColumn<qlonglong>("count");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, long long index, long long count, const char* expected) {
        QTest::newRow(name) << index << count << QString(expected).replace("LONG", XeQString(longText));
    };
    row("at the front", 0, 1, "|a|LONG|c");
    row("fewer than stand behind", 1, 1, "a||LONG|c");
    row("more than stand behind", 1, 3, "a||||LONG|c");
    row("at the end", 3, 1, "a|LONG|c|");
    row("behind the end", 5, 2, "a|LONG|c||||");
    row("a negative index", -1, 1, "raises");
    row("none", 0, 0, "raises");
    row("none behind the end", 5, 0, "raises");
    row("a negative count", 0, -1, "raises");
    row("a count that wraps", 1, std::numeric_limits<long long>::max(), "raises");
}

void tst_StringArray::insertEmpty()
{
    QFETCH(qlonglong, index);
    QFETCH(qlonglong, count);
    QFETCH(QString, expected);
    const QString before = texts(*array);
    if (raises([&] { array->InsertEmpty(index, count); })) {
        QCOMPARE(QString("raises"), expected);
        QCOMPARE(texts(*array), before);
        return;
    }
    QCOMPARE(texts(*array), expected);
    for (long long i = index; i < index + count; ++i)
        QVERIFY(array->data[i].capacity() == CString_X().capacity() && !array->data[i].utf8Cache);
}

void tst_StringArray::elementsAreCopies()
{
    CString_X copy = array->GetAt(1);
    copy += L"!";
    std::as_const(*array)[0].MakeUpper();
    QCOMPARE(array->GetAt(1), longText);
    QCOMPARE(array->GetAt(0), CString_X(L"a"));
    array->ElementAt(0).MakeUpper();
    (*array)[2] += L"d";
    QCOMPARE(texts(*array), QString("A|%1|cd").arg(XeQString(longText)));
}

// A long text stays where it is while its string moves, so nothing is copied.
void tst_StringArray::textsMoveWithTheirStorage()
{
    const wchar_t* const storage = array->ElementAt(1).GetString();
    array->SetSize(50);
    QCOMPARE(array->ElementAt(1).GetString(), storage);
    array->InsertEmpty(0, 3);
    QCOMPARE(array->ElementAt(4).GetString(), storage);
    array->RemoveAt(1, 2);
    QCOMPARE(array->ElementAt(2).GetString(), storage);
    array->SetSize(5);
    array->FreeExtra();
    QCOMPARE(array->ElementAt(2).GetString(), storage);
}

void tst_StringArray::narrowCopiesGoWithTheirSlots()
{
    const auto convertAll = [&] {
        for (long long i = 0; i < array->GetSize(); ++i)
            array->ElementAt(i).Utf8Ptr();
    };
    convertAll();
    array->SetSize(40);
    convertAll();
    array->SetSize(3);
    array->InsertEmpty(1, 2);
    for (const long long i : {1, 2})
        QVERIFY(!array->ElementAt(i).utf8Cache);
    convertAll();
    array->RemoveAt(0, 3);
    array->SetSize(2);
    QCOMPARE(QByteArray(array->ElementAt(0).Utf8Ptr()), QByteArray("long enough for a block of its own"));
    QCOMPARE(QByteArray(array->ElementAt(1).Utf8Ptr()), QByteArray("c"));
    array->FreeExtra();
    convertAll();
    array->RemoveAll();
}

void tst_StringArray::copyConstructor()
{
    array->SetSize(3, 12);
    OpenArray<CStringArray_X> copy(*array);
    QCOMPARE(texts(copy), texts(*array));
    QCOMPARE(copy.room(), QString("3 of 3, step 0"));
    copy.SetAt(0, L"z");
    QCOMPARE(array->GetAt(0), CString_X(L"a"));
}

void tst_StringArray::assignment()
{
    OpenArray<CStringArray_X> other;
    other.SetSize(100, 12);
    CStringArray_X& result = static_cast<CStringArray_X&>(other) = *array;
    QCOMPARE(&result, static_cast<CStringArray_X*>(&other));
    QCOMPARE(texts(other), texts(*array));
    QCOMPARE(other.room(), QString("3 of 3, step 0"));
    static_cast<CStringArray_X&>(other) = CStringArray_X();
    QCOMPARE(other.room(), QString("0 of 0, step 0"));
}

void tst_StringArray::assignmentToItself()
{
    const QString before = texts(*array);
    CStringArray_X& same = *array;
    same = *array;
    QCOMPARE(texts(*array), before);
}

void tst_StringArray::growthAndInsertionOfEmbeddedZeros()
{
    const CString_X text(L"a\0b", 3);
    array->InsertAt(0, text, 2);
    array->Add(text);
    array->SetSize(60);
    for (const long long i : {0, 1, 5})
        QCOMPARE(array->GetAt(i), text);
}

XE_APPLESS_TEST(tst_StringArray)
#include "tst_stringarray.moc"
