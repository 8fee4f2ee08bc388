#include "Element.h"

#include "DrawingFigures.h"

#include <vtlpictel/layout/XYLayout.h>

#include <algorithm>

namespace GraphViewer {

using namespace Vantrel::Pictel;

Element::Element(Kind kind, const QString &name, QObject *parent)
    : Figure(parent, Qt::transparent)
    , m_kind(kind)
    , m_name(name)
{
    setLayoutManager(new XYLayout(this));
}

void Element::setHighlighted(bool highlighted)
{
    highlightClientArea(highlighted);
}

void Element::place(const QRect &bounds)
{
    getParentFigure()->getLayoutManager()->setConstraint(this, bounds);
}

void Element::clear()
{
    for (Figure *child : childFigures()) {
        remove(child);
        delete child;
    }
}

void Element::setDrawing(const Drawing &drawing)
{
    clear();
    place(drawingExtent(drawing).toAlignedRect());
    addFigures(*this, drawing, m_kind == Kind::Cluster ? Frames::Rounded : Frames::AsDrawn);
}

bool Element::contains(const QPoint &point) const
{
    if (!Figure::contains(point))
        return false;
    Figure *self = mutableSelf();
    QPoint inside = point;
    self->translateFromParent(inside);
    const QList<Figure *> children = self->childFigures();
    return std::any_of(children.begin(), children.end(), [&](const Figure *child) { return child->contains(inside); });
}

} // namespace GraphViewer
