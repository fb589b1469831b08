// Files that are there whole or not at all.
#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

namespace xe {

/// Writes the bytes to an open file and waits until they are on the disk. False if not all of them got there.
bool writeWhole(QFileDevice& file, const QByteArray& bytes);

/// Copies a file with its permissions, in the place of one of the target's name. False if that cannot be done; what was
/// there is then there still.
bool copyWhole(const QString& source, const QString& target);

/// Moves a file, or a folder on its disk, to a name that nothing has. False if that cannot be done; the source is then
/// where it was, and nothing is at the target.
bool moveWhole(const QString& source, const QString& target);

} // namespace xe
