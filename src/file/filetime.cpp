#include "file/filetime.h"
#include "xefileapi.h"

LONG CompareFileTime_X(const FILETIME* a, const FILETIME* b)
{
    const qint64 left = a ? xe::milliseconds(*a) : 0;
    const qint64 right = b ? xe::milliseconds(*b) : 0;
    return left < right ? -1 : left > right;
}

void GetSystemTimeAsFileTime_X(FILETIME* time)
{
    if (time)
        *time = xe::fileTime(QDateTime::currentDateTime());
}

BOOL FileTimeToLocalFileTime_X(const FILETIME* time, FILETIME* local)
{
    if (!time || !local)
        return FALSE;
    QDateTime moment = QDateTime::fromMSecsSinceEpoch(xe::milliseconds(*time));
    moment.setTimeSpec(Qt::UTC); // the same wall clock
    *local = xe::fileTime(moment);
    return TRUE;
}

BOOL LocalFileTimeToFileTime_X(const FILETIME* local, FILETIME* time)
{
    if (!local || !time)
        return FALSE;
    QDateTime moment = QDateTime::fromMSecsSinceEpoch(xe::milliseconds(*local), Qt::UTC);
    moment.setTimeSpec(Qt::LocalTime);
    *time = xe::fileTime(moment);
    return TRUE;
}
