#include <vtlpictel/connections/PolylineConnection.h>

#include "connections/ConnectionState_p.h"
#include "connections/PointConversion_p.h"

#include <vtlpictel/layout/DelegatingLayout.h>

namespace Vantrel::Pictel {

PolylineConnection::PolylineConnection(QObject *parent)
    : Polyline(parent)
    , m_state(std::make_unique<ConnectionState>(this, this, this, "PolylineConnection"))
{
    setLayoutManager(new DelegatingLayout(this));
    setLinePoints({QPoint(0, 0), QPoint(100, 100)});
}

// The area includes the decorations, which the base classes do not know.
PolylineConnection::~PolylineConnection()
{
    erase();
    m_state->unhook();
    m_state->router()->remove(this);
}

void PolylineConnection::setSourceDecoration(IRotatableDecoration *decoration)
{
    m_state->setDecoration(ConnectionState::Source, decoration);
}

void PolylineConnection::setTargetDecoration(IRotatableDecoration *decoration)
{
    m_state->setDecoration(ConnectionState::Target, decoration);
}

IRotatableDecoration *PolylineConnection::getSourceDecoration() const
{
    return m_state->decoration(ConnectionState::Source);
}

IRotatableDecoration *PolylineConnection::getTargetDecoration() const
{
    return m_state->decoration(ConnectionState::Target);
}

IConnectionRouter *PolylineConnection::getConnectionRouter() const
{
    return m_state->router();
}

QList<QPoint> PolylineConnection::getPoints() const
{
    return integerPoints(getLinePoints());
}

QPoint PolylineConnection::getPoint(int index) const
{
    return Polyline::getPoint(index);
}

int PolylineConnection::getPointCount() const
{
    return Polyline::getPointCount();
}

QList<QPointF> PolylineConnection::getPointsF() const
{
    return realPoints(getLinePoints());
}

QPointF PolylineConnection::getPointF(int index) const
{
    return QPointF(getPoint(index));
}

QVariant PolylineConnection::getRoutingConstraint() const
{
    return m_state->router()->getConstraint(static_cast<PolylineConnection *>(mutableSelf()));
}

IConnectionAnchor *PolylineConnection::getSourceAnchor() const
{
    return m_state->anchor(ConnectionState::Source);
}

IConnectionAnchor *PolylineConnection::getTargetAnchor() const
{
    return m_state->anchor(ConnectionState::Target);
}

void PolylineConnection::setConnectionRouter(IConnectionRouter *router)
{
    m_state->setRouter(router);
}

void PolylineConnection::setPoints(const QList<QPoint> &points)
{
    setLinePoints(integerPoints(points));
}

void PolylineConnection::setPointsF(const QList<QPointF> &points)
{
    setLinePoints(integerPoints(points));
}

void PolylineConnection::setRoutingConstraint(const QVariant &constraint)
{
    m_state->router()->setConstraint(this, constraint);
    revalidate();
}

void PolylineConnection::setSourceAnchor(IConnectionAnchor *anchor)
{
    m_state->setAnchor(ConnectionState::Source, anchor);
}

void PolylineConnection::setTargetAnchor(IConnectionAnchor *anchor)
{
    m_state->setAnchor(ConnectionState::Target, anchor);
}

QRect PolylineConnection::getBounds()
{
    return m_state->bounds;
}

void PolylineConnection::addNotify()
{
    Shape::addNotify();
    m_state->hook();
}

void PolylineConnection::removeNotify()
{
    m_state->unhook();
    m_state->router()->remove(this);
    Shape::removeNotify();
}

void PolylineConnection::anchorMoved(IConnectionAnchor *)
{
    revalidate();
}

void PolylineConnection::revalidate()
{
    m_state->markDirty();
    Figure::revalidate();
    m_state->router()->invalidate(this);
}

void PolylineConnection::layout()
{
    if (m_state->hasBothAnchors())
        m_state->router()->route(this);
    Figure::layout();
    Q_EMIT pathChanged(QRectF());
    m_state->updateBounds(Polyline::getBounds());
}

} // namespace Vantrel::Pictel
