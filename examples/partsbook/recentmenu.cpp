#include "recentmenu.h"

#include "resource.h"
#include "settings.h"

#include <xeafxmenu.h>

#include <algorithm>

namespace {

constexpr unsigned commands[settings::mostRecentFiles]{ID_FILE_MRU_FILE1, ID_FILE_MRU_FILE2, ID_FILE_MRU_FILE3,
                                                       ID_FILE_MRU_FILE4};

} // namespace

QList<QAction*> showRecentFiles(QMenu* fileMenu, const std::vector<CString_X>& files)
{
    CMenu_X& menu = *CMenu_X::FromHandle(fileMenu);
    for (const unsigned command : commands)
        menu.DeleteMenu(command, MF_BYCOMMAND);
    QList<QAction*> items;
    int last = menu.GetMenuItemCount() - 3; // behind it the separator and Exit
    for (std::size_t i = 0; i < std::min(files.size(), std::size(commands)); ++i) {
        const XeQString name(files[i]);
        const CString_X text = QString(name).replace('&', "&&");
        menu.InsertMenu(static_cast<UINT_PTR>(last), MF_BYPOSITION, commands[i], text);
        items += menu.GetMenuItemAction(++last);
        items.last()->setData(static_cast<const QString&>(name));
    }
    CMenu_X::DeleteTempMap();
    return items;
}
