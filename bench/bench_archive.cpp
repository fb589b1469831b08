// What the archive costs beside QDataStream and a bare copy.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

#include <cstring>
#include <vector>

namespace {

constexpr int million = 1000000;

QString fileName()
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("stream"));
}

// --------------------------------------------------------------------------------------------------- a file of numbers

void storeInFile(benchmark::State& state)
{
    for (auto _ : state) {
        CFile_X file(CString_X(fileName()), CFile_X::modeWrite);
        CArchive_X archive(&file, CArchive_X::store);
        for (int i = 0; i < million; ++i)
            archive << i;
    }
}

void storeInFileByDataStream(benchmark::State& state)
{
    for (auto _ : state) {
        QFile file(fileName());
        file.open(QIODevice::WriteOnly);
        QDataStream stream(&file);
        for (int i = 0; i < million; ++i)
            stream << i;
    }
}

template <class Function>
void load(benchmark::State& state, Function loadOnce)
{
    {
        CFile_X file(CString_X(fileName()), CFile_X::modeWrite);
        CArchive_X archive(&file, CArchive_X::store);
        for (int i = 0; i < million; ++i)
            archive << 0x01010101;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(loadOnce());
}

void loadByArchive(benchmark::State& state)
{
    load(state, [] {
        CFile_X file(CString_X(fileName()), CFile_X::modeRead);
        CArchive_X archive(&file, CArchive_X::load);
        int sum = 0;
        for (int i = 0; i < million; ++i) {
            int number = 0;
            archive >> number;
            sum ^= number;
        }
        return sum;
    });
}

void loadByDataStream(benchmark::State& state)
{
    load(state, [] {
        QFile file(fileName());
        file.open(QIODevice::ReadOnly);
        QDataStream stream(&file);
        int sum = 0;
        for (int i = 0; i < million; ++i) {
            int number = 0;
            stream >> number;
            sum ^= number;
        }
        return sum;
    });
}

// ----------------------------------------------------------------------------------------------------------- in memory

void storeInMemory(benchmark::State& state)
{
    CMemFile_X file(1 << 20);
    for (auto _ : state) {
        file.SeekToBegin();
        CArchive_X archive(&file, CArchive_X::store, 1 << 16);
        for (int i = 0; i < million; ++i)
            archive << i;
        archive.Close();
    }
    if (file.GetLength() != million * sizeof(int))
        state.SkipWithError("another length");
}

void copyInMemory(benchmark::State& state)
{
    std::vector<int> numbers(million, 1);
    std::vector<int> block(million);
    for (auto _ : state) {
        std::memcpy(block.data(), numbers.data(), million * sizeof(int));
        benchmark::DoNotOptimize(block.data());
        benchmark::ClobberMemory();
    }
}

// -------------------------------------------------------------------------------------------------------- short strings

void stringsThereAndBack(benchmark::State& state)
{
    for (auto _ : state) {
        CMemFile_X file(1 << 20);
        {
            CArchive_X archive(&file, CArchive_X::store);
            CString_X text = L"part";
            for (int i = 0; i < million; ++i)
                archive << text;
        }
        file.SeekToBegin();
        CArchive_X archive(&file, CArchive_X::load);
        CString_X text;
        for (int i = 0; i < million; ++i)
            archive >> text;
        if (text != L"part")
            state.SkipWithError("another text");
    }
}

void stringsByDataStream(benchmark::State& state)
{
    for (auto _ : state) {
        QByteArray bytes;
        {
            QDataStream stream(&bytes, QIODevice::WriteOnly);
            const QString text = QStringLiteral("part");
            for (int i = 0; i < million; ++i)
                stream << text;
        }
        QDataStream stream(bytes);
        QString text;
        for (int i = 0; i < million; ++i)
            stream >> text;
        benchmark::DoNotOptimize(text);
    }
}

} // namespace

BENCHMARK(storeInFile)->Name("archive_store/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(storeInFileByDataStream)->Name("archive_store/peer:QDataStream")->Unit(benchmark::kMillisecond);
BENCHMARK(loadByArchive)->Name("archive_load/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(loadByDataStream)->Name("archive_load/peer:QDataStream")->Unit(benchmark::kMillisecond);
BENCHMARK(storeInMemory)->Name("archive_memory/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(copyInMemory)->Name("archive_memory/peer:memcpy")->Unit(benchmark::kMillisecond);
BENCHMARK(stringsThereAndBack)->Name("archive_strings/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(stringsByDataStream)->Name("archive_strings/peer:QDataStream")->Unit(benchmark::kMillisecond);
