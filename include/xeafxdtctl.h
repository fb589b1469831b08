/// @file xeafxdtctl.h
/// Date controls: the field for a date, and the calendar of a month.
///
/// Both know whole days: the time of a day is neither set nor told. They send no DTN_ or MCN_ notifications, unlike the
/// published controls: connect to the signals of the widget. Without a widget the members do nothing and give 0. GUI
/// thread only.
#pragma once

#include "xeafxwin.h"
#include "xeoledt.h"

#include <QCalendarWidget>
#include <QDateEdit>

// Styles of a date field: none counts.
inline constexpr DWORD DTS_SHORTDATEFORMAT = 0;
inline constexpr DWORD DTS_UPDOWN = 1;
inline constexpr DWORD DTS_SHOWNONE = 2;
inline constexpr DWORD DTS_LONGDATEFORMAT = 4;
inline constexpr DWORD DTS_TIMEFORMAT = 9;
inline constexpr DWORD DTS_RIGHTALIGN = 0x20;

// Styles of a calendar: of these MCS_WEEKNUMBERS counts.
inline constexpr DWORD MCS_DAYSTATE = 1;
inline constexpr DWORD MCS_MULTISELECT = 2;
inline constexpr DWORD MCS_WEEKNUMBERS = 4;
inline constexpr DWORD MCS_NOTODAYCIRCLE = 8;
inline constexpr DWORD MCS_NOTODAY = 0x10;

/// A QDateEdit with a calendar that drops down. With a style for times it is a field for a date all the same.
class XE_EXPORT CDateTimeCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CDateTimeCtrl_X)
    DECLARE_IMP_CLASS_X(QDateEdit)

    CDateTimeCtrl_X() : CWnd_X(Control()) {}

    /// Sets year, month and day, cut to the range of the widget. 1, also for a date that does not exist, which changes
    /// nothing; 0 for null. The widget tells of the change by its signal.
    BOOL SetTime(const _SYSTEMTIME* time);
    /// Writes year, month and day and leaves all else in the record. Always 0, which the published function gives for a
    /// time.
    DWORD GetTime(_SYSTEMTIME* time) const;

    bool AttachDefault(QWidget* parent) override;
    /// Has the calendar drop down, also in a field of a form.
    bool OnAttach() override;
};

/// A QCalendarWidget.
class XE_EXPORT CMonthCalCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CMonthCalCtrl_X)
    DECLARE_IMP_CLASS_X(QCalendarWidget)

    CMonthCalCtrl_X() : CWnd_X(Control()) {}

    /// CWnd_X::Create(); with MCS_WEEKNUMBERS the numbers of the weeks stand at the left.
    virtual int Create(DWORD style, const tagRECT& rect, QWidget* parent);
    /// The same at a point, as large as the widget likes to be.
    int Create(DWORD style, const tagPOINT& point, QWidget* parent);
    /// The same with the parent's wrapper. `id` has no meaning.
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(DWORD style, const tagRECT& rect, const Window* parent, UINT /*id*/ = 0)
    {
        return Create(style, rect, parent ? parent->GetSafeHwnd() : nullptr);
    }
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(DWORD style, const tagPOINT& point, const Window* parent, UINT /*id*/ = 0)
    {
        return Create(style, point, parent ? parent->GetSafeHwnd() : nullptr);
    }
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    /// Selects a day, cut to the range of the widget. 1; 0, with nothing changed, for null and for a date that does not
    /// exist.
    BOOL SetCurSel(const QDate& date);
    BOOL SetCurSel(const _SYSTEMTIME* date);
    BOOL SetCurSel(const COleDateTime_X& date);
    /// The selected day. Of the record the four fields of the time become 0, and wDayOfWeek is 1 for Monday to 7 for
    /// Sunday, unlike in the published record. A COleDateTime_X gets local midnight, by its SetDateTime(). 1; 0, with
    /// nothing written, for null.
    BOOL GetCurSel(QDate& date) const;
    BOOL GetCurSel(_SYSTEMTIME* date) const;
    BOOL GetCurSel(COleDateTime_X& date) const;

    bool AttachDefault(QWidget* parent) override;
};
