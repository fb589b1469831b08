// Dialog bars.

#include "frame/docking.h"
#include "xeafxbar.h"

IMPLEMENT_DYNAMIC_X(CDialogBar_X, CControlBar_X)

namespace {

constexpr int asFarAsItGoes = 32767;

} // namespace

bool CDialogBar_X::AttachDefault(QWidget* parent) { return Attach(new xe::DockWidget(parent), parent, false); }

int CDialogBar_X::Create(QWidget* parent, const wchar_t*, unsigned int style, unsigned int)
{
    const QPointer<CDialogBar_X> living(this);
    if (!CWnd_X::Create(style, parent))
        return 0;
    if (living)
        xe::placeByStyle(Imp<QDockWidget>(), style, false);
    const QWidget* const bar = living ? GetSafeHwnd() : nullptr;
    if (bar && m_sizeDefault == CSize())
        m_sizeDefault = CSize(bar->width(), bar->height());
    return 1;
}

int CDialogBar_X::Create(QWidget* parent, unsigned int templateId, unsigned int style, unsigned int id)
{
    const ULONG_PTR number = LOWORD(templateId);
    return Create(parent, reinterpret_cast<const wchar_t*>(number), style, id);
}

CSize CDialogBar_X::CalcFixedLayout(int stretch, int horizontal)
{
    if (!stretch)
        return m_sizeDefault;
    return horizontal ? CSize(asFarAsItGoes, m_sizeDefault.cy) : CSize(m_sizeDefault.cx, asFarAsItGoes);
}

BOOL CDialogBar_X::SetOccDialogInfo(_AFX_OCC_DIALOG_INFO_X* info)
{
    m_pOccDialogInfo = info;
    return TRUE;
}
