#include "xeafxfile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

IMPLEMENT_DYNAMIC_X(CMemFile_X, CFile_X)

CMemFile_X::CMemFile_X(unsigned int step) : growBytes(step) {}

CMemFile_X::CMemFile_X(unsigned char* block, unsigned int size, unsigned int step)
{
    CMemFile_X::Attach(block, size, step);
}

CMemFile_X::~CMemFile_X() { CMemFile_X::Close(); }

void CMemFile_X::Attach(unsigned char* block, unsigned int size, unsigned int step)
{
    if (!block && size != 0)
        return;
    if (autoDelete && buffer && buffer != block)
        Free(buffer);
    growBytes = step;
    position = 0;
    bufferSize = size;
    fileSize = step != 0 ? 0 : size;
    buffer = block;
    autoDelete = 0;
}

unsigned char* CMemFile_X::Detach()
{
    position = bufferSize = fileSize = 0;
    return std::exchange(buffer, nullptr);
}

int CMemFile_X::GetStatus(CFileStatus_X& status) const
{
    status.m_size = static_cast<long long>(fileSize);
    status.m_attribute = 0;
    status.m_szFullName[0] = '\0';
    return 1;
}

unsigned long long CMemFile_X::Seek(long long offset, unsigned int from)
{
    constexpr auto refused = static_cast<unsigned long long>(-1);
    if (from > end)
        return position;
    if (from == end && offset > 0)
        return refused;
    const unsigned long long base = from == begin ? 0 : from == current ? position : fileSize;
    const unsigned long long target = base + static_cast<unsigned long long>(offset);
    if (static_cast<long long>(target) < 0)
        return refused;
    if (static_cast<unsigned int>(target) > fileSize)
        GrowFile(target);
    return position = target;
}

void CMemFile_X::SetLength(unsigned long long length)
{
    if (length > bufferSize)
        GrowFile(length);
    position = std::min(position, length);
    fileSize = length;
}

// The length may be set beyond the block when that could not grow.
unsigned long long CMemFile_X::readable() const { return std::min(fileSize, bufferSize); }

unsigned int CMemFile_X::Read(void* target, unsigned int count)
{
    if (!target || position >= readable())
        return 0;
    const unsigned long long length = std::min<unsigned long long>(count, readable() - position);
    if (length > 0)
        Memcpy(static_cast<unsigned char*>(target), buffer + position, length);
    position += length;
    return static_cast<unsigned int>(length);
}

void CMemFile_X::Write(const void* source, unsigned int count)
{
    const unsigned long long last = position + count;
    if (!source || count == 0 || last < position)
        return;
    if (last > bufferSize)
        GrowFile(last);
    if (last > bufferSize)
        return;
    Memcpy(buffer + position, static_cast<const unsigned char*>(source), count);
    position = last;
    fileSize = std::max(fileSize, position);
}

void CMemFile_X::Abort() { Close(); }

void CMemFile_X::Flush() {}

void CMemFile_X::Close()
{
    growBytes = 0;
    unsigned char* const block = CMemFile_X::Detach();
    if (autoDelete && block)
        Free(block);
}

// The addresses of the bytes from `first` to `last` of the block.
unsigned int CMemFile_X::lend(unsigned long long first, unsigned long long last, void** from, void** to) const
{
    *from = buffer + first;
    *to = buffer + last;
    return static_cast<unsigned int>(last - first);
}

unsigned int CMemFile_X::GetBufferPtr(unsigned int command, unsigned int count, void** from, void** to)
{
    if (command == bufferCheck)
        return growBytes != 0 ? static_cast<unsigned int>(bufferDirect) : 0;
    if (command == bufferCommit) {
        position += count;
        fileSize = std::max(fileSize, position);
        return 0;
    }
    if (!from || !to)
        return 0;
    if (command == bufferRead) {
        constexpr auto everything = std::numeric_limits<unsigned int>::max();
        const unsigned long long first = std::min(position, readable());
        const unsigned long long rest = readable() - first;
        const unsigned long long length = count == everything ? rest : std::min<unsigned long long>(count, rest);
        position += length;
        return lend(first, first + length, from, to);
    }
    const unsigned long long last = position + count;
    if (command != bufferWrite || last < position)
        return 0;
    if (last > bufferSize)
        GrowFile(last);
    return lend(std::min(position, bufferSize), std::min(last, bufferSize), from, to);
}

unsigned char* CMemFile_X::Alloc(unsigned long long size) { return static_cast<unsigned char*>(std::malloc(size)); }

unsigned char* CMemFile_X::Realloc(unsigned char* block, unsigned long long size)
{
    return static_cast<unsigned char*>(std::realloc(block, size));
}

unsigned char* CMemFile_X::Memcpy(unsigned char* to, const unsigned char* from, unsigned long long count)
{
    return static_cast<unsigned char*>(std::memcpy(to, from, count));
}

void CMemFile_X::Free(unsigned char* block) { std::free(block); }

void CMemFile_X::GrowFile(unsigned long long newLength)
{
    if (newLength <= bufferSize || growBytes == 0
        || newLength > std::numeric_limits<unsigned long long>::max() - growBytes)
        return;
    const unsigned long long steps = (newLength - bufferSize - 1) / growBytes + 1;
    const unsigned long long size = bufferSize + steps * growBytes;
    unsigned char* const block = buffer ? Realloc(buffer, size) : Alloc(size);
    if (!block)
        return;
    if (!buffer)
        autoDelete = 1; // a caller's block has been given up, this one is the file's own
    buffer = block;
    bufferSize = size;
}
