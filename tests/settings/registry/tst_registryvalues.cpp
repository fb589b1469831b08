#include "registrytext.h"
#include "testclass.h"

// Writing and reading a value by its type.

namespace {

const DWORD five = 5;
const quint64 large = 0xFEDCBA9876543210;

} // namespace

class tst_RegistryValues : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { emptyRegistry(); }
    void typesHaveThePublishedNumbers();
    void whatIsWrittenIsRead_data();
    void whatIsWrittenIsRead();
    void otherTypesAreLost_data();
    void otherTypesAreLost();
    void aValueThatIsNotThereLeavesAllOutputs();
    void aNameLeadsToADeeperPath();
    void theDefaultIsWrittenToOnePlaceAndReadFromAnother_data();
    void theDefaultIsWrittenToOnePlaceAndReadFromAnother();
    void aLaterTypeReplacesAnEarlierOne();
    void anEmptiedValueStays();
    void theIncomingSizeIsNotLookedAt();
    void everyOutputMayBeNull();
    void nullData();
    void numbersMayStandAnywhere();
    void theSubKeyOfASetIsTheName();
    void theSubKeyOfAKeyValueIsDropped();
    void theSubKeyOfAGetIsTheName();
    void theRootItselfHoldsValues();
};

void tst_RegistryValues::typesHaveThePublishedNumbers()
{
    QCOMPARE((QVector<DWORD>{REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_DWORD_BIG_ENDIAN, REG_LINK,
                             REG_MULTI_SZ, REG_RESOURCE_LIST, REG_FULL_RESOURCE_DESCRIPTOR,
                             REG_RESOURCE_REQUIREMENTS_LIST, REG_QWORD}),
             (QVector<DWORD>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
}

void tst_RegistryValues::whatIsWrittenIsRead_data()
{
    QTest::addColumn<KeyCall>("write");
    QTest::addColumn<QString>("read");
    QTest::newRow("DWORD") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_DWORD, &five, 4); })
                           << "REG_DWORD 4: 5";
    QTest::newRow("DWORD, 8-bit") << KeyCall([](HKEY key) {
        return RegSetValueExA_X(key, "n", 0, REG_DWORD, &five, 4);
    }) << "REG_DWORD 4: 5";
    QTest::newRow("DWORD with its top bit") << KeyCall([](HKEY key) {
        const DWORD all = 0xFFFFFFFF;
        return RegSetValueExW_X(key, L"n", 0, REG_DWORD, &all, 4);
    }) << "REG_DWORD 4: 4294967295";
    QTest::newRow("QWORD") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_QWORD, &large, 8); })
                           << "REG_QWORD 8: 18364758544493064720";
    QTest::newRow("QWORD, 8-bit") << KeyCall([](HKEY key) {
        return RegSetValueExA_X(key, "n", 0, REG_QWORD, &large, 8);
    }) << "REG_QWORD 8: 18364758544493064720";
    QTest::newRow("text") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"text", 20); })
                          << "REG_SZ 5: text";
    QTest::newRow("text, 8-bit") << KeyCall([](HKEY key) { return RegSetValueExA_X(key, "n", 0, REG_SZ, "text", 5); })
                                 << "REG_SZ 5: text";
    QTest::newRow("an expandable text is a text")
        << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_EXPAND_SZ, L"%HOME%", 28); })
        << "REG_SZ 7: %HOME%";
    QTest::newRow("an expandable text, 8-bit")
        << KeyCall([](HKEY key) { return RegSetValueExA_X(key, "n", 0, REG_EXPAND_SZ, "%HOME%", 7); })
        << "REG_SZ 7: %HOME%";
    QTest::newRow("empty text") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"", 4); })
                                << "REG_SZ 1: ";
    QTest::newRow("digits stay a text") << KeyCall([](HKEY key) {
        return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"123", 0);
    }) << "REG_SZ 4: 123";
    QTest::newRow("a comma") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"a,b", 0); })
                             << "REG_SZ 4: a,b";
    QTest::newRow("a terminator ends the text")
        << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"ab\0cd", 24); }) << "REG_SZ 3: ab";
    QTest::newRow("a terminator ends the 8-bit text")
        << KeyCall([](HKEY key) { return RegSetValueExA_X(key, "n", 0, REG_SZ, "ab\0cd", 6); }) << "REG_SZ 3: ab";
    QTest::newRow("the size is ignored") << KeyCall([](HKEY key) {
        return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"text", 1);
    }) << "REG_SZ 5: text";
    QTest::newRow("the reserved word is ignored")
        << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 9, REG_DWORD, &five, 0); }) << "REG_DWORD 4: 5";
    QTest::newRow("wide text is code points")
        << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_SZ, L"é😀", 0); })
        << QString::fromUtf8("REG_SZ 7: é😀");
    QTest::newRow("8-bit text is Latin-1")
        << KeyCall([](HKEY key) { return RegSetValueExA_X(key, "n", 0, REG_SZ, "\xE9", 0); })
        << QString::fromUtf8("REG_SZ 3: é");
}

void tst_RegistryValues::whatIsWrittenIsRead()
{
    QFETCH(KeyCall, write);
    QFETCH(QString, read);
    const Key key("Software");
    QCOMPARE(write(key), 0);
    QCOMPARE(queried(key, "n"), read);
    QCOMPARE(queried(key, L"n"), read);
}

void tst_RegistryValues::otherTypesAreLost_data()
{
    QTest::addColumn<DWORD>("type");
    const DWORD types[] = {
        REG_NONE,      REG_BINARY,        REG_DWORD_BIG_ENDIAN,         REG_LINK,
        REG_MULTI_SZ,  REG_RESOURCE_LIST, REG_FULL_RESOURCE_DESCRIPTOR, REG_RESOURCE_REQUIREMENTS_LIST,
        REG_QWORD + 1, 0xFFFFFFFF};
    for (const DWORD type : types)
        QTest::addRow("type %u", type) << type;
}

void tst_RegistryValues::otherTypesAreLost()
{
    QFETCH(DWORD, type);
    const Key key("Software");
    QCOMPARE(RegSetValueExW_X(key, L"n", 0, type, L"binary", 24), 0);
    QCOMPARE(RegSetValueExA_X(key, "n", 0, type, "binary", 6), 0);
    QCOMPARE(entriesOf(key), QStringList());
    writeNumber(key, L"n", 5);
    QCOMPARE(RegSetValueExW_X(key, L"n", 0, type, L"binary", 24), 0);
    QCOMPARE(queried(key, "n"), QString("REG_DWORD 4: 5"));
}

void tst_RegistryValues::aValueThatIsNotThereLeavesAllOutputs()
{
    const Key key("Software");
    QCOMPARE(queried(key, "n"), QString("nothing"));
    QCOMPARE(queried(key, L"n"), QString("nothing"));
    writeNumber(key, L"n\\below", 1);
    QCOMPARE(queried(key, "n"), QString("nothing"));
}

void tst_RegistryValues::aNameLeadsToADeeperPath()
{
    const Key key("K");
    writeNumber(key, L"a\\b", 1);
    const DWORD two = 2;
    RegSetValueExA_X(key, "c\\d", 0, REG_DWORD, &two, 4);
    QCOMPARE(entriesOf(Key(nullptr)), QStringList({"K/a/b", "K/c/d"}));
    QCOMPARE(queried(key, "a\\b"), QString("REG_DWORD 4: 1"));
    QCOMPARE(queried(key, L"a/b"), QString("REG_DWORD 4: 1"));
    QCOMPARE(queried(Key("K\\c"), L"d"), QString("REG_DWORD 4: 2"));
}

void tst_RegistryValues::theDefaultIsWrittenToOnePlaceAndReadFromAnother_data()
{
    QTest::addColumn<KeyCall>("write");
    QTest::newRow("empty") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, L"", 0, REG_DWORD, &five, 4); });
    QTest::newRow("null") << KeyCall([](HKEY key) { return RegSetValueExW_X(key, nullptr, 0, REG_DWORD, &five, 4); });
    QTest::newRow("empty, 8-bit") << KeyCall(
        [](HKEY key) { return RegSetValueExA_X(key, "", 0, REG_DWORD, &five, 4); });
    QTest::newRow("null, 8-bit") << KeyCall(
        [](HKEY key) { return RegSetValueExA_X(key, nullptr, 0, REG_DWORD, &five, 4); });
}

void tst_RegistryValues::theDefaultIsWrittenToOnePlaceAndReadFromAnother()
{
    QFETCH(KeyCall, write);
    const Key key("Software\\Acme");
    QCOMPARE(write(key), 0);
    QCOMPARE(queried(Key("Software"), "Acme"), QString("REG_DWORD 4: 5"));
    const auto expectDefault = [&](const QString& answer) {
        QCOMPARE(queried(key, ""), answer);
        QCOMPARE(queried(key, L""), answer);
        QCOMPARE(queried(key, static_cast<const char*>(nullptr)), answer);
        QCOMPARE(queried(key, static_cast<const wchar_t*>(nullptr)), answer);
    };
    expectDefault("nothing");
    writeText(key, L"Default", L"text");
    expectDefault("REG_SZ 5: text");
}

void tst_RegistryValues::aLaterTypeReplacesAnEarlierOne()
{
    const Key key("Software");
    writeNumber(key, L"n", 5);
    writeText(key, L"n", L"text");
    QCOMPARE(queried(key, "n"), QString("REG_SZ 5: text"));
    writeNumber(key, L"n", 6);
    QCOMPARE(queried(key, "n"), QString("REG_DWORD 4: 6"));
}

void tst_RegistryValues::anEmptiedValueStays()
{
    const Key key("Software");
    writeNumber(key, L"n", 5);
    QCOMPARE(RegDeleteValue_X(key, L"n"), 0);
    QCOMPARE(queried(key, "n"), QString("REG_SZ 1: "));
    QCOMPARE(RegDeleteValue_X(key, L"never\\there"), 0);
    QCOMPARE(entriesOf(key), QStringList({"n", "never/there"}));
    QCOMPARE(RegDeleteValue_X(key, nullptr), 0);
    QCOMPARE(queried(Key(nullptr), "Software"), QString("REG_SZ 1: "));
}

void tst_RegistryValues::theIncomingSizeIsNotLookedAt()
{
    const Key key("Software");
    writeText(key, L"t", L"text");
    char data[16] = {};
    DWORD size = 2;
    QCOMPARE(RegQueryValueExA_X(key, "t", nullptr, nullptr, data, &size), 0);
    QCOMPARE(QByteArray(data), QByteArray("text"));
    QCOMPARE(size, 5U);
}

void tst_RegistryValues::everyOutputMayBeNull()
{
    const Key key("Software");
    writeText(key, L"t", L"text");
    writeNumber(key, L"n", 5);
    RegSetValueExW_X(key, L"q", 0, REG_QWORD, &large, 8);
    for (const char* const name : {"t", "n", "q"})
        QCOMPARE(RegQueryValueExA_X(key, name, nullptr, nullptr, nullptr, nullptr), 0);
    DWORD type = 0;
    DWORD size = 0;
    RegQueryValueExA_X(key, "t", nullptr, &type, nullptr, nullptr);
    QCOMPARE(type, REG_SZ);
    RegQueryValueExA_X(key, "q", nullptr, nullptr, nullptr, &size);
    QCOMPARE(size, 8U);
    DWORD number = 0;
    RegQueryValueExW_X(key, L"n", &type, nullptr, &number, nullptr);
    QCOMPARE(number, 5U);
}

void tst_RegistryValues::nullData()
{
    const Key key("Software");
    QCOMPARE(RegSetValueExW_X(key, L"n", 0, REG_DWORD, nullptr, 4), 0);
    QCOMPARE(RegSetValueExA_X(key, "n", 0, REG_QWORD, nullptr, 8), 0);
    QCOMPARE(entriesOf(key), QStringList());
    QCOMPARE(RegSetValueExW_X(key, L"w", 0, REG_SZ, nullptr, 0), 0);
    QCOMPARE(RegSetValueExA_X(key, "a", 0, REG_SZ, nullptr, 0), 0);
    QCOMPARE(queried(key, "w"), QString("REG_SZ 1: "));
    QCOMPARE(queried(key, "a"), QString("REG_SZ 1: "));
}

void tst_RegistryValues::numbersMayStandAnywhere()
{
    const Key key("Software");
    char bytes[16] = {};
    std::memcpy(bytes + 1, &large, sizeof large);
    RegSetValueExW_X(key, L"q", 0, REG_QWORD, bytes + 1, 8);
    RegSetValueExW_X(key, L"n", 0, REG_DWORD, bytes + 1, 4);
    QCOMPARE(queried(key, "q"), QString("REG_QWORD 8: 18364758544493064720"));
    QCOMPARE(queried(key, "n"), QString("REG_DWORD 4: 1985229328"));
    std::memset(bytes, 0, sizeof bytes);
    RegQueryValueExA_X(key, "q", nullptr, nullptr, bytes + 1, nullptr);
    QCOMPARE(std::memcmp(bytes + 1, &large, sizeof large), 0);
}

void tst_RegistryValues::theSubKeyOfASetIsTheName()
{
    const Key key("Software");
    QCOMPARE(RegSetValue_X(key, L"a", REG_SZ, L"one", 0), 0);
    QCOMPARE(RegSetValue_X(key, L"b", REG_EXPAND_SZ, L"two", 0), 0);
    QCOMPARE(queried(key, "a"), QString("REG_SZ 4: one"));
    QCOMPARE(queried(key, "b"), QString("REG_SZ 4: two"));
    for (const DWORD type : {REG_NONE, REG_BINARY, REG_DWORD, REG_MULTI_SZ, REG_QWORD}) {
        QCOMPARE(RegSetValue_X(key, L"c", type, L"text", 0), 11);
        QCOMPARE(RegSetValue_X(nullptr, L"c", type, L"text", 0), 11);
    }
    QCOMPARE(entriesOf(key), QStringList({"a", "b"}));
}

void tst_RegistryValues::theSubKeyOfAKeyValueIsDropped()
{
    const Key key("Software");
    QCOMPARE(RegSetKeyValue_X(key, L"sub", L"n", REG_DWORD, &five, 4), 0);
    QCOMPARE(RegSetKeyValue_X(key, nullptr, L"t", REG_SZ, L"text", 4), 0);
    QCOMPARE(RegSetKeyValue_X(key, L"sub", L"b", REG_BINARY, L"text", 4), 0);
    QCOMPARE(entriesOf(key), QStringList({"n", "t"}));
    QCOMPARE(queried(key, "n"), QString("REG_DWORD 4: 5"));
}

void tst_RegistryValues::theSubKeyOfAGetIsTheName()
{
    const Key key("Software");
    writeNumber(key, L"n", 5);
    writeText(key, L"Default", L"text");
    const auto got = [&](const wchar_t* subKey, const wchar_t* name) {
        return answerOf([&](DWORD* type, void* data, DWORD* size) {
            return RegGetValue_X(key, subKey, name, RRF_RT_REG_SZ, type, data, size);
        });
    };
    QCOMPARE(got(L"n", L"other"), QString("REG_DWORD 4: 5"));
    QCOMPARE(got(L"n", nullptr), QString("REG_DWORD 4: 5"));
    QCOMPARE(got(L"other", L"n"), QString("nothing"));
    QCOMPARE(got(nullptr, L"n"), QString("REG_SZ 5: text"));
}

void tst_RegistryValues::theRootItselfHoldsValues()
{
    const Key root(nullptr, HKEY_LOCAL_MACHINE);
    writeNumber(root, L"n", 5);
    writeNumber(root, L"", 6);
    QCOMPARE(queried(root, "n"), QString("REG_DWORD 4: 5"));
    QCOMPARE(entriesOf(root), QStringList("n"));
    QCOMPARE(entriesOf(Key(nullptr)), QStringList());
}

XE_GUILESS_TEST(tst_RegistryValues)
#include "tst_registryvalues.moc"
