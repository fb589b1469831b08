// Which Qt events have a message, and what it is.
#pragma once

#include "xeafxmsg.h"

#include <QCursor>
#include <QPoint>

#include <array>
#include <cstddef>
#include <iterator>
#include <optional>

class QWidget;

namespace xe {

/// Where the pointer is, asked for once at most: on an X server each question is a round trip.
class PointerPosition
{
public:
    QPoint get()
    {
        if (!m_position)
            m_position = QCursor::pos();
        return *m_position;
    }

private:
    std::optional<QPoint> m_position;
};

/// What a translation takes from an event.
struct MessageParameters
{
    UINT message;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

using Translator = MessageParameters (*)(const QObject& target, const QEvent& event, PointerPosition& pointer);

template <UINT message>
MessageParameters translatePlain(const QObject&, const QEvent&, PointerPosition&)
{
    return {message};
}
MessageParameters translateTimer(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateMouseMove(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateMouseButton(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateKey(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateResize(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateActivation(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateWheel(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateContextMenu(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateHover(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateFrameRelease(const QObject& target, const QEvent& event, PointerPosition& pointer);
MessageParameters translateCarrier(const QObject& target, const QEvent& event, PointerPosition& pointer);

/// Posts what comes behind an event that was translated to `message`. 1 for the cursor and for a key with text, else 0.
using FollowUp = int (*)(QObject& target, const QEvent& event, UINT message);

int askForCursor(QObject& target, const QEvent& event, UINT message);
int postCharacters(QObject& target, const QEvent& event, UINT message);

/// An event type that has a message.
struct EventRow
{
    int type;
    bool shownToHooks; ///< whether hooks and message functions may see it
    Translator translate;
    FollowUp followUp = nullptr;
};

inline constexpr EventRow eventRows[] = {
    {QEvent::Timer, true, translateTimer},
    {QEvent::MouseButtonPress, true, translateMouseButton, askForCursor},
    {QEvent::MouseButtonRelease, true, translateMouseButton, askForCursor},
    {QEvent::MouseButtonDblClick, true, translateMouseButton, askForCursor},
    {QEvent::MouseMove, true, translateMouseMove, askForCursor},
    {QEvent::KeyPress, true, translateKey, postCharacters},
    {QEvent::KeyRelease, true, translateKey},
    {QEvent::Leave, false, translatePlain<WM_MOUSELEAVE>},
    {QEvent::Paint, false, translatePlain<WM_PAINT>},
    {QEvent::Resize, false, translateResize},
    {QEvent::Close, true, translatePlain<WM_CLOSE>},
    {QEvent::WindowActivate, false, translateActivation},
    {QEvent::WindowDeactivate, false, translateActivation},
    {QEvent::ShowToParent, false, translatePlain<WM_SHOWWINDOW>},
    {QEvent::Wheel, true, translateWheel},
    {QEvent::ContextMenu, true, translateContextMenu},
    {QEvent::HoverEnter, false, translateHover},
    {QEvent::HoverLeave, false, translateHover},
    {QEvent::NonClientAreaMouseButtonRelease, true, translateFrameRelease},
    {XeWinMsgEvent::EventType, false, translateCarrier}, // the last
};

namespace detail {

constexpr int qtTypeCount = 256;
using RowsByType = std::array<const EventRow*, qtTypeCount>;

constexpr RowsByType rowsByType()
{
    RowsByType rows{};
    for (std::size_t i = 0; i + 1 < std::size(eventRows); ++i)
        rows[static_cast<std::size_t>(eventRows[i].type)] = &eventRows[i];
    return rows;
}

inline constexpr RowsByType rows = rowsByType();

} // namespace detail

/// The row of an event type, null for one without a message. Every event of every wrapped widget passes here.
constexpr const EventRow* eventRow(int type)
{
    if (type >= 0 && type < detail::qtTypeCount)
        return detail::rows[static_cast<std::size_t>(type)];
    return type == XeWinMsgEvent::EventType ? &eventRows[std::size(eventRows) - 1] : nullptr;
}

/// The message of an event whose type has a row, without time and pointer position.
inline tagMSG translateEvent(const EventRow& row, QObject& target, const QEvent& event, PointerPosition& pointer)
{
    const MessageParameters parameters = row.translate(target, event, pointer);
    return {&target, parameters.message, parameters.wParam, parameters.lParam, 0, {0, 0}};
}

/// The modifiers as key messages carry them: MK_ flags in bits 16 to 21, where Windows has the scan code.
LPARAM keyFlags(Qt::KeyboardModifiers modifiers);

/// Fills in what only those who see the whole record can look at: time and pointer position.
void stampMessage(tagMSG& message, PointerPosition& pointer);

/// The hit code of a press on a window's frame, with the pointer at `cursor` on the screen.
int frameHitCode(const QWidget& widget, QPoint cursor);

} // namespace xe
