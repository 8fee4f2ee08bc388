#include <vtlpictel/layers/ConnectionLayer.h>

#include "support/LifeGuard.h"

#include <vtlpictel/connections/IConnectionRouter.h>
#include <vtlpictel/figure/IConnection.h>

#include <QPainter>

namespace Vantrel::Pictel {

ConnectionLayer::ConnectionLayer(QObject *parent, bool contentMonitored)
    : FreeformLayer(parent, contentMonitored)
{ }

ConnectionLayer::~ConnectionLayer() = default;

IConnectionRouter *ConnectionLayer::getConnectionRouter() const
{
    return m_connectionRouter.get();
}

void ConnectionLayer::setConnectionRouter(IConnectionRouter *router)
{
    m_connectionRouter = router;
}

bool ConnectionLayer::add(Figure *child, const QVariant &constraint, int index)
{
    return addConnection(child, [&] { return FreeformLayer::add(child, constraint, index); });
}

bool ConnectionLayer::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    return addConnection(child, [&] { return FreeformLayer::add(child, vStretch, hStretch, index); });
}

// A connection gets the router also when it could not be added. Both it and the layer may die of being added.
template <typename Addition>
bool ConnectionLayer::addConnection(Figure *child, Addition addition)
{
    const LifeGuard<Figure> self(this);
    const LifeGuard<Figure> guest(child);
    const bool added = addition();
    if (!self.isAlive() || !guest.isAlive())
        return added;
    auto *connection = qobject_cast<IConnection *>(child);
    IConnectionRouter *router = getConnectionRouter();
    if (connection && router)
        connection->setConnectionRouter(router);
    return added;
}

// Whoever hears that the router goes may delete the connection or the layer.
bool ConnectionLayer::remove(Figure *child)
{
    const LifeGuard<Figure> self(this);
    const LifeGuard<Figure> guest(child);
    if (auto *connection = qobject_cast<IConnection *>(child))
        connection->setConnectionRouter(nullptr);
    return self.isAlive() && (guest.isAlive() || !child) && FreeformLayer::remove(child);
}

void ConnectionLayer::render(QPainter *painter, const QStyleOptionViewItem &option)
{
    if (!painter)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, m_antialias);
    FreeformLayer::render(painter, option);
    painter->restore();
}

} // namespace Vantrel::Pictel
