// The working palette of a device context, and the colours that are named by its entries.

#include "canvas.h"
#include "leavenothing.h"
#include "testclass.h"

namespace {

// A palette of greys, each of the value of its index.
void fill(CPalette_X& palette, int count)
{
    std::vector<tagPALETTEENTRY> entries;
    for (int i = 0; i < count; ++i)
        entries.push_back({static_cast<BYTE>(i), static_cast<BYTE>(i), static_cast<BYTE>(i), 0});
    palette.ResizePalette(static_cast<UINT>(count));
    palette.SetPaletteEntries(0, static_cast<UINT>(count), entries.data());
}

// The colour of an entry as the text colour has it.
QColor colorAt(CDC_X& dc, int index)
{
    dc.SetTextColor(COLORREF(0x123456));
    dc.SetTextColor(index);
    return dc.GetTextColor();
}

constexpr QRgb untouched = 0xFF563412;

} // namespace

class tst_DcPalette : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void defaultEntries_data();
    void defaultEntries();
    void aContextWithoutDeviceHasNone();
    void selectedPaletteIsFilledWithWhite_data();
    void selectedPaletteIsFilledWithWhite();
    void nullBringsTheDefaultBack();
    void ownPaletteCanBeSelected();
    void ownEmptyPaletteBecomesWhite();
    void theSourceStaysAsItIs();
    void backgroundByIndex();
    void indexThatIsNotThere_data();
    void indexThatIsNotThere();
    void aLiteral0IsAnIndex();
};

void tst_DcPalette::defaultEntries_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<QString>("expected");

    QTest::newRow("entries from 0") << 0
                                    << "212830 CD0000 CDCD00 00CD00 00CDCD 0000CD CD00CD FFFFFF "
                                       "B2B2B2 F2F2F2 CD0000 CD7F7F D70000 D75252 B10000 B13F3F";
    QTest::newRow("entries from 16") << 16
                                     << "7E0000 7E2626 580000 581313 CD3F00 CD9F7F D72900 D76752 "
                                        "B11F00 B14F3F 7E1300 7E2F26 580900 581713 CD7F00 CDBF7F";
    QTest::newRow("entries from 32") << 32
                                     << "D75200 D77C52 B13F00 B15F3F 7E2600 7E3926 581300 581C13 "
                                        "CDBF00 CDDF7F D77C00 D79152 B15F00 B16F3F 7E3900 7E4226";
    QTest::newRow("entries from 48") << 48
                                     << "581C00 582113 CDCD00 CDCD7F D7D700 D7D752 B1B100 B1B13F "
                                        "7E7E00 7E7E26 585800 585813 BFCD00 DFCD7F 7CD700 91D752";
    QTest::newRow("entries from 64") << 64
                                     << "5FB100 6FB13F 397E00 427E26 1C5800 215813 7FCD00 BFCD7F "
                                        "52D700 7CD752 3FB100 5FB13F 267E00 397E26 135800 1C5813";
    QTest::newRow("entries from 80") << 80
                                     << "3FCD00 9FCD7F 29D700 67D752 1FB100 4FB13F 137E00 2F7E26 "
                                        "095800 175813 00CD00 7FCD7F 00D700 52D752 00B100 3FB13F";
    QTest::newRow("entries from 96") << 96
                                     << "007E00 267E26 005800 135813 00CD3F 7FCD9F 00D729 52D767 "
                                        "00B11F 3FB14F 007E13 267E2F 005809 135817 00CD7F 7FCDBF";
    QTest::newRow("entries from 112") << 112
                                      << "00D752 52D77C 00B13F 3FB15F 007E26 267E39 005813 13581C "
                                         "00CDBF 7FCDDF 00D77C 52D791 00B15F 3FB16F 007E39 267E42";
    QTest::newRow("entries from 128") << 128
                                      << "00581C 135858 00CDCD 7FCDCD 00D7A5 52D7D7 00B1B1 3FB1B1 "
                                         "007E7E 267E7E 005858 135858 00BFCD 7FDFCD 007CD7 5291D7";
    QTest::newRow("entries from 144") << 144
                                      << "005FB1 3F6FB1 00397E 26427E 001C58 135858 007FCD 7FBFCD "
                                         "0052D7 527CD7 003FB1 3F5FB1 00267E 26397E 001358 131C58";
    QTest::newRow("entries from 160") << 160
                                      << "003FCD 7F9FCD 0029D7 5267D7 001FB1 3F4FB1 00137E 262F7E "
                                         "000958 131758 0000CD 7F7FCD 0000D7 5252D7 0000B1 3F3FB1";
    QTest::newRow("entries from 176") << 176
                                      << "00007E 26267E 000058 131358 3F00CD 9F7FCD 2900D7 6752D7 "
                                         "1F00B1 4F3FB1 13007E 2F267E 090058 171358 7F00CD BF7FCD";
    QTest::newRow("entries from 192") << 192
                                      << "5200D7 7C52D7 3F00B1 5F3FB1 26007E 39267E 130058 1C1358 "
                                         "BF00CD DF7FCD 7C00D7 9152D7 5F00B1 6F3FB1 39007E 42267E";
    QTest::newRow("entries from 208") << 208
                                      << "1C0058 581358 CD00CD CD7FCD A500D7 A552D7 B100B1 B13FB1 "
                                         "7E007E 7E267E 580058 581358 CD00BF CD7FDF D7007C D75291";
    QTest::newRow("entries from 224") << 224
                                      << "B1005F B13F6F 7E0039 7E2642 58001C 581358 CD007F CD7FBF "
                                         "D70052 D7527C B1003F B13F5F 7E0026 7E2639 580013 58131C";
    QTest::newRow("entries from 240") << 240
                                      << "CD003F CD7F9F D70029 D75267 B1001F B13F4F 7E0013 7E262F "
                                         "580009 581317 3D3D3D 656565 989898 CBCBCB F4F4F4 CDCDCD";
}

void tst_DcPalette::defaultEntries()
{
    QFETCH(int, first);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.m_palette.GetEntryCount(), 256);
    QStringList entries;
    for (int i = first; i < first + 16; ++i)
        entries += colorAt(dc, i).name().mid(1).toUpper();
    QTEST(entries.join(' '), "expected");
}

void tst_DcPalette::aContextWithoutDeviceHasNone()
{
    CDC_X idle;
    QCOMPARE(idle.m_palette.GetEntryCount(), 0);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::pen: Painter not active");
    QCOMPARE(colorAt(idle, 0).rgb(), untouched);
    CDC_X onNull(static_cast<QImage*>(nullptr));
    QCOMPARE(onNull.m_palette.GetEntryCount(), 256);
}

void tst_DcPalette::selectedPaletteIsFilledWithWhite_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("expected");

    QTest::newRow("empty: all white") << 0 << 256;
    QTest::newRow("3 entries") << 3 << 256;
    QTest::newRow("256 entries: nothing added") << 256 << 256;
    QTest::newRow("300 entries stay") << 300 << 300;
}

void tst_DcPalette::selectedPaletteIsFilledWithWhite()
{
    QFETCH(int, count);
    QFETCH(int, expected);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPalette_X palette;
    fill(palette, count);
    QCOMPARE(dc.SelectPalette(&palette, FALSE), &dc.m_palette);
    QCOMPARE(dc.m_palette.GetEntryCount(), expected);
    for (int i = 0; i < 256; ++i) {
        const int grey = i < count ? i : 255;
        QCOMPARE(colorAt(dc, i), QColor(grey, grey, grey));
    }
    QCOMPARE(dc.RealizePalette(), 0U);
}

void tst_DcPalette::nullBringsTheDefaultBack()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPalette_X palette;
    fill(palette, 300);
    dc.SelectPalette(&palette, TRUE);
    QCOMPARE(dc.SelectPalette(nullptr, TRUE), &dc.m_palette);
    QCOMPARE(dc.m_palette.GetEntryCount(), 256);
    QCOMPARE(colorAt(dc, 1), QColor(0xCD, 0, 0));
}

// What a host does that hands back what it got.
void tst_DcPalette::ownPaletteCanBeSelected()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPalette_X* const old = dc.SelectPalette(nullptr, FALSE);
    QCOMPARE(dc.SelectPalette(old, FALSE), old);
    QCOMPARE(dc.m_palette.GetEntryCount(), 256);
    QCOMPARE(colorAt(dc, 255), QColor(0xCD, 0xCD, 0xCD));
}

void tst_DcPalette::ownEmptyPaletteBecomesWhite()
{
    CDC_X dc;
    dc.SelectPalette(&dc.m_palette, FALSE);
    QCOMPARE(dc.m_palette.GetEntryCount(), 256);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::pen: Painter not active");
    QCOMPARE(colorAt(dc, 0), QColor(Qt::white));
}

void tst_DcPalette::theSourceStaysAsItIs()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    CPalette_X palette;
    fill(palette, 3);
    dc.SelectPalette(&palette, FALSE);
    QCOMPARE(palette.GetEntryCount(), 3);
    dc.m_palette.ResizePalette(0);
    QCOMPARE(palette.GetEntryCount(), 3);
    Canvas other;
    CDC_X dc2(&other.image);
    QCOMPARE(dc2.m_palette.GetEntryCount(), 256);
}

void tst_DcPalette::backgroundByIndex()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    QCOMPARE(dc.SetBkColor(1), QColor(Qt::white));
    QCOMPARE(dc.background(), QBrush(QColor(0xCD, 0, 0)));
    QCOMPARE(dc.SetBkColor(7), QColor(0xCD, 0, 0));
    QCOMPARE(dc.GetBkColor(), QColor(0xFF, 0xFF, 0xFF));
}

void tst_DcPalette::indexThatIsNotThere_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");

    QTest::newRow("negative") << -1 << 256;
    QTest::newRow("256") << 256 << 256;
    QTest::newRow("256 of 300") << 256 << 300;
    QTest::newRow("beyond a table that was cut") << 3 << 3;
    QTest::newRow("the largest number") << std::numeric_limits<int>::max() << 256;
    QTest::newRow("the smallest number") << std::numeric_limits<int>::min() << 256;
}

void tst_DcPalette::indexThatIsNotThere()
{
    QFETCH(int, index);
    QFETCH(int, count);
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.m_palette.ResizePalette(static_cast<UINT>(count));
    dc.SetTextColor(COLORREF(0x0000FF));
    dc.SetBkColor(COLORREF(0xFF0000));
    QCOMPARE(dc.SetTextColor(index), QColor(Qt::red));
    QCOMPARE(dc.GetTextColor(), QColor(Qt::red));
    QCOMPARE(dc.SetBkColor(index), QColor(Qt::blue));
    QCOMPARE(dc.GetBkColor(), QColor(Qt::blue));
}

void tst_DcPalette::aLiteral0IsAnIndex()
{
    Canvas canvas;
    CDC_X dc(&canvas.image);
    dc.SetTextColor(0);
    QCOMPARE(dc.GetTextColor(), QColor(0x21, 0x28, 0x30));
    dc.SetTextColor(0U);
    QCOMPARE(dc.GetTextColor(), QColor(Qt::black));
}

XE_TEST(tst_DcPalette)
#include "tst_dcpalette.moc"
