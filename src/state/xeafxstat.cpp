#include "xeafxstat.h"

#include "xeafxhandle.h"
#include "xeafxlist.h"
#include "xeexcept.h"
#include "xememory.h"

#include <utility>

// ------------------------------------------------------------------------------------------------------------ objects

CNoTrackObject_X::~CNoTrackObject_X() = default;

void* CNoTrackObject_X::operator new(std::size_t size)
{
    void* const block = LocalAlloc_X(LPTR, size);
    if (!block)
        AfxThrowMemoryException_X();
    return block;
}

void CNoTrackObject_X::operator delete(void* block) noexcept { LocalFree_X(block); }

// ------------------------------------------------------------------------------------------------- state of the module

AFX_MODULE_STATE_X afxModuleState(FALSE);
AFX_MODULE_THREAD_STATE_X gdiThreadState;

namespace {

template <class Object>
void deleteAndForget(Object*& object)
{
    delete object;
    object = nullptr;
}

void freeElements(CPtrList_X* list)
{
    while (list && !list->IsEmpty())
        LocalFree_X(list->RemoveHead());
}

} // namespace

AFX_MODULE_THREAD_STATE_X::~AFX_MODULE_THREAD_STATE_X()
{
    if (CToolTipCtrl_X* const tip = std::exchange(m_pToolTip, nullptr))
        xe::destroyToolTip(*tip);
    LocalFree_X(m_pLastInfo);
    m_pLastInfo = nullptr;
    for (CHandleMap_X** map : {&m_pmapHWND, &m_pmapHMENU, &m_pmapHDC, &m_pmapHGDIOBJ, &m_pmapHIMAGELIST})
        deleteAndForget(*map);
    freeElements(m_plistSocketNotifications);
    deleteAndForget(m_pmapSocketHandle);
    deleteAndForget(m_pmapDeadSockets);
    deleteAndForget(m_plistSocketNotifications);
}

AFX_MODULE_STATE_X* AfxGetModuleState_X() { return &afxModuleState; }

AFX_MODULE_STATE_X* AfxGetStaticModuleState_X() { return &afxModuleState; }

AFX_MODULE_THREAD_STATE_X* AfxGetModuleThreadState_X() { return &gdiThreadState; }

BOOL AfxIsValidAddress_X(const void* address, unsigned long, BOOL) { return address != nullptr; }

BOOL AfxIsValidString_X(const wchar_t* text, int) { return text != nullptr; }

BOOL AfxIsValidString_X(const char* text, int) { return text != nullptr; }
