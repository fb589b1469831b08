// How much a loading archive has still to give, by which its reader judges a count or length that the stream names.
#pragma once

#include "xeafxarc.h"
#include "xeafxfile.h"

namespace xe {

/// The elements that a collection makes, or makes room for, on the word of the stream alone.
inline constexpr long long believedWithoutData = 0x100000;

/// Whether a loading archive has another byte. Whoever loads a collection asks before each element, or before making
/// room for many, whatever count the stream names.
inline bool hasMore(CArchive_X& archive)
{
    if (archive.available() == 0 && archive.file && archive.IsLoading())
        archive.fillBuffer(1);
    return archive.available() > 0;
}

/// How many bytes a loading archive can still deliver by the length of its file; 0 for a storing one and without a
/// file. A file that does not tell its length has none.
inline unsigned long long bytesLeft(CArchive_X& archive)
{
    if (!archive.file || archive.IsStoring())
        return 0;
    const unsigned long long length = archive.file->GetLength();
    const unsigned long long position = archive.file->GetPosition();
    return archive.available() + (length > position ? length - position : 0);
}

} // namespace xe
