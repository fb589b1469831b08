#include "core/connections.h"

#include <private/qmetaobject_p.h>
#include <private/qobject_p.h>

#include <algorithm>

namespace xe {

QVector<IncomingConnection> incomingConnections(const QObject* receiver)
{
    QVector<IncomingConnection> result;
    const auto* data = QObjectPrivate::get(receiver)->connections.loadRelaxed();
    if (!data)
        return result;
    for (const QObjectPrivate::Connection* c = data->senders; c; c = c->next) {
        if (c->isSlotObject || !c->receiver.loadRelaxed())
            continue;
        result.append({c->sender, QMetaObjectPrivate::signal(c->sender->metaObject(), c->signal_index),
                       receiver->metaObject()->method(c->method()),
                       static_cast<Qt::ConnectionType>(c->connectionType)});
    }
    return result;
}

bool isConnected(const QObject* sender, const QMetaMethod& signal, const QObject* receiver, const QMetaMethod& method)
{
    const QVector<IncomingConnection> connections = incomingConnections(receiver);
    return std::any_of(connections.begin(), connections.end(), [&](const IncomingConnection& c) {
        return c.sender == sender && c.signal == signal && c.method == method;
    });
}

} // namespace xe
