#include <vtlpictel/layout/Layout.h>

#include "layout/ChildList_p.h"
#include "layout/LayoutChildObserver_p.h"
#include "layout/LocatorConstraint_p.h"
#include "support/LifeGuard.h"
#include "support/ReadAhead.h"

#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/layout/ILayoutListener.h>

#include <QMessageLogger>
#include <QMetaMethod>

namespace Vantrel::Pictel {

namespace {

bool isSameObject(const QVariant &first, const QVariant &second)
{
    return holdsObject(first) && holdsObject(second) && objectOf(first) == objectOf(second);
}

void releaseObject(QObject *object)
{
    if (object && !object->parent())
        object->deleteLater();
}

} // namespace

Layout::Layout(QObject *parent)
    : QObject(parent)
    , m_children(std::make_unique<ChildList>())
{ }

Layout::~Layout()
{
    LifeGuard<Layout>::release(this);
    m_childObserver = nullptr;
    releaseAll();
}

Figure *Layout::getFigure() const
{
    return m_figure;
}

// Where the children are painted, as their notes have it, depends on the container.
void Layout::setFigure(Figure *figure)
{
    if (figure != m_figure)
        m_children->forgetNotes();
    m_figure = figure;
}

bool Layout::add(Figure *child, const QVariant &constraint, int index)
{
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    if (!insertChild(child, index))
        return false;
    if (!self.isAlive() || !guest.isAlive())
        return true;
    provideHelper(child, LayoutHelper());
    setConstraint(child, constraint);
    if (self.isAlive() && guest.isAlive())
        enterTree(child);
    return true;
}

bool Layout::add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index)
{
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    if (!insertChild(child, index))
        return false;
    if (!self.isAlive() || !guest.isAlive())
        return true;
    provideHelper(child, {QVariant(), vStretch, hStretch});
    const QRect bounds = child->getBounds();
    if (bounds != QRect())
        setConstraint(child, QVariant(bounds));
    if (self.isAlive() && guest.isAlive())
        enterTree(child);
    return true;
}

bool Layout::insertChild(Figure *child, int index)
{
    Figure *container = m_figure;
    if (!container || !child || child->slotIn(this) >= 0 || child->isSelfOrAncestorOf(container))
        return false;
    const int slot = m_children->insert(child, index);
    child->m_holders.append({this, slot});
    if (m_childObserver)
        m_childObserver->childAdded(child, slot);
    child->setParentFigure(container);
    return true;
}

// Whoever heard of the new parent may have taken the child out and added it again, with a constraint.
void Layout::provideHelper(Figure *child, const LayoutHelper &helper)
{
    dropConstraint(child);
    m_children->setHelper(child, helper);
}

// Each step calls out, and may be the end of the layout or the child, or have it taken out again.
void Layout::enterTree(Figure *child)
{
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    const auto isChild = [&] { return self.isAlive() && guest.isAlive() && holds(child); };
    if (isChild())
        child->revalidate();
    if (isChild() && m_figure && m_figure->getFlag(Figure::FLAG_NOTIFIED))
        child->addNotify();
    if (isChild())
        child->repaint();
}

// Removing a child that is leaving already fails. It may die on its way, or the container, which lets go of it then.
bool Layout::remove(Figure *child)
{
    if (!child || !m_children->startLeaving(child))
        return false;
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> guest(child);
    const auto isGone = [&] { return !guest.isAlive() || (self.isAlive() && !holds(child)); };
    notifyListeners([this](ILayoutListener *listener) { listener->remove(m_figure); });
    if (!self.isAlive() || isGone())
        return true;
    dropConstraint(child);
    m_children->dropHelper(child);
    childChanged(child);
    if (m_figure && m_figure->getFlag(Figure::FLAG_NOTIFIED)) {
        child->removeNotify();
        if (self.isAlive() && m_figure)
            m_figure->revalidate();
    }
    if (!isGone())
        child->erase();
    if (!isGone())
        child->setParentFigure(nullptr);
    if (self.isAlive() && !isGone())
        takeOut(child);
    return true;
}

QList<Figure *> Layout::childFigures() const
{
    return m_children->figures();
}

int Layout::childFigureCount() const
{
    return m_children->count();
}

QVariant Layout::getConstraint(Figure *child) const
{
    const LayoutHelper *helper = getHelper(child);
    return helper ? helper->constraint : QVariant();
}

bool Layout::setConstraint(Figure *child, const QVariant &constraint)
{
    const LayoutHelper *helper = getHelper(child);
    if (!helper)
        return false;
    const bool isObjectAgain = isSameObject(helper->constraint, constraint);
    const bool isEqual = helper->constraint == constraint;
    const bool isOther = !isObjectAgain && (!isEqual || holdsObject(helper->constraint));
    if (isOther && !m_listeners.isEmpty()) {
        const LifeGuard<Layout> self(this);
        tellListenersOfConstraint(constraint);
        if (!self.isAlive() || !getHelper(child))
            return false;
    }
    if (isObjectAgain)
        applyConstraint(child, constraint);
    return isObjectAgain || (!isEqual && storeConstraint(child, constraint));
}

void Layout::tellListenersOfConstraint(const QVariant &constraint)
{
    notifyListeners([this, &constraint](ILayoutListener *listener) { listener->setConstraint(m_figure, constraint); });
}

bool Layout::storeConstraint(Figure *child, const QVariant &constraint)
{
    const QVariant stored = constraint;
    dropConstraint(child);
    if (LayoutHelper *helper = getHelper(child))
        helper->constraint = stored;
    watchConstraint(child, stored);
    childChanged(child);
    applyConstraint(child, stored);
    return true;
}

// A constraint object may be deleted by its owner: its children's constraints become invalid then.
void Layout::watchConstraint(Figure *child, const QVariant &constraint)
{
    QObject *object = objectOf(constraint);
    if (!object)
        return;
    if (m_children->objectConstraints.insert(object, child))
        connect(object, &QObject::destroyed, this, &Layout::constraintObjectDestroyed);
}

void Layout::dropConstraint(Figure *child)
{
    LayoutHelper *helper = getHelper(child);
    if (!helper)
        return;
    QObject *object = objectOf(helper->constraint);
    helper->constraint = QVariant();
    if (!object)
        return;
    if (m_children->objectConstraints.remove(object, child))
        disconnect(object, &QObject::destroyed, this, &Layout::constraintObjectDestroyed);
    releaseObject(object);
}

void Layout::constraintObjectDestroyed(QObject *object)
{
    const QList<Figure *> children = m_children->objectConstraints.take(object);
    for (Figure *child : children) {
        if (LayoutHelper *helper = getHelper(child))
            helper->constraint = QVariant();
    }
}

QSize Layout::getPreferredSize()
{
    return cachedSize(&Layout::m_preferredSizeCache, &Layout::calculatePreferredSize);
}

QSize Layout::getMinimumSize()
{
    return cachedSize(&Layout::m_minimumSizeCache, &Layout::calculateMinimumSize);
}

QSize Layout::cachedSize(QSize Layout::*cache, QSize (Layout::*calculate)())
{
    if ((this->*cache).isValid())
        return this->*cache;
    const LifeGuard<Layout> self(this);
    const QSize size = (this->*calculate)();
    if (self.isAlive())
        this->*cache = size;
    return size;
}

Qt::Orientations Layout::expandingDirections() const
{
    return m_expandingDirections;
}

void Layout::setExpandingDirections(Qt::Orientations directions)
{
    m_expandingDirections = directions & (Qt::Horizontal | Qt::Vertical);
}

bool Layout::isRelativeLayout() const
{
    return true;
}

bool Layout::layout(Figure *container)
{
    if (!container)
        return false;
    if (isLaidOut())
        return true;
    const LifeGuard<Layout> self(this);
    const LifeGuard<Figure> host(container);
    bool taken = false;
    notifyListeners([&](ILayoutListener *listener) { taken = listener->layout(container) || taken; });
    if (!taken && self.isAlive() && host.isAlive()) {
        QRect area = container->getClientArea();
        const bool done = performLayout(container->translateFromParent(area));
        if (self.isAlive())
            setLaidOut(done);
    }
    if (!self.isAlive() || !host.isAlive())
        return false;
    notifyListeners([container](ILayoutListener *listener) { listener->postLayout(container); });
    return self.isAlive() && isLaidOut();
}

void Layout::invalidate()
{
    const LifeGuard<Layout> self(this);
    notifyListeners([this](ILayoutListener *listener) { listener->invalidate(m_figure); });
    if (!self.isAlive())
        return;
    m_laidOut = false;
    m_preferredSizeCache = QSize();
    m_minimumSizeCache = QSize();
}

void Layout::addListener(ILayoutListener *listener)
{
    if (!listener) {
        QMessageLogger().warning("Layout::addListener(): null listener");
        return;
    }
    if (!m_listeners.contains(listener))
        m_listeners.append(listener);
}

void Layout::removeListener(ILayoutListener *listener)
{
    if (!listener) {
        QMessageLogger().warning("Layout::removeListener(): null listener");
        return;
    }
    m_listeners.removeOne(listener);
}

bool Layout::isClipping() const
{
    return true;
}

bool Layout::applyConstraint(Figure *child, const QVariant &constraint)
{
    if (!child || !constraint.isValid())
        return false;
    if (ILocator *locator = locatorOf(constraint))
        locator->relocate(child);
    return true;
}

Layout::LayoutHelper *Layout::getHelper(Figure *child) const
{
    return m_children->helper(child);
}

void Layout::recall(const Figure *child) const
{
    const int slot = child->slotIn(this);
    if (slot >= 0)
        m_children->recall(child, slot);
}

// All that is read ahead arrives while the first of it is being dealt with.
void Layout::recallLeaving(const Figure *child) const
{
    readAll(child);
    const int slot = child->slotIn(this);
    if (slot < 0)
        return;
    if (m_childObserver)
        m_childObserver->readSlot(slot);
    m_children->readSlot(slot);
    m_children->recall(child, slot);
}

bool Layout::isMoveHeard(const Figure &child)
{
    static const QMetaMethod moved = QMetaMethod::fromSignal(&Figure::figureMoved);
    return child.isSignalConnected(moved);
}

bool Layout::holds(const Figure *child) const
{
    return m_children->contains(child);
}

// Listeners may come and go during a notification: those that have gone are not called.
void Layout::notifyListeners(const std::function<void(ILayoutListener *)> &notify)
{
    if (m_listeners.isEmpty())
        return;
    const LifeGuard<Layout> self(this);
    const QList<ILayoutListener *> listeners = m_listeners;
    for (ILayoutListener *listener : listeners) {
        if (m_listeners.contains(listener))
            notify(listener);
        if (!self.isAlive())
            return;
    }
}

quint64 Layout::departures() const
{
    return m_children->departures();
}

void Layout::childChanged(Figure *child)
{
    const int slot = m_children->slotOf(child);
    dropRest(child, slot);
    if (m_childObserver && slot >= 0)
        m_childObserver->childChanged(slot);
}

void Layout::takeOut(Figure *child)
{
    const int slot = m_children->remove(child);
    child->leave(this);
    if (m_childObserver && slot >= 0)
        m_childObserver->childRemoved(slot);
}

// The child is in its destructor: only the books are put right and the container laid out anew.
void Layout::forget(Figure *child)
{
    const LifeGuard<Layout> self(this);
    recall(child);
    dropConstraint(child);
    takeOut(child);
    if (m_figure && m_figure->getFlag(Figure::FLAG_NOTIFIED))
        m_figure->revalidate();
    if (self.isAlive() && m_childObserver)
        m_childObserver->childDestroyed();
}

// The layout may be used for another container, so it must not go on following these children's moves. Ending that may
// call out to a child that changes or deletes others, or the layout.
void Layout::releaseAll()
{
    const LifeGuard<Layout> self(this);
    while (Figure *child = self.isAlive() ? m_children->topmost() : nullptr) {
        recall(child);
        dropConstraint(child);
        takeOut(child);
        disconnect(child, &Figure::figureMoved, this, nullptr);
    }
}

} // namespace Vantrel::Pictel
