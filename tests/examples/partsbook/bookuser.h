// The main window under a user's hands.
#pragma once

#include "mainframe.h"
#include "partsview.h"
#include "virtualinput.h"

#include <QAction>
#include <QTemporaryDir>
#include <xeresource.h>

/// A book in the main window, and a user with a real mouse and keyboard.
class BookUser
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

    QWidget* window() const { return m_frame->GetSafeHwnd(); }
    PartsView table() const { return PartsView(*window()); }
    QAction* command(unsigned id) const { return window()->findChild<QAction*>(ToStringId(id)); }
    QString path() const { return m_path; }
    QByteArray saved();

    QPoint onScreen(const QWidget* widget, QPoint place) const;
    void clickAt(QPoint place, unsigned button = 1);
    void type(const QString& text);
    void type(unsigned long key) { m_input.typeKey(key); }

    VirtualInput m_input;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<CMainFrame> m_frame;

private:
    QString m_path;
};
