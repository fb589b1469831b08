#include "win/dispatchframe.h"

namespace xe {

void DispatchFrame::abandon(DispatchFrame* innermost)
{
    keepTargets(innermost);
    for (DispatchFrame* frame = innermost; frame; frame = frame->m_outer)
        frame->m_window = nullptr;
}

void DispatchFrame::keepTargets(DispatchFrame* innermost)
{
    for (DispatchFrame* frame = innermost; frame; frame = frame->m_outer) {
        if (!frame->m_guard)
            frame->guard(frame->m_window->m_attached);
    }
}

void DispatchFrame::guard(QObject* target) { m_guard = std::make_unique<QPointer<QObject>>(target); }

} // namespace xe
