// Making a handle map of the process when it is first asked for.
#pragma once

#include "xeafx.h"
#include "xeafxhandle.h"

namespace xe {

/// Where in a wrapper its handle lies when that is its imp object: the first member behind QObject.
constexpr std::size_t impOffset = sizeof(QObject);

/// Where in a wrapper of the class `Type` its member `handle` lies.
template <class Type, class Handle>
std::size_t offsetOf(Handle Type::*handle)
{
    const Type wrapper;
    return static_cast<std::size_t>(reinterpret_cast<const char*>(&(wrapper.*handle))
                                    - reinterpret_cast<const char*>(static_cast<const CObject_X*>(&wrapper)));
}

template <class Type>
CHandleMap_X* newHandleMap(std::size_t offset, int handles)
{
    return new CHandleMap_X(&Type::s_classInfo, &ConstructDestruct_X<Type>::Construct,
                            &ConstructDestruct_X<Type>::Destruct, offset, handles);
}

/// The map in `map`, for wrappers of the class `Type` whose handle is their imp object; makes it first if there is none
/// and `create` is not 0.
template <class Type>
CHandleMap_X* handleMapOf(CHandleMap_X*& map, int create)
{
    if (!map && create)
        map = newHandleMap<Type>(impOffset, 1);
    return map;
}

/// The same for wrappers whose handle is a member, behind which lies a second one if `handles` is 2.
template <class Type, class Handle>
CHandleMap_X* handleMapOf(CHandleMap_X*& map, int create, Handle Type::*handle, int handles = 1)
{
    if (!map && create)
        map = newHandleMap<Type>(offsetOf(handle), handles);
    return map;
}

/// CHandleMap_X::DeleteTemp of a map that may not be there.
inline void deleteTemp(CHandleMap_X* map)
{
    if (map)
        map->DeleteTemp();
}

/// Takes the permanent entry of a wrapper out of a map that may not be there; another wrapper's entry stays.
inline void removePermanent(CHandleMap_X* map, void* handle, const CObject_X* wrapper)
{
    if (map && handle && map->LookupPermanent(handle) == wrapper)
        map->RemoveHandle(handle);
}

} // namespace xe
