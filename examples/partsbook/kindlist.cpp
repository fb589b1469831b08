#include "kindlist.h"

#include "text.h"

#include <QSignalBlocker>
#include <xeresource.h>

IMPLEMENT_DYNAMIC_X(CKindList, CWnd_X)

bool CKindList::AttachDefault(QWidget* parent)
{
    auto* const list = new QListWidget(parent);
    list->setObjectName(ToStringId(IDC_KINDS));
    list->setFrameShape(QFrame::NoFrame);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a long name is cut short
    return Attach(list, parent, false);
}

void CKindList::Show(const std::vector<KindStock>& stock)
{
    auto* const list = Imp<QListWidget>();
    const QString current = list->currentRow() > 0 ? list->currentItem()->text() : QString();
    const QSignalBlocker blocker(list);
    list->clear();
    list->addItem(XeQString(loadText(IDS_ALL_KINDS)));
    list->setCurrentRow(0);
    for (const KindStock& one : stock) {
        const XeQString kind(one.kind);
        list->addItem(kind);
        if (!current.isNull() && kind == current)
            list->setCurrentRow(list->count() - 1);
    }
}

bool CKindList::Includes(const CString_X& kind) const
{
    const auto* const list = Imp<QListWidget>();
    return list->currentRow() < 1 || list->currentItem()->text() == XeQString(kind);
}

void CKindList::SelectAll() { Imp<QListWidget>()->setCurrentRow(0); }
