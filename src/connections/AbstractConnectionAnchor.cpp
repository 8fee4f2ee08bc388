#include <vtlpictel/connections/AbstractConnectionAnchor.h>

#include "support/RectExtents.h"
#include "support/Rounding.h"

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
    startListening();
    ConnectionAnchorBase::addAnchorListener(listener);
}

Figure *AbstractConnectionAnchor::getOwner() const
{
    return m_owner;
}

QPoint AbstractConnectionAnchor::getReferencePoint() const
{
    if (!m_owner)
        return {};
    QPoint center = roundedPoint(toRectF(m_owner->getBounds()).center());
    return m_owner->translateToAbsolute(center);
}

void AbstractConnectionAnchor::removeAnchorListener(IAnchorListener *listener)
{
    if (!listener)
        return;
    ConnectionAnchorBase::removeAnchorListener(listener);
    stopListening();
}

void AbstractConnectionAnchor::setOwner(Figure *owner)
{
    stopListening();
    m_owner = owner;
    startListening();
}

void AbstractConnectionAnchor::ancestorAdded(Figure *) { }

void AbstractConnectionAnchor::ancestorMoved(Figure *)
{
    Q_EMIT anchorMoved(this);
}

void AbstractConnectionAnchor::ancestorRemoved(Figure *) { }

void AbstractConnectionAnchor::startListening()
{
    if (m_listening || !m_owner)
        return;
    m_owner->addAncestorListener(this);
    m_listening = true;
}

// An owner that was deleted has taken the registration along.
void AbstractConnectionAnchor::stopListening()
{
    if (m_listening && m_owner)
        m_owner->removeAncestorListener(this);
    m_listening = false;
}

} // namespace Vantrel::Pictel
