// The rules of the path functions, read once more: slowly, on values, and each by itself. tst_pathoracle compares.
#pragma once

#include <algorithm>
#include <cwctype>
#include <string>
#include <vector>

namespace plain {

using Text = std::wstring;

constexpr std::size_t none = Text::npos;
constexpr std::size_t longest = 2047;

struct Changed
{
    long long result; // -1 for a function without one
    Text text;
};

inline Text normalised(Text text)
{
    std::replace(text.begin(), text.end(), L'\\', L'/');
    return text;
}

inline bool startsWith(const Text& text, const Text& start) { return text.substr(0, start.size()) == start; }
inline bool endsWith(const Text& text, const Text& end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}
inline bool contains(const Text& text, const Text& part) { return text.find(part) != none; }

// ------------------------------------------------------------------------------------------------------- components

inline std::size_t innerSlash(const Text& text) { return normalised(text).find(L'/', 1); }

inline Changed removeFileSpec(const Text& text)
{
    const std::size_t slash = innerSlash(text);
    return slash == none ? Changed{0, text} : Changed{1, text.substr(0, slash)};
}

inline Changed stripToRoot(const Text& text)
{
    const std::size_t slash = innerSlash(text);
    const Text root = slash == none ? Text() : text.substr(0, slash + 1);
    return {root != text, root};
}

inline long long findFileName(const Text& text)
{
    const std::size_t slash = normalised(text).rfind(L'/');
    return slash == none ? 0 : static_cast<long long>(slash) + 1;
}

inline Changed stripPath(const Text& text) { return {-1, text.substr(static_cast<std::size_t>(findFileName(text)))}; }

inline long long findNextComponent(const Text& text)
{
    const std::size_t slash = normalised(text).find(L'/');
    return slash == none ? 0 : static_cast<long long>(slash) + 1;
}

inline bool isUnc(const Text& text) { return startsWith(text, L"\\\\"); }

inline std::vector<std::size_t> placesOf(wchar_t character, const Text& text)
{
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text[place] == character)
            places.push_back(place);
    }
    return places;
}

inline long long skipRoot(const Text& text)
{
    if (isUnc(text)) {
        const auto backslashes = placesOf(L'\\', text);
        return backslashes.size() < 4 ? -1 : static_cast<long long>(backslashes[3]) + 1;
    }
    const std::size_t slash = innerSlash(text);
    return slash == none ? -1 : static_cast<long long>(slash) + 1;
}

inline bool isNetworkPath(const Text& text) { return startsWith(normalised(text), L"//"); }

inline Changed addBackslash(const Text& text)
{
    const Text result = endsWith(text, L"/") ? text : text + L"/";
    return result.size() > 2048 ? Changed{0, text} : Changed{1, result};
}

inline Changed removeBackslash(const Text& text)
{
    if (!endsWith(text, L"/"))
        return {1, text};
    Text buffer = text;
    std::size_t written = 0;
    for (const wchar_t character : text) {
        if (character != L'/')
            buffer[written++] = character;
    }
    return {1, buffer};
}

// ------------------------------------------------------------------------------------------------------------- kinds

inline bool isFileSpec(const Text& text) { return !contains(text, L"\\") && !contains(text, L":"); }

inline bool isRelative(const Text& text)
{
    return text.empty() || !(startsWith(text, L"\\") || startsWith(text.substr(1), L":"));
}

inline bool isUncServer(const Text& text)
{
    return contains(text, L"://") && !contains(text.substr(text.find(L"://") + 3), L"/");
}

inline bool isUncServerShare(const Text& text)
{
    return contains(text, L"://") && contains(text.substr(text.find(L"://") + 1), L"/");
}

inline bool isLfnFileSpec(const Text& text)
{
    const auto dots = placesOf(L'.', text);
    const std::size_t stem = dots.empty() ? text.size() : dots[0];
    const std::size_t behindDot = dots.empty() ? 0 : text.size() - stem - 1;
    return contains(text, L" ") || stem > 8 || behindDot > 3 || dots.size() > 1;
}

inline long long charType(wchar_t character)
{
    const auto isIn = [character](const Text& characters) { return characters.find(character) != none; };
    if (character < 0x20 || isIn(L"\"/<>|"))
        return 0;
    if (isIn(L"*?"))
        return 4;
    if (isIn(L":\\"))
        return 8;
    if (character > L'}' || (character % 2 == 1 && character != L';'))
        return 3;
    return (character < 0x80 && std::isalnum(character)) || isIn(L"$&'(.@^`") ? 3 : 1;
}

// ------------------------------------------------------------------------------------------------------------- parts

inline std::size_t extensionPlace(const Text& text)
{
    const std::size_t last = text.find_last_of(L". /\\");
    return last != none && text[last] == L'.' ? last : text.size();
}

inline long long findExtension(const Text& text) { return static_cast<long long>(extensionPlace(text)); }

inline Changed removeExtension(const Text& text) { return {-1, text.substr(0, extensionPlace(text))}; }

inline Changed renameExtension(const Text& text, const Text& extension)
{
    const Text result = removeExtension(text).text + extension;
    return result.size() > longest ? Changed{0, text} : Changed{1, result};
}

inline Changed addExtension(const Text& text, const Text& extension)
{
    const bool fails = extensionPlace(text) < text.size() || text.size() + extension.size() > longest;
    return fails ? Changed{0, text} : Changed{1, text + extension};
}

inline Changed undecorate(const Text& text)
{
    Text name = removeExtension(text).text;
    const Text extension = text.substr(name.size());
    if (!endsWith(name, L"]"))
        return {-1, text};
    name.pop_back();
    while (!name.empty() && name.back() >= L'0' && name.back() <= L'9')
        name.pop_back();
    if (!endsWith(name, L"["))
        return {-1, text};
    name.pop_back();
    return {-1, name + extension};
}

inline std::size_t argumentBlank(const Text& text)
{
    for (const std::size_t blank : placesOf(L' ', text)) {
        if (placesOf(L'"', text.substr(0, blank)).size() % 2 == 0)
            return blank;
    }
    return text.size();
}

inline long long getArgs(const Text& text)
{
    return static_cast<long long>(std::min(argumentBlank(text) + 1, text.size()));
}

inline Changed removeArgs(const Text& text) { return {-1, text.substr(0, argumentBlank(text))}; }

inline Changed removeBlanks(Text text)
{
    while (startsWith(text, L" "))
        text.erase(0, 1);
    while (endsWith(text, L" "))
        text.pop_back();
    return {-1, text};
}

inline Changed quoteSpaces(const Text& text)
{
    const bool fails = !contains(text, L" ") || text.size() + 2 > longest;
    return fails ? Changed{0, text} : Changed{1, L"\"" + text + L"\""};
}

inline Changed unquoteSpaces(const Text& text)
{
    const bool isQuoted = text.size() > 1 && startsWith(text, L"\"") && endsWith(text, L"\"");
    return isQuoted ? Changed{1, text.substr(1, text.size() - 2)} : Changed{0, text};
}

inline Changed parseIconLocation(const Text& text) { return {0, text}; }

inline Text split(const Text& text)
{
    if (text.size() > longest)
        return L"|||";
    const std::size_t nameStart = text.rfind(L'/') == none ? 0 : text.rfind(L'/') + 1;
    const Text name = text.substr(nameStart);
    const std::size_t stem = name.rfind(L'.') == none ? name.size() : name.rfind(L'.');
    return L"|" + text.substr(0, nameStart) + L"|" + name.substr(0, stem) + L"|" + name.substr(stem);
}

// ------------------------------------------------------------------------------------------------------------ joining

inline Text rootOf(const Text& text)
{
    if (startsWith(text, L"\\"))
        return L"\\";
    if (text.size() < 2 || text[1] != L':')
        return {};
    return startsWith(text.substr(2), L"\\") ? text.substr(0, 3) : text.substr(0, 2);
}

/// Without ".\" at the start and behind ":" and "\", and without a "." at the end in such a place.
inline Text withoutSingleDots(Text text)
{
    for (std::size_t place = 0; place < text.size();) {
        const bool isInPlace = place == 0 || text[place - 1] == L':' || text[place - 1] == L'\\';
        if (!isInPlace || text[place] != L'.')
            ++place;
        else if (place + 1 == text.size())
            text.resize(place > 0 && text[place - 1] == L'\\' ? place - 1 : place);
        else if (text[place + 1] == L'\\')
            text.erase(place, 2);
        else
            ++place;
    }
    return text;
}

inline std::size_t firstDoubleDot(const Text& text)
{
    std::size_t place = (text + L'\\').find(L"\\..\\");
    return place == none ? none : place + 1;
}

/// `head` is what stands before a "..", `tail` what stands behind it.
inline Text withoutDoubleDot(const Text& head, const Text& tail)
{
    const Text root = rootOf(head);
    std::vector<Text> components;
    Text rest = head.substr(root.size());
    while (!rest.empty()) {
        components.push_back(rest.substr(0, rest.find(L'\\')));
        rest.erase(0, components.back().size() + 1);
    }
    const bool isShare = isUnc(head) && components.size() == 3; // an empty one, the server, the share
    if (!isShare && !components.empty())
        components.pop_back();
    Text result = root;
    for (const Text& component : components)
        result += component + L"\\";
    if (tail.empty() && !components.empty())
        result.pop_back();
    return tail.empty() ? result : result + tail.substr(1);
}

inline Text canonical(const Text& text)
{
    Text result = withoutSingleDots(text);
    for (std::size_t dots; (dots = firstDoubleDot(result)) != none;)
        result = withoutDoubleDot(result.substr(0, dots), result.substr(dots + 2));
    const bool isDrive = result.size() == 2 && result[1] == L':';
    return result.empty() || isDrive ? result + L"\\" : result;
}

inline Changed canonicalize(const Text& text)
{
    const Text result = canonical(text);
    return result.size() > longest ? Changed{0, {}} : Changed{1, result};
}

inline Changed combine(const Text& directory, Text file)
{
    const auto cut = [](const Text& text) { return text.substr(0, longest); };
    if (directory.empty() || (!isRelative(file) && (!startsWith(file, L"\\") || isUnc(file))))
        return {1, canonical(cut(file))};
    if (file.empty())
        return {1, canonical(cut(directory))};
    Text base = cut(directory);
    if (!isRelative(file)) {
        base = stripToRoot(base).text;
        file.erase(0, 1);
    }
    base = addBackslash(base).text;
    return base.size() + file.size() > longest ? Changed{0, {}} : Changed{1, canonical(base + file)};
}

inline Changed append(const Text& path, const Text& more)
{
    Text file = more;
    while (!isUnc(more) && startsWith(file, L"\\"))
        file.erase(0, 1);
    return combine(path, file);
}

// ---------------------------------------------------------------------------------------------------------- comparing

inline Text folded(Text text)
{
    for (wchar_t& character : text)
        character = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
    return text;
}

inline long long commonLength(const Text& first, const Text& second)
{
    if (isUnc(first) != isUnc(second))
        return 0;
    for (std::size_t length = std::min(first.size(), second.size()); length > 0; --length) {
        const auto endsAtLength = [length](const Text& text) { return text.size() == length || text[length] == L'\\'; };
        if (folded(first.substr(0, length)) == folded(second.substr(0, length)) && endsAtLength(first)
            && endsAtLength(second))
            return length == 2 ? 3 : static_cast<long long>(length);
    }
    return 0;
}

inline Changed commonPrefix(const Text& first, const Text& second)
{
    const long long length = commonLength(first, second);
    if (length > static_cast<long long>(longest))
        return {0, {}};
    return {length, first.substr(0, static_cast<std::size_t>(length))};
}

inline bool isPrefix(const Text& prefix, const Text& path)
{
    return commonLength(path, prefix) == static_cast<long long>(prefix.size());
}

inline bool isSameRoot(const Text& first, const Text& second)
{
    const long long root = skipRoot(first);
    return root >= 0 && commonLength(first, second) >= root - 1;
}

} // namespace plain
