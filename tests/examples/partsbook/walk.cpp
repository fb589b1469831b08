// The parts of the host program under random input, for some time: in the end nothing must have gone wrong.
//
//   partsbook_walk SECONDS SEED PARTS_FILE
//
// Works in the current folder. The first warning of Qt ends it. On SIGUSR1 it shows where it is, and ends.

#include "growth.h"
#include "inputwalk.h"
#include "mainframe.h"
#include "noticeanswers.h"
#include "resource.h"
#include "settings.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmapCache>
#include <xeresource.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <execinfo.h>
#include <signal.h>
#include <unistd.h>

extern "C" void __sanitizer_print_stack_trace() __attribute__((weak));

namespace {

void printStack()
{
    if (__sanitizer_print_stack_trace) {
        __sanitizer_print_stack_trace();
        return;
    }
    void* frames[100];
    backtrace_symbols_fd(frames, backtrace(frames, 100), STDERR_FILENO);
}

[[noreturn]] void endHere(int)
{
    printStack();
    std::_Exit(1);
}

[[noreturn]] void endAtException()
{
    printStack();
    __gnu_cxx::__verbose_terminate_handler();
    std::abort();
}

void endAtWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    std::fprintf(stderr, "a warning: %s\n", qPrintable(text));
    endHere(0);
}

void write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        std::exit(2);
}

// What the last life has saved does not grow with it.
void writeFiles(const QString& parts)
{
    QFile file(parts);
    if (!file.open(QIODevice::ReadOnly))
        std::exit(2);
    const QByteArray content = file.readAll();
    const QByteArrayList lines = content.split('\n');
    write(QStringLiteral("parts.csv"), content);
    write(QStringLiteral("few.csv"), lines.mid(0, 4).join('\n') + '\n');
    write(QStringLiteral("bad.csv"), lines.mid(0, 9).join("\nbad,"));
    QFile::remove(QStringLiteral("saved.csv"));
    QFile::remove(QStringLiteral("saved.parts"));
    settings::setHiddenColumns(0);
}

// From the first window to its end.
void live(InputWalk& walk, NoticeAnswers& answers)
{
    CMainFrame frame;
    frame.Create(nullptr);
    frame.GetSafeHwnd()->findChild<QAction*>(ToStringId(ID_FILE_NEW_TEST))->setVisible(false); // takes its time
    frame.ShowWindow(SW_SHOW);
    walk.begin(frame);
    answers.watch(&frame);
    frame.OpenBook(QDir::current().filePath(QStringLiteral("parts.csv")));
    QApplication::exec();
    answers.watch(nullptr);
    walk.end();
}

// What goes from the event loop, and what is in the clipboard.
void settle()
{
    ClearTempObjectPool();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::clipboard()->clear();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("CUPS_SERVER", "/none"); // no paper: what is printed is a file
    Growth growth;
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    const int seconds = arguments.at(1).toInt();
    const unsigned seed = arguments.at(2).toUInt();
    (void)nice(5); // other tests are in a hurry
    qInstallMessageHandler(endAtWarning);
    QPixmapCache::setCacheLimit(0); // to be emptied at each look it would still keep the names of all pictures
    std::set_terminate(endAtException);
    signal(SIGUSR1, endHere);

    InputWalk walk(seed, QDir::currentPath());
    NoticeAnswers answers(seed, QDir::currentPath());
    QElapsedTimer time;
    time.start();
    while (!time.hasExpired(seconds * 1000)) {
        writeFiles(arguments.at(3));
        live(walk, answers);
        settle();
        growth.look();
        std::printf("%d steps, %s\n", walk.steps(), qPrintable(growth.summary()));
    }
    if (!growth.found().isEmpty())
        std::fprintf(stderr, "growth: %s\n", qPrintable(growth.found()));
    return growth.found().isEmpty() ? 0 : 1;
}
