#include "xepath.h"

#include "xestr.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <utility>

namespace {

constexpr const wchar_t* separators = L"/\\";

wchar_t* separatorBehindFirstElement(const wchar_t* path)
{
    return path && *path ? const_cast<wchar_t*>(std::wcspbrk(path + 1, separators)) : nullptr;
}

wchar_t* separatorBehindShare(const wchar_t* path)
{
    const wchar_t* const behindServer = StrChr_X(path + 2, L'\\');
    return behindServer ? StrChr_X(behindServer + 1, L'\\') : nullptr;
}

bool isSeparator(wchar_t ch) { return ch == L'/' || ch == L'\\'; }

// Whether that changes the text.
bool cutAt(wchar_t* place) { return std::exchange(*place, L'\0') != L'\0'; }

bool endsInSlash(const wchar_t* path, std::size_t length) { return length > 0 && path[length - 1] == L'/'; }

} // namespace

BOOL PathRemoveFileSpec_X(wchar_t* path)
{
    wchar_t* const separator = separatorBehindFirstElement(path);
    return separator && cutAt(separator);
}

BOOL PathStripToRoot_X(wchar_t* path)
{
    wchar_t* const separator = separatorBehindFirstElement(path);
    return path && cutAt(separator ? separator + 1 : path);
}

void PathStripPath_X(wchar_t* path) { lstrcpy_X(path, PathFindFileName_X(path)); }

wchar_t* PathFindFileName_X(const wchar_t* path)
{
    const wchar_t* name = path;
    while (const wchar_t* const next = PathFindNextComponent_X(name)) {
        if (next == name)
            break;
        name = next;
    }
    return const_cast<wchar_t*>(name);
}

wchar_t* PathFindNextComponent_X(const wchar_t* path)
{
    const wchar_t* const separator = path ? std::wcspbrk(path, separators) : nullptr;
    return const_cast<wchar_t*>(separator ? separator + 1 : path);
}

wchar_t* PathSkipRoot_X(const wchar_t* path)
{
    wchar_t* const separator = PathIsUNC_X(path) ? separatorBehindShare(path) : separatorBehindFirstElement(path);
    return separator ? separator + 1 : nullptr;
}

BOOL PathIsNetworkPath_X(const wchar_t* path) { return path && isSeparator(path[0]) && isSeparator(path[1]); }

wchar_t* PathAddBackslash_X(wchar_t* path)
{
    if (!path)
        return nullptr;
    const std::wstring result = endsInSlash(path, std::wcslen(path)) ? path : path + std::wstring(L"/");
    if (result.size() > XE_MAX_PATH)
        return nullptr;
    std::wmemcpy(path, result.c_str(), std::min<std::size_t>(result.size() + 1, XE_MAX_PATH));
    return path;
}

wchar_t* PathRemoveBackslash_X(wchar_t* path)
{
    if (path && endsInSlash(path, std::wcslen(path))) {
        std::wstring rest = path;
        rest.erase(std::remove(rest.begin(), rest.end(), L'/'), rest.end());
        rest.copy(path, rest.size());
    }
    return path;
}
