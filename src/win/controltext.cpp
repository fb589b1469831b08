#include "win/controltext.h"

#include "text/widetext.h"
#include "xeafxwin.h"
#include "xeconvert.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTextEdit>

#include <algorithm>
#include <climits>
#include <iterator>
#include <type_traits>

namespace xe {

namespace {

void setLineText(QLineEdit& edit, const QString& text)
{
    edit.setText(text);
    edit.setCursorPosition(0);
}

void setComboText(QComboBox& box, const QString& text)
{
    const QSignalBlocker blocker(box);
    box.setCurrentText(text);
    const int row = box.findData(text, Qt::DisplayRole, Qt::MatchFixedString);
    if (row >= 0)
        box.setCurrentIndex(row);
    if (QLineEdit* const edit = box.lineEdit())
        edit->setCursorPosition(0);
}

double numberIn(const QString& text) { return _wtof(CString_X(text)); }

void setInteger(QSpinBox& box, const QString& text)
{
    box.setValue(static_cast<int>(qBound<double>(INT_MIN, numberIn(text), INT_MAX)));
}

void setNumber(QDoubleSpinBox& box, const QString& text) { box.setValue(numberIn(text)); }

void setTitle(QWidget& widget, const QString& text) { widget.setWindowTitle(text); }

// Where Qt keeps the text of a class of controls.
struct TextRow
{
    const QMetaObject* control;
    QString (*get)(const QWidget& control);
    void (*set)(QWidget& control, const QString& text);
};

template <class Control, auto getter>
QString getText(const QWidget& control)
{
    return (static_cast<const Control&>(control).*getter)();
}

template <class Control, auto setter>
void setText(QWidget& control, const QString& text)
{
    if constexpr (std::is_member_function_pointer_v<decltype(setter)>)
        (static_cast<Control&>(control).*setter)(text);
    else
        setter(static_cast<Control&>(control), text);
}

template <class Control, auto getter, auto setter>
constexpr TextRow row()
{
    return {&Control::staticMetaObject, getText<Control, getter>, setText<Control, setter>};
}

// The first row that fits counts; the last fits every widget.
const TextRow textRows[] = {
    row<QLineEdit, &QLineEdit::text, setLineText>(),
    row<QTextEdit, &QTextEdit::toPlainText, &QTextEdit::setPlainText>(),
    row<QComboBox, &QComboBox::currentText, setComboText>(),
    row<QSpinBox, &QSpinBox::text, setInteger>(),
    row<QDoubleSpinBox, &QDoubleSpinBox::text, setNumber>(),
    row<QAbstractSpinBox, &QAbstractSpinBox::text, setTitle>(),
    row<QAbstractButton, &QAbstractButton::text, &QAbstractButton::setText>(),
    row<QLabel, &QLabel::text, &QLabel::setText>(),
    row<QWidget, &QWidget::windowTitle, setTitle>(),
};

const TextRow& textRowOf(const QWidget& control)
{
    const QMetaObject* const meta = control.metaObject();
    return *std::find_if(std::begin(textRows), std::prev(std::end(textRows)),
                         [meta](const TextRow& row) { return meta->inherits(row.control); });
}

} // namespace

QString controlText(const QWidget& control) { return textRowOf(control).get(control); }

void setControlText(QWidget& control, const QString& text)
{
    if (CWnd_X* const wrapper = CWnd_X::FromHandlePermanent(&control))
        wrapper->SetWindowText(CString_X(text));
    else
        textRowOf(control).set(control, text);
}

} // namespace xe

// ---------------------------------------------------------------------------------------------------- window functions

int GetWindowText_X(HWND window, CString_X& text)
{
    if (!window)
        return 0;
    text = xe::controlText(*window);
    return text.GetLength();
}

int GetWindowText_X(HWND window, wchar_t* buffer, int size)
{
    if (!window || !buffer || size <= 0)
        return 0;
    const int written = xe::writeWide(xe::controlText(*window), buffer, size - 1);
    buffer[written] = L'\0';
    return written;
}

int GetWindowTextLength_X(HWND window)
{
    CString_X text;
    return GetWindowText_X(window, text);
}

BOOL SetWindowText_X(HWND window, const wchar_t* text)
{
    if (!window)
        return FALSE;
    if (CWnd_X* const wrapper = CWnd_X::FromHandlePermanent(window))
        wrapper->SetWindowText(text);
    else
        xe::setControlText(*window, XeQString(text));
    return TRUE;
}
