#pragma once

class QJsonObject;

namespace GraphViewer {

class PointMapper;
struct Edge;

/// Reads the course of an edge, its lines and its arrows; what it does not know it leaves out.
///
/// The arrow heads and tails are those that Graphviz made of the file's arrowhead, arrowtail, arrowsize and dir.
void readEdgeLook(const QJsonObject &graph, const QJsonObject &object, const PointMapper &mapper, Edge &edge);

} // namespace GraphViewer
