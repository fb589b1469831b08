// What a handler that updates a command changes.

#include "xeafxmenu.h"

#include <QAbstractButton>
#include <QAction>

namespace {

constexpr int on = 1; // no other value counts as yes

} // namespace

void CCmdUI_X::Enable(int enable)
{
    if (auto* const action = qobject_cast<QAction*>(m_pOther))
        action->setEnabled(enable == on);
    else if (auto* const button = qobject_cast<QAbstractButton*>(m_pOther))
        button->setEnabled(enable == on);
}

void CCmdUI_X::SetCheck(int check)
{
    if (auto* const action = qobject_cast<QAction*>(m_pOther)) {
        if (check == on)
            action->setCheckable(true);
        action->setChecked(check == on);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(m_pOther)) {
        button->setChecked(check == on);
    }
}

void CCmdUI_X::SetText(const wchar_t* text)
{
    if (auto* const action = qobject_cast<QAction*>(m_pOther))
        action->setText(XeQString(text));
    else if (auto* const button = qobject_cast<QAbstractButton*>(m_pOther))
        button->setText(XeQString(text));
}
