/// @file xecolor.h
/// Colours of the system, and conversions of colours.
///
/// A colour is 0x00BBGGRR: red in the lowest byte. The highest byte is not looked at and is 0 in results.
#pragma once

#include "xedef.h"

// ------------------------------------------------------------------------------------------------ colours and channels

#if !defined(RGB) // a host may have brought them along as macros
/// The colour of three channels from 0 to 255, of which the lowest 8 bits are taken.
constexpr COLORREF RGB(int red, int green, int blue)
{
    return static_cast<COLORREF>((red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16);
}
/// The channels of a colour.
constexpr BYTE GetRValue(COLORREF color) { return static_cast<BYTE>(color); }
constexpr BYTE GetGValue(COLORREF color) { return static_cast<BYTE>(color >> 8); }
constexpr BYTE GetBValue(COLORREF color) { return static_cast<BYTE>(color >> 16); }
#endif

// ------------------------------------------------------------------------------------------------ the system's colours

inline constexpr int COLOR_MENU = 4;
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_MENUTEXT = 7;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_3DSHADOW = COLOR_BTNSHADOW;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_3DHIGHLIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_BTNHILIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_3DHILIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;

/// A colour of a fixed table, whatever the desktop's palette. 0 for an index that is not in it.
XE_EXPORT COLORREF GetSysColor_X(int index);

// ------------------------------------------------------------------------------------------ hue, luminance, saturation

/// Writes the hue, luminance and saturation of a colour, each from 0 to 240. A grey has hue 160 and saturation 0. Null
/// outputs are left out.
XE_EXPORT void ColorRGBToHLS_X(COLORREF color, WORD* hue, WORD* luminance, WORD* saturation);

/// The colour of a hue, luminance and saturation from 0 to 240. Beyond that the hue is taken around the circle, and
/// each channel keeps its low 8 bits.
XE_EXPORT COLORREF ColorHLSToRGB_X(WORD hue, WORD luminance, WORD saturation);

/// The colour with its luminance raised by `n` / 1000 of its 240 steps if `scale`, by `n` / 4.17 steps if not. A
/// luminance above 240 becomes 240; so does one below 0, since it is held without a sign.
XE_EXPORT COLORREF ColorAdjustLuma_X(COLORREF color, int n, BOOL scale);
