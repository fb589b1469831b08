// A folder for a test, with its files in sight.
#pragma once

#include <xeafxstr.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class Folder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    std::wstring wide(const QString& name) const { return path(name).toStdWString(); }
    QString root() const { return m_folder.path(); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }
    bool has(const QString& name) const { return QFile::exists(path(name)); }
    void makeFolder(const QString& name) const { QDir(root()).mkpath(name); }
    QStringList entries() const
    {
        return QDir(root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                                      QDir::Name);
    }

private:
    QTemporaryDir m_folder;
};
