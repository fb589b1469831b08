/// @file xememory.h
/// Memory blocks, and tests of addresses.
///
/// Global and local blocks are the same here, all of them fixed: a handle is the block's address.
#pragma once

#include "xedef.h"

#include <cstddef>

// -------------------------------------------------------------------------------------------------------------- blocks

using HGLOBAL = void*;
using HLOCAL = void*;

// Ignored: every block is fixed and cleared.
inline constexpr UINT GMEM_FIXED = 0;
inline constexpr UINT GMEM_MOVEABLE = 0x02;
inline constexpr UINT GMEM_ZEROINIT = 0x40;
inline constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
inline constexpr UINT LMEM_FIXED = 0;
inline constexpr UINT LMEM_MOVEABLE = 0x02;
inline constexpr UINT LMEM_ZEROINIT = 0x40;
inline constexpr UINT LPTR = LMEM_FIXED | LMEM_ZEROINIT;
inline constexpr UINT LHND = LMEM_MOVEABLE | LMEM_ZEROINIT;

/// A new block of `size` bytes, all 0, which the caller frees; a size of 0 gives a block too. Null when there is no
/// memory.
XE_EXPORT HGLOBAL GlobalAlloc_X(UINT flags, std::size_t size);
XE_EXPORT HLOCAL LocalAlloc_X(UINT flags, std::size_t size);

/// Moves a block to a new one with as much of its content as fits; what is behind that is 0. A null block is a plain
/// allocation. Null when there is no memory; the old block stays then.
XE_EXPORT HGLOBAL GlobalReAlloc_X(HGLOBAL block, std::size_t size, UINT flags);
XE_EXPORT HLOCAL LocalReAlloc_X(HLOCAL block, std::size_t size, UINT flags);

/// Frees a block, or nothing for null. Returns null.
XE_EXPORT HGLOBAL GlobalFree_X(HGLOBAL block);
XE_EXPORT HLOCAL LocalFree_X(HLOCAL block);

XE_EXPORT void* GlobalLock_X(HGLOBAL block);           ///< the block itself
XE_EXPORT HGLOBAL GlobalHandle_X(const void* address); ///< the address itself
XE_EXPORT BOOL GlobalUnlock_X(HGLOBAL block);          ///< 1: there are no lock counts

// -------------------------------------------------------------------------------------------------- tests of addresses

/// 1, in `*result` too, when `length` bytes give any text as UTF-16: two bytes do, unless they are a byte order mark.
/// Nothing else is tested, and `*result` is not read, unlike by the published function. 0 for null and for a length
/// below 1; a null `result` is skipped.
XE_EXPORT BOOL IsTextUnicode_X(const void* bytes, int length, int* result);

// 1 or 0. Only null is found to be bad, no other address.
XE_EXPORT BOOL IsBadReadPtr_X(const void* address, std::size_t size);      ///< a size of 0 is bad as well
XE_EXPORT BOOL IsBadWritePtr_X(const void* address, std::size_t size = 0); ///< `size` is ignored
XE_EXPORT BOOL IsBadStringPtr_X(const wchar_t* text, std::size_t length);  ///< with a length of 0 not even null is bad
