#include <vtlpictel/figure/IConnection.h>

#include "support/LifeGuard.h"

namespace Vantrel::Pictel {

const QString IConnection::PROPERTY_CONNECTION_ROUTER = QStringLiteral("connectionRouter");
const QString IConnection::PROPERTY_POINTS = QStringLiteral("points");
const QString IConnection::PROPERTY_POINTSF = QStringLiteral("pointsf");

IConnection::~IConnection()
{
    LifeGuard<IConnection>::release(this);
}

} // namespace Vantrel::Pictel
