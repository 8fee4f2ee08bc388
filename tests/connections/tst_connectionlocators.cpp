#include "connections/LocatorProbes.h"
#include "connections/PlainConnection.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/figure/ArrowLocator.h>
#include <vtlpictel/shapes/PolygonDecoration.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_ConnectionLocators : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void connectionLocatorPicksByAlignment_data();
    void connectionLocatorPicksByAlignment();
    void connectionLocatorIndexFollowsAlignment_data();
    void connectionLocatorIndexFollowsAlignment();
    void connectionLocatorWithoutConnectionIsAtOrigin();
    void connectionLocatorForgetsADeletedConnection();
    void connectionLocatorReferencePointIsAbsolute();
    void arrowLocatorTurnsMiddleIntoSource();
    void arrowLocatorPlacesAndTurnsAtTheEnds_data();
    void arrowLocatorPlacesAndTurnsAtTheEnds();
    void arrowLocatorWithForcedMiddleOnlyMoves();
    void arrowLocatorOnOnePointMovesAndWarns();
    void arrowLocatorOnOnePointKeepsTheRotation();
    void arrowLocatorWarnsWithoutDecorationOrConnection();
    void midpointLocatorHalvesItsSegment();
    void midpointLocatorAcceptsTheLastIndex();
    void midpointLocatorTakesThePointPastTheEndAsRelative();
    void midpointLocatorWarnsOutOfBound();
    void bendpointLocatorTakesItsPoint();
    void bendpointLocatorAcceptsNegativeIndexSilently();
    void bendpointLocatorTakesTheNegativeIndexAsRelative();
    void bendpointLocatorWarnsOutOfBound();
    void connectionThatIsNoObjectIsTrusted();
    void connectionThatIsNoObjectCarriesArrows();
};

void tst_ConnectionLocators::connectionLocatorPicksByAlignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QList<QPoint>>("points");
    QTest::addColumn<QPoint>("location");
    const QList<QPoint> three {QPoint(0, 0), QPoint(7, 9), QPoint(20, 20)};
    const QList<QPoint> four {QPoint(0, 0), QPoint(10, 10), QPoint(5, 25), QPoint(40, 40)};
    QTest::newRow("middle of none") << 0 << QList<QPoint>() << QPoint(0, 0);
    QTest::newRow("middle of three") << 0 << three << QPoint(7, 9);
    QTest::newRow("middle of four, truncated toward zero") << 0 << four << QPoint(8, 17);
    QTest::newRow("source") << 1 << four << QPoint(0, 0);
    QTest::newRow("target") << 2 << four << QPoint(40, 40);
    QTest::newRow("any other") << 3 << four << QPoint(0, 0);
    QTest::newRow("source of none") << 1 << QList<QPoint>() << QPoint(0, 0);
    QTest::newRow("target of none") << 2 << QList<QPoint>() << QPoint(0, 0);
}

void tst_ConnectionLocators::connectionLocatorPicksByAlignment()
{
    QFETCH(int, alignment);
    QFETCH(QList<QPoint>, points);
    OpenConnectionLocator locator(nullptr);
    locator.setAlignment(static_cast<ConnectionLocator::Alignment>(alignment));
    QTEST(locator.getLocation(points), "location");
}

void tst_ConnectionLocators::connectionLocatorIndexFollowsAlignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::newRow("middle of five") << 0 << 5 << 2;
    QTest::newRow("middle of four") << 0 << 4 << 1;
    QTest::newRow("middle of none") << 0 << 0 << -1;
    QTest::newRow("source") << 1 << 5 << 0;
    QTest::newRow("source of none") << 1 << 0 << 0;
    QTest::newRow("target") << 2 << 5 << 4;
    QTest::newRow("any other") << 3 << 5 << -1;
}

void tst_ConnectionLocators::connectionLocatorIndexFollowsAlignment()
{
    QFETCH(int, alignment);
    QFETCH(int, count);
    const ConnectionLocator locator(nullptr, static_cast<ConnectionLocator::Alignment>(alignment));
    QTEST(locator.getLocationIndex(count), "index");
}

void tst_ConnectionLocators::connectionLocatorWithoutConnectionIsAtOrigin()
{
    OpenConnectionLocator locator(nullptr);
    QCOMPARE(locator.getAlignment(), ConnectionLocator::MIDDLE);
    QCOMPARE(locator.getReferencePoint(), QPoint(0, 0));
}

void tst_ConnectionLocators::connectionLocatorForgetsADeletedConnection()
{
    auto connection = std::make_unique<PolylineConnection>();
    OpenConnectionLocator locator(connection.get());
    QCOMPARE(locator.getConnection(), static_cast<IConnection *>(connection.get()));
    connection.reset();
    QCOMPARE(locator.getConnection(), nullptr);
    QCOMPARE(locator.getReferencePoint(), QPoint(0, 0));
}

void tst_ConnectionLocators::connectionLocatorReferencePointIsAbsolute()
{
    RelativeParent parent;
    PolylineConnection connection;
    parent.container.add(&connection);
    connection.setPoints({QPoint(0, 0), QPoint(10, 20)});
    OpenConnectionLocator locator(nullptr, ConnectionLocator::TARGET);
    locator.setConnection(&connection);
    QCOMPARE(locator.getReferencePoint(), QPoint(110, 70));
    parent.container.remove(&connection);
}

void tst_ConnectionLocators::arrowLocatorTurnsMiddleIntoSource()
{
    PolylineConnection connection;
    QCOMPARE(ArrowLocator(&connection, ConnectionLocator::MIDDLE).getAlignment(), ConnectionLocator::SOURCE);
    QCOMPARE(ArrowLocator(&connection, ConnectionLocator::TARGET).getAlignment(), ConnectionLocator::TARGET);
}

void tst_ConnectionLocators::arrowLocatorPlacesAndTurnsAtTheEnds_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QList<QPoint>>("points");
    // The tip sits on the end, the 7 x 6 head lies towards the next point.
    QTest::newRow("source") << 1 << QList<QPoint> {QPoint(17, 17), QPoint(10, 20), QPoint(17, 23)};
    QTest::newRow("target") << 2 << QList<QPoint> {QPoint(47, 53), QPoint(50, 60), QPoint(53, 53)};
}

void tst_ConnectionLocators::arrowLocatorPlacesAndTurnsAtTheEnds()
{
    QFETCH(int, alignment);
    PolylineConnection connection;
    connection.setPoints({QPoint(10, 20), QPoint(50, 20), QPoint(50, 60)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, static_cast<ConnectionLocator::Alignment>(alignment));
    locator.relocate(&arrow);
    QTEST(arrow.getLinePoints(), "points");
}

void tst_ConnectionLocators::arrowLocatorWithForcedMiddleOnlyMoves()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(10, 20), QPoint(10, 60), QPoint(10, 90)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, ConnectionLocator::SOURCE);
    locator.setAlignment(ConnectionLocator::MIDDLE);
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(3, 63), QPoint(10, 60), QPoint(3, 57)}));
}

void tst_ConnectionLocators::arrowLocatorOnOnePointMovesAndWarns()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(30, 40)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, ConnectionLocator::SOURCE);
    expectWarning("ArrowLocator::relocate(): connection contains less than 2 points");
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(23, 43), QPoint(30, 40), QPoint(23, 37)}));
}

void tst_ConnectionLocators::arrowLocatorWarnsWithoutDecorationOrConnection()
{
    PolylineConnection connection;
    Figure plain;
    PolygonDecoration arrow;
    expectWarning("ArrowLocator::relocate(): no connection or target figure not a rotatable decoration");
    ArrowLocator(&connection, ConnectionLocator::SOURCE).relocate(&plain);
    expectWarning("ArrowLocator::relocate(): no connection or target figure not a rotatable decoration");
    ArrowLocator(nullptr, ConnectionLocator::SOURCE).relocate(&arrow);
    QCOMPARE(plain.getBounds(), QRect());
    QCOMPARE(arrow.getLinePoints().value(1), QPoint(0, 0));
}

void tst_ConnectionLocators::midpointLocatorHalvesItsSegment()
{
    RelativeParent parent;
    PolylineConnection connection;
    parent.container.add(&connection);
    connection.setPoints({QPoint(0, 0), QPoint(10, 10), QPoint(5, 25)});
    OpenMidpointLocator locator(&connection, 1);
    QCOMPARE(locator.getIndex(), 1);
    QCOMPARE(locator.getReferencePoint(), QPoint(108, 67));
    parent.container.remove(&connection);
}

void tst_ConnectionLocators::midpointLocatorAcceptsTheLastIndex()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(0, 0), QPoint(40, 20)});
    // The point past the end is (0, 0).
    QCOMPARE(OpenMidpointLocator(&connection, 1).getReferencePoint(), QPoint(20, 10));
}

void tst_ConnectionLocators::midpointLocatorWarnsOutOfBound()
{
    PolylineConnection connection;
    expectWarning("MidpointLocator::getReferencePoint(): index, 2, out-of-bound");
    QCOMPARE(OpenMidpointLocator(&connection, 2).getReferencePoint(), QPoint(0, 0));
    expectWarning("MidpointLocator::getReferencePoint(): index, 0, out-of-bound");
    QCOMPARE(OpenMidpointLocator(nullptr, 0).getReferencePoint(), QPoint(0, 0));
}

void tst_ConnectionLocators::bendpointLocatorTakesItsPoint()
{
    RelativeParent parent;
    PolylineConnection connection;
    parent.container.add(&connection);
    connection.setPoints({QPoint(0, 0), QPoint(10, 10), QPoint(5, 25)});
    OpenBendpointLocator locator(&connection, 2);
    QCOMPARE(locator.getIndex(), 2);
    QCOMPARE(locator.getReferencePoint(), QPoint(105, 75));
    parent.container.remove(&connection);
}

void tst_ConnectionLocators::bendpointLocatorAcceptsNegativeIndexSilently()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(9, 9), QPoint(40, 20)});
    QCOMPARE(OpenBendpointLocator(&connection, -1).getReferencePoint(), QPoint(0, 0));
}

void tst_ConnectionLocators::bendpointLocatorWarnsOutOfBound()
{
    PolylineConnection connection;
    expectWarning("BendpointLocator::getReferencePoint(): index, 2, out-of-bound");
    QCOMPARE(OpenBendpointLocator(&connection, 2).getReferencePoint(), QPoint(0, 0));
    expectWarning("BendpointLocator::getReferencePoint(): index, 0, out-of-bound");
    QCOMPARE(OpenBendpointLocator(nullptr, 0).getReferencePoint(), QPoint(0, 0));
}

void tst_ConnectionLocators::arrowLocatorOnOnePointKeepsTheRotation()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(30, 90), QPoint(30, 40)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, ConnectionLocator::TARGET);
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(33, 47), QPoint(30, 40), QPoint(27, 47)}));
    connection.setPoints({QPoint(80, 70)});
    expectWarning("ArrowLocator::relocate(): connection contains less than 2 points");
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(83, 77), QPoint(80, 70), QPoint(77, 77)}));
}

void tst_ConnectionLocators::midpointLocatorTakesThePointPastTheEndAsRelative()
{
    RelativeParent parent;
    PolylineConnection connection;
    parent.container.add(&connection);
    connection.setPoints({QPoint(0, 0), QPoint(40, 20)});
    // Half way from (140, 70) to the origin of the container.
    QCOMPARE(OpenMidpointLocator(&connection, 1).getReferencePoint(), QPoint(120, 60));
    parent.container.remove(&connection);
}

void tst_ConnectionLocators::bendpointLocatorTakesTheNegativeIndexAsRelative()
{
    RelativeParent parent;
    PolylineConnection connection;
    parent.container.add(&connection);
    connection.setPoints({QPoint(9, 9), QPoint(40, 20)});
    QCOMPARE(OpenBendpointLocator(&connection, -1).getReferencePoint(), QPoint(100, 50));
    parent.container.remove(&connection);
}

void tst_ConnectionLocators::connectionThatIsNoObjectIsTrusted()
{
    PlainConnection connection({QPoint(10, 20), QPoint(50, 20), QPoint(50, 80)});
    OpenConnectionLocator locator(&connection, ConnectionLocator::TARGET);
    QCOMPARE(locator.getConnection(), static_cast<IConnection *>(&connection));
    QCOMPARE(locator.getReferencePoint(), QPoint(50, 80));
    QCOMPARE(OpenMidpointLocator(&connection, 1).getReferencePoint(), QPoint(50, 50));
    QCOMPARE(OpenBendpointLocator(&connection, 1).getReferencePoint(), QPoint(50, 20));
    locator.setConnection(nullptr);
    QCOMPARE(locator.getConnection(), nullptr);
}

void tst_ConnectionLocators::connectionThatIsNoObjectCarriesArrows()
{
    PlainConnection connection({QPoint(10, 20), QPoint(50, 20), QPoint(50, 60)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, ConnectionLocator::TARGET);
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(47, 53), QPoint(50, 60), QPoint(53, 53)}));
}

PICTEL_TEST_MAIN(tst_ConnectionLocators)
#include "tst_connectionlocators.moc"
