#pragma once

#include <XeGridBtnCellCombo.h>
#include <XeGridCell.h>

/// A cell that shows its text as it is, ampersands too: the library's own take one for the mark of a letter.
class CTextCell : public CGridCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CTextCell)

    using CGridCell_X::operator=;

    int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase) override;
};

/// A cell that is edited in a box with a list. A click with the mouse drops down a list that allows no other text.
class CChoiceCell : public CGridBtnCellCombo_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CChoiceCell)

    using CGridBtnCellCombo_X::operator=;

    int Draw(CDC_X* dc, int row, int col, CRect rect, QWidget* widget, int erase) override;
    int Edit(int row, int col, CRect rect, CPoint point, unsigned int id, unsigned int ch) override;
};

/// A check box for the use of a part. Its text is the word for that, which a click changes as well; the box has a word
/// beside it only where more is to be told than that it is checked.
class CUseCell : public CGridBtnCell_X
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CUseCell)

    CUseCell();
    using CGridBtnCell_X::operator=;

    void SetText(const wchar_t* word) override;
    const wchar_t* GetText() const override;

private:
    bool IsChecked() const;
};

/// What the cells of a column have in common. The colour of a text is that of its row.
class CColumnData : public CBtnDataBase_X
{
public:
    unsigned int GetTextClr(int row, int col) const override;
};
