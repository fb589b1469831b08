#include "file/wholefile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace xe {

namespace {

constexpr std::size_t blockSize = 65536;

// Some kinds of files have nothing to wait for, and say so by EINVAL.
bool isOnDisk(int handle) { return ::fdatasync(handle) == 0 || errno == EINVAL || errno == ENOSYS; }

bool copyContent(QFile& source, QFile& target)
{
    std::array<char, blockSize> block;
    qint64 count = 0;
    while ((count = source.read(block.data(), block.size())) > 0) {
        if (target.write(block.data(), count) != count)
            return false;
    }
    return count == 0 && target.flush();
}

bool rename(const QByteArray& from, const QByteArray& to, unsigned flags)
{
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, flags) == 0)
        return true;
    const bool knowsNoFlags = flags != 0 && (errno == EINVAL || errno == ENOSYS);
    return knowsNoFlags && ::rename(from, to) == 0;
}

} // namespace

bool writeWhole(QFileDevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush() && isOnDisk(file.handle());
}

bool copyWhole(const QString& source, const QString& target)
{
    QFile from(source);
    QTemporaryFile copy(QFileInfo(target).path() + QStringLiteral("/XXXXXX.part"));
    if (!from.open(QIODevice::ReadOnly) || !copy.open())
        return false;
    copy.setPermissions(from.permissions());
    const bool isWhole = copyContent(from, copy) && isOnDisk(copy.handle())
                         && rename(QFile::encodeName(copy.fileName()), QFile::encodeName(target), 0);
    copy.setAutoRemove(!isWhole);
    return isWhole;
}

bool moveWhole(const QString& source, const QString& target)
{
    if (QFile::exists(target))
        return false;
    if (rename(QFile::encodeName(source), QFile::encodeName(target), RENAME_NOREPLACE))
        return true;
    if (errno != EXDEV || !copyWhole(source, target)) // another disk
        return false;
    if (QFile::remove(source))
        return true;
    QFile::remove(target);
    return false;
}

} // namespace xe
