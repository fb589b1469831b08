// The Path* functions on hostile texts: nothing is read or written outside the buffers (the sanitizers see to that),
// and each result lies where it belongs. Nothing here looks at the disk.

#include <XeMFCEmu.h>

#include "check.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <string>
#include <vector>

namespace {

using Text = std::wstring;

// Cuts the input into texts; a byte stands for an element, from an alphabet that matters to these functions.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

    std::size_t number() { return m_next == m_end ? 0 : *m_next++; }

    // As long as the first byte says; a high one makes the length come near the limit.
    Text text()
    {
        const std::size_t length = number();
        Text text;
        while (text.size() < (length & 0x3F) && m_next != m_end)
            text += element();
        return length & 0x80 ? Text(2000 + (length & 0x3F), L'a') + text : text;
    }

private:
    wchar_t element()
    {
        static const Text others = L"\u00e9\u0130\ufeff\uffff\U0001F529\xD800\x110000\x7FFFFFFF\xFFFFFFFF";
        const std::size_t byte = std::max<std::size_t>(number(), 1);
        return byte < 0x80 ? static_cast<wchar_t>(byte) : others[byte % others.size()];
    }

    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

// On the heap and without spare room, so that a step too far is seen.
class Buffer
{
public:
    explicit Buffer(const Text& text, std::size_t size = 0) : m_elements(text.begin(), text.end())
    {
        m_elements.push_back(0);
        m_elements.resize(std::max(m_elements.size(), size), L'#');
        m_elements.shrink_to_fit();
    }

    wchar_t* data() { return m_elements.data(); }

    // The length of the text, or the size without a terminator.
    std::size_t length() const { return wcsnlen(m_elements.data(), m_elements.size()); }
    bool isTerminated() const { return length() < m_elements.size(); }
    Text text() const { return {m_elements.data(), length()}; }

private:
    std::vector<wchar_t> m_elements;
};

Buffer full(const Text& text) { return Buffer(text, XE_MAX_PATH); }

void find(const Text& text)
{
    Buffer path(text);
    const wchar_t* const start = path.data();
    const wchar_t* const end = start + text.size();
    for (const auto function : {PathFindFileName_X, PathFindNextComponent_X, PathFindExtension_X, PathGetArgs_X}) {
        const wchar_t* const found = function(start);
        check(found >= start && found <= end, "what is found lies in the text");
    }
    const wchar_t* const behindRoot = PathSkipRoot_X(start);
    check(!behindRoot || (behindRoot > start + 1 && behindRoot <= end), "a root has two elements or more");
    check(!behindRoot || PathIsSameRoot_X(start, start), "a path has its own root");
}

void ask(const Text& text)
{
    Buffer path(text);
    const wchar_t* const t = path.data();
    for (const auto function : {PathIsUNC_X, PathIsFileSpec_X, PathIsRelative_X, PathIsNetworkPath_X, PathIsURL_X,
                                PathIsUNCServer_X, PathIsUNCServerShare_X, PathIsLFNFileSpec_X}) {
        const BOOL answer = function(t);
        check(answer == 0 || answer == 1, "a question is answered by 1 or 0");
    }
    check(!PathIsUNC_X(t) || (PathIsNetworkPath_X(t) && !PathIsRelative_X(t)), "a UNC path is no relative one");
    check(!PathIsUNCServer_X(t) || PathIsUNCServerShare_X(t), "a server has the slashes of its mark");
    for (const wchar_t character : text)
        check(PathGetCharType_X(character) <= GCT_SEPARATOR, "a character has a type");
}

// Functions that make no text longer, on a text that they have changed before: they change no more.
void shorten(const Text& text)
{
    using Change = void (*)(wchar_t*);
    constexpr Change changes[] = {PathStripPath_X,
                                  PathRemoveArgs_X,
                                  PathRemoveBlanks_X,
                                  [](wchar_t* path) { PathRemoveFileSpec_X(path); },
                                  [](wchar_t* path) { PathStripToRoot_X(path); },
                                  [](wchar_t* path) { PathMakePretty_X(path); }};
    for (const Change change : changes) {
        Buffer path(text);
        change(path.data());
        const Text once = path.text();
        check(once.size() <= text.size(), "the text is no longer than before");
        change(path.data());
        check(path.text() == once, "doing it twice does not differ from doing it once");
    }
    for (const Change change : {PathRemoveExtension_X, PathUndecorate_X}) {
        Buffer path(text);
        change(path.data());
        check(path.length() <= text.size(), "the text is no longer than before");
    }
    Buffer path(text);
    PathRemoveBackslash_X(path.data());
    check(path.length() == text.size(), "the old tail stays");
    check(PathParseIconLocation_X(path.data()) == 0, "an icon's index is not read");
}

void quote(const Text& text)
{
    Buffer path = full(text);
    if (!PathQuoteSpaces_X(path.data())) {
        PathUnquoteSpaces_X(path.data());
        return;
    }
    check(path.isTerminated() && path.length() == text.size() + 2, "quotes are two elements");
    check(PathUnquoteSpaces_X(path.data()) == 1 && path.text() == text, "quotes go as they came");
}

void lengthen(const Text& text, const Text& other)
{
    Buffer extension(other);
    Buffer path = full(text);
    if (PathAddExtension_X(path.data(), extension.data()))
        check(path.text() == text + other, "an extension comes at the end");
    path = full(text);
    if (!PathRenameExtension_X(path.data(), extension.data()))
        check(path.text() == text, "what fails changes nothing");
    check(path.isTerminated(), "an extension leaves room for the terminator");

    path = full(text);
    if (PathAddBackslash_X(path.data()))
        check(path.text().back() == L'/', "there is a slash at the end");
    else
        check(path.text() == text, "what fails changes nothing");
}

void makeCanonical(const Text& text)
{
    Buffer path(text);
    Buffer out = full({});
    const BOOL fits = PathCanonicalize_X(out.data(), path.data());
    check(out.isTerminated() && (fits || out.length() == 0), "a canonical path is terminated");
    Buffer again = full(out.text());
    if (fits)
        check(PathCanonicalize_X(again.data(), again.data()) && again.text() == out.text(),
              "canonical stays canonical");
}

void join(const Text& text, const Text& other)
{
    Buffer directory(text);
    Buffer file(other);
    Buffer out = full({});
    const wchar_t* const result = PathCombine_X(out.data(), directory.data(), file.data());
    check(out.isTerminated() && !result == (out.length() == 0), "a joined path is terminated");
    Buffer path = full(text);
    check(PathCombine_X(path.data(), path.data(), file.data()) == (result ? path.data() : nullptr), "in place as well");
    check(path.text() == out.text(), "in place the result is the same");
    path = full(text);
    PathAppend_X(path.data(), file.data());
    check(path.isTerminated(), "an appended path is terminated");
}

void compare(const Text& text, const Text& other)
{
    Buffer first(text);
    Buffer second(other);
    Buffer out = full({});
    const int length = PathCommonPrefix_X(first.data(), second.data(), nullptr);
    check(length == PathCommonPrefix_X(second.data(), first.data(), nullptr), "both have the same in common");
    const int written = PathCommonPrefix_X(first.data(), second.data(), out.data());
    check(written == (length < XE_MAX_PATH ? length : 0), "what is common is written");
    check(out.text() == text.substr(0, static_cast<std::size_t>(written)), "it is the start of the first");
    check(PathIsPrefix_X(first.data(), first.data()) == (text.size() != 2),
          "a path is its own prefix, but no drive is");
    PathIsSameRoot_X(first.data(), second.data());
}

void split(const Text& text)
{
    Buffer path(text);
    const std::size_t size = std::min<std::size_t>(text.size() + 1, XE_MAX_PATH);
    Buffer parts[] = {Buffer({}), Buffer({}, size), Buffer({}, size), Buffer({}, size)};
    _tsplitpath(path.data(), parts[0].data(), parts[1].data(), parts[2].data(), parts[3].data());
    check(parts[0].text().empty(), "there is no drive");
    const Text sum = parts[1].text() + parts[2].text() + parts[3].text();
    check(sum == (text.size() < XE_MAX_PATH ? text : Text()), "the parts add up");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const Text text = input.text();
    const Text other = input.text();
    find(text);
    ask(text);
    shorten(text);
    quote(text);
    lengthen(text, other);
    makeCanonical(text);
    join(text, other);
    compare(text, other);
    split(text);
    return 0;
}
