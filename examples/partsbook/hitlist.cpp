#include "hitlist.h"

#include "partcells.h"
#include "text.h"

#include <iterator>

namespace {

struct Column
{
    unsigned heading;
    CString_X Part::*field;
    int width;
};

constexpr Column columns[] = {
    {IDS_HIT_NUMBER, &Part::number, 140},     {IDS_HIT_NAME, &Part::name, 330},     {IDS_HIT_KIND, &Part::kind, 150},
    {IDS_HIT_SUPPLIER, &Part::supplier, 180}, {IDS_HIT_REMARK, &Part::remark, 420},
};
constexpr int columnCount = static_cast<int>(std::size(columns));

} // namespace

IMPLEMENT_DYNAMIC_X(CHitList, CGridCtrl_X)

BEGIN_MESSAGE_MAP_X(CHitList, CGridCtrl_X)
    ON_WM_KEYDOWN_X()
    ON_WM_LBUTTONDOWN_X()
    ON_WM_LBUTTONUP_X()
END_MESSAGE_MAP_X()

CHitList::CHitList(const CPartPictures& pictures) : m_pictures(pictures, rowHeight)
{
    m_bListMode = TRUE;
    m_bSingleRowSelection = TRUE;
    m_bEditable = FALSE;
    m_bHandleTabKey = FALSE;
    m_bAllowRowResize = FALSE;
    m_nGridLines = 0;
    m_crBkColour = m_crTextBkColour;
    m_nDefCellHeight = rowHeight;
    m_pImageList = &m_pictures.Images();
}

void CHitList::SetUp()
{
    SetDefaultCellType(RUNTIME_CLASS_X(CTextCell));
    SetRowCount(headingRows);
    SetColumnCount(columnCount);
    SetFixedRowCount(headingRows);
    for (int place = 0; place < columnCount; ++place) {
        SetItemText(0, place, loadText(columns[place].heading));
        SetColumnWidth(place, columns[place].width);
    }
}

void CHitList::Show(const PartsBook& book, const std::vector<int>& parts)
{
    const int sortColumn = m_nSortColumn; // a new text in a cell takes it back
    SetRedraw(FALSE);
    SetRowCount(headingRows);
    SetRowCount(headingRows + static_cast<int>(parts.size()));
    int row = headingRows;
    for (const int part : parts)
        ShowHit(row++, part, book.part(part));
    if (sortColumn >= 0)
        SortTextItems(sortColumn, m_bAscending);
    SetRedraw(TRUE, TRUE);
    ShowWindow(parts.empty() ? SW_HIDE : SW_SHOW);
}

void CHitList::ShowHit(int row, int place, const Part& part)
{
    for (int column = 0; column < columnCount; ++column)
        SetItemText(row, column, part.*columns[column].field);
    SetItemImage(row, 0, CPartPictures::PlaceOfKind(part.kind));
    SetItemData(row, 0, place);
}

void CHitList::Select(int part)
{
    for (int row = headingRows; row < m_nRows; ++row) {
        if (PartAt(row) != part)
            continue;
        SetFocusCell(row, 0);
        EnsureVisible(row, 0);
        return;
    }
}

int CHitList::SelectedPart() const { return IsValid(m_idCurrentCell) ? PartAt(m_idCurrentCell.row) : -1; }

void CHitList::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (vk == VK_RETURN && IsValid(m_idCurrentCell))
        SendMessageToParent(m_idCurrentCell.row, m_idCurrentCell.col, static_cast<int>(NM_DBLCLK));
    else
        CGridCtrl_X::OnKeyDown(vk, repeatCount, modifiers);
}

void CHitList::OnLButtonDown(UINT flags, CPoint point)
{
    m_selectedBefore = SelectedPart();
    CGridCtrl_X::OnLButtonDown(flags, point);
}

// A click on a heading has sorted the list, and left nothing selected.
void CHitList::OnLButtonUp(UINT flags, CPoint point)
{
    const bool wasHeading = IsHeadingPressed();
    CGridCtrl_X::OnLButtonUp(flags, point);
    if (wasHeading)
        Select(m_selectedBefore);
}
