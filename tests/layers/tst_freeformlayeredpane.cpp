#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/layout/FreeformStackLayout.h>

#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>

#include <limits>
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

    void gridIsOffAtFirst();
    void gridNeedsAStepOfTwo_data();
    void gridNeedsAStepOfTwo();
    void mainGridIsSolidGrayAtEveryFifthStep();
    void subGridIsDottedAtEveryStep();
    void subGridIsPaintedOverTheMainGrid();
    void rowsComeBeforeColumns();
    void firstLineLiesAtAMultipleOfTheStep_data();
    void firstLineLiesAtAMultipleOfTheStep();
    void gridLeavesThePainterAsItWas();
    void gridOfInvalidRectPaintsNothing();
    void backgroundColorIsNotPainted();
    void hooksCanBeOverridden();
    void hooksIgnoreNullPainterAndBadStep();
    void nullPainterRendersNothing();
    void gridLiesBehindTheLayers();
    void enormousGridPaintsOnlyWhatIsVisible();
    void enormousGridLooksLikeASmallOne();
    void enormousGridHonoursTheClip();
    void tooDenseGridPaintsNothing();
    void gridAtTheEndsOfTheNumbersDoesNotHang_data();
    void gridAtTheEndsOfTheNumbersDoesNotHang();

    void deletedLayerIsForgotten();
    void deletedLayoutLeavesAnEmptyPane();
    void layersOutliveThePane();
};

namespace {

class TestPane : public FreeformLayeredPane
{
public:
    using FreeformLayeredPane::drawBackground;
    using FreeformLayeredPane::drawMainGrid;
    using FreeformLayeredPane::drawSubGrid;
    using FreeformLayeredPane::FreeformLayeredPane;
};

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

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

// What drawBackground() paints for a pane of those bounds.
void paintGrid(const TestPane &pane, QPaintDevice &device, const QRect &rect)
{
    QPainter painter(&device);
    pane.drawBackground(&painter, optionFor(rect));
}

QList<QLineF> horizontal(const QList<QLineF> &lines)
{
    QList<QLineF> found;
    for (const QLineF &line : lines) {
        if (line.y1() == line.y2())
            found << line;
    }
    return found;
}

QList<QLineF> vertical(const QList<QLineF> &lines)
{
    QList<QLineF> found;
    for (const QLineF &line : lines) {
        if (line.x1() == line.x2())
            found << line;
    }
    return found;
}

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

void tst_FreeformLayeredPane::gridIsOffAtFirst()
{
    TestPane pane;
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(), 0);
    pane.setDrawGrid(true);
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(PaintCall::Lines), 2);
    device.clear();
    pane.setDrawGrid(false);
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(), 0);
}

void tst_FreeformLayeredPane::gridNeedsAStepOfTwo_data()
{
    QTest::addColumn<int>("snapSize");
    QTest::addColumn<int>("calls");
    QTest::newRow("two") << 2 << 2;
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("negative") << -5 << 0;
}

void tst_FreeformLayeredPane::gridNeedsAStepOfTwo()
{
    QFETCH(int, snapSize);
    TestPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(snapSize);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QTEST(device.count(), "calls");
}

void tst_FreeformLayeredPane::mainGridIsSolidGrayAtEveryFifthStep()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 60, 40));
    const PaintCall call = device.at(0);
    QCOMPARE(call.pen.color(), QColor(Qt::gray));
    QCOMPARE(call.pen.widthF(), 1.0);
    QCOMPARE(call.pen.style(), Qt::SolidLine);
    QCOMPARE(call.lines,
             QList<QLineF>({QLineF(0, 0, 59, 0), QLineF(0, 25, 59, 25), QLineF(0, 0, 0, 39), QLineF(25, 0, 25, 39),
                            QLineF(50, 0, 50, 39)}));
}

void tst_FreeformLayeredPane::subGridIsDottedAtEveryStep()
{
    TestPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(10);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 22, 12));
    const PaintCall call = device.at(1);
    QCOMPARE(call.pen.color(), QColor("#e0e0e0"));
    QCOMPARE(call.pen.widthF(), 1.0);
    QCOMPARE(call.pen.style(), Qt::DotLine);
    QCOMPARE(call.lines,
             QList<QLineF>({QLineF(0, 0, 21, 0), QLineF(0, 10, 21, 10), QLineF(0, 0, 0, 11), QLineF(10, 0, 10, 11),
                            QLineF(20, 0, 20, 11)}));
}

void tst_FreeformLayeredPane::subGridIsPaintedOverTheMainGrid()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Lines, PaintCall::Lines}));
    QCOMPARE(device.at(0).lines.size(), 8);
    QCOMPARE(device.at(1).lines.size(), 40);
    QVERIFY(device.at(0).isIntegral);
}

void tst_FreeformLayeredPane::rowsComeBeforeColumns()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 30));
    const QList<QLineF> lines = device.at(1).lines;
    QCOMPARE(lines.mid(0, 6), horizontal(lines));
    QCOMPARE(lines.mid(6), vertical(lines));
}

void tst_FreeformLayeredPane::firstLineLiesAtAMultipleOfTheStep_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    // A rectangle of 11 pixels: its last pixel, where no line lies any more, is start + 10.
    QTest::newRow("on a line") << 5 << 5.0 << 10.0;
    QTest::newRow("behind a line") << 7 << 5.0 << 15.0;
    QTest::newRow("zero") << 0 << 0.0 << 5.0;
    QTest::newRow("negative") << -7 << -5.0 << 0.0;
    QTest::newRow("negative on a line") << -10 << -10.0 << -5.0;
}

void tst_FreeformLayeredPane::firstLineLiesAtAMultipleOfTheStep()
{
    QFETCH(int, start);
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(start, start, 11, 11));
    const QList<QLineF> rows = horizontal(device.last(PaintCall::Lines).lines);
    const QList<QLineF> columns = vertical(device.last(PaintCall::Lines).lines);
    QTEST(rows.first().y1(), "first");
    QTEST(rows.last().y1(), "last");
    QTEST(columns.first().x1(), "first");
    QTEST(columns.last().x1(), "last");
    QCOMPARE(rows.first().x1(), double(start));
    QCOMPARE(rows.first().x2(), double(start + 10));
    QCOMPARE(columns.first().y1(), double(start));
    QCOMPARE(columns.first().y2(), double(start + 10));
}

void tst_FreeformLayeredPane::gridLeavesThePainterAsItWas()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setPen(QPen(Qt::red, 7, Qt::DashLine));
    pane.drawBackground(&painter, optionFor(QRect(0, 0, 100, 100)));
    QCOMPARE(painter.pen(), QPen(Qt::red, 7, Qt::DashLine));
}

void tst_FreeformLayeredPane::gridOfInvalidRectPaintsNothing()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, -10, 10));
    paintGrid(pane, device, QRect());
    QCOMPARE(device.count(), 0);
}

void tst_FreeformLayeredPane::backgroundColorIsNotPainted()
{
    TestPane pane;
    pane.setBackgroundColor(Qt::red);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(), 0);
}

void tst_FreeformLayeredPane::hooksCanBeOverridden()
{
    class HookedPane : public TestPane
    {
    public:
        mutable QStringList calls;

    protected:
        void drawMainGrid(QPainter *, const QStyleOptionViewItem &) const override { calls << "main"; }
        void drawSubGrid(QPainter *, const QStyleOptionViewItem &) const override { calls << "sub"; }
    };
    HookedPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(pane.calls, QStringList({"main", "sub"}));
}

void tst_FreeformLayeredPane::hooksIgnoreNullPainterAndBadStep()
{
    TestPane pane;
    pane.setDrawGrid(true);
    pane.drawBackground(nullptr, optionFor(QRect(0, 0, 10, 10)));
    pane.drawMainGrid(nullptr, optionFor(QRect(0, 0, 10, 10)));
    pane.drawSubGrid(nullptr, optionFor(QRect(0, 0, 10, 10)));
    RecordingPaintDevice device;
    QPainter painter(&device);
    for (const int snapSize : {0, -3}) {
        pane.setSnapSize(snapSize);
        pane.drawMainGrid(&painter, optionFor(QRect(0, 0, 10, 10)));
        pane.drawSubGrid(&painter, optionFor(QRect(0, 0, 10, 10)));
    }
    QCOMPARE(device.count(), 0);
}

void tst_FreeformLayeredPane::nullPainterRendersNothing()
{
    FreeformLayeredPane pane;
    pane.setFreeformBounds(QRect(0, 0, 10, 10));
    pane.render(nullptr, optionFor(QRect(0, 0, 10, 10)));
    QCOMPARE(pane.getBounds(), QRect(0, 0, 10, 10));
}

void tst_FreeformLayeredPane::gridLiesBehindTheLayers()
{
    FreeformLayeredPane pane;
    FilledLayer filled(QRect(20, 20, 10, 10));
    pane.addLayer(&filled.layer, "filled");
    pane.setDrawGrid(true);
    pane.setFreeformBounds(QRect(0, 0, 60, 60));
    pane.validate();
    RecordingPaintDevice device;
    QPainter painter(&device);
    // The grid is painted over all of the pane, whatever part of it is asked for.
    pane.render(&painter, optionFor(QRect(15, 15, 20, 20)));
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Lines, PaintCall::Lines, PaintCall::Rects}));
    QCOMPARE(device.at(0).lines.first(), QLineF(0, 0, 59, 0));
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(20, 20, 10, 10)}));
}

void tst_FreeformLayeredPane::enormousGridPaintsOnlyWhatIsVisible()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(100, 50));
    QPainter painter(&device);
    painter.translate(-1000, -2000);
    pane.drawBackground(&painter, optionFor(QRect(-500000000, -500000000, 1000000000, 1000000000)));
    const QList<QLineF> rows = horizontal(device.at(1).lines);
    QVERIFY(rows.size() <= 14);
    QVERIFY(rows.first().y1() <= 2000.0);
    QVERIFY(rows.last().y1() >= 2045.0);
    QVERIFY(rows.contains(QLineF(-500000000, 2025, 499999999, 2025)));
    const QList<QLineF> columns = vertical(device.at(1).lines);
    QVERIFY(columns.size() <= 24);
    QVERIFY(columns.first().x1() <= 1000.0);
    QVERIFY(columns.last().x1() >= 1095.0);
}

void tst_FreeformLayeredPane::enormousGridLooksLikeASmallOne()
{
    TestPane pane;
    pane.setDrawGrid(true);
    QImage small(120, 90, QImage::Format_RGB32);
    small.fill(Qt::white);
    QImage enormous = small;
    // Dots begin where a line begins, so both rectangles begin at the same place.
    paintGrid(pane, small, QRect(-10, -10, 1000, 1000));
    paintGrid(pane, enormous, QRect(-10, -10, 1000000, 1000000));
    QCOMPARE(enormous, small);
}

void tst_FreeformLayeredPane::enormousGridHonoursTheClip()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(1000, 1000));
    QPainter painter(&device);
    painter.setClipRect(QRect(500, 600, 20, 10));
    pane.drawBackground(&painter, optionFor(QRect(0, 0, 1000000, 1000000)));
    const QList<QLineF> rows = horizontal(device.at(1).lines);
    QVERIFY(rows.first().y1() <= 600.0 && rows.first().y1() >= 590.0);
    QVERIFY(rows.last().y1() >= 605.0 && rows.last().y1() <= 615.0);
}

void tst_FreeformLayeredPane::tooDenseGridPaintsNothing()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(1000, 1000));
    QPainter painter(&device);
    painter.scale(0.00001, 0.00001);
    pane.drawBackground(&painter, optionFor(QRect(0, 0, 1000000, 1000000)));
    QCOMPARE(device.count(), 0);
}

void tst_FreeformLayeredPane::gridAtTheEndsOfTheNumbersDoesNotHang_data()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("snapSize");
    QTest::addColumn<int>("grids");
    QTest::newRow("all there is") << QRect(QPoint(lowest, lowest), QPoint(highest, highest)) << 5 << 2;
    QTest::newRow("last numbers") << QRect(QPoint(highest - 9, highest - 9), QPoint(highest, highest)) << 5 << 2;
    QTest::newRow("first numbers") << QRect(QPoint(lowest, lowest), QPoint(lowest + 9, lowest + 9)) << 5 << 1;
    QTest::newRow("largest step") << QRect(-10, -10, 20, 20) << highest << 2;
}

void tst_FreeformLayeredPane::gridAtTheEndsOfTheNumbersDoesNotHang()
{
    QFETCH(QRect, rect);
    QFETCH(int, snapSize);
    TestPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(snapSize);
    RecordingPaintDevice device(QSize(100, 100));
    paintGrid(pane, device, rect);
    QTEST(device.count(), "grids");
    QVERIFY(device.lines().size() < 200);
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
