#pragma once

#include "xedef.h"

namespace xe {

/// The lower half of a size. The upper one goes to `high`, unless that is null.
inline DWORD halvesOf(qint64 size, DWORD* high)
{
    if (high)
        *high = static_cast<DWORD>(size >> 32);
    return static_cast<DWORD>(size);
}

} // namespace xe
