#include "ctrl/selectedrows.h"

#include <QTableWidget>

namespace xe {

namespace {

bool isAnySelectable(const QAbstractItemModel& model, int row, int left, int right)
{
    for (int column = left; column <= right; ++column) {
        if (model.flags(model.index(row, column)) & Qt::ItemIsSelectable)
            return true;
    }
    return false;
}

constexpr int maxQuestions = 16; // of single rows between two changes, until it is worth while to collect all

// What the table does and tells when its selection changes comes behind all other connections made so far.
void tellTableLast(const QItemSelectionModel& selection, const QTableWidget& table)
{
    const char* const changed = SIGNAL(selectionChanged(QItemSelection, QItemSelection));
    for (const char* const method :
         {SLOT(selectionChanged(QItemSelection, QItemSelection)), SIGNAL(itemSelectionChanged())}) {
        if (QObject::disconnect(&selection, changed, &table, method))
            QObject::connect(&selection, changed, &table, method);
    }
}

} // namespace

const QVector<int>& SelectedRows::rows(QTableWidget& table)
{
    refresh(table);
    return m_rows;
}

bool SelectedRows::touches(QTableWidget& table, int row)
{
    watch(table);
    if (!m_isFresh && m_questions < maxQuestions) {
        ++m_questions;
        return m_model->rowIntersectsSelection(row, {});
    }
    refresh(table);
    return row >= 0 && static_cast<std::size_t>(row) < m_touched.size() && m_touched[static_cast<std::size_t>(row)];
}

void SelectedRows::refresh(QTableWidget& table)
{
    watch(table);
    if (!m_isFresh)
        collect(table);
    m_isFresh = true;
}

// A slot of the host's that is told of a change by the table may ask at once: the old rows must be forgotten by then.
void SelectedRows::watch(QTableWidget& table)
{
    if (m_model && m_model == table.selectionModel())
        return;
    forget();
    m_model = table.selectionModel();
    m_connections = std::make_unique<QObject>();
    const auto forgetOn = [this](const auto* sender, auto signal) {
        QObject::connect(sender, signal, m_connections.get(), [this] { forget(); });
    };
    forgetOn(m_model.data(), &QItemSelectionModel::selectionChanged);
    forgetOn(m_model.data(), &QItemSelectionModel::modelChanged);
    const QAbstractItemModel* const model = table.model();
    forgetOn(model, &QAbstractItemModel::rowsInserted);
    forgetOn(model, &QAbstractItemModel::rowsRemoved);
    forgetOn(model, &QAbstractItemModel::rowsMoved);
    forgetOn(model, &QAbstractItemModel::columnsInserted);
    forgetOn(model, &QAbstractItemModel::columnsRemoved);
    forgetOn(model, &QAbstractItemModel::columnsMoved);
    forgetOn(model, &QAbstractItemModel::layoutChanged);
    forgetOn(model, &QAbstractItemModel::modelReset);
    tellTableLast(*m_model, table);
}

void SelectedRows::forget()
{
    m_isFresh = false;
    m_questions = 0;
}

// Qt's function looks through all ranges for each row.
void SelectedRows::collect(const QTableWidget& table)
{
    const QAbstractItemModel& model = *table.model();
    const int lastColumn = model.columnCount() - 1;
    m_rows.clear();
    m_touched.assign(static_cast<std::size_t>(model.rowCount()), false);
    std::vector<bool> seen(m_touched.size(), false);
    const QItemSelection selection = m_model->selection();
    for (const QItemSelectionRange& range : selection) {
        const bool isWhole = range.left() == 0 && range.right() == lastColumn;
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const auto i = static_cast<std::size_t>(row);
            const bool isSelectable = isAnySelectable(model, row, range.left(), range.right());
            if (isSelectable)
                m_touched[i] = true;
            if (!seen[i] && (isWhole ? isSelectable : m_model->isRowSelected(row, {})))
                m_rows.append(row);
            seen[i] = true;
        }
    }
}

} // namespace xe
