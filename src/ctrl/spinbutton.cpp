#include "ctrl/lineselection.h"
#include "xerangectrl.h"

#include <XeCustomUI.h>

#include <limits>

IMPLEMENT_DYNCREATE_X(CSpinButtonCtrl_X, CWnd_X)

namespace {

// Without what is behind the point, and cut to the limits of an int.
int toInt(double number)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(qBound<double>(Limits::min(), number, Limits::max()));
}

// A spin box gives its field to derived classes alone.
QLineEdit* fieldOf(const CWnd_X& window)
{
    const QWidget* const box = window.GetSafeHwnd();
    return box ? box->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

template <class Box, class Number>
int setValue(Box& box, Number value)
{
    if (value < box.minimum() || value > box.maximum())
        return -1;
    const int before = toInt(box.value());
    box.setValue(value);
    return before;
}

} // namespace

bool CSpinButtonCtrl_X::AttachDefault(QWidget* parent)
{
    if (GetStyle() & XE_UDS_DECIMAL)
        return Attach(new XeCUIDoubleSpinBox(parent), parent, false);
    return Attach(new XeCUISpinBox(parent), parent, false);
}

bool CSpinButtonCtrl_X::OnAttach()
{
    if (!CWnd_X::OnAttach())
        return false;
    ModifyStyle(XE_UDS_DECIMAL, Imp<QDoubleSpinBox>() ? XE_UDS_DECIMAL : 0);
    return true;
}

void CSpinButtonCtrl_X::GetRange32(int& lower, int& upper) const
{
    lower = upper = 0;
    if (const auto* const whole = Imp<QSpinBox>()) {
        lower = whole->minimum();
        upper = whole->maximum();
    } else if (const auto* const decimal = Imp<QDoubleSpinBox>()) {
        lower = toInt(decimal->minimum());
        upper = toInt(decimal->maximum());
    }
}

void CSpinButtonCtrl_X::SetRange32(int lower, int upper)
{
    if (auto* const whole = Imp<QSpinBox>())
        whole->setRange(lower, upper);
    else if (auto* const decimal = Imp<QDoubleSpinBox>())
        decimal->setRange(lower, upper);
}

int CSpinButtonCtrl_X::SetPos32(int position)
{
    if (auto* const whole = Imp<QSpinBox>())
        return setValue(*whole, position);
    if (auto* const decimal = Imp<QDoubleSpinBox>())
        return setValue(*decimal, static_cast<double>(position));
    return 0;
}

BOOL CSpinButtonCtrl_X::SetAccel(int count, const _GUDACCEL* accelerators)
{
    auto* const whole = Imp<QSpinBox>();
    auto* const decimal = Imp<QDoubleSpinBox>();
    if (count < 1 || !accelerators || !(whole || decimal))
        return FALSE;
    Imp<QAbstractSpinBox>()->setAccelerated(true);
    if (whole)
        whole->setSingleStep(toInt(accelerators->nInc));
    return TRUE;
}

QLineEdit* CSpinButtonCtrl_X::SetBuddy(QLineEdit* buddy)
{
    if (!buddy)
        return nullptr;
    if (auto* const whole = Imp<XeCUISpinBox>())
        whole->setLineEdit(buddy);
    else if (auto* const decimal = Imp<XeCUIDoubleSpinBox>())
        decimal->setLineEdit(buddy);
    return buddy;
}

int CSpinButtonCtrl_X::GetBase() const
{
    if (const auto* const whole = Imp<QSpinBox>())
        return whole->displayIntegerBase();
    return Imp<QDoubleSpinBox>() ? -1 : 0;
}

int CSpinButtonCtrl_X::SetBase(int base)
{
    const int before = GetBase();
    auto* const whole = Imp<QSpinBox>();
    if (whole && base >= 2 && base <= 36)
        whole->setDisplayIntegerBase(base);
    return before;
}

int CSpinButtonCtrl_X::GetDecimals() const
{
    const auto* const decimal = Imp<QDoubleSpinBox>();
    return decimal ? decimal->decimals() : 0;
}

void CSpinButtonCtrl_X::SetDecimals(int decimals)
{
    if (auto* const decimal = Imp<QDoubleSpinBox>())
        decimal->setDecimals(decimals);
}

void CSpinButtonCtrl_X::GetSel(int& start, int& end) const
{
    start = end = 0;
    if (const QLineEdit* const field = fieldOf(*this))
        xe::selectionOf(*field, start, end);
}

void CSpinButtonCtrl_X::SetSel(int start, int end)
{
    if (QLineEdit* const field = fieldOf(*this))
        xe::selectInLine(*field, start, end);
}

void CSpinButtonCtrl_X::GetWindowText(CString_X& text) const
{
    if (const auto* const whole = Imp<QSpinBox>())
        text.Format(L"%d", whole->value());
    else if (const auto* const decimal = Imp<QDoubleSpinBox>())
        text.Format(L"%f", decimal->value());
}

void CSpinButtonCtrl_X::SetWindowText(const wchar_t* text)
{
    const XeQString number(text);
    bool isNumber = false;
    if (auto* const whole = Imp<QSpinBox>()) {
        const int value = number.toInt(&isNumber);
        if (isNumber)
            whole->setValue(value);
    } else if (auto* const decimal = Imp<QDoubleSpinBox>()) {
        const double value = number.toDouble(&isNumber);
        if (isNumber)
            decimal->setValue(value);
    }
}
