#pragma once

#include "virtualinput.h"

#include <xeafxwin.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTest>

/// A wrapped window on the real screen: shown, active, and with the pointer over it.
///
/// Window is a wrapper class. Where the window is, is asked from the X server and not from Qt.
template <class Window>
class RealWindow
{
public:
    /// Takes over a top-level widget.
    explicit RealWindow(VirtualInput& input, QWidget* widget = new QWidget) : m_input(input), m_widget(widget)
    {
        m_widget->setGeometry(200, 150, 300, 200);
        m_widget->setMouseTracking(true);
        wrapper.SubclassWindow(widget);
    }

    /// Call it once, inside QVERIFY.
    bool comeUp()
    {
        m_input.movePointer({1200, 1000});
        m_widget->show();
        const auto isActive = [this] {
            m_widget->activateWindow(); // a window manager that has just begun leaves its first windows without focus
            return m_widget->isActiveWindow();
        };
        if (!QTest::qWaitForWindowExposed(m_widget.get()) || !QTest::qWaitFor(isActive))
            return false;
        const auto isPlaced = [this] { return m_widget->mapToGlobal({0, 0}) == origin(); };
        if (!QTest::qWaitFor(isPlaced))
            return false;
        movePointer({5, 5});
        return QTest::qWaitFor([this] { return m_widget->underMouse(); });
    }

    QWidget* widget() const { return m_widget.get(); }
    void movePointer(QPoint local) { m_input.movePointer(origin() + local); }
    QPoint origin() const { return m_input.windowOrigin(m_widget->winId()); }

    /// Has everything handled that the server has sent so far, and what was posted in turn.
    static void settle()
    {
        QGuiApplication::sync();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }

private:
    VirtualInput& m_input;
    std::unique_ptr<QWidget> m_widget;

public:
    Window wrapper; ///< goes before the widget
};
