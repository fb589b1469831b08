#include "gfx/painterslots.h"

#include "gfx/gdiholders.h"
#include "xeafxgdi.h"
#include "xeafxhandle.h"

#include <QSet>

namespace {

// Never destroyed, since objects of other modules may be deleted after this one's.
QSet<const void*>& slotAddresses()
{
    static auto& addresses = *new QSet<const void*>;
    return addresses;
}

} // namespace

CGdiObject_X* xe::wrapPainterSlot(const void* slot)
{
    slotAddresses().insert(slot);
    return CGdiObject_X::FromHandle(const_cast<void*>(slot));
}

bool xe::isPainterSlot(const void* handle)
{
    // A value of the host's that lies there by now has a holder.
    return slotAddresses().contains(handle) && !xe::isHeld(handle);
}

void xe::forgetPainterSlot(const void* slot)
{
    CHandleMap_X* const map = afxMapHGDIOBJ_X(FALSE);
    if (!slotAddresses().remove(slot) || !map)
        return;
    if (auto* const wrapper = static_cast<CGdiObject_X*>(map->LookupTemporary(const_cast<void*>(slot))))
        wrapper->m_hObject = nullptr;
}
