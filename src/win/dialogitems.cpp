#include "win/dialogitems.h"

#include "win/controltext.h"
#include "xeafxwin.h"
#include "xeresource.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTextEdit>

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

UINT widgetInt(const QWidget* widget, BOOL* translated, bool isSigned)
{
    return firstInt(widget ? controlText(*widget) : QString(), translated, isSigned);
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

namespace {

QLineEdit* lineEditOf(QWidget* window)
{
    if (auto* box = qobject_cast<QComboBox*>(window))
        return box->lineEdit();
    return qobject_cast<QLineEdit*>(window);
}

} // namespace

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
