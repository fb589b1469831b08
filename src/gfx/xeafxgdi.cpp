#include "xeafxgdi.h"

#include "core/nullobject.h"
#include "gfx/gdiholders.h"
#include "gfx/painterslots.h"
#include "state/handlemapmaker.h"
#include "xeafxrgn.h"
#include "xeafxstat.h"

#include <QBrush>
#include <QPen>
#include <QRegion>

#include <utility>

IMPLEMENT_DYNCREATE_X(CGdiObject_X, CObject_X)

namespace {

using Free = void (*)(void* value);

template <class Value>
void destroy(void* value)
{
    delete static_cast<Value*>(value);
}

struct ValueType
{
    const QMetaObject* wrapper;
    Free free;
};

const ValueType valueTypes[] = {
    {&CPen_X::staticMetaObject, &destroy<QPen>},
    {&CBrush_X::staticMetaObject, &destroy<QBrush>},
    {&CBitmap_X::staticMetaObject, &destroy<QImage>},
    {&CRgn_X::staticMetaObject, &destroy<QRegion>},
};

void freeValue(const CGdiObject_X& object, void* value)
{
    for (const ValueType& type : valueTypes)
        if (object.metaObject()->inherits(type.wrapper))
            return type.free(value);
    ::operator delete(value);
}

} // namespace

CGdiObject_X::~CGdiObject_X()
{
    CGdiObject_X::DeleteObject();
    letGo();
}

HGDIOBJ CGdiObject_X::GetSafeHandle() const
{
    const CGdiObject_X* const object = xe::maybeNull(this);
    return object ? object->m_hObject : nullptr;
}

BOOL CGdiObject_X::Attach(HGDIOBJ handle)
{
    if (!handle)
        return FALSE;
    letGo();
    m_hObject = handle;
    m_held = handle;
    xe::addHolder(handle);
    afxMapHGDIOBJ_X(TRUE)->SetPermanent(handle, this);
    return TRUE;
}

HGDIOBJ CGdiObject_X::Detach()
{
    letGo();
    return std::exchange(m_hObject, nullptr);
}

// False too for an object that held nothing.
bool CGdiObject_X::letGo()
{
    void* const value = std::exchange(m_held, nullptr);
    if (!value)
        return false;
    xe::removePermanent(afxMapHGDIOBJ_X(FALSE), value, this);
    return xe::removeHolder(value);
}

BOOL CGdiObject_X::DeleteObject()
{
    void* const value = m_hObject;
    if (!value)
        return FALSE;
    // A handle without a share in it is that of a temporary object, or the host has written it into the field.
    const bool isOurs = m_held == value ? letGo() : !xe::isHeld(value) && !xe::isPainterSlot(value);
    m_hObject = nullptr;
    if (isOurs)
        freeValue(*this, value);
    return TRUE;
}

CGdiObject_X* CGdiObject_X::FromHandle(HGDIOBJ handle)
{
    return static_cast<CGdiObject_X*>(afxMapHGDIOBJ_X(TRUE)->FromHandle(handle));
}

void CGdiObject_X::DeleteTempMap() { xe::deleteTemp(afxMapHGDIOBJ_X(FALSE)); }

int CGdiObject_X::GetObject(int, void*) const { return 0; }
