// What clicks and keys do to the controls of a cell.

#include "XeGridBtnCellBase.h"
#include "XeGridCtrl.h"
#include "XeInPlaceEdit.h"
#include "grid/btnlayout.h"
#include "grid/editorlife.h"
#include "xeafxdc.h"

#include <QTimer>

#include <cwctype>

bool CGridBtnCellBase_X::isRadio(int index) const
{
    return GetDrawCtlIsMbrRadioGrp(index) || (GetDrawCtlState(index) & DFCS_BUTTONRADIO);
}

// A push button of a group stays pressed while it is the checked one.
bool CGridBtnCellBase_X::staysDown(int index) const
{
    return GetDrawCtlIsMbrRadioGrp(index) && (GetDrawCtlState(index) & DFCS_CHECKED);
}

void CGridBtnCellBase_X::redraw()
{
    if (CGridCtrl_X* const grid = GetGrid())
        grid->RedrawCell(m_nBtnRow, m_nBtnCol);
}

void CGridBtnCellBase_X::popUp(int index)
{
    const unsigned state = GetDrawCtlState(index);
    if (index < 0 || index >= GetDrawCtlNbr() || !(state & DFCS_PUSHED) || staysDown(index))
        return;
    SetDrawCtlState(index, state & ~DFCS_PUSHED);
    redraw();
}

void CGridBtnCellBase_X::check(int index)
{
    unsigned state = GetDrawCtlState(index) & ~DFCS_PUSHED;
    if (GetDrawCtlType(index) == DFC_BUTTON && isRadio(index)) {
        for (int i = 0; i < GetDrawCtlNbr(); ++i) {
            if (i != index && GetDrawCtlType(i) == DFC_BUTTON && isRadio(i))
                SetDrawCtlState(i, GetDrawCtlState(i) & ~(DFCS_PUSHED | DFCS_CHECKED));
        }
        state |= DFCS_CHECKED;
        if (!(state & DFCS_BUTTONRADIO))
            state |= DFCS_PUSHED;
    } else if (GetDrawCtlType(index) == DFC_BUTTON && !(state & 0x1F)) {
        state ^= DFCS_CHECKED;
    }
    SetDrawCtlState(index, state);
}

int CGridBtnCellBase_X::ClickedCellCtl(unsigned int message, int index)
{
    if (index < 0 || index >= GetDrawCtlNbr() || (GetDrawCtlState(index) & DFCS_INACTIVE))
        return 0;
    m_nLastCtlClicked = static_cast<short>(index);
    switch (message) {
    case WM_LBUTTONDOWN:
        SetDrawCtlState(index, GetDrawCtlState(index) | DFCS_PUSHED);
        break;
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
        check(index);
        break;
    default:
        return 0;
    }
    redraw();
    return 1;
}

// ------------------------------------------------------------------------------------------------- called by the grid

namespace {

// The cell that Edit() has clicked for an event that is still going on: a double click is told of twice.
QPointer<CGridBtnCellBase_X> clickedByEdit;

/// The control that a key has pushed and that is about to pop up, the only one.
class PushedByKey
{
public:
    void push(CGridBtnCellBase_X& cell, int index)
    {
        constexpr int visibleTime = 150;
        m_cell = &cell;
        m_index = index;
        m_turn = new QTimer(&cell);
        m_turn->setSingleShot(true);
        QObject::connect(m_turn, &QTimer::timeout, m_turn, [this] { complete(); });
        m_turn->start(visibleTime);
    }
    bool isPushed(const CGridBtnCellBase_X& cell, int index) const { return m_cell == &cell && m_index == index; }
    void complete()
    {
        const QPointer<CGridBtnCellBase_X> cell = m_cell;
        if (!cell)
            return;
        m_cell.clear();
        m_turn->deleteLater();
        const CCellID_X place = cell->GetCoords();
        cell->ClickedCellCtl(WM_LBUTTONUP, m_index);
        if (cell)
            cell->SendMessageToParent(place.row, place.col, static_cast<int>(NM_CLICK));
    }

private:
    QPointer<CGridBtnCellBase_X> m_cell;
    QPointer<QTimer> m_turn;
    int m_index = -1;
};

PushedByKey pushedByKey;

} // namespace

int CGridBtnCellBase_X::ProcessCtlClick(unsigned int message, const CPoint& point)
{
    const int hit = RelPointInCtl(point);
    if (message == WM_LBUTTONUP && hit != m_nLastCtlClicked && !pushedByKey.isPushed(*this, m_nLastCtlClicked))
        popUp(m_nLastCtlClicked); // the mouse has pushed it and is let go elsewhere
    if (hit < 0) {
        m_nLastCtlClicked = -1;
        return 0;
    }
    ClickedCellCtl(message, hit);
    return 1;
}

void CGridBtnCellBase_X::pushByKey(int index)
{
    if (pushedByKey.isPushed(*this, index)) // the key repeats
        return;
    const QPointer<CGridBtnCellBase_X> living(this);
    pushedByKey.complete();
    if (living && ClickedCellCtl(WM_LBUTTONDOWN, index) && living)
        pushedByKey.push(*this, index);
}

void CGridBtnCellBase_X::OnClick(CPoint point) { ProcessCtlClick(WM_LBUTTONUP, point); }
void CGridBtnCellBase_X::OnClickDown(CPoint point) { ProcessCtlClick(WM_LBUTTONDOWN, point); }
void CGridBtnCellBase_X::OnRClick(CPoint) {}

void CGridBtnCellBase_X::OnDblClick(CPoint point)
{
    if (clickedByEdit == this)
        clickedByEdit.clear();
    else
        ProcessCtlClick(WM_LBUTTONDBLCLK, point);
}

int CGridBtnCellBase_X::HotKeyBtnMatch(wchar_t ch) const
{
    const auto lower = [](wchar_t character) { return std::towlower(static_cast<wint_t>(character)); };
    for (int i = 0; i < GetDrawCtlNbr(); ++i) {
        const wchar_t* text = GetDrawCtlBtnText(i);
        if (!text || !*text)
            return -1;
        for (; *text; ++text) {
            if (*text != L'&')
                continue;
            if (!*++text)
                break;
            if (*text != L'&' && lower(*text) == lower(ch))
                return i;
        }
    }
    return -1;
}

int CGridBtnCellBase_X::Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch)
{
    if (ProcessCtlClick(WM_LBUTTONUP, point)) {
        clickedByEdit = this;
        QTimer::singleShot(0, this, [this] {
            if (clickedByEdit == this)
                clickedByEdit.clear();
        });
        SendMessageToParent(row, col, static_cast<int>(NM_CLICK));
        return 0;
    }
    const bool hasText = HasCellText();
    const bool isSpaceForFirst = GetDrawCtlNbr() == 1 || GetDrawCtlAlign(0) == CTL_ALIGN_LEFT;
    int pushed = -1;
    if (ch == VK_SPACE && GetDrawCtlNbr() > 0 && isSpaceForFirst)
        pushed = 0;
    else if (!hasText)
        pushed = HotKeyBtnMatch(static_cast<wchar_t>(ch));
    if (pushed < 0)
        return hasText ? openEditor(row, col, rect, id, ch) : 1;
    pushByKey(pushed);
    return 0;
}

int CGridBtnCellBase_X::openEditor(int row, int col, CRect rect, unsigned int id, unsigned int ch)
{
    const QPointer<CGridBtnCellBase_X> living(this);
    if (m_bBtnEditing)
        EndEdit();
    QWidget* const widget = living && GetGrid() ? GetGrid()->GetSafeHwnd() : nullptr;
    if (!widget)
        return 0;
    xe::ControlRects rects;
    if (CalcDrawCtlRects(rects.data(), xe::mostControls, rect))
        rect = rects[static_cast<std::size_t>(GetDrawCtlNbr())];
    m_bBtnEditing = 1;
    const unsigned int format = GetFormat();
    const unsigned int style = format & DT_RIGHT ? ES_RIGHT : format & DT_CENTER;
    return keepEditor(new CInPlaceEdit_X(widget, rect, style, id, row, col, GetText(), ch), living);
}

// A member of a cell that may be gone: `living` tells.
int CGridBtnCellBase_X::keepEditor(CWnd_X* editor, const QPointer<CGridBtnCellBase_X>& living)
{
    const bool isKept = xe::mayKeep(*editor, living);
    if (!living)
        return 0;
    living->m_bBtnEditing = isKept;
    if (isKept)
        living->SetEditWnd(editor);
    return isKept;
}

void CGridBtnCellBase_X::EndEdit()
{
    auto* const editor = m_bBtnEditing ? qobject_cast<CInPlaceEdit_X*>(GetEditWnd()) : nullptr;
    if (editor)
        editor->EndEdit();
}

void CGridBtnCellBase_X::OnEndEdit()
{
    if (!m_bBtnEditing)
        return;
    m_bBtnEditing = 0;
    SetEditWnd(nullptr);
}
