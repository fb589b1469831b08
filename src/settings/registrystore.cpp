#include "xewinreg.h"

#include "settings/filestamps.h"
#include "settings/inifile.h"
#include "settings/registrystore.h"
#include "text/widetext.h"
#include "xeafxstr.h"
#include "xeconvert.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <limits>
#include <new>
#include <optional>
#include <string_view>

namespace xe {

namespace {

QChar separated(QChar ch) { return ch == QLatin1Char('\\') ? QChar(QLatin1Char('/')) : ch; }

QChar separated(char ch) { return separated(QChar(QLatin1Char(ch))); }

template <class Name>
void join(QString& path, const QString& parent, const Name& name)
{
    path.resize(parent.size() + 1 + name.size());
    QChar* end = std::copy(parent.begin(), parent.end(), path.data());
    *end++ = QLatin1Char('/');
    std::transform(name.begin(), name.end(), end, [](auto ch) { return separated(ch); });
}

template <class Name>
QString joined(const QString& parent, const Name& name)
{
    QString path;
    join(path, parent, name);
    return path;
}

// ASCII passes the conversion as it is in any C locale. The conversion ends at a 0.
bool isPlain(std::uint32_t element) { return element - 1 < 0x7F; }

// The name that Qt gives to none.
QString organization()
{
    const QString name = QCoreApplication::organizationName();
    return name.isEmpty() ? QStringLiteral("Unknown Organization") : name;
}

} // namespace

RegistryStore g_appRegistry(organization(), QCoreApplication::applicationName());

// Goes ahead of the store. A value whose type the host is yet to register is left to Qt, which decodes it when somebody
// asks for it: its entries are also those of the host's own QSettings object of the same file.
class RegistryStore::FirstReader
{
public:
    FirstReader(const QString& organization, const QString& application)
    {
        const QString fileName = fileNameOf(organization, application);
        putHarmfulAside(fileName);
        if (!isForQt(fileName))
            return;
        const FileStamp stamp = stampOf(fileName);
        m_reader.emplace(IniFormat, UserScope, organization, application);
        if (m_reader->status() != AccessError)
            rememberRead(fileName, stamp);
    }

private:
    static QString fileNameOf(const QString& organization, const QString& application)
    {
        const QString name = QSettings(IniFormat, UserScope, organization).fileName();
        return application.isEmpty() ? name : name.chopped(4) + QLatin1Char('/') + application + QLatin1String(".ini");
    }

    std::optional<QSettings> m_reader; // which QSettings objects of the same file take over from
};

RegistryStore::RegistryStore(const QString& organization, const QString& application)
    : RegistryStore(FirstReader(organization, application), organization, application)
{}

RegistryStore::RegistryStore(const FirstReader&, const QString& organization, const QString& application)
    : IniSettings(organization, application)
{}

RegistryStore::~RegistryStore()
{
    try {
        sync();
    } catch (const std::bad_alloc&) { // nobody is left to tell
    }
}

void RegistryStore::setValue(const QString& path, const QVariant& value)
{
    forgetEntries();
    QSettings::setValue(path, value);
}

void RegistryStore::remove(const QString& path)
{
    forgetEntries();
    QSettings::remove(path);
}

void RegistryStore::sync()
{
    forgetEntries();
    IniSettings::sync();
}

bool RegistryStore::event(QEvent* event)
{
    if (event->type() == QEvent::UpdateRequest)
        forgetEntries();
    return IniSettings::event(event);
}

const QStringList& RegistryStore::entriesBelow(const QString& path, DWORD index)
{
    if (index == 0 || m_listedPath != path) {
        beginGroup(path);
        m_listedEntries = allKeys();
        endGroup();
        m_listedPath = path;
    }
    return m_listedEntries;
}

QVariant RegistryStore::entry(const QString& path, const QString& name) const
{
    return value(path + QLatin1Char('/') + name);
}

QVariant RegistryStore::valueBelow(const QString& path, QLatin1String name)
{
    join(m_path, path, name);
    return value(m_path);
}

void RegistryStore::forgetEntries()
{
    m_listedPath.clear();
    m_listedEntries.clear();
}

QString pathBelow(const QString& parent, const char* name) { return joined(parent, QLatin1String(name)); }

QString pathBelow(const QString& parent, const wchar_t* name) { return joined(parent, XeQString(name)); }

std::string multibyte(const wchar_t* text)
{
    const std::wstring_view wide(text ? text : L"");
    if (std::all_of(wide.begin(), wide.end(), [](wchar_t ch) { return isPlain(static_cast<std::uint32_t>(ch)); }))
        return std::string(wide.begin(), wide.end());
    return WideCharToMultiByte_X(std::wstring(wide), "chs");
}

std::string multibyte(const QString& text)
{
    if (!std::all_of(text.begin(), text.end(), [](QChar ch) { return isPlain(ch.unicode()); }))
        return WideCharToMultiByte_X(toWide(text), "chs");
    std::string bytes(static_cast<std::size_t>(text.size()), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar ch) { return ch.toLatin1(); });
    return bytes;
}

void deliver(const QString& text, wchar_t* buffer, DWORD* length)
{
    const std::wstring wide = toWide(text);
    writeWide(wide, buffer, std::numeric_limits<long long>::max());
    if (length)
        *length = static_cast<DWORD>(wide.size());
}

} // namespace xe
