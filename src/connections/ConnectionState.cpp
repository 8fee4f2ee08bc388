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

void ConnectionState::setAnchor(End which, IConnectionAnchor *anchor)
{
    EndState &end = m_ends[which];
    if (anchor == end.anchor.get())
        return;
    unhook(end);
    end.anchor = anchor;
    if (m_figure->getParentFigure())
        hook(end);
    m_figure->revalidate();
}

void ConnectionState::hook()
{
    for (EndState &end : m_ends)
        hook(end);
}

void ConnectionState::leave()
{
    for (EndState &end : m_ends)
        unhook(end);
    router()->remove(m_connection);
}

void ConnectionState::hook(EndState &end)
{
    if (!end.anchor || end.hooked)
        return;
    end.anchor->addAnchorListener(m_listener);
    end.hooked = true;
}

void ConnectionState::unhook(EndState &end)
{
    if (end.anchor && end.hooked)
        end.anchor->removeAnchorListener(m_listener);
    end.hooked = false;
}

IConnectionRouter *ConnectionState::router() const
{
    return m_router ? m_router.get() : NullRouter::instance();
}

void ConnectionState::setRouter(IConnectionRouter *router)
{
    IConnectionRouter *old = this->router();
    IConnectionRouter *next = router ? router : NullRouter::instance();
    if (next == old)
        return;
    old->remove(m_connection);
    m_router = next;
    const LifeGuard<Figure> self(m_figure);
    Q_EMIT m_figure->propertyChanged(IConnection::PROPERTY_CONNECTION_ROUTER, routerValue(old), routerValue(next));
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
    const LifeGuard<Figure> self(m_figure);
    const LifeGuard<Figure> guest(decoration);
    m_figure->add(decoration, QVariant::fromValue<QObject *>(locator.get()), -1);
    // Without a QObject parent the locator belongs to the layout, once that has taken it.
    if (self.isAlive() && guest.isAlive() && isConstraint(locator.get(), m_figure->getLayoutManager(), decoration))
        locator.release();
}

void ConnectionState::updateBounds(const QRect &line)
{
    QRect all = grown(line);
    const QList<Figure *> children = m_figure->childFigures();
    for (Figure *child : children)
        all |= grown(child->getBounds());
    bounds = all;
    if (all.isNull())
        return;
    m_figure->repaint(all);
    Q_EMIT m_figure->figureMoved(m_figure);
}

void ConnectionState::markDirty()
{
    UpdateManager *manager = m_figure->getUpdateManager();
    if (!manager)
        return;
    QRect area = m_figure->getBounds();
    Figure *parent = m_figure->getParentFigure();
    if (!area.isValid())
        updateView(manager);
    else if (parent)
        manager->addDirtyRegion(parent, parent->translateToParent(area));
}

} // namespace Vantrel::Pictel
