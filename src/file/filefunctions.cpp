#include "file/sizehalves.h"
#include "file/wholefile.h"
#include "text/utf8.h"
#include "text/widetext.h"
#include "xeafxstr.h"
#include "xeconvert.h"
#include "xefileapi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryFile>

#include <cstdlib>
#include <ctime>
#include <cwchar>
#include <limits>

#include <sys/stat.h>

namespace {

constexpr mode_t directoryMode = 0775;
constexpr int longestTempName = 2034;
constexpr int patience = 30000; // milliseconds

QString parentOf(const QString& path)
{
    const int slash = path.lastIndexOf('/');
    return slash < 0 ? QString() : path.left(slash);
}

bool isSameFile(const QString& a, const QString& b)
{
    const QString path = QFileInfo(a).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(b).canonicalFilePath();
}

} // namespace

// --------------------------------------------------------------------------------------------------------------- files

DWORD GetFileAttributes_X(const wchar_t* path) { return static_cast<DWORD>(QFile::permissions(XeQString(path))); }

BOOL SetFileAttributes_X(const wchar_t* path, DWORD permissions)
{
    return QFile::setPermissions(XeQString(path), QFile::Permissions(static_cast<int>(permissions)));
}

BOOL DeleteFile(const wchar_t* path) { return QFile::remove(XeQString(path)); }

BOOL CopyFile(const wchar_t* from, const wchar_t* to, BOOL failIfExists)
{
    const XeQString source(from);
    const XeQString target(to);
    if (!QFile::exists(source))
        return FALSE;
    if (QFile::exists(target) && (failIfExists || isSameFile(source, target)))
        return FALSE;
    return xe::copyWhole(source, target);
}

BOOL MoveFile_X(const wchar_t* from, const wchar_t* to)
{
    const XeQString source(from);
    const XeQString target(to);
    const QFileInfo info(source);
    if (info.isDir())
        return parentOf(source) == parentOf(target) && QDir(source).rename(source, target);
    return info.isFile() && xe::moveWhole(source, target);
}

BOOL CreateHardLink_X(const wchar_t* link, const wchar_t* target, LPSECURITY_ATTRIBUTES)
{
    return QFile::link(XeQString(target), XeQString(link));
}

int _wrename(const wchar_t* from, const wchar_t* to) { return xe::moveWhole(XeQString(from), XeQString(to)) ? 0 : -1; }

DWORD GetCompressedFileSize_X(const wchar_t* path, DWORD* high)
{
    QProcess tar;
    tar.start(QStringLiteral("tar"), {QStringLiteral("-czf"), QStringLiteral(" -"), XeQString(path)},
              QIODevice::ReadWrite);
    tar.waitForFinished(patience);
    return xe::halvesOf(tar.readAllStandardOutput().size(), high);
}

BOOL AreFileApisANSI_X() { return FALSE; }

// --------------------------------------------------------------------------------------------------------- directories

BOOL CreateDirectory(const wchar_t* path, LPSECURITY_ATTRIBUTES)
{
    const auto narrow = path ? xe::encodeUtf8(path) : nullptr;
    return narrow && ::mkdir(narrow.get(), directoryMode) == 0;
}

BOOL RemoveDirectory_X(const wchar_t* path) { return path && QDir().rmdir(XeQString(path)); }

BOOL DeleteVolumeMountPoint_X(const wchar_t* path) { return RemoveDirectory_X(path); }

// --------------------------------------------------------------------------------------------------------------- names

DWORD GetFullPathName_X(const wchar_t* path, DWORD capacity, wchar_t* buffer, wchar_t** filePart)
{
    const QFileInfo info(XeQString{path});
    if (filePart)
        xe::writeWide(info.fileName(), *filePart, std::numeric_limits<int>::max());
    const std::wstring full = xe::toWide(info.absoluteFilePath());
    xe::writeWide(full, buffer, capacity);
    return std::min(capacity, static_cast<DWORD>(full.size()));
}

DWORD GetTempPath(DWORD capacity, wchar_t* buffer)
{
    const std::wstring path = xe::toWide(QDir::tempPath() + '/');
    const DWORD count = std::min(capacity, static_cast<DWORD>(path.size() + 1));
    if (buffer)
        std::wcsncpy(buffer, path.c_str(), count);
    return count;
}

UINT GetTempFileName_X(const wchar_t* path, const wchar_t* prefix, UINT unique, wchar_t* buffer)
{
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    QString name = XeQString(path) + XeQString(prefix) + QString::number(std::rand(), 16);
    for (int number = 1; unique == 0 && QFile::exists(name); ++number)
        name += QString::number(number);

    QTemporaryFile file(name + QStringLiteral(".tmp"));
    if (!file.open())
        return 0;
    const std::wstring made = xe::toWide(file.fileName());
    if (made.empty()) // the file system takes no such name
        return 0;
    if (made.size() > longestTempName)
        return static_cast<UINT>(ERROR_BUFFER_OVERFLOW);
    xe::writeWide(made, buffer, longestTempName);
    return 1;
}

// ----------------------------------------------------------------------------------------------------- file operations

namespace {

constexpr int failed = -1;

int result(bool good) { return good ? 0 : failed; }

int transfer(const QString& source, const QString& folder, bool isMove)
{
    const QString target = folder + (folder.endsWith('/') ? "" : "/") + source.section('/', -1);
    if (isSameFile(source, target))
        return failed;
    return result(xe::copyWhole(source, target) && (!isMove || QFile::remove(source)));
}

} // namespace

int SHFileOperation_X(_SHFILEOPSTRUCT_X* operation)
{
    if (!operation)
        return failed;
    operation->fAnyOperationsAborted = FALSE;
    const XeQString source(operation->pFrom);
    const XeQString target(operation->pTo);
    if (source.isEmpty() || !QFile::exists(source))
        return 0;
    switch (operation->wFunc) {
    case FO_DELETE:
        return result(QFile::remove(source));
    case FO_MOVE:
    case FO_COPY:
        return target.isEmpty() || !QFile::exists(target) ? 0 : transfer(source, target, operation->wFunc == FO_MOVE);
    case FO_RENAME:
        return target.isEmpty() ? 0 : result(xe::moveWhole(source, target));
    default:
        return 0;
    }
}
