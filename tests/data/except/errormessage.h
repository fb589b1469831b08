#pragma once

#include <xeexcept.h>

/// What GetErrorMessage() writes into a buffer of which it is told the first `size` elements, as one line such as
/// "1 'text' help 0". A 0 element is shown as ".", one that was left alone as "x".
inline QString errorMessage(const CException_X& exception, unsigned size, unsigned capacity)
{
    std::wstring buffer(capacity, L'x');
    unsigned help = 99;
    const int result = exception.GetErrorMessage(buffer.data(), size, &help);
    std::replace(buffer.begin(), buffer.end(), L'\0', L'.');
    return QStringLiteral("%1 '%2' help %3").arg(result).arg(QString::fromStdWString(buffer)).arg(help);
}

/// The message as a text, from a buffer that is large enough; null without a message.
inline QString wholeMessage(CException_X& exception)
{
    wchar_t buffer[512];
    return exception.GetErrorMessage(buffer, 512) ? QString::fromWCharArray(buffer) : QString();
}
