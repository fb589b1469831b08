#include "settings/filestamps.h"

#include <QFile>
#include <QHash>

#include <cerrno>
#include <mutex>

#include <fcntl.h>

namespace xe {

namespace {

constexpr int mostFiles = 1000; // one that is forgotten is only read once more

struct States
{
    FileStamp read{};
    FileStamp written{};
};

std::mutex mutex; // ready before any static object is made

QHash<QString, States>& states()
{
    static auto* const states = new QHash<QString, States>; // the registry is written after all static objects are gone
    return *states;
}

bool isSame(const FileStamp& a, const FileStamp& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size
           && a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

States& statesOf(const QString& fileName)
{
    if (states().size() > mostFiles)
        states().clear();
    return states()[fileName];
}

} // namespace

FileStamp stampOf(const QString& fileName)
{
    FileStamp stamp{};
    return ::stat(QFile::encodeName(fileName).constData(), &stamp) == 0 ? stamp : FileStamp{};
}

FileStamp stampOf(int handle)
{
    FileStamp stamp{};
    return ::fstat(handle, &stamp) == 0 ? stamp : FileStamp{};
}

void rememberRead(const QString& fileName, const FileStamp& stamp)
{
    const std::lock_guard<std::mutex> lock(mutex);
    statesOf(fileName).read = stamp;
}

void rememberWritten(const QString& fileName, const FileStamp& stamp)
{
    const std::lock_guard<std::mutex> lock(mutex);
    statesOf(fileName).written = stamp;
}

bool isRemembered(const QString& fileName)
{
    FileStamp stamp{};
    if (::stat(QFile::encodeName(fileName).constData(), &stamp) != 0)
        return errno == ENOENT || errno == ENOTDIR;
    if (!S_ISREG(stamp.st_mode) || stamp.st_size == 0)
        return true;
    const std::lock_guard<std::mutex> lock(mutex);
    const States remembered = states().value(fileName);
    return isSame(stamp, remembered.read) || isSame(stamp, remembered.written);
}

bool makeLookChanged(const QString& fileName)
{
    constexpr long millisecond = 1000000;
    const QByteArray path = QFile::encodeName(fileName);
    timespec later = stampOf(fileName).st_mtim;
    later.tv_nsec += later.tv_nsec < 999 * millisecond ? millisecond : -millisecond;
    const timespec times[] = {{0, UTIME_OMIT}, later};
    return ::utimensat(AT_FDCWD, path, times, 0) == 0
           || ::utimensat(AT_FDCWD, path, nullptr, 0) == 0; // of the owner; of all
}

} // namespace xe
