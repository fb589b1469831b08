#include "partdialog.h"
#include "ui_partdialog.h" // ahead of resource.h, whose macros have the names of its members

#include "control.h"
#include "listexchange.h"
#include "text.h"

IMPLEMENT_DYNAMIC_X(CPartDialog, CDialog_X)

CPartDialog::CPartDialog(const CString_X& title, const QStringList& suppliers, CWnd_X* parent)
    : CDialog_X(IDD_PART, parent),
      m_title(title),
      m_suppliers(suppliers)
{}

void CPartDialog::SetupUI()
{
    Ui::CPartDialog().setupUi(Imp<QDialog>());
    control<QSlider>(*this, IDC_MINIMUM).setMaximum(partlimit::minimum);
    setupStyle(GetSafeHwnd());
}

BOOL CPartDialog::OnInitDialog()
{
    SetWindowText(m_title);
    control<QListWidget>(*this, IDC_SUPPLIER).addItems(m_suppliers);
    return CDialog_X::OnInitDialog();
}

void CPartDialog::DoDataExchange(CDataExchange_X* exchange)
{
    CDialog_X::DoDataExchange(exchange);
    // Into a copy, which counts only if everything passes.
    Part part = m_part;
    DDX_Text(exchange, IDC_NUMBER, part.number);
    DDV_MaxChars(exchange, part.number, partlimit::number);
    if (exchange->m_bSaveAndValidate && part.number.IsEmpty())
        exchange->Fail(loadText(IDS_NUMBER_MISSING));
    DDX_Text(exchange, IDC_NAME, part.name);
    DDV_MaxChars(exchange, part.name, partlimit::name);
    DDX_CBString(exchange, IDC_KIND, part.kind);
    DDV_MaxChars(exchange, part.kind, partlimit::kind);
    DDX_Text(exchange, IDC_STOCK, part.stock);
    DDV_MinMaxInt(exchange, part.stock, 0, partlimit::stock);
    DDX_Slider(exchange, IDC_MINIMUM, part.minimum);
    DDX_Text(exchange, IDC_PRICE, part.price);
    DDV_MinMaxDouble(exchange, part.price, 0, partlimit::price);
    DDX_Radio(exchange, IDC_BOUGHT, part.source);
    DDX_ListText(exchange, IDC_SUPPLIER, part.supplier);
    DDX_Check(exchange, IDC_IN_USE, part.inUse);
    DDX_Text(exchange, IDC_REMARK, part.remark);
    DDV_MaxChars(exchange, part.remark, partlimit::remark);
    m_part = part;
}
