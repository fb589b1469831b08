/// @file XeGridBtnCellCombo.h
/// The cell with a list to choose from.
#pragma once

#include "XeGridBtnCell.h"
#include "xeafxarray.h"

class CComboBox_X;

/// A cell with buttons that is edited in a box with a list: in a CInPlaceList_X or, where items may be erased, in a
/// CEaseInPlaceList_X.
///
/// A control of type DFC_SCROLL and state DFCS_SCROLLDOWN is its drop-down arrow: a click on it opens the list. It is
/// painted as a check box.
class XE_EXPORT CGridBtnCellCombo_X : public CGridBtnCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CGridBtnCellCombo_X)

    CGridBtnCellCombo_X() = default;
    using CGridCellBase_X::operator=;

    void Reset() override;
    int Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch) override;
    void EndEdit() override;
    /// With `m_bAllowEase` the items are those of the box from now on. Push buttons and the arrow pop up.
    void OnEndEdit() override;
    void OnClick(CPoint point) override;

    virtual void SetComboStyle(unsigned int style); ///< CBS_SIMPLE, CBS_DROPDOWN or CBS_DROPDOWNLIST
    virtual unsigned int GetComboStyle() const;
    virtual void SetComboString(const CStringArray_X& items); ///< copies the items
    /// Copies the items, and goes by the host's array from now on, which must outlive the cell. Null: no items.
    virtual void SetComboString(CStringArray_X* items);
    virtual void GetComboString(CStringArray_X* items) const; ///< copies the items in use; nothing for null
    virtual int GetAllowEase() const;
    virtual void SetAllowEase(int allow); ///< the user may erase items

    unsigned int m_dwComboStyle = 1;
    CStringArray_X m_strComboItems;
    CStringArray_X* m_pComboItems = &m_strComboItems; ///< the array in use
    int m_bAllowEase = 0;

private:
    bool isArrow(int index) const;
    CComboBox_X* makeBox(CGridCtrl_X& grid, int row, int col, CRect rect, unsigned int id, unsigned int ch);
    void takeItems();
};
