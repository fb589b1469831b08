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

/// A text for a cell of a grid, which takes a single "&" for the mark of a letter and does not show it.
inline CString_X cellText(CString_X text)
{
    text.Replace(L"&", L"&&");
    return text;
}

/// Writes a text of strings.txt, with its places filled in, to the log.
template <class... Arguments>
void logText(unsigned format, const Arguments&... arguments)
{
    xeLogPrintf(L"%s", formatText(loadText(format), arguments...).GetString());
}
