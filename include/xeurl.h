/// @file xeurl.h
/// URLs in wide texts: scheme, parts, tests, a hash; which files the desktop opens with a dangerous program.
///
/// Counts are 32-bit elements. Letters are those of the C locale.
#pragma once

#include "xedef.h"

// -------------------------------------------------------------------------------------------------------------- scheme

enum URL_SCHEME : int {
    URL_SCHEME_INVALID = -1,
    URL_SCHEME_UNKNOWN = 0,
    URL_SCHEME_FTP = 1,
    URL_SCHEME_HTTP = 2,
    URL_SCHEME_GOPHER = 3,
    URL_SCHEME_MAILTO = 4,
    URL_SCHEME_NEWS = 5,
    URL_SCHEME_NNTP = 6,
    URL_SCHEME_TELNET = 7,
    URL_SCHEME_WAIS = 8,
    URL_SCHEME_FILE = 9,
    URL_SCHEME_MK = 10,
    URL_SCHEME_HTTPS = 11,
    URL_SCHEME_SHELL = 12,
    URL_SCHEME_SNEWS = 13,
    URL_SCHEME_LOCAL = 14,
    URL_SCHEME_JAVASCRIPT = 15,
    URL_SCHEME_VBSCRIPT = 16,
    URL_SCHEME_ABOUT = 17,
    URL_SCHEME_RES = 18,
};

/// A known scheme and its name in lower case.
struct XeUrlScheme
{
    URL_SCHEME number;
    const wchar_t* name;
};

/// Every known scheme, by number.
XE_EXPORT extern const XeUrlScheme url_schemes[18];

/// What ParseURL_X finds; the pointers go into the text that was parsed.
struct tagPARSEDURLW
{
    DWORD cbSize; ///< set by the caller to the size of the record, 40
    const wchar_t* pszProtocol;
    UINT cchProtocol;
    const wchar_t* pszSuffix; ///< behind the ":"
    UINT cchSuffix;
    UINT nScheme; ///< a URL_SCHEME
};

static_assert(sizeof(tagPARSEDURLW) == 40, "callers set cbSize to 40");

using PARSEDURLW = tagPARSEDURLW;
using PPARSEDURLW = tagPARSEDURLW*;
using PARSEDURL = tagPARSEDURLW;
using PPARSEDURL = tagPARSEDURLW*;

/// Splits at the ":" behind the scheme: two or more letters, digits, "+", "-" or ".", so that a drive letter is none.
/// S_OK; URL_E_INVALID_SYNTAX with a null pszProtocol for a text without a scheme; E_INVALIDARG with nothing changed
/// for a null argument or another cbSize.
XE_EXPORT HRESULT ParseURL_X(const wchar_t* url, tagPARSEDURLW* parts);

// --------------------------------------------------------------------------------------------------------------- tests

enum URLIS : int {
    URLIS_URL = 0,
    URLIS_OPAQUE = 1,
    URLIS_NOHISTORY = 2,
    URLIS_FILEURL = 3,
    URLIS_APPLIABLE = 4,
    URLIS_DIRECTORY = 5,
    URLIS_HASQUERY = 6,
};

/// 1 if the text is of the kind: URLIS_URL asks PathIsURL_X; URLIS_OPAQUE is for "mailto", "shell", "javascript",
/// "vbscript" and "about"; URLIS_DIRECTORY for a slash or backslash at the end. Unlike in the published function
/// URLIS_FILEURL is for the text "file:" alone, in any case, and every other kind gives 0. 0 for null.
XE_EXPORT BOOL UrlIs_X(const wchar_t* url, URLIS kind);
XE_EXPORT BOOL UrlIsOpaque_X(const wchar_t* url);
XE_EXPORT BOOL UrlIsNoHistory_X(const wchar_t* url); ///< 0 always

// --------------------------------------------------------------------------------------------------------------- parts

enum URL_PART : int {
    URL_PART_NONE = 0,
    URL_PART_SCHEME = 1,
    URL_PART_HOSTNAME = 2,
    URL_PART_USERNAME = 3,
    URL_PART_PASSWORD = 4,
    URL_PART_PORT = 5,
    URL_PART_QUERY = 6,
};

inline constexpr DWORD URL_PARTFLAG_KEEPSCHEME = 1; ///< "http:80" instead of "80"

/// Copies one part of a URL with its terminator into a buffer of `*size` elements, and sets `*size` to its length. The
/// query begins with the first "?" behind the host's "/", that sign included, and goes up to the end of the text.
///
/// E_POINTER if it does not fit, with `*size` set to what it needs. S_FALSE for a part that the URL has not, or that is
/// empty. E_FAIL for a part other than the scheme of a URL that is no "ftp", "http", "gopher", "telnet", "file" or
/// "https" one. E_INVALIDARG for a part with no name above. All of these leave the buffer empty, and all but E_POINTER
/// leave `*size` alone. E_INVALIDARG with nothing written for a null argument or a size of 0.
///
/// User name and password count only before an "@", and may hold "%" with two hexadecimal digits behind it. Unlike in
/// the published function a scheme is written in small letters, so "HTTP://a" has none. A text without a
/// scheme gives S_FALSE for scheme and query and E_INVALIDARG for the other parts. The host of "file://c:/x" counts as
/// a drive, and so as absent.
XE_EXPORT HRESULT UrlGetPart_X(const wchar_t* url, wchar_t* buffer, DWORD* size, DWORD part, DWORD flags);

/// The first "#" of the text, null if there is none. Null for null.
XE_EXPORT const wchar_t* UrlGetLocation_X(const wchar_t* url);

/// Copies the text as it is, cut to the capacity and terminated: nothing is repaired, unlike in the published function.
/// S_OK, also for a capacity of 0, which writes nothing; E_FAIL for a null text; E_INVALIDARG for a null buffer.
XE_EXPORT HRESULT UrlFixup_X(const wchar_t* url, wchar_t* buffer, DWORD capacity);

// -------------------------------------------------------------------------------------------------------------- others

/// The permutation of 0 to 255 by which HashData_X goes.
XE_EXPORT extern const BYTE HashDataLookup[256];

/// Fills `hash` with a Pearson hash of the data, the same for the same bytes and length on every machine. S_OK;
/// E_INVALIDARG for a null pointer, also with a length of 0.
XE_EXPORT HRESULT HashData_X(const BYTE* data, DWORD dataLength, BYTE* hash, DWORD hashLength);

/// 1 if the desktop's `xdg-mime` names "dangerous_program" as the program for a file's type; 0 for null, for a file
/// whose type it cannot tell and where it is missing. The text becomes a part of a command line as it is: quote a path
/// with blanks. Starts two programs and may block for up to a minute, so keep it out of the event and paint paths.
XE_EXPORT BOOL AssocIsDangerous_X(const wchar_t* file);

/// 0 always.
XE_EXPORT BOOL IsInternetESCEnabled_X();
