#include <vtlpictel/figure/RelativeLocator.h>

#include "support/LifeGuard.h"
#include "support/Rounding.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/GeometryUtils.h>

namespace Vantrel::Pictel {

namespace {

double fraction(int position, int low, int high)
{
    const int sides = position & (low | high);
    if (sides == low)
        return 0.0;
    return sides == high ? 1.0 : 0.5;
}

int offsetIn(double extent, double fraction, int size)
{
    return truncateToInt(extent * fraction - (size + 1) / 2);
}

} // namespace

RelativeLocator::RelativeLocator(Figure *reference, int position, QObject *parent)
    : QObject(parent)
    , m_referenceFigure(reference)
{
    RelativeLocator::setLocation(position);
}

RelativeLocator::RelativeLocator(Figure *reference, double relativeX, double relativeY, QObject *parent)
    : QObject(parent)
    , m_referenceFigure(reference)
    , m_relativeX(relativeX)
    , m_relativeY(relativeY)
{ }

RelativeLocator::~RelativeLocator() = default;

void RelativeLocator::setReferenceFigure(Figure *reference)
{
    m_referenceFigure = reference;
}

void RelativeLocator::setLocation(int position)
{
    m_relativeX = fraction(position, POSITION_WEST, POSITION_EAST);
    m_relativeY = fraction(position, POSITION_NORTH, POSITION_SOUTH);
}

QRect RelativeLocator::getReferenceBox()
{
    return m_referenceFigure ? m_referenceFigure->getBounds() : QRect();
}

Figure *RelativeLocator::getReferenceFigure() const
{
    return m_referenceFigure;
}

void RelativeLocator::relocate(Figure *target)
{
    Figure *reference = getReferenceFigure();
    if (!target || !target->isVisible() || !reference)
        return;
    // Whoever is asked may delete the locator or either figure.
    const LifeGuard<ILocator> self(this);
    const LifeGuard<Figure> referenceLife(reference);
    const LifeGuard<Figure> guest(target);
    QRectF box = getReferenceBox().adjusted(0, 0, -1, -1);
    if (referenceLife.isAlive())
        reference->translateToAbsolute(box);
    if (guest.isAlive())
        target->translateToRelative(box);
    box.adjust(0, 0, 1, 1);
    const QSize size = guest.isAlive() ? target->getPreferredSize() : QSize();
    if (!self.isAlive() || !referenceLife.isAlive() || !guest.isAlive())
        return;
    const QPoint offset(offsetIn(box.width(), m_relativeX, size.width()),
                        offsetIn(box.height(), m_relativeY, size.height()));
    target->setBounds(roundedRect(QRectF(box.topLeft() + offset, QSizeF(size))));
}

} // namespace Vantrel::Pictel
