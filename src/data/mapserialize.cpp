#include "xeafxmap.h"

#include "data/archivelimits.h"
#include "xeafxarc.h"

namespace {

template <class Map>
void storePairs(const Map& map, CArchive_X& archive)
{
    archive.WriteCount(static_cast<unsigned long long>(map.GetCount()));
    typename Map::Key key{};
    typename Map::Value value{};
    for (POSITION position = map.GetStartPosition(); position;) {
        map.GetNextAssoc(position, key, value);
        archive << key << value;
    }
}

template <class Map>
void loadPairs(Map& map, CArchive_X& archive)
{
    for (auto rest = archive.ReadCount(); rest > 0 && xe::hasMore(archive); --rest) {
        typename Map::Key key{};
        typename Map::Value value{};
        archive >> key >> value;
        map.SetAt(key, std::move(value));
    }
}

template <class Map>
void serializePairs(Map& map, CArchive_X& archive)
{
    if (archive.IsStoring())
        storePairs(map, archive);
    else
        loadPairs(map, archive);
}

} // namespace

void CMapWordToOb_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializePairs(*this, archive);
}

void CMapStringToOb_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializePairs(*this, archive);
}

void CMapStringToString_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializePairs(*this, archive);
}
