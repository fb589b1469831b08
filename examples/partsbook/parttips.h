#pragma once

#include <xetooltipctrl.h>

#include <vector>

/// The tips of the fields of a part. The dialog relays its messages to them.
class CPartTips : public CToolTipCtrl_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartTips)

    void Open(CWnd_X& dialog);

private:
    std::vector<CString_X> m_texts; // the tips have their addresses
};
