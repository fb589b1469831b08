#include "xeafxstat.h"
#include "xeexcept.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

alignas(CThreadSlotData_X) static unsigned char __afxThreadData[sizeof(CThreadSlotData_X)];
std::atomic<CThreadSlotData_X*> _afxThreadData = nullptr;
std::atomic<long> _afxTlsRef = 0;

namespace xe {

// The objects that have a slot, so that none keeps the number of one that is gone.
struct ThreadLocalObjects
{
    std::mutex mutex;
    std::vector<CThreadLocalObject_X*> withSlot;

    static ThreadLocalObjects& instance()
    {
        static ThreadLocalObjects* const objects =
            new ThreadLocalObjects; // host objects may go later than statics here
        return *objects;
    }

    int giveSlot(CThreadLocalObject_X* object)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (!_afxThreadData)
            _afxThreadData = new (__afxThreadData) CThreadSlotData_X;
        if (!object->m_slot) {
            withSlot.reserve(withSlot.size() + 1);
            object->m_slot = _afxThreadData.load()->AllocSlot();
            withSlot.push_back(object);
        }
        return object->m_slot;
    }

    // Gives the slot that the object had.
    int forget(CThreadLocalObject_X* object)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        withSlot.erase(std::remove(withSlot.begin(), withSlot.end(), object), withSlot.end());
        return object->m_slot.exchange(0);
    }

    // Gives the slot data, which nobody finds any more.
    CThreadSlotData_X* takeAll()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        for (CThreadLocalObject_X* object : withSlot)
            object->m_slot = 0;
        withSlot.clear();
        return _afxThreadData.exchange(nullptr);
    }
};

} // namespace xe

using xe::ThreadLocalObjects;

// -------------------------------------------------------------------------------------------------- an object a thread

CThreadLocalObject_X::~CThreadLocalObject_X()
{
    if (!m_slot)
        return;
    const int slot = ThreadLocalObjects::instance().forget(this);
    if (CThreadSlotData_X* const data = _afxThreadData)
        data->FreeSlot(slot);
}

int CThreadLocalObject_X::slot()
{
    const int slot = m_slot;
    return slot ? slot : ThreadLocalObjects::instance().giveSlot(this);
}

CNoTrackObject_X* CThreadLocalObject_X::GetData(CNoTrackObject_X* (*create)())
{
    if (!create)
        AfxThrowInvalidArgException_X();
    const int mine = slot();
    CThreadSlotData_X* const data = _afxThreadData;
    if (!mine || !data)
        AfxThrowInvalidArgException_X();
    if (void* const value = data->GetThreadValue(mine))
        return static_cast<CNoTrackObject_X*>(value);
    std::unique_ptr<CNoTrackObject_X> made(create());
    data->SetValue(mine, made.get());
    return made.release();
}

CNoTrackObject_X* CThreadLocalObject_X::GetDataNA()
{
    const int slot = m_slot;
    CThreadSlotData_X* const data = _afxThreadData;
    return slot && data ? static_cast<CNoTrackObject_X*>(data->GetThreadValue(slot)) : nullptr;
}

// ------------------------------------------------------------------------------------------------- an object a process

CProcessLocalObject_X::~CProcessLocalObject_X() { delete m_object; }

CNoTrackObject_X* CProcessLocalObject_X::GetData(CNoTrackObject_X* (*create)())
{
    if (!m_object) {
        if (!create)
            AfxThrowInvalidArgException_X();
        m_object = create();
    }
    return m_object;
}

// --------------------------------------------------------------------------------------------------- all slots at once

void AfxInitLocalData_X(void* instance)
{
    if (CThreadSlotData_X* const data = _afxThreadData)
        data->AssignInstance(instance);
}

void AfxTermLocalData_X(void* instance, BOOL all)
{
    if (CThreadSlotData_X* const data = _afxThreadData)
        data->DeleteValues(instance, all);
}

void AfxTlsAddRef_X() { ++_afxTlsRef; }

void AfxTlsRelease_X()
{
    long references = _afxTlsRef;
    while (references > 0 && !_afxTlsRef.compare_exchange_weak(references, references - 1))
        continue;
    if (references > 1)
        return;
    if (CThreadSlotData_X* const data = ThreadLocalObjects::instance().takeAll())
        data->~CThreadSlotData_X();
}
