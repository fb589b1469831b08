// The print dialog: its record, what it answers, and what it can do.

#include "printdialog/printing.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QPrinter>
#include <QRadioButton>
#include <QSpinBox>

namespace {

QString ranges(const CPrintDialog_X& dialog)
{
    return QStringLiteral("%1%2%3 %4-%5")
        .arg(dialog.PrintAll())
        .arg(dialog.PrintSelection())
        .arg(dialog.PrintRange())
        .arg(dialog.GetFromPage())
        .arg(dialog.GetToPage());
}

} // namespace

class tst_PrintDialog : public QObject, private PrintFolder
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void record_data();
    void record();
    void recordOfAnother();
    void parents();

    void answersWithoutAcceptance();
    void answersOfAFile();
    void copies();
    void range_data();
    void range();
    void printersAreKnownByTheirName();

    void cancelComesByOnCancel();
    void setup();
    void setupOfTheHosts();
    void attachedAnew();
    void wrapperGoesWhileTheDialogIsOpen();
    void stubs();
};

// -------------------------------------------------------------------------------------------------------- construction

void tst_PrintDialog::record_data()
{
    QTest::addColumn<int>("setupOnly");
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<unsigned>("result");
    QTest::newRow("print") << 0 << 0u << 0x3100u;
    QTest::newRow("set up") << 1 << 0u << 0x3040u;
    QTest::newRow("any number but 0 sets up") << -3 << 0u << 0x3040u;
    QTest::newRow("an information context is not given") << 0 << 0x200u << 0x3100u;
    QTest::newRow("nor for a set-up") << 1 << 0x200u << 0x3040u;
    QTest::newRow("other flags stay") << 0 << 0xFFFFFFFFu << 0xFFFFFDFFu;
}

void tst_PrintDialog::record()
{
    QFETCH(const int, setupOnly);
    QFETCH(const unsigned, flags);
    const CPrintDialog_X dialog(setupOnly, flags, nullptr);
    QCOMPARE(&dialog.m_pd, &dialog.m_pdActual);
    QCOMPARE(dialog.m_pd.lStructSize, 120u);
    QTEST(dialog.m_pd.Flags, "result");
    tagPDW expected = {};
    expected.lStructSize = 120;
    expected.Flags = dialog.m_pd.Flags;
    QVERIFY(!std::memcmp(&dialog.m_pdActual, &expected, sizeof expected));
    QCOMPARE(CPrintDialog_X(FALSE).m_pd.Flags, 0x14310Cu);
}

void tst_PrintDialog::recordOfAnother()
{
    tagPDW given = {};
    given.Flags = PD_PRINTSETUP | PD_RETURNIC;
    given.nCopies = 3;
    const tagPDW before = given;
    CPrintDialog_X dialog(given);
    QCOMPARE(&dialog.m_pd, &given);
    QCOMPARE(dialog.m_pdActual.lStructSize, 0u);
    const QWidget* parent = &part<QWidget>(QPrintDialog(), "printers");
    QCOMPARE(run(dialog,
                 [&](QPrintDialog& shown) {
                     parent = shown.parentWidget();
                     print(file())(shown);
                 }),
             IDOK);
    QVERIFY(!parent);
    QVERIFY(!std::memcmp(&given, &before, sizeof given));
}

void tst_PrintDialog::parents()
{
    QWidget widget;
    CWnd_X window;
    QVERIFY(window.SubclassWindow(&widget));
    CPrintDialog_X ofWidget(FALSE, 0, &widget);
    CPrintDialog_X ofWindow(FALSE, 0, &window);
    for (CPrintDialog_X* dialog : {&ofWidget, &ofWindow}) {
        const QWidget* parent = nullptr;
        run(*dialog, [&](QPrintDialog& shown) { parent = shown.parentWidget(); });
        QCOMPARE(parent, &widget);
    }
}

// ------------------------------------------------------------------------------------------------------------- answers

void tst_PrintDialog::answersWithoutAcceptance()
{
    CPrintDialog_X dialog(FALSE);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(dialog.GetCopies(), 1);
        QCOMPARE(ranges(dialog), QStringLiteral("100 0-0"));
        QVERIFY(!dialog.PrintCollate());
        QVERIFY(dialog.GetDeviceName().IsEmpty());
        QVERIFY(dialog.GetPortName().IsEmpty());
        QVERIFY(dialog.GetDriverName().IsEmpty());
        QVERIFY(!dialog.GetPrinterDC());
        QCOMPARE(run(dialog, nothing), IDCANCEL);
    }
    QCOMPARE(dialog.dynamicPropertyNames().count("painter"), 0);
}

void tst_PrintDialog::answersOfAFile()
{
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(run(dialog, print(file("零件.pdf"))), IDOK);
    QCOMPARE(XeQString(dialog.GetPortName()), file("零件.pdf"));
    QVERIFY(dialog.GetDeviceName().IsEmpty());
    QVERIFY(dialog.GetDriverName().IsEmpty());
    QCOMPARE(dialog.property("portName"), QVariant(file("零件.pdf")));
    QCOMPARE(dialog.property("copyCount"), QVariant(1));
    QCOMPARE(dialog.property("printRange"), QVariant(0));
    QCOMPARE(dialog.property("nFromPage"), QVariant(0));
    QCOMPARE(dialog.property("nToPage"), QVariant(0));
    QVERIFY(dialog.property("deviceName").isValid());
    QVERIFY(dialog.property("driverName").isValid());
    QVERIFY(dialog.property("bCollate").toBool());
    QVERIFY(dialog.PrintCollate());
}

void tst_PrintDialog::copies()
{
    CPrintDialog_X dialog(TRUE);
    QCOMPARE(run(dialog,
                 [&](QPrintDialog& shown) {
                     shown.printer()->setCopyCount(3);
                     dialog.OnPrintBtnClicked();
                 }),
             IDCANCEL);
    QCOMPARE(dialog.GetCopies(), 3);
    QCOMPARE(dialog.property("copyCount"), QVariant(3));
}

void tst_PrintDialog::range_data()
{
    QTest::addColumn<Action>("settings");
    QTest::addColumn<QString>("result");
    QTest::newRow("all pages") << Action(nothing) << QStringLiteral("100 0-0");
    QTest::newRow("from and to") << Action([](QPrintDialog& shown) {
        part<QRadioButton>(shown, "printRange").click();
        part<QSpinBox>(shown, "from").setValue(2);
        part<QSpinBox>(shown, "to").setValue(5);
    }) << QStringLiteral("001 2-5");
    QTest::newRow("selection") << Action([](QPrintDialog& shown) {
        shown.setOption(QPrintDialog::PrintSelection);
        part<QRadioButton>(shown, "printSelection").setChecked(true);
    }) << QStringLiteral("010 0-0");
    QTest::newRow("current page") << Action([](QPrintDialog& shown) {
        shown.setOption(QPrintDialog::PrintCurrentPage);
        part<QRadioButton>(shown, "printCurrentPage").setChecked(true);
    }) << QStringLiteral("000 0-0");
}

void tst_PrintDialog::range()
{
    QFETCH(const Action, settings);
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(run(dialog, print(file(), settings)), IDOK);
    QTEST(ranges(dialog), "result");
}

void tst_PrintDialog::printersAreKnownByTheirName()
{
    CPrintDialog_X dialog(FALSE);
    dialog.setProperty("deviceName", QStringLiteral("激光打印机"));
    dialog.setProperty("driverName", QStringLiteral("a driver"));
    QCOMPARE(XeQString(dialog.GetDeviceName()), QStringLiteral("激光打印机"));
    QCOMPARE(XeQString(dialog.GetDriverName()), QStringLiteral("a driver"));
}

// --------------------------------------------------------------------------------------------------------- operations

void tst_PrintDialog::cancelComesByOnCancel()
{
    struct Noting : CPrintDialog_X
    {
        Noting() : CPrintDialog_X(FALSE) {}
        void OnOK() override { ++oks; }
        void OnCancel() override
        {
            ++cancels;
            CPrintDialog_X::OnCancel();
        }
        int oks = 0;
        int cancels = 0;
    } dialog;
    QCOMPARE(run(dialog, nothing), IDCANCEL);
    QCOMPARE(dialog.cancels, 1);
    QCOMPARE(run(dialog, print(file())), IDOK);
    QCOMPARE(dialog.oks, 0);
}

void tst_PrintDialog::setup()
{
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(&std::unique_ptr<CPrintDialog_X>(dialog.AttachOnSetup())->m_pd, &dialog.m_pd);
    const ModalDriver<QPrintDialog> driver([&](QPrintDialog* shown) { print(file())(*shown); });
    dialog.OnPrintSetup();
    QVERIFY(driver.hasActed());
    QVERIFY(dialog.GetPortName().IsEmpty());
}

void tst_PrintDialog::setupOfTheHosts()
{
    struct Setup : CPrintDialog_X
    {
        explicit Setup(int& count) : CPrintDialog_X(TRUE), left(count) { ++left; }
        ~Setup() override { --left; }
        int DoModal() override { return ++runs; }
        int& left;
        int runs = 0;
    };
    struct Hosted : CPrintDialog_X
    {
        Hosted() : CPrintDialog_X(FALSE) {}
        CPrintDialog_X* AttachOnSetup() override { return isItself ? this : next; }
        int DoModal() override { return ++runs; }
        CPrintDialog_X* next = nullptr;
        bool isItself = false;
        int runs = 0;
    } dialog;
    dialog.OnPrintSetup();
    int left = 0;
    dialog.next = new Setup(left);
    QCOMPARE(left, 1);
    dialog.OnPrintSetup();
    QCOMPARE(left, 0);
    dialog.isItself = true;
    dialog.OnPrintSetup();
    QCOMPARE(dialog.runs, 1);
}

void tst_PrintDialog::attachedAnew()
{
    struct Counting : CPrintDialog_X
    {
        Counting() : CPrintDialog_X(TRUE) {}
        void OnMessageMap() override
        {
            CPrintDialog_X::OnMessageMap();
            CPrintDialog_X::OnMessageMap();
        }
    } dialog;
    QVERIFY(dialog.AttachDefault(nullptr));
    const QPointer<QPrintDialog> first = dialog.Imp<QPrintDialog>();
    QVERIFY(dialog.AttachDefault(nullptr));
    auto* const second = dialog.Imp<QPrintDialog>();
    QVERIFY(first != second);
    second->printer()->setCopyCount(2);
    emit first->accepted();
    QVERIFY(!dialog.property("copyCount").isValid());
    emit second->accepted();
    QCOMPARE(dialog.GetCopies(), 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_PrintDialog::wrapperGoesWhileTheDialogIsOpen()
{
    auto* const dialog = new CPrintDialog_X(FALSE);
    QCOMPARE(run(*dialog, [&](QPrintDialog&) { delete dialog; }), IDCANCEL);
}

void tst_PrintDialog::stubs()
{
    CPrintDialog_X dialog(FALSE);
    QVERIFY(!dialog.CreatePrinterDC());
    QCOMPARE(dialog.GetDefaults(), 0);
    dialog.OnPrintBtnClicked();
    QVERIFY(!dialog.property("copyCount").isValid());
    QVERIFY(!CPrintDialog_X::s_classInfo.CreateObject());
}

XE_TEST(tst_PrintDialog)
#include "tst_printdialog.moc"
