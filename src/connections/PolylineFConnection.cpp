#include <vtlpictel/connections/PolylineFConnection.h>

#include "connections/ConnectionState_p.h"
#include "connections/PointConversion_p.h"

#include <vtlpictel/layout/DelegatingLayout.h>

namespace Vantrel::Pictel {

PolylineFConnection::PolylineFConnection(QObject *parent)
    : PolylineF(parent)
    , m_state(std::make_unique<ConnectionState>(this, this, this, "PolylineFConnection"))
{
    setLayoutManager(new DelegatingLayout(this));
    setLinePoints({QPointF(0, 0), QPointF(100, 100)});
}

// The area includes the decorations, which the base classes do not know.
PolylineFConnection::~PolylineFConnection()
{
    erase();
    m_state->unhook();
    m_state->router()->remove(this);
}

void PolylineFConnection::setSourceDecoration(IRotatableDecoration *decoration)
{
    m_state->setDecoration(ConnectionState::Source, decoration);
}

void PolylineFConnection::setTargetDecoration(IRotatableDecoration *decoration)
{
    m_state->setDecoration(ConnectionState::Target, decoration);
}

IRotatableDecoration *PolylineFConnection::getSourceDecoration() const
{
    return m_state->decoration(ConnectionState::Source);
}

IRotatableDecoration *PolylineFConnection::getTargetDecoration() const
{
    return m_state->decoration(ConnectionState::Target);
}

IConnectionRouter *PolylineFConnection::getConnectionRouter() const
{
    return m_state->router();
}

QList<QPoint> PolylineFConnection::getPoints() const
{
    return integerPoints(getLinePoints());
}

QPoint PolylineFConnection::getPoint(int index) const
{
    return PolylineF::getPoint(index);
}

int PolylineFConnection::getPointCount() const
{
    return PolylineF::getPointCount();
}

QList<QPointF> PolylineFConnection::getPointsF() const
{
    return realPoints(getLinePoints());
}

QPointF PolylineFConnection::getPointF(int index) const
{
    return PolylineF::getPointF(index);
}

QVariant PolylineFConnection::getRoutingConstraint() const
{
    return m_state->router()->getConstraint(static_cast<PolylineFConnection *>(mutableSelf()));
}

IConnectionAnchor *PolylineFConnection::getSourceAnchor() const
{
    return m_state->anchor(ConnectionState::Source);
}

IConnectionAnchor *PolylineFConnection::getTargetAnchor() const
{
    return m_state->anchor(ConnectionState::Target);
}

void PolylineFConnection::setConnectionRouter(IConnectionRouter *router)
{
    m_state->setRouter(router);
}

void PolylineFConnection::setPoints(const QList<QPoint> &points)
{
    setLinePoints(realPoints(points));
}

void PolylineFConnection::setPointsF(const QList<QPointF> &points)
{
    setLinePoints(realPoints(points));
}

void PolylineFConnection::setRoutingConstraint(const QVariant &constraint)
{
    m_state->router()->setConstraint(this, constraint);
    revalidate();
}

void PolylineFConnection::setSourceAnchor(IConnectionAnchor *anchor)
{
    m_state->setAnchor(ConnectionState::Source, anchor);
}

void PolylineFConnection::setTargetAnchor(IConnectionAnchor *anchor)
{
    m_state->setAnchor(ConnectionState::Target, anchor);
}

QRect PolylineFConnection::getBounds()
{
    return m_state->bounds;
}

void PolylineFConnection::addNotify()
{
    Shape::addNotify();
    m_state->hook();
}

void PolylineFConnection::removeNotify()
{
    m_state->unhook();
    m_state->router()->remove(this);
    Shape::removeNotify();
}

void PolylineFConnection::anchorMoved(IConnectionAnchor *)
{
    revalidate();
}

void PolylineFConnection::revalidate()
{
    m_state->markDirty();
    Figure::revalidate();
    m_state->router()->invalidate(this);
}

void PolylineFConnection::layout()
{
    if (m_state->hasBothAnchors())
        m_state->router()->routeF(this);
    Figure::layout();
    Q_EMIT pathChanged(QRectF());
    m_state->updateBounds(PolylineF::getBounds());
}

} // namespace Vantrel::Pictel
