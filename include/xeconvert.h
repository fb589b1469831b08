/// @file xeconvert.h
/// Conversions between wide and narrow text, and the wide functions of the Windows C runtime that the C library lacks.
///
/// WideCharToMultiByte_X and its mirror go by the process's C locale, which this library never sets: unless the host
/// does, only ASCII text passes them. CString_X has conversions of its own, always UTF-8. A `QString + const char*`
/// takes the bytes as UTF-8; that operator is Qt's own.
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
