#include "editcommands.h"

#include "control.h"
#include "resource.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <XeGridCtrl.h>
#include <xeafxmenu.h>

namespace {

struct Command
{
    unsigned id;
    void (CGridCtrl_X::*update)(CCmdUI_X*);
    void (CGridCtrl_X::*run)();
    bool (*isPossible)(const QLineEdit& field);
    void (*runInField)(QLineEdit& field);
};

constexpr Command commands[]{
    {ID_EDIT_CUT, &CGridCtrl_X::OnUpdateEditCut, &CGridCtrl_X::OnEditCut,
     [](const QLineEdit& field) { return field.hasSelectedText() && !field.isReadOnly(); },
     [](QLineEdit& field) { field.cut(); }},
    {ID_EDIT_COPY, &CGridCtrl_X::OnUpdateEditCopy, &CGridCtrl_X::OnEditCopy,
     [](const QLineEdit& field) { return field.hasSelectedText(); }, [](QLineEdit& field) { field.copy(); }},
    {ID_EDIT_PASTE, &CGridCtrl_X::OnUpdateEditPaste, &CGridCtrl_X::OnEditPaste,
     [](const QLineEdit& field) { return !field.isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty(); },
     [](QLineEdit& field) { field.paste(); }},
    {ID_EDIT_SELECT_ALL, &CGridCtrl_X::OnUpdateEditSelectAll, &CGridCtrl_X::OnEditSelectAll,
     [](const QLineEdit& field) { return !field.text().isEmpty(); }, [](QLineEdit& field) { field.selectAll(); }},
};

CGridCtrl_X* gridOf(QWidget* widget) { return dynamic_cast<CGridCtrl_X*>(CWnd_X::FromHandlePermanent(widget)); }

QLineEdit* fieldOf(QWidget* widget)
{
    const auto* const combo = qobject_cast<QComboBox*>(widget);
    return combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(widget);
}

QWidget* focusOf(const CWnd_X& frame) { return frame.GetSafeHwnd()->focusWidget(); }

} // namespace

void updateEditCommands(const CWnd_X& frame)
{
    CGridCtrl_X* const grid = gridOf(focusOf(frame));
    const QLineEdit* const field = fieldOf(focusOf(frame));
    for (const Command& one : commands) {
        CCmdUI_X command;
        command.m_pOther = &control<QAction>(frame, one.id);
        if (grid)
            (grid->*one.update)(&command);
        else
            command.Enable(field && one.isPossible(*field));
    }
}

void runEditCommand(const CWnd_X& frame, const QObject* action)
{
    CGridCtrl_X* const grid = gridOf(focusOf(frame));
    QLineEdit* const field = fieldOf(focusOf(frame));
    for (const Command& one : commands) {
        if (action != &control<QAction>(frame, one.id))
            continue;
        if (grid)
            (grid->*one.run)();
        else if (field)
            one.runInField(*field);
    }
}
