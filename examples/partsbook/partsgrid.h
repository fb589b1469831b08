#pragma once

#include "part.h"
#include "partpictures.h"

#include <XeGridCtrl.h>

#include <vector>

class PartsBook;

/// The list of parts: a grid of whole rows, under two rows of headings. A part is named by its place in the book.
class CPartsGrid : public CGridCtrl_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartsGrid)

    CPartsGrid();

    /// Makes columns and headings, on a plain widget. The pictures must outlive the grid.
    bool Open(QWidget* widget);

    /// Shows the parts of a book. The ones that are short have this colour.
    void Show(const PartsBook& book, COLORREF shortColor);
    /// Shows a part in its place, or behind the last one.
    void ShowPart(int part, const Part& shown, COLORREF shortColor);
    void RemovePart(int part);

    /// The one with the focus, -1 for none.
    int SelectedPart() const;
    /// Moves the focus to a part and scrolls to it; -1 takes it away.
    void SelectPart(int part);
    bool IsHidden(int part) const;
    template <class IsShown>
    void ShowOnly(IsShown isShown);

    /// What stands over the columns.
    static std::vector<CString_X> Headings();
    /// Hides the columns that have a bit here, and shows the others.
    void ShowColumns(unsigned hidden);

    void OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers);
    void OnRButtonDown(UINT flags, CPoint point);

    DECLARE_MESSAGE_MAP_X()

private:
    static constexpr int headingRows = 2;
    static constexpr int rowHeight = 26;

    void MakeHeadings();
    int PartCount() const { return m_nRows - headingRows; }
    void NumberFrom(int part);

    CBitmap_X m_bitmaps[CPartPictures::count]; // as high as a row has room for
    CImageList_X m_images;
};

template <class IsShown>
void CPartsGrid::ShowOnly(IsShown isShown)
{
    SetRedraw(FALSE);
    for (int part = 0; part < PartCount(); ++part)
        SetRowHeight(part + headingRows, isShown(part) ? rowHeight : 0);
    SetRedraw(TRUE, TRUE);
}
