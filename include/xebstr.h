/// @file xebstr.h
/// BSTR texts: wide texts in blocks of their own, of 32-bit elements.
///
/// Unlike a published BSTR such a text has no length in front: it ends at its first 0. Every block comes from the C
/// library's allocator and is freed by SysFreeString_X.
#pragma once

#include "xedef.h"

/// A new copy of the text. Null for null, and without memory.
XE_EXPORT BSTR SysAllocString_X(const wchar_t* text);

/// A new text with room for `length` elements and a terminator, cleared, which holds the given text, cut to that
/// length; a null text leaves it empty. Null if the length is above 0x7FFFFFFF or the memory is not there.
XE_EXPORT BSTR SysAllocStringLen_X(const wchar_t* text, UINT length);

/// A new text with room for `length` + 4 bytes, cleared, which holds the wide form (MultiByteToWideChar_X) of the
/// terminated bytes and has more room if that needs it. Null bytes leave it empty. Null if the length is above
/// 0x7FFFFFFF or the memory is not there.
XE_EXPORT BSTR SysAllocStringByteLen_X(const char* bytes, UINT length);

/// Frees a text of the functions above; nothing for null.
XE_EXPORT void SysFreeString_X(BSTR text);

/// The length up to the first 0 in elements, and in bytes (4 an element), of any terminated text. 0 for null.
XE_EXPORT UINT SysStringLen_X(const wchar_t* text);
XE_EXPORT UINT SysStringByteLen_X(const wchar_t* text);
