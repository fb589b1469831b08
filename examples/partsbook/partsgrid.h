#pragma once

#include "partcells.h"
#include "partpictures.h"

#include <XeGridCtrl.h>

#include <vector>

class PartsBook;

/// Sent to the window when all fields have been changed that were pasted or cut at once.
constexpr UINT WM_FIELDS_CHANGED = WM_USER + 4;

/// The list of parts: a grid with a part in each row, under two rows of headings.
///
/// A part is named by its place in the book. Its row has that as the data of the first cell, so that the rows may stand
/// in another order. The fields of a part are edited in its cells; what becomes of that is for the window to say, which
/// is notified of it.
class CPartsGrid : public CGridCtrl_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartsGrid)

    /// The first column has the number of the row, each of the others a field of the part, in the order of the fields.
    enum Column {
        Place,
        Number,
        Name,
        Kind,
        Supplier,
        Source,
        Stock,
        Minimum,
        Price,
        InUse,
        Remark,
        Delivered,
        columnCount,
    };

    explicit CPartsGrid(const CPartPictures& pictures);

    /// Makes columns and headings, on a plain widget.
    bool Open(QWidget* widget);

    /// Shows the parts of a book. The ones that are short have this colour.
    void Show(const PartsBook& book, COLORREF shortColor);
    /// Shows a part in its place, or behind the last one.
    void ShowPart(int part, const Part& shown, COLORREF shortColor);
    /// The same in its row, which need not be looked for.
    void ShowRow(int row, const Part& shown, COLORREF shortColor);
    void RemovePart(int part);

    /// The part of a row, -1 for a row of headings and for none.
    int PartOf(int row) const;
    /// The row of a part, -1 for one that is not shown.
    int RowOf(int part) const;
    /// A part with one of its fields as a cell shows it. Gives what is wrong with that, empty if nothing is.
    CString_X ReadField(int row, int column, Part& part) const;
    /// Whether the field that the window is notified of is one of several, and WM_FIELDS_CHANGED is to follow.
    bool IsChangingMany() const { return m_isChangingMany; }
    /// Fills the list of a cell that is about to be edited, if it has one.
    void OfferChoices(int row, int column, const PartsBook& book);

    /// The one with the focus, -1 for none.
    int SelectedPart() const;
    /// What stands over the column with the focus.
    CString_X FocusedHeading() const;
    /// Moves the focus to a part and scrolls to it; -1 takes it away.
    void SelectPart(int part);
    bool IsHidden(int part) const;
    template <class IsShown>
    void ShowOnly(IsShown isShown);

    /// What stands over the columns of the fields.
    static std::vector<CString_X> Headings();
    /// Hides the columns that have a bit here, and shows the others.
    void ShowColumns(unsigned hidden);

    /// The column whose heading is at a point, -1 if there is none.
    int HeadingAt(CPoint point) const;
    /// Sorts the rows by a column, numbers by their value; column 0 has the order of the book. Any change of a text
    /// leaves the rows where they are, and takes the arrow away.
    void SortBy(int column, bool ascending);

    int PasteTextToGrid(CCellID_X cell, const QMimeData* data) override;
    void CutSelectedText() override;
    CGridCellBase_X* CreateCell(int row, int col) override;
    /// The mouse edits no number: a double click there is for the whole part. So is Return in any cell.
    void OnEditCell(int row, int col, CPoint point, unsigned int ch) override;
    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnRButtonDown(UINT flags, CPoint point);

    DECLARE_MESSAGE_MAP_X()

private:
    static constexpr int headingRows = 2;
    static constexpr int rowHeight = 26;

    CColumnData* DataOf(int column);
    void TellManyChanges();
    void MakeHeadings();
    void PlaceHeading(int column, int count, const wchar_t* heading);
    void SelectCell(int row, int column);
    void SetPartCount(int parts);
    void SetPart(int row, int part);
    void ChangeTexts(int column, CString_X (*changed)(const CString_X&));

    bool m_isChangingMany = false;
    CRowPictures m_pictures;
    CColumnData m_supplierData;
    CColumnData m_sourceData;
    CColumnData m_useData;
};

template <class IsShown>
void CPartsGrid::ShowOnly(IsShown isShown)
{
    SetRedraw(FALSE);
    for (int row = headingRows; row < m_nRows; ++row)
        SetRowHeight(row, isShown(PartOf(row)) ? rowHeight : 0);
    SetRedraw(TRUE, TRUE);
}
