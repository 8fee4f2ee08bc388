#pragma once

#include "Drawing.h"

#include <QList>

namespace GraphViewer {

/// A graph as Graphviz laid it out. Plain values; coordinates are content pixels (see Drawing.h).

struct Node
{
    QString name;
    Drawing drawing;
};

struct Edge
{
    QString name;
    int tail = -1; ///< Index into GraphDocument::nodes, or -1.
    int head = -1; ///< Likewise.
    Drawing lines;
    Drawing tailArrow;
    Drawing headArrow;
    Drawing labels;
};

struct Cluster
{
    QString name;
    Drawing drawing;
    QList<int> nodes; ///< All nodes inside, also those of nested clusters, as indices into GraphDocument::nodes.
    QList<int> clusters; ///< All clusters inside, as indices into GraphDocument::clusters.
};

struct GraphDocument
{
    QString name;
    QRectF page; ///< The area of Graphviz's own picture of the graph; its top-left is the origin.
    QColor paper = Qt::white;
    Drawing title;
    std::vector<Cluster> clusters; ///< Outer ones before those inside them.
    std::vector<Node> nodes;
    std::vector<Edge> edges;
};

} // namespace GraphViewer
