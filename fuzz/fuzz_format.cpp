// The printf engine, with arguments that suit every conversion.

#include <XeMFCEmu.h>

#include "check.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwctype>
#include <string>
#include <utility>

namespace {

// Texts of both kinds and an int at once: each byte and each element up to the last is a letter or a terminator. The
// low half of its address is a small number, since a `*` takes it for a width; the high half is of a range that the
// sanitizers leave to programs.
void* argumentForAll()
{
    constexpr std::uintptr_t lowPart = 0x40;
    for (std::uintptr_t page = 0x7e9000000000; page < 0x7f0000000000; page += 0x100000000) {
        void* const block = mmap(reinterpret_cast<void*>(page), 4096, PROT_READ | PROT_WRITE,
                                 MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
        if (block != MAP_FAILED) {
            void* const argument = static_cast<char*>(block) + lowPart;
            std::memcpy(argument, L"bolt", sizeof L"bolt");
            return argument;
        }
    }
    std::abort();
}

constexpr std::size_t mostArguments = 64;

template <std::size_t... index>
std::pair<CString_X, CString_X> format(const wchar_t* text, void* argument, std::index_sequence<index...>)
{
    // The doubles fill the registers for floating numbers; a ninth is read from among the pointers.
    const auto pointer = [argument](std::size_t) { return argument; };
    CString_X result;
    result.Format(text, 0.0, 1.5, -2.25e300, 1e-320, 1.0 / 3, 1e20, 0.1, 123456.789, pointer(index)...);
    CString_X appended = L"-";
    appended.AppendFormat(text, 0.0, 1.5, -2.25e300, 1e-320, 1.0 / 3, 1e20, 0.1, 123456.789, pointer(index)...);
    return {result, appended};
}

// No more than three digits in a row: wider fields are not wrong, but they fill the memory.
std::wstring formatFrom(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    int digits = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const auto ch = static_cast<wchar_t>(data[i]);
        if (ch == 0)
            continue;
        digits = std::iswdigit(ch) ? digits + 1 : 0;
        if (digits <= 3)
            text += ch;
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static void* const argument = argumentForAll();
    const std::wstring text = formatFrom(data, size);
    const auto taken = std::count_if(text.begin(), text.end(), [](wchar_t ch) { return ch == L'%' || ch == L'*'; });
    if (static_cast<std::size_t>(taken) > mostArguments)
        return 0;
    const auto [result, appended] = format(text.c_str(), argument, std::make_index_sequence<mostArguments>());
    check(result.GetLength() == static_cast<int>(std::wcslen(result)), "the text ends at its first 0");
    check(appended == L"-" + result, "AppendFormat appends what Format gives");
    return 0;
}
