// The pens and brushes that painters have in use, as handles.
#pragma once

class CGdiObject_X;

namespace xe {

/// The wrapper of a painter's current pen or brush, whose address it has for a handle. The value stays the painter's:
/// CGdiObject_X::DeleteObject() of the wrapper does not free it.
CGdiObject_X* wrapPainterSlot(const void* slot);

/// Whether a handle is the address of a painter's pen or brush.
bool isPainterSlot(const void* handle);

/// Takes the handle from the wrapper: the painter, or the state of it that this was in, goes.
void forgetPainterSlot(const void* slot);

} // namespace xe
