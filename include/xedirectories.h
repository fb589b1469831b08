/// @file xedirectories.h
/// Folders of the program, of the process and of the system.
///
/// Texts go to the caller's buffers as 32-bit elements; capacities and results count elements. Where a function writes
/// *without a terminator*, unlike the published one, clear the buffer before the call. A null buffer or a capacity of 0
/// gives 0. Bytes from the system that are no valid UTF-8 come as U+FFFD.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"

/// The folder of the running executable, without a "/" at the end. A path of more than 1024 bytes counts as cut there.
/// Empty when the system does not tell.
XE_EXPORT CString_X GetApplicationDirectory();

/// The folder above the application's: "/opt/p" for the executable "/opt/p/bin/app". A backslash in the path separates
/// folders too and becomes a "/".
XE_EXPORT CString_X GetMainDirectory();

/// Clears the buffer and writes the current folder, cut to leave room for the terminator. Returns the length written;
/// 0, with nothing written, for a capacity above 2047.
XE_EXPORT DWORD GetCurrentDirectory_X(DWORD capacity, wchar_t* buffer);

/// Makes a folder the current one of the process. 1, or 0 when it cannot be entered, and for null.
XE_EXPORT BOOL SetCurrentDirectory_X(const wchar_t* path);

/// Writes the *current* folder, cut to the capacity and without a terminator: there is no system folder. Returns the
/// length of the text that is then in the buffer, which counts what stood behind the folder's name before; 0, with
/// nothing written, for a capacity above 2047.
XE_EXPORT UINT GetSystemDirectory_X(wchar_t* buffer, UINT capacity);

/// Clears the buffer and writes "/". Returns 1, its length.
XE_EXPORT UINT GetWindowsDirectory_X(wchar_t* buffer, UINT capacity);

/// Adds a folder to those in which Qt looks for its plug-ins; LoadLibrary_X does not look there. 1, or 0 for null.
XE_EXPORT BOOL SetDllDirectory_X(const wchar_t* path);

/// Writes Qt's plug-in folders one after another, each followed by one element that is left alone, and returns the
/// number of elements used. Only the first `capacity` *bytes* of the buffer are cleared, and that is where the
/// terminators come from: the list is terminated as far as it stays in the first quarter, or in a buffer cleared by the
/// caller. A list that does not fit is cut, and the result is capacity - 2, or 0 for a capacity below 2.
XE_EXPORT DWORD GetDllDirectory_X(DWORD capacity, wchar_t* buffer);
