#include "xeafxlist.h"

#include "data/archivelimits.h"
#include "xeafxarc.h"

#include <algorithm>

void CObList_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(count));
        for (const CNode_X* node = head; node; node = node->next)
            archive << static_cast<const CObject_X*>(node->value);
    } else {
        for (auto rest = std::min<unsigned long long>(archive.ReadCount(), xe::believedWithoutData); rest > 0; --rest) {
            CObject_X* object = nullptr;
            archive >> object;
            AddTail(object);
        }
    }
}

void CStringList_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(count));
        for (const CNode_X* node = head; node; node = node->next)
            archive << node->value;
    } else {
        for (auto rest = archive.ReadCount(); rest > 0 && xe::hasMore(archive); --rest) {
            CString_X text;
            archive >> text;
            AddTail(text);
        }
    }
}
