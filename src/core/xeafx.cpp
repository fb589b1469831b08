#include "xeafx.h"

#include "core/connections.h"
#include "core/objectlinks.h"
#include "xeresource.h"

#include <algorithm>
#include <utility>

CRuntimeClass_X CObject_X::s_classInfo(&CObject_X::staticMetaObject, CObject_X::GetImpMetaObject(),
                                       &QObject::staticMetaObject, &CObject_X::CreateObject,
                                       CObject_X::GetImpMetaList(), sizeof(CObject_X));

CObject_X::CObject_X() : QObject(nullptr) {}

CObject_X::~CObject_X() { Detach(); }

CObject_X* CObject_X::CreateObject() { return new CObject_X; }

CRuntimeClass_X* CObject_X::GetRuntimeClass() const { return &s_classInfo; }

QObject* CObject_X::SetImpQObject(QObject* imp) { return std::exchange(m_imp, imp); }

void CObject_X::SetTemporary()
{
    setFlag(Temporary, true);
    AppendTempObjectPool(this);
}

namespace {

// By numbers and not by names, which Qt would read at each attachment.
void connectDestroyed(const QObject& imp, const CObject_X& wrapper)
{
    static const int destroyed = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
    const int slot = wrapper.metaObject()->indexOfSlot("OnImpDestroy()");
    QMetaObject::connect(&imp, destroyed, &wrapper, slot, Qt::UniqueConnection);
}

} // namespace

bool CObject_X::Attach(QObject* imp, QObject* parent, bool external)
{
    if (!imp)
        return false;
    if (!GetRuntimeClass()->IsMyImpMeta(imp->metaObject())) {
        if (!external)
            delete imp;
        return false;
    }
    Detach();
    setFlag(ExternalImp, external);
    SetImpQObject(imp);
    xe::link(*imp, *this, parent);
    imp->installEventFilter(this);
    connectDestroyed(*imp, *this);
    if (OnAttach())
        return true;
    Detach();
    return false;
}

void CObject_X::Detach()
{
    if (!m_imp)
        return;
    disconnect(m_imp, nullptr, this, nullptr);
    m_imp->removeEventFilter(this);
    xe::unlink(*m_imp);
    QObject* imp = SetImpQObject(nullptr);
    if (IsExternalImpObj())
        setFlag(ExternalImp, false);
    else
        imp->deleteLater();
    OnDetach();
}

bool CObject_X::AttachDefault(QObject* parent) { return Attach(new QObject(parent), parent, false); }

bool CObject_X::OnAttach() { return true; }

void CObject_X::OnDetach() {}

void CObject_X::OnImpDestroy()
{
    SetImpQObject(nullptr);
    setFlag(ExternalImp, false);
}

CObject_X* CObject_X::GetOwner(const QObject* imp)
{
    return imp ? static_cast<CObject_X*>(xe::linkedOwner(*imp)) : nullptr;
}

CObject_X* CObject_X::FromImpMetaObject(const QMetaObject* impMeta)
{
    for (const QMetaObject* meta = impMeta; meta; meta = meta->superClass()) {
        const auto found = g_mapCreateMethod.find(meta);
        if (found != g_mapCreateMethod.end())
            return found->second ? found->second() : nullptr;
    }
    return nullptr;
}

bool CObject_X::IsKindOf(const CRuntimeClass_X* runtimeClass) const
{
    return runtimeClass && metaObject()->inherits(runtimeClass->GetMetaObject());
}

bool CObject_X::IsKindOf(const char* className) const { return const_cast<CObject_X*>(this)->qt_metacast(className); }

bool CObject_X::FindSlotMethod(const QString& name, QMetaMethod& method) const
{
    const QMetaObject* meta = metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        method = meta->method(i);
        if (method.methodType() == QMetaMethod::Slot && QLatin1String(method.name()) == name)
            return true;
    }
    return false;
}

namespace {

// What FindSlotMethod() walks, once for all connections: a list or a combo box has a dozen of Qt's own.
QVector<QMetaMethod> slotsOf(const QMetaObject& meta)
{
    QVector<QMetaMethod> methods;
    for (int i = 0; i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == QMetaMethod::Slot)
            methods.append(method);
    }
    return methods;
}

QMetaMethod slotNamed(const QByteArray& name, const QVector<QMetaMethod>& methods)
{
    const auto found = std::find_if(methods.cbegin(), methods.cend(),
                                    [&name](const QMetaMethod& method) { return method.name() == name; });
    return found == methods.cend() ? QMetaMethod() : *found;
}

} // namespace

void CObject_X::ConnectSlotsFrom(QObject* from, bool keep)
{
    if (!from)
        return;
    const QVector<xe::IncomingConnection> connections = xe::incomingConnections(from);
    if (connections.isEmpty())
        return;
    const QVector<QMetaMethod> ownSlots = slotsOf(*metaObject());
    for (const xe::IncomingConnection& old : connections) {
        const QMetaMethod slot = slotNamed(old.method.name(), ownSlots);
        if (!slot.isValid() || !QMetaObject::checkConnectArgs(old.signal, slot))
            continue;
        const auto type = static_cast<Qt::ConnectionType>(old.type | Qt::UniqueConnection);
        if (connect(old.sender, old.signal, this, slot, type) && !keep)
            disconnect(old.sender, old.signal, from, old.method);
    }
}

QMetaObject::Connection CObject_X::Connect(const QObject* sender, const char* signal, const QObject* receiver,
                                           const char* slot, const QObject*, Qt::ConnectionType type)
{
    if (!sender || !signal || !receiver || !slot)
        return {};
    disconnect(sender, signal, receiver, nullptr);
    return connect(sender, signal, receiver, slot, type);
}

QMetaObject::Connection CObject_X::Connect(unsigned id, const char* signal, const QObject* receiver, const char* slot,
                                           const QObject* root, Qt::ConnectionType type)
{
    const QString name = root ? GetObjectNameById(static_cast<int>(id)) : QString();
    // An empty name would match any object.
    return name.isEmpty() ? QMetaObject::Connection()
                          : Connect(root->findChild<QObject*>(name), signal, receiver, slot, root, type);
}

void CObject_X::Serialize(CArchive_X&) {}
