#include "xeafxhandle.h"

#include "xeafx.h"

namespace {

constexpr int itemsPerBlock = 64;
constexpr int permanentBlock = 10;
constexpr int temporaryBlock = 4;
constexpr UINT permanentBuckets = 10007; // for as many objects as a large program has alive
constexpr UINT temporaryBuckets = 7;

CObject_X* find(const CMapPtrToPtr_X& map, void* handle)
{
    void* wrapper = nullptr;
    map.Lookup(handle, wrapper);
    return static_cast<CObject_X*>(wrapper);
}

UINT objectSize(const CRuntimeClass_X* runtimeClass)
{
    return runtimeClass ? static_cast<UINT>(runtimeClass->GetObjectSize()) : 0;
}

} // namespace

CHandleMap_X::CHandleMap_X(CRuntimeClass_X* runtimeClass, void (*construct)(CObject_X*), void (*destruct)(CObject_X*),
                           std::size_t offset, int handles)
    : m_alloc(objectSize(runtimeClass), itemsPerBlock),
      m_construct(construct),
      m_destruct(destruct),
      m_permanentMap(permanentBlock),
      m_temporaryMap(temporaryBlock),
      m_class(runtimeClass),
      m_offset(offset),
      m_handles(handles)
{
    m_permanentMap.InitHashTable(permanentBuckets, FALSE);
    m_permanentMap.SetAt(nullptr,
                         nullptr); // a map without entries frees its table: one object at a time would make it anew
    m_temporaryMap.InitHashTable(temporaryBuckets, FALSE);
}

CHandleMap_X::~CHandleMap_X() { DeleteTemp(); }

CObject_X* CHandleMap_X::FromHandle(void* handle)
{
    if (!handle)
        return nullptr;
    if (CObject_X* const permanent = LookupPermanent(handle))
        return permanent;
    CObject_X* wrapper = LookupTemporary(handle);
    if (!wrapper)
        wrapper = makeTemporary(handle);
    if (wrapper)
        writeHandle(wrapper, handle);
    return wrapper;
}

CObject_X* CHandleMap_X::makeTemporary(void* handle)
{
    if (!m_class || !m_construct || !m_destruct)
        return nullptr;
    auto* const wrapper = static_cast<CObject_X*>(m_alloc.Alloc());
    m_construct(wrapper);
    m_temporaryMap.SetAt(handle, wrapper);
    return wrapper;
}

void* CHandleMap_X::readHandle(const CObject_X* wrapper) const
{
    return *reinterpret_cast<void* const*>(reinterpret_cast<const char*>(wrapper) + m_offset);
}

void CHandleMap_X::writeHandle(CObject_X* wrapper, void* handle) const
{
    auto* const place = reinterpret_cast<void**>(reinterpret_cast<char*>(wrapper) + m_offset);
    for (int i = 0; i < m_handles; ++i)
        place[i] = handle;
}

void CHandleMap_X::DeleteTemp()
{
    POSITION position = m_temporaryMap.GetStartPosition();
    while (position) {
        void* handle = nullptr;
        void* value = nullptr;
        m_temporaryMap.GetNextAssoc(position, handle, value);
        auto* const wrapper = static_cast<CObject_X*>(value);
        if (LookupPermanent(readHandle(wrapper)) == wrapper) // somebody attached a handle to it
            RemoveHandle(readHandle(wrapper));
        writeHandle(wrapper, nullptr);
        m_destruct(wrapper);
    }
    m_temporaryMap.RemoveAll();
    m_alloc.FreeAll();
}

CObject_X* CHandleMap_X::LookupPermanent(void* handle) const { return find(m_permanentMap, handle); }

CObject_X* CHandleMap_X::LookupTemporary(void* handle) const { return find(m_temporaryMap, handle); }

void CHandleMap_X::SetPermanent(void* handle, CObject_X* wrapper)
{
    if (handle)
        m_permanentMap.SetAt(handle, wrapper);
}

void CHandleMap_X::RemoveHandle(void* handle)
{
    if (handle)
        m_permanentMap.RemoveKey(handle);
}
