#pragma once

#include "virtualinput.h"

#include <QSize>
#include <QString>

#include <vector>

/// A user at the X server: besides keyboard, pointer and screen, what the window manager lets a user do to the window
/// of another program.
class XUser : public VirtualInput
{
public:
    XUser();

    /// The window of the process `pid` whose title begins like this, 0 as long as there is none.
    WId windowOfProcess(qint64 pid, const QString& title) const;
    bool hasFocus(WId window) const;
    QSize sizeOf(WId window) const;
    /// What is on the screen at a place, 0 outside it.
    unsigned long pixelAt(QPoint position) const;

    /// A key by its X name: "a", "Shift_L", "Return". An unknown name does nothing.
    void setNamedKey(const char* name, bool down);
    /// Presses keys, one after the other, and lets go of them in the opposite order: "Control_L s".
    void press(const QString& names);
    /// Types what the keyboard has without Shift.
    void type(const QString& text);

    void resize(WId window, QSize size);
    /// Asks the window manager to close the window, as its close button does.
    void close(WId window);

private:
    QString titleOf(WId window) const;
    /// The elements of a property of a window that holds 32-bit values.
    std::vector<unsigned long> property(WId window, const char* name) const;
};
