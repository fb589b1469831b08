#include "XeGridCtrl.h"

void CGridCtrl_X::OnLButtonDown(UINT, CPoint) {}
void CGridCtrl_X::OnLButtonUp(UINT, CPoint) {}
void CGridCtrl_X::OnLButtonDblClk(UINT, CPoint) {}
void CGridCtrl_X::OnRButtonDown(UINT, CPoint) {}
void CGridCtrl_X::OnRButtonUp(UINT, CPoint) {}
void CGridCtrl_X::OnMouseMove(UINT, CPoint) {}
void CGridCtrl_X::OnTimer(UINT_PTR) {}
void CGridCtrl_X::OnCaptureChanged(QWidget*) {}
BOOL CGridCtrl_X::OnSetCursor(QWidget*, UINT, UINT) { return FALSE; }
void CGridCtrl_X::OnFixedColumnClick(CCellID_X&) {}
void CGridCtrl_X::OnFixedRowClick(CCellID_X&) {}
int CGridCtrl_X::MouseOverColumnResizeArea(CPoint&) const { return 0; }
int CGridCtrl_X::MouseOverRowResizeArea(CPoint&) const { return 0; }
void CGridCtrl_X::OnDragLeave() {}
