// The list of parts in the order of a column: the book keeps its own, and each row its part.

#include "leavenothing.h"
#include "mainframe.h"
#include "modaldriver.h"
#include "partsview.h"
#include "resource.h"
#include "testclass.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <xeresource.h>

namespace {

const QByteArray bookToSort = "number,name,kind,supplier,source,stock,minimum,price,in use,remark\n"
                              "FA-1,Screw,Fastener,A,bought,100,5,0.06,yes,\n"
                              "BE-2,Bearing,Bearing,B,made,20,6,12.50,yes,steel\n"
                              "EL-4,Motor,Electrical,C,customer,3,0,0.005,yes,\n"
                              "FA-3,Nut & bolt,Fastener,A,bought,20,15,7.00,yes,steel\n";

} // namespace

class tst_PartsbookSorting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void sortsByAColumn_data();
    void sortsByAColumn();
    void textsStayAsTheyAre();
    void anOpenEditorEndsFirst();
    void theArrowStandsOverTheColumn();
    void theSelectedPartStaysSelected();
    void hiddenPartsStayHidden();
    void findGoesOnInTheBook();
    void commandsWorkOnThePartOfTheRow();
    void aNewPartIsTheLast();
    void aDeletedPartIsTheOneOfTheRow();
    void theFileKeepsItsOrder();
    void anotherBookBeginsInItsOrder();

private:
    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView parts() const { return PartsView(*window()); }
    CPartsGrid* grid() const { return static_cast<CPartsGrid*>(CWnd_X::FromHandlePermanent(parts().widget())); }
    void run(unsigned id) const { window()->findChild<QAction*>(ToStringId(id))->trigger(); }
    QString numbers() const;
    QByteArray savedFile() const;

    QTemporaryDir m_folder;
    QScopedPointer<CMainFrame> m_frame;
};

namespace {

constexpr int byNumber = 1;
constexpr int byName = 2;
constexpr int byKind = 3;
constexpr int byStock = 6;
constexpr int byPrice = 8;

} // namespace

void tst_PartsbookSorting::init()
{
    QFile file(m_folder.filePath("parts.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bookToSort);
    file.close();
    m_frame.reset(new CMainFrame);
    QCOMPARE(m_frame->Create(nullptr), 1);
    m_frame->ShowWindow(SW_SHOW);
    QVERIFY(m_frame->OpenBook(file.fileName()));
}

void tst_PartsbookSorting::cleanup()
{
    m_frame->DestroyWindow();
    m_frame.reset();
    QCOMPARE(LeaveNothing::leftovers(), QString());
}

// From the top of the list to its end.
QString tst_PartsbookSorting::numbers() const
{
    QStringList numbers;
    for (int row = 0; row < parts().rowCount(); ++row)
        numbers += parts().text(row, 0);
    return numbers.join(' ');
}

QByteArray tst_PartsbookSorting::savedFile() const
{
    run(ID_FILE_SAVE);
    QFile file(m_folder.filePath("parts.csv"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_PartsbookSorting::sortsByAColumn_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QString>("order");
    QTest::newRow("the book's order") << 0 << true << "FA-1 BE-2 EL-4 FA-3";
    QTest::newRow("the book's order backwards") << 0 << false << "FA-3 EL-4 BE-2 FA-1";
    QTest::newRow("texts") << byNumber << true << "BE-2 EL-4 FA-1 FA-3";
    QTest::newRow("texts backwards") << byNumber << false << "FA-3 FA-1 EL-4 BE-2";
    QTest::newRow("whole numbers by their value") << 7 << true << "EL-4 FA-1 BE-2 FA-3";
    QTest::newRow("equal numbers side by side") << byStock << false << "FA-1 BE-2 FA-3 EL-4";
    QTest::newRow("prices by their value") << byPrice << true << "EL-4 FA-1 FA-3 BE-2";
}

void tst_PartsbookSorting::sortsByAColumn()
{
    QFETCH(const int, column);
    QFETCH(const bool, ascending);
    grid()->SortBy(column, ascending);
    QTEST(numbers(), "order");
    grid()->SortBy(0, true);
    QCOMPARE(numbers(), QString("FA-1 BE-2 EL-4 FA-3"));
}

void tst_PartsbookSorting::textsStayAsTheyAre()
{
    grid()->SortBy(byPrice, true);
    QCOMPARE(parts().text(0, 7), QString("0.005"));
    QCOMPARE(parts().text(3, 7), QString("12.50"));
    grid()->SortBy(0, false);
    QCOMPARE(XeQString(grid()->GetItemText(2, 0)), QString("4"));
    QVERIFY(!window()->isWindowModified());
}

void tst_PartsbookSorting::anOpenEditorEndsFirst()
{
    parts().setCurrentCell(0, byStock - 1);
    QTest::keyClick(parts().widget(), Qt::Key_F2);
    auto* const editor = parts().widget()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText("1");
    grid()->SortBy(byStock, true);
    QCOMPARE(numbers(), QString("FA-1 EL-4 BE-2 FA-3"));
    QCOMPARE(parts().text(0, byStock - 1), QString("1"));
    QCOMPARE(savedFile(), QByteArray(bookToSort).replace(",100,", ",1,"));
}

void tst_PartsbookSorting::theArrowStandsOverTheColumn()
{
    QCOMPARE(grid()->m_nSortColumn, -1);
    grid()->SortBy(byStock, false);
    QCOMPARE(grid()->m_nSortColumn, byStock);
    QCOMPARE(grid()->m_bAscending, 0);
    m_frame->SendMessage(WM_SELECT_ROW, 2);
    QCOMPARE(grid()->m_nSortColumn, byStock);
    run(ID_PART_IN_USE); // what has been changed may be out of order
    QCOMPARE(grid()->m_nSortColumn, -1);
}

void tst_PartsbookSorting::theSelectedPartStaysSelected()
{
    m_frame->SendMessage(WM_SELECT_ROW, 1);
    grid()->SortBy(byName, true);
    QCOMPARE(numbers(), QString("BE-2 EL-4 FA-3 FA-1"));
    QCOMPARE(parts().currentRow(), 0);
    grid()->SortBy(byName, false);
    QCOMPARE(parts().currentRow(), 3);
    QTest::keyClick(parts().widget(), Qt::Key_Up);
    QCOMPARE(parts().text(parts().currentRow(), 0), QString("EL-4"));
    parts().setCurrentCell(0, byPrice - 1);
    grid()->SortBy(byNumber, true);
    QCOMPARE(grid()->m_idCurrentCell.col, byPrice);
    QVERIFY(grid()->IsCellSelected(grid()->m_idCurrentCell));
}

void tst_PartsbookSorting::hiddenPartsStayHidden()
{
    auto* const tree = window()->findChild<QTreeWidget*>("IDC_TREE");
    tree->setCurrentItem(tree->findItems("Fastener", Qt::MatchExactly | Qt::MatchRecursive).constFirst());
    grid()->SortBy(byName, true);
    QStringList shown;
    for (int row = 0; row < parts().rowCount(); ++row)
        shown += parts().isRowHidden(row) ? QStringList() : QStringList(parts().text(row, 0));
    QCOMPARE(shown, QStringList({"FA-3", "FA-1"}));
    grid()->SortBy(byKind, true);
    m_frame->SendMessage(WM_SELECT_ROW, 2); // a hidden one brings all back
    QCOMPARE(parts().text(parts().currentRow(), 0), QString("EL-4"));
    QVERIFY(!parts().isRowHidden(parts().currentRow()));
}

void tst_PartsbookSorting::findGoesOnInTheBook()
{
    grid()->SortBy(byName, true);
    m_frame->SendMessage(WM_SELECT_ROW, 0);
    run(ID_EDIT_FIND);
    auto* const question = window()->findChild<QLineEdit*>("IDC_FIND_TEXT");
    QTest::keyClicks(question, "steel");
    QTest::keyClick(question, Qt::Key_Return);
    QCOMPARE(parts().text(parts().currentRow(), 0), QString("BE-2"));
    run(ID_EDIT_REPEAT);
    QCOMPARE(parts().text(parts().currentRow(), 0), QString("FA-3"));
}

void tst_PartsbookSorting::commandsWorkOnThePartOfTheRow()
{
    grid()->SortBy(byNumber, true);
    m_frame->SendMessage(WM_SELECT_ROW, 2);
    run(ID_PART_IN_USE);
    QCOMPARE(numbers(), QString("BE-2 EL-4 FA-1 FA-3"));
    QCOMPARE(savedFile(), QByteArray(bookToSort).replace("0.005,yes", "0.005,no"));
}

void tst_PartsbookSorting::aNewPartIsTheLast()
{
    grid()->SortBy(byNumber, true);
    const ModalDriver<QDialog> dialog([](QDialog* form) {
        form->findChild<QLineEdit*>("IDC_NUMBER")->setText("AA-0");
        form->findChild<QListWidget*>()->setCurrentRow(0); // the supplier
        form->findChild<QPushButton*>("OK")->click();
    });
    run(ID_PART_NEW);
    QVERIFY(dialog.hasActed());
    QCOMPARE(numbers(), QString("BE-2 EL-4 FA-1 FA-3 AA-0"));
    QCOMPARE(parts().currentRow(), 4);
    grid()->SortBy(byNumber, true);
    QCOMPARE(numbers(), QString("AA-0 BE-2 EL-4 FA-1 FA-3"));
    QCOMPARE(parts().currentRow(), 0);
}

void tst_PartsbookSorting::aDeletedPartIsTheOneOfTheRow()
{
    grid()->SortBy(byNumber, true);
    QTest::mouseClick(parts().widget(), Qt::LeftButton, {}, parts().center(1, 0));
    const ModalDriver<QMessageBox> question([](QMessageBox* box) {
        QVERIFY(box->text().startsWith("Delete EL-4, Motor?"));
        box->buttons().constFirst()->click();
    });
    run(ID_PART_DELETE);
    QVERIFY(question.hasActed());
    QCOMPARE(numbers(), QString("BE-2 FA-1 FA-3"));
    m_frame->SendMessage(WM_SELECT_ROW, 2); // the last part of the book
    QCOMPARE(parts().text(parts().currentRow(), 0), QString("FA-3"));
    QCOMPARE(savedFile(), QByteArray(bookToSort).replace("EL-4,Motor,Electrical,C,customer,3,0,0.005,yes,\n", ""));
}

void tst_PartsbookSorting::theFileKeepsItsOrder()
{
    grid()->SortBy(byName, false);
    run(ID_PART_IN_USE);
    QCOMPARE(savedFile(), QByteArray(bookToSort).replace("0.06,yes", "0.06,no"));
}

void tst_PartsbookSorting::anotherBookBeginsInItsOrder()
{
    grid()->SortBy(byNumber, true);
    QVERIFY(m_frame->OpenBook(m_folder.filePath("parts.csv")));
    QCOMPARE(numbers(), QString("FA-1 BE-2 EL-4 FA-3"));
    QCOMPARE(parts().currentRow(), 0);
    QCOMPARE(grid()->m_nSortColumn, -1);
}

XE_TEST(tst_PartsbookSorting)
#include "tst_partsbooksorting.moc"
