#pragma once

#include <QEvent>
#include <QString>

/// What became of an event that a wrapper's filter has seen.
inline QString outcome(bool stopped, const QEvent& event)
{
    if (!stopped)
        return event.isAccepted() ? QStringLiteral("passed on, flag as before") : QStringLiteral("passed on");
    return event.isAccepted() ? QStringLiteral("consumed") : QStringLiteral("stopped, flag clear");
}
