// The handle maps of the graphics classes.

#include "state/handlemapmaker.h"
#include "xeafxdc.h"
#include "xeafxgdi.h"
#include "xeafximg.h"
#include "xeafxstat.h"

CHandleMap_X* afxMapHDC_X(int create) { return xe::handleMapOf(gdiThreadState.m_pmapHDC, create, &CDC_X::m_hDC, 2); }

CHandleMap_X* afxMapHGDIOBJ_X(int create)
{
    return xe::handleMapOf(gdiThreadState.m_pmapHGDIOBJ, create, &CGdiObject_X::m_hObject);
}

CHandleMap_X* afxMapHIMAGELIST_X(int create)
{
    return xe::handleMapOf(gdiThreadState.m_pmapHIMAGELIST, create, &CImageList_X::m_hImageList);
}
