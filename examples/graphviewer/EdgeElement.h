#pragma once

#include "Element.h"
#include "GraphDocument.h"

#include <QPointer>

class QTransform;

namespace GraphViewer {

/// An edge that follows its two nodes.
///
/// As long as the nodes stand where Graphviz put them, it is drawn as Graphviz drew it. When they move, its line is
/// turned and stretched so that its ends keep their places on the nodes; arrow heads turn with it but keep their size.
class EdgeElement : public Element
{
public:
    EdgeElement(const Edge &edge, QObject *parent);

    /// Draws the edge and watches its ends, either of which may be null. The edge must be in a displayed tree.
    void attach(Element *tail, Element *head);
    /// Draws the edge in the palette's highlight colour.
    void setHighlighted(bool highlighted) override;

private:
    struct End
    {
        QPointer<Element> element;
        QPoint home;

        QPointF offset() const { return element ? QPointF(element->getBounds().topLeft() - home) : QPointF(); }
    };

    End watch(Element *element);
    void redraw();
    Drawing currentDrawing() const;
    QTransform lineTransform() const;

    Edge m_edge;
    End m_tail;
    End m_head;
    bool m_highlighted = false;
};

} // namespace GraphViewer
