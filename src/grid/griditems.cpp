// The values of single cells.

#include "XeGridCtrl.h"

#include "grid/gridstate.h"

int CGridCtrl_X::IsValid(const CCellRange_X& range) const
{
    return range.m_nMinRow <= range.m_nMaxRow && range.m_nMinCol <= range.m_nMaxCol
           && IsValid(range.m_nMinRow, range.m_nMinCol) && IsValid(range.m_nMaxRow, range.m_nMaxCol);
}

int CGridCtrl_X::IsCellEditable(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return m_bEditable && cell && !(cell->GetState() & CGridCellBase_X::ReadOnly);
}

int CGridCtrl_X::IsCellSelected(int row, int col) const
{
    return m_bEnableSelection && (GetItemState(row, col) & CGridCellBase_X::Selected);
}

CString_X CGridCtrl_X::GetItemText(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    const wchar_t* const text = cell ? cell->GetText() : nullptr;
    return text ? CString_X(text) : CString_X();
}

int CGridCtrl_X::SetItemText(int row, int col, const wchar_t* text)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (!cell)
        return 0;
    cell->SetText(text);
    SetModified(TRUE, row, col);
    return 1;
}

long long CGridCtrl_X::GetItemData(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetData() : 0;
}

int CGridCtrl_X::SetItemData(int row, int col, long long data)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (!cell)
        return 0;
    cell->SetData(data);
    SetModified(TRUE, row, col);
    return 1;
}

int CGridCtrl_X::GetItemImage(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetImage() : 0;
}

int CGridCtrl_X::SetItemImage(int row, int col, int image)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (!cell)
        return 0;
    cell->SetImage(image);
    SetModified(TRUE, row, col);
    return 1;
}

int CGridCtrl_X::GetItemTile(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetTile() : 0;
}

int CGridCtrl_X::SetItemTile(int row, int col, int tile)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (!cell)
        return 0;
    cell->SetTile(tile);
    SetModified(TRUE, row, col);
    return 1;
}

unsigned int CGridCtrl_X::GetItemState(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetState() : 0;
}

int CGridCtrl_X::SetItemState(int row, int col, unsigned int state)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (!cell)
        return 0;
    const bool isSelected = state & CGridCellBase_X::Selected;
    if (isSelected != static_cast<bool>(cell->GetState() & CGridCellBase_X::Selected))
        m_state->noteSelected(*this, row, col, isSelected);
    cell->SetState(state);
    return 1;
}

unsigned int CGridCtrl_X::GetItemFormat(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetFormat() : 0;
}

int CGridCtrl_X::SetItemFormat(int row, int col, unsigned int format)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (cell)
        cell->SetFormat(format);
    return cell != nullptr;
}

COLORREF CGridCtrl_X::GetItemBkColour(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetBackClr() : 0;
}

int CGridCtrl_X::SetItemBkColour(int row, int col, COLORREF colour)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (cell)
        cell->SetBackClr(colour);
    return cell != nullptr;
}

COLORREF CGridCtrl_X::GetItemFgColour(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetTextClr() : 0;
}

int CGridCtrl_X::SetItemFgColour(int row, int col, COLORREF colour)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (cell)
        cell->SetTextClr(colour);
    return cell != nullptr;
}

const QFont* CGridCtrl_X::GetItemFont(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetFont() : &m_Font;
}

int CGridCtrl_X::SetItemFont(int row, int col, const CFont_X* font)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (cell)
        cell->SetFont(font);
    return cell != nullptr;
}

int CGridCtrl_X::IsItemEditing(int row, int col) const
{
    const CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->IsEditing() : 0;
}

CSize CGridCtrl_X::GetTextExtent(int row, int col, const wchar_t* text) const
{
    CGridCellBase_X* const cell = cellAt(row, col);
    return cell ? cell->GetTextExtent(text) : CSize(0, 0);
}

int CGridCtrl_X::GetTextRect(int row, int col, tagRECT* rect) const
{
    CGridCellBase_X* const cell = cellAt(row, col);
    return cell && GetCellRect(row, col, rect) ? cell->GetTextRect(rect) : 0;
}
