#pragma once

#include <xeafxdump.h>
#include <xeafxfile.h>

/// What `write` writes to a dump stream with a file, as text.
template <class Write>
QString dumped(Write write)
{
    CMemFile_X file;
    CDumpContext_X context(&file);
    write(context);
    std::vector<wchar_t> text(file.GetLength() / sizeof(wchar_t));
    file.Seek(0, CFile_X::begin);
    file.Read(text.data(), unsigned(file.GetLength()));
    return QString::fromWCharArray(text.data(), int(text.size()));
}
