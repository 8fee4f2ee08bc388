#pragma once

#include <vtlpictel/figure/Ray.h>

#include <QList>

namespace Vantrel::Pictel {

/// One end of a rectilinear route: where it lies, and the direction out of its figure.
struct RouteEnd
{
    Ray point;
    Ray normal;
};

/// The positions of a rectilinear route between two ends: one coordinate per segment, horizontal and vertical
/// segments in turn, y for a horizontal and x for a vertical one. The first segment runs along the start's normal.
///
/// The sides on which the ends lie decide the shape:
///   perpendicular   one corner when each normal leads towards the other end, else two more segments
///   opposite        a Z through the middle, or around both figures when the start's normal leads away
///   same            a U outside both figures
/// Where a normal leads away from the other end, the route first goes a little outside that figure.
class SegmentPlan
{
public:
    SegmentPlan(const RouteEnd &start, const RouteEnd &end)
        : m_start(start)
        , m_end(end)
        , m_average(start.point.getAveraged(end.point))
        , m_direction(start.point, end.point)
        , m_startHorizontal(start.normal.isHorizontal())
        , m_nextHorizontal(!m_startHorizontal)
    {
        m_positions.append(coordinate(start.point, m_startHorizontal));
        appendInner();
        m_positions.append(coordinate(end.point, m_nextHorizontal));
    }

    const QList<int> &positions() const { return m_positions; }

private:
    static int coordinate(const Ray &point, bool ofHorizontalSegment)
    {
        return ofHorizontalSegment ? point.y() : point.x();
    }

    /// The line ten pixels outside of the figure at \a end, without its sign.
    static int outside(const RouteEnd &end)
    {
        return end.normal.similarity(end.point.getAdded(end.normal.getScaled(10)));
    }

    bool startLeadsAway() const { return m_start.normal.dotProduct(m_direction) < 0; }
    bool endLeadsAway() const { return m_end.normal.dotProduct(m_direction) > 0; }

    void appendInner()
    {
        const int facing = m_start.normal.dotProduct(m_end.normal);
        if (facing == 0)
            appendForPerpendicularSides();
        else if (facing < 0)
            appendForOppositeSides();
        else
            appendForSameSide();
    }

    void appendForPerpendicularSides()
    {
        if (!startLeadsAway() && !endLeadsAway())
            return;
        m_positions.append(startLeadsAway() ? outside(m_start) : coordinate(m_average, m_nextHorizontal));
        m_positions.append(endLeadsAway() ? outside(m_end) : coordinate(m_average, m_startHorizontal));
    }

    void appendForOppositeSides()
    {
        if (!startLeadsAway()) {
            m_positions.append(coordinate(m_average, m_nextHorizontal));
            m_nextHorizontal = !m_nextHorizontal;
            return;
        }
        m_nextHorizontal = m_startHorizontal;
        m_positions.append({outside(m_start), coordinate(m_average, m_nextHorizontal), outside(m_end)});
    }

    void appendForSameSide()
    {
        m_positions.append(outside(startLeadsAway() ? m_end : m_start));
        m_nextHorizontal = m_startHorizontal;
    }

    const RouteEnd &m_start;
    const RouteEnd &m_end;
    const Ray m_average;
    const Ray m_direction;
    const bool m_startHorizontal;
    bool m_nextHorizontal;
    QList<int> m_positions;
};

} // namespace Vantrel::Pictel
