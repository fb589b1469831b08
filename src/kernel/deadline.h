// Limits of waits, as the moments that pthreads and semaphores take.
#pragma once

#include "xesynchapi.h"

#include <ctime>
#include <optional>

namespace xe {

using Deadline = std::optional<timespec>; ///< none: for ever

inline timespec laterBy(timespec moment, DWORD milliseconds)
{
    moment.tv_sec += milliseconds / 1000;
    moment.tv_nsec += milliseconds % 1000 * 1000000L;
    while (moment.tv_nsec > 999999999) {
        moment.tv_nsec -= 1000000000;
        ++moment.tv_sec;
    }
    return moment;
}

inline Deadline deadlineAfter(DWORD milliseconds)
{
    if (milliseconds == INFINITE)
        return std::nullopt;
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return laterBy(now, milliseconds);
}

inline int waitOn(pthread_cond_t* condition, pthread_mutex_t* mutex, const Deadline& deadline)
{
    return deadline ? pthread_cond_timedwait(condition, mutex, &*deadline) : pthread_cond_wait(condition, mutex);
}

} // namespace xe
