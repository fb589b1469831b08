// List controls: what is selected.

#include "leavenothing.h"
#include "list/listfixture.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QSignalSpy>

namespace {

POSITION position(qintptr number) { return reinterpret_cast<POSITION>(number); }

} // namespace

class tst_ListSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void stateAsksForOneFlag_data();
    void stateAsksForOneFlag();
    void stateOfSingleCells();
    void manyQuestions();
    void setStateSelects_data();
    void setStateSelects();
    void setStateLeavesWhatIsSelected();
    void setStateOfSingleCells();
    void rowsAddUpAsQtAddsThem_data();
    void rowsAddUpAsQtAddsThem();
    void setItemSelects();
    void count();
    void positions();
    void positionsThatAreNotThere_data();
    void positionsThatAreNotThere();
    void walkInTheOrderOfSelecting();
    void nextItem_data();
    void nextItem();
    void nextItemOfOtherFlags();
    void rowsWithCellsThatCannotBeSelected();
    void partOfARowIsNoRow();
    void walkFollowsChanges();
    void slotsSeeTheNewSelection();
    void anotherSelectionModel();
    void anotherTable();
    void selectionMark();
    void walkAgreesWithQt();
    void realClicks();
    void withoutWidget();
};

void tst_ListSelection::stateAsksForOneFlag_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<UINT>("state");
    QTest::newRow("selected") << 2 << LVIS_SELECTED << LVIS_SELECTED;
    QTest::newRow("not selected") << 3 << LVIS_SELECTED << 0u;
    QTest::newRow("two flags") << 2 << (LVIS_SELECTED | LVIS_FOCUSED) << 0u;
    QTest::newRow("another flag") << 2 << LVIS_FOCUSED << 0u;
    QTest::newRow("no flag") << 2 << 0u << 0u;
    QTest::newRow("row at the count") << 6 << LVIS_SELECTED << 0u;
    QTest::newRow("negative row") << -1 << LVIS_SELECTED << 0u;
}

void tst_ListSelection::stateAsksForOneFlag()
{
    QFETCH(int, row);
    QFETCH(UINT, mask);
    ListFixture f;
    f.table.selectRow(2);
    QTEST(f.list.GetItemState(row, mask), "state");
}

void tst_ListSelection::stateOfSingleCells()
{
    ListFixture f;
    f.table.setSelectionBehavior(QAbstractItemView::SelectItems);
    f.table.setCurrentCell(4, 2);
    QCOMPARE(f.list.GetItemState(4, LVIS_SELECTED), LVIS_SELECTED);
    QCOMPARE(f.list.GetItemState(3, LVIS_SELECTED), 0u);
}

void tst_ListSelection::manyQuestions()
{
    ListFixture f(100, 2);
    f.select({3, 60});
    QVector<int> selected;
    for (int row = 0; row < 101; ++row) {
        if (f.list.GetItemState(row, LVIS_SELECTED))
            selected += row;
    }
    QCOMPARE(selected, QVector<int>({3, 60}));
    f.table.selectRow(60); // once more: deselects
    QCOMPARE(f.list.GetItemState(60, LVIS_SELECTED), 0u);
}

void tst_ListSelection::setStateSelects_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<UINT>("state");
    QTest::addColumn<UINT>("mask");
    QTest::addColumn<QString>("then");
    QTest::newRow("selects, in place of the other") << 4 << 2u << 2u << QStringLiteral("4");
    QTest::newRow("with other bits") << 4 << 7u << 3u << QStringLiteral("4");
    QTest::newRow("cannot deselect") << 1 << 0u << 2u << QStringLiteral("1");
    QTest::newRow("not masked") << 4 << 2u << 1u << QStringLiteral("1");
    QTest::newRow("row at the count") << 6 << 2u << 2u << QStringLiteral("1");
    QTest::newRow("negative row") << -1 << 2u << 2u << QStringLiteral("1");
}

void tst_ListSelection::setStateSelects()
{
    QFETCH(int, row);
    QFETCH(UINT, state);
    QFETCH(UINT, mask);
    ListFixture f;
    f.table.selectRow(1);
    QCOMPARE(f.list.SetItemState(row, state, mask), TRUE);
    QTEST(f.walk(), "then");
}

void tst_ListSelection::setStateLeavesWhatIsSelected()
{
    ListFixture f;
    f.select({1, 4});
    f.list.SetItemState(4, LVIS_SELECTED, LVIS_SELECTED);
    QCOMPARE(f.walk(), QStringLiteral("1 4"));
    f.list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    QCOMPARE(f.walk(), QStringLiteral("1 4 2"));
}

void tst_ListSelection::setStateOfSingleCells()
{
    ListFixture f;
    f.table.setSelectionBehavior(QAbstractItemView::SelectItems);
    f.list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    QCOMPARE(f.table.currentRow(), 3);
    QCOMPARE(f.table.currentColumn(), 0);
    QVERIFY(f.table.item(3, 0)->isSelected());
    QVERIFY(!f.table.item(3, 1)->isSelected());
}

void tst_ListSelection::rowsAddUpAsQtAddsThem_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::newRow("downwards") << QVector<int>{1, 2, 3, 4};
    QTest::newRow("upwards") << QVector<int>{4, 3, 2, 1};
    QTest::newRow("with gaps") << QVector<int>{0, 2, 4, 6};
    QTest::newRow("closing a gap") << QVector<int>{0, 2, 1, 3};
    QTest::newRow("behind an older range") << QVector<int>{1, 2, 5, 3, 4, 6};
    QTest::newRow("some twice") << QVector<int>{1, 2, 2, 1, 3};
    QTest::newRow("with an unselectable row") << QVector<int>{6, 7, 8, 9};
    QTest::newRow("the last") << QVector<int>{8, 9, 10};
}

void tst_ListSelection::rowsAddUpAsQtAddsThem()
{
    QFETCH(QVector<int>, rows);
    // What the table has selected, in its order, the current row, and what each change was told as.
    const auto trace = [&rows](auto select) {
        QTableWidget table(10, 3);
        table.setSelectionBehavior(QAbstractItemView::SelectRows);
        table.setSelectionMode(QAbstractItemView::MultiSelection);
        for (int column = 0; column < 3; ++column) {
            table.setItem(7, column, new QTableWidgetItem);
            table.item(7, column)->setFlags(Qt::ItemIsEnabled);
        }
        QStringList words;
        const auto note = [&words](const QModelIndexList& indices) {
            for (const QModelIndex& index : indices)
                words += QStringLiteral("%1.%2").arg(index.row()).arg(index.column());
            words += QStringLiteral("/");
        };
        QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged,
                         [&note](const QItemSelection& selected, const QItemSelection& deselected) {
                             note(selected.indexes());
                             note(deselected.indexes());
                         });
        select(table);
        note(table.selectionModel()->selectedRows());
        return words.join(QLatin1Char(' ')) + QString::number(table.currentRow());
    };
    const QString ours = trace([&rows](QTableWidget& table) {
        CListCtrl_X list;
        list.SubclassWindow(&table);
        for (const int row : qAsConst(rows))
            list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
    });
    const QString qts = trace([&rows](QTableWidget& table) {
        for (const int row : qAsConst(rows)) {
            if (!table.selectionModel()->isRowSelected(row, {})) // else it would be deselected
                table.selectRow(row);
        }
    });
    QCOMPARE(ours, qts);
}

void tst_ListSelection::setItemSelects()
{
    ListFixture f;
    f.list.SetItem(2, 1, LVIF_TEXT | LVIF_STATE, L"new", 0, LVIS_SELECTED, LVIS_SELECTED, 0);
    QCOMPARE(f.walk(), QStringLiteral("2"));
    QCOMPARE(f.table.item(2, 1)->text(), QStringLiteral("new"));
    f.list.SetItem(3, 1, LVIF_TEXT, L"new", 0, LVIS_SELECTED, LVIS_SELECTED, 0); // the state is not masked
    QCOMPARE(f.walk(), QStringLiteral("2"));
    f.list.SetItem(3, 1, LVIF_STATE, L"new", 0, LVIS_SELECTED, 0, 0);
    QCOMPARE(f.walk(), QStringLiteral("2"));

    f.table.setSelectionBehavior(QAbstractItemView::SelectItems);
    f.list.SetItem(4, 2, LVIF_STATE, nullptr, 0, LVIS_SELECTED, LVIS_SELECTED, 0);
    QCOMPARE(f.table.currentRow(), 4);
    QCOMPARE(f.table.currentColumn(), 2);
}

void tst_ListSelection::count()
{
    ListFixture f;
    QCOMPARE(f.list.GetSelectedCount(), 0u);
    f.select({1, 2, 5});
    QCOMPARE(f.list.GetSelectedCount(), 3u);
    f.table.selectAll();
    QCOMPARE(f.list.GetSelectedCount(), 6u);
    f.table.insertColumn(3); // not selected, so no row is any more
    QCOMPARE(f.list.GetSelectedCount(), 0u);
}

void tst_ListSelection::positions()
{
    ListFixture f;
    QCOMPARE(f.list.GetFirstSelectedItemPosition(), nullptr);
    f.select({2, 5});
    POSITION at = f.list.GetFirstSelectedItemPosition();
    QCOMPARE(at, position(1));
    QCOMPARE(f.list.GetNextSelectedItem(at), 2);
    QCOMPARE(at, position(2));
    QCOMPARE(f.list.GetNextSelectedItem(at), 5);
    QCOMPARE(at, nullptr);
    QCOMPARE(f.list.GetNextSelectedItem(at), 0);
    QCOMPARE(at, nullptr);
}

void tst_ListSelection::positionsThatAreNotThere_data()
{
    QTest::addColumn<qintptr>("number");
    QTest::newRow("behind the last") << qintptr(3);
    QTest::newRow("far behind") << (qintptr(1) << 40) + 1;
    QTest::newRow("negative") << qintptr(-1);
}

void tst_ListSelection::positionsThatAreNotThere()
{
    QFETCH(qintptr, number);
    ListFixture f;
    f.select({2, 5});
    POSITION at = position(number);
    QCOMPARE(f.list.GetNextSelectedItem(at), 0);
    QCOMPARE(at, nullptr);
}

void tst_ListSelection::walkInTheOrderOfSelecting()
{
    ListFixture f;
    f.select({4, 0, 2});
    QCOMPARE(f.walk(), QStringLiteral("4 0 2"));
}

void tst_ListSelection::nextItem_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("result");
    QTest::newRow("-1: the first") << -1 << 2;
    QTest::newRow("far below: the first") << -9 << 2;
    QTest::newRow("0: the second") << 0 << 5;
    QTest::newRow("1: none") << 1 << -1;
    QTest::newRow("2, though a selected row: none") << 2 << -1;
    QTest::newRow("largest") << 0x7FFFFFFF << -1;
}

void tst_ListSelection::nextItem()
{
    QFETCH(int, start);
    ListFixture f;
    f.select({2, 5});
    QTEST(f.list.GetNextItem(start, LVNI_SELECTED), "result");
}

void tst_ListSelection::nextItemOfOtherFlags()
{
    ListFixture f;
    f.select({2, 5});
    QCOMPARE(f.list.GetNextItem(-1, LVNI_ALL), -1);
    QCOMPARE(f.list.GetNextItem(-1, LVNI_FOCUSED), -1);
    QCOMPARE(f.list.GetNextItem(-1, LVNI_SELECTED | LVNI_FOCUSED), -1);
}

void tst_ListSelection::rowsWithCellsThatCannotBeSelected()
{
    ListFixture f(3, 2);
    f.table.item(0, 0)->setFlags(Qt::ItemIsEnabled);
    f.table.item(1, 0)->setFlags(Qt::ItemIsEnabled);
    f.table.item(1, 1)->setFlags(Qt::ItemIsEnabled);
    f.table.selectAll();
    QCOMPARE(f.walk(), QStringLiteral("0 2"));
    QCOMPARE(f.list.GetItemState(0, LVIS_SELECTED), LVIS_SELECTED);
    QCOMPARE(f.list.GetItemState(1, LVIS_SELECTED), 0u);
}

void tst_ListSelection::partOfARowIsNoRow()
{
    ListFixture f;
    f.table.setSelectionBehavior(QAbstractItemView::SelectItems);
    f.table.setCurrentCell(4, 2);
    QCOMPARE(f.list.GetSelectedCount(), 0u);
    QCOMPARE(f.list.GetFirstSelectedItemPosition(), nullptr);
    for (int column = 0; column < 3; ++column)
        f.table.item(3, column)->setSelected(true);
    QCOMPARE(f.walk(), QStringLiteral("3")); // cell by cell
}

void tst_ListSelection::walkFollowsChanges()
{
    ListFixture f;
    f.select({1, 3, 5});
    QCOMPARE(f.walk(), QStringLiteral("1 3 5"));
    f.list.DeleteItem(0);
    QCOMPARE(f.walk(), QStringLiteral("0 2 4"));
    f.list.DeleteItem(2);
    QCOMPARE(f.walk(), QStringLiteral("0 3"));
    f.list.InsertItem(0, L"new");
    QCOMPARE(f.walk(), QStringLiteral("1 4"));
    f.table.sortItems(0, Qt::DescendingOrder);
    QCOMPARE(f.list.GetSelectedCount(), 2u);
    const int last = f.list.GetNextItem(0, LVNI_SELECTED);
    QVERIFY(f.table.item(last, 0)->isSelected());
    f.list.DeleteAllItems();
    QCOMPARE(f.walk(), QString());
}

void tst_ListSelection::slotsSeeTheNewSelection()
{
    ListFixture f;
    f.table.selectRow(0);
    QStringList seen;
    const auto note = [&] { seen += f.walk(); };
    connect(&f.table, &QTableWidget::itemSelectionChanged, &f.table, note); // before the list has been asked
    QCOMPARE(f.walk(), QStringLiteral("0"));
    f.table.selectRow(3);
    connect(f.table.selectionModel(), &QItemSelectionModel::selectionChanged, &f.table, note);
    f.table.selectRow(5);
    QCOMPARE(seen, QStringList({QStringLiteral("3"), QStringLiteral("5"), QStringLiteral("5")}));
}

void tst_ListSelection::anotherSelectionModel()
{
    ListFixture f;
    f.select({1, 3});
    QCOMPARE(f.walk(), QStringLiteral("1 3"));
    QItemSelectionModel* const old = f.table.selectionModel();
    f.table.setSelectionModel(new QItemSelectionModel(f.table.model(), &f.table));
    delete old;
    QCOMPARE(f.walk(), QString());
    f.table.selectRow(2);
    QCOMPARE(f.walk(), QStringLiteral("2"));
}

void tst_ListSelection::anotherTable()
{
    ListFixture f;
    f.select({1, 3});
    QCOMPARE(f.walk(), QStringLiteral("1 3"));
    QTableWidget other(2, 1);
    other.selectAll();
    f.list.SubclassWindow(&other);
    QCOMPARE(f.walk(), QStringLiteral("0 1"));
    f.list.Detach();
    QCOMPARE(f.list.GetSelectedCount(), 0u);
}

void tst_ListSelection::selectionMark()
{
    ListFixture f;
    QCOMPARE(f.list.GetSelectionMark(), -1);
    QCOMPARE(f.list.SetSelectionMark(4), -1);
    QCOMPARE(f.list.GetSelectionMark(), 4);
    QCOMPARE(f.list.SetSelectionMark(1), 4);
    QCOMPARE(f.walk(), QStringLiteral("1"));
    QCOMPARE(f.list.SetSelectionMark(9), 1);
    QCOMPARE(f.list.GetSelectionMark(), 1);
    f.select({2, 3});
    f.list.SetSelectionMark(2); // is not deselected
    QCOMPARE(f.walk(), QStringLiteral("2 3"));
}

// Selections of all kinds, with Qt's own list of rows as the oracle.
void tst_ListSelection::walkAgreesWithQt()
{
    ListFixture f(30, 4);
    f.table.setSelectionBehavior(QAbstractItemView::SelectItems);
    f.table.setSelectionMode(QAbstractItemView::MultiSelection);
    f.table.item(7, 1)->setFlags(Qt::ItemIsEnabled);
    quint32 random = 12345;
    const auto next = [&random](int limit) {
        random = random * 1664525 + 1013904223;
        return static_cast<int>((random >> 8) % static_cast<quint32>(limit));
    };
    const QItemSelectionModel::SelectionFlags commands[] = {
        QItemSelectionModel::Select | QItemSelectionModel::Rows,
        QItemSelectionModel::Select,
        QItemSelectionModel::Toggle | QItemSelectionModel::Rows,
        QItemSelectionModel::Deselect,
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows,
        QItemSelectionModel::Select | QItemSelectionModel::Current | QItemSelectionModel::Rows,
    };
    for (int step = 0; step < 300; ++step) {
        const QAbstractItemModel& model = *f.table.model();
        const int top = next(30);
        const int left = next(4);
        const QItemSelection cells(model.index(top, left),
                                   model.index(qMin(29, top + next(6)), qMin(3, left + next(4))));
        f.table.selectionModel()->select(cells, commands[next(step % 20 == 0 ? 6 : 4)]);
        QStringList expected;
        const auto rows = f.table.selectionModel()->selectedRows();
        for (const QModelIndex& index : rows)
            expected += QString::number(index.row());
        QStringList walked = f.walk().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        expected.sort(); // nobody is told when the same rows are selected in another order
        walked.sort();
        QCOMPARE(walked, expected);
    }
}

void tst_ListSelection::realClicks()
{
    ListFixture f;
    f.table.show();
    const auto click = [&f](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(f.table.viewport(), Qt::LeftButton, modifiers,
                          f.table.visualItemRect(f.table.item(row, 1)).center());
    };
    click(4, Qt::NoModifier);
    click(1, Qt::ControlModifier);
    QCOMPARE(f.walk(), QStringLiteral("4 1"));
    click(3, Qt::ShiftModifier);
    QCOMPARE(f.walk(), QStringLiteral("4 1 2 3"));
    QTest::keyClick(&f.table, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(f.walk(), QStringLiteral("0 1 2 3 4 5"));
}

void tst_ListSelection::withoutWidget()
{
    CListCtrl_X list;
    POSITION at = position(1);
    QCOMPARE(list.GetItemState(0, LVIS_SELECTED), 0u);
    QCOMPARE(list.SetItemState(0, 2, 2), FALSE);
    QCOMPARE(list.GetSelectedCount(), 0u);
    QCOMPARE(list.GetFirstSelectedItemPosition(), nullptr);
    QCOMPARE(list.GetNextSelectedItem(at), 0);
    QCOMPARE(at, nullptr);
    QCOMPARE(list.GetNextItem(-1, LVNI_SELECTED), -1);
    QCOMPARE(list.GetSelectionMark(), -1);
    QCOMPARE(list.SetSelectionMark(0), -1);
}

XE_TEST(tst_ListSelection)

#include "tst_listselection.moc"
