/// @file xedef.h
/// Scalar types, handles, records and numbers of the Win32 interface as this library carries them.
///
/// The types have the widths that they have on 64-bit Windows: BOOL, LONG, ULONG and DWORD 32 bits, the message
/// parameters and all `*_PTR` types 64. A `wchar_t` has 32 bits, unlike there. A window handle is the QWidget itself.
#pragma once

#include <QtGlobal>

#include <cstdint>

class QBrush;
class QMenu;
class QWidget;
struct _IMAGELIST;

#if defined(XE_BUILDING_LIBRARY)
#define XE_EXPORT Q_DECL_EXPORT
#else
#define XE_EXPORT Q_DECL_IMPORT
#endif

// ------------------------------------------------------------ words that host code may hold and that mean nothing here

#ifndef CALLBACK
#define CALLBACK
#endif
#ifndef WINAPI
#define WINAPI
#endif
#ifndef APIENTRY
#define APIENTRY
#endif
#ifndef afx_msg
#define afx_msg
#endif

/// A wide text, always: there is no build for narrow ones. The argument may be a macro that stands for a text.
#ifndef _T
#define _T(text) XE_WIDE(text)
#endif
#define XE_WIDE(text) L##text

// -------------------------------------------------------------------------------------------------------- scalar types

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using HRESULT = LONG;   ///< negative means failure
using LSTATUS = LONG;   ///< a result of the registry functions: 0, or one of the error numbers
using COLORREF = DWORD; ///< 0x00BBGGRR

using INT_PTR = long long;
using UINT_PTR = unsigned long;
using LONG_PTR = long long;
using ULONG_PTR = unsigned long;
using DWORD_PTR = unsigned long;

using WPARAM = unsigned long;
using LPARAM = long long;
using LRESULT = long long;

using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using LPSTR = char*;
using LPCSTR = const char*;
using TCHAR = wchar_t;
using WCHAR = wchar_t;
using LPVOID = void*;
using LPCVOID = const void*;
using PVOID = void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPLONG = LONG*;
using BSTR = wchar_t*; ///< a terminated text from calloc, without a length in front

#if !defined(FALSE) && !defined(TRUE) // some C headers have them as macros
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
#endif

inline constexpr int MAX_PATH = 260; ///< as published; paths may be longer here

static_assert(sizeof(WPARAM) == 8 && sizeof(LPARAM) == 8 && sizeof(void*) == 8,
              "a message parameter holds a pointer, so the library is for 64-bit systems");

// ------------------------------------------------------------------------------------------------------------- handles

using HANDLE = void*;
using HINSTANCE = void*;
using HMENU = QMenu*;
using HDC = void*;
using HDROP = void*;
using HHOOK = void*;            ///< the address of the hook function
using HWND = QWidget*;          ///< the widget
using HBRUSH = QBrush*;         ///< the brush
using HGDIOBJ = void*;          ///< the address of a Qt value on the heap, as the five that follow
using HPEN = void*;             ///< of a QPen
using HBITMAP = void*;          ///< of a QImage
using HICON = void*;            ///< of a QImage
using HRGN = void*;             ///< of a QRegion
using HFONT = void*;            ///< of a QFont
using HPALETTE = void*;         ///< always null
using HIMAGELIST = _IMAGELIST*; ///< whatever the host takes for one

// ------------------------------------------------------------------------------------------------------------- records

/// A place. It may be looked at through other types as well: the corners of a CRect are points.
struct [[gnu::may_alias]] tagPOINT
{
    LONG x;
    LONG y;
};

/// A width and a height.
struct tagSIZE
{
    LONG cx;
    LONG cy;
};

/// A rectangle by its edges; `right` and `bottom` are one past the last pixel.
struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

/// What OnCreate() is given: `style`, and 0 in all else.
struct tagCREATESTRUCTW
{
    void* lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

/// What WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED carry, which hosts send to their own windows.
struct tagWINDOWPOS
{
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

/// What WM_STYLECHANGING and WM_STYLECHANGED carry, likewise.
struct tagSTYLESTRUCT
{
    DWORD styleOld;
    DWORD styleNew;
};

/// What WM_MEASUREITEM carries, likewise.
struct tagMEASUREITEMSTRUCT
{
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
};

/// A date and a time of day.
struct _SYSTEMTIME
{
    WORD wYear;
    WORD wMonth; ///< from 1
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};

/// A moment: its halves hold one signed 64-bit count of milliseconds since 1970-01-01 UTC, unlike the published unit.
struct _FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

/// Accepted and ignored everywhere.
struct _SECURITY_ATTRIBUTES
{
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};

/// The state of a scroll bar.
struct tagSCROLLINFO
{
    UINT cbSize; ///< neither read nor written
    UINT fMask;  ///< SIF_ flags: which fields count
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};

using POINT = tagPOINT;
using SIZE = tagSIZE;
using RECT = tagRECT;
using LPPOINT = tagPOINT*;
using LPRECT = tagRECT*;
using LPCRECT = const tagRECT*;
using CREATESTRUCT = tagCREATESTRUCTW;
using CREATESTRUCTW = tagCREATESTRUCTW;
using LPCREATESTRUCT = tagCREATESTRUCTW*;
using LPCREATESTRUCTW = tagCREATESTRUCTW*;
using WINDOWPOS = tagWINDOWPOS;
using LPWINDOWPOS = tagWINDOWPOS*;
using STYLESTRUCT = tagSTYLESTRUCT;
using LPSTYLESTRUCT = tagSTYLESTRUCT*;
using SCROLLINFO = tagSCROLLINFO;
using LPSCROLLINFO = tagSCROLLINFO*;
using MEASUREITEMSTRUCT = tagMEASUREITEMSTRUCT;
using LPMEASUREITEMSTRUCT = tagMEASUREITEMSTRUCT*;
using FILETIME = _FILETIME;
using LPFILETIME = _FILETIME*;
using LPSECURITY_ATTRIBUTES = _SECURITY_ATTRIBUTES*;
using SECURITY_ATTRIBUTES = _SECURITY_ATTRIBUTES;
using SYSTEMTIME = _SYSTEMTIME;
using LPSYSTEMTIME = _SYSTEMTIME*;

// ------------------------------------------------------------------------------------------------------- error numbers

// GetLastError() gives `errno`: numbers of the C library as well as these.
inline constexpr LONG ERROR_SUCCESS = 0;
inline constexpr LONG NO_ERROR = 0;
inline constexpr LONG ERROR_FILE_NOT_FOUND = 2;
inline constexpr LONG ERROR_PATH_NOT_FOUND = 3;
inline constexpr LONG ERROR_INVALID_HANDLE = 6;
inline constexpr LONG ERROR_BAD_FORMAT = 11;
inline constexpr LONG ERROR_INVALID_PARAMETER = 87;
inline constexpr LONG ERROR_BUFFER_OVERFLOW = 111;
inline constexpr LONG ERROR_ALREADY_EXISTS = 183;
inline constexpr LONG ERROR_MORE_DATA = 234;
inline constexpr LONG ERROR_NO_MORE_ITEMS = 259; ///< never given here: enumerations end with ERROR_PATH_NOT_FOUND

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);
inline constexpr HRESULT URL_E_INVALID_SYNTAX = static_cast<HRESULT>(0x80041001);

/// Whether a result is no failure.
constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; }
/// Whether a result is a failure.
constexpr bool FAILED(HRESULT result) { return result < 0; }

// ------------------------------------------------------------------------------------------------ words and parameters

/// The low 16 bits of a value.
constexpr WORD LOWORD(DWORD_PTR value) { return static_cast<WORD>(value & 0xFFFF); }

/// Bits 16 to 31 of a value.
constexpr WORD HIWORD(DWORD_PTR value) { return static_cast<WORD>((value >> 16) & 0xFFFF); }

/// Two 16-bit words as one 32-bit value.
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high)
{
    return static_cast<LONG>(static_cast<DWORD>(LOWORD(low)) | (static_cast<DWORD>(LOWORD(high)) << 16));
}

/// Two 16-bit words as a message parameter. The result is never negative: bit 31 is not extended into the upper half.
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high) { return static_cast<DWORD>(MAKELONG(low, high)); }

/// Two 16-bit words as a wParam. Bit 31 is not extended into the upper half.
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high) { return static_cast<DWORD>(MAKELONG(low, high)); }
