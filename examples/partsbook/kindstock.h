#pragma once

#include "partsbook.h"

/// What there is of the parts of a kind.
struct KindStock
{
    CString_X kind;
    int firstRow = 0;      ///< of the first part of the kind
    long long inUse = 0;   ///< pieces of parts in use
    long long unused = 0;  ///< pieces of parts out of use
    long long minimum = 0; ///< pieces at which more is to be ordered
};

/// The kinds of a book in the order of their first parts.
std::vector<KindStock> stockByKind(const PartsBook& book);
