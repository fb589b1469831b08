#include "xepath.h"

#include "text/folding.h"
#include "xestr.h"

#include <algorithm>
#include <cerrno>
#include <cwchar>
#include <optional>
#include <string>

namespace {

constexpr std::size_t longestPath = XE_MAX_PATH - 1;

// Of an initial "\", "X:" or "X:\".
std::size_t rootLength(const wchar_t* path)
{
    if (path[0] == L'\\')
        return 1;
    if (path[0] && path[1] == L':')
        return path[2] == L'\\' ? 3 : 2;
    return 0;
}

bool endsInSeparator(const std::wstring& path) { return !path.empty() && path.back() == L'\\'; }

bool endsBehindShare(const std::wstring& path)
{
    return PathIsUNC_X(path.c_str()) && PathSkipRoot_X(path.c_str()) == path.c_str() + path.size();
}

// Leaves the separator before the component. The path ends in the one behind it.
void removeLastComponent(std::wstring& path)
{
    const std::size_t root = rootLength(path.c_str());
    if (path.size() == root || endsBehindShare(path))
        return;
    const std::size_t behindSeparator = path.rfind(L'\\', path.size() - 2) + 1; // 0 without one
    path.resize(std::max(root, behindSeparator));
}

bool startsWithComponent(const wchar_t* text, const wchar_t* component)
{
    const std::size_t length = std::wcslen(component);
    return std::wcsncmp(text, component, length) == 0 && (!text[length] || text[length] == L'\\');
}

bool mayBeDot(const wchar_t* path, const wchar_t* place)
{
    return place == path || place[-1] == L'\\' || place[-1] == L':';
}

// Goes on behind the separator that ends a dropped component. At the end of the text the one before it goes, which
// canonical() gives back to a root.
const wchar_t* behindDropped(const wchar_t* end, std::wstring& result)
{
    if (*end)
        return end + 1;
    if (endsInSeparator(result))
        result.pop_back();
    return end;
}

std::wstring withoutDots(const wchar_t* path)
{
    std::wstring result(path, rootLength(path));
    const wchar_t* place = path + result.size();
    while (*place) {
        if (mayBeDot(path, place) && startsWithComponent(place, L".")) {
            place = behindDropped(place + 1, result);
        } else if (endsInSeparator(result) && startsWithComponent(place, L"..")) {
            removeLastComponent(result);
            place = behindDropped(place + 2, result);
        } else {
            result += *place++;
        }
    }
    return result;
}

std::wstring canonical(const wchar_t* path)
{
    std::wstring result = withoutDots(path);
    const bool isDrive = result.size() == 2 && result[1] == L':';
    if (result.empty() || isDrive)
        result += L'\\';
    return result;
}

std::wstring cutToLongest(const wchar_t* path) { return {path, wcsnlen(path, longestPath)}; }

bool standsForItself(const wchar_t* file) { return !PathIsRelative_X(file) && (*file != L'\\' || PathIsUNC_X(file)); }

// Nothing if that is too long.
std::optional<std::wstring> joined(const wchar_t* directory, const wchar_t* file)
{
    wchar_t base[XE_MAX_PATH + 1] = {}; // one more, as PathAddBackslash_X terminates no text of full length
    lstrcpyn_X(base, directory, XE_MAX_PATH);
    if (*file == L'\\') {
        PathStripToRoot_X(base);
        ++file;
    }
    PathAddBackslash_X(base);
    if (std::wcslen(base) + std::wcslen(file) > longestPath)
        return std::nullopt;
    return std::wstring(base) + file;
}

std::optional<std::wstring> combined(const wchar_t* directory, const wchar_t* file)
{
    if (!*directory || standsForItself(file))
        return cutToLongest(file);
    return *file ? joined(directory, file) : cutToLongest(directory);
}

bool endsComponent(wchar_t ch) { return ch == L'\\' || ch == L'\0'; }

int commonLength(const wchar_t* first, const wchar_t* second)
{
    if (!first || !second || PathIsUNC_X(first) != PathIsUNC_X(second))
        return 0;
    int length = 0;
    for (int place = 0;; ++place) {
        if (endsComponent(first[place]) && endsComponent(second[place]))
            length = place;
        if (!first[place] || xe::upperCase(first[place]) != xe::upperCase(second[place]))
            return length == 2 ? 3 : length;
    }
}

} // namespace

BOOL PathCanonicalize_X(wchar_t* out, const wchar_t* path)
{
    if (!out || !path) {
        errno = ERROR_INVALID_PARAMETER;
        return 0;
    }
    const std::wstring result = canonical(path);
    const bool fits = result.size() <= longestPath;
    lstrcpy_X(out, fits ? result.c_str() : L"");
    return fits;
}

wchar_t* PathCombine_X(wchar_t* out, const wchar_t* directory, const wchar_t* file)
{
    if (!out)
        return nullptr;
    std::optional<std::wstring> path;
    if (directory || file)
        path = combined(directory ? directory : L"", file ? file : L"");
    if (!path) {
        *out = L'\0';
        return nullptr;
    }
    PathCanonicalize_X(out, path->c_str());
    return out;
}

BOOL PathAppend_X(wchar_t* path, const wchar_t* more)
{
    if (!path || !more)
        return 0;
    const bool hasSeparator = *more == L'\\' && !PathIsUNC_X(more);
    return PathCombine_X(path, path, hasSeparator ? more + 1 : more) != nullptr;
}

int PathCommonPrefix_X(const wchar_t* first, const wchar_t* second, wchar_t* out)
{
    const int length = commonLength(first, second);
    if (!out)
        return length;
    const int written = length < XE_MAX_PATH ? length : 0;
    lstrcpyn_X(out, first, written + 1);
    return written;
}

BOOL PathIsPrefix_X(const wchar_t* prefix, const wchar_t* path)
{
    return prefix && path && static_cast<std::size_t>(PathCommonPrefix_X(path, prefix, nullptr)) == std::wcslen(prefix);
}

BOOL PathIsSameRoot_X(const wchar_t* first, const wchar_t* second)
{
    const wchar_t* const behindRoot = PathSkipRoot_X(first);
    const int separator = 1; // that of the root, which need not follow in the second path
    return behindRoot && PathCommonPrefix_X(first, second, nullptr) + separator >= behindRoot - first;
}
