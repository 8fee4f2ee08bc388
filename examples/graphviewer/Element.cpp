#include "Element.h"

#include <vtlpictel/layout/XYLayout.h>

#include <algorithm>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

bool isOutline(const Figure *figure)
{
    return dynamic_cast<const Shape *>(figure) && !dynamic_cast<const CurveFigure *>(figure);
}

qint64 areaOf(Figure *figure)
{
    const QSize size = figure->getBounds().size();
    return qint64(size.width()) * size.height();
}

} // namespace

DrawnFigure::DrawnFigure(QObject *parent)
    : Figure(parent, Qt::transparent)
{
    setLayoutManager(new XYLayout(this));
}

void DrawnFigure::fill(const Drawing &drawing, Frames frames)
{
    addFigures(*this, drawing, frames);
}

bool DrawnFigure::contains(const QPoint &point) const
{
    if (!Figure::contains(point))
        return false;
    Figure *self = mutableSelf();
    QPoint inside = point;
    self->translateFromParent(inside);
    const QList<Figure *> children = self->childFigures();
    return std::any_of(children.begin(), children.end(), [&](const Figure *child) { return child->contains(inside); });
}

Element::Element(Kind kind, const QString &name, QObject *parent)
    : DrawnFigure(parent)
    , GraphPart(name)
    , m_kind(kind)
{ }

void Element::setHighlighted(bool highlighted)
{
    highlightClientArea(highlighted);
}

void Element::place(const QRect &bounds)
{
    getParentFigure()->getLayoutManager()->setConstraint(this, bounds);
}

void Element::setDrawing(const Drawing &drawing)
{
    place(drawingExtent(drawing).toAlignedRect());
    setMiddle(getBounds().center());
    fill(drawing, m_kind == Kind::Cluster ? Frames::Rounded : Frames::AsDrawn);
}

Figure *Element::outline()
{
    QList<Figure *> outlines = childFigures();
    outlines.removeIf([](const Figure *child) { return !isOutline(child); });
    const auto smaller = [](Figure *one, Figure *other) { return areaOf(one) < areaOf(other); };
    const auto largest = std::max_element(outlines.begin(), outlines.end(), smaller);
    return largest == outlines.end() ? this : *largest;
}

} // namespace GraphViewer
