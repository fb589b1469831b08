#include "text/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

// Each direction counts first and then converts into memory of the right size, looking at the validity of what it
// converts. Both go over ASCII in blocks; where a block is not ASCII they take the next two element by element.

namespace xe {

namespace {

constexpr std::size_t blockSize = 8;

// ------------------------------------------------------------------------------------------------------------ decoding

// Sums up what `count` gives for each item. A loop of fixed length over narrow sums is one that compilers turn into
// vector instructions.
template <class Sum, class Item, class Count>
std::size_t total(std::basic_string_view<Item> items, Count count)
{
    constexpr std::size_t partSize = 64;
    std::size_t sum = 0;
    for (; items.size() >= partSize; items.remove_prefix(partSize)) {
        Sum part = 0;
        for (std::size_t i = 0; i < partSize; ++i)
            part = static_cast<Sum>(part + count(items[i]));
        sum += part;
    }
    for (const Item item : items)
        sum += count(item);
    return sum;
}

// One element comes of each byte that does not continue a sequence; of invalid bytes not more than that.
std::size_t mostElements(std::string_view bytes)
{
    return total<std::uint8_t>(bytes, [](char byte) -> std::uint8_t { return (byte & 0xC0) != 0x80; });
}

bool isAsciiBlock(const unsigned char* bytes)
{
    std::uint64_t block;
    static_assert(sizeof block == blockSize);
    std::memcpy(&block, bytes, sizeof block);
    return (block & 0x8080808080808080U) == 0;
}

// The six bits of a byte that continues a sequence; for any other byte more than that.
constexpr std::uint32_t tailBits(unsigned char byte) { return byte ^ 0x80U; }

constexpr bool isElement(std::uint32_t value) { return value <= 0x10FFFF && value - 0xD800 >= 0x800; }

// Writes the element of the sequence of two to four bytes that starts here and returns the sequence's length; 0 if it
// is not valid. A first byte that starts no sequence gives a value out of the range of its length.
std::size_t decodeSequence(const unsigned char* bytes, std::size_t left, wchar_t& element)
{
    const std::uint32_t lead = bytes[0];
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > left)
        return 0;
    const std::uint32_t second = tailBits(bytes[1]);
    if (length == 2) {
        const std::uint32_t value = (lead - 0xC0) << 6 | second;
        element = static_cast<wchar_t>(value);
        return second < 0x40 && value - 0x80 < 0x780 ? 2 : 0;
    }
    const std::uint32_t third = tailBits(bytes[2]);
    if (length == 3) {
        const std::uint32_t value = (lead & 0x0F) << 12 | second << 6 | third;
        element = static_cast<wchar_t>(value);
        return (second | third) < 0x40 && value >= 0x800 && isElement(value) ? 3 : 0;
    }
    const std::uint32_t fourth = tailBits(bytes[3]);
    const std::uint32_t value = (lead & 0x0F) << 18 | second << 12 | third << 6 | fourth;
    element = static_cast<wchar_t>(value);
    return (second | third | fourth) < 0x40 && value - 0x10000 < 0x100000 ? 4 : 0;
}

// ------------------------------------------------------------------------------------------------------------ encoding

std::size_t encodedSize(std::wstring_view text)
{
    return text.size() + total<std::uint32_t>(text, [](wchar_t ch) {
               const auto value = static_cast<std::uint32_t>(ch);
               return std::uint32_t(value > 0x7F) + std::uint32_t(value > 0x7FF) + std::uint32_t(value > 0xFFFF);
           });
}

bool isAsciiBlock(const wchar_t* elements)
{
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        bits |= static_cast<std::uint32_t>(elements[i]);
    return bits < 0x80;
}

// Null for an element without a UTF-8 form, else the end of its bytes.
char* encodeElement(std::uint32_t value, char* out)
{
    const auto tail = [](std::uint32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (value < 0x80) {
        out[0] = static_cast<char>(value);
        return out + 1;
    }
    if (value < 0x800) {
        out[0] = static_cast<char>(0xC0 | value >> 6);
        out[1] = tail(value);
        return out + 2;
    }
    if (!isElement(value))
        return nullptr;
    if (value < 0x10000) {
        out[0] = static_cast<char>(0xE0 | value >> 12);
        out[1] = tail(value >> 6);
        out[2] = tail(value);
        return out + 3;
    }
    out[0] = static_cast<char>(0xF0 | value >> 18);
    out[1] = tail(value >> 12);
    out[2] = tail(value >> 6);
    out[3] = tail(value);
    return out + 4;
}

// Null if an element has no UTF-8 form, else the end of the bytes.
char* encodeInto(char* out, std::wstring_view text)
{
    const wchar_t* element = text.data();
    const wchar_t* const end = element + text.size();
    while (element != end) {
        const auto left = static_cast<std::size_t>(end - element);
        if (left >= blockSize && isAsciiBlock(element)) {
            for (std::size_t i = 0; i < blockSize; ++i)
                out[i] = static_cast<char>(element[i]);
            out += blockSize;
            element += blockSize;
            continue;
        }
        for (const wchar_t* const next = element + std::min(left, 2 * blockSize); element != next; ++element) {
            out = encodeElement(static_cast<std::uint32_t>(*element), out);
            if (!out)
                return nullptr;
        }
    }
    return out;
}

} // namespace

std::optional<std::wstring> decodeUtf8(std::string_view text)
{
    std::wstring elements(mostElements(text), L'\0');
    wchar_t* out = elements.data();
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    const unsigned char* const end = bytes + text.size();
    while (bytes != end) {
        const auto left = static_cast<std::size_t>(end - bytes);
        if (left >= blockSize && isAsciiBlock(bytes)) {
            out = std::copy_n(bytes, blockSize, out);
            bytes += blockSize;
            continue;
        }
        const unsigned char* const stop = bytes + std::min(left, 2 * blockSize);
        do {
            if (*bytes < 0x80) {
                *out++ = *bytes++;
            } else {
                const std::size_t length = decodeSequence(bytes, static_cast<std::size_t>(end - bytes), *out++);
                if (length == 0)
                    return {};
                bytes += length;
            }
        } while (bytes < stop);
    }
    return elements;
}

std::unique_ptr<char[]> encodeUtf8(std::wstring_view text)
{
    // A short text is converted on the stack, where its size needs no counting.
    constexpr std::size_t shortText = 1024;
    char stack[4 * shortText];
    std::unique_ptr<char[]> bytes;
    char* out = stack;
    if (text.size() > shortText) {
        bytes.reset(new char[encodedSize(text) + 1]);
        out = bytes.get();
    }
    char* end = encodeInto(out, text);
    if (!end)
        return nullptr;
    if (!bytes) {
        bytes.reset(new char[static_cast<std::size_t>(end - stack) + 1]);
        end = std::copy(stack, end, bytes.get());
    }
    *end = '\0';
    return bytes;
}

} // namespace xe
