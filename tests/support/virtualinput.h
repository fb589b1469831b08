#pragma once

#include <QPoint>
#include <QSet>
#include <qwindowdefs.h>

/// The keyboard and the pointer of the X server named by DISPLAY, worked through its XTEST extension: whoever asks the
/// server, or gets events from it, cannot tell them from real ones.
///
/// Every call has taken effect at the server when it returns. Keys do not repeat by themselves meanwhile. What is still
/// down at the end is let go.
class VirtualInput
{
public:
    VirtualInput();
    ~VirtualInput();
    Q_DISABLE_COPY_MOVE(VirtualInput)

    /// False where there is no X server with XTEST.
    bool isUsable() const { return m_display; }

    void setKey(unsigned long keysym, bool down);
    void pressKey(unsigned long keysym) { setKey(keysym, true); }
    void releaseKey(unsigned long keysym) { setKey(keysym, false); }
    /// Presses and releases.
    void typeKey(unsigned long keysym);

    /// Sees to it that some key has this symbol: one that has none so far gets it. False if all keys are taken.
    bool provideKey(unsigned long keysym);
    /// Lends the symbol a key with no other symbol, until the next call. From then on that key is the one that
    /// pressKey() presses, unless the symbol is the first one of another key. False if it is.
    bool lendKey(unsigned long keysym);

    /// Buttons as X counts them: 1 left, 2 middle, 3 right, 4 wheel up, 5 wheel down.
    void setButton(unsigned button, bool down);
    void pressButton(unsigned button) { setButton(button, true); }
    void releaseButton(unsigned button) { setButton(button, false); }
    void clickButton(unsigned button);

    /// Moves the pointer to a place on the screen, in pixels.
    void movePointer(QPoint position);
    /// Where a window's client area is on the screen, as the server has it.
    QPoint windowOrigin(WId window) const;

    /// Lets go of all keys and buttons that are down.
    void releaseAll();

protected:
    void* m_display = nullptr; // a Display; the X headers' macros stay out of the tests

private:
    void setCode(unsigned code, bool down);
    bool mapCode(unsigned code, unsigned long keysym);
    unsigned freeCode() const;

    unsigned m_lentCode = 0;
    QSet<unsigned> m_codesDown;
    QSet<unsigned> m_buttonsDown;
};
