#include "xeafx.h"

#include <QWidget>

IMPLEMENT_DYNCREATE_X(CCmdTarget_X, CObject_X)

void CCmdTarget_X::OnMessageMap() {}

void CCmdTarget_X::BeginWaitCursor()
{
    if (auto* widget = Imp<QWidget>())
        widget->setCursor(Qt::WaitCursor);
}

void CCmdTarget_X::EndWaitCursor()
{
    if (auto* widget = Imp<QWidget>())
        widget->unsetCursor();
}
