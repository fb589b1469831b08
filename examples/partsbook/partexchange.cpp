#include "partexchange.h"

#include "text.h"

#include <QDate>
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

void DDX_CheckState(CDataExchange_X* exchange, CButton_X& box, int& state)
{
    exchange->PrepareCtrl(box.GetSafeHwnd());
    if (exchange->m_bSaveAndValidate)
        state = box.GetCheck();
    else
        box.SetCheck(state);
}

void DDX_Day(CDataExchange_X* exchange, CDateTimeCtrl_X& field, CString_X& day)
{
    exchange->PrepareCtrl(field.GetSafeHwnd());
    _SYSTEMTIME time{};
    if (exchange->m_bSaveAndValidate) {
        field.GetTime(&time);
        day = CString_X(QDate(time.wYear, time.wMonth, time.wDay).toString(Qt::ISODate));
        return;
    }
    const QDate shown = day.IsEmpty() ? QDate::currentDate() : QDate::fromString(XeQString(day), Qt::ISODate);
    time.wYear = static_cast<WORD>(shown.year());
    time.wMonth = static_cast<WORD>(shown.month());
    time.wDay = static_cast<WORD>(shown.day());
    field.SetTime(&time);
}
