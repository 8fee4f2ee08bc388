#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layers/LayeredPane.h>
#include <vtlpictel/layout/StackLayout.h>

#include <QTest>

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
    void layoutIsAskedForThePlaceOfTheNeighbour();
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

void tst_LayeredPane::layoutIsAskedForThePlaceOfTheNeighbour()
{
    class RecordingLayout : public StackLayout
    {
    public:
        bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override
        {
            calls << QStringLiteral("%1 %2 %3").arg(vStretch).arg(hStretch).arg(index);
            return StackLayout::add(child, vStretch, hStretch, index);
        }

        QStringList calls;
    };
    RecordingLayout layout;
    LayeredPane pane;
    delete pane.setLayoutManager(&layout);
    Layer layers[4];
    Layer stranger;
    pane.addLayer(&layers[0], "0");
    pane.addLayerAbove(&layers[1], "1", &layers[0]);
    pane.addLayerBeneath(&layers[2], "2", &layers[1]);
    pane.addLayerAbove(&layers[3], "3", &stranger);
    QCOMPARE(layout.calls, QStringList({"0 0 -1", "0 0 1", "0 0 1", "0 0 -1"}));
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

PICTEL_TEST_MAIN(tst_LayeredPane)
#include "tst_layeredpane.moc"
