#pragma once

#include <xeafxdc.h>

#include <QImage>
#include <QStringList>

/// A small white image to paint on, and what is on it as text: '.' for white, '#' black, 'r', 'g', 'b' for red, green
/// and blue, '?' for any other colour; ' ' where nothing opaque is.
class Canvas
{
public:
    explicit Canvas(int width = 8, int height = 8, qreal ratio = 1)
        : image(width, height, QImage::Format_ARGB32_Premultiplied)
    {
        image.fill(Qt::white);
        image.setDevicePixelRatio(ratio);
    }

    QString view() const { return view(image); }

    static QString view(const QImage& picture)
    {
        QStringList rows;
        for (int y = 0; y < picture.height(); ++y) {
            QString row;
            for (int x = 0; x < picture.width(); ++x)
                row += letter(picture.pixel(x, y));
            rows += row;
        }
        return rows.join('\n');
    }

    QImage image;

private:
    static QChar letter(QRgb color)
    {
        switch (color) {
        case 0xFFFFFFFF:
            return '.';
        case 0xFF000000:
            return '#';
        case 0xFFFF0000:
            return 'r';
        case 0xFF00FF00:
            return 'g';
        case 0xFF0000FF:
            return 'b';
        default:
            return qAlpha(color) == 255 ? '?' : ' ';
        }
    }
};

/// Lines of a view.
inline QString lines(std::initializer_list<const char*> rows)
{
    QStringList all;
    for (const char* row : rows)
        all += row;
    return all.join('\n');
}
