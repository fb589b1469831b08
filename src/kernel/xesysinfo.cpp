#include "xesysinfo.h"

#include "text/widetext.h"
#include "xeconvert.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QSysInfo>

#include <algorithm>
#include <ctime>
#include <cwchar>
#include <iterator>

#include <sys/vfs.h>
#include <unistd.h>

namespace {

struct Metric
{
    int index;
    int pixels;
};

constexpr Metric metrics[] = {
    {SM_CXVSCROLL, 17}, {SM_CYHSCROLL, 17}, {SM_CYCAPTION, 23}, {SM_CXBORDER, 1},   {SM_CYBORDER, 1},
    {SM_CXICON, 32},    {SM_CYICON, 32},    {SM_CYMENU, 20},    {SM_CYVSCROLL, 17}, {SM_CXHSCROLL, 17},
    {SM_SWAPBUTTON, 0}, {SM_CXSIZE, 36},    {SM_CYSIZE, 22},    {SM_CXFRAME, 4},    {SM_CYFRAME, 4},
    {SM_CXEDGE, 2},     {SM_CYEDGE, 2},     {SM_CXSMSIZE, 22},  {SM_CYSMSIZE, 22},  {SM_SERVERR2, 0},
};

BOOL writeName(const QString& name, wchar_t* buffer, DWORD* size)
{
    const std::wstring wide = buffer ? xe::toWide(name) : std::wstring();
    if (buffer) {
        std::wmemset(buffer, L'\0', std::wcslen(buffer));
        wide.copy(buffer, wide.size());
    }
    if (size)
        *size = static_cast<DWORD>(wide.size());
    return !wide.empty();
}

QSize screenSize()
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().size() : QSize(0, 0);
}

} // namespace

BOOL GetComputerName_X(wchar_t* buffer, DWORD* size) { return writeName(QSysInfo::machineHostName(), buffer, size); }

BOOL GetUserName_X(wchar_t* buffer, DWORD* size) { return writeName(QString::fromUtf8(qgetenv("USER")), buffer, size); }

unsigned long long GetTickCount()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<unsigned long long>(now.tv_sec) * 1000 + static_cast<unsigned long long>(now.tv_nsec) / 1000000;
}

void Sleep_X(DWORD milliseconds) { usleep(milliseconds * 1000); }

void GetLocalTime(SYSTEMTIME* time)
{
    if (!time)
        return;
    const QDateTime now = QDateTime::currentDateTime();
    const QDate date = now.date();
    const QTime clock = now.time();
    time->wYear = static_cast<WORD>(date.year());
    time->wMonth = static_cast<WORD>(date.month());
    time->wDay = static_cast<WORD>(date.day());
    time->wHour = static_cast<WORD>(clock.hour());
    time->wMinute = static_cast<WORD>(clock.minute());
    time->wSecond = static_cast<WORD>(clock.second());
    time->wMilliseconds = static_cast<WORD>(clock.msec());
}

int GetSystemMetrics_X(int index)
{
    if (index == SM_CXSCREEN)
        return screenSize().width();
    if (index == SM_CYSCREEN)
        return screenSize().height();
    const auto found =
        std::find_if(std::begin(metrics), std::end(metrics), [index](const Metric& row) { return row.index == index; });
    return found != std::end(metrics) ? found->pixels : -1;
}

UINT MapVirtualKey_X(UINT code, UINT)
{
    const bool isControl = (code >= 8 && code <= 10) || code == 13;
    const bool isPrintable = code >= 32 && code <= 126;
    return isControl || isPrintable ? code : 0;
}

UINT GetDriveType_X(const wchar_t* path)
{
    struct statfs info;
    if (!path || statfs(WideCharToMultiByte_X(path, "chs").c_str(), &info) != 0)
        return DRIVE_NO_ROOT_DIR;
    switch (info.f_type) {
    case 0x6969: // NFS
    case 0x517B: // SMB
        return DRIVE_REMOTE;
    case 0x9660: // ISO 9660
        return DRIVE_CDROM;
    case 0xEF53:    // ext2, ext3, ext4
    case 0x1021994: // tmpfs
    case 0x4D44:    // FAT
        return DRIVE_RAMDISK;
    default:
        return DRIVE_UNKNOWN;
    }
}

BOOL GetFirmwareType_X(FIRMWARE_TYPE* type)
{
    if (!type)
        return FALSE;
    *type = QFileInfo(QStringLiteral("/sys/firmware/efi")).isDir() ? FirmwareTypeUefi : FirmwareTypeBios;
    return TRUE;
}
