#include "bookfile.h"

#include "text.h"

#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr qint64 largestFile = 64 << 20;

bool fail(CString_X& error, const CString_X& reason)
{
    error = reason;
    return false;
}

} // namespace

bool readWhole(const QString& fileName, QByteArray& content, CString_X& error)
{
    const QFileInfo info(fileName);
    QFile file(fileName);
    if (info.exists() && !info.isFile())
        return fail(error, loadText(IDS_NO_FILE));
    if (!file.open(QIODevice::ReadOnly))
        return fail(error, file.errorString());
    if (file.size() > largestFile)
        return fail(error, loadText(IDS_TOO_LARGE));
    content = file.readAll();
    return file.error() == QFile::NoError || fail(error, file.errorString());
}

bool writeWhole(const QString& fileName, const QByteArray& content, CString_X& error)
{
    QSaveFile file(fileName);
    // commit() does not notice that what was still in the buffer could not be written; flush() does.
    return (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() && file.commit())
           || fail(error, file.errorString());
}
