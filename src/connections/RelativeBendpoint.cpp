#include <vtlpictel/connections/RelativeBendpoint.h>

#include <vtlpictel/connections/IConnectionAnchor.h>
#include <vtlpictel/figure/IConnection.h>

#include "support/LifeGuard.h"
#include "support/Rounding.h"
#include "support/WrappingArithmetic.h"

namespace Vantrel::Pictel {

namespace {

[[maybe_unused]] const int valueType = qRegisterMetaType<RelativeBendpoint>();

QPoint moved(const QPoint &point, const QSize &offset)
{
    return {wrappingAdd(point.x(), offset.width()), wrappingAdd(point.y(), offset.height())};
}

// The target's share is formed in single precision and the rest in double, which decides where a fraction is lost.
int mixed(int source, int target, float weight)
{
    const float targetShare = weight * static_cast<float>(target);
    return truncateToInt((1.0 - static_cast<double>(weight)) * source + static_cast<double>(targetShare));
}

} // namespace

RelativeBendpoint::RelativeBendpoint(QObject *parent)
    : Bendpoint(parent)
{ }

RelativeBendpoint::RelativeBendpoint(IConnection *connection, QObject *parent)
    : Bendpoint(parent)
{
    setConnection(connection);
}

RelativeBendpoint::RelativeBendpoint(const RelativeBendpoint &other)
    : Bendpoint(nullptr)
    , m_connection(other.m_connection)
    , m_weight(other.m_weight)
    , m_relativeDim1(other.m_relativeDim1)
    , m_relativeDim2(other.m_relativeDim2)
{ }

RelativeBendpoint::~RelativeBendpoint() = default;

QPoint RelativeBendpoint::getLocation() const
{
    IConnection *connection = getConnection();
    const IConnectionAnchor *source = connection ? connection->getSourceAnchor() : nullptr;
    const IConnectionAnchor *target = connection ? connection->getTargetAnchor() : nullptr;
    if (!source || !target)
        return {};
    // The source that is asked may delete the other two or the bendpoint, and the target the connection.
    const LifeGuard<IBendpoint> self(this);
    const LifeGuard<IConnection> life(connection);
    const LifeGuard<IConnectionAnchor> targetLife(target);
    const QPoint sourceReference = source->getReferencePoint();
    const QPoint targetReference = targetLife.isAlive() ? target->getReferencePoint() : QPoint();
    if (!self.isAlive() || !life.isAlive())
        return {};
    QPoint location = mixedLocation(sourceReference, targetReference);
    return connection->translateToRelative(location);
}

void RelativeBendpoint::setLocation(const QPoint &) { }

IConnection *RelativeBendpoint::getConnection() const
{
    return m_connection.get();
}

void RelativeBendpoint::setConnection(IConnection *connection)
{
    m_connection = connection;
}

float RelativeBendpoint::getWeight() const
{
    return m_weight;
}

void RelativeBendpoint::setWeight(float weight)
{
    m_weight = weight;
}

QSize RelativeBendpoint::getRelativeDim1() const
{
    return m_relativeDim1;
}

QSize RelativeBendpoint::getRelativeDim2() const
{
    return m_relativeDim2;
}

void RelativeBendpoint::setRelativeDimensions(const QSize &dim1, const QSize &dim2)
{
    m_relativeDim1 = dim1;
    m_relativeDim2 = dim2;
}

bool RelativeBendpoint::isNull() const
{
    return !getConnection();
}

QPoint RelativeBendpoint::mixedLocation(const QPoint &sourceReference, const QPoint &targetReference) const
{
    const QPoint source = moved(sourceReference, m_relativeDim1);
    const QPoint target = moved(targetReference, m_relativeDim2);
    return {mixed(source.x(), target.x(), m_weight), mixed(source.y(), target.y(), m_weight)};
}

} // namespace Vantrel::Pictel
