#pragma once

#include <xehook.h>

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <QWidget>
#include <QWidgetList>

/// Finds what a test has left behind: top-level widgets, hooks and message functions, timers, grabs of mouse and
/// keyboard. What the next idle moment takes away (temporary wrappers, objects deleted later) is taken away first and
/// does not count.
///
/// A test class says it once for all its functions and rows:
/// @code
/// void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }
/// @endcode
/// A single function may have it as its first local object instead, which fails the test when it goes.
class LeaveNothing
{
public:
    LeaveNothing() = default;
    ~LeaveNothing()
    {
        const QString left = leftovers();
        if (!left.isEmpty())
            QTest::qFail(qPrintable(QStringLiteral("left behind: ") + left), __FILE__, __LINE__);
    }
    Q_DISABLE_COPY_MOVE(LeaveNothing)

    /// What is there now as one line, such as "window QLabel 'title', hook, 2 timers"; empty if nothing is.
    static QString leftovers()
    {
        settle();
        QStringList found;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget* window : windows)
            found += QStringLiteral("window ") + describe(*window);
        if (const QWidget* grabber = QWidget::mouseGrabber())
            found += QStringLiteral("mouse grab of ") + describe(*grabber);
        if (const QWidget* grabber = QWidget::keyboardGrabber())
            found += QStringLiteral("keyboard grab of ") + describe(*grabber);
        if (!GetGlobalEventHandler()->IsEmptyHookChain())
            found += QStringLiteral("hook");
        if (const auto timers = GetGlobalEventHandler()->timers.size())
            found += QStringLiteral("%1 timers").arg(timers);
        found.sort();
        return found.join(QLatin1String(", "));
    }

private:
    static void settle()
    {
        ClearTempObjectPool();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QString describe(const QWidget& widget)
    {
        return QStringLiteral("%1 '%2'").arg(QLatin1String(widget.metaObject()->className()), widget.objectName());
    }
};
