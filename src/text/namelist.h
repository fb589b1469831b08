// A list of names in one wide buffer.
#pragma once

#include "text/widetext.h"
#include "xedef.h"

#include <QStringList>

#include <algorithm>
#include <cstring>

namespace xe {

/// Clears the first `capacity` bytes (not elements) of the buffer and writes the names without terminators, each
/// followed by one element that is left alone. Returns the number of elements used; capacity - 2, at least 0, when that
/// is more than the capacity.
inline DWORD writeNameList(const QStringList& names, wchar_t* buffer, DWORD capacity)
{
    if (!buffer)
        return 0;
    std::memset(buffer, 0, capacity);
    DWORD offset = 0;
    for (const QString& name : names) {
        offset += static_cast<DWORD>(writeWide(name, buffer + offset, capacity - offset)) + 1;
        if (offset > capacity)
            return std::max<DWORD>(capacity, 2) - 2;
    }
    return offset;
}

} // namespace xe
