#pragma once

#include "xeafxwin.h"

#include <QEvent>
#include <QPointer>

#include <memory>

namespace xe {

/// An event or message in progress on a wrapper. It lives on the stack; frames of one wrapper nest.
///
/// A handler may delete its wrapper, the widget or both. The wrapper's destructor tells every frame, so whoever
/// dispatched can ask isAlive() before touching the wrapper again, and hasTarget() before touching the widget.
class DispatchFrame
{
public:
    /// An event from Qt, which the end of the frame takes off the wrapper's list of pending events.
    DispatchFrame(CWnd_X& window, QObject* target, QEvent* event)
        : m_window(&window),
          m_event(event),
          m_outer(window.m_dispatch),
          m_target(target)
    {
        if (Q_UNLIKELY(window.m_attached != target))
            guard(target);
        window.m_dispatch = this;
    }

    /// A message without an event of its own.
    explicit DispatchFrame(CWnd_X& window) : m_window(&window) { window.m_dispatch = this; }

    ~DispatchFrame()
    {
        if (Q_UNLIKELY(!m_window))
            return;
        m_window->m_dispatch = m_outer;
        if (Q_UNLIKELY(!m_window->m_pendingEvents.isEmpty()))
            m_window->forgetPending(m_event);
    }

    Q_DISABLE_COPY_MOVE(DispatchFrame)

    bool isAlive() const { return m_window; }
    QEvent* event() const { return m_event; }

    /// Whether the object that the event came to is still there, the wrapper's or not.
    bool hasTarget() const { return Q_UNLIKELY(m_guard) ? !m_guard->isNull() : m_window->m_attached == m_target; }

    /// Whether the wrapper is being told of an event of a type.
    static bool isHandling(const CWnd_X& window, QEvent::Type type)
    {
        const DispatchFrame* frame = window.m_dispatch;
        while (frame && (!frame->m_event || frame->m_event->type() != type))
            frame = frame->m_outer;
        return frame;
    }

    /// The wrapper is going: no frame from `innermost` outward may touch it any more.
    static void abandon(DispatchFrame* innermost);

    /// The wrapper is about to forget the widget that it was attached to. A frame looks after its target by a pointer
    /// of its own from then on; before, the wrapper's serves all, since making one for each event takes longer than the
    /// rest.
    static void keepTargets(DispatchFrame* innermost);

private:
    void guard(QObject* target);

    CWnd_X* m_window;
    QEvent* m_event = nullptr;
    DispatchFrame* m_outer = nullptr;
    QObject* m_target = nullptr;
    std::unique_ptr<QPointer<QObject>> m_guard; // the target, once the wrapper's own pointer is not to be relied on
};

} // namespace xe
