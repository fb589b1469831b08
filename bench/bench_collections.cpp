// What the collections cost beside those of the standard library.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <list>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

constexpr int count = 10000;

// ------------------------------------------------------------------------------------------------------------- arrays

// The growth rule is the published one: both sides fill a block that is there.
template <class Array, class Value>
void appendToArray(benchmark::State& state)
{
    Array array;
    array.SetSize(count);
    for (auto _ : state) {
        array.RemoveAt(0, count);
        for (int i = 0; i < count; ++i)
            array.Add(Value(i));
        benchmark::DoNotOptimize(array.GetData());
    }
}

template <class Value>
void appendToVector(benchmark::State& state)
{
    std::vector<Value> vector;
    vector.reserve(count);
    auto* const known = &vector;
    benchmark::DoNotOptimize(known); // as an object of any program is, outside its registers
    for (auto _ : state) {
        vector.clear();
        for (int i = 0; i < count; ++i)
            vector.push_back(Value(i));
        benchmark::DoNotOptimize(vector.data());
    }
}

// In an order that no vector unit can take.
int scattered(int i) { return static_cast<int>(static_cast<unsigned>(i) * 7919 % count); }

void indexArray(benchmark::State& state)
{
    CDWordArray_X array;
    array.SetSize(count);
    for (auto _ : state) {
        for (int i = 0; i < count; ++i)
            benchmark::DoNotOptimize(array[scattered(i)] += 3);
    }
}

void indexVector(benchmark::State& state)
{
    std::vector<unsigned> vector(count);
    for (auto _ : state) {
        for (int i = 0; i < count; ++i)
            benchmark::DoNotOptimize(vector[static_cast<std::size_t>(scattered(i))] += 3);
    }
}

// -------------------------------------------------------------------------------------------------------------- lists

void appendToList(benchmark::State& state)
{
    void* const value = &state;
    for (auto _ : state) {
        CPtrList_X list;
        for (int i = 0; i < count; ++i)
            list.AddTail(value);
        benchmark::DoNotOptimize(list.GetTail());
    }
}

void appendToStdList(benchmark::State& state)
{
    void* const value = &state;
    for (auto _ : state) {
        std::list<void*> list;
        for (int i = 0; i < count; ++i)
            list.push_back(value);
        benchmark::DoNotOptimize(list.back());
    }
}

void walkList(benchmark::State& state)
{
    void* const value = &state;
    CPtrList_X list;
    for (int i = 0; i < count; ++i)
        list.AddTail(value);
    for (auto _ : state) {
        for (POSITION position = list.GetHeadPosition(); position;)
            benchmark::DoNotOptimize(list.GetNext(position));
    }
}

void walkStdList(benchmark::State& state)
{
    void* const value = &state;
    std::list<void*> list;
    for (int i = 0; i < count; ++i)
        list.push_back(value);
    for (auto _ : state) {
        for (void*& each : list)
            benchmark::DoNotOptimize(each);
    }
}

// --------------------------------------------------------------------------------------------------------------- maps

template <class Key>
Key keyOf(int i);

template <>
unsigned short keyOf<unsigned short>(int i)
{
    return static_cast<unsigned short>(i * 3);
}

template <>
void* keyOf<void*>(int i)
{
    // Of blocks of 16 bytes that came from anywhere: a constant distance is no case of a program, nor of a hash.
    const auto scattered = static_cast<quintptr>(i) * 2654435761 % 0x1000000;
    return reinterpret_cast<void*>(0x7F0000000000 + scattered * 16);
}

template <>
std::wstring keyOf<std::wstring>(int i)
{
    return L"part-" + std::to_wstring(i);
}

template <class Key>
std::vector<Key> keys()
{
    std::vector<Key> all;
    for (int i = 0; i < count; ++i)
        all.push_back(keyOf<Key>(scattered(i)));
    return all;
}

const wchar_t* argument(const std::wstring& key) { return key.c_str(); }

template <class Key>
Key argument(Key key)
{
    return key;
}

template <class Map, class Key, class Value>
void lookUp(benchmark::State& state)
{
    const std::vector<Key> all = keys<Key>();
    Map map;
    map.InitHashTable(12007); // a prime number, as is usual
    for (const Key& key : all)
        map[argument(key)] = Value();
    for (auto _ : state) {
        Value value{};
        for (const Key& key : all)
            benchmark::DoNotOptimize(map.Lookup(argument(key), value));
    }
}

template <class Key, class Value>
void lookUpInUnorderedMap(benchmark::State& state)
{
    const std::vector<Key> all = keys<Key>();
    std::unordered_map<Key, Value> map;
    map.reserve(12007);
    for (const Key& key : all)
        map[key] = Value();
    for (auto _ : state) {
        for (const Key& key : all) {
            const auto found = map.find(key);
            Value value{};
            if (found != map.end())
                value = found->second;
            benchmark::DoNotOptimize(value);
        }
    }
}

} // namespace

BENCHMARK((appendToArray<CDWordArray_X, unsigned>))->Name("array_append/ours/dword");
BENCHMARK(appendToVector<unsigned>)->Name("array_append/peer:vector/dword");
BENCHMARK((appendToArray<CByteArray_X, unsigned char>))->Name("array_append/ours/byte");
BENCHMARK(appendToVector<unsigned char>)->Name("array_append/peer:vector/byte");
BENCHMARK(indexArray)->Name("array_index/ours");
BENCHMARK(indexVector)->Name("array_index/peer:vector");

BENCHMARK(appendToList)->Name("list_append/ours");
BENCHMARK(appendToStdList)->Name("list_append/peer:list");
BENCHMARK(walkList)->Name("list_walk/ours");
BENCHMARK(walkStdList)->Name("list_walk/peer:list");

#define MAP_LOOKUP(map, key, value)                                      \
    BENCHMARK((lookUp<map, key, value>))->Name("map_lookup/ours/" #map); \
    BENCHMARK((lookUpInUnorderedMap<key, value>))->Name("map_lookup/peer:unordered_map/" #map)

MAP_LOOKUP(CMapWordToPtr_X, unsigned short, void*);
MAP_LOOKUP(CMapWordToOb_X, unsigned short, CObject_X*);
MAP_LOOKUP(CMapPtrToWord_X, void*, unsigned short);
MAP_LOOKUP(CMapPtrToPtr_X, void*, void*);
MAP_LOOKUP(CMapStringToPtr_X, std::wstring, void*);
MAP_LOOKUP(CMapStringToOb_X, std::wstring, CObject_X*);
MAP_LOOKUP(CMapStringToString_X, std::wstring, CString_X);
