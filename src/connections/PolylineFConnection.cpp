#include <vtlpictel/connections/PolylineFConnection.h>

#include "connections/ConnectionState_p.h"
#include "connections/PointConversion_p.h"
#include "support/LifeGuard.h"

#include <vtlpictel/layout/DelegatingLayout.h>

namespace Vantrel::Pictel {

namespace {

using Connection = PolylineFConnection;
using Line = PolylineF;

template <typename Points>
QList<QPointF> toLinePoints(const Points &points)
{
    return realPoints(points);
}

void routeLine(IConnectionRouter *router, IConnection *connection)
{
    router->routeF(connection);
}

} // namespace

PolylineFConnection::PolylineFConnection(QObject *parent)
    : PolylineF(parent)
    , m_state(std::make_unique<ConnectionState>(this, this, this, "PolylineFConnection"))
{
    setLayoutManager(new DelegatingLayout(this));
    setLinePoints({QPointF(0, 0), QPointF(100, 100)});
}

// The area includes the decorations, which the base classes do not know.
PolylineFConnection::~PolylineFConnection()
{
    erase();
    m_state->leave();
}

QPointF PolylineFConnection::getPointF(int index) const
{
    return PolylineF::getPointF(index);
}

} // namespace Vantrel::Pictel

#include "connections/ConnectionOperations_p.h"
