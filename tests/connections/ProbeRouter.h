#pragma once

#include <vtlpictel/connections/AbstractRouter.h>

#include <QMap>
#include <QStringList>

/// A router that answers a fixed route and notes what it is asked.
class ProbeRouter : public Vantrel::Pictel::AbstractRouter
{
public:
    using IConnection = Vantrel::Pictel::IConnection;

    using AbstractRouter::AbstractRouter;

    QList<QPoint> points {QPoint(1, 2), QPoint(30, 40)};
    QList<QPointF> pointsF {QPointF(1.25, 2.5), QPointF(30.5, 40.75)};
    QStringList log;

    QVariant getConstraint(IConnection *connection) override { return m_constraints.value(connection); }
    void setConstraint(IConnection *connection, const QVariant &constraint) override
    {
        log << QStringLiteral("setConstraint");
        m_constraints[connection] = constraint;
    }
    void invalidate(IConnection *) override { log << QStringLiteral("invalidate"); }
    void remove(IConnection *) override { log << QStringLiteral("remove"); }
    QList<QPoint> doRoute(IConnection *) override
    {
        log << QStringLiteral("doRoute");
        return points;
    }
    QList<QPointF> doRouteF(IConnection *) override
    {
        log << QStringLiteral("doRouteF");
        return pointsF;
    }

private:
    QMap<IConnection *, QVariant> m_constraints;
};
