#include "xeafxbar.h"

IMPLEMENT_DYNCREATE_X(CControlBar_X, CWnd_X)

CControlBar_X::CControlBar_X() : CWnd_X(Control()) {}
