#include "XeGridCtrl.h"

#include "XeInPlaceEdit.h"
#include "grid/editorlife.h"
#include "grid/gridstate.h"

#include <QCoreApplication>

#include <utility>

// Each call of a cell, a notification and a virtual may delete cells, rows and the grid.

namespace {

constexpr UINT editorId = 8;

} // namespace

void CGridCtrl_X::OnEditCell(int row, int col, CPoint point, unsigned int ch)
{
    const QPointer<CGridCtrl_X> living(this);
    m_TitleTip.Hide();
    endOpenEditor();
    if (!living || !IsValid(row, col) || !IsCellEditable(row, col) || !GetRowHeight(row) || !GetColumnWidth(col))
        return;
    EnsureVisible(row, col);
    CRect rect;
    if (!living || !IsCellVisible(row, col) || !GetCellRect(row, col, &rect))
        return;
    SendMessageToParent(row, col, static_cast<int>(LVN_BEGINLABELEDITW));
    if (!living || !IsValid(row, col) || !IsCellEditable(row, col) || !GetCellRect(row, col, &rect))
        return;
    if (CGridCellBase_X* const cell = cellAt(row, col))
        cell->Edit(row, col, rect, point, editorId, ch);
}

// The focus may have left the cell with the editor, as by a drag.
void CGridCtrl_X::EndEditing()
{
    const QPointer<CGridCtrl_X> living(this);
    if (CGridCellBase_X* const cell = cellAt(m_idCurrentCell.row, m_idCurrentCell.col))
        cell->EndEdit();
    xe::EditorLife* const left = living ? m_state->editor : nullptr;
    if (left && !left->isOf(cellAt(m_idCurrentCell.row, m_idCurrentCell.col)))
        left->end();
}

// What is composed goes into an editor from its first stroke on.
bool CGridCtrl_X::editByInputMethod(QEvent& event)
{
    const QPointer<CGridCtrl_X> living(this);
    OnEditCell(m_idCurrentCell.row, m_idCurrentCell.col, CPoint(-1, -1), VK_TAB);
    const xe::EditorLife* const life = living ? m_state->editor : nullptr;
    if (!life)
        return !living;
    QCoreApplication::sendEvent(life->editor().GetSafeHwnd(), &event);
    return true;
}

// Even if a cell or a host does not end it.
void CGridCtrl_X::endOpenEditor()
{
    if (!m_state->editor)
        return;
    const QPointer<CGridCtrl_X> living(this);
    EndEditing();
    if (living && m_state->editor)
        m_state->editor->end();
}

void CGridCtrl_X::OnEndEditCell(int row, int col, CString_X text)
{
    if (!cellAt(row, col))
        return;
    const QPointer<CGridCtrl_X> living(this);
    if (text.Compare(GetItemText(row, col)) != 0) {
        SetModified(TRUE, row, col);
        SetItemText(row, col, text);
    }
    CGridCellBase_X* const cell = living ? cellAt(row, col) : nullptr;
    if (cell)
        cell->OnEndEdit();
}

LRESULT CGridCtrl_X::OnEndInPlaceEdit(WPARAM, LPARAM lParam)
{
    const auto* const end = reinterpret_cast<const XeGridEditEnd*>(lParam);
    const QPointer<QWidget> widget = GetSafeHwnd();
    if (!widget || !end)
        return 0;
    const QPointer<CGridCtrl_X> living(this);
    const int row = end->item.row;
    const int col = end->item.col;
    const auto key = static_cast<UINT>(end->item.lParam);
    OnEndEditCell(row, col, end->item.strText);
    xe::EditorLife::releaseEndingCell();
    if (living)
        SendMessageToParent(row, col, static_cast<int>(LVN_ENDLABELEDITW));
    const bool isReplayed = key == VK_TAB || (key >= VK_PRIOR && key <= VK_DOWN);
    if (!living || !isReplayed || widget != GetSafeHwnd())
        return 1;
    const UINT heldBefore = std::exchange(m_state->heldKeys, xe::EditorLife::endingModifiers());
    const bool wasRealKey = std::exchange(m_state->isRealKey, true);
    OnKeyDown(key, 0, 0);
    if (!living)
        return 1;
    m_state->isRealKey = wasRealKey;
    m_state->heldKeys = heldBefore;
    if (widget && widget == GetSafeHwnd())
        OnEditCell(m_idCurrentCell.row, m_idCurrentCell.col, CPoint(-1, -1), key);
    return 1;
}
