// What a grid keeps beside the fields of its interface.
#pragma once

#include "XeGridCtrl.h"
#include "grid/celltexts.h"
#include "grid/gridlines.h"

#include <functional>
#include <unordered_set>
#include <vector>

namespace xe {

class EditorLife;

struct GridState
{
    explicit GridState(const CGridCtrl_X& grid) : rows(grid.m_arRowHeights), columns(grid.m_arColWidths) {}
    ~GridState();
    Q_DISABLE_COPY_MOVE(GridState)

    static GridState& of(const CGridCtrl_X& grid) { return *grid.m_state; }

    enum Lines { Rows, Columns };

    /// A cell has come into the selection or has left it.
    void noteSelected(CGridCtrl_X& grid, int row, int col, bool isSelected);
    /// Takes all cells out of the selections, also while selecting is not allowed.
    void deselectAll(CGridCtrl_X& grid);
    /// Takes those out that are no longer there.
    void forgetGone(CGridCtrl_X& grid);

    /// Takes apart the blocks that are meant.
    void undoBlocks(CGridCtrl_X& grid, const std::function<bool(const CCellRange_X&)>& isMeant);
    /// A line has come (1) or gone (-1) at `at`, in no block.
    void moveBlocks(const CGridCtrl_X& grid, Lines lines, int at, int by);

    GridLines rows;
    GridLines columns;
    CellTexts texts;
    bool isMovingBar = false; // the grid itself sets the position of a bar
    bool isDestroyed = false; // the destructor runs: nobody is told of anything
    bool isPainting = false;  // OnDraw() runs: the image is its painter's
    bool isRealKey = false;   // a key event is being handled, so the modifiers of its message are all that are held

    EditorLife* editor = nullptr; // the open one, until its end begins
    UINT heldKeys = 0;            // MK_SHIFT and MK_CONTROL while a key that ended an edit is replayed

    // Selected cells whose row or column the keys of the selection map do not hold.
    std::unordered_set<unsigned long long> farSelected;
    std::unordered_set<unsigned long long> farPrevSelected; // of the map of what stays selected

    CCellRange_X lastRange; // what was selected last, as far as nobody has changed it

    // The merged blocks: SetCellCombine() and SetFixedCellCombine() add them, UndoCellCombine() takes them out.
    std::vector<CCellRange_X> blocks;
};

/// Whether the keys of the selection maps hold a place.
constexpr bool fitsSelectionKey(int row, int col) { return row <= 0xFFFF && col <= 0xFFFF; }
constexpr unsigned selectionKey(int row, int col)
{
    return static_cast<unsigned>(row) | static_cast<unsigned>(col) << 16;
}
/// The key of a place that those do not hold.
constexpr unsigned long long farKey(int row, int col)
{
    return static_cast<unsigned long long>(static_cast<unsigned>(row)) << 32 | static_cast<unsigned>(col);
}
constexpr int farRow(unsigned long long key) { return static_cast<int>(key >> 32); }
constexpr int farColumn(unsigned long long key) { return static_cast<int>(key & 0xFFFFFFFF); }

} // namespace xe
