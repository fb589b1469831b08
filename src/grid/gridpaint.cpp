#include "XeGridCtrl.h"

void CGridCtrl_X::OnPaint() {}
void CGridCtrl_X::OnDraw(CDC_X*) {}
void CGridCtrl_X::EraseBkgnd(CDC_X*) {}
void CGridCtrl_X::CreateImage() {}
int CGridCtrl_X::RedrawCell(int, int) { return 0; }
int CGridCtrl_X::RedrawRow(int) { return 0; }
int CGridCtrl_X::RedrawColumn(int) { return 0; }
int CGridCtrl_X::InvalidateCellRect(const CCellID_X&) { return 0; }
int CGridCtrl_X::InvalidateCellRect(const CCellRange_X&) { return 0; }
