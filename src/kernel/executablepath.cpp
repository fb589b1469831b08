#include "kernel/executablepath.h"

#include <array>

#include <unistd.h>

namespace xe {

QString executablePath()
{
    std::array<char, 1024> path;
    const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
    return size > 0 ? QString::fromUtf8(path.data(), static_cast<int>(size)) : QString();
}

} // namespace xe
