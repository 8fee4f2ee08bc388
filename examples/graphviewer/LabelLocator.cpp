#include "LabelLocator.h"

#include "EdgeConnection.h"

#include <cmath>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

constexpr double narrowestGap = 3;

} // namespace

LabelLocator::LabelLocator(EdgeConnection &edge, const QRectF &label)
    : ConnectionLocator(&edge)
    , m_edge(edge)
    , m_label(label)
{
    takePlace(Track(edge.course()));
}

void LabelLocator::takePlace(const Track &course)
{
    const double distance = course.nearestTo(m_label.center()).distance;
    const QPointF direction = course.directionAt(distance);
    const QPointF right = rightOf(direction);
    const QPointF way = m_label.center() - course.at(distance);
    const double aside = QPointF::dotProduct(way, right);
    m_fraction = course.length() > 0 ? distance / course.length() : 0.5;
    m_side = aside < 0 ? -1 : 1;
    m_gap = std::abs(aside) - extentAlong(right);
    m_along = QPointF::dotProduct(way, direction);
}

void LabelLocator::setPlace(const QPainterPath &course, double fraction)
{
    takePlace(Track(course.isEmpty() ? m_edge.course() : course));
    if (course != m_edge.course()) // which may come nearer to the label than Graphviz's
        m_gap = qMax(m_gap, narrowestGap);
    m_freePlace = course.isEmpty() && !isAtEnd() ? std::optional<double>(fraction) : std::nullopt;
}

// From the middle of the label to its rim.
double LabelLocator::extentAlong(const QPointF &direction) const
{
    return (std::abs(direction.x()) * m_label.width() + std::abs(direction.y()) * m_label.height()) / 2;
}

double LabelLocator::distanceAlong(const QList<QPoint> &points) const
{
    if (!m_freePlace)
        return m_fraction * m_edge.track().length();
    double distance = 0;
    double done = 0;
    double longest = 0;
    const QList<QPointF> corners = cornersOf({points.begin(), points.end()});
    for (qsizetype i = 0; i + 1 < corners.size(); ++i) {
        const double length = QLineF(corners[i], corners[i + 1]).length();
        if (length > longest) {
            longest = length;
            distance = done + length * *m_freePlace;
        }
        done += length;
    }
    return distance;
}

QPoint LabelLocator::getLocation(QList<QPoint> points)
{
    constexpr double widestGap = 8;
    const Track &track = m_edge.track();
    const double distance = distanceAlong(points);
    const double gap = m_freePlace ? qMin(m_gap, widestGap) : m_gap;
    const QPointF direction = track.directionAt(distance);
    const QPointF right = rightOf(direction);
    const QPointF aside = right * m_side * (extentAlong(right) + gap);
    return (track.at(distance) + aside + direction * m_along).toPoint();
}

QRect LabelLocator::getNewBounds(const QSize &, const QPoint &center)
{
    const QSize size(int(std::ceil(m_label.width())), int(std::ceil(m_label.height())));
    return QRect(center - QPoint(size.width() / 2, size.height() / 2), size);
}

} // namespace GraphViewer
