#include "GraphReader.h"

#include "DrawingReader.h"
#include "EdgeReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace GraphViewer {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("GraphReader", text);
}

QRectF boxOf(const QJsonObject &graph)
{
    const QStringList edges = graph[QLatin1String("bb")].toString().split(u',');
    if (edges.size() != 4)
        return {};
    return QRectF(QPointF(edges[0].toDouble(), edges[1].toDouble()), QPointF(edges[2].toDouble(), edges[3].toDouble()));
}

bool isLatin1(const QString &charset)
{
    static const QStringList names {QStringLiteral("latin1"),     QStringLiteral("latin-1"),
                                    QStringLiteral("l1"),         QStringLiteral("iso-8859-1"),
                                    QStringLiteral("iso_8859-1"), QStringLiteral("iso8859-1"),
                                    QStringLiteral("iso-ir-100")};
    return names.contains(charset.toLower());
}

QString labelText(const Drawing &drawing)
{
    QStringList lines;
    for (const DrawItem &item : drawing) {
        if (const auto *run = std::get_if<TextRun>(&item))
            lines << run->text.trimmed();
    }
    return lines.join(u' ').simplified();
}

// "a" when the label says no more than the name, else "a (Label)".
QString nameWithLabel(const QString &name, const QString &label)
{
    constexpr int longestLabel = 80;
    if (label.isEmpty() || label == name)
        return name;
    const bool tooLong = label.size() > longestLabel;
    return QStringLiteral("%1 (%2)").arg(name, tooLong ? label.left(longestLabel) + u'…' : label);
}

class GraphReader
{
public:
    GraphReader(const QJsonObject &graph, const QDir &directory)
        : m_graph(graph)
        , m_directory(directory)
        , m_box(boxOf(graph))
        , m_mapper(m_box)
        , m_latin1(isLatin1(graph[QLatin1String("charset")].toString()))
    { }
    GraphDocument read();

private:
    void readGraphItself();
    void readObjects();
    void readEdges();
    void readCluster(const QJsonObject &object);
    void readNode(const QJsonObject &object);
    std::optional<QPointF> middleOf(const QJsonObject &object) const;
    void readPicture(const QJsonObject &object, Drawing &drawing) const;
    void readEdge(const QJsonObject &object);
    int clusterEnd(const QString &name, int node, int otherNode) const;
    void collectClusters();
    QList<int> clustersIn(int object) const;
    QList<int> nodeIndices(const QJsonArray &objects) const;
    QString nodeName(int node) const { return node < 0 ? QString() : m_names.at(node); }

    Drawing drawing(const QJsonObject &object, const char *key) const;
    // Outlines first, so that the text stands on them.
    Drawing ownAndLabel(const QJsonObject &object) const;

    QJsonObject m_graph;
    QDir m_directory;
    QRectF m_box;
    PointMapper m_mapper;
    bool m_latin1;
    GraphDocument m_document;
    QJsonArray m_objects;
    QHash<int, int> m_nodeOfObject;
    QHash<int, int> m_clusterOfObject;
    QHash<QString, int> m_clusterOfName;
    QStringList m_names;
};

Drawing GraphReader::ownAndLabel(const QJsonObject &object) const
{
    Drawing all = drawing(object, "_draw_");
    Drawing label = drawing(object, "_ldraw_");
    std::move(label.begin(), label.end(), std::back_inserter(all));
    return all;
}

// From a graph in Latin-1, Graphviz makes UTF-8 of its texts, but not of its names, twice.
Drawing GraphReader::drawing(const QJsonObject &object, const char *key) const
{
    Drawing drawing = readDrawing(object[QLatin1String(key)].toArray(), m_mapper);
    for (DrawItem &item : drawing) {
        auto *run = std::get_if<TextRun>(&item);
        if (run && m_latin1)
            run->text = QString::fromUtf8(run->text.toLatin1());
    }
    return drawing;
}

// The graph's own outline is the paper: Graphviz fills the whole picture with it.
void GraphReader::readGraphItself()
{
    m_document.name = m_graph[QLatin1String("name")].toString();
    m_document.page = QRectF(QPointF(), PointMapper::pageSize(m_box));
    m_document.title = drawing(m_graph, "_ldraw_");
    for (const DrawItem &item : drawing(m_graph, "_draw_")) {
        const auto *outline = std::get_if<Outline>(&item);
        const QColor fill = outline ? outline->style.fill.color() : QColor();
        if (outline && outline->style.fill.style() != Qt::NoBrush && fill.alpha() == 255)
            m_document.paper = fill;
    }
}

void GraphReader::readCluster(const QJsonObject &object)
{
    const QString name = object[QLatin1String("name")].toString();
    if (!name.startsWith(QLatin1String("cluster")))
        return;
    Cluster cluster;
    cluster.drawing = ownAndLabel(object);
    cluster.name = nameWithLabel(name, labelText(cluster.drawing));
    m_clusterOfObject.insert(object[QLatin1String("_gvid")].toInt(), static_cast<int>(m_document.clusters.size()));
    m_clusterOfName.insert(name, static_cast<int>(m_document.clusters.size()));
    m_document.clusters.push_back(std::move(cluster));
}

std::optional<QPointF> GraphReader::middleOf(const QJsonObject &object) const
{
    const QStringList position = object[QLatin1String("pos")].toString().remove(u'!').split(u',');
    if (position.size() < 2)
        return std::nullopt;
    return m_mapper.point(position[0].toDouble(), position[1].toDouble());
}

// Graphviz leaves pictures out of its JSON, so they are placed here: in their own size, or as large as fits the node.
void GraphReader::readPicture(const QJsonObject &object, Drawing &drawing) const
{
    const QString file = object[QLatin1String("image")].toString();
    const QString path = m_directory.absoluteFilePath(file);
    // Anything but a plain file could keep the reader waiting.
    const auto middle = middleOf(object);
    if (file.isEmpty() || !middle || !QFileInfo(path).isFile())
        return;
    QSizeF size = QImageReader(path).size();
    if (size.isEmpty())
        return;
    const QString scale = object[QLatin1String("imagescale")].toString();
    const QSizeF node(PointMapper::pixels(72 * object[QLatin1String("width")].toString().toDouble()),
                      PointMapper::pixels(72 * object[QLatin1String("height")].toString().toDouble()));
    if (!scale.isEmpty() && scale != QLatin1String("false"))
        size.scale(node, scale == QLatin1String("both") ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio);
    QRectF rect(QPointF(), size);
    rect.moveCenter(*middle);
    drawing.push_back(Picture {rect, path});
}

void GraphReader::readNode(const QJsonObject &object)
{
    Node node;
    const QString name = object[QLatin1String("name")].toString();
    node.drawing = drawing(object, "_draw_");
    node.middle = middleOf(object).value_or(drawingExtent(node.drawing).center());
    readPicture(object, node.drawing);
    Drawing label = drawing(object, "_ldraw_");
    node.name = nameWithLabel(name, labelText(label));
    std::move(label.begin(), label.end(), std::back_inserter(node.drawing));
    m_nodeOfObject.insert(object[QLatin1String("_gvid")].toInt(), static_cast<int>(m_document.nodes.size()));
    m_document.nodes.push_back(std::move(node));
    m_names << name;
}

void GraphReader::readEdge(const QJsonObject &object)
{
    Edge edge;
    edge.tail = m_nodeOfObject.value(object[QLatin1String("tail")].toInt(-1), -1);
    edge.head = m_nodeOfObject.value(object[QLatin1String("head")].toInt(-1), -1);
    edge.tailCluster = clusterEnd(object[QLatin1String("ltail")].toString(), edge.tail, edge.head);
    edge.headCluster = clusterEnd(object[QLatin1String("lhead")].toString(), edge.head, edge.tail);
    readEdgeLook(m_graph, object, m_mapper, edge);
    QString label;
    for (const char *key : {"_ldraw_", "_tldraw_", "_hldraw_"}) {
        const Drawing drawn = drawing(object, key);
        label += u' ' + labelText(drawn);
        if (!drawn.empty())
            edge.labels.push_back(drawn);
    }
    const QString arrow = m_graph[QLatin1String("directed")].toBool() ? QStringLiteral(" → ") : QStringLiteral(" – ");
    edge.name = nameWithLabel(nodeName(edge.tail) + arrow + nodeName(edge.head), label.simplified());
    m_document.edges.push_back(std::move(edge));
}

void GraphReader::readObjects()
{
    m_objects = m_graph[QLatin1String("objects")].toArray();
    const int subgraphCount = m_graph[QLatin1String("_subgraph_cnt")].toInt();
    for (const QJsonValue &value : std::as_const(m_objects)) {
        const QJsonObject object = value.toObject();
        if (object[QLatin1String("_gvid")].toInt() < subgraphCount)
            readCluster(object);
        else
            readNode(object);
    }
}

void GraphReader::readEdges()
{
    for (const QJsonValue &edge : m_graph[QLatin1String("edges")].toArray())
        readEdge(edge.toObject());
}

// The cluster with which Graphviz let the edge end instead of \a node, or -1: it must contain that end alone.
int GraphReader::clusterEnd(const QString &name, int node, int otherNode) const
{
    const int index = m_clusterOfName.value(name, -1);
    if (index < 0 || m_graph[QLatin1String("compound")].toString() != QLatin1String("true"))
        return -1;
    const QList<int> &inside = m_document.clusters[static_cast<std::size_t>(index)].nodes;
    return inside.contains(node) && !inside.contains(otherNode) ? index : -1;
}

QList<int> GraphReader::nodeIndices(const QJsonArray &objects) const
{
    QList<int> nodes;
    for (const QJsonValue &object : objects) {
        const int node = m_nodeOfObject.value(object.toInt(-1), -1);
        if (node >= 0)
            nodes << node;
    }
    return nodes;
}

// Clusters may stand inside subgraphs that are no clusters, so all subgraphs are walked through.
QList<int> GraphReader::clustersIn(int object) const
{
    QList<int> clusters;
    QSet<int> visited {object};
    QList<int> waiting {object};
    while (!waiting.isEmpty()) {
        for (const QJsonValue &value : m_objects.at(waiting.takeLast())[QLatin1String("subgraphs")].toArray()) {
            const int inner = value.toInt(-1);
            if (inner < 0 || visited.contains(inner))
                continue;
            visited.insert(inner);
            waiting << inner;
            if (m_clusterOfObject.contains(inner))
                clusters << m_clusterOfObject.value(inner);
        }
    }
    return clusters;
}

void GraphReader::collectClusters()
{
    for (auto it = m_clusterOfObject.cbegin(); it != m_clusterOfObject.cend(); ++it) {
        Cluster &cluster = m_document.clusters[static_cast<std::size_t>(it.value())];
        cluster.nodes = nodeIndices(m_objects.at(it.key())[QLatin1String("nodes")].toArray());
        cluster.clusters = clustersIn(it.key());
    }
}

GraphDocument GraphReader::read()
{
    readGraphItself();
    readObjects();
    collectClusters();
    readEdges();
    return std::move(m_document);
}

// A file may hold several graphs, which Graphviz writes one after the other.
QJsonDocument firstDocument(const QByteArray &json, QJsonParseError &error)
{
    QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error == QJsonParseError::GarbageAtEnd)
        document = QJsonDocument::fromJson(json.left(error.offset), &error);
    return document;
}

} // namespace

ReadResult readGraph(const QByteArray &json, const QDir &directory)
{
    if (json.trimmed().isEmpty())
        return {std::nullopt, translated("The file contains no graph.")};
    QJsonParseError error;
    const QJsonDocument parsed = firstDocument(json, error);
    if (!parsed.isObject())
        return {std::nullopt, translated("Graphviz gave an answer that cannot be read: %1.").arg(error.errorString())};
    GraphDocument document = GraphReader(parsed.object(), directory).read();
    if (document.nodes.empty())
        return {std::nullopt, translated("The graph has no nodes, so there is nothing to show.")};
    return {std::move(document), QString()};
}

} // namespace GraphViewer
