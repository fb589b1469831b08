#include "xeafxdll.h"

#include "xeafxstat.h"

IMPLEMENT_DYNAMIC_X(CDynLinkLibrary_X, CCmdTarget_X)

CDynLinkLibrary_X::CDynLinkLibrary_X(AFX_EXTENSION_MODULE_X& state, BOOL system)
    : m_hModule(state.hModule),
      m_bSystem(system)
{}

CDynLinkLibrary_X::CDynLinkLibrary_X(HINSTANCE module, HINSTANCE) : m_hModule(module) {}

BOOL AfxInitExtensionModule_X(AFX_EXTENSION_MODULE_X& state, HINSTANCE module)
{
    if (state.bInitialized)
        AfxInitLocalData_X(module);
    else
        state = {TRUE, module, module, AfxGetModuleState_X()->m_hCurrentResourceHandle};
    return TRUE;
}

void AfxTermExtensionModule_X(AFX_EXTENSION_MODULE_X& state, BOOL)
{
    if (state.bInitialized)
        AfxTermLocalData_X(state.hModule, TRUE);
}
