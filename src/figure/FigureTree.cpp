// The figure tree and the listeners of Figure.

#include <vtlpictel/figure/Figure.h>

#include "figure/FigureListeners_p.h"
#include "support/LifeGuard.h"
#include "support/ReadAhead.h"

#include <vtlpictel/figure/AncestorHelper.h>
#include <vtlpictel/figure/IAncestorListener.h>
#include <vtlpictel/figure/IPropertyChangeListener.h>
#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/Layout.h>

#include <QMessageLogger>
#include <QMetaMethod>
#include <QSet>

#include <iterator>

namespace Vantrel::Pictel {

namespace {

// Signal and slot signatures as the SIGNAL and SLOT macros spell them.
constexpr const char *propertyChangedSignal = "2propertyChanged(const QString &, const QVariant &, const QVariant &)";
constexpr const char *propertyChangedSlot = "1propertyChanged(const QString &, const QVariant &, const QVariant &)";

template <typename Listener>
QObject *asObject(Listener *listener)
{
    return dynamic_cast<QObject *>(listener);
}

struct AncestorSignal
{
    const char *signal;
    const char *slot;
};

constexpr AncestorSignal ancestorSignals[] = {
    {"2ancestorAdded(Figure *)", "1ancestorAdded(Figure *)"},
    {"2ancestorMoved(Figure *)", "1ancestorMoved(Figure *)"},
    {"2ancestorRemoved(Figure *)", "1ancestorRemoved(Figure *)"},
};

} // namespace

void Figure::releaseChildren()
{
    const auto holdsChildren = [this] { return m_layout && m_layout->getFigure() == this; };
    if (!holdsChildren())
        return;
    if (getFlag(FLAG_NOTIFIED))
        forEachChild([](Figure *child) { child->removeNotify(); });
    if (!holdsChildren())
        return;
    m_layout->setFigure(nullptr);
    m_layout->releaseAll();
}

void Figure::leaveHolders()
{
    const QVarLengthArray<Holder, 1> holders = m_holders;
    for (const Holder &holder : holders) {
        if (slotIn(holder.layout) >= 0)
            holder.layout->forget(this);
    }
}

void Figure::tellHolders()
{
    for (const Holder &holder : std::as_const(m_holders))
        holder.layout->childChanged(this);
}

void Figure::tellLayouts(void (Layout::*note)(Figure *, int))
{
    for (const Holder &holder : std::as_const(m_holders))
        (holder.layout->*note)(this, holder.slot);
}

// The number by which the layout keeps this figure, or -1.
int Figure::slotIn(const Layout *layout) const
{
    for (const Holder &holder : m_holders) {
        if (holder.layout == layout)
            return holder.slot;
    }
    return -1;
}

int Figure::leave(const Layout *layout)
{
    const int slot = slotIn(layout);
    m_holders.removeIf([layout](const Holder &holder) { return holder.layout == layout; });
    return slot;
}

// Calls visit for every child from bottom to top; children that leave or die meanwhile are skipped, and the walk ends
// when the layout that held them dies.
void Figure::forEachChild(void (*visit)(Figure *child), Walk walk)
{
    const Layout *layout = m_layout;
    const LifeGuard<Layout> keeper(layout);
    const bool passesByRest = layout && walk == Walk::Restless;
    const QList<Figure *> children = childFigures();
    const quint64 departures = layout ? layout->departures() : 0;
    for (qsizetype place = 0; place < children.size(); ++place) {
        if (passesByRest)
            place = layout->firstRestless(children, place);
        readAhead(children, place + ReadAheadDistance);
        Figure *child = children.value(place);
        if (child && (!layout || layout->departures() == departures || layout->holds(child)))
            visit(child);
        if (layout && !keeper.isAlive())
            return;
        if (passesByRest)
            layout->noteRest(children, place);
    }
}

void Figure::addNotify()
{
    if (getFlag(FLAG_NOTIFIED)) {
        QMessageLogger().debug("Figure::addNotify() should not be call multiple times");
        return;
    }
    setFlag(FLAG_NOTIFIED, true);
    forEachChild([](Figure *child) { child->addNotify(); });
}

void Figure::removeNotify()
{
    const LifeGuard<Figure> self(this);
    forEachChild([](Figure *child) { child->removeNotify(); });
    if (self.isAlive())
        setFlag(FLAG_NOTIFIED, false);
}

Figure *Figure::getParentFigure() const
{
    return m_parentFigure;
}

void Figure::setParentFigure(Figure *parent)
{
    if (parent && isSelfOrAncestorOf(parent)) {
        QMessageLogger().debug("Figure::setParentFigure(): failed, would make a cycle");
        return;
    }
    Figure *old = m_parentFigure;
    m_parentFigure = parent;
    tellLayouts(&Layout::dropNote);
    static const QMetaMethod announcement = QMetaMethod::fromSignal(&Figure::propertyChanged);
    if (!isSignalConnected(announcement))
        return;
    Q_EMIT propertyChanged(PROPERTY_PARENT, QVariant::fromValue(old), QVariant::fromValue(parent));
}

// A figure that was added to several parents has several ways up: all are followed, each figure on them once. The usual
// single way needs no book of the figures passed.
bool Figure::isSelfOrAncestorOf(const Figure *other) const
{
    QVarLengthArray<const Figure *, 16> open {other};
    QSet<const Figure *> passed;
    bool hasBranched = false;
    while (!open.isEmpty()) {
        const Figure *figure = open.last();
        open.removeLast();
        if (figure == this)
            return true;
        if (hasBranched && passed.contains(figure))
            continue;
        figure->appendContainers(open);
        hasBranched = hasBranched || open.size() > 1;
        if (hasBranched)
            passed.insert(figure);
    }
    return false;
}

template <typename Figures>
void Figure::appendContainers(Figures &containers) const
{
    const Figure *parent = m_parentFigure;
    if (parent)
        containers.append(parent);
    for (const Holder &holder : std::as_const(m_holders)) {
        const Figure *container = holder.layout->getFigure();
        if (container && container != parent)
            containers.append(container);
    }
}

Layout *Figure::getLayoutManager() const
{
    return m_layout;
}

Layout *Figure::setLayoutManager(Layout *layout)
{
    if (!layout)
        return nullptr;
    Layout *old = m_layout;
    if (old)
        old->setFigure(nullptr);
    m_layout = layout;
    layout->setFigure(this);
    return old;
}

UpdateManager *Figure::getUpdateManager() const
{
    if (!getFlag(FLAG_NOTIFIED))
        return nullptr;
    return m_parentFigure ? m_parentFigure->getUpdateManager() : m_updateManager.data();
}

void Figure::setUpdateManager(UpdateManager *manager)
{
    m_updateManager = manager;
}

bool Figure::add(Figure *figure, const QVariant &constraint, int index)
{
    if (m_layout)
        return m_layout->add(figure, constraint, index);
    QMessageLogger().debug("Figure::add(): failed, no layout manager");
    return false;
}

bool Figure::add(Figure *figure, unsigned int vStretch, unsigned int hStretch, int index)
{
    if (m_layout)
        return m_layout->add(figure, vStretch, hStretch, index);
    QMessageLogger().debug("Figure::add(): failed, no layout manager");
    return false;
}

bool Figure::remove(Figure *figure)
{
    if (m_layout)
        return m_layout->remove(figure);
    QMessageLogger().debug("Figure::remove(): failed, no layout manager");
    return false;
}

QList<Figure *> Figure::childFigures()
{
    return m_layout ? m_layout->childFigures() : QList<Figure *>();
}

int Figure::childFigureCount() const
{
    if (m_layout)
        return m_layout->childFigureCount();
    QMessageLogger().debug("Figure::childFigureCount(): failed, no layout manager");
    return 0;
}

// Listeners

void Figure::addAncestorListener(IAncestorListener *listener)
{
    QObject *receiver = asObject(listener);
    if (!receiver)
        return;
    if (!m_ancestorHelper)
        m_ancestorHelper = new AncestorHelper(this, this);
    FigureListeners &own = listeners();
    for (const AncestorSignal &pair : ancestorSignals)
        own.ancestors.add(receiver, connect(this, pair.signal, receiver, pair.slot));
    ++own.ancestorCount;
}

void Figure::removeAncestorListener(IAncestorListener *listener)
{
    const QObject *receiver = asObject(listener);
    FigureListeners &own = listeners();
    const int ended = receiver ? own.ancestors.disconnect(receiver) : 0;
    own.ancestorCount -= ended / static_cast<int>(std::size(ancestorSignals));
    if (own.ancestorCount == 0)
        delete m_ancestorHelper.data();
}

void Figure::addPropertyChangeListener(IPropertyChangeListener *listener)
{
    const QObject *receiver = asObject(listener);
    if (!receiver)
        return;
    listeners().propertyChanges.add(receiver, connect(this, propertyChangedSignal, receiver, propertyChangedSlot));
}

void Figure::removePropertyChangeListener(IPropertyChangeListener *listener)
{
    if (const QObject *receiver = asObject(listener))
        listeners().propertyChanges.disconnect(receiver);
}

FigureListeners &Figure::listeners()
{
    if (!m_listeners)
        m_listeners = std::make_unique<FigureListeners>();
    return *m_listeners;
}

} // namespace Vantrel::Pictel
