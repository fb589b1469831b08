// The members that stand for a window function: each with a widget, where it does what the function does, and without
// one, where it does nothing.

#include "leavenothing.h"
#include "testclass.h"

#include <XeMFCEmu.h>

#include <QDesktopWidget>
#include <QTimer>

namespace {

// Calls one member, and says what it gave and what became of the widget. The wrapper may be without the widget.
using Call = QString (*)(CWnd_X& window, QWidget& widget);

struct Forwarder
{
    const char* name;
    Call call;
    const char* with;
    const char* without;
};

QString said(long long result) { return QString::number(result); }
QString said(const QWidget* result) { return result ? result->objectName() : QStringLiteral("null"); }

// A result and what came after it, in this order.
struct Both
{
    long long result;
    long long effect;
    QString text() const { return QStringLiteral("%1 %2").arg(result).arg(effect); }
};

QString rectSaid(long long result, const tagRECT& rect)
{
    return QStringLiteral("%1: %2 %3 %4 %5").arg(result).arg(rect.left).arg(rect.top).arg(rect.right).arg(rect.bottom);
}

void noTime(HWND, UINT, UINT_PTR, DWORD) {}

QWidget& childOf(QWidget& widget) { return *widget.findChild<QWidget*>(QStringLiteral("child")); }

const Forwarder forwarders[] = {
    {"ShowWindow hides",
     [](CWnd_X& window, QWidget& widget) {
         return Both{window.ShowWindow(SW_HIDE), widget.isHidden()}.text();
     },
     "1 1", "0 0"},
    {"ShowWindow shows",
     [](CWnd_X& window, QWidget& widget) {
         widget.hide();
         return Both{window.ShowWindow(SW_SHOW), widget.isHidden()}.text();
     },
     "1 0", "0 1"},
    {"ShowWindow with another command",
     [](CWnd_X& window, QWidget& widget) {
         return Both{window.ShowWindow(SW_MAXIMIZE), widget.windowState() == Qt::WindowNoState}.text();
     },
     "1 1", "0 1"},
    {"EnableWindow gives the state before",
     [](CWnd_X& window, QWidget& widget) {
         return Both{window.EnableWindow(FALSE), widget.isEnabled()}.text();
     },
     "1 0", "0 1"},
    {"EnableWindow enables by default",
     [](CWnd_X& window, QWidget& widget) {
         widget.setEnabled(false);
         return Both{window.EnableWindow(), widget.isEnabled()}.text();
     },
     "0 1", "0 0"},
    {"IsWindowEnabled", [](CWnd_X& window, QWidget&) { return said(window.IsWindowEnabled()); }, "1", "0"},
    {"IsWindowVisible", [](CWnd_X& window, QWidget&) { return said(window.IsWindowVisible()); }, "1", "0"},
    {"IsIconic of a minimised window",
     [](CWnd_X& window, QWidget& widget) {
         widget.setWindowState(Qt::WindowMinimized);
         const QString result = said(window.IsIconic());
         widget.setWindowState(Qt::WindowNoState);
         return result;
     },
     "1", "0"},
    {"IsIconic of another", [](CWnd_X& window, QWidget&) { return said(window.IsIconic()); }, "0", "0"},
    {"CloseWindow minimises",
     [](CWnd_X& window, QWidget& widget) {
         return Both{window.CloseWindow(), widget.isMinimized()}.text();
     },
     "1 1", "0 0"},
    {"OpenIcon restores",
     [](CWnd_X& window, QWidget& widget) {
         widget.setWindowState(Qt::WindowMinimized);
         return Both{window.OpenIcon(), widget.isMinimized()}.text();
     },
     "1 0", "0 1"},
    {"IsChild of a child", [](CWnd_X& window, QWidget& widget) { return said(window.IsChild(&childOf(widget))); }, "1",
     "0"},
    {"IsChild of itself tells yes, as QWidget::isAncestorOf does",
     [](CWnd_X& window, QWidget& widget) { return said(window.IsChild(&widget)); }, "1", "0"},
    {"SetWindowPos",
     [](CWnd_X& window, QWidget& widget) {
         const BOOL result = window.SetWindowPos(nullptr, 5, 6, 70, 80, SWP_NOZORDER);
         return Both{result, widget.geometry() == QRect(5, 6, 70, 80)}.text();
     },
     "1 1", "0 0"},
    {"GetWindowRect",
     [](CWnd_X& window, QWidget& widget) {
         tagRECT rect = {-1, -1, -1, -1};
         const BOOL result = window.GetWindowRect(&rect);
         rect.left -= widget.parentWidget()->mapToGlobal({0, 0}).x();
         rect.top -= widget.parentWidget()->mapToGlobal({0, 0}).y();
         return result ? rectSaid(result, rect) : QStringLiteral("0");
     },
     "1: 10 20 110 70", "0"},
    {"GetActiveWindow", [](CWnd_X& window, QWidget&) { return said(window.GetActiveWindow()); }, "null", "null"},
    {"SetActiveWindow gives the one before", [](CWnd_X& window, QWidget&) { return said(window.SetActiveWindow()); },
     "null", "null"},
    {"GetFocus", [](CWnd_X& window, QWidget&) { return said(window.GetFocus()); }, "null", "null"},
    {"SetFocus gives the one before",
     [](CWnd_X& window, QWidget& widget) {
         QString result = said(window.SetFocus());
         result += widget.window()->focusWidget() == &widget ? QStringLiteral(" focused") : QStringLiteral(" not");
         return result;
     },
     "null focused", "null not"},
    {"SetCapture",
     [](CWnd_X& window, QWidget& widget) {
         const QString before = said(window.SetCapture());
         const QString held = said(QWidget::mouseGrabber());
         if (QWidget::mouseGrabber())
             widget.releaseMouse();
         return before + QLatin1Char(' ') + held;
     },
     "null widget", "null null"},
    {"GetCapture",
     [](CWnd_X& window, QWidget& widget) {
         window.SetCapture();
         const QString held = said(window.GetCapture());
         if (QWidget::mouseGrabber())
             widget.releaseMouse();
         return held;
     },
     "widget", "null"},
    {"UpdateWindow",
     [](CWnd_X& window, QWidget&) {
         window.UpdateWindow();
         return QString();
     },
     "", ""},
    {"GetScrollPos without a bar", [](CWnd_X& window, QWidget&) { return said(window.GetScrollPos(SB_VERT)); }, "0",
     "0"},
    {"SetScrollPos gives the one before",
     [](CWnd_X& window, QWidget&) {
         window.ShowScrollBar(SB_HORZ);
         window.SetScrollPos(SB_HORZ, 20);
         const int before = window.SetScrollPos(SB_HORZ, 30, FALSE);
         return QStringLiteral("%1 %2").arg(before).arg(window.GetScrollPos(SB_HORZ));
     },
     "20 30", "0 0"},
    {"SetScrollRange and GetScrollRange",
     [](CWnd_X& window, QWidget&) {
         window.ShowScrollBar(SB_VERT);
         window.SetScrollRange(SB_VERT, -5, 500);
         int minimum = -1;
         int maximum = -1;
         window.GetScrollRange(SB_VERT, &minimum, &maximum);
         return QStringLiteral("%1 %2").arg(minimum).arg(maximum);
     },
     "-5 500", "-1 -1"},
    {"SetTimer",
     [](CWnd_X& window, QWidget& widget) {
         const UINT_PTR id = window.SetTimer(77, 60000);
         const bool runs = widget.findChild<QTimer*>();
         KillTimer_X(nullptr, 77);
         return Both{static_cast<long long>(id), runs}.text();
     },
     "77 1", "0 0"},
    {"KillTimer",
     [](CWnd_X& window, QWidget& widget) {
         SetTimer_X(&widget, 77, 60000, noTime);
         const BOOL result = window.KillTimer(77);
         const bool runs = widget.findChild<QTimer*>();
         KillTimer_X(nullptr, 77);
         return Both{result, runs}.text();
     },
     "1 0", "0 1"},
    {"KillTimer without a timer", [](CWnd_X& window, QWidget&) { return said(window.KillTimer(77)); }, "0", "0"},
    {"GetParent",
     [](CWnd_X& window, QWidget&) {
         const CWnd_X* const parent = window.GetParent();
         return parent ? said(parent->GetSafeHwnd()) : QStringLiteral("none");
     },
     "parent", "none"},
    {"SetParent gives the one before",
     [](CWnd_X& window, QWidget& widget) {
         QWidget other;
         CWnd_X otherWindow;
         otherWindow.SubclassWindow(&other);
         const CWnd_X* const before = window.SetParent(&otherWindow);
         const bool moved = widget.parentWidget() == &other;
         widget.setParent(nullptr); // the other parent goes
         return QStringLiteral("%1 %2").arg(before ? said(before->GetSafeHwnd()) : QStringLiteral("none")).arg(moved);
     },
     "parent 1", "none 0"},
    {"SetDlgCtrlID without a name for it", [](CWnd_X& window, QWidget&) { return said(window.SetDlgCtrlID(5)); }, "0",
     "0"},
    {"ModifyStyle", [](CWnd_X& window, QWidget&) { return said(window.ModifyStyle(1, 2)); }, "1", "1"},
    {"LockWindowUpdate",
     [](CWnd_X& window, QWidget& widget) {
         return Both{window.LockWindowUpdate(), widget.updatesEnabled()}.text();
     },
     "1 0", "0 1"},
    {"UnlockWindowUpdate",
     [](CWnd_X& window, QWidget& widget) {
         widget.setUpdatesEnabled(false);
         window.UnlockWindowUpdate();
         return Both{0, widget.updatesEnabled()}.text();
     },
     "0 1", "0 0"},
    {"SetRedraw",
     [](CWnd_X& window, QWidget& widget) {
         window.SetRedraw(FALSE);
         const bool off = widget.updatesEnabled();
         window.SetRedraw();
         return Both{off, widget.updatesEnabled()}.text();
     },
     "0 1", "1 1"},
    {"RedrawWindow", [](CWnd_X& window, QWidget&) { return said(window.RedrawWindow()); }, "1", "0"},
    {"Invalidate, InvalidateRect, ScrollWindow",
     [](CWnd_X& window, QWidget&) {
         const tagRECT rect = {1, 2, 3, 4};
         window.Invalidate();
         window.InvalidateRect(&rect);
         window.ScrollWindow(1, 2);
         window.ScrollWindow(1, 2, &rect);
         return QString();
     },
     "", ""},
    {"SetCursor",
     [](CWnd_X& window, QWidget& widget) {
         window.SetCursor(Qt::CrossCursor);
         return said(widget.cursor().shape() == Qt::CrossCursor);
     },
     "1", "0"},
    {"GetCursor",
     [](CWnd_X& window, QWidget& widget) {
         widget.setCursor(Qt::CrossCursor);
         return said(window.GetCursor().shape());
     },
     "2", "0"}, // Qt::CrossCursor, Qt::ArrowCursor
    {"SetIcon and GetIcon",
     [](CWnd_X& window, QWidget& widget) {
         QPixmap pixmap(16, 16);
         pixmap.fill(Qt::red);
         window.SetIcon(QIcon(pixmap));
         return Both{window.GetIcon().isNull(), widget.windowIcon().isNull()}.text();
     },
     "0 0", "1 1"},
    {"GetFont is the widget's own",
     [](CWnd_X& window, QWidget& widget) {
         return Both{window.GetFont() != nullptr, window.GetFont() == &widget.font()}.text();
     },
     "1 1", "0 0"},
    {"SetFont",
     [](CWnd_X& window, QWidget& widget) {
         QFont font;
         font.setPixelSize(33);
         window.SetFont(&font);
         window.SetFont(nullptr, FALSE); // changes nothing
         return said(widget.font().pixelSize() == 33);
     },
     "1", "0"},
    {"SetWindowText",
     [](CWnd_X& window, QWidget& widget) {
         window.SetWindowText(L"title 标题");
         return widget.windowTitle();
     },
     "title 标题", "old title"},
    {"SetWindowText of null",
     [](CWnd_X& window, QWidget& widget) {
         window.SetWindowText(nullptr);
         return widget.windowTitle();
     },
     "", "old title"},
    {"GetWindowText",
     [](CWnd_X& window, QWidget&) {
         CString_X text(L"before");
         window.GetWindowText(text);
         return QString::fromStdWString(std::wstring(text));
     },
     "old title", "before"},
    {"GetClientRect",
     [](CWnd_X& window, QWidget&) {
         tagRECT rect = {-1, -1, -1, -1};
         window.GetClientRect(&rect);
         return rectSaid(0, rect);
     },
     "0: 0 0 100 50", "0: -1 -1 -1 -1"},
    {"MoveWindow",
     [](CWnd_X& window, QWidget& widget) {
         const tagRECT rect = {1, 2, 31, 42};
         window.MoveWindow(&rect);
         const bool byRect = widget.geometry() == QRect(1, 2, 30, 40);
         window.MoveWindow(3, 4, 50, 60);
         return Both{byRect, widget.geometry() == QRect(3, 4, 50, 60)}.text();
     },
     "1 1", "0 0"},
    {"CenterWindow",
     [](CWnd_X& window, QWidget& widget) {
         const QPoint before = widget.pos();
         window.CenterWindow();
         return said(widget.pos() != before);
     },
     "1", "0"},
    {"ClientToScreen and ScreenToClient of a point",
     [](CWnd_X& window, QWidget& widget) {
         tagPOINT point = {1, 2};
         window.ClientToScreen(&point);
         const bool moved = QPoint(point.x, point.y) == widget.mapToGlobal({1, 2});
         window.ScreenToClient(&point);
         return Both{moved, point.x == 1 && point.y == 2}.text();
     },
     "1 1", "0 1"},
    {"WindowFromPoint",
     [](CWnd_X& window, QWidget& widget) {
         const QPoint at = childOf(widget).mapToGlobal({1, 1});
         const CWnd_X* const found = window.WindowFromPoint(CPoint(at.x(), at.y()));
         return said(found ? found->GetSafeHwnd() : nullptr);
     },
     "child", "null"},
    {"GetChildWidget", [](CWnd_X& window, QWidget&) { return said(window.GetChildWidget("child")); }, "child", "null"},
    {"SetMenu", [](CWnd_X& window, QWidget&) { return said(window.SetMenu(nullptr)); }, "1", "0"},
    {"ShowScrollBar",
     [](CWnd_X& window, QWidget& widget) {
         window.ShowScrollBar(SB_BOTH);
         return Both{widget.findChildren<QScrollBar*>().size(), window.IsScrollBarEnabled(SB_VERT)}.text();
     },
     "2 1", "0 0"},
    {"EnableScrollBar", [](CWnd_X& window, QWidget&) { return said(window.EnableScrollBar(SB_HORZ)); }, "1", "0"},
    {"RecalcLayout",
     [](CWnd_X& window, QWidget&) {
         window.RecalcLayout();
         return QString();
     },
     "", ""},
    {"UpdateData",
     [](CWnd_X& window, QWidget&) {
         return Both{window.UpdateData(), window.UpdateData(FALSE)}.text();
     },
     "1 1", "1 1"},
    {"MessageBox without a widget asks nobody",
     [](CWnd_X& window, QWidget&) { return said(window.GetSafeHwnd() ? 0 : window.MessageBox(L"text")); }, "0", "0"},
    {"messages",
     [](CWnd_X& window, QWidget&) {
         return Both{window.SendMessage(WM_USER), window.PostMessage(WM_USER) == 1}.text();
     },
     "0 1", "0 0"},
};

} // namespace

Q_DECLARE_METATYPE(Call)

class tst_WndForwarders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }
    void call_data();
    void call();
    void desktopWindow();
    void focusAndActivation();
    void releaseCapture();
};

void tst_WndForwarders::call_data()
{
    QTest::addColumn<Call>("member");
    QTest::addColumn<bool>("attached");
    QTest::addColumn<QString>("expected");
    for (const Forwarder& row : forwarders) {
        QTest::addRow("%s", row.name) << row.call << true << row.with;
        QTest::addRow("%s: no widget", row.name) << row.call << false << row.without;
    }
}

void tst_WndForwarders::call()
{
    QFETCH(Call, member);
    QFETCH(bool, attached);
    QWidget parent; // not on the screen: nothing becomes active
    parent.setObjectName(QStringLiteral("parent"));
    auto* const widget = new QWidget(&parent);
    widget->setObjectName(QStringLiteral("widget"));
    widget->setWindowTitle(QStringLiteral("old title"));
    widget->setGeometry(10, 20, 100, 50);
    widget->show();
    auto* const child = new QWidget(widget);
    child->setObjectName(QStringLiteral("child"));
    child->setGeometry(30, 10, 20, 20);
    const QPointer<QWidget> living(widget);

    CWnd_X window;
    if (attached)
        window.SubclassWindow(widget);
    QTEST(member(window, *widget), "expected");
    if (living && !living->parentWidget())
        delete widget;
}

void tst_WndForwarders::desktopWindow()
{
    QWidget* const desktop = CWnd_X::GetDesktopWindow()->GetSafeHwnd();
    QCOMPARE(desktop, static_cast<QWidget*>(QApplication::desktop()));
    ClearTempObjectPool();
    QCOMPARE(CWnd_X::FromHandlePermanent(desktop), nullptr);
}

void tst_WndForwarders::focusAndActivation()
{
    QWidget first;
    QWidget second;
    QLineEdit edit(&second);
    first.show();
    second.show();
    CWnd_X firstWindow;
    CWnd_X editWindow;
    CWnd_X secondWindow;
    firstWindow.SubclassWindow(&first);
    secondWindow.SubclassWindow(&second);
    editWindow.SubclassWindow(&edit);

    firstWindow.SetActiveWindow();
    QTRY_COMPARE(CWnd_X::GetActiveWindow(), &first);
    QCOMPARE(secondWindow.SetActiveWindow(), &first);
    QTRY_COMPARE(CWnd_X::GetActiveWindow(), &second);
    editWindow.SetFocus();
    QTRY_COMPARE(CWnd_X::GetFocus(), static_cast<QWidget*>(&edit));
    QCOMPARE(firstWindow.SetFocus(), static_cast<QWidget*>(&edit));
}

void tst_WndForwarders::releaseCapture()
{
    QWidget first;
    QWidget second;
    CWnd_X firstWindow;
    CWnd_X secondWindow;
    firstWindow.SubclassWindow(&first);
    secondWindow.SubclassWindow(&second);
    QCOMPARE(firstWindow.SetCapture(), nullptr);
    QCOMPARE(secondWindow.SetCapture(), &first);
    QCOMPARE(CWnd_X::GetCapture(), &second);
    CWnd_X::ReleaseCapture();
    QCOMPARE(CWnd_X::GetCapture(), nullptr);
    CWnd_X::ReleaseCapture();
}

XE_TEST(tst_WndForwarders)
#include "tst_wndforwarders.moc"
