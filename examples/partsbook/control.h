#pragma once

#include <xeafxwin.h>
#include <xeresource.h>

/// What a window's form has under the name of a resource id: a control, a command or a menu. It must be there.
template <class Object>
Object& control(const CWnd_X& window, unsigned id)
{
    auto* const object = window.GetSafeHwnd()->findChild<Object*>(ToStringId(id));
    Q_ASSERT(object);
    return *object;
}
