#include "xeafxmap.h"

namespace {

template <class Assoc>
bool tellKey(const Assoc* assoc, const wchar_t*& found)
{
    if (assoc)
        found = assoc->key.GetString();
    return assoc;
}

} // namespace

void* CMapPtrToPtr_X::GetValueAt(void* key) const
{
    void* value = nullptr;
    Lookup(key, value);
    return value;
}

void CMapStringToPtr_X::GetNextAssoc(POSITION& position, CString_X& key, void*& value) const
{
    if (buckets)
        XeMap::GetNextAssoc(position, key, value);
}

bool CMapStringToPtr_X::LookupKey(const wchar_t* key, const wchar_t*& found) const
{
    const CAssoc_X* assoc = assocOf(key);
    if (!assoc)
        return false;
    do
        assoc = assoc->next;
    while (assoc && assoc->key.Compare(found) != 0);
    return assoc;
}

bool CMapStringToOb_X::LookupKey(const wchar_t* key, const wchar_t*& found) const
{
    return tellKey(assocOf(key), found);
}

bool CMapStringToString_X::LookupKey(const wchar_t* key, const wchar_t*& found) const
{
    return tellKey(assocOf(key), found);
}

IMPLEMENT_DYNAMIC_X(CMapWordToPtr_X, CObject_X)
IMPLEMENT_DYNAMIC_X(CMapPtrToWord_X, CObject_X)
IMPLEMENT_DYNAMIC_X(CMapPtrToPtr_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CMapWordToOb_X, CObject_X)
IMPLEMENT_DYNAMIC_X(CMapStringToPtr_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CMapStringToOb_X, CObject_X)
IMPLEMENT_DYNCREATE_X(CMapStringToString_X, CObject_X)
