#include "msg/eventtranslation.h"
#include "win/dispatchframe.h"
#include "win/screening.h"
#include "win/signatures.h"
#include "win/viewport.h"
#include "xeafxwin.h"
#include "xehook.h"

#include <QPointer>
#include <QVarLengthArray>

#include <algorithm>

namespace {

// The end of an event whose handler is not called: PreTranslateMessage() has stopped it, or wrapper or widget are gone.
bool leaveUntold(const xe::DispatchFrame& frame, bool screened, bool acceptedBefore)
{
    QEvent& event = *frame.event();
    const bool hasTarget = frame.hasTarget();
    event.setAccepted(!hasTarget || (screened ? event.isAccepted() : acceptedBefore));
    return screened || !hasTarget;
}

} // namespace

// Not inlined into find(), which needs it for few messages.
Q_NEVER_INLINE CWnd_X::MappedMessage* CWnd_X::MessageMap::lineOf(UINT message)
{
    std::size_t i = message & m_mask;
    while (m_lines[i].call && m_lines[i].message != message)
        i = (i + 1) & m_mask;
    return &m_lines[i];
}

inline const CWnd_X::MappedMessage* CWnd_X::MessageMap::find(UINT message)
{
    if (m_lines.empty())
        return nullptr;
    const MappedMessage* line = &m_lines[message & m_mask];
    if (Q_UNLIKELY(line->message != message))
        line = lineOf(message);
    return line->call ? line : nullptr;
}

void CWnd_X::MessageMap::set(const MappedMessage& mapped)
{
    if (2 * (m_count + 1) > m_lines.size())
        grow();
    MappedMessage* const line = lineOf(mapped.message);
    m_count += !line->call;
    *line = mapped;
}

void CWnd_X::MessageMap::grow()
{
    constexpr std::size_t smallest = 16;
    std::vector<MappedMessage> smaller(std::max(smallest, 2 * m_lines.size()));
    smaller.swap(m_lines);
    m_mask = m_lines.size() - 1;
    for (const MappedMessage& mapped : smaller) {
        if (mapped.call)
            *lineOf(mapped.message) = mapped;
    }
}

void CWnd_X::AddMsgMapEntry(UINT message, unsigned long signature, AFX_PMSG_X handler, AFX_PMSG_X secondHandler)
{
    m_messageMap.set({message, xe::callerOf(signature), {signature, handler, secondHandler}});
}

void CWnd_X::OnMessageMap()
{
    using ThisClass = CWnd_X;
    CCmdTarget_X::OnMessageMap();
    ON_WM_NCDESTROY_X()
    ON_WM_DESTROY_X()
    ON_WM_SIZE_X()
    ConnectIdleSlot(this);
}

void CWnd_X::SetCurrentEventAccepted(bool accepted)
{
    if (m_dispatch && m_dispatch->event())
        m_dispatch->event()->setAccepted(accepted);
}

int CWnd_X::PreTranslateMessage(tagMSG*) { return 0; }

bool CWnd_X::eventFilter(QObject* target, QEvent* event)
{
    if (!target || !event)
        return event && filterUnusual(target, event, nullptr);
    const xe::EventRow* const row = xe::eventRow(event->type());
    return row && target == GetImpQObject() && !m_viewport ? filterMessage(target, event, *row)
                                                           : filterUnusual(target, event, row);
}

bool CWnd_X::filterUnusual(QObject* target, QEvent* event, const xe::EventRow* row)
{
    QObject* const window = GetImpQObject();
    if (target && window && target != window) {
        const bool isViewport = m_viewport && target == m_viewport->widget();
        return row && (isViewport ? filterViewport(event, *row) : filterTool(target, event, *row));
    }
    if (row && m_viewport && m_viewport->hasTold(*event))
        return false;
    return row ? filterMessage(target, event, *row) : filterWithoutMessage(target, event);
}

bool CWnd_X::filterViewport(QEvent* event, const xe::EventRow& row)
{
    if (!m_viewport->tells(*event))
        return false;
    const bool acceptedBefore = event->isAccepted();
    if (filterMessage(GetImpQObject(), event, row))
        return true;
    event->setAccepted(acceptedBefore); // else what the area takes would go on to its parents
    return false;
}

// What another object gets is for PreTranslateMessage() alone, which relays it to the tool tips.
bool CWnd_X::filterTool(QObject* tool, QEvent* event, const xe::EventRow& row)
{
    QObject* const window = xe::Viewport::windowOf(*tool);
    if (!xe::looksAtMessages(*this) || (window != tool && !xe::Viewport::isOfWindow(*event)))
        return false;
    const xe::DispatchFrame frame(*this, tool, event);
    xe::PointerPosition pointer;
    xe::MessageParameters message = row.translate(*tool, *event, pointer);
    const bool acceptedBefore = event->isAccepted();
    event->setAccepted(true);
    const bool isStopped = xe::screenMessage(*this, *window, message, pointer) || !frame.hasTarget();
    event->setAccepted(isStopped || acceptedBefore);
    return isStopped;
}

bool CWnd_X::filterWithoutMessage(QObject* target, QEvent* event)
{
    if (event->type() == XeMsgBoxEvent::EventType) {
        const xe::DispatchFrame frame(*this, target, event);
        showPostedBox(qobject_cast<QWidget*>(target), *static_cast<const XeMsgBoxEvent*>(event));
        event->setAccepted(true);
        return true;
    }
    if (!m_pendingEvents.isEmpty())
        forgetPending(event);
    return QObject::eventFilter(target, event);
}

bool CWnd_X::filterMessage(QObject* target, QEvent* event, const xe::EventRow& row)
{
    const xe::DispatchFrame frame(*this, target, event);
    xe::PointerPosition pointer;
    xe::MessageParameters message = row.translate(*target, *event, pointer);
    const bool acceptedBefore = event->isAccepted();
    event->setAccepted(true);
    if (Q_UNLIKELY(xe::looksAtMessages(*this))) {
        const bool screened = xe::screenMessage(*this, *target, message, pointer);
        if (screened || !frame.isAlive() || !frame.hasTarget())
            return leaveUntold(frame, screened, acceptedBefore);
    }
    // A window that holds the mouse is asked for no cursor: the moves of a drag come one after the other.
    if (row.followUp && (row.followUp != xe::askForCursor || !QWidget::mouseGrabber()))
        row.followUp(*target, *event, message.message);
    LRESULT result = 0;
    const bool handled = OnWndMsg(message.message, message.wParam, message.lParam, &result);

    if (Q_UNLIKELY(!frame.hasTarget())) {
        event->setAccepted(true); // Qt must go on neither with a widget that is gone nor from it to its parents
    } else if (!handled) {
        event->setAccepted(acceptedBefore);
        return false;
    } else if (!event->isAccepted()) {
        return event->type() == QEvent::Close; // stopped with the flag clear: the close is refused
    }
    if (event->type() == XeWinMsgEvent::EventType)
        static_cast<XeWinMsgEvent*>(event)->result = result;
    return true;
}

inline int CWnd_X::callEntry(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    const MappedMessage* const line = m_messageMap.find(message);
    return line ? line->call(*this, *m_dispatch, line->entry, wParam, lParam, result) : 0;
}

int CWnd_X::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    return m_dispatch && result && message != WM_SETCURSOR ? callEntry(message, wParam, lParam, *result)
                                                           : handleUnusual(message, wParam, lParam, result);
}

int CWnd_X::handleUnusual(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (!m_dispatch) {
        const xe::DispatchFrame frame(*this);
        return handleUnusual(message, wParam, lParam, result);
    }
    const xe::DispatchFrame& frame = *m_dispatch;
    LRESULT value = 0;
    const bool claimed = (message == WM_SETCURSOR && offerCursorToAncestors(frame, wParam, lParam, value))
                         || (frame.isAlive() && callEntry(message, wParam, lParam, value));
    if (claimed && result)
        *result = value;
    return claimed;
}

bool CWnd_X::offerCursorToAncestors(const xe::DispatchFrame& frame, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget || wParam != reinterpret_cast<WPARAM>(widget))
        return false;
    QVarLengthArray<QPointer<QWidget>, 8> ancestors;
    for (QWidget* w = widget; !w->isWindow() && w->parentWidget(); w = w->parentWidget())
        ancestors.append(w->parentWidget());
    for (auto it = ancestors.crbegin(); it != ancestors.crend() && frame.isAlive(); ++it) {
        CWnd_X* const window = FromHandlePermanent(*it);
        LRESULT answer = 0;
        if (window && window->OnWndMsg(WM_SETCURSOR, wParam, lParam, &answer) && answer) {
            result = answer;
            return true;
        }
        if (frame.isAlive() && !GetImpQObject())
            return true; // the widget is gone: nobody else may be asked about it
    }
    return false;
}
