#include "gridsupport.h"
#include "leavenothing.h"
#include "testclass.h"

#include <QRandomGenerator>

namespace {

// A grid told once more, by the plainest means.
struct PlainGrid
{
    struct Cell
    {
        QString text;
        bool isSelected = false;
    };
    using Row = QVector<Cell>;

    int columnCount() const { return widths.size(); }
    int fixedOf(bool isRows) const { return isRows ? fixedRows : fixedColumns; }

    void setRowCount(int n)
    {
        fixedRows = std::min(fixedRows, n);
        if (n <= focus.row)
            focus = CCellID_X();
        while (rows.size() > n)
            rows.removeLast(), heights.removeLast();
        while (rows.size() < n)
            rows.append(Row(columnCount())), heights.append(20);
    }
    void setColumnCount(int n)
    {
        fixedColumns = std::min(fixedColumns, n);
        if (n <= focus.col)
            focus = CCellID_X();
        while (widths.size() > n)
            widths.removeLast();
        while (widths.size() < n)
            widths.append(30);
        for (Row& row : rows)
            row.resize(n);
    }
    void setFixedRowCount(int n)
    {
        if (n == fixedRows)
            return;
        if (n > rows.size())
            setRowCount(n);
        if (n > focus.row)
            focus = CCellID_X();
        fixedRows = n;
    }
    void setFixedColumnCount(int n)
    {
        if (n == fixedColumns)
            return;
        if (n > columnCount())
            setColumnCount(n);
        if (n > focus.col)
            focus = CCellID_X();
        fixedColumns = n;
    }
    void deselect()
    {
        for (Row& row : rows) {
            for (Cell& cell : row)
                cell.isSelected = false;
        }
    }
    void insertRow(int pos, const QString& text, int height)
    {
        deselect();
        if (columnCount() == 0)
            setColumnCount(1);
        Row row(columnCount());
        row[0].text = text;
        rows.insert(pos, row);
        heights.insert(pos, height);
        focus.row += focus.row >= pos;
    }
    void insertColumn(int pos, const QString& text, int width)
    {
        deselect();
        if (rows.isEmpty())
            setRowCount(1);
        for (Row& row : rows)
            row.insert(pos, Cell());
        rows[0][pos].text = text;
        widths.insert(pos, width);
        focus.col += focus.col >= pos;
    }
    void deleteRow(int pos)
    {
        deselect();
        if (focus.row == pos)
            focus = CCellID_X();
        focus.row -= focus.row > pos;
        fixedRows -= pos < fixedRows;
        rows.removeAt(pos);
        heights.removeAt(pos);
    }
    void deleteColumn(int pos)
    {
        deselect();
        if (focus.col == pos)
            focus = CCellID_X();
        focus.col -= focus.col > pos;
        fixedColumns -= pos < fixedColumns;
        for (Row& row : rows)
            row.removeAt(pos);
        widths.removeAt(pos);
    }
    void deleteAll() { *this = PlainGrid(); }

    QVector<Row> rows;
    QVector<int> heights;
    QVector<int> widths;
    int fixedRows = 0;
    int fixedColumns = 0;
    CCellID_X focus;
};

QString viewOf(const PlainGrid& plain)
{
    QStringList lines;
    for (int row = 0; row < plain.rows.size(); ++row) {
        QStringList cells;
        for (const PlainGrid::Cell& cell : plain.rows[row])
            cells += cell.text + (cell.isSelected ? QStringLiteral("*") : QString());
        lines += QStringLiteral("%1: %2").arg(plain.heights[row]).arg(cells.join(QLatin1Char(',')));
    }
    QStringList widths;
    for (const int width : plain.widths)
        widths += QString::number(width);
    return QStringLiteral("%1 | %2 | fixed %3 %4 | focus %5")
        .arg(lines.join(QLatin1String(" / ")), widths.join(QLatin1Char(' ')))
        .arg(plain.fixedRows)
        .arg(plain.fixedColumns)
        .arg(textOf(plain.focus));
}

QString viewOf(const CGridCtrl_X& grid)
{
    PlainGrid plain;
    for (int row = 0; row < grid.m_nRows; ++row) {
        PlainGrid::Row cells(grid.m_nCols);
        for (int col = 0; col < grid.m_nCols; ++col)
            cells[col] = {XeQString(grid.GetItemText(row, col)), grid.IsCellSelected(row, col) != 0};
        plain.rows += cells;
        plain.heights += grid.GetRowHeight(row);
    }
    for (int col = 0; col < grid.m_nCols; ++col)
        plain.widths += grid.GetColumnWidth(col);
    plain.fixedRows = grid.m_nFixedRows;
    plain.fixedColumns = grid.m_nFixedCols;
    plain.focus = grid.m_idCurrentCell;
    return viewOf(plain);
}

/// Does the same to a grid and to the plain one.
class RandomWalk
{
public:
    explicit RandomWalk(quint32 seed) : m_random(seed), m_shown(0, 0, 0, 0) {}

    QString step();
    QString problems() const
    {
        const QString own = viewOf(m_shown.grid);
        const QString wanted = viewOf(m_plain);
        return own == wanted ? GridSanity::problems(m_shown.grid)
                             : QStringLiteral("\nis      %1\nshould be %2").arg(own, wanted);
    }

private:
    int below(int n) { return n < 1 ? 0 : m_random.bounded(n); }
    int row() { return below(m_plain.rows.size()); }
    int col() { return below(m_plain.columnCount()); }
    bool hasCells() const { return !m_plain.rows.isEmpty() && m_plain.columnCount() > 0; }
    CString_X newText() { return CString_X(QString::number(++m_number)); }

    QString changeCounts(int kind);
    QString insertOrDelete(int kind);
    QString changeCell(int kind);
    void select(int minRow, int minCol, int maxRow, int maxCol);

    QRandomGenerator m_random;
    ShownGrid<> m_shown;
    PlainGrid m_plain;
    int m_number = 0;
};

QString RandomWalk::step()
{
    const int kind = below(20);
    return kind < 4 ? changeCounts(kind) : kind < 9 ? insertOrDelete(kind - 4) : changeCell(kind - 9);
}

QString RandomWalk::changeCounts(int kind)
{
    CGridCtrl_X& grid = m_shown.grid;
    const int n = below(kind < 2 ? 14 : 5);
    switch (kind) {
    case 0:
        grid.SetRowCount(n);
        m_plain.setRowCount(n);
        return QStringLiteral("SetRowCount %1").arg(n);
    case 1:
        grid.SetColumnCount(n);
        m_plain.setColumnCount(n);
        return QStringLiteral("SetColumnCount %1").arg(n);
    case 2:
        grid.SetFixedRowCount(n);
        m_plain.setFixedRowCount(n);
        return QStringLiteral("SetFixedRowCount %1").arg(n);
    default:
        grid.SetFixedColumnCount(n);
        m_plain.setFixedColumnCount(n);
        return QStringLiteral("SetFixedColumnCount %1").arg(n);
    }
}

QString RandomWalk::insertOrDelete(int kind)
{
    CGridCtrl_X& grid = m_shown.grid;
    const CString_X text = newText();
    if (kind == 0) {
        const int pos = m_plain.rows.isEmpty() ? -1 : below(m_plain.rows.size() + 1) - 1;
        const int at = grid.InsertRow(text, pos);
        m_plain.insertRow(pos < 0 ? m_plain.rows.size() : pos, XeQString(text), grid.GetTextExtent(at, 0, text).cy);
        return QStringLiteral("InsertRow %1").arg(pos);
    }
    if (kind == 1) {
        const int pos = m_plain.columnCount() == 0 ? -1 : below(m_plain.columnCount() + 1) - 1;
        const int at = grid.InsertColumn(text, 0, pos);
        m_plain.insertColumn(pos < 0 ? m_plain.columnCount() : pos, XeQString(text),
                             grid.GetTextExtent(0, at, text).cx);
        return QStringLiteral("InsertColumn %1").arg(pos);
    }
    if (kind == 2 && !m_plain.rows.isEmpty()) {
        const int pos = row();
        grid.DeleteRow(pos);
        m_plain.deleteRow(pos);
        return QStringLiteral("DeleteRow %1").arg(pos);
    }
    if (kind == 3 && m_plain.columnCount() > 0) {
        const int pos = col();
        grid.DeleteColumn(pos);
        m_plain.deleteColumn(pos);
        return QStringLiteral("DeleteColumn %1").arg(pos);
    }
    if (kind == 4 && below(20) == 0) {
        grid.DeleteAllItems();
        m_plain.deleteAll();
        return QStringLiteral("DeleteAllItems");
    }
    return QStringLiteral("nothing");
}

void RandomWalk::select(int minRow, int minCol, int maxRow, int maxCol)
{
    m_plain.deselect();
    const int lastRow = std::max(maxRow, m_plain.fixedRows); // all four numbers are raised
    const int lastCol = std::max(maxCol, m_plain.fixedColumns);
    for (int r = std::max(minRow, m_plain.fixedRows); minRow >= 0 && r <= lastRow && r < m_plain.rows.size(); ++r) {
        for (int c = std::max(minCol, m_plain.fixedColumns); c <= lastCol && c < m_plain.columnCount(); ++c)
            m_plain.rows[r][c].isSelected = true;
    }
}

QString RandomWalk::changeCell(int kind)
{
    CGridCtrl_X& grid = m_shown.grid;
    if (!hasCells())
        return QStringLiteral("nothing");
    const int r = row();
    const int c = col();
    const CString_X text = newText();
    switch (kind) {
    case 0:
    case 1:
        grid.SetItemText(r, c, text);
        m_plain.rows[r][c].text = XeQString(text);
        return QStringLiteral("SetItemText %1 %2").arg(r).arg(c);
    case 2:
        grid.SetRowHeight(r, 5 * (r % 3));
        m_plain.heights[r] = 5 * (r % 3);
        return QStringLiteral("SetRowHeight %1").arg(r);
    case 3:
        grid.SetColumnWidth(c, 9 * (c % 3));
        m_plain.widths[c] = 9 * (c % 3);
        return QStringLiteral("SetColumnWidth %1").arg(c);
    case 4:
        if (r >= m_plain.fixedRows && c >= m_plain.fixedColumns) {
            grid.SetFocusCell(r, c);
            m_plain.focus = CCellID_X(r, c);
        }
        return QStringLiteral("SetFocusCell %1 %2").arg(r).arg(c);
    case 5:
        grid.SetSelectedRange(r, c, r + 2, c + 1);
        select(r, c, r + 2, c + 1);
        return QStringLiteral("SetSelectedRange %1 %2").arg(r).arg(c);
    case 6:
        grid.SelectAllCells();
        select(0, 0, m_plain.rows.size() - 1, m_plain.columnCount() - 1);
        return QStringLiteral("SelectAllCells");
    case 7:
        grid.ResetSelectedRange();
        m_plain.deselect();
        m_plain.focus = CCellID_X();
        return QStringLiteral("ResetSelectedRange");
    case 8:
        grid.SetCellType(r, c, RUNTIME_CLASS_X(CGridCell_X));
        return QStringLiteral("SetCellType %1 %2").arg(r).arg(c);
    case 9:
        if (below(2) == 0)
            grid.SetFixedCellCombine(r, c, below(3), below(3));
        else
            grid.SetCellCombine(r, c, below(3), below(3), 0);
        return QStringLiteral("combine %1 %2").arg(r).arg(c);
    default:
        grid.UndoCellCombine(r, c);
        return QStringLiteral("UndoCellCombine %1 %2").arg(r).arg(c);
    }
}

} // namespace

class tst_GridRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void walk_data();
    void walk();
};

void tst_GridRandom::walk_data()
{
    QTest::addColumn<quint32>("seed");

    for (quint32 seed = 1; seed <= 10; ++seed)
        QTest::addRow("a thousand operations, seed %u", seed) << seed;
}

void tst_GridRandom::walk()
{
    QFETCH(quint32, seed);
    RandomWalk walk(seed);
    QStringList last;
    for (int i = 0; i < 1000; ++i) {
        last += walk.step();
        if (last.size() > 6)
            last.removeFirst();
        const QString problems = walk.problems();
        QVERIFY2(problems.isEmpty(), qPrintable(last.join(QLatin1String(", ")) + QLatin1String(": ") + problems));
    }
}

XE_TEST(tst_GridRandom)
#include "tst_gridrandom.moc"
