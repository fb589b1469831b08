// Cells by record, and what has been modified.

#include "XeGridCtrl.h"

int CGridCtrl_X::GetItem(_GV_ITEM_X* item) const
{
    const CGridCellBase_X* const cell = item ? cellAt(item->row, item->col) : nullptr;
    if (!cell)
        return 0;
    const UINT mask = item->mask;
    if (mask & _GV_ITEM_X::Text)
        item->strText = GetItemText(item->row, item->col);
    if (mask & _GV_ITEM_X::Image) {
        item->iImage = cell->GetImage();
        item->iTile = cell->GetTile();
    }
    if (mask & _GV_ITEM_X::Data)
        item->lParam = cell->GetData();
    if (mask & _GV_ITEM_X::State)
        item->nState = cell->GetState();
    if (mask & _GV_ITEM_X::BackColour)
        item->crBkClr = cell->GetBackClr();
    if (mask & _GV_ITEM_X::TextColour)
        item->crFgClr = cell->GetTextClr();
    if (mask & _GV_ITEM_X::Format)
        item->nFormat = cell->GetFormat();
    if (const QFont* const font = mask & _GV_ITEM_X::Font ? cell->GetFont() : nullptr)
        item->lfFont = *font;
    if (mask & _GV_ITEM_X::Margin)
        item->nMargin = cell->GetMargin();
    return 1;
}

int CGridCtrl_X::SetItem(const _GV_ITEM_X* item)
{
    if (!item || !cellAt(item->row, item->col))
        return 0;
    SetModified(item->row, item->col, -1);
    CGridCellBase_X* const cell = cellAt(item->row, item->col);
    const UINT mask = item->mask;
    if (mask & _GV_ITEM_X::Text)
        cell->SetText(item->strText);
    if (mask & _GV_ITEM_X::Image) {
        cell->SetImage(item->iImage);
        cell->SetTile(item->iTile);
    }
    if (mask & _GV_ITEM_X::Data)
        cell->SetData(item->lParam);
    if (mask & _GV_ITEM_X::State)
        SetItemState(item->row, item->col, item->nState);
    if (mask & _GV_ITEM_X::BackColour)
        cell->SetBackClr(item->crBkClr);
    if (mask & _GV_ITEM_X::TextColour)
        cell->SetTextClr(item->crFgClr);
    if (mask & _GV_ITEM_X::Format)
        cell->SetFormat(item->nFormat);
    if (mask & _GV_ITEM_X::Font)
        cell->SetFont(reinterpret_cast<const CFont_X*>(&item->lfFont));
    if (mask & _GV_ITEM_X::Margin)
        cell->SetMargin(item->nMargin);
    return 1;
}

void CGridCtrl_X::SetModified(int modified, int row, int col)
{
    m_nSortColumn = -1;
    CGridCellBase_X* const cell = row < 1 || col < 1 ? nullptr : cellAt(row, col);
    if (row < 1 || col < 1)
        m_bModified = modified;
    else if (modified)
        m_bModified = modified;
    if (cell) {
        const unsigned state = cell->GetState();
        cell->SetState(modified ? state | CGridCellBase_X::Modified : state & ~UINT(CGridCellBase_X::Modified));
    }
    if (m_bModified)
        return;
    for (const GridRow* cells : m_RowData) {
        if (!cells)
            continue;
        for (CGridCellBase_X* each : *cells) {
            if (each && each->GetState() & CGridCellBase_X::Modified)
                each->SetState(each->GetState() & ~UINT(CGridCellBase_X::Modified));
        }
    }
}

int CGridCtrl_X::GetModified(int row, int col) const
{
    if (row < 1 || col < 1)
        return m_bModified;
    return (GetItemState(row, col) & CGridCellBase_X::Modified) != 0;
}
