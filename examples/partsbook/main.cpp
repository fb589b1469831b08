// Shows the window messages that reach a view, on a window written the way a Windows host writes one.
//
//   partsbook [--trace FILE]

#include "mainframe.h"
#include "messagelog.h"
#include "text.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("partsbook");

    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({"trace", "Append each message to <file>, one a line.", "file"});
    options.process(application);

    MessageLog log;
    const QString trace = options.value("trace");
    if (options.isSet("trace") && !log.traceTo(trace)) {
        std::fputs(formatText(loadText(IDS_CANNOT_WRITE), CString_X(trace)), stderr);
        return 1;
    }

    CMainFrame frame(log);
    frame.Create(nullptr);
    frame.GetSafeHwnd()->show();
    return QApplication::exec();
}
