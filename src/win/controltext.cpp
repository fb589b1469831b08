#include "win/controltext.h"

#include "text/widetext.h"
#include "xeafxwin.h"
#include "xeconvert.h"
#include "xeresource.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextEdit>

#include <climits>

// The place where Qt keeps the text of each kind of control.
QString xe::controlText(QWidget* window)
{
    if (const auto* edit = qobject_cast<QLineEdit*>(window))
        return edit->text();
    if (const auto* edit = qobject_cast<QTextEdit*>(window))
        return edit->toPlainText();
    if (const auto* box = qobject_cast<QComboBox*>(window))
        return box->currentText();
    if (const auto* spinBox = qobject_cast<QAbstractSpinBox*>(window))
        return spinBox->text();
    if (const auto* button = qobject_cast<QAbstractButton*>(window))
        return button->text();
    if (const auto* label = qobject_cast<QLabel*>(window))
        return label->text();
    return window->windowTitle();
}

namespace {

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

int integerIn(const QString& text) { return static_cast<int>(qBound<double>(INT_MIN, numberIn(text), INT_MAX)); }

void setControlText(QWidget* window, const QString& text)
{
    if (auto* edit = qobject_cast<QLineEdit*>(window)) {
        edit->setText(text);
        edit->setCursorPosition(0);
    } else if (auto* textEdit = qobject_cast<QTextEdit*>(window)) {
        textEdit->setPlainText(text);
    } else if (auto* box = qobject_cast<QComboBox*>(window)) {
        setComboText(*box, text);
    } else if (auto* spinBox = qobject_cast<QSpinBox*>(window)) {
        spinBox->setValue(integerIn(text));
    } else if (auto* doubleSpinBox = qobject_cast<QDoubleSpinBox*>(window)) {
        doubleSpinBox->setValue(numberIn(text));
    } else if (auto* button = qobject_cast<QAbstractButton*>(window)) {
        button->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(window)) {
        label->setText(text);
    } else {
        window->setWindowTitle(text);
    }
}

QLineEdit* lineEditOf(QWidget* window)
{
    if (auto* box = qobject_cast<QComboBox*>(window))
        return box->lineEdit();
    return qobject_cast<QLineEdit*>(window);
}

} // namespace

// ---------------------------------------------------------------------------------------------------------------- text

int GetWindowText_X(HWND window, CString_X& text)
{
    if (!window)
        return 0;
    text = xe::controlText(window);
    return text.GetLength();
}

int GetWindowText_X(HWND window, wchar_t* buffer, int size)
{
    if (!window || !buffer || size <= 0)
        return 0;
    const int written = xe::writeWide(xe::controlText(window), buffer, size - 1);
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
        setControlText(window, XeQString(text));
    return TRUE;
}

// --------------------------------------------------------------------------------------------------------------- items

HWND GetDlgItem_X(HWND window, int id)
{
    // Keys of a table that are no numbers count as 0, and an empty name would match any widget.
    const QString name = window && id != 0 ? ToStringId(static_cast<unsigned int>(id)) : QString();
    return name.isEmpty() ? nullptr : window->findChild<QWidget*>(name);
}

int GetDlgCtrlID_X(HWND window) { return window ? ToCtrlId(window->objectName()) : 0; }

BOOL SetDlgItemText_X(HWND window, int id, const wchar_t* text)
{
    return SetWindowText_X(GetDlgItem_X(window, id), text);
}

UINT GetDlgItemText_X(HWND window, int id, wchar_t* buffer, int size)
{
    return static_cast<UINT>(GetWindowText_X(GetDlgItem_X(window, id), buffer, size));
}

namespace xe {

namespace {

UINT firstInt(const QString& text, BOOL* translated, bool isSigned)
{
    static const QRegularExpression unsignedNumber(QStringLiteral("[0-9]+"));
    static const QRegularExpression signedNumber(QStringLiteral("-?[0-9]+"));

    if (translated)
        *translated = FALSE;
    const QRegularExpressionMatch match = (isSigned ? signedNumber : unsignedNumber).match(text);
    if (!match.hasMatch())
        return 0;
    if (translated)
        *translated = TRUE;
    return isSigned ? static_cast<UINT>(match.captured().toInt()) : match.captured().toUInt();
}

} // namespace

UINT widgetInt(QWidget* widget, BOOL* translated, bool isSigned)
{
    return firstInt(widget ? controlText(widget) : QString(), translated, isSigned);
}

CString_X intText(UINT value, bool isSigned)
{
    const QString digits = QString::number(value);
    return isSigned && value & 0x80000000 ? QLatin1Char('-') + digits : digits;
}

} // namespace xe

UINT GetDlgItemInt_X(HWND window, int id, BOOL* translated, BOOL isSigned)
{
    wchar_t text[256] = {};
    GetDlgItemText_X(window, id, text, static_cast<int>(std::size(text)));
    return xe::firstInt(XeQString(text), translated, isSigned);
}

BOOL SetDlgItemInt_X(HWND window, int id, UINT value, BOOL isSigned)
{
    return SetDlgItemText_X(window, id, xe::intText(value, isSigned));
}

UINT IsDlgButtonChecked_X(HWND window, int id)
{
    constexpr DWORD typeBits = 0xF;

    auto* const box = qobject_cast<QCheckBox*>(GetDlgItem_X(window, id));
    const CWnd_X* const wrapper = CWnd_X::FromHandlePermanent(box);
    if (!wrapper)
        return 0;
    const DWORD type = wrapper->GetStyle() & typeBits;
    return type == BS_3STATE || type == BS_AUTO3STATE ? BS_3STATE : box->isChecked();
}

BOOL SetEditSelectAll_X(HWND window)
{
    if (auto* edit = lineEditOf(window))
        edit->selectAll();
    else if (auto* textEdit = qobject_cast<QTextEdit*>(window))
        textEdit->selectAll();
    else if (auto* spinBox = qobject_cast<QAbstractSpinBox*>(window))
        spinBox->selectAll();
    else
        return FALSE;
    return TRUE;
}

BOOL SetEditLimitText_X(HWND window, int length)
{
    QLineEdit* const edit = lineEditOf(window);
    if (!edit)
        return FALSE;
    edit->setMaxLength(length);
    return TRUE;
}
