// The job that a print dialog begins.

#include "printdialog/printing.h"
#include "testclass.h"

#include <leavenothing.h>

#include <xeafxdc.h>

#include <QPainter>
#include <QPrinter>

class tst_PrintJob : public QObject, private PrintFolder
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void jobIsAReadableFile();
    void jobOutlivesTheDialog();
    void painterIsGoneWhenItIsDeleted();
    void painterThatNobodyAskedFor();
    void nextAcceptanceBeginsAnotherJob();
    void cancelledRunKeepsTheJob();
    void noPainterForASetup();
    void painterThatCannotBegin();
    void cancelledLeavesNoFile();
    void printerOfTheHosts();
};

void tst_PrintJob::jobIsAReadableFile()
{
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(run(dialog, print(file())), IDOK);
    QPainter* const painter = painterOf(dialog);
    QVERIFY(painter && painter->isActive());
    QCOMPARE(dialog.property("painter").toULongLong(), reinterpret_cast<qulonglong>(painter));
    QCOMPARE(painterOf(dialog), painter);
    painter->drawText(100, 100, QStringLiteral("零件"));
    QVERIFY(static_cast<QPrinter*>(painter->device())->newPage());
    painter->drawText(100, 100, QStringLiteral("second page"));
    QCOMPARE(DeleteDC_X(painter), 1);
    QCOMPARE(pages(file()), QStringLiteral("2 pages"));
}

void tst_PrintJob::jobOutlivesTheDialog()
{
    QPainter* painter = nullptr;
    {
        CPrintDialog_X dialog(FALSE);
        QCOMPARE(run(dialog, print(file())), IDOK);
        painter = painterOf(dialog);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    painter->drawText(100, 100, QStringLiteral("late"));
    QVERIFY(static_cast<QPrinter*>(painter->device())->newPage());
    QCoreApplication::processEvents();
    painter->drawText(100, 100, QStringLiteral("later"));
    delete painter;
    QCoreApplication::processEvents();
    QCOMPARE(pages(file()), QStringLiteral("2 pages"));
}

void tst_PrintJob::painterIsGoneWhenItIsDeleted()
{
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(run(dialog, print(file())), IDOK);
    delete painterOf(dialog);
    QVERIFY(!dialog.GetPrinterDC());
    QCOMPARE(run(dialog, print(file("second.pdf"))), IDOK);
    QVERIFY(dialog.GetPrinterDC());
    delete painterOf(dialog);
}

void tst_PrintJob::painterThatNobodyAskedFor()
{
    {
        CPrintDialog_X dialog(FALSE);
        QCOMPARE(run(dialog, print(file("first.pdf"))), IDOK);
        QVERIFY(dialog.property("painter").toULongLong());
        QCOMPARE(run(dialog, print(file("second.pdf"))), IDOK);
        QVERIFY(!contentOf(file("first.pdf")).isEmpty()); // that job has ended
        QVERIFY(contentOf(file("second.pdf")).isEmpty());
    }
    QVERIFY(!contentOf(file("second.pdf")).isEmpty());
}

void tst_PrintJob::nextAcceptanceBeginsAnotherJob()
{
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(run(dialog, print(file("first.pdf"))), IDOK);
    QPainter* const first = painterOf(dialog);
    QCOMPARE(run(dialog, print(file("second.pdf"))), IDOK);
    QPainter* const second = painterOf(dialog);
    QVERIFY(second && second != first);
    first->drawText(100, 100, QStringLiteral("first"));
    delete first;
    QCOMPARE(painterOf(dialog), second);
    delete second;
    QCOMPARE(pages(file("first.pdf")) + pages(file("second.pdf")), QStringLiteral("1 pages1 pages"));
}

void tst_PrintJob::cancelledRunKeepsTheJob()
{
    CPrintDialog_X dialog(FALSE);
    QCOMPARE(run(dialog, print(file())), IDOK);
    QCOMPARE(run(dialog, nothing), IDCANCEL);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(XeQString(dialog.GetPortName()), file());
    QVERIFY(painterOf(dialog)->isActive());
    delete painterOf(dialog);
    QCOMPARE(pages(file()), QStringLiteral("1 pages"));
}

void tst_PrintJob::noPainterForASetup()
{
    CPrintDialog_X dialog(TRUE);
    QCOMPARE(run(dialog, print(file())), IDOK);
    QVERIFY(!dialog.GetPrinterDC());
    QCOMPARE(XeQString(dialog.GetPortName()), file());
    QVERIFY(!QFile::exists(file()));
}

void tst_PrintJob::painterThatCannotBegin()
{
    CPrintDialog_X dialog(FALSE);
    QTest::ignoreMessage(QtWarningMsg, "QPainter::begin(): Returned false");
    QCOMPARE(run(dialog,
                 [&](QPrintDialog& shown) {
                     shown.printer()->setOutputFileName(file("missing/out.pdf"));
                     dialog.OnPrintBtnClicked();
                 }),
             IDCANCEL);
    QVERIFY(!dialog.GetPrinterDC());
    QVERIFY(!dialog.property("painter").isValid());
}

void tst_PrintJob::cancelledLeavesNoFile()
{
    {
        CPrintDialog_X dialog(FALSE);
        QCOMPARE(run(dialog, [&](QPrintDialog& shown) { part<QLineEdit>(shown, "filename").setText(file()); }),
                 IDCANCEL);
    }
    QVERIFY(!QFile::exists(file()));
}

void tst_PrintJob::printerOfTheHosts()
{
    struct Hosted : CPrintDialog_X
    {
        Hosted() : CPrintDialog_X(FALSE) {}
        bool AttachDefault(QWidget* parent) override
        {
            return Attach(new QPrintDialog(&printer, parent), parent, false);
        }
        QPrinter printer;
    } dialog;
    QCOMPARE(run(dialog, print(file())), IDOK);
    QCOMPARE(painterOf(dialog)->device(), static_cast<QPaintDevice*>(&dialog.printer));
    delete painterOf(dialog);
    QCOMPARE(pages(file()), QStringLiteral("1 pages"));
}

XE_TEST(tst_PrintJob)
#include "tst_printjob.moc"
