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
      m_life(std::make_unique<xe::EditorLife>(*this, [this] { EndEdit(); })),
      m_watch(std::make_unique<xe::ListWatch>(*this, [this](UINT vk) { endBy(vk, 0); })),
      m_releases(std::make_unique<xe::Releases>(ch))
{
    const CRect place = rect; // the list is a window of its own, so the box needs no room for it
    rect.bottom += rect.Height() * m_nNumLines + GetSystemMetrics_X(SM_CYHSCROLL);
    QWidget* const window = parent ? parent->GetSafeHwnd() : nullptr;
    if (window && CEaseComboBox_X::Create(style | boxStyle, place, window, id) && Imp<QComboBox>()) {
        m_life->enter(*window, row, col);
        xe::fillList(*this, *window, items, text, place.Width());
        m_watch->enter();
        m_edit.SubclassWindow(GetEditBox());
        SetFocus();
        if (GetSafeHwnd() && xe::listKind(style) != CBS_DROPDOWNLIST)
            xe::open(*this, GetEditBox(), ch, xe::listOpening(ch));
    }
    m_life->setBuilt();
}

CEaseInPlaceList_X::~CEaseInPlaceList_X() = default;

void CEaseInPlaceList_X::EndEdit()
{
    CString_X text;
    GetWindowText(text);
    m_life->report(m_nRow, m_nCol, text, m_nLastChar);
}

void CEaseInPlaceList_X::PostNcDestroy()
{
    if (m_life->isBuilt())
        delete this;
}

bool CEaseInPlaceList_X::eventFilter(QObject* target, QEvent* event)
{
    return m_life->filter(target, event, [this](QObject* o, QEvent* e) { return CEaseComboBox_X::eventFilter(o, e); });
}

void CEaseInPlaceList_X::OnSelendcancel() { CEaseComboBox_X::OnSelendcancel(); }

void CEaseInPlaceList_X::OnKillFocus(QWidget* other)
{
    if (m_life->isEnding() || xe::isListOpen(*this))
        return;
    CEaseComboBox_X::OnKillFocus(other);
    if (!xe::isPartOf(other, GetSafeHwnd()) && xe::listKind(GetStyle()) == CBS_DROPDOWNLIST)
        EndEdit();
}

void CEaseInPlaceList_X::endBy(UINT vk, UINT modifiers)
{
    if (m_life->isEnding())
        return;
    if (vk == VK_ESCAPE)
        SetWindowText(m_sInitText);
    m_nLastChar = vk;
    m_life->endByKey(modifiers);
}

void CEaseInPlaceList_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (m_life->isEnding())
        return;
    m_releases->notePress(vk);
    if (xe::isWayOut(vk) && (m_bExitOnArrows || m_life->isControlHeld(modifiers))) {
        endBy(vk, modifiers);
    } else {
        CEaseComboBox_X::OnKeyDown(vk, repeatCount, modifiers);
    }
}

void CEaseInPlaceList_X::OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (m_life->isEnding())
        return;
    if (!m_releases->endsEdit(vk)) {
        CEaseComboBox_X::OnKeyUp(vk, repeatCount, modifiers);
        return;
    }
    endBy(vk, modifiers);
}
