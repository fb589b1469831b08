#include "xeafxdump.h"

#include "xeafxstr.h"
#include "xedirectories.h"

#include <QDateTime>
#include <QFile>

#include <cstdarg>
#include <mutex>

char lgout = 0;

namespace {

CString_X formatted(const wchar_t* format, std::va_list arguments)
{
    CString_X text;
    text.FormatV(format, arguments);
    return text;
}

void appendToLog(const QByteArray& line)
{
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    QFile file(XeQString(GetMainDirectory()) + QStringLiteral("/Common/IKev.log"));
    // One write a line: with Append, other processes' lines come before or behind it.
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        file.write(line);
}

} // namespace

void xeLogPrintf(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const CString_X message = formatted(format, arguments);
    va_end(arguments);
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss ddd"));
    appendToLog(QStringLiteral("[%1] %2\n").arg(time, XeQString(message)).toUtf8());
}
