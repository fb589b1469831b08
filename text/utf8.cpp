#include "text/utf8.h"

#include <cstdint>
#include <cstring>

namespace xe {

namespace {

constexpr std::size_t asciiBlock = sizeof(std::uint64_t);

bool isAsciiBlock(const unsigned char* bytes)
{
    std::uint64_t block;
    std::memcpy(&block, bytes, sizeof block);
    return (block & 0x8080808080808080U) == 0;
}

constexpr bool isContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// The length of the valid sequence of two to four bytes that starts here, 0 if there is none. The second byte of a
// sequence tells overlong forms, surrogates and values above 0x10FFFF.
std::size_t sequenceLength(const unsigned char* bytes, std::size_t left)
{
    const unsigned char lead = bytes[0];
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > left)
        return 0;
    const unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (bytes[1] < lowest || bytes[1] > highest)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (!isContinuation(bytes[i]))
            return 0;
    }
    return length;
}

wchar_t sequenceValue(const unsigned char* bytes, std::size_t length)
{
    const auto tail = [bytes](std::size_t i) { return bytes[i] & 0x3F; };
    switch (length) {
    case 2:
        return (bytes[0] & 0x1F) << 6 | tail(1);
    case 3:
        return (bytes[0] & 0x0F) << 12 | tail(1) << 6 | tail(2);
    default:
        return (bytes[0] & 0x07) << 18 | tail(1) << 12 | tail(2) << 6 | tail(3);
    }
}

// The number of elements, or nothing.
std::optional<std::size_t> decodedLength(const unsigned char* bytes, const unsigned char* end)
{
    std::size_t count = 0;
    while (bytes != end) {
        const auto left = static_cast<std::size_t>(end - bytes);
        std::size_t step = 1;
        if (*bytes < 0x80) {
            if (left >= asciiBlock && isAsciiBlock(bytes)) {
                bytes += asciiBlock;
                count += asciiBlock;
                continue;
            }
        } else if (step = sequenceLength(bytes, left); step == 0) {
            return {};
        }
        bytes += step;
        ++count;
    }
    return count;
}

} // namespace

std::optional<std::wstring> decodeUtf8(std::string_view text)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    const unsigned char* const end = bytes + text.size();
    const std::optional<std::size_t> length = decodedLength(bytes, end);
    if (!length)
        return {};
    std::wstring result(*length, L'\0');
    wchar_t* out = result.data();
    while (bytes != end) {
        if (*bytes >= 0x80) {
            const std::size_t step = *bytes < 0xE0 ? 2 : *bytes < 0xF0 ? 3 : 4;
            *out++ = sequenceValue(bytes, step);
            bytes += step;
        } else if (static_cast<std::size_t>(end - bytes) >= asciiBlock && isAsciiBlock(bytes)) {
            for (std::size_t i = 0; i < asciiBlock; ++i)
                *out++ = *bytes++;
        } else {
            *out++ = *bytes++;
        }
    }
    return result;
}

std::optional<std::size_t> utf8Size(std::wstring_view text)
{
    std::size_t size = text.size();
    bool valid = true;
    for (const wchar_t ch : text) {
        const auto value = static_cast<std::uint32_t>(ch);
        size += (value >= 0x80) + (value >= 0x800) + (value >= 0x10000);
        valid &= value <= 0x10FFFF && (value & 0xFFFFF800U) != 0xD800;
    }
    return valid ? std::optional<std::size_t>(size) : std::nullopt;
}

char* encodeUtf8(std::wstring_view text, char* out)
{
    const auto put = [&out](std::uint32_t byte) { *out++ = static_cast<char>(byte); };
    const auto tail = [](std::uint32_t bits) { return 0x80 | (bits & 0x3F); };
    for (const wchar_t ch : text) {
        const auto value = static_cast<std::uint32_t>(ch);
        if (value < 0x80) {
            put(value);
        } else if (value < 0x800) {
            put(0xC0 | value >> 6);
            put(tail(value));
        } else if (value < 0x10000) {
            put(0xE0 | value >> 12);
            put(tail(value >> 6));
            put(tail(value));
        } else {
            put(0xF0 | value >> 18);
            put(tail(value >> 12));
            put(tail(value >> 6));
            put(tail(value));
        }
    }
    return out;
}

} // namespace xe
