#include "registrytext.h"
#include "testclass.h"

#include <clocale>

// The two roads of wide names: keys and queries go through the C locale and take its bytes as Latin-1, all other names
// pass as they are.

namespace {

class Locale
{
public:
    explicit Locale(const char* name) { std::setlocale(LC_CTYPE, name); }
    ~Locale() { std::setlocale(LC_CTYPE, "C.UTF-8"); }
    Q_DISABLE_COPY_MOVE(Locale)
};

QString openedPath(const wchar_t* subKey)
{
    HKEY key = nullptr;
    RegOpenKeyExW_X(HKEY_CURRENT_USER, subKey, 0, 0, &key);
    const QString path = *key;
    RegCloseKey_X(key);
    return path;
}

QString createdPath(const wchar_t* subKey)
{
    HKEY key = nullptr;
    RegCreateKeyExW_X(HKEY_CURRENT_USER, subKey, 0, nullptr, 0, 0, nullptr, &key, nullptr);
    const QString path = *key;
    RegCloseKey_X(key);
    return path;
}

} // namespace

class tst_RegistryKeyNames : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { emptyRegistry(); }
    void aWideSubKeyIsTheBytesOfTheLocale_data();
    void aWideSubKeyIsTheBytesOfTheLocale();
    void aWideValueNameIsWrittenAsItIs();
    void aWideQueryLooksForTheBytesOfTheName();
    void withoutALocaleAWideQueryLooksForTheDefault();
    void textPassesTheLocaleWhenItIsRead_data();
    void textPassesTheLocaleWhenItIsRead();
    void enumeratedNamesServeTheOtherFunctions();
    void namesAreCaseSensitive();
    void oddNamesAreKept_data();
    void oddNamesAreKept();
    void slashesThatSeparateNothingAreDropped_data();
    void slashesThatSeparateNothingAreDropped();
};

void tst_RegistryKeyNames::aWideSubKeyIsTheBytesOfTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("subKey");
    QTest::addColumn<QString>("path");
    const auto bytes = [](const char* utf8) { return "HKEY_CURRENT_USER/" + QString::fromLatin1(utf8); };
    QTest::newRow("ASCII in UTF-8") << "C.UTF-8"
                                    << "Soft\\ware"
                                    << "HKEY_CURRENT_USER/Soft/ware";
    QTest::newRow("ASCII in C") << "C"
                                << "Soft\\ware"
                                << "HKEY_CURRENT_USER/Soft/ware";
    QTest::newRow("the last ASCII character") << "C"
                                              << "\x7F"
                                              << "HKEY_CURRENT_USER/\x7F";
    QTest::newRow("two bytes a letter") << "C.UTF-8" << QString::fromUtf8("é") << bytes("\xC3\xA9");
    QTest::newRow("three bytes a letter") << "C.UTF-8" << QString::fromUtf8("a\\世") << bytes("a/\xE4\xB8\x96");
    QTest::newRow("four bytes a letter") << "C.UTF-8" << QString::fromUtf8("😀") << bytes("\xF0\x9F\x98\x80");
    QTest::newRow("C holds no letter outside ASCII") << "C" << QString::fromUtf8("Softé") << "HKEY_CURRENT_USER";
}

void tst_RegistryKeyNames::aWideSubKeyIsTheBytesOfTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(QString, subKey);
    const Locale scope(locale.toLatin1());
    QTEST(openedPath(subKey.toStdWString().c_str()), "path");
    QTEST(createdPath(subKey.toStdWString().c_str()), "path");
}

void tst_RegistryKeyNames::aWideValueNameIsWrittenAsItIs()
{
    const Key key("Software");
    for (const char* const locale : {"C.UTF-8", "C"}) {
        const Locale scope(locale);
        writeNumber(key, L"é世😀", 1);
        QCOMPARE(entriesOf(key), QStringList(QString::fromUtf8("é世😀")));
        emptyRegistry();
    }
}

void tst_RegistryKeyNames::aWideQueryLooksForTheBytesOfTheName()
{
    const Key key("Software");
    writeNumber(key, L"é", 1);
    QCOMPARE(queried(key, L"é"), QString("nothing"));
    QCOMPARE(queried(key, "\xE9"), QString("REG_DWORD 4: 1"));
    const DWORD two = 2;
    RegSetValueExA_X(key, "\xC3\xA9", 0, REG_DWORD, &two, 4);
    QCOMPARE(queried(key, L"é"), QString("REG_DWORD 4: 2"));
    QCOMPARE(entriesOf(key), QStringList({QString::fromLatin1("\xC3\xA9"), QString::fromLatin1("\xE9")}));
}

void tst_RegistryKeyNames::withoutALocaleAWideQueryLooksForTheDefault()
{
    const Key key("Software");
    writeNumber(key, L"é", 1);
    writeNumber(key, L"Default", 2);
    const Locale scope("C");
    QCOMPARE(queried(key, L"é"), QString("REG_DWORD 4: 2"));
}

void tst_RegistryKeyNames::textPassesTheLocaleWhenItIsRead_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read");
    QTest::newRow("ASCII in UTF-8") << "C.UTF-8"
                                    << "text"
                                    << "REG_SZ 5: text";
    QTest::newRow("ASCII in C") << "C"
                                << "text"
                                << "REG_SZ 5: text";
    QTest::newRow("UTF-8") << "C.UTF-8" << QString::fromUtf8("aé世😀") << QString::fromUtf8("REG_SZ 11: aé世😀");
    QTest::newRow("C does not hold it") << "C" << QString::fromUtf8("aé") << "REG_SZ 1: ";
}

void tst_RegistryKeyNames::textPassesTheLocaleWhenItIsRead()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    const Key key("Software");
    writeText(key, L"t", text.toStdWString().c_str());
    const Locale scope(locale.toLatin1());
    QTEST(queried(key, L"t"), "read");
}

void tst_RegistryKeyNames::enumeratedNamesServeTheOtherFunctions()
{
    const Key key("Software");
    const Key other("Other");
    writeText(key, L"é", L"text");
    value_entW entry = {const_cast<wchar_t*>(L"é"), 0, nullptr, 0};
    wchar_t buffer[8] = {};
    QCOMPARE(RegQueryMultipleValues_X(key, &entry, 1, buffer, nullptr), 0);
    QCOMPARE(QString::fromWCharArray(buffer), QString("text"));
    RegCopyTree_X(key, L"é", other);
    QCOMPARE(entriesOf(other), QStringList(QString::fromUtf8("é")));
    RegRenameKey_X(key, L"é", L"ü");
    QCOMPARE(entriesOf(key), QStringList(QString::fromUtf8("ü")));
    RegDeleteValue_X(key, L"ü");
    QCOMPARE(textsOf(key), QStringList(QString("")));
    RegDeleteKey_X(key, L"ü");
    QCOMPARE(entriesOf(key), QStringList());
}

void tst_RegistryKeyNames::namesAreCaseSensitive()
{
    writeNumber(Key("Software"), L"Size", 1);
    writeNumber(Key("Software"), L"size", 2);
    writeNumber(Key("software"), L"Size", 3);
    QCOMPARE(queried(Key("Software"), L"Size"), QString("REG_DWORD 4: 1"));
    QCOMPARE(queried(Key("Software"), L"size"), QString("REG_DWORD 4: 2"));
    QCOMPARE(queried(Key("software"), L"Size"), QString("REG_DWORD 4: 3"));
    QCOMPARE(queried(Key("software"), L"size"), QString("nothing"));
}

void tst_RegistryKeyNames::oddNamesAreKept_data()
{
    QTest::addColumn<QString>("name");
    const char* const names[] = {"%", "%41", "=",          "a=b", "[x]",     "a\nb", ";",
                                 "#", "\"",  "@Invalid()", " ",   "General", ","};
    for (const char* const name : names)
        QTest::newRow(name) << name;
    QTest::newRow("outside ASCII") << QString::fromUtf8("é世😀");
    QTest::newRow("very long") << QString(100000, 'n');
}

void tst_RegistryKeyNames::oddNamesAreKept()
{
    QFETCH(QString, name);
    const Key key("Software");
    writeText(key, name.toStdWString().c_str(), L"text");
    RegFlushKey_X(nullptr);
    QCOMPARE(entriesOf(key), QStringList(name));
    QCOMPARE(textsOf(key), QStringList("text"));
    const Key named(name.toLatin1());
    writeText(named, L"n", L"below");
    RegFlushKey_X(nullptr);
    QCOMPARE(queried(named, L"n"), QString("REG_SZ 6: below"));
}

void tst_RegistryKeyNames::slashesThatSeparateNothingAreDropped_data()
{
    QTest::addColumn<QByteArray>("subKey");
    QTest::addColumn<QString>("name");
    QTest::newRow("in front") << QByteArray("\\a") << "\\n";
    QTest::newRow("at the end") << QByteArray("a\\") << "n\\";
    QTest::newRow("twice") << QByteArray("a\\\\") << "//n";
    QTest::newRow("mixed") << QByteArray("/\\a/\\") << "/\\n/";
}

void tst_RegistryKeyNames::slashesThatSeparateNothingAreDropped()
{
    QFETCH(QByteArray, subKey);
    QFETCH(QString, name);
    const Key key(subKey);
    writeNumber(key, name.toStdWString().c_str(), 5);
    QCOMPARE(entriesOf(Key(nullptr)), QStringList("a/n"));
    QCOMPARE(queried(key, L"n"), QString("REG_DWORD 4: 5"));
    QCOMPARE(entriesOf(key), QStringList("n"));
    RegDeleteKey_X(key, name.toStdWString().c_str());
    QCOMPARE(entriesOf(key), QStringList());
}

XE_GUILESS_TEST(tst_RegistryKeyNames)
#include "tst_registrykeynames.moc"
