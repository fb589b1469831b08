#pragma once

#include "raises.h"
#include "xeafxmap.h"

#include <QSet>
#include <QTest>

#include <string>
#include <type_traits>

/// A map whose fields are in the open.
template <class Map>
struct OpenMap : Map
{
    using Map::blocks;
    using Map::blockSize;
    using Map::bucketCount;
    using Map::buckets;
    using Map::count;
    using Map::freeList;
    using Map::Map;
    using Assoc = typename Map::CAssoc_X;

    /// What breaks the rules that hold between the fields; empty if nothing does.
    QString checkSanity() const
    {
        QSet<const Assoc*> used;
        for (unsigned bucket = 0; buckets && bucket < bucketCount; ++bucket)
            for (const Assoc* assoc = buckets[bucket]; assoc; assoc = assoc->next) {
                if (used.contains(assoc))
                    return QStringLiteral("a chain that meets itself in bucket %1").arg(bucket);
                if (hashOf(*assoc) % bucketCount != bucket)
                    return QStringLiteral("a key in the wrong bucket, %1").arg(bucket);
                used.insert(assoc);
            }
        if (used.size() != count)
            return QStringLiteral("%1 associations, but a count of %2").arg(used.size()).arg(count);
        int idle = 0;
        for (const Assoc* assoc = freeList; assoc; assoc = assoc->next, ++idle)
            if (used.contains(assoc))
                return QStringLiteral("a free association in use");
        if (count + idle != blockCount() * blockSize || (count == 0 && blocks))
            return QStringLiteral("%1 associations and %2 free in %3 blocks").arg(count).arg(idle).arg(blockCount());
        return {};
    }

    int blockCount() const
    {
        int number = 0;
        for (const CPlex_X* block = blocks; block; block = block->pNext)
            ++number;
        return number;
    }

private:
    unsigned hashOf(const Assoc& assoc) const
    {
        const unsigned hash = this->HashKey(assoc.key);
        if constexpr (Assoc::storesHash)
            return assoc.hash == hash ? hash : ~hash;
        else
            return hash;
    }
};

// --------------------------------------------------------------- keys and values of all classes as numbers up to 65535

/// The key that stands for a number. A text is its digits, every third one made too long for a string's own buffer.
template <class Key>
Key keyOf(int number)
{
    if constexpr (std::is_same_v<Key, CString_X>)
        return std::to_wstring(number) + (number % 3 == 0 ? L" with much behind it" : L"");
    else if constexpr (std::is_pointer_v<Key>)
        return reinterpret_cast<Key>(static_cast<qintptr>(number));
    else
        return static_cast<Key>(number);
}

inline int numberOf(unsigned short value) { return value; }
inline int numberOf(unsigned value) { return int(value); }
inline int numberOf(const void* value) { return int(reinterpret_cast<qintptr>(value)); }
inline int numberOf(const CString_X& value) { return int(std::wcstol(value, nullptr, 10)); }

/// The value of a key, -1 if it is not found.
template <class Map>
int valueAt(const Map& map, int key)
{
    auto value = keyOf<typename Map::Value>(54321);
    const bool found = map.Lookup(keyOf<typename Map::Key>(key), value);
    if (!found && numberOf(value) != 54321)
        return -2; // changed without being found
    return found ? numberOf(value) : -1;
}

template <class Map>
void set(Map& map, int key, int value)
{
    map.SetAt(keyOf<typename Map::Key>(key), keyOf<typename Map::Value>(value));
}

template <class Map>
bool removeKey(Map& map, int key)
{
    return map.RemoveKey(keyOf<typename Map::Key>(key));
}

/// Keys and values in the order of the walk, as "1=10 2=20".
template <class Map>
QString shown(const Map& map)
{
    QStringList pairs;
    typename Map::Key key{};
    typename Map::Value value{};
    for (POSITION position = map.GetStartPosition(); position;) {
        map.GetNextAssoc(position, key, value);
        pairs += QStringLiteral("%1=%2").arg(numberOf(key)).arg(numberOf(value));
    }
    return pairs.join(' ');
}

// ------------------------------------------------------------------------------------------- one test, all map classes

using HostMap = CMap_X<unsigned, unsigned, CString_X, const CString_X&>;
using MapClasses = std::tuple<CMapWordToPtr_X, CMapPtrToWord_X, CMapPtrToPtr_X, CMapWordToOb_X, CMapStringToPtr_X,
                              CMapStringToOb_X, CMapStringToString_X, HostMap>;
constexpr const char* mapClassNames[] = {
    "CMapWordToPtr_X",   "CMapPtrToWord_X",  "CMapPtrToPtr_X",       "CMapWordToOb_X",
    "CMapStringToPtr_X", "CMapStringToOb_X", "CMapStringToString_X", "CMap_X"};

/// Adds the column of withMap() and a row for each map class.
inline void mapClassRows()
{
    QTest::addColumn<int>("mapClass");
    for (int i = 0; i < int(std::size(mapClassNames)); ++i)
        QTest::newRow(mapClassNames[i]) << i;
}

template <class Map, class Check>
void checkNewMap(Check check)
{
    OpenMap<Map> map;
    check(map);
    if (!QTest::currentTestFailed())
        QCOMPARE(map.checkSanity(), QString());
}

template <class Check, std::size_t... Indices>
void checkMapOfClass(int mapClass, Check check, std::index_sequence<Indices...>)
{
    ((mapClass == int(Indices) ? checkNewMap<std::tuple_element_t<Indices, MapClasses>>(check) : void()), ...);
}

/// Runs the check on a new map of the class that the row names.
template <class Check>
void withMap(Check check)
{
    QFETCH(int, mapClass);
    checkMapOfClass(mapClass, check, std::make_index_sequence<std::tuple_size_v<MapClasses>>());
}
