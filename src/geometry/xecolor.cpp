#include "xecolor.h"

#include <algorithm>
#include <iterator>

namespace {

struct SysColor
{
    int index;
    COLORREF colour;
};

constexpr SysColor sysColors[] = {
    {COLOR_MENU, 0xF0F0F0},       {COLOR_WINDOW, 0xFFFFFF},       {COLOR_MENUTEXT, 0x000000},
    {COLOR_WINDOWTEXT, 0x000000}, {COLOR_HIGHLIGHT, 0xD77800},    {COLOR_HIGHLIGHTTEXT, 0xFFFFFF},
    {COLOR_BTNFACE, 0xF0F0F0},    {COLOR_BTNSHADOW, 0xA0A0A0},    {COLOR_GRAYTEXT, 0x6D6D6D},
    {COLOR_BTNTEXT, 0x000000},    {COLOR_BTNHIGHLIGHT, 0xFFFFFF}, {COLOR_INFOTEXT, 0x000000},
    {COLOR_INFOBK, 0xE1FFFF},
};

constexpr int range = 240; // the largest hue, luminance and saturation
constexpr int greyHue = 160;

struct Hls
{
    WORD hue;
    WORD luminance;
    WORD saturation;
};

struct Channels
{
    explicit Channels(COLORREF color) : red(color & 0xFF), green(color >> 8 & 0xFF), blue(color >> 16 & 0xFF) {}

    int red;
    int green;
    int blue;
};

int hueOf(const Channels& color, int high, int low)
{
    const int spread = high - low;
    const auto share = [=](int channel) { return (high * 40 + spread / 2 - channel * 40) / spread; };
    int hue;
    if (color.red == high)
        hue = share(color.blue) - share(color.green);
    else if (color.green == high)
        hue = share(color.red) + 80 - share(color.blue);
    else
        hue = share(color.green) + 160 - share(color.red);
    return hue < 0 ? hue + range : hue > range ? hue - range : hue;
}

Hls toHls(COLORREF color)
{
    const Channels channels(color);
    const auto [low, high] = std::minmax({channels.red, channels.green, channels.blue});
    const int sum = high + low;
    const int luminance = (sum * range + 255) / 510;
    if (high == low)
        return {greyHue, static_cast<WORD>(luminance), 0};
    const int whole = luminance <= 120 ? sum : 510 - sum;
    const int saturation = ((high - low) * range + whole / 2) / whole;
    return {static_cast<WORD>(hueOf(channels, high, low)), static_cast<WORD>(luminance), static_cast<WORD>(saturation)};
}

// 64 bits hold the products of any 16-bit input.
COLORREF channelOf(long long m1, long long m2, int hue)
{
    while (hue < 0)
        hue += range;
    while (hue > range)
        hue -= range;
    long long value = m1;
    if (hue < 40)
        value += ((m2 - m1) * hue + 20) / 40;
    else if (hue <= 120)
        value = m2;
    else if (hue <= 160)
        value += ((m2 - m1) * (160 - hue) + 20) / 40;
    return static_cast<BYTE>((value * 255 + 120) / range);
}

constexpr COLORREF colorOf(COLORREF red, COLORREF green, COLORREF blue) { return red | green << 8 | blue << 16; }

template <class Value>
void store(Value* out, Value value)
{
    if (out)
        *out = value;
}

} // namespace

void ColorRGBToHLS_X(COLORREF color, WORD* hue, WORD* luminance, WORD* saturation)
{
    const Hls hls = toHls(color);
    store(hue, hls.hue);
    store(luminance, hls.luminance);
    store(saturation, hls.saturation);
}

COLORREF ColorHLSToRGB_X(WORD hue, WORD luminance, WORD saturation)
{
    if (saturation == 0) {
        const COLORREF grey = static_cast<BYTE>(luminance * 255 / range);
        return colorOf(grey, grey, grey);
    }
    const long long l = luminance;
    const long long s = saturation;
    const long long m2 = l <= 120 ? (l * (range + s) + 120) / range : l + s - (l * s + 120) / range;
    const long long m1 = 2 * l - m2;
    return colorOf(channelOf(m1, m2, hue + 80), channelOf(m1, m2, hue), channelOf(m1, m2, hue - 80));
}

COLORREF ColorAdjustLuma_X(COLORREF color, int n, BOOL scale)
{
    const Hls hls = toHls(color);
    const UINT luminance = scale ? static_cast<WORD>(hls.luminance + n / 1000)
                                 : static_cast<UINT>(static_cast<int>(n / 4.17 + hls.luminance));
    return ColorHLSToRGB_X(hls.hue, static_cast<WORD>(std::min<UINT>(luminance, range)), hls.saturation);
}

COLORREF GetSysColor_X(int index)
{
    const auto found = std::find_if(std::begin(sysColors), std::end(sysColors),
                                    [index](const SysColor& entry) { return entry.index == index; });
    return found != std::end(sysColors) ? found->colour : 0;
}
