// Making a handle map of the process when it is first asked for.
#pragma once

#include "xeafxhandle.h"

#include <QObject>

namespace xe {

/// Where in a wrapper its handle lies when that is its imp object: the first member behind QObject.
constexpr std::size_t impOffset = sizeof(QObject);

/// The map in `map`; makes it with `arguments` of CHandleMap_X first if there is none and `create` is not 0.
template <class... Arguments>
CHandleMap_X* handleMap(CHandleMap_X*& map, int create, Arguments... arguments)
{
    if (!map && create)
        map = new CHandleMap_X(arguments...);
    return map;
}

/// A map that makes temporary wrappers of the class `Type`, each of that class's own size.
template <class Type>
CHandleMap_X* handleMapOf(CHandleMap_X*& map, int create, std::size_t offset = impOffset, int handles = 1)
{
    return handleMap(map, create, &Type::s_classInfo, &ConstructDestruct_X<Type>::Construct,
                     &ConstructDestruct_X<Type>::Destruct, offset, handles);
}

/// CHandleMap_X::DeleteTemp of a map that may not be there.
inline void deleteTemp(CHandleMap_X* map)
{
    if (map)
        map->DeleteTemp();
}

} // namespace xe
