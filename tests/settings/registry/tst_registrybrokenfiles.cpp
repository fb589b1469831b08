#include "registrytext.h"
#include "runhost.h"
#include "testclass.h"

#include <QDir>
#include <QTemporaryDir>

// Files that no registry wrote, and places where none can be written.

namespace {

QString settingsWith(const QTemporaryDir& folder, const QByteArray& image)
{
    QDir(folder.path()).mkdir("Acme");
    QFile file(folder.filePath("Acme/Draw.ini"));
    if (!file.open(QFile::WriteOnly) || file.write(image) != image.size())
        qFatal("the file cannot be written");
    return folder.path();
}

QByteArray noise(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 12345;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

} // namespace

class tst_RegistryBrokenFiles : public QObject
{
    Q_OBJECT

private slots:
    void whatCanBeReadIsKept_data();
    void whatCanBeReadIsKept();
    void aHarmfulFileIsPutAside();
    void longValuesAreNoHarm_data();
    void longValuesAreNoHarm();
    void valuesOfOtherKindsReadAsNothing_data();
    void valuesOfOtherKindsReadAsNothing();
    void aStoreThatCannotBeWrittenLivesInMemory_data();
    void aStoreThatCannotBeWrittenLivesInMemory();
};

void tst_RegistryBrokenFiles::whatCanBeReadIsKept_data()
{
    QTest::addColumn<QByteArray>("image");
    const QByteArray good = "[HKEY_CURRENT_USER]\nSoftware\\n=5\n";
    QTest::newRow("nothing else") << good;
    QTest::newRow("a line without a value") << good + "Software\\half\n";
    QTest::newRow("a value without a name") << good + "=5\n";
    QTest::newRow("no end of the last line") << good + "Software\\m";
    QTest::newRow("a section that does not end") << good + "[HKEY_CLASSES";
    QTest::newRow("an empty section") << good + "[]\nx=1\n";
    QTest::newRow("a huge line") << good + "Software\\m=" + QByteArray(150000, 'x') + '\n';
    QTest::newRow("a huge name") << good + QByteArray(150000, 'x') + "=1\n";
    QTest::newRow("zeros") << good + QByteArray(1000, '\0') + "\nSoftware\\z=a" + QByteArray(3, '\0') + "b\n";
    QTest::newRow("noise behind") << good + noise(100000);
    QTest::newRow("noise in front") << noise(100000).replace('"', "").replace('\\', "") + '\n' + good;
    QTest::newRow("separators alone") << good + "\\=1\n\\\\=2\n\\a\\\\b\\=3\n";
    QTest::newRow("broken escapes") << good + "%=1\n%U=2\n%ZZ=3\n%UFFF=4\nSoftware\\m=\\x\nSoftware\\k=\\";
    QTest::newRow("no bytes in an array") << good + "Software\\m=@ByteArray(\n";
    QTest::newRow("half a variant") << good + "Software\\m=@Variant(\\0\\0\\0\n";
    QTest::newRow("a text variant of 2 GB") << good + "Software\\m=@Variant(\\0\\0\\0\\n\\x7f\\xff\\xff\\xfe)\n";
    QTest::newRow("a list variant of 2 billion")
        << good + "Software\\m=@Variant(\\0\\0\\0\\t\\0\\x7f\\xff\\xff\\xfe)\n";
    QTest::newRow("a list variant of all memory") << good + "Software\\m=@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)\n";
    QTest::newRow("lists in lists beyond the stack")
        << good + "Software\\m=@Variant(" + QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(100000) + ")\n";
    QTest::newRow("a variant of no known type") << good + "Software\\m=@Variant(\\0\\0\\xff\\xff\\0)\n";
    QTest::newRow("half a rectangle") << good + "Software\\m=@Rect(1 2\nSoftware\\k=@Size(\nSoftware\\j=@Point(x y)\n";
    QTest::newRow("the key's own entry twice") << good + "Software=1\nSoftware=2\n";
}

void tst_RegistryBrokenFiles::whatCanBeReadIsKept()
{
    QFETCH(QByteArray, image);
    const QTemporaryDir folder;
    const QString path = settingsWith(folder, image);
    QCOMPARE(runHost(path, {"query|Software|n"}), QString("REG_SZ 2: 5"));
    const QString all = runHost(path, {"entries|", "texts|", "query|Software|m", "dword|Software|new|1"});
    QVERIFY2(!all.startsWith("exit code"), qPrintable(all));
    QCOMPARE(runHost(path, {"query|Software|n", "query|Software|new"}), QString("REG_SZ 2: 5\nREG_SZ 2: 1"));
}

void tst_RegistryBrokenFiles::aHarmfulFileIsPutAside()
{
    const QByteArray stream = QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(100000);
    const QByteArray image =
        "[HKEY_CURRENT_USER]\nSoftware\\a=1\nSoftware\\m=@Variant(" + stream + ")\nSoftware\\n=5\n";
    const QTemporaryDir folder;
    const QString path = settingsWith(folder, image);
    QCOMPARE(runHost(path, {"entries|Software"}), QString("a n"));
    const auto content = [&path](const char* ending) {
        QFile file(path + QLatin1String("/Acme/Draw.ini") + QLatin1String(ending));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    };
    QCOMPARE(content(""), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\a=1\nSoftware\\n=5\n"));
    QVERIFY(content(".damaged") == image);

    const QByteArray second = image + "Software\\o=6\n";
    settingsWith(folder, second);
    QCOMPARE(runHost(path, {"entries|Software"}), QString("a n o"));
    QVERIFY(content(".damaged") == image);
    QVERIFY(content(".damaged.2") == second);
}

// What a value is, its start tells, and whether it can be read, only reading it.
void tst_RegistryBrokenFiles::longValuesAreNoHarm_data()
{
    QTest::addColumn<QByteArray>("value");
    const QByteArray text(5000, 'n');
    QTest::newRow("a text that names a stream") << "see @Variant(x) and @DateTime(x) " + text;
    QTest::newRow("a text that starts like one") << "@@Variant(" + text + ')';
    QTest::newRow("a list that can be read")
        << "@Variant(\\0\\0\\0\\t\\0\\0\\x3\\xe8" + QByteArray("\\0\\0\\0\\x2\\0\\0\\0\\x5").repeated(1000) + ')';
    QTest::newRow("a stream of a type that nobody knows")
        << "@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x6Widget\\0" + text + ')';
}

void tst_RegistryBrokenFiles::longValuesAreNoHarm()
{
    QFETCH(QByteArray, value);
    const QByteArray image = "[HKEY_CURRENT_USER]\nSoftware\\m=" + value + "\nSoftware\\n=5\n";
    const QTemporaryDir folder;
    const QString path = settingsWith(folder, image);
    QCOMPARE(runHost(path, {"entries|Software"}), QString("m n"));
    QCOMPARE(QDir(path + "/Acme").entryList(QDir::Files), QStringList("Draw.ini"));
    QVERIFY(contentOf(path + "/Acme/Draw.ini") == image);
}

void tst_RegistryBrokenFiles::valuesOfOtherKindsReadAsNothing_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("a list") << QByteArray("a, b") << "";
    QTest::newRow("no value") << QByteArray("@Invalid()") << "";
    QTest::newRow("bytes") << QByteArray("@ByteArray(abc)") << "abc";
    QTest::newRow("a point") << QByteArray("@Point(1 2)") << "";
}

void tst_RegistryBrokenFiles::valuesOfOtherKindsReadAsNothing()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, text);
    const QTemporaryDir folder;
    const QString path = settingsWith(folder, "[HKEY_CURRENT_USER]\nSoftware\\n=" + value + '\n');
    QCOMPARE(runHost(path, {"query|Software|n"}), QString("nothing"));
    QCOMPARE(runHost(path, {"entries|Software", "texts|Software"}), ("n\n" + text).trimmed());
}

void tst_RegistryBrokenFiles::aStoreThatCannotBeWrittenLivesInMemory_data()
{
    QTest::addColumn<QString>("blocker");
    QTest::addColumn<bool>("isFile");
    QTest::newRow("a folder in the file's place") << "config/Acme/Draw.ini" << false;
    QTest::newRow("a file in the folder's place") << "config/Acme" << true;
    QTest::newRow("a file in the place of all settings") << "config" << true;
}

void tst_RegistryBrokenFiles::aStoreThatCannotBeWrittenLivesInMemory()
{
    QFETCH(QString, blocker);
    QFETCH(bool, isFile);
    const QTemporaryDir folder;
    const QString path = folder.filePath(blocker);
    QDir(folder.path()).mkpath(isFile ? QFileInfo(path).path() : path);
    if (isFile)
        QVERIFY(QFile(path).open(QFile::WriteOnly));
    const QStringList commands = {"dword|Software|n|5", "flush", "query|Software|n", "entries|Software"};
    QCOMPARE(runHost(folder.filePath("config"), commands), QString("REG_DWORD 4: 5\nn"));
    QCOMPARE(runHost(folder.filePath("config"), {"query|Software|n"}), QString("nothing"));
}

XE_GUILESS_TEST(tst_RegistryBrokenFiles)
#include "tst_registrybrokenfiles.moc"
