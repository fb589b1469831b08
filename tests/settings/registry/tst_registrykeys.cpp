#include "registrytext.h"
#include "testclass.h"

Q_DECLARE_METATYPE(HKEY)

// Opening, creating and closing keys.

namespace {

// A host may keep predefined keys in static objects.
struct StaticRoot
{
    HKEY root;
};
const StaticRoot staticSettings = {HKEY_LOCAL_MACHINE};

using Open = LSTATUS (*)(HKEY parent, PHKEY out);

const Open openers[] = {
    [](HKEY parent, PHKEY out) { return RegOpenKeyExA_X(parent, "Software\\Acme", 0, KEY_READ, out); },
    [](HKEY parent, PHKEY out) { return RegOpenKeyExW_X(parent, L"Software\\Acme", 0, KEY_READ, out); },
    [](HKEY parent, PHKEY out) { return RegOpenKeyA_X(parent, "Software\\Acme", out); },
    [](HKEY parent, PHKEY out) { return RegOpenKeyW_X(parent, L"Software\\Acme", out); },
};

const Open creators[] = {
    [](HKEY parent, PHKEY out) {
        return RegCreateKeyExA_X(parent, "Software\\Acme", 7, nullptr, REG_OPTION_VOLATILE, 0, nullptr, out, nullptr);
    },
    [](HKEY parent, PHKEY out) {
        return RegCreateKeyExW_X(parent, L"Software\\Acme", 7, nullptr, REG_OPTION_VOLATILE, 0, nullptr, out, nullptr);
    },
    [](HKEY parent, PHKEY out) { return RegCreateKey_X(parent, L"Software\\Acme", out); },
};

} // namespace

class tst_RegistryKeys : public QObject
{
    Q_OBJECT

private slots:
    void aKeyOpensFromAPredefinedRoot_data();
    void aKeyOpensFromAPredefinedRoot();
    void predefinedKeysAreTheSignExtendedNumbers_data();
    void predefinedKeysAreTheSignExtendedNumbers();
    void predefinedKeysAreThereForStaticObjects();
    void theSubKeyBecomesThePath_data();
    void theSubKeyBecomesThePath();
    void aNullWideSubKeyIsTheRootItself();
    void noOtherParentOpens_data();
    void noOtherParentOpens();
    void theDispositionIsNotWritten();
    void aNullOutputIsSkipped();
    void theUsersRootsOpenByName();
    void openAndCreateLeaveNoEntry();
    void closingFreesTheKeyAlone();
    void flushTakesAnyHandle();
    void theCacheFunctionDoesNothing();
};

void tst_RegistryKeys::aKeyOpensFromAPredefinedRoot_data()
{
    QTest::addColumn<quint64>("number");
    QTest::addColumn<QString>("root");
    QTest::newRow("classes root") << 0xFFFFFFFF80000000ULL << "HKEY_CLASSES_ROOT";
    QTest::newRow("current user") << 0xFFFFFFFF80000001ULL << "HKEY_CURRENT_USER";
    QTest::newRow("local machine") << 0xFFFFFFFF80000002ULL << "HKEY_LOCAL_MACHINE";
    QTest::newRow("users") << 0xFFFFFFFF80000003ULL << "HKEY_USERS";
    QTest::newRow("performance data") << 0xFFFFFFFF80000004ULL << "HKEY_PERFORMANCE_DATA";
    QTest::newRow("performance text") << 0xFFFFFFFF80000050ULL << "HKEY_PERFORMANCE_TEXT";
    QTest::newRow("performance national text") << 0xFFFFFFFF80000060ULL << "HKEY_PERFORMANCE_NLSTEXT";
    QTest::newRow("current configuration") << 0xFFFFFFFF80000005ULL << "HKEY_CURRENT_CONFIG";
    QTest::newRow("dynamic data") << 0xFFFFFFFF80000006ULL << "HKEY_DYN_DATA";
    QTest::newRow("local settings") << 0xFFFFFFFF80000007ULL << "HKEY_CURRENT_USER_LOCAL_SETTINGS";
}

void tst_RegistryKeys::aKeyOpensFromAPredefinedRoot()
{
    QFETCH(quint64, number);
    QFETCH(QString, root);
    const auto expectPath = [&](Open open) {
        HKEY key = nullptr;
        QCOMPARE(open(reinterpret_cast<HKEY>(number), &key), 0);
        QVERIFY(key);
        QCOMPARE(*key, root + "/Software/Acme");
        QCOMPARE(RegCloseKey_X(key), 0);
    };
    for (const Open open : openers)
        expectPath(open);
    for (const Open create : creators)
        expectPath(create);
}

void tst_RegistryKeys::predefinedKeysAreTheSignExtendedNumbers_data()
{
    QTest::addColumn<HKEY>("key");
    QTest::addColumn<qint64>("number");
    const auto lowBits = [](int number) { return qint64(number); };
    QTest::newRow("classes root") << HKEY_CLASSES_ROOT << lowBits(int(0x80000000));
    QTest::newRow("current user") << HKEY_CURRENT_USER << lowBits(int(0x80000001));
    QTest::newRow("local machine") << HKEY_LOCAL_MACHINE << lowBits(int(0x80000002));
    QTest::newRow("users") << HKEY_USERS << lowBits(int(0x80000003));
    QTest::newRow("performance data") << HKEY_PERFORMANCE_DATA << lowBits(int(0x80000004));
    QTest::newRow("performance text") << HKEY_PERFORMANCE_TEXT << lowBits(int(0x80000050));
    QTest::newRow("performance national text") << HKEY_PERFORMANCE_NLSTEXT << lowBits(int(0x80000060));
    QTest::newRow("current configuration") << HKEY_CURRENT_CONFIG << lowBits(int(0x80000005));
    QTest::newRow("dynamic data") << HKEY_DYN_DATA << lowBits(int(0x80000006));
    QTest::newRow("local settings") << HKEY_CURRENT_USER_LOCAL_SETTINGS << lowBits(int(0x80000007));
}

void tst_RegistryKeys::predefinedKeysAreTheSignExtendedNumbers()
{
    QFETCH(HKEY, key);
    QTEST(qint64(reinterpret_cast<qintptr>(key)), "number");
}

void tst_RegistryKeys::predefinedKeysAreThereForStaticObjects()
{
    QCOMPARE(*Key(nullptr, staticSettings.root), QString("HKEY_LOCAL_MACHINE"));
}

void tst_RegistryKeys::theSubKeyBecomesThePath_data()
{
    QTest::addColumn<QByteArray>("subKey");
    QTest::addColumn<QString>("path");
    QTest::newRow("backslashes separate") << QByteArray("Software\\Acme") << "HKEY_CURRENT_USER/Software/Acme";
    QTest::newRow("so do slashes") << QByteArray("Software/Acme") << "HKEY_CURRENT_USER/Software/Acme";
    QTest::newRow("case is kept") << QByteArray("sOFTWARE") << "HKEY_CURRENT_USER/sOFTWARE";
    QTest::newRow("empty is the root itself") << QByteArray("") << "HKEY_CURRENT_USER";
    QTest::newRow("null is the root itself") << QByteArray() << "HKEY_CURRENT_USER";
    QTest::newRow("bytes are Latin-1") << QByteArray("\xE9\xFF") << QString::fromUtf8("HKEY_CURRENT_USER/éÿ");
    QTest::newRow("odd characters stay") << QByteArray(" %=[]\n") << "HKEY_CURRENT_USER/ %=[]\n";
    QTest::newRow("very long") << QByteArray(100000, 'k') << "HKEY_CURRENT_USER/" + QString(100000, 'k');
}

void tst_RegistryKeys::theSubKeyBecomesThePath()
{
    QFETCH(QByteArray, subKey);
    QFETCH(QString, path);
    const char* const text = subKey.isNull() ? nullptr : subKey.constData();
    QCOMPARE(*Key(text), path);
    HKEY created = nullptr;
    QCOMPARE(RegCreateKeyExA_X(HKEY_CURRENT_USER, text, 0, nullptr, 0, 0, nullptr, &created, nullptr), 0);
    QCOMPARE(*created, path);
    RegCloseKey_X(created);
}

void tst_RegistryKeys::aNullWideSubKeyIsTheRootItself()
{
    HKEY opened = nullptr;
    QCOMPARE(RegOpenKeyW_X(HKEY_USERS, nullptr, &opened), 0);
    QCOMPARE(*opened, QString("HKEY_USERS"));
    RegCloseKey_X(opened);
    HKEY created = nullptr;
    QCOMPARE(RegCreateKey_X(HKEY_USERS, nullptr, &created), 0);
    QCOMPARE(*created, QString("HKEY_USERS"));
    RegCloseKey_X(created);
}

void tst_RegistryKeys::noOtherParentOpens_data()
{
    QTest::addColumn<quint64>("parent");
    static const Key opened("Software");
    QTest::newRow("null") << quint64(0);
    QTest::newRow("an opened key") << quint64(reinterpret_cast<quintptr>(static_cast<HKEY>(opened)));
    QTest::newRow("a number that is not sign-extended") << quint64(0x80000001);
    QTest::newRow("a number between the predefined ones") << quint64(0xFFFFFFFF80000008);
    QTest::newRow("the invalid handle") << ~quint64(0);
}

void tst_RegistryKeys::noOtherParentOpens()
{
    QFETCH(quint64, parent);
    QString untouched;
    for (const Open open : openers) {
        HKEY key = &untouched;
        QCOMPARE(open(reinterpret_cast<HKEY>(parent), &key), 2);
        QCOMPARE(key, &untouched);
    }
    for (const Open create : creators) {
        HKEY key = &untouched;
        QCOMPARE(create(reinterpret_cast<HKEY>(parent), &key), 6);
        QCOMPARE(key, &untouched);
    }
}

void tst_RegistryKeys::theDispositionIsNotWritten()
{
    DWORD disposition = 77;
    wchar_t wideClass[] = L"class";
    char narrowClass[] = "class";
    HKEY key = nullptr;
    RegCreateKeyExA_X(HKEY_CURRENT_USER, "k", 0, narrowClass, 0, KEY_ALL_ACCESS, nullptr, &key, &disposition);
    RegCloseKey_X(key);
    RegCreateKeyExW_X(HKEY_CURRENT_USER, L"k", 0, wideClass, 0, KEY_ALL_ACCESS, nullptr, &key, &disposition);
    RegCloseKey_X(key);
    QCOMPARE(disposition, 77U);
}

void tst_RegistryKeys::aNullOutputIsSkipped()
{
    for (const Open open : openers)
        QCOMPARE(open(HKEY_CURRENT_USER, nullptr), 0);
    for (const Open create : creators)
        QCOMPARE(create(HKEY_CURRENT_USER, nullptr), 0);
    QCOMPARE(RegOpenCurrentUser_X(0, nullptr), 0);
    QCOMPARE(RegOpenUserClassesRoot_X(nullptr, 0, 0, nullptr), 0);
}

void tst_RegistryKeys::theUsersRootsOpenByName()
{
    HKEY user = nullptr;
    QCOMPARE(RegOpenCurrentUser_X(KEY_READ, &user), 0);
    QCOMPARE(*user, QString("HKEY_CURRENT_USER"));
    RegCloseKey_X(user);
    HKEY classes = nullptr;
    QCOMPARE(RegOpenUserClassesRoot_X(nullptr, 0, KEY_READ, &classes), 0);
    QCOMPARE(*classes, QString("HKEY_CLASSES_ROOT"));
    RegCloseKey_X(classes);
}

void tst_RegistryKeys::openAndCreateLeaveNoEntry()
{
    const Key root(nullptr);
    const Key opened("Software\\Opened");
    HKEY created = nullptr;
    RegCreateKey_X(HKEY_CURRENT_USER, L"Software\\Created", &created);
    RegCloseKey_X(created);
    QCOMPARE(entriesOf(root), QStringList());
}

void tst_RegistryKeys::closingFreesTheKeyAlone()
{
    HKEY key = nullptr;
    RegOpenKeyA_X(HKEY_CURRENT_USER, "Software", &key);
    writeNumber(key, L"n", 1);
    QCOMPARE(RegCloseKey_X(key), 0);
    QCOMPARE(queried(Key("Software"), "n"), QString("REG_DWORD 4: 1"));
    emptyRegistry();
}

void tst_RegistryKeys::flushTakesAnyHandle()
{
    const Key key("Software");
    for (const HKEY handle : {static_cast<HKEY>(key), HKEY(nullptr), HKEY_CURRENT_USER}) {
        writeText(key, L"t", L"x");
        QCOMPARE(RegFlushKey_X(handle), 0);
        QCOMPARE(contentOf(registryFile()), QByteArray("[HKEY_CURRENT_USER]\nSoftware\\t=x\n"));
        emptyRegistry();
        RegFlushKey_X(nullptr);
        QCOMPARE(contentOf(registryFile()), QByteArray());
    }
}

void tst_RegistryKeys::theCacheFunctionDoesNothing() { QCOMPARE(RegDisablePredefinedCache_X(), 0); }

XE_GUILESS_TEST(tst_RegistryKeys)
#include "tst_registrykeys.moc"
