#pragma once

#include "virtualinput.h"

#include <QSize>

#include <vector>

/// A user at the X server: besides keyboard and pointer, what the window manager lets a user do to the window of another
/// program.
class XUser : public VirtualInput
{
public:
    XUser();

    /// The window that the process `pid` shows, 0 as long as there is none.
    WId windowOfProcess(qint64 pid) const;
    bool hasFocus(WId window) const;
    QSize sizeOf(WId window) const;

    /// A key by its X name: "a", "Shift_L", "Return". An unknown name does nothing.
    void setNamedKey(const char* name, bool down);

    void resize(WId window, QSize size);
    /// Asks the window manager to close the window, as its close button does.
    void close(WId window);

private:
    /// The elements of a property of a window that holds 32-bit values.
    std::vector<unsigned long> property(WId window, const char* name) const;
};
