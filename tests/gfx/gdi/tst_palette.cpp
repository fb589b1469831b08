// Palettes.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <climits>
#include <new>

namespace {

using Entries = std::vector<tagPALETTEENTRY>;

// A record with that many entries, which lie behind its own one.
class Record
{
public:
    explicit Record(const Entries& entries) : m_bytes(sizeof(tagLOGPALETTE) + entries.size() * sizeof(tagPALETTEENTRY))
    {
        auto* const record = new (m_bytes.data()) tagLOGPALETTE{0x300, static_cast<WORD>(entries.size()), {}};
        tagPALETTEENTRY* const first = record->palPalEntry;
        std::copy(entries.begin(), entries.end(), first);
    }

    operator const tagLOGPALETTE*() const { return reinterpret_cast<const tagLOGPALETTE*>(m_bytes.data()); }

private:
    std::vector<char> m_bytes;
};

const Entries greys = {{0, 0, 0, 0}, {64, 64, 64, 0}, {128, 128, 128, 0}, {192, 192, 192, 0}, {255, 255, 255, 0}};

CPalette_X& withEntries(CPalette_X& palette, const Entries& entries)
{
    palette.CreatePalette(Record(entries));
    return palette;
}

// GetPaletteEntries() copies nothing, so an entry is seen by the colours that are nearest to it.
bool hasEntry(const CPalette_X& palette, UINT index, COLORREF color)
{
    return palette.GetNearestPaletteIndex(color) == index;
}

} // namespace

class tst_Palette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void create();
    void aSecondCreateAppends();
    void thereIsNoHandle();
    void resize();
    void resizeBeyondMemory();
    void getEntries_data();
    void getEntries();
    void setEntries_data();
    void setEntries();
    void setAnEntry();
    void nearest_data();
    void nearest();
    void nearestOfEqualOnes();
    void nullAndStubs();
};

void tst_Palette::create()
{
    CPalette_X palette;
    QCOMPARE(palette.GetEntryCount(), 0);
    QCOMPARE(palette.CreatePalette(Record(greys)), TRUE);
    QCOMPARE(palette.GetEntryCount(), 5);
    QVERIFY(hasEntry(palette, 1, 0x404040));
    QCOMPARE(CPalette_X().CreatePalette(Record({})), TRUE);
    CPalette_X large;
    QCOMPARE(large.CreatePalette(Record(Entries(65535))), TRUE);
    QCOMPARE(large.GetEntryCount(), 65535);
}

void tst_Palette::aSecondCreateAppends()
{
    CPalette_X palette;
    withEntries(palette, greys);
    QCOMPARE(palette.CreatePalette(Record({{255, 0, 0, 0}, {0, 255, 0, 0}})), TRUE);
    QCOMPARE(palette.GetEntryCount(), 7);
    QVERIFY(hasEntry(palette, 5, 0x0000FF));
    QVERIFY(hasEntry(palette, 6, 0x00FF00));
}

void tst_Palette::thereIsNoHandle()
{
    CPalette_X palette;
    withEntries(palette, greys);
    QCOMPARE(palette.GetSafeHandle(), nullptr);
    QCOMPARE(palette.DeleteObject(), FALSE);
    QCOMPARE(palette.GetEntryCount(), 5);
}

void tst_Palette::resize()
{
    CPalette_X palette;
    withEntries(palette, {{255, 0, 0, 0}, {255, 255, 255, 0}, {0, 255, 0, 0}});
    QCOMPARE(palette.ResizePalette(2), TRUE);
    QCOMPARE(palette.GetEntryCount(), 2);
    QCOMPARE(palette.ResizePalette(4), TRUE);
    QCOMPARE(palette.GetEntryCount(), 4);
    QVERIFY(hasEntry(palette, 0, 0x0000FF));
    QVERIFY(hasEntry(palette, 2, 0)); // new ones are zeros
    QCOMPARE(palette.ResizePalette(0), TRUE);
    QCOMPARE(palette.GetEntryCount(), 0);
}

void tst_Palette::resizeBeyondMemory()
{
    CPalette_X palette;
    withEntries(palette, greys);
    QVERIFY_EXCEPTION_THROWN(palette.ResizePalette(UINT_MAX), std::bad_alloc);
    QCOMPARE(palette.GetEntryCount(), 5);
}

void tst_Palette::getEntries_data()
{
    QTest::addColumn<unsigned>("start");
    QTest::addColumn<unsigned>("count");
    QTest::addColumn<unsigned>("result");
    QTest::newRow("all") << 0u << 5u << 5u;
    QTest::newRow("some") << 1u << 2u << 2u;
    QTest::newRow("none") << 1u << 0u << 0u;
    QTest::newRow("beyond the end") << 2u << 10u << 3u;
    QTest::newRow("from the end") << 5u << 1u << 0u;
    QTest::newRow("from behind the end") << 6u << 1u << 0u;
    QTest::newRow("a sum beyond 32 bits") << 2u << UINT_MAX << 3u;
    QTest::newRow("a start beyond 31 bits") << UINT_MAX << 2u << 0u;
}

void tst_Palette::getEntries()
{
    QFETCH(unsigned, start);
    QFETCH(unsigned, count);
    CPalette_X palette;
    withEntries(palette, greys);
    tagPALETTEENTRY buffer[5] = {{7, 7, 7, 7}};
    QTEST(palette.GetPaletteEntries(start, count, buffer), "result");
    QCOMPARE(buffer[0].peRed, BYTE(7));
    QCOMPARE(palette.GetPaletteEntries(start, count, nullptr), 0u);
}

void tst_Palette::setEntries_data()
{
    QTest::addColumn<unsigned>("start");
    QTest::addColumn<unsigned>("count");
    QTest::addColumn<unsigned>("result");
    QTest::newRow("all") << 0u << 5u << 5u;
    QTest::newRow("some") << 1u << 2u << 2u;
    QTest::newRow("beyond the end") << 3u << 5u << 2u;
    QTest::newRow("a count of 0 goes to the end") << 2u << 0u << 3u;
    QTest::newRow("a sum beyond 32 bits") << 4u << UINT_MAX << 1u;
    QTest::newRow("from the end") << 5u << 1u << 0u;
    QTest::newRow("a start beyond 31 bits") << UINT_MAX << 1u << 0u;
}

void tst_Palette::setEntries()
{
    QFETCH(unsigned, start);
    QFETCH(unsigned, count);
    QFETCH(unsigned, result);
    CPalette_X palette;
    withEntries(palette, Entries(5, {0, 0, 0, 0}));
    const Entries reds(result, {200, 0, 0, 9}); // so many are read
    static const tagPALETTEENTRY unread = {};
    QCOMPARE(palette.SetPaletteEntries(start, count, reds.empty() ? &unread : reds.data()), result);
    QCOMPARE(palette.GetEntryCount(), 5);
    if (result == 0)
        QVERIFY(hasEntry(palette, 0, 0x0000C8));
    else
        QVERIFY(hasEntry(palette, start, 0x0000C8));
    QCOMPARE(palette.SetPaletteEntries(start, count, nullptr), 0u);
}

void tst_Palette::setAnEntry()
{
    CPalette_X palette;
    withEntries(palette, greys);
    const tagPALETTEENTRY entry = {0x12, 0x34, 0x56, 0x78};
    QCOMPARE(palette.SetPaletteEntries(3, 1, &entry), 1u);
    QVERIFY(hasEntry(palette, 3, 0x563412));
    QVERIFY(hasEntry(palette, 4, 0xFFFFFF));
}

void tst_Palette::nearest_data()
{
    QTest::addColumn<unsigned>("color");
    QTest::addColumn<unsigned>("index");
    QTest::newRow("black") << 0u << 0u;
    QTest::newRow("white") << 0xFFFFFFu << 4u;
    QTest::newRow("the high byte is not looked at") << 0x80FFFFFFu << 4u;
    QTest::newRow("below the middle") << 0x1F1F1Fu << 0u;
    QTest::newRow("in the middle the first") << 0x202020u << 0u;
    QTest::newRow("above the middle") << 0x212121u << 1u;
    QTest::newRow("by the sum of the channels") << 0x0080FFu << 2u;
    QTest::newRow("red alone is nearer to black") << 0x0000FFu << 0u;
}

void tst_Palette::nearest()
{
    QFETCH(unsigned, color);
    CPalette_X palette;
    withEntries(palette, greys);
    QTEST(palette.GetNearestPaletteIndex(color), "index");
}

void tst_Palette::nearestOfEqualOnes()
{
    CPalette_X palette;
    QCOMPARE(palette.GetNearestPaletteIndex(0), 0u);
    withEntries(palette, {{0, 0, 0, 0}, {9, 9, 9, 0}, {9, 9, 9, 1}});
    QCOMPARE(palette.GetNearestPaletteIndex(0x090909), 1u);
}

void tst_Palette::nullAndStubs()
{
    CPalette_X palette;
    QCOMPARE(palette.CreatePalette(nullptr), FALSE);
    QCOMPARE(palette.CreateHalftonePalette(nullptr), FALSE);
    withEntries(palette, greys);
    const tagPALETTEENTRY red = {255, 0, 0, 0};
    palette.AnimatePalette(0, 1, &red);
    palette.AnimatePalette(0, 1, nullptr);
    QVERIFY(hasEntry(palette, 0, 0));
}

XE_APPLESS_TEST(tst_Palette)
#include "tst_palette.moc"
