#include "XeEaseInPlaceList.h"

#include "grid/listediting.h"
#include "xesysinfo.h"

#include <QLineEdit>

IMPLEMENT_DYNAMIC_X(CEaseInPlaceList_X, CEaseComboBox_X)

BEGIN_MESSAGE_MAP_X(CEaseInPlaceList_X, CEaseComboBox_X)
    XE_MSG_ENTRY(WM_KILLFOCUS, AfxSig_v_W_v, OnKillFocus, void(QWidget*))
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
END_MESSAGE_MAP_X()

namespace {

constexpr DWORD boxStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | CBS_AUTOHSCROLL;

} // namespace

CEaseInPlaceList_X::CEaseInPlaceList_X(CWnd_X* parent, CRect& rect, unsigned int style, unsigned int id, int row,
                                       int col, CStringArray_X& items, CString_X text, unsigned int ch)
    : m_nNumLines(xe::linesOf(items)),
      m_sInitText(text),
      m_nRow(row),
      m_nCol(col),
      m_nLastChar(0),
      m_bExitOnArrows(FALSE),
      m_editing(std::make_unique<xe::ListEditing>(*this, ch, m_sInitText, m_nLastChar, [this] { EndEdit(); }))
{
    const CRect place = rect; // the list is a window of its own, so the box needs no room for it
    rect.bottom += rect.Height() * m_nNumLines + GetSystemMetrics_X(SM_CYHSCROLL);
    QWidget* const window = parent ? parent->GetSafeHwnd() : nullptr;
    if (window && CEaseComboBox_X::Create(style | boxStyle, place, window, id) && Imp<QComboBox>()) {
        m_editing->enter(*window, row, col, items, place.Width());
        m_edit.SubclassWindow(GetEditBox());
        m_editing->begin(style, ch);
    }
    m_editing->life.setBuilt();
}

CEaseInPlaceList_X::~CEaseInPlaceList_X() = default;

void CEaseInPlaceList_X::EndEdit()
{
    CString_X text;
    GetWindowText(text);
    m_editing->life.report(m_nRow, m_nCol, text, m_nLastChar);
}

void CEaseInPlaceList_X::PostNcDestroy()
{
    if (m_editing->life.isBuilt())
        delete this;
}

bool CEaseInPlaceList_X::eventFilter(QObject* target, QEvent* event)
{
    return m_editing->life.filter(target, event,
                                  [this](QObject* o, QEvent* e) { return CEaseComboBox_X::eventFilter(o, e); });
}

void CEaseInPlaceList_X::OnSelendcancel() { CEaseComboBox_X::OnSelendcancel(); }

void CEaseInPlaceList_X::OnKillFocus(QWidget* other)
{
    if (m_editing->life.isEnding() || xe::isListOpen(*this))
        return;
    CEaseComboBox_X::OnKillFocus(other);
    if (!xe::isPartOf(other, GetSafeHwnd()) && xe::listKind(GetStyle()) == CBS_DROPDOWNLIST)
        EndEdit();
}

void CEaseInPlaceList_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (m_editing->life.isEnding())
        return;
    m_editing->releases.notePress(vk);
    if (xe::isWayOut(vk) && (m_bExitOnArrows || m_editing->life.isControlHeld(modifiers)))
        m_editing->endBy(vk, modifiers);
    else
        CEaseComboBox_X::OnKeyDown(vk, repeatCount, modifiers);
}

void CEaseInPlaceList_X::OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (!m_editing->life.isEnding() && !m_editing->endByRelease(vk, modifiers))
        CEaseComboBox_X::OnKeyUp(vk, repeatCount, modifiers);
}
