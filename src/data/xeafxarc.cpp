#include "xeafxarc.h"

#include "xeafxfile.h"

#include <QFile>

#include <algorithm>
#include <cwchar>

CArchive_X::CArchive_X(CFile_X* stream, unsigned int direction, int size, void* block)
    : file(stream),
      mode(direction),
      bufferSize(std::max(size, 128))
{
    if (!file)
        return;
    fileName = file->GetFilePath();
    const unsigned int check = file->GetBufferPtr(CFile_X::bufferCheck);
    blocking = check & CFile_X::bufferBlocking;
    if (block && size == bufferSize) {
        bufferStart = static_cast<unsigned char*>(block);
    } else if (check & CFile_X::bufferDirect) {
        directBuffer = 1;
        return;
    } else {
        bufferStart = new unsigned char[static_cast<std::size_t>(bufferSize)];
        userBuffer = 0;
    }
    bufferEnd = bufferStart + bufferSize;
    cursor = IsLoading() ? bufferEnd : bufferStart;
}

CArchive_X::~CArchive_X()
{
    if (!(mode & bNoFlushOnDelete))
        Close();
    Abort();
}

void CArchive_X::Close()
{
    Flush();
    file = nullptr;
    cursor = bufferEnd; // no room and nothing to read, so nobody comes near a block that the file has lent
}

void CArchive_X::Abort()
{
    file = nullptr;
    if (!userBuffer)
        delete[] bufferStart;
    bufferStart = bufferEnd = cursor = nullptr;
}

void CArchive_X::Flush()
{
    if (!file || m_hasGap)
        return;
    if (IsLoading()) {
        if (cursor != bufferEnd)
            file->Seek(cursor - bufferEnd, CFile_X::current);
        cursor = bufferEnd;
    } else if (directBuffer) {
        if (cursor != bufferStart)
            file->GetBufferPtr(CFile_X::bufferCommit, static_cast<unsigned int>(cursor - bufferStart));
        borrow(CFile_X::bufferWrite);
    } else {
        const bool isWritten = writeFile(bufferStart, static_cast<unsigned int>(cursor - bufferStart));
        cursor = bufferStart;
        if (!isWritten)
            stopStoring();
    }
}

// -------------------------------------------------------------------------------------------------------- the buffer

// Makes memory that the file lends the buffer: its next bytes, or room for the next ones. If it does not keep its word
// the buffer is empty.
bool CArchive_X::borrow(unsigned int command)
{
    void* start = nullptr;
    void* end = nullptr;
    const unsigned int size = file->GetBufferPtr(command, static_cast<unsigned int>(bufferSize), &start, &end);
    cursor = bufferStart = static_cast<unsigned char*>(start);
    bufferEnd = static_cast<unsigned char*>(end);
    const bool kept = bufferEnd - bufferStart == static_cast<std::ptrdiff_t>(size)
                      && (command == CFile_X::bufferRead || size == static_cast<unsigned int>(bufferSize));
    if (!kept)
        bufferEnd = bufferStart;
    return kept;
}

// A file of the host's own may have a Write() that tells nothing, and is believed.
bool CArchive_X::writeFile(const unsigned char* from, unsigned int count)
{
    if (count == 0)
        return true;
    const unsigned long long position = file->GetPosition() + count;
    file->Write(from, count);
    const auto* const device = file->Imp<QFile>();
    const bool hasFailed = device && device->isOpen() && device->error() != QFile::NoError;
    const bool tellsPosition = hasFailed || file->IsKindOf(RUNTIME_CLASS_X(CMemFile_X));
    return !tellsPosition || file->GetPosition() == position;
}

// A stream with a gap would be read shifted, without a sign; one that ends there shows it.
void CArchive_X::stopStoring()
{
    m_hasGap = true;
    cursor = bufferEnd;
}

// Reads until there is enough, up to the request, or until nothing comes.
unsigned int CArchive_X::readFile(unsigned char* to, unsigned int request, unsigned int enough)
{
    unsigned int total = 0;
    while (total < enough) {
        const unsigned int left = request - total;
        const unsigned int got = std::min(file->Read(to + total, left), left);
        if (got == 0)
            break;
        total += got;
    }
    return total;
}

// Adds at least `need` bytes to those in the buffer, as far as the file has them.
bool CArchive_X::fillBuffer(unsigned int need)
{
    const auto left = static_cast<unsigned int>(available());
    if (directBuffer) {
        if (left != 0)
            file->Seek(-static_cast<long long>(left), CFile_X::current);
        return borrow(CFile_X::bufferRead);
    }
    std::memmove(bufferStart, cursor, left);
    const unsigned int room = static_cast<unsigned int>(bufferSize) - left;
    const unsigned int got = readFile(bufferStart + left, blocking ? need : room, need);
    cursor = bufferStart;
    bufferEnd = bufferStart + left + got;
    return true;
}

bool CArchive_X::makeRoom(std::size_t width)
{
    Flush();
    if (available() < width)
        stopStoring();
    return !m_hasGap;
}

bool CArchive_X::fetch(void* value, std::size_t width)
{
    if (file)
        fillBuffer(static_cast<unsigned int>(width - available()));
    if (available() < width) {
        std::memset(value, 0, width);
        cursor = bufferEnd;
        return false;
    }
    takeBuffered(static_cast<unsigned char*>(value), static_cast<unsigned int>(width));
    return true;
}

unsigned int CArchive_X::takeBuffered(unsigned char* to, unsigned int count)
{
    const auto taken = static_cast<unsigned int>(std::min<std::size_t>(count, available()));
    std::copy_n(cursor, taken, to);
    cursor += taken;
    return taken;
}

unsigned int CArchive_X::putBuffered(const unsigned char* from, unsigned int count)
{
    const auto stored = static_cast<unsigned int>(std::min<std::size_t>(count, available()));
    std::copy_n(from, stored, cursor);
    cursor += stored;
    return stored;
}

// ------------------------------------------------------------------------------------------------------------- blocks

unsigned int CArchive_X::Read(void* target, unsigned int count)
{
    if (!file || !target || IsStoring())
        return 0;
    auto* const to = static_cast<unsigned char*>(target);
    unsigned int got = takeBuffered(to, count);
    const unsigned int tail = (count - got) % static_cast<unsigned int>(bufferSize);
    const unsigned int bulk = count - got - tail;
    got += readFile(to + got, bulk, bulk);
    if (tail == 0 || got != count - tail)
        return got;
    if (!fillBuffer(tail))
        return 0;
    return got + takeBuffered(to + got, tail);
}

void CArchive_X::Write(const void* source, unsigned int count)
{
    if (!file || !source || IsLoading())
        return;
    const auto* const from = static_cast<const unsigned char*>(source);
    const unsigned int stored = putBuffered(from, count);
    if (stored == count)
        return;
    Flush();
    const unsigned int tail = (count - stored) % static_cast<unsigned int>(bufferSize);
    const unsigned int bulk = count - stored - tail;
    if (m_hasGap || !writeFile(from + stored, bulk)) {
        stopStoring();
        return;
    }
    if (directBuffer && bulk != 0)
        borrow(CFile_X::bufferWrite);
    if (putBuffered(from + stored + bulk, tail) != tail)
        stopStoring();
}

// ------------------------------------------------------------------------------------------------------ counts, texts

namespace {

// In a count or length: the value of a field that says that a wider one follows.
constexpr unsigned char longer8 = 0xFF;
constexpr unsigned short longer16 = 0xFFFF;
constexpr unsigned int longer32 = 0xFFFFFFFF;
constexpr unsigned short wideMark = 0xFFFE; // in front of a length

template <class T>
T valueOf(CArchive_X& archive)
{
    T value = 0;
    archive >> value;
    return value;
}

// What Read() and Write() can count.
constexpr std::size_t longestBlock = (std::size_t(1) << 30) / sizeof(wchar_t);

} // namespace

void CArchive_X::WriteCount(unsigned long long count)
{
    if (count < longer16)
        *this << static_cast<unsigned short>(count);
    else
        *this << longer16 << static_cast<unsigned int>(count);
}

unsigned long long CArchive_X::ReadCount()
{
    const auto count = valueOf<unsigned short>(*this);
    return count != longer16 ? count : valueOf<unsigned int>(*this);
}

void AfxWriteStringLength_X(CArchive_X& archive, unsigned long length, int wide)
{
    if (wide)
        archive << longer8 << wideMark;
    if (length < longer8)
        archive << static_cast<unsigned char>(length);
    else if (length < wideMark)
        archive << longer8 << static_cast<unsigned short>(length);
    else if (length < longer32)
        archive << longer8 << longer16 << static_cast<unsigned int>(length);
    else
        archive << longer8 << longer16 << longer32 << static_cast<unsigned long long>(length);
}

unsigned long AfxReadStringLength_X(CArchive_X& archive, int& charSize)
{
    charSize = 1;
    auto length8 = valueOf<unsigned char>(archive);
    if (length8 != longer8)
        return length8;
    auto length16 = valueOf<unsigned short>(archive);
    if (length16 == wideMark) {
        charSize = sizeof(wchar_t);
        length8 = valueOf<unsigned char>(archive);
        if (length8 != longer8)
            return length8;
        length16 = valueOf<unsigned short>(archive);
    }
    if (length16 != longer16)
        return length16;
    const auto length32 = valueOf<unsigned int>(archive);
    return length32 != longer32 ? length32 : static_cast<unsigned long>(valueOf<unsigned long long>(archive));
}

void CArchive_X::writeElements(const wchar_t* elements, std::size_t count)
{
    while (count > 0) {
        const std::size_t part = std::min(count, longestBlock);
        Write(elements, static_cast<unsigned int>(part * sizeof(wchar_t)));
        elements += part;
        count -= part;
    }
}

CArchive_X& CArchive_X::operator<<(const CString_X& text)
{
    AfxWriteStringLength_X(*this, text.length(), true);
    writeElements(text.GetString(), text.length());
    return *this;
}

CArchive_X& CArchive_X::operator>>(CString_X& text)
{
    if (IsStoring())
        return *this;
    int charSize = 0;
    const std::size_t length = AfxReadStringLength_X(*this, charSize);
    if (length <= available() / sizeof(wchar_t)) { // the usual case: all of it is in the buffer
        text.resize(length);
        takeBuffered(reinterpret_cast<unsigned char*>(text.data()),
                     static_cast<unsigned int>(length * sizeof(wchar_t)));
        return *this;
    }
    std::wstring elements;
    while (elements.size() < length) {
        // The length may be any number: there is never room made for much more than has been there so far.
        const std::size_t present = elements.size();
        const std::size_t part = std::min({length - present, std::max<std::size_t>(present, 4096), longestBlock});
        elements.resize(present + part);
        const auto bytes = static_cast<unsigned int>(part * sizeof(wchar_t));
        if (Read(&elements[present], bytes) != bytes)
            return *this;
    }
    text = std::move(elements);
    return *this;
}

void CArchive_X::WriteString(const wchar_t* text)
{
    if (text)
        writeElements(text, std::wcslen(text));
}

wchar_t* CArchive_X::ReadString(wchar_t* buffer, unsigned int max)
{
    const bool keepsEnd = static_cast<int>(max) < 0;
    const unsigned int limit = keepsEnd ? 0 - max : max;
    if (!buffer || limit == 0 || IsStoring())
        return nullptr;
    unsigned int length = 0;
    wchar_t element = 0;
    while (length < limit && get(element)) {
        if (element != L'\n' && element != L'\r') {
            buffer[length++] = element;
            continue;
        }
        if (element == L'\r')
            get(element); // taken for the LF
        if (keepsEnd)
            buffer[length++] = element;
        break;
    }
    if (length == 0)
        return nullptr;
    buffer[length] = L'\0';
    return buffer;
}

int CArchive_X::ReadString(CString_X& line)
{
    constexpr unsigned int pieceLength = 128;
    wchar_t piece[pieceLength + 1];
    std::size_t length = 0;
    line.Empty();
    do {
        if (!ReadString(piece, 0 - pieceLength))
            return !line.IsEmpty();
        length = std::wcslen(piece);
        line.append(piece, length);
    } while (length == pieceLength && line.back() != L'\n');
    if (!line.IsEmpty() && line.back() == L'\n')
        line.pop_back();
    return 1;
}
