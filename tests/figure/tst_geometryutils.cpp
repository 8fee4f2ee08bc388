#include "support/TestMain.h"

#include <vtlpictel/figure/GeometryUtils.h>

#include <limits>

using namespace Vantrel::Pictel;

class tst_GeometryUtils : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void positionCodesAreDistinctBits();
    void orthogonalDistanceAddsBothAxes_data();
    void orthogonalDistanceAddsBothAxes();
    void positionFromAPointFollowsTheLargerDistance_data();
    void positionFromAPointFollowsTheLargerDistance();
    void positionFromARectangleCombinesBothAxes_data();
    void positionFromARectangleCombinesBothAxes();
};

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

void tst_GeometryUtils::positionCodesAreDistinctBits()
{
    QCOMPARE(POSITION_NONE, 0);
    QCOMPARE(POSITION_NORTH, 1);
    QCOMPARE(POSITION_SOUTH, 4);
    QCOMPARE(POSITION_WEST, 8);
    QCOMPARE(POSITION_EAST, 16);
}

void tst_GeometryUtils::orthogonalDistanceAddsBothAxes_data()
{
    QTest::addColumn<QPoint>("first");
    QTest::addColumn<QPoint>("second");
    QTest::addColumn<int>("distance");
    QTest::newRow("equal") << QPoint(5, 5) << QPoint(5, 5) << 0;
    QTest::newRow("right and below") << QPoint(1, 2) << QPoint(10, 30) << 37;
    QTest::newRow("left and above") << QPoint(10, 30) << QPoint(1, 2) << 37;
    QTest::newRow("wraps") << QPoint(largest, 0) << QPoint(-1, 0) << smallest;
    QTest::newRow("sum wraps") << QPoint(largest, 1) << QPoint(0, 0) << smallest;
}

void tst_GeometryUtils::orthogonalDistanceAddsBothAxes()
{
    QFETCH(const QPoint, first);
    QFETCH(const QPoint, second);
    QTEST(GeometryUtils::orthogonalDistance(first, second), "distance");
}

void tst_GeometryUtils::positionFromAPointFollowsTheLargerDistance_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<int>("position");
    QTest::newRow("equal") << QPoint(5, 5) << QPoint(5, 5) << POSITION_SOUTH;
    QTest::newRow("above") << QPoint(1, -3) << QPoint(0, 0) << POSITION_NORTH;
    QTest::newRow("below") << QPoint(-1, 3) << QPoint(0, 0) << POSITION_SOUTH;
    QTest::newRow("left") << QPoint(-3, -2) << QPoint(0, 0) << POSITION_WEST;
    QTest::newRow("right") << QPoint(3, 2) << QPoint(0, 0) << POSITION_EAST;
    QTest::newRow("tie below") << QPoint(0, 0) << QPoint(3, -3) << POSITION_SOUTH;
    QTest::newRow("tie above") << QPoint(0, 0) << QPoint(3, 3) << POSITION_NORTH;
    QTest::newRow("tie above on the right") << QPoint(3, -3) << QPoint(0, 0) << POSITION_NORTH;
    QTest::newRow("reference counts") << QPoint(100, 100) << QPoint(100, 110) << POSITION_NORTH;
    QTest::newRow("wraps") << QPoint(largest, 0) << QPoint(-1, 5) << POSITION_NORTH;
}

void tst_GeometryUtils::positionFromAPointFollowsTheLargerDistance()
{
    QFETCH(const QPoint, point);
    QFETCH(const QPoint, reference);
    QTEST(GeometryUtils::relativePosition(point, reference), "position");
}

void tst_GeometryUtils::positionFromARectangleCombinesBothAxes_data()
{
    const QRect box(10, 20, 30, 40);
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("position");
    QTest::newRow("inside") << QPoint(20, 30) << box << POSITION_NONE;
    QTest::newRow("first corner") << QPoint(10, 20) << box << POSITION_NONE;
    QTest::newRow("last corner") << QPoint(39, 59) << box << POSITION_NONE;
    QTest::newRow("left") << QPoint(9, 30) << box << POSITION_WEST;
    QTest::newRow("right") << QPoint(40, 30) << box << POSITION_EAST;
    QTest::newRow("above") << QPoint(20, 19) << box << POSITION_NORTH;
    QTest::newRow("below") << QPoint(20, 60) << box << POSITION_SOUTH;
    QTest::newRow("above left") << QPoint(9, 19) << box << 9;
    QTest::newRow("above right") << QPoint(40, 19) << box << 17;
    QTest::newRow("below left") << QPoint(9, 60) << box << 12;
    QTest::newRow("below right") << QPoint(40, 60) << box << 20;
    QTest::newRow("empty rectangle") << QPoint(0, 0) << QRect() << 20;
    QTest::newRow("end wraps") << QPoint(-1, 5) << QRect(QPoint(0, 0), QPoint(largest, 10)) << POSITION_WEST;
    QTest::newRow("end wraps to the right") << QPoint(5, -1) << QRect(QPoint(0, 0), QPoint(largest, 10)) << 17;
}

void tst_GeometryUtils::positionFromARectangleCombinesBothAxes()
{
    QFETCH(const QPoint, point);
    QFETCH(const QRect, rect);
    QTEST(GeometryUtils::relativePosition(point, rect), "position");
}

PICTEL_TEST_MAIN(tst_GeometryUtils)
#include "tst_geometryutils.moc"
