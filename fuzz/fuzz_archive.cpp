// CArchive_X on hostile streams: whatever the file is like (one that lends its memory, one that does not, one that
// gives a few bytes at a time), the values are the same, and they are those of a plain reading.

#include <XeMFCEmu.h>

#include "check.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

// Gives `step` bytes at a time and lends nothing.
class SlowFile : public CFile_X
{
public:
    SlowFile(const Bytes& content, unsigned pieces, bool isBlocking)
        : m_content(content),
          m_step(pieces),
          m_blocking(isBlocking)
    {}

    unsigned long long GetPosition() const override { return m_position; }
    unsigned long long GetLength() const override { return m_content.size(); }
    unsigned GetBufferPtr(unsigned command, unsigned, void**, void**) override
    {
        return command == bufferCheck && m_blocking ? bufferBlocking : 0U;
    }
    unsigned long long Seek(long long offset, unsigned) override
    {
        m_position += static_cast<std::size_t>(offset);
        check(m_position <= m_content.size(), "no more is given back than was read");
        return m_position;
    }
    unsigned Read(void* to, unsigned count) override
    {
        const std::size_t length = std::min<std::size_t>({count, m_step, m_content.size() - m_position});
        std::copy_n(m_content.data() + m_position, length, static_cast<std::uint8_t*>(to));
        m_position += length;
        return static_cast<unsigned>(length);
    }

private:
    const Bytes& m_content;
    std::size_t m_position = 0;
    unsigned m_step;
    bool m_blocking;
};

// The same reading without buffers: values behind the end are 0, and what is cut is used up.
class Plain
{
public:
    explicit Plain(const Bytes& content) : m_next(content.data()), m_end(content.data() + content.size()) {}

    template <class T>
    bool get(T& value)
    {
        value = T{};
        if (left() < sizeof(T)) {
            m_next = m_end;
            return false;
        }
        take(&value, sizeof(T));
        return true;
    }

    std::size_t take(void* to, std::size_t count)
    {
        const std::size_t length = std::min(count, left());
        std::copy_n(m_next, length, static_cast<std::uint8_t*>(to));
        m_next += length;
        return length;
    }

    unsigned long long count()
    {
        unsigned short count = 0;
        unsigned wideCount = 0;
        get(count);
        if (count != 0xFFFF)
            return count;
        get(wideCount);
        return wideCount;
    }

    unsigned long long textLength(int& charSize)
    {
        std::uint8_t b = 0;
        std::uint16_t w = 0;
        std::uint32_t d = 0;
        std::uint64_t q = 0;
        charSize = 1;
        get(b);
        if (b < 0xFF)
            return b;
        get(w);
        if (w == 0xFFFE) {
            charSize = 4;
            get(b);
            if (b < 0xFF)
                return b;
            get(w);
        }
        if (w < 0xFFFF)
            return w;
        get(d);
        if (d < 0xFFFFFFFF)
            return d;
        get(q);
        return q;
    }

    void text(std::wstring& text)
    {
        int charSize = 0;
        const unsigned long long length = textLength(charSize);
        if (length > left() / sizeof(wchar_t)) {
            m_next = m_end;
            return;
        }
        text.resize(length);
        take(&text[0], length * sizeof(wchar_t));
    }

    // A line of at most `limit` elements; false where the archive gives null.
    bool line(std::wstring& line, std::size_t limit, bool keepsEnd)
    {
        line.clear();
        wchar_t element = 0;
        while (line.size() < limit && get(element)) {
            const bool ends = element == L'\n' || element == L'\r';
            if (element == L'\r')
                get(element);
            if (!ends || keepsEnd)
                line.push_back(element);
            if (ends)
                break;
        }
        return !line.empty();
    }

    bool wholeLine(std::wstring& whole)
    {
        whole.clear();
        std::wstring piece;
        do {
            if (!line(piece, 128, true))
                return !whole.empty();
            piece = piece.c_str();
            whole += piece;
        } while (piece.size() == 128 && piece.back() != L'\n');
        if (!whole.empty() && whole.back() == L'\n')
            whole.pop_back();
        return true;
    }

    std::size_t left() const { return static_cast<std::size_t>(m_end - m_next); }

private:
    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

template <class T>
void compareValue(CArchive_X& archive, Plain& plain)
{
    T value{};
    T expected{};
    std::memset(&value, 0x55, sizeof(value));
    archive >> value;
    plain.get(expected);
    check(std::memcmp(&value, &expected, sizeof(T)) == 0, "a value is what stands on the stream");
}

void compareBool(CArchive_X& archive, Plain& plain)
{
    bool value = false;
    std::uint8_t expected = 0;
    archive >> value;
    plain.get(expected);
    check(value == (expected != 0), "any byte but 0 is true");
}

void compareText(CArchive_X& archive, Plain& plain)
{
    CString_X text = L"before";
    std::wstring expected = L"before";
    archive >> text;
    plain.text(expected);
    check(text == expected, "a text is what stands on the stream, or stays");
}

void compareLength(CArchive_X& archive, Plain& plain)
{
    int charSize = 0;
    int expectedSize = 0;
    check(AfxReadStringLength_X(archive, charSize) == plain.textLength(expectedSize), "the length of a text");
    check(charSize == expectedSize, "the size of an element");
}

void compareBlock(CArchive_X& archive, Plain& plain, unsigned count)
{
    Bytes block(count);
    Bytes expected(count);
    check(archive.Read(block.data(), count) == plain.take(expected.data(), count), "a block is as long as there is");
    check(block == expected, "a block is what stands on the stream");
}

void compareLine(CArchive_X& archive, Plain& plain, int max)
{
    const auto limit = static_cast<std::size_t>(std::abs(max));
    std::vector<wchar_t> buffer(limit + 1);
    std::wstring expected;
    const bool read = archive.ReadString(buffer.data(), static_cast<unsigned>(max)) != nullptr;
    check(read == plain.line(expected, limit, max < 0), "a line is there");
    check(!read
              || (expected.size() <= limit && std::wmemcmp(buffer.data(), expected.c_str(), expected.size() + 1) == 0),
          "a line is what stands on the stream");
}

void compareWholeLine(CArchive_X& archive, Plain& plain)
{
    CString_X line = L"before";
    std::wstring expected;
    check(bool(archive.ReadString(line)) == plain.wholeLine(expected), "a whole line is there");
    check(line == expected, "a whole line is what stands on the stream");
}

void compareCount(CArchive_X& archive, Plain& plain)
{
    check(archive.ReadCount() == plain.count(), "a count is what stands on the stream");
}

void compareStep(CArchive_X& archive, Plain& plain, std::uint8_t step)
{
    switch (step & 15) {
    case 0:
        return compareValue<unsigned char>(archive, plain);
    case 1:
        return compareValue<short>(archive, plain);
    case 2:
        return compareValue<int>(archive, plain);
    case 3:
        return compareValue<long>(archive, plain);
    case 4:
        return compareValue<float>(archive, plain);
    case 5:
        return compareValue<double>(archive, plain);
    case 6:
        return compareValue<wchar_t>(archive, plain);
    case 7:
        return compareBool(archive, plain);
    case 8:
        return compareCount(archive, plain);
    case 9:
        return compareLength(archive, plain);
    case 10:
        return compareText(archive, plain);
    case 11:
        return compareBlock(archive, plain, step >> 4);
    case 12:
        return compareBlock(archive, plain, (step >> 4) * 61U);
    case 13:
        return compareLine(archive, plain, (step >> 4) + 1);
    case 14:
        return compareLine(archive, plain, -(step >> 4) - 1);
    default:
        return step & 0x80 ? archive.Flush() : compareWholeLine(archive, plain);
    }
}

// The steps are repeated until the stream has ended and once more behind that.
void compareAll(CFile_X& file, const Bytes& content, const Bytes& steps, int bufferSize)
{
    CArchive_X archive(&file, CArchive_X::load, bufferSize);
    Plain plain(content);
    bool ended = false;
    while (!ended) {
        ended = plain.left() == 0;
        const std::size_t before = plain.left();
        for (const std::uint8_t step : steps)
            compareStep(archive, plain, step);
        ended = ended || plain.left() == before;
    }
    archive.Close();
    check(file.GetPosition() == content.size() - plain.left(), "the file stands behind what was used");
}

} // namespace

// The first byte is the number of steps, which follow; then a byte for the size of the buffer and one for that of the
// pieces. The rest is the stream.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3)
        return 0;
    const std::size_t stepCount = std::min<std::size_t>(data[0] & 31, size - 3);
    const Bytes steps(data + 1, data + 1 + stepCount);
    const int bufferSize = 128 + data[stepCount + 1];
    const unsigned pieces = data[stepCount + 2] + 1U;
    Bytes content(data + stepCount + 3, data + size);

    CMemFile_X direct(64);
    direct.Write(content.data(), static_cast<unsigned>(content.size()));
    direct.SeekToBegin();
    CMemFile_X block(content.data(), static_cast<unsigned>(content.size()));
    SlowFile slow(content, pieces, false);
    SlowFile blocking(content, pieces, true);
    for (CFile_X* file : {static_cast<CFile_X*>(&direct), static_cast<CFile_X*>(&block), static_cast<CFile_X*>(&slow),
                          static_cast<CFile_X*>(&blocking)})
        compareAll(*file, content, steps, bufferSize);
    return 0;
}
