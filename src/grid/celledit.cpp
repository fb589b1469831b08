#include "XeGridCell.h"

#include "XeInPlaceEdit.h"
#include "grid/editorlife.h"
#include "xeafxdc.h"

CGridCell_X::~CGridCell_X()
{
    if (CInPlaceEdit_X* const editor = std::exchange(m_pEditWnd, nullptr))
        xe::EditorLife::dismiss(*editor);
}

int CGridCell_X::Edit(int row, int col, CRect rect, CPoint, unsigned int id, unsigned int ch)
{
    const QPointer<CGridCell_X> living(this);
    if (m_bEditing)
        EndEdit();
    QWidget* const widget = living && m_pGrid ? m_pGrid->GetSafeHwnd() : nullptr;
    if (!widget)
        return 0;
    m_bEditing = 1;
    const unsigned int format = GetFormat();
    const unsigned int style = format & DT_RIGHT ? ES_RIGHT : format & DT_CENTER;
    auto* const editor = new CInPlaceEdit_X(widget, rect, style, id, row, col, GetText(), ch);
    const bool isKept = xe::mayKeep(*editor, living);
    if (!living)
        return 0;
    if (isKept)
        m_pEditWnd = editor;
    m_bEditing = m_pEditWnd != nullptr;
    return isKept;
}

void CGridCell_X::EndEdit()
{
    if (m_pEditWnd)
        m_pEditWnd->EndEdit();
}

void CGridCell_X::OnEndEdit()
{
    m_bEditing = 0;
    m_pEditWnd = nullptr;
}
