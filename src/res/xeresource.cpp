#include "xeresource.h"

#include "geometry/lightgrey.h"
#include "res/callingmodule.h"
#include "text/widetext.h"
#include "xeafxstr.h"

#include <QFile>
#include <QImage>
#include <QSettings>
#include <QStringList>

#include <unwind.h>

namespace {

constexpr int mostFrames = 16;

struct StackWalk
{
    int frames = 0;
    const xe::Module* module = nullptr;
};

_Unwind_Reason_Code visitFrame(_Unwind_Context* context, void* data)
{
    auto& walk = *static_cast<StackWalk*>(data);
    walk.module = &xe::moduleAt(reinterpret_cast<void*>(_Unwind_GetIP(context)));
    const bool decided = !walk.module->isOwn || ++walk.frames == mostFrames;
    return decided ? _URC_NORMAL_STOP : _URC_NO_REASON;
}

// The table of the calling module from a cache; an empty one is read from the resource tree again.
template <class Key, class ToKey>
QMap<Key, QString>& moduleTable(QMap<QString, QMap<Key, QString>>& cache, const QString& module, const char* suffix,
                                ToKey toKey)
{
    QMap<Key, QString>& table = cache[module];
    if (table.isEmpty()) {
        const QString path = QStringLiteral(":/%1/%1%2").arg(module, QLatin1String(suffix));
        if (QFile::exists(path)) {
            QSettings file(path, QSettings::IniFormat);
            file.setIniCodec("UTF-8");
            const QStringList keys = file.allKeys();
            for (const QString& key : keys)
                table[toKey(key)] = file.value(key).toString();
        }
    }
    return table;
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
    StackWalk walk;
    _Unwind_Backtrace(visitFrame, &walk);
    return walk.module ? walk.module->name : QString();
}

namespace {

QMap<unsigned int, QString>& idTable(const QString& module)
{
    static QMap<QString, QMap<unsigned int, QString>> mapResIDMap;
    return moduleTable(mapResIDMap, module, "IDs", [](const QString& key) { return key.toUInt(); });
}

} // namespace

QMap<unsigned int, QString>& GetResourceIDMap() { return idTable(GetPlxResourceName()); }

QMap<QString, QString>& GetStringResourceTable()
{
    static QMap<QString, QMap<QString, QString>> mapStringTable;
    return moduleTable(mapStringTable, GetPlxResourceName(), "ST", [](const QString& key) { return key; });
}

QString GetObjectNameById(int id)
{
    // A caller outside of this library decides at once, without a walk.
    const xe::Module& caller = xe::moduleAt(__builtin_return_address(0));
    return (caller.isOwn ? GetResourceIDMap() : idTable(caller.name)).value(static_cast<unsigned int>(id));
}

QString ToStringId(unsigned int id) { return GetResourceIDMap().value(id); }

int ToCtrlId(const QString& name) { return static_cast<int>(GetResourceIDMap().key(name, 0)); }

QString GetResourceStringById(unsigned int id)
{
    const QString name = GetResourceIDMap().value(id);
    return name.isEmpty() ? QString() : GetStringResourceTable().value(name);
}

BOOL CString_X::LoadString(unsigned int id)
{
    const QString text = GetResourceStringById(id);
    if (text.isEmpty())
        return FALSE;
    *this = text;
    return TRUE;
}

int LoadString_X(void*, unsigned int id, wchar_t* buffer, int capacity)
{
    return xe::writeWide(GetResourceStringById(id), buffer, capacity);
}

QPixmap LoadBitmap_X(const wchar_t* path)
{
    const QImage image = QImage(XeQString(path)).convertToFormat(QImage::Format_RGBA8888);
    return xe::withoutLightGrey(QPixmap::fromImage(image));
}

void* AfxGetResourceHandle_X() { return nullptr; }

void AfxSetResourceHandle_X(void*) {}
