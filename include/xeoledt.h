/// @file xeoledt.h
/// The date and time value.
#pragma once

#include "xeafxstr.h"

#include <QDateTime>

inline constexpr unsigned VAR_TIMEVALUEONLY = 1;
inline constexpr unsigned VAR_DATEVALUEONLY = 2;

/// A moment: a QDateTime in local time and, beside it, a number of seconds.
///
/// The number counts seconds since 1970-01-01T00:00:00 UTC, not days since 1899-12-30 as the published class does, and
/// nothing converts between the two: a date number of a Windows program means another moment here.
///
/// @code
/// COleDateTime_X delivered;
/// delivered.SetDate(2024, 3, 5);
/// CString_X text = delivered.Format(L"%Y-%m-%d");            // 2024-03-05
/// bool late = double(delivered) < double(COleDateTime_X::GetCurrentTime());
/// @endcode
///
/// Values that are set by calendar fields or to the current time keep the low 32 bits of their seconds, read as
/// unsigned: a moment before 1970, which midnight of 1970-01-01 is east of Greenwich, becomes one of the years from
/// 1970 to 2106, and so does one after 2106.
class XE_EXPORT COleDateTime_X : public QDateTime
{
public:
    enum DateTimeStatus { valid = 0, invalid = 1, null = 2 };

    /// 0 seconds, with the status `valid`; the QDateTime is null, and so are its fields.
    COleDateTime_X() = default;
    /// Fractions of a second stay in `dt` alone. Seconds that a QDateTime cannot hold, and what is no number, leave it
    /// null.
    COleDateTime_X(double seconds);
    COleDateTime_X(int year, int month, int day, int hour, int minute, int second);
    COleDateTime_X& operator=(double seconds);

    /// The local time of now.
    static COleDateTime_X GetCurrentTime();

    /// Stores a status and changes nothing else.
    void SetStatus(DateTimeStatus newStatus) { status = newStatus; }
    /// `invalid` and `null` only after SetStatus(): nothing else sets them.
    DateTimeStatus GetStatus() const { return status; }

    /// A field in local time. A null QDateTime has the date fields 0 and the time fields -1.
    int GetYear() const { return date().year(); }
    int GetMonth() const { return date().month(); }
    int GetDay() const { return date().day(); }
    int GetHour() const { return time().hour(); }
    int GetMinute() const { return time().minute(); }
    int GetSecond() const { return time().second(); }
    int GetDayOfWeek() const { return date().dayOfWeek(); } ///< Monday 1 to Sunday 7, unlike the published class
    int GetDayOfYear() const { return date().dayOfYear(); }

    /// The seconds; 0 unless the status is `valid`.
    operator double() const { return status == valid ? dt : 0.0; }

    /// Local time. Always returns 0 and makes the status `valid`: a time that does not exist is midnight, a date that
    /// does not exist gives some moment.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second);
    int SetDate(int year, int month, int day);     ///< midnight
    int SetTime(int hour, int minute, int second); ///< on 1970-01-01

    /// With VAR_TIMEVALUEONLY the second word of the text, in the form hh:mm:ss, goes to SetTime(); otherwise with
    /// VAR_DATEVALUEONLY the first word, in the form yyyy-MM-dd, goes to SetDate(). Any other flags read nothing: there
    /// is no form with both. Always returns 1, also for a text of another form. `locale` is ignored.
    int ParseDateTime(const wchar_t* text, unsigned flags = 0, unsigned locale = 0);

    /// The format with its tokens replaced: %Y the year, %y its last two digits without padding, and of two digits each
    /// %m month, %d day, %H hour, %M minute, %S second. All else stays, `%A` and `%%` too.
    CString_X Format(const wchar_t* format) const;

    /// Valid values compare by their seconds. A value that is not valid is equal to nothing but, if both are null,
    /// another one; it is neither less nor greater than any.
    bool operator==(const COleDateTime_X& other) const;
    bool operator!=(const COleDateTime_X& other) const { return !(*this == other); }
    bool operator<(const COleDateTime_X& other) const;
    bool operator>(const COleDateTime_X& other) const { return other < *this; }
    bool operator<=(const COleDateTime_X& other) const;
    bool operator>=(const COleDateTime_X& other) const { return other <= *this; }

    double dt = 0;
    DateTimeStatus status = valid;

private:
    void setUnsignedSeconds(qint64 seconds);
    bool isComparable(const COleDateTime_X& other) const { return status == valid && other.status == valid; }
};
