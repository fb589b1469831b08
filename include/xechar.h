/// @file xechar.h
/// Classes and cases of characters, and steps along a text.
///
/// The A forms take bytes, the W forms 32-bit elements. Texts are terminated and changed in place; lengths count bytes
/// or elements. A null pointer gives null or 0 and changes nothing. Cases change for ASCII letters alone, whatever the
/// C locale.
#pragma once

#include "xedef.h"

// ------------------------------------------------------------------------------------------------------------- classes
// By Unicode, 1 or 0. The A forms take a byte for one of the first 256 code points.

/// Whether the character is a letter.
XE_EXPORT BOOL IsCharAlphaA_X(char byte);
XE_EXPORT BOOL IsCharAlphaW_X(wchar_t character);

/// Whether it is a letter or a decimal digit.
XE_EXPORT BOOL IsCharAlphaNumericA_X(char byte);
XE_EXPORT BOOL IsCharAlphaNumericW_X(wchar_t character);

/// Whether it is an upper-case letter.
XE_EXPORT BOOL IsCharUpperA_X(char byte);
XE_EXPORT BOOL IsCharUpperW_X(wchar_t character);

/// Whether it is a lower-case letter.
XE_EXPORT BOOL IsCharLowerA_X(char byte);
XE_EXPORT BOOL IsCharLowerW_X(wchar_t character);

// --------------------------------------------------------------------------------------------------------------- cases

/// Changes the case of ASCII letters in place and returns the text; null for an empty one. An address below 0x10000
/// stands, as published, for a single character, which is returned in the other case the same way.
XE_EXPORT char* CharLowerA_X(char* text);
XE_EXPORT wchar_t* CharLowerW_X(wchar_t* text);
XE_EXPORT char* CharUpperA_X(char* text);
XE_EXPORT wchar_t* CharUpperW_X(wchar_t* text);

/// Changes the case of ASCII letters in a buffer of `length` elements, zeros and all, and returns the length.
XE_EXPORT DWORD CharLowerBuffA_X(char* text, DWORD length);
XE_EXPORT DWORD CharLowerBuffW_X(wchar_t* text, DWORD length);
XE_EXPORT DWORD CharUpperBuffA_X(char* text, DWORD length);
XE_EXPORT DWORD CharUpperBuffW_X(wchar_t* text, DWORD length);

// --------------------------------------------------------------------------------------------------------------- steps

/// The place of the next character: behind the UTF-8 sequence that starts here (A), one element on (W). At the
/// terminator it stays.
XE_EXPORT char* CharNextA_X(const char* text);
XE_EXPORT wchar_t* CharNextW_X(const wchar_t* text);

/// The length in bytes, 1 to 4, of the UTF-8 sequence that starts here: unlike the published function it says nothing
/// about lead bytes. 1 if the continuation bytes are not all there, and at the terminator; 0 for null.
XE_EXPORT int IsDBCSLeadByte_X(const char* text);

/// 1 for a byte from 129 to 254, otherwise 0: the lead bytes of the Chinese code page, whatever the C locale.
XE_EXPORT BOOL IsDBCSLeadByte_X(unsigned char byte);
