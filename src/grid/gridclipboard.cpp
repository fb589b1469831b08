#include "XeGridCtrl.h"

void CGridCtrl_X::CutSelectedText() {}
QMimeData* CGridCtrl_X::CopyTextFromGrid() { return nullptr; }
int CGridCtrl_X::PasteTextToGrid(CCellID_X, const QMimeData*) { return 0; }
void CGridCtrl_X::OnEditCut() {}
void CGridCtrl_X::OnEditCopy() {}
void CGridCtrl_X::OnEditPaste() {}
void CGridCtrl_X::OnUpdateEditCopy(CCmdUI_X*) {}
void CGridCtrl_X::OnUpdateEditCut(CCmdUI_X*) {}
void CGridCtrl_X::OnUpdateEditPaste(CCmdUI_X*) {}
