#include "connections/LocatorProbes.h"
#include "connections/PlainConnection.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/connections/PolylineFConnection.h>
#include <vtlpictel/figure/ConnectionEndpointLocator.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_EndpointLocator : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsDistances();
    void placesBesideTheLine_data();
    void placesBesideTheLine();
    void takesTheSideOfTheOwner_data();
    void takesTheSideOfTheOwner();
    void distanceRunsAlongTheLine_data();
    void distanceRunsAlongTheLine();
    void slopeIsCutOffAtADiagonal_data();
    void slopeIsCutOffAtADiagonal();
    void targetEndTakesTheSideOfItsOwnOwner_data();
    void targetEndTakesTheSideOfItsOwnOwner();
    void ownerAndConnectionMayLieInDifferentParents_data();
    void ownerAndConnectionMayLieInDifferentParents();
    void connectionThatIsNoObjectIsTrusted();
    void needsTwoPoints();
    void forgetsADeletedConnection();
};

void tst_EndpointLocator::startsWithItsDistances()
{
    PolylineConnection connection;
    ConnectionEndpointLocator locator(&connection, true);
    QCOMPARE(locator.getUDistance(), 14);
    QCOMPARE(locator.getVDistance(), 4);
    QCOMPARE(locator.isEnd(), true);
    QCOMPARE(ConnectionEndpointLocator(&connection, false).isEnd(), false);
    QCOMPARE(locator.getConnection(), static_cast<IConnection *>(&connection));
}

void tst_EndpointLocator::placesBesideTheLine_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::addColumn<bool>("isEnd");
    QTest::addColumn<int>("vDistance");
    QTest::addColumn<QRect>("bounds");
    const QList<QPoint> right {QPoint(0, 0), QPoint(100, 0)};
    const QList<QPoint> down {QPoint(0, 0), QPoint(0, 100)};
    const QList<QPoint> slanted {QPoint(0, 0), QPoint(100, 50)};
    QTest::newRow("to the right") << right << false << 4 << QRect(14, 4, 20, 10);
    QTest::newRow("to the right, on the line") << right << false << 0 << QRect(14, -5, 20, 10);
    QTest::newRow("to the right, above") << right << false << -4 << QRect(14, -14, 20, 10);
    QTest::newRow("to the left") << right << true << 4 << QRect(66, 4, 20, 10);
    QTest::newRow("down") << down << false << 4 << QRect(4, 14, 20, 10);
    QTest::newRow("up") << down << true << 4 << QRect(4, 76, 20, 10);
    QTest::newRow("along a slope") << slanted << false << 4 << QRect(14, 11, 20, 10);
    QTest::newRow("a point counts as upwards")
        << QList<QPoint> {QPoint(7, 7), QPoint(7, 7)} << false << 4 << QRect(-3, -17, 20, 10);
}

void tst_EndpointLocator::placesBesideTheLine()
{
    QFETCH(QList<QPoint>, points);
    QFETCH(bool, isEnd);
    QFETCH(int, vDistance);
    PolylineConnection connection;
    connection.setPoints(points);
    ConnectionEndpointLocator locator(&connection, isEnd);
    locator.setVDistance(vDistance);
    const auto figure = figureOfSize(QSize(20, 10));
    locator.relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_EndpointLocator::takesTheSideOfTheOwner_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QRect>("bounds");
    // The owner is 101 x 51 at (0, 0), its centre (50, 25); the line always leads to (500, 26), far to the right.
    QTest::newRow("right side") << QPoint(101, 25) << QRect(115, 29, 20, 10);
    QTest::newRow("left side") << QPoint(-1, 25) << QRect(-35, 28, 20, 10);
    QTest::newRow("above the centre") << QPoint(50, -1) << QRect(40, -25, 20, 10);
    QTest::newRow("below the centre") << QPoint(50, 51) << QRect(40, 65, 20, 10);
    QTest::newRow("above, off the centre") << QPoint(60, -1) << QRect(50, -25, 20, 10);
    QTest::newRow("below, off the centre") << QPoint(40, 51) << QRect(30, 65, 20, 10);
    QTest::newRow("on the diagonal counts as the side") << QPoint(100, 50) << QRect(114, 53, 20, 10);
}

void tst_EndpointLocator::takesTheSideOfTheOwner()
{
    QFETCH(QPoint, start);
    Figure owner;
    owner.setBounds(QRect(0, 0, 101, 51));
    ChopboxAnchor anchor(&owner);
    PolylineConnection connection;
    connection.setSourceAnchor(&anchor);
    connection.setPoints({start, QPoint(500, 26)});
    ConnectionEndpointLocator locator(&connection, false);
    const auto figure = figureOfSize(QSize(20, 10));
    locator.relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_EndpointLocator::distanceRunsAlongTheLine_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::addColumn<bool>("isEnd");
    QTest::addColumn<int>("uDistance");
    QTest::addColumn<QRect>("bounds");
    const QList<QPoint> right {QPoint(0, 0), QPoint(100, 0)};
    const QList<QPoint> down {QPoint(0, 0), QPoint(0, 100)};
    const QList<QPoint> slanted {QPoint(0, 0), QPoint(100, 50)};
    QTest::newRow("farther to the right") << right << false << 30 << QRect(30, 4, 20, 10);
    QTest::newRow("at the end") << right << false << 0 << QRect(0, 4, 20, 10);
    QTest::newRow("behind the start") << right << false << -5 << QRect(-5, 4, 20, 10);
    QTest::newRow("farther to the left") << right << true << 30 << QRect(50, 4, 20, 10);
    QTest::newRow("behind the end") << right << true << -5 << QRect(85, 4, 20, 10);
    QTest::newRow("farther down") << down << false << 30 << QRect(4, 30, 20, 10);
    QTest::newRow("behind, upwards") << down << true << -5 << QRect(4, 95, 20, 10);
    QTest::newRow("farther along a slope") << slanted << false << 30 << QRect(30, 19, 20, 10);
    QTest::newRow("behind along a slope") << slanted << false << -5 << QRect(-5, 1, 20, 10);
    QTest::newRow("truncated toward zero") << slanted << false << -21 << QRect(-21, -6, 20, 10);
}

void tst_EndpointLocator::distanceRunsAlongTheLine()
{
    QFETCH(QList<QPoint>, points);
    QFETCH(bool, isEnd);
    QFETCH(int, uDistance);
    PolylineConnection connection;
    connection.setPoints(points);
    ConnectionEndpointLocator locator(&connection, isEnd);
    locator.setUDistance(uDistance);
    QCOMPARE(locator.getUDistance(), uDistance);
    const auto figure = figureOfSize(QSize(20, 10));
    locator.relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_EndpointLocator::slopeIsCutOffAtADiagonal_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<int>("top");
    // The line leaves the right side of the owner at (101, 25); the label lies 14 pixels beside it.
    QTest::newRow("steeply up") << QPoint(111, -500) << 15;
    QTest::newRow("a diagonal up") << QPoint(111, 15) << 15;
    QTest::newRow("less than a diagonal up") << QPoint(121, 15) << 22;
    QTest::newRow("steeply down") << QPoint(111, 500) << 43;
    QTest::newRow("straight up counts as a diagonal down") << QPoint(101, -500) << 43;
    QTest::newRow("back and down is a slope up") << QPoint(91, 500) << 15;
}

void tst_EndpointLocator::slopeIsCutOffAtADiagonal()
{
    QFETCH(QPoint, reference);
    QFETCH(int, top);
    Figure owner;
    owner.setBounds(QRect(0, 0, 101, 51));
    ChopboxAnchor anchor(&owner);
    PolylineConnection connection;
    connection.setSourceAnchor(&anchor);
    connection.setPoints({QPoint(101, 25), reference});
    const auto figure = figureOfSize(QSize(20, 10));
    ConnectionEndpointLocator(&connection, false).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(115, top, 20, 10));
}

void tst_EndpointLocator::targetEndTakesTheSideOfItsOwnOwner_data()
{
    takesTheSideOfTheOwner_data();
}

void tst_EndpointLocator::targetEndTakesTheSideOfItsOwnOwner()
{
    QFETCH(QPoint, start);
    Figure sourceOwner;
    Figure targetOwner;
    sourceOwner.setBounds(QRect(500, 500, 10, 10));
    targetOwner.setBounds(QRect(0, 0, 101, 51));
    ChopboxAnchor sourceAnchor(&sourceOwner);
    ChopboxAnchor targetAnchor(&targetOwner);
    PolylineConnection connection;
    connection.setSourceAnchor(&sourceAnchor);
    connection.setTargetAnchor(&targetAnchor);
    connection.setPoints({QPoint(-900, -900), QPoint(500, 26), start});
    const auto figure = figureOfSize(QSize(20, 10));
    ConnectionEndpointLocator(&connection, true).relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_EndpointLocator::ownerAndConnectionMayLieInDifferentParents_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QRect>("bounds");
    // The owner is 101 x 51 at (100, 50) absolute, thus at (70, 30) for the connection, its centre (120, 55).
    QTest::newRow("right side") << QPoint(171, 55) << QRect(185, 59, 20, 10);
    QTest::newRow("left side") << QPoint(69, 55) << QRect(35, 58, 20, 10);
    QTest::newRow("above the centre") << QPoint(120, 29) << QRect(110, 5, 20, 10);
    QTest::newRow("below the centre") << QPoint(120, 81) << QRect(110, 95, 20, 10);
}

void tst_EndpointLocator::ownerAndConnectionMayLieInDifferentParents()
{
    QFETCH(QPoint, start);
    RelativeParent there;
    Figure owner;
    there.container.add(&owner, QRect(0, 0, 101, 51));
    RelativeParent here;
    here.container.setBounds(QRect(30, 20, 400, 400));
    ChopboxAnchor anchor(&owner);
    PolylineConnection connection;
    here.container.add(&connection);
    connection.setSourceAnchor(&anchor);
    connection.setPoints({start, QPoint(570, 56)});
    const auto figure = figureOfSize(QSize(20, 10));
    ConnectionEndpointLocator(&connection, false).relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
    here.container.remove(&connection);
    there.container.remove(&owner);
}

void tst_EndpointLocator::connectionThatIsNoObjectIsTrusted()
{
    PlainConnection connection({QPoint(0, 0), QPoint(100, 0)});
    ConnectionEndpointLocator locator(&connection, true);
    QCOMPARE(locator.getConnection(), static_cast<IConnection *>(&connection));
    const auto figure = figureOfSize(QSize(20, 10));
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(66, 4, 20, 10));
}

void tst_EndpointLocator::needsTwoPoints()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(5, 5)});
    const auto figure = figureOfSize(QSize(20, 10));
    ConnectionEndpointLocator(&connection, false).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect());
}

void tst_EndpointLocator::forgetsADeletedConnection()
{
    auto connection = std::make_unique<PolylineFConnection>();
    ConnectionEndpointLocator locator(connection.get(), false);
    connection.reset();
    QCOMPARE(locator.getConnection(), nullptr);
    const auto figure = figureOfSize(QSize(20, 10));
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect());
}

PICTEL_TEST_MAIN(tst_EndpointLocator)
#include "tst_endpointlocator.moc"
