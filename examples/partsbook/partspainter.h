#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>

class MessageLog;
class QPainter;

/// What the user moves about on the drawing surface.
struct Marker
{
    QPoint centre;
    int radius;
    QColor colour;
};

/// The drawing surface: a grid and the marker.
void paintSurface(QPainter& painter, const QRect& area, const Marker& marker);

/// As many of the newest messages as there is room for, the newest at the bottom.
void paintMessages(QPainter& painter, const QRect& area, const MessageLog& log);
