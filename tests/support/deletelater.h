#pragma once

#include <QCoreApplication>
#include <QEvent>

/// Deletes at once what deleteLater() has been called for.
inline void deleteLaterObjects() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
