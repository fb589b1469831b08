// The main window under a user's hands.
#pragma once

#include "bookframe.h"
#include "virtualinput.h"

/// A book in the main window, and a user with a real mouse and keyboard.
class BookUser : protected BookFrame
{
protected:
    static constexpr unsigned long keyTab = 0xFF09;
    static constexpr unsigned long keyReturn = 0xFF0D;
    static constexpr unsigned long keyEscape = 0xFF1B;
    static constexpr unsigned long keyBackspace = 0xFF08;
    static constexpr unsigned long keyDown = 0xFF54;
    static constexpr unsigned long keyF2 = 0xFFBF;
    static constexpr unsigned long keyMenu = 0xFF67;
    static constexpr unsigned long keyShift = 0xFFE1;

    void comeUp(const QByteArray& book, const QString& fileName = "parts.csv");
    void goAway();

    QByteArray saved();

    QPoint onScreen(const QWidget* widget, QPoint place) const;
    void clickAt(QPoint place, unsigned button = 1);
    void type(const QString& text);
    void type(unsigned long key) { m_input.typeKey(key); }

    VirtualInput m_input;
};
