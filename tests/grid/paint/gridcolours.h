#pragma once

#include <XeGridCtrl.h>
#include <xecolor.h>

// Colours that nothing else has, and that of an image on which nothing has been painted yet.
constexpr QRgb text = qRgb(250, 250, 200);
constexpr QRgb background = qRgb(90, 90, 120);
constexpr QRgb fixedBack = qRgb(200, 210, 220);
constexpr QRgb line = qRgb(1, 200, 3);
constexpr QRgb fresh = qRgb(158, 158, 158);

inline COLORREF toColorRef(QRgb colour) { return RGB(qRed(colour), qGreen(colour), qBlue(colour)); }

inline void setColours(CGridCtrl_X& grid)
{
    grid.m_crTextBkColour = toColorRef(text);
    grid.m_crBkColour = toColorRef(background);
    grid.m_crFixedBkColour = toColorRef(fixedBack);
    grid.m_crGridColour = toColorRef(line);
}
