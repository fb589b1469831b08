#include "xeprofile.h"

#include "settings/inisettings.h"
#include "settings/inivalue.h"
#include "text/namelist.h"
#include "text/widetext.h"
#include "xeafxstr.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

#include <unistd.h>

using xe::IniSettings;

namespace {

bool exists(const wchar_t* file) { return waccess(file, F_OK) == 0; }

QString pathOf(const wchar_t* section, const QString& key) { return XeQString(section) + QLatin1Char('/') + key; }

template <class Operation>
void change(const wchar_t* file, Operation operation)
{
    IniSettings profile(XeQString{file});
    operation(profile);
    profile.sync();
}

// Such a value is as if it were not there.
bool isHarmful(const QVariant& value)
{
    return value.userType() == qMetaTypeId<xe::SealedValue>() && value.value<xe::SealedValue>().isHarmful;
}

QVariant entry(const wchar_t* section, const wchar_t* key, const QVariant& otherwise, const wchar_t* file)
{
    const IniSettings profile(XeQString{file});
    const QVariant value = profile.value(pathOf(section, XeQString(key)), otherwise);
    return isHarmful(value) ? otherwise : value;
}

QStringList entries(const wchar_t* section, const wchar_t* file)
{
    IniSettings profile(XeQString{file});
    profile.beginGroup(XeQString(section));
    QStringList lines;
    for (const QString& key : profile.childKeys()) {
        const QVariant value = profile.value(key);
        if (!isHarmful(value))
            lines += QStringLiteral("%1=%2\r").arg(key, value.toString());
    }
    return lines;
}

} // namespace

UINT GetPrivateProfileInt_X(const wchar_t* section, const wchar_t* key, int defaultValue, const wchar_t* file)
{
    return static_cast<UINT>(entry(section, key, defaultValue, file).toInt());
}

DWORD GetPrivateProfileString_X(const wchar_t* section, const wchar_t* key, const wchar_t* defaultText, wchar_t* buffer,
                                DWORD, const wchar_t* file)
{
    if (!buffer)
        return 0;
    const QString text = entry(section, key, XeQString(defaultText), file).toString();
    const std::wstring wide = xe::toWide(text);
    buffer[wide.copy(buffer, wide.size())] = L'\0';
    return static_cast<DWORD>(text.size());
}

DWORD GetPrivateProfileSection_X(const wchar_t* section, wchar_t* buffer, DWORD size, const wchar_t* file)
{
    if (!buffer)
        return 0;
    DWORD offset = 0;
    const QStringList lines = entries(section, file);
    for (const QString& line : lines) {
        const std::wstring wide = xe::toWide(line);
        xe::writeWide(wide, buffer + offset, size - offset);
        offset += static_cast<DWORD>(wide.size());
        if (offset > size)
            return std::max<DWORD>(size, 2) - 2;
    }
    return offset;
}

DWORD GetPrivateProfileSectionNames_X(wchar_t* buffer, DWORD size, const wchar_t* file)
{
    return xe::writeNameList(IniSettings(XeQString{file}).childGroups(), buffer, size);
}

BOOL GetPrivateProfileStruct_X(const wchar_t* section, const wchar_t* key, void* buffer, UINT size, const wchar_t* file)
{
    const QByteArray bytes = entry(section, key, QVariant(), file).toByteArray();
    if (!buffer || bytes.isEmpty())
        return FALSE;
    char* const end = std::copy_n(bytes.constData(), std::min<qint64>(size, bytes.size()), static_cast<char*>(buffer));
    std::fill(end, static_cast<char*>(buffer) + size, '\0');
    return TRUE;
}

BOOL WritePrivateProfileString_X(const wchar_t* section, const wchar_t* key, const wchar_t* value, const wchar_t* file)
{
    if (!exists(file))
        return FALSE;
    change(file, [&](IniSettings& profile) {
        profile.beginGroup(XeQString(section));
        profile.setValue(XeQString(key), XeQString(value));
        profile.endGroup();
    });
    return TRUE;
}

BOOL WritePrivateProfileStruct_X(const wchar_t* section, const wchar_t* key, const void* data, UINT size,
                                 const wchar_t* file)
{
    if (!exists(file) || size > std::numeric_limits<int>::max())
        return FALSE;
    const QByteArray bytes(static_cast<const char*>(data), static_cast<int>(size));
    change(file, [&](IniSettings& profile) { profile.setValue(pathOf(section, XeQString(key)), bytes); });
    return TRUE;
}

BOOL WritePrivateProfileSection_X(const wchar_t* section, const wchar_t* text, const wchar_t* file)
{
    if (!exists(file))
        return FALSE;
    const QStringList lines = XeQString(text).split(QLatin1Char('\r'));
    change(file, [&](IniSettings& profile) {
        for (const QString& line : lines) {
            QStringList parts = line.split(QLatin1Char('='));
            if (parts.size() == 2)
                profile.setValue(pathOf(section, parts[0]), parts[1].remove(QLatin1Char('"')));
        }
    });
    return TRUE;
}

int waccess(const wchar_t* path, int mode)
{
    std::array<char, 1024> bytes;
    if (!path || std::wcstombs(bytes.data(), path, bytes.size()) >= bytes.size()) // -1 is above all sizes
        return -1;
    return access(bytes.data(), mode);
}
