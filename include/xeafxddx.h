/// @file xeafxddx.h
/// Dialog data exchange: moves values between the controls of a window and the variables of its class.
///
/// @code
/// void CPartDialog::DoDataExchange(CDataExchange_X* exchange)
/// {
///     CDialog_X::DoDataExchange(exchange);
///     DDX_Text(exchange, IDC_NAME, m_name);
///     DDV_MaxChars(exchange, m_name, 40);
///     DDX_Text(exchange, "stock", m_stock);
///     DDV_MinMaxInt(exchange, m_stock, 0, 9999);
///     DDX_Check(exchange, m_form.inUse, m_inUse);
/// }
/// @endcode
///
/// CWnd_X::UpdateData() calls the override, in either direction. A control is named by its resource id, its object name
/// or itself. A value that does not pass gives the exchange up: a message box comes up once UpdateData() has returned,
/// and the control has the focus. The messages are Chinese, whatever the locale.
///
/// A name or an id without a control of the right class gives the exchange up as well, without a box and with a warning
/// in the log that names it. Only DDX_Text() and DDX_Radio() go on after the warning: nothing is shown and nothing
/// stored.
#pragma once

#include "xeafxstr.h"
#include "xedef.h"
#include "xeresource.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>

class CWnd_X;

/// One run of DoDataExchange(): its direction, its window, and the control that it is at. CWnd_X::UpdateData() makes
/// one; a host uses it in exchange functions of its own.
class XE_EXPORT CDataExchange_X
{
public:
    /// `saveAndValidate` not 0: from the controls to the variables. The window is not owned; a null one has no
    /// controls.
    CDataExchange_X(CWnd_X* dialog, int saveAndValidate);

    /// The window's widget, or null.
    QWidget* GetDlgQWidget() const;
    /// The control of this object name (UTF-8) at any depth; null if there is none, and for a null or empty name.
    QWidget* GetDlgItem(const char* name) const;
    /// The same with a name of Qt's.
    QWidget* FindControl(const QString& name) const;
    /// Makes `control` the one that Fail() is about.
    void PrepareCtrl(QWidget* control) { m_pCurCtrl = control; }

    /// Gives the exchange up by an exception, a QString, which UpdateData() catches. When saving to a prepared control,
    /// the message, unless it is null or empty, comes up in a box from the event queue, once however often this
    /// happens; the control gets the focus, and its text is selected.
    [[noreturn]] void Fail(const wchar_t* message = nullptr);

    /// A warning in the log about a control that is not there; `wanted` is the class that was looked for.
    void WarnMissing(const QString& control, const char* wanted) const;
    /// Fail() without a message, after that warning.
    [[noreturn]] void FailMissing(const QString& control, const char* wanted);

    // For exchange functions of the host's own: the control that an object name (UTF-8) or a resource id of the calling
    // module stands for, as a `Widget`.

    /// Null, after a warning, if there is none or if it is of another class.
    template <class Widget, class Key>
    Widget* LookUpControl(Key key) const;
    /// Never null: without such a control it gives the exchange up by FailMissing().
    template <class Widget, class Key>
    Widget& RequireControl(Key key);

    int m_bSaveAndValidate;        ///< not 0: from the controls to the variables
    CWnd_X* m_pDlgWnd;             ///< whose controls they are
    QWidget* m_pCurCtrl = nullptr; ///< the control prepared last
};

/// The type of the variable in DDX_TextWithFormat().
enum TextDataType {
    TextShort = 1,
    TextInt = 2,
    TextLong = 3, ///< 64 bits
    TextFloat = 4,
    TextDouble = 5,
    TextUInt = 6,
};

/// Sets a control's text unless it is that already, so that an equal text causes no change signal. Nothing for null.
XE_EXPORT void AfxSetWindowText(QWidget* control, CString_X text);

// ------------------------------------------------------------------------------------ exchange with the control itself
// Saving goes from the control to the variable, loading the other way. Each makes its control the one that Fail() is
// about. A null control of another function than DDX_Text(), DDX_Radio() and DDX_Control() gives the exchange up.

/// The text of a control, as GetWindowText_X() and AfxSetWindowText() have it. A null control does nothing.
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, CString_X& value);

/// Numbers: a text that is none, an empty one too, fails and leaves the variable. A null control leaves it without a
/// failure. Float and double are shown with six significant digits, so a value is not always read back as it was.
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, short& value);
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, int& value);
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, long& value);
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, float& value);
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, double& value);
XE_EXPORT void DDX_Text(CDataExchange_X* exchange, QWidget* control, unsigned int& value);
/// The same with the type as a value; nothing for a null `value`. An unknown type loads nothing and fails to save; the
/// variable is left.
XE_EXPORT void DDX_TextWithFormat(CDataExchange_X* exchange, QWidget* control, void* value, TextDataType type);

/// Whether a button, or a group box that can be checked, is checked: 0 or 1. Loading checks it for any value but 0;
/// there is no third state.
XE_EXPORT void DDX_Check(CDataExchange_X* exchange, QAbstractButton* control, int& value);
XE_EXPORT void DDX_Check(CDataExchange_X* exchange, QGroupBox* control, int& value);

/// The place, from 0 on, of the checked button in the run of radio buttons that begins with `first` and follows the
/// *tab order*; it ends at the first other widget, and at `first` when there is none. Without a checked button the
/// variable is left. Loading checks the button at the place and no other. A null button does nothing.
XE_EXPORT void DDX_Radio(CDataExchange_X* exchange, QRadioButton* first, int& value);

/// The current row, -1 for none; loading sends no signals.
XE_EXPORT void DDX_CBIndex(CDataExchange_X* exchange, QComboBox* control, int& value);
/// The current text. Loading sends no signals and selects the row of exactly this text, if there is one,
/// case-sensitive; unlike the published function it does not look for prefixes.
XE_EXPORT void DDX_CBString(CDataExchange_X* exchange, QComboBox* control, CString_X& value);
/// The text of a line edit. Loading sends the signals of a change.
XE_EXPORT void DDX_CBString(CDataExchange_X* exchange, QLineEdit* control, CString_X& value);
/// DDX_CBString().
XE_EXPORT void DDX_CBStringExact(CDataExchange_X* exchange, QComboBox* control, CString_X& value);

/// The value of a scroll bar or slider; loading cuts it to the range and sends the signals of a change.
XE_EXPORT void DDX_Scroll(CDataExchange_X* exchange, QScrollBar* control, int& value);
XE_EXPORT void DDX_Slider(CDataExchange_X* exchange, QSlider* control, int& value);

/// Has `window` wrap the control (CWnd_X::SubclassWindow()) when the controls are loaded; nothing if it wraps a widget
/// already, and for a null control.
XE_EXPORT void DDX_Control(CDataExchange_X* exchange, QWidget* control, CWnd_X& window);

// ------------------------------------------------------------------------------------------- exchange by name or by id

namespace xe::detail {

/// What a client names a control by: its object name, and the text that a warning shows.
struct ControlKey
{
    ControlKey(const char* utf8) : name(QString::fromUtf8(utf8)), shown(name) {}
    ControlKey(int id) : name(GetObjectNameById(id)), shown(name.isEmpty() ? QString::number(id) : name) {}

    QString name;
    QString shown;
};

/// True for the types of a name or an id, and not for a control itself.
template <class Key>
using IfControlKey =
    std::enable_if_t<std::is_convertible_v<Key, const char*> || std::is_integral_v<Key> || std::is_enum_v<Key>, int>;

/// An id of any integral or enumeration type as an int; a name as it is.
template <class Key>
auto keyValue(Key key)
{
    if constexpr (std::is_convertible_v<Key, const char*>)
        return static_cast<const char*>(key);
    else
        return static_cast<int>(key);
}

} // namespace xe::detail

template <class Widget, class Key>
Widget* CDataExchange_X::LookUpControl(Key key) const
{
    const xe::detail::ControlKey control(xe::detail::keyValue(key));
    auto* const widget = qobject_cast<Widget*>(FindControl(control.name));
    if (!widget)
        WarnMissing(control.shown, Widget::staticMetaObject.className());
    return widget;
}

template <class Widget, class Key>
Widget& CDataExchange_X::RequireControl(Key key)
{
    auto* const widget = LookUpControl<Widget>(key);
    if (!widget) {
        PrepareCtrl(nullptr);
        Fail();
    }
    return *widget;
}

// `control` is an object name (UTF-8) or a resource id.

template <class Key, class Value, xe::detail::IfControlKey<Key> = 0>
void DDX_Text(CDataExchange_X* exchange, Key control, Value& value)
{
    DDX_Text(exchange, exchange->LookUpControl<QWidget>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_Check(CDataExchange_X* exchange, Key control, int& value)
{
    DDX_Check(exchange, &exchange->RequireControl<QAbstractButton>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_Radio(CDataExchange_X* exchange, Key first, int& value)
{
    DDX_Radio(exchange, exchange->LookUpControl<QRadioButton>(first), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_CBIndex(CDataExchange_X* exchange, Key control, int& value)
{
    DDX_CBIndex(exchange, &exchange->RequireControl<QComboBox>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_CBString(CDataExchange_X* exchange, Key control, CString_X& value)
{
    DDX_CBString(exchange, &exchange->RequireControl<QComboBox>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_CBStringExact(CDataExchange_X* exchange, Key control, CString_X& value)
{
    DDX_CBStringExact(exchange, &exchange->RequireControl<QComboBox>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_Scroll(CDataExchange_X* exchange, Key control, int& value)
{
    DDX_Scroll(exchange, &exchange->RequireControl<QScrollBar>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_Slider(CDataExchange_X* exchange, Key control, int& value)
{
    DDX_Slider(exchange, &exchange->RequireControl<QSlider>(control), value);
}

template <class Key, xe::detail::IfControlKey<Key> = 0>
void DDX_Control(CDataExchange_X* exchange, Key control, CWnd_X& window)
{
    DDX_Control(exchange, &exchange->RequireControl<QWidget>(control), window);
}

// ---------------------------------------------------------------------------------------------------------- validation
// Each is about the control exchanged last. They fail when saving alone.

/// Fails for a text of more than `limit` elements; in both directions limits what can be typed into the control.
/// Nothing for a limit of 0 or less.
XE_EXPORT void DDV_MaxChars(CDataExchange_X* exchange, const CString_X& value, int limit);
/// Fail for a value outside [minimum, maximum]; a minimum above the maximum passes everything.
XE_EXPORT void DDV_MinMaxInt(CDataExchange_X* exchange, int value, int minimum, int maximum);
XE_EXPORT void DDV_MinMaxUInt(CDataExchange_X* exchange, unsigned value, unsigned minimum, unsigned maximum);
XE_EXPORT void DDV_MinMaxDouble(CDataExchange_X* exchange, const double& value, double minimum, double maximum);
