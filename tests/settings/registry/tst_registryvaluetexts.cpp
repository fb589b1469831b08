#include "registrytext.h"
#include "testclass.h"

// The two short queries and the query of several values.

class tst_RegistryValueTexts : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { emptyRegistry(); }

    void theShortQueryGivesTheBytes_data();
    void theShortQueryGivesTheBytes();
    void theShortQueryOfNothing();
    void theShortQueryTakesNullOutputs();

    void theWideQueryGivesHalfOfTheText_data();
    void theWideQueryGivesHalfOfTheText();
    void theWideQueryOfNothing();
    void theWideQueryTakesNullOutputs();

    void severalValuesFollowOneAnother();
    void severalValuesAreTexts();
    void withoutABufferTheTotalIsTold();
    void valuesThatAreNotThereAreEmpty();
    void lengthsAreCodePoints();
    void noValuesAtAll();

private:
    static void fill(HKEY key);
};

void tst_RegistryValueTexts::fill(HKEY key)
{
    writeText(key, L"t", L"text");
    writeText(key, L"e", L"");
    writeText(key, L"u", L"é");
    writeNumber(key, L"n", 0x00434241);
    writeNumber(key, L"5", 5);
    const quint64 letters = 0x4847464544434241;
    RegSetValueExW_X(key, L"q", 0, REG_QWORD, &letters, 8);
    writeText(key, L"Default", L"default");
}

void tst_RegistryValueTexts::theShortQueryGivesTheBytes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a text with its terminator") << QByteArray("t") << QByteArray("text", 5);
    QTest::newRow("an empty text") << QByteArray("e") << QByteArray("", 1);
    QTest::newRow("text in the locale's encoding") << QByteArray("u") << QByteArray("\xC3\xA9", 3);
    QTest::newRow("a number's bytes") << QByteArray("n") << QByteArray("ABC", 4);
    QTest::newRow("eight bytes") << QByteArray("q") << QByteArray("ABCDEFGH");
    QTest::newRow("the default") << QByteArray("") << QByteArray("default", 8);
}

void tst_RegistryValueTexts::theShortQueryGivesTheBytes()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, bytes);
    const Key key("Software");
    fill(key);
    QByteArray data(32, '#');
    LONG size = 1;
    QCOMPARE(RegQueryValueA_X(key, name, data.data(), &size), 0);
    QCOMPARE(size, bytes.size());
    QCOMPARE(data, bytes.leftJustified(32, '#'));
}

void tst_RegistryValueTexts::theShortQueryOfNothing()
{
    const Key key("Software");
    char data[] = "untouched";
    LONG size = 77;
    QCOMPARE(RegQueryValueA_X(key, "t", data, &size), 0);
    QCOMPARE(RegQueryValueA_X(key, nullptr, data, &size), 0);
    QCOMPARE(QByteArray(data), QByteArray("untouched"));
    QCOMPARE(size, 77);
}

void tst_RegistryValueTexts::theShortQueryTakesNullOutputs()
{
    const Key key("Software");
    fill(key);
    LONG size = 0;
    QCOMPARE(RegQueryValueA_X(key, "t", nullptr, &size), 0);
    QCOMPARE(size, 5);
    char data[8] = {};
    QCOMPARE(RegQueryValueA_X(key, "t", data, nullptr), 0);
    QCOMPARE(QByteArray(data), QByteArray("text"));
    QCOMPARE(RegQueryValueA_X(key, "t", nullptr, nullptr), 0);
}

// Expected are the whole elements that arrive, and the bytes of a last half one.
void tst_RegistryValueTexts::theWideQueryGivesHalfOfTheText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("bytes");
    const auto half = [](const wchar_t* text, int size) {
        return QByteArray(reinterpret_cast<const char*>(text), size);
    };
    QTest::newRow("four letters are two and a half") << "t" << 10 << half(L"text", 10);
    QTest::newRow("an empty text is half a terminator") << "e" << 2 << half(L"", 2);
    QTest::newRow("one letter") << "u" << 4 << half(L"é", 4);
    QTest::newRow("a number's bytes are a text") << "n" << 8 << half(L"ABC", 8);
    QTest::newRow("a number's bytes up to the first 0") << "5" << 4 << half(L"\x05", 4);
    QTest::newRow("eight bytes") << "q" << 18 << half(L"ABCDEFGH", 18);
    QTest::newRow("the default") << "" << 16 << half(L"default", 16);
}

void tst_RegistryValueTexts::theWideQueryGivesHalfOfTheText()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(QByteArray, bytes);
    const Key key("Software");
    fill(key);
    wchar_t data[16];
    std::memset(data, '#', sizeof data);
    LONG delivered = 0;
    QCOMPARE(RegQueryValueW_X(key, name.toStdWString().c_str(), data, &delivered), 0);
    QCOMPARE(delivered, size);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(data), sizeof data), bytes.leftJustified(sizeof data, '#'));
}

void tst_RegistryValueTexts::theWideQueryOfNothing()
{
    const Key key("Software");
    wchar_t data[] = L"untouched";
    LONG size = 77;
    QCOMPARE(RegQueryValueW_X(key, L"t", data, &size), 0);
    QCOMPARE(RegQueryValueW_X(key, nullptr, data, &size), 0);
    QCOMPARE(std::wstring(data), std::wstring(L"untouched"));
    QCOMPARE(size, 77);
}

void tst_RegistryValueTexts::theWideQueryTakesNullOutputs()
{
    const Key key("Software");
    fill(key);
    LONG size = 0;
    QCOMPARE(RegQueryValueW_X(key, L"t", nullptr, &size), 0);
    QCOMPARE(size, 10);
    wchar_t data[8] = {};
    QCOMPARE(RegQueryValueW_X(key, L"t", data, nullptr), 0);
    QCOMPARE(data[1], L'e');
    QCOMPARE(RegQueryValueW_X(key, L"t", nullptr, nullptr), 0);
}

void tst_RegistryValueTexts::severalValuesFollowOneAnother()
{
    const Key key("Software");
    fill(key);
    wchar_t names[][8] = {L"t", L"e", L"Default"};
    value_entW list[] = {{names[0], 77, nullptr, 77}, {names[1], 77, nullptr, 77}, {names[2], 77, nullptr, 77}};
    wchar_t buffer[] = L"################";
    DWORD total = 1; // too small, and not looked at
    QCOMPARE(RegQueryMultipleValues_X(key, list, 3, buffer, &total), 0);
    QCOMPARE(std::wstring(buffer), std::wstring(L"text##default###"));
    QCOMPARE(total, 14U);
    const DWORD lengths[] = {4, 0, 7};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(list[i].ve_valuename, names[i]);
        QCOMPARE(list[i].ve_valuelen, lengths[i]);
        QCOMPARE(list[i].ve_type, REG_SZ);
        QVERIFY(list[i].ve_valueptr);
    }
}

void tst_RegistryValueTexts::severalValuesAreTexts()
{
    const Key key("Software");
    fill(key);
    writeNumber(key, L"a\\b", 42);
    wchar_t deep[] = L"a\\b";
    wchar_t number[] = L"5";
    VALENTW list[] = {{deep, 0, nullptr, 0}, {number, 0, nullptr, 0}};
    wchar_t buffer[8] = {};
    QCOMPARE(RegQueryMultipleValues_X(key, list, 2, buffer, nullptr), 0);
    QCOMPARE(std::wstring(buffer, 4), std::wstring(L"42\0"
                                                   L"5",
                                                   4));
    QCOMPARE(list[0].ve_type, REG_SZ);
}

void tst_RegistryValueTexts::withoutABufferTheTotalIsTold()
{
    const Key key("Software");
    fill(key);
    wchar_t name[] = L"t";
    value_entW list[] = {{name, 77, nullptr, 77}, {name, 77, nullptr, 77}};
    DWORD total = 1000;
    QCOMPARE(RegQueryMultipleValues_X(key, list, 2, nullptr, &total), 234);
    QCOMPARE(total, 10U);
    QCOMPARE(list[0].ve_valuelen, 77U);
    QCOMPARE(list[0].ve_type, 77U);
    QCOMPARE(RegQueryMultipleValues_X(key, list, 2, nullptr, nullptr), 234);
}

void tst_RegistryValueTexts::valuesThatAreNotThereAreEmpty()
{
    const Key key("Software");
    wchar_t name[] = L"t";
    value_entW list[] = {{name, 77, nullptr, 77}, {nullptr, 77, nullptr, 77}};
    wchar_t buffer[] = L"####";
    DWORD total = 0;
    QCOMPARE(RegQueryMultipleValues_X(key, list, 2, buffer, &total), 0);
    QCOMPARE(total, 2U);
    QCOMPARE(list[0].ve_valuelen, 0U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"####"));
    // A null name is the key's own entry, as an empty one.
    writeText(key, nullptr, L"own");
    QCOMPARE(RegQueryMultipleValues_X(key, list, 2, buffer, &total), 0);
    QCOMPARE(std::wstring(buffer), std::wstring(L"#own"));
}

void tst_RegistryValueTexts::lengthsAreCodePoints()
{
    const Key key("Software");
    writeText(key, L"t", L"😀a");
    wchar_t name[] = L"t";
    value_entW list[] = {{name, 0, nullptr, 0}, {name, 0, nullptr, 0}};
    wchar_t buffer[] = L"######";
    DWORD total = 0;
    QCOMPARE(RegQueryMultipleValues_X(key, list, 2, buffer, &total), 0);
    QCOMPARE(total, 6U);
    QCOMPARE(list[0].ve_valuelen, 2U);
    QCOMPARE(std::wstring(buffer), std::wstring(L"😀a#😀a#"));
}

void tst_RegistryValueTexts::noValuesAtAll()
{
    const Key key("Software");
    wchar_t buffer[] = L"####";
    DWORD total = 77;
    value_entW entry = {nullptr, 77, nullptr, 77};
    QCOMPARE(RegQueryMultipleValues_X(key, &entry, 0, buffer, &total), 0);
    QCOMPARE(total, 0U);
    QCOMPARE(RegQueryMultipleValues_X(key, nullptr, 5, buffer, &total), 0);
    QCOMPARE(RegQueryMultipleValues_X(key, nullptr, 5, nullptr, &total), 234);
    QCOMPARE(entry.ve_valuelen, 77U);
}

XE_GUILESS_TEST(tst_RegistryValueTexts)
#include "tst_registryvaluetexts.moc"
