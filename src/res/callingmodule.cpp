#include "res/callingmodule.h"

#include "xeresource.h"

#include <QFile>

#include <dlfcn.h>
#include <link.h>

#include <string>
#include <unordered_map>

namespace xe {

namespace {

const link_map* linkMapAt(void* address)
{
#if __GLIBC_PREREQ(2, 35)
    dl_find_object found; // neither locks nor looks at symbols
    return _dl_find_object(address, &found) == 0 ? found.dlfo_link_map : nullptr;
#else
    Dl_info info;
    void* map = nullptr;
    return dladdr1(address, &info, &map, RTLD_DL_LINKMAP) ? static_cast<link_map*>(map) : nullptr;
#endif
}

// The file as a stack trace names it: the program by the name that it was started with, and code that no module holds
// by its address.
QString fileAt(void* address)
{
    Dl_info info;
    if (dladdr(address, &info) && info.dli_fname && *info.dli_fname)
        return QFile::decodeName(info.dli_fname);
    return QStringLiteral("[0x%1]").arg(reinterpret_cast<quintptr>(address), 0, 16);
}

Module moduleOf(const QString& file)
{
    const QString name = moduleName(file);
    return {name, isCurrentLibrary(name)};
}

} // namespace

QString moduleName(const QString& file)
{
    const QString name = file.mid(file.lastIndexOf(QLatin1Char('/')) + 1);
    return name.left(name.indexOf(QLatin1Char('.')));
}

// A module's name follows from its path alone, so an entry is right as long as the path is the one it was made for.
const Module& moduleAt(void* address)
{
    struct Entry
    {
        std::string path;
        Module module;
    };
    static std::unordered_map<const link_map*, Entry> modules;

    const link_map* const map = linkMapAt(address);
    const char* const path = map && map->l_name ? map->l_name : "";
    const auto known = modules.find(map);
    if (known != modules.end() && map && known->second.path == path)
        return known->second.module;
    Entry& entry = modules[map];
    entry = {path, moduleOf(fileAt(address))};
    return entry.module;
}

} // namespace xe
