#pragma once

#include <QByteArray>
#include <QString>
#include <xeafxstr.h>

/// The content of a file. False, with what is wrong with it in `error`, if it cannot be read, is no file or is larger
/// than 64 MiB.
bool readWhole(const QString& fileName, QByteArray& content, CString_X& error);

/// Puts new content in the place of a file. It goes to another file first, which takes the name when it is complete: if
/// that fails, or the program is killed meanwhile, the file is as it was.
bool writeWhole(const QString& fileName, const QByteArray& content, CString_X& error);
