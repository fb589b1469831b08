#pragma once

#include <xeafxstr.h>

#include <QFile>
#include <QTemporaryDir>

/// A folder of real files that goes with the object.
class TempFiles
{
public:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    CString_X widePath(const char* name) const { return path(name); }

    void write(const char* name, const QByteArray& content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", name);
    }

    /// What the disk holds now; null for a file that cannot be read.
    QByteArray read(const char* name) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadOnly))
            return QByteArray();
        const QByteArray content = file.readAll();
        return content.isNull() ? QByteArray("") : content;
    }

private:
    QTemporaryDir m_folder;
};
