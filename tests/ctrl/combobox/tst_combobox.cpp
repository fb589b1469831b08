// Combo boxes: how they are made, their items, the list.

#include "combobox/combostage.h"
#include "leavenothing.h"
#include "testclass.h"

#include <XeCustomUI.h>
#include <XeMFCEmu.h>

#include <climits>

class tst_ComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void created_data();
    void created();
    void createdWithoutStyle();
    void scrollBarStyles();
    void anEmptyBoxHasNoCount();
    void addedItemsDoNotBecomeCurrent_data();
    void addedItemsDoNotBecomeCurrent();
    void whatIsTypedStays();
    void inserting_data();
    void inserting();
    void insertingInFrontOfTheCurrentItem();
    void addedItemsHaveNoData();
    void deleting();
    void clearing();
    void itemTexts();
    void itemHeight();
    void dropDown();
    void data();
    void withoutAWidget();
};

// ------------------------------------------------------------------------------------------------------ creation

void tst_ComboBox::created_data()
{
    QTest::addColumn<DWORD>("style");
    QTest::addColumn<bool>("editable");
    QTest::newRow("simple") << CBS_SIMPLE << true;
    QTest::newRow("drop down") << CBS_DROPDOWN << true;
    QTest::newRow("drop list") << CBS_DROPDOWNLIST << false;
    QTest::newRow("no kind") << CBS_HASSTRINGS << true;
    QTest::newRow("drop list among other bits") << (CBS_DROPDOWNLIST | CBS_SORT) << false;
}

void tst_ComboBox::created()
{
    QFETCH(DWORD, style);
    QFETCH(bool, editable);
    QWidget form;
    CComboBox_X combo;
    QCOMPARE(combo.Create(style, CRect(10, 20, 110, 50), &form, 7), 1);
    auto* const box = qobject_cast<XeCUIComboBox*>(combo.GetSafeHwnd());
    QVERIFY(box);
    QCOMPARE(box->isEditable(), editable);
    QCOMPARE(box->geometry(), QRect(10, 20, 100, 30));
    QCOMPARE(combo.GetEditBox(), box->lineEdit());
    QCOMPARE(combo.GetStyle(), style);
}

void tst_ComboBox::createdWithoutStyle()
{
    QWidget form;
    CComboBox_X combo;
    QCOMPARE(combo.Create(&form), 1);
    QVERIFY(qobject_cast<XeCUIComboBox*>(combo.GetSafeHwnd()));
    QVERIFY(!combo.GetEditBox());
}

void tst_ComboBox::scrollBarStyles()
{
    QWidget form;
    CComboBox_X combo;
    combo.Create(CBS_DROPDOWN | WS_VSCROLL | WS_HSCROLL, CRect(0, 0, 100, 30), &form);
    QVERIFY(!combo.GetScrollBarCtrl(SB_VERT));
    QVERIFY(combo.GetScrollBarCtrl(SB_HORZ));
    QCOMPARE(combo.GetStyle(), CBS_DROPDOWN | WS_HSCROLL);
}

// --------------------------------------------------------------------------------------------------------- items

void tst_ComboBox::anEmptyBoxHasNoCount()
{
    Stage stage;
    QCOMPARE(stage.combo.GetCount(), CB_ERR);
    stage.box.addItem(QString());
    QCOMPARE(stage.combo.GetCount(), 1);
}

void tst_ComboBox::addedItemsDoNotBecomeCurrent_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("with field") << true;
    QTest::newRow("without field") << false;
}

void tst_ComboBox::addedItemsDoNotBecomeCurrent()
{
    QFETCH(bool, editable);
    Stage stage({}, editable);
    const Signals heard(stage.box);
    QCOMPARE(stage.combo.AddString(L"零件 😀"), 0);
    QCOMPARE(stage.combo.GetCurSel(), -1);
    QCOMPARE(stage.combo.AddString(L"b"), 1);
    QCOMPARE(stage.combo.AddString(nullptr), 2);
    QCOMPARE(stage.combo.GetCurSel(), -1);
    QCOMPARE(textOf(stage.combo), CString_X());
    QCOMPARE(itemsOf(stage.box), QStringLiteral("零件 😀 b "));
    QCOMPARE(stage.combo.SetCurSel(1), 1);
    QCOMPARE(stage.combo.AddString(L"c"), 3);
    QCOMPARE(stage.combo.GetCurSel(), 1);
    QCOMPARE(heard.count(), 0);
}

void tst_ComboBox::whatIsTypedStays()
{
    Stage stage;
    QTest::keyClicks(&stage.box, QStringLiteral("typed"));
    stage.box.lineEdit()->setCursorPosition(2);
    QSignalSpy changes(stage.box.lineEdit(), &QLineEdit::textChanged);
    stage.combo.InsertString(0, L"first");
    QCOMPARE(textOf(stage.combo), CString_X(L"typed"));
    QCOMPARE(stage.box.lineEdit()->cursorPosition(), 2);
    QCOMPARE(stage.combo.GetCurSel(), -1);
    QCOMPARE(changes.count(), 0);
}

void tst_ComboBox::inserting_data()
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

void tst_ComboBox::inserting()
{
    QFETCH(int, index);
    Stage stage({QStringLiteral("a"), QStringLiteral("b")});
    QTEST(stage.combo.InsertString(index, L"new"), "place");
    QTEST(stage.box.findText(QStringLiteral("new")), "place");
}

void tst_ComboBox::insertingInFrontOfTheCurrentItem()
{
    Stage stage({QStringLiteral("a"), QStringLiteral("b")});
    stage.combo.SetCurSel(1);
    stage.combo.InsertString(0, L"new");
    QCOMPARE(stage.combo.GetCurSel(), 2);
    QCOMPARE(textOf(stage.combo), CString_X(L"b"));
}

void tst_ComboBox::addedItemsHaveNoData()
{
    Stage stage;
    stage.combo.AddString(L"a");
    QVERIFY(!stage.box.itemData(0).isValid());
    QVERIFY(stage.box.itemIcon(0).isNull());
    QCOMPARE(stage.combo.GetItemData(0), DWORD_PTR(0));
    QVERIFY(!stage.combo.GetItemDataPtr(0));
}

void tst_ComboBox::deleting()
{
    Stage stage({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    stage.combo.SetCurSel(1);
    const Signals heard(stage.box);
    QCOMPARE(stage.combo.DeleteString(3), 3);
    QCOMPARE(stage.combo.DeleteString(UINT_MAX), 3);
    QCOMPARE(stage.combo.DeleteString(1), 2);
    QCOMPARE(itemsOf(stage.box), QStringLiteral("a c"));
    QVERIFY(stage.combo.GetCurSel() >= 0); // a neighbour
    QCOMPARE(stage.combo.DeleteString(0), 1);
    QCOMPARE(stage.combo.DeleteString(0), 0);
    QCOMPARE(stage.combo.DeleteString(0), 0);
    QCOMPARE(heard.count(), 0);
}

void tst_ComboBox::clearing()
{
    Stage silent(fruit);
    const Signals heardOfReset(silent.box);
    silent.combo.ResetContent();
    QCOMPARE(silent.box.count(), 0);
    QCOMPARE(heardOfReset.count(), 0);
    Stage loud(fruit);
    const Signals heardOfClear(loud.box);
    loud.combo.Clear();
    QCOMPARE(loud.box.count(), 0);
    QVERIFY(heardOfClear.count() > 0);
}

void tst_ComboBox::itemTexts()
{
    Stage stage({QStringLiteral("零件 😀")});
    CString_X text(L"before");
    QCOMPARE(stage.combo.GetLBText(0, text), 4);
    QCOMPARE(text, CString_X(L"零件 😀"));
    QCOMPARE(stage.combo.GetLBText(1, text), 0);
    QCOMPARE(text, CString_X());
}

void tst_ComboBox::itemHeight()
{
    Stage stage(fruit);
    QCOMPARE(stage.combo.SetItemHeight(-1, 33), 0);
    QCOMPARE(stage.box.lineEdit()->minimumHeight(), 33);
    QCOMPARE(stage.box.lineEdit()->maximumHeight(), 33);
    QCOMPARE(stage.combo.SetItemHeight(0, 44), 0);
    QCOMPARE(stage.box.lineEdit()->maximumHeight(), 33);
    const Stage dropList(fruit, false);
    QCOMPARE(const_cast<CComboBox_X&>(dropList.combo).SetItemHeight(-1, 33), CB_ERR);
}

void tst_ComboBox::dropDown()
{
    class Watched : public QComboBox
    {
    public:
        void showPopup() override { popups += QStringLiteral("show"); }
        void hidePopup() override { popups += QStringLiteral("hide"); }
        QStringList popups;
    };
    Watched box;
    CComboBox_X combo;
    combo.SubclassWindow(&box);
    QCOMPARE(combo.SetDroppedWidth(321), 321);
    QCOMPARE(combo.GetDroppedWidth(), 321);
    combo.ShowDropDown();
    combo.ShowDropDown(FALSE);
    QCOMPARE(box.popups, (QStringList{QStringLiteral("show"), QStringLiteral("hide")}));
    combo.Detach(); // while the box has the rest of its class
}

void tst_ComboBox::data()
{
    Stage stage(fruit);
    QCOMPARE(stage.combo.SetItemData(1, 0x123456789ABCDEF0ull), static_cast<int>(0x9ABCDEF0));
    QCOMPARE(stage.combo.GetItemData(1), DWORD_PTR(0x123456789ABCDEF0));
    QVERIFY(!stage.combo.GetItemDataPtr(1));
    QCOMPARE(stage.box.itemData(1).userType(), static_cast<int>(QMetaType::ULongLong));
    QCOMPARE(stage.combo.SetItemDataPtr(2, &stage), 0);
    QCOMPARE(stage.combo.GetItemDataPtr(2), static_cast<void*>(&stage));
    QCOMPARE(stage.box.itemData(2).userType(), static_cast<int>(QMetaType::VoidStar));
    QCOMPARE(stage.combo.SetItemData(9, 5), 5);
    QCOMPARE(stage.combo.GetItemData(9), DWORD_PTR(0));
    QVERIFY(!stage.combo.GetItemDataPtr(9));
}

void tst_ComboBox::withoutAWidget()
{
    CComboBox_X combo;
    int start = 1;
    int end = 2;
    CString_X text(L"emptied");
    combo.Clear();
    combo.ResetContent();
    combo.ShowDropDown();
    combo.SetWindowText(L"x");
    const QVector<int> errors{combo.GetCount(),
                              combo.GetCurSel(),
                              combo.SetCurSel(0),
                              combo.AddString(L"x"),
                              combo.InsertString(0, L"x"),
                              combo.DeleteString(0),
                              combo.FindString(0, L""),
                              combo.FindStringExact(0, L""),
                              combo.SelectString(0, L""),
                              combo.GetLBText(0, text),
                              combo.SetItemHeight(-1, 5),
                              combo.SetDroppedWidth(5),
                              combo.GetDroppedWidth(),
                              combo.SetItemData(0, 1),
                              combo.SetItemDataPtr(0, nullptr)};
    QCOMPARE(errors.count(CB_ERR), errors.size());
    QCOMPARE(text, CString_X());
    QCOMPARE(combo.GetItemData(0), ~DWORD_PTR(0));
    QCOMPARE(combo.GetItemDataPtr(0), reinterpret_cast<void*>(-1));
    QVERIFY(!combo.GetEditBox());
    QCOMPARE(combo.GetEditSel(start, end) + combo.SetEditSel(0, -1), 0);
    QCOMPARE(start + end, 3);
    QCOMPARE(textOf(combo), CString_X(L"untouched"));
}

XE_TEST(tst_ComboBox)
#include "tst_combobox.moc"
