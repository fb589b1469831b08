/// @file xeafxstat.h
/// Module state, module thread state and values of a thread.
///
/// There is one module state and one module thread state, the same on every thread and for every module, unlike the
/// published ones. Values of a thread are real: each thread has its own object behind a CThreadLocal_X.
///
/// What runs short of memory raises a CMemoryException_X* (AfxThrowMemoryException_X), a bad argument a
/// CInvalidArgException_X* (AfxThrowInvalidArgException_X).
#pragma once

#include "xeafxstr.h"
#include "xesynchapi.h"

#include <atomic>
#include <cstddef>
#include <new>

class CHandleMap_X;
class CObject_X;
class CPtrList_X;
class CToolTipCtrl_X;

namespace xe {
struct ThreadLocalObjects;
void destroyToolTip(CToolTipCtrl_X& control); // by its DestroyToolTipCtrl(), beside which it is defined
} // namespace xe

/// The base of what the state and the slots of a thread hold: objects in memory of LocalAlloc_X, cleared before they
/// are constructed, and deleted through the virtual destructor.
class XE_EXPORT CNoTrackObject_X
{
public:
    virtual ~CNoTrackObject_X() = 0;

    /// A cleared block of LocalAlloc_X. Raises a CMemoryException_X* without memory.
    static void* operator new(std::size_t size);
    /// In memory of the caller's, which is left as it is.
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    /// Frees the block by LocalFree_X.
    static void operator delete(void* block) noexcept;
    static void operator delete(void*, void*) noexcept {}

protected:
    CNoTrackObject_X() = default;
    CNoTrackObject_X(const CNoTrackObject_X&) = default;
    CNoTrackObject_X& operator=(const CNoTrackObject_X&) = default;
};

// -------------------------------------------------------------------------------------------------- values of a thread

/// A list through a pointer inside its elements, which it does not own. Not for several threads at once.
///
///     struct Item { int value; Item* next; };
///     CSimpleList_X items(offsetof(Item, next));
///     items.AddHead(&item);
class XE_EXPORT CSimpleList_X
{
public:
    /// `nextOffset` is where in an element the pointer to the next one lies, in bytes.
    explicit CSimpleList_X(std::size_t nextOffset = 0) : m_nextOffset(nextOffset) {}

    /// Puts an element in front. Nothing for null.
    void AddHead(void* element);
    /// Takes an element out, wherever it stands. False if it is not in the list, and for null.
    bool Remove(void* element);

    bool IsEmpty() const { return !m_head; }
    /// The element added last; null for an empty list.
    void* GetHead() const { return m_head; }
    /// The element behind another, which must not be null; null behind the last.
    void* GetNext(void* element) const { return next(element); }

private:
    void*& next(void* element) const { return *reinterpret_cast<void**>(static_cast<char*>(element) + m_nextOffset); }

    void* m_head = nullptr;
    std::size_t m_nextOffset;
};

/// The values of one thread, by slot: what a CThreadSlotData_X keeps for each thread that has stored one.
class XE_EXPORT CThreadData_X : public CNoTrackObject_X
{
public:
    CThreadData_X() = default;
    /// Frees the array and none of the values in it.
    ~CThreadData_X() override;
    CThreadData_X(const CThreadData_X&) = delete;
    CThreadData_X& operator=(const CThreadData_X&) = delete;

    /// The value in a slot, which is not negative; null for one beyond the array.
    void* value(int slot) const { return slot < count ? values[slot] : nullptr; }
    /// Whether every value is null.
    bool isEmpty() const;
    /// Makes the array at least this long; new values are null. Raises a CMemoryException_X* without memory, with
    /// nothing changed.
    void growTo(int newCount);

    CThreadData_X* next = nullptr; ///< the data of another thread
    int count = 0;                 ///< the length of the array
    void** values = nullptr;       ///< a block of LocalAlloc_X
};

/// Slots for values, of which every thread has its own. CThreadLocal_X is the convenient way to one slot.
///
///     CThreadSlotData_X table;
///     const int slot = table.AllocSlot();
///     table.SetValue(slot, new CCounter); // this thread's; derived from CNoTrackObject_X
///     auto* counter = static_cast<CCounter*>(table.GetThreadValue(slot));
///     table.FreeSlot(slot);               // deletes the counters of all threads
///
/// Values are CNoTrackObject_X objects and belong to the slot. They are deleted outside the lock, so that a value's
/// destructor may use other slots; a thread's end deletes nothing. All functions may be called from any thread.
class XE_EXPORT CThreadSlotData_X
{
public:
    /// Raises a CMemoryException_X* when the system has no more thread keys (TlsAlloc_X).
    CThreadSlotData_X();
    /// Deletes the values of all threads, none of which may use the slots meanwhile.
    ~CThreadSlotData_X();
    CThreadSlotData_X(const CThreadSlotData_X&) = delete;
    CThreadSlotData_X& operator=(const CThreadSlotData_X&) = delete;

    /// A slot that is not in use, from 1 on. Raises a CMemoryException_X* without memory.
    int AllocSlot();
    /// Deletes the slot's values on all threads and gives it back; nothing for a number that is no slot in use.
    void FreeSlot(int slot);

    /// The calling thread's value; null if it has none, and for a number that is no slot.
    void* GetThreadValue(int slot);
    /// Stores the calling thread's value. The value that was there is neither looked at nor deleted. Nothing for a
    /// number that was never a slot. Raises a CMemoryException_X* without memory, with nothing stored.
    void SetValue(int slot, void* value);

    /// Makes `instance`, a module's handle, the owner of every slot in use that has none.
    void AssignInstance(void* instance);
    /// Deletes the values in the slots of an owner, in every slot for null: those of the calling thread, or with `all`
    /// those of all threads. The slots stay in use.
    void DeleteValues(void* instance, BOOL all);

private:
    struct Slot
    {
        DWORD flags; // bit 0: in use
        void* instance;
    };
    static_assert(sizeof(Slot) == 16);

    int findFreeSlot() const;
    void growTable();
    int highest();
    CThreadData_X* firstData() const;
    CThreadData_X* callersData() const;
    void deleteValues(int slot, void* instance, BOOL all);
    int countValues(int slot, void* instance, BOOL all);
    void* takeValue(int slot, void* instance, BOOL all);
    bool isToGo(const CThreadData_X* data, int slot, void* instance, BOOL all) const;

    DWORD m_tlsIndex;
    int m_allocated = 0;
    int m_rover = 1;
    int m_highest = 0; // one past the highest slot used
    Slot* m_slots = nullptr;
    CSimpleList_X m_threads;
    CRITICAL_SECTION m_section;
};

/// One object a thread, made when the thread first asks for it. CThreadLocal_X adds the type.
///
/// It is for static objects: it needs no constructor at run time, and may outlive the slots behind it. The destructor
/// deletes the objects of all threads; the end of a thread deletes none.
class XE_EXPORT CThreadLocalObject_X
{
public:
    constexpr CThreadLocalObject_X() = default;
    ~CThreadLocalObject_X(); ///< deletes the objects of all threads
    CThreadLocalObject_X(const CThreadLocalObject_X&) = delete;
    CThreadLocalObject_X& operator=(const CThreadLocalObject_X&) = delete;

    /// The calling thread's object, made by `create` if there is none; that function may use other objects of this
    /// kind. Raises a CInvalidArgException_X* for a null function, a CMemoryException_X* without memory.
    CNoTrackObject_X* GetData(CNoTrackObject_X* (*create)());
    /// The calling thread's object; null if none was made.
    CNoTrackObject_X* GetDataNA();

private:
    friend struct xe::ThreadLocalObjects;
    int slot();

    std::atomic<int> m_slot{0};
};

/// One object, made at the first call and shared by all threads. CProcessLocal_X adds the type. There is no lock: make
/// the first call before there are several threads.
class XE_EXPORT CProcessLocalObject_X
{
public:
    constexpr CProcessLocalObject_X() = default;
    ~CProcessLocalObject_X(); ///< deletes the object
    CProcessLocalObject_X(const CProcessLocalObject_X&) = delete;
    CProcessLocalObject_X& operator=(const CProcessLocalObject_X&) = delete;

    /// The object, made by `create` if there is none. Raises a CInvalidArgException_X* for a null function then.
    CNoTrackObject_X* GetData(CNoTrackObject_X* (*create)());

private:
    CNoTrackObject_X* m_object = nullptr;
};

/// CThreadLocalObject_X or CProcessLocalObject_X for a type, derived from CNoTrackObject_X, with a default constructor.
/// It is used as a pointer to that type.
template <class Type, class Base>
class CLocal_X : public Base
{
public:
    /// The object, made if there is none; never null.
    Type* GetData() { return static_cast<Type*>(Base::GetData(&CreateObject)); }
    operator Type*() { return GetData(); }
    Type* operator->() { return GetData(); }

    /// A new object, for whoever keeps it.
    static CNoTrackObject_X* CreateObject() { return new Type; }
};

/// An object of the type for each thread:
///
///     struct CCounter : CNoTrackObject_X { int value = 0; };
///     CThreadLocal_X<CCounter> counter;
///     ++counter->value; // this thread's
template <class Type>
class CThreadLocal_X : public CLocal_X<Type, CThreadLocalObject_X>
{
public:
    /// The calling thread's object; null if none was made.
    Type* GetDataNA() { return static_cast<Type*>(CThreadLocalObject_X::GetDataNA()); }
};

/// One object of the type for the process.
template <class Type>
using CProcessLocal_X = CLocal_X<Type, CProcessLocalObject_X>;

/// The slots behind all CThreadLocalObject_X objects; null until one of them is asked for its object.
extern XE_EXPORT std::atomic<CThreadSlotData_X*> _afxThreadData;
/// The calls of AfxTlsAddRef_X() that no AfxTlsRelease_X() has matched; never negative.
extern XE_EXPORT std::atomic<long> _afxTlsRef;

/// Counts one more user of the values behind all CThreadLocalObject_X objects.
XE_EXPORT void AfxTlsAddRef_X();
/// The last of as many calls as there were of AfxTlsAddRef_X(), and any call beyond, deletes all values of all threads.
/// No other thread may use values meanwhile; a CThreadLocalObject_X that is asked afterwards starts anew.
XE_EXPORT void AfxTlsRelease_X();

/// CThreadSlotData_X::AssignInstance for those slots; nothing if none was ever used.
XE_EXPORT void AfxInitLocalData_X(void* instance);
/// CThreadSlotData_X::DeleteValues for them, likewise.
XE_EXPORT void AfxTermLocalData_X(void* instance, BOOL all);

// ------------------------------------------------------------------------------------------------- state of the module

/// What a module has for itself in the published interface: the fields are the host's to write. The library reads the
/// resource handle alone, in AfxInitExtensionModule_X.
class XE_EXPORT AFX_MODULE_STATE_X : public CNoTrackObject_X
{
public:
    explicit AFX_MODULE_STATE_X(BOOL dll) : m_bDLL(dll) {}

    BOOL m_bDLL; ///< what the constructor was given
    BOOL m_bSystem = FALSE;
    HINSTANCE m_hCurrentResourceHandle = nullptr; ///< copied into the record of an extension module
    HINSTANCE m_hCurrentInstanceHandle = nullptr;
    BOOL m_bInitialized = TRUE;
    CString_X m_strCurrentAppName;
    int m_fRegisteredClasses = 0;
    int m_dwVersion = 0;
};

/// What a thread has for itself in the published interface, here one object for the GUI thread: above all the handle
/// maps, which afxMapHWND_X() and its like (xeafxhandle.h) make on demand. The destructor deletes what is said here to
/// be owned.
class XE_EXPORT AFX_MODULE_THREAD_STATE_X : public CNoTrackObject_X
{
public:
    AFX_MODULE_THREAD_STATE_X() = default;
    ~AFX_MODULE_THREAD_STATE_X() override;
    AFX_MODULE_THREAD_STATE_X(const AFX_MODULE_THREAD_STATE_X&) = delete;
    AFX_MODULE_THREAD_STATE_X& operator=(const AFX_MODULE_THREAD_STATE_X&) = delete;

    void* m_pCurrentWinThread = nullptr;
    void* m_pWndInit = nullptr;
    CHandleMap_X* m_pmapHWND = nullptr;               ///< owned, as the other maps; of windows
    CHandleMap_X* m_pmapHMENU = nullptr;              ///< of menus
    CHandleMap_X* m_pmapHDC = nullptr;                ///< of device contexts
    CHandleMap_X* m_pmapHGDIOBJ = nullptr;            ///< of pens, brushes, fonts and the like
    CHandleMap_X* m_pmapHIMAGELIST = nullptr;         ///< of image lists
    CObject_X* m_pmapSocketHandle = nullptr;          ///< owned
    CObject_X* m_pmapDeadSockets = nullptr;           ///< owned
    CPtrList_X* m_plistSocketNotifications = nullptr; ///< owned, with its elements, blocks of LocalAlloc_X
    CToolTipCtrl_X* m_pToolTip = nullptr;             ///< ended by its DestroyToolTipCtrl(); all windows share it
    void* m_pLastInfo = nullptr;                      ///< owned, a block of LocalAlloc_X
    int m_nLastHit = -1;
    int m_nLastStatus = -1;
};

/// The one module state.
extern XE_EXPORT AFX_MODULE_STATE_X afxModuleState;
/// The one module thread state.
extern XE_EXPORT AFX_MODULE_THREAD_STATE_X gdiThreadState;

/// The one module state, for either name and every caller.
XE_EXPORT AFX_MODULE_STATE_X* AfxGetModuleState_X();
XE_EXPORT AFX_MODULE_STATE_X* AfxGetStaticModuleState_X();
/// The one module thread state, on any thread.
XE_EXPORT AFX_MODULE_THREAD_STATE_X* AfxGetModuleThreadState_X();

/// TRUE for every pointer but null: unlike by the published function nothing is probed, and size and access are
/// ignored.
XE_EXPORT BOOL AfxIsValidAddress_X(const void* address, unsigned long size, BOOL write = TRUE);
/// TRUE for every text but null; the length is ignored.
XE_EXPORT BOOL AfxIsValidString_X(const wchar_t* text, int length = -1);
XE_EXPORT BOOL AfxIsValidString_X(const char* text, int length = -1);
