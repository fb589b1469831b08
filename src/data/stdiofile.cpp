#include "xeafxfile.h"

#include <algorithm>

IMPLEMENT_DYNAMIC_X(CStdioFile_X, CFile_X)

namespace {

// A byte is an element; the text ends at the first 0 byte.
std::wstring textOf(const QByteArray& line)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(line.constData());
    return std::wstring(bytes, bytes + qstrnlen(line.constData(), static_cast<uint>(line.size())));
}

// QFile makes room for the whole of a limit, however short the line is.
qint64 reasonableLimit(const QFile& file, qint64 limit)
{
    constexpr qint64 small = 4096;
    return limit <= small ? limit : std::min(limit, std::max(small, file.bytesAvailable() + 1));
}

} // namespace

CStdioFile_X::CStdioFile_X(const wchar_t* name, unsigned int flags) { CStdioFile_X::CommonInit(name, flags); }

CStdioFile_X::~CStdioFile_X() { CFile_X::Close(); }

void CStdioFile_X::WriteString(const wchar_t* text)
{
    const QByteArray utf8 = XeQString(text).toUtf8();
    Write(utf8.constData(), static_cast<unsigned int>(utf8.size()));
}

wchar_t* CStdioFile_X::ReadString(wchar_t* buffer, unsigned int max)
{
    if (!buffer || max == 0)
        return buffer;
    auto* file = Imp<QFile>();
    std::wstring line;
    if (file && file->isReadable() && max > 1)
        line = textOf(file->readLine(reasonableLimit(*file, max)));
    return std::wcsncpy(buffer, line.c_str(), line.size() + 1);
}

int CStdioFile_X::ReadString(CString_X& line)
{
    auto* file = Imp<QFile>();
    line = file && file->isReadable() ? textOf(file->readLine()) : std::wstring();
    const bool read = !line.IsEmpty();
    line.TrimRight(L"\r\n");
    return read;
}
