#include <vtlpictel/figure/Figure.h>

#include "figure/FigureListeners_p.h"
#include "support/LifeGuard.h"
#include "support/Rounding.h"
#include "support/WrappingArithmetic.h"

#include <vtlpictel/figure/AncestorHelper.h>
#include <vtlpictel/figure/Border.h>
#include <vtlpictel/figure/Insets.h>
#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/Layout.h>

#include <QMessageLogger>

#include <utility>

namespace Vantrel::Pictel {

namespace {

bool fits(const QSize &size, const QSize &bound)
{
    return size.width() <= bound.width() && size.height() <= bound.height();
}

} // namespace

const QString Figure::PROPERTY_PARENT = QStringLiteral("parent");

Figure::Figure(QObject *parent, const QColor &backgroundColor)
    : QObject(parent)
    , m_backgroundColor(backgroundColor)
{ }

// Whoever refers to this figure lets go now: nothing is called that could reach the parts already destroyed.
Figure::~Figure()
{
    LifeGuard<Figure>::release(this);
    erase();
    releaseChildren();
    leaveHolders();
    UpdateManager::forgetFigure(this);
    delete m_ancestorHelper.data();
}

// Border and size hints

Border *Figure::getBorder() const
{
    return m_border;
}

void Figure::setBorder(Border *border)
{
    m_border = border;
}

QSize Figure::getMinimumSize()
{
    QSize size(0, 0);
    if (m_layout) {
        size = applyMargin(m_layout->getMinimumSize());
        if (size.isValid() && m_border)
            m_border->getInsets().addTo(size);
    }
    return size.expandedTo(m_minimumSize);
}

bool Figure::setMinimumSize(const QSize &size)
{
    if (!fits(size, m_maximumSize)) {
        QMessageLogger().debug("Figure::setMinimumSize(): size out of bound");
        return false;
    }
    m_minimumSize = size;
    return true;
}

QSize Figure::getMaximumSize()
{
    return m_maximumSize;
}

bool Figure::setMaximumSize(const QSize &size)
{
    if (!fits(m_minimumSize, size)) {
        QMessageLogger().debug("Figure::setMaximumSize(): size out of bound");
        return false;
    }
    m_maximumSize = size;
    return true;
}

QSize Figure::getPreferredSize()
{
    if (isValid())
        return m_preferredSize;
    const bool asksContent = !m_layout || getFlag(FLAG_CONTENT_SIZED);
    QSize size = applyMargin(asksContent ? calculateContentSize() : m_layout->getPreferredSize());
    if (size.isValid() && m_border)
        m_border->getInsets().addTo(size);
    m_preferredSize = size.expandedTo(getMinimumSize()).boundedTo(getMaximumSize());
    return m_preferredSize;
}

// The result is false also when the size was stored: callers have always been told not to rely on it.
bool Figure::setPreferredSize(const QSize &size)
{
    if (fits(m_minimumSize, size) && fits(size, m_maximumSize))
        m_preferredSize = size;
    else
        QMessageLogger().debug("Figure::setPreferredSize(): size out of bound");
    return false;
}

QSize Figure::calculateContentSize()
{
    QSize size = m_preferredSize;
    if (!size.isValid())
        return size;
    removeMargin(size);
    if (m_border)
        m_border->getInsets().removeFrom(size);
    return size;
}

QSize Figure::getResizeMinimum(int)
{
    return getMinimumSize();
}

int Figure::getMargin() const
{
    return m_margin;
}

void Figure::setMargin(int margin)
{
    m_margin = qMax(margin, 0);
}

QSize Figure::applyMargin(const QSize &size) const
{
    const double both = 2.0 * getMargin();
    return QSize(truncateToInt(size.width() + both), truncateToInt(size.height() + both));
}

QSize Figure::removeMargin(QSize &size) const
{
    size -= QSize(getMargin(), getMargin());
    return size;
}

QRect Figure::getClientArea()
{
    const QRect resolved = resolveBounds(getBounds());
    return resolved.isValid() ? calculateContentRect(resolved) : resolved;
}

QRect Figure::calculateContentRect(const QRect &rect)
{
    QRect content = rect;
    if (m_border)
        m_border->getInsets().applyTo(content);
    return content.adjusted(m_margin, m_margin, -m_margin, -m_margin);
}

QRect Figure::calculateRectForContent(const QRect &rect) const
{
    QRect outer = rect;
    if (m_border)
        m_border->getInsets().stripFrom(outer);
    return outer.adjusted(-m_margin, -m_margin, m_margin, m_margin);
}

// Bounds

QRect Figure::getBounds()
{
    return m_bounds;
}

void Figure::setBounds(const QRect &bounds)
{
    const LifeGuard<Figure> self(this);
    const QRect resolved = resolveBounds(bounds);
    if (!self.isAlive())
        return;
    const bool moved = resolved.topLeft() != m_bounds.topLeft();
    const bool resized = resolved.size() != m_bounds.size();
    if (!moved && !resized)
        return;
    if (isVisible())
        erase();
    if (moved && self.isAlive())
        primTranslate(wrappingSubtract(resolved.x(), m_bounds.x()), wrappingSubtract(resolved.y(), m_bounds.y()));
    if (resized && self.isAlive()) {
        m_bounds.setSize(resolved.size());
        tellLayouts(&Layout::noteMove);
        invalidate();
    }
    if (self.isAlive())
        Q_EMIT figureMoved(this);
    if (self.isAlive())
        repaint();
}

QRect Figure::getBoundingRect()
{
    return getBounds();
}

QRect Figure::resolveBounds(const QRect &bounds)
{
    if (bounds.isValid())
        return bounds;
    QRect resolved = bounds;
    const QSize preferred = getPreferredSize();
    if (resolved.width() < 1 && preferred.width() >= 1)
        resolved.setWidth(preferred.width());
    if (resolved.height() < 1 && preferred.height() >= 1)
        resolved.setHeight(preferred.height());
    if (!resolved.isValid())
        QMessageLogger().debug("Figure::resolveBounds(): resolved bounds still invalid");
    return resolved;
}

void Figure::translate(int dx, int dy)
{
    const LifeGuard<Figure> self(this);
    if (m_layout && !m_layout->isRelativeLayout())
        primTranslate(dx, dy);
    if (self.isAlive())
        Q_EMIT figureMoved(this);
}

void Figure::primTranslate(int dx, int dy)
{
    m_bounds.translate(dx, dy);
    tellLayouts(&Layout::noteMove);
    if (useLocalCoordinates())
        return;
    const QPoint step(dx, dy);
    m_layout->forEachChild([step](Figure *child) { child->translate(step.x(), step.y()); });
}

// Properties

bool Figure::isEnabled() const
{
    return getFlag(FLAG_ENABLED);
}

void Figure::setEnabled(bool enabled)
{
    setFlag(FLAG_ENABLED, enabled);
}

void Figure::setChildrenEnabled(bool enabled)
{
    forEachChild(enabled ? [](Figure *child) { child->setEnabled(true); }
                         : [](Figure *child) { child->setEnabled(false); });
}

bool Figure::isVisible() const
{
    return getFlag(FLAG_VISIBLE);
}

void Figure::setVisible(bool visible)
{
    if (visible == isVisible())
        return;
    if (!visible)
        erase();
    setFlag(FLAG_VISIBLE, visible);
    if (visible)
        repaint();
    revalidate();
}

QColor Figure::getBackgroundColor()
{
    return m_backgroundColor;
}

void Figure::setBackgroundColor(const QColor &color)
{
    m_backgroundColor = color;
    repaint();
}

Figure *Figure::getTooltip() const
{
    return m_tooltip;
}

void Figure::setTooltip(Figure *tooltip)
{
    m_tooltip = tooltip;
}

Qt::Orientations Figure::expandingDirections()
{
    return m_layout ? m_layout->expandingDirections() : m_expandingDirections;
}

void Figure::setExpandingDirections(Qt::Orientations directions)
{
    m_expandingDirections = directions & (Qt::Horizontal | Qt::Vertical);
}

void Figure::setFlag(int mask, bool on)
{
    const auto bits = static_cast<unsigned int>(mask);
    const unsigned int before = std::exchange(m_flags, on ? m_flags | bits : m_flags & ~bits);
    const unsigned int changes = (before ^ m_flags) & (FLAG_VALID | FLAG_VISIBLE);
    if (changes != 0)
        tellLayouts(changes == FLAG_VALID && !on ? &Layout::dropRest : &Layout::renote);
    if ((changes & FLAG_VISIBLE) != 0)
        tellHolders();
}

void Figure::highlightClientArea(bool highlighted)
{
    m_clientAreaHighlighted = highlighted;
    repaint();
}

void Figure::setHighlightStyle(int style)
{
    m_highlightStyle = style;
    if (m_clientAreaHighlighted)
        repaint();
}

// Validation and repaint

void Figure::layout()
{
    if (m_layout)
        m_layout->layout(this);
}

bool Figure::isValidateRoot() const
{
    return false;
}

void Figure::invalidate()
{
    setValid(false);
    if (m_layout)
        m_layout->invalidate();
}

void Figure::validate()
{
    if (isValid())
        return;
    const LifeGuard<Figure> self(this);
    layout();
    if (self.isAlive())
        forEachChild([](Figure *child) { child->validate(); }, Walk::Restless);
    if (self.isAlive())
        setValid(true);
}

void Figure::revalidate()
{
    const LifeGuard<Figure> self(this);
    invalidate();
    if (!self.isAlive())
        return;
    if (m_parentFigure && !isValidateRoot()) {
        m_parentFigure->revalidate();
        return;
    }
    if (UpdateManager *manager = getUpdateManager())
        manager->addInvalidFigure(this);
}

void Figure::erase()
{
    QRect area = getBoundingRect();
    if (!area.isValid() || !m_parentFigure || !isVisible())
        return;
    m_parentFigure->translateToParent(area);
    m_parentFigure->repaint(area);
}

void Figure::repaint(const QRect &rect)
{
    if (!rect.isValid() || !isVisible())
        return;
    if (UpdateManager *manager = getUpdateManager())
        manager->addDirtyRegion(this, rect);
}

void Figure::repaint(int x, int y, int w, int h)
{
    repaint(QRect(x, y, w, h));
}

void Figure::repaint()
{
    repaint(getBoundingRect());
}

} // namespace Vantrel::Pictel
