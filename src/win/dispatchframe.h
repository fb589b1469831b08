#pragma once

#include "xeafxwin.h"

namespace xe {

/// An event or message in progress on a wrapper. It lives on the stack; frames of one wrapper nest.
///
/// A handler may delete its wrapper. The wrapper's destructor then tells every frame, so whoever dispatched can ask
/// isAlive() before touching the wrapper again.
class DispatchFrame
{
public:
    /// An event from Qt, which the end of the frame takes off the wrapper's list of pending events.
    DispatchFrame(CWnd_X& window, QEvent* event)
        : m_window(&window),
          m_event(event),
          m_outer(window.m_dispatch),
          m_ownsEvent(true)
    {
        window.m_dispatch = this;
    }

    /// A message within whatever event is in progress.
    explicit DispatchFrame(CWnd_X& window)
        : m_window(&window),
          m_event(window.m_dispatch ? window.m_dispatch->m_event : nullptr),
          m_outer(window.m_dispatch),
          m_ownsEvent(false)
    {
        window.m_dispatch = this;
    }

    ~DispatchFrame()
    {
        if (!m_window)
            return;
        m_window->m_dispatch = m_outer;
        if (m_ownsEvent && !m_window->m_pendingEvents.isEmpty())
            m_window->forgetPending(m_event);
    }

    Q_DISABLE_COPY_MOVE(DispatchFrame)

    bool isAlive() const { return m_window; }
    QEvent* event() const { return m_event; }

    /// The wrapper is going: no frame from `innermost` outward may touch it any more.
    static void abandon(DispatchFrame* innermost)
    {
        for (DispatchFrame* frame = innermost; frame; frame = frame->m_outer)
            frame->m_window = nullptr;
    }

private:
    CWnd_X* m_window;
    QEvent* m_event;
    DispatchFrame* m_outer;
    bool m_ownsEvent;
};

} // namespace xe
