#include <vtlpictel/connections/ConnectionAnchorBase.h>

#include "support/ListenerConnections.h"

#include <vtlpictel/connections/IAnchorListener.h>

#include <QMessageLogger>

namespace Vantrel::Pictel {

ConnectionAnchorBase::ConnectionAnchorBase(QObject *parent)
    : QObject(parent)
    , m_listeners(std::make_unique<ListenerConnections>())
{ }

ConnectionAnchorBase::~ConnectionAnchorBase() = default;

void ConnectionAnchorBase::addAnchorListener(IAnchorListener *listener)
{
    const auto *object = dynamic_cast<QObject *>(listener);
    if (!object) {
        QMessageLogger().warning("ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
        return;
    }
    m_listeners->add(
        object,
        connect(this, SIGNAL(anchorMoved(IConnectionAnchor *)), object, SLOT(anchorMoved(IConnectionAnchor *))));
}

void ConnectionAnchorBase::removeAnchorListener(IAnchorListener *listener)
{
    const auto *object = dynamic_cast<QObject *>(listener);
    if (!object) {
        QMessageLogger().warning("ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
        return;
    }
    m_listeners->disconnect(object);
}

} // namespace Vantrel::Pictel
