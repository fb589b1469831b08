#pragma once

#include "resource.h"

#include <xeafxdump.h>
#include <xeafxstr.h>

/// A text of strings.txt.
inline CString_X loadText(unsigned id)
{
    CString_X text;
    text.LoadString(id);
    return text;
}

/// A text with its places filled in.
template <class... Arguments>
CString_X formatText(const CString_X& format, const Arguments&... arguments)
{
    CString_X text;
    text.Format(format, arguments...);
    return text;
}

/// Writes a text of strings.txt, with its places filled in, to the log.
template <class... Arguments>
void logText(unsigned format, const Arguments&... arguments)
{
    xeLogPrintf(L"%s", formatText(loadText(format), arguments...).GetString());
}
