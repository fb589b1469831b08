#include "gfx/gdiholders.h"

#include <QHash>

namespace {

// Never destroyed, since objects of other modules may be deleted after this one's.
QHash<const void*, int>& holders()
{
    static auto& counts = *new QHash<const void*, int>;
    return counts;
}

} // namespace

bool xe::isHeld(const void* value) { return holders().contains(value); }

void xe::addHolder(const void* value) { ++holders()[value]; }

bool xe::removeHolder(const void* value)
{
    const auto found = holders().find(value);
    if (found == holders().end() || --*found > 0)
        return false;
    holders().erase(found);
    return true;
}
