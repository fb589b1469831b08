#pragma once

#include <QList>
#include <xeafxstr.h>

#include <vector>

class QAction;
class QMenu;

/// Puts the names of files into the File menu, above the separator in front of its last item, in place of those that it
/// had. Gives the new items, each with its name as data; the menu owns them.
QList<QAction*> showRecentFiles(QMenu* fileMenu, const std::vector<CString_X>& files);
