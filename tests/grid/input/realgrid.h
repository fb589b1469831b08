#pragma once

#include "gridwindow.h"
#include "virtualinput.h"

#include <QGuiApplication>

/// A grid on the real screen, that is active.
struct RealGrid : GridWindow<>
{
    explicit RealGrid(VirtualInput& virtualInput, int rows = 40, int cols = 5)
        : GridWindow<>(rows, cols),
          input(virtualInput)
    {
        fill();
    }

    bool isReady()
    {
        if (!comeUp() || !QTest::qWaitForWindowExposed(window.GetSafeHwnd()))
            return false;
        const auto isPlaced = [this] {
            return widget->mapToGlobal({0, 0}) == input.windowOrigin(widget->window()->winId());
        };
        return QTest::qWaitFor(isPlaced);
    }
    void moveTo(QPoint point)
    {
        input.movePointer(widget->mapToGlobal(point));
        settle();
    }
    void click(int row, int col)
    {
        moveTo(middleOf(row, col));
        input.clickButton(1);
    }
    void press()
    {
        input.pressButton(1);
        settle();
    }
    void release()
    {
        input.releaseButton(1);
        settle();
    }
    void type(unsigned long keysym)
    {
        input.typeKey(keysym);
        settle();
    }
    static void settle()
    {
        QGuiApplication::sync();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
    }

    VirtualInput& input;
};
