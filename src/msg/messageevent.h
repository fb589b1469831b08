#pragma once

#include "xedef.h"

#include <QEvent>

#include <memory>

class QWidget;

namespace xe {

/// The real Qt event that stands for a message, null for one that travels in an XeWinMsgEvent.
std::unique_ptr<QEvent> qtEventForMessage(const QWidget* target, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace xe
