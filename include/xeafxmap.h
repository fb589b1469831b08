/// @file xeafxmap.h
/// The seven hash maps: one body, and a class a pair of key and value types. CMap_X is the same for types of the
/// host's.
///
/// | class                | association            | hash of    | block size, table size 0 | made by name, storable |
/// | -------------------- | ---------------------- | ---------- | ------------------------ | ---------------------- |
/// | CMapWordToPtr_X      | next, value, key       | the number | corrected                | no                     |
/// | CMapPtrToWord_X      | next, key, value       | the number | corrected                | no                     |
/// | CMapPtrToPtr_X       | next, key, value       | the number | corrected                | no                     |
/// | CMapWordToOb_X       | next, value, key       | the number | corrected                | yes, the keys alone    |
/// | CMapStringToPtr_X    | next, hash, key, value | the text   | as given                 | no                     |
/// | CMapStringToOb_X     | next, hash, key, value | the text   | corrected                | yes, the keys alone    |
/// | CMapStringToString_X | key, value, next, hash | the text   | corrected                | yes                    |
#pragma once

#include "xeafx.h"
#include "xeafxplex.h"
#include "xeafxstr.h"
#include "xeexcept.h"

#include <string_view>
#include <type_traits>
#include <utility>

namespace xe::detail {

// -------------------------------------------------------------------------------------------------------------- hashes

/// One step of the minimal standard random generator, 16807 * (k % 127773) - 2836 * (k / 127773) on a signed number and
/// made positive once, with the two products joined: 16807 * 127773 + 2836 is 0x7FFFFFFF.
constexpr unsigned hashOfNumber(long long number)
{
    constexpr unsigned long long period = 0x7FFFFFFF;
    const unsigned long long quotient = static_cast<unsigned long long>(number / 127773);
    const auto hash = static_cast<long long>(16807 * static_cast<unsigned long long>(number) - period * quotient);
    return static_cast<unsigned>(hash) + (hash < 0 ? 0x7FFFFFFFU : 0U);
}

/// FNV-1 over all elements of a text of less than 10, and over about ten of a longer one.
constexpr unsigned hashOfText(std::wstring_view text)
{
    unsigned hash = 0x811C9DC5;
    const std::size_t step = text.size() / 10 + 1;
    for (std::size_t i = 0; i < text.size(); i += step)
        hash = (hash * 16777619U) ^ static_cast<unsigned>(text[i]);
    return hash;
}

/// The text of a key; null raises a CInvalidArgException_X*.
inline std::wstring_view keyText(const wchar_t* key)
{
    if (!key)
        AfxThrowInvalidArgException_X();
    return key;
}

// ---------------------------------------------------------------------------------------------------------------- keys
// How a key is passed, and in which form it is hashed and compared with a stored one.

template <class Key>
struct KeyRules
{
    using Argument = Key;
    using View = Key;

    static View view(Argument key) { return key; }
    static unsigned hash(View key)
    {
        if constexpr (std::is_pointer_v<Key>)
            return hashOfNumber(reinterpret_cast<qintptr>(key));
        else
            return hashOfNumber(key);
    }
};

template <>
struct KeyRules<CString_X>
{
    using Argument = const wchar_t*;
    using View = std::wstring_view;

    static View view(Argument key) { return keyText(key); }
    static unsigned hash(View key) { return hashOfText(key); }
};

// -------------------------------------------------------------------------------------------------------- associations
// The orders of fields. Each is made from a key, its hash and the next association; the value is 0, null or empty.

template <class Key, class Value>
struct ValueFirstAssoc
{
    static constexpr bool storesHash = false;
    ValueFirstAssoc(Key&& itsKey, unsigned, ValueFirstAssoc* itsNext) : next(itsNext), key(std::move(itsKey)) {}

    ValueFirstAssoc* next;
    Value value{};
    Key key;
};

template <class Key, class Value>
struct KeyFirstAssoc
{
    static constexpr bool storesHash = false;
    KeyFirstAssoc(Key&& itsKey, unsigned, KeyFirstAssoc* itsNext) : next(itsNext), key(std::move(itsKey)) {}

    KeyFirstAssoc* next;
    Key key;
    Value value{};
};

template <class Key, class Value>
struct HashedAssoc
{
    static constexpr bool storesHash = true;
    HashedAssoc(Key&& itsKey, unsigned itsHash, HashedAssoc* itsNext)
        : next(itsNext),
          hash(itsHash),
          key(std::move(itsKey))
    {}

    HashedAssoc* next;
    unsigned hash;
    Key key;
    Value value{};
};

template <class Key, class Value>
struct MapPair
{
    const Key key;
    Value value{};
};

template <class Key, class Value>
struct PairAssoc : MapPair<Key, Value>
{
    static constexpr bool storesHash = true;
    PairAssoc(Key&& itsKey, unsigned itsHash, PairAssoc* itsNext)
        : MapPair<Key, Value>{std::move(itsKey)},
          next(itsNext),
          hash(itsHash)
    {}

    PairAssoc* next;
    unsigned hash;
};

/// What a map does with a block size below 1 and a table size of 0.
enum class MapSizes {
    Corrected, ///< they become 10 and 17
    AsGiven,   ///< they are kept, and insertion raises
};

} // namespace xe::detail

/// What the map classes have in common: a table of buckets, each a chain of associations from blocks.
///
///     CMapStringToPtr_X tools;
///     tools.InitHashTable(211); // before the first insertion: a table never grows
///     tools.SetAt(L"drill", &drill);
///     void* tool = nullptr;
///     if (tools.Lookup(L"drill", tool))
///         use(tool);
///
/// A null text for a key raises a CInvalidArgException_X*. Want of memory raises std::bad_alloc and leaves the map as
/// it was. Removing the last key frees table and blocks; as long as one is left, all blocks stay. The buckets are
/// walked in ascending order, and in each the key that was added last comes first. Maps have no lock.
template <class Assoc, class Keys = xe::detail::KeyRules<std::remove_const_t<decltype(Assoc::key)>>,
          xe::detail::MapSizes sizes = xe::detail::MapSizes::Corrected>
class XeMap
{
public:
    using CAssoc_X = Assoc;
    using Key = std::remove_const_t<decltype(Assoc::key)>;
    using KeyArgument = typename Keys::Argument;
    using Value = decltype(Assoc::value);

    /// A block holds `associationsPerBlock` associations.
    explicit XeMap(long long associationsPerBlock = 10)
        : blockSize(isCorrected && associationsPerBlock < 1 ? 10 : associationsPerBlock)
    {}
    XeMap(const XeMap&) = delete;
    XeMap& operator=(const XeMap&) = delete;

    /// The number of keys.
    long long GetCount() const { return count; }
    long long GetSize() const { return count; }
    bool IsEmpty() const { return count == 0; }

    // ----------------------------------------------------------------------------------------------------------- table

    unsigned GetHashTableSize() const { return bucketCount; } ///< 17 at first, with or without a table

    /// Gives the table another size, for an empty map. Without `allocate` the first insertion makes the table. The keys
    /// of a map that was not empty are lost: they are found no more, but count as before until RemoveAll().
    void InitHashTable(unsigned size, int allocate = 1);

    /// The hash of a key; its bucket is the rest of a division by the table size.
    unsigned HashKey(KeyArgument key) const { return Keys::hash(Keys::view(key)); }

    // ---------------------------------------------------------------------------------------------------------- lookup

    /// True and the value, or false with `value` unchanged.
    bool Lookup(KeyArgument key, Value& value) const;

    /// The value of a key, which is added with a value of 0, null or empty if it is missing.
    Value& operator[](KeyArgument key);

    // ---------------------------------------------------------------------------------------------------------- change

    /// Puts a value under a key, in place of the one that it may have.
    void SetAt(KeyArgument key, Value value) { (*this)[key] = std::move(value); }
    /// Removes a key. False if it is missing; without a table the key is not looked at.
    bool RemoveKey(KeyArgument key);
    /// Empties the map and frees its blocks and its table; the table size stays.
    void RemoveAll();

    // ------------------------------------------------------------------------------------------------------------ walk

    /// Where GetNextAssoc() begins, a mark that stands for no association yet; null for an empty map.
    POSITION GetStartPosition() const { return count == 0 ? nullptr : beforeStart(); }

    /// Gives key and value and moves on, to null behind the last. Does nothing for a null position.
    void GetNextAssoc(POSITION& position, Key& key, Value& value) const;

protected:
    ~XeMap() { RemoveAll(); }

    /// The association of a key or null, the key's hash, and its bucket, 0 without a table.
    CAssoc_X* GetAssocAt(KeyArgument key, unsigned& bucket, unsigned& hash) const;
    CAssoc_X* assocOf(KeyArgument key) const;
    /// The first association in bucket order, and the one behind another; null if there is none.
    CAssoc_X* firstAssoc() const { return firstFrom(0); }
    CAssoc_X* assocBehind(const CAssoc_X* assoc) const;

    CAssoc_X** buckets = nullptr;
    unsigned bucketCount = defaultBucketCount;
    long long count = 0;
    CAssoc_X* freeList = nullptr;
    CPlex_X* blocks = nullptr;
    long long blockSize;

private:
    static constexpr bool isCorrected = sizes == xe::detail::MapSizes::Corrected;
    static constexpr unsigned defaultBucketCount = 17;

    static POSITION beforeStart() { return reinterpret_cast<POSITION>(~quintptr(0)); }
    static bool matches(const CAssoc_X& assoc, typename Keys::View key, unsigned hash);
    CAssoc_X* firstFrom(unsigned bucket) const;
    void makeTable();
    void dropTable();
};

/// A map whose associations begin with key and value, so that they can be handed out as pairs. The value may be changed
/// in place. A pair lives until its key is removed.
template <class MapKey, class MapValue, class Keys = xe::detail::KeyRules<MapKey>>
class XePairMap : public XeMap<xe::detail::PairAssoc<MapKey, MapValue>, Keys>
{
    using Map = XeMap<xe::detail::PairAssoc<MapKey, MapValue>, Keys>;

public:
    using CPair_X = xe::detail::MapPair<MapKey, MapValue>;
    using Map::Map;

    /// The pair of a key; null if that is missing.
    CPair_X* PLookup(typename Keys::Argument key) { return this->assocOf(key); }
    const CPair_X* PLookup(typename Keys::Argument key) const { return this->assocOf(key); }
    /// The first pair in the order of a walk; null for an empty map.
    CPair_X* PGetFirstAssoc() { return this->firstAssoc(); }
    const CPair_X* PGetFirstAssoc() const { return this->firstAssoc(); }
    /// The pair behind another; null behind the last, and for null.
    CPair_X* PGetNextAssoc(const CPair_X* pair) { return behind(pair); }
    const CPair_X* PGetNextAssoc(const CPair_X* pair) const { return behind(pair); }

private:
    CPair_X* behind(const CPair_X* pair) const
    {
        return pair ? this->assocBehind(static_cast<const typename Map::CAssoc_X*>(pair)) : nullptr;
    }
};

// ----------------------------------------------------------------------------------------------------- the map classes
// Pointers and objects are not owned. Loading adds to what is in the map and ends early where the archive does.

/// 16-bit numbers to pointers.
class XE_EXPORT CMapWordToPtr_X : public CObject_X, public XeMap<xe::detail::ValueFirstAssoc<unsigned short, void*>>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMapWordToPtr_X)
    using XeMap::XeMap;
};

/// Pointers to 16-bit numbers.
class XE_EXPORT CMapPtrToWord_X : public CObject_X, public XeMap<xe::detail::KeyFirstAssoc<void*, unsigned short>>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMapPtrToWord_X)
    using XeMap::XeMap;
};

/// Pointers to pointers.
class XE_EXPORT CMapPtrToPtr_X : public CObject_X, public XeMap<xe::detail::KeyFirstAssoc<void*, void*>>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMapPtrToPtr_X)
    using XeMap::XeMap;

    /// The value, null also for a missing key.
    void* GetValueAt(void* key) const;
};

/// The published cache of type libraries, a plain map here.
class XE_EXPORT CTypeLibCacheMap_X : public CMapPtrToPtr_X
{
public:
    using CMapPtrToPtr_X::CMapPtrToPtr_X;
};

/// 16-bit numbers to objects.
class XE_EXPORT CMapWordToOb_X : public CObject_X, public XeMap<xe::detail::ValueFirstAssoc<unsigned short, CObject_X*>>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CMapWordToOb_X)
    using XeMap::XeMap;

    /// Stores the keys alone; loading sets their values to null.
    void Serialize(CArchive_X& archive) override;
};

/// Texts to pointers. Unlike the other maps it takes block and table sizes as they are given: with a block size below 1
/// or a table size of 0 nothing is found, and insertion raises.
class XE_EXPORT CMapStringToPtr_X : public CObject_X,
                                    public XeMap<xe::detail::HashedAssoc<CString_X, void*>,
                                                 xe::detail::KeyRules<CString_X>, xe::detail::MapSizes::AsGiven>
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CMapStringToPtr_X)
    using XeMap::XeMap;

    /// As in the other maps, but leaves the position alone when there is no table.
    void GetNextAssoc(POSITION& position, CString_X& key, void*& value) const;

    /// Whether a key equal to the text that `found` points to follows *behind* the association of `key` in its bucket.
    /// So a key alone in its bucket gives false. The published function looks the key up and puts its text into
    /// `found`; here `found` is not changed.
    bool LookupKey(const wchar_t* key, const wchar_t*& found) const;
};

/// Texts to objects.
class XE_EXPORT CMapStringToOb_X : public CObject_X, public XeMap<xe::detail::HashedAssoc<CString_X, CObject_X*>>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CMapStringToOb_X)
    using XeMap::XeMap;

    /// True and the stored key's text, which lives until the key is removed; or false with `found` unchanged.
    bool LookupKey(const wchar_t* key, const wchar_t*& found) const;

    /// Stores the keys alone; loading sets their values to null.
    void Serialize(CArchive_X& archive) override;
};

/// Texts to texts.
class XE_EXPORT CMapStringToString_X : public CObject_X, public XePairMap<CString_X, CString_X>
{
    Q_OBJECT
    DECLARE_DYNCREATE_X(CMapStringToString_X)
    using XePairMap::XePairMap;

    /// True and the stored key's text, which lives until the key is removed; or false with `found` unchanged.
    bool LookupKey(const wchar_t* key, const wchar_t*& found) const;

    void Serialize(CArchive_X& archive) override;
};

// -------------------------------------------------------------------------------------------------------- the template

/// The hash of a key of CMap_X, as the map classes have it for texts, pointers and numbers. A host specialises it for
/// keys of its own.
template <class ARG_KEY>
unsigned HashKey_X(ARG_KEY key)
{
    using Plain = std::remove_cv_t<std::remove_reference_t<ARG_KEY>>;
    if constexpr (std::is_convertible_v<ARG_KEY, const wchar_t*>)
        return xe::detail::hashOfText(xe::detail::keyText(key));
    else if constexpr (std::is_pointer_v<Plain>)
        return xe::detail::hashOfNumber(reinterpret_cast<qintptr>(key));
    else
        return xe::detail::hashOfNumber(static_cast<long long>(key));
}

namespace xe::detail {

template <class KEY, class ARG_KEY>
struct HostKey
{
    using Argument = ARG_KEY;
    using View = ARG_KEY;

    static View view(Argument key) { return key; }
    static unsigned hash(View key) { return HashKey_X<ARG_KEY>(key); }
};

} // namespace xe::detail

/// The map for key and value types of the host's. Keys are hashed by HashKey_X() and compared by `==`. It has no
/// run-time class of its own and is not storable.
///
///     CMap_X<unsigned, unsigned, CPoint, CPoint&> corners;
///     corners[17] = CPoint(3, 4);
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap_X : public CObject_X, public XePairMap<KEY, VALUE, xe::detail::HostKey<KEY, ARG_KEY>>
{
    using Map = XePairMap<KEY, VALUE, xe::detail::HostKey<KEY, ARG_KEY>>;

public:
    using Map::Map;

    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
};

// -------------------------------------------------------------------------------------------------------- the map body

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
void XeMap<Assoc, Keys, sizes>::InitHashTable(unsigned size, int allocate)
{
    dropTable();
    bucketCount = isCorrected && size == 0 ? defaultBucketCount : size;
    if (allocate && bucketCount > 0)
        makeTable();
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
inline bool XeMap<Assoc, Keys, sizes>::Lookup(KeyArgument key, Value& value) const
{
    const CAssoc_X* assoc = assocOf(key);
    if (assoc)
        value = assoc->value;
    return assoc;
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
typename XeMap<Assoc, Keys, sizes>::Value& XeMap<Assoc, Keys, sizes>::operator[](KeyArgument key)
{
    unsigned bucket;
    unsigned hash;
    CAssoc_X* assoc = GetAssocAt(key, bucket, hash);
    if (!assoc) {
        if (!buckets) {
            makeTable();
            bucket = hash % bucketCount;
        }
        assoc = xe::detail::takeNode(freeList, blocks, blockSize, Key(key), hash, buckets[bucket]);
        buckets[bucket] = assoc;
        ++count;
    }
    return assoc->value;
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
bool XeMap<Assoc, Keys, sizes>::RemoveKey(KeyArgument key)
{
    if (!buckets)
        return false;
    unsigned bucket;
    unsigned hash;
    CAssoc_X* assoc = GetAssocAt(key, bucket, hash);
    if (!assoc)
        return false;
    CAssoc_X** link = &buckets[bucket];
    while (*link != assoc)
        link = &(*link)->next;
    *link = assoc->next;
    xe::detail::giveNodeBack(freeList, assoc);
    if (--count == 0)
        RemoveAll();
    return true;
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
void XeMap<Assoc, Keys, sizes>::RemoveAll()
{
    dropTable();
    count = 0;
    freeList = nullptr;
    xe::detail::freeBlocks(blocks);
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
void XeMap<Assoc, Keys, sizes>::GetNextAssoc(POSITION& position, Key& key, Value& value) const
{
    if (!position)
        return;
    const CAssoc_X* assoc = position == beforeStart() ? firstAssoc() : reinterpret_cast<const CAssoc_X*>(position);
    position = assoc ? reinterpret_cast<POSITION>(assocBehind(assoc)) : nullptr;
    if (assoc) {
        key = assoc->key;
        value = assoc->value;
    }
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
inline bool XeMap<Assoc, Keys, sizes>::matches(const CAssoc_X& assoc, typename Keys::View key, unsigned hash)
{
    if constexpr (CAssoc_X::storesHash)
        return assoc.hash == hash && assoc.key == key;
    else
        return assoc.key == key;
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
inline Assoc* XeMap<Assoc, Keys, sizes>::GetAssocAt(KeyArgument key, unsigned& bucket, unsigned& hash) const
{
    const typename Keys::View view = Keys::view(key);
    hash = Keys::hash(view);
    bucket = buckets ? hash % bucketCount : 0;
    CAssoc_X* assoc = buckets ? buckets[bucket] : nullptr;
    while (assoc && !matches(*assoc, view, hash))
        assoc = assoc->next;
    return assoc;
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
inline Assoc* XeMap<Assoc, Keys, sizes>::assocOf(KeyArgument key) const
{
    unsigned bucket;
    unsigned hash;
    return GetAssocAt(key, bucket, hash);
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
Assoc* XeMap<Assoc, Keys, sizes>::assocBehind(const CAssoc_X* assoc) const
{
    if (assoc->next)
        return assoc->next;
    if constexpr (CAssoc_X::storesHash)
        return firstFrom(assoc->hash % bucketCount + 1);
    else
        return firstFrom(HashKey(assoc->key) % bucketCount + 1);
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
Assoc* XeMap<Assoc, Keys, sizes>::firstFrom(unsigned bucket) const
{
    for (; buckets && bucket < bucketCount; ++bucket)
        if (buckets[bucket])
            return buckets[bucket];
    return nullptr;
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
void XeMap<Assoc, Keys, sizes>::makeTable()
{
    if (bucketCount == 0)
        AfxThrowInvalidArgException_X();
    buckets = new CAssoc_X*[bucketCount]();
}

template <class Assoc, class Keys, xe::detail::MapSizes sizes>
void XeMap<Assoc, Keys, sizes>::dropTable()
{
    if constexpr (!std::is_trivially_destructible_v<CAssoc_X>)
        for (CAssoc_X* assoc = firstAssoc(); assoc;)
            std::exchange(assoc, assocBehind(assoc))->~CAssoc_X();
    delete[] buckets;
    buckets = nullptr;
}
