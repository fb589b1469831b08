#include "win/animationkeeper.h"

#include "win/dispatchframe.h"

#include <QAbstractAnimation>
#include <QApplication>

#include <algorithm>

namespace xe {

namespace {

bool isBeingResized(const QWidget* widget)
{
    const CWnd_X* const window = CWnd_X::FromHandlePermanent(const_cast<QWidget*>(widget));
    return window && DispatchFrame::isHandling(*window, QEvent::Resize);
}

} // namespace

AnimationKeeper::AnimationKeeper()
{
    const QWidgetList widgets = QApplication::allWidgets();
    if (std::any_of(widgets.begin(), widgets.end(), isBeingResized))
        qApp->installEventFilter(this);
}

AnimationKeeper::~AnimationKeeper()
{
    qApp->removeEventFilter(this);
    for (const QPointer<QObject>& animation : m_kept) {
        if (animation)
            animation->deleteLater();
    }
}

bool AnimationKeeper::eventFilter(QObject* target, QEvent* event)
{
    if (event->type() != QEvent::DeferredDelete || !qobject_cast<QAbstractAnimation*>(target))
        return false;
    m_kept.emplace_back(target);
    return true;
}

} // namespace xe
