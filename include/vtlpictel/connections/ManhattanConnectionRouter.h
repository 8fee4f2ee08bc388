#pragma once

#include <vtlpictel/connections/AbstractRouter.h>
#include <vtlpictel/figure/Ray.h>

#include <QHash>
#include <QSet>

#include <memory>

QT_BEGIN_NAMESPACE
class QRect;
QT_END_NAMESPACE

namespace Vantrel::Pictel {

class IConnectionAnchor;

/// Routes connections with horizontal and vertical segments only.
///
/// A connection leaves its source figure through the side nearest to its start point and enters the target figure
/// through the side nearest to its end point. For all connections that it serves the router keeps the rows (y of
/// horizontal segments) and columns (x of vertical ones) in use, and moves the inner segments of a new route to free
/// ones nearby, so that parallel connections do not lie on top of each other. Rows and columns are even numbers; the
/// first and last segment follow the anchors and are never moved.
///
/// A connection gives up its rows and columns when it is routed anew, invalidated, removed or deleted; the other
/// connections keep theirs and do not close up. The router owns no connection and keeps no constraint. Points are in
/// the connection's coordinates: connections that share a router should share a coordinate system, that is a layer.
class VTLPICTEL_EXPORT ManhattanConnectionRouter : public AbstractRouter
{
    Q_OBJECT

public:
    static const Ray UP;
    static const Ray DOWN;
    static const Ray LEFT;
    static const Ray RIGHT;

    explicit ManhattanConnectionRouter(QObject *parent = nullptr);
    ~ManhattanConnectionRouter() override;

protected:
    /// The outward direction of the side of \a box nearest to \a point, or the opposite one when \a inward.
    virtual Ray getDirection(const QRect &box, const QPoint &point, bool inward);
    /// The side through which \a connection enters its target, as the direction out of it.
    virtual Ray getEndDirection(IConnection *connection);
    /// The side through which \a connection leaves its source, as the direction out of it.
    virtual Ray getStartDirection(IConnection *connection);
    /// True when no connection has reserved \a row; a subclass may let \a connection matter.
    virtual bool rowUsable(IConnection *connection, int row) const;
    /// True when no connection has reserved \a column; a subclass may let \a connection matter.
    virtual bool colUsable(IConnection *connection, int column) const;

public:
    /// Frees the rows and columns of \a connection.
    void invalidate(IConnection *connection) override;
    /// Frees the rows and columns of \a connection.
    void remove(IConnection *connection) override;
    /// The rectilinear route; empty for null and for a connection that lacks an anchor.
    QList<QPoint> doRoute(IConnection *connection) override;
    /// The points of doRoute().
    QList<QPointF> doRouteF(IConnection *connection) override;

protected:
    /// Puts \a row in use on behalf of \a connection. Null is ignored.
    void reserveRow(IConnection *connection, int row);
    /// Puts \a column in use on behalf of \a connection. Null is ignored.
    void reserveColumn(IConnection *connection, int column);
    bool isRowReservedBy(IConnection *connection, int row) const;
    bool isColumnReservedBy(IConnection *connection, int column) const;
    /// Frees every row and column reserved for \a connection, also where another connection came to lie on it.
    void removeReservedLines(IConnection *connection);
    /// Turns one coordinate per segment into points from \a start to \a end, moving inner segments to free rows and
    /// columns, which it reserves for \a connection. \a horizontal is the direction of the first segment.
    QList<QPoint> processPositions(const Ray &start, const Ray &end, const QList<int> &positions, bool horizontal,
                                   IConnection *connection);

private:
    struct Reservation
    {
        QSet<int> rows;
        QSet<int> columns;
        QMetaObject::Connection watch;
    };
    struct UsedLines;
    struct LineKind;
    static const LineKind rowKind;
    static const LineKind columnKind;

    int getRowNear(IConnection *connection, int row, int before, int after);
    int getColumnNear(IConnection *connection, int column, int before, int after);
    int getLineNear(IConnection *connection, int line, int before, int after, const LineKind &kind);
    bool asksSubclass() const;
    Reservation &reservationOf(IConnection *connection);
    void reserve(IConnection *connection, int line, const LineKind &kind);
    bool isReservedBy(IConnection *connection, int line, const LineKind &kind) const;
    Ray directionOut(const IConnectionAnchor *anchor, const QPoint &point);

    std::unique_ptr<UsedLines> m_used;
    QHash<IConnection *, Reservation> m_reserved;
};

} // namespace Vantrel::Pictel
