#pragma once

#include "partpictures.h"
#include "partsbook.h"

#include <XeGridCtrl.h>

/// The parts that a search has found, each with the picture of its kind: a grid of whole rows, which a click on a
/// heading sorts. A part is named by its place in the book.
class CHitList : public CGridCtrl_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CHitList)

    explicit CHitList(const CPartPictures& pictures);

    /// Makes the columns.
    void SetUp();
    /// Lists parts of a book, in the order that the list was sorted to. Without any the list is hidden.
    void Show(const PartsBook& book, const std::vector<int>& parts);
    void Select(int part);
    /// -1 for none.
    int SelectedPart() const;
    /// Whether the left button is down on a heading: then the selection is on its way to another row.
    bool IsHeadingPressed() const { return m_bLMouseButtonDown && m_LeftClickDownCell.row == 0; }

    /// Return on a part does what a double click does.
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);

    DECLARE_MESSAGE_MAP_X()

private:
    static constexpr int headingRows = 1;
    static constexpr int rowHeight = 24;

    void ShowHit(int row, int place, const Part& part);
    int PartAt(int row) const { return static_cast<int>(GetItemData(row, 0)); }

    CRowPictures m_pictures;
    int m_selectedBefore = -1; // the part that was selected when a heading was pressed
};
