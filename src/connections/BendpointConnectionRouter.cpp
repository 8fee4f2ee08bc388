#include <vtlpictel/connections/BendpointConnectionRouter.h>

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/RelativeBendpoint.h>

#include "connections/ConnectionWatch_p.h"
#include "connections/PointConversion_p.h"

namespace Vantrel::Pictel {

namespace {

// The end of the connection at anchor, as seen from aim (absolute), in the connection's coordinates.
QPoint endTowards(const QPoint &aim, const IConnectionAnchor *anchor, IConnection *connection)
{
    QPoint end = anchor->getLocation(aim);
    return connection->translateToRelative(end);
}

} // namespace

BendpointConnectionRouter::BendpointConnectionRouter(QObject *parent)
    : AbstractRouter(parent)
{ }

BendpointConnectionRouter::~BendpointConnectionRouter() = default;

QPoint BendpointConnectionRouter::getBendpointLocation(const QVariant &bendpoint) const
{
    if (bendpoint.canConvert<AbsoluteBendpoint>())
        return bendpoint.value<AbsoluteBendpoint>().getLocation();
    if (bendpoint.canConvert<RelativeBendpoint>())
        return bendpoint.value<RelativeBendpoint>().getLocation();
    return {};
}

QList<QVariant> BendpointConnectionRouter::getBendpointList(IConnection *connection) const
{
    // The bridge from const to getConstraint(), which the router interface leaves free to compute and cache.
    return const_cast<BendpointConnectionRouter *>(this)->getConstraint(connection).toList();
}

QVariant BendpointConnectionRouter::getConstraint(IConnection *connection)
{
    return m_constraints.value(connection).constraint;
}

void BendpointConnectionRouter::remove(IConnection *connection)
{
    disconnect(m_constraints.take(connection).watch);
}

QList<QPoint> BendpointConnectionRouter::doRoute(IConnection *connection)
{
    const IConnectionAnchor *source = connection ? connection->getSourceAnchor() : nullptr;
    const IConnectionAnchor *target = connection ? connection->getTargetAnchor() : nullptr;
    if (!source || !target)
        return {};

    const QList<QVariant> bendpoints = getBendpointList(connection);
    const bool isStraight = bendpoints.isEmpty();
    const QPoint sourceAim = isStraight ? target->getReferencePoint() : aimAt(bendpoints.first(), connection);
    const QPoint targetAim = isStraight ? source->getReferencePoint() : aimAt(bendpoints.last(), connection);

    QList<QPoint> points {endTowards(sourceAim, source, connection)};
    for (const QVariant &bendpoint : bendpoints)
        points.append(getBendpointLocation(bendpoint));
    points.append(endTowards(targetAim, target, connection));
    return points;
}

QList<QPointF> BendpointConnectionRouter::doRouteF(IConnection *connection)
{
    return realPoints(doRoute(connection));
}

void BendpointConnectionRouter::setConstraint(IConnection *connection, const QVariant &constraint)
{
    if (!connection)
        return;
    if (!constraint.isValid())
        remove(connection);
    else
        entryOf(connection).constraint = constraint;
}

BendpointConnectionRouter::Entry &BendpointConnectionRouter::entryOf(IConnection *connection)
{
    if (!m_constraints.contains(connection)) {
        const auto forget = [this, connection] { m_constraints.remove(connection); };
        m_constraints[connection].watch = watchConnection(connection, this, forget);
    }
    return m_constraints[connection];
}

// The place of the bendpoint for the anchors, which answer in absolute coordinates.
QPoint BendpointConnectionRouter::aimAt(const QVariant &bendpoint, IConnection *connection) const
{
    QPoint location = getBendpointLocation(bendpoint);
    return connection->translateToAbsolute(location);
}

} // namespace Vantrel::Pictel
