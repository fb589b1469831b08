// The first look at a message.
#pragma once

#include "core/overrides.h"
#include "msg/eventtranslation.h"
#include "xeafxwin.h"

namespace xe {

/// Whether PreTranslateMessage() is overridden: only then does anybody see the whole record of a message. Asked anew
/// each time, since a class may attach in its constructor and only the class behind it have the override.
inline bool looksAtMessages(const CWnd_X& window)
{
    static const void* const base = [] {
        const CWnd_X plain;
        return virtualTarget(&plain, &CWnd_X::PreTranslateMessage);
    }();
    return !base || virtualTarget(&window, &CWnd_X::PreTranslateMessage) != base;
}

/// Shows a message, with its time and the pointer's place, to the window's PreTranslateMessage(), which may change it.
/// Gives whether that ends its handling. The window may be gone afterwards.
inline bool screenMessage(CWnd_X& window, QObject& target, MessageParameters& message, PointerPosition& pointer)
{
    tagMSG record = {&target, message.message, message.wParam, message.lParam, 0, {0, 0}};
    stampMessage(record, pointer);
    const bool screened = window.PreTranslateMessage(&record);
    message = {record.message, record.wParam, record.lParam};
    return screened;
}

} // namespace xe
