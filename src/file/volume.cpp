#include "text/widetext.h"
#include "xeafxstr.h"
#include "xefileapi.h"

#include <QStorageInfo>

#include <limits>

BOOL GetVolumePathName_X(const wchar_t* path, wchar_t* buffer, DWORD capacity)
{
    xe::writeWide(QStorageInfo(XeQString(path)).rootPath(), buffer, capacity);
    return TRUE;
}

BOOL GetVolumeInformation_X(const wchar_t* root, wchar_t* name, DWORD, DWORD* serial, DWORD* maxComponent, DWORD* flags,
                            wchar_t* fileSystem, DWORD)
{
    if (!root)
        return FALSE;
    for (DWORD* number : {serial, maxComponent, flags}) {
        if (number)
            *number = 0;
    }
    constexpr int whole = std::numeric_limits<int>::max();
    const QStorageInfo volume{XeQString(root)};
    if (volume.isValid()) {
        xe::writeWide(volume.name(), name, whole);
        xe::writeWide(QString::fromUtf8(volume.fileSystemType()), fileSystem, whole);
    }
    return TRUE;
}

DWORD GetLogicalDrives_X() { return 0; }

DWORD GetLogicalDriveStrings_X(DWORD capacity, wchar_t* buffer)
{
    if (!buffer)
        return 0;
    QString all;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
        all += volume.rootPath();
    const std::wstring text = xe::toWide(all);
    xe::writeWide(text, buffer, capacity);
    return static_cast<DWORD>(text.size());
}
