#include "support/TestMain.h"

#include "Drawing.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Vantrel::Pictel;

class tst_WidgetZoom : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void zoomKeepsTheCentre();
    void zoomOfAScrolledViewKeepsItsCentre();
    void zoomToATopLeft();
    void topLeftCountsAtTheSameScale();
    void sameScaleWithoutTopLeftDoesNothing();
    void rangeIsTheExtentWhenThatHoldsTheView();
    void fitShowsTheWholeExtent();
    void fitGoesByTheTighterSide_data();
    void fitGoesByTheTighterSide();
    void fitIntoNothingChangesNothing();
    void fitIgnoresTheTopLeft();
    void fitWithinBoundsReturnsTheUnboundedScale();
    void fitWithoutExtentReturnsTheArgument();
    void zoomAtAPointKeepsThatPoint();
    void zoomAtAPointWithoutPositiveScaleDoesNothing_data();
    void zoomAtAPointWithoutPositiveScaleDoesNothing();
    void zoomWithoutExtentDoesNothing();
    void resizingIsSetDuringTheZoomOnly();
    void uselessScalesDoNothing_data();
    void uselessScalesDoNothing();
    void extremeScalesLeaveAUsableWidget_data();
    void extremeScalesLeaveAUsableWidget();
    void enormousExtentsLeaveAUsableWidget();
    void widgetWithoutViewerZooms();

    void scaleIsKeptWithinBounds_data();
    void scaleIsKeptWithinBounds();
    void boundsAreSortedAndAppliedAtOnce();
    void oneBoundAloneBoundsNothing_data();
    void oneBoundAloneBoundsNothing();
    void resetBoundsKeepTheScale();
};

void tst_WidgetZoom::zoomKeepsTheCentre()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.setScale(2.0), 2.0);
    QCOMPARE(drawing.widget.getScale(), 2.0);
    // The view (0, 0, 400, 300) halves around (199, 149): -99.5 and -74.5 round away from zero.
    QCOMPARE(drawing.viewer.getViewRect(), QRect(99, 74, 200, 150));
    QCOMPARE(drawing.pane.getBounds(), QRect(QPoint(-50, -50), QPoint(298, 223)));
    QCOMPARE(drawing.layer.getBounds(), drawing.pane.getBounds());
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-50, -50));
    QCOMPARE(drawing.widget.size(), QSize(698, 548));
    QCOMPARE(drawing.scrolled(), QPoint(298, 248));
    QCOMPARE(drawing.widget.pos(), QPoint(-298, -248));
}

void tst_WidgetZoom::zoomOfAScrolledViewKeepsItsCentre()
{
    Large drawing;
    drawing.widget.setMargins(10, 30);
    QVERIFY(drawing.showAtScale(1.0, QPoint(130, 240)));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-10, -30));
    QCOMPARE(drawing.widget.toLogical(QPointF(0, 0)), QPointF(-10, -30));
    QCOMPARE(drawing.viewer.getViewRect(), QRect(130, 240, 400, 300));
    // Around (329, 389), again rounded away from zero.
    drawing.widget.setScale(2.0);
    QCOMPARE(drawing.viewer.getViewRect(), QRect(229, 314, 200, 150));
    drawing.widget.setScaleAt(1.0, QPoint(239, 344));
    QCOMPARE(drawing.viewer.getViewRect(), QRect(219, 284, 400, 300));
}

void tst_WidgetZoom::zoomToATopLeft()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(10, 20);
    QCOMPARE(drawing.widget.setScale(2.0, &topLeft), 2.0);
    QCOMPARE(drawing.viewer.getViewRect(), QRect(10, 20, 200, 150));
    QCOMPARE(drawing.pane.getBounds(), QRect(QPoint(-50, -50), QPoint(209, 169)));
    QCOMPARE(drawing.widget.size(), QSize(520, 440));
    QCOMPARE(drawing.scrolled(), QPoint(120, 140));
}

void tst_WidgetZoom::topLeftCountsAtTheSameScale()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(-30, -40);
    QCOMPARE(drawing.widget.setScale(1.0, &topLeft), 1.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(QPoint(-50, -50), QPoint(369, 259)));
    QCOMPARE(drawing.scrolled(), QPoint(20, 10));
    QCOMPARE(drawing.viewer.getViewRect(), QRect(-30, -40, 400, 300));
}

void tst_WidgetZoom::sameScaleWithoutTopLeftDoesNothing()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.setScale(1.0), 1.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(0, 0));
}

void tst_WidgetZoom::rangeIsTheExtentWhenThatHoldsTheView()
{
    Drawing drawing;
    Figure figure;
    drawing.add(figure, QRect(-1000, -1000, 3000, 3000));
    QVERIFY(drawing.show());
    drawing.widget.setScale(2.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(-1050, -1050, 3100, 3100));
    QCOMPARE(drawing.widget.size(), QSize(6200, 6200));
}

void tst_WidgetZoom::fitShowsTheWholeExtent()
{
    Square drawing;
    QVERIFY(drawing.show());
    // 200 x 200 with margins into 400 x 300.
    QCOMPARE(drawing.widget.setScale(-1.0), 1.5);
    QCOMPARE(drawing.widget.getScale(), 1.5);
    // Centre (49, 49) less half of 266 x 200; the view keeps the size it had before.
    QCOMPARE(drawing.pane.getBounds(), QRect(-84, -51, 400, 300));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-84, -51));
    QCOMPARE(drawing.widget.size(), QSize(600, 450));
    QCOMPARE(drawing.scrolled(), QPoint(0, 0));
    QCOMPARE(drawing.scrollRange(), QPoint(200, 150));
}

void tst_WidgetZoom::fitGoesByTheTighterSide_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("scale");
    // With margins into 400 x 300.
    QTest::newRow("wide") << QSize(700, 100) << 0.5;
    QTest::newRow("high") << QSize(100, 1100) << 0.25;
    QTest::newRow("wide and small") << QSize(60, 10) << 2.5;
}

void tst_WidgetZoom::fitGoesByTheTighterSide()
{
    QFETCH(QSize, size);
    Drawing drawing;
    Figure figure;
    drawing.add(figure, QRect(QPoint(0, 0), size));
    QVERIFY(drawing.show());
    QTEST(drawing.widget.setScale(-1.0), "scale");
}

void tst_WidgetZoom::fitIntoNothingChangesNothing()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.viewer.resizeViewport(QSize(0, 0));
    drawing.viewer.viewport()->resize(0, 0);
    QCOMPARE(drawing.widget.setScale(-3.0), -3.0);
    QCOMPARE(drawing.widget.getScale(), 1.0);
}

void tst_WidgetZoom::fitIgnoresTheTopLeft()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(1000, 1000);
    QCOMPARE(drawing.widget.setScale(-7.0, &topLeft), 1.5);
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-84, -51));
}

void tst_WidgetZoom::fitWithinBoundsReturnsTheUnboundedScale()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setScaleBounds(0.5, 1.25);
    QCOMPARE(drawing.widget.setScale(-1.0), 1.5);
    QCOMPARE(drawing.widget.getScale(), 1.25);
}

void tst_WidgetZoom::fitWithoutExtentReturnsTheArgument()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.setScale(-1.0), -1.0);
    QCOMPARE(drawing.widget.setScale(-2.5), -2.5);
    QCOMPARE(drawing.widget.getScale(), 1.0);
    FreeformWidget empty(nullptr);
    QCOMPARE(empty.setScale(-1.0), -1.0);
}

void tst_WidgetZoom::zoomAtAPointKeepsThatPoint()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.viewer.fromContent(QPoint(50, 60)), QPoint(50, 60));
    QCOMPARE(drawing.widget.setScaleAt(2.0, QPoint(50, 60)), 2.0);
    QCOMPARE(drawing.viewer.getViewRect(), QRect(25, 30, 200, 150));
    QCOMPARE(drawing.pane.getBounds(), QRect(QPoint(-50, -50), QPoint(224, 179)));
    QCOMPARE(drawing.viewer.fromContent(QPoint(50, 60)), QPoint(50, 60));
}

void tst_WidgetZoom::zoomAtAPointWithoutPositiveScaleDoesNothing_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -2.0;
    QTest::newRow("the same") << 1.0;
}

void tst_WidgetZoom::zoomAtAPointWithoutPositiveScaleDoesNothing()
{
    QFETCH(double, scale);
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.setScaleAt(scale, QPoint(50, 60)), 1.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
}

void tst_WidgetZoom::zoomWithoutExtentDoesNothing()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.setScale(2.0), 1.0);
    QCOMPARE(drawing.widget.setScaleAt(2.0, QPoint(1, 1)), 1.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    FreeformWidget empty(nullptr);
    QCOMPARE(empty.setScale(2.0), 1.0);
}

void tst_WidgetZoom::resizingIsSetDuringTheZoomOnly()
{
    Square drawing;
    QVERIFY(drawing.show());
    QList<bool> resizing;
    connect(&drawing.pane, &Figure::figureMoved, this, [&] { resizing << drawing.widget.isResizing(); });
    drawing.widget.setScale(2.0);
    drawing.widget.setScaleAt(3.0, QPoint(0, 0));
    QCOMPARE(resizing, QList<bool>({true, true}));
    QCOMPARE(drawing.widget.isResizing(), false);
}

void tst_WidgetZoom::uselessScalesDoNothing_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("not a number") << std::nan("");
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("so small that its inverse is infinite") << 1e-309;
}

void tst_WidgetZoom::uselessScalesDoNothing()
{
    QFETCH(double, scale);
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(5, 5);
    QCOMPARE(drawing.widget.setScale(scale), 1.0);
    QCOMPARE(drawing.widget.setScale(scale, &topLeft), 1.0);
    QCOMPARE(drawing.widget.setScaleAt(scale, QPoint(5, 5)), 1.0);
    QCOMPARE(drawing.widget.getScale(), 1.0);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.toLogical(QPointF(7, 8)), QPointF(7, 8));
}

void tst_WidgetZoom::extremeScalesLeaveAUsableWidget_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1e-300, 1e-30, 1e-12, 1e-6, 1e6, 1e12, 1e30, 1e300})
        QTest::addRow("%g", scale) << scale;
}

void tst_WidgetZoom::extremeScalesLeaveAUsableWidget()
{
    QFETCH(double, scale);
    Square drawing;
    drawing.pane.setDrawGrid(true);
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.setScale(scale), scale);
    QCoreApplication::processEvents();
    drawing.viewer.setViewLocation(QPoint(0, 0), false);
    drawing.widget.repaint();
    const QPointF there = drawing.widget.fromLogical(QPointF(1, 1));
    QVERIFY(std::isfinite(there.x()) && std::isfinite(there.y()));
    const QPoint topLeft(0, 0);
    QCOMPARE(drawing.widget.setScale(1.0, &topLeft), 1.0);
    QCOMPARE(drawing.viewer.fromContent(QPoint(10, 20)) - drawing.viewer.fromContent(QPoint(0, 0)), QPoint(10, 20));
}

void tst_WidgetZoom::enormousExtentsLeaveAUsableWidget()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    Square drawing;
    Figure low;
    Figure high;
    QVERIFY(drawing.show());
    drawing.add(low, QRect(QPoint(lowest + 1, lowest + 1), QSize(10, 10)));
    drawing.add(high, QRect(QPoint(highest - 20, highest - 20), QSize(10, 10)));
    drawing.widget.setMargins(highest, highest);
    const QPoint topLeft(highest, lowest);
    QCOMPARE(drawing.widget.setScale(2.0), 2.0);
    QCOMPARE(drawing.widget.setScale(3.0, &topLeft), 3.0);
    QVERIFY(drawing.widget.setScale(-1.0) > 0.0);
    QCOMPARE(drawing.widget.setScaleAt(0.5, topLeft), 0.5);
    drawing.widget.ensureViewable(QRect(QPoint(lowest, lowest), QPoint(highest, highest)), true, true);
    drawing.widget.minimizeViewable(QRect(QPoint(lowest, lowest), QPoint(highest, highest)));
    drawing.viewer.setViewLocation(topLeft, false);
    QVERIFY(drawing.pane.getBounds().isValid());
    QVERIFY(drawing.widget.sizeHint().isValid());
    QVERIFY(!drawing.widget.size().isEmpty());
}

void tst_WidgetZoom::widgetWithoutViewerZooms()
{
    FreeformWidget widget(nullptr);
    widget.resize(400, 300);
    FreeformLayeredPane pane;
    FreeformLayer layer(nullptr, false);
    Figure figure;
    layer.add(&figure, QRect(0, 0, 100, 100));
    pane.addLayer(&layer, "layer");
    widget.setContent(&pane);
    QCOMPARE(widget.setScale(2.0), 2.0);
    QCOMPARE(pane.getBounds(), QRect(QPoint(-50, -50), QPoint(298, 223)));
    QVERIFY(widget.setScale(-1.0) > 0.0);
}

void tst_WidgetZoom::scaleIsKeptWithinBounds_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("expected");
    QTest::newRow("below") << 0.1 << 0.5;
    QTest::newRow("zero") << 0.0 << 0.5;
    QTest::newRow("smallest") << 0.5 << 0.5;
    QTest::newRow("between") << 3.0 << 3.0;
    QTest::newRow("largest") << 4.0 << 4.0;
    QTest::newRow("above") << 10.0 << 4.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 4.0;
    QTest::newRow("not a number") << std::nan("") << 1.0;
}

void tst_WidgetZoom::scaleIsKeptWithinBounds()
{
    QFETCH(double, scale);
    QFETCH(double, expected);
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setScaleBounds(0.5, 4.0);
    QCOMPARE(drawing.widget.setScaleAt(scale, QPoint(3, 3)), expected);
    drawing.widget.setScale(1.0);
    QCOMPARE(drawing.widget.setScale(scale), expected);
    QCOMPARE(drawing.widget.getScale(), expected);
}

void tst_WidgetZoom::boundsAreSortedAndAppliedAtOnce()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setScaleBounds(4.0, 2.0);
    QCOMPARE(drawing.widget.getScale(), 2.0);
    QCOMPARE(drawing.widget.setScale(1.0), 2.0);
    QCOMPARE(drawing.widget.setScale(9.0), 4.0);
}

void tst_WidgetZoom::oneBoundAloneBoundsNothing_data()
{
    QTest::addColumn<double>("bound");
    QTest::addColumn<double>("otherBound");
    QTest::newRow("no minimum") << 0.0 << 2.0;
    QTest::newRow("negative minimum") << 2.0 << -1.0;
    QTest::newRow("none") << -1.0 << -1.0;
}

void tst_WidgetZoom::oneBoundAloneBoundsNothing()
{
    QFETCH(double, bound);
    QFETCH(double, otherBound);
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setScaleBounds(bound, otherBound);
    QCOMPARE(drawing.widget.setScale(8.0), 8.0);
    QCOMPARE(drawing.widget.setScale(0.125), 0.125);
}

void tst_WidgetZoom::resetBoundsKeepTheScale()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setScaleBounds(2.0, 4.0);
    const QRect bounds = drawing.pane.getBounds();
    drawing.widget.resetScaleBounds();
    QCOMPARE(drawing.widget.getScale(), 2.0);
    QCOMPARE(drawing.pane.getBounds(), bounds);
    QCOMPARE(drawing.widget.setScale(9.0), 9.0);
    QCOMPARE(drawing.widget.setScale(0.5), 0.5);
}

PICTEL_TEST_MAIN(tst_WidgetZoom)
#include "tst_widgetzoom.moc"
