// What a count that stands on an archive is worth.
#pragma once

#include "xeafxarc.h"
#include "xeafxfile.h"

namespace xe {

/// How many bytes a loading archive can still deliver at most; 0 for a storing one and without a file. Whoever loads a
/// collection allocates no more than that holds, whatever count the stream names.
inline unsigned long long bytesLeft(CArchive_X& archive)
{
    if (!archive.file || archive.IsStoring())
        return 0;
    const unsigned long long length = archive.file->GetLength();
    const unsigned long long position = archive.file->GetPosition();
    return archive.available() + (length > position ? length - position : 0);
}

} // namespace xe
