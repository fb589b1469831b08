#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QVector>

namespace xe {

/// A connection of a signal to a meta-method of some object.
struct IncomingConnection
{
    QObject* sender;
    QMetaMethod signal;
    QMetaMethod method;
    Qt::ConnectionType type;
};

/// The connections that end at meta-methods of `receiver`, newest first, as Qt keeps them. Connections to functors, and
/// those made with pointers to members, have no receiving meta-method and are left out; so are those to the private
/// slots of Qt's own widgets ("_q_..."), which are most.
///
/// Qt has no public way to ask for this: the functions here are the library's one use of private Qt headers.
QVector<IncomingConnection> incomingConnections(const QObject* receiver);

/// True if `signal` of `sender` is connected to the meta-method `method` of `receiver`. Takes time by the connections
/// of the receiver, where Qt::UniqueConnection takes time by those of the signal.
bool isConnected(const QObject* sender, const QMetaMethod& signal, const QObject* receiver, const QMetaMethod& method);

} // namespace xe
