/// @file xeafxdll.h
/// Extension modules: plug-ins with the part of a program's state that the published DllMain functions set up.
///
/// No list of extension libraries is kept, since resources are found by the module whose code asks for them.
#pragma once

#include "xeafx.h"

/// What an extension module keeps of itself: a static record, zero until the first AfxInitExtensionModule_X().
struct AFX_EXTENSION_MODULE_X
{
    BOOL bInitialized;
    HINSTANCE hModule;
    HINSTANCE hResource;  ///< the module's own handle
    HINSTANCE hClassList; ///< what the module state's current resource handle was
};

/// At the first call fills the record, at a later one gives the slots of thread-local objects that have no owner to
/// `module`. Always returns 1.
XE_EXPORT BOOL AfxInitExtensionModule_X(AFX_EXTENSION_MODULE_X& state, HINSTANCE module);

/// Deletes the thread-local values of the module, on all threads whatever `all` says, if the record is filled.
XE_EXPORT void AfxTermExtensionModule_X(AFX_EXTENSION_MODULE_X& state, BOOL all = FALSE);

/// Holds the handles of an extension library, and does nothing with them.
class XE_EXPORT CDynLinkLibrary_X : public CCmdTarget_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CDynLinkLibrary_X)

    /// Takes the module's handle from the record.
    explicit CDynLinkLibrary_X(AFX_EXTENSION_MODULE_X& state, BOOL system = FALSE);
    /// `resources` is ignored.
    CDynLinkLibrary_X(HINSTANCE module, HINSTANCE resources);

    HINSTANCE m_hModule;
    HINSTANCE m_hResource = nullptr; ///< not set by either constructor
    HINSTANCE m_hClassList = nullptr;
    BOOL m_bSystem = FALSE;
};
