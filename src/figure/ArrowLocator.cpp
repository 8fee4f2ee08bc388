#include <vtlpictel/figure/ArrowLocator.h>

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IConnection.h>
#include <vtlpictel/figure/IRotatableDecoration.h>

#include "support/LifeGuard.h"

#include <QMessageLogger>

namespace Vantrel::Pictel {

ArrowLocator::ArrowLocator(IConnection *connection, ConnectionLocator::Alignment alignment, QObject *parent)
    : ConnectionLocator(connection, alignment == MIDDLE ? SOURCE : alignment, parent)
{ }

ArrowLocator::~ArrowLocator() = default;

void ArrowLocator::relocate(Figure *target)
{
    if (!target || !target->isVisible())
        return;
    auto *decoration = qobject_cast<IRotatableDecoration *>(target);
    IConnection *connection = getConnection();
    if (!decoration || !connection) {
        QMessageLogger().warning("ArrowLocator::relocate(): no connection or target figure not a rotatable decoration");
        return;
    }
    // A connection that is asked may delete any of the three.
    const LifeGuard<ILocator> self(this);
    const LifeGuard<IConnection> life(connection);
    const LifeGuard<Figure> guest(target);
    const auto areAlive = [&] { return self.isAlive() && life.isAlive() && guest.isAlive(); };
    const int count = connection->getPointCount();
    const bool isTurned = areAlive() && count >= 2 && getAlignment() != MIDDLE;
    const QPointF reference = isTurned ? connection->getPointF(getAlignment() == SOURCE ? 1 : count - 2) : QPointF();
    const QPointF location = areAlive() ? connection->getPointF(getLocationIndex(count)) : QPointF();
    if (!areAlive())
        return;
    // Whoever hears of the move may do so as well: all that is needed was asked before.
    decoration->setLocation(location);
    // The location is set all the same: a connection that collapsed to a point takes its decoration along.
    if (count < 2)
        QMessageLogger().warning("ArrowLocator::relocate(): connection contains less than 2 points");
    else if (isTurned && guest.isAlive())
        decoration->setReferencePoint(reference);
}

} // namespace Vantrel::Pictel
