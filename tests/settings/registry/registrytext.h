#pragma once

#include <xewinreg.h>

#include <QFile>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <cstring>
#include <cwchar>
#include <string>
#include <utility>

/// An opened key for the length of a scope.
class Key
{
public:
    explicit Key(const char* subKey, HKEY root = HKEY_CURRENT_USER) { RegOpenKeyExA_X(root, subKey, 0, 0, &m_key); }
    ~Key() { RegCloseKey_X(m_key); }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    operator HKEY() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

/// What a data row does with a key.
using KeyCall = LSTATUS (*)(HKEY key);

Q_DECLARE_METATYPE(KeyCall)

/// What RegQueryValueExA_X gives, or a query of its kind, as one line: "REG_DWORD 4: 123", "REG_SZ 5: text"; "nothing"
/// when all outputs are as they were. The number in the middle is the size.
template <class Query>
QString answerOf(Query query)
{
    constexpr DWORD untouched = 0xABABABAB;
    DWORD type = untouched;
    DWORD size = untouched;
    std::string data(200000, '\x7F');
    if (const LSTATUS result = query(&type, data.data(), &size))
        return QStringLiteral("error %1").arg(result);
    const bool isUntouched = data.find_first_not_of('\x7F') == std::string::npos;
    if (type == untouched && size == untouched && isUntouched)
        return QStringLiteral("nothing");
    DWORD number = 0;
    quint64 longNumber = 0;
    std::memcpy(&number, data.data(), sizeof number);
    std::memcpy(&longNumber, data.data(), sizeof longNumber);
    switch (type) {
    case REG_SZ:
        return QStringLiteral("REG_SZ %1: %2").arg(size).arg(QString::fromUtf8(data.c_str()));
    case REG_DWORD:
        return QStringLiteral("REG_DWORD %1: %2").arg(size).arg(number);
    case REG_QWORD:
        return QStringLiteral("REG_QWORD %1: %2").arg(size).arg(longNumber);
    default:
        return QStringLiteral("type %1 with size %2").arg(type).arg(size);
    }
}

inline QString queried(HKEY key, const char* name)
{
    return answerOf(
        [&](DWORD* type, void* data, DWORD* size) { return RegQueryValueExA_X(key, name, nullptr, type, data, size); });
}

inline QString queried(HKEY key, const wchar_t* name)
{
    return answerOf(
        [&](DWORD* type, void* data, DWORD* size) { return RegQueryValueExW_X(key, name, nullptr, type, data, size); });
}

/// All that a function of the enumeration kind delivers from index 0 on, until it gives an error other than 0.
template <class Enumerate>
QStringList deliveredBy(Enumerate enumerate)
{
    QStringList texts;
    std::wstring buffer(200000, L'#');
    DWORD length = 0;
    for (DWORD index = 0; enumerate(index, buffer.data(), &length) == ERROR_SUCCESS; ++index)
        texts += QString::fromWCharArray(buffer.data(), static_cast<int>(length));
    return texts;
}

inline QStringList entriesOf(HKEY key)
{
    return deliveredBy([&](DWORD index, wchar_t* name, DWORD* length) {
        return RegEnumKeyEx_X(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
    });
}

inline QStringList textsOf(HKEY key)
{
    return deliveredBy([&](DWORD index, wchar_t* text, DWORD* length) {
        return RegEnumValue_X(key, index, text, length, nullptr, nullptr, nullptr, nullptr);
    });
}

inline void writeNumber(HKEY key, const wchar_t* name, DWORD number)
{
    RegSetValueExW_X(key, name, 0, REG_DWORD, &number, sizeof number);
}

inline void writeText(HKEY key, const wchar_t* name, const wchar_t* text)
{
    RegSetValueExW_X(key, name, 0, REG_SZ, text, 0);
}

/// Removes all that stands below the predefined keys which tests write to.
inline void emptyRegistry()
{
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT})
        RegDeleteTree_X(Key(nullptr, root), nullptr);
}

/// The file of a program named Acme, Draw.
inline QString registryFile() { return qEnvironmentVariable("XDG_CONFIG_HOME") + QLatin1String("/Acme/Draw.ini"); }

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
