#include "partsgrid.h"

#include "partsbook.h"
#include "text.h"

#include <xeafxctrl.h>
#include <xeafxdc.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr UINT oneLine = DT_VCENTER | DT_SINGLELINE;

struct Layout
{
    int width;
    UINT format;
    const wchar_t* heading;
};

// Of the columns behind the first one.
constexpr Layout layouts[] = {
    {112, DT_LEFT, L"Number 编号"},     {230, DT_LEFT, L"Name 名称"},     {115, DT_LEFT, L"Kind 种类"},
    {134, DT_LEFT, L"Supplier 供应商"}, {80, DT_LEFT, L"Source 来源"},    {76, DT_RIGHT, L"Stock 库存"},
    {72, DT_RIGHT, L"Min. 最低"},       {76, DT_RIGHT, L"Price 单价"},    {80, DT_LEFT, L"In use 在用"},
    {110, DT_LEFT, L"Remark 备注"},     {96, DT_LEFT, L"Delivered 到货"},
};
static_assert(std::size(layouts) + 1 == CPartsGrid::columnCount);

constexpr const Layout& layoutOf(int column) { return layouts[column - 1]; }
constexpr CsvFields::size_type fieldOf(int column) { return static_cast<CsvFields::size_type>(column) - 1; }

struct Group
{
    int first; // column of the grid
    int count;
    const wchar_t* heading;
};

constexpr Group groups[] = {
    {CPartsGrid::Number, 3, L"Part 零件"},
    {CPartsGrid::Supplier, 2, L"Supply 供应"},
    {CPartsGrid::Stock, 3, L"Stock 库存"},
    {CPartsGrid::InUse, 3, L"Use 使用"},
};

// Of the running numbers, in the bold type of the focus too.
constexpr int numberWidth = 52;
constexpr int longNumberWidth = 62;
constexpr int mostShortNumbers = 99999;

constexpr COLORREF unusedColor = RGB(0x9a, 0xa3, 0xaf);

COLORREF colorOf(const Part& part, COLORREF shortColor)
{
    if (!part.inUse)
        return unusedColor;
    return part.isShort() ? shortColor : CLR_DEFAULT;
}

// Of the cells of a column below the headings.
CRuntimeClass_X* cellClass(int column)
{
    switch (column) {
    case CPartsGrid::Number:
    case CPartsGrid::Name:
    case CPartsGrid::Kind:
    case CPartsGrid::Remark:
        return RUNTIME_CLASS_X(CTextCell);
    case CPartsGrid::Supplier:
    case CPartsGrid::Source:
        return RUNTIME_CLASS_X(CChoiceCell);
    case CPartsGrid::InUse:
        return RUNTIME_CLASS_X(CUseCell);
    default:
        return RUNTIME_CLASS_X(CGridCell_X);
    }
}

} // namespace

IMPLEMENT_DYNAMIC_X(CPartsGrid, CGridCtrl_X)

BEGIN_MESSAGE_MAP_X(CPartsGrid, CGridCtrl_X)
    ON_WM_KEYDOWN_X()
    ON_WM_RBUTTONDOWN_X()
END_MESSAGE_MAP_X()

CPartsGrid::CPartsGrid(const CPartPictures& pictures) : m_pictures(pictures, rowHeight)
{
    m_nGridLines = 1;
    m_crGridColour = RGB(0xe5, 0xe7, 0xeb);
    m_crBkColour = m_crTextBkColour;
    m_nDefCellHeight = rowHeight;
    m_pImageList = &m_pictures.Images();
    for (CColumnData* data : {&m_supplierData, &m_sourceData, &m_useData}) {
        data->SetGrid(this);
        data->m_Font = m_Font;
    }
}

bool CPartsGrid::Open(QWidget* widget)
{
    if (!SubclassWindow(widget))
        return false;
    MakeHeadings();
    return true;
}

void CPartsGrid::MakeHeadings()
{
    SetRowCount(headingRows);
    SetColumnCount(columnCount);
    SetFixedRowCount(headingRows);
    SetFixedColumnCount(1);
    SetColumnWidth(Place, numberWidth);
    SetItemFormat(1, Place, DT_RIGHT | oneLine); // the rows take it over, and those of the other columns
    SetFixedCellCombine(0, Place, 1, 0);
    for (const Group& group : groups) {
        for (int column = group.first; column < group.first + group.count; ++column)
            SetItemFormat(0, column, DT_CENTER | oneLine);
        SetFixedCellCombine(0, group.first, 0, group.count - 1);
    }
    for (int column = Number; column < columnCount; ++column) {
        SetItemText(1, column, layoutOf(column).heading);
        SetItemFormat(1, column, layoutOf(column).format | oneLine);
    }
    ShowColumns(0);
}

CColumnData* CPartsGrid::DataOf(int column)
{
    switch (column) {
    case Supplier:
        return &m_supplierData;
    case Source:
        return &m_sourceData;
    default:
        return &m_useData;
    }
}

CGridCellBase_X* CPartsGrid::CreateCell(int row, int col)
{
    SetDefaultCellType(row < headingRows ? RUNTIME_CLASS_X(CGridCell_X) : cellClass(col));
    CGridCellBase_X* const cell = CGridCtrl_X::CreateCell(row, col);
    if (auto* const button = qobject_cast<CGridBtnCell_X*>(cell))
        button->SetBtnDataBase(DataOf(col));
    return cell;
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
    if (parts > mostShortNumbers)
        SetColumnWidth(Place, std::max(GetColumnWidth(Place), longNumberWidth));
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
}

void CPartsGrid::ShowRow(int row, const Part& shown, COLORREF shortColor)
{
    CsvFields fields = fieldsOf(shown);
    fields.resize(partColumns().size()); // the last ones may be left out
    for (int column = Number; column < columnCount; ++column) {
        SetItemText(row, column, fields[fieldOf(column)]);
        SetItemFgColour(row, column, colorOf(shown, shortColor));
    }
    SetItemImage(row, Number, CPartPictures::PlaceOfKind(shown.kind));
    Refresh();
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
    if (RowOf(part) >= 0)
        SelectCell(RowOf(part), std::max<int>(m_idCurrentCell.col, Number));
    else
        ResetSelectedRange();
}

void CPartsGrid::SelectCell(int row, int column)
{
    EndEditing();
    SetFocusCell(row, column);
    SetSelectedRange(row, column, row, column);
    EnsureVisible(row, column);
}

CString_X CPartsGrid::FocusedHeading() const { return GetItemText(headingRows - 1, m_idCurrentCell.col); }

bool CPartsGrid::IsHidden(int part) const { return GetRowHeight(RowOf(part)) == 0; }

std::vector<CString_X> CPartsGrid::Headings()
{
    std::vector<CString_X> headings;
    for (const Layout& layout : layouts)
        headings.emplace_back(layout.heading);
    return headings;
}

void CPartsGrid::ShowColumns(unsigned hidden)
{
    for (int column = Number; column < columnCount; ++column)
        SetColumnWidth(column, hidden >> fieldOf(column) & 1 ? 0 : layoutOf(column).width);
    for (const Group& group : groups)
        PlaceHeading(group.first, group.count, group.heading);
}

// In the first column that is shown, since a hidden one is not painted.
void CPartsGrid::PlaceHeading(int column, int count, const wchar_t* heading)
{
    for (const int end = column + count; column < end; ++column) {
        const bool isShown = GetColumnWidth(column) > 0;
        cellAt(0, column)->SetText(isShown ? heading : L"");
        if (isShown)
            heading = L"";
    }
}

// ------------------------------------------------------------------------------------------------------------- editing

CString_X CPartsGrid::ReadField(int row, int column, Part& part) const
{
    CsvFields fields = fieldsOf(part);
    fields.resize(partColumns().size());
    fields[fieldOf(column)] = GetItemText(row, column);
    return readPart(fields, part);
}

void CPartsGrid::OfferChoices(int row, int column, const PartsBook& book)
{
    auto* const cell = qobject_cast<CChoiceCell*>(cellAt(row, column));
    if (!cell)
        return;
    CStringArray_X choices;
    if (column == Source) {
        for (const CString_X& word : sourceWords())
            choices.Add(word);
    } else {
        for (const QString& supplier : book.suppliers())
            choices.Add(CString_X(supplier));
    }
    cell->SetComboStyle(column == Source ? CBS_DROPDOWNLIST : CBS_DROPDOWN);
    cell->SetComboString(choices);
}

int CPartsGrid::PasteTextToGrid(CCellID_X cell, const QMimeData* data)
{
    m_isChangingMany = true;
    const int result = CGridCtrl_X::PasteTextToGrid(cell, data);
    TellManyChanges();
    return result;
}

void CPartsGrid::CutSelectedText()
{
    m_isChangingMany = true;
    CGridCtrl_X::CutSelectedText();
    TellManyChanges();
}

// The window may have been closed when it was notified of one of them.
void CPartsGrid::TellManyChanges()
{
    m_isChangingMany = false;
    if (QWidget* const widget = GetSafeHwnd())
        SendMessage_X(widget->window(), WM_FIELDS_CHANGED, 0, 0);
}

void CPartsGrid::OnEditCell(int row, int col, CPoint point, unsigned int ch)
{
    const bool isByMouse = point.x >= 0;
    if (col != Number || !isByMouse)
        CGridCtrl_X::OnEditCell(row, col, point, ch);
}

void CPartsGrid::OnKeyDown(UINT vk, UINT repeatCount, UINT modifiers)
{
    if (vk == VK_RETURN && SelectedPart() >= 0)
        SendMessageToParent(m_idCurrentCell.row, Number, static_cast<int>(NM_DBLCLK));
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
