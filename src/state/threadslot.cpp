#include "xeafxstat.h"
#include "xeexcept.h"
#include "xememory.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int growBy = 32;
constexpr DWORD inUse = 1;

class Lock
{
public:
    explicit Lock(CRITICAL_SECTION& section) : m_section(section) { EnterCriticalSection_X(&m_section); }
    ~Lock() { LeaveCriticalSection_X(&m_section); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    CRITICAL_SECTION& m_section;
};

} // namespace

// ------------------------------------------------------------------------------------------------- the list of threads

void CSimpleList_X::AddHead(void* element)
{
    if (!element)
        return;
    next(element) = m_head;
    m_head = element;
}

bool CSimpleList_X::Remove(void* element)
{
    if (!element)
        return false;
    void** link = &m_head;
    while (*link && *link != element)
        link = &next(*link);
    if (!*link)
        return false;
    *link = next(element);
    return true;
}

CThreadData_X::~CThreadData_X() { LocalFree_X(values); }

bool CThreadData_X::isEmpty() const
{
    return std::all_of(values, values + count, [](void* value) { return !value; });
}

void CThreadData_X::growTo(int newCount)
{
    if (newCount <= count)
        return;
    const auto size = static_cast<std::size_t>(newCount) * sizeof(void*);
    void* const grown = values ? LocalReAlloc_X(values, size, LMEM_MOVEABLE) : LocalAlloc_X(LMEM_FIXED, size);
    if (!grown)
        AfxThrowMemoryException_X();
    values = static_cast<void**>(grown);
    count = newCount;
}

// ----------------------------------------------------------------------------------------------------------- the slots

// The link is the first member behind the base.
CThreadSlotData_X::CThreadSlotData_X() : m_threads(sizeof(CNoTrackObject_X))
{
    m_tlsIndex = TlsAlloc_X();
    if (m_tlsIndex == TLS_OUT_OF_INDEXES)
        AfxThrowMemoryException_X();
    InitializeCriticalSection_X(&m_section);
}

CThreadSlotData_X::~CThreadSlotData_X()
{
    DeleteValues(nullptr, TRUE);
    while (CThreadData_X* const data = firstData()) {
        m_threads.Remove(data);
        delete data;
    }
    TlsFree_X(m_tlsIndex);
    GlobalFree_X(m_slots);
    DeleteCriticalSection_X(&m_section);
}

int CThreadSlotData_X::findFreeSlot() const
{
    const auto isFree = [this](int slot) { return !(m_slots[slot].flags & inUse); };
    for (int slot = m_rover; slot < m_allocated; ++slot) {
        if (isFree(slot))
            return slot;
    }
    for (int slot = 1; slot < m_allocated; ++slot) {
        if (isFree(slot))
            return slot;
    }
    return m_allocated;
}

void CThreadSlotData_X::growTable()
{
    const auto size = static_cast<std::size_t>(m_allocated + growBy) * sizeof(Slot);
    void* const grown =
        m_slots ? GlobalReAlloc_X(m_slots, size, GMEM_MOVEABLE | 0x2000) : GlobalAlloc_X(GMEM_MOVEABLE, size);
    if (!grown || size > std::numeric_limits<DWORD>::max())
        AfxThrowMemoryException_X();
    m_slots = static_cast<Slot*>(GlobalLock_X(grown));
    m_allocated += growBy;
}

int CThreadSlotData_X::AllocSlot()
{
    const Lock lock(m_section);
    int slot = findFreeSlot();
    if (slot >= m_allocated) {
        slot = std::max(1, m_allocated);
        growTable();
    }
    m_slots[slot].flags |= inUse;
    m_slots[slot].instance = nullptr;
    m_highest = std::max(m_highest, slot + 1);
    m_rover = slot + 1;
    return slot;
}

void CThreadSlotData_X::FreeSlot(int slot)
{
    deleteValues(slot, nullptr, TRUE);
    const Lock lock(m_section);
    if (slot > 0 && slot < m_highest)
        m_slots[slot].flags &= ~inUse;
}

int CThreadSlotData_X::highest()
{
    const Lock lock(m_section);
    return m_highest;
}

CThreadData_X* CThreadSlotData_X::firstData() const { return static_cast<CThreadData_X*>(m_threads.GetHead()); }

CThreadData_X* CThreadSlotData_X::callersData() const { return static_cast<CThreadData_X*>(TlsGetValue_X(m_tlsIndex)); }

void* CThreadSlotData_X::GetThreadValue(int slot)
{
    const Lock lock(m_section);
    const CThreadData_X* const data = callersData();
    return data && slot > 0 ? data->value(slot) : nullptr;
}

void CThreadSlotData_X::SetValue(int slot, void* value)
{
    const Lock lock(m_section);
    if (slot < 1 || slot >= m_highest)
        return;
    CThreadData_X* data = callersData();
    if (!data) {
        data = new CThreadData_X;
        m_threads.AddHead(data);
        TlsSetValue_X(m_tlsIndex, data);
    }
    if (slot >= data->count && value)
        data->growTo(m_highest);
    if (slot < data->count)
        data->values[slot] = value;
}

void CThreadSlotData_X::AssignInstance(void* instance)
{
    const Lock lock(m_section);
    for (int slot = 1; slot < m_highest; ++slot) {
        if ((m_slots[slot].flags & inUse) && !m_slots[slot].instance)
            m_slots[slot].instance = instance;
    }
}

void CThreadSlotData_X::DeleteValues(void* instance, BOOL all)
{
    const int end = highest(); // slots that destructors take are none of those that were there
    for (int slot = 1; slot < end; ++slot)
        deleteValues(slot, instance, all);
    const Lock lock(m_section);
    // Another thread still has the address of its empty record: that stays until all slots go.
    CThreadData_X* const data = callersData();
    if (data && data->isEmpty()) {
        m_threads.Remove(data);
        delete data;
        TlsSetValue_X(m_tlsIndex, nullptr);
    }
}

// Each value is taken by itself and deleted when the lock is open again, since its destructor is the host's. Nothing
// here may want memory: this is how memory is given back.
void CThreadSlotData_X::deleteValues(int slot, void* instance, BOOL all)
{
    for (int left = countValues(slot, instance, all); left > 0; --left)
        delete static_cast<CNoTrackObject_X*>(takeValue(slot, instance, all));
}

int CThreadSlotData_X::countValues(int slot, void* instance, BOOL all)
{
    const Lock lock(m_section);
    int count = 0;
    for (auto* data = firstData(); data; data = data->next)
        count += isToGo(data, slot, instance, all);
    return count;
}

// The calling thread's comes last: a destructor may give it a new one.
void* CThreadSlotData_X::takeValue(int slot, void* instance, BOOL all)
{
    const Lock lock(m_section);
    CThreadData_X* found = nullptr;
    for (auto* data = firstData(); data; data = data->next) {
        if (isToGo(data, slot, instance, all) && (!found || data != callersData()))
            found = data;
    }
    return found ? std::exchange(found->values[slot], nullptr) : nullptr;
}

bool CThreadSlotData_X::isToGo(const CThreadData_X* data, int slot, void* instance, BOOL all) const
{
    const bool isOwners = slot > 0 && slot < m_highest && (!instance || m_slots[slot].instance == instance);
    return isOwners && data->value(slot) && (all || data == callersData());
}
