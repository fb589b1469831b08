// Files that are there whole or not at all.
#pragma once

#include <QByteArray>
#include <QFileDevice>

namespace xe {

/// Writes the bytes to an open file and waits until they are on the disk. False if not all of them got there.
bool writeWhole(QFileDevice& file, const QByteArray& bytes);

} // namespace xe
