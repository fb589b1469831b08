#include "text/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

// Each direction counts first and then converts into memory of the right size, looking at the validity of what it
// converts. Both go over ASCII in blocks; where a block is not ASCII they go on element by element for a while.

namespace xe {

namespace {

// ------------------------------------------------------------------------------------------------------------ decoding

// Sums up what `count` gives for each item. A loop of fixed length over narrow sums is one that compilers turn into
// vector instructions.
template <class Sum, class Item, class Count>
std::size_t total(std::basic_string_view<Item> items, Count count)
{
    constexpr std::size_t partSize = 32;
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
    constexpr auto lastTail = static_cast<signed char>(0xBF);
    return total<std::uint8_t>(bytes,
                               [](char byte) -> std::uint8_t { return static_cast<signed char>(byte) > lastTail; });
}

std::uint64_t eightBytes(const unsigned char* bytes)
{
    std::uint64_t eight;
    std::memcpy(&eight, bytes, sizeof eight);
    return eight;
}

constexpr std::size_t byteBlock = 16;

bool isAsciiBlock(const unsigned char* bytes)
{
    return ((eightBytes(bytes) | eightBytes(bytes + 8)) & 0x8080808080808080U) == 0;
}

wchar_t* widenBlock(const unsigned char* bytes, wchar_t* out)
{
    unsigned char block[byteBlock]; // of which a compiler sees that it does not overlap with the elements
    std::memcpy(block, bytes, sizeof block);
    return std::copy_n(block, byteBlock, out);
}

// The six bits of a byte that continues a sequence; for any other byte more than that.
constexpr std::uint32_t tailBits(unsigned char byte) { return byte - 0x80U; }
constexpr bool isTail(std::uint32_t bits) { return bits < 0x40; }

constexpr bool isSurrogate(std::uint32_t value) { return value - 0xD800 < 0x800; }

// Writes the element of the sequence of two to four bytes that starts here and returns the sequence's length; 0 if it
// is not valid. A first byte that starts no sequence gives a value out of the range of its length. Nothing is read
// behind a byte that ends the sequence too early, as the text's terminator does.
std::size_t decodeSequence(const unsigned char* bytes, wchar_t& element)
{
    const std::uint32_t lead = bytes[0];
    const std::uint32_t second = tailBits(bytes[1]);
    if (lead < 0xE0) {
        const std::uint32_t value = (lead - 0xC0) << 6 | second;
        element = static_cast<wchar_t>(value);
        return isTail(second) && value - 0x80 < 0x780 ? 2 : 0;
    }
    if (!isTail(second))
        return 0;
    const std::uint32_t third = tailBits(bytes[2]);
    if (lead < 0xF0) {
        const std::uint32_t value = (lead & 0x0F) << 12 | second << 6 | third;
        element = static_cast<wchar_t>(value);
        return isTail(third) && value >= 0x800 && !isSurrogate(value) ? 3 : 0;
    }
    if (!isTail(third))
        return 0;
    const std::uint32_t fourth = tailBits(bytes[3]);
    const std::uint32_t value = (lead & 0x0F) << 18 | second << 12 | third << 6 | fourth;
    element = static_cast<wchar_t>(value);
    return isTail(fourth) && value - 0x10000 < 0x100000 ? 4 : 0;
}

// ------------------------------------------------------------------------------------------------------------ encoding

std::size_t encodedSize(std::wstring_view text)
{
    return text.size() + total<std::uint32_t>(text, [](wchar_t ch) {
               const auto value = static_cast<std::uint32_t>(ch);
               return std::uint32_t(value > 0x7F) + std::uint32_t(value > 0x7FF) + std::uint32_t(value > 0xFFFF);
           });
}

constexpr std::size_t elementBlock = 8;

bool isAsciiBlock(const wchar_t* elements)
{
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < elementBlock; ++i)
        bits |= static_cast<std::uint32_t>(elements[i]);
    return bits < 0x80;
}

constexpr bool isAscii(wchar_t ch) { return static_cast<std::uint32_t>(ch) < 0x80; }

// Null for an element without a UTF-8 form, else the end of its two to four bytes.
char* encodeSequence(std::uint32_t value, char* out)
{
    const auto tail = [](std::uint32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (value < 0x800) {
        out[0] = static_cast<char>(0xC0 | value >> 6);
        out[1] = tail(value);
        return out + 2;
    }
    if (value > 0x10FFFF || isSurrogate(value))
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
        if (left >= elementBlock && isAsciiBlock(element)) {
            for (std::size_t i = 0; i < elementBlock; ++i)
                out[i] = static_cast<char>(element[i]);
            out += elementBlock;
            element += elementBlock;
            continue;
        }
        for (const wchar_t* const next = element + std::min(left, 2 * elementBlock); element != next; ++element) {
            if (isAscii(*element))
                *out++ = static_cast<char>(*element);
            else if (out = encodeSequence(static_cast<std::uint32_t>(*element), out); !out)
                return nullptr;
        }
    }
    return out;
}

} // namespace

std::optional<std::wstring> decodeUtf8(const char* text)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    const unsigned char* const end = bytes + std::strlen(text);
    std::wstring elements(mostElements({text, static_cast<std::size_t>(end - bytes)}), L'\0');
    wchar_t* out = elements.data();
    while (bytes != end) {
        const auto left = static_cast<std::size_t>(end - bytes);
        if (left >= byteBlock && isAsciiBlock(bytes)) {
            out = widenBlock(bytes, out);
            bytes += byteBlock;
            continue;
        }
        const unsigned char* const stop = bytes + std::min(left, byteBlock);
        do {
            if (*bytes < 0x80) {
                *out++ = *bytes++;
            } else {
                const std::size_t length = decodeSequence(bytes, *out++);
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
