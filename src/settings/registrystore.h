// The store behind the registry functions, and the paths of its entries.
#pragma once

#include "settings/inisettings.h"
#include "xewinreg.h"

#include <QStringList>

#include <cstdint>
#include <string>

namespace xe {

// The one file of all keys, with a memory of the key that is being enumerated.
//
// A loop over a key asks for its entries once an index, and listing them takes as long as there are entries. So the
// list of the last key is kept: until something is changed through the functions below, until QSettings writes and
// reads its file by itself, and until index 0 is asked for, since other QSettings objects of the process may have the
// same file and share their changes with this one unseen.
class RegistryStore : public IniSettings
{
public:
    /// The file of an organisation and an application in the user's configuration folder. A file with entries that
    /// would bring Qt down is put aside first.
    RegistryStore(const QString& organization, const QString& application);

    /// Writes what has not been written yet.
    ~RegistryStore() override;

    void setValue(const QString& path, const QVariant& value);
    void remove(const QString& path);
    void sync();

    // Every entry at any depth below a key, by its path from there.
    const QStringList& entriesBelow(const QString& path, DWORD index = 0);
    QVariant entry(const QString& path, const QString& name) const;

    // What pathBelow() leads to, without an allocation for the path.
    QVariant valueBelow(const QString& path, QLatin1String name);

protected:
    bool event(QEvent* event) override;

private:
    class FirstReader;
    RegistryStore(const FirstReader& reader, const QString& organization, const QString& application);

    void forgetEntries();

    QString m_path; // of the last value asked for
    QString m_listedPath;
    QStringList m_listedEntries;
};

extern RegistryStore g_appRegistry;

// What the action makes of an opened key's path; ERROR_INVALID_HANDLE for null and for the predefined keys, which are
// numbers where no address can be.
template <class Action>
LSTATUS atKey(HKEY key, Action action)
{
    constexpr std::uintptr_t firstPredefined = 0xFFFFFFFF80000000;
    return key && reinterpret_cast<std::uintptr_t>(key) < firstPredefined ? action(*key) : ERROR_INVALID_HANDLE;
}

// The path of a name below another path, "\" in the name counting as "/". 8-bit names are Latin-1.
QString pathBelow(const QString& parent, const char* name);
QString pathBelow(const QString& parent, const wchar_t* name);

// A text in the encoding of the C locale, up to its first 0. Empty when the encoding cannot hold it.
std::string multibyte(const wchar_t* text);
std::string multibyte(const QString& text);

// A whole text as wide elements without a terminator, and their number.
void deliver(const QString& text, wchar_t* buffer, DWORD* length);

} // namespace xe
