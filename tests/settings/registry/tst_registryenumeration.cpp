#include "registrytext.h"
#include "testclass.h"

#include <QSettings>

// Enumeration and the facts about a key.

namespace {

LSTATUS enumKey(HKEY key, DWORD index, wchar_t* name, DWORD* length)
{
    return RegEnumKeyEx_X(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
}

LSTATUS enumValue(HKEY key, DWORD index, wchar_t* text, DWORD* length)
{
    return RegEnumValue_X(key, index, text, length, nullptr, nullptr, nullptr, nullptr);
}

// The entry at an index by the function alone: "error 3" past the end.
QString entryAt(HKEY key, DWORD index)
{
    wchar_t name[64];
    DWORD length = 0;
    if (const LSTATUS result = enumKey(key, index, name, &length))
        return QStringLiteral("error %1").arg(result);
    return QString::fromWCharArray(name, static_cast<int>(length));
}

// Another object on the same file.
void writeElsewhere()
{
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "Acme", "Draw");
    settings.setValue("HKEY_CURRENT_USER/Software/ac", "x");
}

QString factsOf(HKEY key)
{
    DWORD values = 77;
    DWORD name = 77;
    DWORD text = 77;
    const LSTATUS result = RegQueryInfoKey_X(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, &name,
                                             &text, nullptr, nullptr);
    return QStringLiteral("%1: %2 entries, names to %3, texts to %4").arg(result).arg(values).arg(name).arg(text);
}

using Change = void (*)(HKEY key);

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_RegistryEnumeration : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { emptyRegistry(); }
    void entriesAtAnyDepthAreListed();
    void theListIsSortedByCharacterCodes();
    void textsComeInTheSameOrder();
    void namesAndLengthsAreCodePoints();
    void nothingIsTerminated();
    void nullOutputsAreSkipped();
    void theOtherOutputsStay();
    void thePublishedShortForm();
    void aKeyIsNoPartOfAName();

    void theFactsOfAKey_data();
    void theFactsOfAKey();
    void theOtherFactsStay();

    void aChangeIsSeenAtTheNextIndex_data();
    void aChangeIsSeenAtTheNextIndex();
    void anotherSettingsObjectIsSeenFromIndexZero();
    void keysTakeTurns();
    void manyEntriesAreEnumerated();
};

void tst_RegistryEnumeration::entriesAtAnyDepthAreListed()
{
    const Key key("Software");
    writeNumber(key, L"b", 1);
    writeNumber(key, L"a\\c", 2);
    QCOMPARE(entryAt(key, 0), QString("a/c"));
    QCOMPARE(entryAt(key, 1), QString("b"));
    QCOMPARE(entryAt(key, 2), QString("error 3"));
    QCOMPARE(entryAt(key, 0xFFFFFFFF), QString("error 3"));
    QCOMPARE(entryAt(Key("Software\\a"), 0), QString("c"));
    QCOMPARE(entryAt(Key(nullptr), 0), QString("Software/a/c"));
    QCOMPARE(entryAt(Key("Nowhere"), 0), QString("error 3"));
    wchar_t text[8];
    QCOMPARE(enumValue(key, 2, text, nullptr), 3);
}

void tst_RegistryEnumeration::theListIsSortedByCharacterCodes()
{
    const Key key("Software");
    for (const wchar_t* const name : {L"b", L"a", L"B", L"10", L"9", L"a b", L"a\\b", L"é", L"_"})
        writeNumber(key, name, 1);
    QCOMPARE(entriesOf(key), QStringList({"10", "9", "B", "_", "a", "a b", "a/b", "b", QString::fromUtf8("é")}));
}

void tst_RegistryEnumeration::textsComeInTheSameOrder()
{
    const Key key("Software");
    writeText(key, L"b", L"second");
    writeNumber(key, L"a\\c", 0xFFFFFFFF);
    const quint64 large = 0x123456789ABCDEF0;
    RegSetValueExW_X(key, L"z", 0, REG_QWORD, &large, 8);
    writeText(key, L"c", L"");
    QCOMPARE(textsOf(key), QStringList({"4294967295", "second", "", "1311768467463790320"}));
}

void tst_RegistryEnumeration::namesAndLengthsAreCodePoints()
{
    const Key key("Software");
    writeText(key, L"a😀", L"😀b😀");
    wchar_t buffer[8] = {};
    DWORD length = 0;
    QCOMPARE(enumKey(key, 0, buffer, &length), 0);
    QCOMPARE(length, 2U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"a😀"));
    QCOMPARE(enumValue(key, 0, buffer, &length), 0);
    QCOMPARE(length, 3U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"😀b😀"));
}

void tst_RegistryEnumeration::nothingIsTerminated()
{
    const Key key("Software");
    writeText(key, L"name", L"txt");
    wchar_t buffer[] = L"########";
    DWORD length = 1; // too small, and not looked at
    QCOMPARE(enumKey(key, 0, buffer, &length), 0);
    QCOMPARE(std::wstring(buffer), std::wstring(L"name####"));
    QCOMPARE(length, 4U);
    QCOMPARE(enumValue(key, 0, buffer, &length), 0);
    QCOMPARE(std::wstring(buffer), std::wstring(L"txte####"));
    QCOMPARE(length, 3U);
}

void tst_RegistryEnumeration::nullOutputsAreSkipped()
{
    const Key key("Software");
    writeText(key, L"name", L"txt");
    QCOMPARE(enumKey(key, 0, nullptr, nullptr), 0);
    QCOMPARE(enumValue(key, 0, nullptr, nullptr), 0);
    DWORD length = 0;
    QCOMPARE(enumKey(key, 0, nullptr, &length), 0);
    QCOMPARE(length, 4U);
}

void tst_RegistryEnumeration::theOtherOutputsStay()
{
    const Key key("Software");
    writeNumber(key, L"n", 5);
    wchar_t buffer[8] = {};
    wchar_t className[] = L"class";
    DWORD length = 0;
    DWORD others[3] = {7, 7, 7};
    FILETIME time = {7, 7};
    RegEnumKeyEx_X(key, 0, buffer, &length, &others[0], className, &others[1], &time);
    RegEnumValue_X(key, 0, buffer, &length, &others[0], &others[1], className, &others[2]);
    QCOMPARE(std::wstring(className), std::wstring(L"class"));
    for (const DWORD other : others)
        QCOMPARE(other, 7U);
    QCOMPARE(time.dwLowDateTime, 7U);
    QCOMPARE(time.dwHighDateTime, 7U);
}

void tst_RegistryEnumeration::thePublishedShortForm()
{
    const Key key("Software");
    writeNumber(key, L"n", 5);
    wchar_t buffer[8] = {};
    DWORD length = 0;
    QCOMPARE(RegEnumKey_X(key, 0, buffer, &length), 0);
    QCOMPARE(std::wstring(buffer), std::wstring(L"n"));
    QCOMPARE(length, 1U);
    QCOMPARE(RegEnumKey_X(key, 1, buffer, &length), 3);
}

void tst_RegistryEnumeration::aKeyIsNoPartOfAName()
{
    writeNumber(Key("Soft"), L"n", 1);
    writeNumber(Key("Software"), L"n", 2);
    // The key's own entry is not below it.
    writeNumber(Key("Soft"), L"", 3);
    QCOMPARE(entriesOf(Key("Soft")), QStringList("n"));
    QCOMPARE(entriesOf(Key(nullptr)), QStringList({"Soft", "Soft/n", "Software/n"}));
}

void tst_RegistryEnumeration::theFactsOfAKey_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("facts");
    QTest::newRow("nothing") << QStringList() << ""
                             << "0: 0 entries, names to 0, texts to 0";
    QTest::newRow("one") << QStringList("name") << "te"
                         << "0: 1 entries, names to 4, texts to 2";
    QTest::newRow("at any depth") << QStringList({"a", "b\\cd\\e"}) << "t"
                                  << "0: 2 entries, names to 6, texts to 1";
    QTest::newRow("empty texts") << QStringList({"ab", "c"}) << ""
                                 << "0: 2 entries, names to 2, texts to 0";
    QTest::newRow("code points") << QStringList(QString::fromUtf8("😀")) << QString::fromUtf8("a😀")
                                 << "0: 1 entries, names to 1, texts to 2";
}

void tst_RegistryEnumeration::theFactsOfAKey()
{
    QFETCH(QStringList, names);
    QFETCH(QString, text);
    const Key key("Software");
    for (const QString& name : names)
        writeText(key, name.toStdWString().c_str(), text.toStdWString().c_str());
    QTEST(factsOf(key), "facts");
}

void tst_RegistryEnumeration::theOtherFactsStay()
{
    const Key key("Software");
    writeNumber(key, L"a\\b", 123456);
    QCOMPARE(factsOf(key), QString("0: 1 entries, names to 3, texts to 6"));
    wchar_t className[] = L"class";
    DWORD others[6] = {7, 7, 7, 7, 7, 7};
    FILETIME time = {7, 7};
    QCOMPARE(RegQueryInfoKey_X(key, className, &others[0], &others[1], &others[2], &others[3], &others[4], nullptr,
                               nullptr, nullptr, &others[5], &time),
             0);
    QCOMPARE(std::wstring(className), std::wstring(L"class"));
    for (const DWORD other : others)
        QCOMPARE(other, 7U);
    QCOMPARE(time.dwLowDateTime, 7U);
    QCOMPARE(time.dwHighDateTime, 7U);
}

void tst_RegistryEnumeration::aChangeIsSeenAtTheNextIndex_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("entryOne");
    QTest::newRow("a value") << Change([](HKEY key) { writeNumber(key, L"aa", 1); }) << "aa";
    QTest::newRow("an 8-bit value") << Change([](HKEY key) { RegSetValueExA_X(key, "aa", 0, REG_SZ, "x", 0); }) << "aa";
    QTest::newRow("a key") << Change([](HKEY key) { RegDeleteKey_X(key, L"b"); }) << "c";
    QTest::newRow("a name") << Change([](HKEY key) { RegRenameKey_X(key, L"c", L"ab"); }) << "ab";
    QTest::newRow("a copy") << Change([](HKEY key) {
        writeNumber(Key("Other"), L"aaa", 1);
        RegCopyTree_X(Key("Other"), nullptr, key);
    }) << "aaa";
    QTest::newRow("an emptied value") << Change([](HKEY key) { RegDeleteValue_X(key, L"aaaa"); }) << "aaaa";
    QTest::newRow("a flush") << Change([](HKEY) {
        writeElsewhere();
        RegFlushKey_X(nullptr);
    }) << "ac";
    QTest::newRow("an update by the event loop") << Change([](HKEY key) {
        writeNumber(key, L"c", 2); // asks for the update
        QCOMPARE(entryAt(key, 0), QString("a"));
        writeElsewhere();
        QCoreApplication::sendPostedEvents();
    }) << "ac";
}

void tst_RegistryEnumeration::aChangeIsSeenAtTheNextIndex()
{
    QFETCH(Change, change);
    const Key key("Software");
    writeNumber(key, L"a", 1);
    writeNumber(key, L"b", 1);
    writeNumber(key, L"c", 1);
    QCOMPARE(entryAt(key, 0), QString("a"));
    QCOMPARE(entryAt(key, 1), QString("b"));
    change(key);
    QTEST(entryAt(key, 1), "entryOne");
}

void tst_RegistryEnumeration::anotherSettingsObjectIsSeenFromIndexZero()
{
    const Key key("Software");
    writeNumber(key, L"b", 1);
    QCOMPARE(entryAt(key, 0), QString("b"));
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "Acme", "Draw");
    settings.setValue("HKEY_CURRENT_USER/Software/a", "x");
    QCOMPARE(entryAt(key, 0), QString("a"));
    QCOMPARE(entryAt(key, 1), QString("b"));
    settings.remove("HKEY_CURRENT_USER/Software/a");
    QCOMPARE(factsOf(key), QString("0: 1 entries, names to 1, texts to 1"));
}

void tst_RegistryEnumeration::keysTakeTurns()
{
    const Key left("Left");
    const Key right("Right");
    for (const wchar_t* const name : {L"1", L"2", L"3"}) {
        writeText(left, name, L"left");
        writeText(right, (std::wstring(name) + L"r").c_str(), L"right");
    }
    QStringList seen;
    for (DWORD index = 0; index < 3; ++index)
        seen << entryAt(left, index) << entryAt(right, index);
    QCOMPARE(seen, QStringList({"1", "1r", "2", "2r", "3", "3r"}));
}

void tst_RegistryEnumeration::manyEntriesAreEnumerated()
{
    const Key key("Software");
    QStringList expected;
    for (int i = 0; i < 10000; ++i) {
        expected += QStringLiteral("v%1").arg(i);
        writeNumber(key, expected.last().toStdWString().c_str(), static_cast<DWORD>(i));
    }
    expected.sort();
    QCOMPARE(entriesOf(key), expected);
    QStringList texts;
    for (const QString& name : qAsConst(expected))
        texts += name.mid(1);
    QCOMPARE(textsOf(key), texts);
}

XE_GUILESS_TEST(tst_RegistryEnumeration)
#include "tst_registryenumeration.moc"
