#pragma once

#include "Drawing.h"

#include <vtlpictel/figure/Figure.h>

namespace GraphViewer {

/// A part of the graph that the user can point at: a node, an edge or a cluster, with the figures that draw it as
/// children. Its QObject parent owns it.
class Element : public Vantrel::Pictel::Figure
{
public:
    enum class Kind { Cluster, Edge, Node };

    Element(Kind kind, const QString &name, QObject *parent);

    Kind kind() const { return m_kind; }
    /// What the user knows it by, for instance "main (Start here)".
    QString name() const { return m_name; }
    /// Edges follow their ends instead of being moved.
    bool isMovable() const { return m_kind != Kind::Edge; }
    virtual void setHighlighted(bool highlighted);

    /// Replaces what is drawn; \a drawing is in content coordinates. The element must be in a displayed tree.
    void setDrawing(const Drawing &drawing);
    /// Moves the element in its layer so that the layer remembers it.
    void place(const QRect &bounds);

    /// True on what is drawn, not in the empty corners around it.
    bool contains(const QPoint &point) const override;

private:
    void clear();

    Kind m_kind;
    QString m_name;
};

} // namespace GraphViewer
