#include <vtlpictel/figure/MidpointLocator.h>

#include <vtlpictel/figure/IConnection.h>

#include <QMessageLogger>

namespace Vantrel::Pictel {

MidpointLocator::MidpointLocator(IConnection *connection, int index, QObject *parent)
    : ConnectionLocator(connection, parent)
    , m_index(index)
{ }

MidpointLocator::~MidpointLocator() = default;

QPoint MidpointLocator::getReferencePoint()
{
    IConnection *connection = getConnection();
    if (!connection || m_index >= connection->getPointCount()) {
        QMessageLogger().warning("MidpointLocator::getReferencePoint(): index, %d, out-of-bound", m_index);
        return QPoint();
    }
    QPoint from = connection->getPoint(m_index);
    QPoint to = connection->getPoint(m_index + 1);
    connection->translateToAbsolute(from);
    const QPoint way = connection->translateToAbsolute(to) - from;
    return from + QPoint(way.x() / 2, way.y() / 2);
}

} // namespace Vantrel::Pictel
