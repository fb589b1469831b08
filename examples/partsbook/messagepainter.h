#pragma once

#include <QRect>

class MessageLog;
class QPainter;
class QString;

/// A heading with a note on its right, and below it as many of the newest messages as there is room for, the newest at
/// the bottom.
void paintMessages(QPainter& painter, const QRect& area, const MessageLog& log, const QString& note);
