#include "xeurl.h"

#include "xeafxstr.h"

#include <QProcess>

#include <cerrno>

namespace {

constexpr int longestWait = 30000; // milliseconds

QString answerOf(const QString& command)
{
    QProcess process;
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    process.start(command); // with one text, since quotes in it are to group words
    QT_WARNING_POP
    process.waitForFinished(longestWait);
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

bool isDangerous(const QString& file)
{
    const QString type = answerOf(QLatin1String("xdg-mime query filetype ") + file);
    return !type.isEmpty()
           && answerOf(QLatin1String("xdg-mime query default ") + type).contains(QLatin1String("dangerous_program"));
}

} // namespace

BOOL AssocIsDangerous_X(const wchar_t* file)
{
    const int lastError = errno; // processes leave their own numbers there
    const bool dangerous = file && isDangerous(XeQString(file));
    errno = lastError;
    return dangerous;
}
