/// @file xeafxstat.h
/// Module state, module thread state and values of a thread.
///
/// There is one module state and one module thread state, the same on every thread and for every module. Values of a
/// thread are real: each thread has its own object behind a CThreadLocal_X.
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
}

/// The base of what the state holds: its objects come from LocalAlloc_X, cleared.
class XE_EXPORT CNoTrackObject_X
{
public:
    virtual ~CNoTrackObject_X() = 0;

    static void* operator new(std::size_t size); ///< AfxThrowMemoryException_X() without memory
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* block) noexcept;
    static void operator delete(void*, void*) noexcept {}

protected:
    CNoTrackObject_X() = default;
    CNoTrackObject_X(const CNoTrackObject_X&) = default;
    CNoTrackObject_X& operator=(const CNoTrackObject_X&) = default;
};

// ---------------------------------------------------------------------------------------------- values of a thread

/// A list through a pointer inside its elements, which it does not own.
class XE_EXPORT CSimpleList_X
{
public:
    /// `nextOffset` is where in an element the pointer to the next one lies, in bytes.
    explicit CSimpleList_X(std::size_t nextOffset = 0) : m_nextOffset(nextOffset) {}

    void AddHead(void* element); ///< nothing for null
    bool Remove(void* element);  ///< false if it is not in the list

    bool IsEmpty() const { return !m_head; }
    void* GetHead() const { return m_head; }
    void* GetNext(void* element) const { return next(element); }

private:
    void*& next(void* element) const { return *reinterpret_cast<void**>(static_cast<char*>(element) + m_nextOffset); }

    void* m_head = nullptr;
    std::size_t m_nextOffset;
};

/// The values of one thread, by slot.
class XE_EXPORT CThreadData_X : public CNoTrackObject_X
{
public:
    CThreadData_X() = default;
    ~CThreadData_X() override;
    CThreadData_X(const CThreadData_X&) = delete;
    CThreadData_X& operator=(const CThreadData_X&) = delete;

    void* value(int slot) const { return slot < count ? values[slot] : nullptr; }
    bool isEmpty() const;
    void growTo(int newCount); ///< std::bad_alloc as a memory exception; then nothing is changed

    CThreadData_X* next = nullptr;
    int count = 0;
    void** values = nullptr;
};

/// Slots for values, of which every thread has its own. All functions may be called from any thread.
///
/// Values are CNoTrackObject_X objects and belong to the slot. They are deleted outside the lock, so a value's
/// destructor may use other slots.
class XE_EXPORT CThreadSlotData_X
{
public:
    CThreadSlotData_X();  ///< AfxThrowMemoryException_X() when the system has no more thread keys
    ~CThreadSlotData_X(); ///< deletes the values of all threads
    CThreadSlotData_X(const CThreadSlotData_X&) = delete;
    CThreadSlotData_X& operator=(const CThreadSlotData_X&) = delete;

    /// A slot that is not in use, from 1 on. AfxThrowMemoryException_X() without memory.
    int AllocSlot();
    /// Deletes the slot's values on all threads and gives it back; nothing for a number that is no slot in use.
    void FreeSlot(int slot);

    /// The calling thread's value, or null.
    void* GetThreadValue(int slot);
    /// Stores the calling thread's value, without a look at what was there; nothing for a number that was never a slot.
    void SetValue(int slot, void* value);

    /// Makes `instance` the owner of every slot in use that has none.
    void AssignInstance(void* instance);
    /// Deletes the values in the slots of an instance, in every slot for null, on the calling thread or on all threads.
    void DeleteValues(void* instance, BOOL all);

private:
    struct Slot
    {
        DWORD flags; // bit 0: in use
        void* instance;
    };
    static_assert(sizeof(Slot) == 16);

    class Doomed;

    int findFreeSlot() const;
    void growTable();
    CThreadData_X* callersData() const;
    void DeleteValues(CThreadData_X* data, void* instance, Doomed& doomed);

    DWORD m_tlsIndex;
    int m_allocated = 0;
    int m_rover = 1;
    int m_highest = 0; // one past the highest slot used
    Slot* m_slots = nullptr;
    CSimpleList_X m_threads;
    CRITICAL_SECTION m_section;
};

/// One object a thread, made when the thread first asks for it. For static objects; CThreadLocal_X adds the type.
class XE_EXPORT CThreadLocalObject_X
{
public:
    constexpr CThreadLocalObject_X() = default;
    ~CThreadLocalObject_X(); ///< deletes the objects of all threads
    CThreadLocalObject_X(const CThreadLocalObject_X&) = delete;
    CThreadLocalObject_X& operator=(const CThreadLocalObject_X&) = delete;

    /// The calling thread's object, made by `create` if there is none; that function may use other objects of this kind.
    /// AfxThrowInvalidArgException_X() for a null function.
    CNoTrackObject_X* GetData(CNoTrackObject_X* (*create)());
    /// The calling thread's object, or null.
    CNoTrackObject_X* GetDataNA();

private:
    friend struct xe::ThreadLocalObjects;
    int slot();

    std::atomic<int> m_slot{0};
};

/// One object, made at the first call and shared by all threads. There is no lock: the first call comes from one thread.
class XE_EXPORT CProcessLocalObject_X
{
public:
    constexpr CProcessLocalObject_X() = default;
    ~CProcessLocalObject_X(); ///< deletes the object
    CProcessLocalObject_X(const CProcessLocalObject_X&) = delete;
    CProcessLocalObject_X& operator=(const CProcessLocalObject_X&) = delete;

    /// AfxThrowInvalidArgException_X() for a null function when there is no object yet.
    CNoTrackObject_X* GetData(CNoTrackObject_X* (*create)());

private:
    CNoTrackObject_X* m_object = nullptr;
};

/// CThreadLocalObject_X or CProcessLocalObject_X for a type with a default constructor.
template <class Type, class Base>
class CLocal_X : public Base
{
public:
    Type* GetData() { return static_cast<Type*>(Base::GetData(&CreateObject)); }
    operator Type*() { return GetData(); }
    Type* operator->() { return GetData(); }

    static CNoTrackObject_X* CreateObject() { return new Type; }
};

template <class Type>
class CThreadLocal_X : public CLocal_X<Type, CThreadLocalObject_X>
{
public:
    Type* GetDataNA() { return static_cast<Type*>(CThreadLocalObject_X::GetDataNA()); }
};

template <class Type>
using CProcessLocal_X = CLocal_X<Type, CProcessLocalObject_X>;

/// The slots behind all CThreadLocalObject_X objects; null until one of them is asked for its object.
extern XE_EXPORT std::atomic<CThreadSlotData_X*> _afxThreadData;
extern XE_EXPORT std::atomic<long> _afxTlsRef;

XE_EXPORT void AfxTlsAddRef_X();
/// The last of as many calls as there were of AfxTlsAddRef_X(), and any call beyond, deletes all values of all threads.
/// No other thread may use values meanwhile; a CThreadLocalObject_X that is asked afterwards starts anew.
XE_EXPORT void AfxTlsRelease_X();

/// CThreadSlotData_X::AssignInstance and CThreadSlotData_X::DeleteValues, if a slot was ever used.
XE_EXPORT void AfxInitLocalData_X(void* instance);
XE_EXPORT void AfxTermLocalData_X(void* instance, BOOL all);

// ----------------------------------------------------------------------------------------------- state of the module

class XE_EXPORT AFX_MODULE_STATE_X : public CNoTrackObject_X
{
public:
    explicit AFX_MODULE_STATE_X(BOOL dll) : m_bDLL(dll) {}

    BOOL m_bDLL;
    BOOL m_bSystem = FALSE;
    HINSTANCE m_hCurrentResourceHandle = nullptr;
    HINSTANCE m_hCurrentInstanceHandle = nullptr;
    BOOL m_bInitialized = TRUE;
    CString_X m_strCurrentAppName;
    int m_fRegisteredClasses = 0;
    int m_dwVersion = 0;
};

/// The handle maps are made on demand and are for the GUI thread. The destructor deletes all that is here.
class XE_EXPORT AFX_MODULE_THREAD_STATE_X : public CNoTrackObject_X
{
public:
    AFX_MODULE_THREAD_STATE_X() = default;
    ~AFX_MODULE_THREAD_STATE_X() override;
    AFX_MODULE_THREAD_STATE_X(const AFX_MODULE_THREAD_STATE_X&) = delete;
    AFX_MODULE_THREAD_STATE_X& operator=(const AFX_MODULE_THREAD_STATE_X&) = delete;

    void* m_pCurrentWinThread = nullptr;
    void* m_pWndInit = nullptr;
    CHandleMap_X* m_pmapHWND = nullptr;
    CHandleMap_X* m_pmapHMENU = nullptr;
    CHandleMap_X* m_pmapHDC = nullptr;
    CHandleMap_X* m_pmapHGDIOBJ = nullptr;
    CHandleMap_X* m_pmapHIMAGELIST = nullptr;
    CObject_X* m_pmapSocketHandle = nullptr;
    CObject_X* m_pmapDeadSockets = nullptr;
    CPtrList_X* m_plistSocketNotifications = nullptr; ///< its elements are blocks of LocalAlloc_X
    CToolTipCtrl_X* m_pToolTip = nullptr;
    void* m_pLastInfo = nullptr; ///< a block of LocalAlloc_X
    int m_nLastHit = -1;
    int m_nLastStatus = -1;
};

extern XE_EXPORT AFX_MODULE_STATE_X afxModuleState;
extern XE_EXPORT AFX_MODULE_THREAD_STATE_X gdiThreadState;

XE_EXPORT AFX_MODULE_STATE_X* AfxGetModuleState_X();
XE_EXPORT AFX_MODULE_STATE_X* AfxGetStaticModuleState_X(); ///< the same object
XE_EXPORT AFX_MODULE_THREAD_STATE_X* AfxGetModuleThreadState_X();

/// True for every pointer but null: nothing is probed, and size and access are ignored.
XE_EXPORT BOOL AfxIsValidAddress_X(const void* address, unsigned long size, BOOL write = TRUE);
XE_EXPORT BOOL AfxIsValidString_X(const wchar_t* text, int length = -1);
XE_EXPORT BOOL AfxIsValidString_X(const char* text, int length = -1);
