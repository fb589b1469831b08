#include "registrytext.h"
#include "runhost.h"
#include "testclass.h"

#include <QTemporaryDir>

// The file on disk, and what a next run finds in it.

namespace {

struct Settings
{
    QTemporaryDir folder;
    QString path = folder.path();

    QString run(const QStringList& commands) const { return runHost(path, commands); }
    QByteArray image() const { return contentOf(path + "/Acme/Draw.ini"); }
};

} // namespace

class tst_RegistryFile : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        emptyRegistry();
        RegFlushKey_X(nullptr);
    }
    void theImage_data();
    void theImage();
    void sectionsAndKeysAreSorted();
    void aCreatedKeyLeavesNoTrace();
    void theExitWritesTheFile();
    void aFlushWritesTheFile();
    void theEventLoopWritesTheFile();
    void typesAreLostInTheNextRun_data();
    void typesAreLostInTheNextRun();
    void whatIsInTheFileStays();
    void oddNamesComeBack_data();
    void oddNamesComeBack();
};

void tst_RegistryFile::theImage_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("image");
    const QByteArray section = "[HKEY_CURRENT_USER]\n";
    QTest::newRow("a number") << "dword|Software\\Acme|Size|123" << section + "Software\\Acme\\Size=123\n";
    QTest::newRow("a large number") << "qword|Software\\Acme|Size|18446744073709551615"
                                    << section + "Software\\Acme\\Size=18446744073709551615\n";
    QTest::newRow("a text") << "text|Software\\Acme|Name|some text" << section + "Software\\Acme\\Name=some text\n";
    QTest::newRow("an empty text") << "text|Software|Name|" << section + "Software\\Name=\n";
    QTest::newRow("a text with a comma") << "text|Software|Name|a, b" << section + "Software\\Name=\"a, b\"\n";
    QTest::newRow("a text with a backslash") << "text|Software|Name|C:\\a" << section + "Software\\Name=C:\\\\a\n";
    QTest::newRow("a text with an at sign") << "text|Software|Name|@x" << section + "Software\\Name=@@x\n";
    QTest::newRow("an entry directly below the root") << "dword||Value|1" << section + "Value=1\n";
    QTest::newRow("an entry at the root's own path") << "dword|||1" << QByteArray("[General]\nHKEY_CURRENT_USER=1\n");
    QTest::newRow("a blank in a name") << "dword|My Software|a b|1" << section + "My%20Software\\a%20b=1\n";
}

void tst_RegistryFile::theImage()
{
    QFETCH(QString, command);
    const Settings settings;
    QCOMPARE(settings.run({command}), QString());
    QTEST(settings.image(), "image");
}

void tst_RegistryFile::sectionsAndKeysAreSorted()
{
    writeNumber(Key("b", HKEY_LOCAL_MACHINE), L"n", 1);
    writeNumber(Key("b"), L"z", 2);
    writeNumber(Key("b"), L"a", 3);
    writeNumber(Key("a"), L"n", 4);
    writeNumber(Key(nullptr, HKEY_CLASSES_ROOT), L".draw", 5);
    RegFlushKey_X(nullptr);
    QCOMPARE(contentOf(registryFile()), QByteArray("[HKEY_CLASSES_ROOT]\n.draw=5\n\n"
                                                   "[HKEY_CURRENT_USER]\na\\n=4\nb\\a=3\nb\\z=2\n\n"
                                                   "[HKEY_LOCAL_MACHINE]\nb\\n=1\n"));
}

void tst_RegistryFile::aCreatedKeyLeavesNoTrace()
{
    const Settings settings;
    QCOMPARE(settings.run({"create|Software\\Acme"}), QString());
    QVERIFY(!QFile::exists(settings.path + "/Acme/Draw.ini"));
    QCOMPARE(settings.run({"dword|Software|n|1", "create|Software\\Acme"}), QString());
    QCOMPARE(settings.image(), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\n=1\n"));
}

void tst_RegistryFile::theExitWritesTheFile()
{
    const Settings settings;
    settings.run({"dword|Software|n|1"});
    settings.run({"dword|Software|m|2"});
    settings.run({"delete|Software|n"});
    QCOMPARE(settings.image(), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\m=2\n"));
}

void tst_RegistryFile::aFlushWritesTheFile()
{
    const Key key("Software");
    writeNumber(key, L"n", 1);
    QVERIFY(!contentOf(registryFile()).contains("n=1"));
    RegFlushKey_X(key);
    QCOMPARE(contentOf(registryFile()), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\n=1\n"));
}

void tst_RegistryFile::theEventLoopWritesTheFile()
{
    QCoreApplication::sendPostedEvents();
    writeNumber(Key("Software"), L"n", 2);
    QVERIFY(!contentOf(registryFile()).contains("n=2"));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(contentOf(registryFile()), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\n=2\n"));
}

void tst_RegistryFile::typesAreLostInTheNextRun_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("DWORD") << "dword|Software|n|5"
                           << "REG_DWORD 4: 5"
                           << "REG_SZ 2: 5";
    QTest::newRow("QWORD") << "qword|Software|n|123"
                           << "REG_QWORD 8: 123"
                           << "REG_SZ 4: 123";
    QTest::newRow("text") << "text|Software|n|text"
                          << "REG_SZ 5: text"
                          << "REG_SZ 5: text";
    QTest::newRow("empty text") << "text|Software|n|"
                                << "REG_SZ 1:"
                                << "REG_SZ 1:";
    QTest::newRow("text with a comma, written by the library") << "text|Software|n|a,b"
                                                               << "REG_SZ 4: a,b"
                                                               << "REG_SZ 4: a,b";
    QTest::newRow("text of odd characters") << "text|Software|n|@\"\\;=%["
                                            << "REG_SZ 8: @\"\\;=%["
                                            << "REG_SZ 8: @\"\\;=%[";
}

void tst_RegistryFile::typesAreLostInTheNextRun()
{
    QFETCH(QString, command);
    const Settings settings;
    QTEST(settings.run({command, "flush", "query|Software|n"}), "before");
    QTEST(settings.run({"query|Software|n"}), "after");
}

void tst_RegistryFile::whatIsInTheFileStays()
{
    const Settings settings;
    settings.run({"dword|Software|n|1", "text|Other|t|x"});
    QCOMPARE(settings.run({"text|Software|m|y", "entries|"}), QString("Other/t Software/m Software/n"));
    QCOMPARE(settings.run({"texts|"}), QString("x y 1"));
}

void tst_RegistryFile::oddNamesComeBack_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name : {"%", "%41", "=", "a=b", "[x]", "a\nb", ";", "#", "\"", "@Invalid()", "General", ","})
        QTest::newRow(name) << name;
    QTest::newRow("very long") << QString(100000, 'n');
}

void tst_RegistryFile::oddNamesComeBack()
{
    QFETCH(QString, name);
    const Settings settings;
    settings.run({"text|Software|" + name + "|text", "text|" + name + "|n|below"});
    QCOMPARE(settings.run({"entries|Software", "query|" + name + "|n"}), name + "\nREG_SZ 6: below");
}

XE_GUILESS_TEST(tst_RegistryFile)
#include "tst_registryfile.moc"
