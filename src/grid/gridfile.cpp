#include "XeGridCtrl.h"

void CGridCtrl_X::AutoFill() {}
int CGridCtrl_X::Save(const wchar_t*) { return 0; }
int CGridCtrl_X::Load(const wchar_t*) { return 0; }
