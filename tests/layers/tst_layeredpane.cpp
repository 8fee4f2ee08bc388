#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layers/LayeredPane.h>
#include <vtlpictel/layout/StackLayout.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_LayeredPane : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void stackLayoutBelongsToThePane();
    void metaObjectHasNothingOfItsOwn();

    void layersAreStackedInOrderOfAdding();
    void addedLayerIsFoundAndNamedByItsKey();
    void addLayerUsesTheOverriddenAddLayerAbove();
    void layerIsAddedWithoutConstraintAndStretch();
    void layerGoesDirectlyAboveItsNeighbour();
    void layerGoesDirectlyBeneathItsNeighbour();
    void unknownNeighbourPutsTheLayerOnTop();
    void nullNeighbourPutsTheLayerOnTop();
    void neighbourIsFoundAtAnyPosition_data();
    void neighbourIsFoundAtAnyPosition();

    void nullLayerAndEmptyKeyAreRefused();
    void emptyKeyDoesNotRenameTheLayer();
    void usedKeyIsRefusedButRenamesTheLayer();
    void usedKeyIsRefusedBeneathToo();
    void keysAreWrittenAsUtf8();
    void withoutLayoutNothingIsAddedBesideANeighbour();
    void withoutLayoutNothingIsAddedOnTop();
    void refusedLayerBesideANeighbourKeepsItsKey();
    void refusedLayerOnTopGetsNoKey();

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
};

namespace {

using Layers = QList<Figure *>;

class RecordingPane : public LayeredPane
{
public:
    using LayeredPane::LayeredPane;

    void addLayerAbove(Layer *layer, const QString &key, Layer *above) override
    {
        calls << QStringLiteral("%1 above %2").arg(key, above ? above->objectName() : QStringLiteral("nothing"));
        LayeredPane::addLayerAbove(layer, key, above);
    }

    bool add(Figure *, unsigned int vStretch, unsigned int hStretch, int index) override
    {
        calls << QStringLiteral("add %1 %2 %3").arg(vStretch).arg(hStretch).arg(index);
        return false;
    }

    QStringList calls;
};

} // namespace

void tst_LayeredPane::stackLayoutBelongsToThePane()
{
    LayeredPane pane;
    QVERIFY(qobject_cast<StackLayout *>(pane.getLayoutManager()));
    QCOMPARE(pane.getLayoutManager()->parent(), &pane);
    QCOMPARE(pane.getLayoutManager()->getFigure(), &pane);
    QCOMPARE(pane.getBackgroundColor(), QColor(Qt::transparent));
}

void tst_LayeredPane::metaObjectHasNothingOfItsOwn()
{
    const QMetaObject &meta = LayeredPane::staticMetaObject;
    QCOMPARE(meta.className(), "Vantrel::Pictel::LayeredPane");
    QCOMPARE(meta.superClass(), &Layer::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_LayeredPane::layersAreStackedInOrderOfAdding()
{
    LayeredPane pane;
    Layer bottom;
    Layer top;
    pane.addLayer(&bottom, "bottom");
    pane.addLayer(&top, "top");
    QCOMPARE(pane.childFigures(), Layers({&bottom, &top}));
    QCOMPARE(brokenInvariant(&pane), QString());
}

void tst_LayeredPane::addedLayerIsFoundAndNamedByItsKey()
{
    LayeredPane pane;
    Layer layer;
    pane.addLayer(&layer, "drawing");
    QCOMPARE(pane.getLayer("drawing"), &layer);
    QCOMPARE(layer.objectName(), QString("drawing"));
    QCOMPARE(layer.getParentFigure(), &pane);
    QCOMPARE(layer.parent(), nullptr);
}

void tst_LayeredPane::addLayerUsesTheOverriddenAddLayerAbove()
{
    RecordingPane pane;
    Layer layer;
    pane.addLayer(&layer, "drawing");
    QCOMPARE(pane.calls.first(), QString("drawing above nothing"));
}

void tst_LayeredPane::layerIsAddedWithoutConstraintAndStretch()
{
    RecordingPane pane;
    Layer layer;
    pane.addLayer(&layer, "drawing");
    QCOMPARE(pane.calls.last(), QString("add 0 0 -1"));
    pane.calls.clear();
    pane.addLayerBeneath(&layer, "drawing", nullptr);
    QCOMPARE(pane.calls, QStringList({"add 0 0 -1"}));
}

void tst_LayeredPane::layerGoesDirectlyAboveItsNeighbour()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    Layer added;
    pane.addLayer(&first, "first");
    pane.addLayer(&second, "second");
    pane.addLayerAbove(&added, "added", &first);
    QCOMPARE(pane.childFigures(), Layers({&first, &added, &second}));
    QCOMPARE(pane.getLayer("added"), &added);
}

void tst_LayeredPane::layerGoesDirectlyBeneathItsNeighbour()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    Layer added;
    pane.addLayer(&first, "first");
    pane.addLayer(&second, "second");
    pane.addLayerBeneath(&added, "added", &second);
    QCOMPARE(pane.childFigures(), Layers({&first, &added, &second}));
    QCOMPARE(pane.getLayer("added"), &added);
}

void tst_LayeredPane::unknownNeighbourPutsTheLayerOnTop()
{
    LayeredPane pane;
    Layer stranger;
    Layer bottom;
    Layer above;
    Layer beneath;
    pane.addLayer(&bottom, "bottom");
    pane.addLayerAbove(&above, "above", &stranger);
    pane.addLayerBeneath(&beneath, "beneath", &stranger);
    QCOMPARE(pane.childFigures(), Layers({&bottom, &above, &beneath}));
}

void tst_LayeredPane::nullNeighbourPutsTheLayerOnTop()
{
    LayeredPane pane;
    Layer bottom;
    Layer above;
    Layer beneath;
    pane.addLayer(&bottom, "bottom");
    pane.addLayerAbove(&above, "above", nullptr);
    pane.addLayerBeneath(&beneath, "beneath", nullptr);
    QCOMPARE(pane.childFigures(), Layers({&bottom, &above, &beneath}));
}

void tst_LayeredPane::neighbourIsFoundAtAnyPosition_data()
{
    QTest::addColumn<bool>("above");
    QTest::addColumn<int>("neighbour");
    QTest::addColumn<int>("expected");
    QTest::newRow("above the bottom") << true << 0 << 1;
    QTest::newRow("above the top") << true << 2 << 3;
    QTest::newRow("beneath the bottom") << false << 0 << 0;
    QTest::newRow("beneath the top") << false << 2 << 2;
}

void tst_LayeredPane::neighbourIsFoundAtAnyPosition()
{
    QFETCH(bool, above);
    QFETCH(int, neighbour);
    LayeredPane pane;
    Layer layers[3];
    for (Layer &layer : layers)
        pane.addLayer(&layer, QString::number(pane.childFigureCount()));
    Layer added;
    if (above)
        pane.addLayerAbove(&added, "added", &layers[neighbour]);
    else
        pane.addLayerBeneath(&added, "added", &layers[neighbour]);
    QTEST(int(pane.childFigures().indexOf(&added)), "expected");
}

void tst_LayeredPane::nullLayerAndEmptyKeyAreRefused()
{
    LayeredPane pane;
    Layer layer;
    expectWarning("LayeredPane::addLayerAbove(): cannot add null layer or add with empty key");
    pane.addLayer(nullptr, "key");
    expectWarning("LayeredPane::addLayerAbove(): cannot add null layer or add with empty key");
    pane.addLayerAbove(&layer, QString(), nullptr);
    expectWarning("LayeredPane::addLayerBeneath(): cannot add null layer or add with empty key");
    pane.addLayerBeneath(nullptr, "key", nullptr);
    expectWarning("LayeredPane::addLayerBeneath(): cannot add null layer or add with empty key");
    pane.addLayerBeneath(&layer, QString(), nullptr);
    QCOMPARE(pane.childFigures(), Layers());
    QCOMPARE(pane.getLayer("key"), nullptr);
    QCOMPARE(pane.getLayer(QString()), nullptr);
}

void tst_LayeredPane::emptyKeyDoesNotRenameTheLayer()
{
    LayeredPane pane;
    Layer layer;
    layer.setObjectName("before");
    expectWarning("LayeredPane::addLayerAbove(): cannot add null layer or add with empty key");
    pane.addLayer(&layer, QString());
    QCOMPARE(layer.objectName(), QString("before"));
}

void tst_LayeredPane::usedKeyIsRefusedButRenamesTheLayer()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    pane.addLayer(&first, "key");
    expectWarning("LayeredPane::addLayerAbove(): layer 'key' already exists");
    pane.addLayer(&second, "key");
    QCOMPARE(pane.getLayer("key"), &first);
    QCOMPARE(pane.childFigures(), Layers({&first}));
    QCOMPARE(second.objectName(), QString("key"));
}

void tst_LayeredPane::usedKeyIsRefusedBeneathToo()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    pane.addLayer(&first, "key");
    expectWarning("LayeredPane::addLayerBeneath(): layer 'key' already exists");
    pane.addLayerBeneath(&second, "key", &first);
    QCOMPARE(pane.childFigures(), Layers({&first}));
    QCOMPARE(second.objectName(), QString("key"));
}

void tst_LayeredPane::keysAreWrittenAsUtf8()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    const QString key = QString::fromUtf8("\xc3\xa4\xe2\x82\xac");
    pane.addLayer(&first, key);
    expectWarning("LayeredPane::addLayerAbove(): layer '\xc3\xa4\xe2\x82\xac' already exists");
    pane.addLayer(&second, key);
}

void tst_LayeredPane::withoutLayoutNothingIsAddedBesideANeighbour()
{
    LayeredPane pane;
    Layer layer;
    Layer neighbour;
    delete pane.getLayoutManager();
    expectWarning("LayeredPane::addLayerAbove(): no layout manager");
    pane.addLayerAbove(&layer, "above", &neighbour);
    QCOMPARE(pane.getLayer("above"), nullptr);
    expectWarning("LayeredPane::addLayerBeneath(): no layout manager");
    pane.addLayerBeneath(&layer, "beneath", &neighbour);
    QCOMPARE(pane.getLayer("beneath"), nullptr);
    QCOMPARE(layer.objectName(), QString("beneath"));
}

void tst_LayeredPane::withoutLayoutNothingIsAddedOnTop()
{
    LayeredPane pane;
    Layer layer;
    delete pane.getLayoutManager();
    expectDebug("Figure::add(): failed, no layout manager");
    pane.addLayer(&layer, "key");
    QCOMPARE(pane.getLayer("key"), nullptr);
}

void tst_LayeredPane::refusedLayerBesideANeighbourKeepsItsKey()
{
    LayeredPane pane;
    Layer first;
    Layer second;
    pane.addLayer(&first, "first");
    pane.addLayer(&second, "second");
    pane.addLayerAbove(&first, "above", &second);
    pane.addLayerBeneath(&second, "beneath", &first);
    QCOMPARE(pane.childFigures(), Layers({&first, &second}));
    QCOMPARE(pane.getLayer("above"), &first);
    QCOMPARE(pane.getLayer("beneath"), &second);
}

void tst_LayeredPane::refusedLayerOnTopGetsNoKey()
{
    LayeredPane pane;
    Layer layer;
    pane.addLayer(&layer, "first");
    pane.addLayer(&layer, "second");
    pane.addLayerBeneath(&layer, "third", nullptr);
    QCOMPARE(pane.getLayer("first"), &layer);
    QCOMPARE(pane.getLayer("second"), nullptr);
    QCOMPARE(pane.getLayer("third"), nullptr);
}

void tst_LayeredPane::unknownKeyGivesNull()
{
    LayeredPane pane;
    Layer layer;
    pane.addLayer(&layer, "key");
    QCOMPARE(pane.getLayer("other"), nullptr);
    QCOMPARE(pane.removeLayer("other"), nullptr);
    QCOMPARE(pane.childFigures(), Layers({&layer}));
}

void tst_LayeredPane::nestedPanesAreSearchedDepthFirst()
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

void tst_LayeredPane::ownLayersWinOverNestedOnes()
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

void tst_LayeredPane::earlierNestedPaneWins()
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

void tst_LayeredPane::keysAreCaseSensitive()
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

void tst_LayeredPane::panesThatContainEachOtherAreSearchedOnce()
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

void tst_LayeredPane::removedLayerIsReturnedAndLeavesThePane()
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

void tst_LayeredPane::removedKeyCanBeUsedAgain()
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

void tst_LayeredPane::removedPaneIsNotSearchedAnyMore()
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

void tst_LayeredPane::nestedLayersAreNotRemoved()
{
    LayeredPane outer;
    LayeredPane inner;
    Layer layer;
    inner.addLayer(&layer, "nested");
    outer.addLayer(&inner, "inner");
    QCOMPARE(outer.removeLayer("nested"), nullptr);
    QCOMPARE(outer.getLayer("nested"), &layer);
}

void tst_LayeredPane::removingOneOfTwoKeysKeepsTheOther()
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

void tst_LayeredPane::deletedLayerLosesItsKey()
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

void tst_LayeredPane::deletedLayerLosesAllItsKeys()
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

void tst_LayeredPane::deletedPaneIsNotSearchedAnyMore()
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

void tst_LayeredPane::otherLayersSurviveADeletedOne()
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

void tst_LayeredPane::layersOutliveThePane()
{
    Layer layer;
    {
        LayeredPane pane;
        pane.addLayer(&layer, "key");
    }
    QCOMPARE(layer.getParentFigure(), nullptr);
    QCOMPARE(layer.objectName(), QString("key"));
}

void tst_LayeredPane::removedLayerCanBeDeleted()
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

PICTEL_TEST_MAIN(tst_LayeredPane)
#include "tst_layeredpane.moc"
