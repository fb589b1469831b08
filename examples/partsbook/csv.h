#pragma once

#include <QByteArray>
#include <xeafxstr.h>

#include <vector>

using CsvFields = std::vector<CString_X>;

/// A record of a CSV file: a line, or several that quotation marks hold together.
struct CsvRecord
{
    QByteArray text;      ///< as it stands in the file, its line end included
    int line = 0;         ///< the number of its first line, from 1
    CsvFields fields;     ///< empty if there is a problem
    unsigned problem = 0; ///< the id of the text that tells what is wrong, 0 if nothing is

    bool isBlank() const;
};

/// The records of a CSV file in UTF-8. Their texts, one after the other, are the file again.
///
/// Fields are separated by commas. A field in quotation marks may hold commas, line ends and, doubled, quotation marks;
/// in any other field a quotation mark stands for itself. Lines end in LF, CR LF or CR. A line that cannot be read is a
/// record with a problem, and reading goes on with the line behind it.
std::vector<CsvRecord> readCsv(const QByteArray& file);

/// The fields as a line of a CSV file, without a line end.
QByteArray csvLine(const CsvFields& fields);

/// The line end that a text ends in: LF, CR LF, CR or nothing.
QByteArray lineEndOf(const QByteArray& text);
