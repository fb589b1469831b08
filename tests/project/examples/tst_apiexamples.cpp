// The examples of the headers' class comments, word for word, put to use.

#include "testclass.h"

#include <XeMFCEmu.h>

#include <QTimer>

// ---- CObject_X

class CTone : public CObject_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CTone)
};
IMPLEMENT_DYNCREATE_X(CTone, CObject_X)

// ---- CWnd_X

class CPlanView : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPlanView)
public:
    void OnLButtonDown(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP_X()

public:
    CPoint pressed; // not in the comment: what the test looks at
};
IMPLEMENT_DYNCREATE_X(CPlanView, CWnd_X)
BEGIN_MESSAGE_MAP_X(CPlanView, CWnd_X)
    ON_WM_LBUTTONDOWN_X()
END_MESSAGE_MAP_X()

void CPlanView::OnLButtonDown(UINT, CPoint point) { pressed = point; }

// ---- CMenu_X, CCmdUI_X

namespace {

constexpr UINT_PTR ID_PART_EDIT = 40002;
constexpr UINT_PTR ID_PART_IN_USE = 40004;
constexpr UINT_PTR ID_PLAN_CLOSE = 40020;

} // namespace

class CPartList : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPartList)
public:
    void OnContextMenu(QWidget*, CPoint point);
    DECLARE_MESSAGE_MAP_X()

public:
    void OnPartEdit() { ++edits; }
    int edits = 0;
};
IMPLEMENT_DYNCREATE_X(CPartList, CWnd_X)
BEGIN_MESSAGE_MAP_X(CPartList, CWnd_X)
    ON_WM_CONTEXTMENU_X()
END_MESSAGE_MAP_X()

void CPartList::OnContextMenu(QWidget*, CPoint point)
{
    CMenu_X menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, ID_PART_EDIT, L"&Edit...");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, ID_PART_IN_USE, L"In &use");
    menu.CheckMenuItem(ID_PART_IN_USE, MF_CHECKED);
    ClientToScreen(&point);
    if (menu.TrackPopupMenu(0, point.x, point.y, this) == ID_PART_EDIT)
        OnPartEdit();
}

struct CPlanFrame
{
    void OnUpdateCommands();

    CMenu_X m_menu;
    void* m_plan = nullptr;
};

void CPlanFrame::OnUpdateCommands()
{
    CCmdUI_X command;
    command.m_pOther = CMenu_X::findAction(ID_PLAN_CLOSE, m_menu);
    command.Enable(m_plan != nullptr);
}

// ---- The values of a thread

namespace {

struct Item
{
    int value;
    Item* next;
};

struct CCounter : CNoTrackObject_X
{
    int value = 0;
};

CThreadLocal_X<CCounter> counter;

} // namespace

class tst_ApiExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wrapperOfAnObject()
    {
        QObject implementation;
        CTone tone;
        tone.Attach(&implementation, nullptr, true);
        QCOMPARE(CObject_X::GetOwner(&implementation), &tone);
        QVERIFY(tone.IsKindOf(RUNTIME_CLASS_X(CTone)));
        const QScopedPointer<CObject_X> another(CTone::s_classInfo.CreateObject());
        QCOMPARE(QByteArray(another->GetClassName()), QByteArray("CTone"));
    }

    void windowWithAMessageMap()
    {
        QWidget widget;
        CPlanView view;
        QCOMPARE(view.SubclassWindow(&widget), 1);
        QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(12, 34));
        QVERIFY(view.pressed == CPoint(12, 34));
    }

    void waysAndPlaces()
    {
        CSize step(2, 1);
        CPoint moved = CPoint(10, 10) + step; // (12, 11)
        QVERIFY(moved == CPoint(12, 11));

        const LPARAM lParam = MAKELPARAM(40, 30);
        CPoint at(lParam); // the position in a mouse message
        at.Offset(-5, 0);
        CSize way = at - CPoint(3, 4);
        QVERIFY(way == CSize(32, 26));
    }

    void rectangleOfAWindow()
    {
        CWnd_X view;
        const CPoint point(10, 39);
        CRect area(0, 0, 100, 50);
        area.DeflateRect(10, 10); // (10, 10, 90, 40)
        QVERIFY(area == CRect(10, 10, 90, 40));
        QVERIFY(area.PtInRect(point));
        view.InvalidateRect(area); // a rectangle converts to a pointer to its record
    }

    void listThroughItsElements()
    {
        Item item{17, nullptr};
        CSimpleList_X items(offsetof(Item, next));
        items.AddHead(&item);
        QCOMPARE(items.GetHead(), static_cast<void*>(&item));
    }

    void slotOfAThread()
    {
        CThreadSlotData_X table;
        const int slot = table.AllocSlot();
        table.SetValue(slot, new CCounter); // this thread's; derived from CNoTrackObject_X
        auto* ownCounter = static_cast<CCounter*>(table.GetThreadValue(slot));
        QCOMPARE(ownCounter->value, 0);
        table.FreeSlot(slot); // deletes the counters of all threads
        QCOMPARE(table.GetThreadValue(slot), nullptr);
    }

    void objectOfAThread()
    {
        ++counter->value; // this thread's
        QCOMPARE(counter->value, 1);
    }

    void menuAtAPoint()
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
        QWidget widget;
        CPartList list;
        QCOMPARE(list.SubclassWindow(&widget), 1);
        QTimer::singleShot(0, &widget, [] {
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
        });
        list.SendMessage(WM_CONTEXTMENU, 0, MAKELPARAM(5, 5));
        QCOMPARE(list.edits, 1);
    }

    void updateOfACommand()
    {
        CPlanFrame frame;
        frame.m_menu.CreateMenu();
        frame.m_menu.AppendMenu(MF_STRING, ID_PLAN_CLOSE, L"&Close");
        frame.OnUpdateCommands();
        QCOMPARE(frame.m_menu.GetMenuState(ID_PLAN_CLOSE, MF_BYCOMMAND), MF_GRAYED);
        frame.m_plan = &frame;
        frame.OnUpdateCommands();
        QCOMPARE(frame.m_menu.GetMenuState(ID_PLAN_CLOSE, MF_BYCOMMAND), 0u);
    }
};

XE_TEST(tst_ApiExamples)
#include "tst_apiexamples.moc"
