#include "XeInPlaceEdit.h"

#include "grid/editorlife.h"

#include <QLineEdit>

#include <algorithm>

IMPLEMENT_DYNAMIC_X(CInPlaceEdit_X, CEdit_X)

BEGIN_MESSAGE_MAP_X(CInPlaceEdit_X, CEdit_X)
    // Without the second handler, for which the other window would get a wrapper.
    XE_MSG_ENTRY(WM_KILLFOCUS, AfxSig_v_W_v, OnKillFocus, void(QWidget*))
    ON_WM_CHAR_X()
    ON_WM_KEYDOWN_X()
END_MESSAGE_MAP_X()

namespace {

bool alreadyEnding = false; // of any editor

constexpr DWORD fieldStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
constexpr unsigned openedByHost = 1;

Qt::Alignment alignmentOf(unsigned style)
{
    if (style & ES_RIGHT)
        return Qt::AlignRight;
    return style & ES_CENTER ? Qt::AlignCenter : Qt::AlignLeft;
}

xe::Opening fieldOpening(unsigned ch)
{
    if (ch == VK_TAB || (ch >= VK_SPACE && ch <= VK_DOWN))
        return {true, false};
    if (ch == openedByHost || ch == VK_RETURN)
        return {false, false};
    return {ch != VK_BACK, true};
}

int marginOf(const QWidget& parent, int row, int col)
{
    const auto* const grid = qobject_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(const_cast<QWidget*>(&parent)));
    const CGridCellBase_X* const cell = grid ? grid->cellAt(row, col) : nullptr;
    return cell ? static_cast<int>(cell->GetMargin()) : 0;
}

} // namespace

CInPlaceEdit_X::CInPlaceEdit_X(QWidget* parent, CRect& rect, unsigned int style, unsigned int id, int row, int col,
                               CString_X text, unsigned int ch)
    : m_nRow(row),
      m_nCol(col),
      m_sInitText(text),
      m_nLastChar(0),
      m_bExitOnArrows(ch != openedByHost),
      m_Rect(rect),
      m_life(std::make_unique<xe::EditorLife>(*this, [this] { EndEdit(); }))
{
    if (parent && CEdit_X::Create(style | fieldStyle, rect, parent, id) && Imp<QLineEdit>()) {
        m_life->enter(*parent, row, col);
        setUpField(*parent, style);
        SetFocus();
        if (Imp<QLineEdit>())
            begin(ch);
    }
    m_life->setBuilt();
}

CInPlaceEdit_X::~CInPlaceEdit_X() = default;

void CInPlaceEdit_X::setUpField(const QWidget& parent, unsigned int style)
{
    auto& field = *Imp<QLineEdit>();
    const int margin = marginOf(parent, m_nRow, m_nCol);
    field.setFont(parent.font());
    field.setAlignment(alignmentOf(style));
    field.setFrame(false); // else a row of the usual height cuts the text off
    field.setTextMargins(margin, 0, margin, 0);
    SetWindowText(m_sInitText);
    connect(&field, &QLineEdit::textEdited, this, &CInPlaceEdit_X::grow);
}

void CInPlaceEdit_X::begin(unsigned int ch) { xe::open(*this, Imp<QLineEdit>(), ch, fieldOpening(ch)); }

void CInPlaceEdit_X::grow()
{
    const QWidget* const field = GetSafeHwnd();
    QWidget* const parent = GetParent_X(GetSafeHwnd());
    if (!field || !parent)
        return;
    CString_X text;
    GetWindowText(text);
    const int width = field->fontMetrics().horizontalAdvance(XeQString(text + L"  "));
    if (width <= m_Rect.Width())
        return;
    CRect client(0, 0, parent->width(), parent->height());
    if (const CWnd_X* const grid = FromHandlePermanent(parent))
        grid->GetClientRect(&client);
    m_Rect.right = std::max(m_Rect.right, std::min(m_Rect.left + width, client.right));
    MoveWindow(&m_Rect, TRUE);
}

// ------------------------------------------------------------------------------------------------------------- the end

void CInPlaceEdit_X::EndEdit()
{
    if (alreadyEnding)
        return;
    const std::unique_ptr<bool, void (*)(bool*)> ending(&alreadyEnding, [](bool* flag) { *flag = false; });
    alreadyEnding = true;
    CString_X text;
    GetWindowText(text);
    m_life->report(m_nRow, m_nCol, text, m_nLastChar);
}

void CInPlaceEdit_X::PostNcDestroy()
{
    if (m_life->isBuilt())
        delete this;
}

bool CInPlaceEdit_X::eventFilter(QObject* target, QEvent* event)
{
    return m_life->filter(target, event, [this](QObject* o, QEvent* e) { return CEdit_X::eventFilter(o, e); });
}

int CInPlaceEdit_X::PreTranslateMessage(tagMSG* message)
{
    return message && message->message == WM_SYSCHAR ? 1 : CEdit_X::PreTranslateMessage(message);
}

void CInPlaceEdit_X::OnKillFocus(QWidget* other)
{
    CEdit_X::OnKillFocus(other);
    if (m_life->isEnding())
        return;
    if (alreadyEnding)
        m_life->catchUp();
    else
        EndEdit();
}

void CInPlaceEdit_X::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (m_life->isEnding())
        return;
    const bool leaves = xe::isWayOut(vk) && (m_bExitOnArrows || m_life->isControlHeld(modifiers));
    if (vk != VK_RETURN && vk != VK_ESCAPE && !leaves) {
        CEdit_X::OnKeyDown(vk, repeatCount, modifiers);
        return;
    }
    if (vk == VK_ESCAPE)
        SetWindowText(m_sInitText);
    m_nLastChar = vk;
    m_life->endByKey(modifiers);
}

void CInPlaceEdit_X::OnChar(UINT character, UINT repeatCount, UINT modifiers)
{
    if (m_life->isEnding())
        return;
    const bool isKey = character == VK_TAB || character == VK_RETURN || character == VK_ESCAPE;
    if (!isKey || (modifiers & MK_CONTROL)) {
        CEdit_X::OnChar(character, repeatCount, modifiers);
        grow();
        return;
    }
    if (character == VK_ESCAPE)
        SetWindowText(m_sInitText);
    m_nLastChar = character;
    m_life->endByKey(modifiers);
}
