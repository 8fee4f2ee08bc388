#include "NodeAnchors.h"

#include "DrawingFigures.h"
#include "Element.h"

#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/shapes/Ellipse.h>

#include <QLineF>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

// In the coordinates of the figure's bounds.
QPolygonF outlineOf(Figure &figure)
{
    if (const auto *outline = dynamic_cast<const OutlineFigure *>(&figure))
        return outline->outlinePolygon();
    QPainterPath path;
    if (dynamic_cast<const Ellipse *>(&figure))
        path.addEllipse(figure.getBounds());
    else
        path.addRect(figure.getBounds());
    return path.toFillPolygon();
}

} // namespace

QPolygonF outlineOf(const IConnectionAnchor &anchor)
{
    Figure *owner = anchor.getOwner();
    if (!owner)
        return {QPointF(anchor.getReferencePoint())};
    QPointF origin;
    owner->translateToAbsolute(origin);
    return outlineOf(*owner).translated(origin);
}

QPointF exitOf(const QPolygonF &outline, const QPointF &from, const QPointF &towards)
{
    const QLineF ray(from, towards);
    QPointF exit = from;
    double farthest = 0;
    for (qsizetype i = 0; i + 1 < outline.size(); ++i) {
        QPointF crossing;
        const QLineF side(outline[i], outline[i + 1]);
        if (ray.intersects(side, &crossing) == QLineF::NoIntersection)
            continue;
        // The lines cross somewhere; it counts when that is on the side and ahead.
        const QPointF along = side.p2() - side.p1();
        const double onSide = QPointF::dotProduct(crossing - side.p1(), along) / QPointF::dotProduct(along, along);
        const double ahead = QPointF::dotProduct(crossing - from, towards - from);
        if (onSide >= -1e-6 && onSide <= 1 + 1e-6 && ahead > farthest) {
            farthest = ahead;
            exit = crossing;
        }
    }
    return exit;
}

QPoint OutlineAnchor::getLocation(const QPoint &reference) const
{
    return exitOf(outlineOf(*this), getReferencePoint(), reference).toPoint();
}

PortAnchor::PortAnchor(Figure *owner, const QPoint &place, QObject *parent)
    : ChopboxAnchor(owner, parent)
    , m_offset(place)
{
    owner->translateToRelative(m_offset);
    m_offset -= owner->getBounds().topLeft();
}

QRect PortAnchor::getBox()
{
    Figure *owner = getOwner();
    return owner ? QRect(owner->getBounds().topLeft() + m_offset, QSize(1, 1)) : QRect();
}

AbstractConnectionAnchor *makeAnchor(Element &element, QObject *parent)
{
    Figure *outline = element.outline();
    if (dynamic_cast<const Ellipse *>(outline))
        return new EllipseAnchor(outline, parent);
    if (dynamic_cast<const OutlineFigure *>(outline))
        return new OutlineAnchor(outline, element.middle(), parent);
    return new ChopboxAnchor(outline, parent);
}

} // namespace GraphViewer
