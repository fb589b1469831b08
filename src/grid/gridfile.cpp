// Grids in text files, and a grid that fills its window.

#include "XeGridCtrl.h"
#include "xeafxdc.h"
#include "xeafxfile.h"

#include <QPointer>

#include <string>
#include <string_view>
#include <vector>

namespace {

using Text = std::wstring_view;

constexpr unsigned longestPiece = 1024; // with the terminator

// The rows of a file: a line is cut into pieces of a limited length, each of them a row.
class Reader
{
public:
    explicit Reader(CStdioFile_X& file) : m_file(file) {}

    // The fields of the next piece; none at the end of the file.
    std::vector<std::wstring> next();

private:
    std::wstring piece();

    CStdioFile_X& m_file;
    bool m_isCut = false; // the last piece has filled the limit
};

std::wstring Reader::piece()
{
    wchar_t buffer[longestPiece];
    return m_file.ReadString(buffer, longestPiece);
}

std::vector<std::wstring> Reader::next()
{
    std::wstring line = piece();
    if (m_isCut && line == L"\n") // the end of the line that the piece before was cut from
        line = piece();
    std::vector<std::wstring> fields;
    if (line.empty())
        return fields;
    m_isCut = line.back() != L'\n';
    if (!m_isCut)
        line.pop_back();
    for (std::size_t begin = 0, end = 0; end != Text::npos; begin = end + 1) {
        end = line.find(L',', begin);
        fields.push_back(line.substr(begin, end - begin));
    }
    return fields;
}

bool readHeadings(const QPointer<CGridCtrl_X>& grid, Reader& reader)
{
    for (const std::wstring& field : reader.next()) {
        grid->InsertColumn(field.c_str(), DT_CENTER | DT_VCENTER | DT_SINGLELINE, -1);
        if (!grid)
            return false;
    }
    return true;
}

bool readRow(const QPointer<CGridCtrl_X>& grid, const std::vector<std::wstring>& fields)
{
    const int row = grid->InsertRow(fields.front().c_str(), -1);
    for (std::size_t col = 1; grid && row >= 0 && col < fields.size(); ++col)
        grid->SetItemText(row, static_cast<int>(col), fields[col].c_str());
    return grid && row >= 0;
}

// Nothing is painted, and no bar is placed, for each of the rows.
class DrawingPause
{
public:
    explicit DrawingPause(CGridCtrl_X& grid) : m_grid(&grid), m_before(grid.m_bAllowDraw) { grid.m_bAllowDraw = FALSE; }
    ~DrawingPause()
    {
        if (m_grid)
            m_grid->m_bAllowDraw = m_before;
    }
    Q_DISABLE_COPY_MOVE(DrawingPause)

private:
    const QPointer<CGridCtrl_X> m_grid;
    const int m_before;
};

void readAll(const QPointer<CGridCtrl_X>& grid, CStdioFile_X& file)
{
    const DrawingPause pause(*grid);
    Reader reader(file);
    grid->DeleteAllItems();
    bool goesOn = grid && readHeadings(grid, reader);
    while (goesOn) {
        const std::vector<std::wstring> fields = reader.next();
        goesOn = !fields.empty() && readRow(grid, fields);
    }
    if (grid)
        grid->AutoSizeColumns();
}

bool open(CStdioFile_X& file, const wchar_t* path, unsigned flags) { return path && file.Open(path, flags); }

void writeAll(const CGridCtrl_X& grid, CStdioFile_X& file)
{
    for (int row = 0; row < grid.m_nRows; ++row) {
        for (int col = 0; col < grid.m_nCols; ++col) {
            file.WriteString(grid.GetItemText(row, col));
            file.WriteString(col == grid.m_nCols - 1 ? L"\n" : L",");
        }
    }
}

} // namespace

int CGridCtrl_X::Save(const wchar_t* path)
{
    CStdioFile_X file;
    if (!open(file, path, CFile_X::modeCreate | CFile_X::modeWrite | CFile_X::typeText))
        return 0;
    try {
        writeAll(*this, file);
        file.Close();
    } catch (CException_X* error) {
        error->Delete();
    }
    return 1;
}

int CGridCtrl_X::Load(const wchar_t* path)
{
    CStdioFile_X file;
    if (!open(file, path, CFile_X::modeRead | CFile_X::typeText))
        return 0;
    const QPointer<CGridCtrl_X> living(this);
    endOpenEditor();
    if (living)
        readAll(living, file);
    if (living) {
        ResetScrollBars();
        Refresh();
    }
    return 1;
}

void CGridCtrl_X::AutoFill()
{
    if (!GetSafeHwnd())
        return;
    const QPointer<CGridCtrl_X> living(this);
    CRect client;
    GetClientRect(&client);
    const auto count = [](int room, int size) { return qMax(0, room) / qMax(1, size) + 1; };
    SetColumnCount(count(client.Width(), m_nDefCellWidth));
    if (living)
        SetRowCount(count(client.Height(), m_nDefCellHeight));
    if (living)
        SetFixedRowCount(1);
    if (living)
        SetFixedColumnCount(1);
    if (living)
        ExpandToFit();
}
