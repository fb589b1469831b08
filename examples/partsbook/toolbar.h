#pragma once

#include <xeafxbar.h>

/// The tool bar of the main window: commands of its form as pictures, and a check button for the message window.
class CPartsToolBar : public CToolBar_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CPartsToolBar)

    /// Makes the bar at the top of the main window.
    void Open(CWnd_X& frame);
};
