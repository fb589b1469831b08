// What the bars cost beside the same in plain Qt.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QBitmap>
#include <QLabel>
#include <QTemporaryDir>

namespace {

// -------------------------------------------------------------------------------------------------- texts of panes

constexpr int panes = 4;

const wchar_t* const texts[] = {L"1,234 parts 零件", L"12 short 缺货"};

void deleteLaterObjects() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

void settle()
{
    deleteLaterObjects();
    QCoreApplication::processEvents();
}

void replacePanes(benchmark::State& state)
{
    QWidget parent;
    parent.resize(10000, 100);
    CStatusBar_X bar;
    bar.Create(&parent);
    for (int pane = 0; pane < panes; ++pane)
        bar.SetPaneText(pane, texts[0]);
    bar.setGeometry({0, 0, 10000, 30});
    parent.show();
    settle();
    for (auto _ : state) {
        for (int i = 0; i < panes; ++i)
            bar.SetPaneText(i, texts[i % 2]);
        settle();
    }
    if (bar.m_mapPanes.size() != panes)
        state.SkipWithError("not as many panes as before");
}

void replaceLabels(benchmark::State& state)
{
    QWidget parent;
    parent.resize(10000, 100);
    QStatusBar bar(&parent);
    bar.setSizeGripEnabled(false);
    QLabel* labels[panes] = {};
    for (QLabel*& label : labels) {
        label = new QLabel(QString::fromWCharArray(texts[0]), &bar);
        bar.addWidget(label);
    }
    bar.setGeometry({0, 0, 10000, 30});
    parent.show();
    settle();
    for (auto _ : state) {
        for (int i = 0; i < panes; ++i) {
            const int width = labels[i]->width() + (bar.width() > 4 * labels[i]->width());
            bar.removeWidget(labels[i]);
            labels[i]->deleteLater();
            labels[i] = new QLabel(QString::fromWCharArray(texts[i % 2]), &bar);
            labels[i]->setFixedWidth(width);
            bar.insertWidget(i, labels[i]);
        }
        settle();
    }
}

// Without a new label for each text: there is no limit for that.
void setLabelTexts(benchmark::State& state)
{
    QWidget parent;
    parent.resize(10000, 100);
    QStatusBar bar(&parent);
    QLabel* labels[panes] = {};
    for (QLabel*& label : labels) {
        label = new QLabel(&bar);
        bar.addWidget(label);
    }
    bar.setGeometry({0, 0, 10000, 30});
    parent.show();
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < panes; ++i)
            labels[i]->setText(QString::fromWCharArray(texts[(i + round) % 2]));
        settle();
    }
}

// -------------------------------------------------------------------------------------------- a strip of pictures

constexpr int slices = 40;
constexpr QSize sliceSize(16, 15);

// A picture of light grey with something on it, and a tool bar with as many buttons as slices.
struct Strip
{
    Strip()
    {
        QImage picture(slices * sliceSize.width(), sliceSize.height(), QImage::Format_RGB32);
        picture.fill(QColor(192, 192, 192));
        for (int x = 0; x < picture.width(); x += 3)
            picture.setPixelColor(x, x % sliceSize.height(), Qt::darkBlue);
        path = folder.filePath(QStringLiteral("strip.png"));
        picture.save(path);
        bar.Create(&parent, WS_CHILD);
        for (int i = 0; i < slices; ++i)
            bar.Imp<QToolBar>()->addAction(QStringLiteral("button"));
    }

    QTemporaryDir folder;
    QString path;
    QWidget parent;
    CToolBar_X bar;
};

void loadStrip(benchmark::State& state)
{
    Strip strip;
    const CString_X path(strip.path);
    for (auto _ : state) {
        if (!strip.bar.LoadBitmap(path))
            state.SkipWithError("not loaded");
    }
}

void maskEachSlice(benchmark::State& state)
{
    Strip strip;
    for (auto _ : state) {
        const QPixmap picture(strip.path);
        const QList<QAction*> actions = strip.bar.Imp<QToolBar>()->actions();
        for (int i = 0; i < slices; ++i) {
            QPixmap slice = picture.copy(i * sliceSize.width(), 0, sliceSize.width(), sliceSize.height());
            slice.setMask(slice.createMaskFromColor(QColor(192, 192, 192), Qt::MaskInColor));
            actions[i]->setIcon(slice);
        }
    }
}

} // namespace

BENCHMARK(replacePanes)->Name("pane_text/ours");
BENCHMARK(replaceLabels)->Name("pane_text/peer:QStatusBar");
BENCHMARK(replacePanes)->Name("pane_text_kept_label/ours");
BENCHMARK(setLabelTexts)->Name("pane_text_kept_label/peer:QLabel");
BENCHMARK(loadStrip)->Name("toolbar_strip/ours");
BENCHMARK(maskEachSlice)->Name("toolbar_strip/peer:slice by slice");
