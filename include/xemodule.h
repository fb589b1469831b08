/// @file xemodule.h
/// Loading shared libraries and looking into them.
///
/// A module handle is that of the dynamic loader. Paths are wide texts and go to it as UTF-8; symbol names are bytes.
#pragma once

#include "xedef.h"

using HMODULE = void*; ///< what `dlopen` gives
using FARPROC = void*; ///< the address of a function or an object; the caller casts it

/// Loads a shared library by the C library's search alone: no suffix is added and SetDllDirectory_X plays no part. Its
/// symbols serve the libraries that are loaded later. Null on failure, and for a null or empty path and one that has no
/// UTF-8 form. Each success is to be matched by a FreeLibrary_X.
XE_EXPORT HMODULE LoadLibrary_X(const wchar_t* path);

/// Lets go of a module. Returns 1 for any module, also for null.
XE_EXPORT BOOL FreeLibrary_X(HMODULE module);

/// Loads a module, lets go of it and returns its handle. Nothing holds the module, so the handle of one that nobody
/// else has loaded is *no longer valid*: it tells that the library is there and no more. A null path gives null, not
/// the process.
XE_EXPORT HMODULE GetModuleHandle_X(const wchar_t* path);

/// The address of a symbol, or null. A null module stands for everything that the process has loaded for all to see.
XE_EXPORT FARPROC GetProcAddress_X(HMODULE module, const char* name);

/// Clears the buffer and writes the file name of a module, of the executable for null, as 32-bit elements, cut to the
/// capacity and without a terminator when it fills the buffer. Bytes that are no valid UTF-8 come as U+FFFD. Returns 1,
/// not the length; 0 when the name is not known, and for a null buffer or a capacity of 0.
XE_EXPORT DWORD GetModuleFileName_X(HMODULE module, wchar_t* buffer, DWORD capacity);
