#pragma once

#include "connections/AnyConnection.h"
#include "connections/ProbeRouter.h"
#include "support/DisplayedRoot.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/XYAnchor.h>

#include <QTest>

/// One data row per connection class.
inline void addBothClasses()
{
    QTest::addColumn<bool>("isReal");
    QTest::newRow("PolylineConnection") << false;
    QTest::newRow("PolylineFConnection") << true;
}

/// Until it is laid out in a tree, a connection has null bounds, which a floating-point one says it cannot resolve.
inline void expectUnresolvedBounds(bool isReal)
{
    if (isReal)
        PictelTest::expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
}

/// An anchor that counts who listens.
class CountingAnchor : public Vantrel::Pictel::XYAnchor
{
public:
    explicit CountingAnchor(const QPoint &location)
        : XYAnchor(location)
    { }

    int listeners = 0;

    void addAnchorListener(Vantrel::Pictel::IAnchorListener *listener) override
    {
        ++listeners;
        XYAnchor::addAnchorListener(listener);
    }
    void removeAnchorListener(Vantrel::Pictel::IAnchorListener *listener) override
    {
        --listeners;
        XYAnchor::removeAnchorListener(listener);
    }
};

/// A connection between two fixed anchors in a displayed tree, routed by a probe.
struct ShownConnection
{
    explicit ShownConnection(bool isReal)
        : connection(isReal)
    {
        connection->setSourceAnchor(&source);
        connection->setTargetAnchor(&target);
        connection->setConnectionRouter(&router);
        displayed.root.add(connection.figure());
        expectUnresolvedBounds(isReal);
        displayed.root.validate();
        forget();
    }

    void forget()
    {
        displayed.takeDirtyRects();
        router.log.clear();
    }

    CountingAnchor source {QPoint(0, 0)};
    CountingAnchor target {QPoint(50, 50)};
    ProbeRouter router;
    DisplayedRoot displayed;
    AnyConnection connection;
};
