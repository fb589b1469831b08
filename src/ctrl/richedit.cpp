#include "xeafxctrl.h"

#include <QTextEdit>

int CRichEditCtrl_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    return CWnd_X::Create(style & ~(WS_HSCROLL | WS_VSCROLL), rect, parent);
}

bool CRichEditCtrl_X::AttachDefault(QWidget* parent) { return Attach(new QTextEdit(parent), parent, false); }

void CRichEditCtrl_X::GetWindowText(CString_X& text) const
{
    if (const auto* const edit = Imp<QTextEdit>())
        text = edit->toPlainText();
}

void CRichEditCtrl_X::SetWindowText(const wchar_t* text)
{
    if (auto* const edit = Imp<QTextEdit>())
        edit->setPlainText(XeQString(text));
}
