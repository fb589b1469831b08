// Which rows of a table are selected, in the order of selecting.
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>
#include <vector>

class QItemSelectionModel;
class QTableWidget;

namespace xe {

/// QItemSelectionModel::selectedRows() kept until it changes: it takes time by the rows, and a walk asks at each step.
class SelectedRows
{
public:
    /// The rows that are selected in all columns, as selectedRows() has them.
    const QVector<int>& rows(QTableWidget& table);
    /// Whether anything in the row is selected.
    bool touches(QTableWidget& table, int row);

private:
    void refresh(QTableWidget& table);
    void watch(QTableWidget& table);
    void forget();
    void collect(const QTableWidget& table);

    QPointer<QItemSelectionModel> m_model;
    std::unique_ptr<QObject> m_connections;
    bool m_isFresh = false;
    int m_questions = 0; // about single rows since then
    QVector<int> m_rows;
    std::vector<bool> m_touched;
};

} // namespace xe
