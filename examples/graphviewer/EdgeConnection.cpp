#include "EdgeConnection.h"

#include "ArrowDecoration.h"
#include "DrawingFigures.h"
#include "Element.h"
#include "LabelLocator.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

constexpr double bendRadius = 3.5;

QColor highlightColor()
{
    return QGuiApplication::palette().color(QPalette::Highlight);
}

double widestReach(const std::vector<Strand> &strands)
{
    double reach = 0;
    for (const Strand &strand : strands)
        reach = qMax(reach, std::abs(strand.offset) + qMax(strand.style.lineWidth, strand.headWidth) / 2);
    return reach;
}

QList<QPointF> realPoints(const QList<QPoint> &points)
{
    return {points.begin(), points.end()};
}

// Anchors lie just outside of the nodes; a line without arrow ends on the outline itself.
void reachBeyond(QPointF &end, const QPointF &before)
{
    end += unitVector(end - before);
}

// The area of a line whose width changes evenly between the ends of \a piece.
QPolygonF taperedOutline(const QPolygonF &piece, double startWidth, double endWidth)
{
    constexpr double step = 3;
    const Track track(straightPath(piece));
    QPolygonF right;
    QPolygonF left;
    const int steps = qMax(1, qCeil(qMin(track.length(), 1e4) / step));
    for (int i = 0; i <= steps; ++i) {
        const double distance = track.length() * i / steps;
        const double halfWidth = (startWidth + (endWidth - startWidth) * i / steps) / 2;
        const QPointF aside = rightOf(track.directionAt(distance)) * halfWidth;
        right << track.at(distance) + aside;
        left.prepend(track.at(distance) - aside);
    }
    return right + left;
}

} // namespace

EdgeConnection::EdgeConnection(const Edge &edge, QObject *parent)
    : PolylineConnection(parent)
    , GraphPart(edge.name)
    , m_edge(edge)
    , m_bends(this)
{ }

// Parts

void EdgeConnection::connectEnds(IConnectionAnchor *tail, IConnectionAnchor *head)
{
    setSourceAnchor(tail);
    setTargetAnchor(head);
    m_tailArrow = makeArrow(m_edge.tailArrow);
    m_headArrow = makeArrow(m_edge.headArrow);
    setSourceDecoration(m_tailArrow);
    setTargetDecoration(m_headArrow);
    for (const Drawing &label : m_edge.labels)
        addLabel(label);
}

ArrowDecoration *EdgeConnection::makeArrow(const Arrow &arrow)
{
    return arrow.drawing.empty() ? nullptr : new ArrowDecoration(arrow, this);
}

void EdgeConnection::addLabel(const Drawing &drawing)
{
    const QRect rect = drawingExtent(drawing).toAlignedRect();
    auto *label = new DrawnFigure(this);
    auto *locator = new LabelLocator(*this, rect);
    locator->setParent(label);
    add(label, QVariant::fromValue<QObject *>(locator));
    label->setBounds(rect);
    label->fill(drawing);
    m_labels << Label {label, locator};
}

void EdgeConnection::setLane(int lane, int count, double spacing)
{
    m_hasLane = count > 1;
    m_laneOffset = (lane - (count - 1) / 2.0) * spacing;
    m_laneFraction = (lane + 1.0) / (count + 1);
}

void EdgeConnection::setHighlighted(bool highlighted)
{
    repaint();
    m_highlighted = highlighted;
    for (ArrowDecoration *arrow : {m_tailArrow, m_headArrow}) {
        if (arrow)
            arrow->setColor(highlighted ? highlightColor() : QColor());
    }
    repaint();
}

bool EdgeConnection::crosses(const QRectF &area) const
{
    const auto isThere = [&](const Label &label) { return area.intersects(label.figure->getBounds()); };
    return m_track.crosses(area) || std::any_of(m_labels.begin(), m_labels.end(), isThere);
}

// Route

void EdgeConnection::setRouting(const Routing &routing)
{
    m_routing = routing;
    for (const Label &label : std::as_const(m_labels))
        label.locator->setPlace(routing.labelCourse, m_laneFraction);
    setConnectionRouter(routing.router);
    setRoutingConstraint(routing.bendpoints.isEmpty() ? QVariant() : QVariant(routing.bendpoints));
}

int EdgeConnection::addBend(const QPoint &grip, const QPoint &point)
{
    const double distance = m_track.nearestTo(grip).distance;
    int index = 0;
    while (index < m_bends.count() && m_track.nearestTo(m_bends.at(index)).distance < distance)
        ++index;
    m_bends.insert(index, point, m_track.length() > 0 ? distance / m_track.length() : 0.5);
    applyBends();
    return index;
}

void EdgeConnection::moveBend(int index, const QPoint &point)
{
    m_bends.move(index, point);
    applyBends();
}

void EdgeConnection::removeBend(int index)
{
    m_bends.remove(index);
    applyBends();
}

void EdgeConnection::setBends(const Bends &bends)
{
    m_bends = bends;
    applyBends();
}

void EdgeConnection::applyBends()
{
    if (!m_routing.bendable)
        return;
    setRoutingConstraint(m_bends.constraint());
}

// Geometry

QRect EdgeConnection::getBounds()
{
    const QRect bounds = PolylineConnection::getBounds();
    if (!bounds.isValid())
        return QRect(getStart(), QSize(1, 1));
    const int margin = qCeil(widestReach(m_edge.strands) + (showsBends() ? bendRadius : 0)) + 1;
    return bounds.adjusted(-margin, -margin, margin, margin);
}

void EdgeConnection::layout()
{
    PolylineConnection::layout();
    repaint();
}

// How much of the line \a arrow hides, which lies at the point \a end of the route, after the point \a next.
double EdgeConnection::coveredBy(const ArrowDecoration *arrow, int end, int next) const
{
    if (!arrow)
        return 0;
    const bool roundTheCorner = m_routing.curved || getPointCount() < 2;
    return roundTheCorner ? arrow->length() : qMin(arrow->length(), QLineF(getPoint(end), getPoint(next)).length());
}

// On a curve, an arrow points from where the line meets its back to its tip.
void EdgeConnection::aimArrows()
{
    if (!m_routing.curved)
        return;
    if (m_tailArrow)
        m_tailArrow->setReferencePoint(m_track.at(m_begin));
    if (m_headArrow)
        m_headArrow->setReferencePoint(m_track.at(m_end));
}

void EdgeConnection::regeneratePath(const QRectF &)
{
    const QList<QPointF> points = realPoints(getLinePoints());
    const int last = getPointCount() - 1;
    m_track = Track(m_routing.curved ? smoothPath(points) : straightPath(points));
    m_begin = qMin(coveredBy(m_tailArrow, 0, 1), m_track.length());
    m_end = qMax(0.0, m_track.length() - coveredBy(m_headArrow, last, last - 1));
    aimArrows();
    painterPath() = straightPath(m_track.piece(m_begin, m_end));
}

// Painting

QPolygonF EdgeConnection::pieceOf(const Strand &strand) const
{
    const double length = m_end - m_begin;
    QPolygonF piece = m_track.piece(m_begin + strand.from * length, m_begin + strand.to * length, strand.offset);
    if (piece.size() < 2)
        return piece;
    if (!m_tailArrow && qFuzzyIsNull(strand.from))
        reachBeyond(piece.first(), piece[1]);
    if (!m_headArrow && qFuzzyCompare(strand.to, 1.0))
        reachBeyond(piece.last(), piece[piece.size() - 2]);
    return piece;
}

void EdgeConnection::drawStrand(QPainter *painter, const Strand &strand) const
{
    const QPolygonF piece = pieceOf(strand);
    const OutlineStyle style = recolored(strand.style, m_highlighted ? highlightColor() : QColor());
    if (strand.tapered) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(style.lineColor);
        painter->drawPath(absolutePath(straightPath(taperedOutline(piece, style.lineWidth, strand.headWidth))));
        return;
    }
    painter->setPen(exactPen(style, painter->transform().m11()));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(absolutePath(straightPath(piece)));
}

bool EdgeConnection::showsBends() const
{
    return m_highlighted && m_routing.bendable;
}

void EdgeConnection::drawBends(QPainter *painter) const
{
    painter->setPen(QPen(highlightColor(), 1.5));
    painter->setBrush(Qt::white);
    for (int i = 0; i < m_bends.count(); ++i) {
        QPainterPath handle;
        handle.addEllipse(m_bends.at(i), bendRadius - 1, bendRadius - 1);
        painter->drawPath(absolutePath(handle));
    }
}

void EdgeConnection::drawShape(QPainter *painter, const QStyleOptionViewItem &) const
{
    for (const Strand &strand : m_edge.strands)
        drawStrand(painter, strand);
    if (showsBends())
        drawBends(painter);
}

} // namespace GraphViewer
