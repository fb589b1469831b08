/// @file xeprofile.h
/// Private profiles: INI files in the format of Qt's QSettings.
///
/// A profile is a file, named by its path. Each call opens it, does its one thing and closes it, and every write
/// rewrites the whole file, which is there whole at every moment, as it was or as it will be. Nothing is kept between
/// calls, but what could not be written: as long as QSettings remembers a file that is not empty, the next call for it
/// tries again. Calls may come from several threads.
///
/// The format is the INI format of QSettings in UTF-8, which is not that of Windows:
/// - Sections and keys are told apart by case. Names outside ASCII are found in the form that QSettings writes alone
///   (`%U4E2D`). A key of the section [General] is one without a section: section "" finds it, "General" does not.
/// - A backslash in a value starts an escape sequence: `C:\temp` from a Windows file reads as `C:`, a tab and `emp`.
///   Double quotes round a value go. A value with a comma outside quotes is a list and reads as the empty text, not as
///   the default. Text in another encoding is not converted: bytes that are no UTF-8 read as U+FFFD.
/// - A write loses comments and blank lines, sorts sections and keys and ends lines with LF.
///
/// Texts are terminated; a null section, key, value or path counts as empty. Sizes count 32-bit elements, those of
/// structures bytes. A null buffer gets nothing and gives 0. A file that is missing, no file or no profile reads as an
/// empty one. A @Variant(...) value that Qt cannot read and live, such as lists nested thousands deep, is as if it were
/// not there, and stays in the file as it is.
#pragma once

#include "xedef.h"

// ---------------------------------------------------------------------------------------------------------------- read

/// The entry as a number; 0, not the default, for a text that is none.
XE_EXPORT UINT GetPrivateProfileInt_X(const wchar_t* section, const wchar_t* key, int defaultValue,
                                      const wchar_t* file);

/// Copies the entry's text, or the default, with its terminator. Returns its length in UTF-16 units. Unlike the
/// published function it does not look at the size, so the buffer must hold the whole text. A null key lists nothing:
/// it asks for the entry with the empty name, and so gives the default.
XE_EXPORT DWORD GetPrivateProfileString_X(const wchar_t* section, const wchar_t* key, const wchar_t* defaultText,
                                          wchar_t* buffer, DWORD size, const wchar_t* file);

/// Writes the section's entries as lines "key=value" that end with a carriage return each, without a terminator, unlike
/// the published function; WritePrivateProfileSection_X takes them back. Returns the number of elements; what does not
/// fit is cut, and the result is then size - 2, or 0 for a size below 2.
XE_EXPORT DWORD GetPrivateProfileSection_X(const wchar_t* section, wchar_t* buffer, DWORD size, const wchar_t* file);

/// Writes the names of the sections one after another, each followed by one element that is left alone, and returns
/// the number of elements used. Only the first `size` *bytes* of the buffer are cleared, and that is where the
/// terminators come from: the list is terminated as far as it stays in the first quarter, or in a buffer cleared by the
/// caller. A list that does not fit is cut, and the result is size - 2, or 0 for a size below 2.
XE_EXPORT DWORD GetPrivateProfileSectionNames_X(wchar_t* buffer, DWORD size, const wchar_t* file);

/// Fills the buffer with the bytes of the entry, zeros behind them if it has less than `size`. 1; 0 for an entry that
/// is missing or empty, with nothing written. A structure from a Windows file comes as its hexadecimal digits.
XE_EXPORT BOOL GetPrivateProfileStruct_X(const wchar_t* section, const wchar_t* key, void* buffer, UINT size,
                                         const wchar_t* file);

// --------------------------------------------------------------------------------------------------------------- write
// 0 if there is no such file: none is created. Otherwise 1, also when the file could not be written. Nothing can be
// removed: a null value writes an empty one, and without a key no entry is written, with a warning from Qt.

XE_EXPORT BOOL WritePrivateProfileString_X(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                           const wchar_t* file);

/// Writes the bytes in the form `@ByteArray(...)`. 0 with nothing written for 2 GiB and more.
XE_EXPORT BOOL WritePrivateProfileStruct_X(const wchar_t* section, const wchar_t* key, const void* data, UINT size,
                                           const wchar_t* file);

/// Writes the entries "key=value" of the text, which carriage returns separate. One with more or less than one "=" is
/// skipped, and double quotes in values go. The section's other entries stay, unlike in the published function.
XE_EXPORT BOOL WritePrivateProfileSection_X(const wchar_t* section, const wchar_t* text, const wchar_t* file);

/// The C library's `access` for a wide path, converted by the C locale. -1 also for a path that the locale cannot hold
/// and for one of more than 1023 bytes.
XE_EXPORT int waccess(const wchar_t* path, int mode);
