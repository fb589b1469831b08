#include "xeafxdtctl.h"

IMPLEMENT_DYNCREATE_X(CDateTimeCtrl_X, CWnd_X)

bool CDateTimeCtrl_X::AttachDefault(QWidget* parent) { return Attach(new QDateEdit(parent), parent, false); }

bool CDateTimeCtrl_X::OnAttach()
{
    if (!CWnd_X::OnAttach())
        return false;
    Imp<QDateEdit>()->setCalendarPopup(true);
    return true;
}

BOOL CDateTimeCtrl_X::SetTime(const _SYSTEMTIME* time)
{
    auto* const field = Imp<QDateEdit>();
    if (!field || !time)
        return FALSE;
    field->setDate(QDate(time->wYear, time->wMonth, time->wDay));
    return TRUE;
}

DWORD CDateTimeCtrl_X::GetTime(_SYSTEMTIME* time) const
{
    const auto* const field = Imp<QDateEdit>();
    if (!field || !time)
        return 0;
    const QDate date = field->date();
    time->wYear = static_cast<WORD>(date.year());
    time->wMonth = static_cast<WORD>(date.month());
    time->wDay = static_cast<WORD>(date.day());
    return 0;
}
