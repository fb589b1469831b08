// Calls as host code writes them: a window where a member takes one may be a wrapper of any class, a widget of any
// class, or nothing; a rectangle may be an object or its address; and what has a usual value may be left out.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QPushButton>

#include <type_traits>

namespace {

class HostWindow : public CWnd_X
{
public:
    // Members pass themselves on.
    int createIn(CWnd_X& child) const { return child.Create(WS_CHILD, CRect(0, 0, 10, 10), this); }
    BOOL isChildOf(const CWnd_X& parent) const { return parent.IsChild(this); }
};

constexpr UINT keepPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

// The results and parameters that host declarations rely on.
static_assert(std::is_same_v<decltype(std::declval<const CWnd_X>().GetSafeHwnd()), QWidget*>);
static_assert(std::is_same_v<decltype(std::declval<const CWnd_X>().GetDlgItem(1)), CWnd_X*>);
static_assert(std::is_same_v<decltype(std::declval<const CWnd_X>().GetParent()), CWnd_X*>);
static_assert(std::is_same_v<decltype(std::declval<CWnd_X>().SetParent(nullptr)), CWnd_X*>);
static_assert(std::is_same_v<decltype(std::declval<const CWnd_X>().GetStyle()), DWORD>);

// A widget, and two siblings "wrapped" and "plain" of it.
struct Family
{
    Family()
    {
        wrappedWidget.setWindowFlags(Qt::Widget); // part of its parent
        window.SubclassWindow(&widget);
        wrapped.SubclassWindow(&wrappedWidget);
    }

    QWidget parent;
    QPushButton plain{&parent};
    QDialog wrappedWidget{&parent};
    QWidget widget{&parent};
    HostWindow window;
    CDialog_X wrapped;
};

} // namespace

class tst_WndArguments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void createTakesAnyParent()
    {
        Family family;
        CWnd_X* const asBase = &family.wrapped;
        const CDialog_X& constant = family.wrapped;
        const auto parentAfter = [](auto create) {
            CWnd_X window;
            return create(window) ? window.GetSafeHwnd()->parentWidget() : nullptr;
        };
        const CRect rect(1, 2, 3, 4);
        QWidget* const dialog = &family.wrappedWidget;
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, asBase); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, &family.wrapped); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, &constant); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, dialog); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, &family.wrappedWidget); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, rect, asBase); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, rect, &family.wrapped); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, rect, dialog); }), dialog);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return family.window.createIn(w); }), &family.widget);

        CWnd_X* const none = nullptr;
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, none); }), nullptr);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, nullptr); }), nullptr);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, NULL); }), nullptr);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, rect, none); }), nullptr);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, rect, nullptr); }), nullptr);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, rect, NULL); }), nullptr);
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(NULL); }), nullptr);
        const CWnd_X unattached;
        QCOMPARE(parentAfter([&](CWnd_X& w) { return w.Create(WS_CHILD, &unattached); }), nullptr);
    }

    void setParentTakesAnyWindow()
    {
        Family family;
        CWnd_X* const asBase = &family.wrapped;
        const QPointer<QWidget> widget = &family.widget;
        CWnd_X* before = family.window.SetParent(asBase);
        QCOMPARE(before->GetSafeHwnd(), &family.parent);
        QCOMPARE(widget->parentWidget(), &family.wrappedWidget);
        before = family.window.SetParent(&family.plain);
        QCOMPARE(before, asBase);
        QCOMPARE(widget->parentWidget(), &family.plain);
        family.window.SetParent(&family.wrapped);
        QCOMPARE(family.window.GetParent(), asBase);
        family.window.SetParent(nullptr);
        QCOMPARE(family.window.GetParent(), nullptr);
        family.window.SetParent(asBase);
        family.window.SetParent(NULL);
        QCOMPARE(widget->parentWidget(), nullptr);
        QCOMPARE(family.window.SetParent(&family.parent), nullptr);
    }

    void isChildTakesAnyWindow()
    {
        Family family;
        CWnd_X parent;
        parent.SubclassWindow(&family.parent);
        const CWnd_X& constant = parent;
        CWnd_X* const asBase = &family.wrapped;
        QCOMPARE(constant.IsChild(asBase), 1);
        QCOMPARE(constant.IsChild(&family.wrapped), 1);
        QCOMPARE(constant.IsChild(&family.plain), 1);
        QCOMPARE(constant.IsChild(nullptr), 0);
        QCOMPARE(constant.IsChild(NULL), 0);
        QCOMPARE(family.window.isChildOf(constant), 1);
        QCOMPARE(family.wrapped.IsChild(&constant), 0);
    }

    void setWindowPosTakesAnyWindow()
    {
        Family family;
        CWnd_X* const asBase = &family.wrapped;
        const auto place = [&] { return family.parent.children().indexOf(&family.widget); };
        const auto start = place();
        QCOMPARE(family.window.SetWindowPos(nullptr, 0, 0, 0, 0, keepPlace), 1);
        QCOMPARE(family.window.SetWindowPos(NULL, 0, 0, 0, 0, keepPlace), 1);
        QCOMPARE(place(), start);
        QCOMPARE(family.window.SetWindowPos(asBase, 0, 0, 0, 0, keepPlace), 1);
        QCOMPARE(place(), family.parent.children().indexOf(&family.wrappedWidget) - 1);
        QCOMPARE(family.window.SetWindowPos(&family.plain, 0, 0, 0, 0, keepPlace), 1);
        QCOMPARE(place(), family.parent.children().indexOf(&family.plain) - 1);
        QCOMPARE(family.window.SetWindowPos(&family.wrapped, 0, 0, 0, 0, keepPlace), 1);
        QCOMPARE(place(), family.parent.children().indexOf(&family.wrappedWidget) - 1);
    }

    void centerWindowTakesAnyWindow()
    {
        Family family;
        family.widget.resize(1, 1);
        family.parent.resize(300, 300);
        family.plain.setGeometry(100, 100, 11, 11);
        family.wrappedWidget.setGeometry(200, 200, 11, 11);
        CWnd_X* const asBase = &family.wrapped;
        family.window.CenterWindow(asBase);
        QCOMPARE(family.widget.pos(), QPoint(205, 205));
        family.window.CenterWindow(&family.plain);
        QCOMPARE(family.widget.pos(), QPoint(105, 105));
        family.window.CenterWindow(&family.wrapped);
        QCOMPARE(family.widget.pos(), QPoint(205, 205));
        const QPoint inParent(family.parent.x() + 149, family.parent.y() + 149);
        family.window.CenterWindow();
        QCOMPARE(family.widget.pos(), inParent);
        family.window.CenterWindow(nullptr);
        family.window.CenterWindow(NULL);
        QCOMPARE(family.widget.pos(), inParent);
    }

    void rectanglesAreObjectsOrAddresses()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        CRect rect(10, 20, 110, 70);
        RECT record = rect;
        window.MoveWindow(rect);
        window.MoveWindow(&rect, TRUE);
        window.MoveWindow(&record);
        window.GetClientRect(rect);
        QVERIFY(rect == CRect(0, 0, 100, 50));
        window.GetClientRect(&record);
        window.ClientToScreen(rect);
        window.ScreenToClient(&rect);
        window.ClientToScreen(&record);
        window.GetWindowRect(rect);
        window.GetWindowRect(&record);
        QVERIFY(rect == record);
        window.InvalidateRect(rect);
        window.InvalidateRect(&record, FALSE);
        window.InvalidateRect(NULL);
        window.ScrollWindow(1, 1, rect);
        CPoint point(1, 2);
        POINT pointRecord = point;
        window.ClientToScreen(&point);
        window.ScreenToClient(&point);
        window.ClientToScreen(&pointRecord);
        QVERIFY(point == CPoint(1, 2));
        window.WindowFromPoint(pointRecord);
    }

    void usualValuesMayBeLeftOut()
    {
        QWidget widget;
        CWnd_X window;
        window.SubclassWindow(&widget);
        QCOMPARE(window.ModifyStyle(0, WS_VSCROLL), 1);
        QCOMPARE(window.ModifyStyle(WS_VSCROLL, WS_HSCROLL, SWP_FRAMECHANGED), 1);
        QCOMPARE(window.GetStyle(), WS_HSCROLL);
        QCOMPARE(window.ModifyStyle(WS_HSCROLL, WS_HSCROLL), 1); // taken away first
        QCOMPARE(window.GetStyle(), WS_HSCROLL);
        QVERIFY(!window.GetScrollBarCtrl(SB_HORZ));

        const UINT_PTR timer = window.SetTimer(1, 60000, NULL);
        QCOMPARE(window.KillTimer(timer), 1);
        QCOMPARE(window.UpdateData(), 1);
        QCOMPARE(window.UpdateData(FALSE), 1);
        QCOMPARE(window.SendMessage(WM_USER), 0LL);
        QCOMPARE(window.PostMessage(WM_USER, 1), 1LL);
        window.SetRedraw();
        window.ShowScrollBar(SB_BOTH);
        QCOMPARE(window.SetScrollPos(SB_VERT, 5), 0);
        window.SetScrollRange(SB_VERT, 0, 10);
        window.SetFont(window.GetFont());
    }
};

XE_TEST(tst_WndArguments)
#include "tst_wndarguments.moc"
