// Cells with a list: their items, how they open and end, the arrow, and what is erased from the list.

#include "btncell/btnstage.h"
#include "leavenothing.h"
#include "realwindow.h"
#include "testclass.h"

#include <QAbstractItemView>
#include <QComboBox>

#include <X11/keysym.h>

namespace {

QString itemsOf(const CStringArray_X& items)
{
    QStringList texts;
    for (long long i = 0; i < items.GetSize(); ++i)
        texts += XeQString(items[i]);
    return texts.join(QLatin1Char(' '));
}

struct ComboStage : BtnStage
{
    ComboStage() : BtnStage(RUNTIME_CLASS_X(CGridBtnCellCombo_X)), combo(static_cast<CGridBtnCellCombo_X*>(cell.data()))
    {
        items.Add(L"bolt");
        items.Add(L"nut");
        items.Add(L"washer");
        combo->SetComboString(items);
        setUp(0, DFC_SCROLL, DFCS_SCROLLDOWN, CTL_ALIGN_RIGHT, 20);
        combo->SetText(L"nut");
    }

    QComboBox* box() const
    {
        CWnd_X* const editor = combo ? combo->GetEditWnd() : nullptr;
        return editor ? qobject_cast<QComboBox*>(editor->GetSafeHwnd()) : nullptr;
    }
    CRect rect() const
    {
        CRect cellRect;
        grid->GetCellRect(1, 1, &cellRect);
        return cellRect;
    }
    int edit(CPoint point = {10, 5}, UINT ch = 1) { return combo->Edit(1, 1, rect(), point, 8, ch); }
    QString text() const { return XeQString(combo->GetText()); }

    CStringArray_X items;
    CGridBtnCellCombo_X* combo;
};

CPoint arrow() { return {90, 5}; }

} // namespace

class tst_BtnCellCombo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_input.isUsable()); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void startValues();
    void itemsByReference();
    void itemsByPointer();
    void reset();

    void opensAList();
    void arrowOpensTheList_data();
    void arrowOpensTheList();
    void otherControlIsClicked();
    void clickOnTheArrow();
    void choiceIsStored();
    void arrowPopsUp();
    void membersOfAGroupAreNotChecked();

    void easeList();
    void erasedItemsStayErased();
    void emptiedList();

    void goesWithTheCell();

private:
    VirtualInput m_input;
};

void tst_BtnCellCombo::startValues()
{
    CGridBtnCellCombo_X cell;
    QCOMPARE(cell.GetComboStyle(), 1u);
    QCOMPARE(cell.GetAllowEase(), 0);
    QCOMPARE(cell.m_pComboItems, &cell.m_strComboItems);
    CStringArray_X items;
    items.Add(L"x");
    cell.GetComboString(&items);
    QCOMPARE(items.GetSize(), 0LL);
    cell.GetComboString(nullptr);
}

void tst_BtnCellCombo::itemsByReference()
{
    ComboStage stage;
    stage.items.Add(L"later");
    QCOMPARE(itemsOf(stage.combo->m_strComboItems), QStringLiteral("bolt nut washer"));
    CStringArray_X read;
    stage.combo->GetComboString(&read);
    QCOMPARE(itemsOf(read), QStringLiteral("bolt nut washer"));
}

void tst_BtnCellCombo::itemsByPointer()
{
    ComboStage stage;
    stage.combo->SetComboString(&stage.items);
    stage.items.Add(L"later");
    CStringArray_X read;
    stage.combo->GetComboString(&read);
    QCOMPARE(itemsOf(read), QStringLiteral("bolt nut washer later"));
    QCOMPARE(itemsOf(stage.combo->m_strComboItems), QStringLiteral("bolt nut washer"));
    stage.combo->SetComboString(static_cast<CStringArray_X*>(nullptr));
    QCOMPARE(stage.combo->m_pComboItems, &stage.combo->m_strComboItems);
    QCOMPARE(stage.combo->m_strComboItems.GetSize(), 0LL);
}

void tst_BtnCellCombo::reset()
{
    ComboStage stage;
    stage.combo->SetComboString(&stage.items);
    stage.combo->SetComboStyle(3);
    stage.combo->Reset();
    QCOMPARE(stage.combo->GetComboStyle(), 1u);
    QCOMPARE(stage.combo->m_strComboItems.GetSize(), 0LL);
    QCOMPARE(stage.items.GetSize(), 3LL);
}

// ------------------------------------------------------------------------------------------------------------- editing

void tst_BtnCellCombo::opensAList()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    QCOMPARE(stage.edit(), 1);
    QCOMPARE(stage.combo->IsEditing(), 1);
    auto* const list = qobject_cast<CInPlaceList_X*>(stage.combo->GetEditWnd());
    QVERIFY(list);
    QCOMPARE(stage.box()->count(), 3);
    QCOMPARE(stage.box()->currentText(), QStringLiteral("nut"));
    QVERIFY(stage.box()->isEditable());
    QVERIFY(!stage.box()->view()->isVisible());
    stage.combo->EndEdit();
    QVERIFY(!stage.combo->GetEditWnd());
}

void tst_BtnCellCombo::arrowOpensTheList_data()
{
    QTest::addColumn<unsigned>("style");
    QTest::addColumn<bool>("opens");

    QTest::newRow("no kind") << 0u << false;
    QTest::newRow("simple") << 1u << true;
    QTest::newRow("with a field") << 2u << true;
    QTest::newRow("without a field") << 3u << true;
}

void tst_BtnCellCombo::arrowOpensTheList()
{
    QFETCH(unsigned, style);
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.combo->SetComboStyle(style);
    QCOMPARE(stage.edit(arrow()), 1);
    QCOMPARE(stage.box()->isEditable(), style != 3);
    QTEST(stage.box()->view()->isVisible(), "opens");
    stage.box()->hidePopup();
    stage.combo->EndEdit();
}

void tst_BtnCellCombo::otherControlIsClicked()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.setUp(1, DFC_BUTTON, 0, CTL_ALIGN_LEFT, 20);
    QCOMPARE(stage.edit({5, 5}), 0);
    QCOMPARE(stage.state(1), DFCS_CHECKED);
    QVERIFY(!stage.box());
}

void tst_BtnCellCombo::clickOnTheArrow()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.combo->OnClickDown(arrow());
    stage.combo->OnClick(arrow());
    QCOMPARE(stage.owner.take(), QStringList{QStringLiteral("-175 1,1")});
    QVERIFY(stage.box());
    QVERIFY(stage.box()->view()->isVisible());
    stage.box()->hidePopup();
    stage.combo->EndEdit();
    QCOMPARE(stage.owner.take(), QStringList{QStringLiteral("-176 1,1")});
}

void tst_BtnCellCombo::choiceIsStored()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.combo->SetComboStyle(CBS_DROPDOWNLIST);
    stage.edit(arrow());
    QVERIFY(QTest::qWaitForWindowExposed(stage.box()->view()->window()));
    m_input.typeKey(XK_Down);
    QTRY_COMPARE(stage.box()->view()->currentIndex().row(), 2);
    m_input.typeKey(XK_Return);
    QTRY_COMPARE(stage.text(), QStringLiteral("washer"));
    QTRY_VERIFY(!stage.combo->IsEditing());
    QVERIFY(stage.widget->hasFocus());
}

void tst_BtnCellCombo::arrowPopsUp()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED, CTL_ALIGN_LEFT, 10);
    stage.combo->OnClickDown(arrow());
    QCOMPARE(stage.state(0), DFCS_SCROLLDOWN | DFCS_PUSHED);
    stage.edit(arrow());
    stage.box()->hidePopup();
    stage.combo->EndEdit();
    QCOMPARE(stage.state(0), DFCS_SCROLLDOWN);
    QCOMPARE(stage.state(1), DFCS_BUTTONPUSH);
}

void tst_BtnCellCombo::membersOfAGroupAreNotChecked()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.setUp(1, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED, CTL_ALIGN_LEFT, 10, TRUE);
    stage.setUp(2, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED | DFCS_CHECKED, CTL_ALIGN_LEFT, 10, TRUE);
    stage.edit({50, 5});
    stage.combo->EndEdit();
    QCOMPARE(stage.state(1), DFCS_BUTTONPUSH);
    QCOMPARE(stage.state(2), DFCS_BUTTONPUSH | DFCS_PUSHED | DFCS_CHECKED);
}

// ---------------------------------------------------------------------------------------------------------------- ease

void tst_BtnCellCombo::easeList()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.combo->SetAllowEase(TRUE);
    stage.combo->SetComboStyle(CBS_DROPDOWN | CBS_SORT);
    QCOMPARE(stage.edit(), 1);
    auto* const list = qobject_cast<CEaseInPlaceList_X*>(stage.combo->GetEditWnd());
    QVERIFY(list);
    QCOMPARE(list->GetStyle() & 0x313u, 0x212u);
    QCOMPARE(list->GetSafeHwnd()->height(), stage.rect().Height());
    stage.combo->EndEdit();
    QVERIFY(!stage.combo->IsEditing());
}

void tst_BtnCellCombo::erasedItemsStayErased()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.combo->SetComboString(&stage.items);
    stage.combo->SetAllowEase(TRUE);
    stage.edit();
    stage.box()->removeItem(0);
    stage.combo->EndEdit();
    QCOMPARE(itemsOf(stage.combo->m_strComboItems), QStringLiteral("nut washer"));
    QCOMPARE(itemsOf(stage.items), QStringLiteral("nut washer"));
}

void tst_BtnCellCombo::emptiedList()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.combo->SetAllowEase(TRUE);
    stage.edit();
    stage.box()->clear();
    stage.combo->EndEdit();
    QCOMPARE(stage.combo->m_strComboItems.GetSize(), 0LL);
}

void tst_BtnCellCombo::goesWithTheCell()
{
    ComboStage stage;
    QVERIFY(stage.comeUp());
    stage.edit();
    const QPointer<QWidget> box = stage.box();
    delete stage.cell;
    (*stage.grid->m_RowData[1])[1] = nullptr;
    QVERIFY(!stage.shared.GetEditWnd());
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!box);
    QVERIFY(stage.widget->hasFocus());
    QVERIFY(stage.owner.notes.isEmpty());
}

XE_TEST(tst_BtnCellCombo)

#include "tst_btncellcombo.moc"
