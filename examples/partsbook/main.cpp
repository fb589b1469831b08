// A book of parts, in a CSV file, on a window and dialogs written the way a Windows host writes them.
//
//   partsbook [--trace FILE] FILE

#include "mainframe.h"
#include "text.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <xeprocess.h>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QDir().mkpath(XeQString(GetMainDirectory() + L"/Common")); // for the log

    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({"trace", "Show the messages that a window receives, and append each to <file>.", "file"});
    options.addPositionalArgument("file", "The parts, as a CSV file in UTF-8.");
    options.process(application);
    if (options.positionalArguments().size() != 1)
        options.showHelp(1);

    CMainFrame frame;
    frame.Create(nullptr);
    frame.ShowWindow(SW_SHOW);
    if (!frame.OpenBook(options.positionalArguments().constFirst()))
        return 1;
    const QString trace = options.value("trace");
    if (options.isSet("trace") && !frame.TraceTo(trace)) {
        std::fputs(formatText(loadText(IDS_CANNOT_TRACE), CString_X(trace)), stderr);
        return 1;
    }
    return QApplication::exec();
}
