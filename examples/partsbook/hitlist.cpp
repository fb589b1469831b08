#include "hitlist.h"

#include "text.h"

#include <algorithm>

namespace {

struct Column
{
    unsigned heading;
    CString_X Part::*field;
    int width;
};

constexpr Column columns[] = {
    {IDS_HIT_NUMBER, &Part::number, 140},     {IDS_HIT_NAME, &Part::name, 330},     {IDS_HIT_KIND, &Part::kind, 150},
    {IDS_HIT_SUPPLIER, &Part::supplier, 180}, {IDS_HIT_REMARK, &Part::remark, 200},
};

} // namespace

IMPLEMENT_DYNAMIC_X(CHitList, CListCtrl_X)

void CHitList::SetUp(const CPartPictures& pictures)
{
    SetImageList(pictures.Images(), LVSIL_SMALL);
    int place = 0;
    for (const Column& column : columns)
        InsertColumn(place++, loadText(column.heading), LVCFMT_LEFT, column.width);
}

void CHitList::Show(const PartsBook& book, const std::vector<int>& rows)
{
    DeleteAllItems();
    for (const int row : rows) {
        const Part& part = book.part(row);
        CString_X number = part.number;
        tagQLVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_IMAGE;
        item.iItem = GetItemCount();
        item.pszText = number.GetBuffer();
        item.iImage = CPartPictures::PlaceOfKind(part.kind);
        InsertItem(&item);
        for (int column = 1; column < static_cast<int>(std::size(columns)); ++column)
            SetItemText(item.iItem, column, part.*columns[column].field);
        SetItemData(item.iItem, static_cast<ULONGLONG>(row));
    }
    ShowWindow(rows.empty() ? SW_HIDE : SW_SHOW);
}

void CHitList::Select(int row)
{
    for (int item = 0; item < GetItemCount(); ++item) {
        if (GetItemData(item) != static_cast<ULONGLONG>(row))
            continue;
        SetItemState(item, LVIS_SELECTED, LVIS_SELECTED);
        EnsureVisible(item, FALSE);
    }
}

int CHitList::SelectedRow() const
{
    POSITION position = GetFirstSelectedItemPosition();
    return position ? static_cast<int>(GetItemData(GetNextSelectedItem(position))) : -1;
}
