// The handle maps of the graphics classes.

#include "state/handlemapmaker.h"
#include "xeafxstat.h"

namespace {

// A map that holds permanent wrappers only.
CHandleMap_X* permanentMap(CHandleMap_X*& map, int create, int handles)
{
    return xe::handleMap(map, create, nullptr, nullptr, nullptr, xe::impOffset, handles);
}

} // namespace

CHandleMap_X* afxMapHDC_X(int create) { return permanentMap(gdiThreadState.m_pmapHDC, create, 2); }

CHandleMap_X* afxMapHGDIOBJ_X(int create) { return permanentMap(gdiThreadState.m_pmapHGDIOBJ, create, 1); }

CHandleMap_X* afxMapHIMAGELIST_X(int create) { return permanentMap(gdiThreadState.m_pmapHIMAGELIST, create, 1); }
