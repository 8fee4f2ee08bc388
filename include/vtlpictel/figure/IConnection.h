#pragma once

#include <vtlpictel/figure/IFigure.h>
#include <vtlpictel/vtlpictel_export.h>

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QVariant>

namespace Vantrel::Pictel {

class IConnectionAnchor;
class IConnectionRouter;

/// A figure that joins two anchors by a line whose course a router computes.
///
/// Anchors and router are not owned. Points are in the connection's own coordinates, those of its bounds. Points set
/// by hand last until the next routing; after a change of an anchor, the router or the routing constraint the
/// connection asks for its validation itself. A point past the end is (0, 0).
class VTLPICTEL_EXPORT IConnection : public virtual IFigure
{
public:
    /// "connectionRouter": announced when the connection gets another router.
    static const QString PROPERTY_CONNECTION_ROUTER;
    /// "points": for applications that announce their own changes of the integer points.
    static const QString PROPERTY_POINTS;
    /// "pointsf": for applications that announce their own changes of the floating-point points.
    static const QString PROPERTY_POINTSF;

    ~IConnection() override;

    /// The router that computes the points; never null for the connections of this library, not owned.
    virtual IConnectionRouter *getConnectionRouter() const = 0;
    virtual QList<QPoint> getPoints() const = 0;
    virtual QPoint getPoint(int index) const = 0;
    virtual int getPointCount() const = 0;
    virtual QList<QPointF> getPointsF() const = 0;
    virtual QPointF getPointF(int index) const = 0;
    /// What the router keeps for this connection; invalid when it keeps nothing.
    virtual QVariant getRoutingConstraint() const = 0;
    virtual IConnectionAnchor *getSourceAnchor() const = 0;
    virtual IConnectionAnchor *getTargetAnchor() const = 0;
    /// Takes another router, which is not owned; null stands for the shared straight-line router.
    virtual void setConnectionRouter(IConnectionRouter *router) = 0;
    virtual void setPoints(const QList<QPoint> &points) = 0;
    virtual void setPointsF(const QList<QPointF> &points) = 0;
    /// Hands \a constraint to the current router, which gives it its meaning and keeps it.
    virtual void setRoutingConstraint(const QVariant &constraint) = 0;
    /// Attaches the first point to \a anchor, which is not owned; null detaches it.
    virtual void setSourceAnchor(IConnectionAnchor *anchor) = 0;
    /// Attaches the last point to \a anchor, which is not owned; null detaches it.
    virtual void setTargetAnchor(IConnectionAnchor *anchor) = 0;
};

} // namespace Vantrel::Pictel

Q_DECLARE_INTERFACE(Vantrel::Pictel::IConnection, "IConnection.Pictel.Vantrel.vantrel.org")
