#include "XeEaseInPlaceList.h"
#include "grid/listediting.h"
#include "xehook.h"

#include <QCoreApplication>
#include <QLineEdit>

IMPLEMENT_DYNAMIC_X(CInPlaceList_X, CComboBox_X)

BEGIN_MESSAGE_MAP_X(CInPlaceList_X, CComboBox_X)
    XE_MSG_ENTRY(WM_KILLFOCUS, AfxSig_v_W_v, OnKillFocus, void(QWidget*))
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
END_MESSAGE_MAP_X()

namespace {

constexpr DWORD boxStyle = WS_CHILD | WS_VISIBLE | WS_BORDER;

// Qt's list takes the release of the press that closes it, and the grid would wait for that.
void forgetButton(CWnd_X* parent)
{
    if (auto* const grid = qobject_cast<CGridCtrl_X*>(parent))
        grid->m_bLMouseButtonDown = FALSE;
}

} // namespace

CInPlaceList_X::CInPlaceList_X(CWnd_X* parent, CRect& rect, unsigned int style, unsigned int id, int row, int col,
                               CStringArray_X& items, CString_X text, unsigned int ch)
    : m_nNumLines(xe::linesOf(items)),
      m_sInitText(text),
      m_nRow(row),
      m_nCol(col),
      m_nLastChar(0),
      m_bExitOnArrows(FALSE),
      m_editing(std::make_unique<xe::ListEditing>(*this, ch, m_sInitText, m_nLastChar, [this] { EndEdit(); }))
{
    QWidget* const window = parent ? parent->GetSafeHwnd() : nullptr;
    if (window && CComboBox_X::Create(style | boxStyle, rect, window, id) && Imp<QComboBox>()) {
        m_editing->enter(*window, row, col, items, rect.Width());
        m_edit.SubclassWindow(GetEditBox());
        if (xe::listKind(style) == CBS_DROPDOWN) {
            const QPointer<CWnd_X> grid(parent);
            connect(Imp<QComboBox>(), QOverload<int>::of(&QComboBox::activated), this, [grid] { forgetButton(grid); });
        }
        m_editing->begin(style, ch);
    }
    m_editing->life.setBuilt();
}

CInPlaceList_X::~CInPlaceList_X() = default;

void CInPlaceList_X::EndEdit()
{
    CString_X text;
    GetWindowText(text);
    m_editing->life.report(m_nRow, m_nCol, text, m_nLastChar);
}

void CInPlaceList_X::PostNcDestroy()
{
    if (m_editing->life.isBuilt())
        delete this;
}

bool CInPlaceList_X::eventFilter(QObject* target, QEvent* event)
{
    return m_editing->life.filter(target, event,
                                  [this](QObject* o, QEvent* e) { return CComboBox_X::eventFilter(o, e); });
}

int CInPlaceList_X::PreTranslateMessage(tagMSG* message)
{
    const bool isButton = message && (message->message == WM_LBUTTONDOWN || message->message == WM_LBUTTONUP);
    if (!isButton || xe::listKind(GetStyle()) == CBS_DROPDOWN)
        return CComboBox_X::PreTranslateMessage(message);
    if (message->message == WM_LBUTTONDOWN && Imp<QComboBox>())
        m_editing->watch.openByPress();
    return 1;
}

void CInPlaceList_X::OnKillFocus(QWidget* other)
{
    if (m_editing->life.isEnding() || xe::isListOpen(*this))
        return;
    CComboBox_X::OnKillFocus(other);
    if (!xe::isPartOf(other, GetSafeHwnd()))
        EndEdit();
}

void CInPlaceList_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (m_editing->life.isEnding())
        return;
    m_editing->releases.notePress(vk);
    const bool leaves = xe::isWayOut(vk) && (m_bExitOnArrows || m_editing->life.isControlHeld(modifiers));
    if (vk == VK_RETURN || vk == VK_ESCAPE || leaves)
        m_editing->endBy(vk, modifiers);
    else
        CComboBox_X::OnKeyDown(vk, repeatCount, modifiers);
}

void CInPlaceList_X::OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (!m_editing->life.isEnding() && !m_editing->endByRelease(vk, modifiers))
        CComboBox_X::OnKeyUp(vk, repeatCount, modifiers);
}

// ----------------------------------------------------------------------------------------------------------- the field

IMPLEMENT_DYNCREATE_X(CComboEdit_X, CEdit_X)

BEGIN_MESSAGE_MAP_X(CComboEdit_X, CEdit_X)
    XE_MSG_ENTRY(WM_KILLFOCUS, AfxSig_v_W_v, OnKillFocus, void(QWidget*))
    ON_WM_KEYDOWN_X()
    ON_WM_KEYUP_X()
END_MESSAGE_MAP_X()

namespace {

// As a message of its own: a key event that is sent has its number as text, and goes the way of shortcuts.
void sendOn(const CWnd_X& field, UINT message, UINT vk, UINT repeatCount, UINT modifiers)
{
    QWidget* const box = GetParent_X(field.GetSafeHwnd());
    if (!box)
        return;
    XeWinMsgEvent event(message, vk, static_cast<LPARAM>(modifiers << 16 | (repeatCount & 0xFFFF)));
    QCoreApplication::sendEvent(box, &event);
}

} // namespace

int CComboEdit_X::PreTranslateMessage(tagMSG* message)
{
    const UINT number = message ? message->message : WM_NULL;
    const bool isKey = number == WM_KEYDOWN || number == WM_KEYUP || number == WM_SYSCHAR;
    return isKey ? 1 : CEdit_X::PreTranslateMessage(message);
}

void CComboEdit_X::OnKillFocus(QWidget* other)
{
    CEdit_X::OnKillFocus(other);
    CWnd_X* const box = FromHandlePermanent(GetParent_X(GetSafeHwnd()));
    if (auto* const ease = qobject_cast<CEaseInPlaceList_X*>(box))
        ease->EndEdit();
    else if (auto* const list = qobject_cast<CInPlaceList_X*>(box))
        list->EndEdit();
}

void CComboEdit_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (xe::isWayOut(vk) && (modifiers & MK_CONTROL || GetKeyState_X(VK_CONTROL)))
        sendOn(*this, WM_KEYDOWN, vk, repeatCount, modifiers);
    else
        CEdit_X::OnKeyDown(vk, repeatCount, modifiers);
}

void CComboEdit_X::OnKeyUp(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (vk == VK_ESCAPE || vk == VK_TAB || vk == VK_RETURN)
        sendOn(*this, WM_KEYUP, vk, repeatCount, modifiers);
    else
        CEdit_X::OnKeyUp(vk, repeatCount, modifiers);
}
