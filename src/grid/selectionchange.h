// One change of what is selected in a grid.
#pragma once

#include "XeGridCtrl.h"
#include "grid/gridstate.h"

#include <optional>
#include <vector>

namespace xe {

/// Changes states and maps together, and only where they differ from what is wanted: a selection of a hundred thousand
/// cells that grows by a row costs little more than that row. A cell whose class overrides SetState() hears of each
/// step all the same: it is deselected and selected again.
class SelectionChange
{
public:
    explicit SelectionChange(CGridCtrl_X& grid);

    /// Deselects all cells outside a range.
    void deselectOutside(const CCellRange_X& range);
    /// Selects those that stay selected while the mouse selects more.
    void selectStaying();
    void select(const CCellRange_X& range);
    /// Repaints the window if something has changed that can be seen.
    void repaint();

private:
    bool deselectLastOutside(const CCellRange_X& range);
    void deselectListed(const CCellRange_X& range);
    void forget(const std::vector<CCellID_X>& cells);
    void emptyMaps();
    bool selectAll(const CCellRange_X& range);
    void select(CGridCellBase_X& cell, int row, int col);
    long long count() const;
    void note(int row, int col);

    CGridCtrl_X& m_grid;
    GridState& m_state;
    std::optional<CCellRange_X> m_seen; // the visible ordinary cells, when somebody has asked
    bool m_isSeen = false;              // nothing more is to be found out
    bool m_repaints = false;            // there is a window that can show it
};

} // namespace xe
