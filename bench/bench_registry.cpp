// What the registry costs beside the QSettings below it.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <QSettings>

#include <cwchar>
#include <iterator>

namespace {

// Both sides have the same entries: QSettings objects of one file share them, so the peer has a file of its own.
constexpr int entries = 10000;
const wchar_t* const keyName = L"Software\\Acme\\Parts";
const QString keyPath = QStringLiteral("HKEY_CURRENT_USER/Software/Acme/Parts");

QSettings& peer()
{
    static QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("bench"),
                              QStringLiteral("peer"));
    return settings;
}

/// The key, filled at the first call.
HKEY filledKey()
{
    static const HKEY key = [] {
        HKEY made = nullptr;
        RegCreateKey_X(HKEY_CURRENT_USER, keyName, &made);
        const wchar_t* const text = L"hexagon bolt";
        for (DWORD i = 0; i < entries; ++i) {
            wchar_t name[16];
            std::swprintf(name, std::size(name), L"part%05u", i);
            RegSetValueExW_X(made, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&i), sizeof i);
            peer().setValue(keyPath + '/' + QString::fromWCharArray(name), i);
        }
        RegSetValueExW_X(made, L"text", 0, REG_SZ, reinterpret_cast<const BYTE*>(text), 0);
        peer().setValue(keyPath + QLatin1String("/text"), QString::fromWCharArray(text));
        return made;
    }();
    return key;
}

// -------------------------------------------------------------------------------------------------------- one value

void readNumber(benchmark::State& state)
{
    const HKEY key = filledKey();
    DWORD number = 0;
    DWORD type = 0;
    DWORD size = sizeof number;
    for (auto _ : state) {
        RegQueryValueExW_X(key, L"part00500", nullptr, &type, reinterpret_cast<BYTE*>(&number), &size);
        benchmark::DoNotOptimize(number);
    }
    if (type != REG_DWORD || number != 500)
        state.SkipWithError("another value");
}

void readNumberBySettings(benchmark::State& state)
{
    filledKey();
    const QString path = keyPath + QLatin1String("/part00500");
    for (auto _ : state)
        benchmark::DoNotOptimize(peer().value(path).toUInt());
}

void readText(benchmark::State& state)
{
    const HKEY key = filledKey();
    char text[64] = {};
    DWORD type = 0;
    DWORD size = sizeof text;
    for (auto _ : state) {
        RegQueryValueExW_X(key, L"text", nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
        benchmark::DoNotOptimize(text);
    }
    if (type != REG_SZ || size != 13)
        state.SkipWithError("another value");
}

void readTextBySettings(benchmark::State& state)
{
    filledKey();
    const QString path = keyPath + QLatin1String("/text");
    for (auto _ : state)
        benchmark::DoNotOptimize(peer().value(path).toString().toLatin1());
}

// ------------------------------------------------------------------------------------------------- a whole enumeration

void enumerate(benchmark::State& state)
{
    const HKEY key = filledKey();
    int count = 0;
    for (auto _ : state) {
        wchar_t name[64];
        DWORD length = 0;
        for (count = 0; !RegEnumKey_X(key, static_cast<DWORD>(count), name, &length); ++count)
            benchmark::DoNotOptimize(name);
    }
    if (count != entries + 1)
        state.SkipWithError("another number of entries");
}

/// The list is taken once; each name becomes wide text, as a caller would want it.
void enumerateBySettings(benchmark::State& state)
{
    filledKey();
    for (auto _ : state) {
        peer().beginGroup(keyPath);
        const QStringList names = peer().allKeys();
        peer().endGroup();
        for (const QString& name : names) {
            wchar_t text[64];
            benchmark::DoNotOptimize(name.toWCharArray(text));
        }
    }
}

} // namespace

BENCHMARK(readNumber)->Name("registry_read_number/ours");
BENCHMARK(readNumberBySettings)->Name("registry_read_number/peer:QSettings");
BENCHMARK(readText)->Name("registry_read_text/ours");
BENCHMARK(readTextBySettings)->Name("registry_read_text/peer:QSettings");
BENCHMARK(enumerate)->Name("registry_enumeration/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(enumerateBySettings)->Name("registry_enumeration/peer:QSettings")->Unit(benchmark::kMillisecond);
