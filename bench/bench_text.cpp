// What the string class, its formats and its conversions cost beside the standard library's.

#include <XeMFCEmu.h>

#include <benchmark/benchmark.h>

#include <codecvt>
#include <cwchar>
#include <iomanip>
#include <iterator>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace {

// ------------------------------------------------------------------------------------------------------------- formats

const wchar_t* const partName = L"hexagon bolt M6x20";

void format(benchmark::State& state)
{
    CString_X text;
    int number = 0;
    for (auto _ : state) {
        ++number;
        text.Format(L"%s %d %.3f", partName, number, number * 0.37);
        benchmark::DoNotOptimize(text.GetString());
    }
}

void formatBySwprintf(benchmark::State& state)
{
    wchar_t text[256];
    int number = 0;
    for (auto _ : state) {
        ++number;
        std::swprintf(text, std::size(text), L"%ls %d %.3f", partName, number, number * 0.37);
        benchmark::DoNotOptimize(text);
    }
}

void formatByStream(benchmark::State& state)
{
    int number = 0;
    for (auto _ : state) {
        ++number;
        std::wostringstream stream;
        stream << partName << L' ' << number << L' ' << std::fixed << std::setprecision(3) << number * 0.37;
        benchmark::DoNotOptimize(stream.str());
    }
}

// --------------------------------------------------------------------------------------------------- string operations

template <class String>
void append(benchmark::State& state)
{
    const String piece = L"abcdefgh";
    for (auto _ : state) {
        String text;
        for (int i = 0; i < 64; ++i) {
            text += piece;
            text += L'-';
        }
        benchmark::DoNotOptimize(text.data());
    }
}

// Where a text starts in a cache line decides on a sixth of what a comparison takes. Texts of this length come to lie
// at all the places where blocks of memory start, one after the other.
constexpr std::size_t lengthForAllPlaces = 506;
constexpr std::size_t places = 4;

template <class String>
std::vector<String> longTexts(const wchar_t* end)
{
    return std::vector<String>(places, std::wstring(lengthForAllPlaces, L'x') + end);
}

int positionOf(const CString_X& text, const wchar_t* needle) { return text.Find(needle); }
int positionOf(const std::wstring& text, const wchar_t* needle) { return static_cast<int>(text.find(needle)); }

template <class String>
void findText(benchmark::State& state)
{
    const auto texts = longTexts<String>(L"needle");
    for (auto _ : state) {
        for (const String& text : texts)
            benchmark::DoNotOptimize(positionOf(text, L"needle"));
    }
}

int comparison(const CString_X& left, const CString_X& right) { return left.Compare(right); }
int comparison(const std::wstring& left, const std::wstring& right) { return left.compare(right.c_str()); }

template <class String>
void compare(benchmark::State& state)
{
    const auto lefts = longTexts<String>(L"needle");
    const auto rights = longTexts<String>(L"needles");
    for (auto _ : state) {
        for (std::size_t i = 0; i < places; ++i)
            benchmark::DoNotOptimize(comparison(lefts[i], rights[i]));
    }
}

template <class String>
void copy(benchmark::State& state)
{
    const auto texts = longTexts<String>(L"needle");
    for (auto _ : state) {
        for (const String& text : texts) {
            String other = text;
            benchmark::DoNotOptimize(other.data());
        }
    }
}

template <class String>
void copyShort(benchmark::State& state)
{
    const String text = L"M6";
    for (auto _ : state) {
        String other = text;
        benchmark::DoNotOptimize(other.data());
    }
}

// --------------------------------------------------------------------------------------------------------------- UTF-8

using Utf8Converter = std::wstring_convert<std::codecvt_utf8<wchar_t, 0x10ffff, std::codecvt_mode(0)>>;

// Range 0 is ASCII, 1 has a letter of two, three or four bytes at every fourth place.
std::wstring textToConvert(long long mixed)
{
    std::wstring text;
    const wchar_t others[] = {L'\u00e9', L'\u87ba', L'\U0001F529'};
    for (std::size_t i = 0; i < 1000; ++i)
        text += mixed && i % 4 == 0 ? others[i / 4 % 3] : static_cast<wchar_t>(L'a' + i % 26);
    return text;
}

void toUtf8(benchmark::State& state)
{
    CString_X text = textToConvert(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(text.Utf8Ptr());
}

void toUtf8ByConverter(benchmark::State& state)
{
    const std::wstring text = textToConvert(state.range(0));
    Utf8Converter converter;
    for (auto _ : state)
        benchmark::DoNotOptimize(converter.to_bytes(text));
}

void fromUtf8(benchmark::State& state)
{
    const std::string bytes = Utf8Converter().to_bytes(textToConvert(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CString_X(bytes.c_str()));
}

void fromUtf8ByConverter(benchmark::State& state)
{
    const std::string bytes = Utf8Converter().to_bytes(textToConvert(state.range(0)));
    Utf8Converter converter;
    for (auto _ : state)
        benchmark::DoNotOptimize(converter.from_bytes(bytes.c_str()));
}

// ------------------------------------------------------------------------------------------------------------------ Qt

void toQt(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(XeQString(partName));
}

void toQtByQt(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::fromWCharArray(partName));
}

} // namespace

BENCHMARK(format)->Name("format_by_c/ours");
BENCHMARK(formatBySwprintf)->Name("format_by_c/peer:swprintf");
BENCHMARK(format)->Name("format_by_stream/ours");
BENCHMARK(formatByStream)->Name("format_by_stream/peer:wostringstream");

BENCHMARK(append<CString_X>)->Name("string_append/ours");
BENCHMARK(append<std::wstring>)->Name("string_append/peer:wstring");
BENCHMARK(findText<CString_X>)->Name("string_find/ours");
BENCHMARK(findText<std::wstring>)->Name("string_find/peer:wstring");
BENCHMARK(compare<CString_X>)->Name("string_compare/ours");
BENCHMARK(compare<std::wstring>)->Name("string_compare/peer:wstring");
BENCHMARK(copy<CString_X>)->Name("string_copy/ours");
BENCHMARK(copy<std::wstring>)->Name("string_copy/peer:wstring");
BENCHMARK(copyShort<CString_X>)->Name("string_copy_short/ours");
BENCHMARK(copyShort<std::wstring>)->Name("string_copy_short/peer:wstring");

BENCHMARK(toUtf8)->Name("to_utf8/ours")->Arg(0)->Arg(1);
BENCHMARK(toUtf8ByConverter)->Name("to_utf8/peer:wstring_convert")->Arg(0)->Arg(1);
BENCHMARK(fromUtf8)->Name("from_utf8/ours")->Arg(0)->Arg(1);
BENCHMARK(fromUtf8ByConverter)->Name("from_utf8/peer:wstring_convert")->Arg(0)->Arg(1);
BENCHMARK(toQt)->Name("to_qstring/ours");
BENCHMARK(toQtByQt)->Name("to_qstring/peer:fromWCharArray");
