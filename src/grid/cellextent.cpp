#include "grid/cellextent.h"

#include "XeGridCtrl.h"
#include "core/overrides.h"
#include "grid/cellpicture.h"

#include <QFontMetrics>
#include <QImage>

#include <algorithm>

namespace {

// A heading is drawn in a bolder font when the focus is in its row or column, and has to fit then too.
QFontMetrics metricsOf(const CGridCellBase_X& cell)
{
    const QFont* const own = cell.GetFont();
    if (!(cell.GetState() & CGridCellBase_X::Fixed))
        return QFontMetrics(own ? *own : QFont());
    QFont font = own ? *own : QFont();
    font.setWeight(QFont::DemiBold);
    return QFontMetrics(font);
}

QSize sizeOfLines(const QFontMetrics& metrics, const QString& text, int flags)
{
    int width = 0;
    const auto lines = text.splitRef(QLatin1Char('\n'));
    for (const QStringRef& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line.toString()));
    return metrics.boundingRect(QRect(QPoint(0, 0), QPoint(width - 1, -1)), flags, text).size();
}

} // namespace

int xe::textHeightOf(CGridCellBase_X& cell, const wchar_t* text)
{
    static const void* const plain = [] {
        const CGridCellBase_X one;
        return xe::virtualTarget(&one, &CGridCellBase_X::GetTextExtent);
    }();
    if (!plain || xe::virtualTarget(&cell, &CGridCellBase_X::GetTextExtent) != plain)
        return cell.GetTextExtent(text).cy;
    return metricsOf(cell).height() + static_cast<int>(2 * cell.GetMargin());
}

CSize CGridCellBase_X::GetTextExtent(const wchar_t* text)
{
    const QFontMetrics metrics = metricsOf(*this);
    const auto margins = static_cast<int>(2 * GetMargin());
    return {metrics.horizontalAdvance(XeQString(text ? text : GetText())) + margins, metrics.height() + margins};
}

CSize CGridCellBase_X::GetCellExtent()
{
    const QFontMetrics metrics = metricsOf(*this);
    const XeQString text(GetText());
    const unsigned format = GetFormat();
    QSize size(0, metrics.height());
    if ((format & (Qt::TextWordWrap | Qt::TextSingleLine)) == Qt::TextWordWrap)
        size = sizeOfLines(metrics, text, static_cast<int>(format));
    else
        size.setWidth(metrics.horizontalAdvance(text));
    const auto margin = static_cast<int>(GetMargin());
    size += QSize(4 * margin, 2 * margin);
    if (const QImage* const picture = xe::pictureOf(*this, GetImage())) {
        size.rwidth() += picture->width() + 1;
        size.setHeight(std::max(size.height(), picture->height() + 1));
    }
    return {size.width(), size.height()};
}

int CGridCellBase_X::GetTextRect(tagRECT* rect)
{
    if (!rect)
        return 0;
    if (const QImage* const picture = xe::pictureOf(*this, GetImage()))
        rect->left += picture->width() + 1 + static_cast<int>(GetMargin());
    return 1;
}
