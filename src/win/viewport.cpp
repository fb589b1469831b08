#include "win/viewport.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <tuple>

namespace xe {

std::unique_ptr<Viewport> Viewport::of(QWidget& widget, QObject& wrapper)
{
    const auto* const area = qobject_cast<QAbstractScrollArea*>(&widget);
    return area ? std::make_unique<Viewport>(*area->viewport(), wrapper) : nullptr;
}

QObject* Viewport::windowOf(QObject& object)
{
    auto* const area = qobject_cast<QAbstractScrollArea*>(object.parent());
    return area && area->viewport() == &object ? area : &object;
}

Viewport::Viewport(QWidget& viewport, QObject& wrapper) : m_widget(&viewport), m_wrapper(wrapper)
{
    viewport.installEventFilter(&wrapper);
}

Viewport::~Viewport()
{
    if (m_widget)
        m_widget->removeEventFilter(&m_wrapper);
}

bool Viewport::Trace::operator==(const Trace& other) const
{
    return std::tie(type, globalPosition, timestamp) == std::tie(other.type, other.globalPosition, other.timestamp);
}

Viewport::Trace Viewport::traceOf(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        return {event.type(), mouse.globalPos(), mouse.timestamp()};
    }
    case QEvent::Wheel: {
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        return {event.type(), wheel.globalPosition().toPoint(), wheel.timestamp()};
    }
    case QEvent::ContextMenu: // loses its time on the way
        return {event.type(), static_cast<const QContextMenuEvent&>(event).globalPos(), 0};
    default:
        return {};
    }
}

bool Viewport::tells(const QEvent& event)
{
    const Trace trace = traceOf(event);
    if (trace.type == QEvent::None)
        return false;
    m_told = trace;
    return true;
}

bool Viewport::hasTold(const QEvent& event)
{
    const bool told = event.type() == m_told.type && traceOf(event) == m_told;
    if (told)
        m_told = {};
    return told;
}

} // namespace xe
