#include "testclass.h"

#include <xeprocess.h>

#include <QProcess>

#include <cstring>

#include <fcntl.h>
#include <unistd.h>

// Where the program stands: told by copies of a program in folders of their own, and by a link of the test's making for
// places where no program can be put.

namespace {

bool isFaked = false;
QByteArray fakedLink; // null: the link cannot be read

CString_X fileName(DWORD capacity)
{
    std::wstring buffer(2048, L'x');
    return GetModuleFileName_X(nullptr, buffer.data(), capacity) ? buffer.substr(0, capacity).c_str() : L"(none)";
}

QString text(const CString_X& elements) { return QString::fromStdWString(elements); }

} // namespace

// Stands in for the C library's own while the link is faked.
extern "C" Q_DECL_EXPORT ssize_t readlink(const char* path, char* buffer, size_t size) noexcept
{
    if (!isFaked || qstrcmp(path, "/proc/self/exe") != 0)
        return readlinkat(AT_FDCWD, path, buffer, size);
    if (fakedLink.isNull())
        return -1;
    const size_t count = std::min(size, size_t(fakedLink.size()));
    std::memcpy(buffer, fakedLink.constData(), count);
    return ssize_t(count);
}

class tst_ExecutablePath : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { isFaked = false; }
    void aCopyInAFolder_data();
    void aCopyInAFolder();
    void folders_data();
    void folders();
    void aLongPathIsCut();
    void anUnreadableLink();
    void theFileNameIsCut();
};

void tst_ExecutablePath::aCopyInAFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("letters of ASCII") << "opt/p";
    QTest::newRow("other letters and blanks")
        << QString::fromUtf8("Häuser & Brücken/\xE9\xBD\xBF\xE8\xBD\xAE \xF0\x9F\x94\xA9");
}

void tst_ExecutablePath::aCopyInAFolder()
{
    QFETCH(QString, folder);
    const QTemporaryDir scratch;
    const QString main = scratch.filePath(folder);
    QVERIFY(QDir().mkpath(main + QStringLiteral("/bin")));
    const QString program = main + QStringLiteral("/bin/app");
    QVERIFY(QFile::copy(qEnvironmentVariable("WHEREAMI"), program));

    QProcess process;
    process.start(program, QStringList());
    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()),
             main + QStringLiteral("/bin\n") + main + QStringLiteral("\n1 ") + program + QLatin1Char('\n'));
    QCOMPARE(process.exitCode(), 0);
}

void tst_ExecutablePath::folders_data()
{
    QTest::addColumn<QByteArray>("executable");
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("main");

    QTest::newRow("two folders deep") << QByteArray("/opt/p/bin/app") << "/opt/p/bin"
                                      << "/opt/p";
    QTest::newRow("in a folder of one letter") << QByteArray("/opt/p/app") << "/opt/p"
                                               << "/opt";
    QTest::newRow("one folder deep") << QByteArray("/opt/app") << "/opt"
                                     << "";
    QTest::newRow("in the root folder") << QByteArray("/app") << ""
                                        << "";
    QTest::newRow("a backslash separates the main folder alone") << QByteArray("/opt/a\\b/bin/app") << "/opt/a\\b/bin"
                                                                 << "/opt/a/b";
    QTest::newRow("a backslash at the end of a folder's name separates nothing")
        << QByteArray("/opt/a\\/app") << "/opt/a\\"
        << "/opt";
    QTest::newRow("a file that has been removed") << QByteArray("/opt/p/bin/app (deleted)") << "/opt/p/bin"
                                                  << "/opt/p";
    QTest::newRow("bytes that are no UTF-8")
        << QByteArray("/o\xFFpt/p/bin/app") << QString::fromUtf8("/o\xEF\xBF\xBDpt/p/bin")
        << QString::fromUtf8("/o\xEF\xBF\xBDpt/p");
}

void tst_ExecutablePath::folders()
{
    QFETCH(QByteArray, executable);
    QFETCH(QString, application);
    QFETCH(QString, main);

    isFaked = true;
    fakedLink = executable;
    QCOMPARE(text(GetApplicationDirectory()), application);
    QCOMPARE(text(GetMainDirectory()), main);
    QCOMPARE(text(fileName(2048)), QString::fromUtf8(executable));
}

void tst_ExecutablePath::aLongPathIsCut()
{
    isFaked = true;
    fakedLink = "/main/" + QByteArray(1015, 'a') + "/bin/app"; // the 1024 bytes end in "/bi"
    QCOMPARE(text(fileName(2048)), QString::fromUtf8(fakedLink.left(1024)));
    QVERIFY(text(fileName(2048)).endsWith(QLatin1String("/bi")));
    QCOMPARE(text(GetApplicationDirectory()), QString::fromUtf8(fakedLink.left(1021)));
    QCOMPARE(text(GetMainDirectory()), QStringLiteral("/main"));
}

void tst_ExecutablePath::anUnreadableLink()
{
    isFaked = true;
    for (const QByteArray& link : {QByteArray(), QByteArray("")}) {
        fakedLink = link;
        QVERIFY(GetApplicationDirectory().IsEmpty());
        QVERIFY(GetMainDirectory().IsEmpty());
        std::wstring buffer(4, L'x');
        QCOMPARE(GetModuleFileName_X(nullptr, buffer.data(), 3), 0U);
        QCOMPARE(buffer, std::wstring(L"\0\0\0x", 4));
    }
}

void tst_ExecutablePath::theFileNameIsCut()
{
    isFaked = true;
    fakedLink = "/app";
    std::wstring buffer(8, L'x');
    QCOMPARE(GetModuleFileName_X(nullptr, buffer.data(), 7), 1U);
    QCOMPARE(buffer, std::wstring(L"/app\0\0\0x", 8));
    buffer.assign(8, L'x');
    QCOMPARE(GetModuleFileName_X(nullptr, buffer.data(), 4), 1U);
    QCOMPARE(buffer, std::wstring(L"/appxxxx"));
    buffer.assign(8, L'x');
    QCOMPARE(GetModuleFileName_X(nullptr, buffer.data(), 2), 1U);
    QCOMPARE(buffer, std::wstring(L"/axxxxxx"));
    buffer.assign(8, L'x');
    QCOMPARE(GetModuleFileName_X(nullptr, buffer.data(), 0), 0U);
    QCOMPARE(buffer, std::wstring(8, L'x'));
    QCOMPARE(GetModuleFileName_X(nullptr, nullptr, 8), 0U);
}

XE_GUILESS_TEST(tst_ExecutablePath)
#include "tst_executablepath.moc"
