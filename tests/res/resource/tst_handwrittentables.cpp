// How tables are read, whoever has made them: each table belongs to a copy of the plug-in without tables that has its
// name.

#include "leavenothing.h"
#include "loadedplugin.h"
#include "testclass.h"

namespace {

QString asText(const QMap<unsigned, QString>& ids)
{
    QStringList entries;
    for (auto entry = ids.begin(); entry != ids.end(); ++entry)
        entries += QStringLiteral("%1=%2").arg(entry.key()).arg(entry.value());
    return entries.join(' ');
}

} // namespace

static void cleanUpLateResource() { Q_CLEANUP_RESOURCE(late); }
static void initLateResource() { Q_INIT_RESOURCE(late); }

class tst_HandwrittenTables : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(LeaveNothing::leftovers(), QString()); }

    void sectionHasNoMeaning_data();
    void sectionHasNoMeaning();
    void keys_data();
    void keys();
    void lowestIdOfAName();
    void tablesThatComeLater();

private:
    PluginCopies m_copies;
};

void tst_HandwrittenTables::sectionHasNoMeaning_data()
{
    QTest::addColumn<QString>("module");
    QTest::newRow("top level") << "libtoplevel";
    QTest::newRow("[General]") << "libsection";
}

void tst_HandwrittenTables::sectionHasNoMeaning()
{
    QFETCH(const QString, module);
    const LoadedPlugin plugin(m_copies.copyOf(barePlugin(), module + QStringLiteral(".so")));
    QCOMPARE(asText(plugin->ids()), QStringLiteral("1001=IDC_PART 1002=IDC_SECOND"));
    QCOMPARE(plugin->text(1001), QStringLiteral("a part"));
    QCOMPARE(plugin->text(1002), QStringLiteral("零件 😀, the second"));
}

void tst_HandwrittenTables::keys_data()
{
    QTest::addColumn<QString>("ids");
    QTest::newRow("libnames") << "0=IDC_NO_NUMBER 1001=IDC_PART";
    QTest::newRow("libhexadecimal") << "0=IDC_HEXADECIMAL";
    QTest::newRow("libnegative") << "0=IDC_NEGATIVE";
    QTest::newRow("libtoolarge") << "0=IDC_33_BITS";
    QTest::newRow("libhighest") << "4294967295=IDC_HIGHEST";
    QTest::newRow("libtwokeys") << "7=IDC_PLAIN 9=IDC_NINE";
}

void tst_HandwrittenTables::keys()
{
    const QString file = QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".so");
    QTEST(asText(LoadedPlugin(m_copies.copyOf(barePlugin(), file))->ids()), "ids");
}

void tst_HandwrittenTables::lowestIdOfAName()
{
    const LoadedPlugin plugin(m_copies.copyOf(barePlugin(), "libtwonames.so"));
    QCOMPARE(plugin->ctrlId("IDC_TWICE"), 7);
    QCOMPARE(plugin->ctrlId("IDC_OTHER"), 3);
}

void tst_HandwrittenTables::tablesThatComeLater()
{
    const LoadedPlugin plugin(m_copies.copyOf(barePlugin(), "liblate.so"));
    cleanUpLateResource();
    QCOMPARE(plugin->objectName(1001), QString());
    QCOMPARE(plugin->text(1001), QString());
    QVERIFY(plugin->texts().isEmpty());
    initLateResource();
    QCOMPARE(plugin->objectName(1001), QStringLiteral("IDC_PART"));
    QCOMPARE(plugin->text(1001), QStringLiteral("a part"));
    cleanUpLateResource(); // what has been read stays
    QCOMPARE(plugin->objectName(1001), QStringLiteral("IDC_PART"));
    QCOMPARE(plugin->text(1001), QStringLiteral("a part"));
    initLateResource();
}

XE_TEST(tst_HandwrittenTables)
#include "tst_handwrittentables.moc"
