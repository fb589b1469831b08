// Asking the desktop about a file's program, with an xdg-mime of the test's own in front of all others.

#include "testclass.h"
#include "urltext.h"

#include <cerrno>

class tst_Assoc : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { qputenv("PATH", m_path); }
    void answers_data();
    void answers();
    void commandLine_data();
    void commandLine();
    void hostileText_data();
    void hostileText();
    void noProgram();
    void nullAsksNobody();
    void keepsTheLastError();

private:
    void answer(const char* question, const QByteArray& text) const;
    QStringList log() const;

    const QTemporaryDir m_folder;
    const QByteArray m_path = qgetenv("PATH");
};

void tst_Assoc::init()
{
    QFile script(m_folder.filePath(QStringLiteral("xdg-mime")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n"
                 "cd \"${0%/*}\"\n"
                 "for argument do printf '<%s>' \"$argument\"; done >>log\n"
                 "echo >>log\n"
                 "cat \"$2\"\n");
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    script.close();
    QFile::remove(m_folder.filePath(QStringLiteral("log")));
    answer("filetype", "text/plain\n");
    answer("default", "dangerous_program.desktop\n");
    qputenv("PATH", m_folder.path().toLocal8Bit() + ':' + m_path);
}

// What the script says to "query <question>".
void tst_Assoc::answer(const char* question, const QByteArray& text) const
{
    QFile file(m_folder.filePath(QLatin1String(question)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

// The calls of the script, each as its arguments in brackets.
QStringList tst_Assoc::log() const
{
    QFile file(m_folder.filePath(QStringLiteral("log")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void tst_Assoc::answers_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<BOOL>("expected");
    QTest::addColumn<QString>("secondCall");
    const QString ordinary = QStringLiteral("<query><default><text/plain>");
    QTest::newRow("dangerous") << QByteArray("text/plain\n") << QByteArray("dangerous_program\n") << TRUE << ordinary;
    QTest::newRow("within a longer answer")
        << QByteArray("text/plain") << QByteArray("a;my-dangerous_program.desktop\nb\n") << TRUE << ordinary;
    QTest::newRow("another program") << QByteArray("text/plain\n") << QByteArray("editor.desktop\n") << FALSE
                                     << ordinary;
    QTest::newRow("in another case") << QByteArray("text/plain\n") << QByteArray("Dangerous_Program\n") << FALSE
                                     << ordinary;
    QTest::newRow("no program") << QByteArray("text/plain\n") << QByteArray() << FALSE << ordinary;
    QTest::newRow("blanks round the type")
        << QByteArray(" \ttext/plain \r\n\n") << QByteArray("dangerous_program") << TRUE << ordinary;
    QTest::newRow("a type of two words") << QByteArray("a b") << QByteArray("dangerous_program") << TRUE
                                         << QStringLiteral("<query><default><a><b>");
    QTest::newRow("no type") << QByteArray() << QByteArray("dangerous_program") << FALSE << QString();
    QTest::newRow("a type of blanks") << QByteArray(" \n\t\n") << QByteArray("dangerous_program") << FALSE << QString();
}

void tst_Assoc::answers()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, program);
    QFETCH(QString, secondCall);
    answer("filetype", type);
    answer("default", program);
    QTEST(AssocIsDangerous_X(L"/tmp/x.exe"), "expected");

    QStringList calls(QStringLiteral("<query><filetype></tmp/x.exe>"));
    if (!secondCall.isEmpty())
        calls += secondCall;
    QCOMPARE(log(), calls);
}

void tst_Assoc::commandLine_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::addColumn<QString>("arguments");
    QTest::newRow("empty") << L""s << QString();
    QTest::newRow("blanks separate") << L"a b  c"s << QStringLiteral("<a><b><c>");
    QTest::newRow("tabs and lines separate") << L"a\tb\rc"s << QStringLiteral("<a><b><c>");
    QTest::newRow("quotes group") << L"\"a b\" c"s << QStringLiteral("<a b><c>");
    QTest::newRow("three quotes are one") << L"a\"\"\"b"s << QStringLiteral("<a\"b>");
    QTest::newRow("open quotes") << L"\"a b"s << QStringLiteral("<a b>");
    QTest::newRow("no shell reads it") << L"$HOME;`id`|x>y'z'*"s << QStringLiteral("<$HOME;`id`|x>y'z'*>");
    QTest::newRow("dashes") << L"--help -x"s << QStringLiteral("<--help><-x>");
    QTest::newRow("UTF-8") << L"/\x4E2D\x1F600"s << QString::fromUtf8("</\xE4\xB8\xAD\xF0\x9F\x98\x80>");
}

void tst_Assoc::commandLine()
{
    QFETCH(std::wstring, text);
    QFETCH(QString, arguments);
    QCOMPARE(AssocIsDangerous_X(text.c_str()), TRUE);
    QCOMPARE(log().value(0), QStringLiteral("<query><filetype>") + arguments);
}

void tst_Assoc::hostileText_data()
{
    QTest::addColumn<std::wstring>("text");
    QTest::newRow("a line feed") << L"a\nb"s;
    QTest::newRow("quotes alone") << std::wstring(1001, L'"');
    QTest::newRow("blanks alone") << std::wstring(1000, L' ');
    QTest::newRow("elements that are no characters") << std::wstring(10, wchar_t(0x7FFFFFFF)) + wchar_t(0xD800);
    QTest::newRow("longer than an argument may be") << std::wstring(million, L'x');
    QTest::newRow("more arguments than there may be") << [] {
        std::wstring words;
        for (std::size_t i = 0; i < million; ++i)
            words += L"x ";
        return words;
    }();
}

void tst_Assoc::hostileText()
{
    QFETCH(std::wstring, text);
    const bool fits = text.size() < million; // the program cannot be started with more
    QCOMPARE(AssocIsDangerous_X(text.c_str()), BOOL(fits));
    QCOMPARE(log().isEmpty(), !fits);
}

void tst_Assoc::noProgram()
{
    const QTemporaryDir empty;
    qputenv("PATH", empty.path().toLocal8Bit());
    QCOMPARE(AssocIsDangerous_X(L"/tmp/x.exe"), FALSE);
    QCOMPARE(log(), QStringList());
}

void tst_Assoc::nullAsksNobody()
{
    QCOMPARE(AssocIsDangerous_X(nullptr), FALSE);
    QCOMPARE(log(), QStringList());
}

void tst_Assoc::keepsTheLastError()
{
    errno = 1234;
    QCOMPARE(AssocIsDangerous_X(L"/tmp/x.exe"), TRUE);
    QCOMPARE(errno, 1234);
}

XE_GUILESS_TEST(tst_Assoc)
#include "tst_assoc.moc"
