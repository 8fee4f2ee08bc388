#include <vtlpictel/connections/AbsoluteBendpoint.h>

namespace Vantrel::Pictel {

namespace {

[[maybe_unused]] const int valueType = qRegisterMetaType<AbsoluteBendpoint>();

} // namespace

AbsoluteBendpoint::AbsoluteBendpoint(QObject *parent)
    : AbsoluteBendpoint(QPoint(), parent)
{ }

AbsoluteBendpoint::AbsoluteBendpoint(const QPoint &location, QObject *parent)
    : Bendpoint(parent)
    , m_location(location)
{ }

AbsoluteBendpoint::AbsoluteBendpoint(int x, int y, QObject *parent)
    : AbsoluteBendpoint(QPoint(x, y), parent)
{ }

AbsoluteBendpoint::AbsoluteBendpoint(const AbsoluteBendpoint &other)
    : AbsoluteBendpoint(other.m_location)
{ }

AbsoluteBendpoint::~AbsoluteBendpoint() = default;

AbsoluteBendpoint &AbsoluteBendpoint::operator=(const AbsoluteBendpoint &other)
{
    m_location = other.m_location;
    return *this;
}

QPoint AbsoluteBendpoint::getLocation() const
{
    return m_location;
}

void AbsoluteBendpoint::setLocation(const QPoint &location)
{
    m_location = location;
}

bool AbsoluteBendpoint::isNull() const
{
    return m_location.isNull();
}

} // namespace Vantrel::Pictel
