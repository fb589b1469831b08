#include "ctrl/creation.h"
#include "xeafxctrl.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

IMPLEMENT_DYNCREATE_X(CButton_X, CWnd_X)

namespace {

QWidget* makeButton(DWORD kind, QWidget* parent)
{
    switch (kind) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
        return new QCheckBox(parent);
    case BS_3STATE:
    case BS_AUTO3STATE: {
        auto* const box = new QCheckBox(parent);
        box->setTristate(true);
        return box;
    }
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return new QRadioButton(parent);
    case BS_GROUPBOX:
        return new QGroupBox(parent);
    default: {
        auto* const button = new QPushButton(parent);
        button->setDefault(kind == BS_DEFPUSHBUTTON);
        return button;
    }
    }
}

// The kind that a widget is, which may be the one that the style tells already.
DWORD kindOf(const QWidget* widget, DWORD kind)
{
    if (qobject_cast<const QCheckBox*>(widget))
        return kind == BS_AUTOCHECKBOX || kind == BS_3STATE || kind == BS_AUTO3STATE ? kind : BS_CHECKBOX;
    if (qobject_cast<const QRadioButton*>(widget))
        return kind == BS_AUTORADIOBUTTON ? kind : BS_RADIOBUTTON;
    return qobject_cast<const QGroupBox*>(widget) ? BS_GROUPBOX : kind;
}

Qt::CheckState stateOf(int check)
{
    return check == static_cast<int>(BST_INDETERMINATE) ? Qt::PartiallyChecked : check ? Qt::Checked : Qt::Unchecked;
}

int checkOf(Qt::CheckState state)
{
    return static_cast<int>(state == Qt::PartiallyChecked ? BST_INDETERMINATE
                            : state == Qt::Checked        ? BST_CHECKED
                                                          : BST_UNCHECKED);
}

} // namespace

int CButton_X::Create(const wchar_t* text, DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    const auto create = [&] { return CWnd_X::Create(style, rect, parent); };
    return xe::createAndFinish<QWidget>(*this, create, [&](QWidget&) { SetWindowText(text); });
}

bool CButton_X::AttachDefault(QWidget* parent)
{
    return Attach(makeButton(GetStyle() & BS_TYPEMASK, parent), parent, false);
}

bool CButton_X::OnAttach()
{
    if (!CWnd_X::OnAttach())
        return false;
    ModifyStyle(BS_TYPEMASK, kindOf(GetSafeHwnd(), GetStyle() & BS_TYPEMASK));
    return true;
}

void CButton_X::GetWindowText(CString_X& text) const
{
    if (const auto* const button = Imp<QAbstractButton>())
        text = button->text();
    else if (const auto* const group = Imp<QGroupBox>())
        text = group->title();
    else
        CWnd_X::GetWindowText(text);
}

void CButton_X::SetWindowText(const wchar_t* text)
{
    if (auto* const button = Imp<QAbstractButton>())
        button->setText(XeQString(text));
    else if (auto* const group = Imp<QGroupBox>())
        group->setTitle(XeQString(text));
    else
        CWnd_X::SetWindowText(text);
}

bool CButton_X::hasThreeStates() const
{
    const auto* const box = Imp<QCheckBox>();
    const DWORD kind = GetStyle() & BS_TYPEMASK;
    return box && (box->isTristate() || kind == BS_3STATE || kind == BS_AUTO3STATE);
}

int CButton_X::GetCheck() const
{
    if (hasThreeStates())
        return checkOf(Imp<QCheckBox>()->checkState());
    if (const auto* const group = Imp<QGroupBox>())
        return group->isCheckable() && group->isChecked();
    const auto* const button = Imp<QAbstractButton>();
    return button && button->isChecked();
}

void CButton_X::SetCheck(int check)
{
    if (hasThreeStates()) {
        if (check >= 0 && check <= static_cast<int>(BST_INDETERMINATE))
            Imp<QCheckBox>()->setCheckState(stateOf(check));
    } else if (auto* const group = Imp<QGroupBox>()) {
        if (group->isCheckable())
            group->setChecked(check != 0);
    } else if (auto* const button = Imp<QAbstractButton>()) {
        button->setChecked(check != 0);
    }
}

UINT CButton_X::GetState() const { return GetSafeHwnd() && GetSafeHwnd()->hasFocus() ? BST_FOCUS : 0; }

void CButton_X::SetState(int highlight)
{
    QWidget* const widget = GetSafeHwnd();
    if (!widget)
        return;
    if (highlight)
        widget->setFocus(Qt::OtherFocusReason);
    else
        widget->clearFocus();
}

QIcon CButton_X::GetIcon() const { return Imp<QAbstractButton>() ? Imp<QAbstractButton>()->icon() : QIcon(); }

void CButton_X::SetIcon(const QIcon& icon)
{
    if (auto* const button = Imp<QAbstractButton>())
        button->setIcon(icon);
}
