#include "xemodule.h"

#include "kernel/executablepath.h"
#include "text/utf8.h"
#include "text/widetext.h"

#include <cwchar>

#include <dlfcn.h>
#include <link.h>

namespace {

QString fileNameOf(HMODULE module)
{
    const link_map* map = nullptr;
    return dlinfo(module, RTLD_DI_LINKMAP, &map) == 0 ? QString::fromUtf8(map->l_name) : QString();
}

} // namespace

HMODULE LoadLibrary_X(const wchar_t* path)
{
    // The C library takes an empty name for the program itself.
    const auto narrow = xe::encodeUtf8(path ? path : L"");
    return narrow && narrow[0] ? dlopen(narrow.get(), RTLD_LAZY | RTLD_GLOBAL) : nullptr;
}

BOOL FreeLibrary_X(HMODULE module)
{
    if (module)
        dlclose(module);
    return TRUE;
}

HMODULE GetModuleHandle_X(const wchar_t* path)
{
    const HMODULE module = LoadLibrary_X(path);
    FreeLibrary_X(module);
    return module;
}

FARPROC GetProcAddress_X(HMODULE module, const char* name) { return name ? dlsym(module, name) : nullptr; }

DWORD GetModuleFileName_X(HMODULE module, wchar_t* buffer, DWORD capacity)
{
    if (!buffer)
        return 0;
    std::wmemset(buffer, L'\0', capacity);
    const QString name = module ? fileNameOf(module) : xe::executablePath();
    return xe::writeWide(name, buffer, capacity) > 0;
}
