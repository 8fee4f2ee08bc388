#pragma once

#include "Bends.h"
#include "EdgeRouters.h"

#include <QHash>
#include <QPainterPath>
#include <QPair>
#include <QSet>

namespace GraphViewer {

class EdgeConnection;
class EdgeLayer;
class Element;
struct Edge;

/// The edges of a graph in their layer, and the routers that lay their ways.
///
/// An edge from a node to itself needs bendpoints to be seen at all, so it has them with every router.
class EdgeSet
{
public:
    /// \a layer must outlive the set and owns the edges.
    explicit EdgeSet(EdgeLayer &layer);

    /// Adds an edge between two elements, which are in their places. An end without element stays where Graphviz put
    /// it.
    void add(const Edge &edge, Element *tail, Element *head);
    /// Gives the edges between the same two elements a lane each; call it when all edges are there.
    void assignLanes();

    /// Takes effect at once.
    void setRouter(RouterKind kind);
    /// Whether bendpoints of this edge, which may be null, can be changed now.
    bool isBendable(const EdgeConnection *edge) const { return edge && m_kind == RouterKind::Bendpoint; }

private:
    struct Member
    {
        EdgeConnection *edge;
        Element *tail;
        Element *head;
        QPainterPath squareCourse; ///< For an edge from an element to itself.
        Bends squareBends;
        bool isAngular;

        bool isLoop() const { return tail && tail == head; }
    };
    using Lanes = QHash<QPair<Element *, Element *>, QList<int>>;

    static QPair<Element *, Element *> pairOf(const Member &member);
    void assignLanes(const QList<int> &members);
    void route(const Member &member);
    bool isCrowded() const;
    int harmOfLabel(const EdgeConnection *edge, const QRectF &label) const;

    EdgeLayer &m_layer;
    EdgeRouters m_routers;
    RouterKind m_kind = RouterKind::Bendpoint;
    QList<Member> m_members;
    qsizetype m_labelledCount = 0;
    QSet<Element *> m_nodes; ///< Those at the ends of edges.
};

} // namespace GraphViewer
