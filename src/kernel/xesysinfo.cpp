#include "xeprocess.h"

#include "xeconvert.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTextCodec>

#include <algorithm>
#include <iterator>

#include <ctime>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

struct SysColor
{
    int index;
    COLORREF colour;
};

constexpr SysColor sysColors[] = {
    {COLOR_MENU, 0xF0F0F0},       {COLOR_WINDOW, 0xFFFFFF},       {COLOR_MENUTEXT, 0x000000},
    {COLOR_WINDOWTEXT, 0x000000}, {COLOR_HIGHLIGHT, 0xD77800},    {COLOR_HIGHLIGHTTEXT, 0xFFFFFF},
    {COLOR_BTNFACE, 0xF0F0F0},    {COLOR_BTNSHADOW, 0xA0A0A0},    {COLOR_GRAYTEXT, 0x6D6D6D},
    {COLOR_BTNTEXT, 0x000000},    {COLOR_BTNHIGHLIGHT, 0xFFFFFF}, {COLOR_INFOTEXT, 0x000000},
    {COLOR_INFOBK, 0xE1FFFF},
};

QSize screenSize()
{
    const QScreen* const screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().size() : QSize(0, 0);
}

} // namespace

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

COLORREF GetSysColor_X(int index)
{
    const auto found = std::find_if(std::begin(sysColors), std::end(sysColors),
                                    [index](const SysColor& entry) { return entry.index == index; });
    return found != std::end(sysColors) ? found->colour : 0;
}

int GetSystemMetrics_X(int index)
{
    switch (index) {
    case SM_CXSCREEN:
        return screenSize().width();
    case SM_CYSCREEN:
        return screenSize().height();
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVSCROLL:
    case SM_CXHSCROLL:
        return 17;
    case SM_CYCAPTION:
        return 23;
    case SM_CXBORDER:
    case SM_CYBORDER:
        return 1;
    case SM_CXICON:
    case SM_CYICON:
        return 32;
    case SM_CYMENU:
        return 20;
    case SM_SWAPBUTTON:
    case SM_SERVERR2:
        return 0;
    case SM_CXSIZE:
        return 36;
    case SM_CYSIZE:
    case SM_CXSMSIZE:
    case SM_CYSMSIZE:
        return 22;
    case SM_CXFRAME:
    case SM_CYFRAME:
        return 4;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    default:
        return -1;
    }
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

BOOL IsTextUnicode_X(const void* bytes, int length, int* result)
{
    const QTextCodec* const utf16 = QTextCodec::codecForName("UTF-16LE");
    const bool isText = bytes && length > 0 && !utf16->toUnicode(static_cast<const char*>(bytes), length).isEmpty();
    if (result)
        *result = isText;
    return isText;
}

BOOL IsBadReadPtr_X(const void* address, std::size_t size) { return !address || size == 0; }

BOOL IsBadWritePtr_X(const void* address, std::size_t) { return !address; }

BOOL IsBadStringPtr_X(const wchar_t* text, std::size_t length) { return !text && length != 0; }
