/// @file xeafxdump.h
/// The dump stream of the object system.
#pragma once

#include "xedef.h"

class CFile_X;

/// The stream that CObject_X::Dump() writes to: wide text for a file. Without a file everything written is dropped.
class XE_EXPORT CDumpContext_X
{
public:
    /// `output` may be null and is not owned.
    explicit CDumpContext_X(CFile_X* output = nullptr) : file(output) {}

    CDumpContext_X& operator<<(const char* text);
    CDumpContext_X& operator<<(const void* address);

    int depth = 0;
    CFile_X* file;
};
