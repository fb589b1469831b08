// What the hash of the URL functions costs beside the same loop by hand.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr DWORD hashLength = 16;

std::vector<BYTE> mebibyte()
{
    std::vector<BYTE> data(1 << 20);
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<BYTE>(i * 31 + (i >> 8));
    return data;
}

void hashData(benchmark::State& state)
{
    std::vector<BYTE> data = mebibyte();
    BYTE hash[hashLength];
    for (auto _ : state) {
        HashData_X(data.data(), static_cast<DWORD>(data.size()), hash, hashLength);
        benchmark::DoNotOptimize(hash);
    }
}

void hashByHand(benchmark::State& state)
{
    const std::vector<BYTE> data = mebibyte();
    BYTE table[256]; // any permutation costs the same
    for (int i = 0; i < 256; ++i)
        table[i] = static_cast<BYTE>(i * 167 + 13);
    BYTE hash[hashLength];
    for (auto _ : state) {
        for (int i = hashLength - 1; i >= 0; --i)
            hash[i] = static_cast<BYTE>(i);
        for (int j = static_cast<int>(data.size()) - 1; j >= 0; --j) {
            for (int i = hashLength - 1; i >= 0; --i)
                hash[i] = table[data[static_cast<std::size_t>(j)] ^ hash[i]];
        }
        benchmark::DoNotOptimize(hash);
    }
}

} // namespace

BENCHMARK(hashData)->Name("hash_data/ours");
BENCHMARK(hashByHand)->Name("hash_data/peer:loop");
