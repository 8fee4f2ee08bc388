#pragma once

#include "connections/ProbeRouter.h"
#include "connections/StubConnection.h"

#include <vtlpictel/connections/XYAnchor.h>

#include <functional>
#include <utility>

/// Something that a test does once, in the middle of an operation.
using Action = std::function<void()>;

inline void run(Action &action)
{
    if (const Action taken = std::exchange(action, {}))
        taken();
}

/// An anchor that acts when it is asked or told something.
class InterferingAnchor : public Vantrel::Pictel::XYAnchor
{
public:
    using XYAnchor::XYAnchor;

    Action onAdd;
    Action onRemove;
    mutable Action onLocation;
    mutable Action onReference;

    void addAnchorListener(Vantrel::Pictel::IAnchorListener *listener) override
    {
        XYAnchor::addAnchorListener(listener);
        run(onAdd);
    }
    void removeAnchorListener(Vantrel::Pictel::IAnchorListener *listener) override
    {
        XYAnchor::removeAnchorListener(listener);
        run(onRemove);
    }
    QPoint getLocation(const QPoint &reference) const override
    {
        const QPoint location = XYAnchor::getLocation(reference);
        run(onLocation);
        return location;
    }
    QPoint getReferencePoint() const override
    {
        const QPoint reference = XYAnchor::getReferencePoint();
        run(onReference);
        return reference;
    }
};

/// A router that acts when it is told something.
class InterferingRouter : public ProbeRouter
{
public:
    Action onRemove;
    Action onRoute;
    Action onConstraint;

    void remove(IConnection *connection) override
    {
        ProbeRouter::remove(connection);
        run(onRemove);
    }
    void setConstraint(IConnection *connection, const QVariant &constraint) override
    {
        ProbeRouter::setConstraint(connection, constraint);
        run(onConstraint);
    }
    QList<QPoint> doRoute(IConnection *connection) override
    {
        const QList<QPoint> route = ProbeRouter::doRoute(connection);
        run(onRoute);
        return route;
    }
    QList<QPointF> doRouteF(IConnection *connection) override
    {
        const QList<QPointF> route = ProbeRouter::doRouteF(connection);
        run(onRoute);
        return route;
    }
};

/// A figure that acts when it is asked for its place or size, or told of a listener.
class InterferingFigure : public Vantrel::Pictel::Figure
{
public:
    using Figure::Figure;

    Action onBounds;
    Action onMeasure;
    Action onAddListener;
    Action onRemoveListener;

    QRect getBounds() override
    {
        const QRect bounds = Figure::getBounds();
        run(onBounds);
        return bounds;
    }
    QSize getPreferredSize() override
    {
        const QSize size = Figure::getPreferredSize();
        run(onMeasure);
        return size;
    }
    void addAncestorListener(Vantrel::Pictel::IAncestorListener *listener) override
    {
        Figure::addAncestorListener(listener);
        run(onAddListener);
    }
    void removeAncestorListener(Vantrel::Pictel::IAncestorListener *listener) override
    {
        Figure::removeAncestorListener(listener);
        run(onRemoveListener);
    }
};

/// A connection that acts when it is asked for its points.
class InterferingConnection : public StubConnection
{
public:
    using StubConnection::StubConnection;

    mutable Action onPoints;

    QList<QPoint> getPoints() const override
    {
        const QList<QPoint> answer = points;
        run(onPoints);
        return answer;
    }
    QPoint getPoint(int index) const override
    {
        const QPoint answer = points.value(index);
        run(onPoints);
        return answer;
    }
    int getPointCount() const override
    {
        const int answer = int(points.size());
        run(onPoints);
        return answer;
    }
};
