#include "xepath.h"

#include "xeconvert.h"
#include "xestr.h"

#include <cwchar>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t longestPath = XE_MAX_PATH - 1;

// The first blank outside double quotes, or the end.
const wchar_t* endOfProgram(const wchar_t* path)
{
    bool isQuoted = false;
    for (; *path && (isQuoted || *path != L' '); ++path)
        isQuoted ^= *path == L'"';
    return path;
}

// Where the "[" of a name's bracketed digits stands; npos if the name does not end in those.
std::size_t decorationOf(std::wstring_view path)
{
    if (path.empty() || path.back() != L']')
        return path.npos;
    path.remove_suffix(1);
    const std::size_t bracket = path.find_last_not_of(L"0123456789");
    return bracket != path.npos && path[bracket] == L'[' ? bracket : path.npos;
}

} // namespace

wchar_t* PathGetArgs_X(const wchar_t* path)
{
    if (!path)
        return nullptr;
    const wchar_t* const end = endOfProgram(path);
    return const_cast<wchar_t*>(*end ? end + 1 : end);
}

void PathRemoveArgs_X(wchar_t* path)
{
    if (path)
        path[endOfProgram(path) - path] = L'\0';
}

void PathRemoveBlanks_X(wchar_t* path) { StrTrim_X(path, L" "); }

BOOL PathQuoteSpaces_X(wchar_t* path)
{
    if (!StrChr_X(path, L' '))
        return 0;
    const std::wstring quoted = L'"' + std::wstring(path) + L'"';
    if (quoted.size() > longestPath)
        return 0;
    lstrcpy_X(path, quoted.c_str());
    return 1;
}

BOOL PathUnquoteSpaces_X(wchar_t* path)
{
    const std::size_t length = path ? std::wcslen(path) : 0;
    if (length < 2 || path[0] != L'"' || path[length - 1] != L'"')
        return 0;
    path[length - 1] = L'\0';
    lstrcpy_X(path, path + 1);
    return 1;
}

int PathParseIconLocation_X(wchar_t*) { return 0; }

wchar_t* PathFindExtension_X(const wchar_t* path)
{
    if (!path)
        return nullptr;
    const wchar_t* dot = nullptr;
    for (; *path; ++path) {
        if (*path == L'.')
            dot = path;
        else if (std::wcschr(L" /\\", *path))
            dot = nullptr;
    }
    return const_cast<wchar_t*>(dot ? dot : path);
}

void PathRemoveExtension_X(wchar_t* path)
{
    if (path)
        *PathFindExtension_X(path) = L'\0';
}

BOOL PathAddExtension_X(wchar_t* path, const wchar_t* extension)
{
    return path && !*PathFindExtension_X(path) && PathRenameExtension_X(path, extension);
}

BOOL PathRenameExtension_X(wchar_t* path, const wchar_t* extension)
{
    if (!path || !extension)
        return 0;
    wchar_t* const place = PathFindExtension_X(path);
    if (static_cast<std::size_t>(place - path) + std::wcslen(extension) > longestPath)
        return 0;
    lstrcpy_X(place, extension);
    return 1;
}

void PathUndecorate_X(wchar_t* path)
{
    if (!path)
        return;
    const wchar_t* const extension = PathFindExtension_X(path);
    const std::size_t bracket = decorationOf({path, static_cast<std::size_t>(extension - path)});
    if (bracket != std::wstring_view::npos)
        lstrcpy_X(path + bracket, extension);
}

void _tsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* directory, wchar_t* name, wchar_t* extension)
{
    // A copy: the caller may split a path into its own buffer.
    const std::wstring whole = path && std::wcslen(path) <= longestPath ? path : L"";
    const std::size_t lastPart = whole.rfind(L'/') + 1; // 0 without a "/"
    if (drive)
        *drive = L'\0';
    if (directory)
        directory[whole.copy(directory, lastPart)] = L'\0';
    _split_whole_name(whole.c_str() + lastPart, name, extension);
}
