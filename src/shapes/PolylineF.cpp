#include <vtlpictel/shapes/PolylineF.h>

#include "shapes/LinePoints_p.h"
#include "support/Rounding.h"

namespace Vantrel::Pictel {

namespace {

using Editor = LinePointsEditor<QPointF>;

constexpr char className[] = "PolylineF";

} // namespace

int PolylineF::M_tolerance = 2;

PolylineF::PolylineF(QObject *parent)
    : Shape(parent)
{
    setFill(false);
}

// The area is that of the points, which the base classes do not know.
PolylineF::~PolylineF()
{
    erase();
}

QList<QPointF> PolylineF::getLinePoints() const
{
    return m_points;
}

void PolylineF::setLinePoints(const QList<QPointF> &points)
{
    Editor(*this, m_points, className).setAll(points);
}

QPoint PolylineF::getPoint(int index) const
{
    return roundedPoint(getPointF(index));
}

QPointF PolylineF::getPointF(int index) const
{
    return m_points.value(index);
}

QPointF PolylineF::getStart() const
{
    return getPointF(0);
}

QPointF PolylineF::getEnd() const
{
    return getPointF(getPointCount() - 1);
}

void PolylineF::addPoint(const QPointF &point)
{
    Editor(*this, m_points, className).add(point);
}

void PolylineF::insertPoint(const QPointF &point, int index)
{
    Editor(*this, m_points, className).insert(point, index);
}

void PolylineF::setPoint(const QPointF &point, int index)
{
    Editor(*this, m_points, className).set(point, index);
}

void PolylineF::removePoint(int index)
{
    Editor(*this, m_points, className).remove(index);
}

void PolylineF::removeAllPoints()
{
    Editor(*this, m_points, className).removeAll();
}

void PolylineF::setStart(const QPointF &point)
{
    Editor(*this, m_points, className).setStart(point);
}

void PolylineF::setEnd(const QPointF &point)
{
    Editor(*this, m_points, className).setEnd(point);
}

void PolylineF::setEndPoints(const QPointF &start, const QPointF &end)
{
    Editor(*this, m_points, className).setEnds(start, end);
}

void PolylineF::setLineWidth(int width)
{
    changeLineWidth(*this, width);
}

QRect PolylineF::getBounds()
{
    return roundedRect(getPainterPath().boundingRect());
}

bool PolylineF::contains(const QPoint &point) const
{
    return isOnLine(static_cast<PolylineF &>(*mutableSelf()), getPainterPath(), point);
}

void PolylineF::regeneratePath(const QRectF &)
{
    painterPath() = pathThrough(getLinePoints());
}

} // namespace Vantrel::Pictel
