// A device context's text.

#include "geometry/rectangle.h"
#include "xeafxdc.h"

#include <QFontMetrics>

#include <cwchar>

namespace {

struct TextFlag
{
    UINT format;
    int qtFlags;
};

constexpr TextFlag textFlags[] = {
    {DT_RIGHT, Qt::AlignRight},
    {DT_VCENTER, Qt::AlignVCenter},
    {DT_SINGLELINE, Qt::TextSingleLine},
    {DT_NOPREFIX, Qt::TextHideMnemonic},
    {DT_CENTER, Qt::AlignHCenter | Qt::AlignVCenter},
    {DT_WORDBREAK, Qt::TextWordWrap},
};

// No more than `length` elements are read, and the result has no more than `length` UTF-16 units.
QString firstOf(const wchar_t* text, int length)
{
    if (!text || length < 0)
        return XeQString(text);
    const auto elements = static_cast<int>(wcsnlen(text, static_cast<std::size_t>(length)));
    return XeQString(CString_X(text, elements)).left(length);
}

// The pen comes back as a plain one of its colour.
int drawIn(CDC_X& dc, const QString& text, const tagRECT* rect, int flags, const QColor* color)
{
    if (rect) {
        const QColor old = dc.pen().color();
        if (color)
            dc.setPen(*color);
        dc.drawText(xe::toQRect(*rect), flags, text);
        dc.setPen(old);
    }
    return QFontMetrics(dc.font()).height();
}

int drawInTextColor(CDC_X* dc, const QString& text, const tagRECT* rect, UINT flags)
{
    if (!dc)
        return 0;
    const QColor color = dc->GetTextColor();
    return drawIn(*dc, text, rect, static_cast<int>(flags), &color);
}

int drawInSetColor(CDC_X& dc, const QString& text, const tagRECT* rect, int flags)
{
    if (dc.m_crText == 0xFFFFFFFF)
        return drawIn(dc, text, rect, flags, nullptr);
    return drawInTextColor(&dc, text, rect, static_cast<UINT>(flags));
}

CSize extentOf(const QString& text, const QFont& font)
{
    const QFontMetrics metrics(font);
    return {metrics.horizontalAdvance(text), metrics.height()};
}

} // namespace

int ToQtTextFlag(UINT format)
{
    int flags = 0;
    for (const TextFlag& flag : textFlags) {
        if (format & flag.format)
            flags |= flag.qtFlags;
    }
    return flags;
}

CSize CDC_X::GetOutputTextExtent(const CString_X& text) const { return extentOf(XeQString(text), font()); }

CSize CDC_X::GetOutputTextExtent(const wchar_t* text, int length) const
{
    return extentOf(firstOf(text, length), font());
}

int CDC_X::DrawText(const CString_X& text, const tagRECT* rect, int flags)
{
    return drawInSetColor(*this, XeQString(text), rect, flags);
}

int CDC_X::DrawText(const wchar_t* text, int length, const tagRECT* rect, int flags)
{
    return drawInSetColor(*this, firstOf(text, length), rect, flags);
}

int DrawTextA(CDC_X* dc, const wchar_t* text, int length, const tagRECT* rect, UINT flags)
{
    return drawInTextColor(dc, firstOf(text, length), rect, flags);
}

int DrawTextW(CDC_X* dc, const wchar_t* text, int, const tagRECT* rect, UINT flags)
{
    return drawInTextColor(dc, XeQString(text), rect, flags);
}
