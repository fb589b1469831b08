/// @file xewinuser.h
/// The window functions: state, geometry, relations, text and dialog items, scroll bars, timers, mouse cursors.
///
/// A window handle is the QWidget itself. A null widget, and a null pointer to be filled, give 0 and change nothing; a
/// function whose result is not told gives 1 for any other widget. Nothing else is looked at: a widget that is gone is
/// the caller's fault, as IsWindow_X() cannot tell. Lengths and positions are pixels. GUI thread only.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"

#include <QIcon>

class QCursor;

using HCURSOR = int*; ///< the address of the code of the cursor loaded last, the same for all

/// What a timer calls: its window, WM_TIMER, its id, and the time in seconds since the epoch, not in milliseconds.
using TIMERPROC = void (*)(HWND window, UINT message, UINT_PTR id, DWORD seconds);

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_NORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_MAXIMIZE = 3;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_MINIMIZE = 6;
inline constexpr int SW_SHOWNA = 8;
inline constexpr int SW_RESTORE = 9;

inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOREDRAW = 0x0008;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_FRAMECHANGED = 0x0020;
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;
inline constexpr UINT SWP_NOOWNERZORDER = 0x0200;

inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr int SB_CTL = 2;
inline constexpr int SB_BOTH = 3;
inline constexpr UINT ESB_ENABLE_BOTH = 0;
inline constexpr UINT ESB_DISABLE_BOTH = 3;
inline constexpr UINT SIF_RANGE = 1;
inline constexpr UINT SIF_PAGE = 2;
inline constexpr UINT SIF_POS = 4;
inline constexpr UINT SIF_TRACKPOS = 16;
inline constexpr UINT SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS;

inline constexpr UINT BST_UNCHECKED = 0;
inline constexpr UINT BST_CHECKED = 1;
inline constexpr UINT BST_INDETERMINATE = 2;
inline constexpr DWORD BS_3STATE = 5;
inline constexpr DWORD BS_AUTO3STATE = 6;

inline constexpr DWORD WS_OVERLAPPED = 0;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_CAPTION = WS_BORDER | WS_DLGFRAME;
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_POPUPWINDOW = WS_POPUP | WS_BORDER | WS_SYSMENU;
inline constexpr DWORD WS_OVERLAPPEDWINDOW =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

// The resource ids of the stock cursors, as LoadCursor_X() takes them.
inline constexpr ULONG_PTR IDC_ARROW = 32512;
inline constexpr ULONG_PTR IDC_IBEAM = 32513;
inline constexpr ULONG_PTR IDC_WAIT = 32514;
inline constexpr ULONG_PTR IDC_CROSS = 32515;
inline constexpr ULONG_PTR IDC_SIZENWSE = 32642;
inline constexpr ULONG_PTR IDC_SIZENESW = 32643;
inline constexpr ULONG_PTR IDC_SIZEWE = 32644;
inline constexpr ULONG_PTR IDC_SIZENS = 32645;
inline constexpr ULONG_PTR IDC_SIZEALL = 32646;
inline constexpr ULONG_PTR IDC_HAND = 32649;

/// What LoadCursor_X() makes of a stock cursor: the resource id as text, for the published parameter.
inline LPCWSTR MAKEINTRESOURCE(ULONG_PTR id) { return reinterpret_cast<LPCWSTR>(id & 0xFFFF); }

// --------------------------------------------------------------------------------------------------------------- state

/// 1 for any pointer that is not null, also for a widget that is gone.
XE_EXPORT BOOL IsWindow_X(HWND window);
/// Whether the widget itself is not hidden: a child of a hidden parent counts as visible, unlike Windows.
XE_EXPORT BOOL IsWindowVisible_X(HWND window);
/// Whether the widget and all its parents are enabled.
XE_EXPORT BOOL IsWindowEnabled_X(HWND window);
/// Enables or disables the widget. Gives the previous *enabled* state; the published function gives the previous
/// disabled state.
XE_EXPORT BOOL EnableWindow_X(HWND window, BOOL enable);
/// Whether the window is minimised.
XE_EXPORT BOOL IsIconic_X(HWND window);
/// Whether the window is maximised.
XE_EXPORT BOOL IsZoomed_X(HWND window);
/// Whether `child` is `parent` itself or below it in the same window: a window counts as its own child, unlike Windows.
XE_EXPORT BOOL IsChild_X(HWND parent, HWND child);

/// Minimises the window, or restores it if it is minimised already.
XE_EXPORT BOOL CloseWindow_X(HWND window);
/// Restores the window and gives it the focus.
XE_EXPORT BOOL OpenIcon_X(HWND window);
/// The icon itself.
XE_EXPORT QIcon CopyIcon_X(const QIcon& icon);

/// SW_HIDE, SW_SHOW and SW_SHOWNORMAL; any other command does nothing, and the result is 1 all the same. A top-level
/// window that was hidden this way comes back where it was. When one is shown that does not become active at once,
/// events are processed, so that it is on the screen when the call returns.
XE_EXPORT BOOL ShowWindow_X(HWND window, int command);
/// Asks for a repaint and does not wait for it, unlike Windows.
XE_EXPORT BOOL UpdateWindow_X(HWND window);

/// Hides a window and takes it and its children apart: WM_DESTROY goes to its wrapper, then the children follow in
/// their order, then WM_NCDESTROY goes to the wrapper, which lets go of the widget (an owned one is deleted later).
/// Widgets without a wrapper are hidden alone. 0 for null, otherwise 1.
XE_EXPORT int DestroyWindow_X(HWND window);

// ------------------------------------------------------------------------------------------------------------ geometry
// Rectangles have their right and bottom one past the last pixel.

/// The frame on the screen; for a child widget, which has none, the widget.
XE_EXPORT BOOL GetWindowRect_X(HWND window, tagRECT* rect);
/// (0, 0, width, height): the scroll bars of the window are part of it, unlike CWnd_X::GetClientRect().
XE_EXPORT BOOL GetClientRect_X(HWND window, tagRECT* rect);
/// From the widget's coordinates to the screen's, in place.
XE_EXPORT BOOL ClientToScreen_X(HWND window, tagPOINT* point);
/// From the screen's coordinates to the widget's, in place.
XE_EXPORT BOOL ScreenToClient_X(HWND window, tagPOINT* point);
/// From one widget's coordinates to another's, in place. 1, and 0 for a null window, which does not stand for the
/// screen as it does in the published function; the way that the points have moved is not told.
XE_EXPORT int MapWindowPoints_X(HWND from, HWND to, tagPOINT* points, UINT count);
/// Overwrites the rectangle with the widget's own geometry: unlike for the published function there are no dialog
/// units.
XE_EXPORT BOOL MapDialogRect_X(HWND window, tagRECT* rect);
/// Moves the frame and resizes the widget in it: the size is without the frame, unlike that of CWnd_X::MoveWindow().
/// `repaint` is ignored.
XE_EXPORT BOOL MoveWindow_X(HWND window, int x, int y, int width, int height, BOOL repaint);

/// Resizes the widget, moves its frame, and shows or hides it, as the flags allow; SWP_NOACTIVATE takes the focus away
/// from the window. `after` must be a sibling widget to go under, or null: HWND_TOP and its like are not known here.
XE_EXPORT BOOL SetWindowPos_X(HWND window, HWND after, int x, int y, int width, int height, UINT flags);

// -------------------------------------------------------------------------------------------------------- relationship

/// The logical parent that the window was attached with, else the Qt parent, else null. A logical parent that is gone
/// is not followed: the Qt parent answers.
XE_EXPORT HWND GetParent_X(HWND window);
/// Sets both parents and gives the old one. As in Qt, the window is hidden when its parent changes. Null, with nothing
/// changed, when `parent` is the window itself or stands below it.
XE_EXPORT HWND SetParent_X(HWND window, HWND parent);
/// The outermost Qt parent; null if there is no parent. The published function gives the topmost child.
XE_EXPORT HWND GetTopWindow_X(HWND window);
/// The widget that stands for all screens together.
XE_EXPORT HWND GetDesktopWindow_X();
/// The active window of this program; null when another program is active.
XE_EXPORT HWND GetActiveWindow_X();
/// Asks the window system to make the widget's window the active one, which may come later or not at all. Gives the
/// window that is active at the moment, or null. Nothing but that for a null widget.
XE_EXPORT HWND SetActiveWindow_X(HWND window);
/// The widget of this program that has the keyboard focus, or null.
XE_EXPORT HWND GetFocus_X();
/// Asks for the widget's window to become active, and gives the widget the focus in that window. Gives the widget that
/// had the focus, or null. Nothing but that for a null widget: the focus stays, unlike with the published function.
XE_EXPORT HWND SetFocus_X(HWND window);
/// The widget that has grabbed the mouse, or null. A button held down over a widget is no grab.
XE_EXPORT HWND GetCapture_X();
/// Ends the grab that there is and has the widget, which must be visible, grab the mouse. Gives the widget that had it,
/// or null. A null widget only ends the grab.
XE_EXPORT HWND SetCapture_X(HWND window);
/// Ends the grab. 0 if no widget has the mouse.
XE_EXPORT BOOL ReleaseCapture_X();
/// The innermost widget of this program at a place on the screen; null if there is none.
XE_EXPORT HWND WindowFromPoint_X(tagPOINT point);
/// Writes the name of the Qt class, cut to `size` elements and *without a terminator*: clear the buffer before the
/// call. Returns the number written.
XE_EXPORT int GetClassName_X(HWND window, wchar_t* buffer, int size);
/// The number of rows of a QListWidget; 0 for any other widget.
XE_EXPORT DWORD GetListBoxInfo_X(HWND window);
/// The primary screen's logical resolution in dots per inch, cut to a whole number; 0 without a QApplication.
XE_EXPORT UINT GetDpiForSystem_X();
/// The device pixel ratio divided by 96, which is 0 on any common screen: not the dots per inch of the published
/// function.
XE_EXPORT UINT GetDpiForWindow_X(HWND window);

// ------------------------------------------------------------------------------------------------------ text and items

/// The text of a control, or the title of any other widget; its length is the result. A widget with a wrapper is asked
/// the same way, not by CWnd_X::GetWindowText().
XE_EXPORT int GetWindowText_X(HWND window, CString_X& text);
/// Writes it with its terminator, cut to `size` elements in all. The result is the number written before the
/// terminator.
XE_EXPORT int GetWindowText_X(HWND window, wchar_t* buffer, int size);
/// The length of the text that GetWindowText_X() gives, in elements.
XE_EXPORT int GetWindowTextLength_X(HWND window);

/// Sets the text of a control, or the title of any other widget. A spin box takes the number that the text starts with;
/// a combo box emits no signals. A widget with a wrapper gets CWnd_X::SetWindowText() instead.
XE_EXPORT BOOL SetWindowText_X(HWND window, const wchar_t* text);

/// The child that has the name of a resource id (xeresource.h), at any depth. Null for 0 and for an id without a name.
XE_EXPORT HWND GetDlgItem_X(HWND window, int id);
/// The resource id of the widget's object name; 0 for a name without one.
XE_EXPORT int GetDlgCtrlID_X(HWND window);
/// SetWindowText_X() of an item; 0 if there is none.
XE_EXPORT BOOL SetDlgItemText_X(HWND window, int id, const wchar_t* text);
/// GetWindowText_X() of an item; 0 if there is none.
XE_EXPORT UINT GetDlgItemText_X(HWND window, int id, wchar_t* buffer, int size);

/// The first number anywhere in the item's text, with a "-" in front of it only if `isSigned`: "ab12cd" gives 12. 0,
/// with 0 in `translated`, if there is none; 0 with 1 in `translated` for one that is too large. What is beyond the
/// first 255 elements of the text is not looked at.
XE_EXPORT UINT GetDlgItemInt_X(HWND window, int id, BOOL* translated, BOOL isSigned);
/// Writes the number as an unsigned one. If `isSigned` and bit 31 is set a "-" goes in front of *that*, so -1 becomes
/// "-4294967295": for numbers that are to be read back, callers pass none below 0.
XE_EXPORT BOOL SetDlgItemInt_X(HWND window, int id, UINT value, BOOL isSigned);

/// Whether a wrapped QCheckBox is checked; for one with a three-state style 5, not its state. 0 for anything else.
XE_EXPORT UINT IsDlgButtonChecked_X(HWND window, int id);

/// Selects the text of a line edit, a text edit, a spin box or the line edit of a combo box. 0 for other widgets.
XE_EXPORT BOOL SetEditSelectAll_X(HWND window);
/// Sets the longest text of a line edit or of a combo box's. 0 for other widgets.
XE_EXPORT BOOL SetEditLimitText_X(HWND window, int length);

// --------------------------------------------------------------------------------------------------------- scroll bars
// Those of a wrapped window (CWnd_X::GetScrollBarCtrl): the vertical one if `bar` is not 0, else the horizontal one. 0
// for a window without the bar. `redraw` is ignored.

/// The bar's value.
XE_EXPORT int GetScrollPos_X(HWND window, int bar);
/// Sets the bar's value, cut to its range, and gives the old one.
XE_EXPORT int SetScrollPos_X(HWND window, int bar, int position, BOOL redraw);
/// Writes the ends of the bar's range; a null pointer is skipped.
XE_EXPORT BOOL GetScrollRange_X(HWND window, int bar, int* minimum, int* maximum);
/// Sets the ends of the bar's range.
XE_EXPORT BOOL SetScrollRange_X(HWND window, int bar, int minimum, int maximum, BOOL redraw);
/// Shows the bar (SB_HORZ, SB_VERT or SB_BOTH) if `arrows` is ESB_ENABLE_BOTH, making it when it is missing, and hides
/// it otherwise: unlike for the published function a disabled bar is a hidden one. 1 for any window.
XE_EXPORT BOOL EnableScrollBar_X(HWND window, UINT bar, UINT arrows);

// -------------------------------------------------------------------------------------------------------------- timers

/// Starts a timer and gives its id. Ids belong to the *process*, unlike Windows: while a timer with this id runs, its
/// interval alone is changed, and it goes on to serve the window and the function it was made for. One that the host
/// has stopped itself is replaced.
///
/// A null window stands for the host's main window; 0 milliseconds become 10. `proc` gets the time in *seconds* since
/// the epoch; without one the window gets WM_TIMER. The timer dies with its window.
XE_EXPORT UINT_PTR SetTimer_X(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC proc);
/// Ends the timer with this id, whatever the window. 0 if there is none.
XE_EXPORT BOOL KillTimer_X(HWND window, UINT_PTR id);

// ------------------------------------------------------------------------------------------------------- mouse cursors

/// Remembers a stock cursor (any other is the arrow) and gives the one handle that all cursors share: the cursor loaded
/// last is the one that SetCursor_X() sets. `instance` is ignored.
XE_EXPORT HCURSOR LoadCursor_X(HINSTANCE instance, LPCWSTR name);
XE_EXPORT HCURSOR LoadCursor_X(HINSTANCE instance, ULONG_PTR id);

/// Has the host set the cursor: calls the function `int(QWidget*, int)` behind the main window's property
/// "TavoSetCursor" with a null widget and the code that the handle points at, and remembers the code that it returns.
/// Without that function, or for null, nothing happens. Gives the shared handle.
XE_EXPORT HCURSOR SetCursor_X(HCURSOR cursor);

/// Not 0 *hides* the pointer and 0 shows it again, the reverse of the published function; each hiding needs a showing
/// of its own. Always 1: there is no display count.
XE_EXPORT int ShowCursor_X(BOOL show);
/// 0: the pointer is never held.
XE_EXPORT BOOL ClipCursor_X(const tagRECT* rect);

/// Where the pointer is on the screen. 1, or 0 for a null `point`.
XE_EXPORT BOOL GetCursorPos_X(tagPOINT* point);
/// Moves the pointer there. 1.
XE_EXPORT BOOL SetCursorPos_X(int x, int y);
/// The same in the coordinates of GetDesktopWindow_X().
XE_EXPORT BOOL GetPhysicalCursorPos_X(tagPOINT* point);
XE_EXPORT BOOL SetPhysicalCursorPos_X(int x, int y);
/// The time within which a second click makes a double click, in milliseconds.
XE_EXPORT UINT GetDoubleClickTime_X();
/// Sets that time, for this program alone. 1.
XE_EXPORT BOOL SetDoubleClickTime_X(UINT milliseconds);
