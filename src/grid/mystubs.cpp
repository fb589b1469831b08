#include "XeGridCtrl.h"
int CGridCtrl_X::bAlreadyInsideThisProcedure = 0;
int CGridCellBase_X::Draw(CDC_X*, int, int, CRect, QWidget*, int) { return 0; }
int CGridCellBase_X::GetTextRect(tagRECT*) { return 0; }
CSize CGridCellBase_X::GetTextExtent(const wchar_t*) { return {}; }
CSize CGridCellBase_X::GetCellExtent() { return {}; }
int CGridCellBase_X::PrintCell(CDC_X*, int, int, CRect) { return 0; }
void CGridCtrl_X::connectBar(int) {}
void CGridCtrl_X::takeBarAction(int, int) {}
CCellID_X CGridCtrl_X::GetTopleftNonFixedCell() const { return {}; }
int CGridCtrl_X::GetCellOrigin(int, int, tagPOINT*) const { return 0; }
int CGridCtrl_X::GetCellRect(int, int, tagRECT*) const { return 0; }
int CGridCtrl_X::GetCellRangeRect(const CCellRange_X&, tagRECT*) const { return 0; }
CCellID_X CGridCtrl_X::GetCellFromPt(CPoint, int) const { return {}; }
CPoint CGridCtrl_X::GetPointClicked(int, int, const CPoint&) const { return {}; }
CCellRange_X CGridCtrl_X::GetVisibleNonFixedCellRange(tagRECT*) const { return {}; }
CCellRange_X CGridCtrl_X::GetUnobstructedNonFixedCellRange() const { return {}; }
int CGridCtrl_X::IsCellVisible(int, int) const { return 0; }
void CGridCtrl_X::EnsureVisible(int, int) {}
void CGridCtrl_X::ResetScrollBars() {}
int CGridCtrl_X::GetScrollPos32(int, int) const { return 0; }
int CGridCtrl_X::SetScrollPos32(int, int, int) { return 0; }
void CGridCtrl_X::EnableScrollBars(int, int) {}
int CGridCtrl_X::AutoSizeColumn(int, int) { return 0; }
int CGridCtrl_X::AutoSizeRow(int) { return 0; }
void CGridCtrl_X::AutoSizeColumns() {}
void CGridCtrl_X::AutoSizeRows() {}
void CGridCtrl_X::AutoSize(int) {}
void CGridCtrl_X::ExpandColumnsToFit() {}
void CGridCtrl_X::ExpandRowsToFit() {}
void CGridCtrl_X::ExpandToFit() {}
BOOL CGridCtrl_X::OnMouseWheel(UINT, short, CPoint) { return 0; }
void CGridCtrl_X::OnSize(UINT, int, int) {}
void CGridCtrl_X::OnHScroll(UINT, UINT, QAbstractSlider*) {}
void CGridCtrl_X::OnVScroll(UINT, UINT, QAbstractSlider*) {}
int CGridCtrl_X::SetRowCount(int) { return 0; }
int CGridCtrl_X::SetColumnCount(int) { return 0; }
int CGridCtrl_X::SetFixedRowCount(int) { return 0; }
int CGridCtrl_X::SetFixedColumnCount(int) { return 0; }
int CGridCtrl_X::InsertRow(const wchar_t*, int) { return 0; }
int CGridCtrl_X::InsertColumn(const wchar_t*, unsigned int, int) { return 0; }
int CGridCtrl_X::DeleteRow(int) { return 0; }
int CGridCtrl_X::DeleteColumn(int) { return 0; }
int CGridCtrl_X::DeleteNonFixedRows() { return 0; }
int CGridCtrl_X::DeleteAllItems() { return 0; }
int CGridCtrl_X::GetRowHeight(int) const { return 0; }
int CGridCtrl_X::GetColumnWidth(int) const { return 0; }
int CGridCtrl_X::SetRowHeight(int, int) { return 0; }
int CGridCtrl_X::SetColumnWidth(int, int) { return 0; }
int CGridCtrl_X::GetVirtualWidth() const { return 0; }
int CGridCtrl_X::GetVirtualHeight() const { return 0; }
int CGridCtrl_X::GetFixedColumnWidth() const { return 0; }
int CGridCtrl_X::GetFixedRowHeight() const { return 0; }
CGridCellBase_X* CGridCtrl_X::CreateCell(int, int) { return nullptr; }
void CGridCtrl_X::DestroyCell(int, int) {}
