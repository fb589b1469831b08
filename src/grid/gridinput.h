// What mouse and keys of a grid both ask.
#pragma once

#include "XeGridCtrl.h"

namespace xe {

/// Whether the mouse does nothing. The modes of a selection outlive a click on a heading and, in list mode, a move of
/// the focus by code; with no button held they mean nothing.
inline bool isIdle(const CGridCtrl_X& grid)
{
    switch (grid.m_MouseMode) {
    case CGridCtrl_X::MOUSE_NOTHING:
        return true;
    case CGridCtrl_X::MOUSE_SELECT_ALL:
    case CGridCtrl_X::MOUSE_SELECT_COL:
    case CGridCtrl_X::MOUSE_SELECT_ROW:
        return !grid.m_bLMouseButtonDown;
    default:
        return false;
    }
}

} // namespace xe
