// The two maps of selected cells, and what the keys of the maps do not hold.
#pragma once

#include "XeGridCtrl.h"

#include <vector>

namespace xe {

/// Gives a map a table for so many more keys: a table does not grow by itself.
void reserveKeys(CGridCtrl_X::SelectionMap& map, long long more);
/// Adds the cells of a range.
void insertRange(CGridCtrl_X::SelectionMap& map, const CCellRange_X& range);
/// Empties a map and takes its large table away.
void emptyMap(CGridCtrl_X::SelectionMap& map);

/// The cells in a map.
std::vector<CCellID_X> cellsOf(const CGridCtrl_X::SelectionMap& map);
/// All selected cells; all that stay selected while the mouse selects more.
std::vector<CCellID_X> selectedCells(const CGridCtrl_X& grid);
std::vector<CCellID_X> stayingCells(const CGridCtrl_X& grid);

/// Has no cell stay selected, or all that are selected now.
void forgetStaying(CGridCtrl_X& grid);
void keepSelected(CGridCtrl_X& grid);

} // namespace xe
