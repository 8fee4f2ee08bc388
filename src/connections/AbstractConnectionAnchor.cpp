#include <vtlpictel/connections/AbstractConnectionAnchor.h>

#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/figure/InterfacePointer.h>

#include "support/LifeGuard.h"
#include "support/RectExtents.h"
#include "support/Rounding.h"

#include <utility>

namespace Vantrel::Pictel {

AbstractConnectionAnchor::AbstractConnectionAnchor(QObject *parent)
    : AbstractConnectionAnchor(nullptr, parent)
{ }

AbstractConnectionAnchor::AbstractConnectionAnchor(Figure *owner, QObject *parent)
    : ConnectionAnchorBase(parent)
    , m_owner(owner)
{ }

// The owner counts its ancestor listeners, so a dying anchor has to sign off.
AbstractConnectionAnchor::~AbstractConnectionAnchor()
{
    stopListening();
}

void AbstractConnectionAnchor::addAnchorListener(IAnchorListener *listener)
{
    if (!listener)
        return;
    const LifeGuard<IConnectionAnchor> self(this);
    const InterfacePointer<IAnchorListener> guest(listener);
    startListening();
    if (self.isAlive() && guest)
        ConnectionAnchorBase::addAnchorListener(listener);
}

Figure *AbstractConnectionAnchor::getOwner() const
{
    return m_owner;
}

QPoint AbstractConnectionAnchor::getReferencePoint() const
{
    Figure *owner = m_owner;
    if (!owner)
        return {};
    const LifeGuard<Figure> ownerLife(owner);
    QPoint center = roundedPoint(toRectF(owner->getBounds()).center());
    return ownerLife.isAlive() ? owner->translateToAbsolute(center) : center;
}

void AbstractConnectionAnchor::removeAnchorListener(IAnchorListener *listener)
{
    if (!listener)
        return;
    const LifeGuard<IConnectionAnchor> self(this);
    ConnectionAnchorBase::removeAnchorListener(listener);
    if (self.isAlive())
        stopListening();
}

void AbstractConnectionAnchor::setOwner(Figure *owner)
{
    const LifeGuard<IConnectionAnchor> self(this);
    const QPointer<Figure> next(owner);
    stopListening();
    if (!self.isAlive())
        return;
    m_owner = next;
    startListening();
}

void AbstractConnectionAnchor::ancestorAdded(Figure *) { }

void AbstractConnectionAnchor::ancestorMoved(Figure *)
{
    Q_EMIT anchorMoved(this);
}

void AbstractConnectionAnchor::ancestorRemoved(Figure *) { }

// The owner may delete the anchor: the note comes before the call.
void AbstractConnectionAnchor::startListening()
{
    if (m_owner && !std::exchange(m_listening, true))
        m_owner->addAncestorListener(this);
}

// An owner that was deleted has taken the registration along.
void AbstractConnectionAnchor::stopListening()
{
    if (std::exchange(m_listening, false) && m_owner)
        m_owner->removeAncestorListener(this);
}

} // namespace Vantrel::Pictel
