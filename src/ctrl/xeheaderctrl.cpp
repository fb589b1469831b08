#include "xeheaderctrl.h"

#include "text/widetext.h"

#include <QApplication>
#include <QHeaderView>
#include <QScreen>
#include <QStyle>

#include <algorithm>

IMPLEMENT_DYNCREATE_X(CHeaderCtrl_X, CWnd_X)

namespace {

constexpr DWORD ownBars = WS_VSCROLL | WS_HSCROLL;

bool hasSection(const QHeaderView& header, int index) { return index >= 0 && index < header.count(); }

// The model of a header that has the section.
QAbstractItemModel* modelWith(const QHeaderView* header, int index)
{
    return header && hasSection(*header, index) ? header->model() : nullptr;
}

} // namespace

CHeaderCtrl_X::CHeaderCtrl_X() : CWnd_X(Control()) {}

bool CHeaderCtrl_X::AttachDefault(QWidget* parent)
{
    return Attach(new QHeaderView(Qt::Horizontal, parent), parent, false);
}

int CHeaderCtrl_X::Create(DWORD style, const tagRECT& rect, QWidget* parent, UINT)
{
    return CWnd_X::Create(style & ~ownBars, rect, parent);
}

int CHeaderCtrl_X::CreateEx(DWORD exStyle, DWORD style, const tagRECT& rect, QWidget* parent, UINT id)
{
    const QPointer<CHeaderCtrl_X> living(this); // a handler that comes up meanwhile may delete it
    const int result = Create(style, rect, parent, id);
    if (living && result)
        ModifyStyle(0, exStyle);
    return result;
}

// ----------------------------------------------------------------------------------------------------------- sections

int CHeaderCtrl_X::GetItemCount() const
{
    const auto* const header = Imp<QHeaderView>();
    return header ? header->count() : -1;
}

BOOL CHeaderCtrl_X::GetItem(int index, _HD_ITEMW* item) const
{
    const auto* const header = Imp<QHeaderView>();
    const QAbstractItemModel* const model = modelWith(header, index);
    if (!model || !item || !item->pszText)
        return FALSE;
    const std::wstring text = xe::toWide(model->headerData(index, header->orientation()).toString());
    std::copy_n(text.c_str(), text.size() + 1, item->pszText);
    return TRUE;
}

BOOL CHeaderCtrl_X::SetItem(int index, _HD_ITEMW* item)
{
    const auto* const header = Imp<QHeaderView>();
    QAbstractItemModel* const model = modelWith(header, index);
    return model && item && model->setHeaderData(index, header->orientation(), QString(XeQString(item->pszText)));
}

int CHeaderCtrl_X::InsertItem(int index, _HD_ITEMW* item)
{
    const auto* const header = Imp<QHeaderView>();
    return header && header->model() ? SetItem(index, item) : -1;
}

BOOL CHeaderCtrl_X::DeleteItem(int index)
{
    QAbstractItemModel* const model = modelWith(Imp<QHeaderView>(), index);
    if (!model)
        return FALSE;
    model->removeColumn(index);
    return TRUE;
}

BOOL CHeaderCtrl_X::GetItemRect(int index, tagRECT* rect) const
{
    const auto* const header = Imp<QHeaderView>();
    if (!header || !rect || !hasSection(*header, index))
        return FALSE;
    rect->left = header->sectionViewportPosition(index);
    rect->top = rect->left + header->sectionSize(index);
    rect->right = header->y();
    rect->bottom = header->y() + header->height() + 1;
    return TRUE;
}

// ----------------------------------------------------------------------------------------------------------- sort mark

int CHeaderCtrl_X::OrderToIndex(int) const
{
    const auto* const header = Imp<QHeaderView>();
    return header ? header->sortIndicatorSection() : 0;
}

BOOL CHeaderCtrl_X::GetOrderArray(int* order, int count) const
{
    const auto* const header = Imp<QHeaderView>();
    if (!header || !header->model() || !order)
        return FALSE;
    const int marked = header->sortIndicatorSection();
    std::fill_n(order, std::max(count, 0), -1);
    if (marked >= 0 && marked < count)
        order[marked] = header->sortIndicatorOrder() == Qt::DescendingOrder ? 1 : 0;
    return TRUE;
}

BOOL CHeaderCtrl_X::SetOrderArray(int count, int* order)
{
    const QPointer<QHeaderView> header = Imp<QHeaderView>(); // slots are told of each change
    if (!header || !order)
        return FALSE;
    header->setSortIndicatorShown(true);
    for (int i = 0; header && i < count; ++i)
        header->setSortIndicator(order[i], Qt::AscendingOrder);
    return TRUE;
}

// --------------------------------------------------------------------------------------------------- places and focus

int CHeaderCtrl_X::HitTest(_HD_HITTESTINFO* info) const
{
    const auto* const header = Imp<QHeaderView>();
    if (!header || !info)
        return -1;
    const auto positionOf = [header](int visual) {
        return header->sectionViewportPosition(header->logicalIndex(visual));
    };
    info->iItem = -1;
    for (int visual = 0; visual + 1 < header->count(); ++visual) {
        if (positionOf(visual) <= info->pt.x && info->pt.x < positionOf(visual + 1)) {
            info->iItem = header->logicalIndex(visual);
            break;
        }
    }
    return info->iItem;
}

int CHeaderCtrl_X::GetFocusedItem() const
{
    const auto* const header = Imp<QHeaderView>();
    return header ? header->currentIndex().column() : -1;
}

BOOL CHeaderCtrl_X::SetFocusedItem(int index)
{
    auto* const header = Imp<QHeaderView>();
    if (!modelWith(header, index))
        return FALSE;
    header->setCurrentIndex(header->model()->index(0, index));
    return TRUE;
}

int CHeaderCtrl_X::GetBitmapMargin() const
{
    const auto* const header = Imp<QHeaderView>();
    if (!header)
        return 0;
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const qreal density = screen ? screen->logicalDotsPerInchX() : 96;
    return qRound(header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header) * density / 96);
}

// ------------------------------------------------------------------------------------------------------ without effect

BOOL CHeaderCtrl_X::GetItemDropDownRect(int index, tagRECT*) const
{
    const auto* const header = Imp<QHeaderView>();
    return header && hasSection(*header, index);
}

BOOL CHeaderCtrl_X::GetOverflowRect(tagRECT*) const { return Imp<QHeaderView>() != nullptr; }

CImageList_X* CHeaderCtrl_X::GetImageList() const { return nullptr; }

CImageList_X* CHeaderCtrl_X::SetImageList(CImageList_X*) { return nullptr; }

BOOL CHeaderCtrl_X::Layout(_HD_LAYOUT*) { return FALSE; }

CImageList_X* CHeaderCtrl_X::CreateDragImage(int) { return nullptr; }

int CHeaderCtrl_X::SetBitmapMargin(int) { return -1; }

int CHeaderCtrl_X::SetHotDivider(CPoint) { return -1; }

int CHeaderCtrl_X::SetHotDivider(int) { return -1; }

int CHeaderCtrl_X::SetFilterChangeTimeout(DWORD) { return -1; }

int CHeaderCtrl_X::EditFilter(int, BOOL) { return -1; }

int CHeaderCtrl_X::ClearFilter(int) { return -1; }

int CHeaderCtrl_X::ClearAllFilters() { return -1; }

BOOL CHeaderCtrl_X::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*) { return TRUE; }
