#pragma once

#include "connections/PlainFigure.h"

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/connections/IConnectionRouter.h>
#include <vtlpictel/figure/IConnection.h>

/// A connection that is no QObject: points and anchors, in absolute coordinates.
class PlainConnection : public PlainFigure<Vantrel::Pictel::IConnection>
{
public:
    using Anchor = Vantrel::Pictel::IConnectionAnchor;
    using Router = Vantrel::Pictel::IConnectionRouter;

    explicit PlainConnection(const QList<QPoint> &linePoints)
        : points(linePoints)
    { }

    Router *getConnectionRouter() const override { return nullptr; }
    QList<QPoint> getPoints() const override { return points; }
    QPoint getPoint(int index) const override { return points.value(index); }
    int getPointCount() const override { return int(points.size()); }
    QList<QPointF> getPointsF() const override { return QList<QPointF>(points.cbegin(), points.cend()); }
    QPointF getPointF(int index) const override { return points.value(index); }
    QVariant getRoutingConstraint() const override { return {}; }
    Anchor *getSourceAnchor() const override { return sourceAnchor; }
    Anchor *getTargetAnchor() const override { return targetAnchor; }
    void setConnectionRouter(Router *) override { }
    void setPoints(const QList<QPoint> &newPoints) override { points = newPoints; }
    void setPointsF(const QList<QPointF> &) override { }
    void setRoutingConstraint(const QVariant &) override { }
    void setSourceAnchor(Anchor *anchor) override { sourceAnchor = anchor; }
    void setTargetAnchor(Anchor *anchor) override { targetAnchor = anchor; }

    QList<QPoint> points;
    Anchor *sourceAnchor = nullptr;
    Anchor *targetAnchor = nullptr;
};
