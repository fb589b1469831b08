// What else a user's hands do in the list of parts, and what follows an edit in a cell: the dialog and the menus, the
// chart, the status bar and the messages, a book that is saved or closed.

#include "cellsuser.h"
#include "modaldriver.h"
#include "resource.h"
#include "samplelines.h"
#include "testclass.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTreeWidget>
#include <xeresource.h>

class tst_PartsbookCellsAround : public QObject, CellsUser
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void init() { comeUp(); }
    void cleanup() { goAway(); }

    void theDialogOpens_data();
    void theDialogOpens();
    void aDoubleClickEditsAnyOtherField();
    void f2EditsTheCellWithTheFocus();
    void theMenuKey();

    void everythingFollowsTheChange();
    void theStatusBarTellsThePlace();
    void theMessageWindowTellsWhatIsNotified();
    void aPartThatTheTreeDoesNotShowAnyMore();
    void savingEndsTheEdit();
    void closingEndsTheEdit();
};

// ------------------------------------------------------------------------------------------ the whole part, and others

void tst_PartsbookCellsAround::theDialogOpens_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("byKey");
    QTest::newRow("by a double click on the number") << int(Number) << false;
    QTest::newRow("by a double click on the number of the row") << -1 << false;
    QTest::newRow("by Return on any field") << int(Price) << true;
}

void tst_PartsbookCellsAround::theDialogOpens()
{
    QFETCH(const int, column);
    QFETCH(const bool, byKey);
    const ModalDriver<QDialog> driver([&](QDialog* dialog) {
        QCOMPARE(dialog->findChild<QLineEdit*>("IDC_NUMBER")->text(), QString("FA-3"));
        dialog->findChild<QLineEdit*>("IDC_STOCK")->setText("7");
        dialog->accept();
    });
    if (byKey) {
        click(2, column);
        type(keyReturn);
    } else {
        doubleClick(2, column);
    }
    QTRY_VERIFY(driver.hasActed());
    QVERIFY(!isEditing());
}

void tst_PartsbookCellsAround::aDoubleClickEditsAnyOtherField()
{
    doubleClick(1, Name);
    QTRY_VERIFY(isEditing());
    QVERIFY(!QApplication::activeModalWidget());
    type("s");
    type(keyReturn);
    QTRY_COMPARE(cell(1, Name), QString("Bearings"));
}

// Also while the tree has a name that could be changed.
void tst_PartsbookCellsAround::f2EditsTheCellWithTheFocus()
{
    auto* const tree = window()->findChild<QTreeWidget*>();
    tree->setCurrentItem(tree->findItems("Fastener", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    m_frame->OnEnterIdle();
    click(0, Number);
    type(keyF2);
    QTRY_VERIFY(isEditing());
    type("x");
    type(keyReturn);
    QTRY_COMPARE(cell(0, Number), QString("FA-1x"));
}

void tst_PartsbookCellsAround::theMenuKey()
{
    click(1, Name);
    QString first;
    QTimer watch; // the menu has a loop of its own
    connect(&watch, &QTimer::timeout, this, [&] {
        if (const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            first = menu->actions().constFirst()->text();
            watch.stop();
            type(keyEscape);
        }
    });
    watch.start(10);
    type(keyMenu);
    QTRY_VERIFY(!QApplication::activePopupWidget() && !first.isEmpty());
    QVERIFY2(first.startsWith("&New..."), qPrintable(first));
    QCOMPARE(table().currentRow(), 1);
}

// --------------------------------------------------------------------------------------------------- what else changes

void tst_PartsbookCellsAround::everythingFollowsTheChange()
{
    QCOMPARE(paneText(3), QString("1 short 缺货"));
    const COLORREF before = table().color(0, Name);
    QVERIFY(table().color(1, Name) != before); // it is short
    click(0, Stock);
    type("4");
    type(keyReturn);
    QTRY_COMPARE(table().color(0, Name), table().color(1, Name));
    QTRY_COMPARE(table().color(0, Supplier), table().color(1, Name));
    QCOMPARE(paneText(0), QString("Changed FA-1 已修改"));
    QCOMPARE(paneText(3), QString("2 short 缺货"));
    QTRY_VERIFY(isModified());
    clickAt(placeOf(1, InUse));
    QTRY_COMPARE(paneText(3), QString("1 short 缺货"));
    QVERIFY(table().color(1, Name) != before);
    QVERIFY(table().color(1, Name) != table().color(0, Name));
}

void tst_PartsbookCellsAround::theStatusBarTellsThePlace()
{
    click(1, Stock);
    QCOMPARE(paneText(1), QString("BE-2, Stock 库存"));
    type(keyDown);
    QTRY_COMPARE(paneText(1), QString("FA-3, Stock 库存"));
}

void tst_PartsbookCellsAround::theMessageWindowTellsWhatIsNotified()
{
    const QString trace = m_folder->filePath("trace");
    click(0, Stock);
    QVERIFY(m_frame->TraceTo(trace));
    window()->activateWindow();
    QTRY_VERIFY(window()->isActiveWindow());
    type("7");
    type(keyReturn);
    QTRY_COMPARE(cell(0, Stock), QString("7"));
    const QStringList told = QString::fromUtf8(contentOf(trace)).split('\n').filter("WM_NOTIFY");
    QCOMPARE(told.join('\n'), QString("WM_NOTIFY  LVN_BEGINLABELEDIT  (2, 6)\n"
                                      "WM_NOTIFY  LVN_ENDLABELEDIT  (2, 6)"));
}

void tst_PartsbookCellsAround::aPartThatTheTreeDoesNotShowAnyMore()
{
    auto* const tree = window()->findChild<QTreeWidget*>();
    tree->setCurrentItem(tree->findItems("Fastener", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    QVERIFY(table().isRowHidden(1));
    click(0, Kind);
    type("bolts");
    type(keyReturn);
    QTRY_VERIFY(table().isRowHidden(0));
    QCOMPARE(table().currentRow(), 2);
    QVERIFY(!isEditing());
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace("Fastener", "bolts") + bearing + nut + motor);
}

void tst_PartsbookCellsAround::savingEndsTheEdit()
{
    click(0, Stock);
    type("33");
    QTRY_COMPARE(editedText(), QString("33"));
    m_frame->OnEnterIdle();
    QCOMPARE(saved(), headingLine + QByteArray(screw).replace(",10,", ",33,") + bearing + nut + motor);
    QTRY_VERIFY(!isEditing());
}

void tst_PartsbookCellsAround::closingEndsTheEdit()
{
    click(0, Stock);
    type("33");
    QTRY_COMPARE(editedText(), QString("33"));
    const ModalDriver<QMessageBox> driver([](QMessageBox* box) {
        QVERIFY(box->text().startsWith("The parts have been changed."));
        box->button(QMessageBox::Yes)->click();
    });
    window()->close();
    QTRY_VERIFY(driver.hasActed());
    QTRY_VERIFY(!m_frame->GetSafeHwnd());
    QCOMPARE(contentOf(path()), headingLine + QByteArray(screw).replace(",10,", ",33,") + bearing + nut + motor);
}

XE_TEST(tst_PartsbookCellsAround)

#include "tst_partsbookcellsaround.moc"
