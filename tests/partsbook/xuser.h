#pragma once

#include <QPoint>
#include <QSize>

#include <memory>
#include <set>

struct _XDisplay;

/// A user at the X server: the pointer, the buttons, the keys, and what the window manager lets a user do to a window.
/// Everything is real input to whatever window is there.
class XUser
{
public:
    using Window = unsigned long;

    XUser();
    ~XUser();
    Q_DISABLE_COPY_MOVE(XUser)

    bool isConnected() const { return m_display; }

    /// The window that the process `pid` shows, 0 as long as there is none.
    Window windowOfProcess(qint64 pid) const;
    bool hasFocus(Window window) const;
    QPoint positionOnScreen(Window window) const;
    QSize sizeOf(Window window) const;

    void moveTo(QPoint screenPoint);
    void setButton(unsigned button, bool down);
    /// Keys go by their X name: "a", "Shift_L", "Return". An unknown name does nothing.
    void setKey(const char* name, bool down);
    /// Lets go of every key and button still held.
    void releaseEverything();

    void resize(Window window, QSize size);
    /// Asks the window manager to close the window, as its close button does.
    void close(Window window);

private:
    unsigned long atom(const char* name) const;
    /// The elements of a property of a window that holds 32-bit values.
    std::unique_ptr<unsigned long[]> property(Window window, const char* name, unsigned long& count) const;
    void setKey(unsigned keyCode, bool down);

    _XDisplay* m_display;
    std::set<unsigned> m_buttonsDown;
    std::set<unsigned> m_keysDown;
};
