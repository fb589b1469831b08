// Copying, cutting and pasting.

#include "XeGridCtrl.h"
#include "grid/selectionmaps.h"
#include "text/widetext.h"
#include "xeafxmenu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>

#include <algorithm>
#include <memory>
#include <string_view>
#include <vector>

namespace {

using Text = std::wstring_view;

bool isShown(const CGridCtrl_X& grid, int row, int col)
{
    return grid.GetRowHeight(row) > 0 && grid.GetColumnWidth(col) > 0;
}

std::vector<int> shownColumns(const CGridCtrl_X& grid, const CCellRange_X& range)
{
    std::vector<int> columns;
    for (int col = range.m_nMinCol; col <= range.m_nMaxCol; ++col) {
        if (grid.GetColumnWidth(col) > 0)
            columns.push_back(col);
    }
    return columns;
}

// The texts of the selected cells of a row, the others empty, with tabs between.
void appendRow(QString& text, const CGridCtrl_X& grid, int row, const std::vector<int>& columns)
{
    bool isFirst = true;
    for (const int col : columns) {
        if (!isFirst)
            text += QLatin1Char('\t');
        isFirst = false;
        const CGridCellBase_X* const cell = grid.cellAt(row, col);
        if (cell && cell->GetState() & CGridCellBase_X::Selected)
            text += XeQString(cell->GetText());
    }
}

// Wide elements of a part of a text; the place that they had before serves again.
void widen(std::wstring& wide, QStringView text)
{
    wide.resize(static_cast<std::size_t>(text.size()));
    wide.resize(static_cast<std::size_t>(text.toWCharArray(wide.data())));
}

constexpr auto isSeparator = [](wchar_t sign) { return sign == L'\t' || sign == L',' || sign == L'\n'; };

// The next field of a line, which is left with what follows; empty behind the last. Separators in a row count as one.
Text takeField(Text& line)
{
    const auto begin = std::find_if_not(line.begin(), line.end(), isSeparator);
    line.remove_prefix(static_cast<std::size_t>(begin - line.begin()));
    const auto end = std::find_if(line.begin(), line.end(), isSeparator);
    const Text field = line.substr(0, static_cast<std::size_t>(end - line.begin()));
    line.remove_prefix(field.size());
    return field;
}

// Brackets a change of a cell by the notifications of an edit. False if the grid has gone.
template <class Change>
bool changeCell(const QPointer<CGridCtrl_X>& grid, int row, int col, Change change)
{
    grid->SendMessageToParent(row, col, static_cast<int>(LVN_BEGINLABELEDITW));
    CGridCellBase_X* const cell = grid ? grid->cellAt(row, col) : nullptr;
    if (!cell)
        return grid;
    change(*cell);
    grid->SetModified(TRUE, row, col);
    grid->SendMessageToParent(row, col, static_cast<int>(LVN_ENDLABELEDITW));
    return grid;
}

// As CString_X::Trim() does.
Text trimmed(Text text)
{
    constexpr Text blanks = L" \r\n\t";
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == Text::npos ? Text() : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

// `text` is a place for it that serves again.
bool pasteField(const QPointer<CGridCtrl_X>& grid, int row, int col, Text field, std::wstring& text)
{
    text = trimmed(field);
    const auto setText = [&](CGridCellBase_X&) { grid->SetItemText(row, col, text.c_str()); };
    if (!changeCell(grid, row, col, setText))
        return false;
    grid->SetItemState(row, col, grid->GetItemState(row, col) & ~CGridCellBase_X::Selected);
    return true;
}

bool pasteLine(const QPointer<CGridCtrl_X>& grid, int row, int col, Text line)
{
    std::wstring text;
    for (Text field = takeField(line); !field.empty(); field = takeField(line)) {
        while (grid->GetColumnWidth(col) == 0)
            ++col;
        if (grid->IsValid(row, col) && !pasteField(grid, row, col, field, text))
            return false;
        ++col;
    }
    return true;
}

void enable(CCmdUI_X* command, bool on)
{
    if (command)
        command->Enable(on ? 1 : 0);
}

bool hasSelection(const CGridCtrl_X& grid) { return grid.IsValid(grid.GetSelectedCellRange()); }

} // namespace

// ------------------------------------------------------------------------------------------------------------ the text

QMimeData* CGridCtrl_X::CopyTextFromGrid()
{
    const CCellRange_X range = GetSelectedCellRange();
    if (!IsValid(range))
        return nullptr;
    const std::vector<int> columns = shownColumns(*this, range);
    QString text;
    bool isFirst = true;
    for (int row = range.m_nMinRow; row <= range.m_nMaxRow; ++row) {
        if (GetRowHeight(row) <= 0)
            continue;
        if (!isFirst)
            text += QLatin1Char('\n');
        isFirst = false;
        appendRow(text, *this, row, columns);
    }
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    return data.release();
}

int CGridCtrl_X::PasteTextToGrid(CCellID_X cell, const QMimeData* data)
{
    if (!IsValid(cell) || !IsCellEditable(cell) || !data || !data->hasText())
        return FALSE;
    const QPointer<CGridCtrl_X> living(this);
    const QString text = data->text();
    std::wstring line;
    int row = cell.row;
    for (int begin = 0, end = 0; begin < text.size(); begin = end + 1) {
        end = text.indexOf(QLatin1Char('\n'), begin);
        end = end < 0 ? text.size() : end;
        widen(line, end == begin ? QStringView(u" ") : QStringView(text).mid(begin, end - begin));
        while (GetRowHeight(row) == 0)
            ++row;
        if (!pasteLine(living, row, cell.col, line))
            return FALSE;
        ++row;
    }
    Invalidate(TRUE);
    return TRUE;
}

void CGridCtrl_X::CutSelectedText()
{
    if (!m_bEditable)
        return;
    const QPointer<CGridCtrl_X> living(this);
    for (const CCellID_X& id : xe::selectedCells(*this)) {
        if (!IsCellEditable(id) || !isShown(*this, id.row, id.col))
            continue;
        if (!changeCell(living, id.row, id.col, [](CGridCellBase_X& cell) { cell.SetText(L""); }))
            return;
    }
    Invalidate(TRUE);
}

// ------------------------------------------------------------------------------------------------------- the clipboard

void CGridCtrl_X::OnEditCopy()
{
    if (QMimeData* const data = CopyTextFromGrid())
        QGuiApplication::clipboard()->setMimeData(data);
}

void CGridCtrl_X::OnEditCut()
{
    if (!m_bEditable)
        return;
    const QPointer<CGridCtrl_X> living(this);
    QMimeData* const data = CopyTextFromGrid();
    if (!data)
        return;
    QGuiApplication::clipboard()->setMimeData(data);
    if (living)
        CutSelectedText();
}

void CGridCtrl_X::OnEditPaste()
{
    if (!m_bEditable)
        return;
    const CCellID_X cell = IsValid(m_idCurrentCell) ? m_idCurrentCell : GetTopleftNonFixedCell();
    if (const QMimeData* const data = QGuiApplication::clipboard()->mimeData())
        PasteTextToGrid(cell, data);
}

void CGridCtrl_X::OnUpdateEditCopy(CCmdUI_X* command) { enable(command, hasSelection(*this)); }

void CGridCtrl_X::OnUpdateEditCut(CCmdUI_X* command) { enable(command, m_bEditable && hasSelection(*this)); }

void CGridCtrl_X::OnUpdateEditPaste(CCmdUI_X* command)
{
    const auto hasText = [] {
        const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
        return data && data->hasText();
    };
    enable(command, IsValid(m_idCurrentCell) && IsCellEditable(m_idCurrentCell) && hasText());
}
