#include "partcells.h"

#include "part.h"

#include <XeGridCtrl.h>
#include <XeInPlaceEdit.h>

#include <optional>

namespace {

/// Doubles the ampersands of a text for as long as it is painted.
class DoubledAmpersands
{
public:
    explicit DoubledAmpersands(CString_X& text) : m_text(text)
    {
        if (text.Find(L'&') < 0)
            return;
        m_plain = text;
        text.Replace(L"&", L"&&");
    }
    ~DoubledAmpersands()
    {
        if (m_plain)
            m_text = *m_plain;
    }
    Q_DISABLE_COPY_MOVE(DoubledAmpersands)

private:
    CString_X& m_text;
    std::optional<CString_X> m_plain;
};

const CString_X& wordOf(Part::Use use) { return useWords()[static_cast<std::size_t>(use)]; }

} // namespace

// ------------------------------------------------------------------------------------------------------------ the text

IMPLEMENT_DYNCREATE_X(CTextCell, CGridCell_X)

int CTextCell::Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase)
{
    const DoubledAmpersands shown(m_strText);
    return CGridCell_X::Draw(dc, row, col, rect, widget, erase);
}

// ---------------------------------------------------------------------------------------------------------- the choice

IMPLEMENT_DYNCREATE_X(CChoiceCell, CGridBtnCellCombo_X)

int CChoiceCell::Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase)
{
    const DoubledAmpersands shown(m_strBtnText);
    return CGridBtnCellCombo_X::Draw(dc, row, col, rect, widget, erase);
}

int CChoiceCell::Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch)
{
    const bool isByMouse = point.x >= 0;
    const int isOpen = CGridBtnCellCombo_X::Edit(row, col, rect, point, id, ch);
    auto* const box = isOpen ? qobject_cast<CInPlaceList_X*>(GetEditWnd()) : nullptr;
    if (box && isByMouse && GetComboStyle() == CBS_DROPDOWNLIST)
        box->ShowDropDown(TRUE);
    return isOpen;
}

// ------------------------------------------------------------------------------------------------------- the check box

IMPLEMENT_DYNCREATE_X(CUseCell, CGridBtnCell_X)

CUseCell::CUseCell() { SetupBtns(0, DFC_BUTTON, DFCS_BUTTONCHECK, CTL_ALIGN_FULLCELL, 0, FALSE, nullptr); }

bool CUseCell::IsChecked() const { return GetDrawCtlState(0) & DFCS_CHECKED; }

void CUseCell::SetText(const wchar_t* word)
{
    CGridBtnCell_X::SetText(word);
    const CString_X& text = m_strBtnText;
    SetDrawCtlState(0, text == wordOf(Part::OutOfUse) ? DFCS_BUTTONCHECK : DFCS_CHECKED);
    SetDrawCtlBtnText(0, text == wordOf(Part::EndingUse) ? text.GetString() : nullptr);
}

// A click has changed the box alone.
const wchar_t* CUseCell::GetText() const
{
    const bool isOutOfUse = m_strBtnText == wordOf(Part::OutOfUse);
    if (IsChecked() != isOutOfUse)
        return CGridBtnCell_X::GetText();
    return wordOf(IsChecked() ? Part::InUse : Part::OutOfUse);
}

// ----------------------------------------------------------------------------------------------------- what they share

unsigned int CColumnData::GetTextClr(int row, int) const { return m_pGrid->GetItemFgColour(row, 1); }
