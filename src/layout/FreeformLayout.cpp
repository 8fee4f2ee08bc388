#include <vtlpictel/layout/FreeformLayout.h>

#include "layout/ExtentIndex_p.h"
#include "support/LifeGuard.h"
#include "support/RectExtents.h"
#include "support/SignalConnection.h"

#include <vtlpictel/figure/Border.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/Insets.h>

namespace Vantrel::Pictel {

namespace {

const SignalConnection &examinedMoves()
{
    static const SignalConnection connection(Figure::staticMetaObject, "figureMoved(Figure*)",
                                             FreeformLayout::staticMetaObject, "examineExtent()");
    return connection;
}

} // namespace

FreeformLayout::FreeformLayout(QObject *parent, bool contentMonitored)
    : XYLayout(parent)
    , m_contentMonitored(contentMonitored)
    , m_index(std::make_unique<ExtentIndex>(*this))
{
    setChildObserver(m_index.get());
}

FreeformLayout::~FreeformLayout() = default;

QPoint FreeformLayout::getOrigin(Figure *) const
{
    return QPoint(0, 0);
}

bool FreeformLayout::add(Figure *child, const QVariant &constraint, int index)
{
    return addMonitored(child, constraint, index);
}

bool FreeformLayout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    return addMonitored(child, vStretch, hStretch, index);
}

template <typename... Arguments>
bool FreeformLayout::addMonitored(Figure *child, const Arguments &...arguments)
{
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    const bool added = XYLayout::add(child, arguments...);
    if (added && self.isAlive() && guest.isAlive() && m_contentMonitored && holds(child))
        examinedMoves().connect(child, this);
    return added;
}

bool FreeformLayout::remove(Figure *child)
{
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    if (!XYLayout::remove(child))
        return false;
    if (!self.isAlive())
        return true;
    if (guest.isAlive() && isMoveHeard(*child))
        examinedMoves().disconnect(child, this);
    examineExtent();
    return true;
}

bool FreeformLayout::isRelativeLayout() const
{
    return false;
}

QRect FreeformLayout::getFreeformExtent()
{
    if (m_extent.isValid())
        return m_extent;
    const LifeGuard<Layout> self(this);
    const QRect extent = calculateFreeformExtent();
    if (self.isAlive())
        m_extent = extent;
    return extent;
}

void FreeformLayout::setContentMonitored(bool monitored)
{
    Figure *container = getFigure();
    if (container && m_contentMonitored && !monitored)
        examinedMoves().disconnect(container, this);
    if (container && monitored)
        examinedMoves().connect(container, this);
    m_contentMonitored = monitored;
}

void FreeformLayout::examineExtent()
{
    const LifeGuard<Layout> self(this);
    const QRect extent = calculateFreeformExtent();
    if (!self.isAlive() || extent == m_extent)
        return;
    m_extent = extent;
    Q_EMIT extentChanged();
}

QSize FreeformLayout::calculatePreferredSize()
{
    return getMinimumSize();
}

QSize FreeformLayout::calculateMinimumSize()
{
    return boundedSize(getFreeformExtent());
}

QRect FreeformLayout::calculateFreeformExtent() const
{
    const QPointer<Figure> container = getFigure();
    if (!container)
        return QRect();
    QRect extent = m_index->extent();
    if (const Border *border = container ? container->getBorder() : nullptr)
        border->getInsets().stripFrom(extent);
    return extent;
}

} // namespace Vantrel::Pictel
