#include "geometry/rectangle.h"
#include "win/centering.h"
#include "win/dialogitems.h"
#include "win/viewport.h"
#include "xeafxwin.h"
#include "xeresource.h"
#include "xesysinfo.h"

#include <QAbstractButton>
#include <QPointer>

#include <limits>

namespace {

int extent(LONG from, LONG to)
{
    const qint64 way = qAbs(static_cast<qint64>(to) - from);
    return static_cast<int>(qMin<qint64>(way, std::numeric_limits<int>::max()));
}

} // namespace

// ------------------------------------------------------------------------------------------------------------ geometry

void CWnd_X::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    const QPointer<QWidget> widget = GetSafeHwnd(); // a handler of WM_SIZE may delete it
    if (!widget)
        return;
    widget->move(x, y);
    if (width >= 0 && height >= 0) {
        const QSize frame = widget->frameGeometry().size() - widget->size();
        widget->resize(QSize(width, height) - frame);
    }
    if (widget && repaint)
        widget->update();
}

void CWnd_X::MoveWindow(const tagRECT* rect, BOOL repaint)
{
    if (rect)
        MoveWindow(rect->left, rect->top, extent(rect->left, rect->right), extent(rect->top, rect->bottom), repaint);
}

void CWnd_X::CenterWindow(QWidget* alternate)
{
    if (QWidget* const widget = GetSafeHwnd())
        xe::centerWidget(*widget, alternate ? alternate : widget->parentWidget());
}

void CWnd_X::GetClientRect(tagRECT* rect) const
{
    if (!GetClientRect_X(GetSafeHwnd(), rect))
        return;
    const int thickness = GetSystemMetrics_X(SM_CXVSCROLL);
    if (IsScrollBarEnabled(SB_HORZ))
        rect->bottom -= thickness;
    if (IsScrollBarEnabled(SB_VERT))
        rect->right -= thickness;
}

QWidget* CWnd_X::clientArea() const
{
    QWidget* const viewport = m_viewport ? m_viewport->widget() : nullptr;
    return viewport ? viewport : GetSafeHwnd();
}

void CWnd_X::ClientToScreen(tagPOINT* point) const { ClientToScreen_X(clientArea(), point); }

void CWnd_X::ScreenToClient(tagPOINT* point) const { ScreenToClient_X(clientArea(), point); }

void CWnd_X::ClientToScreen(tagRECT* rect) const
{
    if (!rect)
        return;
    CRect corners(*rect);
    ClientToScreen(&corners.TopLeft());
    ClientToScreen(&corners.BottomRight());
    *rect = corners;
}

void CWnd_X::ScreenToClient(tagRECT* rect) const
{
    if (!rect)
        return;
    CRect corners(*rect);
    ScreenToClient(&corners.TopLeft());
    ScreenToClient(&corners.BottomRight());
    *rect = corners;
}

// ------------------------------------------------------------------------------------------------------------ painting

void CWnd_X::Invalidate(BOOL) { UpdateWindow_X(GetSafeHwnd()); }

void CWnd_X::InvalidateRect(const tagRECT* rect, BOOL)
{
    QWidget* const widget = GetSafeHwnd();
    if (widget && rect)
        widget->update(QRect(QPoint(rect->left, rect->top), QPoint(rect->right, rect->bottom)));
}

BOOL CWnd_X::RedrawWindow() { return UpdateWindow_X(GetSafeHwnd()); }

void CWnd_X::SetRedraw(BOOL redraw)
{
    if (QWidget* const widget = GetSafeHwnd())
        widget->setUpdatesEnabled(redraw);
}

BOOL CWnd_X::LockWindowUpdate()
{
    SetRedraw(FALSE);
    return GetSafeHwnd() != nullptr;
}

void CWnd_X::UnlockWindowUpdate() { SetRedraw(TRUE); }

void CWnd_X::ScrollWindow(int dx, int dy, const tagRECT* rect)
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return;
    if (rect)
        widget->scroll(dx, dy, xe::toQRect(*rect));
    else
        widget->scroll(dx, dy);
}

QCursor CWnd_X::GetCursor() const { return GetSafeHwnd() ? GetSafeHwnd()->cursor() : QCursor(); }

void CWnd_X::SetCursor(const QCursor& cursor)
{
    if (QWidget* const widget = GetSafeHwnd())
        widget->setCursor(cursor);
}

QIcon CWnd_X::GetIcon() const { return GetSafeHwnd() ? GetSafeHwnd()->windowIcon() : QIcon(); }

void CWnd_X::SetIcon(const QIcon& icon)
{
    if (QWidget* const widget = GetSafeHwnd())
        widget->setWindowIcon(icon);
}

const QFont* CWnd_X::GetFont() const { return GetSafeHwnd() ? &GetSafeHwnd()->font() : nullptr; }

void CWnd_X::SetFont(const QFont* font, BOOL)
{
    QWidget* const widget = GetSafeHwnd();
    if (widget && font)
        widget->setFont(*font);
}

// --------------------------------------------------------------------------------------------- focus, mouse, relations

CWnd_X* CWnd_X::GetParent() const { return FromHandle(GetParent_X(GetSafeHwnd())); }

CWnd_X* CWnd_X::SetParent(QWidget* parent) { return FromHandle(SetParent_X(GetSafeHwnd(), parent)); }

CWnd_X* CWnd_X::GetDesktopWindow() { return FromHandle(GetDesktopWindow_X()); }

QWidget* CWnd_X::SetActiveWindow() { return GetSafeHwnd() ? SetActiveWindow_X(GetSafeHwnd()) : nullptr; }

QWidget* CWnd_X::SetFocus() { return GetSafeHwnd() ? SetFocus_X(GetSafeHwnd()) : nullptr; }

QWidget* CWnd_X::SetCapture() { return GetSafeHwnd() ? SetCapture_X(GetSafeHwnd()) : nullptr; }

CWnd_X* CWnd_X::WindowFromPoint(CPoint screen) const
{
    const QWidget* const widget = GetSafeHwnd();
    QWidget* child = widget ? widget->childAt(widget->mapFromGlobal(xe::toQPoint(screen))) : nullptr;
    if (child && child->objectName() == QLatin1String("qt_scrollarea_viewport"))
        child = child->parentWidget();
    return FromHandle(child);
}

// ------------------------------------------------------------------------------------------------------ text and items

void CWnd_X::GetWindowText(CString_X& text) const
{
    if (const QWidget* const widget = GetSafeHwnd())
        text = widget->windowTitle();
}

void CWnd_X::SetWindowText(const wchar_t* text)
{
    if (QWidget* const widget = GetSafeHwnd())
        widget->setWindowTitle(XeQString(text));
}

QWidget* CWnd_X::GetChildWidget(const char* name) const
{
    // An empty name would match any widget.
    const QWidget* const widget = GetSafeHwnd();
    return widget && name && *name ? widget->findChild<QWidget*>(QString::fromUtf8(name)) : nullptr;
}

QWidget* CWnd_X::GetDlgItem(int id, QWidget** out) const
{
    QWidget* const item = GetDlgItem_X(GetSafeHwnd(), id);
    if (out)
        *out = item;
    return item;
}

int CWnd_X::SetDlgCtrlID(int id)
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return 0;
    const int before = ToCtrlId(widget->objectName());
    widget->setObjectName(ToStringId(static_cast<unsigned int>(id)));
    return before;
}

UINT CWnd_X::GetDlgItemInt(QWidget* item, BOOL* translated, BOOL isSigned) const
{
    return xe::widgetInt(item, translated, isSigned);
}

BOOL CWnd_X::SetDlgItemInt(QWidget* item, UINT value, BOOL isSigned)
{
    return SetDlgItemText(item, xe::intText(value, isSigned));
}

void CWnd_X::CheckDlgButton(QAbstractButton* button, UINT value)
{
    if (button)
        button->setChecked(value != 0);
}

UINT CWnd_X::IsDlgButtonChecked(QAbstractButton* button) const { return button && button->isChecked(); }

UINT_PTR CWnd_X::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC proc)
{
    return GetSafeHwnd() ? SetTimer_X(GetSafeHwnd(), id, milliseconds, proc) : 0;
}
