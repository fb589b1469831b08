#include "xeafxdlgs.h"

#include "dialog/standardbuttons.h"
#include "geometry/colorref.h"

IMPLEMENT_DYNAMIC_X(CColorDialog_X, CCommonDialog_X)

CColorDialog_X::CColorDialog_X(COLORREF initial, unsigned flags, QWidget* parent)
    : CCommonDialog_X(parent),
      m_color(initial),
      m_dwFlags(flags)
{}

bool CColorDialog_X::AttachDefault(QWidget* parent)
{
    auto* const dialog = new QColorDialog(parent);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    return Attach(dialog, parent, false);
}

BOOL CColorDialog_X::OnInitDialog()
{
    const BOOL result = CDialog_X::OnInitDialog();
    auto* const dialog = Imp<QColorDialog>();
    if (!result || !dialog)
        return result;
    dialog->setCurrentColor(xe::toQColor(m_color));
    xe::labelButton(*dialog, QDialogButtonBox::Cancel, xe::cancelLabel);
    xe::labelButton(*dialog, QDialogButtonBox::Ok, xe::okLabel);
    return result;
}

void CColorDialog_X::OnOK()
{
    if (const auto* const dialog = Imp<QColorDialog>())
        m_color = xe::toColorRef(dialog->currentColor());
    CDialog_X::OnOK();
}
