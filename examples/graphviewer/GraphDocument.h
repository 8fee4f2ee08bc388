#pragma once

#include "Drawing.h"

#include <QList>

namespace GraphViewer {

/// A graph as Graphviz laid it out. Plain values; coordinates are content pixels (see Drawing.h).

struct Node
{
    QString name;
    QPointF middle; ///< What edges aim at.
    Drawing drawing;
};

/// The mark at an end of an edge.
struct Arrow
{
    Drawing drawing; ///< With the tip at the origin and the body to the left of it; empty when there is no mark.
    double length = 0.0; ///< How much of the edge's course it covers.
};

/// One of the lines that an edge is drawn with; most edges have one. Colour lists make several.
struct Strand
{
    OutlineStyle style;
    double offset = 0.0; ///< Sideways from the course, to the right of its direction.
    double from = 0.0; ///< The part of the course, from 0 to 1.
    double to = 1.0;
    double headWidth = 0.0; ///< The width at the end of a tapered line, which starts with the style's.
    bool tapered = false;
};

struct Edge
{
    QString name;
    int tail = -1; ///< Index into GraphDocument::nodes, or -1.
    int head = -1; ///< Likewise.
    int tailCluster = -1; ///< The cluster at whose border the edge starts instead, or -1.
    int headCluster = -1;
    bool tailPort = false; ///< Whether it starts at a chosen place of the node rather than towards its middle.
    bool headPort = false;
    QPainterPath course; ///< From the tip at the tail to that at the head; empty when it is not known.
    bool angular = false; ///< Whether the course consists of straight lines.
    std::vector<Strand> strands;
    Arrow tailArrow;
    Arrow headArrow;
    std::vector<Drawing> labels;
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
