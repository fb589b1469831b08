// The entries of a section and the names of the sections, in buffers of all sizes.

#include "profilefile.h"
#include "testclass.h"

class tst_ProfileLists : public QObject
{
    Q_OBJECT

private slots:
    void section_data();
    void section();
    void sectionInSmallBuffers_data();
    void sectionInSmallBuffers();
    void sectionsTextGoesBack();
    void names_data();
    void names();
    void namesInSmallBuffers_data();
    void namesInSmallBuffers();
    void aClearedBufferTerminatesTheList();
    void noBuffer();
};

void tst_ProfileLists::section_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<std::wstring>("section");
    QTest::addColumn<std::wstring>("expected");
    const auto add = [](const char* name, const QByteArray& bytes, const std::wstring& expected,
                        const wchar_t* section = L"s") {
        QTest::newRow(name) << bytes << std::wstring(section) << expected;
    };

    add("a carriage return ends each entry", "[s]\na=1\nb=2\n", L"a=1\rb=2\r");
    add("keys are sorted", "[s]\nb=2\nB=3\na=1\n", L"B=3\ra=1\rb=2\r");
    add("empty value", "[s]\na=\n", L"a=\r");
    add("list", "[s]\na=1,2\nb=3\n", L"a=\rb=3\r");
    add("quotes go", "[s]\na=\"x,y\"\n", L"a=x,y\r");
    add("a text with places for arguments", "[s]\n%251=%2\n%252=%1\n", L"%1=%2\r%2=%1\r");
    add("an element a character above U+FFFF", "[s]\na=\xF0\x9F\x98\x80\n", L"a=\x1F600\r");
    add("keys of keys are not listed", "[s]\na\\b=1\nc=2\n", L"c=2\r");
    add("sections of sections are not listed", "[s]\na=1\n[s/t]\nb=2\n", L"a=1\r");
    add("no such section", "[s]\na=1\n", L"", L"t");
    add("section in another case", "[s]\na=1\n", L"", L"S");
    add("General by its name", "[General]\na=1\n", L"", L"General");
    add("General without a name", "[General]\na=1\n[s]\nb=2\n", L"a=1\r", L"");
}

void tst_ProfileLists::section()
{
    QFETCH(QByteArray, bytes);
    QFETCH(std::wstring, section);
    QFETCH(std::wstring, expected);
    const ProfileFile file(bytes);
    WideBuffer buffer(30);
    QCOMPARE(GetPrivateProfileSection_X(section.c_str(), buffer.data(), 30, file), DWORD(expected.size()));
    QCOMPARE(buffer.shown(), expected + std::wstring(30 - expected.size(), L'#'));
}

void tst_ProfileLists::sectionInSmallBuffers_data()
{
    QTest::addColumn<std::wstring>("shown");
    QTest::addColumn<DWORD>("result");
    QTest::newRow("exactly enough") << L"a=1\rbb=22\r"s << 10u;
    QTest::newRow("one too few") << L"a=1\rbb=22"s << 7u;
    QTest::newRow("room for the first entry and one element") << L"a=1\rb"s << 3u;
    QTest::newRow("room for the first entry alone") << L"a=1\r"s << 2u;
    QTest::newRow("no room for the first entry") << L"a=1"s << 1u;
    QTest::newRow("two") << L"a="s << 0u;
    QTest::newRow("one") << L"a"s << 0u;
    QTest::newRow("none") << L""s << 0u;
}

void tst_ProfileLists::sectionInSmallBuffers()
{
    QFETCH(std::wstring, shown);
    const ProfileFile file("[s]\na=1\nbb=22\n");
    WideBuffer buffer(shown.size());
    QTEST(GetPrivateProfileSection_X(L"s", buffer.data(), DWORD(shown.size()), file), "result");
    QCOMPARE(buffer.shown(), shown);
}

void tst_ProfileLists::sectionsTextGoesBack()
{
    const QByteArray bytes("[s]\na=1\nb=C:\\\\temp\nc=\" x, y \"\n");
    const ProfileFile from(bytes);
    const ProfileFile to("");
    std::wstring text(100, L'\0');
    GetPrivateProfileSection_X(L"s", text.data(), 100, from);
    QCOMPARE(WritePrivateProfileSection_X(L"s", text.c_str(), to), TRUE);
    QCOMPARE(to.bytes(), bytes);
}

void tst_ProfileLists::names_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<std::wstring>("shown");
    QTest::addColumn<DWORD>("result");
    // The first 4 of the 16 elements are cleared.
    QTest::newRow("terminated in the first quarter")
        << QByteArray("[s]\nk=1\n[t]\nk=1\n") << L"s|t|############"s << 4u;
    QTest::newRow("not terminated behind it") << QByteArray("[ab]\nk=1\n[cd]\nk=1\n") << L"ab|cd###########"s << 6u;
    QTest::newRow("sorted") << QByteArray("[b]\nk=1\n[a]\nk=1\n[B]\nk=1\n") << L"B|a|b###########"s << 6u;
    QTest::newRow("each once") << QByteArray("[s]\nk=1\n[t]\nk=1\n[s]\nl=1\n") << L"s|t|############"s << 4u;
    QTest::newRow("General is not listed") << QByteArray("[General]\nk=1\n[s]\nk=1\n") << L"s|||############"s << 2u;
    QTest::newRow("entries without a section") << QByteArray("k=1\n") << L"||||############"s << 0u;
    QTest::newRow("section without entries") << QByteArray("[e]\n[s]\nk=1\n") << L"s|||############"s << 2u;
    QTest::newRow("section of sections") << QByteArray("[s/t]\nk=1\n[s/u]\nk=1\n") << L"s|||############"s << 2u;
    QTest::newRow("an element a character above U+FFFF")
        << QByteArray("[%UD83D%UDE00]\nk=1\n") << L"\x1F600|||############"s << 2u;
    QTest::newRow("no sections") << QByteArray("") << L"||||############"s << 0u;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE[\0s\0]\0\n\0k\0=\0v\0\n\0", 18) << L"||||############"s << 0u;
}

void tst_ProfileLists::names()
{
    QFETCH(QByteArray, bytes);
    const ProfileFile file(bytes);
    WideBuffer buffer(16);
    QTEST(GetPrivateProfileSectionNames_X(buffer.data(), 16, file), "result");
    QTEST(buffer.shown(), "shown");
}

void tst_ProfileLists::namesInSmallBuffers_data()
{
    QTest::addColumn<std::wstring>("shown");
    QTest::addColumn<DWORD>("result");
    QTest::newRow("exactly enough") << L"ab#cd#"s << 6u;
    QTest::newRow("no room behind the last name") << L"ab#cd"s << 3u;
    QTest::newRow("second name cut") << L"ab#c"s << 2u;
    QTest::newRow("no second name") << L"ab#"s << 1u;
    QTest::newRow("no room behind the first name") << L"ab"s << 0u;
    QTest::newRow("first name cut") << L"a"s << 0u;
    QTest::newRow("none") << L""s << 0u;
}

void tst_ProfileLists::namesInSmallBuffers()
{
    QFETCH(std::wstring, shown);
    const ProfileFile file("[ab]\nk=1\n[cd]\nk=1\n");
    WideBuffer buffer(shown.size());
    QTEST(GetPrivateProfileSectionNames_X(buffer.data(), DWORD(shown.size()), file), "result");
    QCOMPARE(buffer.shown(), shown);
}

void tst_ProfileLists::aClearedBufferTerminatesTheList()
{
    const ProfileFile file("[first]\nk=1\n[second]\nk=1\n");
    wchar_t buffer[20] = {};
    QCOMPARE(GetPrivateProfileSectionNames_X(buffer, 20, file), 13u);
    QCOMPARE(std::wstring(buffer, 20), L"first\0second\0\0\0\0\0\0\0\0"s);
}

void tst_ProfileLists::noBuffer()
{
    const ProfileFile file("[s]\nk=1\n");
    QCOMPARE(GetPrivateProfileSection_X(L"s", nullptr, 10, file), 0u);
    QCOMPARE(GetPrivateProfileSectionNames_X(nullptr, 10, file), 0u);
}

XE_GUILESS_TEST(tst_ProfileLists)
#include "tst_profilelists.moc"
