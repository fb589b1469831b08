#include "xeafxddx.h"

#include "win/controltext.h"
#include "xeafxdlg.h"
#include "xeafxwin.h"
#include "xeexcept.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>

// -------------------------------------------------------------------------------------------------------- the exchange

CDataExchange_X::CDataExchange_X(CWnd_X* dialog, int saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate),
      m_pDlgWnd(dialog)
{}

QWidget* CDataExchange_X::GetDlgQWidget() const { return m_pDlgWnd ? m_pDlgWnd->GetSafeHwnd() : nullptr; }

QWidget* CDataExchange_X::GetDlgItem(const char* name) const
{
    return m_pDlgWnd ? m_pDlgWnd->GetChildWidget(name) : nullptr;
}

QWidget* CDataExchange_X::FindControl(const QString& name) const
{
    // An empty name would match any widget.
    const QWidget* const dialog = GetDlgQWidget();
    return dialog && !name.isEmpty() ? dialog->findChild<QWidget*>(name) : nullptr;
}

void CDataExchange_X::Fail(const wchar_t* message)
{
    if (m_bSaveAndValidate && m_pCurCtrl) {
        if (m_pDlgWnd && message && *message)
            m_pDlgWnd->PostEvent(new XeMsgBoxEvent(message, CString_X()), 0, true);
        m_pCurCtrl->setFocus(Qt::OtherFocusReason);
        SetEditSelectAll_X(m_pCurCtrl);
    }
    throw QStringLiteral("DataExchange Error");
}

void CDataExchange_X::WarnMissing(const QString& control, const char* wanted) const
{
    qWarning("Data exchange of %s: there is no %s named \"%s\"", m_pDlgWnd ? m_pDlgWnd->GetClassName() : "no window",
             wanted, qUtf8Printable(control));
}

void CDataExchange_X::FailMissing(const QString& control, const char* wanted)
{
    WarnMissing(control, wanted);
    PrepareCtrl(nullptr);
    Fail();
}

int CWnd_X::UpdateData(BOOL saveAndValidate)
{
    CDataExchange_X exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
    } catch (CException_X* exception) {
        exception->Delete(); // nobody else has it
        return FALSE;
    } catch (...) {
        return FALSE;
    }
    return TRUE;
}

// ---------------------------------------------------------------------------------------------------------------- text

namespace {

constexpr const wchar_t* notANumber = L"请输入正确的数值！";

void read(const QString& text, short& value, bool& ok) { value = text.toShort(&ok, 10); }
void read(const QString& text, int& value, bool& ok) { value = text.toInt(&ok, 10); }
void read(const QString& text, long& value, bool& ok) { value = text.toLong(&ok, 10); }
void read(const QString& text, float& value, bool& ok) { value = text.toFloat(&ok); }
void read(const QString& text, double& value, bool& ok) { value = text.toDouble(&ok); }
void read(const QString& text, unsigned int& value, bool& ok) { value = text.toUInt(&ok, 10); }

void setTextIfOther(QWidget* control, const QString& text)
{
    if (control && xe::controlText(*control) != text)
        xe::setControlText(*control, text);
}

template <class Number>
void exchangeNumber(CDataExchange_X* exchange, QWidget* control, Number& value)
{
    exchange->PrepareCtrl(control);
    if (!exchange->m_bSaveAndValidate)
        return setTextIfOther(control, QString().setNum(value));
    if (!control)
        return;
    bool ok = false;
    Number number{};
    read(xe::controlText(*control), number, ok);
    if (!ok)
        exchange->Fail(notANumber);
    value = number;
}

} // namespace

void AfxSetWindowText(QWidget* control, CString_X text) { setTextIfOther(control, XeQString(text)); }

void DDX_Text(CDataExchange_X* exchange, QWidget* control, CString_X& value)
{
    exchange->PrepareCtrl(control);
    if (exchange->m_bSaveAndValidate)
        GetWindowText_X(control, value);
    else
        setTextIfOther(control, XeQString(value));
}

void DDX_Text(CDataExchange_X* exchange, QWidget* control, short& value) { exchangeNumber(exchange, control, value); }
void DDX_Text(CDataExchange_X* exchange, QWidget* control, int& value) { exchangeNumber(exchange, control, value); }
void DDX_Text(CDataExchange_X* exchange, QWidget* control, long& value) { exchangeNumber(exchange, control, value); }
void DDX_Text(CDataExchange_X* exchange, QWidget* control, float& value) { exchangeNumber(exchange, control, value); }
void DDX_Text(CDataExchange_X* exchange, QWidget* control, double& value) { exchangeNumber(exchange, control, value); }
void DDX_Text(CDataExchange_X* exchange, QWidget* control, unsigned int& value)
{
    exchangeNumber(exchange, control, value);
}

void DDX_TextWithFormat(CDataExchange_X* exchange, QWidget* control, void* value, TextDataType type)
{
    if (!value)
        return;
    switch (type) {
    case TextShort:
        return DDX_Text(exchange, control, *static_cast<short*>(value));
    case TextInt:
        return DDX_Text(exchange, control, *static_cast<int*>(value));
    case TextLong:
        return DDX_Text(exchange, control, *static_cast<long*>(value));
    case TextFloat:
        return DDX_Text(exchange, control, *static_cast<float*>(value));
    case TextDouble:
        return DDX_Text(exchange, control, *static_cast<double*>(value));
    case TextUInt:
        return DDX_Text(exchange, control, *static_cast<unsigned int*>(value));
    }
    exchange->PrepareCtrl(control);
    if (exchange->m_bSaveAndValidate)
        exchange->Fail(notANumber);
}

// ------------------------------------------------------------------------------------------------------------- choices

namespace {

// The control, prepared; fails for null.
template <class Widget>
Widget& prepared(CDataExchange_X* exchange, Widget* control)
{
    if (!control)
        exchange->FailMissing(QString(), Widget::staticMetaObject.className());
    exchange->PrepareCtrl(control);
    return *control;
}

template <class Widget>
void exchangeCheck(CDataExchange_X* exchange, Widget& control, int& value)
{
    if (exchange->m_bSaveAndValidate)
        value = control.isChecked();
    else
        control.setChecked(value != 0);
}

void exchangeSlider(CDataExchange_X* exchange, QAbstractSlider& control, int& value)
{
    if (exchange->m_bSaveAndValidate)
        value = control.value();
    else
        control.setValue(value);
}

void showTextStart(QComboBox& box)
{
    if (QLineEdit* const edit = box.lineEdit())
        edit->setCursorPosition(0);
}

} // namespace

void DDX_Check(CDataExchange_X* exchange, QAbstractButton* control, int& value)
{
    exchangeCheck(exchange, prepared(exchange, control), value);
}

void DDX_Check(CDataExchange_X* exchange, QGroupBox* control, int& value)
{
    exchangeCheck(exchange, prepared(exchange, control), value);
}

void DDX_Radio(CDataExchange_X* exchange, QRadioButton* first, int& value)
{
    exchange->PrepareCtrl(first);
    // The focus chain is a ring: the walk may come round to where it began.
    QRadioButton* button = first;
    for (int index = 0; button && (index == 0 || button != first); ++index) {
        if (!exchange->m_bSaveAndValidate) {
            button->setChecked(value == index);
        } else if (button->isChecked()) {
            value = index;
            return;
        }
        button = qobject_cast<QRadioButton*>(button->nextInFocusChain());
    }
}

void DDX_CBIndex(CDataExchange_X* exchange, QComboBox* control, int& value)
{
    QComboBox& box = prepared(exchange, control);
    if (exchange->m_bSaveAndValidate) {
        value = box.currentIndex();
        return;
    }
    const QSignalBlocker blocker(box);
    box.setCurrentIndex(value);
    showTextStart(box);
}

void DDX_CBString(CDataExchange_X* exchange, QComboBox* control, CString_X& value)
{
    QComboBox& box = prepared(exchange, control);
    if (exchange->m_bSaveAndValidate) {
        value = box.currentText();
        return;
    }
    const QSignalBlocker blocker(box);
    const XeQString text(value);
    box.setCurrentText(text);
    const int row = box.findData(text, Qt::DisplayRole, Qt::MatchCaseSensitive);
    if (row >= 0)
        box.setCurrentIndex(row);
    showTextStart(box);
}

void DDX_CBString(CDataExchange_X* exchange, QLineEdit* control, CString_X& value)
{
    QLineEdit& edit = prepared(exchange, control);
    if (exchange->m_bSaveAndValidate) {
        value = edit.text();
        return;
    }
    edit.setText(XeQString(value));
    edit.setCursorPosition(0);
}

void DDX_CBStringExact(CDataExchange_X* exchange, QComboBox* control, CString_X& value)
{
    DDX_CBString(exchange, control, value);
}

void DDX_Scroll(CDataExchange_X* exchange, QScrollBar* control, int& value)
{
    exchangeSlider(exchange, prepared(exchange, control), value);
}

void DDX_Slider(CDataExchange_X* exchange, QSlider* control, int& value)
{
    exchangeSlider(exchange, prepared(exchange, control), value);
}

void DDX_Control(CDataExchange_X* exchange, QWidget* control, CWnd_X& window)
{
    if (window.GetSafeHwnd())
        return;
    exchange->PrepareCtrl(control);
    if (!exchange->m_bSaveAndValidate)
        window.SubclassWindow(control);
}

// ---------------------------------------------------------------------------------------------------------- validation

namespace {

template <class Number>
void checkRange(CDataExchange_X* exchange, Number value, Number minimum, Number maximum, const QString& message)
{
    const bool passes = minimum > maximum || (minimum <= value && value <= maximum);
    if (!passes && exchange->m_bSaveAndValidate)
        exchange->Fail(CString_X(message.arg(minimum).arg(maximum)));
}

const QString& integerMessage()
{
    static const QString message = QStringLiteral("请填入一个%1和%2之间的整数。");
    return message;
}

} // namespace

void DDV_MaxChars(CDataExchange_X* exchange, const CString_X& value, int limit)
{
    if (limit <= 0)
        return;
    if (exchange->m_bSaveAndValidate && limit < value.GetLength())
        exchange->Fail(CString_X(QStringLiteral("请填入不多于%1个的字符。").arg(limit)));
    SetEditLimitText_X(exchange->m_pCurCtrl, limit);
}

void DDV_MinMaxInt(CDataExchange_X* exchange, int value, int minimum, int maximum)
{
    checkRange(exchange, value, minimum, maximum, integerMessage());
}

void DDV_MinMaxUInt(CDataExchange_X* exchange, unsigned value, unsigned minimum, unsigned maximum)
{
    checkRange(exchange, value, minimum, maximum, integerMessage());
}

void DDV_MinMaxDouble(CDataExchange_X* exchange, const double& value, double minimum, double maximum)
{
    checkRange(exchange, value, minimum, maximum, QStringLiteral("请填入一个%1和%2之间的数字。"));
}
