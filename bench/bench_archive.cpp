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

std::vector<int> numbers()
{
    std::vector<int> all(million);
    for (int i = 0; i < million; ++i)
        all[static_cast<std::size_t>(i)] = i;
    return all;
}

void storeBlock(benchmark::State& state)
{
    const std::vector<int> all = numbers();
    CMemFile_X file(1 << 20);
    for (auto _ : state) {
        file.SeekToBegin();
        CArchive_X archive(&file, CArchive_X::store);
        archive.Write(all.data(), million * sizeof(int));
        archive.Close();
    }
    if (file.GetLength() != million * sizeof(int))
        state.SkipWithError("another length");
}

void copyBlock(benchmark::State& state)
{
    const std::vector<int> all = numbers();
    std::vector<int> block(million);
    for (auto _ : state) {
        std::memcpy(block.data(), all.data(), million * sizeof(int));
        benchmark::DoNotOptimize(block.data());
        benchmark::ClobberMemory();
    }
}

void storeValues(benchmark::State& state)
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

/// Value by value into a block with an end.
struct Cursor
{
    unsigned char* place;
    unsigned char* end;

    void put(int value)
    {
        if (end - place < static_cast<std::ptrdiff_t>(sizeof value))
            return;
        std::memcpy(place, &value, sizeof value);
        place += sizeof value;
    }
};

void copyValues(benchmark::State& state)
{
    std::vector<unsigned char> block(million * sizeof(int));
    for (auto _ : state) {
        Cursor cursor{block.data(), block.data() + block.size()};
        benchmark::DoNotOptimize(&cursor); // lives in memory, as an archive does
        for (int i = 0; i < million; ++i)
            cursor.put(i);
        benchmark::DoNotOptimize(cursor.place);
    }
}

// ------------------------------------------------------------------------------------------------------- short strings

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
BENCHMARK(storeBlock)->Name("archive_memory/ours/block")->Unit(benchmark::kMillisecond);
BENCHMARK(copyBlock)->Name("archive_memory/peer:memcpy/block")->Unit(benchmark::kMillisecond);
BENCHMARK(storeValues)->Name("archive_memory/ours/values")->Unit(benchmark::kMillisecond);
BENCHMARK(copyValues)->Name("archive_memory/peer:memcpy/values")->Unit(benchmark::kMillisecond);
BENCHMARK(stringsThereAndBack)->Name("archive_strings/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(stringsByDataStream)->Name("archive_strings/peer:QDataStream")->Unit(benchmark::kMillisecond);
