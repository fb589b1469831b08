#include "XeGridCtrl.h"

int CGridCtrl_X::SortTextItems(int, int) { return 0; }
int CGridCtrl_X::SortTextItems(int, int, int, int) { return 0; }
