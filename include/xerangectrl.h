/// @file xerangectrl.h
/// Controls for a number in a range: slider, scroll bar, progress bar, spin box.
///
/// A control is made by Create(), or wraps a widget of a form by SubclassDlgItem() or DDX_Control(). None sends
/// WM_HSCROLL, WM_VSCROLL or WM_NOTIFY, unlike the published ones: connect to the signals of the widget. What changes a
/// value emits them.
///
/// Without a widget the members do nothing and give 0, or what they say. GUI thread only.
#pragma once

#include "xeafxstr.h"
#include "xeafxwin.h"

#include <QAbstractSpinBox>
#include <QProgressBar>
#include <QScrollBar>
#include <QSlider>

class QLineEdit;

// Styles of a slider: of these TBS_VERT counts.
inline constexpr DWORD TBS_HORZ = 0;
inline constexpr DWORD TBS_AUTOTICKS = 1;
inline constexpr DWORD TBS_VERT = 2;
inline constexpr DWORD TBS_BOTH = 8;
inline constexpr DWORD TBS_NOTICKS = 0x10;

// Styles of a scroll bar.
inline constexpr DWORD SBS_HORZ = 0;
inline constexpr DWORD SBS_VERT = 1;

// Styles of a progress bar: of these PBS_VERTICAL counts.
inline constexpr DWORD PBS_SMOOTH = 1;
inline constexpr DWORD PBS_VERTICAL = 4;

// Styles of a spin box: of these XE_UDS_DECIMAL counts, which is the library's own.
inline constexpr DWORD UDS_WRAP = 1;
inline constexpr DWORD UDS_SETBUDDYINT = 2;
inline constexpr DWORD UDS_ALIGNRIGHT = 4;
inline constexpr DWORD UDS_ALIGNLEFT = 8;
inline constexpr DWORD UDS_AUTOBUDDY = 0x10;
inline constexpr DWORD UDS_ARROWKEYS = 0x20;
inline constexpr DWORD UDS_HORZ = 0x40;
inline constexpr DWORD UDS_NOTHOUSANDS = 0x80;
inline constexpr DWORD XE_UDS_DECIMAL = 0x200;

// -------------------------------------------------------------------------------------------------------------- slider

/// A QSlider, horizontal unless the style has TBS_VERT. The style of a wrapped one takes after the widget.
class XE_EXPORT CSliderCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CSliderCtrl_X)
    DECLARE_IMP_CLASS_X(QSlider)

    CSliderCtrl_X() : CWnd_X(Control()) {}

    /// Both stay as they are without a widget.
    void GetRange(int& minimum, int& maximum) const;
    /// `redraw` is ignored.
    void SetRange(int minimum, int maximum, BOOL redraw = FALSE);
    /// The step of an arrow key, and of Page Up and Down. The setters give the old one; -1 without a widget, all four.
    int GetLineSize() const;
    int SetLineSize(int size);
    int GetPageSize() const;
    int SetPageSize(int size);
    /// Where the slider is, cut to the range: also while it is dragged and the value does not follow.
    int GetPos() const;
    void SetPos(int position);
    /// Does nothing: the widget's own marks are set by QSlider::setTickInterval().
    void SetTicFreq(int frequency);

    bool AttachDefault(QWidget* parent) override;
    bool OnAttach() override;
};

// ---------------------------------------------------------------------------------------------------------- scroll bar

/// A QScrollBar as a control of its own; the bars of a window are CWnd_X::ShowScrollBar(). Some members hide those of
/// the same names that a window has for its bars.
class XE_EXPORT CScrollBar_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CScrollBar_X)
    DECLARE_IMP_CLASS_X(QScrollBar)

    CScrollBar_X() : CWnd_X(Control()) {}

    /// CWnd_X::Create(), with SBS_VERT a vertical bar, otherwise a horizontal one. WS_VSCROLL is left out of the style;
    /// WS_HSCROLL makes a second bar, the window's, on the first. `id` has no meaning.
    int Create(DWORD style, const tagRECT& rect, QWidget* parent, UINT id = 0);
    template <class Window, xe::detail::IfWindow<Window> = 0>
    int Create(DWORD style, const tagRECT& rect, const Window* parent, UINT id = 0)
    {
        return Create(style, rect, parent ? parent->GetSafeHwnd() : nullptr, id);
    }
    int Create(QWidget* parent) override { return CWnd_X::Create(parent); }

    /// Where the slider is, cut to the range: also while it is dragged and the value does not follow.
    int GetScrollPos() const;
    /// Gives the old position. `redraw` is ignored.
    int SetScrollPos(int position, BOOL redraw = TRUE);
    /// Writes the ends of the range to what is not null; nothing without a widget.
    void GetScrollRange(int* minimum, int* maximum) const;
    /// `redraw` is ignored.
    void SetScrollRange(int minimum, int maximum, BOOL redraw = TRUE);
    /// Shows or hides the bar.
    void ShowScrollBar(BOOL show = TRUE);
    /// Shows the bar for ESB_ENABLE_BOTH and hides it for anything else: unlike the published function it greys
    /// nothing. 1, or 0 without a widget.
    BOOL EnableScrollBar(UINT arrows = ESB_ENABLE_BOTH);

    bool AttachDefault(QWidget* parent) override;
};

// -------------------------------------------------------------------------------------------------------- progress bar

/// A QProgressBar, vertical with PBS_VERTICAL; the style of a wrapped one takes after the widget. A value beyond the
/// range leaves it as it is, and before the first one it is the least of the range.
///
/// @code
/// m_progress.SetRange(0, 100);
/// for (int i = 0; i < 100; ++i) {
///     load(i);
///     m_progress.SetPos(i + 1); // the bar is painted, and whatever else waits is handled
/// }
/// @endcode
class XE_EXPORT CProgressCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CProgressCtrl_X)
    DECLARE_IMP_CLASS_X(QProgressBar)

    CProgressCtrl_X() : CWnd_X(Control()) {}

    /// 40000 comes as -25536: 16 bits, as in the published function.
    void SetRange(short minimum, short maximum);
    /// Sets the value and has all waiting events handled, so that a long loop keeps the bar moving: anything may happen
    /// in there, to this object too. Gives the old value.
    int SetPos(int position);
    /// Adds to the value, and handles no events. Gives the old value.
    int OffsetPos(int distance);
    /// Sets what StepIt() adds, which may be negative. Gives the old step; also without a widget.
    int SetStep(int newStep);
    /// OffsetPos() by the step.
    int StepIt() { return OffsetPos(step); }

    bool AttachDefault(QWidget* parent) override;
    bool OnAttach() override;

    int step = 1;
};

// ------------------------------------------------------------------------------------------------------------ spin box

/// The increment of a step.
struct _GUDACCEL
{
    UINT nSec; ///< not looked at
    UINT nInc;
};

using UDACCEL = _GUDACCEL;
using LPUDACCEL = _GUDACCEL*;

/// A spin box with its own field, for whole numbers or, with XE_UDS_DECIMAL, for decimal ones: unlike the published
/// control it is not a pair of arrows beside an edit. Create() makes an XeCUISpinBox or an XeCUIDoubleSpinBox.
///
/// The members look at the widget, not at the style. On a QAbstractSpinBox of another kind they do nothing and give 0.
/// There is no GetPos(): read the text, or the widget's value.
class XE_EXPORT CSpinButtonCtrl_X : public CWnd_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CSpinButtonCtrl_X)
    DECLARE_IMP_CLASS_X(QAbstractSpinBox)

    CSpinButtonCtrl_X() : CWnd_X(Control()) {}

    /// Limits of decimal numbers lose what is behind the point, and are cut to an int.
    void GetRange32(int& lower, int& upper) const;
    void SetRange32(int lower, int upper);
    void GetRange(int& lower, int& upper) const { GetRange32(lower, upper); }
    void SetRange(short lower, short upper) { SetRange32(lower, upper); }

    /// Gives the old value, without what is behind its point; -1, with nothing changed, for a position out of the
    /// range.
    int SetPos32(int position);
    int SetPos(int position) { return SetPos32(position); }

    /// With a count above 0, steps go faster while a key or a button is held down; whole numbers go by the first
    /// entry's increment. 1, or 0 for a null array and a count below 1.
    BOOL SetAccel(int count, const _GUDACCEL* accelerators);

    /// The buddy becomes the box's own field, in place of the former one, which is deleted. Nothing on a box other than
    /// XeCUISpinBox and XeCUIDoubleSpinBox, and for null. Gives its argument, unlike the published function.
    QLineEdit* SetBuddy(QLineEdit* buddy);

    /// The base in which whole numbers are shown; -1 for decimal ones.
    int GetBase() const;
    /// Gives the old base; nothing changes for a base outside 2 to 36. -1 for decimal numbers.
    int SetBase(int base);

    /// The places behind the point of decimal numbers; 0 for whole ones.
    int GetDecimals() const;
    void SetDecimals(int decimals);

    /// The selection in the field, or the caret in both. Positions are UTF-16 units of all that the field shows.
    void GetSel(int& start, int& end) const;
    /// Selects from `start` to `end`: 0 and -1 all; a start of -1, or beyond the text, puts the caret to the end.
    /// Nothing for a start below -1.
    void SetSel(int start, int end);

    /// The value in decimal digits, whatever the field shows; of decimal numbers always six places behind the point.
    void GetWindowText(CString_X& text) const override;
    /// Sets the value if the whole text is a number of the kind, in base 10 and with a decimal point; otherwise
    /// nothing.
    void SetWindowText(const wchar_t* text) override;

    bool AttachDefault(QWidget* parent) override;
    /// Sets or clears XE_UDS_DECIMAL, as the widget is.
    bool OnAttach() override;
};
