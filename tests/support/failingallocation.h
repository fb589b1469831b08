#pragma once

#include <QtGlobal>

/// While it lives, one allocation of the thread that made it fails, the one with this number, from 1 on: malloc() and
/// its like give null, and so the operator new raises std::bad_alloc. Under a sanitizer, whose own malloc() must not be
/// replaced, only the operator new fails.
///
/// The program is linked with failingallocation.cpp and nothing else that replaces these functions.
class FailingAllocation
{
public:
    explicit FailingAllocation(int number);
    ~FailingAllocation() { end(); }
    Q_DISABLE_COPY_MOVE(FailingAllocation)

    /// Nothing fails any more. Whether something has failed.
    bool end();

    /// The blocks that are allocated now, of all threads.
    static long blocks();
    /// The allocations that this thread has made so far, those that failed too. A block that is made larger is one.
    static long made();
};
