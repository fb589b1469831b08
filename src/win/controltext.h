// The text of a control.
#pragma once

#include <QString>

class QWidget;

namespace xe {

/// The text of a control, or the title of any other widget.
QString controlText(const QWidget& control);

/// Sets it, as SetWindowText_X() tells.
void setControlText(QWidget& control, const QString& text);

} // namespace xe
