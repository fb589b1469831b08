#include "ctrl/creation.h"
#include "xeafxdtctl.h"

IMPLEMENT_DYNCREATE_X(CMonthCalCtrl_X, CWnd_X)

bool CMonthCalCtrl_X::AttachDefault(QWidget* parent) { return Attach(new QCalendarWidget(parent), parent, false); }

int CMonthCalCtrl_X::Create(DWORD style, const tagRECT& rect, QWidget* parent)
{
    const auto create = [&] { return CWnd_X::Create(style, rect, parent); };
    return xe::createAndFinish<QCalendarWidget>(*this, create, [style](QCalendarWidget& calendar) {
        calendar.setVerticalHeaderFormat(style & MCS_WEEKNUMBERS ? QCalendarWidget::ISOWeekNumbers
                                                                 : QCalendarWidget::NoVerticalHeader);
    });
}

int CMonthCalCtrl_X::Create(DWORD style, const tagPOINT& point, QWidget* parent)
{
    const tagRECT place{point.x, point.y, point.x, point.y};
    const auto create = [&] { return Create(style, place, parent); };
    return xe::createAndFinish<QWidget>(*this, create, [](QWidget& calendar) { calendar.resize(calendar.sizeHint()); });
}

BOOL CMonthCalCtrl_X::SetCurSel(const QDate& date)
{
    auto* const calendar = Imp<QCalendarWidget>();
    if (!calendar || !date.isValid())
        return FALSE;
    calendar->setSelectedDate(date);
    return TRUE;
}

BOOL CMonthCalCtrl_X::SetCurSel(const _SYSTEMTIME* date)
{
    return date && SetCurSel(QDate(date->wYear, date->wMonth, date->wDay));
}

BOOL CMonthCalCtrl_X::SetCurSel(const COleDateTime_X& date)
{
    return SetCurSel(QDate(date.GetYear(), date.GetMonth(), date.GetDay()));
}

BOOL CMonthCalCtrl_X::GetCurSel(QDate& date) const
{
    const auto* const calendar = Imp<QCalendarWidget>();
    if (!calendar)
        return FALSE;
    date = calendar->selectedDate();
    return TRUE;
}

BOOL CMonthCalCtrl_X::GetCurSel(_SYSTEMTIME* date) const
{
    QDate selected;
    if (!date || !GetCurSel(selected))
        return FALSE;
    *date = {static_cast<WORD>(selected.year()),
             static_cast<WORD>(selected.month()),
             static_cast<WORD>(selected.dayOfWeek()),
             static_cast<WORD>(selected.day()),
             0,
             0,
             0,
             0};
    return TRUE;
}

BOOL CMonthCalCtrl_X::GetCurSel(COleDateTime_X& date) const
{
    QDate selected;
    if (!GetCurSel(selected))
        return FALSE;
    date.SetDateTime(selected.year(), selected.month(), selected.day(), 0, 0, 0);
    return TRUE;
}
