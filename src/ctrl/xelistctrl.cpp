// List controls: their life, columns and pictures.

#include "xelistctrl.h"

#include "ctrl/itemicons.h"
#include "ctrl/listformat.h"
#include "ctrl/selectedrows.h"
#include "geometry/colorref.h"
#include "text/widetext.h"
#include "xeheaderctrl.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>
#include <climits>

IMPLEMENT_DYNCREATE_X(CListCtrl_X, CWnd_X)

namespace {

constexpr DWORD ownBars = WS_VSCROLL | WS_HSCROLL;

bool hasColumn(const QTableWidget& table, int column) { return column >= 0 && column < table.columnCount(); }

void setHeading(QTableWidget& table, int column, const wchar_t* heading, int format)
{
    auto* const item = new QTableWidgetItem(XeQString(heading));
    item->setTextAlignment(xe::toAlignment(format));
    table.setHorizontalHeaderItem(column, item);
}

} // namespace

CListCtrl_X::CListCtrl_X()
    : CWnd_X(Control()),
      m_icons(std::make_unique<xe::ItemIcons>()),
      m_selection(std::make_unique<xe::SelectedRows>())
{}

CListCtrl_X::~CListCtrl_X() = default;

bool CListCtrl_X::AttachDefault(QWidget* parent) { return Attach(new QTableWidget(parent), parent, false); }

int CListCtrl_X::Create(DWORD style, xe::detail::ParentWindow parent)
{
    return CWnd_X::Create(style & ~ownBars, parent);
}

int CListCtrl_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent)
{
    return CWnd_X::Create(style & ~ownBars, rect, parent);
}

int CListCtrl_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    return Create(style, rect, parent);
}

// ------------------------------------------------------------------------------------------------------------ columns

int CListCtrl_X::InsertColumn(int column, const wchar_t* heading, int format, int width, int)
{
    auto* const table = Imp<QTableWidget>();
    if (!table || column < 0 || column == INT_MAX)
        return -1;
    if (column >= table->columnCount())
        table->setColumnCount(column + 1);
    setHeading(*table, column, heading, format);
    if (width != -1)
        table->setColumnWidth(column, width);
    return column;
}

int CListCtrl_X::InsertColumn(int column, const tagQLVCOLUMNW* record)
{
    if (!record)
        return -1;
    const auto has = [record](UINT field) { return (record->mask & field) != 0; };
    return InsertColumn(column, has(LVCF_TEXT) ? record->pszText : nullptr, has(LVCF_FMT) ? record->fmt : LVCFMT_LEFT,
                        has(LVCF_WIDTH) ? record->cx : -1);
}

BOOL CListCtrl_X::DeleteColumn(int column)
{
    auto* const table = Imp<QTableWidget>();
    if (!table || !hasColumn(*table, column))
        return FALSE;
    const QSignalBlocker blocker(table);
    table->removeColumn(column);
    return TRUE;
}

BOOL CListCtrl_X::SetColumn(int column, const tagLVCOLUMNW* record)
{
    auto* const table = Imp<QTableWidget>();
    if (!table || !record || !hasColumn(*table, column))
        return FALSE;
    if (record->mask == LVCF_WIDTH) {
        table->setColumnWidth(column, record->cx);
    } else if (record->mask == LVCF_TEXT) {
        if (QTableWidgetItem* const item = table->horizontalHeaderItem(column))
            item->setText(XeQString(record->pszText));
        else
            table->setHorizontalHeaderItem(column, new QTableWidgetItem(XeQString(record->pszText)));
    } else {
        return FALSE;
    }
    return TRUE;
}

BOOL CListCtrl_X::GetColumn(int column, tagLVCOLUMNW* record) const
{
    const auto* const table = Imp<QTableWidget>();
    if (!table || !record || !hasColumn(*table, column))
        return FALSE;
    if (record->mask == LVCF_WIDTH) {
        record->cx = table->columnWidth(column);
        return TRUE;
    }
    const QTableWidgetItem* const item = table->horizontalHeaderItem(column);
    if (record->mask != LVCF_TEXT || !item)
        return FALSE;
    const std::wstring text = xe::toWide(item->text());
    const auto size = static_cast<long long>(text.size());
    xe::writeWide(text, record->pszText, std::min<long long>(size, record->cchTextMax) - 1);
    return TRUE;
}

int CListCtrl_X::GetColumnWidth(int column) const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? table->columnWidth(column) : -1;
}

BOOL CListCtrl_X::SetColumnWidth(int column, int width)
{
    auto* const table = Imp<QTableWidget>();
    if (!table)
        return FALSE;
    table->setColumnWidth(column, width);
    return TRUE;
}

CHeaderCtrl_X* CListCtrl_X::GetHeaderCtrl() const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? qobject_cast<CHeaderCtrl_X*>(FromHandle(table->horizontalHeader())) : nullptr;
}

// -------------------------------------------------------------------------------------------- extended style, pictures

DWORD CListCtrl_X::SetExtendedStyle(DWORD style)
{
    const QPointer<QTableWidget> table = Imp<QTableWidget>(); // slots are told of each change
    if (!table)
        return static_cast<DWORD>(-1);
    const bool hasBoxes = style & LVS_EX_CHECKBOXES;
    if (hasBoxes)
        hasCheckBoxes = TRUE;
    const QVariant state = hasBoxes ? QVariant(xe::checkState(FALSE)) : QVariant();
    for (int row = 0; table && row < table->rowCount(); ++row) {
        if (QTableWidgetItem* const item = table->item(row, 0))
            item->setData(Qt::CheckStateRole, state);
        if (QTableWidgetItem* const item = table ? table->item(row, 0) : nullptr)
            item->setFlags(item->flags().setFlag(Qt::ItemIsUserCheckable, hasBoxes));
    }
    return 1;
}

DWORD CListCtrl_X::GetExtendedStyle() const
{
    const auto* const table = Imp<QTableWidget>();
    if (!table)
        return 0;
    return (table->showGrid() ? LVS_EX_GRIDLINES : 0)
           | (table->selectionBehavior() == QAbstractItemView::SelectRows ? LVS_EX_FULLROWSELECT : 0);
}

COLORREF CListCtrl_X::GetBkColor() const
{
    const auto* const table = Imp<QTableWidget>();
    return table ? xe::toColorRef(table->palette().color(QPalette::Current, QPalette::Base)) : 0;
}

CImageList_X CListCtrl_X::SetImageList(const CImageList_X& list, int)
{
    const CImageList_X old = imageList;
    imageList = list;
    return old;
}

CImageList_X CListCtrl_X::GetImageList(UINT) const { return imageList; }

CImageList_X* CListCtrl_X::GetImageList(UINT) { return &imageList; }

void CListCtrl_X::AppendItemImage(const QPixmap& picture) { m_icons->append(itemImages, picture); }

void CListCtrl_X::ClearItemImageList() { m_icons->clear(itemImages); }
