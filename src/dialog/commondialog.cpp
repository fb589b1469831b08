#include "xeafxdlgs.h"

IMPLEMENT_DYNCREATE_X(CCommonDialog_X, CDialog_X)

CCommonDialog_X::CCommonDialog_X(QWidget* parent) : CDialog_X(parent) {}
