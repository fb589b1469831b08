// INI files from strangers, on their way to QSettings.
#pragma once

#include <QByteArray>
#include <QString>

namespace xe {

/// An INI text without the entries that Qt cannot read and live. Qt believes what a @Variant(...) value says of itself:
/// how deep lists lie in lists, for which it takes the stack, and how long they are, for which it takes memory. The
/// text itself if it has no such value.
QByteArray withoutHarmfulEntries(const QByteArray& ini);

/// The content of a file; empty if it cannot be read.
QByteArray contentOf(const QString& fileName);

/// Puts a file that has harmful entries aside, with ".damaged" behind its name, and the same file without them in its
/// place. False for any other file, which stays as it is.
bool disarmIniFile(const QString& fileName);

} // namespace xe
