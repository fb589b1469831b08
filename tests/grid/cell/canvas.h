#pragma once

#include "gridsupport.h"

#include <xeafxdc.h>
#include <xeafxgdi.h>

constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb black = 0xFF000000;
constexpr QRgb red = 0xFFFF0000;
constexpr QRgb blue = 0xFF0000FF;
constexpr QRgb highlight = 0xFF0078D7;

/// A canvas of 120 x 60, all white, with a grid of 4 x 4 whose cells paint on it.
struct Canvas
{
    Canvas() : image(120, 60, QImage::Format_RGBX8888), grid(4, 4, 1, 1)
    {
        image.fill(QColor(white));
        grid.m_nGridLines = 3;
        picture = QImage(10, 8, QImage::Format_RGB32);
        picture.fill(QColor(red));
        bitmap.Attach(&picture);
        list.Add(&bitmap, nullptr);
        grid.m_pImageList = &list;
    }
    ~Canvas() { bitmap.Detach(); }

    int draw(int row, int col, CRect rect = CRect(10, 10, 79, 39), int erase = 0)
    {
        CDC_X dc(&image);
        return grid.cellAt(row, col)->Draw(&dc, row, col, rect, nullptr, erase);
    }
    QRgb at(int x, int y) const { return image.pixel(x, y) | 0xFF000000; }
    /// The rectangle that holds all pixels of another colour than white.
    QRect painted() const
    {
        QRect all;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                all |= at(x, y) != white ? QRect(x, y, 1, 1) : QRect();
        }
        return all;
    }
    /// Where pixels of a colour are.
    QRect where(QRgb colour) const
    {
        QRect all;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                all |= at(x, y) == colour ? QRect(x, y, 1, 1) : QRect();
        }
        return all;
    }

    QImage image;
    QImage picture;
    CBitmap_X bitmap;
    CImageList_X list;
    CGridCtrl_X grid;
};

inline QRect corners(int left, int top, int right, int bottom) { return {QPoint(left, top), QPoint(right, bottom)}; }
