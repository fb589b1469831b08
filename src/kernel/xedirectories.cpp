#include "xedirectories.h"

#include "kernel/executablepath.h"
#include "text/namelist.h"
#include "text/widetext.h"

#include <QCoreApplication>
#include <QDir>

#include <cwchar>

namespace {

constexpr DWORD longestDirectory = 2047;

CString_X beforeLastSlash(const CString_X& path) { return path.Left(path.ReverseFind(L'/')); }

} // namespace

CString_X GetApplicationDirectory() { return beforeLastSlash(xe::executablePath()); }

CString_X GetMainDirectory()
{
    const CString_X directory = GetApplicationDirectory();
    return beforeLastSlash(directory.Left(directory.GetLength() - 1).ToUnixSeperator());
}

DWORD GetCurrentDirectory_X(DWORD capacity, wchar_t* buffer)
{
    if (!buffer || capacity == 0 || capacity > longestDirectory)
        return 0;
    std::wmemset(buffer, L'\0', capacity);
    return static_cast<DWORD>(xe::writeWide(QDir::currentPath(), buffer, capacity - 1));
}

BOOL SetCurrentDirectory_X(const wchar_t* path) { return QDir::setCurrent(XeQString(path)); }

UINT GetSystemDirectory_X(wchar_t* buffer, UINT capacity)
{
    if (!buffer || capacity > longestDirectory)
        return 0;
    xe::writeWide(QDir::currentPath(), buffer, capacity);
    return static_cast<UINT>(wcsnlen(buffer, capacity));
}

UINT GetWindowsDirectory_X(wchar_t* buffer, UINT capacity)
{
    if (!buffer || capacity == 0)
        return 0;
    std::wmemset(buffer, L'\0', capacity);
    *buffer = L'/';
    return 1;
}

BOOL SetDllDirectory_X(const wchar_t* path)
{
    if (!path)
        return FALSE;
    QCoreApplication::addLibraryPath(XeQString(path));
    return TRUE;
}

DWORD GetDllDirectory_X(DWORD capacity, wchar_t* buffer)
{
    return xe::writeNameList(QCoreApplication::libraryPaths(), buffer, capacity);
}
