// The handle map of windows.

#include "state/handlemapmaker.h"
#include "xeafxstat.h"
#include "xeafxwin.h"

CHandleMap_X* afxMapHWND_X(int create) { return xe::handleMapOf<CWnd_X>(gdiThreadState.m_pmapHWND, create); }

void CWnd_X::DeleteTempMap() { xe::deleteTemp(gdiThreadState.m_pmapHWND); }
