// The base handlers of CWnd_X: what "the default" is for each message.

#include "xeafxwin.h"

#include <QLineEdit>

// ---- Pass the event on to the widget.

void CWnd_X::OnActivate(UINT, QWidget*, BOOL) { SetCurrentEventAccepted(false); }
void CWnd_X::OnActivate_X(UINT, CWnd_X*, BOOL) { SetCurrentEventAccepted(false); }
void CWnd_X::OnActivateApp(BOOL, DWORD) { SetCurrentEventAccepted(false); }
void CWnd_X::OnCaptureChanged(QWidget*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnCaptureChanged_X(CWnd_X*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnEnable(BOOL) { SetCurrentEventAccepted(false); }
void CWnd_X::OnFontChange() { SetCurrentEventAccepted(false); }
void CWnd_X::OnKeyDown(UINT, UINT, UINT) { SetCurrentEventAccepted(false); }
void CWnd_X::OnKeyUp(UINT, UINT, UINT) { SetCurrentEventAccepted(false); }
void CWnd_X::OnKillFocus(QWidget*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnKillFocus_X(CWnd_X*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnLButtonDblClk(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnLButtonDown(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnLButtonUp(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMButtonDblClk(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMButtonDown(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMButtonUp(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMeasureItem(int, tagMEASUREITEMSTRUCT*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMouseHover(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMouseLeave() { SetCurrentEventAccepted(false); }
void CWnd_X::OnMouseMove(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMove(int, int) { SetCurrentEventAccepted(false); }
void CWnd_X::OnMoving(UINT, tagRECT*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnNcLButtonUp(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnPaletteChanged(QWidget*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnPaletteChanged_X(CWnd_X*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnPaletteIsChanging(QWidget*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnPaletteIsChanging_X(CWnd_X*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnRButtonDblClk(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnRButtonDown(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnRButtonUp(UINT, CPoint) { SetCurrentEventAccepted(false); }
void CWnd_X::OnSetFocus(QWidget*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnSetFocus_X(CWnd_X*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnShowWindow(BOOL, UINT) { SetCurrentEventAccepted(false); }
void CWnd_X::OnSizing(UINT, tagRECT*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnStyleChanged(int, tagSTYLESTRUCT*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnStyleChanging(int, tagSTYLESTRUCT*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnSysColorChange() { SetCurrentEventAccepted(false); }
void CWnd_X::OnSysKeyDown(UINT, UINT, UINT) { SetCurrentEventAccepted(false); }
void CWnd_X::OnSysKeyUp(UINT, UINT, UINT) { SetCurrentEventAccepted(false); }
void CWnd_X::OnTimer(UINT_PTR) { SetCurrentEventAccepted(false); }
void CWnd_X::OnWindowPosChanged(tagWINDOWPOS*) { SetCurrentEventAccepted(false); }
void CWnd_X::OnWindowPosChanging(tagWINDOWPOS*) { SetCurrentEventAccepted(false); }

void CWnd_X::OnSize(UINT, int, int)
{
    RecalcLayout();
    SetCurrentEventAccepted(false);
}

// ---- Do nothing: the event is consumed.

void CWnd_X::OnChar(UINT, UINT, UINT) {}
void CWnd_X::OnClose() {}
void CWnd_X::OnContextMenu(QWidget*, CPoint) {}
void CWnd_X::OnContextMenu_X(CWnd_X*, CPoint) {}
void CWnd_X::OnDropFiles(HDROP) {}
void CWnd_X::OnHotKey(UINT, UINT, UINT) {}
void CWnd_X::OnHScroll(UINT, UINT, QWidget*) {}
void CWnd_X::OnPaint() {}
void CWnd_X::OnSysChar(UINT, UINT, UINT) {}
void CWnd_X::OnVScroll(UINT, UINT, QWidget*) {}

// ---- Give a result.

HBRUSH CWnd_X::OnCtlColor(CDC_X*, QWidget*, UINT) { return nullptr; }
HBRUSH CWnd_X::OnCtlColor_X(CDC_X*, CWnd_X*, UINT) { return nullptr; }
BOOL CWnd_X::OnEraseBkgnd(CDC_X*) { return FALSE; }
BOOL CWnd_X::OnMouseWheel(UINT, short, CPoint) { return FALSE; }
LRESULT CWnd_X::OnNcHitTest(CPoint) { return 0; }

BOOL CWnd_X::OnSetCursor(QWidget* widget, UINT, UINT)
{
    if (widget)
        widget->setCursor(qobject_cast<QLineEdit*>(widget) ? Qt::IBeamCursor : Qt::ArrowCursor);
    return FALSE;
}

BOOL CWnd_X::OnSetCursor_X(CWnd_X* window, UINT hitCode, UINT message)
{
    return OnSetCursor(window ? window->GetSafeHwnd() : nullptr, hitCode, message);
}

// ---- Destruction.

void CWnd_X::OnDestroy() { deleteBars(); }

void CWnd_X::OnNcDestroy()
{
    Detach();
    PostNcDestroy();
}

// ---- Idle.

void CWnd_X::OnEnterIdle() { Q_EMIT updateCmdUi(); }
