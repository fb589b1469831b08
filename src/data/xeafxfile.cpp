#include "xeafxfile.h"

#include <QAbstractEventDispatcher>
#include <QFileInfo>

#include <algorithm>

IMPLEMENT_DYNAMIC_X(CFile_X, CObject_X)

namespace {

QIODevice::OpenMode openMode(unsigned int flags)
{
    constexpr QIODevice::OpenModeFlag access[] = {QIODevice::ReadOnly, QIODevice::WriteOnly, QIODevice::ReadWrite,
                                                  QIODevice::ReadWrite};
    QIODevice::OpenMode mode = access[flags & 3];
    mode.setFlag(QIODevice::Text, flags & CFile_X::typeText);
    return mode;
}

// QFile warns about a new name while it is open, and closes.
void setName(QFile* file, const wchar_t* name)
{
    file->close();
    file->setFileName(XeQString(name));
}

// QFile warns about moves that cannot be.
bool moveTo(QFile* file, qint64 position) { return file->isOpen() && !file->isSequential() && file->seek(position); }

QString nameOf(const CFile_X& file)
{
    const auto* imp = file.Imp<QFile>();
    return imp ? imp->fileName() : QString();
}

int fillStatus(const QFileInfo& info, CFileStatus_X& status)
{
    status.m_ctime = info.birthTime();
    status.m_mtime = info.lastModified();
    status.m_atime = info.lastRead();
    status.m_size = info.size();
    qstrncpy(status.m_szFullName, info.absoluteFilePath().toUtf8().constData(), sizeof(status.m_szFullName));
    return 1;
}

} // namespace

CFile_X::CFile_X() { Attach(new QFile, nullptr, false); }

CFile_X::CFile_X(const wchar_t* name, unsigned int flags) : CFile_X() { CFile_X::CommonInit(name, flags); }

CFile_X::~CFile_X()
{
    auto* file = Imp<QFile>();
    if (!file || IsExternalImpObj())
        return;
    file->close();
    if (!QAbstractEventDispatcher::instance(file->thread()))
        delete file; // there is no event loop that would do so later
}

void CFile_X::CommonInit(const wchar_t* name, unsigned int flags)
{
    if (name)
        Open(name, flags, nullptr);
}

unsigned long long CFile_X::GetPosition() const
{
    const auto* file = Imp<QFile>();
    return file ? static_cast<unsigned long long>(file->pos()) : 0;
}

CString_X CFile_X::GetFileName() const { return QFileInfo(nameOf(*this)).fileName(); }

CString_X CFile_X::GetFileTitle() const { return QFileInfo(nameOf(*this)).baseName(); }

CString_X CFile_X::GetFilePath() const { return QFileInfo(nameOf(*this)).absoluteFilePath(); }

void CFile_X::SetFilePath(const wchar_t* path)
{
    if (auto* file = Imp<QFile>())
        setName(file, path);
}

int CFile_X::Open(const wchar_t* name, unsigned int flags, CFileException_X*)
{
    auto* file = Imp<QFile>();
    if (!file || !name)
        return 0;
    setName(file, name);
    return !file->fileName().isEmpty() && file->open(openMode(flags));
}

unsigned long long CFile_X::Seek(long long offset, unsigned int from)
{
    auto* file = Imp<QFile>();
    if (file && from <= end) {
        const long long size = static_cast<int>(file->size());
        const long long base = from == end ? size : from == begin && offset >= 0 ? 0 : static_cast<int>(file->pos());
        const bool staysInside = from == end ? offset <= 0 : offset < size - base;
        if (staysInside && offset >= -base)
            moveTo(file, base + offset);
    }
    return CFile_X::GetPosition();
}

void CFile_X::SetLength(unsigned long long length) { Seek(static_cast<long long>(length), begin); }

unsigned long long CFile_X::GetLength() const
{
    const auto* file = Imp<QFile>();
    return file ? static_cast<unsigned long long>(file->size()) : 0;
}

unsigned int CFile_X::Read(void* buffer, unsigned int count)
{
    auto* file = Imp<QFile>();
    if (!file || !file->isReadable() || !buffer)
        return 0;
    return static_cast<unsigned int>(std::max<qint64>(0, file->read(static_cast<char*>(buffer), count)));
}

// What a nearly full disk takes only a part of is tried again, so that the file has an error in the end.
void CFile_X::Write(const void* buffer, unsigned int count)
{
    auto* file = Imp<QFile>();
    if (!file || !file->isWritable() || !buffer)
        return;
    const auto* from = static_cast<const char*>(buffer);
    for (qint64 left = count, written = 0; left > 0; left -= written, from += written) {
        written = file->write(from, left);
        if (written <= 0)
            return;
    }
}

void CFile_X::Abort()
{
    if (auto* file = Imp<QFile>())
        Q_EMIT file->aboutToClose();
}

void CFile_X::Flush()
{
    auto* file = Imp<QFile>();
    if (file && file->isOpen())
        file->flush();
}

void CFile_X::Close()
{
    if (auto* file = Imp<QFile>())
        file->close();
}

unsigned int CFile_X::GetBufferPtr(unsigned int, unsigned int, void**, void**) { return 0; }

unsigned long long CFile_X::SeekToEnd()
{
    auto* file = Imp<QFile>();
    return file && moveTo(file, file->size());
}

int CFile_X::GetStatus(CFileStatus_X& status) const { return fillStatus(QFileInfo(nameOf(*this)), status); }

int CFile_X::GetStatus(const wchar_t* name, CFileStatus_X& status)
{
    return fillStatus(QFileInfo(XeQString(name)), status);
}

void CFile_X::Rename(const wchar_t* oldName, const wchar_t* newName)
{
    const XeQString from(oldName);
    const XeQString to(newName);
    if (!from.isEmpty() && !to.isEmpty())
        QFile::rename(from, to);
}

void CFile_X::Remove(const wchar_t* name)
{
    const XeQString path(name);
    if (!path.isEmpty())
        QFile::remove(path);
}
