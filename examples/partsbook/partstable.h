#pragma once

#include <xecolor.h>

#include <QStringList>

class PartsBook;
class QTableWidget;
struct Part;

/// Sets the widths of the columns of an empty table.
void setUpPartsTable(QTableWidget& table);

/// Shows the parts of a book, each in its row. The ones that are short have this colour.
void showParts(QTableWidget& table, const PartsBook& book, COLORREF shortColor);
void showPart(QTableWidget& table, int row, const Part& part, COLORREF shortColor);

/// The suppliers of all parts, each once, in alphabetical order.
QStringList suppliersOf(const PartsBook& book);
