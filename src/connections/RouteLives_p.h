#pragma once

#include "support/LifeGuard.h"

#include <vtlpictel/connections/IConnectionRouter.h>
#include <vtlpictel/figure/IConnection.h>

namespace Vantrel::Pictel {

/// Tells a router in the middle of a route whether it and the connection are still there: an anchor that is asked for
/// its place, its figure or an operation of a subclass may delete either.
class RouteLives
{
public:
    RouteLives(const IConnectionRouter *router, const IConnection *connection)
        : m_router(router)
        , m_connection(connection)
        , m_hasConnection(connection != nullptr)
    { }

    /// A connection that never was counts as alive.
    bool areAlive() const { return m_router.isAlive() && m_connection.isAlive() == m_hasConnection; }

private:
    LifeGuard<IConnectionRouter> m_router;
    LifeGuard<IConnection> m_connection;
    const bool m_hasConnection;
};

} // namespace Vantrel::Pictel
