#include "gfx/gdiholders.h"

#include <unordered_map>

namespace {

// Never destroyed, since objects of other modules may be deleted after this one's.
std::unordered_map<const void*, int>& holders()
{
    static auto& counts = *new std::unordered_map<const void*, int>;
    return counts;
}

} // namespace

bool xe::isHeld(const void* value) { return holders().count(value) != 0; }

void xe::addHolder(const void* value) { ++holders()[value]; }

bool xe::removeHolder(const void* value)
{
    const auto found = holders().find(value);
    if (found == holders().end() || --found->second > 0)
        return false;
    holders().erase(found);
    return true;
}
