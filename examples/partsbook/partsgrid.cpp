#include "partsgrid.h"

#include "partsbook.h"
#include "text.h"

#include <xeafxdc.h>

#include <iterator>

namespace {

constexpr UINT oneLine = DT_VCENTER | DT_SINGLELINE;

struct Column
{
    int width;
    UINT format;
    const wchar_t* heading;
};

// In the order of the fields.
constexpr Column columns[] = {
    {112, DT_LEFT, L"Number 编号"},     {230, DT_LEFT, L"Name 名称"},     {115, DT_LEFT, L"Kind 种类"},
    {134, DT_LEFT, L"Supplier 供应商"}, {80, DT_LEFT, L"Source 来源"},    {76, DT_RIGHT, L"Stock 库存"},
    {72, DT_RIGHT, L"Min. 最低"},       {76, DT_RIGHT, L"Price 单价"},    {80, DT_CENTER, L"In use 在用"},
    {110, DT_LEFT, L"Remark 备注"},     {96, DT_LEFT, L"Delivered 到货"},
};
constexpr int columnCount = static_cast<int>(std::size(columns));

struct Group
{
    int first; // column of the grid
    int count;
    const wchar_t* heading;
};

constexpr Group groups[] = {
    {1, 3, L"Part 零件"},
    {4, 2, L"Supply 供应"},
    {6, 3, L"Stock 库存"},
    {9, 3, L"Use 使用"},
};

constexpr int numberWidth = 52;
constexpr int pictureSize = 18;
constexpr int pictureTop = 4;
constexpr COLORREF unusedColor = RGB(0x9a, 0xa3, 0xaf);

COLORREF colorOf(const Part& part, COLORREF shortColor)
{
    if (!part.inUse)
        return unusedColor;
    return part.isShort() ? shortColor : CLR_DEFAULT;
}

// A cell does not show a single "&", which is the mark of a letter to it.
CString_X shownText(CString_X text)
{
    text.Replace(L"&", L"&&");
    return text;
}

// In the middle of a row: a cell puts its picture to its top.
QImage* smallPicture(const CImageList_X& images, int place)
{
    const auto* const picture = static_cast<const QImage*>(images.ExtractIcon(place));
    const QImage small = picture->scaled(pictureSize, pictureSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return new QImage(small.copy(0, -pictureTop, small.width(), small.height() + pictureTop));
}

} // namespace

IMPLEMENT_DYNAMIC_X(CPartsGrid, CGridCtrl_X)

BEGIN_MESSAGE_MAP_X(CPartsGrid, CGridCtrl_X)
    ON_WM_KEYDOWN_X()
    ON_WM_RBUTTONDOWN_X()
END_MESSAGE_MAP_X()

CPartsGrid::CPartsGrid()
{
    m_bEditable = FALSE;
    m_bHandleTabKey = FALSE;
    m_nGridLines = 1;
    m_crGridColour = RGB(0xe5, 0xe7, 0xeb);
    m_crBkColour = m_crTextBkColour;
    m_nDefCellHeight = rowHeight;
}

bool CPartsGrid::Open(QWidget* widget)
{
    const CPartPictures pictures;
    for (int place = 0; place < CPartPictures::count; ++place) {
        m_bitmaps[place].Attach(smallPicture(pictures.Images(), place));
        m_images.Add(&m_bitmaps[place], nullptr);
    }
    m_pImageList = &m_images;
    if (!SubclassWindow(widget))
        return false;
    MakeHeadings();
    return true;
}

void CPartsGrid::MakeHeadings()
{
    SetRowCount(headingRows);
    SetColumnCount(columnCount + 1);
    SetFixedRowCount(headingRows);
    SetFixedColumnCount(1);
    SetColumnWidth(0, numberWidth);
    SetItemFormat(1, 0, DT_RIGHT | oneLine); // the rows take it over
    SetFixedCellCombine(0, 0, 1, 0);
    for (const Group& group : groups) {
        SetItemText(0, group.first, group.heading);
        SetItemFormat(0, group.first, DT_CENTER | oneLine);
        SetFixedCellCombine(0, group.first, 0, group.count - 1);
    }
    for (int column = 0; column < columnCount; ++column) {
        SetItemText(1, column + 1, columns[column].heading);
        SetItemFormat(1, column + 1, columns[column].format | oneLine);
        SetColumnWidth(column + 1, columns[column].width);
    }
}

// ---------------------------------------------------------------------------------------------------- rows and parts

int CPartsGrid::PartOf(int row) const
{
    return row >= headingRows && row < m_nRows ? static_cast<int>(GetItemData(row, 0)) : -1;
}

int CPartsGrid::RowOf(int part) const
{
    const int bookRow = headingRows + part;
    if (part < 0 || PartOf(bookRow) == part)
        return part < 0 ? -1 : bookRow;
    int row = m_nRows - 1;
    while (row >= headingRows && PartOf(row) != part)
        --row;
    return row >= headingRows ? row : -1;
}

void CPartsGrid::SetPart(int row, int part)
{
    SetItemData(row, 0, part);
    SetItemText(row, 0, formatText(L"%d", part + 1));
}

// New rows are those of the parts that come last.
void CPartsGrid::SetPartCount(int parts)
{
    const int before = m_nRows;
    SetRowCount(headingRows + parts);
    for (int row = before; row < m_nRows; ++row)
        SetPart(row, row - headingRows);
}

void CPartsGrid::Show(const PartsBook& book, COLORREF shortColor)
{
    SetRedraw(FALSE);
    SetPartCount(book.count());
    for (int row = headingRows; row < m_nRows; ++row)
        ShowRow(row, book.part(PartOf(row)), shortColor);
    SetRedraw(TRUE, TRUE);
}

void CPartsGrid::ShowPart(int part, const Part& shown, COLORREF shortColor)
{
    if (headingRows + part >= m_nRows)
        SetPartCount(part + 1);
    ShowRow(RowOf(part), shown, shortColor);
    Refresh();
}

void CPartsGrid::ShowRow(int row, const Part& shown, COLORREF shortColor)
{
    const CsvFields fields = fieldsOf(shown);
    const int count = static_cast<int>(fields.size()); // the last ones may be left out
    for (int column = 0; column < columnCount; ++column) {
        SetItemText(row, column + 1,
                    column < count ? shownText(fields[static_cast<std::size_t>(column)]) : CString_X());
        SetItemFgColour(row, column + 1, colorOf(shown, shortColor));
    }
    SetItemImage(row, 1, CPartPictures::PlaceOfKind(shown.kind));
}

void CPartsGrid::RemovePart(int part)
{
    DeleteRow(RowOf(part));
    for (int row = headingRows; row < m_nRows; ++row) {
        if (PartOf(row) > part)
            SetPart(row, PartOf(row) - 1);
    }
}

// ------------------------------------------------------------------------------------------------- focus and columns

int CPartsGrid::SelectedPart() const { return PartOf(m_idCurrentCell.row); }

void CPartsGrid::SelectPart(int part)
{
    const int row = RowOf(part);
    if (row < 0) {
        ResetSelectedRange();
        return;
    }
    const int column = std::max(m_idCurrentCell.col, 1);
    SetFocusCell(row, column);
    SetSelectedRange(row, column, row, column);
    EnsureVisible(row, column);
}

bool CPartsGrid::IsHidden(int part) const { return GetRowHeight(RowOf(part)) == 0; }

std::vector<CString_X> CPartsGrid::Headings()
{
    std::vector<CString_X> headings;
    for (const Column& column : columns)
        headings.emplace_back(column.heading);
    return headings;
}

void CPartsGrid::ShowColumns(unsigned hidden)
{
    for (int column = 0; column < columnCount; ++column)
        SetColumnWidth(column + 1, hidden >> column & 1 ? 0 : columns[column].width);
}

// Return on a part does what a double click does.
void CPartsGrid::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (vk == VK_RETURN && SelectedPart() >= 0)
        SendMessageToParent(m_idCurrentCell.row, m_idCurrentCell.col, static_cast<int>(NM_DBLCLK));
    else
        CGridCtrl_X::OnKeyDown(vk, repeatCount, modifiers);
}

// The menu that follows is that of the part under the pointer.
void CPartsGrid::OnRButtonDown(UINT flags, CPoint point)
{
    const CCellID_X cell = GetCellFromPt(point);
    if (IsValid(cell) && cell.row >= headingRows)
        SetFocusCell(cell);
    CGridCtrl_X::OnRButtonDown(flags, point);
}
