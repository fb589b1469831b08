#include "file/wholefile.h"

#include <cerrno>

#include <unistd.h>

namespace {

// Some kinds of files have nothing to wait for, and say so by EINVAL.
bool isOnDisk(int handle) { return ::fdatasync(handle) == 0 || errno == EINVAL || errno == ENOSYS; }

} // namespace

bool xe::writeWhole(QFileDevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush() && isOnDisk(file.handle());
}
