#include "xewinreg.h"

#include "settings/registrystore.h"
#include "text/widetext.h"

#include <QMap>
#include <QVariant>

#include <algorithm>
#include <iterator>

using xe::atKey;
using xe::deliver;
using xe::g_appRegistry;
using xe::multibyte;
using xe::pathBelow;

namespace {

struct Root
{
    HKEY key;
    const char* name;
};

const Root roots[] = {
    {HKEY_CLASSES_ROOT, "HKEY_CLASSES_ROOT"},
    {HKEY_CURRENT_USER, "HKEY_CURRENT_USER"},
    {HKEY_LOCAL_MACHINE, "HKEY_LOCAL_MACHINE"},
    {HKEY_USERS, "HKEY_USERS"},
    {HKEY_PERFORMANCE_DATA, "HKEY_PERFORMANCE_DATA"},
    {HKEY_PERFORMANCE_TEXT, "HKEY_PERFORMANCE_TEXT"},
    {HKEY_PERFORMANCE_NLSTEXT, "HKEY_PERFORMANCE_NLSTEXT"},
    {HKEY_CURRENT_CONFIG, "HKEY_CURRENT_CONFIG"},
    {HKEY_DYN_DATA, "HKEY_DYN_DATA"},
    {HKEY_CURRENT_USER_LOCAL_SETTINGS, "HKEY_CURRENT_USER_LOCAL_SETTINGS"},
};

LSTATUS openKey(HKEY parent, const char* subKey, PHKEY out, LSTATUS failure)
{
    const auto root =
        std::find_if(std::begin(roots), std::end(roots), [=](const Root& row) { return row.key == parent; });
    if (root == std::end(roots))
        return failure;
    const QString path = QLatin1String(root->name);
    if (out)
        *out = new QString(subKey && *subKey ? pathBelow(path, subKey) : path);
    return ERROR_SUCCESS;
}

LSTATUS removeTree(HKEY key, const wchar_t* subKey)
{
    return atKey(key, [=](const QString& path) {
        g_appRegistry.remove(pathBelow(path, subKey));
        return ERROR_SUCCESS;
    });
}

void copyEntry(const QString& source, const QString& destination)
{
    const QVariant value = g_appRegistry.value(source);
    if (value.isValid())
        g_appRegistry.setValue(destination, value);
}

void copyEntries(const QString& source, const QString& destination)
{
    QMap<QString, QVariant> values;
    g_appRegistry.beginGroup(source);
    const QStringList names = g_appRegistry.childKeys();
    g_appRegistry.endGroup();
    for (const QString& name : names)
        values.insert(name, g_appRegistry.entry(source, name));
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        g_appRegistry.setValue(destination + QLatin1Char('/') + value.key(), value.value());
}

// Delivers the text that `textOf` has for the entry at an index, given the key's path and the entry's name.
template <class TextOf>
LSTATUS enumerate(HKEY key, DWORD index, wchar_t* buffer, DWORD* length, TextOf textOf)
{
    return atKey(key, [=](const QString& path) {
        const QStringList& entries = g_appRegistry.entriesBelow(path, index);
        if (index >= static_cast<DWORD>(entries.size()))
            return ERROR_PATH_NOT_FOUND;
        deliver(textOf(path, entries[static_cast<int>(index)]), buffer, length);
        return ERROR_SUCCESS;
    });
}

DWORD wideLength(const QString& text) { return static_cast<DWORD>(xe::toWide(text).size()); }

void store(DWORD* out, DWORD value)
{
    if (out)
        *out = value;
}

} // namespace

// -------------------------------------------------------------------------------------------------- open and close

LSTATUS RegOpenKeyExA_X(HKEY parent, const char* subKey, DWORD, REGSAM, PHKEY out)
{
    return openKey(parent, subKey, out, ERROR_FILE_NOT_FOUND);
}

LSTATUS RegOpenKeyExW_X(HKEY parent, const wchar_t* subKey, DWORD options, REGSAM access, PHKEY out)
{
    return RegOpenKeyExA_X(parent, multibyte(subKey).c_str(), options, access, out);
}

LSTATUS RegOpenKeyA_X(HKEY parent, const char* subKey, PHKEY out) { return RegOpenKeyExA_X(parent, subKey, 0, 0, out); }

LSTATUS RegOpenKeyW_X(HKEY parent, const wchar_t* subKey, PHKEY out)
{
    return RegOpenKeyExW_X(parent, subKey, 0, 0, out);
}

LSTATUS RegCreateKeyExA_X(HKEY parent, const char* subKey, DWORD, char*, DWORD, REGSAM, const SECURITY_ATTRIBUTES*,
                          PHKEY out, DWORD*)
{
    return openKey(parent, subKey, out, ERROR_INVALID_HANDLE);
}

LSTATUS RegCreateKeyExW_X(HKEY parent, const wchar_t* subKey, DWORD, wchar_t*, DWORD, REGSAM,
                          const SECURITY_ATTRIBUTES*, PHKEY out, DWORD*)
{
    return openKey(parent, multibyte(subKey).c_str(), out, ERROR_INVALID_HANDLE);
}

LSTATUS RegCreateKey_X(HKEY parent, const wchar_t* subKey, PHKEY out)
{
    return RegCreateKeyExW_X(parent, subKey, 0, nullptr, 0, 0, nullptr, out, nullptr);
}

LSTATUS RegOpenCurrentUser_X(REGSAM access, PHKEY out)
{
    return RegOpenKeyExA_X(HKEY_CURRENT_USER, nullptr, 0, access, out);
}

LSTATUS RegOpenUserClassesRoot_X(HANDLE, DWORD options, REGSAM access, PHKEY out)
{
    return RegOpenKeyExA_X(HKEY_CLASSES_ROOT, nullptr, options, access, out);
}

LSTATUS RegCloseKey_X(HKEY key)
{
    return atKey(key, [](const QString& path) {
        delete &path;
        return ERROR_SUCCESS;
    });
}

LSTATUS RegFlushKey_X(HKEY)
{
    g_appRegistry.sync();
    return ERROR_SUCCESS;
}

LSTATUS RegDisablePredefinedCache_X() { return ERROR_SUCCESS; }

// ----------------------------------------------------------------------------------------- delete, rename and copy

LSTATUS RegDeleteKey_X(HKEY key, const wchar_t* subKey)
{
    return subKey ? removeTree(key, subKey) : ERROR_PATH_NOT_FOUND;
}

LSTATUS RegDeleteTree_X(HKEY key, const wchar_t* subKey) { return removeTree(key, subKey); }

LSTATUS RegDeleteKeyValue_X(HKEY key, const wchar_t* subKey, const wchar_t*) { return removeTree(key, subKey); }

LSTATUS RegRenameKey_X(HKEY key, const wchar_t* oldName, const wchar_t* newName)
{
    return atKey(key, [=](const QString& path) {
        const QString oldPath = pathBelow(path, oldName);
        const QString text = g_appRegistry.value(oldPath).toString();
        g_appRegistry.remove(oldPath);
        g_appRegistry.setValue(pathBelow(path, newName), text);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCopyTree_X(HKEY source, const wchar_t* subKey, HKEY destination)
{
    const auto copy = [=](const QString& from, const QString& to) {
        if (subKey)
            copyEntry(pathBelow(from, subKey), pathBelow(to, subKey));
        else
            copyEntries(from, to);
        return ERROR_SUCCESS;
    };
    return atKey(source, [&](const QString& from) {
        return atKey(destination, [&](const QString& to) { return copy(from, to); });
    });
}

// ---------------------------------------------------------------------------------------------------- enumeration

LSTATUS RegEnumKeyEx_X(HKEY key, DWORD index, wchar_t* name, DWORD* length, DWORD*, wchar_t*, DWORD*, FILETIME*)
{
    return enumerate(key, index, name, length, [](const QString&, const QString& entry) { return entry; });
}

LSTATUS RegEnumKey_X(HKEY key, DWORD index, wchar_t* name, DWORD* length)
{
    return RegEnumKeyEx_X(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
}

LSTATUS RegEnumValue_X(HKEY key, DWORD index, wchar_t* text, DWORD* length, DWORD*, DWORD*, void*, DWORD*)
{
    return enumerate(key, index, text, length, [](const QString& path, const QString& entry) {
        return g_appRegistry.entry(path, entry).toString();
    });
}

LSTATUS RegQueryInfoKey_X(HKEY key, wchar_t*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD*, DWORD* values,
                          DWORD* maxValueNameLength, DWORD* maxValueLength, DWORD*, FILETIME*)
{
    return atKey(key, [=](const QString& path) {
        const QStringList& entries = g_appRegistry.entriesBelow(path);
        DWORD longestName = 0;
        DWORD longestText = 0;
        for (const QString& name : entries) {
            longestName = std::max(longestName, wideLength(name));
            longestText = std::max(longestText, wideLength(g_appRegistry.entry(path, name).toString()));
        }
        store(values, static_cast<DWORD>(entries.size()));
        store(maxValueNameLength, longestName);
        store(maxValueLength, longestText);
        return ERROR_SUCCESS;
    });
}
