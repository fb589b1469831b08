// List boxes: items, what is current and selected, places, and that the host's slots run for the user alone.

#include "leavenothing.h"
#include "messagetrace.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

#include <climits>

Q_DECLARE_METATYPE(CString_X)

namespace {

struct Signals
{
    explicit Signals(QListWidget& list)
        : row(&list, &QListWidget::currentRowChanged),
          item(&list, &QListWidget::currentItemChanged),
          selection(&list, &QListWidget::itemSelectionChanged),
          changed(&list, &QListWidget::itemChanged)
    {}

    int count() const { return row.count() + item.count() + selection.count() + changed.count(); }

    QSignalSpy row;
    QSignalSpy item;
    QSignalSpy selection;
    QSignalSpy changed;
};

const QStringList fruit{QStringLiteral("apple"), QStringLiteral("Pear"), QStringLiteral("plum"),
                        QStringLiteral("pear")};

struct Stage
{
    explicit Stage(const QStringList& items = fruit)
    {
        list.addItems(items);
        box.SubclassWindow(&list);
    }

    QListWidget list;
    CListBox_X box;
};

QString itemsOf(const QListWidget& list)
{
    QStringList items;
    for (int i = 0; i < list.count(); ++i)
        items += list.item(i)->text();
    return items.join(QLatin1Char(' '));
}

} // namespace

class tst_ListBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QListWidgetItem*>("QListWidgetItem*"); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void created_data();
    void created();
    void adding();
    void inserting_data();
    void inserting();
    void deleting();
    void deletingDropsTheItemsWidget();
    void clearing();
    void itemTexts();
    void itemData();

    void current();
    void programsAreSilentUsersAreHeard();
    void finding_data();
    void finding();
    void selecting_data();
    void selecting();
    void manySelected();
    void oneSelected();
    void places();
    void aClickHitsTheItemAtItsPoint();
    void stubs();
    void withoutAWidget();
};

void tst_ListBox::created_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<QAbstractItemView::SelectionMode>("mode");
    QTest::newRow("plain") << WS_VISIBLE << QAbstractItemView::SingleSelection;
    QTest::newRow("many") << LBS_MULTIPLESEL << QAbstractItemView::MultiSelection;
    QTest::newRow("extended does not count") << LBS_EXTENDEDSEL << QAbstractItemView::SingleSelection;
    QTest::newRow("scroll bars") << (WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY) << QAbstractItemView::SingleSelection;
}

void tst_ListBox::created()
{
    QFETCH(DWORD, style);
    QWidget form;
    CListBox_X box;
    QCOMPARE(box.Create(style, CRect(10, 20, 110, 120), &form, 9), 1);
    auto* const list = box.Imp<QListWidget>();
    QTEST(list->selectionMode(), "mode");
    QCOMPARE(list->geometry(), QRect(10, 20, 100, 100));
    QVERIFY(!box.GetScrollBarCtrl(SB_VERT));
    QVERIFY(!box.GetScrollBarCtrl(SB_HORZ));
}

// --------------------------------------------------------------------------------------------------------- items

void tst_ListBox::adding()
{
    Stage stage(QStringList{});
    const Signals heard(stage.list);
    QCOMPARE(stage.box.GetCount(), 0);
    QCOMPARE(stage.box.AddString(L"零件 😀"), 0);
    QCOMPARE(stage.box.AddString(nullptr), 1);
    QCOMPARE(stage.box.GetCount(), 2);
    QCOMPARE(stage.box.GetListBoxInfo(), 2u);
    QCOMPARE(itemsOf(stage.list), QStringLiteral("零件 😀 "));
    QCOMPARE(stage.box.GetCurSel(), -1);
    QCOMPARE(heard.count(), 0);
}

void tst_ListBox::inserting_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("place");
    QTest::newRow("in front") << 0 << 0;
    QTest::newRow("between") << 1 << 1;
    QTest::newRow("behind") << 2 << 2;
    QTest::newRow("-1 appends") << -1 << 2;
    QTest::newRow("below -1 too") << INT_MIN << 2;
    QTest::newRow("above the count appends") << 9 << 2;
}

void tst_ListBox::inserting()
{
    QFETCH(int, index);
    QFETCH(int, place);
    Stage stage({QStringLiteral("a"), QStringLiteral("b")});
    QCOMPARE(stage.box.InsertString(index, L"new"), place);
    QCOMPARE(stage.list.item(place)->text(), QStringLiteral("new"));
}

void tst_ListBox::deleting()
{
    Stage stage;
    stage.box.SetCurSel(1);
    const Signals heard(stage.list);
    QCOMPARE(stage.box.DeleteString(4), LB_ERR);
    QCOMPARE(stage.box.DeleteString(UINT_MAX), LB_ERR);
    QCOMPARE(stage.box.DeleteString(1), 3);
    QCOMPARE(itemsOf(stage.list), QStringLiteral("apple plum pear"));
    QCOMPARE(heard.count(), 0);
}

void tst_ListBox::deletingDropsTheItemsWidget()
{
    Stage stage;
    const QPointer<QPushButton> button = new QPushButton;
    stage.list.setItemWidget(stage.list.item(2), button);
    QCOMPARE(stage.box.DeleteString(2), 3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!button);
}

void tst_ListBox::clearing()
{
    Stage stage;
    stage.list.item(1)->setSelected(true);
    stage.box.SetCurSel(1);
    const Signals heard(stage.list);
    stage.box.ResetContent();
    QCOMPARE(stage.box.GetCount(), 0);
    QCOMPARE(heard.count(), 0);
}

void tst_ListBox::itemTexts()
{
    Stage stage({QStringLiteral("零件 😀")});
    CString_X text(L"before");
    QCOMPARE(stage.box.GetText(1, text), LB_ERR);
    QCOMPARE(stage.box.GetText(-1, text), LB_ERR);
    QCOMPARE(text, CString_X(L"before"));
    QCOMPARE(stage.box.GetText(0, text), 4);
    QCOMPARE(text, CString_X(L"零件 😀"));
}

void tst_ListBox::itemData()
{
    Stage stage;
    QCOMPARE(stage.box.GetItemData(0), DWORD_PTR(0));
    stage.list.item(0)->setData(Qt::UserRole, 0x123456789ALL);
    QCOMPARE(stage.box.GetItemData(0), DWORD_PTR(0x123456789A));
    QCOMPARE(stage.box.GetItemData(4), ~DWORD_PTR(0));
}

// ----------------------------------------------------------------------------------------- current and selected

void tst_ListBox::current()
{
    Stage stage;
    QCOMPARE(stage.box.GetCurSel(), -1);
    QCOMPARE(stage.box.SetCurSel(2), 2);
    QCOMPARE(stage.box.GetCurSel(), 2);
    QVERIFY(stage.list.item(2)->isSelected());
    QCOMPARE(stage.box.SetCurSel(4), LB_ERR);
    stage.box.SetCurSel(1);
    QCOMPARE(stage.box.SetCurSel(-1), -1);
    QCOMPARE(stage.box.GetCurSel(), -1);
    QVERIFY(stage.list.selectedItems().isEmpty());
}

void tst_ListBox::programsAreSilentUsersAreHeard()
{
    Stage stage;
    const Signals heard(stage.list);
    stage.box.SetCurSel(2);
    stage.box.SelectString(0, L"apple");
    stage.box.InsertString(0, L"x");
    QCOMPARE(heard.count(), 0);
    stage.list.show();
    QTest::keyClick(&stage.list, Qt::Key_Down);
    QCOMPARE(stage.box.GetCurSel(), 2);
    QCOMPARE(heard.row.count(), 1);
    QTest::mouseClick(stage.list.viewport(), Qt::LeftButton, {},
                      stage.list.visualItemRect(stage.list.item(0)).center());
    QCOMPARE(heard.row.count(), 2);
}

void tst_ListBox::finding_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<CString_X>("text");
    QTest::addColumn<int>("row");
    const auto row = [](const char* name, int start, const wchar_t* text, int found) {
        QTest::newRow(name) << start << CString_X(text) << found;
    };
    row("upper and lower case alike", -1, L"PEAR", 1);
    row("beginning", -1, L"p", 1);
    row("strictly behind the start", 1, L"pear", 3);
    row("the start itself does not count", 0, L"apple", -1);
    row("does not go round", 3, L"pear", -1);
    row("far below 0", INT_MIN, L"apple", 0);
    row("at the limit of numbers", INT_MAX, L"apple", -1);
    row("not there", -1, L"kiwi", -1);
}

void tst_ListBox::finding()
{
    QFETCH(int, start);
    QFETCH(CString_X, text);
    const Stage stage;
    QTEST(stage.box.FindString(start, text), "row");
    QCOMPARE(stage.box.GetCurSel(), -1);
}

void tst_ListBox::selecting_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<CString_X>("text");
    QTest::addColumn<int>("row");
    const auto row = [](const char* name, int start, const wchar_t* text, int found) {
        QTest::newRow(name) << start << CString_X(text) << found;
    };
    row("cases differ", -1, L"pear", 3);
    row("the start itself counts", 3, L"pear", 3);
    row("behind the start only", 1, L"apple", -1);
    row("the whole text only", -1, L"pea", -1);
    row("not there", -1, L"PEAR", -1);
}

void tst_ListBox::selecting()
{
    QFETCH(int, start);
    QFETCH(CString_X, text);
    Stage stage;
    QTEST(stage.box.SelectString(start, text), "row");
    QTEST(stage.box.GetCurSel(), "row");
}

void tst_ListBox::manySelected()
{
    Stage stage;
    stage.list.setSelectionMode(QAbstractItemView::MultiSelection);
    int rows[4] = {-7, -7, -7, -7};
    QCOMPARE(stage.box.GetSelCount(), 0);
    QCOMPARE(stage.box.GetSelItems(4, rows), 0);
    stage.list.item(1)->setSelected(true);
    stage.list.item(3)->setSelected(true);
    QCOMPARE(stage.box.GetSelCount(), 2);
    QCOMPARE(stage.box.GetSelItems(1, rows), 1);
    QCOMPARE(rows[1], -7);
    QCOMPARE(stage.box.GetSelItems(4, rows), 2);
    QCOMPARE(QSet<int>({rows[0], rows[1]}), QSet<int>({1, 3}));
    QCOMPARE(rows[2], -7);
    QCOMPARE(stage.box.GetSelItems(-1, rows), 0);
    QCOMPARE(stage.box.GetSelItems(4, nullptr), 0);
}

void tst_ListBox::oneSelected()
{
    Stage stage;
    int row = -7;
    stage.box.SetCurSel(1);
    QCOMPARE(stage.box.GetSelCount(), LB_ERR);
    QCOMPARE(stage.box.GetSelItems(1, &row), LB_ERR);
    QCOMPARE(row, -7);
}

// -------------------------------------------------------------------------------------------------------- places

void tst_ListBox::places()
{
    Stage stage;
    stage.list.resize(200, 200);
    stage.list.show();
    tagRECT rect{1, 2, 3, 4};
    QCOMPARE(stage.box.GetItemRect(4, &rect), LB_ERR);
    QCOMPARE(CRect(rect), CRect(1, 2, 3, 4));
    QCOMPARE(stage.box.GetItemRect(1, &rect), 0);
    const QRect item = stage.list.visualItemRect(stage.list.item(1));
    QCOMPARE(CRect(rect), CRect(item.left(), item.top(), item.left() + item.width(), item.top() + item.height()));
    QCOMPARE(stage.box.GetItemRect(1, nullptr), LB_ERR);
    int outside = -7;
    QCOMPARE(stage.box.ItemFromPoint(CPoint(rect.left, rect.top), outside), 1);
    QCOMPARE(stage.box.ItemFromPoint(CPoint(5, 199), outside), LB_ERR);
    QCOMPARE(outside, -7);
}

void tst_ListBox::aClickHitsTheItemAtItsPoint()
{
    class Clicked : public CListBox_X
    {
    public:
        void OnMessageMap() override
        {
            using ThisClass = Clicked;
            CListBox_X::OnMessageMap();
            ON_WM_LBUTTONDOWN_X()
        }
        void OnLButtonDown(UINT flags, CPoint point)
        {
            int outside = 0;
            hits += ItemFromPoint(point, outside);
            CListBox_X::OnLButtonDown(flags, point);
        }
        QVector<int> hits;
    };
    QWidget form;
    Clicked box;
    box.Create(WS_VISIBLE, CRect(20, 30, 200, 200), &form);
    auto* const list = box.Imp<QListWidget>();
    list->addItems(fruit);
    form.show();
    for (const int row : {2, 0, 3}) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
        QCOMPARE(box.GetCurSel(), row);
    }
    QCOMPARE(box.hits, (QVector<int>{2, 0, 3}));
}

void tst_ListBox::stubs()
{
    CListBox_X box;
    int stops[] = {10, 20};
    box.SetTabStops();
    QCOMPARE(box.SetTabStops(10), FALSE);
    QCOMPARE(box.SetTabStops(2, stops), FALSE);
}

void tst_ListBox::withoutAWidget()
{
    CListBox_X box;
    CString_X text(L"untouched");
    tagRECT rect{};
    int number = 0;
    box.ResetContent();
    const QVector<int> errors{box.GetCurSel(),           box.SetCurSel(0),
                              box.AddString(L"x"),       box.InsertString(0, L"x"),
                              box.DeleteString(0),       box.GetText(0, text),
                              box.GetItemRect(0, &rect), box.ItemFromPoint({0, 0}, number),
                              box.GetSelCount(),         box.GetSelItems(1, &number),
                              box.SelectString(0, L"x"), box.FindString(0, L"x")};
    QCOMPARE(errors.count(LB_ERR), errors.size());
    QCOMPARE(box.GetCount(), 0);
    QCOMPARE(box.GetItemData(0), ~DWORD_PTR(0));
    QCOMPARE(box.GetListBoxInfo(), 0u);
    QCOMPARE(text, CString_X(L"untouched"));
}

XE_TEST(tst_ListBox)
#include "tst_listbox.moc"
