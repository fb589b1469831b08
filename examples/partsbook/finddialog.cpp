#include "finddialog.h"
#include "ui_finddialog.h" // ahead of resource.h, whose macros have the names of its members

#include "control.h"
#include "text.h"

#include <xeafxddx.h>

IMPLEMENT_DYNCREATE_X(CFindDialog, CDialog_X)

void CFindDialog::SetupUI()
{
    Ui::CFindDialog().setupUi(Imp<QDialog>());
    setupStyle(GetSafeHwnd());
}

void CFindDialog::DoDataExchange(CDataExchange_X* exchange)
{
    CDialog_X::DoDataExchange(exchange);
    DDX_Text(exchange, IDC_FIND_TEXT, m_text);
    DDX_Check(exchange, IDC_MATCH_CASE, m_matchCase);
}

void CFindDialog::Open(CWnd_X* frame)
{
    if (!GetSafeHwnd() && !Create(IDD_FIND, frame))
        return;
    ShowWindow(SW_SHOW);
    auto& text = control<QLineEdit>(*this, IDC_FIND_TEXT);
    text.setFocus();
    text.selectAll();
}

// The button "Find next", and Return: the dialog stays.
void CFindDialog::OnOK()
{
    if (UpdateData(TRUE))
        FindNext();
}

void CFindDialog::FindNext()
{
    const auto matchCase = static_cast<WPARAM>(m_matchCase);
    const auto text = reinterpret_cast<LPARAM>(&m_text);
    const bool found = m_text.IsEmpty() || GetParent()->SendMessage(WM_FIND_PART, matchCase, text);
    SetDlgItemText(IDC_FIND_RESULT, found ? L"" : loadText(IDS_NOT_FOUND).GetString());
}
