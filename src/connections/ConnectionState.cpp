#include "connections/ConnectionState_p.h"
#include "support/BoundedRect.h"
#include "support/LifeGuard.h"

#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/figure/ArrowLocator.h>
#include <vtlpictel/figure/Figure.h>
#include <vtlpictel/figure/IConnection.h>
#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/Layout.h>
#include <vtlpictel/viewer/IFigureViewer.h>
#include <vtlpictel/viewer/IViewport.h>

#include <QMessageLogger>

#include <memory>
#include <utility>

namespace Vantrel::Pictel {

namespace {

QRect grown(const QRect &rect)
{
    return rect.isNull() ? rect : grownRect(rect, 1, 1);
}

QVariant routerValue(IConnectionRouter *router)
{
    return QVariant::fromValue(dynamic_cast<QObject *>(router));
}

bool isConstraint(const QObject *object, const Layout *layout, Figure *child)
{
    return layout && layout->getConstraint(child).value<QObject *>() == object;
}

void addDirtyRegion(const QPointer<UpdateManager> &manager, Figure *parent, QRect area)
{
    const LifeGuard<Figure> keeper(parent);
    if (parent)
        parent->translateToParent(area);
    if (manager && keeper.isAlive())
        manager->addDirtyRegion(parent, area);
}

void updateView(UpdateManager *manager)
{
    IFigureViewer *viewer = manager->getViewer();
    IViewport *viewport = viewer ? viewer->getViewport() : nullptr;
    if (viewport)
        viewport->update();
}

} // namespace

ConnectionState::ConnectionState(Figure *figure, IConnection *connection, IAnchorListener *listener,
                                 const char *className)
    : m_figure(figure)
    , m_connection(connection)
    , m_listener(listener)
    , m_className(className)
    , m_router(NullRouter::instance())
{ }

// An anchor that loses its listener may delete any of the three, or set yet another one.
void ConnectionState::setAnchor(End which, IConnectionAnchor *anchor)
{
    EndState &end = m_ends[which];
    const IConnectionAnchor *old = end.anchor.get();
    if (anchor == old)
        return;
    const LifeGuard<Figure> self(m_figure);
    const InterfacePointer<IConnectionAnchor> next(anchor);
    unhook(end);
    if (!self.isAlive() || (end.anchor && end.anchor.get() != old))
        return;
    end.anchor = next;
    if (m_figure->getParentFigure())
        hook(end);
    if (self.isAlive())
        m_figure->revalidate();
}

void ConnectionState::hook()
{
    const LifeGuard<Figure> self(m_figure);
    for (EndState &end : m_ends) {
        if (self.isAlive())
            hook(end);
    }
}

void ConnectionState::leave()
{
    const LifeGuard<Figure> self(m_figure);
    for (EndState &end : m_ends) {
        if (self.isAlive())
            unhook(end);
    }
    if (self.isAlive())
        router()->remove(m_connection);
}

// The anchor may be the end of the connection, or have it take another one: the note comes before the call.
void ConnectionState::hook(EndState &end)
{
    if (end.anchor && !std::exchange(end.hooked, true))
        end.anchor->addAnchorListener(m_listener);
}

void ConnectionState::unhook(EndState &end)
{
    if (std::exchange(end.hooked, false) && end.anchor)
        end.anchor->removeAnchorListener(m_listener);
}

IConnectionRouter *ConnectionState::router() const
{
    return m_router ? m_router.get() : NullRouter::instance();
}

// The old router may delete any of the three, or set yet another one.
void ConnectionState::setRouter(IConnectionRouter *router)
{
    if (!m_router)
        m_router = NullRouter::instance();
    const InterfacePointer<IConnectionRouter> old = m_router;
    const InterfacePointer<IConnectionRouter> next = router ? router : NullRouter::instance();
    if (next.get() == old.get())
        return;
    const LifeGuard<Figure> self(m_figure);
    old->remove(m_connection);
    if (!self.isAlive() || m_router.get() != old.get())
        return;
    m_router = next;
    Q_EMIT m_figure->propertyChanged(IConnection::PROPERTY_CONNECTION_ROUTER, routerValue(old.get()),
                                     routerValue(this->router()));
    if (self.isAlive())
        m_figure->revalidate();
}

// Whoever hears that the old decoration leaves may delete any of the three, or set yet another one.
void ConnectionState::setDecoration(End which, IRotatableDecoration *decoration)
{
    EndState &end = m_ends[which];
    IRotatableDecoration *old = end.decoration.get();
    if (decoration == old)
        return;
    const LifeGuard<Figure> self(m_figure);
    const InterfacePointer<IRotatableDecoration> next(decoration);
    removeDecoration(old);
    if (!self.isAlive() || (end.decoration && end.decoration.get() != old))
        return;
    end.decoration = next;
    if (!next)
        return;
    if (auto *figure = dynamic_cast<Figure *>(decoration))
        addDecoration(which, figure);
    else
        QMessageLogger().warning("%s::%s(): decoration not a figure", m_className,
                                 which == Source ? "setSourceDecoration" : "setTargetDecoration");
}

void ConnectionState::removeDecoration(IRotatableDecoration *decoration)
{
    const QPointer<Figure> figure = dynamic_cast<Figure *>(decoration);
    if (!figure)
        return;
    m_figure->remove(figure);
    if (figure)
        figure->deleteLater();
}

void ConnectionState::addDecoration(End end, Figure *decoration)
{
    const auto alignment = end == Source ? ConnectionLocator::SOURCE : ConnectionLocator::TARGET;
    auto locator = std::make_unique<ArrowLocator>(m_connection, alignment);
    const QPointer<ArrowLocator> given(locator.get());
    const LifeGuard<Figure> self(m_figure);
    const LifeGuard<Figure> guest(decoration);
    m_figure->add(decoration, QVariant::fromValue<QObject *>(locator.get()), -1);
    // Without a QObject parent the locator belongs to the layout, once that has taken it.
    const bool isKept
        = self.isAlive() && guest.isAlive() && isConstraint(given, m_figure->getLayoutManager(), decoration);
    if (isKept || !given)
        locator.release();
}

void ConnectionState::updateBounds(const QRect &line)
{
    const LifeGuard<Figure> self(m_figure);
    const QRect all = grown(line) | childBounds();
    if (!self.isAlive())
        return;
    bounds = all;
    if (all.isNull())
        return;
    m_figure->repaint(all);
    if (self.isAlive())
        Q_EMIT m_figure->figureMoved(m_figure);
}

// A child that is asked may delete other ones.
QRect ConnectionState::childBounds() const
{
    QRect all;
    const QList<Figure *> children = m_figure->childFigures();
    const QList<QPointer<Figure>> living(children.begin(), children.end());
    for (const QPointer<Figure> &child : living)
        all |= child ? grown(child->getBounds()) : QRect();
    return all;
}

void ConnectionState::markDirty()
{
    const LifeGuard<Figure> self(m_figure);
    const QPointer<UpdateManager> manager = m_figure->getUpdateManager();
    QRect area = manager && self.isAlive() ? m_figure->getBounds() : QRect();
    if (!manager || !self.isAlive())
        return;
    if (area.isValid())
        addDirtyRegion(manager, m_figure->getParentFigure(), area);
    else
        updateView(manager);
}

} // namespace Vantrel::Pictel
