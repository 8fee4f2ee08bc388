#include "support/TestMain.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/connections/PolylineFConnection.h>
#include <vtlpictel/connections/XYAnchor.h>
#include <vtlpictel/figure/ArrowLocator.h>
#include <vtlpictel/figure/BendpointLocator.h>
#include <vtlpictel/figure/ConnectionEndpointLocator.h>
#include <vtlpictel/figure/GeometryUtils.h>
#include <vtlpictel/figure/MidpointLocator.h>
#include <vtlpictel/figure/RelativeLocator.h>
#include <vtlpictel/layout/XYLayout.h>
#include <vtlpictel/shapes/PolygonDecoration.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

/// A locator with a reference point of its own.
class PointLocator : public Locator
{
public:
    using Locator::Locator;
    QPoint point;

protected:
    QPoint getReferencePoint() override { return point; }
};

class OpenConnectionLocator : public ConnectionLocator
{
public:
    using ConnectionLocator::ConnectionLocator;
    using ConnectionLocator::getConnection;
    using ConnectionLocator::getLocation;
    using ConnectionLocator::getReferencePoint;
    using ConnectionLocator::setConnection;
};

class OpenMidpointLocator : public MidpointLocator
{
public:
    using MidpointLocator::getReferencePoint;
    using MidpointLocator::MidpointLocator;
};

class OpenBendpointLocator : public BendpointLocator
{
public:
    using BendpointLocator::BendpointLocator;
    using BendpointLocator::getReferencePoint;
};

class OpenRelativeLocator : public RelativeLocator
{
public:
    using RelativeLocator::getReferenceBox;
    using RelativeLocator::getReferenceFigure;
    using RelativeLocator::RelativeLocator;
};

std::unique_ptr<Figure> figureOfSize(const QSize &size)
{
    auto figure = std::make_unique<Figure>();
    figure->setPreferredSize(size);
    return figure;
}

/// A container at (100, 50) whose children are relative to it.
struct RelativeParent
{
    RelativeParent()
    {
        container.setLayoutManager(&layout);
        container.setBounds(QRect(100, 50, 400, 400));
    }

    Figure container;
    XYLayout layout {nullptr};
};

} // namespace

class tst_Locators : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void locatorStartsWithoutGapAndCentred();
    void locatorPlacesByRelativePosition_data();
    void locatorPlacesByRelativePosition();
    void locatorTakesTheReferencePointAsAbsolute();
    void locatorsLeaveNullAndHiddenFiguresAlone();
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
    void arrowLocatorWarnsWithoutDecorationOrConnection();
    void midpointLocatorHalvesItsSegment();
    void midpointLocatorAcceptsTheLastIndex();
    void midpointLocatorWarnsOutOfBound();
    void bendpointLocatorTakesItsPoint();
    void bendpointLocatorAcceptsNegativeIndexSilently();
    void bendpointLocatorWarnsOutOfBound();
    void relativeLocatorReadsPositionCodes_data();
    void relativeLocatorReadsPositionCodes();
    void relativeLocatorPlacesInFractionsOfTheBox_data();
    void relativeLocatorPlacesInFractionsOfTheBox();
    void relativeLocatorCrossesCoordinateSystems();
    void relativeLocatorWithoutReferenceDoesNothing();
    void endpointLocatorStartsWithItsDistances();
    void endpointLocatorPlacesBesideTheLine_data();
    void endpointLocatorPlacesBesideTheLine();
    void endpointLocatorTakesTheSideOfTheOwner_data();
    void endpointLocatorTakesTheSideOfTheOwner();
    void endpointLocatorNeedsTwoPoints();
    void endpointLocatorForgetsADeletedConnection();
    void locatorsAreFoundByInterface();
};

void tst_Locators::locatorStartsWithoutGapAndCentred()
{
    const PointLocator locator;
    QCOMPARE(locator.getGap(), 0);
    QCOMPARE(locator.getRelativePosition(), 2);
}

void tst_Locators::locatorPlacesByRelativePosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QPoint>("topLeft");
    // Size 21 x 11 at (100, 200) with gap 3: half sizes 10 and 5.
    QTest::newRow("centred") << 2 << QPoint(90, 195);
    QTest::newRow("north") << POSITION_NORTH << QPoint(90, 187);
    QTest::newRow("south") << POSITION_SOUTH << QPoint(90, 203);
    QTest::newRow("west") << POSITION_WEST << QPoint(77, 195);
    QTest::newRow("east") << POSITION_EAST << QPoint(103, 195);
    QTest::newRow("north west") << (POSITION_NORTH | POSITION_WEST) << QPoint(77, 187);
    QTest::newRow("west wins over east") << (POSITION_WEST | POSITION_EAST) << QPoint(77, 195);
    QTest::newRow("north wins over south") << (POSITION_NORTH | POSITION_SOUTH) << QPoint(90, 187);
}

void tst_Locators::locatorPlacesByRelativePosition()
{
    QFETCH(int, position);
    PointLocator locator;
    locator.point = QPoint(100, 200);
    locator.setGap(3);
    locator.setRelativePosition(position);
    const auto figure = figureOfSize(QSize(21, 11));
    locator.relocate(figure.get());
    QTEST(figure->getBounds().topLeft(), "topLeft");
    QCOMPARE(figure->getBounds().size(), QSize(21, 11));
}

void tst_Locators::locatorTakesTheReferencePointAsAbsolute()
{
    RelativeParent parent;
    const auto figure = figureOfSize(QSize(10, 10));
    parent.container.add(figure.get());
    PointLocator locator;
    locator.point = QPoint(150, 90);
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(45, 35, 10, 10));
    parent.container.remove(figure.get());
}

void tst_Locators::locatorsLeaveNullAndHiddenFiguresAlone()
{
    PolylineConnection connection;
    Figure reference;
    reference.setBounds(QRect(0, 0, 10, 10));
    PointLocator point;
    ArrowLocator arrow(&connection, ConnectionLocator::SOURCE);
    RelativeLocator relative(&reference, POSITION_EAST);
    ConnectionEndpointLocator endpoint(&connection, true);
    const auto hidden = figureOfSize(QSize(10, 10));
    hidden->setVisible(false);
    for (ILocator *locator : QList<ILocator *> {&point, &arrow, &relative, &endpoint}) {
        locator->relocate(nullptr);
        locator->relocate(hidden.get());
    }
    QCOMPARE(hidden->getBounds(), QRect());
}

void tst_Locators::connectionLocatorPicksByAlignment_data()
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

void tst_Locators::connectionLocatorPicksByAlignment()
{
    QFETCH(int, alignment);
    QFETCH(QList<QPoint>, points);
    OpenConnectionLocator locator(nullptr);
    locator.setAlignment(static_cast<ConnectionLocator::Alignment>(alignment));
    QTEST(locator.getLocation(points), "location");
}

void tst_Locators::connectionLocatorIndexFollowsAlignment_data()
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

void tst_Locators::connectionLocatorIndexFollowsAlignment()
{
    QFETCH(int, alignment);
    QFETCH(int, count);
    const ConnectionLocator locator(nullptr, static_cast<ConnectionLocator::Alignment>(alignment));
    QTEST(locator.getLocationIndex(count), "index");
}

void tst_Locators::connectionLocatorWithoutConnectionIsAtOrigin()
{
    OpenConnectionLocator locator(nullptr);
    QCOMPARE(locator.getAlignment(), ConnectionLocator::MIDDLE);
    QCOMPARE(locator.getReferencePoint(), QPoint(0, 0));
}

void tst_Locators::connectionLocatorForgetsADeletedConnection()
{
    auto connection = std::make_unique<PolylineConnection>();
    OpenConnectionLocator locator(connection.get());
    QCOMPARE(locator.getConnection(), static_cast<IConnection *>(connection.get()));
    connection.reset();
    QCOMPARE(locator.getConnection(), nullptr);
    QCOMPARE(locator.getReferencePoint(), QPoint(0, 0));
}

void tst_Locators::connectionLocatorReferencePointIsAbsolute()
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

void tst_Locators::arrowLocatorTurnsMiddleIntoSource()
{
    PolylineConnection connection;
    QCOMPARE(ArrowLocator(&connection, ConnectionLocator::MIDDLE).getAlignment(), ConnectionLocator::SOURCE);
    QCOMPARE(ArrowLocator(&connection, ConnectionLocator::TARGET).getAlignment(), ConnectionLocator::TARGET);
}

void tst_Locators::arrowLocatorPlacesAndTurnsAtTheEnds_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QList<QPoint>>("points");
    // The tip sits on the end, the 7 x 6 head lies towards the next point.
    QTest::newRow("source") << 1 << QList<QPoint> {QPoint(17, 17), QPoint(10, 20), QPoint(17, 23)};
    QTest::newRow("target") << 2 << QList<QPoint> {QPoint(47, 53), QPoint(50, 60), QPoint(53, 53)};
}

void tst_Locators::arrowLocatorPlacesAndTurnsAtTheEnds()
{
    QFETCH(int, alignment);
    PolylineConnection connection;
    connection.setPoints({QPoint(10, 20), QPoint(50, 20), QPoint(50, 60)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, static_cast<ConnectionLocator::Alignment>(alignment));
    locator.relocate(&arrow);
    QTEST(arrow.getLinePoints(), "points");
}

void tst_Locators::arrowLocatorWithForcedMiddleOnlyMoves()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(10, 20), QPoint(10, 60), QPoint(10, 90)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, ConnectionLocator::SOURCE);
    locator.setAlignment(ConnectionLocator::MIDDLE);
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(3, 63), QPoint(10, 60), QPoint(3, 57)}));
}

void tst_Locators::arrowLocatorOnOnePointMovesAndWarns()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(30, 40)});
    PolygonDecoration arrow;
    ArrowLocator locator(&connection, ConnectionLocator::SOURCE);
    expectWarning("ArrowLocator::relocate(): connection contains less than 2 points");
    locator.relocate(&arrow);
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(23, 43), QPoint(30, 40), QPoint(23, 37)}));
}

void tst_Locators::arrowLocatorWarnsWithoutDecorationOrConnection()
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

void tst_Locators::midpointLocatorHalvesItsSegment()
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

void tst_Locators::midpointLocatorAcceptsTheLastIndex()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(0, 0), QPoint(40, 20)});
    // The point past the end is (0, 0).
    QCOMPARE(OpenMidpointLocator(&connection, 1).getReferencePoint(), QPoint(20, 10));
}

void tst_Locators::midpointLocatorWarnsOutOfBound()
{
    PolylineConnection connection;
    expectWarning("MidpointLocator::getReferencePoint(): index, 2, out-of-bound");
    QCOMPARE(OpenMidpointLocator(&connection, 2).getReferencePoint(), QPoint(0, 0));
    expectWarning("MidpointLocator::getReferencePoint(): index, 0, out-of-bound");
    QCOMPARE(OpenMidpointLocator(nullptr, 0).getReferencePoint(), QPoint(0, 0));
}

void tst_Locators::bendpointLocatorTakesItsPoint()
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

void tst_Locators::bendpointLocatorAcceptsNegativeIndexSilently()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(9, 9), QPoint(40, 20)});
    QCOMPARE(OpenBendpointLocator(&connection, -1).getReferencePoint(), QPoint(0, 0));
}

void tst_Locators::bendpointLocatorWarnsOutOfBound()
{
    PolylineConnection connection;
    expectWarning("BendpointLocator::getReferencePoint(): index, 2, out-of-bound");
    QCOMPARE(OpenBendpointLocator(&connection, 2).getReferencePoint(), QPoint(0, 0));
    expectWarning("BendpointLocator::getReferencePoint(): index, 0, out-of-bound");
    QCOMPARE(OpenBendpointLocator(nullptr, 0).getReferencePoint(), QPoint(0, 0));
}

void tst_Locators::relativeLocatorReadsPositionCodes_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("none") << 0 << 0.5 << 0.5;
    QTest::newRow("north") << 1 << 0.5 << 0.0;
    QTest::newRow("south") << 4 << 0.5 << 1.0;
    QTest::newRow("west") << 8 << 0.0 << 0.5;
    QTest::newRow("east") << 16 << 1.0 << 0.5;
    QTest::newRow("south east") << 20 << 1.0 << 1.0;
    QTest::newRow("contradictions") << 29 << 0.5 << 0.5;
}

void tst_Locators::relativeLocatorReadsPositionCodes()
{
    QFETCH(int, position);
    const RelativeLocator locator(nullptr, position);
    QTEST(locator.relativeX(), "x");
    QTEST(locator.relativeY(), "y");
    RelativeLocator moved(nullptr, 0.25, 0.75);
    moved.setLocation(position);
    QTEST(moved.relativeX(), "x");
    QTEST(moved.relativeY(), "y");
}

void tst_Locators::relativeLocatorPlacesInFractionsOfTheBox_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<QRect>("bounds");
    // A figure of 5 x 4 at a box of 100 x 40 whose top-left is (10, 20): half sizes, rounded up, are 3 and 2.
    QTest::newRow("top left") << 0.0 << 0.0 << QRect(7, 18, 5, 4);
    QTest::newRow("centre") << 0.5 << 0.5 << QRect(57, 38, 5, 4);
    QTest::newRow("bottom right") << 1.0 << 1.0 << QRect(107, 58, 5, 4);
    QTest::newRow("truncated toward zero") << 0.026 << 0.04 << QRect(10, 20, 5, 4);
    QTest::newRow("not a number stays at the box") << qQNaN() << qQNaN() << QRect(10, 20, 5, 4);
}

void tst_Locators::relativeLocatorPlacesInFractionsOfTheBox()
{
    QFETCH(double, x);
    QFETCH(double, y);
    Figure reference;
    reference.setBounds(QRect(10, 20, 100, 40));
    const auto figure = figureOfSize(QSize(5, 4));
    RelativeLocator(&reference, x, y).relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_Locators::relativeLocatorCrossesCoordinateSystems()
{
    RelativeParent there;
    Figure reference;
    there.container.add(&reference, QRect(10, 20, 100, 40));
    RelativeParent here;
    here.container.setBounds(QRect(5, 5, 400, 400));
    const auto figure = figureOfSize(QSize(4, 4));
    here.container.add(figure.get());
    RelativeLocator(&reference, POSITION_EAST | POSITION_SOUTH).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(203, 103, 4, 4));
    here.container.remove(figure.get());
    there.container.remove(&reference);
}

void tst_Locators::relativeLocatorWithoutReferenceDoesNothing()
{
    auto reference = std::make_unique<Figure>();
    reference->setBounds(QRect(0, 0, 10, 10));
    OpenRelativeLocator locator(reference.get(), 0);
    QCOMPARE(locator.getReferenceFigure(), reference.get());
    QCOMPARE(locator.getReferenceBox(), QRect(0, 0, 10, 10));
    reference.reset();
    QCOMPARE(locator.getReferenceFigure(), nullptr);
    QCOMPARE(locator.getReferenceBox(), QRect());
    const auto figure = figureOfSize(QSize(4, 4));
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect());
    Figure other;
    other.setBounds(QRect(100, 100, 10, 10));
    locator.setReferenceFigure(&other);
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(103, 103, 4, 4));
}

void tst_Locators::endpointLocatorStartsWithItsDistances()
{
    PolylineConnection connection;
    ConnectionEndpointLocator locator(&connection, true);
    QCOMPARE(locator.getUDistance(), 14);
    QCOMPARE(locator.getVDistance(), 4);
    QCOMPARE(locator.isEnd(), true);
    QCOMPARE(ConnectionEndpointLocator(&connection, false).isEnd(), false);
    QCOMPARE(locator.getConnection(), static_cast<IConnection *>(&connection));
}

void tst_Locators::endpointLocatorPlacesBesideTheLine_data()
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

void tst_Locators::endpointLocatorPlacesBesideTheLine()
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

void tst_Locators::endpointLocatorTakesTheSideOfTheOwner_data()
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

void tst_Locators::endpointLocatorTakesTheSideOfTheOwner()
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

void tst_Locators::endpointLocatorNeedsTwoPoints()
{
    PolylineConnection connection;
    connection.setPoints({QPoint(5, 5)});
    const auto figure = figureOfSize(QSize(20, 10));
    ConnectionEndpointLocator(&connection, false).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect());
}

void tst_Locators::endpointLocatorForgetsADeletedConnection()
{
    auto connection = std::make_unique<PolylineFConnection>();
    ConnectionEndpointLocator locator(connection.get(), false);
    connection.reset();
    QCOMPARE(locator.getConnection(), nullptr);
    const auto figure = figureOfSize(QSize(20, 10));
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect());
}

void tst_Locators::locatorsAreFoundByInterface()
{
    RelativeLocator relative(nullptr, 0);
    ConnectionEndpointLocator endpoint(nullptr, true);
    ArrowLocator arrow(nullptr, ConnectionLocator::TARGET);
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&relative)), static_cast<ILocator *>(&relative));
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&endpoint)), static_cast<ILocator *>(&endpoint));
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&arrow)), static_cast<ILocator *>(&arrow));
    QCOMPARE(qobject_interface_iid<ILocator *>(), "ILocator.Pictel.Vantrel.vantrel.org");
}

PICTEL_TEST_MAIN(tst_Locators)
#include "tst_locators.moc"
