#include "EdgeElement.h"

#include <QGuiApplication>
#include <QLineF>
#include <QPalette>
#include <QTransform>

namespace GraphViewer {

using namespace Vantrel::Pictel;

namespace {

// From the tail to the head; null for an edge without lines.
QLineF chordOf(const Drawing &lines)
{
    if (lines.empty())
        return {};
    const auto *first = std::get_if<Outline>(&lines.front());
    const auto *last = std::get_if<Outline>(&lines.back());
    if (!first || !last)
        return {};
    return {first->path.pointAtPercent(0), last->path.pointAtPercent(1)};
}

// The turn and the even stretch that lay \a from onto \a to.
QTransform similarity(const QLineF &from, const QLineF &to)
{
    QTransform transform;
    transform.translate(to.x1(), to.y1());
    if (from.length() > 1 && to.length() > 1) {
        transform.rotate(from.angle() - to.angle());
        transform.scale(to.length() / from.length(), to.length() / from.length());
    }
    transform.translate(-from.x1(), -from.y1());
    return transform;
}

// The turn alone, about \a center, and then the way that \a center goes under \a whole.
QTransform turn(const QTransform &whole, const QPointF &center)
{
    const QPointF target = whole.map(center);
    QTransform transform;
    transform.translate(target.x(), target.y());
    transform.rotate(-QLineF({}, whole.map(QPointF(1, 0)) - whole.map(QPointF())).angle());
    transform.translate(-center.x(), -center.y());
    return transform;
}

void append(Drawing &all, const Drawing &part, const QTransform &transform)
{
    for (const DrawItem &item : part)
        all.push_back(transformed(item, transform));
}

void recolor(Drawing &drawing, const QColor &color)
{
    for (DrawItem &item : drawing) {
        auto *outline = std::get_if<Outline>(&item);
        if (!outline)
            continue;
        outline->style.lineColor = color;
        if (outline->style.fill.style() != Qt::NoBrush)
            outline->style.fill = color;
    }
}

} // namespace

EdgeElement::EdgeElement(const Edge &edge, QObject *parent)
    : Element(Kind::Edge, edge.name, parent)
    , m_edge(edge)
{ }

EdgeElement::End EdgeElement::watch(Element *element)
{
    if (!element)
        return {};
    connect(element, &Figure::figureMoved, this, &EdgeElement::redraw, Qt::UniqueConnection);
    return {element, element->getBounds().topLeft()};
}

void EdgeElement::attach(Element *tail, Element *head)
{
    m_tail = watch(tail);
    m_head = head == tail ? m_tail : watch(head);
    redraw();
}

void EdgeElement::setHighlighted(bool highlighted)
{
    m_highlighted = highlighted;
    redraw();
}

QTransform EdgeElement::lineTransform() const
{
    const QLineF chord = chordOf(m_edge.lines);
    return similarity(chord, QLineF(chord.p1() + m_tail.offset(), chord.p2() + m_head.offset()));
}

Drawing EdgeElement::currentDrawing() const
{
    const QLineF chord = chordOf(m_edge.lines);
    const QTransform line = lineTransform();
    Drawing drawing;
    append(drawing, m_edge.lines, line);
    append(drawing, m_edge.tailArrow, turn(line, chord.p1()));
    append(drawing, m_edge.headArrow, turn(line, chord.p2()));
    append(drawing, m_edge.labels, line);
    return drawing;
}

void EdgeElement::redraw()
{
    Drawing drawing = currentDrawing();
    if (m_highlighted)
        recolor(drawing, QGuiApplication::palette().color(QPalette::Highlight));
    setDrawing(drawing);
}

} // namespace GraphViewer
