#include <vtlpictel/figure/ConnectionEndpointLocator.h>

#include "support/LifeGuard.h"
#include "support/Rounding.h"
#include "support/WrappingArithmetic.h"

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IConnection.h>

#include <cmath>

namespace Vantrel::Pictel {

ConnectionEndpointLocator::ConnectionEndpointLocator(IConnection *connection, bool isEnd, QObject *parent)
    : QObject(parent)
    , m_transposer(nullptr)
    , m_connection(connection)
    , m_isEnd(isEnd)
{ }

ConnectionEndpointLocator::~ConnectionEndpointLocator() = default;

IConnection *ConnectionEndpointLocator::getConnection() const
{
    return m_connection.get();
}

Figure *ConnectionEndpointLocator::getConnectionOwner() const
{
    IConnection *connection = getConnection();
    const IConnectionAnchor *anchor = m_isEnd ? connection->getTargetAnchor() : connection->getSourceAnchor();
    return anchor ? anchor->getOwner() : nullptr;
}

// The side to which the line leaves, by its own direction.
ConnectionEndpointLocator::Side ConnectionEndpointLocator::calculateConnectionLocation(const QPoint &start,
                                                                                       const QPoint &reference) const
{
    const QPoint way = reference - start;
    if (wrappingAbsolute(way.x()) <= wrappingAbsolute(way.y()))
        return reference.y() > start.y() ? Side::Below : Side::Above;
    return reference.x() > start.x() ? Side::Right : Side::Left;
}

// The side of the owner's box at which the line starts: its diagonals divide the plane into four.
ConnectionEndpointLocator::Side ConnectionEndpointLocator::calculateConnectionLocation(const QPoint &start,
                                                                                       Figure *owner) const
{
    IConnection *connection = getConnection();
    const LifeGuard<IConnection> life(connection);
    const LifeGuard<Figure> ownerLife(owner);
    QRect box = owner->getBounds();
    if (ownerLife.isAlive())
        owner->translateToAbsolute(box);
    if (life.isAlive())
        connection->translateToRelative(box);
    const QPoint center = box.center();
    const Side vertical = start.y() < center.y() ? Side::Above : Side::Below;
    if (start.x() == center.x())
        return vertical;
    const auto slope = [center](const QPoint &point) {
        return std::abs((double(point.y()) - center.y()) / (double(point.x()) - center.x()));
    };
    if (slope(box.topLeft()) >= slope(start))
        return start.x() < center.x() ? Side::Left : Side::Right;
    return vertical;
}

double ConnectionEndpointLocator::calculateTan(const QPoint &start, const QPoint &reference)
{
    if (reference.x() == start.x())
        return 1.0;
    const double tan = (double(reference.y()) - start.y()) / (double(reference.x()) - start.x());
    return qBound(-1.0, tan, 1.0);
}

int ConnectionEndpointLocator::calculateYShift(int height) const
{
    if (m_vDistance > 0)
        return 0;
    return m_vDistance == 0 ? -(height / 2) : -height;
}

QPoint ConnectionEndpointLocator::calculateTopLeft(const QPoint &start, const QPoint &reference, const QSize &size,
                                                   bool negative) const
{
    const int along = negative ? -m_uDistance : m_uDistance;
    const int across = m_vDistance + calculateYShift(size.height());
    const int x = start.x() + along - (negative ? size.width() : 0);
    return QPoint(x, truncateToInt(along * calculateTan(start, reference) + start.y() + across));
}

void ConnectionEndpointLocator::relocate(Figure *target)
{
    IConnection *connection = getConnection();
    if (!target || !target->isVisible() || !connection)
        return;
    // Whoever is asked may delete the locator, the connection or the target.
    const LifeGuard<ILocator> self(this);
    const LifeGuard<IConnection> life(connection);
    const LifeGuard<Figure> guest(target);
    const auto areAlive = [&] { return self.isAlive() && life.isAlive() && guest.isAlive(); };
    const QList<QPoint> points = connection->getPoints();
    const qsizetype count = points.size();
    if (count < 2 || !areAlive())
        return;
    const QPoint start = points.at(m_isEnd ? count - 1 : 0);
    const QPoint reference = points.at(m_isEnd ? count - 2 : 1);
    Figure *owner = getConnectionOwner();
    if (!areAlive())
        return;
    const Side side = owner ? calculateConnectionLocation(start, owner) : calculateConnectionLocation(start, reference);
    const QSize preferred = areAlive() ? target->getPreferredSize() : QSize();
    if (!areAlive())
        return;
    m_transposer.setEnabled(side == Side::Below || side == Side::Above);
    const QSize size = m_transposer.t(preferred);
    const bool negative = side == Side::Above || side == Side::Left;
    const QPoint topLeft = calculateTopLeft(m_transposer.t(start), m_transposer.t(reference), size, negative);
    target->setBounds(QRect(m_transposer.t(topLeft), m_transposer.t(size)));
}

} // namespace Vantrel::Pictel
