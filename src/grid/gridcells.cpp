// How cells are made, replaced and destroyed.

#include "XeGridCtrl.h"

#include "grid/gridstate.h"

#include <QPointer>

#include <typeinfo>

namespace {

bool isCellClass(const CRuntimeClass_X* type) { return type && type->IsDerivedFrom(RUNTIME_CLASS_X(CGridCellBase_X)); }

CGridCellBase_X* makeCell(const CRuntimeClass_X* type)
{
    return isCellClass(type) ? static_cast<CGridCellBase_X*>(type->CreateObject()) : nullptr;
}

void copyMerging(CGridCellBase_X& to, const CGridCellBase_X& from)
{
    to.m_bMergeRight = from.m_bMergeRight;
    to.m_bMergeBottom = from.m_bMergeBottom;
    to.m_bMergeSlave = from.m_bMergeSlave;
    to.m_nMergeStyle = from.m_nMergeStyle;
    to.m_nMergeRows = from.m_nMergeRows;
    to.m_nMergeCols = from.m_nMergeCols;
    to.m_nMasterRow = from.m_nMasterRow;
    to.m_nMasterCol = from.m_nMasterCol;
}

} // namespace

CGridCellBase_X* CGridCtrl_X::CreateCell(int row, int col)
{
    const CGridCellBase_X* const above = row >= 1 ? cellAt(row - 1, col) : nullptr;
    if (m_pRtcDefault == RUNTIME_CLASS_X(CGridCell_X)) { // the same as below, at a third of the cost
        auto* const cell = new CGridCell_X(this, m_Font);
        if (above)
            cell->m_nFormat = above->GetFormat();
        if (IsCellFixed(row, col))
            cell->m_nState = CGridCellBase_X::Fixed;
        return cell;
    }
    CGridCellBase_X* const cell = makeCell(m_pRtcDefault);
    if (!cell)
        return nullptr;
    cell->SetGrid(this);
    cell->SetFont(reinterpret_cast<const CFont_X*>(&m_Font));
    cell->SetCoords(row, col);
    if (above)
        cell->SetFormat(above->GetFormat());
    if (IsCellFixed(row, col))
        cell->SetState(cell->GetState() | CGridCellBase_X::Fixed);
    return cell;
}

void CGridCtrl_X::DestroyCell(int row, int col)
{
    CGridCellBase_X* const cell = cellAt(row, col);
    if (!cell)
        return;
    // What only an override of SetState() could see is left out.
    const bool isUnnoticed = typeid(*cell) == typeid(CGridCell_X) && !(cell->m_nState & CGridCellBase_X::Selected);
    if (!isUnnoticed)
        SetItemState(row, col, 0);
    (*m_RowData[static_cast<std::size_t>(row)])[static_cast<std::size_t>(col)] = nullptr;
    delete cell;
}

bool CGridCtrl_X::fillPlace(const QPointer<CGridCtrl_X>& living, int row, int col)
{
    CGridCellBase_X* const cell = CreateCell(row, col);
    if (!living) {
        delete cell;
        return false;
    }
    GridRow* const cells =
        static_cast<std::size_t>(row) < m_RowData.size() ? m_RowData[static_cast<std::size_t>(row)] : nullptr;
    if (cells && static_cast<std::size_t>(col) < cells->size())
        (*cells)[static_cast<std::size_t>(col)] = cell;
    else
        delete cell;
    return true;
}

int CGridCtrl_X::SetCellType(int row, int col, CRuntimeClass_X* type)
{
    if (!isCellClass(type) || !cellAt(row, col) || !beforeChange())
        return 0;
    CGridCellBase_X* const old = cellAt(row, col);
    CGridCellBase_X* const cell = old ? makeCell(type) : nullptr;
    if (!cell)
        return 0;
    *cell = *old;
    copyMerging(*cell, *old);
    cell->SetCoords(row, col);
    (*m_RowData[static_cast<std::size_t>(row)])[static_cast<std::size_t>(col)] = cell;
    delete old;
    return 1;
}

int CGridCtrl_X::SetDefaultCellType(CRuntimeClass_X* type)
{
    if (!isCellClass(type))
        return 0;
    m_pRtcDefault = type;
    return 1;
}
