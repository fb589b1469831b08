#include "settings/inifile.h"

#include "file/wholefile.h"
#include "settings/iniread.h"

#include <QFile>
#include <QSaveFile>

namespace xe {

namespace {

QString freeName(const QString& fileName)
{
    QString name = fileName + QStringLiteral(".damaged");
    for (int number = 2; QFile::exists(name); ++number)
        name = QStringLiteral("%1.damaged.%2").arg(fileName).arg(number);
    return name;
}

bool keepCopy(const QFile& original, const QByteArray& bytes)
{
    QFile copy(freeName(original.fileName()));
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    if (copy.setPermissions(original.permissions()) && writeWhole(copy, bytes))
        return true;
    copy.remove();
    return false;
}

bool replace(const QString& fileName, const QByteArray& bytes)
{
    QSaveFile file(fileName);
    return file.open(QIODevice::WriteOnly) && writeWhole(file, bytes) && file.commit();
}

// Null if the file cannot be read as a whole.
QByteArray contentOf(QFile& file)
{
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return bytes.size() == file.size() ? bytes : QByteArray();
}

} // namespace

void putHarmfulAside(const QString& fileName)
{
    QFile file(fileName);
    const QByteArray bytes = contentOf(file);
    const QByteArray harmless = withoutHarmfulEntries(bytes);
    if (harmless.size() != bytes.size() && keepCopy(file, bytes))
        replace(fileName, harmless);
}

bool isForQt(const QString& fileName)
{
    QFile file(fileName);
    const QByteArray bytes = contentOf(file);
    const bool hasByteOrderMark = bytes.startsWith("\xEF\xBB\xBF");
    return !hasByteOrderMark && hasUnknownEntry(bytes) && withoutHarmfulEntries(bytes).size() == bytes.size();
}

} // namespace xe
