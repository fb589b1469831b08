#include "xeoledt.h"

#include <cmath>

namespace {

constexpr double mostSeconds = 9.0e15; // in milliseconds still in 64 bits

CString_X number(int value) { return QString::number(value); }

CString_X twoDigits(int value) { return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0')); }

} // namespace

COleDateTime_X::COleDateTime_X(double seconds) { *this = seconds; }

COleDateTime_X::COleDateTime_X(int year, int month, int day, int hour, int minute, int second)
{
    SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime_X& COleDateTime_X::operator=(double seconds)
{
    dt = seconds;
    status = valid;
    if (std::abs(seconds) <= mostSeconds) // not a number is neither
        setSecsSinceEpoch(static_cast<qint64>(seconds));
    else
        QDateTime::operator=(QDateTime());
    return *this;
}

COleDateTime_X COleDateTime_X::GetCurrentTime()
{
    COleDateTime_X now;
    now.setUnsignedSeconds(currentSecsSinceEpoch());
    return now;
}

void COleDateTime_X::setUnsignedSeconds(qint64 seconds) { *this = static_cast<double>(static_cast<quint32>(seconds)); }

int COleDateTime_X::SetDateTime(int year, int month, int day, int hour, int minute, int second)
{
    setUnsignedSeconds(QDateTime(QDate(year, month, day), QTime(hour, minute, second)).toSecsSinceEpoch());
    return 0;
}

int COleDateTime_X::SetDate(int year, int month, int day) { return SetDateTime(year, month, day, 0, 0, 0); }

int COleDateTime_X::SetTime(int hour, int minute, int second) { return SetDateTime(1970, 1, 1, hour, minute, second); }

int COleDateTime_X::ParseDateTime(const wchar_t* text, unsigned flags, unsigned)
{
    const QString words = XeQString(text);
    if (flags & VAR_TIMEVALUEONLY) {
        const QTime time = QTime::fromString(words.section(' ', 1, 1), QStringLiteral("hh:mm:ss"));
        SetTime(time.hour(), time.minute(), time.second());
    } else if (flags & VAR_DATEVALUEONLY) {
        const QDate date = QDate::fromString(words.section(' ', 0, 0), QStringLiteral("yyyy-MM-dd"));
        SetDate(date.year(), date.month(), date.day());
    }
    return 1;
}

CString_X COleDateTime_X::Format(const wchar_t* format) const
{
    CString_X text = format;
    text.Replace(L"%Y", number(GetYear()));
    text.Replace(L"%y", number(GetYear() % 100));
    text.Replace(L"%m", twoDigits(GetMonth()));
    text.Replace(L"%d", twoDigits(GetDay()));
    text.Replace(L"%H", twoDigits(GetHour()));
    text.Replace(L"%M", twoDigits(GetMinute()));
    text.Replace(L"%S", twoDigits(GetSecond()));
    return text;
}

bool COleDateTime_X::operator==(const COleDateTime_X& other) const
{
    if (isComparable(other))
        return dt == other.dt;
    return status == null && other.status == null;
}

bool COleDateTime_X::operator<(const COleDateTime_X& other) const { return isComparable(other) && dt < other.dt; }

bool COleDateTime_X::operator<=(const COleDateTime_X& other) const { return isComparable(other) && dt <= other.dt; }
