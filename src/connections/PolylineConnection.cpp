#include <vtlpictel/connections/PolylineConnection.h>

#include "connections/ConnectionState_p.h"
#include "connections/PointConversion_p.h"
#include "support/LifeGuard.h"

#include <vtlpictel/layout/DelegatingLayout.h>

namespace Vantrel::Pictel {

namespace {

using Connection = PolylineConnection;
using Line = Polyline;

template <typename Points>
QList<QPoint> toLinePoints(const Points &points)
{
    return integerPoints(points);
}

void routeLine(IConnectionRouter *router, IConnection *connection)
{
    router->route(connection);
}

} // namespace

PolylineConnection::PolylineConnection(QObject *parent)
    : Polyline(parent)
    , m_state(std::make_unique<ConnectionState>(this, this, this, "PolylineConnection"))
{
    setLayoutManager(new DelegatingLayout(this));
    setLinePoints({QPoint(0, 0), QPoint(100, 100)});
}

// The area includes the decorations, which the base classes do not know.
PolylineConnection::~PolylineConnection()
{
    erase();
    m_state->leave();
}

QPointF PolylineConnection::getPointF(int index) const
{
    return QPointF(getPoint(index));
}

} // namespace Vantrel::Pictel

#include "connections/ConnectionOperations_p.h"
