#pragma once

#include <xecolor.h>

class PartsBook;
class QTableWidget;
struct Part;

/// Sets the widths of the columns of an empty table.
void setUpPartsTable(QTableWidget& table);

/// Shows the parts of a book, each in its row. The ones that are short have this colour.
void showParts(QTableWidget& table, const PartsBook& book, COLORREF shortColor);
void showPart(QTableWidget& table, int row, const Part& part, COLORREF shortColor);
