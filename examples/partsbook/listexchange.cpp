#include "listexchange.h"

#include "text.h"

#include <QListWidget>

namespace {

int rowOf(QListWidget& list, const QString& text)
{
    if (text.isEmpty())
        return -1;
    const QList<QListWidgetItem*> items = list.findItems(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (!items.isEmpty())
        return list.row(items.first());
    list.addItem(text);
    return list.count() - 1;
}

} // namespace

void DDX_ListText(CDataExchange_X* exchange, int id, CString_X& value)
{
    QListWidget& list = exchange->RequireControl<QListWidget>(id);
    exchange->PrepareCtrl(&list);
    if (!exchange->m_bSaveAndValidate) {
        list.setCurrentRow(rowOf(list, XeQString(value)));
        return;
    }
    const QListWidgetItem* const item = list.currentItem();
    if (!item)
        exchange->Fail(loadText(IDS_CHOOSE_SUPPLIER));
    value = item->text();
}
