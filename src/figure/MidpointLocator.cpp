#include <vtlpictel/figure/MidpointLocator.h>

#include <vtlpictel/figure/IConnection.h>

#include "support/LifeGuard.h"

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
    const int index = m_index;
    const LifeGuard<IConnection> life(connection);
    const int count = connection ? connection->getPointCount() : 0;
    if (!life.isAlive() || index >= count) {
        QMessageLogger().warning("MidpointLocator::getReferencePoint(): index, %d, out-of-bound", index);
        return QPoint();
    }
    QPoint from = connection->getPoint(index);
    QPoint to = life.isAlive() ? connection->getPoint(index + 1) : from;
    for (QPoint *point : {&from, &to}) {
        if (life.isAlive())
            connection->translateToAbsolute(*point);
    }
    const QPoint way = to - from;
    return from + QPoint(way.x() / 2, way.y() / 2);
}

} // namespace Vantrel::Pictel
