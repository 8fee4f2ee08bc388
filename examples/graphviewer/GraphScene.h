#pragma once

#include "EdgeRouters.h"
#include "Element.h"
#include "GraphDocument.h"

#include <memory>

namespace Vantrel::Pictel {
class FreeformLayer;
class FreeformLayeredPane;
} // namespace Vantrel::Pictel

namespace GraphViewer {

class EdgeConnection;
class EdgeLayer;
class EdgeSet;
class SheetPane;

/// The figures of one graph, in content coordinates.
///
/// The content is a pane with the grid and, on it, the pane "graph" with the layers "clusters", "edges", "nodes" and
/// "labels", bottom to top; "graph" is what is printed and exported. The scene owns all of it.
class GraphScene
{
public:
    static QString printedLayer();

    GraphScene();
    ~GraphScene();

    /// What a viewer shows. It must be shown before build(): figures take their outlines when they are displayed.
    Vantrel::Pictel::FreeformLayeredPane *content() const;
    void build(const GraphDocument &document);

    QString name() const { return m_name; }
    QColor paper() const { return m_paper; }
    /// The area of the picture: what Graphviz would make of it, and whatever was moved out of that.
    QRect pictureArea() const;
    /// The uppermost node, cluster or edge there, or null.
    GraphPart *partAt(const QPoint &point) const;
    /// Moves a node with its label, or a cluster with everything in it. Their edges follow.
    void move(Element *element, const QPoint &offset);
    /// Takes note of how far the figures reach now.
    void updateExtent();

    /// The bendpoint router at first.
    void setRouter(RouterKind kind);
    /// Whether bendpoints of \a edge, which may be null, can be changed now.
    bool isBendable(const EdgeConnection *edge) const;
    /// Takes note that the user changed the picture, which may have outgrown its page.
    void setChanged() { m_changed = true; }

    /// Makes printing paint the paper too, which the screen gets from the view.
    void setPaperPrinted(bool printed);
    void setGridVisible(bool visible);
    void setAntialiasing(bool on);

private:
    struct ClusterMembers
    {
        QList<int> nodes;
        QList<int> clusters;
    };

    template <typename LayerType>
    LayerType *addLayer(const QString &key);
    void addTitle(const GraphDocument &document);
    void addClusters(const GraphDocument &document);
    void addNodes(const GraphDocument &document);
    void addEdges(const GraphDocument &document);
    QList<Element *> movedWith(Element *element) const;
    Element *endOf(int node, int cluster) const;

    std::unique_ptr<Vantrel::Pictel::FreeformLayeredPane> m_content;
    SheetPane *m_sheet = nullptr;
    Vantrel::Pictel::FreeformLayer *m_clusterLayer = nullptr;
    EdgeLayer *m_edgeLayer = nullptr;
    Vantrel::Pictel::FreeformLayer *m_nodeLayer = nullptr;
    Vantrel::Pictel::FreeformLayer *m_labelLayer = nullptr;
    QList<Element *> m_clusters; ///< As in the document; null for what is not drawn. Likewise the nodes.
    QList<Element *> m_nodes;
    QList<ClusterMembers> m_members;
    std::unique_ptr<EdgeSet> m_edges;
    QString m_name;
    QRectF m_page;
    QColor m_paper = Qt::white;
    bool m_changed = false;
};

} // namespace GraphViewer
