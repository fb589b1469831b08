// Cells with buttons: what they share, what they hold, and which controls they take.

#include "btncell/btnstage.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_BtnCell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void sharedStartValues();
    void sharedValues();
    void cellStartValues();
    void withoutSharedData();
    void forwarding();
    void ownTextAndFormat();
    void reset();
    void indexOutside();
    void numberOfControls();

    void setupRefused_data();
    void setupRefused();
    void setup();
    void setupLeavesGaps();
};

// ------------------------------------------------------------------------------------------------------ data and cells

void tst_BtnCell::sharedStartValues()
{
    const CBtnDataBase_X data;
    QCOMPARE(textOf(data.GetText(0, 0)), QString());
    QCOMPARE(data.GetFormat(0, 0), 0x8024u);
    QCOMPARE(data.GetImage(0, 0), -1);
    QCOMPARE(data.GetTile(0, 0), 0);
    QCOMPARE(data.GetTextClr(0, 0), 0xFF000000u);
    QCOMPARE(data.GetBackClr(0, 0), 0xFF000000u);
    QCOMPARE(data.GetData(0, 0), 0LL);
    QCOMPARE(*data.GetFont(0, 0), QFont());
    QCOMPARE(data.GetMargin(0, 0), 3u);
    QVERIFY(!data.GetGrid());
    QVERIFY(!data.GetEditWnd());
}

void tst_BtnCell::sharedValues()
{
    CBtnDataBase_X data;
    data.SetText(1, 2, L"text");
    data.SetImage(1, 2, 5);
    data.SetTile(1, 2, 1);
    data.SetData(1, 2, 1LL << 40);
    data.SetFormat(1, 2, 7);
    data.SetTextClr(1, 2, 8);
    data.SetBackClr(1, 2, 9);
    data.SetMargin(1, 2, 10);
    const QFont font(QStringLiteral("DejaVu Sans"), 21);
    data.SetFont(1, 2, reinterpret_cast<const CFont_X*>(&font));
    data.SetFont(1, 2, nullptr);
    QCOMPARE(textOf(data.GetText(7, 7)), QStringLiteral("text"));
    QCOMPARE(data.GetImage(7, 7), 5);
    QCOMPARE(data.GetTile(7, 7), 1);
    QCOMPARE(data.GetData(7, 7), 1LL << 40);
    QCOMPARE(data.GetFormat(7, 7), 7u);
    QCOMPARE(data.GetTextClr(7, 7), 8u);
    QCOMPARE(data.GetBackClr(7, 7), 9u);
    QCOMPARE(data.GetMargin(7, 7), 10u);
    QCOMPARE(*data.GetFont(7, 7), font);
    data.SetText(0, 0, nullptr);
    QCOMPARE(textOf(data.GetText(0, 0)), QString());
}

void tst_BtnCell::cellStartValues()
{
    const std::unique_ptr<CObject_X> object(RUNTIME_CLASS_X(CGridBtnCell_X)->CreateObject());
    const auto& cell = *static_cast<CGridBtnCell_X*>(object.get());
    QVERIFY(cell.IsKindOf(RUNTIME_CLASS_X(CGridBtnCellBase_X)));
    QCOMPARE(cell.GetLastCtlClicked(), short(-1));
    QCOMPARE(cell.GetDrawCtlNbr(), short(0));
    QCOMPARE(cell.GetDrawCtlNbrMax(), short(4));
    QVERIFY(cell.GetCoords() == CCellID_X(-1, -1));
    QCOMPARE(cell.IsEditing(), 0);
    QVERIFY(!cell.GetBtnDataBase());
    QCOMPARE(cell.GetFormat(), 0x8026u);
    QCOMPARE(textOf(cell.GetText()), QString());
    QCOMPARE(CGridBtnCellBase_X().GetDrawCtlNbrMax(), short(0));
}

void tst_BtnCell::withoutSharedData()
{
    CGridBtnCellBase_X cell;
    cell.SetText(L"x");
    cell.SetFormat(1);
    cell.SetImage(1);
    cell.SetMargin(4);
    cell.SetGrid(nullptr);
    cell.SetEditWnd(nullptr);
    QVERIFY(!cell.GetText());
    QVERIFY(!cell.GetFont());
    QVERIFY(!cell.GetGrid());
    QVERIFY(!cell.GetEditWnd());
    QCOMPARE(cell.GetFormat(), 0u);
    QCOMPARE(cell.GetMargin(), 0u);
    QCOMPARE(cell.GetImage(), 0);
    QCOMPARE(cell.HasCellText(), 0);
    QCOMPARE(cell.RelPointInCtl({0, 0}), -1);
    QCOMPARE(cell.Edit(0, 0, CRect(), {0, 0}, 8, 1), 1);
    QImage image(50, 20, QImage::Format_RGB32);
    CDC_X dc(&image);
    QCOMPARE(cell.Draw(&dc, 0, 0, CRect(0, 0, 40, 15), nullptr, 0), 0);
    cell.EndEdit();
    cell.OnEndEdit();
    cell.OnClick({1, 1});
    cell.OnDblClick({1, 1});
    cell.OnRClick({1, 1});
}

void tst_BtnCell::forwarding()
{
    CBtnDataBase_X data;
    CGridBtnCellBase_X cell;
    cell.SetBtnDataBase(&data);
    QCOMPARE(cell.GetBtnDataBase(), &data);
    cell.SetText(L"shared");
    cell.SetMargin(9);
    cell.SetTextClr(1);
    cell.SetBackClr(2);
    cell.SetTile(1);
    cell.SetData(3);
    cell.SetImage(4);
    cell.SetFormat(5);
    QCOMPARE(textOf(data.GetText(0, 0)), QStringLiteral("shared"));
    QCOMPARE(textOf(cell.GetText()), QStringLiteral("shared"));
    QCOMPARE(data.m_nMargin, 9u);
    QCOMPARE(cell.GetTextClr(), 1u);
    QCOMPARE(cell.GetBackClr(), 2u);
    QCOMPARE(cell.GetTile(), 1);
    QCOMPARE(cell.GetData(), 3LL);
    QCOMPARE(cell.GetImage(), 4);
    QCOMPARE(cell.GetFormat(), 5u);
}

void tst_BtnCell::ownTextAndFormat()
{
    BtnStage stage;
    stage.grid->SetItemText(1, 1, L"own");
    QCOMPARE(textOf(stage.cell->GetText()), QStringLiteral("own"));
    QCOMPARE(textOf(stage.shared.GetText(1, 1)), QString());
    stage.grid->SetItemText(2, 2, L"kept");
    stage.grid->SetCellType(2, 2, RUNTIME_CLASS_X(CGridBtnCell_X));
    QCOMPARE(textOf(stage.grid->cellAt(2, 2)->GetText()), QStringLiteral("kept"));
    stage.cell->SetText(nullptr);
    QCOMPARE(textOf(stage.cell->GetText()), QString());
}

void tst_BtnCell::reset()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20, TRUE, L"&One");
    stage.cell->SetText(L"x");
    stage.cell->SetFormat(1);
    stage.cell->m_nLastCtlClicked = 0;
    stage.cell->Reset();
    QCOMPARE(stage.cell->GetDrawCtlNbr(), short(0));
    QCOMPARE(stage.cell->GetDrawCtlWidth(0), 0);
    QCOMPARE(textOf(stage.cell->GetDrawCtlBtnText(0)), QString());
    QCOMPARE(stage.cell->GetFormat(), 0x8026u);
    QCOMPARE(textOf(stage.cell->GetText()), QString());
    QVERIFY(stage.cell->GetCoords() == CCellID_X(-1, -1));
    QVERIFY(!stage.cell->GetBtnDataBase());
    QCOMPARE(stage.cell->GetLastCtlClicked(), short(-1));
}

void tst_BtnCell::indexOutside()
{
    CGridBtnCell_X cell;
    for (const int index : {-1, 4}) {
        cell.SetDrawCtlType(index, 1);
        cell.SetDrawCtlState(index, 1);
        cell.SetDrawCtlWidth(index, 1);
        cell.SetDrawCtlAlign(index, CTL_ALIGN_LEFT);
        cell.SetDrawCtlBtnText(index, L"x");
        cell.SetDrawCtlIsMbrRadioGrp(index, 1);
        QCOMPARE(cell.GetDrawCtlType(index), 0u);
        QCOMPARE(cell.GetDrawCtlState(index), 0u);
        QCOMPARE(cell.GetDrawCtlWidth(index), 0);
        QCOMPARE(cell.GetDrawCtlAlign(index), CTL_ALIGN_FULLCELL);
        QCOMPARE(textOf(cell.GetDrawCtlBtnText(index)), QString());
        QCOMPARE(cell.GetDrawCtlIsMbrRadioGrp(index), 0);
    }
}

void tst_BtnCell::numberOfControls()
{
    CGridBtnCell_X cell;
    cell.SetDrawCtlNbr(9);
    QCOMPARE(cell.GetDrawCtlNbr(), short(4));
    cell.SetDrawCtlNbr(-2);
    QCOMPARE(cell.GetDrawCtlNbr(), short(0));
}

// --------------------------------------------------------------------------------------------------------------- setup

void tst_BtnCell::setupRefused_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("align");

    QTest::newRow("below 0") << -1 << 1;
    QTest::newRow("a fifth") << 4 << 1;
    QTest::newRow("no alignment") << 0 << 3;
    QTest::newRow("a second one over the whole cell") << 1 << 0;
}

void tst_BtnCell::setupRefused()
{
    QFETCH(int, index);
    QFETCH(int, align);
    CGridBtnCell_X cell;
    QCOMPARE(cell.SetupBtns(index, DFC_BUTTON, 0, static_cast<CTL_ALIGN>(align), 10, 0, L"x"), 0);
    QCOMPARE(cell.GetDrawCtlNbr(), short(0));
}

void tst_BtnCell::setup()
{
    CGridBtnCell_X cell;
    QCOMPARE(cell.SetupBtns(0, DFC_BUTTON, checked | DFCS_BUTTONRADIO, CTL_ALIGN_RIGHT, 17, 5, L"&One"), 1);
    QCOMPARE(cell.GetDrawCtlNbr(), short(1));
    QCOMPARE(cell.GetDrawCtlType(0), DFC_BUTTON);
    QCOMPARE(cell.GetDrawCtlState(0), checked | DFCS_BUTTONRADIO);
    QCOMPARE(cell.GetDrawCtlAlign(0), CTL_ALIGN_RIGHT);
    QCOMPARE(cell.GetDrawCtlWidth(0), 17);
    QCOMPARE(cell.GetDrawCtlIsMbrRadioGrp(0), 1);
    QCOMPARE(textOf(cell.GetDrawCtlBtnText(0)), QStringLiteral("&One"));
    QCOMPARE(cell.SetupBtns(0, DFC_SCROLL, 1, CTL_ALIGN_FULLCELL, -3, 0, nullptr), 1);
    QCOMPARE(cell.GetDrawCtlNbr(), short(1));
    QCOMPARE(cell.GetDrawCtlAlign(0), CTL_ALIGN_FULLCELL);
    QCOMPARE(cell.GetDrawCtlIsMbrRadioGrp(0), 0);
    QCOMPARE(cell.GetDrawCtlWidth(0), -3);
}

void tst_BtnCell::setupLeavesGaps()
{
    CGridBtnCell_X cell;
    QCOMPARE(cell.SetupBtns(2, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 10, 0, L"x"), 1);
    QCOMPARE(cell.GetDrawCtlNbr(), short(3));
    QCOMPARE(cell.GetDrawCtlType(0), 0u);
    QCOMPARE(cell.GetDrawCtlAlign(1), CTL_ALIGN_FULLCELL);
}

XE_TEST(tst_BtnCell)

#include "tst_btncell.moc"
