#pragma once

#include <xeafxwin.h>

#include <QStringList>

// The questions for files, folders and colours that the commands of the main window ask. Each gives an empty answer
// when the user cancels it.

/// The file of a book to open; `present` is proposed.
QString askForBook(const CWnd_X& parent, const QString& present);
/// The file to save a book to; `present` is proposed. A name without a suffix gets that of the type chosen.
QString askForNewBook(const CWnd_X& parent, const QString& present);
/// The files of books to import, beginning in this folder.
QStringList askForBooks(const CWnd_X& parent, const QString& folder);
/// The file of a part's picture. One in this folder, or below it, is told as seen from there.
QString askForPicture(const CWnd_X& parent, const QString& folder);
/// A folder for a copy of the book.
QString askForFolder();
/// A colour in place of this one. False when the user cancels.
bool askForColor(const CWnd_X& parent, COLORREF& color);
