// A grid that loads files and gets texts pasted of any bytes: what it shows agrees with a plain reading, and it can be
// saved and loaded again.

#include <XeMFCEmu.h>

#include "scratchfile.h"

#include <QApplication>
#include <QMimeData>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

std::vector<CString_X> textsOf(const CGridCtrl_X& grid)
{
    std::vector<CString_X> texts;
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        for (int col = 0; col < grid.GetColumnCount(); ++col)
            texts.push_back(grid.GetItemText(row, col));
    }
    return texts;
}

// Whether a file's bytes come back as the same elements: no line is cut, and none ends early.
bool isPlain(const std::string& content)
{
    const auto isSimple = [](char byte) { return byte == '\n' || (byte >= ' ' && byte < 127); };
    return std::all_of(content.begin(), content.end(), isSimple) && content.size() < 1000;
}

void load(const ScratchFile& file, const std::string& content)
{
    file.fill(content);
    CGridCtrl_X grid(3, 3, 1, 1);
    check(grid.Load(file.name()), "a file is loaded");
    check(content.empty() == (grid.GetRowCount() == 0) || !isPlain(content), "a file with lines gives rows");
    const std::vector<CString_X> texts = textsOf(grid);
    check(grid.Save(file.name()), "a grid is saved");
    CGridCtrl_X again;
    check(again.Load(file.name()), "what was saved is loaded");
    if (isPlain(content))
        check(textsOf(again) == texts && again.GetColumnCount() == grid.GetColumnCount(), "it is the same grid");
}

void paste(const std::string& content, unsigned choice)
{
    CGridCtrl_X grid(4, 4, 1, 1);
    grid.SetColumnWidth(2, choice & 1 ? 0 : 30);
    grid.SetRowHeight(2, choice & 2 ? 0 : 20);
    const CCellID_X start(static_cast<int>(choice >> 2 & 3), static_cast<int>(choice >> 4 & 3));
    QMimeData data;
    data.setText(QString::fromUtf8(content.data(), static_cast<int>(content.size())));
    check(grid.PasteTextToGrid(start, &data) == data.hasText(), "a text is pasted");
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            const bool isHidden = grid.GetColumnWidth(col) == 0 || grid.GetRowHeight(row) == 0;
            const bool isBefore = row < start.row || col < start.col;
            const CString_X text = grid.GetItemText(row, col);
            check(text.IsEmpty() || !(isHidden || isBefore), "only cells that are shown and behind the start change");
            check(text.FindOneOf(L"\t,\n") == -1, "no separator stays");
        }
    }
    grid.SelectAllCells();
    const std::unique_ptr<QMimeData> copy(grid.CopyTextFromGrid());
    check(copy && copy->text().count(QLatin1Char('\t')) == (choice & 1 ? 1 : 2) * (choice & 2 ? 2 : 3),
          "a copy has a tab between the columns that are shown");
    for (const int ascending : {TRUE, FALSE})
        check(grid.SortTextItems(1, ascending), "the rows are sorted");
}

} // namespace

// The first byte chooses where a text is pasted; the rest is the text, and a file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int argc = 0;
    static const auto* const application = new QApplication(argc, nullptr); // Qt's own statics go before ours
    Q_UNUSED(application)
    static const ScratchFile file;
    if (size == 0)
        return 0;
    const std::string content(reinterpret_cast<const char*>(data + 1), size - 1);
    load(file, content);
    paste(content, data[0]);
    return 0;
}
