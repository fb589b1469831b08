#include "synchsupport.h"
#include "testclass.h"

#include <QProcess>

// Semaphores across two processes; the other one is semaphoremate.cpp.

class tst_SemaphoreProcess : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(leftInSystem(), QString()); }

    void theOtherTakesWhatIsGiven();
    void theOtherGives();
    void theOtherFindsNothing();
    void waitsForTheOther();
    void countsAreThePrivateMatterOfEach();
    void closeInTheOtherTakesTheNameOnly();
    void anEndWithoutCloseLeavesTheName();

private:
    /// The other's exit code.
    int mate(const QStringList& steps) const
    {
        return QProcess::execute(QString::fromLocal8Bit(qgetenv("MATE")), QStringList(nameText()) + steps);
    }
    QString nameText() const { return QString::fromStdWString(name); }

    std::wstring name = semaphoreName(L"shared");
};

void tst_SemaphoreProcess::theOtherTakesWhatIsGiven()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 1, 9, name.c_str());
    QCOMPARE(ReleaseSemaphore(semaphore, 2, nullptr), 1);
    QCOMPARE(mate({"take", "take", "nothing"}), 0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_SemaphoreProcess::theOtherGives()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 9, name.c_str());
    QCOMPARE(mate({"give", "give"}), 0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_TIMEOUT);
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_SemaphoreProcess::theOtherFindsNothing()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 9, name.c_str());
    QCOMPARE(mate({"nothing"}), 0);
    QCOMPARE(mate({"nothing", "nothing", "unknown"}), 3);
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_SemaphoreProcess::waitsForTheOther()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 9, name.c_str());
    Waiter waiter(semaphore, 60000);
    untilInside(semaphore, 1);
    QCOMPARE(mate({"give"}), 0);
    QCOMPARE(waiter.result(), QStringLiteral("object, 77"));
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_SemaphoreProcess::countsAreThePrivateMatterOfEach()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 1, 1, name.c_str());
    QCOMPARE(mate({"take"}), 0);
    QCOMPARE(ReleaseSemaphore(semaphore, 1, nullptr), 0); // this process has not seen the other take it
    QCOMPARE(mate({"give", "give"}), 0);                  // and the other does not know the maximum
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QVERIFY(XeCloseHandle(semaphore));
}

void tst_SemaphoreProcess::closeInTheOtherTakesTheNameOnly()
{
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 9, name.c_str());
    QVERIFY(QFile::exists(fileOf(name)));
    QCOMPARE(mate({"close"}), 0);
    QVERIFY(!QFile::exists(fileOf(name)));
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0); // posted by the close
    QCOMPARE(ReleaseSemaphore(semaphore, 1, nullptr), 1);
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QCOMPARE(XeCloseHandle(semaphore), 1);
}

void tst_SemaphoreProcess::anEndWithoutCloseLeavesTheName()
{
    QCOMPARE(mate({"give"}), 0);
    QVERIFY(QFile::exists(fileOf(name)));
    const HANDLE semaphore = CreateSemaphore(nullptr, 0, 9, name.c_str());
    QCOMPARE(WaitForSingleObject(semaphore, 0), WAIT_OBJECT_0);
    QVERIFY(XeCloseHandle(semaphore));
}

XE_APPLESS_TEST(tst_SemaphoreProcess)
#include "tst_semaphoreprocess.moc"
