// The room that texts of cells need.
#pragma once

#include "xeatltypes.h"

#include <QFont>
#include <QFontMetrics>

#include <map>
#include <optional>
#include <string>

class CGridCellBase_X;

namespace xe {

/// The height of GetTextExtent(). It is the same for all texts of a cell, so that none is laid out for it, unless the
/// cell's class has a GetTextExtent() of its own, which is asked then.
int textHeightOf(CGridCellBase_X& cell, const wchar_t* text);

/// What GetCellExtent() gives for one cell after another. Metrics are kept as long as the cells share a font, and so
/// are the widths of some texts: many a column has but a few, and to lay one out is nearly all of the work.
class ExtentWalk
{
public:
    CSize extentOf(CGridCellBase_X& cell);

private:
    /// What is known of a font.
    struct Measure
    {
        int widthOf(const wchar_t* text);

        QFont font;
        QFontMetrics metrics;
        std::map<std::wstring, int, std::less<>> widths;
    };

    Measure& measureFor(const QFont& font, bool isBold);

    std::optional<Measure> m_plain;
    std::optional<Measure> m_bold;
};

} // namespace xe
