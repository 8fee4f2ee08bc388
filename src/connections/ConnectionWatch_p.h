#pragma once

#include <vtlpictel/figure/IConnection.h>

#include <QObject>

namespace Vantrel::Pictel {

/// Calls \a forget when \a connection is destroyed while \a router still lives.
///
/// Routers key their state by the connection's address. A connection that dies without remove() must take its state
/// along, or the next connection created at the same address would inherit it. Disconnect the returned handle when
/// the state goes earlier. \a forget gets no connection: by then only the address is left of it.
template <typename Forget>
QMetaObject::Connection watchConnection(IConnection *connection, QObject *router, Forget forget)
{
    const auto *object = dynamic_cast<QObject *>(connection);
    return object ? QObject::connect(object, &QObject::destroyed, router, forget) : QMetaObject::Connection();
}

} // namespace Vantrel::Pictel
