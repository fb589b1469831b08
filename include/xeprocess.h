/// @file xeprocess.h
/// Facts about the process, its modules and the machine; dynamic loading, memory blocks; the ways to the host's main
/// window.
///
/// Texts go to the caller's buffers as 32-bit elements, and capacities count elements. Many functions write *without a
/// terminator*, unlike the published ones: callers clear their buffer first. A null buffer or a capacity of 0 gives 0.
/// Bytes from the system that are no valid UTF-8 come as U+FFFD.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"

#include <cstdarg>
#include <cstddef>

// ------------------------------------------------------------------------------------------------------- directories

/// The folder of the running executable, without a "/" at the end. A path of more than 1024 bytes counts as cut there.
/// Empty when the system does not tell.
XE_EXPORT CString_X GetApplicationDirectory();

/// The folder above the application's: "/opt/p" for the executable "/opt/p/bin/app". A backslash in the path separates
/// folders too and becomes a "/".
XE_EXPORT CString_X GetMainDirectory();

/// Clears the buffer and writes the current folder, cut to leave room for the terminator. Returns the length; 0 for a
/// capacity above 2047.
XE_EXPORT DWORD GetCurrentDirectory_X(DWORD capacity, wchar_t* buffer);

/// 1, or 0 when the folder cannot be entered.
XE_EXPORT BOOL SetCurrentDirectory_X(const wchar_t* path);

/// Writes the *current* folder without a terminator, since there is no system folder. Returns the length of the text
/// that is then in the buffer, so callers clear it first; 0 for a capacity above 2047, with nothing written.
XE_EXPORT UINT GetSystemDirectory_X(wchar_t* buffer, UINT capacity);

/// Clears the buffer and writes "/". Returns 1.
XE_EXPORT UINT GetWindowsDirectory_X(wchar_t* buffer, UINT capacity);

/// Adds a folder to those in which Qt looks for its plug-ins; LoadLibrary_X does not look there. 1, or 0 for null.
XE_EXPORT BOOL SetDllDirectory_X(const wchar_t* path);

/// Writes Qt's plug-in folders one after another, each followed by one element that is left alone, and returns the
/// number of elements used. Only the first `capacity` *bytes* of the buffer are cleared, and that is where the
/// terminators come from: the list is terminated as far as it stays in the first quarter, or in a buffer cleared by the
/// caller. A list that does not fit is cut, and the result is capacity - 2, or 0 for a capacity below 2.
XE_EXPORT DWORD GetDllDirectory_X(DWORD capacity, wchar_t* buffer);

// ------------------------------------------------------------------------------------------------------------- names
// The size is output alone, unlike in the published functions: it gets the name's length. The caller hands in a cleared
// buffer that is large enough (256 elements serve): the text that the buffer holds is cleared and the name is written
// without a terminator. 1, or 0 when the name is empty. A null buffer gives 0 and stores 0; a null size is skipped.

XE_EXPORT BOOL GetComputerName_X(wchar_t* buffer, DWORD* size); ///< the host name
XE_EXPORT BOOL GetUserName_X(wchar_t* buffer, DWORD* size);     ///< the environment variable USER

// ----------------------------------------------------------------------------------------------------------- modules

using HMODULE = void*;
using FARPROC = void*; ///< the address of a function or an object; the caller casts it

/// Loads a shared library by the C library's search alone: no suffix is added and SetDllDirectory_X plays no part. Its
/// symbols serve the libraries that are loaded later. Null on failure and for a null or empty path. FreeLibrary_X lets
/// go of the library.
XE_EXPORT HMODULE LoadLibrary_X(const wchar_t* path);

/// Lets go of a module. Returns 1 for any module, also for null.
XE_EXPORT BOOL FreeLibrary_X(HMODULE module);

/// Loads a module, lets go of it and returns its handle. Nothing holds the module, so the handle of one that nobody
/// else has loaded is *no longer valid*: it tells that the library is there and no more. A null path gives null, not
/// the process.
XE_EXPORT HMODULE GetModuleHandle_X(const wchar_t* path);

/// The address of a symbol, or null. A null module stands for everything that the process has loaded for all to see.
XE_EXPORT FARPROC GetProcAddress_X(HMODULE module, const char* name);

/// Clears the buffer and writes the file name of a module, of the executable for null, cut to the capacity and without
/// a terminator when it fills the buffer. Returns 1, not the length; 0 when the name is not known.
XE_EXPORT DWORD GetModuleFileName_X(HMODULE module, wchar_t* buffer, DWORD capacity);

// ------------------------------------------------------------------------------------------------------------- clock

/// Milliseconds of a clock that nobody sets, in 64 bits, so that it never wraps round.
XE_EXPORT unsigned long long GetTickCount();

/// Sleeps. The time is multiplied by 1000 in 32 bits: from 4294968 ms (71 minutes) on it wraps round.
XE_EXPORT void Sleep_X(DWORD milliseconds);

/// The local date and time. wDayOfWeek is *not* written, unlike by the published function.
XE_EXPORT void GetLocalTime(SYSTEMTIME* time);

// ------------------------------------------------------------------------------------------------------ fixed values

inline constexpr int COLOR_MENU = 4;
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_MENUTEXT = 7;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_3DSHADOW = COLOR_BTNSHADOW;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_3DHIGHLIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_BTNHILIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_3DHILIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;

/// A colour of a fixed table, whatever the desktop's palette. 0 for an index that is not in it.
XE_EXPORT COLORREF GetSysColor_X(int index);

inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CYCAPTION = 4;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXICON = 11;
inline constexpr int SM_CYICON = 12;
inline constexpr int SM_CYMENU = 15;
inline constexpr int SM_CYVSCROLL = 20;
inline constexpr int SM_CXHSCROLL = 21;
inline constexpr int SM_SWAPBUTTON = 23;
inline constexpr int SM_CXSIZE = 30;
inline constexpr int SM_CYSIZE = 31;
inline constexpr int SM_CXFRAME = 32;
inline constexpr int SM_CXSIZEFRAME = SM_CXFRAME;
inline constexpr int SM_CYFRAME = 33;
inline constexpr int SM_CYSIZEFRAME = SM_CYFRAME;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXSMICON = 49; ///< has no size here
inline constexpr int SM_CYSMICON = 50; ///< has no size here
inline constexpr int SM_CXSMSIZE = 52;
inline constexpr int SM_CYSMSIZE = 53;
inline constexpr int SM_SERVERR2 = 89;

/// A size in pixels from a fixed table, whatever the widget style; only SM_CXSCREEN and SM_CYSCREEN are measured, on
/// the primary screen (0 without a QApplication). -1 for an index that is not in the table.
XE_EXPORT int GetSystemMetrics_X(int index);

/// The code itself for backspace, tab, line feed, return and printable ASCII, 0 for any other. `type` is ignored.
XE_EXPORT UINT MapVirtualKey_X(UINT code, UINT type);

// ----------------------------------------------------------------------------------------------------------- machine

inline constexpr UINT DRIVE_UNKNOWN = 0;
inline constexpr UINT DRIVE_NO_ROOT_DIR = 1;
inline constexpr UINT DRIVE_REMOVABLE = 2;
inline constexpr UINT DRIVE_FIXED = 3;
inline constexpr UINT DRIVE_REMOTE = 4;
inline constexpr UINT DRIVE_CDROM = 5;
inline constexpr UINT DRIVE_RAMDISK = 6;

/// The kind of the file system that holds a path: DRIVE_REMOTE for NFS and SMB, DRIVE_CDROM for ISO 9660, DRIVE_RAMDISK
/// for ext, FAT and tmpfs, DRIVE_UNKNOWN for any other; DRIVE_NO_ROOT_DIR when the path is null or not there. Local
/// disks are RAM disks here and DRIVE_FIXED never comes back; callers rely on it. The path goes through the C locale.
XE_EXPORT UINT GetDriveType_X(const wchar_t* path);

enum FIRMWARE_TYPE { FirmwareTypeUnknown, FirmwareTypeBios, FirmwareTypeUefi, FirmwareTypeMax };

/// FirmwareTypeUefi when the machine was started by UEFI, otherwise FirmwareTypeBios. 1, or 0 for a null `type`.
XE_EXPORT BOOL GetFirmwareType_X(FIRMWARE_TYPE* type);

// ------------------------------------------------------------------------------------------------- tests of addresses

/// 1, in `result` too, when the bytes give any text as UTF-16: two bytes do, unless they are a byte order mark. Nothing
/// else is tested, unlike by the published function. A null `result` is skipped.
XE_EXPORT BOOL IsTextUnicode_X(const void* bytes, int length, int* result);

// Only null is found to be bad, no other address.
XE_EXPORT BOOL IsBadReadPtr_X(const void* address, std::size_t size);      ///< a size of 0 is bad as well
XE_EXPORT BOOL IsBadWritePtr_X(const void* address, std::size_t size = 0); ///< `size` is ignored
XE_EXPORT BOOL IsBadStringPtr_X(const wchar_t* text, std::size_t length);  ///< with a length of 0 not even null is bad

// ---------------------------------------------------------------------------------------------------- message texts

inline constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100;
inline constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
inline constexpr DWORD FORMAT_MESSAGE_FROM_STRING = 0x400;
inline constexpr DWORD FORMAT_MESSAGE_FROM_HMODULE = 0x800;
inline constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
inline constexpr DWORD FORMAT_MESSAGE_ARGUMENT_ARRAY = 0x2000;

/// Writes the text `source` (a terminated wide text, whatever the flags) or, when that is null, "system error! error
/// number: " and the id, which is negative there when its top bit is set. Inserts such as %1 stay as they are: the
/// language and the arguments are ignored. The text is cut to leave room for its terminator. Returns the length.
///
/// 0 with FORMAT_MESSAGE_ALLOCATE_BUFFER: that flag goes with a `wchar_t**`, which must not be cast to `wchar_t*`,
/// unlike in the published function.
XE_EXPORT DWORD FormatMessage_X(DWORD flags, const void* source, DWORD id, DWORD language, wchar_t* buffer,
                                DWORD capacity, std::va_list* arguments);

/// The same text in a new block, to be freed by LocalFree_X; at most 1023 elements. 0 without
/// FORMAT_MESSAGE_ALLOCATE_BUFFER, with `out` left alone, and without memory, with null in it. `minimum` is ignored.
XE_EXPORT DWORD FormatMessage_X(DWORD flags, const void* source, DWORD id, DWORD language, wchar_t** out, DWORD minimum,
                                std::va_list* arguments);

// ------------------------------------------------------------------------------------------------------------ memory
// A handle is the block's address; every block is cleared, and flags are ignored.

using HGLOBAL = void*;
using HLOCAL = void*;

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

/// A block of `size` bytes, also for a size of 0. Null when there is no memory.
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

// ---------------------------------------------------------------------------------------------- the host's main window

/// The first top-level widget with the object name "CTavoMainFrame": the host's main window. Null when there is no such
/// widget or no QApplication.
XE_EXPORT QWidget* TavoGetMainFrame();

/// The active sub-window of the first QMdiArea in the main window, or null.
XE_EXPORT QWidget* TavoGetViewWindow();

/// Has the host set a mouse cursor: calls the function `int(QWidget*, int)` whose address is the main window's property
/// "TavoSetCursor", a `long long`. Does nothing when the host has not set it. Hosts call it by this misspelt name.
XE_EXPORT void TavoSetCurosr(QWidget* window, int cursor);
