#pragma once

#include <vtlpictel/connections/IConnectionRouter.h>

#include <QObject>

namespace Vantrel::Pictel {

/// What all routers share: end points from the anchors, and storing a computed route in its connection.
///
/// A subclass computes the points in doRoute() and doRouteF(). Anchors answer in absolute coordinates; a route is in
/// the connection's own, so each point passes through the connection's translateToRelative(). A route of fewer than
/// two points is refused with a warning, and the connection keeps the points it had.
///
/// A router owns no connection and may be deleted before or after those it serves. This base keeps no constraint.
class VTLPICTEL_EXPORT AbstractRouter : public QObject, public IConnectionRouter
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IConnectionRouter)

public:
    explicit AbstractRouter(QObject *parent = nullptr);
    ~AbstractRouter() override;

protected:
    /// Where \a connection ends, in absolute coordinates: the target anchor's location as seen from the source
    /// anchor's reference point. (0, 0) for a null connection and for one that lacks an anchor.
    virtual QPoint getEndPoint(IConnection *connection);
    /// Where \a connection starts, in absolute coordinates; the mirror image of getEndPoint().
    virtual QPoint getStartPoint(IConnection *connection);

public:
    /// An invalid variant: no constraint is kept.
    QVariant getConstraint(IConnection *connection) override;
    /// Does nothing.
    void invalidate(IConnection *connection) override;
    /// Does nothing.
    void remove(IConnection *connection) override;
    /// Stores what doRoute() computes in \a connection. Null is ignored.
    void route(IConnection *connection) override;
    /// Stores what doRouteF() computes in \a connection. Null is ignored.
    void routeF(IConnection *connection) override;
    /// Does nothing.
    void setConstraint(IConnection *connection, const QVariant &constraint) override;
};

} // namespace Vantrel::Pictel
