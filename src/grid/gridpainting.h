// What a grid paints: the cells in four passes, the lines between them, the line of a resize.
#pragma once

#include "XeGridCtrl.h"

#include <QPointer>

namespace xe {

class GridPainter
{
public:
    explicit GridPainter(CGridCtrl_X& grid) : m_grid(&grid) {}

    /// Whether neither OnDraw() nor the Draw() of a visible cell is a host's, so that nobody sees what is painted on.
    bool isUnseen() const;
    /// The headings of both, of the rows, of the columns, then the ordinary cells. A cell may change or delete
    /// anything: the rest of a grid that has gone is not painted.
    void drawCells(CDC_X& dc);
    /// The lines between ordinary cells.
    void drawLines(CDC_X& dc) const;
    /// The line that shows where a divider is being dragged to; in any other mode it is forgotten.
    void drawResizeLine(CDC_X& dc);
    /// The corner between two scroll bars, which is in no client area, in the colour of the window.
    void fillCorner(CDC_X& dc) const;

private:
    /// Rows and columns of a pass, and where the first of them begin.
    struct Pass
    {
        CCellRange_X cells;
        CPoint start;
        bool showsBlocks;
    };

    void draw(CDC_X& dc, const Pass& pass);
    bool drawRow(CDC_X& dc, const Pass& pass, int row, CRect rect);
    CRect placeOf(const CGridCellBase_X& cell, const CCellID_X& place, const CRect& own) const;
    CRect blockFrom(const CCellID_X& master, const CCellID_X& last, const CRect& own) const;

    QPointer<CGridCtrl_X> m_grid;
    CRect m_client;
};

} // namespace xe
