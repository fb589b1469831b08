// What a window's life and a dialog's data exchange cost beside the same in plain Qt.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QSpinBox>

namespace {

// -------------------------------------------------------------------------------------------------- a window's life

class PassingFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

void deleteLaterObjects() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

void liveAsWindow(benchmark::State& state)
{
    for (auto _ : state) {
        CWnd_X window;
        window.Create(WS_VISIBLE, static_cast<QWidget*>(nullptr));
        window.DestroyWindow();
        deleteLaterObjects();
    }
}

void liveAsWidget(benchmark::State& state)
{
    for (auto _ : state) {
        PassingFilter filter;
        auto* const widget = new QWidget;
        widget->setAttribute(Qt::WA_Hover);
        widget->setMouseTracking(true);
        widget->installEventFilter(&filter);
        auto* const menuBar = new QMenuBar(widget);
        menuBar->hide();
        widget->show();
        if (!widget->isActiveWindow())
            QCoreApplication::processEvents();
        widget->hide();
        widget->deleteLater();
        deleteLaterObjects();
    }
}

// ------------------------------------------------------------------------------------------------------ data exchange

constexpr int rows = 10; // of three controls
constexpr int firstId = 1000;

// How the controls are found. Written by hand there is nothing to translate in an id.
enum Way : long long { ByControl, ByName, ById };

struct Values
{
    CString_X text[rows];
    int number[rows] = {};
    int check[rows] = {};
};

class Form : public QDialog
{
public:
    Form()
    {
        for (int i = 0; i < rows; ++i) {
            text[i] = named(new QLineEdit(this), "text", i);
            number[i] = named(new QLineEdit(this), "number", i);
            check[i] = named(new QCheckBox(this), "check", i);
        }
    }

    QLineEdit* text[rows];
    QLineEdit* number[rows];
    QCheckBox* check[rows];

private:
    template <class Widget>
    Widget* named(Widget* widget, const char* kind, int i)
    {
        widget->setObjectName(QString::fromLatin1(kind) + QString::number(i));
        return widget;
    }
};

class Dialog : public CDialog_X
{
public:
    bool AttachDefault(QWidget*) override
    {
        form = new Form;
        return Attach(form, nullptr, false);
    }

    void DoDataExchange(CDataExchange_X* exchange) override
    {
        for (int i = 0; i < rows; ++i) {
            if (way == ById) {
                DDX_Text(exchange, firstId + 3 * i, values.text[i]);
                DDX_Text(exchange, firstId + 3 * i + 1, values.number[i]);
                DDX_Check(exchange, firstId + 3 * i + 2, values.check[i]);
            } else if (way == ByName) {
                DDX_Text(exchange, textNames[i].constData(), values.text[i]);
                DDX_Text(exchange, numberNames[i].constData(), values.number[i]);
                DDX_Check(exchange, checkNames[i].constData(), values.check[i]);
            } else {
                DDX_Text(exchange, form->text[i], values.text[i]);
                DDX_Text(exchange, form->number[i], values.number[i]);
                DDX_Check(exchange, form->check[i], values.check[i]);
            }
        }
    }

    static QVector<QByteArray> names(const char* kind)
    {
        QVector<QByteArray> names;
        for (int i = 0; i < rows; ++i)
            names.append(kind + QByteArray::number(i));
        return names;
    }

    Form* form = nullptr;
    Values values;
    long long way = ByControl;
    const QVector<QByteArray> textNames = names("text");
    const QVector<QByteArray> numberNames = names("number");
    const QVector<QByteArray> checkNames = names("check");
};

void exchangeByDialog(benchmark::State& state)
{
    Dialog dialog;
    dialog.way = state.range(0);
    for (int i = 0; i < rows; ++i) {
        GetResourceIDMap()[firstId + 3 * i] = dialog.textNames[i];
        GetResourceIDMap()[firstId + 3 * i + 1] = dialog.numberNames[i];
        GetResourceIDMap()[firstId + 3 * i + 2] = dialog.checkNames[i];
    }
    dialog.CWnd_X::Create(static_cast<QWidget*>(nullptr));
    int round = 0;
    for (auto _ : state) {
        dialog.values.number[0] = ++round;
        if (!dialog.UpdateData(FALSE) || !dialog.UpdateData(TRUE))
            state.SkipWithError("the exchange failed");
    }
    dialog.DestroyWindow();
    deleteLaterObjects();
}

template <class Widget>
Widget* control(const QWidget& form, Widget* known, const QByteArray& name, bool byName)
{
    return byName ? form.findChild<Widget*>(QString::fromUtf8(name)) : known;
}

void load(QLineEdit* edit, const QString& text)
{
    if (edit->text() != text) {
        edit->setText(text);
        edit->setCursorPosition(0);
    }
}

void exchangeByHand(benchmark::State& state)
{
    Form form;
    Values values;
    const bool byName = state.range(0) != ByControl;
    const auto textNames = Dialog::names("text");
    const auto numberNames = Dialog::names("number");
    const auto checkNames = Dialog::names("check");
    int round = 0;
    for (auto _ : state) {
        values.number[0] = ++round;
        for (int i = 0; i < rows; ++i) {
            load(control(form, form.text[i], textNames[i], byName), XeQString(values.text[i]));
            load(control(form, form.number[i], numberNames[i], byName), QString::number(values.number[i]));
            control(form, form.check[i], checkNames[i], byName)->setChecked(values.check[i] != 0);
        }
        for (int i = 0; i < rows; ++i) {
            values.text[i] = control(form, form.text[i], textNames[i], byName)->text();
            bool ok = false;
            values.number[i] = control(form, form.number[i], numberNames[i], byName)->text().toInt(&ok);
            values.check[i] = control(form, form.check[i], checkNames[i], byName)->isChecked();
            if (!ok)
                state.SkipWithError("the exchange failed");
        }
    }
}

} // namespace

BENCHMARK(liveAsWindow)->Name("window_life/ours");
BENCHMARK(liveAsWidget)->Name("window_life/peer:QWidget with filter and menu bar");
BENCHMARK(exchangeByDialog)->Name("data_exchange/ours")->Arg(ByControl)->Arg(ByName)->Arg(ById);
BENCHMARK(exchangeByHand)->Name("data_exchange/peer:by hand")->Arg(ByControl)->Arg(ByName)->Arg(ById);
