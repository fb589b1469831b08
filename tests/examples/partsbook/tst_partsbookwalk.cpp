// The host program under random real input, also in answer to its grids' notices.
//
// WALK_SECONDS and WALK_SEED in the environment make another walk of it: 60 seconds and 1 if they are not there.

#include "testclass.h"

#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <signal.h>

namespace {

constexpr int patience = 30000; // milliseconds to a step
constexpr int shownSteps = 40;

QString setting(const char* name, const QString& standard) { return qEnvironmentVariable(name, standard); }

} // namespace

class tst_PartsbookWalk : public QObject
{
    Q_OBJECT

private slots:
    void walk();

private:
    /// Reads what the program tells of its steps, and keeps the last ones. False if it has come to a halt.
    bool follow(QProcess& program);

    QByteArrayList m_steps;
};

bool tst_PartsbookWalk::follow(QProcess& program)
{
    while (program.waitForReadyRead(patience)) {
        while (program.canReadLine())
            m_steps += program.readLine();
        m_steps = m_steps.mid(m_steps.size() - shownSteps);
    }
    if (program.state() == QProcess::NotRunning)
        return true;
    ::kill(static_cast<pid_t>(program.processId()), SIGUSR1); // it shows where it is
    if (!program.waitForFinished())
        program.kill();
    return false;
}

void tst_PartsbookWalk::walk()
{
    const QString seconds = setting("WALK_SECONDS", QStringLiteral("60"));
    const QString seed = setting("WALK_SEED", QStringLiteral("1"));
    const QTemporaryDir folder;
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(qEnvironmentVariable("WALK"), {seconds, seed, qEnvironmentVariable("PARTS")});
    QVERIFY(program.waitForStarted());
    const bool goesOn = follow(program);
    const QByteArray errors = program.readAllStandardError();
    const bool isWell =
        goesOn && errors.isEmpty() && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    if (!isWell)
        std::printf("The last steps with the seed %s:\n%s%s\n", qPrintable(seed), m_steps.join().constData(),
                    errors.constData());
    QVERIFY2(goesOn, "no step for a long time");
    QVERIFY2(isWell, "see the last steps above");
    std::printf("%s", m_steps.constLast().constData());
}

XE_GUILESS_TEST(tst_PartsbookWalk)
#include "tst_partsbookwalk.moc"
