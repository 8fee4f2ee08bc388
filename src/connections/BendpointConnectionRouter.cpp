#include <vtlpictel/connections/BendpointConnectionRouter.h>

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/RelativeBendpoint.h>

#include "connections/ConnectionWatch_p.h"
#include "connections/PointConversion_p.h"
#include "connections/RouteLives_p.h"

#include <utility>

namespace Vantrel::Pictel {

namespace {

// The end of the connection at anchor, as seen from aim (absolute), in the connection's coordinates.
QPoint endTowards(const QPoint &aim, const IConnectionAnchor *anchor, IConnection *connection)
{
    const LifeGuard<IConnection> life(connection);
    QPoint end = anchor->getLocation(aim);
    return life.isAlive() ? connection->translateToRelative(end) : end;
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
    const Entry entry = m_constraints.take(connection);
    disconnect(entry.watch);
}

QList<QPoint> BendpointConnectionRouter::doRoute(IConnection *connection)
{
    const IConnectionAnchor *source = connection ? connection->getSourceAnchor() : nullptr;
    const IConnectionAnchor *target = connection ? connection->getTargetAnchor() : nullptr;
    if (!source || !target)
        return {};

    // Whoever is asked may delete what is asked next; then there is no route.
    const RouteLives lives(this, connection);
    const LifeGuard<IConnectionAnchor> sourceLife(source);
    const LifeGuard<IConnectionAnchor> targetLife(target);
    const auto isRoutable = [&] { return lives.areAlive() && sourceLife.isAlive() && targetLife.isAlive(); };
    const auto ask = [&](auto question) { return isRoutable() ? question() : QPoint(); };

    const QList<QVariant> bendpoints = getBendpointList(connection);
    const auto aim = [&](const IConnectionAnchor *other, qsizetype index) {
        return bendpoints.isEmpty() ? other->getReferencePoint() : aimAt(bendpoints.at(index), connection);
    };
    const QPoint sourceAim = ask([&] { return aim(target, 0); });
    const QPoint targetAim = ask([&] { return aim(source, bendpoints.size() - 1); });

    QList<QPoint> points {ask([&] { return endTowards(sourceAim, source, connection); })};
    for (const QVariant &bendpoint : bendpoints)
        points.append(ask([&] { return getBendpointLocation(bendpoint); }));
    points.append(ask([&] { return endTowards(targetAim, target, connection); }));
    return isRoutable() ? points : QList<QPoint>();
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
        return remove(connection);
    // The old constraint goes when the entry is complete: it may own what calls this router as it ends.
    const QVariant old = std::exchange(entryOf(connection).constraint, constraint);
}

BendpointConnectionRouter::Entry &BendpointConnectionRouter::entryOf(IConnection *connection)
{
    if (!m_constraints.contains(connection)) {
        const auto forget = [this, connection] { m_constraints.take(connection); };
        m_constraints[connection].watch = watchConnection(connection, this, forget);
    }
    return m_constraints[connection];
}

// The place of the bendpoint for the anchors, which answer in absolute coordinates.
QPoint BendpointConnectionRouter::aimAt(const QVariant &bendpoint, IConnection *connection) const
{
    const LifeGuard<IConnection> life(connection);
    QPoint location = getBendpointLocation(bendpoint);
    return life.isAlive() ? connection->translateToAbsolute(location) : location;
}

} // namespace Vantrel::Pictel
