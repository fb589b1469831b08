/// @file xeafxdlg.h
/// Message boxes.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"

#include <QEvent>

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDCLOSE = 8;

/// Shows a message box over `owner` (the host's main window if null) and waits for the answer. `style` holds one of
/// MB_OK to MB_CANCELTRYCONTINUE, an icon and a default button. An empty or null caption becomes one that fits the icon.
///
/// Without an icon in `style` the box is a warning, and a box with Yes and No has no default button. The result is the
/// id of the button, 6 also for "continue", and 8 for a box that was closed without an answer.
XE_EXPORT int MessageBox_X(QWidget* owner, const wchar_t* text, const wchar_t* caption, unsigned style);

/// Puts up a message box from the event queue of a wrapped window, when whatever is now on the stack has unwound.
class XE_EXPORT XeMsgBoxEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = static_cast<QEvent::Type>(QEvent::User + 129);

    XeMsgBoxEvent(CString_X message, CString_X title);
    ~XeMsgBoxEvent() override;

    CString_X text;
    CString_X caption;
    unsigned style = 0; ///< not read: the box is shown with style 0
};
