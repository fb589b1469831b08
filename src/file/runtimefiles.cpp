// The file functions of the C runtime that the C library lacks.

#include "xefileapi.h"

#include "xeafxstr.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

int resultOf(bool done) { return done ? 0 : -1; }

} // namespace

int _wunlink(const wchar_t* path) { return DeleteFile(path); }

int _wchmod(const wchar_t* path, int mode)
{
    switch (mode) {
    case 64:
        return resultOf(QFile::setPermissions(XeQString(path), QFile::ExeOwner));
    case 128:
        return resultOf(QFile::setPermissions(XeQString(path), QFile::WriteOwner));
    case 256:
        return resultOf(QFile::setPermissions(XeQString(path), QFile::ReadOwner));
    default:
        return -1;
    }
}

int _wrmdir(const wchar_t* path)
{
    const QString canonical = QDir(XeQString(path)).canonicalPath();
    if (XeQString(path).isEmpty() || canonical.isEmpty())
        return -1;
    const QDir folder(canonical);
    if (!folder.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden) || folder.isRoot()
        || canonical == QDir::current().canonicalPath())
        return -1;
    return resultOf(folder.rmpath(folder.absolutePath()));
}

int _wmkdir(const wchar_t* path)
{
    QString whole = XeQString(path);
    while (whole.endsWith(QLatin1Char('/')))
        whole.chop(1);
    const QString leaf = whole.mid(whole.lastIndexOf(QLatin1Char('/')) + 1);
    const auto isForbidden = [](QChar ch) { return QStringLiteral("\\/:*?\"<>|").contains(ch); };
    if (leaf.isEmpty() || std::any_of(leaf.begin(), leaf.end(), isForbidden))
        return -1;
    return resultOf(QDir().mkdir(whole));
}
