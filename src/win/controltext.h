// The text of a control, and numbers in it.
#pragma once

#include "xeafxstr.h"

class QWidget;

namespace xe {

/// The text of a control, or the title of any other widget, which must not be null.
QString controlText(QWidget* window);

/// The first number in a control's text; see GetDlgItemInt_X().
UINT widgetInt(QWidget* widget, BOOL* translated, bool isSigned);

/// The number as SetDlgItemInt_X() writes it.
CString_X intText(UINT value, bool isSigned);

} // namespace xe
