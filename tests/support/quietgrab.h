#pragma once

#include <QMessageLogContext>
#include <QString>

/// Says that a test grabs the mouse on the offscreen platform, of which Qt warns each time although the grab works
/// inside the program. All other messages go on to QtTest.
///
/// To be called in initTestCase(): QtTest puts its own handler in place just before that.
inline void allowOffscreenGrab()
{
    static QtMessageHandler qtTest = nullptr;
    const auto handler = [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
        if (message != QLatin1String("This plugin does not support grabbing the mouse"))
            qtTest(type, context, message);
    };
    qtTest = qInstallMessageHandler(handler);
}
