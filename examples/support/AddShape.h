#pragma once

#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/shapes/Shape.h>
#include <vtlpictel/shapes/TextFigure.h>

/// Adds a new shape, with \a text in its middle, to \a container, which becomes its QObject parent, too.
///
/// Note the order: a shape takes its form when its bounds change while it is shown. So it is added first, and only then
/// given its \a constraint, whose meaning is up to the container's layout.
template <typename ShapeType>
ShapeType *addShape(Vantrel::Pictel::Figure *container, const QVariant &constraint, const QColor &color,
                    const QString &text = QString())
{
    auto *shape = new ShapeType(container);
    shape->setEnabledBGColor(color);
    shape->setEnabledFGColor(color.darker(150));
    shape->setLineWidth(2);
    shape->setMinimumSize(QSize(12, 12)); // Without a text it would have no size of its own.
    shape->setLayoutManager(new Vantrel::Pictel::HBoxLayout(shape));
    if (!text.isEmpty())
        shape->add(new Vantrel::Pictel::TextFigure(text, shape, Qt::transparent), 1, 1, -1);
    container->add(shape);
    container->getLayoutManager()->setConstraint(shape, constraint);
    return shape;
}
