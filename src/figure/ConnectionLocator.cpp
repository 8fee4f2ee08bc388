#include <vtlpictel/figure/ConnectionLocator.h>

#include <vtlpictel/figure/IConnection.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

namespace {

QPoint middleOf(const QList<QPoint> &points)
{
    if (points.isEmpty())
        return QPoint();
    const qsizetype half = points.size() / 2;
    if (points.size() % 2 != 0)
        return points.at(half);
    const QPoint before = points.at(half - 1);
    const QPoint way = points.at(half) - before;
    return before + QPoint(way.x() / 2, way.y() / 2);
}

} // namespace

ConnectionLocator::ConnectionLocator(IConnection *connection, QObject *parent)
    : ConnectionLocator(connection, MIDDLE, parent)
{ }

ConnectionLocator::ConnectionLocator(IConnection *connection, Alignment alignment, QObject *parent)
    : Locator(parent)
    , m_alignment(alignment)
{
    setConnection(connection);
}

ConnectionLocator::~ConnectionLocator() = default;

IConnection *ConnectionLocator::getConnection() const
{
    return m_connection.get();
}

void ConnectionLocator::setConnection(IConnection *connection)
{
    m_connection = connection;
}

QPoint ConnectionLocator::getLocation(QList<QPoint> points)
{
    switch (m_alignment) {
    case MIDDLE:
        return middleOf(points);
    case SOURCE:
        return points.value(0);
    case TARGET:
        return points.value(points.size() - 1);
    }
    return QPoint();
}

int ConnectionLocator::getLocationIndex(int count) const
{
    switch (m_alignment) {
    case MIDDLE:
        return count > 0 ? (count - 1) / 2 : -1;
    case SOURCE:
        return 0;
    case TARGET:
        return count - 1;
    }
    return -1;
}

QPoint ConnectionLocator::getReferencePoint()
{
    IConnection *connection = getConnection();
    if (!connection)
        return QPoint();
    const LifeGuard<ILocator> self(this);
    const LifeGuard<IConnection> life(connection);
    const QList<QPoint> points = connection->getPoints();
    QPoint point = self.isAlive() ? getLocation(points) : QPoint();
    return life.isAlive() ? connection->translateToAbsolute(point) : point;
}

} // namespace Vantrel::Pictel
