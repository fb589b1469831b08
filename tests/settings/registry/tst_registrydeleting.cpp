#include "registrytext.h"
#include "testclass.h"

// Deleting, renaming and copying.

namespace {

// a, a/x, a/y/z, ab, b
void fillWithKeys(HKEY key)
{
    writeNumber(key, L"a", 1);
    writeText(key, L"a\\x", L"x");
    writeText(key, L"a\\y\\z", L"z");
    writeNumber(key, L"ab", 2);
    writeText(key, L"b", L"text");
}

using Delete = LSTATUS (*)(HKEY key, const wchar_t* subKey);

} // namespace

Q_DECLARE_METATYPE(Delete)

class tst_RegistryDeleting : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { emptyRegistry(); }
    void aSubKeyGoesWithAllBelowIt_data() { deleters(); }
    void aSubKeyGoesWithAllBelowIt();
    void whatIsNotThereIsNoFailure_data() { deleters(); }
    void whatIsNotThereIsNoFailure();
    void anEmptySubKeyIsTheKeyItself_data() { deleters(); }
    void anEmptySubKeyIsTheKeyItself();
    void aNullSubKey();
    void theValueNameIsNotLookedAt();

    void aRenamedEntryMovesAsText_data();
    void aRenamedEntryMovesAsText();
    void renamingLosesWhatIsBelow();
    void renamingWhatIsNotThereGivesAnEmptyText();

    void oneEntryIsCopiedWithItsType_data();
    void oneEntryIsCopiedWithItsType();
    void copyingOneEntryOverwrites();
    void nothingIsCopiedFromNothing();
    void aNullSubKeyCopiesTheEntriesDirectlyBelow();
    void aCopyOntoItselfChangesNothing();

private:
    static void deleters();
};

void tst_RegistryDeleting::deleters()
{
    QTest::addColumn<Delete>("remove");
    QTest::newRow("key") << Delete(RegDeleteKey_X);
    QTest::newRow("tree") << Delete(RegDeleteTree_X);
    QTest::newRow("value of a key") << Delete(
        [](HKEY key, const wchar_t* subKey) { return RegDeleteKeyValue_X(key, subKey, L"x"); });
}

void tst_RegistryDeleting::aSubKeyGoesWithAllBelowIt()
{
    QFETCH(Delete, remove);
    const Key key("Software");
    fillWithKeys(key);
    QCOMPARE(remove(key, L"a\\y"), 0);
    QCOMPARE(entriesOf(key), QStringList({"a", "a/x", "ab", "b"}));
    QCOMPARE(remove(key, L"a"), 0);
    QCOMPARE(entriesOf(key), QStringList({"ab", "b"}));
}

void tst_RegistryDeleting::whatIsNotThereIsNoFailure()
{
    QFETCH(Delete, remove);
    const Key key("Software");
    fillWithKeys(key);
    QCOMPARE(remove(key, L"c"), 0);
    QCOMPARE(remove(key, L"A"), 0);
    QCOMPARE(entriesOf(key).size(), 5);
}

void tst_RegistryDeleting::anEmptySubKeyIsTheKeyItself()
{
    QFETCH(Delete, remove);
    fillWithKeys(Key("Software"));
    writeNumber(Key("Other"), L"n", 1);
    QCOMPARE(remove(Key("Software"), L""), 0);
    QCOMPARE(entriesOf(Key(nullptr)), QStringList("Other/n"));
}

void tst_RegistryDeleting::aNullSubKey()
{
    const Key key("Software");
    fillWithKeys(key);
    QCOMPARE(RegDeleteKey_X(key, nullptr), 3);
    QCOMPARE(entriesOf(key).size(), 5);
    QCOMPARE(RegDeleteTree_X(key, nullptr), 0);
    QCOMPARE(entriesOf(key).size(), 0);
    fillWithKeys(key);
    QCOMPARE(RegDeleteKeyValue_X(key, nullptr, nullptr), 0);
    QCOMPARE(entriesOf(key).size(), 0);
}

void tst_RegistryDeleting::theValueNameIsNotLookedAt()
{
    const Key key("Software");
    fillWithKeys(key);
    QCOMPARE(RegDeleteKeyValue_X(key, L"a", L"b"), 0);
    QCOMPARE(entriesOf(key), QStringList({"ab", "b"}));
}

void tst_RegistryDeleting::aRenamedEntryMovesAsText_data()
{
    QTest::addColumn<QString>("oldName");
    QTest::addColumn<QString>("newName");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("place");
    QTest::newRow("a number") << "ab"
                              << "n"
                              << "REG_SZ 2: 2"
                              << "n";
    QTest::newRow("a text") << "b"
                            << "n"
                            << "REG_SZ 5: text"
                            << "n";
    QTest::newRow("to a deeper place") << "b"
                                       << "c\\d"
                                       << "REG_SZ 5: text"
                                       << "c/d";
    QTest::newRow("from a deeper place") << "a\\x"
                                         << "n"
                                         << "REG_SZ 2: x"
                                         << "n";
    QTest::newRow("onto itself") << "ab"
                                 << "ab"
                                 << "REG_SZ 2: 2"
                                 << "ab";
    QTest::newRow("onto another") << "b"
                                  << "ab"
                                  << "REG_SZ 5: text"
                                  << "ab";
}

void tst_RegistryDeleting::aRenamedEntryMovesAsText()
{
    QFETCH(QString, oldName);
    QFETCH(QString, newName);
    QFETCH(QString, place);
    const Key key("Software");
    fillWithKeys(key);
    QCOMPARE(RegRenameKey_X(key, oldName.toStdWString().c_str(), newName.toStdWString().c_str()), 0);
    QTEST(queried(key, place.toLatin1()), "value");
    if (oldName != newName)
        QCOMPARE(queried(key, oldName.toLatin1()), QString("nothing"));
}

void tst_RegistryDeleting::renamingLosesWhatIsBelow()
{
    const Key key("Software");
    fillWithKeys(key);
    QCOMPARE(RegRenameKey_X(key, L"a", L"c"), 0);
    QCOMPARE(entriesOf(key), QStringList({"ab", "b", "c"}));
    QCOMPARE(textsOf(key), QStringList({"2", "text", "1"}));

    emptyRegistry();
    writeText(key, L"a\\x", L"x");
    QCOMPARE(RegRenameKey_X(key, L"a", L"c"), 0);
    QCOMPARE(entriesOf(key), QStringList("c"));
    QCOMPARE(queried(key, "c"), QString("REG_SZ 1: "));
}

void tst_RegistryDeleting::renamingWhatIsNotThereGivesAnEmptyText()
{
    const Key key("Software");
    QCOMPARE(RegRenameKey_X(key, L"a", L"c"), 0);
    QCOMPARE(queried(key, "c"), QString("REG_SZ 1: "));
    // A null name is the key's own entry, as an empty one.
    QCOMPARE(RegRenameKey_X(key, nullptr, nullptr), 0);
    QCOMPARE(queried(Key(nullptr), "Software"), QString("REG_SZ 1: "));
    QCOMPARE(entriesOf(key), QStringList());
}

void tst_RegistryDeleting::oneEntryIsCopiedWithItsType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("a number") << "a"
                              << "REG_DWORD 4: 1";
    QTest::newRow("a text") << "b"
                            << "REG_SZ 5: text";
    QTest::newRow("from a deeper place") << "a\\x"
                                         << "REG_SZ 2: x";
}

void tst_RegistryDeleting::oneEntryIsCopiedWithItsType()
{
    QFETCH(QString, name);
    const Key source("Software");
    const Key destination("Other");
    fillWithKeys(source);
    QCOMPARE(RegCopyTree_X(source, name.toStdWString().c_str(), destination), 0);
    QTEST(queried(destination, name.toLatin1()), "value");
    QCOMPARE(entriesOf(destination).size(), 1);
    QCOMPARE(entriesOf(source).size(), 5);
}

void tst_RegistryDeleting::copyingOneEntryOverwrites()
{
    const Key source("Software");
    const Key destination("Other");
    writeText(source, L"n", L"new");
    writeNumber(destination, L"n", 1);
    RegCopyTree_X(source, L"n", destination);
    QCOMPARE(queried(destination, "n"), QString("REG_SZ 4: new"));
}

void tst_RegistryDeleting::nothingIsCopiedFromNothing()
{
    const Key source("Software");
    const Key destination("Other");
    QCOMPARE(RegCopyTree_X(source, nullptr, destination), 0);
    QCOMPARE(RegCopyTree_X(source, L"n", destination), 0);
    QCOMPARE(entriesOf(destination), QStringList());
    writeNumber(destination, L"n", 1);
    QCOMPARE(RegCopyTree_X(source, L"n", destination), 0);
    QCOMPARE(queried(destination, "n"), QString("REG_DWORD 4: 1"));
}

void tst_RegistryDeleting::aNullSubKeyCopiesTheEntriesDirectlyBelow()
{
    const Key source("Software");
    const Key destination("Other\\Deeper");
    fillWithKeys(source);
    writeText(destination, L"b", L"old");
    writeText(destination, L"kept", L"kept");
    QCOMPARE(RegCopyTree_X(source, nullptr, destination), 0);
    QCOMPARE(entriesOf(destination), QStringList({"a", "ab", "b", "kept"}));
    QCOMPARE(queried(destination, "a"), QString("REG_DWORD 4: 1"));
    QCOMPARE(queried(destination, "ab"), QString("REG_DWORD 4: 2"));
    QCOMPARE(queried(destination, "b"), QString("REG_SZ 5: text"));
}

void tst_RegistryDeleting::aCopyOntoItselfChangesNothing()
{
    const Key key("Software");
    fillWithKeys(key);
    const QStringList texts = textsOf(key);
    QCOMPARE(RegCopyTree_X(key, nullptr, key), 0);
    QCOMPARE(RegCopyTree_X(key, L"a", key), 0);
    QCOMPARE(textsOf(key), texts);
}

XE_GUILESS_TEST(tst_RegistryDeleting)
#include "tst_registrydeleting.moc"
