// The list of parts: its rows in the order of a column.

#include "partsgrid.h"
#include "text.h"

#include <xeafxdc.h>

namespace {

constexpr int keyLength = 20;

// Sorts by its characters as the number does that a text begins with; the whole text stands behind it.
CString_X withKey(const CString_X& text)
{
    return formatText(L"%0*.6f%s", keyLength, XeQString(text).toDouble(), text);
}

CString_X withoutKey(const CString_X& text) { return text.Mid(keyLength); }

} // namespace

int CPartsGrid::HeadingAt(CPoint point) const
{
    const CCellID_X cell = GetCellFromPt(point);
    return IsValid(cell) && cell.row < headingRows ? cell.col : -1;
}

// The focus stays with its cell. The arrow stands in the upper row of the headings.
void CPartsGrid::SortBy(int column, bool ascending)
{
    EndEditing();
    const bool isNumber = GetItemFormat(headingRows - 1, column) & DT_RIGHT;
    const int part = SelectedPart();
    const int partColumn = m_idCurrentCell.col;
    BeginWaitCursor();
    if (isNumber)
        ChangeTexts(column, withKey);
    SortTextItems(column, ascending);
    if (isNumber)
        ChangeTexts(column, withoutKey);
    if (part >= 0)
        SelectCell(RowOf(part), partColumn);
    EndWaitCursor();
}

// Unlike SetItemText() this leaves the arrow alone.
void CPartsGrid::ChangeTexts(int column, CString_X (*changed)(const CString_X&))
{
    for (int row = headingRows; row < m_nRows; ++row) {
        if (CGridCellBase_X* const cell = cellAt(row, column))
            cell->SetText(changed(cell->GetText()));
    }
}
