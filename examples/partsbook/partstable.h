#pragma once

#include <QStringList>

class PartsBook;
class QTableWidget;
struct Part;

/// Sets the widths of the columns of an empty table.
void setUpPartsTable(QTableWidget& table);

/// Shows the parts of a book, each in its row.
void showParts(QTableWidget& table, const PartsBook& book);
void showPart(QTableWidget& table, int row, const Part& part);

/// The suppliers of all parts, each once, in alphabetical order.
QStringList suppliersOf(const PartsBook& book);
