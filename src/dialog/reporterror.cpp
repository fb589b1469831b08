// How an exception tells the user of itself.

#include "xeafxdlg.h"
#include "xeexcept.h"

int CException_X::ReportError(unsigned type, unsigned messageId)
{
    constexpr unsigned noErrorAvailable = 61472;
    constexpr unsigned size = 512;
    wchar_t text[size + 1]; // a text that fills its buffer has no terminator
    unsigned help = 0;
    if (!GetErrorMessage(text, size, &help))
        return AfxMessageBox_X(messageId ? messageId : noErrorAvailable, type, help);
    text[size] = L'\0';
    return AfxMessageBox_X(text, type, help);
}
