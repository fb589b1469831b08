// Modal dialogs: what ends them, with which result, and what is left afterwards.

#include "boxwatch.h"
#include "scriptdialog.h"
#include "testclass.h"

#include <leavenothing.h>
#include <messagetrace.h>
#include <modaldriver.h>

#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace {

using DialogDriver = ModalDriver<QDialog>;

// One with a smallest size, which drivers of modal loops count on.
class ModalDialog : public ScriptDialog
{
public:
    using ScriptDialog::ScriptDialog;

    void SetupUI() override
    {
        new QVBoxLayout(Imp<QDialog>());
        ScriptDialog::SetupUI();
    }
};

using Act = std::function<void(ModalDialog&, QDialog&)>;

constexpr auto upToLoop = "OnCreate SetupUI OnInitDialog ConnectSlotsFrom OnMessageMap";

// A number in an edit, with the buttons that end the dialog.
struct NumberForm
{
    QPointer<QLineEdit> edit;
    QPointer<QPushButton> ok;
    int number = 0;

    void install(ModalDialog& dialog)
    {
        dialog.form = [this](QDialog* parent) {
            edit = new QLineEdit(parent);
            ok = new QPushButton(parent);
            ok->setObjectName(QStringLiteral("OK"));
        };
        dialog.exchange = [this](CDataExchange_X* exchange) { DDX_Text(exchange, edit, number); };
    }
};

class EventWatch : public QObject
{
public:
    QVector<QEvent::Type> types;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        types += event->type();
        return false;
    }
};

class SelfDeletingDialog : public ModalDialog
{
public:
    void PostNcDestroy() override { delete this; }
};

} // namespace
Q_DECLARE_METATYPE(Act)

class tst_DialogModal : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void result_data();
    void result();
    void lifeOfADialog();
    void escapeComesBeforeTheMessageMap();
    void eachRunHasADialogOfItsOwn();
    void parent_data();
    void parent();
    void parentThatIsGone();

    void refusedAttachment_data();
    void refusedAttachment();
    void attachmentWithoutAWidget();
    void endedByOnInitDialog_data();
    void endedByOnInitDialog();
    void runsAgainAfterAnEndInOnInitDialog();
    void failedLoadEndsTheDialogWithMinusOne();

    void cursorIsTheArrowMeanwhile();
    void cursorIsLeftWithoutALoop();

    void failingExchangeKeepsTheDialogOpen();
    void okTwiceShowsOneBox();

    void widgetGoesWhileTheLoopRuns();
    void parentGoesWhileTheLoopRuns();
    void wrapperGoesInItsOwnHandler();
    void wrapperDeletesItselfInTheEnd();
};

// ------------------------------------------------------------------------------------------------------------- results

void tst_DialogModal::result_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("asked");
    const auto row = [](const char* name, Act act, int result, const char* asked = "") {
        QTest::newRow(name) << act << result << QString::fromLatin1(asked);
    };
    const auto end = [](int result) { return [result](ModalDialog& dialog, QDialog&) { dialog.EndDialog(result); }; };
    row(
        "accept() asks OnOK", [](ModalDialog& dialog, QDialog&) { dialog.accept(); }, 1, "OnOK");
    row(
        "reject() asks OnCancel", [](ModalDialog& dialog, QDialog&) { dialog.reject(); }, 2, "OnCancel");
    row("EndDialog(IDOK)", end(IDOK), 1);
    row("EndDialog(IDCANCEL)", end(IDCANCEL), 2);
    row("EndDialog(3)", end(3), 3);
    row("EndDialog(5)", end(5), 5);
    row("EndDialog(0) counts as cancelled", end(0), 2);
    row("EndDialog(-1)", end(-1), -1);
    row(
        "accept() of the QDialog", [](ModalDialog&, QDialog& widget) { widget.accept(); }, 1);
    row(
        "reject() of the QDialog", [](ModalDialog&, QDialog& widget) { widget.reject(); }, 2);
    row(
        "done(7) of the QDialog", [](ModalDialog&, QDialog& widget) { widget.done(7); }, 7);
    row(
        "close button", [](ModalDialog&, QDialog& widget) { widget.close(); }, 2);
    row(
        "Esc", [](ModalDialog&, QDialog& widget) { QTest::keyClick(&widget, Qt::Key_Escape); }, 2, "OnCancel");
    row(
        "Esc in an edit",
        [](ModalDialog&, QDialog& widget) { QTest::keyClick(new QLineEdit(&widget), Qt::Key_Escape); }, 2, "OnCancel");
}

void tst_DialogModal::result()
{
    QFETCH(Act, act);
    ModalDialog dialog;
    bool shown = false;
    const DialogDriver driver([&](QDialog* widget) {
        shown = widget->isVisible() && widget == dialog.GetSafeHwnd();
        dialog.steps.clear();
        act(dialog, *widget);
        dialog.steps.removeOne(QStringLiteral("DestroyWindow"));
    });
    QTEST(dialog.DoModal(), "result");
    QVERIFY(shown);
    QFETCH(const QString, asked);
    QCOMPARE(dialog.takeSteps(), QStringLiteral("%1 DestroyWindow PostNcDestroy").arg(asked).trimmed());
    QVERIFY(!dialog.GetSafeHwnd());
}

void tst_DialogModal::lifeOfADialog()
{
    ModalDialog dialog;
    QPointer<QWidget> imp;
    const DialogDriver driver([&](QDialog* widget) {
        imp = widget;
        dialog.steps += QStringLiteral("loop");
        dialog.EndDialog(IDOK);
    });
    QCOMPARE(dialog.DoModal(), IDOK);
    QCOMPARE(dialog.takeSteps(), QLatin1String(upToLoop) + QStringLiteral(" loop DestroyWindow PostNcDestroy"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!imp);
}

void tst_DialogModal::escapeComesBeforeTheMessageMap()
{
    Traced<ModalDialog> dialog;
    QString told;
    const DialogDriver driver([&](QDialog* widget) {
        dialog.trace.clear();
        QTest::keyPress(widget, Qt::Key_A);
        told = dialog.trace.take();
        QTest::keyPress(widget, Qt::Key_Escape);
        told += QLatin1Char('|') + dialog.trace.take();
    });
    QCOMPARE(dialog.DoModal(), IDCANCEL);
    QVERIFY2(told.startsWith(QStringLiteral("WM_KEYDOWN")), qPrintable(told));
    QVERIFY2(!told.section(QLatin1Char('|'), 1).contains(QStringLiteral("WM_KEYDOWN")), qPrintable(told));
}

void tst_DialogModal::eachRunHasADialogOfItsOwn()
{
    NumberForm form;
    ModalDialog dialog;
    form.install(dialog);
    form.number = 1;
    QVector<QPointer<QDialog>> widgets;
    for (int round = 0; round < 2; ++round) {
        const DialogDriver driver([&](QDialog* widget) {
            widgets += widget;
            form.edit->setText(form.edit->text() + QStringLiteral("0"));
            dialog.accept();
        });
        QCOMPARE(dialog.DoModal(), IDOK);
    }
    QCOMPARE(form.number, 100);
    QVERIFY(widgets[0] != widgets[1]);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!widgets[0] && !widgets[1]);
}

void tst_DialogModal::parent_data()
{
    QTest::addColumn<int>("form");
    QTest::newRow("a widget") << 0;
    QTest::newRow("a window and a name") << 1;
    QTest::newRow("a window and an id") << 2;
    QTest::newRow("the main frame for null") << 3;
    QTest::newRow("the main frame for a window without a widget") << 4;
}

void tst_DialogModal::parent()
{
    QFETCH(int, form);
    QWidget frame;
    frame.setObjectName(QStringLiteral("CTavoMainFrame"));
    QWidget other;
    CWnd_X window;
    CWnd_X empty;
    QVERIFY(window.SubclassWindow(&other));
    std::unique_ptr<ModalDialog> dialogs[] = {
        std::make_unique<ModalDialog>(&other), std::make_unique<ModalDialog>(L"IDD_PART", &window),
        std::make_unique<ModalDialog>(100u, &window), std::make_unique<ModalDialog>(nullptr),
        std::make_unique<ModalDialog>(L"IDD_PART", &empty)};
    ModalDialog& dialog = *dialogs[form];
    QWidget* parent = nullptr;
    const DialogDriver driver([&](QDialog* widget) {
        parent = widget->parentWidget();
        dialog.EndDialog(IDOK);
    });
    QCOMPARE(dialog.DoModal(), IDOK);
    QCOMPARE(parent, form < 3 ? &other : &frame);
}

void tst_DialogModal::parentThatIsGone()
{
    auto* parent = new QWidget;
    ModalDialog dialog(parent);
    delete parent;
    const DialogDriver driver([&](QDialog*) { dialog.EndDialog(5); });
    QCOMPARE(dialog.DoModal(), 5);
}

// ------------------------------------------------------------------------------------------------- without a loop

void tst_DialogModal::refusedAttachment_data()
{
    QTest::addColumn<int>("createResult");
    QTest::addColumn<bool>("started");
    QTest::addColumn<QString>("steps");
    QTest::newRow("OnCreate gives -1") << -1 << true << QStringLiteral("OnCreate SetupUI");
    QTest::newRow("OnCreate gives 1") << 1 << true << QStringLiteral("OnCreate SetupUI");
    QTest::newRow("OnInitDialog gives 0") << 0 << false << QStringLiteral("OnCreate SetupUI OnInitDialog");
}

// Were the loop entered, it would not end.
void tst_DialogModal::refusedAttachment()
{
    QFETCH(bool, started);
    ModalDialog dialog;
    QPointer<QDialog> imp;
    dialog.form = [&imp](QDialog* widget) { imp = widget; };
    dialog.start = [started] { return started; };
    QFETCH(const int, createResult);
    dialog.createResult = createResult;
    QCOMPARE(dialog.DoModal(), 3);
    QTEST(dialog.takeSteps(), "steps");
    QVERIFY(!dialog.GetSafeHwnd());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!imp);
}

void tst_DialogModal::attachmentWithoutAWidget()
{
    class HollowDialog : public CDialog_X
    {
    public:
        bool AttachDefault(QWidget*) override { return true; }
    } dialog;
    QCOMPARE(dialog.DoModal(), 3);
}

void tst_DialogModal::endedByOnInitDialog_data()
{
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("goesOn");
    QTest::addColumn<int>("result");
    QTest::newRow("IDOK") << IDOK << TRUE << 1;
    QTest::newRow("IDCANCEL") << IDCANCEL << TRUE << 2;
    QTest::newRow("0") << 0 << TRUE << 2;
    QTest::newRow("5") << 5 << TRUE << 5;
    QTest::newRow("-1") << -1 << TRUE << -1;
    QTest::newRow("a refusal outweighs it") << 5 << FALSE << 3;
}

void tst_DialogModal::endedByOnInitDialog()
{
    QFETCH(int, end);
    QFETCH(int, goesOn);
    ModalDialog dialog;
    EventWatch watch;
    dialog.form = [&watch](QDialog* widget) { widget->installEventFilter(&watch); };
    dialog.start = [&] {
        dialog.EndDialog(end);
        return goesOn;
    };
    QTEST(dialog.DoModal(), "result");
    QVERIFY(!watch.types.contains(QEvent::Show));
    QVERIFY(!dialog.GetSafeHwnd());
}

void tst_DialogModal::runsAgainAfterAnEndInOnInitDialog()
{
    ModalDialog dialog;
    dialog.start = [&dialog] {
        dialog.EndDialog(5);
        return TRUE;
    };
    QCOMPARE(dialog.DoModal(), 5);
    dialog.start = nullptr;
    const DialogDriver driver([&](QDialog*) { dialog.EndDialog(6); });
    QCOMPARE(dialog.DoModal(), 6);
    QVERIFY(driver.hasActed());
}

void tst_DialogModal::failedLoadEndsTheDialogWithMinusOne()
{
    ModalDialog dialog;
    QVector<int> ends;
    dialog.form = [&](QDialog* widget) {
        connect(widget, &QDialog::finished, widget, [&ends](int result) { ends += result; });
    };
    dialog.exchange = [](CDataExchange_X* exchange) { exchange->Fail(L"not shown when loading"); };
    QCOMPARE(dialog.DoModal(), 3);
    QCOMPARE(ends, QVector<int>{-1});
}

// -------------------------------------------------------------------------------------------------------------- cursor

void tst_DialogModal::cursorIsTheArrowMeanwhile()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    ModalDialog dialog;
    Qt::CursorShape meanwhile = Qt::BlankCursor;
    const DialogDriver driver([&](QDialog*) {
        meanwhile = QGuiApplication::overrideCursor()->shape();
        dialog.EndDialog(IDOK);
    });
    QCOMPARE(dialog.DoModal(), IDOK);
    QCOMPARE(meanwhile, Qt::ArrowCursor);
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogModal::cursorIsLeftWithoutALoop()
{
    ModalDialog dialog;
    for (const BOOL started : {TRUE, FALSE}) {
        dialog.start = [&dialog, started] {
            dialog.EndDialog(IDOK);
            return started;
        };
        QCOMPARE(dialog.DoModal(), started ? 1 : 3);
        QVERIFY(!QGuiApplication::overrideCursor());
    }
}

// ------------------------------------------------------------------------------------------------------ data exchange

void tst_DialogModal::failingExchangeKeepsTheDialogOpen()
{
    NumberForm form;
    ModalDialog dialog;
    form.install(dialog);
    BoxWatch watch;
    bool open = false;
    QString boxes;
    const DialogDriver driver([&](QDialog* widget) {
        form.edit->setText(QStringLiteral("four"));
        QTest::mouseClick(form.ok, Qt::LeftButton);
        open = widget->isVisible();
        boxes = watch.take();
        form.edit->setText(QStringLiteral("4"));
        QTest::mouseClick(form.ok, Qt::LeftButton);
    });
    QCOMPARE(dialog.DoModal(), IDOK);
    QVERIFY(open);
    QCOMPARE(boxes, QStringLiteral("警告: 请输入正确的数值！"));
    QCOMPARE(form.number, 4);
    QCOMPARE(dialog.takeSteps(), QLatin1String(upToLoop) + QStringLiteral(" OnOK OnOK DestroyWindow PostNcDestroy"));
}

void tst_DialogModal::okTwiceShowsOneBox()
{
    NumberForm form;
    ModalDialog dialog;
    form.install(dialog);
    BoxWatch watch;
    QStringList boxes;
    const DialogDriver driver([&](QDialog*) {
        form.edit->clear();
        dialog.accept();
        dialog.accept();
        boxes += watch.take();
        dialog.accept();
        boxes += watch.take();
        dialog.reject();
    });
    QCOMPARE(dialog.DoModal(), IDCANCEL);
    QCOMPARE(boxes,
             QStringList({QStringLiteral("警告: 请输入正确的数值！"), QStringLiteral("警告: 请输入正确的数值！")}));
}

// -------------------------------------------------------------------------------------- ends that nobody has asked for

void tst_DialogModal::widgetGoesWhileTheLoopRuns()
{
    ModalDialog dialog;
    const DialogDriver driver([](QDialog* widget) { delete widget; });
    QCOMPARE(dialog.DoModal(), IDCANCEL);
    QVERIFY(!dialog.GetSafeHwnd());
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogModal::parentGoesWhileTheLoopRuns()
{
    auto* parent = new QWidget;
    ModalDialog dialog(parent);
    const DialogDriver driver([parent](QDialog*) { delete parent; });
    QCOMPARE(dialog.DoModal(), IDCANCEL);
    QVERIFY(!dialog.GetSafeHwnd());
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogModal::wrapperGoesInItsOwnHandler()
{
    class Fleeting : public ModalDialog
    {
    public:
        void OnOK() override { delete this; }
    };
    auto* dialog = new Fleeting;
    const QPointer<QObject> wrapper(dialog);
    dialog->form = [](QDialog* widget) { (new QPushButton(widget))->setObjectName(QStringLiteral("OK")); };
    const DialogDriver driver(
        [](QDialog* widget) { QTest::mouseClick(widget->findChild<QPushButton*>(), Qt::LeftButton); });
    QCOMPARE(dialog->DoModal(), IDCANCEL);
    QVERIFY(!wrapper);
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_DialogModal::wrapperDeletesItselfInTheEnd()
{
    auto* dialog = new SelfDeletingDialog;
    const QPointer<QObject> wrapper(dialog);
    const DialogDriver driver([dialog](QDialog*) { dialog->EndDialog(5); });
    QCOMPARE(dialog->DoModal(), 5);
    QVERIFY(!wrapper);
}

XE_TEST(tst_DialogModal)
#include "tst_dialogmodal.moc"
