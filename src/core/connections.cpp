#include "core/connections.h"

#include <private/qmetaobject_p.h>
#include <private/qobject_p.h>

namespace xe {

namespace {

QMetaMethod signalOf(const QObjectPrivate::Connection& connection)
{
    return QMetaObjectPrivate::signal(connection.sender->metaObject(), connection.signal_index);
}

// Calls `look` with each connection until it gives true, and tells whether it has.
template <class Look>
bool lookThrough(const QObject* receiver, Look look)
{
    const auto* const data = QObjectPrivate::get(receiver)->connections.loadRelaxed();
    for (const QObjectPrivate::Connection* c = data ? data->senders : nullptr; c; c = c->next) {
        if (!c->isSlotObject && c->receiver.loadRelaxed() && look(*c))
            return true;
    }
    return false;
}

// Private slots of Qt's own widgets.
bool isQtsOwn(const QMetaMethod& method) { return method.name().startsWith("_q_"); }

} // namespace

QVector<IncomingConnection> incomingConnections(const QObject* receiver)
{
    QVector<IncomingConnection> found;
    lookThrough(receiver, [&](const QObjectPrivate::Connection& c) {
        const QMetaMethod method = receiver->metaObject()->method(c.method());
        if (!isQtsOwn(method))
            found.append({c.sender, signalOf(c), method, static_cast<Qt::ConnectionType>(c.connectionType)});
        return false;
    });
    return found;
}

bool isConnected(const QObject* sender, const QMetaMethod& signal, const QObject* receiver, const QMetaMethod& method)
{
    return lookThrough(receiver, [&](const QObjectPrivate::Connection& c) {
        return c.sender == sender && c.method() == method.methodIndex() && signalOf(c) == signal;
    });
}

} // namespace xe
