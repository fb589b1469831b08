// From resource.h and a list of texts to the two tables: what is accepted, and what is said to the rest.

#include "testclass.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>

class tst_ResourceTables : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void ids_data();
    void ids();
    void idWarnings_data();
    void idWarnings();
    void idErrors_data();
    void idErrors();

    void texts_data();
    void texts();
    void textErrors_data();
    void textErrors();

    void moduleName_data();
    void moduleName();
    void everyMistakeIsTold();
    void nothingIsWrittenAfterAMistake();
    void emptyFiles();

private:
    void write(const char* name, const QByteArray& content);
    void make(const QByteArray& resource, const QByteArray& strings);
    QMap<QString, QString> table(const char* name) const;

    QScopedPointer<QTemporaryDir> m_folder;
    bool m_succeeded = false;
    QString m_complaints;
};

void tst_ResourceTables::init()
{
    m_folder.reset(new QTemporaryDir);
    write("module", "libplugin.so\n");
}

void tst_ResourceTables::write(const char* name, const QByteArray& content)
{
    QFile file(m_folder->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void tst_ResourceTables::make(const QByteArray& resource, const QByteArray& strings)
{
    write("resource.h", resource);
    write("strings", strings);
    QProcess awk;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C");
    awk.setProcessEnvironment(environment);
    awk.setWorkingDirectory(m_folder->path());
    awk.start("awk", {"-f", qEnvironmentVariable("SCRIPT"), "module", "resource.h", "strings"});
    QVERIFY(awk.waitForFinished());
    m_succeeded = awk.exitCode() == 0;
    m_complaints = QString::fromUtf8(awk.readAllStandardError()).trimmed();
    QCOMPARE(awk.readAllStandardOutput(), QByteArray());
}

// Read the way the library reads it.
QMap<QString, QString> tst_ResourceTables::table(const char* name) const
{
    QSettings file(m_folder->filePath(name), QSettings::IniFormat);
    file.setIniCodec("UTF-8");
    QMap<QString, QString> entries;
    for (const QString& key : file.allKeys())
        entries.insert(key, file.value(key).toString());
    return entries;
}

// -------------------------------------------------------------------------------------------------------- resource.h

void tst_ResourceTables::ids_data()
{
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QString>("id");
    const auto row = [](const char* name, const QByteArray& resource, const char* id) {
        QTest::newRow(name) << resource << QString(id);
    };
    row("decimal", "#define IDC_A   1001\n", "1001");
    row("hexadecimal", "#define IDC_A 0x1F\n", "31");
    row("hexadecimal in the other case", "#define IDC_A 0Xabcdef\n", "11259375");
    row("tabs", "#define\tIDC_A\t\t1001\t\n", "1001");
    row("indented", "   #define IDC_A 1001\n", "1001");
    row("blank behind the #", "# define IDC_A 1001\n", "1001");
    row("parentheses", "#define IDC_A (1001)\n", "1001");
    row("parentheses in parentheses", "#define IDC_A ( (0x10) )\n", "16");
    row("// comment", "#define IDC_A 1001// 7\n", "1001");
    row("/* comment */", "#define IDC_A 1001 /* 7 */\n", "1001");
    row("comments in between", "/**/#define/* 5 */IDC_A/* 6 */1001 /* 7 */ // 8\n", "1001");
    row("comment of many lines", "/* #define IDC_A 7\n#define IDC_A 8\n 9 */ #define IDC_A 1001\n", "1001");
    row("// in a comment", "/* // */ #define IDC_A 1001\n", "1001");
    row("zero", "#define IDC_A 0\n", "0");
    row("highest", "#define IDC_A 4294967295\n", "4294967295");
    row("highest, hexadecimal", "#define IDC_A 0xFFFFFFFF\n", "4294967295");
    row("many zeros", "#define IDC_A 0x000000000010\n", "16");
    row("negative", "#define IDC_A -1\n", "4294967295");
    row("negative in parentheses", "#define IDC_A (-2)\n", "4294967294");
    row("negative hexadecimal", "#define IDC_A - 0x10\n", "4294967280");
    row("lowest", "#define IDC_A -2147483648\n", "2147483648");
    row("a name defined before", "#define _APS_NO 1\n#define IDC_B 7\n#define IDC_A IDC_B\n", "7");
    row("a name in parentheses", "#define IDC_B -1\n#define IDC_A (IDC_B)\n", "4294967295");
    row("the same twice", "#define IDC_A 1001\n#define IDC_A 0x3E9\n", "1001");
    row("CR LF", "#define IDC_A 1001\r\n", "1001");
    row("byte order mark", "\xEF\xBB\xBF#define IDC_A 1001\n", "1001");
    row("no end of line", "#define IDC_A 1001", "1001");
    row("include guard", "#ifndef RESOURCE_H\n#define RESOURCE_H\n#define IDC_A 1001\n#endif // RESOURCE_H\n", "1001");
    row("other directives",
        "#pragma once\n#include <winres.h>\n#if defined(A) && 0\n# elif 1\n#else\n#endif\n#ifdef X\n#undef X\n#endif\n"
        "#define IDC_A 1001\n",
        "1001");
    row("names of Visual Studio's own",
        "//{{NO_DEPENDENCIES}}\r\n// Used by book.rc\r\n//\r\n#define IDC_A 1001\r\n\r\n"
        "// Next default values for new objects\r\n// \r\n#ifdef APSTUDIO_INVOKED\r\n"
        "#ifndef APSTUDIO_READONLY_SYMBOLS\r\n#define _APS_NEXT_RESOURCE_VALUE 1001\r\n"
        "#define _APS_NEXT_COMMAND_VALUE none\r\n#endif\r\n#endif\r\n",
        "1001");
}

// Each row defines IDC_A, with or without an IDC_B before it.
void tst_ResourceTables::ids()
{
    QFETCH(const QByteArray, resource);
    make(resource, "");
    QVERIFY2(m_succeeded, qPrintable(m_complaints));
    const QMap<QString, QString> ids = table("IDs");
    QTEST(ids.key("IDC_A"), "id");
    QCOMPARE(ids.size(), 1);
}

void tst_ResourceTables::idWarnings_data()
{
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QString>("warning");
    QTest::newRow("one number twice")
        << QByteArray("#define IDC_A 5\n\n#define IDC_B 0x5\n")
        << "resource.h:3: warning: IDC_B takes the number 5 from IDC_A in line 1, which no lookup finds any more";
    QTest::newRow("a second name for a number")
        << QByteArray("#define IDC_A 5\n#define IDC_B IDC_A\n")
        << "resource.h:2: warning: IDC_B takes the number 5 from IDC_A in line 1, which no lookup finds any more";
}

void tst_ResourceTables::idWarnings()
{
    QFETCH(const QByteArray, resource);
    make(resource, "IDC_A \"lost\"\nIDC_B \"found\"\n");
    QVERIFY(m_succeeded);
    QTEST(m_complaints, "warning");
    QCOMPARE(table("IDs"), (QMap<QString, QString>{{"5", "IDC_B"}}));
}

void tst_ResourceTables::idErrors_data()
{
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QString>("error");
    for (const char* line : {"#define IDC_X abc",
                             "#define IDC_X IDC_LATER",
                             "#define IDC_X 4294967296",
                             "#define IDC_X 0x100000000",
                             "#define IDC_X 99999999999999999999999",
                             "#define IDC_X -2147483649",
                             "#define IDC_X 1 2",
                             "#define IDC_X 10 + 1",
                             "#define IDC_X 1L",
                             "#define IDC_X 010",
                             "#define IDC_X 0x",
                             "#define IDC_X --1",
                             "#define IDC_X (1",
                             "#define IDC_X ()",
                             "#define IDC_X 1)",
                             "#define IDC_X \"1\"",
                             "#define IDC_X(a) 1",
                             "#define IDC_X(1)",
                             "#define 1X 1",
                             "#define IDC-X 1",
                             "#define",
                             "#defined IDC_X 1",
                             "#define IDC_X 1 \\",
                             "#error no",
                             "#iffy",
                             "IDC_X 1",
                             "int i;",
                             "1 // 2",
                             "#define IDC_X 零"})
        QTest::newRow(line) << QByteArray(line) + '\n'
                            << QStringLiteral("resource.h:1: \"%1\" is not #define NAME NUMBER").arg(line);
    QTest::newRow("a line in the middle, CR LF") << QByteArray("#define IDC_A 1\r\n  what?\r\n#define IDC_B 2\r\n")
                                                 << "resource.h:2: \"  what?\" is not #define NAME NUMBER";
    QTest::newRow("one name with two numbers") << QByteArray("\n#define IDC_A 7\n#define IDC_A (-1)\n")
                                               << "resource.h:3: IDC_A is 7 in line 2 and 4294967295 here";
}

void tst_ResourceTables::idErrors()
{
    QFETCH(const QByteArray, resource);
    make(resource, "");
    QVERIFY(!m_succeeded);
    QTEST(m_complaints, "error");
}

// ------------------------------------------------------------------------------------------------------------- texts

void tst_ResourceTables::texts_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QByteArray& line, const QString& text) {
        QTest::newRow(name) << line << text;
    };
    row("blanks between", "IDS_A  \"text\"", "text");
    row("tab between", "IDS_A\t\"text\"", "text");
    row("nothing between", "IDS_A\"text\"", "text");
    row("comma between", "IDS_A, \"text\"", "text");
    row("= between", "IDS_A = \"text\"", "text");
    row("indented", "    IDS_A \"text\"  ", "text");
    row("byte order mark and CR LF", "\xEF\xBB\xBFIDS_A \"text\"\r", "text");
    row("comment lines", "// IDS_A \"no\"\n\n   // IDS_A \"no\"\nIDS_A \"text\"", "text");
    row("empty", "IDS_A \"\"", "");

    row("doubled quotes", R"(IDS_A "a ""b"" c")", R"(a "b" c)");
    row("quotes alone", R"(IDS_A """""")", R"("")");
    row("escaped quotes", R"(IDS_A "\"b\"")", R"("b")");
    row("both kinds of quotes", R"(IDS_A "\"""\"")", R"(""")");
    row("backslash before a doubled quote", R"(IDS_A "a\\""b")", R"(a\"b)");
    row("backslash before an escaped quote", R"(IDS_A "a\\\"b")", R"(a\"b)");
    row("backslash at the end", R"(IDS_A "a\\")", R"(a\)");
    row("line feed, carriage return, tab", R"(IDS_A "\na\r\n\tb\n")", "\na\r\n\tb\n");
    row("a backslash before an n", R"(IDS_A "\\n")", R"(\n)");
    row("path", R"(IDS_A "C:\\new\\x41\\")", R"(C:\new\x41\)");

    row("semicolons", "IDS_A \"a;b;;c;\"", "a;b;;c;");
    row("brackets that do not match", "IDS_A \"[a]] [[b\"", "[a]] [[b");
    row("commas", "IDS_A \"a, b,,c\"", "a, b,,c");
    row("= signs", "IDS_A \"a=b==c=\"", "a=b==c=");
    row("per cent signs", "IDS_A \"%d%% %20 %U1234\"", "%d%% %20 %U1234");
    row("@ in front", "IDS_A \"@home\"", "@home");
    row("two @ in front", "IDS_A \"@@home\"", "@@home");
    row("@ elsewhere", "IDS_A \"a@b.c @\"", "a@b.c @");
    row("like a value of another type", "IDS_A \"@Size(1 2)\"", "@Size(1 2)");
    row("blanks at both ends", "IDS_A \"  a  \"", "  a  ");
    row("a tab as it is", "IDS_A \"a\tb\"", "a\tb");
    row("what looks like a comment", "IDS_A \"a // b /* c */\"", "a // b /* c */");
    row("what CMake would replace", "IDS_A \"${A} @A@ $<A>\"", "${A} @A@ $<A>");
    row("what awk would replace", "IDS_A \"& $0 %s\"", "& $0 %s");
    row("Chinese", "IDS_A \"螺栓；零件\"", "螺栓；零件");
    row("emoji", "IDS_A \"🔩 👩‍🔧\"", "🔩 👩‍🔧");
}

void tst_ResourceTables::texts()
{
    QFETCH(const QByteArray, line);
    make("#define IDS_A 1\n", line + '\n');
    QVERIFY2(m_succeeded, qPrintable(m_complaints));
    const QMap<QString, QString> texts = table("ST");
    QTEST(texts.value("IDS_A"), "text");
    QCOMPARE(texts.keys(), QStringList{"IDS_A"});
}

void tst_ResourceTables::textErrors_data()
{
    QTest::addColumn<QByteArray>("strings");
    QTest::addColumn<QString>("error");
    for (const char* line :
         {"IDS_A", "IDS_A text", "IDS_A \"text", "IDS_A text\"", "IDS_A \"", "IDS_A \"a\"b\"", "IDS_A \"text\" // why",
          "IDS_A \"text\";", "IDS_A ,, \"text\"", "IDS_A 'text'", "IDS_A \"\\x\"", "IDS_A \"\\\"", "IDS_A \"a\\\"\"\"",
          "\"text\"", "1A \"text\"", "IDS-A \"text\"", "# IDS_A \"text\"", "/* IDS_A \"text\" */", "零件 \"text\""})
        QTest::newRow(line) << QByteArray(line) + '\n'
                            << QStringLiteral("strings:1: '%1' is not NAME \"text\"").arg(line);
    QTest::newRow("a line in the middle, CR LF")
        << QByteArray("IDS_A \"a\"\r\nwhat?\r\nIDS_B \"b\"\r\n") << "strings:2: 'what?' is not NAME \"text\"";
    QTest::newRow("unknown name") << QByteArray("\nIDS_C \"text\"\n")
                                  << "strings:2: IDS_C is not defined in resource.h";
    QTest::newRow("name in another case")
        << QByteArray("ids_a \"text\"\n") << "strings:1: ids_a is not defined in resource.h";
    QTest::newRow("two texts") << QByteArray("IDS_A \"text\"\n// \nIDS_A \"text\"\n")
                               << "strings:3: IDS_A has a text in line 1 already";
}

void tst_ResourceTables::textErrors()
{
    QFETCH(const QByteArray, strings);
    make("#define IDS_A 1\n#define IDS_B 2\n", strings);
    QVERIFY(!m_succeeded);
    QTEST(m_complaints, "error");
}

// --------------------------------------------------------------------------------------------------------- the whole

void tst_ResourceTables::moduleName_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("module");
    QTest::newRow("program") << QByteArray("partsbook") << "partsbook";
    QTest::newRow("library") << QByteArray("libplugin.so") << "libplugin";
    QTest::newRow("dots") << QByteArray("plug.in.so.2.1") << "plug";
}

void tst_ResourceTables::moduleName()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, module);
    write("module", file + '\n');
    make("#define IDS_A 1\n", "IDS_A \"a\"\n");
    QVERIFY(m_succeeded);
    QFile qrc(m_folder->filePath("tables.qrc"));
    QVERIFY(qrc.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(qrc.readAll()),
             QStringLiteral("<RCC><qresource prefix=\"/%1\">\n"
                            "<file alias=\"%1IDs\">IDs</file><file alias=\"%1ST\">ST</file>\n"
                            "</qresource></RCC>\n")
                 .arg(module));
}

void tst_ResourceTables::everyMistakeIsTold()
{
    make("what?\n#define IDS_A 1\n#define IDS_A 2\n", "IDS_A\nIDS_B \"b\"\n");
    QVERIFY(!m_succeeded);
    QCOMPARE(m_complaints.split('\n'), (QStringList{
                                           "resource.h:1: \"what?\" is not #define NAME NUMBER",
                                           "resource.h:3: IDS_A is 1 in line 2 and 2 here",
                                           "strings:1: 'IDS_A' is not NAME \"text\"",
                                           "strings:2: IDS_B is not defined in resource.h",
                                       }));
}

void tst_ResourceTables::nothingIsWrittenAfterAMistake()
{
    make("#define IDS_A 1\nwhat?\n", "IDS_A \"a\"\n");
    QVERIFY(!m_succeeded);
    for (const char* name : {"IDs", "ST", "tables.qrc"})
        QVERIFY2(!QFile::exists(m_folder->filePath(name)), name);
}

void tst_ResourceTables::emptyFiles()
{
    make("", "");
    QVERIFY2(m_succeeded, qPrintable(m_complaints));
    QVERIFY(QFile::exists(m_folder->filePath("IDs")));
    QVERIFY(QFile::exists(m_folder->filePath("ST")));
    QVERIFY(table("IDs").isEmpty());
    QVERIFY(table("ST").isEmpty());
}

XE_GUILESS_TEST(tst_ResourceTables)
#include "tst_resourcetables.moc"
