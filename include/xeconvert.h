/// @file xeconvert.h
/// Conversions between wide and narrow text, and the wide functions of the Windows C runtime that the C library lacks.
///
/// WideCharToMultiByte_X and its mirror go by the process's C locale, which this library never sets: unless the host
/// does, only ASCII text passes them. CString_X has conversions of its own, always UTF-8. A `QString + const char*` takes
/// the bytes as UTF-8; that operator is Qt's own.
#pragma once

#include "xedef.h"

#include <string>

/// The text in the multibyte encoding of the C locale, up to its first 0 element. `locale` is ignored (callers pass
/// "chs"). Text that the encoding cannot hold gives an empty string.
XE_EXPORT std::string WideCharToMultiByte_X(const std::wstring& text, const char* locale);

/// The mirror: the wide form of multibyte text, up to its first 0 byte. An invalid sequence gives an empty string.
XE_EXPORT std::wstring MultiByteToWideChar_X(const std::string& text, const char* locale);

/// WideCharToMultiByte_X of a terminated text. Raises std::logic_error for null.
XE_EXPORT std::string _W2A(const wchar_t* text);

/// The number at the start of the text; 0.0 when there is none or when the C locale cannot hold the text. Raises
/// std::logic_error for null.
XE_EXPORT double _wtof(const wchar_t* text);

/// Splits at the last ".", also when that stands in a folder's name: `name` gets the text before it, `extension` the
/// text from it on. Without a dot `name` gets the whole text and `extension` an empty one, as it does for a null path.
/// Both buffers must be able to hold the whole path and its terminator; a null one is skipped.
XE_EXPORT void _split_whole_name(const wchar_t* path, wchar_t* name, wchar_t* extension);

/// The first token of a text, terminated in place; null when there is none. Unlike the published function it remembers
/// nothing: a null text, which asks for the next token, gives null.
XE_EXPORT wchar_t* _wcstok(wchar_t* text, const wchar_t* delimiters);

/// Changes nothing and returns its argument: unlike the published function it makes no upper-case text. Callers take
/// CString_X::MakeUpper.
XE_EXPORT wchar_t* _wcsupr(wchar_t* text);

/// Removes a file. Returns 1 on success and 0 on failure, unlike the published function (0 and -1).
XE_EXPORT int _wunlink(const wchar_t* path);

/// Gives a file exactly one permission of its owner: mode 128 to write, 256 to read, 64 to execute. Returns 0, or -1 on
/// failure and, with nothing done, for any other mode.
XE_EXPORT int _wchmod(const wchar_t* path, int mode);

/// Removes an empty folder, and after it each parent folder that this leaves empty. Returns 0, or -1 when the folder is
/// missing, not empty (hidden entries count), the root or the current folder.
XE_EXPORT int _wrmdir(const wchar_t* path);

/// Makes one folder; its parent must be there. A bare name is made in the current folder, slashes at the end are
/// dropped. Returns 0, or -1 on failure and for a name that holds one of `\ / : * ? " < > |`.
XE_EXPORT int _wmkdir(const wchar_t* path);
