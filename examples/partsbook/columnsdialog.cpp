#include "columnsdialog.h"
#include "ui_columnsdialog.h" // ahead of resource.h, whose macros have the names of its members

#include "text.h"

#include <xeafxddx.h>

IMPLEMENT_DYNAMIC_X(CColumnsDialog, CDialog_X)

CColumnsDialog::CColumnsDialog(const std::vector<CString_X>& headings, CWnd_X* parent)
    : CDialog_X(IDD_COLUMNS, parent),
      m_headings(headings)
{}

void CColumnsDialog::SetupUI()
{
    Ui::CColumnsDialog().setupUi(Imp<QDialog>());
    setupStyle(GetSafeHwnd());
}

BOOL CColumnsDialog::OnInitDialog()
{
    SetWindowText(loadText(IDS_COLUMNS));
    return CDialog_X::OnInitDialog();
}

void CColumnsDialog::DoDataExchange(CDataExchange_X* exchange)
{
    CDialog_X::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_COLUMNS, m_columns);
    for (int column = 0; column < static_cast<int>(m_headings.size()); ++column) {
        const unsigned bit = 1u << column;
        if (!exchange->m_bSaveAndValidate) {
            m_columns.AddString(m_headings[static_cast<std::size_t>(column)]);
            m_columns.SetCheck(column, m_hidden & bit ? BST_UNCHECKED : BST_CHECKED);
            m_columns.Enable(column, column > 0);
            continue;
        }
        const bool shown = m_columns.GetCheck(column) == BST_CHECKED;
        m_hidden = shown ? m_hidden & ~bit : m_hidden | bit;
    }
}
