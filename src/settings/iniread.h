// The text of an INI file, read as QSettings reads it.
#pragma once

#include <QByteArray>
#include <QSettings>

class QTextCodec;

namespace xe {

/// The entries of a text by their paths. Lines that are no entries are passed over. Bytes outside ASCII go by the
/// codec, and are Latin-1 without one; a text with a byte order mark is UTF-8.
QSettings::SettingsMap parsedIni(const QByteArray& text, QTextCodec* codec);

/// The text without its harmful entries; the text itself if it has none.
QByteArray withoutHarmfulEntries(const QByteArray& text);

/// Whether there is an entry that cannot be read here and now.
bool hasUnknownEntry(const QByteArray& text);

} // namespace xe
