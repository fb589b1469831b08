#include "XeGridCtrl.h"

int CGridCtrl_X::SetCellCombine(int, int, int, int, int) { return 0; }
int CGridCtrl_X::SetFixedCellCombine(int, int, int, int) { return 0; }
int CGridCtrl_X::UndoCellCombine(int, int) { return 0; }
