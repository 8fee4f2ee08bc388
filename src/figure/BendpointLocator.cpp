#include <vtlpictel/figure/BendpointLocator.h>

#include <vtlpictel/figure/IConnection.h>

#include "support/LifeGuard.h"

#include <QMessageLogger>

namespace Vantrel::Pictel {

BendpointLocator::BendpointLocator(IConnection *connection, int index, QObject *parent)
    : ConnectionLocator(connection, parent)
    , m_index(index)
{ }

BendpointLocator::~BendpointLocator() = default;

QPoint BendpointLocator::getReferencePoint()
{
    IConnection *connection = getConnection();
    const int index = m_index;
    const LifeGuard<IConnection> life(connection);
    const QList<QPoint> points = connection ? connection->getPoints() : QList<QPoint>();
    if (!life.isAlive() || index >= points.size()) {
        QMessageLogger().warning("BendpointLocator::getReferencePoint(): index, %d, out-of-bound", index);
        return QPoint();
    }
    QPoint point = points.value(index);
    return connection->translateToAbsolute(point);
}

} // namespace Vantrel::Pictel
