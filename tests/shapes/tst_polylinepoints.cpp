#include "LineProbe.h"
#include "support/TestMain.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");

/// Beyond it bounds are cut off.
constexpr int furthest = 1 << 29;

} // namespace

/// What the type of the points makes different: bounds, rounding, tolerance and extreme coordinates.
class tst_PolylinePoints : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void integerToleranceIsSixPixels();
    void floatingToleranceIsTwoPixels();

    void twoIntegerPointsHaveAnArea_data();
    void twoIntegerPointsHaveAnArea();
    void moreIntegerPointsOnALineHaveNoArea();
    void pathOfTwoVirtualPointsOfManyHasNoArea();
    void floatingBoundsAreRounded_data();
    void floatingBoundsAreRounded();
    void horizontalIntegerLineIsHitWithinSixPixels();
    void horizontalFloatingLineIsHitWithinTwoPixels();
    void resolveBoundsOfAnIntegerLineChangesNothing();

    void floatingPointIsRounded_data();
    void floatingPointIsRounded();
    void exactFloatingPointOutOfBoundsIsTheOrigin();

    void unusablePointIsLeftOutOfTheLine_data();
    void unusablePointIsLeftOutOfTheLine();
    void farPointsCutTheBoundsOff_data();
    void farPointsCutTheBoundsOff();
    void furthestIntegersCutTheBoundsOff();
    void farLineIsHitTested();
};

void tst_PolylinePoints::integerToleranceIsSixPixels()
{
    QCOMPARE(Polyline::M_tolerance, 6);
}

void tst_PolylinePoints::floatingToleranceIsTwoPixels()
{
    QCOMPARE(PolylineF::M_tolerance, 2);
}

void tst_PolylinePoints::twoIntegerPointsHaveAnArea_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("horizontal") << QPoint(0, 10) << QPoint(100, 10) << QRect(0, 10, 100, 1);
    QTest::newRow("vertical") << QPoint(10, 0) << QPoint(10, 100) << QRect(10, 0, 1, 100);
    QTest::newRow("one place") << QPoint(10, 20) << QPoint(10, 20) << QRect(10, 20, 1, 1);
    QTest::newRow("slanted") << QPoint(10, 20) << QPoint(5, 60) << QRect(5, 20, 5, 40);
}

void tst_PolylinePoints::twoIntegerPointsHaveAnArea()
{
    QFETCH(QPoint, start);
    QFETCH(QPoint, end);
    QFETCH(QRect, bounds);
    ShownLine<Polyline> shown;
    shown.setPoints({start, end});
    QCOMPARE(shown.line.getBounds(), bounds);
}

void tst_PolylinePoints::moreIntegerPointsOnALineHaveNoArea()
{
    ShownLine<Polyline> shown;
    shown.setPoints({{0, 10}, {50, 10}, {100, 10}});
    QCOMPARE(shown.line.getBounds(), QRect(0, 10, 100, 0));
}

void tst_PolylinePoints::pathOfTwoVirtualPointsOfManyHasNoArea()
{
    ShownLine<Polyline> shown;
    shown.line.pathPoints = {{0, 10}, {100, 10}};
    Q_EMIT shown.line.pathChanged(QRectF());
    QCOMPARE(shown.line.getBounds(), QRect(0, 10, 100, 0));
}

void tst_PolylinePoints::floatingBoundsAreRounded_data()
{
    QTest::addColumn<QPolygonF>("points");
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("rounded") << QPolygonF({{0.6, 0.4}, {10.2, 20.1}}) << QRect(1, 0, 9, 20);
    QTest::newRow("horizontal") << QPolygonF({{0, 10}, {100, 10}}) << QRect(0, 10, 100, 0);
    QTest::newRow("vertical") << QPolygonF({{10, 0}, {10, 100}}) << QRect(10, 0, 0, 100);
}

void tst_PolylinePoints::floatingBoundsAreRounded()
{
    QFETCH(QPolygonF, points);
    QFETCH(QRect, bounds);
    ShownLine<PolylineF> shown;
    shown.setPoints(points);
    QCOMPARE(shown.line.getBounds(), bounds);
}

void tst_PolylinePoints::horizontalIntegerLineIsHitWithinSixPixels()
{
    ShownLine<Polyline> shown;
    shown.setPoints({{0, 10}, {100, 10}});
    QVERIFY(shown.line.contains(QPoint(50, 14)));
    QVERIFY(shown.line.contains(QPoint(50, 15)));
    QVERIFY(shown.line.contains(QPoint(50, 5)));
    QVERIFY(!shown.line.contains(QPoint(50, 17)));
    QVERIFY(!shown.line.contains(QPoint(50, 3)));
    QVERIFY(shown.line.contains(QPoint(-5, 10)));
    QVERIFY(!shown.line.contains(QPoint(-7, 10)));
}

void tst_PolylinePoints::horizontalFloatingLineIsHitWithinTwoPixels()
{
    ShownLine<PolylineF> shown;
    shown.setPoints({{0, 10}, {100, 10}});
    QVERIFY(shown.line.contains(QPoint(50, 11)));
    QVERIFY(shown.line.contains(QPoint(50, 9)));
    QVERIFY(!shown.line.contains(QPoint(50, 13)));
    QVERIFY(!shown.line.contains(QPoint(50, 7)));
}

void tst_PolylinePoints::resolveBoundsOfAnIntegerLineChangesNothing()
{
    Polyline line;
    QCOMPARE(line.resolveBounds(QRect(1, 2, -3, -4)), QRect(1, 2, -3, -4));
    QCOMPARE(line.resolveBounds(QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
}

void tst_PolylinePoints::floatingPointIsRounded_data()
{
    QTest::addColumn<QPointF>("exact");
    QTest::addColumn<QPoint>("rounded");

    QTest::newRow("halves") << QPointF(2.5, -2.5) << QPoint(3, -3);
    QTest::newRow("less") << QPointF(2.4, -2.4) << QPoint(2, -2);
    QTest::newRow("not a number") << QPointF(notANumber, 1) << QPoint(0, 1);
    QTest::newRow("infinite") << QPointF(-infinity, 1e300)
                              << QPoint(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

void tst_PolylinePoints::floatingPointIsRounded()
{
    QFETCH(QPointF, exact);
    QFETCH(QPoint, rounded);
    PolylineF line;
    line.addPoint({});
    line.addPoint(exact);
    QCOMPARE(line.getPoint(1), rounded);
    if (std::isfinite(exact.x()))
        QCOMPARE(line.getPointF(1), exact);
}

void tst_PolylinePoints::exactFloatingPointOutOfBoundsIsTheOrigin()
{
    PolylineF line;
    line.addPoint({1.5, 2.5});
    QCOMPARE(line.getPointF(0), QPointF(1.5, 2.5));
    QCOMPARE(line.getPointF(1), QPointF(0, 0));
    QCOMPARE(line.getPointF(-1), QPointF(0, 0));
}

void tst_PolylinePoints::unusablePointIsLeftOutOfTheLine_data()
{
    QTest::addColumn<QPointF>("unusable");
    QTest::newRow("not a number") << QPointF(notANumber, 0);
    QTest::newRow("infinite") << QPointF(0, infinity);
    QTest::newRow("huge") << QPointF(-1e200, 0);
}

void tst_PolylinePoints::unusablePointIsLeftOutOfTheLine()
{
    QFETCH(QPointF, unusable);
    ShownLine<PolylineF> shown;
    shown.setPoints({unusable, {10, 20}, unusable, {40, 60}});
    QCOMPARE(shown.path(), openPath({{10, 20}, {40, 60}}));
    QCOMPARE(shown.line.getBounds(), QRect(10, 20, 30, 40));
    QCOMPARE(shown.line.getPointCount(), 4);
}

void tst_PolylinePoints::farPointsCutTheBoundsOff_data()
{
    QTest::addColumn<QPointF>("far");
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("right and bottom") << QPointF(1e20, 1e20) << QRect(0, 0, furthest, furthest);
    QTest::newRow("left and top") << QPointF(-1e20, -1e20) << QRect(-furthest, -furthest, furthest, furthest);
    QTest::newRow("just inside") << QPointF(furthest, -furthest) << QRect(0, -furthest, furthest, furthest);
}

void tst_PolylinePoints::farPointsCutTheBoundsOff()
{
    QFETCH(QPointF, far);
    QFETCH(QRect, bounds);
    ShownLine<PolylineF> shown;
    shown.setPoints({{0, 0}, far});
    QCOMPARE(shown.line.getBounds(), bounds);
}

void tst_PolylinePoints::furthestIntegersCutTheBoundsOff()
{
    ShownLine<Polyline> shown;
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    shown.setPoints({{least, least}, {most, most}});
    QCOMPARE(shown.line.getBounds(), QRect(-furthest, -furthest, 2 * furthest, 2 * furthest));
}

void tst_PolylinePoints::farLineIsHitTested()
{
    ShownLine<Polyline> shown;
    constexpr int most = std::numeric_limits<int>::max();
    shown.setPoints({{0, 0}, {most, 0}});
    QVERIFY(shown.line.contains(QPoint(1000, 3)));
    QVERIFY(!shown.line.contains(QPoint(1000, 8)));
    QVERIFY(!shown.line.contains(QPoint(most, most)));
}

PICTEL_TEST_MAIN(tst_PolylinePoints)

#include "tst_polylinepoints.moc"
