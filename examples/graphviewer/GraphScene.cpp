#include "GraphScene.h"

#include "DrawingFigures.h"
#include "EdgeConnection.h"
#include "EdgeLayer.h"
#include "EdgeSet.h"
#include "SheetPane.h"

#include <vtlpictel/figure/ITreeSearch.h>
#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layout/FreeformLayout.h>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

constexpr int gridStep = 20;

// Finds parts of the graph rather than the outlines and texts they are made of.
class PartSearch : public ITreeSearch
{
public:
    bool accept(const Figure *figure) const override { return dynamic_cast<const GraphPart *>(figure) != nullptr; }
    bool prune(const Figure *figure) const override { return !figure->isVisible(); }
};

// Null when nothing is drawn.
template <typename Part>
Element *addElement(FreeformLayer &layer, Element::Kind kind, const Part &part)
{
    if (part.drawing.empty())
        return nullptr;
    auto *element = new Element(kind, part.name, &layer);
    layer.add(element);
    element->setDrawing(part.drawing);
    return element;
}

} // namespace

QString GraphScene::printedLayer()
{
    return QStringLiteral("graph");
}

GraphScene::GraphScene()
    : m_content(std::make_unique<FreeformLayeredPane>())
    , m_sheet(new SheetPane(m_content.get()))
{
    m_content->setSnapSize(gridStep);
    m_content->addLayer(m_sheet, printedLayer());
    m_clusterLayer = addLayer<FreeformLayer>(QStringLiteral("clusters"));
    m_edgeLayer = addLayer<EdgeLayer>(QStringLiteral("edges"));
    m_nodeLayer = addLayer<FreeformLayer>(QStringLiteral("nodes"));
    m_labelLayer = addLayer<FreeformLayer>(QStringLiteral("labels"));
    m_edges = std::make_unique<EdgeSet>(*m_edgeLayer);
}

GraphScene::~GraphScene() = default;

template <typename LayerType>
LayerType *GraphScene::addLayer(const QString &key)
{
    // The extent is examined on demand: each figure that moves would otherwise look at all others.
    auto *layer = new LayerType(m_sheet, false);
    m_sheet->addLayer(layer, key);
    return layer;
}

FreeformLayeredPane *GraphScene::content() const
{
    return m_content.get();
}

void GraphScene::build(const GraphDocument &document)
{
    m_name = document.name;
    m_page = document.page;
    m_paper = document.paper;
    addTitle(document);
    addClusters(document);
    addNodes(document);
    addEdges(document);
    updateExtent();
}

void GraphScene::addTitle(const GraphDocument &document)
{
    for (const DrawItem &item : document.title) {
        const auto *run = std::get_if<TextRun>(&item);
        if (!run)
            continue;
        auto *line = new TextLine(*run, m_labelLayer);
        m_labelLayer->add(line, line->textBounds());
    }
}

void GraphScene::addClusters(const GraphDocument &document)
{
    for (const Cluster &cluster : document.clusters) {
        m_clusters << addElement(*m_clusterLayer, Element::Kind::Cluster, cluster);
        m_members << ClusterMembers {cluster.nodes, cluster.clusters};
    }
}

void GraphScene::addNodes(const GraphDocument &document)
{
    for (const Node &node : document.nodes) {
        m_nodes << addElement(*m_nodeLayer, Element::Kind::Node, node);
        if (m_nodes.last())
            m_nodes.last()->setMiddle(node.middle.toPoint());
    }
}

Element *GraphScene::endOf(int node, int cluster) const
{
    Element *element = m_clusters.value(cluster);
    return element ? element : m_nodes.value(node);
}

void GraphScene::addEdges(const GraphDocument &document)
{
    for (const Edge &edge : document.edges) {
        if (!edge.strands.empty() || !edge.labels.empty())
            m_edges->add(edge, endOf(edge.tail, edge.tailCluster), endOf(edge.head, edge.headCluster));
    }
    m_edges->assignLanes();
}

void GraphScene::setRouter(RouterKind kind)
{
    m_edges->setRouter(kind);
    updateExtent();
}

bool GraphScene::isBendable(const EdgeConnection *edge) const
{
    return m_edges->isBendable(edge);
}

QRect GraphScene::pictureArea() const
{
    const QRect page(0, 0, qRound(m_page.width()), qRound(m_page.height()));
    return m_changed ? page.united(m_content->getFreeformExtent()) : page;
}

GraphPart *GraphScene::partAt(const QPoint &point) const
{
    return dynamic_cast<GraphPart *>(m_content->findFigureAt(point.x(), point.y(), PartSearch()));
}

QList<Element *> GraphScene::movedWith(Element *element) const
{
    QList<Element *> moved {element};
    const qsizetype cluster = m_clusters.indexOf(element);
    if (cluster < 0)
        return moved;
    for (const int inner : m_members.at(cluster).clusters)
        moved << m_clusters.value(inner);
    for (const int node : m_members.at(cluster).nodes)
        moved << m_nodes.value(node);
    moved.removeAll(nullptr);
    return moved;
}

void GraphScene::move(Element *element, const QPoint &offset)
{
    if (!element || offset.isNull())
        return;
    for (Element *moved : movedWith(element))
        moved->place(moved->getBounds().translated(offset));
    m_changed = true;
}

void GraphScene::updateExtent()
{
    m_edgeLayer->layOut();
    for (const FreeformLayer *layer : {m_clusterLayer, m_nodeLayer, m_labelLayer})
        qobject_cast<FreeformLayout *>(layer->getLayoutManager())->examineExtent();
}

void GraphScene::setPaperPrinted(bool printed)
{
    const bool differsFromWhite = m_paper != QColor(Qt::white);
    m_sheet->setPaper(printed && differsFromWhite ? pictureArea() : QRect(), m_paper);
}

void GraphScene::setGridVisible(bool visible)
{
    m_content->setDrawGrid(visible);
    m_content->repaint();
}

void GraphScene::setAntialiasing(bool on)
{
    m_sheet->setAntialiasing(on);
    m_edgeLayer->setAntialias(on);
}

} // namespace GraphViewer
