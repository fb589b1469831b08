// CStdioFile_X on files of any bytes: the lines are those of a plain reading.

#include <XeMFCEmu.h>

#include "scratchfile.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

// What one call reads: up to the line end or `limit` bytes. The text ends at the first 0 byte.
std::wstring nextLine(const std::string& content, std::size_t& position, std::size_t limit)
{
    std::wstring text;
    bool seen = true;
    for (std::size_t count = 0; position < content.size() && count < limit; ++count) {
        const char byte = content[position++];
        seen = seen && byte != 0;
        if (seen)
            text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
        if (byte == '\n')
            break;
    }
    return text;
}

void readWholeLines(const CString_X& name, const std::string& content)
{
    CStdioFile_X file(name, CFile_X::modeRead);
    std::size_t position = 0;
    for (bool ended = false; !ended;) {
        ended = position == content.size();
        std::wstring expected = nextLine(content, position, content.size());
        CString_X line = L"before";
        check(bool(file.ReadString(line)) == !expected.empty(), "a line is there");
        while (!expected.empty() && (expected.back() == L'\r' || expected.back() == L'\n'))
            expected.pop_back();
        check(line == expected, "a line without its end");
        check(file.GetPosition() == position, "the file stands behind the line");
    }
}

void readBoundedLines(const CString_X& name, const std::string& content, unsigned max)
{
    CStdioFile_X file(name, CFile_X::modeRead);
    std::vector<wchar_t> buffer(std::min<std::size_t>(max, content.size() + 1));
    std::size_t position = 0;
    for (bool ended = false; !ended;) {
        ended = position == content.size();
        const std::wstring expected = nextLine(content, position, max - 1);
        check(file.ReadString(buffer.data(), max) == buffer.data(), "the result is the buffer");
        check(buffer.data() == expected, "a line with its end, as far as it fits");
        check(file.GetPosition() == position, "the file stands behind the text");
    }
}

} // namespace

// The first byte chooses the bound; the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ScratchFile scratch;
    if (size == 0)
        return 0;
    const std::string content(reinterpret_cast<const char*>(data + 1), size - 1);
    scratch.fill(content);
    readWholeLines(scratch.name(), content);
    for (const unsigned max : {data[0] + 2U, 4096U, 4097U, 0xFFFFFFFFU})
        readBoundedLines(scratch.name(), content, max);
    return 0;
}
