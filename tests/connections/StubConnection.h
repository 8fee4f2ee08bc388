#pragma once

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IConnection.h>

#include <QVariant>

/// A connection that only stores: what routers read from it, and what they write to it.
class StubConnection : public Vantrel::Pictel::Figure, public Vantrel::Pictel::IConnection
{
public:
    using Anchor = Vantrel::Pictel::IConnectionAnchor;
    using Router = Vantrel::Pictel::IConnectionRouter;

    StubConnection() = default;
    StubConnection(Anchor *source, Anchor *target)
        : sourceAnchor(source)
        , targetAnchor(target)
    { }

    Router *getConnectionRouter() const override { return nullptr; }
    QList<QPoint> getPoints() const override { return points; }
    QPoint getPoint(int index) const override { return points.value(index); }
    int getPointCount() const override { return int(points.size()); }
    QList<QPointF> getPointsF() const override { return pointsF; }
    QPointF getPointF(int index) const override { return pointsF.value(index); }
    QVariant getRoutingConstraint() const override { return {}; }
    Anchor *getSourceAnchor() const override
    {
        log.append(QStringLiteral("source"));
        return sourceAnchor;
    }
    Anchor *getTargetAnchor() const override
    {
        log.append(QStringLiteral("target"));
        return targetAnchor;
    }
    void setConnectionRouter(Router *) override { }
    void setPoints(const QList<QPoint> &newPoints) override { points = newPoints; }
    void setPointsF(const QList<QPointF> &newPoints) override { pointsF = newPoints; }
    void setRoutingConstraint(const QVariant &) override { }
    void setSourceAnchor(Anchor *anchor) override { sourceAnchor = anchor; }
    void setTargetAnchor(Anchor *anchor) override { targetAnchor = anchor; }

    QList<QPoint> points;
    QList<QPointF> pointsF;
    Anchor *sourceAnchor = nullptr;
    Anchor *targetAnchor = nullptr;
    /// Which anchor was asked for, in order.
    mutable QStringList log;
};
