#include "gridwindow.h"
#include "leavenothing.h"
#include "testclass.h"

#include <xeafxmenu.h>

#include <QClipboard>
#include <QMimeData>
#include <QRegularExpression>

namespace {

QString copied(CGridCtrl_X& grid)
{
    const std::unique_ptr<QMimeData> data(grid.CopyTextFromGrid());
    return data ? data->text() : QStringLiteral("nothing");
}

int paste(CGridCtrl_X& grid, int row, int col, const QString& text)
{
    QMimeData data;
    data.setText(text);
    return grid.PasteTextToGrid(CCellID_X(row, col), &data);
}

// The rows of a grid as "1|2;3|4".
QString contents(const CGridCtrl_X& grid)
{
    QStringList rows;
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        QStringList fields;
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            fields += XeQString(grid.GetItemText(row, col));
        rows += fields.join(QLatin1Char('|'));
    }
    return rows.join(QLatin1Char(';'));
}

bool isEnabledBy(CGridCtrl_X& grid, void (CGridCtrl_X::*update)(CCmdUI_X*))
{
    QAction action;
    CCmdUI_X command;
    command.m_pOther = &action;
    (grid.*update)(&command);
    (grid.*update)(nullptr);
    return action.isEnabled();
}

} // namespace

class tst_GridClipboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->clear(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void copies_data();
    void copies();
    void copiesPlainText();
    void copyWithoutSelection();
    void copyThroughTheClipboard();
    void pastes_data();
    void pastes();
    void pasteIsRefused();
    void pasteNotices();
    void pasteOverReadOnlyCells();
    void pasteToHiddenLines();
    void pasteUnselects();
    void pasteFromTheClipboard();
    void cuts();
    void cutSkips();
    void noticesMayDelete_data();
    void noticesMayDelete();
    void noticesMayDeleteWhileCutting();
    void notEditable();
    void commandUpdates();
    void largeCopies();
};

void tst_GridClipboard::copies_data()
{
    QTest::addColumn<QString>("selected"); // "row,column" of the first and the last cell of each block
    QTest::addColumn<int>("hiddenRow");
    QTest::addColumn<int>("hiddenColumn");
    QTest::addColumn<QString>("text");

    QTest::newRow("a cell") << "1,1-1,1" << -1 << -1 << "1,1";
    QTest::newRow("a row") << "1,1-1,3" << -1 << -1 << "1,1\t1,2\t1,3";
    QTest::newRow("a block") << "1,1-2,2" << -1 << -1 << "1,1\t1,2\n2,1\t2,2";
    QTest::newRow("what is not selected is empty") << "1,1-1,1 2,3-2,3" << -1 << -1 << "1,1\t\t\n\t\t2,3";
    QTest::newRow("a hidden column") << "1,1-2,3" << -1 << 2 << "1,1\t1,3\n2,1\t2,3";
    QTest::newRow("the last column is hidden") << "1,1-2,3" << -1 << 3 << "1,1\t1,2\n2,1\t2,2";
    QTest::newRow("a hidden row") << "1,1-3,1" << 2 << -1 << "1,1\n3,1";
    QTest::newRow("the last row is hidden") << "1,1-3,1" << 3 << -1 << "1,1\n2,1";
}

void tst_GridClipboard::copies()
{
    QFETCH(QString, selected);
    QFETCH(int, hiddenRow);
    QFETCH(int, hiddenColumn);
    GridWindow<> host(4, 4);
    host.fill();
    for (const QString& block : selected.split(QLatin1Char(' '))) {
        const auto lines = block.split(QRegularExpression(QStringLiteral("[,-]")));
        for (int row = lines[0].toInt(); row <= lines[2].toInt(); ++row) {
            for (int col = lines[1].toInt(); col <= lines[3].toInt(); ++col)
                host.grid->SetItemState(row, col, CGridCellBase_X::Selected);
        }
    }
    host.grid->SetRowHeight(hiddenRow, 0);
    host.grid->SetColumnWidth(hiddenColumn, 0);
    QTEST(copied(*host.grid), "text");
}

void tst_GridClipboard::copiesPlainText()
{
    CGridCtrl_X grid(2, 2, 1, 1);
    grid.SetItemText(1, 1, CString_X(QString::fromUtf8("世界 a,b \"c\"")));
    grid.SelectAllCells();
    const std::unique_ptr<QMimeData> data(grid.CopyTextFromGrid());
    QCOMPARE(data->formats(), QStringList(QStringLiteral("text/plain")));
    QCOMPARE(data->text(), QString::fromUtf8("世界 a,b \"c\""));
}

void tst_GridClipboard::copyWithoutSelection()
{
    CGridCtrl_X grid(3, 3, 1, 1);
    QCOMPARE(grid.CopyTextFromGrid(), nullptr);
    QGuiApplication::clipboard()->setText(QStringLiteral("stays"));
    grid.OnEditCopy();
    grid.OnEditCut();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("stays"));
}

void tst_GridClipboard::copyThroughTheClipboard()
{
    GridWindow<> host(3, 3);
    host.fill();
    host.grid->SelectAllCells();
    host.grid->m_bEditable = FALSE; // copying does not change anything
    host.grid->OnEditCopy();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1,1\t1,2\n2,1\t2,2"));
}

void tst_GridClipboard::pastes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("contents");

    QTest::newRow("a text") << "x"
                            << ".|.|.;.|x|.;.|.|.";
    QTest::newRow("commas and tabs part fields") << "x,y\nz"
                                                 << ".|.|.;.|x|y;.|z|.";
    QTest::newRow("tabs") << "x\ty\nz\tw"
                          << ".|.|.;.|x|y;.|z|w";
    QTest::newRow("separators in a row are one") << "x\t,\ty"
                                                 << ".|.|.;.|x|y;.|.|.";
    QTest::newRow("a line of separators") << "\t,\nx"
                                          << ".|.|.;.|.|.;.|x|.";
    QTest::newRow("an empty line clears one field") << "\nx"
                                                    << ".|.|.;.||.;.|x|.";
    QTest::newRow("an empty line in the middle") << "x\n\ny"
                                                 << ".|.|.;.|x|.;.||.";
    QTest::newRow("the end of the last line makes no line") << "x\n"
                                                            << ".|.|.;.|x|.;.|.|.";
    QTest::newRow("fields are trimmed") << "  x \t y\r\nz\r\n"
                                        << ".|.|.;.|x|y;.|z|.";
    QTest::newRow("past the last column") << "x\ty\tz"
                                          << ".|.|.;.|x|y;.|.|.";
    QTest::newRow("past the last row") << "x\ny\nz\nw"
                                       << ".|.|.;.|x|.;.|y|.";
    QTest::newRow("no text") << ""
                             << ".|.|.;.|.|.;.|.|.";
    QTest::newRow("Chinese") << QString::fromUtf8("世界\t😀") << QString::fromUtf8(".|.|.;.|世界|😀;.|.|.");
}

void tst_GridClipboard::pastes()
{
    QFETCH(QString, text);
    CGridCtrl_X grid(3, 3, 1, 1);
    for (int i = 0; i < 9; ++i)
        grid.SetItemText(i / 3, i % 3, L".");
    QCOMPARE(paste(grid, 1, 1, text), 1);
    QTEST(contents(grid), "contents");
}

void tst_GridClipboard::pasteIsRefused()
{
    CGridCtrl_X grid(3, 3, 1, 1);
    QCOMPARE(paste(grid, 3, 1, QStringLiteral("x")), 0);
    QCOMPARE(paste(grid, -1, -1, QStringLiteral("x")), 0);
    QCOMPARE(grid.PasteTextToGrid(CCellID_X(1, 1), nullptr), 0);
    QMimeData noText;
    noText.setImageData(QImage(1, 1, QImage::Format_RGB32));
    QCOMPARE(grid.PasteTextToGrid(CCellID_X(1, 1), &noText), 0);
    grid.SetItemState(1, 1, CGridCellBase_X::ReadOnly);
    QCOMPARE(paste(grid, 1, 1, QStringLiteral("x")), 0);
    QCOMPARE(contents(grid), QStringLiteral("||;||;||"));
}

void tst_GridClipboard::pasteNotices()
{
    GridWindow<> host(3, 3);
    host.fill();
    host.grid->SetModified(FALSE);
    host.window.take();
    QStringList seen;
    host.window.onNotice = [&](const XeGridNotification& told) {
        seen += GridParent::nameOf(told.hdr.code) + XeQString(host.grid->GetItemText(told.iRow, told.iColumn));
    };
    paste(*host.grid, 1, 1, QStringLiteral("x\ty"));
    QCOMPARE(host.window.take(), QStringLiteral("BEGIN(1, 1) END(1, 1) BEGIN(1, 2) END(1, 2)"));
    QCOMPARE(seen.join(QLatin1Char(' ')), QStringLiteral("BEGIN1,1 ENDx BEGIN1,2 ENDy"));
    QCOMPARE(host.inState(CGridCellBase_X::Modified), QStringLiteral("1,1 1,2"));
}

void tst_GridClipboard::pasteOverReadOnlyCells()
{
    CGridCtrl_X grid(3, 3, 1, 1);
    grid.SetItemState(1, 2, CGridCellBase_X::ReadOnly);
    paste(grid, 1, 1, QStringLiteral("x\ty"));
    QCOMPARE(contents(grid), QStringLiteral("||;|x|y;||"));
}

void tst_GridClipboard::pasteToHiddenLines()
{
    GridWindow<> host(6, 6);
    for (const int line : {1, 3, 4}) {
        host.grid->SetRowHeight(line, 0);
        host.grid->SetColumnWidth(line, 0);
    }
    paste(*host.grid, 1, 1, QStringLiteral("a\tb\tc\nd\te"));
    QCOMPARE(contents(*host.grid), QStringLiteral("|||||;|||||;||a|||b;|||||;|||||;||d|||e"));
}

void tst_GridClipboard::pasteUnselects()
{
    GridWindow<> host(4, 4);
    host.grid->SelectAllCells();
    paste(*host.grid, 1, 1, QStringLiteral("x\ty"));
    QCOMPARE(host.selected(), QStringLiteral("1,3 2,1 2,2 2,3 3,1 3,2 3,3"));
}

void tst_GridClipboard::pasteFromTheClipboard()
{
    GridWindow<> host(4, 4);
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    host.grid->SetFocusCell(2, 2);
    host.grid->OnEditPaste();
    QVERIFY(host.grid->GetItemText(2, 2) == L"x");
    host.grid->SetFocusCell(-1, -1);
    host.grid->OnEditPaste(); // without a focus to the first cell that is seen
    QVERIFY(host.grid->GetItemText(1, 1) == L"x");
}

void tst_GridClipboard::cuts()
{
    GridWindow<> host(4, 4);
    host.fill();
    host.grid->SetModified(FALSE);
    host.grid->SetSelectedRange(1, 1, 1, 2);
    host.window.take();
    host.grid->OnEditCut();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1,1\t1,2"));
    QVERIFY(host.grid->GetItemText(1, 1).IsEmpty());
    QVERIFY(host.grid->GetItemText(1, 2).IsEmpty());
    QVERIFY(host.grid->GetItemText(1, 3) == L"1,3");
    QStringList notices =
        host.window.take().replace(QStringLiteral(") "), QStringLiteral(")|")).split(QLatin1Char('|'));
    notices.sort();
    QCOMPARE(notices.join(QLatin1Char(' ')), QStringLiteral("BEGIN(1, 1) BEGIN(1, 2) END(1, 1) END(1, 2)"));
    QCOMPARE(host.inState(CGridCellBase_X::Modified), QStringLiteral("1,1 1,2"));
    QCOMPARE(host.selected(), QStringLiteral("1,1 1,2"));
}

void tst_GridClipboard::cutSkips()
{
    GridWindow<> host(4, 4);
    host.fill();
    host.grid->SelectAllCells();
    host.grid->SetItemState(1, 1, CGridCellBase_X::Selected | CGridCellBase_X::ReadOnly);
    host.grid->SetColumnWidth(2, 0);
    host.grid->SetRowHeight(2, 0);
    host.grid->CutSelectedText();
    QCOMPARE(contents(*host.grid), QStringLiteral("0,0|0,1|0,2|0,3;1,0|1,1|1,2|;2,0|2,1|2,2|2,3;3,0||3,2|"));
}

void tst_GridClipboard::noticesMayDelete_data()
{
    QTest::addColumn<UINT>("code");
    QTest::addColumn<bool>("deletesGrid");

    QTest::newRow("the grid, before") << LVN_BEGINLABELEDITW << true;
    QTest::newRow("the grid, after") << LVN_ENDLABELEDITW << true;
    QTest::newRow("all rows, before") << LVN_BEGINLABELEDITW << false;
    QTest::newRow("all rows, after") << LVN_ENDLABELEDITW << false;
}

void tst_GridClipboard::noticesMayDelete()
{
    QFETCH(UINT, code);
    QFETCH(bool, deletesGrid);
    GridWindow<> host(4, 4);
    host.window.onNotice = [&](const XeGridNotification& told) {
        if (told.hdr.code != code)
            return;
        deletesGrid ? host.grid.reset() : void(host.grid->DeleteAllItems());
    };
    QCOMPARE(paste(*host.grid, 1, 1, QStringLiteral("a\tb\nc\td")), deletesGrid ? 0 : 1);
}

void tst_GridClipboard::noticesMayDeleteWhileCutting()
{
    GridWindow<> host(4, 4);
    host.grid->SelectAllCells();
    host.window.onNotice = [&](const XeGridNotification&) { host.grid->SetRowCount(1); };
    host.grid->CutSelectedText();
    QCOMPARE(host.grid->GetRowCount(), 1);
    host.grid->SetRowCount(4);
    host.grid->SelectAllCells();
    host.window.onNotice = [&](const XeGridNotification&) { host.grid.reset(); };
    host.grid->OnEditCut();
    QVERIFY(!host.grid);
}

void tst_GridClipboard::notEditable()
{
    GridWindow<> host(3, 3);
    host.fill();
    host.grid->SelectAllCells();
    host.grid->SetFocusCell(1, 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    host.grid->m_bEditable = FALSE;
    const QString before = contents(*host.grid);
    host.grid->OnEditCut();
    host.grid->CutSelectedText();
    host.grid->OnEditPaste();
    QCOMPARE(paste(*host.grid, 1, 1, QStringLiteral("x")), 0);
    QCOMPARE(contents(*host.grid), before);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("x"));
}

void tst_GridClipboard::commandUpdates()
{
    GridWindow<> host(3, 3);
    CGridCtrl_X& grid = *host.grid;
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditCopy));
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditCut));
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditPaste));
    grid.SetSelectedRange(1, 1, 1, 1);
    QVERIFY(isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditCopy));
    QVERIFY(isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditCut));
    grid.SetFocusCell(1, 1);
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditPaste));
    QGuiApplication::clipboard()->setText(QStringLiteral("x"));
    QVERIFY(isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditPaste));
    grid.SetItemState(1, 1, grid.GetItemState(1, 1) | CGridCellBase_X::ReadOnly);
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditPaste));
    grid.SetFocusCell(1, 2);
    grid.m_bEditable = FALSE;
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditPaste));
    QVERIFY(!isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditCut));
    QVERIFY(isEnabledBy(grid, &CGridCtrl_X::OnUpdateEditCopy));
}

void tst_GridClipboard::largeCopies()
{
    CGridCtrl_X grid(501, 200, 1, 0);
    grid.SelectAllCells();
    for (int row = 1; row < 501; ++row)
        grid.SetItemText(row, row % 200, L"x");
    const QString text = copied(grid);
    QCOMPARE(text.count(QLatin1Char('\t')), 500 * 199);
    QCOMPARE(text.count(QLatin1Char('\n')), 499);
    QCOMPARE(text.count(QLatin1Char('x')), 500);
}

XE_TEST(tst_GridClipboard)

#include "tst_gridclipboard.moc"
