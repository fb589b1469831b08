// The first look at a message.
#pragma once

#include "core/overrides.h"
#include "msg/eventtranslation.h"
#include "xeafxwin.h"

namespace xe {

namespace detail {

/// What CWnd_X itself runs as PreTranslateMessage(), null until it has been asked for.
extern const void* plainScreening;

bool isScreeningOverridden(const void* screening);

} // namespace detail

/// Whether PreTranslateMessage() is overridden: only then does anybody see the whole record of a message. Asked anew
/// each time, since a class may attach in its constructor and only the class behind it have the override.
inline bool looksAtMessages(const CWnd_X& window)
{
    const void* const screening = virtualTarget(&window, &CWnd_X::PreTranslateMessage);
    return !screening || Q_UNLIKELY(screening != detail::plainScreening && detail::isScreeningOverridden(screening));
}

/// Shows a message, with its time and the pointer's place, to the window's PreTranslateMessage(), which may change it.
/// Gives whether that ends its handling. The window may be gone afterwards.
bool screenMessage(CWnd_X& window, QObject& target, MessageParameters& message, PointerPosition& pointer);

} // namespace xe
