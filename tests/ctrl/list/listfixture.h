// A list control over a table.
#pragma once

#include <xelistctrl.h>

#include <QHeaderView>
#include <QTableWidget>
#include <QTest>

Q_DECLARE_METATYPE(QTableWidgetItem*)

/// A wrapped table of the host's, which selects rows: "r0c0" to "r5c2".
struct ListFixture
{
    explicit ListFixture(int rows = 6, int columns = 3) : table(rows, columns)
    {
        qRegisterMetaType<QTableWidgetItem*>("QTableWidgetItem*"); // for QSignalSpy
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column)
                table.setItem(row, column, new QTableWidgetItem(QStringLiteral("r%1c%2").arg(row).arg(column)));
        }
        table.setSelectionBehavior(QAbstractItemView::SelectRows);
        table.resize(400, 300);
        list.SubclassWindow(&table);
    }

    /// The texts of a column: "a b c", with "-" for a cell without an item.
    QString column(int column = 0) const
    {
        QStringList texts;
        for (int row = 0; row < table.rowCount(); ++row)
            texts += table.item(row, column) ? table.item(row, column)->text() : QStringLiteral("-");
        return texts.join(QLatin1Char(' '));
    }

    /// The rows as GetNextSelectedItem() walks over them: "2 5".
    QString walk() const
    {
        QStringList rows;
        for (POSITION position = list.GetFirstSelectedItemPosition(); position;)
            rows += QString::number(list.GetNextSelectedItem(position));
        return rows.join(QLatin1Char(' '));
    }

    void select(std::initializer_list<int> rows)
    {
        table.clearSelection();
        table.setSelectionMode(QAbstractItemView::MultiSelection);
        for (const int row : rows)
            table.selectRow(row);
    }

    QTableWidget table;
    CListCtrl_X list;
};

inline QString textOf(const CString_X& text) { return XeQString(text); }
