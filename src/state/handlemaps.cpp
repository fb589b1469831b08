#include "xeafxhandle.h"
#include "xeafxmenu.h"
#include "xeafxstat.h"
#include "xeafxwin.h"

namespace {

// The handle of a window or a menu is its imp object, the first member behind QObject.
constexpr std::size_t impOffset = sizeof(QObject);

template <class Type>
CHandleMap_X* makeMap()
{
    return new CHandleMap_X(&Type::s_classInfo, &ConstructDestruct_X<Type>::Construct,
                            &ConstructDestruct_X<Type>::Destruct, impOffset);
}

template <int handles>
CHandleMap_X* makeMapWithoutClass()
{
    return new CHandleMap_X(nullptr, nullptr, nullptr, impOffset, handles);
}

CHandleMap_X* mapOf(CHandleMap_X*& map, int create, CHandleMap_X* (*make)())
{
    if (!map && create)
        map = make();
    return map;
}

void deleteTemp(CHandleMap_X* map)
{
    if (map)
        map->DeleteTemp();
}

} // namespace

CHandleMap_X* afxMapHWND_X(int create) { return mapOf(gdiThreadState.m_pmapHWND, create, makeMap<CWnd_X>); }

CHandleMap_X* afxMapHMENU_X(int create) { return mapOf(gdiThreadState.m_pmapHMENU, create, makeMap<CMenu_X>); }

CHandleMap_X* afxMapHDC_X(int create) { return mapOf(gdiThreadState.m_pmapHDC, create, makeMapWithoutClass<2>); }

CHandleMap_X* afxMapHGDIOBJ_X(int create)
{
    return mapOf(gdiThreadState.m_pmapHGDIOBJ, create, makeMapWithoutClass<1>);
}

CHandleMap_X* afxMapHIMAGELIST_X(int create)
{
    return mapOf(gdiThreadState.m_pmapHIMAGELIST, create, makeMapWithoutClass<1>);
}

void CWnd_X::DeleteTempMap() { deleteTemp(gdiThreadState.m_pmapHWND); }

void CMenu_X::DeleteTempMap() { deleteTemp(gdiThreadState.m_pmapHMENU); }
