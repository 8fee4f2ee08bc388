#include <vtlpictel/shapes/Polygon.h>

#include "shapes/LinePoints_p.h"

namespace Vantrel::Pictel {

Polygon::Polygon(QObject *parent)
    : Polyline(parent)
{ }

Polygon::~Polygon() = default;

bool Polygon::contains(const QPoint &point) const
{
    return getPainterPath().contains(QPointF(point)) || isOnChild(*mutableSelf(), point);
}

void Polygon::regeneratePath(const QRectF &bounds)
{
    Polyline::regeneratePath(bounds);
    painterPath().closeSubpath();
}

} // namespace Vantrel::Pictel
