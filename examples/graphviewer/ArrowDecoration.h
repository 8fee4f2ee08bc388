#pragma once

#include "GraphDocument.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IRotatableDecoration.h>

namespace GraphViewer {

/// An arrow of any look at an end of a connection: what Graphviz drew there, turned as the line turns.
class ArrowDecoration : public Vantrel::Pictel::Figure, public Vantrel::Pictel::IRotatableDecoration
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IRotatableDecoration)

public:
    ArrowDecoration(const Arrow &arrow, QObject *parent);

    /// How much of the line it covers, in pixels.
    double length() const { return m_arrow.length; }
    /// Draws everything in \a color; an invalid one gives the own colours back.
    void setColor(const QColor &color);

    void setLocation(const QPointF &point) override;
    void setLocation(const QPoint &point) override { setLocation(QPointF(point)); }
    void setReferencePoint(const QPointF &point) override;
    void setReferencePoint(const QPoint &point) override { setReferencePoint(QPointF(point)); }

protected:
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;

private:
    void update();

    Arrow m_arrow;
    Drawing m_placed; // in the parent's coordinates
    QPointF m_tip;
    double m_angle = 0.0; // counter-clockwise, degrees
    QColor m_color;
};

} // namespace GraphViewer
