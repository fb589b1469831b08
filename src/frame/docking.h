// How dialog bars and dock bars place themselves.
#pragma once

#include "xedef.h"

#include <QDockWidget>

namespace xe {

/// The dock widget of a bar. It leaves the layout of its main window while it is a dock widget yet: where it goes while
/// a separator is dragged, Qt takes only such a one out of the layout that each further move begins with, and would go
/// on with an item that is gone.
class DockWidget : public QDockWidget
{
public:
    using QDockWidget::QDockWidget;
    ~DockWidget() override;
};

/// Makes the bar a window of its own, or not, and moves it to a side of its parent by the CBRS_ bits of the style.
/// Handlers of the host's may be called, and may delete the bar.
void placeByStyle(QDockWidget* bar, DWORD style, bool floating);

} // namespace xe
