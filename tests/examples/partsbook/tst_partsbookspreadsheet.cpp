// The real program and another one at the same X server: what is copied in one is pasted in the other.

#include "testclass.h"
#include "xuser.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>

namespace {

const QByteArray bookToPaste = "FA-1,Screw,Fastener,A,bought,10,5,0.06,yes,\n"
                               "BE-2,Bearing,Bearing,B,made,20,6,12.50,yes,\n"
                               "EL-4,Motor 电动机,Electrical,C,customer,30,0,0.50,yes,\n";

} // namespace

class tst_PartsbookSpreadsheet : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void stockCountsComeFromIt();
    void cellsGoToIt();

private:
    void start();
    /// Moves the focus to a cell of the list, by the keys; the columns are those that are shown at first.
    void goTo(int row, int column);
    void press(const QString& keys, int times = 1);
    QByteArray file() const;

    XUser m_user;
    QTemporaryDir m_folder;
    QString m_parts = m_folder.filePath("parts.csv");
    QProcess m_program;
};

void tst_PartsbookSpreadsheet::initTestCase()
{
    QVERIFY(m_user.isUsable());
    QVERIFY2(QFileInfo(qEnvironmentVariable("PARTSBOOK")).isExecutable(), "PARTSBOOK does not name the program");
}

void tst_PartsbookSpreadsheet::cleanup()
{
    m_user.releaseAll();
    m_program.kill();
    m_program.waitForFinished();
}

void tst_PartsbookSpreadsheet::start()
{
    QFile file(m_parts);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bookToPaste);
    file.close();
    m_program.start(qEnvironmentVariable("PARTSBOOK"), {m_parts});
    QVERIFY(m_program.waitForStarted());
    const auto isThere = [this] {
        const WId window = m_user.windowOfProcess(m_program.processId(), "Parts Book");
        return window && m_user.hasFocus(window);
    };
    QTRY_VERIFY(isThere());
}

void tst_PartsbookSpreadsheet::press(const QString& keys, int times)
{
    for (int i = 0; i < times; ++i)
        m_user.press(keys);
}

void tst_PartsbookSpreadsheet::goTo(int row, int column)
{
    press("Control_L Home");
    press("Down", row);
    press("Right", column);
}

QByteArray tst_PartsbookSpreadsheet::file() const
{
    QFile file(m_parts);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_PartsbookSpreadsheet::stockCountsComeFromIt()
{
    QWidget window; // whose events tell the time at which the text is copied
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QGuiApplication::clipboard()->setText("11\t4\n21\t5\n"); // as spreadsheets give it
    start();
    goTo(1, 4);
    press("Control_L v");
    press("Control_L s");
    QTRY_COMPARE(file(), QByteArray(bookToPaste).replace(",20,6,", ",11,4,").replace(",30,0,", ",21,5,"));
}

void tst_PartsbookSpreadsheet::cellsGoToIt()
{
    start();
    goTo(1, 1);
    press("Shift_L Down");
    press("Shift_L Right");
    press("Control_L c");
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), QString("Bearing\tBearing\nMotor 电动机\tElectrical"));
}

XE_TEST(tst_PartsbookSpreadsheet)
#include "tst_partsbookspreadsheet.moc"
