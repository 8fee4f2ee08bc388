#include "Track.h"

#include <QTransform>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace GraphViewer {

namespace {

QList<QPointF> withoutRepetition(const QList<QPointF> &points)
{
    QList<QPointF> distinct = points;
    const auto same = [](const QPointF &one, const QPointF &other) { return QLineF(one, other).length() < 0.01; };
    distinct.erase(std::unique(distinct.begin(), distinct.end(), same), distinct.end());
    return distinct;
}

// The speed at each point when the curve passes it after as long a time as the straight lines to it are long. At the
// ends it is that of the parabola through the end and its neighbour.
QList<QPointF> speedsAt(const QList<QPointF> &points)
{
    const auto way = [&](qsizetype i) { return points[i + 1] - points[i]; };
    const auto time = [&](qsizetype i) { return QLineF(points[i], points[i + 1]).length(); };
    const qsizetype last = points.size() - 1;
    QList<QPointF> speeds(points.size());
    for (qsizetype i = 1; i < last; ++i) {
        const double before = time(i - 1);
        const double after = time(i);
        speeds[i] = (way(i - 1) / before * after + way(i) / after * before) / (before + after);
    }
    speeds[0] = way(0) / time(0) * 2 - speeds[1];
    speeds[last] = way(last - 1) / time(last - 1) * 2 - speeds[last - 1];
    return speeds;
}

double dotProduct(const QPointF &one, const QPointF &other)
{
    return QPointF::dotProduct(one, other);
}

// Where between the ends of \a segment, as a fraction, it comes nearest to \a point.
double nearestFraction(const QLineF &segment, const QPointF &point)
{
    const QPointF way = segment.p2() - segment.p1();
    const double square = dotProduct(way, way);
    return square > 0 ? qBound(0.0, dotProduct(point - segment.p1(), way) / square, 1.0) : 0.0;
}

} // namespace

QPolygonF sampled(const QPainterPath &path)
{
    constexpr double fineness = 4.0;
    const auto polygons = path.toSubpathPolygons(QTransform::fromScale(fineness, fineness));
    if (polygons.isEmpty())
        return {};
    return QTransform::fromScale(1 / fineness, 1 / fineness).map(polygons.first());
}

QPainterPath straightPath(const QList<QPointF> &points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    return path;
}

QList<QPointF> cornersOf(const QList<QPointF> &points)
{
    constexpr double straight = 0.02;
    const QList<QPointF> distinct = withoutRepetition(points);
    QList<QPointF> corners;
    for (qsizetype i = 0; i < distinct.size(); ++i) {
        const bool isEnd = i == 0 || i == distinct.size() - 1;
        const QPointF coming = isEnd ? QPointF() : unitVector(distinct[i] - corners.last());
        const QPointF going = isEnd ? QPointF() : unitVector(distinct[i + 1] - distinct[i]);
        if (isEnd || std::abs(QPointF::dotProduct(rightOf(coming), going)) > straight)
            corners << distinct[i];
    }
    return corners;
}

QPainterPath smoothPath(const QList<QPointF> &points)
{
    const QList<QPointF> knots = withoutRepetition(points);
    if (knots.size() < 3)
        return straightPath(knots);
    const QList<QPointF> speeds = speedsAt(knots);
    QPainterPath path(knots.first());
    for (qsizetype i = 0; i + 1 < knots.size(); ++i) {
        const double third = QLineF(knots[i], knots[i + 1]).length() / 3;
        path.cubicTo(knots[i] + speeds[i] * third, knots[i + 1] - speeds[i + 1] * third, knots[i + 1]);
    }
    return path;
}

QPointF unitVector(const QPointF &vector)
{
    const double length = std::hypot(vector.x(), vector.y());
    return length > 0 ? vector / length : QPointF();
}

Track::Track(const QPainterPath &path)
    : m_points(withoutRepetition(sampled(path)))
{
    double distance = 0;
    for (qsizetype i = 0; i < m_points.size(); ++i) {
        distance += i > 0 ? segment(i - 1).length() : 0.0;
        m_distances << distance;
    }
}

// The segment that contains the distance; the last one at the end. There must be one.
qsizetype Track::segmentAt(double distance) const
{
    const auto next = std::upper_bound(m_distances.begin(), m_distances.end(), distance);
    return qBound(qsizetype(0), qsizetype(next - m_distances.begin()) - 1, m_points.size() - 2);
}

QPointF Track::at(double distance) const
{
    if (m_points.size() < 2)
        return m_points.value(0);
    const qsizetype index = segmentAt(distance);
    const QLineF line = segment(index);
    return line.pointAt(qBound(0.0, (distance - m_distances[index]) / line.length(), 1.0));
}

QPointF Track::directionAt(double distance) const
{
    if (m_points.size() < 2)
        return {};
    const QLineF line = segment(segmentAt(distance));
    return unitVector(line.p2() - line.p1());
}

Track::Nearest Track::nearestTo(const QPointF &point) const
{
    Nearest nearest {0.0, QLineF(at(0), point).length()};
    for (qsizetype i = 0; i + 1 < m_points.size(); ++i) {
        const QLineF line = segment(i);
        const double fraction = nearestFraction(line, point);
        const double gap = QLineF(line.pointAt(fraction), point).length();
        if (gap < nearest.gap)
            nearest = {m_distances[i] + fraction * line.length(), gap};
    }
    return nearest;
}

bool Track::crosses(const QRectF &area) const
{
    constexpr double step = 2;
    if (!m_points.boundingRect().adjusted(-1, -1, 1, 1).intersects(area))
        return false;
    for (qsizetype i = 0; i + 1 < m_points.size(); ++i) {
        const QLineF line = segment(i);
        const QRectF reach = QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1);
        const int steps = reach.intersects(area) ? qCeil(line.length() / step) : -1;
        for (int at = 0; at <= steps; ++at) {
            if (area.contains(line.pointAt(double(at) / qMax(1, steps))))
                return true;
        }
    }
    return false;
}

QPolygonF Track::piece(double from, double to) const
{
    if (from >= to || m_points.size() < 2)
        return {};
    QPolygonF points {at(from)};
    for (qsizetype i = segmentAt(from) + 1; i < m_points.size() && m_distances[i] < to; ++i)
        points << m_points[i];
    points << at(to);
    return points;
}

QPolygonF Track::piece(double from, double to, double offset) const
{
    QPolygonF points = piece(from, to);
    if (qFuzzyIsNull(offset) || points.size() < 2)
        return points;
    const QPolygonF line = points;
    const qsizetype last = line.size() - 1;
    for (qsizetype i = 0; i <= last; ++i)
        points[i] += rightOf(unitVector(line[qMin(i + 1, last)] - line[qMax(i - 1, qsizetype(0))])) * offset;
    return points;
}

} // namespace GraphViewer
