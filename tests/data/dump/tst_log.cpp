#include "testclass.h"

#include <xeafxdump.h>
#include <xeafxstr.h>
#include <xeprocess.h>

#include <QProcess>
#include <QRegularExpression>

#include <atomic>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

// The log file. The program stands in a folder of its own, whose "Common" the tests make and remove; started with the
// argument "write" it is one of the processes that write at once.

namespace {

constexpr int threadCount = 8;
constexpr int processCount = 4;
constexpr int linesAThread = 200;
constexpr int longLine = 100000;

QString mainFolder() { return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/..")); }

QString logPath() { return mainFolder() + QStringLiteral("/Common/IKev.log"); }

QByteArray logged()
{
    QFile file(logPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no log)");
}

// The message behind the time of a line; the line itself, marked, if it is not of that form.
QByteArray message(const QByteArray& line)
{
    static const QRegularExpression form(
        QStringLiteral(R"(\A\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d (Mon|Tue|Wed|Thu|Fri|Sat|Sun)\] )"));
    const auto match = form.match(QString::fromUtf8(line.left(64)));
    return match.hasMatch() ? line.mid(match.capturedLength()) : "broken: " + line;
}

QByteArrayList messages()
{
    QByteArrayList lines = logged().split('\n');
    if (lines.takeLast() != "")
        return {"the last line has no end"};
    std::transform(lines.begin(), lines.end(), lines.begin(), message);
    return lines;
}

// What one thread writes: short lines and a long one, each told by its writer and number.
QByteArray line(int writer, int number)
{
    const int length = number == 100 ? longLine : number % 50;
    return QByteArray::number(writer) + '/' + QByteArray::number(number) + ' '
           + QByteArray(length, char('a' + number % 26)) + '.';
}

void writeLines(int writer)
{
    for (int number = 0; number < linesAThread; ++number)
        xeLogPrintf(L"%S", line(writer, number).constData());
}

void writeFromThreads(int process)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back(writeLines, process * threadCount + i);
    for (std::thread& thread : threads)
        thread.join();
}

// All that the writers have to write, sorted; the order of each writer's lines is looked at apart.
QByteArrayList allLines(int writers)
{
    QByteArrayList lines;
    for (int writer = 0; writer < writers; ++writer) {
        for (int number = 0; number < linesAThread; ++number)
            lines += line(writer, number);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

bool isInOrder(const QByteArrayList& lines)
{
    std::map<int, int> last;
    for (const QByteArray& text : lines) {
        const QByteArrayList key = text.left(text.indexOf(' ')).split('/');
        const int number = key.value(1).toInt();
        const auto [entry, isFirst] = last.emplace(key.value(0).toInt(), number);
        if (!isFirst && number <= std::exchange(entry->second, number))
            return false;
    }
    return true;
}

std::atomic<bool> isCounting = false;
std::atomic<int> writesCounted = 0;

} // namespace

// Stands in for the C library's own.
extern "C" Q_DECL_EXPORT ssize_t write(int file, const void* bytes, size_t count)
{
    if (isCounting)
        ++writesCounted;
    return syscall(SYS_write, file, bytes, count);
}

class tst_Log : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(QDir().mkpath(mainFolder() + QStringLiteral("/Common"))); }
    void cleanup() { QVERIFY(QDir(mainFolder() + QStringLiteral("/Common")).removeRecursively()); }

    void theFile();
    void timeOfALine();
    void texts_data();
    void texts();
    void linesAreAppended();
    void withoutTheFolder();
    void aFileThatCannotBeOpened();
    void movedBetweenLines();
    void aLineIsOneWrite();
    void fromManyThreads();
    void fromSeveralProcesses();
    void theExportedByte();
};

void tst_Log::theFile()
{
    QCOMPARE(XeQString(GetMainDirectory()), mainFolder());
    QVERIFY(!QFile::exists(logPath()));
    xeLogPrintf(L"%d parts from %s", 12, L"store");
    QCOMPARE(messages(), QByteArrayList{"12 parts from store"});
}

void tst_Log::timeOfALine()
{
    const auto form = QStringLiteral("yyyy-MM-dd hh:mm:ss ddd");
    const QString before = QDateTime::currentDateTime().toString(form);
    xeLogPrintf(L"x");
    const QString after = QDateTime::currentDateTime().toString(form);
    const QString line = QString::fromUtf8(logged());
    QVERIFY(line.endsWith(QLatin1String("] x\n")));
    const QString time = line.mid(1, line.size() - 5);
    QVERIFY(before.left(19) <= time.left(19) && time.left(19) <= after.left(19));
    QVERIFY(time.mid(19) == before.mid(19) || time.mid(19) == after.mid(19));
}

void tst_Log::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("letters outside ASCII") << QString::fromUtf8("\xE9\xBD\xBF\xE8\xBD\xAE \xC3\xA4 \xF0\x9F\x94\xA9");
    QTest::newRow("markers of the line's own form") << "%1 %2 %L1 %99";
    QTest::newRow("conversions") << "%s %d %n";
    QTest::newRow("brackets") << "[x] y";
    QTest::newRow("tab and return") << "a\tb\r";
}

void tst_Log::texts()
{
    QFETCH(QString, text);
    xeLogPrintf(L"%s", text.toStdWString().c_str());
    QCOMPARE(messages(), QByteArrayList{text.toUtf8()});
}

void tst_Log::linesAreAppended()
{
    xeLogPrintf(L"one");
    xeLogPrintf(L"two\nthree");
    xeLogPrintf(nullptr);
    QCOMPARE(messages(), (QByteArrayList{"one", "two", "broken: three", ""}));
}

void tst_Log::withoutTheFolder()
{
    cleanup();
    xeLogPrintf(L"lost");
    QVERIFY(!QFile::exists(mainFolder() + QStringLiteral("/Common")));
    init();
    xeLogPrintf(L"kept");
    QCOMPARE(messages(), QByteArrayList{"kept"});
}

void tst_Log::aFileThatCannotBeOpened()
{
    QVERIFY(QDir().mkdir(logPath())); // a folder of that name
    xeLogPrintf(L"lost");
    QVERIFY(QDir(logPath()).isEmpty());
}

void tst_Log::movedBetweenLines()
{
    xeLogPrintf(L"one");
    QVERIFY(QFile::rename(logPath(), logPath() + QStringLiteral(".old")));
    xeLogPrintf(L"two");
    QCOMPARE(messages(), QByteArrayList{"two"});
}

// Pieces of a line could be parted by another process's line.
void tst_Log::aLineIsOneWrite()
{
    for (int length : {0, 1, 20000, 1000000}) {
        const std::wstring text(size_t(length), L'w');
        writesCounted = 0;
        isCounting = true;
        xeLogPrintf(L"%s", text.c_str());
        isCounting = false;
        QCOMPARE(writesCounted.load(), 1);
    }
}

void tst_Log::fromManyThreads()
{
    writeFromThreads(0);
    QByteArrayList lines = messages();
    QVERIFY(isInOrder(lines));
    std::sort(lines.begin(), lines.end());
    QVERIFY(lines == allLines(threadCount));
}

void tst_Log::fromSeveralProcesses()
{
    QProcess processes[processCount];
    for (int i = 0; i < processCount; ++i)
        processes[i].start(QCoreApplication::applicationFilePath(), {"tst_log", "write", QString::number(i)});
    for (QProcess& process : processes) {
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 0);
    }
    QByteArrayList lines = messages();
    QVERIFY(isInOrder(lines));
    std::sort(lines.begin(), lines.end());
    QVERIFY(lines == allLines(processCount * threadCount));
}

void tst_Log::theExportedByte()
{
    QCOMPARE(sizeof lgout, size_t(1));
    QCOMPARE(int(lgout), 0);
}

static int testOrWrite(int argc, char* argv[])
{
    if (argc != 3 || qstrcmp(argv[1], "write") != 0)
        return runTestClass<tst_Log, QCoreApplication>(argc, argv);
    QCoreApplication app(argc, argv);
    writeFromThreads(QByteArray(argv[2]).toInt());
    return 0;
}

XE_TEST_MAIN(tst_Log, testOrWrite)
#include "tst_log.moc"
