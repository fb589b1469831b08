#include "XeGridCtrl.h"

void CGridCtrl_X::OnEditCell(int, int, CPoint, unsigned int) {}
void CGridCtrl_X::OnEndEditCell(int, int, CString_X) {}
void CGridCtrl_X::EndEditing() {}
LRESULT CGridCtrl_X::OnEndInPlaceEdit(WPARAM, LPARAM) { return 0; }
void CGridCtrl_X::endOpenEditor() {}
