// INI files from strangers, on their way to QSettings.
#pragma once

#include <QString>

namespace xe {

/// Puts a file with harmful entries aside: the same file without them takes its place when a copy of it is whole, with
/// ".damaged" behind its name and a number if there is such a copy already. If either cannot be written, the file stays
/// as it is.
void putHarmfulAside(const QString& fileName);

/// Whether Qt's own reader, which decodes a value when somebody asks for it, has to read this file: it has values whose
/// types the host is yet to register, and none that are harmful. Not with a byte order mark, since the object that
/// reads the file keeps to itself what that means.
bool isForQt(const QString& fileName);

} // namespace xe
