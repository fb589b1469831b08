// What a look at the calling module's table costs beside a stack trace of the C library.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <execinfo.h>

#include <cstdlib>

namespace {

[[gnu::noinline]] QString lookUp(int id, int depth)
{
    QString name = depth > 0 ? lookUp(id, depth - 1) : GetObjectNameById(id);
    benchmark::DoNotOptimize(name); // keeps the call from becoming a jump
    return name;
}

[[gnu::noinline]] char** traceStack(int depth)
{
    if (depth > 0) {
        char** symbols = traceStack(depth - 1);
        benchmark::DoNotOptimize(symbols);
        return symbols;
    }
    void* addresses[16];
    const int count = backtrace(addresses, 16);
    return backtrace_symbols(addresses, count);
}

constexpr int framesDeep = 3;

void findName(benchmark::State& state)
{
    GetResourceIDMap()[101] = QStringLiteral("IDC_NAME");
    for (auto _ : state)
        benchmark::DoNotOptimize(lookUp(101, framesDeep));
    if (lookUp(101, framesDeep) != QLatin1String("IDC_NAME"))
        state.SkipWithError("the name was not found");
}

void readStackTrace(benchmark::State& state)
{
    for (auto _ : state)
        std::free(traceStack(framesDeep));
}

} // namespace

BENCHMARK(findName)->Name("object_name_by_id/ours");
BENCHMARK(readStackTrace)->Name("object_name_by_id/peer:backtrace and symbols");
