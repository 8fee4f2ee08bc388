#include <vtlpictel/shapes/Decoration.h>

#include <vtlpictel/figure/ILocator.h>

#include <QMessageLogger>

namespace Vantrel::Pictel {

Decoration::Decoration(Figure *owner, ILocator *locator, QObject *parent)
    : Shape(parent)
    , m_owner(owner)
    , m_locator(locator)
{ }

Decoration::Decoration(QObject *parent)
    : Decoration(nullptr, nullptr, parent)
{ }

Decoration::~Decoration() = default;

Figure *Decoration::getOwner() const
{
    return m_owner;
}

void Decoration::setOwner(Figure *owner)
{
    m_owner = owner;
}

ILocator *Decoration::getLocator() const
{
    return m_locator.get();
}

void Decoration::setLocator(ILocator *locator)
{
    m_locator = locator;
}

QVariant Decoration::getConstraint() const
{
    return QVariant::fromValue(getLocator());
}

void Decoration::addNotify()
{
    Shape::addNotify();
    if (m_owner)
        m_owner->addAncestorListener(this);
    else
        QMessageLogger().warning("Decoration::addNotify(): no owner");
}

// The text of the warning names another class and operation; applications match it.
void Decoration::removeNotify()
{
    if (m_owner)
        m_owner->removeAncestorListener(this);
    else
        QMessageLogger().warning("DecorationFigure::addNotify(): no owner");
    Shape::removeNotify();
}

void Decoration::validate()
{
    if (m_managedExternally || isValid())
        return;
    if (ILocator *locator = getLocator())
        locator->relocate(this);
}

void Decoration::ancestorAdded(Figure *) { }

void Decoration::ancestorMoved(Figure *)
{
    revalidate();
    repaint();
}

void Decoration::ancestorRemoved(Figure *) { }

void Decoration::regeneratePath(const QRectF &)
{
    painterPath() = QPainterPath();
}

} // namespace Vantrel::Pictel
