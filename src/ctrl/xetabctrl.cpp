#include "xetabctrl.h"

#include "geometry/rectangle.h"

IMPLEMENT_DYNCREATE_X(CTabCtrl_X, CWnd_X)

namespace {

/// A page that InsertItem() has made.
class Page : public QWidget
{
};

// A QTabWidget deletes no pages. Later: what removes a tab may be on its page.
void drop(QWidget* page)
{
    if (dynamic_cast<Page*>(page))
        page->deleteLater();
}

} // namespace

bool CTabCtrl_X::AttachDefault(QWidget* parent) { return Attach(new QTabWidget(parent), parent, false); }

int CTabCtrl_X::InsertItem(int index, const wchar_t* text)
{
    auto* const tabs = Imp<QTabWidget>();
    if (!tabs)
        return 0;
    tabs->insertTab(index, new Page, XeQString(text));
    return 1;
}

BOOL CTabCtrl_X::DeleteItem(int index)
{
    auto* const tabs = Imp<QTabWidget>();
    if (!tabs)
        return FALSE;
    QWidget* const page = tabs->widget(index);
    tabs->removeTab(index);
    drop(page);
    return TRUE;
}

BOOL CTabCtrl_X::DeleteAllItems()
{
    auto* const tabs = Imp<QTabWidget>();
    if (!tabs)
        return FALSE;
    QList<QPointer<QWidget>> pages;
    for (int i = 0; i < tabs->count(); ++i)
        pages += tabs->widget(i);
    tabs->clear();
    for (const QPointer<QWidget>& page : qAsConst(pages))
        drop(page);
    return TRUE;
}

BOOL CTabCtrl_X::GetItem(int index, tagQTCITEM* item) const
{
    const auto* const tabs = Imp<QTabWidget>();
    if (!tabs || !item)
        return FALSE;
    item->pszText = tabs->tabText(index);
    return TRUE;
}

BOOL CTabCtrl_X::SetItem(int index, const tagQTCITEM* item)
{
    auto* const tabs = Imp<QTabWidget>();
    if (!tabs || !item)
        return FALSE;
    tabs->setTabText(index, QString::fromLatin1(XeQString(item->pszText).toUtf8()));
    return TRUE;
}

int CTabCtrl_X::GetCurSel() const
{
    const auto* const tabs = Imp<QTabWidget>();
    return tabs ? tabs->currentIndex() : -1;
}

int CTabCtrl_X::SetCurSel(int index)
{
    SetCurFocus(index);
    return GetCurSel() == index ? index : -1;
}

void CTabCtrl_X::SetCurFocus(int index)
{
    if (auto* const tabs = Imp<QTabWidget>())
        tabs->setCurrentIndex(index);
}

int CTabCtrl_X::GetItemCount() const
{
    const auto* const tabs = Imp<QTabWidget>();
    return tabs ? tabs->count() : -1;
}

BOOL CTabCtrl_X::GetItemRect(int index, tagRECT* rect) const
{
    const auto* const tabs = Imp<QTabWidget>();
    const QWidget* const page = tabs ? tabs->widget(index) : nullptr;
    if (!page || !rect)
        return FALSE;
    *rect = xe::toRect(page->geometry());
    return TRUE;
}
