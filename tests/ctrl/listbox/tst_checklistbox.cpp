// List boxes whose items have check boxes.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QListWidget>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionViewItem>

class tst_CheckListBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QListWidgetItem*>("QListWidgetItem*"); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void newItemsHaveABox();
    void checks_data();
    void checks();
    void enabling();
    void aClickChecks();
    void missingItems();
};

void tst_CheckListBox::newItemsHaveABox()
{
    QListWidget list;
    list.addItem(QStringLiteral("there before"));
    CCheckListBox_X box;
    box.SubclassWindow(&list);
    QCOMPARE(box.AddString(L"new"), 1);
    QCOMPARE(box.InsertString(0, L"first"), 0);
    QCOMPARE(list.item(0)->data(Qt::CheckStateRole), QVariant(static_cast<int>(Qt::Unchecked)));
    QVERIFY(!list.item(1)->data(Qt::CheckStateRole).isValid());
    QCOMPARE(list.item(2)->data(Qt::CheckStateRole), QVariant(static_cast<int>(Qt::Unchecked)));
}

void tst_CheckListBox::checks_data()
{
    QTest::addColumn<int>("check");
    QTest::addColumn<Qt::CheckState>("state");
    QTest::addColumn<int>("read");
    QTest::newRow("checked") << 1 << Qt::Checked << 1;
    QTest::newRow("unchecked") << 0 << Qt::Unchecked << 0;
    QTest::newRow("third state") << 2 << Qt::PartiallyChecked << 2;
    QTest::newRow("any other number") << -5 << Qt::PartiallyChecked << 2;
}

void tst_CheckListBox::checks()
{
    QFETCH(int, check);
    QListWidget list;
    CCheckListBox_X box;
    box.SubclassWindow(&list);
    box.AddString(L"item");
    QSignalSpy changes(&list, &QListWidget::itemChanged);
    box.SetCheck(0, check);
    QTEST(list.item(0)->checkState(), "state");
    QTEST(box.GetCheck(0), "read");
    QCOMPARE(changes.count(), 0);
}

void tst_CheckListBox::enabling()
{
    QListWidget list;
    CCheckListBox_X box;
    box.SubclassWindow(&list);
    box.AddString(L"item");
    const Qt::ItemFlags flags = list.item(0)->flags();
    QVERIFY(flags & Qt::ItemIsEnabled);
    box.Enable(0, FALSE);
    QCOMPARE(list.item(0)->flags(), flags & ~Qt::ItemIsEnabled);
    box.Enable(0);
    QCOMPARE(list.item(0)->flags(), flags);
}

void tst_CheckListBox::aClickChecks()
{
    QWidget form;
    CCheckListBox_X box;
    box.Create(WS_VISIBLE, CRect(0, 0, 200, 200), &form);
    box.AddString(L"first");
    box.AddString(L"second");
    box.Enable(1, FALSE);
    form.show();
    auto* const list = box.Imp<QListWidget>();
    QSignalSpy changes(list, &QListWidget::itemChanged);
    for (int row = 0; row < 2; ++row) {
        QStyleOptionViewItem option;
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        option.rect = list->visualItemRect(list->item(row));
        const QRect indicator = list->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, list);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, indicator.center());
    }
    QCOMPARE(box.GetCheck(0), 1);
    QCOMPARE(box.GetCheck(1), 0);
    QCOMPARE(changes.count(), 1);
}

void tst_CheckListBox::missingItems()
{
    QListWidget list;
    CCheckListBox_X box;
    QCOMPARE(box.AddString(L"nobody"), LB_ERR);
    box.SetCheck(0, 1);
    box.Enable(0);
    QCOMPARE(box.GetCheck(0), 2);
    box.SubclassWindow(&list);
    box.SetCheck(0, 1);
    box.Enable(0);
    QCOMPARE(box.GetCheck(0), 2);
}

XE_TEST(tst_CheckListBox)
#include "tst_checklistbox.moc"
