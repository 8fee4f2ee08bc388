#include <vtlpictel/connections/NullRouter.h>

#include <vtlpictel/figure/IConnection.h>

#include "connections/PointConversion_p.h"
#include "connections/RouteLives_p.h"

namespace Vantrel::Pictel {

// Never deleted, so that connections which outlive the end of main() still have their router.
NullRouter *NullRouter::instance()
{
    static auto *const shared = new NullRouter;
    return shared;
}

NullRouter::NullRouter(QObject *parent)
    : AbstractRouter(parent)
{ }

NullRouter::~NullRouter() = default;

QList<QPoint> NullRouter::doRoute(IConnection *connection)
{
    if (!connection)
        return {};
    const RouteLives lives(this, connection);
    QPoint start = getStartPoint(connection);
    if (lives.areAlive())
        connection->translateToRelative(start);
    QPoint end = lives.areAlive() ? getEndPoint(connection) : QPoint();
    if (!lives.areAlive())
        return {};
    connection->translateToRelative(end);
    return {start, end};
}

QList<QPointF> NullRouter::doRouteF(IConnection *connection)
{
    return realPoints(doRoute(connection));
}

} // namespace Vantrel::Pictel
