#include "XeGridBtnCellCombo.h"

#include "XeEaseInPlaceList.h"
#include "XeGridCtrl.h"

IMPLEMENT_DYNCREATE_X(CGridBtnCellCombo_X, CGridBtnCell_X)

void CGridBtnCellCombo_X::Reset()
{
    CGridBtnCell_X::Reset();
    m_dwComboStyle = CBS_SIMPLE;
    m_strComboItems.RemoveAll();
    m_pComboItems = &m_strComboItems;
    m_bAllowEase = 0;
}

void CGridBtnCellCombo_X::SetComboStyle(unsigned int style) { m_dwComboStyle = style; }
unsigned int CGridBtnCellCombo_X::GetComboStyle() const { return m_dwComboStyle; }
int CGridBtnCellCombo_X::GetAllowEase() const { return m_bAllowEase; }
void CGridBtnCellCombo_X::SetAllowEase(int allow) { m_bAllowEase = allow; }

void CGridBtnCellCombo_X::SetComboString(const CStringArray_X& items)
{
    if (&items != &m_strComboItems)
        m_strComboItems.Copy(items);
    m_pComboItems = &m_strComboItems;
}

void CGridBtnCellCombo_X::SetComboString(CStringArray_X* items)
{
    if (items && items != &m_strComboItems)
        m_strComboItems.Copy(*items);
    else if (!items)
        m_strComboItems.RemoveAll();
    m_pComboItems = items ? items : &m_strComboItems;
}

void CGridBtnCellCombo_X::GetComboString(CStringArray_X* items) const
{
    if (items && items != m_pComboItems)
        items->Copy(*m_pComboItems);
}

// A control that drops the list down.
bool CGridBtnCellCombo_X::isArrow(int index) const
{
    return index >= 0 && GetDrawCtlType(index) == DFC_SCROLL && (GetDrawCtlState(index) & DFCS_SCROLLDOWN);
}

void CGridBtnCellCombo_X::OnClick(CPoint point)
{
    CGridCtrl_X* const grid = GetGrid();
    if (!isArrow(RelPointInCtl(point))) {
        CGridBtnCell_X::OnClick(point);
        return;
    }
    const QPointer<CGridBtnCellCombo_X> living(this);
    CRect rect;
    if (!grid->GetCellRect(m_nBtnRow, m_nBtnCol, &rect))
        return;
    SendMessageToParent(m_nBtnRow, m_nBtnCol, static_cast<int>(LVN_BEGINLABELEDITW));
    if (living)
        Edit(m_nBtnRow, m_nBtnCol, rect, point, 8, 1);
}

int CGridBtnCellCombo_X::Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch)
{
    const int hit = RelPointInCtl(point);
    if ((hit >= 0 && !isArrow(hit)) || !HasCellText())
        return CGridBtnCell_X::Edit(row, col, rect, point, id, ch);
    const QPointer<CGridBtnCellBase_X> living(this);
    if (m_bBtnEditing)
        EndEdit();
    CGridCtrl_X* const grid = living ? GetGrid() : nullptr;
    if (!grid || !grid->GetSafeHwnd())
        return 0;
    m_bBtnEditing = 1;
    CComboBox_X* const box = makeBox(*grid, row, col, rect, id, ch);
    const QPointer<CComboBox_X> openBox(box);
    if (!keepEditor(box, living))
        return 0;
    if (openBox && hit >= 0 && (m_dwComboStyle & CBS_DROPDOWNLIST))
        openBox->ShowDropDown(TRUE);
    return 1;
}

CComboBox_X* CGridBtnCellCombo_X::makeBox(CGridCtrl_X& grid, int row, int col, CRect rect, unsigned int id,
                                          unsigned int ch)
{
    if (!m_bAllowEase)
        return new CInPlaceList_X(&grid, rect, m_dwComboStyle, id, row, col, *m_pComboItems, GetText(), ch);
    const unsigned int style = (m_dwComboStyle | 0x210) & ~CBS_SORT;
    return new CEaseInPlaceList_X(&grid, rect, style, id, row, col, *m_pComboItems, GetText(), ch);
}

void CGridBtnCellCombo_X::EndEdit()
{
    CWnd_X* const editor = m_bBtnEditing ? GetEditWnd() : nullptr;
    if (auto* const list = qobject_cast<CInPlaceList_X*>(editor))
        list->EndEdit();
    else if (auto* const ease = qobject_cast<CEaseInPlaceList_X*>(editor))
        ease->EndEdit();
    else
        CGridBtnCell_X::EndEdit();
}

void CGridBtnCellCombo_X::OnEndEdit()
{
    if (!m_bBtnEditing)
        return;
    if (m_bAllowEase)
        takeItems();
    CGridBtnCell_X::OnEndEdit();
    for (int i = 0; i < GetDrawCtlNbr(); ++i) {
        const bool isPush = GetDrawCtlType(i) == DFC_BUTTON && (GetDrawCtlState(i) & DFCS_BUTTONPUSH);
        if (isPush && GetDrawCtlIsMbrRadioGrp(i))
            popUp(i); // a click would check it
        else if (isPush || isArrow(i))
            ClickedCellCtl(WM_LBUTTONUP, i);
    }
}

// What the user has erased stays erased.
void CGridBtnCellCombo_X::takeItems()
{
    const auto* const box = qobject_cast<CEaseInPlaceList_X*>(GetEditWnd());
    if (!box)
        return;
    m_strComboItems.RemoveAll();
    for (int i = 0; i < box->GetCount(); ++i) {
        CString_X item;
        box->GetLBText(i, item);
        m_strComboItems.Add(item);
    }
    if (m_pComboItems != &m_strComboItems)
        m_pComboItems->Copy(m_strComboItems);
}
