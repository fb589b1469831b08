#include "kindstock.h"

#include <algorithm>

std::vector<KindStock> stockByKind(const PartsBook& book)
{
    std::vector<KindStock> kinds;
    for (int row = 0; row < book.count(); ++row) {
        const Part& part = book.part(row);
        auto at = std::find_if(kinds.begin(), kinds.end(), [&](const KindStock& one) { return one.kind == part.kind; });
        if (at == kinds.end())
            at = kinds.insert(at, KindStock{part.kind, row});
        (part.inUse ? at->inUse : at->unused) += part.stock;
        at->minimum += part.inUse == Part::InUse ? part.minimum : 0;
    }
    return kinds;
}
