#include "EdgeSet.h"

#include "BendpointFit.h"
#include "EdgeConnection.h"
#include "EdgeLayer.h"
#include "Element.h"
#include "NodeAnchors.h"

#include <vtlpictel/connections/XYAnchor.h>

#include <QLineF>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

// One end of an edge as Graphviz drew it.
struct End
{
    QPointF tip;
    QPointF towards; ///< A point further along the edge.
    bool isPort = false;
};

End endOf(const Track &course, double tip, double towards, bool isPort)
{
    return {course.at(tip), course.at(towards), isPort};
}

// Edges aim at the middle of an element unless that puts them in quite another place than Graphviz chose.
ConnectionAnchorBase *anchorFor(Element *element, const End &end, QObject *parent)
{
    constexpr double slack = 10;
    const QPoint tip = end.tip.toPoint();
    if (!element)
        return new XYAnchor(tip, parent);
    AbstractConnectionAnchor *anchor = makeAnchor(*element, parent);
    const double off = QLineF(anchor->getLocation(end.towards.toPoint()), end.tip).length();
    if (off <= (end.isPort ? 2 : slack))
        return anchor;
    delete anchor;
    return new PortAnchor(element->outline(), tip, parent);
}

// Near enough to belong together, far enough to be told apart; more of them share the space at their elements.
double laneSpacing(Element &tail, Element &head, qsizetype count)
{
    constexpr double widest = 16;
    constexpr double usedPart = 0.7;
    const QSize tailSize = tail.outline()->getBounds().size();
    const QSize headSize = head.outline()->getBounds().size();
    const int room = qMin(qMin(tailSize.width(), tailSize.height()), qMin(headSize.width(), headSize.height()));
    return qMin(widest, usedPart * room / double(count - 1));
}

} // namespace

EdgeSet::EdgeSet(EdgeLayer &layer)
    : m_layer(layer)
{
    m_layer.setConnectionRouter(m_routers.router(m_kind));
}

void EdgeSet::add(const Edge &edge, Element *tail, Element *head)
{
    constexpr double lookAhead = 30;
    const Track course(edge.course);
    const bool isLoop = tail && tail == head;
    auto *connection = new EdgeConnection(edge, &m_layer);
    m_layer.add(connection);
    const double length = course.length();
    const double ahead = qMin(lookAhead, length / 2);
    const End start = endOf(course, 0, ahead, edge.tailPort || isLoop);
    const End end = endOf(course, length, length - ahead, edge.headPort || isLoop);
    connection->connectEnds(anchorFor(tail, start, connection), anchorFor(head, end, connection));
    connection->setLabelHarm([this, connection](const QRectF &label) { return harmOfLabel(connection, label); });
    m_labelledCount += connection->hasLabels() ? 1 : 0;
    if (tail && edge.tailCluster < 0)
        m_nodes << tail;
    if (head && edge.headCluster < 0)
        m_nodes << head;
    connection->setBends(fitBends(*connection, edge.course, edge.angular));
    const QPainterPath square = isLoop ? squareLoop(edge.course, tail->getBounds()) : QPainterPath();
    m_members.append({connection, tail, head, square, fitBends(*connection, square, true), edge.angular});
    route(m_members.last());
}

// Lanes

QPair<Element *, Element *> EdgeSet::pairOf(const Member &member)
{
    return std::minmax(member.tail, member.head, std::less<Element *>());
}

void EdgeSet::assignLanes()
{
    Lanes lanes;
    for (int i = 0; i < m_members.size(); ++i) {
        const Member &member = m_members.at(i);
        if (member.tail && member.head && !member.isLoop())
            lanes[pairOf(member)] << i;
    }
    for (const QList<int> &members : std::as_const(lanes))
        assignLanes(members);
}

void EdgeSet::assignLanes(const QList<int> &members)
{
    const int count = int(members.size());
    if (count < 2)
        return;
    for (int lane = 0; lane < count; ++lane) {
        const Member &member = m_members.at(members.at(lane));
        const bool isReversed = member.tail != m_members.at(members.first()).tail;
        const double spacing = laneSpacing(*member.tail, *member.head, count);
        member.edge->setLane(lane, count, isReversed ? -spacing : spacing);
    }
}

// Routers

void EdgeSet::route(const Member &member)
{
    EdgeConnection::Routing routing;
    const bool isSquare = member.isLoop() && m_kind == RouterKind::Manhattan;
    const bool hasBends = member.isLoop() || m_kind == RouterKind::Bendpoint;
    routing.router = m_routers.router(hasBends ? RouterKind::Bendpoint : m_kind);
    routing.curved = hasBends && !isSquare && !member.isAngular;
    routing.bendable = isBendable(member.edge);
    if (hasBends) {
        routing.bendpoints = (isSquare ? member.squareBends : member.edge->bends()).constraint();
        routing.labelCourse = isSquare ? member.squareCourse : member.edge->course();
    }
    member.edge->setRouting(routing);
}

void EdgeSet::setRouter(RouterKind kind)
{
    m_kind = kind;
    m_layer.setConnectionRouter(m_routers.router(kind));
    for (const Member &member : std::as_const(m_members))
        route(member);
    m_layer.layOut();
    if (isCrowded())
        return;
    // Labels know where the others are only when all of them have found their ways.
    for (const Member &member : std::as_const(m_members)) {
        if (member.edge->hasLabels())
            member.edge->revalidate();
    }
    m_layer.layOut();
}

// Comparing all labels with everything else would take longer than the layout of a large graph.
bool EdgeSet::isCrowded() const
{
    constexpr qsizetype mostPairs = 200000;
    return m_labelledCount * (m_nodes.size() + m_members.size()) > mostPairs;
}

// A node hides what lies beneath it.
int EdgeSet::harmOfLabel(const EdgeConnection *edge, const QRectF &label) const
{
    constexpr int hiddenByNode = 10;
    if (isCrowded())
        return 0;
    int harm = 0;
    for (Element *node : m_nodes)
        harm += label.intersects(node->getBounds()) ? hiddenByNode : 0;
    for (const Member &member : m_members)
        harm += member.edge != edge && member.edge->crosses(label) ? 1 : 0;
    return harm;
}

} // namespace GraphViewer
