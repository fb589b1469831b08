#include "registrytext.h"
#include "testclass.h"

// Every function that takes an opened key recognises what cannot be one, and writes nothing.

namespace {

DWORD anyNumber = 55;
wchar_t buffer[] = L"untouched";
char untouched[] = "untouched";
value_entW entry = {buffer, 55, nullptr, 55};

const struct
{
    const char* name;
    KeyCall call;
} calls[] = {
    {"RegCloseKey_X", RegCloseKey_X},
    {"RegDeleteKey_X", [](HKEY key) { return RegDeleteKey_X(key, L"n"); }},
    {"RegDeleteTree_X", [](HKEY key) { return RegDeleteTree_X(key, L"n"); }},
    {"RegDeleteKeyValue_X", [](HKEY key) { return RegDeleteKeyValue_X(key, L"n", L"n"); }},
    {"RegRenameKey_X", [](HKEY key) { return RegRenameKey_X(key, L"n", L"m"); }},
    {"RegCopyTree_X from", [](HKEY key) { return RegCopyTree_X(key, L"n", Key("Software")); }},
    {"RegCopyTree_X all from", [](HKEY key) { return RegCopyTree_X(key, nullptr, Key("Software")); }},
    {"RegCopyTree_X to", [](HKEY key) { return RegCopyTree_X(Key("Software"), L"n", key); }},
    {"RegCopyTree_X all to", [](HKEY key) { return RegCopyTree_X(Key("Software"), nullptr, key); }},
    {"RegEnumKeyEx_X",
     [](HKEY key) { return RegEnumKeyEx_X(key, 0, buffer, &anyNumber, nullptr, nullptr, nullptr, nullptr); }},
    {"RegEnumKey_X", [](HKEY key) { return RegEnumKey_X(key, 0, buffer, &anyNumber); }},
    {"RegEnumValue_X",
     [](HKEY key) { return RegEnumValue_X(key, 0, buffer, &anyNumber, nullptr, nullptr, nullptr, nullptr); }},
    {"RegQueryInfoKey_X",
     [](HKEY key) {
         return RegQueryInfoKey_X(key, buffer, &anyNumber, &anyNumber, &anyNumber, &anyNumber, &anyNumber, &anyNumber,
                                  &anyNumber, &anyNumber, &anyNumber, nullptr);
     }},
    {"RegSetValueExA_X", [](HKEY key) { return RegSetValueExA_X(key, "n", 0, REG_DWORD, &anyNumber, 4); }},
    {"RegSetValueExW_X", [](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_DWORD, &anyNumber, 4); }},
    {"RegSetValueExW_X of a lost type", [](HKEY key) { return RegSetValueExW_X(key, L"n", 0, REG_NONE, nullptr, 0); }},
    {"RegSetValue_X", [](HKEY key) { return RegSetValue_X(key, L"n", REG_SZ, L"text", 0); }},
    {"RegSetKeyValue_X", [](HKEY key) { return RegSetKeyValue_X(key, L"k", L"n", REG_SZ, L"text", 0); }},
    {"RegDeleteValue_X", [](HKEY key) { return RegDeleteValue_X(key, L"n"); }},
    {"RegQueryValueExA_X",
     [](HKEY key) { return RegQueryValueExA_X(key, "n", nullptr, &anyNumber, untouched, &anyNumber); }},
    {"RegQueryValueExW_X",
     [](HKEY key) { return RegQueryValueExW_X(key, L"n", nullptr, &anyNumber, untouched, &anyNumber); }},
    {"RegQueryValueA_X",
     [](HKEY key) { return RegQueryValueA_X(key, "n", untouched, reinterpret_cast<LONG*>(&anyNumber)); }},
    {"RegQueryValueW_X",
     [](HKEY key) { return RegQueryValueW_X(key, L"n", buffer, reinterpret_cast<LONG*>(&anyNumber)); }},
    {"RegGetValue_X", [](HKEY key) { return RegGetValue_X(key, L"n", nullptr, 0, &anyNumber, untouched, &anyNumber); }},
    {"RegQueryMultipleValues_X", [](HKEY key) { return RegQueryMultipleValues_X(key, &entry, 1, buffer, &anyNumber); }},
};

const quint64 badHandles[] = {0, 0xFFFFFFFF80000000, 0xFFFFFFFF80000001, 0xFFFFFFFF80000060, 0xFFFFFFFFFFFFFFFF};

} // namespace

class tst_RegistryBadHandles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { writeNumber(Key("Software"), L"n", 1); }
    void aBadHandleIsRecognised_data();
    void aBadHandleIsRecognised();
};

void tst_RegistryBadHandles::aBadHandleIsRecognised_data()
{
    QTest::addColumn<KeyCall>("call");
    QTest::addColumn<quint64>("handle");
    for (const auto& row : calls) {
        for (const quint64 handle : badHandles)
            QTest::addRow("%s %#llx", row.name, handle) << row.call << handle;
    }
}

void tst_RegistryBadHandles::aBadHandleIsRecognised()
{
    QFETCH(KeyCall, call);
    QFETCH(quint64, handle);
    QCOMPARE(call(reinterpret_cast<HKEY>(handle)), 6);
    QCOMPARE(anyNumber, 55U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"untouched"));
    QCOMPARE(QByteArray(untouched), QByteArray("untouched"));
    QCOMPARE(entry.ve_valuelen, 55U);
    QCOMPARE(entriesOf(Key(nullptr)), QStringList("Software/n"));
    QCOMPARE(queried(Key("Software"), "n"), QString("REG_DWORD 4: 1"));
}

XE_GUILESS_TEST(tst_RegistryBadHandles)
#include "tst_registrybadhandles.moc"
