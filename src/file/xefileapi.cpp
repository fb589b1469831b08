#include "xefileapi.h"

#include "file/filetime.h"
#include "file/sizehalves.h"
#include "xeafxfile.h"
#include "xeconvert.h"

#include <algorithm>
#include <cwchar>
#include <memory>

namespace {

// Null unless the file is open.
CFile_X* openFile(HANDLE handle)
{
    if (!handle || handle == INVALID_HANDLE_VALUE)
        return nullptr;
    auto* const file = static_cast<CFile_X*>(handle);
    const auto* const imp = file->Imp<QFile>();
    return imp && imp->isOpen() ? file : nullptr;
}

QFile* openQFile(HANDLE handle)
{
    CFile_X* const file = openFile(handle);
    return file ? file->Imp<QFile>() : nullptr;
}

unsigned openMode(DWORD access)
{
    switch (access & (GENERIC_READ | GENERIC_WRITE)) {
    case GENERIC_WRITE:
        return CFile_X::modeWrite;
    case GENERIC_READ:
        return CFile_X::modeRead;
    default:
        return CFile_X::modeReadWrite;
    }
}

// A count is no promise that the file has as much: room is made as the bytes come.
std::string readBytes(CFile_X& file, DWORD count)
{
    constexpr DWORD piece = 1 << 20;
    std::string bytes;
    while (bytes.size() < count) {
        const std::size_t before = bytes.size();
        const DWORD wanted = std::min<DWORD>(piece, count - static_cast<DWORD>(before));
        bytes.resize(before + wanted);
        const unsigned got = file.Read(&bytes[before], wanted);
        bytes.resize(before + got);
        if (got < wanted)
            break;
    }
    return bytes;
}

void seekFrom(QFile& file, qint64 distance, DWORD method)
{
    const qint64 base = method == FILE_CURRENT ? file.pos() : method == FILE_END ? file.size() : 0;
    qint64 target = 0;
    if (method <= FILE_END && !__builtin_add_overflow(base, distance, &target) && target >= 0)
        file.seek(target);
}

} // namespace

HANDLE CreateFile_X(const wchar_t* path, DWORD access, DWORD, LPSECURITY_ATTRIBUTES, DWORD, DWORD, HANDLE)
{
    if (!path)
        return INVALID_HANDLE_VALUE;
    auto file = std::make_unique<CFile_X>();
    return file->Open(path, openMode(access)) ? file.release() : INVALID_HANDLE_VALUE;
}

BOOL CloseHandle_X(HANDLE handle)
{
    CFile_X* const file = openFile(handle);
    if (!file)
        return FALSE;
    file->Close();
    delete file;
    return TRUE;
}

BOOL ReadFile_X(HANDLE handle, void* buffer, DWORD count, DWORD* read, LPOVERLAPPED)
{
    CFile_X* const file = openFile(handle);
    if (!file || !buffer)
        return FALSE;
    const std::wstring text = MultiByteToWideChar_X(readBytes(*file, count).c_str(), "chs");
    const std::size_t length = std::min<std::size_t>(text.size(), count > 0 ? count - 1 : 0);
    std::wcsncpy(static_cast<wchar_t*>(buffer), text.c_str(), length);
    if (read)
        *read = static_cast<DWORD>(length);
    return TRUE;
}

BOOL WriteFile_X(HANDLE handle, const void* text, DWORD, DWORD* written, LPOVERLAPPED)
{
    CFile_X* const file = openFile(handle);
    if (!file || !text)
        return FALSE;
    const std::string bytes = WideCharToMultiByte_X(static_cast<const wchar_t*>(text), "chs");
    file->Write(bytes.data(), static_cast<unsigned>(bytes.size()));
    if (written)
        *written = static_cast<DWORD>(bytes.size());
    return TRUE;
}

BOOL FlushFileBuffers_X(HANDLE handle)
{
    QFile* const file = openQFile(handle);
    return file && file->flush();
}

DWORD GetFileSize_X(HANDLE handle, DWORD* high)
{
    const QFile* const file = openQFile(handle);
    return file ? xe::halvesOf(file->size(), high) : INVALID_FILE_SIZE;
}

BOOL GetFileSizeEx_X(HANDLE handle, PLARGE_INTEGER size)
{
    const QFile* const file = openQFile(handle);
    if (!file || !size)
        return FALSE;
    size->QuadPart = file->size();
    return TRUE;
}

DWORD SetFilePointer_X(HANDLE handle, LONG distance, LONG*, DWORD method)
{
    QFile* const file = openQFile(handle);
    if (!file)
        return INVALID_SET_FILE_POINTER;
    seekFrom(*file, distance, method);
    return static_cast<DWORD>(file->pos());
}

BOOL SetFilePointerEx_X(HANDLE handle, LARGE_INTEGER distance, PLARGE_INTEGER position, DWORD method)
{
    QFile* const file = openQFile(handle);
    if (!file)
        return FALSE;
    seekFrom(*file, distance.QuadPart, method);
    if (position && position->QuadPart != 0)
        position->QuadPart = file->pos();
    return TRUE;
}

BOOL SetEndOfFile_X(HANDLE handle)
{
    QFile* const file = openQFile(handle);
    return file && file->seek(file->size());
}

BOOL SetFileValidData_X(HANDLE handle, LONGLONG length)
{
    QFile* const file = openQFile(handle);
    return file && length >= 0 && file->seek(length);
}

BOOL GetFileTime_X(HANDLE handle, FILETIME* creation, FILETIME* access, FILETIME* write)
{
    const QFile* const file = openQFile(handle);
    if (!file)
        return FALSE;
    if (creation)
        *creation = xe::fileTime(file->fileTime(QFileDevice::FileBirthTime));
    if (access)
        *access = xe::fileTime(file->fileTime(QFileDevice::FileAccessTime));
    if (write)
        *write = xe::fileTime(file->fileTime(QFileDevice::FileModificationTime));
    return TRUE;
}

BOOL SetFileTime_X(HANDLE handle, const FILETIME* creation, const FILETIME* access, const FILETIME* write)
{
    QFile* const file = openQFile(handle);
    if (!file || !creation || !access || !write)
        return FALSE;
    const auto set = [file](const FILETIME& time, QFileDevice::FileTime kind) {
        QDateTime moment;
        moment.setMSecsSinceEpoch(xe::milliseconds(time));
        return file->setFileTime(moment, kind);
    };
    return set(*creation, QFileDevice::FileBirthTime) && set(*access, QFileDevice::FileAccessTime)
           && set(*write, QFileDevice::FileModificationTime);
}
