#include <vtlpictel/layers/ConnectionLayer.h>

#include "support/InterfacePointer.h"

#include <vtlpictel/connections/IConnectionRouter.h>
#include <vtlpictel/figure/IConnection.h>

#include <QPainter>

namespace Vantrel::Pictel {

class ConnectionLayer::RouterPointer : public InterfacePointer<IConnectionRouter>
{
public:
    using InterfacePointer<IConnectionRouter>::InterfacePointer;
};

ConnectionLayer::ConnectionLayer(QObject *parent, bool contentMonitored)
    : FreeformLayer(parent, contentMonitored)
    , m_connectionRouter(std::make_unique<RouterPointer>())
{ }

ConnectionLayer::~ConnectionLayer() = default;

IConnectionRouter *ConnectionLayer::getConnectionRouter() const
{
    return m_connectionRouter->get();
}

void ConnectionLayer::setConnectionRouter(IConnectionRouter *router)
{
    *m_connectionRouter = RouterPointer(router);
}

bool ConnectionLayer::add(Figure *child, const QVariant &constraint, int index)
{
    const QPointer<Figure> guest(child);
    const bool added = FreeformLayer::add(child, constraint, index);
    return handRouterTo(guest, added);
}

bool ConnectionLayer::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    const QPointer<Figure> guest(child);
    const bool added = FreeformLayer::add(child, vStretch, hStretch, index);
    return handRouterTo(guest, added);
}

// A connection gets the router also when it could not be added.
bool ConnectionLayer::handRouterTo(Figure *child, bool added)
{
    auto *connection = qobject_cast<IConnection *>(child);
    IConnectionRouter *router = getConnectionRouter();
    if (connection && router)
        connection->setConnectionRouter(router);
    return added;
}

bool ConnectionLayer::remove(Figure *child)
{
    if (auto *connection = qobject_cast<IConnection *>(child))
        connection->setConnectionRouter(nullptr);
    return FreeformLayer::remove(child);
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
