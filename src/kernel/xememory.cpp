#include "xememory.h"

#include <QTextCodec>

#include <algorithm>
#include <cstdlib>

#include <malloc.h>

HGLOBAL GlobalAlloc_X(UINT, std::size_t size) { return std::calloc(size, 1); }

HGLOBAL GlobalReAlloc_X(HGLOBAL block, std::size_t size, UINT flags)
{
    const HGLOBAL moved = GlobalAlloc_X(flags, size);
    if (!moved)
        return nullptr;
    std::copy_n(static_cast<const char*>(block), std::min(size, malloc_usable_size(block)), static_cast<char*>(moved));
    GlobalFree_X(block);
    return moved;
}

HGLOBAL GlobalFree_X(HGLOBAL block)
{
    std::free(block);
    return nullptr;
}

void* GlobalLock_X(HGLOBAL block) { return block; }
HGLOBAL GlobalHandle_X(const void* address) { return const_cast<void*>(address); }
BOOL GlobalUnlock_X(HGLOBAL) { return TRUE; }

HLOCAL LocalAlloc_X(UINT flags, std::size_t size) { return GlobalAlloc_X(flags, size); }
HLOCAL LocalReAlloc_X(HLOCAL block, std::size_t size, UINT flags) { return GlobalReAlloc_X(block, size, flags); }
HLOCAL LocalFree_X(HLOCAL block) { return GlobalFree_X(block); }

BOOL IsTextUnicode_X(const void* bytes, int length, int* result)
{
    const QTextCodec* const utf16 = QTextCodec::codecForName("UTF-16LE");
    const bool isText = bytes && length > 0 && !utf16->toUnicode(static_cast<const char*>(bytes), length).isEmpty();
    if (result)
        *result = isText;
    return isText;
}

BOOL IsBadReadPtr_X(const void* address, std::size_t size) { return !address || size == 0; }

BOOL IsBadWritePtr_X(const void* address, std::size_t) { return !address; }

BOOL IsBadStringPtr_X(const wchar_t* text, std::size_t length) { return !text && length != 0; }
