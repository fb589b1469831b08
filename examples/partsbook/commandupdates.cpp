#include "commandupdates.h"

#include "control.h"
#include "resource.h"

#include <QAction>
#include <xeafxmenu.h>

namespace {

struct Update
{
    unsigned command;
    void (*update)(CCmdUI_X& command, const CommandStates& states);
};

constexpr Update updates[]{
    {ID_FILE_SAVE, [](CCmdUI_X& command, const CommandStates& states) { command.Enable(states.isModified); }},
    {ID_FILE_BACK_UP, [](CCmdUI_X& command, const CommandStates& states) { command.Enable(states.hasFile); }},
    {ID_PART_EDIT, [](CCmdUI_X& command, const CommandStates& states) { command.Enable(states.hasPart); }},
    {ID_PART_DELETE, [](CCmdUI_X& command, const CommandStates& states) { command.Enable(states.hasPart); }},
    {ID_PART_IN_USE,
     [](CCmdUI_X& command, const CommandStates& states) {
         command.Enable(states.hasPart);
         command.SetCheck(states.isPartInUse);
     }},
    {ID_NAME_EDIT, [](CCmdUI_X& command, const CommandStates& states) { command.Enable(states.hasName); }},
    {ID_VIEW_MESSAGES, [](CCmdUI_X& command, const CommandStates& states) { command.SetCheck(states.showsMessages); }},
};

} // namespace

void updateCommands(const CWnd_X& frame, const CommandStates& states)
{
    for (const Update& one : updates) {
        CCmdUI_X command;
        command.m_pOther = &control<QAction>(frame, one.command);
        one.update(command, states);
    }
}
