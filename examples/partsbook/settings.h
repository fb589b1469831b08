#pragma once

#include <QRect>
#include <xeafxstr.h>
#include <xecolor.h>

#include <vector>

/// What the program remembers from one run to the next, in the registry.
namespace settings {

/// The place of the main window on the screen; an invalid rectangle if there is none yet.
QRect windowPlace();
void setWindowPlace(const QRect& place);

/// The colour of the parts that are short.
COLORREF shortColor();
void setShortColor(COLORREF color);

/// The columns of the list of parts that are not shown: a bit for each.
unsigned hiddenColumns();
void setHiddenColumns(unsigned columns);

/// How wide the tree is at the left of the list, in pixels.
int treeWidth();
void setTreeWidth(int width);

constexpr int mostRecentFiles = 4;

/// The files that were opened or saved last, the latest first.
std::vector<CString_X> recentFiles();
void addRecentFile(const CString_X& fileName);

} // namespace settings
