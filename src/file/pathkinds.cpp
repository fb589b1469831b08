#include "xepath.h"

#include "text/utf8.h"
#include "xeafxstr.h"
#include "xeconvert.h"

#include <QDir>
#include <QUrl>

#include <algorithm>
#include <cerrno>
#include <cwchar>
#include <string_view>

#include <sys/stat.h>

namespace {

bool statFolder(const char* path, struct stat* status) { return stat(path, status) == 0 && S_ISDIR(status->st_mode); }

// What follows the first "://" from that mark's second element on; null without the mark.
const wchar_t* behindSchemeColon(const wchar_t* path)
{
    const wchar_t* const mark = path ? std::wcsstr(path, L"://") : nullptr;
    return mark ? mark + 1 : nullptr;
}

// QString::toLower makes two elements of U+0130, for which the caller may have no room; here it stays.
wchar_t toLower(wchar_t ch)
{
    const auto code = static_cast<uint>(ch);
    return code <= QChar::LastValidCodePoint ? static_cast<wchar_t>(QChar::toLower(code)) : ch;
}

bool isOneOf(wchar_t ch, std::wstring_view characters) { return characters.find(ch) != characters.npos; }

} // namespace

BOOL PathIsUNC_X(const wchar_t* path) { return path && path[0] == L'\\' && path[1] == L'\\'; }

BOOL PathIsFileSpec_X(const wchar_t* path) { return path && !std::wcspbrk(path, L"\\:"); }

BOOL PathIsRelative_X(const wchar_t* path) { return !path || !*path || (*path != L'\\' && path[1] != L':'); }

BOOL PathFileExists_X(const wchar_t* path)
{
    const XeQString name(path);
    const bool exists = !name.isEmpty() && QDir().exists(name);
    errno = ENOENT;
    return exists;
}

BOOL PathIsDirectory(const wchar_t* path)
{
    struct stat status;
    return path && statFolder(WideCharToMultiByte_X(path, "chs").c_str(), &status);
}

BOOL PathIsDirectoryEmpty_X(const wchar_t* path)
{
    return path && QDir(XeQString(path)).isEmpty(QDir::NoDotAndDotDot | QDir::AllEntries);
}

BOOL PathIsRoot_X(const wchar_t* path)
{
    constexpr ino_t topInode = 2;
    const auto name = path ? xe::encodeUtf8(path) : nullptr;
    struct stat status;
    return name && statFolder(name.get(), &status) && status.st_ino == topInode;
}

BOOL PathIsURL_X(const wchar_t* path) { return QUrl(XeQString(path)).isValid(); }

BOOL PathIsUNCServer_X(const wchar_t* path)
{
    const wchar_t* const slashes = behindSchemeColon(path);
    return slashes && !std::wcschr(slashes + 2, L'/');
}

BOOL PathIsUNCServerShare_X(const wchar_t* path)
{
    const wchar_t* const slashes = behindSchemeColon(path);
    return slashes && std::wcschr(slashes, L'/');
}

BOOL PathIsLFNFileSpec_X(const wchar_t* name)
{
    if (!name)
        return 0;
    const std::wstring_view whole = name;
    const std::wstring_view stem = whole.substr(0, whole.find(L'.'));
    const std::wstring_view extension = whole.substr(std::min(stem.size() + 1, whole.size()));
    return stem.size() > 8 || extension.size() > 3 || whole.find(L' ') != whole.npos
           || extension.find(L'.') != extension.npos;
}

BOOL PathMakePretty_X(wchar_t* path)
{
    if (!path)
        return 0;
    std::transform(path, path + std::wcslen(path), path, toLower);
    return 1;
}

UINT PathGetCharType_X(wchar_t character)
{
    if (character < L' ' || isOneOf(character, L"\"/<>|"))
        return GCT_INVALID;
    if (isOneOf(character, L"*?"))
        return GCT_WILD;
    if (isOneOf(character, L":\\"))
        return GCT_SEPARATOR;
    return isOneOf(character, L" ,;") ? GCT_LFNCHAR : GCT_LFNCHAR | GCT_SHORTCHAR;
}
