// The Qt value behind a GDI object.
#pragma once

#include "xeafxgdi.h"

namespace xe {

/// The QPen, QBrush, QImage or QRegion of an object; null for an object without a handle and for a null one.
template <class Value>
Value* gdiValue(const CGdiObject_X* object)
{
    return object ? static_cast<Value*>(object->m_hObject) : nullptr;
}

} // namespace xe
