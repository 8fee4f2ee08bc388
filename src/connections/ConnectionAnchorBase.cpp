#include <vtlpictel/connections/ConnectionAnchorBase.h>

#include <vtlpictel/connections/IAnchorListener.h>

#include <QMessageLogger>

namespace Vantrel::Pictel {

ConnectionAnchorBase::ConnectionAnchorBase(QObject *parent)
    : QObject(parent)
{ }

ConnectionAnchorBase::~ConnectionAnchorBase() = default;

void ConnectionAnchorBase::addAnchorListener(IAnchorListener *listener)
{
    const auto *object = dynamic_cast<QObject *>(listener);
    if (!object) {
        QMessageLogger().warning("ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
        return;
    }
    connect(this, SIGNAL(anchorMoved(IConnectionAnchor *)), object, SLOT(anchorMoved(IConnectionAnchor *)));
}

void ConnectionAnchorBase::removeAnchorListener(IAnchorListener *listener)
{
    const auto *object = dynamic_cast<QObject *>(listener);
    if (!object) {
        QMessageLogger().warning("ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
        return;
    }
    disconnect(this, SIGNAL(anchorMoved(IConnectionAnchor *)), object, SLOT(anchorMoved(IConnectionAnchor *)));
}

} // namespace Vantrel::Pictel
