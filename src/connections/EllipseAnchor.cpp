#include <vtlpictel/connections/EllipseAnchor.h>

#include "support/LifeGuard.h"
#include "support/RectExtents.h"
#include "support/Rounding.h"

#include <QMessageLogger>

#include <cmath>

namespace Vantrel::Pictel {

namespace {

double half(double extent, double side)
{
    return extent * (side > 0.0 ? 0.5 : -0.5);
}

// Where the ray from the centre of area in the given slanting direction leaves the inscribed ellipse, seen from the
// centre. An ellipse without width and height is its centre.
QPointF crossing(const QRectF &area, const QPointF &direction)
{
    if (area.isNull())
        return {};
    const double slope = area.width() * direction.y() / (area.height() * direction.x());
    const double squared = slope * slope;
    return {half(area.width(), direction.x()) / std::sqrt(squared + 1.0),
            half(area.height(), direction.y()) / std::sqrt(1.0 / squared + 1.0)};
}

QPoint ellipseEdge(const QRectF &area, const QPoint &reference)
{
    const QPointF center = area.center();
    const QPointF direction = reference - center;
    if (direction.x() == 0.0)
        return {reference.x(), roundToInt(direction.y() > 0.0 ? area.y() + area.height() : area.y())};
    if (direction.y() == 0.0)
        return {roundToInt(direction.x() > 0.0 ? area.x() + area.width() : area.x()), reference.y()};
    return roundedPoint(crossing(area, direction) + center);
}

} // namespace

EllipseAnchor::EllipseAnchor(QObject *parent)
    : AbstractConnectionAnchor(parent)
{ }

EllipseAnchor::EllipseAnchor(Figure *owner, QObject *parent)
    : AbstractConnectionAnchor(owner, parent)
{ }

EllipseAnchor::~EllipseAnchor() = default;

QPoint EllipseAnchor::getLocation(const QPoint &reference) const
{
    Figure *owner = getOwner();
    if (!owner) {
        QMessageLogger().warning("EllipseAnchor::getLocation(): no owner present");
        return {};
    }
    const LifeGuard<Figure> ownerLife(owner);
    QRectF area = toRectF(owner->getBounds());
    if (ownerLife.isAlive())
        owner->translateToAbsolute(area);
    return ellipseEdge(area, reference);
}

} // namespace Vantrel::Pictel
