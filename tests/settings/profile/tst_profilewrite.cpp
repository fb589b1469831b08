// What exactly a write leaves in the file.

#include "profilefile.h"
#include "testclass.h"

#include <clocale>

#include <unistd.h>

class tst_ProfileWrite : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QVERIFY(std::setlocale(LC_CTYPE, "C.UTF-8")); }
    void texts_data();
    void texts();
    void textsComeBack_data();
    void textsComeBack();
    void withoutAKey();
    void structures_data();
    void structures();
    void structuresComeBack();
    void sections_data();
    void sections();
    void noFile_data();
    void noFile();
    void aFileThatCannotBeWritten();
    void longestPath_data();
    void longestPath();
    void pathsGoByTheLocale();
};

void tst_ProfileWrite::texts_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<std::wstring>("section");
    QTest::addColumn<std::wstring>("key");
    QTest::addColumn<std::wstring>("value");
    QTest::addColumn<QByteArray>("after");
    const auto add = [](const char* name, const QByteArray& before, const std::wstring& section,
                        const std::wstring& key, const std::wstring& value,
                        const QByteArray& after) { QTest::newRow(name) << before << section << key << value << after; };
    const auto addValue = [add](const char* name, const std::wstring& value, const QByteArray& written) {
        add(name, "", L"s", L"k", value, "[s]\nk=" + written + '\n');
    };

    add("first entry", "", L"s", L"k", L"v", "[s]\nk=v\n");
    add("entry of a section that is there", "[s]\na=1\nz=2\n", L"s", L"k", L"v", "[s]\na=1\nk=v\nz=2\n");
    add("entry that is there", "[s]\nk=1\nl=2\n", L"s", L"k", L"v", "[s]\nk=v\nl=2\n");
    add("case makes another entry", "[s]\nk=1\n", L"s", L"K", L"v", "[s]\nK=v\nk=1\n");
    add("comments and blank lines go, sections and keys get sorted",
        "; top\r\n[t]\r\nb=2\r\n\r\n; b first\r\na=1\r\n\r\n[s]\r\nc=3\r\n", L"t", L"c", L"v",
        "[s]\nc=3\n\n[t]\na=1\nb=2\nc=v\n");
    add("section General", "", L"General", L"k", L"v", "[%General]\nk=v\n");
    add("section GENERAL, told apart by case", "", L"GENERAL", L"k", L"v", "[%GENERAL]\nk=v\n");
    add("no section", "", L"", L"k", L"v", "[General]\nk=v\n");
    add("names outside ASCII", "", L"\x8282", L"\x4E2D k", L"v", "[%U8282]\n%U4E2D%20k=v\n");
    add("key of keys", "", L"s", L"a/b", L"v", "[s]\na\\b=v\n");

    addValue("UTF-8", L"\x4E2D\xE9", "\xE4\xB8\xAD\xC3\xA9");
    addValue("UTF-8 above U+FFFF", L"\x1F600", "\xF0\x9F\x98\x80");
    addValue("half of a character above U+FFFF", L"\xD83D", "\\xd83d");
    addValue("backslash", L"C:\\temp", "C:\\\\temp");
    addValue("comma", L"a,b", "\"a,b\"");
    addValue("semicolon and equals sign", L"a;b=c", "\"a;b=c\"");
    addValue("quotes", L"a\"b", "a\\\"b");
    addValue("outer blanks", L" v ", "\" v \"");
    addValue("control characters", L"a\t\r\n\x01z", "a\\t\\r\\n\\x1z");
    addValue("at sign", L"@v", "@@v");
    addValue("empty", L"", "");
}

void tst_ProfileWrite::texts()
{
    QFETCH(QByteArray, before);
    QFETCH(std::wstring, section);
    QFETCH(std::wstring, key);
    QFETCH(std::wstring, value);
    const ProfileFile file(before);
    QCOMPARE(WritePrivateProfileString_X(section.c_str(), key.c_str(), value.c_str(), file), TRUE);
    QTEST(file.bytes(), "after");
    QCOMPARE(file.folder(), QStringList("profile.ini"));
}

void tst_ProfileWrite::textsComeBack_data()
{
    QTest::addColumn<std::wstring>("value");
    QTest::newRow("ASCII") << L"v"s;
    QTest::newRow("empty") << L""s;
    QTest::newRow("path") << L"C:\\temp\\new"s;
    QTest::newRow("list") << L"1,2;3=4"s;
    QTest::newRow("quotes and blanks") << L" \"a\" , \"b\" "s;
    QTest::newRow("lines") << L"a\r\nb\tc"s;
    QTest::newRow("Chinese") << L"\x4E2D\x6587"s;
    QTest::newRow("above U+FFFF") << L"\x1F600"s;
    QTest::newRow("forms of other values") << L"@ByteArray(a)"s;
    QTest::newRow("hexadecimal digit behind a control character") << L"\x01"
                                                                     L"f"s;
}

void tst_ProfileWrite::textsComeBack()
{
    QFETCH(std::wstring, value);
    const ProfileFile file("");
    QCOMPARE(WritePrivateProfileString_X(L"s", L"k", value.c_str(), file), TRUE);
    QCOMPARE(textOf(L"s", L"k", file), value);
}

void tst_ProfileWrite::withoutAKey()
{
    const ProfileFile file("[s]\nk=1\n");
    QTest::ignoreMessage(QtWarningMsg, "QSettings::setValue: Empty key passed");
    QCOMPARE(WritePrivateProfileString_X(L"s", nullptr, nullptr, file), TRUE);
    QCOMPARE(file.bytes(), QByteArray("[s]\nk=1\n"));

    QCOMPARE(WritePrivateProfileString_X(L"s", L"k", nullptr, file), TRUE); // a null value does not remove the key
    QCOMPARE(file.bytes(), QByteArray("[s]\nk=\n"));
}

void tst_ProfileWrite::structures_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("letters") << QByteArray("abc") << QByteArray("[s]\nk=@ByteArray(abc)\n");
    QTest::newRow("zero and high bytes") << QByteArray("\0a\xff\x80", 4)
                                         << QByteArray("[s]\nk=@ByteArray(\\0\\x61\\xff\\x80)\n");
    QTest::newRow("comma") << QByteArray("a,b") << QByteArray("[s]\nk=\"@ByteArray(a,b)\"\n");
    QTest::newRow("no bytes") << QByteArray("") << QByteArray("[s]\nk=@ByteArray()\n");
}

void tst_ProfileWrite::structures()
{
    QFETCH(QByteArray, data);
    const ProfileFile file("");
    QCOMPARE(WritePrivateProfileStruct_X(L"s", L"k", data.constData(), UINT(data.size()), file), TRUE);
    QTEST(file.bytes(), "after");
}

void tst_ProfileWrite::structuresComeBack()
{
    QByteArray data(256, '\0');
    std::generate(data.begin(), data.end(), [byte = 0]() mutable { return static_cast<char>(byte++); });
    const ProfileFile file("");
    QCOMPARE(WritePrivateProfileStruct_X(L"s", L"k", data.constData(), 256, file), TRUE);
    QByteArray read(256, '#');
    QCOMPARE(GetPrivateProfileStruct_X(L"s", L"k", read.data(), 256, file), TRUE);
    QCOMPARE(read, data);

    QCOMPARE(WritePrivateProfileStruct_X(L"s", L"none", nullptr, 256, file), TRUE);
    QCOMPARE(GetPrivateProfileStruct_X(L"s", L"none", read.data(), 256, file), FALSE);
    const QByteArray before = file.bytes();
    QCOMPARE(WritePrivateProfileStruct_X(L"s", L"k", data.constData(), 0xFFFFFFFF, file), FALSE);
    QCOMPARE(file.bytes(), before);
}

void tst_ProfileWrite::sections_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("one carriage return an entry") << QByteArray() << L"a=1\rb=2\r"s << QByteArray("[s]\na=1\nb=2\n");
    QTest::newRow("last entry without one") << QByteArray() << L"a=1\rb=2"s << QByteArray("[s]\na=1\nb=2\n");
    QTest::newRow("empty entries are skipped") << QByteArray() << L"\r\ra=1\r\r\rb=2"s << QByteArray("[s]\na=1\nb=2\n");
    QTest::newRow("a value with an equals sign is dropped, quotes go")
        << QByteArray() << L"a=b=c\rd=\"e\"\r"s << QByteArray("[s]\nd=e\n");
    QTest::newRow("an entry without an equals sign is dropped")
        << QByteArray() << L"a\rb=2"s << QByteArray("[s]\nb=2\n");
    QTest::newRow("empty value") << QByteArray() << L"a=\r"s << QByteArray("[s]\na=\n");
    QTest::newRow("every quote goes") << QByteArray() << L"a=x\"y\"\"z"s << QByteArray("[s]\na=xyz\n");
    QTest::newRow("a line feed belongs to the name")
        << QByteArray() << L"a=1\r\nb=2"s << QByteArray("[s]\n%0Ab=2\na=1\n");
    QTest::newRow("other entries stay") << QByteArray("[s]\na=1\nb=2\n[t]\nc=3\n") << L"b=4\rd=5"s
                                        << QByteArray("[s]\na=1\nb=4\nd=5\n\n[t]\nc=3\n");
    QTest::newRow("nothing to write leaves the file alone")
        << QByteArray("; c\n[s]\na=1\n") << L"x=y=z\r"s << QByteArray("; c\n[s]\na=1\n");
    QTest::newRow("ends at a zero") << QByteArray() << L"a=1\r\0b=2\r"s << QByteArray("[s]\na=1\n");
}

void tst_ProfileWrite::sections()
{
    QFETCH(QByteArray, before);
    QFETCH(std::wstring, text);
    const ProfileFile file(before);
    QCOMPARE(WritePrivateProfileSection_X(L"s", text.c_str(), file), TRUE);
    QTEST(file.bytes(), "after");
    QCOMPARE(WritePrivateProfileSection_X(L"s", nullptr, file), TRUE);
    QTEST(file.bytes(), "after");
}

void tst_ProfileWrite::noFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << QStringLiteral("missing.ini");
    QTest::newRow("in a missing folder") << QStringLiteral("a/b/missing.ini");
    QTest::newRow("empty name") << QStringLiteral("");
    QTest::newRow("no name") << QString();
}

void tst_ProfileWrite::noFile()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const std::wstring path = (name.isEmpty() ? name : folder.filePath(name)).toStdWString();
    const wchar_t* const file = name.isNull() ? nullptr : path.c_str();
    QCOMPARE(waccess(file, F_OK), -1);
    QCOMPARE(WritePrivateProfileString_X(L"s", L"k", L"v", file), FALSE);
    QCOMPARE(WritePrivateProfileStruct_X(L"s", L"k", "v", 1, file), FALSE);
    QCOMPARE(WritePrivateProfileSection_X(L"s", L"k=v\r", file), FALSE);
    QVERIFY(QDir(folder.path()).isEmpty());
}

void tst_ProfileWrite::aFileThatCannotBeWritten()
{
    const QTemporaryDir folder; // stands where a file should
    const std::wstring file = folder.path().toStdWString();
    QCOMPARE(WritePrivateProfileString_X(L"s", L"k", L"v", file.c_str()), TRUE);
    QCOMPARE(WritePrivateProfileStruct_X(L"s", L"k", "v", 1, file.c_str()), TRUE);
    QCOMPARE(WritePrivateProfileSection_X(L"s", L"k=v\r", file.c_str()), TRUE);
    QVERIFY(QDir(folder.path()).isEmpty());
    QVERIFY(!QFileInfo::exists(folder.path() + ".lock"));
}

void tst_ProfileWrite::longestPath_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("access");
    QTest::newRow("1023 bytes") << 1023 << 0;
    QTest::newRow("1024 bytes") << 1024 << -1;
    QTest::newRow("a million") << 1000000 << -1;
}

void tst_ProfileWrite::longestPath()
{
    QFETCH(int, length);
    const std::wstring path(static_cast<std::size_t>(length), L'/'); // the root, spelt out
    QTEST(waccess(path.c_str(), F_OK), "access");
}

void tst_ProfileWrite::pathsGoByTheLocale()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("\u4e2d.ini"));
    QVERIFY(QFile(name).open(QIODevice::WriteOnly));
    const std::wstring path = name.toStdWString();
    QCOMPARE(waccess(path.c_str(), F_OK), 0);
    QCOMPARE(WritePrivateProfileString_X(L"s", L"k", L"v", path.c_str()), TRUE);

    QVERIFY(std::setlocale(LC_CTYPE, "C"));
    QCOMPARE(waccess(path.c_str(), F_OK), -1);
    QCOMPARE(WritePrivateProfileString_X(L"s", L"k", L"w", path.c_str()), FALSE);
    QCOMPARE(textOf(L"s", L"k", path.c_str()), L"v"s); // Qt knows its file names' encoding
}

XE_GUILESS_TEST(tst_ProfileWrite)
#include "tst_profilewrite.moc"
