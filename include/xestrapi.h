/// @file xestrapi.h
/// Text, character, BSTR, colour and rectangle functions.
///
/// Wide texts are terminated texts of 32-bit elements, counts are elements. A null pointer gives null or 0 and changes
/// nothing, unless a function says otherwise. Who hands a buffer in promises its size. "ASCII folding" equals "A" to
/// "Z" with "a" to "z" and knows no other letter; folding "by the C locale" is that of `towlower`.
#pragma once

#include "xedef.h"

// ----------------------------------------------------------------------------------------------- copy and append

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

/// Appends at most `count` - 1 elements. Returns `dest`.
XE_EXPORT wchar_t* StrNCat_X(wchar_t* dest, const wchar_t* text, int count);

/// Writes the text at `offset` of a buffer of `capacity` elements, as far as it fits, and terminates. The offset
/// 0xFFFFFFFF stands for the end of the text in `dest`. Returns the offset of the terminator, for the next call of a
/// chain. An offset beyond the capacity, or no text to write, gives the offset itself; an offset equal to the capacity
/// gives the one before it, which is terminated if there is a text (so a capacity and offset of 0 give 0xFFFFFFFF).
XE_EXPORT DWORD StrCatChain_X(wchar_t* dest, DWORD capacity, DWORD offset, const wchar_t* text);

/// Removes the elements of `set` from both ends, in place. 1 if that changed the text, otherwise 0.
XE_EXPORT BOOL StrTrim_X(wchar_t* text, const wchar_t* set);

// -------------------------------------------------------------------------------------------------------- search

/// The first place of the character, null if there is none. The terminator of the text is a place of the character 0.
XE_EXPORT wchar_t* StrChr_X(const wchar_t* text, wchar_t character);

/// The first place of the character by ASCII folding. The terminator is never found.
XE_EXPORT wchar_t* StrChrI_X(const wchar_t* text, wchar_t character);

/// The first place of the character among the first `count` elements, exactly or (I) by ASCII folding. The terminator
/// is never found.
XE_EXPORT wchar_t* StrChrN_X(const wchar_t* text, wchar_t character, UINT count);
XE_EXPORT wchar_t* StrChrNI_X(const wchar_t* text, wchar_t character, UINT count);

/// The last place before `end` (before the terminator if `end` is null) that does not hold the character in its low 16
/// bits; null if there is none. That is the reverse of the published function: it asks ChrCmpI_X, whose sense is
/// reversed, and callers rely on the pair.
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

// ------------------------------------------------------------------------------------------------------- compare

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
/// (the digit is smaller), or numbers of different value meet, as StrToIntEx_X reads them. Unlike the published
/// function two equal characters that are no digits end the walk with 1 and different ones let it go on, since it asks
/// ChrCmpI_X; callers rely on it. 0 if both texts end together.
XE_EXPORT int StrCmpLogical_X(const wchar_t* left, const wchar_t* right);

inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;

/// Compares as QString does; a negative length stands for a terminated text. CSTR_GREATER_THAN if `left` comes after
/// `right`, otherwise CSTR_EQUAL: unlike the published function it never gives CSTR_LESS_THAN, and callers rely on it.
XE_EXPORT int CompareStringOrdinal_X(const wchar_t* left, int leftLength, const wchar_t* right, int rightLength,
                                     BOOL ignoreCase);

// ------------------------------------------------------------------------------------------------------- numbers

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
/// rounds; callers rely on it. -1 for a result above 0x7FFFFFFF and for a denominator of 0. A result below -0x80000000
/// keeps its low 32 bits.
XE_EXPORT int MulDiv_X(int number, int numerator, int denominator);

// ---------------------------------------------------------------------------------------------------- characters

/// 1 if the low 16 bits of both are equal, otherwise 0. Unlike the published function it tells upper case from lower
/// case and gives 1, not 0, for a match; StrRChrI_X and StrCmpLogical_X build on it.
XE_EXPORT BOOL ChrCmpI_X(wchar_t left, wchar_t right);

/// 1 for white space of the C locale, otherwise 0.
XE_EXPORT BOOL IsCharSpace_X(wchar_t character);

/// The class of a character by Unicode, 1 or 0: a letter; a letter or decimal digit; an upper-case letter; a lower-case
/// letter. The A forms take a byte as one of the first 256 code points.
XE_EXPORT BOOL IsCharAlphaA_X(char byte);
XE_EXPORT BOOL IsCharAlphaW_X(wchar_t character);
XE_EXPORT BOOL IsCharAlphaNumericA_X(char byte);
XE_EXPORT BOOL IsCharAlphaNumericW_X(wchar_t character);
XE_EXPORT BOOL IsCharUpperA_X(char byte);
XE_EXPORT BOOL IsCharUpperW_X(wchar_t character);
XE_EXPORT BOOL IsCharLowerA_X(char byte);
XE_EXPORT BOOL IsCharLowerW_X(wchar_t character);

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

/// The place of the next character: behind the UTF-8 sequence that starts here (A), one element on (W). At the
/// terminator it stays.
XE_EXPORT char* CharNextA_X(const char* text);
XE_EXPORT wchar_t* CharNextW_X(const wchar_t* text);

/// The length in bytes, 1 to 4, of the UTF-8 sequence that starts here, whatever the name says. 1 if its continuation
/// bytes are not all there, and at the terminator; 0 for null.
XE_EXPORT int IsDBCSLeadByte_X(const char* text);

/// 1 for a byte from 129 to 254, otherwise 0.
XE_EXPORT BOOL IsDBCSLeadByte_X(unsigned char byte);

// ---------------------------------------------------------------------------------------------------------- BSTR

/// A new copy of the text, which the caller gives back to SysFreeString_X. Null for null. A BSTR has no length in
/// front: it ends at its first 0.
XE_EXPORT BSTR SysAllocString_X(const wchar_t* text);

/// A new text with room for `length` elements and a terminator, cleared, which holds the given text, cut to that
/// length; a null text leaves it empty. Null if the length is above 0x7FFFFFFF or the memory is not there.
XE_EXPORT BSTR SysAllocStringLen_X(const wchar_t* text, UINT length);

/// A new text with room for `length` + 4 bytes, cleared, which holds the wide form (MultiByteToWideChar_X) of the
/// terminated bytes and has more room if that needs it. Null bytes leave it empty. Null if the length is above
/// 0x7FFFFFFF or the memory is not there.
XE_EXPORT BSTR SysAllocStringByteLen_X(const char* bytes, UINT length);

/// Frees a text of the functions above.
XE_EXPORT void SysFreeString_X(BSTR text);

/// The length up to the first 0, in elements and in bytes. Any terminated text has one.
XE_EXPORT UINT SysStringLen_X(const wchar_t* text);
XE_EXPORT UINT SysStringByteLen_X(const wchar_t* text);

// ------------------------------------------------------------------------------------------------------- colours

/// The hue, luminance and saturation of a colour, each from 0 to 240. A grey has hue 160 and saturation 0. A null
/// result is left out.
XE_EXPORT void ColorRGBToHLS_X(COLORREF color, WORD* hue, WORD* luminance, WORD* saturation);

/// The colour of a hue, luminance and saturation from 0 to 240. Beyond that the hue is taken around the circle, and
/// each channel keeps its low 8 bits.
XE_EXPORT COLORREF ColorHLSToRGB_X(WORD hue, WORD luminance, WORD saturation);

/// The colour with its luminance raised by `n` / 1000 of the 240 steps if `scale`, by `n` / 4.17 steps if not. A
/// luminance above 240 becomes 240; so does one below 0, since a luminance has 16 bits without a sign.
XE_EXPORT COLORREF ColorAdjustLuma_X(COLORREF color, int n, BOOL scale);

// ---------------------------------------------------------------------------------------------------- rectangles
// `right` and `bottom` are exclusive. `out` may be one of the operands.

/// Writes what both rectangles have in common, {0, 0, 0, 0} if there is nothing. 1 if there is something.
XE_EXPORT BOOL IntersectRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b);

/// Writes the smallest rectangle around both; one without width and height is left out. 1 if the result is not empty.
XE_EXPORT BOOL UnionRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b);

/// Writes the smallest rectangle around what `b` leaves of `a`, {0, 0, 0, 0} if that is nothing. 1 if it is something.
XE_EXPORT BOOL SubtractRect_X(tagRECT* out, const tagRECT* a, const tagRECT* b);

/// Moves by (-dx, -dy), the reverse of the published direction; callers rely on it. 1.
XE_EXPORT BOOL OffsetRect_X(tagRECT* rect, int dx, int dy);

/// Takes `dx` from `right` and `dy` from `bottom`, so that positive values shrink the rectangle towards its top left
/// corner, where the published function grows it on all sides; callers rely on it. 1.
XE_EXPORT BOOL InflateRect_X(tagRECT* rect, int dx, int dy);

/// 1 if the width or the height is 0 or negative. A null rectangle is not empty.
XE_EXPORT BOOL IsRectEmpty_X(const tagRECT* rect);

/// 1 if all four fields are equal.
XE_EXPORT BOOL EqualRect_X(const tagRECT* a, const tagRECT* b);

/// 1 if the point lies in the rectangle; its left and top edge belong to it. Of a rectangle whose edges are swapped it
/// tells as QRect::contains does.
XE_EXPORT BOOL PtInRect_X(const tagRECT* rect, tagPOINT point);

/// As published. 1.
XE_EXPORT BOOL CopyRect_X(tagRECT* dest, const tagRECT* source);
XE_EXPORT BOOL SetRectEmpty_X(tagRECT* rect);
XE_EXPORT BOOL SetRect_X(tagRECT* rect, int left, int top, int right, int bottom);
