#pragma once

#include "csv.h"

/// A part of the book.
struct Part
{
    enum Source { Bought, Made, FromCustomer };
    enum Use { OutOfUse, InUse, EndingUse }; ///< as the states of a check box; the last: no more is ordered

    CString_X number;
    CString_X name;
    CString_X kind;
    CString_X supplier;
    int source = Bought;
    int stock = 0;
    int minimum = 0; ///< the stock at which more is to be ordered
    double price = 0;
    int inUse = InUse;
    CString_X remark;
    CString_X delivered; ///< the day of the last delivery, yyyy-MM-dd; empty before the first
    CString_X picture;   ///< the name of a file; empty for the picture of the kind

    bool isShort() const { return inUse == InUse && stock < minimum; }
};

bool operator==(const Part& a, const Part& b);

/// What a part may hold, in a file and in a dialog: characters of a text, the largest number.
namespace partlimit {

constexpr int number = 16;
constexpr int name = 40;
constexpr int kind = 20;
constexpr int supplier = 40;
constexpr int remark = 60;
constexpr int picture = 200;
constexpr int stock = 99999;
constexpr int minimum = 500;
constexpr double price = 9999.99;
constexpr int firstYear = 1900;

} // namespace partlimit

/// What a field says for each Part::Source, and for each Part::Use.
const std::vector<CString_X>& sourceWords();
const std::vector<CString_X>& useWords();

/// The names of the fields of a part, as the first line of a file has them.
const CsvFields& partColumns();

/// The fields of a part, in the order of partColumns(). Those behind the remark, which files of earlier versions do not
/// have, are left out from the end where they are empty.
CsvFields fieldsOf(const Part& part);

/// Two decimals, or more where the price has more.
CString_X priceText(double price);

/// Fills a part from its fields. Gives what is wrong with them, with the part in no useful state; empty if nothing is.
CString_X readPart(const CsvFields& fields, Part& part);

/// Whether one of the part's texts has `text` in it.
bool hasText(const Part& part, const CString_X& text, bool matchCase);
