#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/layout/FreeformStackLayout.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_FreeformLayeredPane : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void freeformStackLayoutBelongsToThePane();
    void isFoundAsAFreeformFigure();

    void extentIsTheUnionOfTheFreeformLayers();
    void hiddenLayersCountForTheExtent();
    void nestedPanesCountForTheExtent();
    void extentUnderAnotherLayoutIsNull();

    void freeformBoundsReachAllVisibleFreeformLayers();
    void plainLayersKeepTheirBounds();
    void sameFreeformBoundsDoNotReachTheLayers();
    void freeformBoundsUnderAnotherLayoutAreIgnored();

    void movedFigureChangesTheExtentOfThePane();
    void movedFigureInANestedPaneChangesTheExtent();
    void layerBeneathIsWatchedToo();
    void plainLayerIsNotWatched();
    void refusedLayerIsWatchedAllTheSame();
    void layerIsWatchedOnceMoreWithEveryAdding();
    void emptyKeyIsNotWatched();
    void removedLayerIsNotWatchedAnyMore();
    void removedPaneIsNotWatchedAnyMore();
    void unknownKeyRemovesNothing();
    void nullLayerIsRefused();

    void deletedLayerIsForgotten();
    void deletedLayoutLeavesAnEmptyPane();
    void layersOutliveThePane();
};

namespace {

// A layer whose only figure lies at a place of its own.
struct FilledLayer
{
    explicit FilledLayer(const QRect &rect)
    {
        layer.add(&figure, rect);
        layer.setFreeformBounds(QRect(-1000, -1000, 2000, 2000));
        layer.validate();
    }

    FreeformLayer layer {nullptr, true};
    Figure figure;
};

} // namespace

void tst_FreeformLayeredPane::freeformStackLayoutBelongsToThePane()
{
    FreeformLayeredPane pane;
    auto *layout = qobject_cast<FreeformStackLayout *>(pane.getLayoutManager());
    QVERIFY(layout);
    QCOMPARE(layout->parent(), &pane);
    QCOMPARE(layout->getFigure(), &pane);
    QCOMPARE(pane.findChildren<Layout *>(), QList<Layout *>({layout}));
}

void tst_FreeformLayeredPane::isFoundAsAFreeformFigure()
{
    FreeformLayeredPane pane;
    QObject *object = &pane;
    QCOMPARE(qobject_cast<IFreeformFigure *>(object), &pane);
    QCOMPARE(object->qt_metacast("IFreeformFigure.Pictel.Vantrel.vantrel.org"), static_cast<IFreeformFigure *>(&pane));
}

void tst_FreeformLayeredPane::extentIsTheUnionOfTheFreeformLayers()
{
    FreeformLayeredPane pane;
    FilledLayer first(QRect(-50, 0, 10, 10));
    FilledLayer second(QRect(40, 30, 10, 10));
    Layer plain;
    plain.setBounds(QRect(0, 0, 1000, 1000));
    QCOMPARE(pane.getFreeformExtent(), QRect());
    pane.addLayer(&first.layer, "first");
    pane.addLayer(&second.layer, "second");
    pane.addLayer(&plain, "plain");
    QCOMPARE(pane.getFreeformExtent(), QRect(QPoint(-50, 0), QPoint(49, 39)));
}

void tst_FreeformLayeredPane::hiddenLayersCountForTheExtent()
{
    FreeformLayeredPane pane;
    FilledLayer hidden(QRect(0, 0, 10, 10));
    hidden.layer.setVisible(false);
    pane.addLayer(&hidden.layer, "hidden");
    QCOMPARE(pane.getFreeformExtent(), QRect(0, 0, 10, 10));
}

void tst_FreeformLayeredPane::nestedPanesCountForTheExtent()
{
    FreeformLayeredPane outer;
    FreeformLayeredPane inner;
    FilledLayer filled(QRect(3, 4, 5, 6));
    inner.addLayer(&filled.layer, "filled");
    outer.addLayer(&inner, "inner");
    QCOMPARE(outer.getFreeformExtent(), QRect(3, 4, 5, 6));
    QCOMPARE(outer.getLayer("filled"), &filled.layer);
}

void tst_FreeformLayeredPane::extentUnderAnotherLayoutIsNull()
{
    FreeformLayeredPane pane;
    FilledLayer filled(QRect(0, 0, 10, 10));
    pane.addLayer(&filled.layer, "filled");
    StackLayout other;
    pane.setLayoutManager(&other);
    QCOMPARE(pane.getFreeformExtent(), QRect());
}

void tst_FreeformLayeredPane::freeformBoundsReachAllVisibleFreeformLayers()
{
    FreeformLayeredPane outer;
    FreeformLayeredPane inner;
    FreeformLayer layer(nullptr, false);
    FreeformLayer hidden(nullptr, false);
    hidden.setVisible(false);
    inner.addLayer(&layer, "layer");
    outer.addLayer(&inner, "inner");
    outer.addLayer(&hidden, "hidden");
    outer.setFreeformBounds(QRect(-20, -10, 300, 200));
    QCOMPARE(outer.getBounds(), QRect(-20, -10, 300, 200));
    QCOMPARE(inner.getBounds(), QRect(-20, -10, 300, 200));
    QCOMPARE(layer.getBounds(), QRect(-20, -10, 300, 200));
    QCOMPARE(hidden.getBounds().size(), QSize(0, 0));
}

void tst_FreeformLayeredPane::plainLayersKeepTheirBounds()
{
    FreeformLayeredPane pane;
    Layer plain;
    pane.addLayer(&plain, "plain");
    pane.setFreeformBounds(QRect(0, 0, 300, 200));
    pane.validate();
    QCOMPARE(plain.getBounds(), QRect());
}

void tst_FreeformLayeredPane::sameFreeformBoundsDoNotReachTheLayers()
{
    FreeformLayeredPane pane;
    FreeformLayer layer(nullptr, false);
    pane.addLayer(&layer, "layer");
    pane.setFreeformBounds(QRect(0, 0, 300, 200));
    layer.setFreeformBounds(QRect(0, 0, 1, 1));
    pane.setFreeformBounds(QRect(0, 0, 300, 200));
    QCOMPARE(layer.getBounds(), QRect(0, 0, 1, 1));
    pane.setFreeformBounds(QRect(0, 0, 300, 201));
    QCOMPARE(layer.getBounds(), QRect(0, 0, 300, 201));
}

void tst_FreeformLayeredPane::freeformBoundsUnderAnotherLayoutAreIgnored()
{
    FreeformLayeredPane pane;
    StackLayout other;
    pane.setLayoutManager(&other);
    pane.setFreeformBounds(QRect(0, 0, 300, 200));
    QCOMPARE(pane.getBounds(), QRect());
}

void tst_FreeformLayeredPane::movedFigureChangesTheExtentOfThePane()
{
    FreeformLayeredPane pane;
    FilledLayer filled(QRect(0, 0, 10, 10));
    pane.addLayer(&filled.layer, "filled");
    pane.getFreeformExtent();
    const QSignalSpy changed(&pane, SIGNAL(extentChanged()));
    filled.layer.validate();
    filled.figure.setBounds(QRect(-5, 0, 10, 10));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(pane.getFreeformExtent(), QRect(-5, 0, 10, 10));
}

void tst_FreeformLayeredPane::movedFigureInANestedPaneChangesTheExtent()
{
    FreeformLayeredPane outer;
    FreeformLayeredPane inner;
    FilledLayer filled(QRect(0, 0, 10, 10));
    inner.addLayer(&filled.layer, "filled");
    outer.addLayer(&inner, "inner");
    outer.getFreeformExtent();
    const QSignalSpy changed(&outer, SIGNAL(extentChanged()));
    filled.layer.validate();
    filled.figure.setBounds(QRect(-5, 0, 10, 10));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(outer.getFreeformExtent(), QRect(-5, 0, 10, 10));
}

void tst_FreeformLayeredPane::layerBeneathIsWatchedToo()
{
    FreeformLayeredPane pane;
    FreeformLayer top(nullptr, false);
    FilledLayer filled(QRect(0, 0, 10, 10));
    pane.addLayer(&top, "top");
    pane.getFreeformExtent();
    const QSignalSpy changed(&pane, SIGNAL(extentChanged()));
    pane.addLayerBeneath(&filled.layer, "filled", &top);
    QCOMPARE(pane.childFigures(), QList<Figure *>({&filled.layer, &top}));
    QCOMPARE(changed.count(), 0);
    QVERIFY(QMetaObject::invokeMethod(&filled.layer, "extentChanged"));
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayeredPane::plainLayerIsNotWatched()
{
    FreeformLayeredPane pane;
    Layer plain;
    LayeredPane plainPane;
    pane.addLayer(&plain, "plain");
    pane.addLayerBeneath(&plainPane, "pane", &plain);
    QCOMPARE(pane.removeLayer("plain"), &plain);
    QCOMPARE(pane.removeLayer("pane"), &plainPane);
}

void tst_FreeformLayeredPane::refusedLayerIsWatchedAllTheSame()
{
    FreeformLayeredPane pane;
    FilledLayer used(QRect(0, 0, 10, 10));
    pane.addLayer(&used.layer, "key");
    FreeformLayer refused(nullptr, false);
    expectWarning("LayeredPane::addLayerAbove(): layer 'key' already exists");
    pane.addLayer(&refused, "key");
    const QSignalSpy changed(&pane, SIGNAL(extentChanged()));
    QVERIFY(QMetaObject::invokeMethod(&refused, "extentChanged"));
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayeredPane::layerIsWatchedOnceMoreWithEveryAdding()
{
    class CountingLayer : public FreeformLayer
    {
    public:
        using FreeformLayer::FreeformLayer;
        int watchers() const { return receivers(SIGNAL(extentChanged())); }
    };
    FreeformLayeredPane pane;
    CountingLayer layer(nullptr, false);
    pane.addLayer(&layer, "key");
    QCOMPARE(layer.watchers(), 1);
    expectWarning("LayeredPane::addLayerAbove(): layer 'key' already exists");
    pane.addLayer(&layer, "key");
    QCOMPARE(layer.watchers(), 2);
    expectWarning("LayeredPane::addLayerBeneath(): layer 'key' already exists");
    pane.addLayerBeneath(&layer, "key", nullptr);
    QCOMPARE(layer.watchers(), 3);
    pane.removeLayer("key");
    QCOMPARE(layer.watchers(), 0);
}

void tst_FreeformLayeredPane::emptyKeyIsNotWatched()
{
    FreeformLayeredPane pane;
    FilledLayer filled(QRect(0, 0, 10, 10));
    expectWarning("LayeredPane::addLayerAbove(): cannot add null layer or add with empty key");
    pane.addLayer(&filled.layer, QString());
    pane.add(&filled.layer, QVariant(), -1);
    const QSignalSpy changed(&pane, SIGNAL(extentChanged()));
    QVERIFY(QMetaObject::invokeMethod(&filled.layer, "extentChanged"));
    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayeredPane::removedLayerIsNotWatchedAnyMore()
{
    FreeformLayeredPane pane;
    FilledLayer filled(QRect(0, 0, 10, 10));
    pane.addLayer(&filled.layer, "filled");
    pane.getFreeformExtent();
    QCOMPARE(pane.removeLayer("filled"), &filled.layer);
    const QSignalSpy changed(&pane, SIGNAL(extentChanged()));
    QVERIFY(QMetaObject::invokeMethod(&filled.layer, "extentChanged"));
    QCOMPARE(changed.count(), 0);
    pane.addLayer(&filled.layer, "again");
    filled.layer.validate();
    filled.figure.setBounds(QRect(0, 0, 20, 20));
    QCOMPARE(changed.count(), 1);
}

void tst_FreeformLayeredPane::removedPaneIsNotWatchedAnyMore()
{
    FreeformLayeredPane outer;
    FreeformLayeredPane inner;
    outer.addLayer(&inner, "inner");
    FilledLayer filled(QRect(0, 0, 10, 10));
    outer.addLayer(&filled.layer, "filled");
    QCOMPARE(outer.removeLayer("inner"), &inner);
    const QSignalSpy changed(&outer, SIGNAL(extentChanged()));
    QVERIFY(QMetaObject::invokeMethod(&inner, "extentChanged"));
    QCOMPARE(changed.count(), 0);
}

void tst_FreeformLayeredPane::unknownKeyRemovesNothing()
{
    FreeformLayeredPane pane;
    QCOMPARE(pane.removeLayer("unknown"), nullptr);
}

void tst_FreeformLayeredPane::nullLayerIsRefused()
{
    FreeformLayeredPane pane;
    expectWarning("LayeredPane::addLayerAbove(): cannot add null layer or add with empty key");
    pane.addLayerAbove(nullptr, "key", nullptr);
    expectWarning("LayeredPane::addLayerBeneath(): cannot add null layer or add with empty key");
    pane.addLayerBeneath(nullptr, "key", nullptr);
    QCOMPARE(pane.childFigures(), QList<Figure *>());
}

void tst_FreeformLayeredPane::deletedLayerIsForgotten()
{
    FreeformLayeredPane pane;
    auto filled = std::make_unique<FilledLayer>(QRect(0, 0, 10, 10));
    pane.addLayer(&filled->layer, "filled");
    filled.reset();
    QCOMPARE(pane.getLayer("filled"), nullptr);
    QCOMPARE(pane.removeLayer("filled"), nullptr);
    pane.setFreeformBounds(QRect(0, 0, 10, 10));
    QCOMPARE(brokenInvariant(&pane), QString());
}

void tst_FreeformLayeredPane::deletedLayoutLeavesAnEmptyPane()
{
    FreeformLayeredPane pane;
    FilledLayer filled(QRect(0, 0, 10, 10));
    pane.addLayer(&filled.layer, "filled");
    delete pane.getLayoutManager();
    QCOMPARE(pane.getFreeformExtent(), QRect());
    pane.setFreeformBounds(QRect(0, 0, 10, 10));
    QCOMPARE(pane.getBounds(), QRect());
    FreeformLayer late(nullptr, false);
    expectDebug("Figure::add(): failed, no layout manager");
    pane.addLayer(&late, "late");
    expectDebug("Figure::remove(): failed, no layout manager");
    QCOMPARE(pane.removeLayer("filled"), &filled.layer);
}

void tst_FreeformLayeredPane::layersOutliveThePane()
{
    FilledLayer filled(QRect(0, 0, 10, 10));
    {
        FreeformLayeredPane pane;
        pane.addLayer(&filled.layer, "filled");
    }
    QCOMPARE(filled.layer.getParentFigure(), nullptr);
    filled.layer.validate();
    filled.figure.setBounds(QRect(0, 0, 20, 20));
    QCOMPARE(filled.layer.getFreeformExtent(), QRect(0, 0, 20, 20));
}

PICTEL_TEST_MAIN(tst_FreeformLayeredPane)
#include "tst_freeformlayeredpane.moc"
