#pragma once

#include <xeafxfile.h>

#include <QStringList>

/// A memory file that shows its fields, tells what it does with memory, and can be told that there is none.
class WatchedMemory : public CMemFile_X
{
public:
    using CMemFile_X::autoDelete;
    using CMemFile_X::buffer;
    using CMemFile_X::bufferSize;
    using CMemFile_X::CMemFile_X;
    using CMemFile_X::fileSize;
    using CMemFile_X::growBytes;
    using CMemFile_X::position;

    ~WatchedMemory() override { CMemFile_X::Close(); }

    unsigned char* Alloc(unsigned long long size) override
    {
        calls += QStringLiteral("Alloc %1").arg(size);
        return size <= limit ? CMemFile_X::Alloc(size) : nullptr;
    }
    unsigned char* Realloc(unsigned char* block, unsigned long long size) override
    {
        calls += QStringLiteral("Realloc %1").arg(size);
        return size <= limit ? CMemFile_X::Realloc(block, size) : nullptr;
    }
    unsigned char* Memcpy(unsigned char* to, const unsigned char* from, unsigned long long count) override
    {
        calls += QStringLiteral("Memcpy %1").arg(count);
        return CMemFile_X::Memcpy(to, from, count);
    }
    void Free(unsigned char* block) override
    {
        calls += QStringLiteral("Free");
        CMemFile_X::Free(block);
    }
    void GrowFile(unsigned long long length) override
    {
        calls += QStringLiteral("GrowFile %1").arg(length);
        CMemFile_X::GrowFile(length);
    }

    /// The calls since the last question.
    QString takeCalls() { return std::exchange(calls, {}).join(QStringLiteral(", ")); }

    /// Step, position, size of the block, length, and whether the block is its own.
    QString state() const
    {
        return QStringLiteral("step %1 at %2 block %3 length %4 %5")
            .arg(growBytes)
            .arg(position)
            .arg(bufferSize)
            .arg(fileSize)
            .arg(QLatin1String(!buffer      ? "none"
                               : autoDelete ? "own"
                                            : "lent"));
    }

    QByteArray content() const
    {
        return QByteArray(reinterpret_cast<const char*>(buffer), static_cast<int>(std::min(fileSize, bufferSize)));
    }

    QStringList calls;
    unsigned long long limit = 1ULL << 30; ///< no block is longer
};
