#pragma once

#include <QAbstractEventDispatcher>
#include <QEventLoop>

/// Runs the event loop until it has nothing left to do and is about to wait.
inline void idle(int times = 1)
{
    for (int i = 0; i < times; ++i) {
        QEventLoop loop;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop,
                         &QEventLoop::quit);
        loop.exec();
    }
}
