#include <vtlpictel/figure/BendpointLocator.h>

#include <vtlpictel/figure/IConnection.h>

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
    const QList<QPoint> points = connection ? connection->getPoints() : QList<QPoint>();
    if (!connection || m_index >= points.size()) {
        QMessageLogger().warning("BendpointLocator::getReferencePoint(): index, %d, out-of-bound", m_index);
        return QPoint();
    }
    QPoint point = points.value(m_index);
    return connection->translateToAbsolute(point);
}

} // namespace Vantrel::Pictel
