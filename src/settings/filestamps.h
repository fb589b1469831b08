// Which state of each settings file the entries in memory have grown out of.
#pragma once

#include <QString>

#include <sys/stat.h>

namespace xe {

/// The state of a file: one that is written or replaced gets another one.
using FileStamp = struct stat;

/// All zero for a file that is not there.
FileStamp stampOf(const QString& fileName);
FileStamp stampOf(int handle);

/// The file has been read whole in this state.
void rememberRead(const QString& fileName, const FileStamp& stamp);

/// The file is going to be in this state, or to stay as it is.
void rememberWritten(const QString& fileName, const FileStamp& stamp);

/// Whether a file has nothing in it that is not in memory: one that is in a remembered state, empty or no file at all.
bool isRemembered(const QString& fileName);

/// Makes QSettings read a file again, which goes by its size and its time to the millisecond.
bool makeLookChanged(const QString& fileName);

} // namespace xe
