/// @file xestr.h
/// Copying, searching, comparing and reading wide texts.
///
/// Wide texts are terminated texts of 32-bit elements; counts, lengths and offsets count elements. A null pointer gives
/// null or 0 and changes nothing, unless a function says otherwise. The caller promises that a buffer has room for what
/// is written, the terminator included. "ASCII folding" takes "A" to "Z" for "a" to "z" and knows no other letter;
/// folding "by the C locale" is that of `towlower`.
#pragma once

#include "xedef.h"

// ----------------------------------------------------------------------------------------------------- copy and append

/// Copies the whole text; the two may overlap. Returns `dest`.
XE_EXPORT wchar_t* lstrcpy_X(wchar_t* dest, const wchar_t* text);

/// Copies at most `capacity` - 1 elements and terminates; the two may overlap. A null text makes `dest` empty. With a
/// capacity below 1 nothing is written. Returns `dest`.
XE_EXPORT wchar_t* lstrcpyn_X(wchar_t* dest, const wchar_t* text, int capacity);

/// As lstrcpyn_X, but a capacity below 1 makes `dest` empty too, so `dest` always has room for one element.
XE_EXPORT wchar_t* StrCpyN_X(wchar_t* dest, const wchar_t* text, int capacity);

/// Appends the whole text. Returns `dest`.
XE_EXPORT wchar_t* StrCat_X(wchar_t* dest, const wchar_t* text);
XE_EXPORT wchar_t* lstrcat_X(wchar_t* dest, const wchar_t* text);

/// Appends what fits into a buffer of `capacity` elements, terminator included; nothing when it is full. Returns
/// `dest`.
XE_EXPORT wchar_t* StrCatBuff_X(wchar_t* dest, const wchar_t* text, int capacity);

/// Appends at most `count` - 1 elements and terminates. Returns `dest`.
XE_EXPORT wchar_t* StrNCat_X(wchar_t* dest, const wchar_t* text, int count);

/// Writes the text at `offset` of a buffer of `capacity` elements, as far as it fits, and terminates. The offset
/// 0xFFFFFFFF stands for the end of the text in `dest`. Returns the offset of the terminator, for the next call of a
/// chain. An offset beyond the capacity, or no text to write, gives the offset itself; an offset equal to the capacity
/// gives the one before it, which is terminated if there is a text (so a capacity and offset of 0 give 0xFFFFFFFF).
XE_EXPORT DWORD StrCatChain_X(wchar_t* dest, DWORD capacity, DWORD offset, const wchar_t* text);

/// Removes the elements of `set` from both ends, in place. 1 if that changed the text, otherwise 0.
XE_EXPORT BOOL StrTrim_X(wchar_t* text, const wchar_t* set);

// -------------------------------------------------------------------------------------------------------------- search

/// The first place of the character, null if there is none. The terminator of the text is a place of the character 0.
XE_EXPORT wchar_t* StrChr_X(const wchar_t* text, wchar_t character);

/// The first place of the character by ASCII folding. The terminator is never found.
XE_EXPORT wchar_t* StrChrI_X(const wchar_t* text, wchar_t character);

/// The first place of the character among the first `count` elements, exactly or (I) by ASCII folding. The terminator
/// is never found.
XE_EXPORT wchar_t* StrChrN_X(const wchar_t* text, wchar_t character, UINT count);
XE_EXPORT wchar_t* StrChrNI_X(const wchar_t* text, wchar_t character, UINT count);

/// The last place before `end` (before the terminator if `end` is null) that does *not* hold the character in its low
/// 16 bits; null if there is none. The published function finds the last place that does: this one reads the answer of
/// ChrCmpI_X in its published sense, 0 for a match, while ChrCmpI_X gives 1 for one.
XE_EXPORT wchar_t* StrRChrI_X(const wchar_t* text, const wchar_t* end, wchar_t character);

/// The length of the leading run without an element of `set`, by ASCII folding.
XE_EXPORT int StrCSpnI_X(const wchar_t* text, const wchar_t* set);

/// The first place of `part`, with folding by the C locale. Null if there is none or if `part` is empty.
XE_EXPORT wchar_t* StrStrI_X(const wchar_t* text, const wchar_t* part);

/// The first place of `part` that lies whole within the first `count` elements, exactly or (I) with folding by the C
/// locale. Null if there is none or if `part` is empty.
XE_EXPORT wchar_t* StrStrN_X(const wchar_t* text, const wchar_t* part, UINT count);
XE_EXPORT wchar_t* StrStrNI_X(const wchar_t* text, const wchar_t* part, UINT count);

/// The last place of `part` that lies whole before `end` (before the terminator if `end` is null), with folding by the
/// C locale. Null if there is none or if `part` is empty.
XE_EXPORT wchar_t* StrRStrI_X(const wchar_t* text, const wchar_t* end, const wchar_t* part);

// ------------------------------------------------------------------------------------------------------------- compare

/// Compares element by element: below 0, 0 or above 0.
XE_EXPORT int StrCmp_X(const wchar_t* left, const wchar_t* right);
XE_EXPORT int StrCmpC_X(const wchar_t* left, const wchar_t* right);
XE_EXPORT int lstrcmp_X(const wchar_t* left, const wchar_t* right);

/// Compares at most `count` elements; a negative count stands for all.
XE_EXPORT int StrCmpN_X(const wchar_t* left, const wchar_t* right, int count);
XE_EXPORT int StrCmpNC_X(const wchar_t* left, const wchar_t* right, int count);

/// Compares with folding by the C locale.
XE_EXPORT int StrCmpI_X(const wchar_t* left, const wchar_t* right);

/// Compares at most `count` elements with folding by the C locale; a negative count stands for all.
XE_EXPORT int StrCmpNI_X(const wchar_t* left, const wchar_t* right, int count);
XE_EXPORT int StrCmpNIC_X(const wchar_t* left, const wchar_t* right, int count);

/// Compares as QString does without regard to case, in any C locale.
XE_EXPORT int lstrcmpi_X(const wchar_t* left, const wchar_t* right);
XE_EXPORT int StrCmpIC_X(const wchar_t* left, const wchar_t* right);

/// 1 if the texts are equal in their first `count` elements, exactly or with folding by the C locale; otherwise 0.
XE_EXPORT BOOL StrIsIntlEqual_X(BOOL caseSensitive, const wchar_t* left, const wchar_t* right, int count);

/// Walks both texts at once until it can tell -1 or 1: one text ends before the other, a digit meets another character
/// (the digit is smaller), or numbers of different value meet, as StrToIntEx_X reads them. Unlike in the published
/// function two equal characters that are no digits end the walk with 1 and different ones let it go on, since a 1 from
/// ChrCmpI_X, which stands for a match, is taken for a difference. 0 if both texts end together.
XE_EXPORT int StrCmpLogical_X(const wchar_t* left, const wchar_t* right);

inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;

/// Compares as QString does; a negative length stands for a terminated text. CSTR_GREATER_THAN if `left` comes after
/// `right`, otherwise CSTR_EQUAL: unlike the published function it never gives CSTR_LESS_THAN, so CSTR_EQUAL does not
/// tell that the texts are equal. 0 for null.
XE_EXPORT int CompareStringOrdinal_X(const wchar_t* left, int leftLength, const wchar_t* right, int rightLength,
                                     BOOL ignoreCase);

// ------------------------------------------------------------------------------------------------------------- numbers

inline constexpr DWORD STIF_DEFAULT = 0;
inline constexpr DWORD STIF_SUPPORT_HEX = 1;

/// The decimal number that the text starts with, as StrToIntEx_X reads it; 0 unless the first element is "-" or a
/// digit.
XE_EXPORT int StrToInt_X(const wchar_t* text);

/// The low 32 bits of what StrToInt64Ex_X reads.
XE_EXPORT BOOL StrToIntEx_X(const wchar_t* text, DWORD flags, int* number);

/// Reads the decimal number behind white space and an optional sign; with STIF_SUPPORT_HEX also a hexadecimal one
/// behind "0x" or "0X", whose sign is skipped and plays no part. A number beyond 64 bits keeps its low 64 bits. 1 if
/// there is a number; otherwise 0, and `number` is left alone.
XE_EXPORT BOOL StrToInt64Ex_X(const wchar_t* text, DWORD flags, long long* number);

/// `number` * `numerator` / `denominator` with a product of 64 bits, truncated towards 0, where the published function
/// rounds. -1 for a result above 0x7FFFFFFF and for a denominator of 0. A result below -0x80000000 keeps its low 32
/// bits.
XE_EXPORT int MulDiv_X(int number, int numerator, int denominator);

// --------------------------------------------------------------------------------------------------- single characters

/// 1 if the low 16 bits of both are equal, otherwise 0. Unlike the published function it tells upper case from lower
/// case and gives 1, not 0, for a match.
XE_EXPORT BOOL ChrCmpI_X(wchar_t left, wchar_t right);

/// 1 for white space of the C locale, otherwise 0.
XE_EXPORT BOOL IsCharSpace_X(wchar_t character);
