/// @file xeafxhandle.h
/// Handle maps: from what is a handle here to its wrapper, where no Qt object carries the wrapper's address.
#pragma once

#include "xeafxfixalloc.h"
#include "xeafxmap.h"

#include <new>

class CObject_X;
class CRuntimeClass_X;

/// How a handle map makes and destroys a wrapper of a class in memory of its own.
template <class Type>
struct ConstructDestruct_X
{
    /// Makes a wrapper in the memory at `place`, which has room and alignment for one.
    static void Construct(CObject_X* place) { new (place) Type; }
    /// Ends a wrapper made by Construct(); the memory stays.
    static void Destruct(CObject_X* object) { static_cast<Type*>(object)->~Type(); }
};

/// A table from handles to wrappers, with two halves: permanent wrappers, which are their owners', and temporary ones,
/// which the map makes for handles that it does not know and keeps until DeleteTemp().
///
/// For one thread. Windows have no use for it: their wrappers are found by a property of the widget.
class XE_EXPORT CHandleMap_X
{
public:
    /// `offset` is where in a wrapper its handle lies, in bytes; behind it lies a second one if `handles` is 2. A map
    /// without class or functions makes no temporary wrappers.
    CHandleMap_X(CRuntimeClass_X* runtimeClass, void (*construct)(CObject_X*), void (*destruct)(CObject_X*),
                 std::size_t offset, int handles = 1);
    /// DeleteTemp(). Permanent wrappers stay as they are.
    virtual ~CHandleMap_X();
    CHandleMap_X(const CHandleMap_X&) = delete;
    CHandleMap_X& operator=(const CHandleMap_X&) = delete;

    /// The permanent wrapper, or the temporary one, which is made if need be and gets the handle written into it. Null
    /// for a null handle. Raises a CMemoryException_X* without memory.
    CObject_X* FromHandle(void* handle);
    /// Destroys all temporary wrappers, their handles being null by then.
    void DeleteTemp();

    /// The permanent wrapper; null if there is none.
    CObject_X* LookupPermanent(void* handle) const;
    /// The temporary wrapper; null if there is none.
    CObject_X* LookupTemporary(void* handle) const;
    /// Enters a permanent wrapper, which is not owned, in place of the one that the handle may have. A temporary one is
    /// not found any more, and is destroyed by DeleteTemp() all the same. Nothing for a null handle.
    void SetPermanent(void* handle, CObject_X* wrapper);
    /// Takes a handle out of the permanent half; nothing for one that is not there.
    void RemoveHandle(void* handle);

private:
    CObject_X* makeTemporary(void* handle);
    void* readHandle(const CObject_X* wrapper) const;
    void writeHandle(CObject_X* wrapper, void* handle) const;

    CFixedAllocNoSync_X m_alloc;
    void (*m_construct)(CObject_X*);
    void (*m_destruct)(CObject_X*);
    CMapPtrToPtr_X m_permanentMap;
    CMapPtrToPtr_X m_temporaryMap;
    CRuntimeClass_X* m_class;
    std::size_t m_offset;
    int m_handles;
};

// The process's maps, one for a kind of handle. They are made at the first call with a non-zero argument; before that
// the result is null. That of device contexts writes two handles into a wrapper.
XE_EXPORT CHandleMap_X* afxMapHWND_X(int create = 0);  ///< of windows; the library leaves it empty
XE_EXPORT CHandleMap_X* afxMapHMENU_X(int create = 0); ///< of menus
XE_EXPORT CHandleMap_X* afxMapHDC_X(int create = 0);   ///< of device contexts
XE_EXPORT CHandleMap_X* afxMapHGDIOBJ_X(
    int create = 0); ///< of pens and their like; temporary ones are plain CGdiObject_X
XE_EXPORT CHandleMap_X* afxMapHIMAGELIST_X(int create = 0); ///< of image lists
