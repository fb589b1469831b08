#pragma once

#include <xeafxstr.h>
#include <xecolor.h>

#include <vector>

class PartsBook;
class QTableWidget;
struct Part;

/// Sets the widths of the columns of an empty table.
void setUpPartsTable(QTableWidget& table);

/// What stands over the columns.
std::vector<CString_X> headingsOf(const QTableWidget& table);
/// Hides the columns that have a bit here, and shows the others.
void showColumns(QTableWidget& table, unsigned hidden);

/// Shows the parts of a book, each in its row. The ones that are short have this colour.
void showParts(QTableWidget& table, const PartsBook& book, COLORREF shortColor);
void showPart(QTableWidget& table, int row, const Part& part, COLORREF shortColor);
