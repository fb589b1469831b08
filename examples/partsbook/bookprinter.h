#pragma once

class CString_X;
class PartsBook;
class QPainter;

/// Prints the parts of a book as a table, on as many pages as it takes. The painter is one of a printer's, with its
/// first page begun.
void printBook(QPainter& painter, const PartsBook& book, const CString_X& title);
