#include "registrytext.h"
#include "runhost.h"
#include "testclass.h"

#include <QDirIterator>
#include <QTemporaryDir>

// How a host's names come to be the name of its file.

class tst_RegistryHostNames : public QObject
{
    Q_OBJECT

private slots:
    void aProgramHasAFile_data();
    void aProgramHasAFile();
    void namesSetInMainAreTooLate();
};

void tst_RegistryHostNames::aProgramHasAFile_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<QString>("file");
    QTest::newRow("named ahead of all libraries") << QByteArray("HOST") << "Acme/Draw.ini";
    QTest::newRow("named by a library of its own") << QByteArray("LINKED") << "Acme/Draw.ini";
    QTest::newRow("loading the library after its names are set") << QByteArray("LOADER") << "Acme/Draw.ini";
    QTest::newRow("without names") << QByteArray("NAMELESS") << "Unknown Organization.ini";
}

void tst_RegistryHostNames::aProgramHasAFile()
{
    QFETCH(QByteArray, program);
    QFETCH(QString, file);
    const QTemporaryDir folder;
    QCOMPARE(runProgram(program, folder.path(), {"dword|Software|n|5", "query|Software|n"}), QString("REG_DWORD 4: 5"));
    QStringList files;
    for (QDirIterator it(folder.path(), {"*.ini"}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files += QDir(folder.path()).relativeFilePath(it.next());
    QCOMPARE(files, QStringList(file));
    QCOMPARE(contentOf(folder.filePath(file)), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\n=5\n"));
    QCOMPARE(runProgram(program, folder.path(), {"query|Software|n"}), QString("REG_SZ 2: 5"));
}

void tst_RegistryHostNames::namesSetInMainAreTooLate()
{
    QCoreApplication::setOrganizationName("Other");
    QCoreApplication::setApplicationName("Name");
    writeNumber(Key("Software"), L"n", 1);
    RegFlushKey_X(nullptr);
    QCOMPARE(contentOf(registryFile()), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\n=1\n"));
}

XE_GUILESS_TEST(tst_RegistryHostNames)
#include "tst_registryhostnames.moc"
