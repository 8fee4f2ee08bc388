#include "LabelLocator.h"

#include "EdgeConnection.h"

#include <algorithm>
#include <cmath>
#include <limits>

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

// Beside the line at that distance.
QPointF LabelLocator::centerAt(const Place &place) const
{
    const Track &track = m_edge.track();
    const QPointF direction = track.directionAt(place.distance);
    const QPointF right = rightOf(direction);
    const QPointF aside = right * place.side * (extentAlong(right) + place.gap);
    return track.at(place.distance) + aside + direction * m_along;
}

// How much a label there would cover: nothing is worse than its own line.
int LabelLocator::harmOf(const Place &place) const
{
    constexpr int ownLine = 1000;
    QRectF label = m_label;
    label.moveCenter(centerAt(place));
    return (m_edge.track().crosses(label) ? ownLine : 0) + m_edge.harmOfLabel(label);
}

// The places beside the segments of the route, the longest first.
QList<LabelLocator::Place> LabelLocator::freePlaces(const QList<QPoint> &points) const
{
    constexpr double widestGap = 8;
    const QList<QPointF> corners = cornersOf({points.begin(), points.end()});
    QList<QPair<double, double>> segments; // the negative length, for the order, and the distance of its start
    double done = 0;
    for (qsizetype i = 0; i + 1 < corners.size(); ++i) {
        const double length = QLineF(corners[i], corners[i + 1]).length();
        segments << qMakePair(-length, done);
        done += length;
    }
    std::sort(segments.begin(), segments.end());
    QList<Place> places;
    for (const double part : {*m_freePlace, 0.3, 0.7}) {
        for (const auto &[length, start] : std::as_const(segments)) {
            for (const double side : {m_side, -m_side})
                places << Place {start - length * part, side, qMin(m_gap, widestGap)};
        }
    }
    return places;
}

LabelLocator::Place LabelLocator::placeBeside(const QList<QPoint> &points) const
{
    Place best {m_fraction * m_edge.track().length(), m_side, m_gap};
    int leastHarm = std::numeric_limits<int>::max();
    const QList<Place> places = m_freePlace ? freePlaces(points) : QList<Place>();
    for (const Place &place : places) {
        const int harm = leastHarm > 0 ? harmOf(place) : leastHarm;
        if (harm < leastHarm) {
            leastHarm = harm;
            best = place;
        }
    }
    return best;
}

QPoint LabelLocator::getLocation(QList<QPoint> points)
{
    return centerAt(placeBeside(points)).toPoint();
}

QRect LabelLocator::getNewBounds(const QSize &, const QPoint &center)
{
    const QSize size(int(std::ceil(m_label.width())), int(std::ceil(m_label.height())));
    return QRect(center - QPoint(size.width() / 2, size.height() / 2), size);
}

} // namespace GraphViewer
