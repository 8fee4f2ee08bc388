#pragma once

#include "DrawingFigures.h"
#include "GraphPart.h"

#include <vtlpictel/figure/Figure.h>

namespace GraphViewer {

/// A figure whose children show a drawing; their coordinates are relative to it.
class DrawnFigure : public Vantrel::Pictel::Figure
{
public:
    explicit DrawnFigure(QObject *parent);

    /// Fills the figure with \a drawing, which is in its parent's coordinates and must fit its bounds. Call it once,
    /// when the figure is in a displayed tree.
    void fill(const Drawing &drawing, Frames frames = Frames::AsDrawn);

    /// True on what is drawn, not in the empty corners around it.
    bool contains(const QPoint &point) const override;
};

/// A node or a cluster of the graph. Its QObject parent owns it.
class Element : public DrawnFigure, public GraphPart
{
public:
    enum class Kind { Cluster, Node };

    Element(Kind kind, const QString &name, QObject *parent);

    /// Places the element where \a drawing is, in content coordinates, and draws it; see fill().
    void setDrawing(const Drawing &drawing);
    /// Moves the element in its layer so that the layer remembers it.
    void place(const QRect &bounds);
    /// Where edges aim, in content coordinates; at first the middle of the bounds.
    QPoint middle() { return getBounds().topLeft() + m_middle; }
    void setMiddle(const QPoint &middle) { m_middle = middle - getBounds().topLeft(); }
    /// What edges end at: the figure of the largest outline, or the element itself when it has none.
    Vantrel::Pictel::Figure *outline();

    void setHighlighted(bool highlighted) override;

private:
    Kind m_kind;
    QPoint m_middle; // from the top-left of the bounds
};

} // namespace GraphViewer
