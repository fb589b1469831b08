#include "xewinuser.h"

#include "msg/hostcursor.h"

#include <QApplication>
#include <QCursor>
#include <QDesktopWidget>

#include <algorithm>
#include <climits>
#include <iterator>

namespace {

struct CursorRow
{
    ULONG_PTR id;
    int code;
};

constexpr int arrowCode = 256;
constexpr CursorRow cursorRows[] = {
    {IDC_ARROW, arrowCode}, {IDC_IBEAM, 257},    {IDC_CROSS, 258},    {IDC_WAIT, 259},    {IDC_SIZENS, 260},
    {IDC_SIZEWE, 261},      {IDC_SIZENESW, 262}, {IDC_SIZENWSE, 263}, {IDC_SIZEALL, 264}, {IDC_HAND, 268},
};

int g_nCursorType = arrowCode;

int codeOf(ULONG_PTR id)
{
    const auto* const row =
        std::find_if(std::begin(cursorRows), std::end(cursorRows), [id](const CursorRow& r) { return r.id == id; });
    return row == std::end(cursorRows) ? arrowCode : row->code;
}

} // namespace

HCURSOR LoadCursor_X(HINSTANCE, ULONG_PTR id)
{
    g_nCursorType = codeOf(id);
    return &g_nCursorType;
}

HCURSOR LoadCursor_X(HINSTANCE instance, LPCWSTR name)
{
    return LoadCursor_X(instance, reinterpret_cast<ULONG_PTR>(name));
}

HCURSOR SetCursor_X(HCURSOR cursor)
{
    const xe::SetHostCursor setCursor = xe::hostCursorFunction();
    if (cursor && setCursor)
        g_nCursorType = setCursor(nullptr, *cursor);
    return &g_nCursorType;
}

int ShowCursor_X(BOOL show)
{
    if (show)
        QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    else
        QGuiApplication::restoreOverrideCursor();
    return 1;
}

BOOL ClipCursor_X(const tagRECT*) { return FALSE; }

BOOL GetCursorPos_X(tagPOINT* point)
{
    if (!point)
        return FALSE;
    const QPoint position = QCursor::pos();
    *point = {position.x(), position.y()};
    return TRUE;
}

BOOL SetCursorPos_X(int x, int y)
{
    QCursor::setPos(x, y);
    return TRUE;
}

BOOL GetPhysicalCursorPos_X(tagPOINT* point)
{
    if (!point)
        return FALSE;
    const QPoint position = QApplication::desktop()->mapFromGlobal(QCursor::pos());
    *point = {position.x(), position.y()};
    return TRUE;
}

BOOL SetPhysicalCursorPos_X(int x, int y)
{
    QCursor::setPos(QApplication::desktop()->mapToGlobal(QPoint(x, y)));
    return TRUE;
}

UINT GetDoubleClickTime_X() { return static_cast<UINT>(QApplication::doubleClickInterval()); }

BOOL SetDoubleClickTime_X(UINT milliseconds)
{
    QApplication::setDoubleClickInterval(static_cast<int>(qMin<UINT>(milliseconds, INT_MAX)));
    return TRUE;
}
