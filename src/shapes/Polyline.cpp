#include <vtlpictel/shapes/Polyline.h>

#include "shapes/LinePoints_p.h"
#include "support/Rounding.h"

namespace Vantrel::Pictel {

namespace {

using Editor = LinePointsEditor<QPoint>;

constexpr char className[] = "Polyline";

/// A straight horizontal or vertical line has no area; it is given one, or it could be neither painted nor hit.
QRect withArea(const QRect &rect)
{
    return QRect(rect.topLeft(), rect.size().expandedTo(QSize(1, 1)));
}

} // namespace

int Polyline::M_tolerance = 6;

Polyline::Polyline(QObject *parent)
    : Shape(parent)
{
    setFill(false);
}

// The area is that of the points, which the base classes do not know.
Polyline::~Polyline()
{
    erase();
}

QList<QPoint> Polyline::getLinePoints() const
{
    return m_points;
}

void Polyline::setLinePoints(const QList<QPoint> &points)
{
    Editor(*this, m_points, className).setAll(points);
}

QPoint Polyline::getPoint(int index) const
{
    return m_points.value(index);
}

QPoint Polyline::getStart() const
{
    return getPoint(0);
}

QPoint Polyline::getEnd() const
{
    return getPoint(getPointCount() - 1);
}

void Polyline::addPoint(const QPoint &point)
{
    Editor(*this, m_points, className).add(point);
}

void Polyline::insertPoint(const QPoint &point, int index)
{
    Editor(*this, m_points, className).insert(point, index);
}

void Polyline::setPoint(const QPoint &point, int index)
{
    Editor(*this, m_points, className).set(point, index);
}

void Polyline::removePoint(int index)
{
    Editor(*this, m_points, className).remove(index);
}

void Polyline::removeAllPoints()
{
    Editor(*this, m_points, className).removeAll();
}

void Polyline::setStart(const QPoint &point)
{
    Editor(*this, m_points, className).setStart(point);
}

void Polyline::setEnd(const QPoint &point)
{
    Editor(*this, m_points, className).setEnd(point);
}

void Polyline::setEndPoints(const QPoint &start, const QPoint &end)
{
    Editor(*this, m_points, className).setEnds(start, end);
}

void Polyline::setLineWidth(int width)
{
    changeLineWidth(*this, width);
}

QRect Polyline::getBounds()
{
    const QRect bounds = roundedRect(getPainterPath().boundingRect());
    return getPointCount() == 2 ? withArea(bounds) : bounds;
}

QRect Polyline::resolveBounds(const QRect &bounds)
{
    return bounds;
}

bool Polyline::contains(const QPoint &point) const
{
    return isOnLine(static_cast<Polyline &>(*mutableSelf()), getPainterPath(), point);
}

void Polyline::regeneratePath(const QRectF &)
{
    painterPath() = pathThrough(getLinePoints());
}

} // namespace Vantrel::Pictel
