// A FILETIME as the number that it holds.
#pragma once

#include "xedef.h"

#include <QDateTime>

namespace xe {

inline qint64 milliseconds(const FILETIME& time)
{
    return static_cast<qint64>(static_cast<quint64>(time.dwHighDateTime) << 32 | time.dwLowDateTime);
}

inline FILETIME fileTime(qint64 milliseconds)
{
    const auto bits = static_cast<quint64>(milliseconds);
    return {static_cast<DWORD>(bits), static_cast<DWORD>(bits >> 32)};
}

/// 0 for a moment that is none.
inline FILETIME fileTime(const QDateTime& moment)
{
    return fileTime(moment.isValid() ? moment.toMSecsSinceEpoch() : 0);
}

} // namespace xe
