// How a wide stream writes numbers.
#pragma once

#include "text/widebuffer.h"

#include <algorithm>
#include <ios>
#include <locale>
#include <optional>
#include <sstream>
#include <string_view>

namespace xe {

/// Inserts into a buffer what a std::wostream with the global locale would write, blank being the fill character. In
/// the classic locale it writes the digits itself, but for the rare form that keeps trailing zeros.
class WideInserter
{
public:
    explicit WideInserter(WideBuffer& out) : m_out(out) {}

    // What a stream keeps from one insertion to the next; the width goes back to 0 after each.
    std::ios_base::fmtflags flags = std::ios_base::skipws | std::ios_base::dec;
    int precision = 6;
    int width = 0;

    void setFlags(std::ios_base::fmtflags bits, std::ios_base::fmtflags mask) { flags = (flags & ~mask) | bits; }
    void setFlag(std::ios_base::fmtflags flag, bool on) { setFlags(on ? flag : std::ios_base::fmtflags(), flag); }
    bool hasFlag(std::ios_base::fmtflags flag) const { return (flags & flag) != 0; }

    void insert(int value);
    void insert(unsigned long long value);
    void insert(double value);
    void insert(const void* value);
    void insert(std::wstring_view text);
    void insert(std::string_view text); ///< each byte is an element of the same number

private:
    /// Calls `write`, which appends `size` elements, between the blanks that fill the width.
    template <class Write>
    void insertField(std::size_t size, Write write);
    void insertUnsigned(unsigned long long value, char sign);
    template <class Value>
    void insertByStream(Value value);

    WideBuffer& m_out;
    const std::locale m_locale;
    const bool m_classic = m_locale == std::locale::classic();
    std::optional<std::wostringstream> m_stream;
};

template <class Write>
void WideInserter::insertField(std::size_t size, Write write)
{
    const auto wanted = static_cast<std::size_t>(std::max(width, 0));
    width = 0;
    const std::size_t blanks = wanted > size ? wanted - size : 0;
    const bool left = hasFlag(std::ios_base::left);
    m_out.append(left ? 0 : blanks, L' ');
    write();
    m_out.append(left ? blanks : 0, L' ');
}

inline void WideInserter::insert(std::wstring_view text)
{
    insertField(text.size(), [&] { m_out.append(text.data(), text.size()); });
}

} // namespace xe
