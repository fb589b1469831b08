/// @file xesysinfo.h
/// Names, clock, sizes and kind of the machine.
#pragma once

#include "xedef.h"

// --------------------------------------------------------------------------------------------------------------- names

/// Writes the host name, and its length to `*size`, which is not read, unlike by the published function: the caller
/// promises enough room (256 elements serve). The buffer must hold a terminated text, which is cleared first; the name
/// is written *without a terminator*, so clear the whole buffer before the call. 1, or 0 when the name is empty. A
/// null buffer gives 0 and stores 0; a null `size` is skipped.
XE_EXPORT BOOL GetComputerName_X(wchar_t* buffer, DWORD* size);

/// The same with the name in the environment variable USER.
XE_EXPORT BOOL GetUserName_X(wchar_t* buffer, DWORD* size);

// --------------------------------------------------------------------------------------------------------------- clock

/// Milliseconds of a clock that nobody sets, in 64 bits, so that it never wraps round.
XE_EXPORT unsigned long long GetTickCount();

/// Puts the thread to sleep; no event is handled meanwhile. The time is multiplied by 1000 in 32 bits: from 4294968 ms
/// (71 minutes) on it wraps round.
XE_EXPORT void Sleep_X(DWORD milliseconds);

/// Writes the local date and time. wDayOfWeek is left as it is, unlike by the published function. Nothing for null.
XE_EXPORT void GetLocalTime(SYSTEMTIME* time);

// ----------------------------------------------------------------------------------------------------- sizes and codes

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

// ------------------------------------------------------------------------------------------------------------- machine

inline constexpr UINT DRIVE_UNKNOWN = 0;
inline constexpr UINT DRIVE_NO_ROOT_DIR = 1;
inline constexpr UINT DRIVE_REMOVABLE = 2;
inline constexpr UINT DRIVE_FIXED = 3;
inline constexpr UINT DRIVE_REMOTE = 4;
inline constexpr UINT DRIVE_CDROM = 5;
inline constexpr UINT DRIVE_RAMDISK = 6;

/// The kind of the file system that holds a path: DRIVE_REMOTE for NFS and SMB, DRIVE_CDROM for ISO 9660, DRIVE_RAMDISK
/// for ext, FAT and tmpfs, DRIVE_UNKNOWN for any other; DRIVE_NO_ROOT_DIR when the path is null or not there. Unlike by
/// the published function a local disk is told as a RAM disk, and DRIVE_FIXED never comes back. The path goes to the
/// system in the encoding of the C locale.
XE_EXPORT UINT GetDriveType_X(const wchar_t* path);

enum FIRMWARE_TYPE { FirmwareTypeUnknown, FirmwareTypeBios, FirmwareTypeUefi, FirmwareTypeMax };

/// Writes FirmwareTypeUefi when the machine was started by UEFI, otherwise FirmwareTypeBios. 1, or 0 for a null `type`.
XE_EXPORT BOOL GetFirmwareType_X(FIRMWARE_TYPE* type);
