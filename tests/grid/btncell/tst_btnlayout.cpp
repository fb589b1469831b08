// Cells with buttons: the places of the controls, the room and the tip of the text, and the painting.

#include "btncell/btnstage.h"
#include "leavenothing.h"
#include "testclass.h"

class tst_BtnLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void layout_data();
    void layout();
    void spinPartners();
    void layoutNeedsRoom();
    void hitTest();

    void textRoom();
    void tipText_data();
    void tipText();
    void longTip();
    void tipRects();
    void extent();
    void drawing();
    void drawnControls_data();
    void drawnControls();
};

// -------------------------------------------------------------------------------------------------------------- layout

struct Ctl
{
    UINT type;
    UINT state;
    CTL_ALIGN align;
    int width;
};

Q_DECLARE_METATYPE(QVector<Ctl>)

void tst_BtnLayout::layout_data()
{
    QTest::addColumn<QVector<Ctl>>("controls");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("layout");

    const auto row = [](const char* name, const QVector<Ctl>& controls, int width, const char* layout) {
        QTest::newRow(name) << controls << width << QString::fromLatin1(layout);
    };
    const Ctl leftCheck{DFC_BUTTON, 0, CTL_ALIGN_LEFT, 0};
    const Ctl rightCheck{DFC_BUTTON, 0, CTL_ALIGN_RIGHT, 0};
    const Ctl leftPush{DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0};
    const Ctl rightPush{DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_RIGHT, 0};
    const Ctl left30{DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 30};
    const Ctl right30{DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_RIGHT, 30};
    row("the whole cell", {{DFC_BUTTON, 0, CTL_ALIGN_FULLCELL, 0}}, 100, "0-100 | none");
    row("a square one of a wide cell", {leftCheck}, 100, "0-20 | 23-100");
    row("one at the right", {rightCheck}, 100, "80-100 | 3-80");
    row("a push button takes all", {leftPush}, 100, "0-100 | none");
    row("two push buttons share", {leftPush, leftPush}, 100, "0-50 50-100 | none");
    row("at either side", {leftPush, rightPush}, 100, "0-50 50-100 | none");
    row("fixed widths", {left30, right30}, 100, "0-30 70-100 | 33-70");
    row("fixed and automatic", {left30, leftCheck}, 100, "0-30 30-50 | 53-100");
    row("square and push", {leftCheck, leftPush}, 100, "0-20 20-100 | none");
    row("right before left", {right30, left30}, 100, "70-100 0-30 | 33-70");
    row("cut to the cell", {left30, left30, left30, left30}, 100, "0-30 30-60 60-90 90-100 | none");
    row("all of a narrow cell", {leftCheck}, 15, "0-15 | none");
    row("less than a margin left", {left30}, 32, "0-30 | none");
    row("a margin left", {left30}, 33, "0-30 | 33-33");
}

void tst_BtnLayout::layout()
{
    QFETCH(QVector<Ctl>, controls);
    QFETCH(int, width);
    BtnStage stage;
    for (int i = 0; i < controls.size(); ++i)
        stage.setUp(i, controls[i].type, controls[i].state, controls[i].align, controls[i].width);
    QTEST(stage.layout(width, 20), "layout");
}

void tst_BtnLayout::spinPartners()
{
    BtnStage stage;
    stage.setUp(0, DFC_SCROLL, DFCS_SCROLLUP, CTL_ALIGN_RIGHT, 16);
    stage.setUp(1, DFC_SCROLL, DFCS_SCROLLDOWN, CTL_ALIGN_RIGHT, 16);
    CRect rects[16];
    QCOMPARE(stage.cell->CalcDrawCtlRects(rects, 16, CRect(0, 0, 100, 21)), 1);
    QCOMPARE(rects[0], CRect(84, 0, 100, 10));
    QCOMPARE(rects[1], CRect(84, 10, 100, 21));
    QCOMPARE(rects[2], CRect(3, 0, 84, 21));
}

void tst_BtnLayout::layoutNeedsRoom()
{
    BtnStage stage;
    CRect rects[5];
    QCOMPARE(stage.cell->CalcDrawCtlRects(rects, 5, CRect(0, 0, 100, 20)), 0);
    stage.setUp(0, DFC_BUTTON, 0);
    QCOMPARE(stage.cell->CalcDrawCtlRects(rects, 3, CRect(0, 0, 100, 20)), 0);
    QCOMPARE(stage.cell->CalcDrawCtlRects(nullptr, 5, CRect(0, 0, 100, 20)), 0);
    for (int i = 1; i < 4; ++i)
        stage.setUp(i, DFC_BUTTON, 0);
    rects[4] = CRect(1, 2, 3, 4);
    QCOMPARE(stage.cell->CalcDrawCtlRects(rects, 4, CRect(0, 0, 100, 20)), 1);
    QCOMPARE(rects[4], CRect(1, 2, 3, 4));
}

void tst_BtnLayout::hitTest()
{
    BtnStage stage;
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20);
    stage.setUp(1, DFC_BUTTON, 0, CTL_ALIGN_RIGHT, 20);
    const int right = cellRect(stage).Width();
    const int bottom = cellRect(stage).Height();
    QCOMPARE(stage.cell->RelPointInCtl({0, 0}), 0);
    QCOMPARE(stage.cell->RelPointInCtl({20, bottom}), 0); // right and bottom count
    QCOMPARE(stage.cell->RelPointInCtl({23, 5}), 0);      // where it is painted, by the margin further in
    QCOMPARE(stage.cell->RelPointInCtl({24, 5}), -1);
    QCOMPARE(stage.cell->RelPointInCtl({right, 5}), 1);
    QCOMPARE(stage.cell->RelPointInCtl({right - 23, 5}), 1);
    QCOMPARE(stage.cell->RelPointInCtl({right - 24, 5}), -1);
    QCOMPARE(stage.cell->RelPointInCtl({10, bottom + 1}), -1);
    QCOMPARE(stage.cell->RelPointInCtl({-1, -1}), -1);
    stage.cell->SetCoords(9, 9);
    QCOMPARE(stage.cell->RelPointInCtl({0, 0}), -1);
}

// ------------------------------------------------------------------------------------------------- texts and painting

void tst_BtnLayout::textRoom()
{
    BtnStage stage;
    QCOMPARE(stage.cell->HasCellText(), 1);
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20);
    QCOMPARE(stage.cell->HasCellText(), 1);
    CRect rect(0, 0, 100, 20);
    QCOMPARE(stage.cell->GetTextRect(&rect), 1);
    QCOMPARE(rect, CRect(26, 0, 97, 20));
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_FULLCELL);
    QCOMPARE(stage.cell->HasCellText(), 0);
    QCOMPARE(stage.cell->GetTextRect(&rect), 1);
    QCOMPARE(rect, CRect(0, 0, 0, 0));
    QCOMPARE(stage.cell->GetTextRect(nullptr), 0);
}

void tst_BtnLayout::tipText_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("tip");

    const auto row = [](const char* name, const char* texts, const char* tip) {
        QTest::newRow(name) << QString::fromLatin1(texts).split(QLatin1Char('|')) << QString::fromLatin1(tip);
    };
    row("one", "&Open", "Open");
    row("two", "&Open|Clo&se", "Open Close");
    row("one without a text between", "&Open||Clo&se", "Open Close");
    row("two ampersands are one", "Nuts && &Bolts", "Nuts & Bolts");
    row("an ampersand at the end", "Open&", "Open");
    row("none", "", "");
}

void tst_BtnLayout::tipText()
{
    QFETCH(QStringList, texts);
    BtnStage stage;
    stage.cell->SetText(L"text");
    QCOMPARE(textOf(stage.cell->GetTipText()), QStringLiteral("text"));
    for (int i = 0; i < texts.size(); ++i)
        stage.setUp(i, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, texts[i].toStdWString().c_str());
    QTEST(textOf(stage.cell->GetTipText()), "tip");
}

void tst_BtnLayout::longTip()
{
    BtnStage stage;
    const std::wstring text(700, L'x');
    stage.setUp(0, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, text.c_str());
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, text.c_str());
    QCOMPARE(static_cast<int>(std::wcslen(stage.cell->GetTipText())), 1022);
}

void tst_BtnLayout::tipRects()
{
    BtnStage stage;
    CRect rect(10, 20, 110, 40);
    QCOMPARE(stage.cell->GetTipTextRect(&rect), 1); // without controls the text has all of it
    QCOMPARE(rect, CRect(10, 20, 110, 40));
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20);
    QCOMPARE(stage.cell->GetTipTextRect(&rect), 1);
    QCOMPARE(rect, CRect(36, 20, 107, 40));
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_FULLCELL);
    rect = CRect(10, 20, 110, 40);
    QCOMPARE(stage.cell->GetTipTextRect(&rect), 1);
    QCOMPARE(rect, CRect(10, 20, 110, 40));
    stage.cell->SetDrawCtlNbr(0);
    stage.cell->SetCoords(9, 9); // no text can be seen, and there is no control
    QCOMPARE(stage.cell->GetTipTextRect(&rect), 1);
    QCOMPARE(rect, CRect(0, 0, 0, 0));
    QCOMPARE(stage.cell->GetTipTextRect(nullptr), 0);
}

void tst_BtnLayout::extent()
{
    BtnStage stage;
    stage.cell->SetText(L"text");
    const CSize base = stage.cell->GetCellExtent();
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 25);
    QCOMPARE(stage.cell->GetCellExtent(), CSize(base.cx + 25 + 12, base.cy));
    stage.setUp(1, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 0);
    QCOMPARE(stage.cell->GetCellExtent(), CSize(base.cx + 25 + base.cy + 12, base.cy));
    stage.setUp(2, DFC_BUTTON, DFCS_BUTTONPUSH, CTL_ALIGN_LEFT, 0, FALSE, L"Caption");
    const int caption =
        QFontMetrics(*stage.cell->GetFont())
            .boundingRect(QRect(QPoint(0, 0), QPoint(-1, -1)), ToQtTextFlag(0x8026), QStringLiteral("Caption"))
            .width();
    QCOMPARE(stage.cell->GetCellExtent(), CSize(base.cx + 25 + base.cy + caption + 12, base.cy));
}

void tst_BtnLayout::drawing()
{
    BtnStage stage;
    QImage image(120, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    CDC_X dc(&image);
    CRect rect(10, 5, 110, 30);
    QCOMPARE(stage.cell->DrawBtnCell(&dc, 1, 1, &rect, 0), 1); // no controls: the whole cell is left
    QCOMPARE(rect, CRect(10, 5, 110, 30));
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20);
    QCOMPARE(stage.cell->DrawBtnCell(&dc, 1, 1, &rect, 0), 1);
    QCOMPARE(rect, CRect(36, 5, 107, 30));
    QCOMPARE(stage.cell->DrawBtnCell(nullptr, 1, 1, &rect, 0), 0);
    rect = CRect(10, 5, 10, 30);
    QCOMPARE(stage.cell->DrawBtnCell(&dc, 1, 1, &rect, 0), 0);
    stage.setUp(0, DFC_BUTTON, 0, CTL_ALIGN_FULLCELL);
    image.fill(Qt::white);
    QCOMPARE(stage.cell->Draw(&dc, 1, 1, CRect(10, 5, 110, 30), nullptr, 0), 1);
    QVERIFY(image.pixelColor(10, 5) == Qt::white);
    stage.cell->SetState(CGridCellBase_X::Selected);
    stage.cell->Draw(&dc, 1, 1, CRect(10, 5, 110, 30), nullptr, 0);
    QVERIFY(image.pixelColor(10, 5) == Qt::black); // an outline
    QVERIFY(image.pixelColor(110, 30) == Qt::black);
    QCOMPARE(stage.cell->PrintCell(&dc, 1, 1, CRect(10, 5, 110, 30)), 0);
}

void tst_BtnLayout::drawnControls_data()
{
    QTest::addColumn<unsigned>("state");
    QTest::addColumn<unsigned>("sameAs");
    QTest::addColumn<unsigned>("unlike");

    QTest::newRow("check box") << checked << (checked | pressed) << 0u;
    QTest::newRow("radio button") << (DFCS_BUTTONRADIO | checked) << (DFCS_BUTTONRADIO | checked | 1)
                                  << DFCS_BUTTONRADIO;
    QTest::newRow("push button") << DFCS_BUTTONPUSH << (DFCS_BUTTONPUSH | checked) << (DFCS_BUTTONPUSH | pressed);
    QTest::newRow("push before radio") << (DFCS_BUTTONPUSH | DFCS_BUTTONRADIO) << DFCS_BUTTONPUSH << DFCS_BUTTONRADIO;
    QTest::newRow("inactive") << (DFCS_INACTIVE | checked) << (DFCS_INACTIVE | checked) << checked;
    QTest::newRow("an arrow is a check box") << 1u << 0u << checked;
}

void tst_BtnLayout::drawnControls()
{
    QFETCH(unsigned, state);
    QFETCH(unsigned, sameAs);
    QFETCH(unsigned, unlike);
    const auto picture = [](unsigned look) {
        BtnStage stage;
        stage.setUp(0, DFC_BUTTON, look, CTL_ALIGN_FULLCELL, 0, FALSE, L"Go");
        QImage image(100, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        CDC_X dc(&image);
        stage.cell->Draw(&dc, 1, 1, CRect(0, 0, 99, 29), nullptr, 0);
        return image;
    };
    QVERIFY(picture(state) == picture(sameAs));
    QVERIFY(picture(state) != picture(unlike));
}

XE_TEST(tst_BtnLayout)

#include "tst_btnlayout.moc"
