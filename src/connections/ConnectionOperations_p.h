#pragma once

// The operations that both connection classes have in common, word for word. A source file that includes this one has
// named before, in namespace Vantrel::Pictel: Connection, the class; Line, its base; toLinePoints(), which converts
// points to those of the line; and routeLine(), which has a router compute them.
//
// No base class template serves instead, since moc takes no templates and each class lists its virtual operations.

namespace Vantrel::Pictel {

void Connection::setSourceDecoration(IRotatableDecoration *decoration)
{
    m_state->setDecoration(ConnectionState::Source, decoration);
}

void Connection::setTargetDecoration(IRotatableDecoration *decoration)
{
    m_state->setDecoration(ConnectionState::Target, decoration);
}

IRotatableDecoration *Connection::getSourceDecoration() const
{
    return m_state->decoration(ConnectionState::Source);
}

IRotatableDecoration *Connection::getTargetDecoration() const
{
    return m_state->decoration(ConnectionState::Target);
}

IConnectionRouter *Connection::getConnectionRouter() const
{
    return m_state->router();
}

QList<QPoint> Connection::getPoints() const
{
    return integerPoints(getLinePoints());
}

QPoint Connection::getPoint(int index) const
{
    return Line::getPoint(index);
}

int Connection::getPointCount() const
{
    return Line::getPointCount();
}

QList<QPointF> Connection::getPointsF() const
{
    return realPoints(getLinePoints());
}

QVariant Connection::getRoutingConstraint() const
{
    return m_state->router()->getConstraint(static_cast<Connection *>(mutableSelf()));
}

IConnectionAnchor *Connection::getSourceAnchor() const
{
    return m_state->anchor(ConnectionState::Source);
}

IConnectionAnchor *Connection::getTargetAnchor() const
{
    return m_state->anchor(ConnectionState::Target);
}

void Connection::setConnectionRouter(IConnectionRouter *router)
{
    m_state->setRouter(router);
}

void Connection::setPoints(const QList<QPoint> &points)
{
    setLinePoints(toLinePoints(points));
}

void Connection::setPointsF(const QList<QPointF> &points)
{
    setLinePoints(toLinePoints(points));
}

void Connection::setRoutingConstraint(const QVariant &constraint)
{
    const LifeGuard<Figure> self(this);
    m_state->router()->setConstraint(this, constraint);
    if (self.isAlive())
        revalidate();
}

void Connection::setSourceAnchor(IConnectionAnchor *anchor)
{
    m_state->setAnchor(ConnectionState::Source, anchor);
}

void Connection::setTargetAnchor(IConnectionAnchor *anchor)
{
    m_state->setAnchor(ConnectionState::Target, anchor);
}

QRect Connection::getBounds()
{
    return m_state->bounds;
}

void Connection::addNotify()
{
    const LifeGuard<Figure> self(this);
    Shape::addNotify();
    if (self.isAlive())
        m_state->hook();
}

void Connection::removeNotify()
{
    const LifeGuard<Figure> self(this);
    m_state->leave();
    if (self.isAlive())
        Shape::removeNotify();
}

void Connection::anchorMoved(IConnectionAnchor *)
{
    revalidate();
}

void Connection::revalidate()
{
    const LifeGuard<Figure> self(this);
    m_state->markDirty();
    if (self.isAlive())
        Figure::revalidate();
    if (self.isAlive())
        m_state->router()->invalidate(this);
}

// Whoever hears of the new path or of a child's new place may delete the connection.
void Connection::layout()
{
    const LifeGuard<Figure> self(this);
    if (m_state->hasBothAnchors())
        routeLine(m_state->router(), this);
    if (self.isAlive())
        Figure::layout();
    if (self.isAlive())
        Q_EMIT pathChanged(QRectF());
    if (self.isAlive())
        m_state->updateBounds(Line::getBounds());
}

} // namespace Vantrel::Pictel
