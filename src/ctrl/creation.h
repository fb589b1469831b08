// Making a control that has something to do once it is there.
#pragma once

#include "xeafxwin.h"

#include <QPointer>

namespace xe {

/// `create`, and then `finish` with the widget. What a window says as it comes up may end the control or its widget:
/// then there is nothing to finish. Gives whether `create` gave true.
template <class Widget, class Create, class Finish>
int createAndFinish(CWnd_X& control, Create create, Finish finish)
{
    const QPointer<CWnd_X> living(&control);
    if (!create())
        return 0;
    if (auto* const widget = living ? control.Imp<Widget>() : nullptr)
        finish(*widget);
    return 1;
}

} // namespace xe
