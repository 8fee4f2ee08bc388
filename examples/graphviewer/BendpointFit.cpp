#include "BendpointFit.h"

#include "EdgeConnection.h"

#include <vtlpictel/connections/IConnectionAnchor.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

class CurveFit
{
public:
    CurveFit(EdgeConnection &edge, const QPainterPath &course);

    void divide();
    Bends bends() const;

private:
    // The samples next to an end would turn the edge's first and last bit, and so its arrows, about.
    static constexpr int fewestBetween = 3;

    int worstSample() const;
    bool isFree(int sample) const;
    QList<QPointF> route() const;

    EdgeConnection &m_edge;
    Track m_course;
    QList<QPointF> m_samples;
    QList<int> m_chosen; // in order
};

CurveFit::CurveFit(EdgeConnection &edge, const QPainterPath &course)
    : m_edge(edge)
    , m_course(course)
{
    constexpr double step = 4;
    const int count = qBound(16, qCeil(m_course.length() / step), 64);
    for (int i = 0; i <= count; ++i)
        m_samples << m_course.at(m_course.length() * i / count);
}

// As the bendpoint router finds it.
QList<QPointF> CurveFit::route() const
{
    const IConnectionAnchor *tail = m_edge.getSourceAnchor();
    const IConnectionAnchor *head = m_edge.getTargetAnchor();
    const bool direct = m_chosen.isEmpty();
    const QPoint tailAim = direct ? head->getReferencePoint() : m_samples[m_chosen.first()].toPoint();
    const QPoint headAim = direct ? tail->getReferencePoint() : m_samples[m_chosen.last()].toPoint();
    QList<QPointF> points {tail->getLocation(tailAim)};
    for (const int sample : m_chosen)
        points << m_samples[sample];
    return points << head->getLocation(headAim);
}

bool CurveFit::isFree(int sample) const
{
    const auto isNear = [sample](int chosen) { return std::abs(chosen - sample) < fewestBetween; };
    const bool isInside = sample >= fewestBetween && sample < m_samples.size() - fewestBetween;
    return isInside && std::none_of(m_chosen.begin(), m_chosen.end(), isNear);
}

// -1 when the route is near enough everywhere.
int CurveFit::worstSample() const
{
    constexpr double tolerance = 1.5;
    const Track track(smoothPath(route()));
    int worst = -1;
    double largestGap = tolerance;
    for (int i = 0; i < m_samples.size(); ++i) {
        const double gap = isFree(i) ? track.nearestTo(m_samples[i]).gap : 0;
        if (gap > largestGap) {
            largestGap = gap;
            worst = i;
        }
    }
    return worst;
}

void CurveFit::divide()
{
    constexpr int mostBends = 12;
    for (int sample = worstSample(); sample >= 0 && m_chosen.size() < mostBends; sample = worstSample()) {
        m_chosen << sample;
        std::sort(m_chosen.begin(), m_chosen.end());
    }
}

Bends CurveFit::bends() const
{
    Bends bends(&m_edge);
    for (const int sample : m_chosen)
        bends.insert(bends.count(), m_samples[sample].toPoint(), double(sample) / double(m_samples.size() - 1));
    return bends;
}

Bends bendsAt(EdgeConnection &edge, const QList<QPointF> &points, const Track &course)
{
    Bends bends(&edge);
    for (const QPointF &point : points)
        bends.insert(bends.count(), point.toPoint(), course.nearestTo(point).distance / qMax(1.0, course.length()));
    return bends;
}

QList<QPointF> innerPoints(const QList<QPointF> &points)
{
    return points.mid(1, points.size() - 2);
}

// The two numbers in their order, but not so near that lines there would be one.
std::pair<double, double> apart(double start, double end)
{
    constexpr double least = 14;
    const double missing = qMax(0.0, least - std::abs(end - start)) / 2;
    const double direction = end < start ? -1 : 1;
    return {start - direction * missing, end + direction * missing};
}

} // namespace

Bends fitBends(EdgeConnection &edge, const QPainterPath &course, bool angular)
{
    if (course.isEmpty())
        return Bends(&edge);
    if (angular)
        return bendsAt(edge, innerPoints(cornersOf(sampled(course))), Track(course));
    CurveFit fit(edge, course);
    fit.divide();
    return fit.bends();
}

QPainterPath squareLoop(const QPainterPath &course, const QRectF &box)
{
    const QRectF loop = course.boundingRect();
    const QPointF start = course.pointAtPercent(0);
    const QPointF end = course.pointAtPercent(1);
    const auto [left, right] = apart(start.x(), end.x());
    const auto [top, bottom] = apart(start.y(), end.y());
    struct Side
    {
        double reach;
        QPointF afterStart;
        QPointF beforeEnd;
    };
    const std::array<Side, 4> sides {{
        {loop.right() - box.right(), {loop.right(), top}, {loop.right(), bottom}},
        {box.left() - loop.left(), {loop.left(), top}, {loop.left(), bottom}},
        {loop.bottom() - box.bottom(), {left, loop.bottom()}, {right, loop.bottom()}},
        {box.top() - loop.top(), {left, loop.top()}, {right, loop.top()}},
    }};
    const auto side = std::max_element(sides.begin(), sides.end(),
                                       [](const Side &one, const Side &other) { return one.reach < other.reach; });
    return straightPath({start, side->afterStart, side->beforeEnd, end});
}

} // namespace GraphViewer
