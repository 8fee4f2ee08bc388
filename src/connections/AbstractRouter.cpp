#include <vtlpictel/connections/AbstractRouter.h>

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/figure/IConnection.h>

#include "support/LifeGuard.h"

#include <QMessageLogger>

namespace Vantrel::Pictel {

namespace {

QPoint locationTowards(const IConnectionAnchor *other, const IConnectionAnchor *own)
{
    if (!own || !other)
        return {};
    const LifeGuard<IConnectionAnchor> ownLife(own);
    const QPoint reference = other->getReferencePoint();
    return ownLife.isAlive() ? own->getLocation(reference) : QPoint();
}

template <typename Point>
bool isRoute(const QList<Point> &points)
{
    if (points.size() >= 2)
        return true;
    QMessageLogger().warning("AbstractRouter::route(): invalid route");
    return false;
}

} // namespace

AbstractRouter::AbstractRouter(QObject *parent)
    : QObject(parent)
{ }

AbstractRouter::~AbstractRouter() = default;

QPoint AbstractRouter::getEndPoint(IConnection *connection)
{
    if (!connection)
        return {};
    const IConnectionAnchor *source = connection->getSourceAnchor();
    return locationTowards(source, connection->getTargetAnchor());
}

QPoint AbstractRouter::getStartPoint(IConnection *connection)
{
    if (!connection)
        return {};
    const IConnectionAnchor *target = connection->getTargetAnchor();
    return locationTowards(target, connection->getSourceAnchor());
}

QVariant AbstractRouter::getConstraint(IConnection *)
{
    return {};
}

void AbstractRouter::invalidate(IConnection *) { }

void AbstractRouter::remove(IConnection *) { }

void AbstractRouter::route(IConnection *connection)
{
    if (!connection)
        return;
    const LifeGuard<IConnection> life(connection);
    const QList<QPoint> points = doRoute(connection);
    if (life.isAlive() && isRoute(points))
        connection->setPoints(points);
}

void AbstractRouter::routeF(IConnection *connection)
{
    if (!connection)
        return;
    const LifeGuard<IConnection> life(connection);
    const QList<QPointF> points = doRouteF(connection);
    if (life.isAlive() && isRoute(points))
        connection->setPointsF(points);
}

void AbstractRouter::setConstraint(IConnection *, const QVariant &) { }

} // namespace Vantrel::Pictel
