#include <vtlpictel/connections/NullRouter.h>

#include <vtlpictel/figure/IConnection.h>

#include "connections/PointConversion_p.h"

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
    QPoint start = getStartPoint(connection);
    connection->translateToRelative(start);
    QPoint end = getEndPoint(connection);
    connection->translateToRelative(end);
    return {start, end};
}

QList<QPointF> NullRouter::doRouteF(IConnection *connection)
{
    return realPoints(doRoute(connection));
}

} // namespace Vantrel::Pictel
