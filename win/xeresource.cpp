#include "xeresource.h"

#include <QSettings>
#include <QStringList>

#include <execinfo.h>

#include <cstdlib>
#include <memory>

namespace {

// "/opt/lib/libFoo.so.1(+0x12) [0x7f..]" is of the module "libFoo".
QString moduleOfFrame(const char* symbol)
{
    QString text = QString::fromLocal8Bit(symbol);
    const int bracket = text.lastIndexOf(QLatin1Char('('));
    if (bracket >= 0)
        text.truncate(bracket);
    text.remove(0, text.lastIndexOf(QLatin1Char('/')) + 1);
    const int dot = text.indexOf(QLatin1Char('.'));
    if (dot >= 0)
        text.truncate(dot);
    return text;
}

} // namespace

bool isCurrentLibrary(const QString& module)
{
    static const QStringList own{
        QStringLiteral("XeMFCEmu"),    QStringLiteral("XeHostEmu"),    QStringLiteral("XeCustomUI"),
        QStringLiteral("libXeMFCEmu"), QStringLiteral("libXeHostEmu"), QStringLiteral("libXeCustomUI"),
    };
    return own.contains(module);
}

QString GetPlxResourceName()
{
    void* addresses[16];
    const int count = backtrace(addresses, 16);
    const std::unique_ptr<char*, decltype(&std::free)> symbols(backtrace_symbols(addresses, count), &std::free);
    QString module;
    bool inside = false; // a sanitizer's own backtrace() stands before the library's frames
    for (int i = 0; symbols && i < count; ++i) {
        module = moduleOfFrame(symbols.get()[i]);
        const bool own = isCurrentLibrary(module);
        if (inside && !own)
            break;
        inside = inside || own;
    }
    return module;
}

QMap<unsigned int, QString>& GetResourceIDMap()
{
    static QMap<QString, QMap<unsigned int, QString>> mapResIDMap;
    const QString module = GetPlxResourceName();
    QMap<unsigned int, QString>& table = mapResIDMap[module];
    if (table.isEmpty()) {
        QSettings file(QStringLiteral(":/%1/%1IDs").arg(module), QSettings::IniFormat);
        file.setIniCodec("UTF-8");
        const QStringList keys = file.allKeys();
        for (const QString& key : keys)
            table[key.toUInt()] = file.value(key).toString();
    }
    return table;
}

QString GetObjectNameById(int id) { return GetResourceIDMap().value(static_cast<unsigned int>(id)); }

QString ToStringId(unsigned int id) { return GetResourceIDMap().value(id); }

int ToCtrlId(const QString& name) { return static_cast<int>(GetResourceIDMap().key(name, 0)); }
