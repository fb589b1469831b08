// Dialogs come and go all day long and leave nothing behind.

#include "scriptdialog.h"
#include "testclass.h"

#include <leavenothing.h>

#include <QAbstractEventDispatcher>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int rounds = 1000;

// The application's state that a dialog could leave something in.
struct Traces
{
    int widgets = QApplication::allWidgets().size();
    int handlerTimers = static_cast<int>(GetGlobalEventHandler()->timers.size());
    int applicationTimers = QAbstractEventDispatcher::instance()->registeredTimers(qApp).size();
    bool cursor = QGuiApplication::overrideCursor();

    QString text() const
    {
        return QStringLiteral("%1 widgets, %2 and %3 timers, cursor %4")
            .arg(widgets)
            .arg(handlerTimers)
            .arg(applicationTimers)
            .arg(cursor);
    }
};

class EventCount : public QObject
{
public:
    int events = 0;

protected:
    bool eventFilter(QObject*, QEvent*) override
    {
        ++events;
        return false;
    }
};

} // namespace

class tst_DialogRounds : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void leaveNothingBehind_data();
    void leaveNothingBehind();
};

void tst_DialogRounds::leaveNothingBehind_data()
{
    QTest::addColumn<bool>("oneWrapper");
    QTest::newRow("of one wrapper") << true;
    QTest::newRow("of a wrapper each") << false;
}

// Everything a dialog can have in flight when it ends: a timer of its own, a unique event, a posted message.
void tst_DialogRounds::leaveNothingBehind()
{
    QFETCH(bool, oneWrapper);
    const auto run = [](ScriptDialog& dialog) {
        dialog.form = [](QDialog* widget) { (new QPushButton(widget))->setObjectName(QStringLiteral("OK")); };
        dialog.start = [&dialog] {
            QTimer::singleShot(0, dialog.GetSafeHwnd(), [&dialog] {
                dialog.SetTimer(7, 3600000);
                dialog.PostEvent(new QEvent(QEvent::User), 0, true);
                dialog.PostMessage(WM_USER, 0, 0);
                dialog.EndDialog(5);
            });
            return TRUE;
        };
        return dialog.DoModal();
    };
    ScriptDialog shared;
    QCOMPARE(run(shared), 5); // Qt sets up what it keeps
    QVERIFY(LeaveNothing::leftovers().isEmpty());
    QCoreApplication::sendPostedEvents();

    const QString before = Traces().text();
    for (int round = 0; round < rounds; ++round) {
        ScriptDialog own;
        QCOMPARE(run(oneWrapper ? shared : own), 5);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(Traces().text(), before);

    EventCount pending;
    qApp->installEventFilter(&pending);
    QCoreApplication::sendPostedEvents();
    QVERIFY2(pending.events < 10, qPrintable(QString::number(pending.events)));
}

XE_TEST(tst_DialogRounds)
#include "tst_dialogrounds.moc"
