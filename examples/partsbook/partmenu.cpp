#include "partmenu.h"

#include "control.h"
#include "text.h"

#include <QAction>

namespace {

constexpr unsigned separator = 0;
constexpr unsigned items[]{ID_PART_NEW, ID_PART_EDIT, ID_PART_DELETE, separator, ID_PART_IN_USE};

CString_X textOf(const QAction& command)
{
    const QString shortcut = command.shortcut().toString(QKeySequence::NativeText);
    return shortcut.isEmpty() ? command.text() : command.text() + '\t' + shortcut;
}

} // namespace

int openPartMenu(const CWnd_X& frame, CPoint screen)
{
    CMenu_X menu;
    menu.CreatePopupMenu();
    for (const unsigned id : items) {
        if (id == separator) {
            menu.AppendMenu(MF_SEPARATOR);
            continue;
        }
        const auto& command = control<QAction>(frame, id);
        menu.AppendMenu(MF_STRING, id, textOf(command));
        menu.EnableMenuItem(id, command.isEnabled() ? MF_ENABLED : MF_GRAYED);
        menu.CheckMenuItem(id, command.isChecked() ? MF_CHECKED : MF_UNCHECKED);
    }
    return menu.TrackPopupMenu(TPM_RIGHTBUTTON, screen.x, screen.y, &frame);
}

int openHeadingMenu(const CWnd_X& frame, CPoint screen, bool isSorted)
{
    CMenu_X menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, ID_SORT_COLUMN, loadText(IDS_SORT_COLUMN));
    menu.AppendMenu(MF_STRING, ID_SORT_BOOK, loadText(IDS_SORT_BOOK));
    menu.CheckMenuItem(ID_SORT_COLUMN, isSorted ? MF_CHECKED : MF_UNCHECKED);
    return menu.TrackPopupMenu(TPM_RIGHTBUTTON, screen.x, screen.y, &frame);
}
