#include "archived.h"
#include "openarray.h"
#include "testclass.h"

namespace {

constexpr int believed = 1048576; // elements without data

} // namespace

/// Arrays on an archive, byte by byte.
class tst_ArraySerialize : public QObject
{
    Q_OBJECT

private slots:
    void bytes();
    void words();
    void doubleWords();
    void strings();
    void objects();
    void notStorable();
    void emptyArrays_data() { arrayClassRows(); }
    void emptyArrays();
    void longCounts();
    void moreThanIsBelievedWithoutData();
    void loadingReplaces_data() { arrayClassRows(); }
    void loadingReplaces();
    void shortStreams();
    void shortStreamsOfStrings();
    void countsWithoutData_data() { arrayClassRows(); }
    void countsWithoutData();
    void oneBehindTheOther();
    void filesWithoutALength();
};

void tst_ArraySerialize::bytes()
{
    OpenArray<CByteArray_X> array;
    fill(array, {1, 2, 255});
    QCOMPARE(stored(array), hex("0300 0102ff"));
    QCOMPARE(load(array, hex("0400 0700fe08 0a")), hex("0a"));
    QCOMPARE(shown(array), QString("7 0 254 8"));
}

void tst_ArraySerialize::words()
{
    CWordArray_X array;
    array.Add(0x0102);
    array.Add(0xFFFE);
    QCOMPARE(stored(array), hex("0200 0201 feff"));
    QCOMPARE(load(array, hex("0100 3412 0a")), hex("0a"));
    QCOMPARE(array.GetSize(), 1LL);
    QCOMPARE(array[0], static_cast<unsigned short>(0x1234));
}

void tst_ArraySerialize::doubleWords()
{
    CDWordArray_X array;
    array.Add(0x01020304);
    array.Add(0xFFFFFFFE);
    QCOMPARE(stored(array), hex("0200 04030201 feffffff"));
    QCOMPARE(load(array, hex("0100 78563412 0a")), hex("0a"));
    QCOMPARE(array.GetSize(), 1LL);
    QCOMPARE(array[0], 0x12345678U);
}

void tst_ArraySerialize::strings()
{
    CStringArray_X array;
    array.Add(L"");
    array.Add(L"aé");
    array.Add(CString_X(L"\0", 1));
    QCOMPARE(stored(array), hex("0300 fffeff00 fffeff02 61000000 e9000000 fffeff01 00000000"));

    array.Add(CString_X(L'x', 300));
    const QByteArray text = stored(array);
    QCOMPARE(text.mid(26, 6), hex("fffeff ff2c01"));
    CStringArray_X copy;
    QCOMPARE(load(copy, text + "rest"), QByteArray("rest"));
    QCOMPARE(copy.GetSize(), 4LL);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(copy[i], array[i]);
}

void tst_ArraySerialize::objects()
{
    CObject_X object;
    CObArray_X array;
    array.Add(&object);
    array.Add(&object);
    QCOMPARE(stored(array), hex("0200"));
    QCOMPARE(load(array, hex("0200 0a")), hex("0a"));
    QCOMPARE(array.GetSize(), 2LL);
    QVERIFY(!array[0] && !array[1]);
}

void tst_ArraySerialize::notStorable()
{
    OpenArray<CUIntArray_X> numbers;
    OpenArray<CPtrArray_X> pointers;
    fill(numbers, {1, 2});
    fill(pointers, {1, 2});
    QCOMPARE(stored(numbers), QByteArray());
    QCOMPARE(stored(pointers), QByteArray());
    QCOMPARE(load(numbers, hex("0100 0a")), hex("0100 0a"));
    QCOMPARE(load(pointers, hex("0100 0a")), hex("0100 0a"));
    QCOMPARE(shown(numbers), QString("1 2"));
    QCOMPARE(shown(pointers), QString("1 2"));
}

void tst_ArraySerialize::emptyArrays()
{
    withArray([](auto& array) {
        if (stored(array).isEmpty()) // not storable
            return;
        QCOMPARE(stored(array), hex("0000"));
        fill(array, {1, 2, 3});
        QCOMPARE(load(array, hex("0000 0a")), hex("0a"));
        QCOMPARE(array.room(), QString("0 of 0, step 0"));
    });
}

void tst_ArraySerialize::longCounts()
{
    for (const int count : {0xFFFE, 0xFFFF, 0x10001}) {
        CWordArray_X array;
        array.SetSize(count);
        array.SetAt(count - 1, 0x1234);
        const QByteArray bytes = stored(array);
        const QByteArray prefix = count == 0xFFFE   ? hex("feff")
                                  : count == 0xFFFF ? hex("ffff ffff0000")
                                                    : hex("ffff 01000100");
        QCOMPARE(bytes.left(prefix.size()), prefix);
        QCOMPARE(bytes.size(), prefix.size() + 2 * count);
        CWordArray_X copy;
        QCOMPARE(load(copy, bytes), QByteArray());
        QCOMPARE(copy.GetSize(), static_cast<long long>(count));
        QCOMPARE(copy[count - 1], static_cast<unsigned short>(0x1234));
    }
}

void tst_ArraySerialize::moreThanIsBelievedWithoutData()
{
    CDWordArray_X array;
    array.SetSize(believed + 3);
    array[believed + 2] = 17;
    const QByteArray bytes = stored(array);
    CDWordArray_X copy;
    QCOMPARE(load(copy, bytes), QByteArray());
    QCOMPARE(copy.GetSize(), believed + 3LL);
    QCOMPARE(copy[believed + 2], 17U);

    // without the last three, and without one and a half
    QCOMPARE(load(copy, bytes.left(6 + 4 * believed)), QByteArray());
    QCOMPARE(copy.GetSize(), static_cast<long long>(believed));
    QCOMPARE(load(copy, bytes.left(6 + 4 * believed + 6)), QByteArray());
    QCOMPARE(copy.GetSize(), believed + 3LL);
    QCOMPARE(copy[believed + 2], 0U);
}

void tst_ArraySerialize::loadingReplaces()
{
    withArray([](auto& array) {
        std::decay_t<decltype(array)> source;
        fill(source, {4, 5});
        const QByteArray bytes = stored(source);
        if (bytes.isEmpty()) // not storable
            return;
        const QString loaded = std::is_same_v<decltype(array[0]), CObject_X*&> ? "0 0" : "4 5";
        fill(array, {1, 2, 3, 4, 5});
        QCOMPARE(load(array, bytes), QByteArray());
        QCOMPARE(shown(array), loaded);
        QCOMPARE(array.room(), QString("2 of 5, step 0"));
        fill(array, {1});
        array.SetSize(1, 7);
        QCOMPARE(load(array, bytes), QByteArray());
        QCOMPARE(shown(array), loaded);
        QCOMPARE(array.room(), QString("2 of 8, step 7"));
    });
}

void tst_ArraySerialize::shortStreams()
{
    OpenArray<CByteArray_X> bytes;
    fill(bytes, {1, 2, 3, 4, 5});
    load(bytes, hex("0500 0708"));
    QCOMPARE(shown(bytes), QString("7 8 0 0 0"));
    load(bytes, hex("03"));
    QCOMPARE(shown(bytes), QString());
    fill(bytes, {1});
    load(bytes, {});
    QCOMPARE(shown(bytes), QString());

    OpenArray<CDWordArray_X> numbers;
    fill(numbers, {1, 2, 3, 4, 5});
    load(numbers, hex("0300 07000000 08"));
    QCOMPARE(shown(numbers), QString("7 8 0"));
}

void tst_ArraySerialize::shortStreamsOfStrings()
{
    OpenArray<CStringArray_X> array;
    const QByteArray whole = hex("0300 fffeff01 32000000 fffeff02 33000000 34000000 fffeff01 36000000");
    load(array, whole);
    QCOMPARE(array[2], CString_X(L"6"));
    QCOMPARE(load(array, whole.left(16)), QByteArray());
    QCOMPARE(array.GetSize(), 3LL);
    QCOMPARE(array[0], CString_X(L"2"));
    QVERIFY(array[1].IsEmpty());
    QVERIFY(array[2].IsEmpty());
    QCOMPARE(load(array, hex("0200 fffeffffffffffffffff ffffffffffffffff 41")), QByteArray());
    QCOMPARE(shown(array), QString("0 0"));
}

// What such a count would take is not allocated.
void tst_ArraySerialize::countsWithoutData()
{
    withArray([](auto& array) {
        if (stored(array).isEmpty()) // not storable
            return;
        fill(array, {1, 2, 3});
        load(array, hex("ffff ffffffff 00000000"));
        QCOMPARE(array.GetSize(), static_cast<long long>(believed));
        QCOMPARE(numberOf(array[0]), 0);
        QCOMPARE(numberOf(array[believed - 1]), 0);
        load(array, hex("ffff ffff0f00"));
        QCOMPARE(array.GetSize(), believed - 1LL);
    });
}

// A host's file, such as one that decompresses, may know no more than how to read.
void tst_ArraySerialize::filesWithoutALength()
{
    class Source : public CFile_X
    {
    public:
        explicit Source(const QByteArray& source) : m_bytes(source) {}
        unsigned int Read(void* target, unsigned int count) override
        {
            const auto got = std::min<unsigned>({count, unsigned(m_bytes.size()), 100000});
            std::memcpy(target, m_bytes.constData(), got);
            m_bytes.remove(0, int(got));
            return got;
        }

    private:
        QByteArray m_bytes;
    };
    const auto loadFrom = [](const QByteArray& bytes, CObject_X& array) {
        Source file(bytes);
        CArchive_X archive(&file, CArchive_X::load);
        array.Serialize(archive);
    };
    CWordArray_X numbers;
    numbers.SetSize(3 * believed);
    numbers[3 * believed - 1] = 17;
    CWordArray_X loadedNumbers;
    loadFrom(stored(numbers), loadedNumbers);
    QCOMPARE(loadedNumbers.GetSize(), 3LL * believed);
    QCOMPARE(loadedNumbers[3 * believed - 1], static_cast<unsigned short>(17));

    CStringArray_X texts;
    texts.SetSize(2 * believed);
    texts.SetAt(2 * believed - 1, L"last");
    CStringArray_X loadedTexts;
    loadFrom(stored(texts), loadedTexts);
    QCOMPARE(loadedTexts.GetSize(), 2LL * believed);
    QCOMPARE(loadedTexts[2 * believed - 1], CString_X(L"last"));
}

void tst_ArraySerialize::oneBehindTheOther()
{
    OpenArray<CByteArray_X> bytes;
    OpenArray<CWordArray_X> words;
    fill(bytes, {1, 2, 3});
    fill(words, {4, 5});
    CMemFile_X file;
    {
        CArchive_X archive(&file, CArchive_X::store, 128);
        bytes.Serialize(archive);
        words.Serialize(archive);
    }
    QCOMPARE(contents(file), hex("0300 010203 0200 04000500"));
    fill(bytes, {});
    fill(words, {});
    file.Seek(0, CFile_X::begin);
    CArchive_X archive(&file, CArchive_X::load, 128);
    bytes.Serialize(archive);
    words.Serialize(archive);
    QCOMPARE(shown(bytes), QString("1 2 3"));
    QCOMPARE(shown(words), QString("4 5"));
}

XE_APPLESS_TEST(tst_ArraySerialize)
#include "tst_arrayserialize.moc"
