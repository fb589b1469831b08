#include "failingcall.h"
#include "registrytext.h"
#include "runhost.h"
#include "smalldisk.h"
#include "testclass.h"

#include <QSettings>
#include <QTemporaryDir>

// Writes that fail: the old file or the new one is there, whole, and what could not be written is written later.

namespace {

constexpr int values = 50;

QByteArray imageOf(int n)
{
    QByteArray image = "[HKEY_CURRENT_USER]\nSoftware\\n=" + QByteArray::number(n) + '\n';
    for (int i = values; i < 2 * values; ++i)
        image += "Software\\v" + QByteArray::number(i) + "=1\n";
    return image;
}

void fillWithNumbers(HKEY key)
{
    emptyRegistry();
    for (int i = values; i < 2 * values; ++i)
        writeNumber(key, (L'v' + std::to_wstring(i)).c_str(), 1);
    writeNumber(key, L"n", 0);
    RegFlushKey_X(nullptr);
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the file cannot be written");
}

/// The host program with its settings in a folder of its own.
struct Host
{
    QString folder;
    QString file = folder + QLatin1String("/Acme/Draw.ini");

    Host(const QString& path, const QByteArray& image) : folder(path)
    {
        QDir(folder).mkdir("Acme");
        writeFile(file, image);
    }

    QByteArray image() const { return contentOf(file); }
    QStringList files() const { return QFileInfo(file).dir().entryList(QDir::Files); }
    QString run(const QStringList& commands) const { return runHost(folder, commands); }

    // With its temporary files beside its settings.
    QString runWithOneDisk(const QStringList& commands) const
    {
        return HostRun("HOST", folder, commands, "TMPDIR=" + folder.toUtf8()).answer();
    }

    // Whether the call was reached.
    bool runFailing(FailingCall::Kind kind, int number, int error, const QStringList& commands) const
    {
        const HostRun run("HOST", folder, commands, FailingCall::inEnvironment(kind, number, error));
        if (!run.endedWell())
            QTest::qFail("the host did not end well", __FILE__, __LINE__);
        return run.errors().contains(FailingCall::announcement);
    }
};

} // namespace

class tst_RegistryFaults : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        emptyRegistry();
        RegFlushKey_X(nullptr);
    }
    void flush_data() { FailingCall::addRows(); }
    void flush();
    void flushOverAChangeOfOthers_data() { FailingCall::addRows(); }
    void flushOverAChangeOfOthers();
    void eventLoop();
    void startAndExit_data() { FailingCall::addRows(); }
    void startAndExit();
    void startWithAHarmfulValue_data() { FailingCall::addRows(); }
    void startWithAHarmfulValue();
    void aFullDiskAtTheStart();
    void aDiskOf16Kilobytes();
};

void tst_RegistryFaults::flush()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    const Key key("Software");
    fillWithNumbers(key);
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        writeNumber(key, L"n", static_cast<DWORD>(number));
        FailingCall call(kind, number, error);
        const LSTATUS result = RegFlushKey_X(key);
        wasReached = call.end();
        QCOMPARE(result, ERROR_SUCCESS);
        const QByteArray image = contentOf(registryFile());
        QVERIFY2(image == imageOf(number) || (wasReached && image == imageOf(number - 1)), image);

        RegFlushKey_X(key);
        QCOMPARE(contentOf(registryFile()), imageOf(number));
    }
}

void tst_RegistryFaults::flushOverAChangeOfOthers()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    const Key key("Software");
    fillWithNumbers(key);
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        const QByteArray others = "[X]\nk=" + QByteArray::number(number) + '\n';
        writeNumber(key, L"n", static_cast<DWORD>(number));
        writeFile(registryFile(), imageOf(number - 1) + '\n' + others);
        FailingCall call(kind, number, error);
        RegFlushKey_X(key);
        wasReached = call.end();
        const QByteArray image = contentOf(registryFile());
        QVERIFY2(image == imageOf(number) + '\n' + others || image == imageOf(number - 1) + '\n' + others, image);

        RegFlushKey_X(key);
        QCOMPARE(contentOf(registryFile()), imageOf(number) + '\n' + others);
    }
    writeFile(registryFile(), "");
    RegFlushKey_X(nullptr);
}

void tst_RegistryFaults::eventLoop()
{
    const Key key("Software");
    fillWithNumbers(key);
    QCoreApplication::sendPostedEvents();
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        writeNumber(key, L"n", static_cast<DWORD>(number));
        FailingCall call(FailingCall::Write, number);
        QCoreApplication::sendPostedEvents();
        wasReached = call.end();
        const QByteArray image = contentOf(registryFile());
        QVERIFY2(image == imageOf(number) || (wasReached && image == imageOf(number - 1)), image);
        RegFlushKey_X(nullptr);
        QCOMPARE(contentOf(registryFile()), imageOf(number));
    }
}

void tst_RegistryFaults::startAndExit()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        const QTemporaryDir folder;
        const Host host(folder.path(), imageOf(0));
        wasReached = host.runFailing(kind, number, error, {"dword|Software|n|1"});
        QVERIFY2(host.image() == imageOf(1) || (wasReached && host.image() == imageOf(0)), host.image());
    }
}

void tst_RegistryFaults::startWithAHarmfulValue()
{
    QFETCH(FailingCall::Kind, kind);
    QFETCH(int, error);
    const QByteArray stream = QByteArray("\\0\\0\\0\\t\\0\\0\\0\\x1").repeated(10000);
    const QByteArray line = "Software\\m=@Variant(" + stream + ")\n";
    const auto imageWith = [&line](int n) { return imageOf(n).replace("Software\\n=", line + "Software\\n="); };
    bool wasReached = true;
    for (int number = 1; wasReached; ++number) {
        const QTemporaryDir folder;
        const Host host(folder.path(), imageWith(0));
        wasReached = host.runFailing(kind, number, error, {"dword|Software|n|1"});
        const bool hasValue = host.image() == imageWith(0) || host.image() == imageWith(1);
        const bool isWhole = hasValue || host.image() == imageOf(0) || host.image() == imageOf(1);
        QVERIFY2(isWhole, host.image().left(200));
        QVERIFY(hasValue || contentOf(host.file + ".damaged") == imageWith(0));
    }
}

// The second value is of a type that has no form of its own in the file.
void tst_RegistryFaults::aFullDiskAtTheStart()
{
    const QByteArray date = "@DateTime(\\0\\0\\0\\x10\\0\\0\\0\\0\\0\\0%\\x81\\x4\\x38\\x3\\x82<\\0)";
    const QByteArray image = "[General]\nWhen=" + date + "\n\n" + imageOf(0);
    SmallDisk disk;
    const Host host(disk.path(), image);
    disk.leave(0);
    QCOMPARE(host.runWithOneDisk({"query|Software|n", "dword|Software|n|1"}), QString("REG_SZ 2: 0"));
    QCOMPARE(host.image(), image);
    QCOMPARE(host.files(), QStringList("Draw.ini"));
    disk.makeRoom();
    QCOMPARE(host.run({"dword|Software|n|1"}), QString());
    QVERIFY(host.image().contains("Software\\n=1\n"));
    QVERIFY(host.image().contains("When=@DateTime("));
}

void tst_RegistryFaults::aDiskOf16Kilobytes()
{
    SmallDisk disk;
    const QByteArray before(3000, 'x');
    const QByteArray after(6000, 'y');
    const auto imageWith = [](const QByteArray& text) { return "[HKEY_CURRENT_USER]\nSoftware\\n=" + text + '\n'; };
    for (int free = 0; free <= SmallDisk::blocks; ++free) {
        const Host host(disk.path(), imageWith(before));
        disk.leave(free);
        const QString answer = host.run({"text|Software|n|" + after, "flush", "query|Software|n"});
        QCOMPARE(answer, "REG_SZ 6001: " + after);
        const QByteArray image = host.image();
        QVERIFY2(image == imageWith(before) || image == imageWith(after), image.left(100));
        disk.makeRoom();
        host.run({"text|Software|n|" + after});
        QVERIFY(host.image() == imageWith(after));
    }
}

XE_GUILESS_TEST(tst_RegistryFaults)
#include "tst_registryfaults.moc"
