#include "GraphScene.h"

#include "DrawingFigures.h"
#include "EdgeElement.h"
#include "SheetPane.h"

#include <vtlpictel/figure/ITreeSearch.h>
#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layout/FreeformLayout.h>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

constexpr int gridStep = 20;

// Finds elements rather than the outlines and texts they are made of.
class ElementSearch : public ITreeSearch
{
public:
    bool accept(const Figure *figure) const override { return dynamic_cast<const Element *>(figure) != nullptr; }
    bool prune(const Figure *figure) const override { return !figure->isVisible(); }
};

// Null when nothing is drawn.
template <typename ElementType, typename... Arguments>
ElementType *addElement(FreeformLayer &layer, bool drawn, Arguments &&...arguments)
{
    if (!drawn)
        return nullptr;
    auto *element = new ElementType(std::forward<Arguments>(arguments)..., &layer);
    layer.add(element);
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
    m_clusterLayer = addLayer(QStringLiteral("clusters"));
    m_edgeLayer = addLayer(QStringLiteral("edges"));
    m_nodeLayer = addLayer(QStringLiteral("nodes"));
    m_labelLayer = addLayer(QStringLiteral("labels"));
}

GraphScene::~GraphScene() = default;

FreeformLayer *GraphScene::addLayer(const QString &key)
{
    // The extent is examined on demand: each figure that moves would otherwise look at all others.
    auto *layer = new FreeformLayer(m_sheet, false);
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
        const bool drawn = !cluster.drawing.empty();
        auto *element = addElement<Element>(*m_clusterLayer, drawn, Element::Kind::Cluster, cluster.name);
        if (element)
            element->setDrawing(cluster.drawing);
        m_clusters << element;
        m_members << ClusterMembers {cluster.nodes, cluster.clusters};
    }
}

void GraphScene::addNodes(const GraphDocument &document)
{
    for (const Node &node : document.nodes) {
        auto *element = addElement<Element>(*m_nodeLayer, !node.drawing.empty(), Element::Kind::Node, node.name);
        if (element)
            element->setDrawing(node.drawing);
        m_nodes << element;
    }
}

void GraphScene::addEdges(const GraphDocument &document)
{
    for (const Edge &edge : document.edges) {
        const bool drawn = !edge.lines.empty() || !edge.labels.empty();
        auto *element = addElement<EdgeElement>(*m_edgeLayer, drawn, edge);
        if (element)
            element->attach(nodeElement(edge.tail), nodeElement(edge.head));
    }
}

QRect GraphScene::pictureArea() const
{
    const QRect page(0, 0, qRound(m_page.width()), qRound(m_page.height()));
    return m_moved ? page.united(m_content->getFreeformExtent()) : page;
}

Element *GraphScene::elementAt(const QPoint &point) const
{
    return dynamic_cast<Element *>(m_content->findFigureAt(point.x(), point.y(), ElementSearch()));
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
        moved << nodeElement(node);
    moved.removeAll(nullptr);
    return moved;
}

void GraphScene::move(Element *element, const QPoint &offset)
{
    if (!element || !element->isMovable() || offset.isNull())
        return;
    for (Element *moved : movedWith(element))
        moved->place(moved->getBounds().translated(offset));
    m_moved = true;
}

void GraphScene::updateExtent()
{
    for (FreeformLayer *layer : {m_clusterLayer, m_edgeLayer, m_nodeLayer, m_labelLayer})
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
}

} // namespace GraphViewer
