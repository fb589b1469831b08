#include "xewinreg.h"

#include "settings/registrystore.h"
#include "text/widetext.h"
#include "xeafxstr.h"
#include "xeconvert.h"

#include <QVariant>

#include <cstring>

using xe::atKey;
using xe::deliver;
using xe::g_appRegistry;
using xe::multibyte;
using xe::pathBelow;

namespace {

QString textAt(const char* text) { return QString::fromLatin1(text); }

QString textAt(const wchar_t* text) { return XeQString(text); }

template <class Number>
QVariant numberAt(const void* data)
{
    if (!data)
        return {};
    Number number;
    std::memcpy(&number, data, sizeof number);
    return number;
}

// The form in which a value is kept, whose type is all there is to tell its Win32 type from. Invalid for the types that
// are not kept.
template <class Char>
QVariant keptValue(DWORD type, const void* data)
{
    switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
        return textAt(static_cast<const Char*>(data));
    case REG_DWORD:
        return numberAt<unsigned int>(data);
    case REG_QWORD:
        return numberAt<unsigned long long>(data);
    default:
        return {};
    }
}

template <class Char>
LSTATUS setValue(HKEY key, const Char* name, DWORD type, const void* data)
{
    return atKey(key, [=](const QString& path) {
        const QVariant value = keptValue<Char>(type, data);
        if (value.isValid())
            g_appRegistry.setValue(pathBelow(path, name), value);
        return ERROR_SUCCESS;
    });
}

// Where a query's answer goes; each may be null.
struct Answer
{
    DWORD* type;
    void* data;
    DWORD* size;

    void give(DWORD valueType, const void* bytes, std::size_t count) const
    {
        if (type)
            *type = valueType;
        if (data)
            std::memcpy(data, bytes, count);
        if (size)
            *size = static_cast<DWORD>(count);
    }

    template <class Number>
    void giveNumber(DWORD valueType, Number number) const
    {
        give(valueType, &number, sizeof number);
    }

    void giveText(const std::string& text) const { give(REG_SZ, text.c_str(), text.size() + 1); }
};

// Gives nothing for a name without a value.
void query(const QString& path, const char* name, const Answer& answer)
{
    const QVariant value = g_appRegistry.valueBelow(path, QLatin1String(name && *name ? name : "Default"));
    switch (value.userType()) {
    case QMetaType::UInt:
        answer.giveNumber(REG_DWORD, value.value<unsigned int>());
        break;
    case QMetaType::ULongLong:
        answer.giveNumber(REG_QWORD, value.value<unsigned long long>());
        break;
    case QMetaType::QString:
        answer.giveText(multibyte(*static_cast<const QString*>(value.constData())));
        break;
    }
}

// Gives the total length of the entries' texts, terminators included.
DWORD collectTexts(const QString& path, const value_entW* first, const value_entW* end, QStringList& texts)
{
    DWORD length = 0;
    for (const value_entW* entry = first; entry != end; ++entry) {
        texts += g_appRegistry.value(pathBelow(path, entry->ve_valuename)).toString();
        length += static_cast<DWORD>(xe::toWide(texts.last()).size()) + 1;
    }
    return length;
}

} // namespace

// --------------------------------------------------------------------------------------------------- writing values

LSTATUS RegSetValueExA_X(HKEY key, const char* name, DWORD, DWORD type, const void* data, DWORD)
{
    return setValue(key, name, type, data);
}

LSTATUS RegSetValueExW_X(HKEY key, const wchar_t* name, DWORD, DWORD type, const void* data, DWORD)
{
    return setValue(key, name, type, data);
}

LSTATUS RegSetValue_X(HKEY key, const wchar_t* subKey, DWORD type, const void* data, DWORD size)
{
    if (type != REG_SZ && type != REG_EXPAND_SZ)
        return ERROR_BAD_FORMAT;
    return RegSetValueExW_X(key, subKey, 0, type, data, size);
}

LSTATUS RegSetKeyValue_X(HKEY key, const wchar_t*, const wchar_t* name, DWORD type, const void* data, DWORD size)
{
    return RegSetValueExW_X(key, name, 0, type, data, size);
}

LSTATUS RegDeleteValue_X(HKEY key, const wchar_t* name) { return setValue(key, name, REG_SZ, L""); }

// -------------------------------------------------------------------------------------------------- reading values

LSTATUS RegQueryValueExA_X(HKEY key, const char* name, DWORD*, DWORD* type, void* data, DWORD* size)
{
    return atKey(key, [=](const QString& path) {
        query(path, name, {type, data, size});
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryValueExW_X(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, void* data, DWORD* size)
{
    return RegQueryValueExA_X(key, multibyte(name).c_str(), reserved, type, data, size);
}

LSTATUS RegQueryValueA_X(HKEY key, const char* name, char* data, LONG* size)
{
    DWORD count = 0;
    const LSTATUS result = RegQueryValueExA_X(key, name, nullptr, nullptr, nullptr, &count);
    if (result != ERROR_SUCCESS || count == 0)
        return result;
    if (size)
        *size = static_cast<LONG>(count);
    return RegQueryValueExA_X(key, name, nullptr, nullptr, data, nullptr);
}

LSTATUS RegQueryValueW_X(HKEY key, const wchar_t* name, wchar_t* data, LONG* size)
{
    const std::string narrowName = multibyte(name);
    LONG count = 0;
    const LSTATUS result = RegQueryValueA_X(key, narrowName.c_str(), nullptr, &count);
    if (result != ERROR_SUCCESS || count == 0)
        return result;
    std::string bytes(static_cast<std::size_t>(count), '\0');
    RegQueryValueA_X(key, narrowName.c_str(), bytes.data(), nullptr);
    const std::wstring wide = MultiByteToWideChar_X(bytes, "chs");
    const std::size_t halfSize = wide.size() * 2 + 2;
    if (data)
        std::memcpy(data, wide.c_str(), halfSize);
    if (size)
        *size = static_cast<LONG>(halfSize);
    return result;
}

LSTATUS RegGetValue_X(HKEY key, const wchar_t* subKey, const wchar_t*, DWORD, DWORD* type, void* data, DWORD* size)
{
    return RegQueryValueExW_X(key, subKey, nullptr, type, data, size);
}

LSTATUS RegQueryMultipleValues_X(HKEY key, value_entW* list, DWORD count, wchar_t* buffer, DWORD* total)
{
    return atKey(key, [=](const QString& path) {
        value_entW* const end = list ? list + count : list;
        QStringList texts;
        const DWORD length = collectTexts(path, list, end, texts);
        if (total)
            *total = length;
        if (!buffer)
            return ERROR_MORE_DATA;
        wchar_t* next = buffer;
        for (value_entW* entry = list; entry != end; ++entry) {
            QString& text = texts[static_cast<int>(entry - list)];
            deliver(text, next, &entry->ve_valuelen);
            entry->ve_type = REG_SZ;
            entry->ve_valueptr = text.data();
            next += entry->ve_valuelen + 1;
        }
        return ERROR_SUCCESS;
    });
}
