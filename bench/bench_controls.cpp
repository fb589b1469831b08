// What the wrappers of controls cost beside plain Qt: wrapping a form, typing, filling and searching a combo box, and a
// dialog from nothing to shown.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <array>
#include <memory>
#include <vector>

namespace {

constexpr int controlCount = 30;
constexpr int kinds = 6;

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

class PassingFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

// -------------------------------------------------------------------------------------------------------------- a form

QWidget* makeControl(int i, QWidget* parent)
{
    switch (i % kinds) {
    case 0:
        return new QLineEdit(parent);
    case 1:
        return new QLabel(parent);
    case 2:
        return new QCheckBox(parent);
    case 3:
        return new QComboBox(parent);
    case 4:
        return new QPushButton(parent);
    default:
        return new QListWidget(parent);
    }
}

std::unique_ptr<CWnd_X> makeWrapper(int i)
{
    switch (i % kinds) {
    case 0:
        return std::make_unique<CEdit_X>();
    case 1:
        return std::make_unique<CStatic_X>();
    case 3:
        return std::make_unique<CComboBox_X>();
    case 5:
        return std::make_unique<CListBox_X>();
    default:
        return std::make_unique<CButton_X>();
    }
}

using Names = std::array<QByteArray, controlCount>;

const Names& controlNames()
{
    static const Names names = [] {
        Names made;
        for (int i = 0; i < controlCount; ++i)
            made[i] = "control" + QByteArray::number(i);
        return made;
    }();
    return names;
}

void fillForm(QWidget& form)
{
    for (int i = 0; i < controlCount; ++i) {
        QWidget* const control = makeControl(i, &form);
        control->setObjectName(QString::fromLatin1(controlNames()[i]));
        control->setGeometry(10 + i % 5 * 100, 10 + i / 5 * 30, 90, 25);
    }
}

// What a wrapper needs of Qt at the least.
class TiedFilter : public PassingFilter
{
public:
    void tieTo(QWidget& widget)
    {
        widget.installEventFilter(this);
        widget.setProperty("owner", static_cast<qlonglong>(reinterpret_cast<qintptr>(this)));
        widget.setProperty("parent", static_cast<qlonglong>(0));
        connect(&widget, &QObject::destroyed, this, [] {});
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [] {});
    }

    void leave(QWidget& widget)
    {
        disconnect(&widget, nullptr, this, nullptr);
        widget.removeEventFilter(this);
        widget.setProperty("owner", QVariant());
        widget.setProperty("parent", QVariant());
    }
};

void wrapForm(benchmark::State& state)
{
    QDialog form;
    fillForm(form);
    CWnd_X dialog;
    dialog.SubclassWindow(&form);
    const Names& names = controlNames();
    for (auto _ : state) {
        for (int i = 0; i < controlCount; ++i) {
            const std::unique_ptr<CWnd_X> control = makeWrapper(i);
            if (!control->SubclassDlgItem(names[i], &dialog))
                state.SkipWithError("a control was not wrapped");
            control->Detach();
        }
    }
}

void tieForm(benchmark::State& state)
{
    QDialog form;
    fillForm(form);
    const Names& names = controlNames();
    for (auto _ : state) {
        for (int i = 0; i < controlCount; ++i) {
            const auto filter = std::make_unique<TiedFilter>();
            auto* const control = form.findChild<QWidget*>(QString::fromUtf8(names[i]));
            filter->tieTo(*control);
            filter->leave(*control);
        }
    }
}

// -------------------------------------------------------------------------------------------------------------- typing

constexpr int keys = 1000;

void type(benchmark::State& state, QLineEdit& line)
{
    for (auto _ : state) {
        line.clear();
        for (int i = 0; i < keys; ++i) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
            QCoreApplication::sendEvent(&line, &press);
        }
        QCoreApplication::sendPostedEvents();
        if (line.text().size() != keys)
            state.SkipWithError("keys are missing");
    }
}

void typeIntoControl(benchmark::State& state)
{
    QLineEdit line;
    CEdit_X edit;
    edit.SubclassWindow(&line);
    type(state, line);
}

void typeIntoFiltered(benchmark::State& state)
{
    QLineEdit line;
    PassingFilter filter;
    line.installEventFilter(&filter);
    type(state, line);
}

// ------------------------------------------------------------------------------------------------------- a combo box

constexpr int itemCount = 5000;

std::vector<CString_X> itemTexts()
{
    std::vector<CString_X> texts;
    for (int i = 0; i < itemCount; ++i)
        texts.emplace_back(QStringLiteral("part number %1").arg(i));
    return texts;
}

void fillByControl(benchmark::State& state)
{
    const std::vector<CString_X> texts = itemTexts();
    for (auto _ : state) {
        QComboBox box;
        CComboBox_X combo;
        combo.SubclassWindow(&box);
        for (const CString_X& text : texts)
            combo.AddString(text);
        if (combo.GetCount() != itemCount)
            state.SkipWithError("items are missing");
    }
}

void fillByQt(benchmark::State& state)
{
    const std::vector<CString_X> texts = itemTexts();
    for (auto _ : state) {
        QComboBox box;
        for (const CString_X& text : texts) {
            const QSignalBlocker blocker(box);
            box.addItem(XeQString(text));
        }
        if (box.count() != itemCount)
            state.SkipWithError("items are missing");
    }
}

struct FullBox
{
    FullBox()
    {
        for (const CString_X& text : itemTexts())
            box.addItem(XeQString(text));
    }

    QComboBox box;
};

constexpr const wchar_t* wanted = L"PART NUMBER 4999";

void findByControl(benchmark::State& state)
{
    FullBox full;
    CComboBox_X combo;
    combo.SubclassWindow(&full.box);
    for (auto _ : state) {
        if (combo.FindString(-1, wanted) != itemCount - 1)
            state.SkipWithError("not found");
    }
}

void findByQt(benchmark::State& state)
{
    const FullBox full;
    for (auto _ : state) {
        if (full.box.findText(XeQString(wanted), Qt::MatchStartsWith) != itemCount - 1)
            state.SkipWithError("not found");
    }
}

// ------------------------------------------------------------------------------------------------------------ a dialog

class ControlDialog : public CDialog_X
{
public:
    ControlDialog()
    {
        for (int i = 0; i < controlCount; ++i)
            controls[i] = makeWrapper(i);
    }

    void SetupUI() override { fillForm(*GetSafeHwnd()); }

    void DoDataExchange(CDataExchange_X* exchange) override
    {
        for (int i = 0; i < controlCount; ++i)
            DDX_Control(exchange, controlNames()[i].constData(), *controls[i]);
    }

    std::array<std::unique_ptr<CWnd_X>, controlCount> controls;
};

std::unique_ptr<ControlDialog> openedControls()
{
    auto dialog = std::make_unique<ControlDialog>();
    dialog->CWnd_X::Create(static_cast<QWidget*>(nullptr));
    dialog->ShowWindow(SW_SHOW);
    return dialog;
}

void end(std::unique_ptr<ControlDialog> dialog) { dialog->DestroyWindow(); }

std::unique_ptr<QDialog> openedWidgets()
{
    auto dialog = std::make_unique<QDialog>();
    fillForm(*dialog);
    dialog->show();
    return dialog;
}

void end(std::unique_ptr<QDialog> dialog) { dialog->hide(); }

// What follows the dialog's coming up is not measured.
template <class Open>
void openDialog(benchmark::State& state, Open open)
{
    for (auto _ : state) {
        auto dialog = open();
        QCoreApplication::processEvents();
        state.PauseTiming();
        end(std::move(dialog));
        settle();
        state.ResumeTiming();
    }
}

void openControlDialog(benchmark::State& state) { openDialog(state, openedControls); }

void openPlainDialog(benchmark::State& state) { openDialog(state, openedWidgets); }

} // namespace

BENCHMARK(wrapForm)->Name("wrap_form/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(tieForm)->Name("wrap_form/peer:filter, properties, connections")->Unit(benchmark::kMicrosecond);
BENCHMARK(typeIntoControl)->Name("typing/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(typeIntoFiltered)->Name("typing/peer:event filter")->Unit(benchmark::kMicrosecond);
BENCHMARK(fillByControl)->Name("combo_fill/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(fillByQt)->Name("combo_fill/peer:addItem under a blocker")->Unit(benchmark::kMicrosecond);
BENCHMARK(findByControl)->Name("combo_find/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(findByQt)->Name("combo_find/peer:findText")->Unit(benchmark::kMicrosecond);
BENCHMARK(openControlDialog)->Name("control_dialog/ours")->Unit(benchmark::kMicrosecond);
BENCHMARK(openPlainDialog)->Name("control_dialog/peer:QDialog")->Unit(benchmark::kMicrosecond);
