#include <vtlpictel/figure/ArrowLocator.h>

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IConnection.h>
#include <vtlpictel/figure/IRotatableDecoration.h>

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
    const int count = connection->getPointCount();
    decoration->setLocation(connection->getPointF(getLocationIndex(count)));
    // The location is set all the same: a connection that collapsed to a point takes its decoration along.
    if (count < 2) {
        QMessageLogger().warning("ArrowLocator::relocate(): connection contains less than 2 points");
        return;
    }
    if (getAlignment() == SOURCE)
        decoration->setReferencePoint(connection->getPointF(1));
    else if (getAlignment() == TARGET)
        decoration->setReferencePoint(connection->getPointF(count - 2));
}

} // namespace Vantrel::Pictel
