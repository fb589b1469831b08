// What a file dialog costs beside a plain QFileDialog, and a walk over what was selected beside a loop over the list.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMenuBar>
#include <QPushButton>

namespace {

// ----------------------------------------------------------------------------------------------------------- a dialog

class PassingFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

void deleteLaterObjects() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

// Attached, set up, and destroyed without being shown.
void liveAsWrapper(benchmark::State& state)
{
    for (auto _ : state) {
        CFileDialog_X dialog(TRUE, L"csv", L"parts.csv", OFN_ALLOWMULTISELECT,
                             L"CSV (*.csv)|*.csv|All files (*.*)|*.*||");
        if (!dialog.CWnd_X::Create(static_cast<QWidget*>(nullptr)))
            state.SkipWithError("there is no dialog");
        dialog.DestroyWindow();
        deleteLaterObjects();
    }
}

void liveAsFileDialog(benchmark::State& state)
{
    for (auto _ : state) {
        PassingFilter filter;
        auto* const dialog = new QFileDialog;
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->installEventFilter(&filter);
        auto* const menuBar = new QMenuBar(dialog);
        menuBar->hide();
        dialog->setLabelText(QFileDialog::FileType, QStringLiteral("文件类型(T):"));
        dialog->setNameFilters({QStringLiteral("CSV (*.csv)"), QStringLiteral("All files (*)")});
        dialog->setFileMode(QFileDialog::ExistingFiles);
        dialog->setAcceptMode(QFileDialog::AcceptOpen);
        dialog->setDefaultSuffix(QStringLiteral("csv"));
        dialog->selectFile(QStringLiteral("parts.csv"));
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("取消"));
        dialog->hide();
        dialog->deleteLater();
        deleteLaterObjects();
    }
}

// ------------------------------------------------------------------------------------------------------------- a walk

QStringList names()
{
    QStringList names;
    for (int i = 0; i < 10000; ++i)
        names += QStringLiteral("/home/engineer/projects/gear box/零件/part %1.csv").arg(i);
    return names;
}

int elements(const QStringList& names)
{
    int count = 0;
    for (const QString& name : names)
        count += name.size();
    return count;
}

void walkByPosition(benchmark::State& state)
{
    CFileDialog_X dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT);
    dialog.setProperty("selectedFiles", names());
    const int expected = elements(names());
    for (auto _ : state) {
        int count = 0;
        for (POSITION position = dialog.GetStartPosition(); position;)
            count += dialog.GetNextPathName(position).GetLength();
        if (count != expected)
            state.SkipWithError("a name is missing");
    }
}

void walkByLoop(benchmark::State& state)
{
    const QStringList list = names();
    const int expected = elements(list);
    for (auto _ : state) {
        int count = 0;
        for (const QString& name : list)
            count += CString_X(name).GetLength();
        if (count != expected)
            state.SkipWithError("a name is missing");
    }
}

} // namespace

BENCHMARK(liveAsWrapper)->Name("file_dialog/ours");
BENCHMARK(liveAsFileDialog)->Name("file_dialog/peer:QFileDialog with the same calls");
BENCHMARK(walkByPosition)->Name("selection_walk/ours");
BENCHMARK(walkByLoop)->Name("selection_walk/peer:loop over the list");
