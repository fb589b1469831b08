// What single entries of a profile read as.

#include "profilefile.h"
#include "testclass.h"

class tst_ProfileRead : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void defaults_data();
    void defaults();
    void noFile_data();
    void noFile();
    void ignoresTheSize();
    void lengthIsInUtf16Units_data();
    void lengthIsInUtf16Units();
    void noBuffer();
    void numbers_data();
    void numbers();
    void structures_data();
    void structures();
    void aMissingStructureLeavesTheBufferAlone_data();
    void aMissingStructureLeavesTheBufferAlone();
    void readingLeavesTheFileAlone();
};

void tst_ProfileRead::texts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<std::wstring>("section");
    QTest::addColumn<std::wstring>("key");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const QByteArray& bytes, const std::wstring& expected,
                        const wchar_t* section = L"s", const wchar_t* key = L"k") {
        QTest::newRow(name) << bytes << std::wstring(section) << std::wstring(key) << expected;
    };

    add("plain", "[s]\nk=v\n", L"v");
    add("CR LF line ends", "[s]\r\nk=v\r\n", L"v");
    add("no line end after the last entry", "[s]\nk=v", L"v");
    add("blanks round key and value go", "[s]\n  k = v w \n", L"v w");
    add("empty value is no missing one", "[s]\nk=\n", L"");
    add("second sign is part of the value", "[s]\nk=a=b\n", L"a=b");
    add("last entry of a name counts", "[s]\nk=1\nk=2\n", L"2");
    add("sections of one name join", "[s]\nk=1\n[t]\nk=2\n[s]\nl=3\n", L"1");
    add("comment", "[s]\n;k=v\n", L"default");
    add("comment behind a value starts with a semicolon", "[s]\nk=v ;w\n", L"v");

    add("UTF-8", "[s]\nk=\xE4\xB8\xAD\xC3\xA9\n", L"\x4E2D\xE9");
    add("UTF-8 above U+FFFF", "[s]\nk=\xF0\x9F\x98\x80\n", L"\x1F600");
    add("UTF-8 byte order mark", "\xEF\xBB\xBF[s]\nk=v\n", L"v");
    add("bytes of a code page", "[s]\nk=a\xD6\xD0z\n", L"a\xFFFD\xFFFDz");
    add("UTF-16, little end first", QByteArray("\xFF\xFE[\0s\0]\0\n\0k\0=\0v\0\n\0", 18), L"default");
    add("UTF-16, big end first", QByteArray("\xFE\xFF\0[\0s\0]\0\n\0k\0=\0v\0\n", 18), L"default");

    add("section in another case", "[S]\nk=v\n", L"default");
    add("key in another case", "[s]\nK=v\n", L"default");
    add("names of two cases are two", "[s]\nk=v\nK=w\n", L"w", L"s", L"K");
    add("name with its escape", "[%U8282]\n%U4E2D%20k=v\n", L"v", L"\x8282", L"\x4E2D k");
    add("name in plain UTF-8", "[\xE8\x8A\x82]\nk=v\n", L"default", L"\x8282");

    add("backslash escapes", "[s]\nk=C:\\temp\n", L"C:\temp");
    add("doubled backslash", "[s]\nk=C:\\\\temp\n", L"C:\\temp");
    add("hexadecimal and octal escape", "[s]\nk=\\x4e2d\\101z\n",
        L"\x4E2D"
        L"Az");
    add("continued line", "[s]\nk=a\\\nb\n", L"ab");
    add("comma makes a list", "[s]\nk=a,b\n", L"");
    add("comma at the end makes a list", "[s]\nk=a,\n", L"");
    add("comma in quotes", "[s]\nk=\"a,b\"\n", L"a,b");
    add("quotes go", "[s]\nk=\"v\"\n", L"v");
    add("quotes keep blanks", "[s]\nk=\" v \"\n", L" v ");
    add("byte array", "[s]\nk=@ByteArray(\\xe4\\xb8\\xad)\n", L"\x4E2D");
    add("doubled at sign", "[s]\nk=@@v\n", L"@v");
    add("a value that is no text", "[s]\nk=@Size(3 4)\n", L"");

    add("General by its name", "[General]\nk=v\n", L"default", L"General");
    add("General without a name", "[General]\nk=v\n", L"v", L"");
    add("General as it is written for a section of that name", "[%General]\nk=v\n", L"v", L"General");
    add("no section at all", "k=v\n", L"v", L"");
    add("section of sections", "[a/b]\nk=v\n", L"v", L"a/b");
    add("key of keys", "[s]\na\\b=v\n", L"v", L"s", L"a/b");
    add("other section", "[t]\nk=v\n", L"default");
    add("other key", "[s]\nl=v\n", L"default");
    add("empty key", "[s]\nk=v\n", L"default", L"s", L"");
    add("empty file", "", L"default");
}

void tst_ProfileRead::texts()
{
    QFETCH(QByteArray, bytes);
    QFETCH(std::wstring, section);
    QFETCH(std::wstring, key);
    const ProfileFile file(bytes);
    QTEST(textOf(section.c_str(), key.c_str(), file), "expected");
}

void tst_ProfileRead::defaults_data()
{
    QTest::addColumn<bool>("withSection");
    QTest::addColumn<bool>("withKey");
    QTest::addColumn<bool>("withDefault");
    QTest::addColumn<std::wstring>("expected");
    QTest::newRow("null key lists nothing") << true << false << true << L"default"s;
    QTest::newRow("null section") << false << true << true << L"default"s;
    QTest::newRow("null section and key") << false << false << true << L"default"s;
    QTest::newRow("null default is empty") << true << false << false << L""s;
    QTest::newRow("null default of an entry that is there") << true << true << false << L"v"s;
}

void tst_ProfileRead::defaults()
{
    QFETCH(bool, withSection);
    QFETCH(bool, withKey);
    QFETCH(bool, withDefault);
    const ProfileFile file("[s]\nk=v\n");
    std::wstring buffer(20, L'#');
    const DWORD length = GetPrivateProfileString_X(withSection ? L"s" : nullptr, withKey ? L"k" : nullptr,
                                                   withDefault ? L"default" : nullptr, buffer.data(), 20, file);
    QTEST(std::wstring(buffer.c_str()), "expected");
    QCOMPARE(length, static_cast<DWORD>(std::wcslen(buffer.c_str())));
}

void tst_ProfileRead::noFile_data()
{
    QTest::addColumn<QString>("name");
    const QTemporaryDir folder;
    QTest::newRow("missing") << folder.filePath(QStringLiteral("missing.ini"));
    QTest::newRow("in a missing folder") << folder.filePath(QStringLiteral("a/b/missing.ini"));
    QTest::newRow("a folder") << QDir::tempPath();
    QTest::newRow("no name") << QString();
    QTest::newRow("null device") << QStringLiteral("/dev/null");
    QTest::newRow("name that is too long") << QString(5000, QLatin1Char('x'));
}

void tst_ProfileRead::noFile()
{
    QFETCH(QString, name);
    const std::wstring wide = name.toStdWString();
    const wchar_t* const file = name.isNull() ? nullptr : wide.c_str();
    const bool wasThere = QFileInfo::exists(name);

    wchar_t buffer[8] = L"#######";
    char bytes[] = "####";
    QCOMPARE(textOf(L"s", L"k", file), L"default"s);
    QCOMPARE(GetPrivateProfileInt_X(L"s", L"k", 7, file), 7u);
    QCOMPARE(GetPrivateProfileSection_X(L"s", buffer, 7, file), 0u);
    QCOMPARE(buffer[0], L'#');
    QCOMPARE(GetPrivateProfileSectionNames_X(buffer, 7, file), 0u);
    QCOMPARE(GetPrivateProfileStruct_X(L"s", L"k", bytes, 4, file), FALSE);
    QCOMPARE(bytes, "####");
    QCOMPARE(QFileInfo::exists(name), wasThere);
}

void tst_ProfileRead::ignoresTheSize()
{
    const ProfileFile file("[s]\nk=value\n");
    for (const DWORD size : {0u, 1u, 3u}) {
        WideBuffer buffer(8);
        QCOMPARE(GetPrivateProfileString_X(L"s", L"k", L"", buffer.data(), size, file), 5u);
        QCOMPARE(buffer.shown(), L"value|##"s);
    }
}

void tst_ProfileRead::lengthIsInUtf16Units_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<std::wstring>("shown");
    QTest::addColumn<DWORD>("length");
    QTest::newRow("one unit a character") << QByteArray("a\xE4\xB8\xAD") << L"a\x4E2D|##"s << 2u;
    QTest::newRow("two units above U+FFFF") << QByteArray("a\xF0\x9F\x98\x80") << L"a\x1F600|##"s << 3u;
    QTest::newRow("embedded zero") << QByteArray("a\\0b") << L"a|b|#"s << 3u;
    QTest::newRow("lone surrogate") << QByteArray("\\xd83d") << L"\xFFFD|###"s << 1u;
}

void tst_ProfileRead::lengthIsInUtf16Units()
{
    QFETCH(QByteArray, value);
    const ProfileFile file("[s]\nk=" + value + '\n');
    WideBuffer buffer(5);
    QTEST(GetPrivateProfileString_X(L"s", L"k", L"", buffer.data(), 5, file), "length");
    QTEST(buffer.shown(), "shown");
}

void tst_ProfileRead::noBuffer()
{
    const ProfileFile file("[s]\nk=value\n");
    QCOMPARE(GetPrivateProfileString_X(L"s", L"k", L"default", nullptr, 100, file), 0u);
    QCOMPARE(GetPrivateProfileStruct_X(L"s", L"k", nullptr, 100, file), FALSE);
}

void tst_ProfileRead::numbers_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("defaultValue");
    QTest::addColumn<int>("expected");
    QTest::newRow("CR LF line ends") << QByteArray("[s]\r\nk=1\r\n") << 9 << 1;
    QTest::newRow("negative") << QByteArray("[s]\nk=-5\n") << 9 << -5;
    QTest::newRow("in quotes") << QByteArray("[s]\nk=\" 7 \"\n") << 9 << 7;
    QTest::newRow("largest") << QByteArray("[s]\nk=2147483647\n") << 9 << 2147483647;
    QTest::newRow("no number") << QByteArray("[s]\nk=abc\n") << 9 << 0;
    QTest::newRow("number with a tail") << QByteArray("[s]\nk=12 mm\n") << 9 << 0;
    QTest::newRow("fraction") << QByteArray("[s]\nk=1.5\n") << 9 << 0;
    QTest::newRow("hexadecimal") << QByteArray("[s]\nk=0x10\n") << 9 << 0;
    QTest::newRow("too long") << QByteArray("[s]\nk=99999999999999999999999\n") << 9 << 0;
    QTest::newRow("empty") << QByteArray("[s]\nk=\n") << 9 << 0;
    QTest::newRow("list") << QByteArray("[s]\nk=1,2\n") << 9 << 0;
    QTest::newRow("missing") << QByteArray("[s]\n") << 9 << 9;
    QTest::newRow("missing, negative default") << QByteArray("[s]\n") << -3 << -3;
}

void tst_ProfileRead::numbers()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, defaultValue);
    const ProfileFile file(bytes);
    QTEST(static_cast<int>(GetPrivateProfileInt_X(L"s", L"k", defaultValue, file)), "expected");
}

void tst_ProfileRead::structures_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("as long as the array") << QByteArray("@ByteArray(a\\0\\xff)") << 3 << QByteArray("a\0\xff###", 6);
    QTest::newRow("shorter than the array") << QByteArray("@ByteArray(abc)") << 2 << QByteArray("ab####");
    QTest::newRow("longer than the array") << QByteArray("@ByteArray(ab)") << 5 << QByteArray("ab\0\0\0#", 6);
    QTest::newRow("none of it") << QByteArray("@ByteArray(ab)") << 0 << QByteArray("######");
    QTest::newRow("hexadecimal digits stay digits") << QByteArray("0A1B25") << 6 << QByteArray("0A1B25");
    QTest::newRow("text as UTF-8") << QByteArray("\xE4\xB8\xAD") << 3 << QByteArray("\xE4\xB8\xAD###");
}

void tst_ProfileRead::structures()
{
    QFETCH(QByteArray, value);
    QFETCH(int, size);
    const ProfileFile file("[s]\nk=" + value + '\n');
    QByteArray buffer(6, '#');
    QCOMPARE(GetPrivateProfileStruct_X(L"s", L"k", buffer.data(), static_cast<UINT>(size), file), TRUE);
    QTEST(buffer, "expected");
}

void tst_ProfileRead::aMissingStructureLeavesTheBufferAlone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("missing key") << QByteArray("[s]\nl=1\n");
    QTest::newRow("empty value") << QByteArray("[s]\nk=\n");
    QTest::newRow("empty array") << QByteArray("[s]\nk=@ByteArray()\n");
    QTest::newRow("list") << QByteArray("[s]\nk=a,b\n");
}

void tst_ProfileRead::aMissingStructureLeavesTheBufferAlone()
{
    QFETCH(QByteArray, bytes);
    const ProfileFile file(bytes);
    QByteArray buffer(4, '#');
    QCOMPARE(GetPrivateProfileStruct_X(L"s", L"k", buffer.data(), 4, file), FALSE);
    QCOMPARE(buffer, QByteArray("####"));
}

void tst_ProfileRead::readingLeavesTheFileAlone()
{
    const QByteArray bytes("; comment\r\n\r\n[s]\r\nk=C:\\temp\r\nbroken\r\n");
    const ProfileFile file(bytes);
    wchar_t buffer[100] = {};
    textOf(L"s", L"k", file);
    GetPrivateProfileSection_X(L"s", buffer, 100, file);
    GetPrivateProfileSectionNames_X(buffer, 100, file);
    QCOMPARE(file.bytes(), bytes);
    QCOMPARE(file.folder(), QStringList("profile.ini"));
}

XE_GUILESS_TEST(tst_ProfileRead)
#include "tst_profileread.moc"
