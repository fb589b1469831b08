#include "grid/cellextent.h"

#include "XeGridCtrl.h"
#include "core/overrides.h"
#include "grid/cellpicture.h"

#include <QFontMetrics>
#include <QImage>

#include <algorithm>

namespace {

QFont fontOf(const CGridCellBase_X& cell)
{
    const QFont* const own = cell.GetFont();
    return own ? *own : QFont();
}

bool isHeading(const CGridCellBase_X& cell) { return (cell.GetState() & CGridCellBase_X::Fixed) != 0; }

// A heading is drawn in a bolder font when the focus is in its row or column, and has to fit then too.
QFontMetrics metricsOf(QFont font, bool isBold)
{
    if (isBold)
        font.setWeight(QFont::DemiBold);
    return QFontMetrics(font);
}

QFontMetrics metricsOf(const CGridCellBase_X& cell) { return metricsOf(fontOf(cell), isHeading(cell)); }

QSize sizeOfLines(const QFontMetrics& metrics, const QString& text, int flags)
{
    int width = 0;
    const auto lines = text.splitRef(QLatin1Char('\n'));
    for (const QStringRef& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line.toString()));
    return metrics.boundingRect(QRect(QPoint(0, 0), QPoint(width - 1, -1)), flags, text).size();
}

template <class Width>
CSize extentOf(CGridCellBase_X& cell, const QFontMetrics& metrics, Width widthOf)
{
    const wchar_t* const text = cell.GetText();
    const unsigned format = cell.GetFormat();
    QSize size(0, metrics.height());
    if ((format & (Qt::TextWordWrap | Qt::TextSingleLine)) == Qt::TextWordWrap)
        size = sizeOfLines(metrics, XeQString(text), static_cast<int>(format));
    else
        size.setWidth(widthOf(text));
    const auto margin = static_cast<int>(cell.GetMargin());
    size += QSize(4 * margin, 2 * margin);
    if (const QImage* const picture = xe::pictureOf(cell, cell.GetImage())) {
        size.rwidth() += picture->width() + 1;
        size.setHeight(std::max(size.height(), picture->height() + 1));
    }
    return {size.width(), size.height()};
}

template <class Method>
const void* plainTarget(Method method)
{
    const CGridCellBase_X one;
    return xe::virtualTarget(&one, method);
}

} // namespace

namespace xe {

int textHeightOf(CGridCellBase_X& cell, const wchar_t* text)
{
    static const void* const plain = plainTarget(&CGridCellBase_X::GetTextExtent);
    if (!plain || virtualTarget(&cell, &CGridCellBase_X::GetTextExtent) != plain)
        return cell.GetTextExtent(text).cy;
    return metricsOf(cell).height() + static_cast<int>(2 * cell.GetMargin());
}

CSize ExtentWalk::extentOf(CGridCellBase_X& cell)
{
    static const void* const plain = plainTarget(&CGridCellBase_X::GetCellExtent);
    if (!plain || virtualTarget(&cell, &CGridCellBase_X::GetCellExtent) != plain)
        return cell.GetCellExtent();
    Measure& measure = measureFor(fontOf(cell), isHeading(cell));
    return ::extentOf(cell, measure.metrics, [&](const wchar_t* text) { return measure.widthOf(text); });
}

ExtentWalk::Measure& ExtentWalk::measureFor(const QFont& font, bool isBold)
{
    std::optional<Measure>& measure = isBold ? m_bold : m_plain;
    if (!measure || !font.isCopyOf(measure->font))
        measure = Measure{font, metricsOf(font, isBold), {}};
    return *measure;
}

int ExtentWalk::Measure::widthOf(const wchar_t* text)
{
    constexpr std::size_t most = 1000;
    const std::wstring_view key = text ? text : L"";
    const auto known = widths.find(key);
    if (known != widths.end())
        return known->second;
    const int width = metrics.horizontalAdvance(XeQString(text));
    if (widths.size() < most)
        widths.emplace(key, width);
    return width;
}

} // namespace xe

CSize CGridCellBase_X::GetTextExtent(const wchar_t* text)
{
    const QFontMetrics metrics = metricsOf(*this);
    const auto margins = static_cast<int>(2 * GetMargin());
    return {metrics.horizontalAdvance(XeQString(text ? text : GetText())) + margins, metrics.height() + margins};
}

CSize CGridCellBase_X::GetCellExtent()
{
    const QFontMetrics metrics = metricsOf(*this);
    return extentOf(*this, metrics, [&](const wchar_t* text) { return metrics.horizontalAdvance(XeQString(text)); });
}

int CGridCellBase_X::GetTextRect(tagRECT* rect)
{
    if (!rect)
        return 0;
    if (const QImage* const picture = xe::pictureOf(*this, GetImage()))
        rect->left += picture->width() + 1 + static_cast<int>(GetMargin());
    return 1;
}
