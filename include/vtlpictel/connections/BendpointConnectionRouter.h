#pragma once

#include <vtlpictel/connections/AbstractRouter.h>

#include <QHash>

namespace Vantrel::Pictel {

/// Routes each connection through the bendpoints that its routing constraint lists.
///
/// A constraint is a QVariantList whose elements hold an AbsoluteBendpoint or a RelativeBendpoint by value; an element
/// of another kind counts as (0, 0). Bendpoints are in the connection's coordinates. The first and last segment aim at
/// the nearest bendpoint; without a constraint the route is a straight line.
///
/// The router keeps the constraints, not the connections. An entry lives until it is replaced or removed, or its
/// connection is deleted.
class VTLPICTEL_EXPORT BendpointConnectionRouter : public AbstractRouter
{
    Q_OBJECT

public:
    explicit BendpointConnectionRouter(QObject *parent = nullptr);
    ~BendpointConnectionRouter() override;

protected:
    /// The location of the bendpoint in \a bendpoint; (0, 0) when it holds none.
    virtual QPoint getBendpointLocation(const QVariant &bendpoint) const;
    /// The constraint of \a connection as a list; empty when there is none.
    virtual QList<QVariant> getBendpointList(IConnection *connection) const;

public:
    /// The constraint of \a connection; invalid for null and when there is none.
    QVariant getConstraint(IConnection *connection) override;
    /// Drops the constraint of \a connection.
    void remove(IConnection *connection) override;
    /// Start point, bendpoints and end point; empty for null and for a connection that lacks an anchor.
    QList<QPoint> doRoute(IConnection *connection) override;
    /// The points of doRoute().
    QList<QPointF> doRouteF(IConnection *connection) override;
    /// Keeps \a constraint for \a connection; an invalid one is the same as remove(). Null is ignored.
    void setConstraint(IConnection *connection, const QVariant &constraint) override;

private:
    struct Entry
    {
        QVariant constraint;
        QMetaObject::Connection watch;
    };

    Entry &entryOf(IConnection *connection);
    QPoint aimAt(const QVariant &bendpoint, IConnection *connection) const;

    QHash<IConnection *, Entry> m_constraints;
};

} // namespace Vantrel::Pictel
