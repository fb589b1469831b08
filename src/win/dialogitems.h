// Numbers in the texts of dialog items.
#pragma once

#include "xeafxstr.h"

class QWidget;

namespace xe {

/// The first number in a control's text; see GetDlgItemInt_X().
UINT widgetInt(const QWidget* widget, BOOL* translated, bool isSigned);

/// The number as SetDlgItemInt_X() writes it.
CString_X intText(UINT value, bool isSigned);

} // namespace xe
