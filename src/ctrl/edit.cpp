#include "XeCustomUI.h"
#include "ctrl/barcoupling.h"
#include "text/widetext.h"
#include "xeafxctrl.h"

#include <limits>

int CEdit_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    return CWnd_X::Create(style, rect, parent);
}

bool CEdit_X::AttachDefault(QWidget* parent)
{
    if (GetStyle() & ES_MULTILINE)
        return Attach(new XeCUITextEdit(parent), parent, false);
    return Attach(new XeCUILineEdit(parent), parent, false);
}

bool CEdit_X::OnAttach()
{
    if (!CWnd_X::OnAttach())
        return false;
    ModifyStyle(ES_MULTILINE, Imp<QTextEdit>() ? ES_MULTILINE : 0);
    return true;
}

int CEdit_X::OnCreate(tagCREATESTRUCTW* createStruct)
{
    const int result = CWnd_X::OnCreate(createStruct);
    auto* const edit = Imp<QTextEdit>();
    if (!edit || IsExternalImpObj() || !(GetStyle() & ES_MULTILINE))
        return result;
    edit->setLineWrapMode(QTextEdit::NoWrap);
    edit->setContextMenuPolicy(Qt::NoContextMenu);
    edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit->horizontalScrollBar()->setEnabled(false);
    edit->verticalScrollBar()->setEnabled(false);
    xe::coupleBars(*edit->horizontalScrollBar(), GetScrollBarCtrl(SB_HORZ));
    xe::coupleBars(*edit->verticalScrollBar(), GetScrollBarCtrl(SB_VERT));
    return result;
}

// ---------------------------------------------------------------------------------------------------------------- text

void CEdit_X::GetWindowText(CString_X& text) const
{
    if (const auto* const edit = Imp<QTextEdit>())
        text = edit->toPlainText();
    else if (const auto* const line = Imp<QLineEdit>())
        text = line->text();
}

void CEdit_X::SetWindowText(const wchar_t* text)
{
    if (auto* const edit = Imp<QTextEdit>())
        edit->setText(XeQString(text));
    else if (auto* const line = Imp<QLineEdit>())
        line->setText(XeQString(text));
}

BOOL CEdit_X::SetCueBanner(const wchar_t* text, int)
{
    if (auto* const edit = Imp<QTextEdit>())
        edit->setPlaceholderText(XeQString(text));
    else if (auto* const line = Imp<QLineEdit>())
        line->setPlaceholderText(XeQString(text));
    return GetSafeHwnd() != nullptr;
}

BOOL CEdit_X::GetCueBanner(wchar_t* buffer, int) const
{
    if (const auto* const edit = Imp<QTextEdit>())
        xe::writeWide(edit->placeholderText(), buffer, std::numeric_limits<int>::max());
    else if (const auto* const line = Imp<QLineEdit>())
        xe::writeWide(line->placeholderText(), buffer, std::numeric_limits<int>::max());
    return GetSafeHwnd() && buffer;
}

int CEdit_X::GetModify() const
{
    if (const auto* const edit = Imp<QTextEdit>())
        return edit->document()->isModified();
    const auto* const line = Imp<QLineEdit>();
    return line && line->isModified();
}

void CEdit_X::SetModify(int modified)
{
    if (auto* const edit = Imp<QTextEdit>())
        edit->document()->setModified(modified != 0);
    else if (auto* const line = Imp<QLineEdit>())
        line->setModified(modified != 0);
}

BOOL CEdit_X::SetReadOnly(int readOnly)
{
    if (auto* const edit = Imp<QTextEdit>())
        edit->setReadOnly(readOnly != 0);
    else if (auto* const line = Imp<QLineEdit>())
        line->setReadOnly(readOnly != 0);
    return GetSafeHwnd() != nullptr;
}

// ------------------------------------------------------------------------------------------------------------ geometry

void CEdit_X::GetRect(tagRECT* rect) const
{
    const QWidget* const widget = GetSafeHwnd();
    if (widget && rect)
        *rect = {0, 0, widget->width(), widget->height()};
}

void CEdit_X::SetRect(const tagRECT* rect) { MoveWindow(rect, TRUE); }

// ------------------------------------------------------------------------------------------------------------ commands

namespace {

// The command of either kind of field.
template <class OnLine, class OnText>
void command(const CEdit_X& field, OnLine onLine, OnText onText)
{
    if (auto* const edit = field.Imp<QTextEdit>())
        (edit->*onText)();
    else if (auto* const line = field.Imp<QLineEdit>())
        (line->*onLine)();
}

} // namespace

BOOL CEdit_X::Undo()
{
    command(*this, &QLineEdit::undo, &QTextEdit::undo);
    return GetSafeHwnd() != nullptr;
}

void CEdit_X::Clear() { command(*this, &QLineEdit::clear, &QTextEdit::clear); }
void CEdit_X::Copy() { command(*this, &QLineEdit::copy, &QTextEdit::copy); }
void CEdit_X::Cut() { command(*this, &QLineEdit::cut, &QTextEdit::cut); }
void CEdit_X::Paste() { command(*this, &QLineEdit::paste, &QTextEdit::paste); }

void CEdit_X::ReplaceSel(const wchar_t* text, int)
{
    if (auto* const edit = Imp<QTextEdit>())
        edit->insertPlainText(XeQString(text));
    else if (auto* const line = Imp<QLineEdit>())
        line->insert(XeQString(text));
}
