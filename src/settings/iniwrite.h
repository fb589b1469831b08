// The text of an INI file, written as QSettings writes it.
#pragma once

#include <QByteArray>
#include <QSettings>

class QTextCodec;

namespace xe {

/// The text of these entries, sections and names sorted. Without a codec there is nothing but ASCII in it.
QByteArray composedIni(const QSettings::SettingsMap& entries, QTextCodec* codec);

} // namespace xe
