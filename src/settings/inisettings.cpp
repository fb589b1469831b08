#include "settings/inisettings.h"

#include "file/wholefile.h"
#include "settings/filestamps.h"
#include "settings/iniread.h"
#include "settings/iniwrite.h"

#include <QEvent>
#include <QFile>
#include <QTextCodec>

#include <new>

#include <unistd.h>

namespace xe {

namespace {

// Qt hands over an open file that is not empty.
bool read(QIODevice& device, QSettings::SettingsMap& entries, QTextCodec* codec)
try {
    auto* const file = qobject_cast<QFileDevice*>(&device);
    const FileStamp stamp = stampOf(file->handle());
    const QByteArray text = file->readAll();
    if (text.size() != stamp.st_size)
        return false;
    entries = parsedIni(text, codec);
    rememberRead(file->fileName(), stamp);
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

// Qt hands over a temporary file, which goes to its place if the result is true.
bool write(QIODevice& device, const QSettings::SettingsMap& entries, QTextCodec* codec)
try {
    auto* const file = qobject_cast<QFileDevice*>(&device);
    if (!isRemembered(file->fileName()) || !writeWhole(*file, composedIni(entries, codec)))
        return false;
    rememberWritten(file->fileName(), stampOf(file->handle()));
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

QTextCodec* utf8() { return QTextCodec::codecForName("UTF-8"); }

// There are as many formats as Qt has room for. Where hosts have taken them all, Qt reads and writes.
QSettings::Format formatOr(QSettings::Format registered)
{
    return registered == QSettings::InvalidFormat ? QSettings::IniFormat : registered;
}

QSettings::Format utf8Format()
{
    static const QSettings::Format format = formatOr(QSettings::registerFormat(
        QStringLiteral("ini"),
        [](QIODevice& device, QSettings::SettingsMap& entries) { return read(device, entries, utf8()); },
        [](QIODevice& device, const QSettings::SettingsMap& entries) { return write(device, entries, utf8()); }));
    return format;
}

QSettings::Format escapedFormat()
{
    static const QSettings::Format format = formatOr(QSettings::registerFormat(
        QStringLiteral("ini"),
        [](QIODevice& device, QSettings::SettingsMap& entries) { return read(device, entries, nullptr); },
        [](QIODevice& device, const QSettings::SettingsMap& entries) { return write(device, entries, nullptr); }));
    return format;
}

} // namespace

IniSettings::IniSettings(const QString& fileName) : QSettings(fileName, utf8Format())
{
    setIniCodec("UTF-8");
    readIfUnread();
}

IniSettings::IniSettings(const QString& organization, const QString& application)
    : QSettings(escapedFormat(), UserScope, organization, application, nullptr)
{
    readIfUnread();
}

void IniSettings::sync()
{
    QSettings::sync();
    readIfUnread();
}

bool IniSettings::event(QEvent* event)
{
    const bool isProcessed = QSettings::event(event);
    if (event->type() == QEvent::UpdateRequest)
        readIfUnread();
    return isProcessed;
}

// QSettings reads a file again when its time has changed, and not because it could not read it before.
void IniSettings::readIfUnread()
{
    const QString name = fileName();
    const bool isUnread = format() != IniFormat && !isRemembered(name);
    if (isUnread && ::access(QFile::encodeName(name), R_OK) == 0 && makeLookChanged(name))
        QSettings::sync();
}

} // namespace xe
