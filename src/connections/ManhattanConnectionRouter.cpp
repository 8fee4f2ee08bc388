#include <vtlpictel/connections/ManhattanConnectionRouter.h>

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IConnection.h>

#include "connections/ConnectionWatch_p.h"
#include "connections/LineSet_p.h"
#include "connections/PointConversion_p.h"
#include "connections/RouteLives_p.h"
#include "connections/SegmentPlan_p.h"
#include "support/WrappingArithmetic.h"

#include <algorithm>
#include <limits>
#include <typeinfo>

namespace Vantrel::Pictel {

// How a route is found.
//
// Terms. A normal is the direction that leads out of a figure through the side on which a connection ends. A position
// is the one coordinate that fixes a segment: y for a horizontal segment, x for a vertical one. A line is a row (the
// y of horizontal segments) or a column (the x of vertical ones).
//
//   1. The anchors give both end points, and the sides nearest to them the normals.
//   2. From these SegmentPlan lists one position per segment, horizontal and vertical in turn: one corner where two
//      perpendicular normals lead towards each other, a Z or a U in the other cases, with a detour ten pixels outside
//      a figure whose normal leads away from the other end.
//   3. processPositions() turns positions into points. The first and last segment are tied to their ends; each inner
//      one moves to the free line nearest to its position, which it reserves for the connection.
//
// Figures in the way are not avoided, and routes already made do not move when a line becomes free. A search tries even
// lines only, nearest first, never farther than the neighbouring parallel segments, and stops at the first free one.
// Runs of used lines are jumped over, unless a subclass may have a say about each single one.

const Ray ManhattanConnectionRouter::UP(0, -1);
const Ray ManhattanConnectionRouter::DOWN(0, 1);
const Ray ManhattanConnectionRouter::LEFT(-1, 0);
const Ray ManhattanConnectionRouter::RIGHT(1, 0);

struct ManhattanConnectionRouter::UsedLines
{
    LineSet rows;
    LineSet columns;
};

// What tells rows from columns.
struct ManhattanConnectionRouter::LineKind
{
    bool (ManhattanConnectionRouter::*usable)(IConnection *, int) const;
    LineSet UsedLines::*used;
    QSet<int> Reservation::*reserved;
};

const ManhattanConnectionRouter::LineKind ManhattanConnectionRouter::rowKind {&ManhattanConnectionRouter::rowUsable,
                                                                              &UsedLines::rows, &Reservation::rows};
const ManhattanConnectionRouter::LineKind ManhattanConnectionRouter::columnKind {
    &ManhattanConnectionRouter::colUsable, &UsedLines::columns, &Reservation::columns};

namespace {

qint64 distance(int from, int to)
{
    return qAbs(static_cast<qint64>(from) - to);
}

struct SearchBounds
{
    qint64 lower;
    qint64 upper;
};

// Between the neighbouring parallel segments a and b; for a line outside of them, as far to either side of it as the
// nearer one lies. The last line is left out, so that a search never counts beyond it.
SearchBounds boundsOfSearch(qint64 line, qint64 a, qint64 b)
{
    constexpr qint64 lastLine = std::numeric_limits<int>::max() - 1;
    const auto [nearest, farthest] = std::minmax(a, b);
    if (farthest < line)
        return {farthest, std::min(2 * line - farthest, lastLine)};
    if (nearest > line)
        return {2 * line - nearest, std::min(nearest, lastLine)};
    return {nearest, std::min(farthest, lastLine)};
}

// The even line to try first. A negative odd line stays odd: its remainder is -1.
int proposedLine(int line)
{
    return line % 2 == 1 ? line - 1 : line;
}

// 0, 2, -2, 4, -4, ...
int nextOffset(int offset)
{
    return offset > 0 ? -offset : 2 - offset;
}

struct FoundLine
{
    int line;
    bool isFree;
};

// The line beside the bound at which a search for a free line ended.
FoundLine besideLower(int candidate)
{
    return {wrappingAdd(candidate, 2), false};
}

FoundLine besideUpper(int candidate)
{
    return {candidate - 2, false};
}

// Asks isUsable about each candidate in turn.
template <typename Usable>
FoundLine searchEachLine(int proposed, const SearchBounds &bounds, Usable isUsable)
{
    for (int offset = 0; qAbs(offset) < proposed; offset = nextOffset(offset)) {
        const int candidate = proposed + offset;
        if (isUsable(candidate))
            return {candidate, true};
        if (candidate <= bounds.lower)
            return besideLower(candidate);
        if (candidate >= bounds.upper)
            return besideUpper(candidate);
    }
    return {proposed, false};
}

// In steps of two; none when the distance is negative.
qint64 distanceInSteps(qint64 distance)
{
    return distance > 0 ? (distance + 1) / 2 * 2 : 0;
}

// What searchEachLine() finds where only the lines in use matter. On either side the search ends at the first free line
// or at the first used one on or beyond the bound; the nearer of the two ends it, the upper one first. On the proposed
// line itself the lower bound comes first.
FoundLine searchRuns(int proposed, const SearchBounds &bounds, const LineSet &used)
{
    const qint64 freeAbove = used.firstFreeFrom(proposed) - proposed;
    const qint64 freeBelow = proposed - used.lastFreeUpTo(proposed);
    const qint64 above = std::min(freeAbove, distanceInSteps(bounds.upper - proposed));
    const qint64 below = std::min(freeBelow, distanceInSteps(proposed - bounds.lower));
    if (std::min(above, below) >= proposed)
        return {proposed, false};
    if (above <= below && below > 0) {
        const int candidate = static_cast<int>(proposed + above);
        return above == freeAbove ? FoundLine {candidate, true} : besideUpper(candidate);
    }
    const int candidate = static_cast<int>(proposed - below);
    return below == freeBelow ? FoundLine {candidate, true} : besideLower(candidate);
}

} // namespace

ManhattanConnectionRouter::ManhattanConnectionRouter(QObject *parent)
    : AbstractRouter(parent)
    , m_used(std::make_unique<UsedLines>())
{ }

ManhattanConnectionRouter::~ManhattanConnectionRouter() = default;

Ray ManhattanConnectionRouter::getDirection(const QRect &box, const QPoint &point, bool inward)
{
    qint64 nearest = distance(box.left(), point.x());
    const Ray *direction = inward ? &RIGHT : &LEFT;
    if (const qint64 top = distance(box.top(), point.y()); top <= nearest) {
        nearest = top;
        direction = inward ? &DOWN : &UP;
    }
    if (const qint64 bottom = distance(box.bottom(), point.y()); bottom <= nearest) {
        nearest = bottom;
        direction = inward ? &UP : &DOWN;
    }
    if (distance(box.right(), point.x()) < nearest)
        direction = inward ? &LEFT : &RIGHT;
    return *direction;
}

Ray ManhattanConnectionRouter::getEndDirection(IConnection *connection)
{
    const RouteLives lives(this, connection);
    const QPoint end = getEndPoint(connection);
    if (!lives.areAlive())
        return Ray();
    return directionOut(connection ? connection->getTargetAnchor() : nullptr, end);
}

Ray ManhattanConnectionRouter::getStartDirection(IConnection *connection)
{
    const RouteLives lives(this, connection);
    const QPoint start = getStartPoint(connection);
    if (!lives.areAlive())
        return Ray();
    return directionOut(connection ? connection->getSourceAnchor() : nullptr, start);
}

bool ManhattanConnectionRouter::rowUsable(IConnection *, int row) const
{
    return !m_used->rows.contains(row);
}

bool ManhattanConnectionRouter::colUsable(IConnection *, int column) const
{
    return !m_used->columns.contains(column);
}

void ManhattanConnectionRouter::invalidate(IConnection *connection)
{
    removeReservedLines(connection);
}

void ManhattanConnectionRouter::remove(IConnection *connection)
{
    removeReservedLines(connection);
}

QList<QPoint> ManhattanConnectionRouter::doRoute(IConnection *connection)
{
    if (!connection || !connection->getSourceAnchor() || !connection->getTargetAnchor())
        return {};
    const RouteLives lives(this, connection);
    QPoint start = getStartPoint(connection);
    QPoint end = lives.areAlive() ? getEndPoint(connection) : QPoint();
    if (lives.areAlive())
        connection->translateToRelative(start);
    if (lives.areAlive())
        connection->translateToRelative(end);
    const Ray startNormal = lives.areAlive() ? getStartDirection(connection) : Ray();
    const Ray endNormal = lives.areAlive() ? getEndDirection(connection) : Ray();
    if (!lives.areAlive())
        return {};

    const RouteEnd from {Ray(start), startNormal};
    const RouteEnd to {Ray(end), endNormal};
    return processPositions(from.point, to.point, SegmentPlan(from, to).positions(), startNormal.isHorizontal(),
                            connection);
}

QList<QPointF> ManhattanConnectionRouter::doRouteF(IConnection *connection)
{
    return realPoints(doRoute(connection));
}

void ManhattanConnectionRouter::reserveRow(IConnection *connection, int row)
{
    reserve(connection, row, rowKind);
}

void ManhattanConnectionRouter::reserveColumn(IConnection *connection, int column)
{
    reserve(connection, column, columnKind);
}

bool ManhattanConnectionRouter::isRowReservedBy(IConnection *connection, int row) const
{
    return isReservedBy(connection, row, rowKind);
}

bool ManhattanConnectionRouter::isColumnReservedBy(IConnection *connection, int column) const
{
    return isReservedBy(connection, column, columnKind);
}

void ManhattanConnectionRouter::removeReservedLines(IConnection *connection)
{
    const Reservation reservation = m_reserved.take(connection);
    disconnect(reservation.watch);
    for (int row : reservation.rows)
        m_used->rows.remove(row);
    for (int column : reservation.columns)
        m_used->columns.remove(column);
}

QList<QPoint> ManhattanConnectionRouter::processPositions(const Ray &start, const Ray &end, const QList<int> &positions,
                                                          bool horizontal, IConnection *connection)
{
    const RouteLives lives(this, connection);
    removeReservedLines(connection);
    const bool endsAtColumn = horizontal == (positions.size() % 2 == 1);
    QList<int> lines {horizontal ? start.x() : start.y()};
    lines.append(positions);
    lines.append(endsAtColumn ? end.x() : end.y());

    QList<QPoint> points {QPoint(start.x(), start.y())};
    const qsizetype last = lines.size() - 2;
    for (qsizetype i = 2; i <= last; ++i) {
        horizontal = !horizontal;
        if (i != last)
            lines[i] = horizontal ? getRowNear(connection, lines[i], lines[i - 2], lines[i + 2])
                                  : getColumnNear(connection, lines[i], lines[i - 2], lines[i + 2]);
        if (!lives.areAlive())
            return {};
        points.append(horizontal ? QPoint(lines[i - 1], lines[i]) : QPoint(lines[i], lines[i - 1]));
    }
    if (const QPoint endPoint(end.x(), end.y()); points.last() != endPoint)
        points.append(endPoint);
    return points;
}

int ManhattanConnectionRouter::getRowNear(IConnection *connection, int row, int before, int after)
{
    return getLineNear(connection, row, before, after, rowKind);
}

int ManhattanConnectionRouter::getColumnNear(IConnection *connection, int column, int before, int after)
{
    return getLineNear(connection, column, before, after, columnKind);
}

// Lines that are not positive are taken as they are, and so is the one beside a bound when all before it are in use.
int ManhattanConnectionRouter::getLineNear(IConnection *connection, int line, int before, int after,
                                           const LineKind &kind)
{
    const int proposed = proposedLine(line);
    if (proposed <= 0)
        return proposed;
    const SearchBounds bounds = boundsOfSearch(line, before, after);
    // A subclass that is asked may delete the router or the connection.
    const RouteLives lives(this, connection);
    const auto isUsable
        = [&](int candidate) { return lives.areAlive() && (this->*kind.usable)(connection, candidate); };
    const FoundLine found = asksSubclass() ? searchEachLine(proposed, bounds, isUsable)
                                           : searchRuns(proposed, bounds, (*m_used).*kind.used);
    if (found.isFree && lives.areAlive())
        reserve(connection, found.line, kind);
    return found.line;
}

// Only a subclass can make usable depend on more than the lines in use.
bool ManhattanConnectionRouter::asksSubclass() const
{
    return typeid(*this) != typeid(ManhattanConnectionRouter);
}

ManhattanConnectionRouter::Reservation &ManhattanConnectionRouter::reservationOf(IConnection *connection)
{
    if (!m_reserved.contains(connection)) {
        const auto forget = [this, connection] { removeReservedLines(connection); };
        m_reserved[connection].watch = watchConnection(connection, this, forget);
    }
    return m_reserved[connection];
}

void ManhattanConnectionRouter::reserve(IConnection *connection, int line, const LineKind &kind)
{
    if (!connection)
        return;
    (reservationOf(connection).*kind.reserved).insert(line);
    ((*m_used).*kind.used).insert(line);
}

bool ManhattanConnectionRouter::isReservedBy(IConnection *connection, int line, const LineKind &kind) const
{
    const auto reservation = m_reserved.constFind(connection);
    return reservation != m_reserved.cend() && ((*reservation).*kind.reserved).contains(line);
}

// An anchor on no figure gets the box of two by two pixels whose lower right corner is the point.
Ray ManhattanConnectionRouter::directionOut(const IConnectionAnchor *anchor, const QPoint &point)
{
    const LifeGuard<IConnectionRouter> self(this);
    Figure *owner = anchor ? anchor->getOwner() : nullptr;
    if (!owner)
        return getDirection({{wrappingSubtract(point.x(), 1), wrappingSubtract(point.y(), 1)}, point}, point, false);
    const LifeGuard<Figure> ownerLife(owner);
    QRect box = owner->getBounds();
    if (ownerLife.isAlive())
        owner->translateToAbsolute(box);
    return self.isAlive() ? getDirection(box, point, false) : Ray();
}

} // namespace Vantrel::Pictel
