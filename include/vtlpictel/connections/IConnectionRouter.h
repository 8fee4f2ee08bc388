#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QVariant>

namespace Vantrel::Pictel {

class IConnection;

/// Computes the points of connections from their anchors.
///
/// A router serves many connections and may keep state and a routing constraint for each; it owns none of them.
/// A connection tells it when its route is about to change and when it is to be forgotten.
class VTLPICTEL_EXPORT IConnectionRouter
{
public:
    virtual ~IConnectionRouter();

    /// The routing constraint kept for \a connection; invalid when none is kept.
    virtual QVariant getConstraint(IConnection *connection) = 0;
    /// The route of \a connection is about to change.
    virtual void invalidate(IConnection *connection) = 0;
    /// Forgets everything kept for \a connection, which is not deleted.
    virtual void remove(IConnection *connection) = 0;
    /// Computes the integer route and stores it in \a connection.
    virtual void route(IConnection *connection) = 0;
    /// Computes the floating-point route and stores it in \a connection.
    virtual void routeF(IConnection *connection) = 0;
    /// The integer route, in the coordinates of \a connection's bounds.
    virtual QList<QPoint> doRoute(IConnection *connection) = 0;
    /// The floating-point route, in the coordinates of \a connection's bounds.
    virtual QList<QPointF> doRouteF(IConnection *connection) = 0;
    /// Keeps \a constraint, whose meaning belongs to the router, for \a connection.
    virtual void setConstraint(IConnection *connection, const QVariant &constraint) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IConnectionRouter, "IConnectionRouter.Pictel.Vantrel.vantrel.org")
