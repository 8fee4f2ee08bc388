#include "support/TestMain.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_LayerKeys : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void unknownKeyGivesNull();
    void nestedPanesAreSearchedDepthFirst();
    void ownLayersWinOverNestedOnes();
    void earlierNestedPaneWins();
    void keysAreCaseSensitive();
    void panesThatContainEachOtherAreSearchedOnce();

    void removedLayerIsReturnedAndLeavesThePane();
    void removedKeyCanBeUsedAgain();
    void removedPaneIsNotSearchedAnyMore();
    void nestedLayersAreNotRemoved();
    void removingOneOfTwoKeysKeepsTheOther();

    void deletedLayerLosesItsKey();
    void deletedLayerLosesAllItsKeys();
    void deletedPaneIsNotSearchedAnyMore();
    void otherLayersSurviveADeletedOne();
    void layersOutliveThePane();
    void removedLayerCanBeDeleted();
    void layerCanBeDeletedWhileItsPaneDies();
    void removedLayerCanBeDeletedWhileItsPaneDies();
    void layerDeletedWhileNamedGetsNoKey();
    void layerDeletedWhileAddedGetsNoKey();
    void paneDeletedWhileALayerIsAddedIsSurvived();
    void paneDeletedWhileALayerIsRemovedIsSurvived();
};

namespace {

using Layers = QList<Figure *>;

} // namespace

void tst_LayerKeys::unknownKeyGivesNull()
{
    LayeredPane pane;
    Layer layer;
    pane.addLayer(&layer, "key");
    QCOMPARE(pane.getLayer("other"), nullptr);
    QCOMPARE(pane.removeLayer("other"), nullptr);
    QCOMPARE(pane.childFigures(), Layers({&layer}));
}

void tst_LayerKeys::nestedPanesAreSearchedDepthFirst()
{
    LayeredPane outer;
    LayeredPane first;
    LayeredPane inner;
    LayeredPane second;
    Layer deep;
    Layer shallow;
    first.addLayer(&inner, "inner");
    inner.addLayer(&deep, "wanted");
    second.addLayer(&shallow, "wanted");
    outer.addLayer(&first, "first");
    outer.addLayer(&second, "second");
    QCOMPARE(outer.getLayer("wanted"), &deep);
    QCOMPARE(outer.getLayer("inner"), &inner);
}

void tst_LayerKeys::ownLayersWinOverNestedOnes()
{
    LayeredPane outer;
    LayeredPane inner;
    Layer nested;
    Layer own;
    inner.addLayer(&nested, "wanted");
    outer.addLayer(&inner, "inner");
    outer.addLayer(&own, "wanted");
    QCOMPARE(outer.getLayer("wanted"), &own);
}

void tst_LayerKeys::earlierNestedPaneWins()
{
    LayeredPane outer;
    LayeredPane late;
    LayeredPane early;
    Layer inLate;
    Layer inEarly;
    late.addLayer(&inLate, "wanted");
    early.addLayer(&inEarly, "wanted");
    // Keys and places in the stack tell the opposite order.
    outer.addLayer(&early, "z");
    outer.addLayerBeneath(&late, "a", &early);
    QCOMPARE(outer.getLayer("wanted"), &inEarly);
}

void tst_LayerKeys::keysAreCaseSensitive()
{
    LayeredPane pane;
    Layer lower;
    Layer upper;
    pane.addLayer(&lower, "key");
    pane.addLayer(&upper, "KEY");
    QCOMPARE(pane.getLayer("key"), &lower);
    QCOMPARE(pane.removeLayer("KEY"), &upper);
    QCOMPARE(pane.removeLayer("Key"), nullptr);
}

void tst_LayerKeys::panesThatContainEachOtherAreSearchedOnce()
{
    LayeredPane outer;
    LayeredPane inner;
    Layer neighbour;
    outer.addLayer(&inner, "inner");
    inner.addLayer(&neighbour, "neighbour");
    inner.addLayerAbove(&outer, "outer", &neighbour);
    QCOMPARE(inner.getLayer("outer"), &outer);
    QCOMPARE(outer.getLayer("unknown"), nullptr);
    QCOMPARE(inner.getLayer("inner"), &inner);
    QCOMPARE(outer.getLayer("neighbour"), &neighbour);
}

void tst_LayerKeys::removedLayerIsReturnedAndLeavesThePane()
{
    LayeredPane pane;
    Layer layer;
    Layer other;
    pane.addLayer(&layer, "key");
    pane.addLayer(&other, "other");
    QCOMPARE(pane.removeLayer("key"), &layer);
    QCOMPARE(pane.childFigures(), Layers({&other}));
    QCOMPARE(layer.getParentFigure(), nullptr);
    QCOMPARE(pane.getLayer("key"), nullptr);
    QCOMPARE(pane.removeLayer("key"), nullptr);
    QCOMPARE(layer.objectName(), QString("key"));
}

void tst_LayerKeys::removedKeyCanBeUsedAgain()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    pane.addLayer(&first, "key");
    pane.removeLayer("key");
    pane.addLayer(&second, "key");
    QCOMPARE(pane.getLayer("key"), &second);
    QCOMPARE(pane.childFigures(), Layers({&second}));
}

void tst_LayerKeys::removedPaneIsNotSearchedAnyMore()
{
    LayeredPane outer;
    LayeredPane inner;
    LayeredPane other;
    Layer first;
    Layer second;
    inner.addLayer(&first, "wanted");
    other.addLayer(&second, "wanted");
    outer.addLayer(&inner, "inner");
    outer.addLayer(&other, "other");
    outer.removeLayer("inner");
    QCOMPARE(outer.getLayer("wanted"), &second);
    outer.addLayer(&inner, "inner");
    QCOMPARE(outer.getLayer("wanted"), &second);
    outer.removeLayer("other");
    QCOMPARE(outer.getLayer("wanted"), &first);
}

void tst_LayerKeys::nestedLayersAreNotRemoved()
{
    LayeredPane outer;
    LayeredPane inner;
    Layer layer;
    inner.addLayer(&layer, "nested");
    outer.addLayer(&inner, "inner");
    QCOMPARE(outer.removeLayer("nested"), nullptr);
    QCOMPARE(outer.getLayer("nested"), &layer);
}

void tst_LayerKeys::removingOneOfTwoKeysKeepsTheOther()
{
    LayeredPane pane;
    Layer layer;
    Layer other;
    pane.addLayer(&layer, "first");
    pane.addLayer(&other, "other");
    pane.addLayerAbove(&layer, "second", &other);
    QCOMPARE(pane.removeLayer("first"), &layer);
    QCOMPARE(pane.childFigures(), Layers({&other}));
    QCOMPARE(pane.getLayer("second"), &layer);
    QCOMPARE(pane.removeLayer("second"), &layer);
}

void tst_LayerKeys::deletedLayerLosesItsKey()
{
    LayeredPane pane;
    auto layer = std::make_unique<Layer>();
    pane.addLayer(layer.get(), "key");
    layer.reset();
    QCOMPARE(pane.getLayer("key"), nullptr);
    QCOMPARE(pane.childFigures(), Layers());
    Layer next;
    pane.addLayer(&next, "key");
    QCOMPARE(pane.getLayer("key"), &next);
}

void tst_LayerKeys::deletedLayerLosesAllItsKeys()
{
    LayeredPane pane;
    Layer neighbour;
    pane.addLayer(&neighbour, "neighbour");
    auto layer = std::make_unique<Layer>();
    pane.addLayer(layer.get(), "first");
    pane.addLayerAbove(layer.get(), "second", &neighbour);
    pane.removeLayer("first");
    pane.addLayerAbove(layer.get(), "third", &neighbour);
    layer.reset();
    QCOMPARE(pane.getLayer("second"), nullptr);
    QCOMPARE(pane.getLayer("third"), nullptr);
    Layer next;
    pane.addLayer(&next, "second");
    QCOMPARE(pane.getLayer("second"), &next);
}

void tst_LayerKeys::deletedPaneIsNotSearchedAnyMore()
{
    LayeredPane outer;
    LayeredPane late;
    LayeredPane middle;
    Layer inLate;
    Layer inMiddle;
    late.addLayer(&inLate, "wanted");
    middle.addLayer(&inMiddle, "wanted");
    auto inner = std::make_unique<LayeredPane>();
    outer.addLayer(inner.get(), "pane");
    outer.addLayer(&middle, "middle");
    inner.reset();
    // The key enters the search order anew, behind the pane that is there already.
    outer.addLayer(&late, "pane");
    QCOMPARE(outer.getLayer("wanted"), &inMiddle);
}

void tst_LayerKeys::otherLayersSurviveADeletedOne()
{
    LayeredPane pane;
    Layer first;
    Layer last;
    auto layer = std::make_unique<Layer>();
    pane.addLayer(&first, "first");
    pane.addLayer(layer.get(), "middle");
    pane.addLayer(&last, "last");
    layer.reset();
    QCOMPARE(pane.getLayer("first"), &first);
    QCOMPARE(pane.getLayer("last"), &last);
    QCOMPARE(pane.childFigures(), Layers({&first, &last}));
}

void tst_LayerKeys::layersOutliveThePane()
{
    Layer layer;
    {
        LayeredPane pane;
        pane.addLayer(&layer, "key");
    }
    QCOMPARE(layer.getParentFigure(), nullptr);
    QCOMPARE(layer.objectName(), QString("key"));
}

void tst_LayerKeys::removedLayerCanBeDeleted()
{
    LayeredPane pane;
    auto layer = std::make_unique<Layer>();
    pane.addLayer(layer.get(), "key");
    pane.removeLayer("key");
    Layer next;
    pane.addLayer(&next, "key");
    layer.reset();
    QCOMPARE(pane.getLayer("key"), &next);
}

void tst_LayerKeys::layerCanBeDeletedWhileItsPaneDies()
{
    auto pane = std::make_unique<LayeredPane>();
    auto layer = std::make_unique<Layer>();
    pane->addLayer(layer.get(), "key");
    connect(pane.get(), &QObject::destroyed, this, [&] { layer.reset(); });
    pane.reset();
    QCOMPARE(layer.get(), nullptr);
}

void tst_LayerKeys::removedLayerCanBeDeletedWhileItsPaneDies()
{
    auto pane = std::make_unique<LayeredPane>();
    auto layer = std::make_unique<Layer>();
    pane->addLayer(layer.get(), "key");
    pane->removeLayer("key");
    connect(pane.get(), &QObject::destroyed, this, [&] { layer.reset(); });
    pane.reset();
    QCOMPARE(layer.get(), nullptr);
}

void tst_LayerKeys::layerDeletedWhileNamedGetsNoKey()
{
    FreeformLayeredPane pane;
    Layer neighbour;
    pane.addLayer(&neighbour, "neighbour");
    auto layer = std::make_unique<FreeformLayer>(nullptr, false);
    connect(layer.get(), &QObject::objectNameChanged, this, [&] { layer.reset(); });
    pane.addLayerAbove(layer.get(), "key", &neighbour);
    QCOMPARE(pane.getLayer("key"), nullptr);
    QCOMPARE(pane.childFigures(), Layers({&neighbour}));
}

void tst_LayerKeys::layerDeletedWhileAddedGetsNoKey()
{
    FreeformLayeredPane pane;
    Layer neighbour;
    pane.addLayer(&neighbour, "neighbour");
    for (Layer *above : {static_cast<Layer *>(nullptr), &neighbour}) {
        auto layer = std::make_unique<FreeformLayer>(nullptr, false);
        connect(layer.get(), &Figure::propertyChanged, this, [&] { layer.reset(); });
        pane.addLayerAbove(layer.get(), "key", above);
        QCOMPARE(layer.get(), nullptr);
        QCOMPARE(pane.getLayer("key"), nullptr);
        QCOMPARE(pane.childFigures(), Layers({&neighbour}));
    }
    Layer next;
    pane.addLayer(&next, "key");
    QCOMPARE(pane.getLayer("key"), &next);
}

void tst_LayerKeys::paneDeletedWhileALayerIsAddedIsSurvived()
{
    FreeformLayer layer(nullptr, false);
    auto pane = std::make_unique<FreeformLayeredPane>();
    const auto named = connect(&layer, &QObject::objectNameChanged, this, [&] { pane.reset(); });
    pane->addLayer(&layer, "first");
    QCOMPARE(layer.getParentFigure(), nullptr);
    disconnect(named);
    pane = std::make_unique<FreeformLayeredPane>();
    connect(&layer, &Figure::propertyChanged, this, [&] { pane.reset(); });
    pane->addLayerBeneath(&layer, "second", nullptr);
    QCOMPARE(pane.get(), nullptr);
    QCOMPARE(layer.getParentFigure(), nullptr);
    QCOMPARE(layer.objectName(), QString("second"));
}

void tst_LayerKeys::paneDeletedWhileALayerIsRemovedIsSurvived()
{
    FreeformLayer layer(nullptr, false);
    auto pane = std::make_unique<FreeformLayeredPane>();
    pane->addLayer(&layer, "key");
    connect(&layer, &Figure::propertyChanged, this, [&] { pane.reset(); });
    QCOMPARE(pane->removeLayer("key"), &layer);
    QCOMPARE(pane.get(), nullptr);
}

PICTEL_TEST_MAIN(tst_LayerKeys)
#include "tst_layerkeys.moc"
