#pragma once

#include "partpictures.h"
#include "partsbook.h"

#include <xelistctrl.h>

/// The parts that a search has found, each with the picture of its kind.
class CHitList : public CListCtrl_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CHitList)

    /// Makes the columns.
    void SetUp(const CPartPictures& pictures);
    /// Lists parts of a book, by their rows in it. Without any the list is hidden.
    void Show(const PartsBook& book, const std::vector<int>& rows);
    /// Selects the part of this row of the book.
    void Select(int row);
    /// The row in the book of the part that is selected, -1 for none.
    int SelectedRow() const;
};
