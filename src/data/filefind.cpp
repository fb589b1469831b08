#include "xeafxfile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

QString CFileFind_X::entry() const { return files.value(index); }

CString_X CFileFind_X::GetFileName() const { return QFileInfo(entry()).fileName(); }

CString_X CFileFind_X::GetFilePath() const { return QFileInfo(entry()).filePath(); }

CString_X CFileFind_X::GetFileTitle() const { return QFileInfo(entry()).baseName(); }

int CFileFind_X::IsDirectory() const { return QFileInfo(entry()).isDir(); }

int CFileFind_X::IsDots() const
{
    const QString name = entry();
    return IsDirectory() && (name == QLatin1String(".") || name == QLatin1String(".."));
}

int CFileFind_X::FindFile(const wchar_t* pattern, unsigned int)
{
    Close();
    const QString path =
        pattern ? XeQString(CString_X(pattern).ToUnixSeperator()) : QDir::currentPath() + QLatin1String("/*.*");
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    const QDir directory(path.left(std::max(slash, 0)));
    if (!directory.exists())
        return 0;
    const QString name = path.mid(slash + 1);
    const QDir::Filters kinds = name == QLatin1String("*.*") ? QDir::AllDirs : QDir::Dirs;
    files = directory.entryList({name}, kinds | QDir::Files, QDir::NoSort);
    return 1;
}

int CFileFind_X::FindNextFile()
{
    index = std::min(index + 1, files.size());
    return index < files.size() - 1;
}

void CFileFind_X::Close()
{
    index = -1;
    files.clear();
}
