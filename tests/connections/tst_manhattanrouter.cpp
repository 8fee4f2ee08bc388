#include "support/TestMain.h"

#include "FigureNest.h"
#include "OpenManhattanRouter.h"
#include "StubAnchor.h"
#include "StubConnection.h"

#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/XYAnchor.h>

#include <QTest>

#include <limits>
#include <memory>
#include <new>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

using Points = QList<QPoint>;

/// A router that finds only the lines usable that it is told of, and notes which it was asked for.
class PickyRouter : public OpenManhattanRouter
{
public:
    QList<int> usable;
    mutable QList<int> askedRows;
    mutable QList<int> askedColumns;

protected:
    bool rowUsable(IConnection *, int row) const override
    {
        askedRows.append(row);
        return usable.contains(row);
    }
    bool colUsable(IConnection *, int column) const override
    {
        askedColumns.append(column);
        return usable.contains(column);
    }
};

/// A router that notes the order in which its operations are called, and can set both directions.
class LoggingRouter : public ManhattanConnectionRouter
{
public:
    QStringList log;

protected:
    Ray getEndDirection(IConnection *connection) override
    {
        log.append(QStringLiteral("end direction"));
        return ManhattanConnectionRouter::getEndDirection(connection);
    }
    Ray getStartDirection(IConnection *connection) override
    {
        log.append(QStringLiteral("start direction"));
        return ManhattanConnectionRouter::getStartDirection(connection);
    }
    Ray getDirection(const QRect &box, const QPoint &point, bool inward) override
    {
        log.append(inward ? QStringLiteral("inward") : QStringLiteral("outward"));
        return ManhattanConnectionRouter::getDirection(box, point, inward);
    }
    QPoint getEndPoint(IConnection *connection) override
    {
        log.append(QStringLiteral("end point"));
        return ManhattanConnectionRouter::getEndPoint(connection);
    }
    QPoint getStartPoint(IConnection *connection) override
    {
        log.append(QStringLiteral("start point"));
        return ManhattanConnectionRouter::getStartPoint(connection);
    }
};

/// A figure with a connection end on it: at \a place, on the side of \a bounds nearest to it.
struct End
{
    End(const QRect &bounds, const QPoint &place)
        : anchor(place, place, &figure)
    {
        figure.setBounds(bounds);
    }

    Figure figure;
    StubAnchor anchor;
};

/// A connection between two boxes of 20 x 20, each given by its centre and the direction of the side on it.
struct Link
{
    Link(const QPoint &from, const QPoint &fromSide, const QPoint &to, const QPoint &toSide)
        : source(box(from), from + fromSide * 10)
        , target(box(to), to + toSide * 10)
        , connection(&source.anchor, &target.anchor)
    { }

    // QRect::right() is one less than the edge; the box is such that the side's middle is nearest to that side.
    static QRect box(const QPoint &center) { return {center - QPoint(10, 10), QSize(21, 21)}; }

    End source;
    End target;
    StubConnection connection;
};

const QPoint up(0, -1);
const QPoint down(0, 1);
const QPoint left(-1, 0);
const QPoint right(1, 0);

/// The one inner line of a route that wants \a wanted where its neighbours are at \a a and \a b.
int lineNear(OpenManhattanRouter &router, IConnection *connection, int wanted, int a, int b, bool row)
{
    if (row)
        return router.processPositions(Ray(0, a), Ray(9, b), {1, wanted, 8}, false, connection)[1].y();
    return router.processPositions(Ray(a, 0), Ray(b, 9), {1, wanted, 8}, true, connection)[1].x();
}

bool isUsable(const OpenManhattanRouter &router, int line, bool row)
{
    return row ? router.rowUsable(nullptr, line) : router.colUsable(nullptr, line);
}

bool isReserved(const OpenManhattanRouter &router, IConnection *connection, int line, bool row)
{
    return row ? router.isRowReservedBy(connection, line) : router.isColumnReservedBy(connection, line);
}

void reserve(OpenManhattanRouter &router, IConnection *connection, int line, bool row)
{
    if (row)
        router.reserveRow(connection, line);
    else
        router.reserveColumn(connection, line);
}

} // namespace

class tst_ManhattanRouter : public PictelTest
{
    Q_OBJECT

private:
    static void addRowAndColumn();

private Q_SLOTS:
    void directionsAreUnitVectors();
    void noConstraintIsKept();

    void directionIsThatOfTheNearestSide_data();
    void directionIsThatOfTheNearestSide();
    void directionsFollowTheOwnersAbsoluteBounds();
    void anchorWithoutOwnerFacesDown();
    void directionsOfANullConnectionFaceDown();

    void route_data();
    void route();
    void routeIsInTheConnectionsCoordinates();
    void endsAndDirectionsAreAskedForInOrder();
    void floatingPointRouteHasTheSamePoints();
    void connectionWithoutAnchorIsRefused();
    void nullConnectionIsIgnored();

    void positionsBecomePoints_data();
    void positionsBecomePoints();
    void innerLinesAreMovedAndOuterOnesAreNot();
    void newRouteFreesTheOldLinesFirst();
    void routeForNoConnectionReservesNothing();

    void innerLineIsReserved_data() { addRowAndColumn(); }
    void innerLineIsReserved();
    void oddLineBecomesEven_data() { addRowAndColumn(); }
    void oddLineBecomesEven();
    void lineThatIsNotPositiveStaysAndIsNotReserved_data() { addRowAndColumn(); }
    void lineThatIsNotPositiveStaysAndIsNotReserved();
    void candidatesAlternateAroundTheProposal_data() { addRowAndColumn(); }
    void candidatesAlternateAroundTheProposal();
    void firstUsableCandidateIsReserved_data() { addRowAndColumn(); }
    void firstUsableCandidateIsReserved();
    void searchEndsAtItsBounds_data();
    void searchEndsAtItsBounds();
    void limitsOfIntegersAreDefined_data() { addRowAndColumn(); }
    void limitsOfIntegersAreDefined();

    void reservedLineIsNotUsable_data() { addRowAndColumn(); }
    void reservedLineIsNotUsable();
    void rowsAndColumnsAreApart();
    void nullConnectionReservesNothing_data() { addRowAndColumn(); }
    void nullConnectionReservesNothing();
    void invalidateAndRemoveFreeTheLines_data() { addRowAndColumn(); }
    void invalidateAndRemoveFreeTheLines();
    void freedLineIsFreeForAll_data() { addRowAndColumn(); }
    void freedLineIsFreeForAll();

    void parallelRoutesLieTwoUnitsApart();
    void freedColumnIsTakenAgain();

    void deadConnectionFreesItsLines_data() { addRowAndColumn(); }
    void deadConnectionFreesItsLines();
    void newConnectionAtAnOldAddressHasNoLines();
    void removedConnectionDoesNotFreeLinesWhenItDies();
    void routerMayDieBeforeItsConnections();

    void manyConnectionsNeedFewLookups();
};

void tst_ManhattanRouter::addRowAndColumn()
{
    QTest::addColumn<bool>("row");
    QTest::newRow("row") << true;
    QTest::newRow("column") << false;
}

void tst_ManhattanRouter::directionsAreUnitVectors()
{
    QVERIFY(ManhattanConnectionRouter::UP == Ray(0, -1));
    QVERIFY(ManhattanConnectionRouter::DOWN == Ray(0, 1));
    QVERIFY(ManhattanConnectionRouter::LEFT == Ray(-1, 0));
    QVERIFY(ManhattanConnectionRouter::RIGHT == Ray(1, 0));
}

void tst_ManhattanRouter::noConstraintIsKept()
{
    QObject parent;
    auto *router = new ManhattanConnectionRouter(&parent);
    StubConnection connection;
    router->setConstraint(&connection, 1);
    QCOMPARE(router->getConstraint(&connection), QVariant());
    QCOMPARE(router->parent(), &parent);
}

// Directions

void tst_ManhattanRouter::directionIsThatOfTheNearestSide_data()
{
    QTest::addColumn<QRect>("box");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("direction");
    const QRect box(0, 0, 10, 10); // its last row and column are 9
    QTest::newRow("left") << box << QPoint(1, 5) << left;
    QTest::newRow("top") << box << QPoint(5, 1) << up;
    QTest::newRow("bottom") << box << QPoint(5, 8) << down;
    QTest::newRow("right") << box << QPoint(8, 5) << right;
    QTest::newRow("outside on the left") << box << QPoint(-3, 5) << left;
    QTest::newRow("outside on the right") << box << QPoint(12, 5) << right;
    QTest::newRow("top wins over left") << box << QPoint(2, 2) << up;
    QTest::newRow("bottom wins over left") << box << QPoint(2, 7) << down;
    QTest::newRow("top wins over right") << box << QPoint(7, 2) << up;
    QTest::newRow("bottom wins over right") << box << QPoint(8, 8) << down;
    QTest::newRow("bottom wins over top") << QRect(0, 0, 101, 11) << QPoint(50, 5) << down;
    QTest::newRow("left wins over right") << QRect(0, 0, 11, 101) << QPoint(5, 50) << left;
    QTest::newRow("bottom wins over all") << QRect(0, 0, 11, 11) << QPoint(5, 5) << down;
    QTest::newRow("farther than an int can hold")
        << QRect(QPoint(lowest, lowest), QPoint(lowest + 5, lowest + 1)) << QPoint(highest, highest) << right;
}

void tst_ManhattanRouter::directionIsThatOfTheNearestSide()
{
    QFETCH(QRect, box);
    QFETCH(QPoint, point);
    QFETCH(QPoint, direction);
    OpenManhattanRouter router;
    QVERIFY(router.getDirection(box, point, false) == Ray(direction));
    QVERIFY(router.getDirection(box, point, true) == Ray(-direction));
}

void tst_ManhattanRouter::directionsFollowTheOwnersAbsoluteBounds()
{
    OpenManhattanRouter router;
    FigureNest nest;
    Figure *parent = nest.addContainer(nullptr, QRect(100, 200, 500, 500), true);
    Figure *owner = nest.addFigure(parent, QRect(0, 0, 11, 11));
    StubAnchor source(QPoint(), QPoint(101, 205), owner);
    StubAnchor target(QPoint(), QPoint(105, 201), owner);
    StubConnection connection(&source, &target);
    QVERIFY(router.getStartDirection(&connection) == Ray(left));
    QVERIFY(router.getEndDirection(&connection) == Ray(up));
}

void tst_ManhattanRouter::anchorWithoutOwnerFacesDown()
{
    OpenManhattanRouter router;
    XYAnchor source(QPoint(10, 20));
    XYAnchor target(QPoint(lowest, lowest));
    StubConnection connection(&source, &target);
    QVERIFY(router.getStartDirection(&connection) == Ray(down));
    QVERIFY(router.getEndDirection(&connection) == Ray(down));
}

void tst_ManhattanRouter::directionsOfANullConnectionFaceDown()
{
    OpenManhattanRouter router;
    QVERIFY(router.getStartDirection(nullptr) == Ray(down));
    QVERIFY(router.getEndDirection(nullptr) == Ray(down));
}

// Routes

void tst_ManhattanRouter::route_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("fromSide");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QPoint>("toSide");
    QTest::addColumn<Points>("points");
    const QPoint a(100, 100);
    const QPoint b(300, 300);
    const QPoint c(300, 200);
    const QPoint d(200, 300);

    QTest::newRow("perpendicular, one corner, horizontal first")
        << a << right << b << up << Points {{110, 100}, {300, 100}, {300, 290}};
    QTest::newRow("perpendicular, one corner, vertical first")
        << a << down << b << left << Points {{100, 110}, {100, 300}, {290, 300}};
    QTest::newRow("perpendicular, start straight beside the end's column")
        << a << right << QPoint(110, 300) << up << Points {{110, 100}, {110, 100}, {110, 290}};
    QTest::newRow("perpendicular, end on the start's row is not repeated")
        << a << right << QPoint(300, 110) << up << Points {{110, 100}, {300, 100}};
    QTest::newRow("perpendicular, start leads away")
        << a << left << b << up << Points {{90, 100}, {80, 100}, {80, 194}, {300, 194}, {300, 290}};
    QTest::newRow("perpendicular, start leads away, vertical first")
        << a << up << b << left << Points {{100, 90}, {100, 80}, {194, 80}, {194, 300}, {290, 300}};
    QTest::newRow("perpendicular, end leads away")
        << a << right << b << down << Points {{110, 100}, {204, 100}, {204, 320}, {300, 320}, {300, 310}};
    QTest::newRow("perpendicular, end leads away, vertical first")
        << a << down << b << right << Points {{100, 110}, {100, 204}, {320, 204}, {320, 300}, {310, 300}};
    QTest::newRow("perpendicular, both lead away")
        << a << left << b << down << Points {{90, 100}, {80, 100}, {80, 320}, {300, 320}, {300, 310}};

    QTest::newRow("opposite, towards each other")
        << a << right << c << left << Points {{110, 100}, {200, 100}, {200, 200}, {290, 200}};
    QTest::newRow("opposite, towards each other, vertical")
        << a << down << d << up << Points {{100, 110}, {100, 200}, {200, 200}, {200, 290}};
    QTest::newRow("opposite, away from each other")
        << a << left << c << right << Points {{90, 100}, {80, 100}, {80, 150}, {320, 150}, {320, 200}, {310, 200}};
    QTest::newRow("opposite, away from each other, vertical")
        << a << up << d << down << Points {{100, 90}, {100, 80}, {150, 80}, {150, 320}, {200, 320}, {200, 310}};
    QTest::newRow("opposite, neither towards nor away")
        << a << right << QPoint(120, 200) << left << Points {{110, 100}, {110, 100}, {110, 200}};

    QTest::newRow("same side, start leads to the end")
        << a << right << c << right << Points {{110, 100}, {120, 100}, {120, 200}, {310, 200}};
    QTest::newRow("same side, start leads away")
        << a << left << c << left << Points {{90, 100}, {280, 100}, {280, 200}, {290, 200}};
    QTest::newRow("same side, vertical") << a << down << d << down
                                         << Points {{100, 110}, {100, 120}, {200, 120}, {200, 310}};
    QTest::newRow("same side, neither towards nor away")
        << a << right << QPoint(100, 200) << right << Points {{110, 100}, {120, 100}, {120, 200}, {110, 200}};

    QTest::newRow("line outside of a figure loses its sign")
        << QPoint(-200, 100) << left << QPoint(300, 200) << right
        << Points {{-210, 100}, {220, 100}, {220, 150}, {320, 150}, {320, 200}, {310, 200}};
    QTest::newRow("negative middle is halved toward zero and keeps its place")
        << QPoint(-200, 100) << right << QPoint(99, 200) << left
        << Points {{-190, 100}, {-50, 100}, {-50, 200}, {89, 200}};
}

void tst_ManhattanRouter::route()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, fromSide);
    QFETCH(QPoint, to);
    QFETCH(QPoint, toSide);
    QFETCH(Points, points);
    ManhattanConnectionRouter router;
    Link link(from, fromSide, to, toSide);
    router.route(&link.connection);
    QCOMPARE(link.connection.points, points);
}

void tst_ManhattanRouter::routeIsInTheConnectionsCoordinates()
{
    ManhattanConnectionRouter router;
    FigureNest nest;
    Link link(QPoint(300, 400), right, QPoint(500, 500), left);
    nest.put(&link.connection, nest.addContainer(nullptr, QRect(200, 300, 50, 50), true));
    router.route(&link.connection);
    QCOMPARE(link.connection.points, Points({{110, 100}, {200, 100}, {200, 200}, {290, 200}}));
}

void tst_ManhattanRouter::endsAndDirectionsAreAskedForInOrder()
{
    LoggingRouter router;
    Link link(QPoint(100, 100), right, QPoint(300, 200), left);
    router.doRoute(&link.connection);
    QCOMPARE(router.log,
             QStringList({"start point", "end point", "start direction", "start point", "outward", "end direction",
                          "end point", "outward"}));
}

void tst_ManhattanRouter::floatingPointRouteHasTheSamePoints()
{
    ManhattanConnectionRouter router;
    Link link(QPoint(100, 100), right, QPoint(300, 200), left);
    router.routeF(&link.connection);
    QCOMPARE(link.connection.pointsF, QList<QPointF>({{110, 100}, {200, 100}, {200, 200}, {290, 200}}));
}

void tst_ManhattanRouter::connectionWithoutAnchorIsRefused()
{
    ManhattanConnectionRouter router;
    StubAnchor anchor(QPoint(1, 2), QPoint(11, 12));
    StubConnection onlySource(&anchor, nullptr);
    StubConnection onlyTarget(nullptr, &anchor);
    onlySource.points = {QPoint(1, 1), QPoint(2, 2)};
    QCOMPARE(router.doRoute(&onlySource), Points());
    QCOMPARE(router.doRoute(&onlyTarget), Points());
    expectWarning("AbstractRouter::route(): invalid route");
    router.route(&onlySource);
    expectWarning("AbstractRouter::route(): invalid route");
    router.routeF(&onlyTarget);
    QCOMPARE(onlySource.points, Points({QPoint(1, 1), QPoint(2, 2)}));
}

void tst_ManhattanRouter::nullConnectionIsIgnored()
{
    OpenManhattanRouter router;
    router.route(nullptr);
    router.routeF(nullptr);
    router.invalidate(nullptr);
    router.remove(nullptr);
    router.removeReservedLines(nullptr);
    QCOMPARE(router.doRoute(nullptr), Points());
    QCOMPARE(router.doRouteF(nullptr), QList<QPointF>());
}

// Positions to points

void tst_ManhattanRouter::positionsBecomePoints_data()
{
    QTest::addColumn<QList<int>>("positions");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<Points>("points");
    // From (10, 20) to (30, 40); lines that are not positive stay where they are.
    QTest::newRow("none") << QList<int>() << true << Points {{10, 20}, {30, 40}};
    QTest::newRow("one") << QList<int> {20} << true << Points {{10, 20}, {30, 40}};
    QTest::newRow("two, horizontal") << QList<int> {20, 30} << true << Points {{10, 20}, {30, 20}, {30, 40}};
    QTest::newRow("two, vertical") << QList<int> {10, 40} << false << Points {{10, 20}, {10, 40}, {30, 40}};
    QTest::newRow("three, horizontal") << QList<int> {20, -5, 40} << true
                                       << Points {{10, 20}, {-5, 20}, {-5, 40}, {30, 40}};
    QTest::newRow("three, vertical") << QList<int> {10, -5, 30} << false
                                     << Points {{10, 20}, {10, -5}, {30, -5}, {30, 40}};
    QTest::newRow("last point that is the end") << QList<int> {40, 30} << true << Points {{10, 20}, {30, 40}};
}

void tst_ManhattanRouter::positionsBecomePoints()
{
    QFETCH(QList<int>, positions);
    QFETCH(bool, horizontal);
    StubConnection connection;
    QTEST(OpenManhattanRouter().processPositions(Ray(10, 20), Ray(30, 40), positions, horizontal, &connection),
          "points");
}

void tst_ManhattanRouter::innerLinesAreMovedAndOuterOnesAreNot()
{
    OpenManhattanRouter router;
    StubConnection other;
    StubConnection connection;
    for (int line = 0; line <= 1000; line += 100) {
        router.reserveRow(&other, line);
        router.reserveColumn(&other, line);
    }
    const Points points
        = router.processPositions(Ray(0, 100), Ray(900, 800), {100, 300, 400, 500, 600}, true, &connection);
    QCOMPARE(points, Points({{0, 100}, {302, 100}, {302, 402}, {502, 402}, {502, 600}, {900, 800}}));
    QVERIFY(router.isColumnReservedBy(&connection, 302));
    QVERIFY(router.isRowReservedBy(&connection, 402));
    QVERIFY(router.isColumnReservedBy(&connection, 502));
    QVERIFY(!router.isRowReservedBy(&connection, 600));
}

void tst_ManhattanRouter::newRouteFreesTheOldLinesFirst()
{
    OpenManhattanRouter router;
    StubConnection connection;
    QCOMPARE(lineNear(router, &connection, 50, 0, 100, true), 50);
    QCOMPARE(lineNear(router, &connection, 50, 0, 100, true), 50);
    QCOMPARE(lineNear(router, &connection, 60, 0, 100, true), 60);
    QVERIFY(router.rowUsable(nullptr, 50));
    QVERIFY(!router.rowUsable(nullptr, 60));
}

void tst_ManhattanRouter::routeForNoConnectionReservesNothing()
{
    OpenManhattanRouter router;
    QCOMPARE(lineNear(router, nullptr, 50, 0, 100, true), 50);
    QVERIFY(router.rowUsable(nullptr, 50));
}

// Search for a line

void tst_ManhattanRouter::innerLineIsReserved()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection connection;
    QCOMPARE(lineNear(router, &connection, 50, 0, 100, row), 50);
    QVERIFY(isReserved(router, &connection, 50, row));
    QVERIFY(!isReserved(router, &connection, 50, !row));
    QVERIFY(!isUsable(router, 50, row));
}

void tst_ManhattanRouter::oddLineBecomesEven()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection connection;
    QCOMPARE(lineNear(router, &connection, 51, 0, 100, row), 50);
    QVERIFY(isReserved(router, &connection, 50, row));
    QVERIFY(!isReserved(router, &connection, 51, row));
}

void tst_ManhattanRouter::lineThatIsNotPositiveStaysAndIsNotReserved()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection connection;
    QCOMPARE(lineNear(router, &connection, 0, -100, 100, row), 0);
    QCOMPARE(lineNear(router, &connection, 1, -100, 100, row), 0);
    QCOMPARE(lineNear(router, &connection, -1, -100, 100, row), -1);
    QCOMPARE(lineNear(router, &connection, -8, -100, 100, row), -8);
    for (int line : {-8, -2, -1, 0, 1})
        QVERIFY(isUsable(router, line, row));
}

void tst_ManhattanRouter::candidatesAlternateAroundTheProposal()
{
    QFETCH(bool, row);
    PickyRouter router;
    StubConnection connection;
    QCOMPARE(lineNear(router, &connection, 11, 0, 1000, row), 10);
    QCOMPARE(row ? router.askedRows : router.askedColumns, QList<int>({10, 12, 8, 14, 6, 16, 4, 18, 2}));
    QCOMPARE(row ? router.askedColumns : router.askedRows, QList<int>());
    QVERIFY(!isReserved(router, &connection, 10, row));
}

void tst_ManhattanRouter::firstUsableCandidateIsReserved()
{
    QFETCH(bool, row);
    PickyRouter router;
    StubConnection connection;
    router.usable = {2, 4, 16, 18};
    QCOMPARE(lineNear(router, &connection, 10, 0, 1000, row), 16);
    QVERIFY(isReserved(router, &connection, 16, row));
    QVERIFY(!isReserved(router, &connection, 10, row));
}

void tst_ManhattanRouter::searchEndsAtItsBounds_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("lookups");
    QTest::newRow("lower bound") << 10 << 8 << 1000 << 10 << 3;
    QTest::newRow("lower bound is the second neighbour") << 10 << 1000 << 6 << 8 << 5;
    QTest::newRow("upper bound") << 10 << 0 << 14 << 12 << 4;
    QTest::newRow("upper bound is the first neighbour") << 10 << 12 << 0 << 10 << 2;
    QTest::newRow("odd upper bound is passed") << 10 << 0 << 13 << 12 << 4;
    QTest::newRow("at the lower bound") << 8 << 8 << 1000 << 10 << 1;
    QTest::newRow("at the upper bound") << 10 << 0 << 10 << 8 << 1;
    QTest::newRow("at both bounds") << 10 << 10 << 10 << 12 << 1;
    QTest::newRow("odd line at the lower bound") << 9 << 9 << 20 << 10 << 1;
    QTest::newRow("below both neighbours") << 10 << 16 << 14 << 12 << 4;
    QTest::newRow("below both neighbours, lower bound as far away") << 10 << 15 << 1000 << 14 << 6;
    QTest::newRow("below both neighbours, odd line") << 11 << 14 << 16 << 10 << 3;
    QTest::newRow("above both neighbours") << 20 << 14 << 12 << 24 << 6;
    QTest::newRow("above both neighbours, odd line") << 21 << 12 << 15 << 16 << 7;
    QTest::newRow("below a neighbour twice as far as zero") << 4 << 100 << 100 << 4 << 3;
}

void tst_ManhattanRouter::searchEndsAtItsBounds()
{
    QFETCH(int, wanted);
    QFETCH(int, a);
    QFETCH(int, b);
    QFETCH(int, line);
    QFETCH(int, lookups);
    for (bool row : {true, false}) {
        PickyRouter router;
        StubConnection connection;
        QCOMPARE(lineNear(router, &connection, wanted, a, b, row), line);
        QCOMPARE((row ? router.askedRows : router.askedColumns).size(), lookups);
        QVERIFY(!isReserved(router, &connection, line, row));
    }
}

void tst_ManhattanRouter::limitsOfIntegersAreDefined()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection first;
    StubConnection second;
    const int last = highest - 1;
    QCOMPARE(lineNear(router, &first, highest, 0, 100, row), last);
    QCOMPARE(lineNear(router, &second, highest, 0, 100, row), last - 2);
    QCOMPARE(lineNear(router, &second, highest, lowest, highest, row), last - 2);
    QCOMPARE(lineNear(router, &second, lowest, 0, 100, row), lowest);
    QCOMPARE(lineNear(router, &second, 10, highest, highest, row), 10);
}

// Reservations

void tst_ManhattanRouter::reservedLineIsNotUsable()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection connection;
    StubConnection other;
    QVERIFY(isUsable(router, 10, row));
    QVERIFY(!isReserved(router, &connection, 10, row));
    reserve(router, &connection, 10, row);
    reserve(router, &connection, 10, row);
    reserve(router, &connection, 12, row);
    QVERIFY(isReserved(router, &connection, 10, row));
    QVERIFY(isReserved(router, &connection, 12, row));
    QVERIFY(!isReserved(router, &connection, 14, row));
    QVERIFY(!isReserved(router, &other, 10, row));
    QVERIFY(!isUsable(router, 10, row));
    QVERIFY(isUsable(router, 14, row));
    QCOMPARE(row ? router.rowUsable(&connection, 10) : router.colUsable(&connection, 10), false);
}

void tst_ManhattanRouter::rowsAndColumnsAreApart()
{
    OpenManhattanRouter router;
    StubConnection connection;
    router.reserveRow(&connection, 10);
    router.reserveColumn(&connection, 20);
    QVERIFY(router.colUsable(nullptr, 10));
    QVERIFY(router.rowUsable(nullptr, 20));
    QVERIFY(!router.isColumnReservedBy(&connection, 10));
    QVERIFY(!router.isRowReservedBy(&connection, 20));
}

void tst_ManhattanRouter::nullConnectionReservesNothing()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    reserve(router, nullptr, 10, row);
    QVERIFY(isUsable(router, 10, row));
    QVERIFY(!isReserved(router, nullptr, 10, row));
}

void tst_ManhattanRouter::invalidateAndRemoveFreeTheLines()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection connection;
    StubConnection remaining;
    reserve(router, &remaining, 20, row);
    reserve(router, &connection, 10, row);
    router.invalidate(&connection);
    QVERIFY(isUsable(router, 10, row));
    QVERIFY(!isReserved(router, &connection, 10, row));

    reserve(router, &connection, 12, row);
    router.remove(&connection);
    QVERIFY(isUsable(router, 12, row));
    router.remove(&connection);
    QVERIFY(!isUsable(router, 20, row));
    QVERIFY(isReserved(router, &remaining, 20, row));
}

void tst_ManhattanRouter::freedLineIsFreeForAll()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection first;
    StubConnection second;
    reserve(router, &first, 10, row);
    reserve(router, &second, 10, row);
    router.remove(&first);
    QVERIFY(isUsable(router, 10, row));
    QVERIFY(isReserved(router, &second, 10, row));
}

// Several connections

void tst_ManhattanRouter::parallelRoutesLieTwoUnitsApart()
{
    ManhattanConnectionRouter router;
    Link first(QPoint(100, 100), right, QPoint(300, 200), left);
    Link second(QPoint(100, 140), right, QPoint(300, 240), left);
    Link third(QPoint(100, 180), right, QPoint(300, 280), left);
    for (Link *link : {&first, &second, &third})
        router.route(&link->connection);
    QCOMPARE(first.connection.points, Points({{110, 100}, {200, 100}, {200, 200}, {290, 200}}));
    QCOMPARE(second.connection.points, Points({{110, 140}, {202, 140}, {202, 240}, {290, 240}}));
    QCOMPARE(third.connection.points, Points({{110, 180}, {198, 180}, {198, 280}, {290, 280}}));
}

void tst_ManhattanRouter::freedColumnIsTakenAgain()
{
    ManhattanConnectionRouter router;
    Link first(QPoint(100, 100), right, QPoint(300, 200), left);
    Link second(QPoint(100, 140), right, QPoint(300, 240), left);
    router.route(&first.connection);
    router.route(&second.connection);
    router.route(&second.connection);
    QCOMPARE(second.connection.points[1], QPoint(202, 140));
    router.invalidate(&first.connection);
    router.route(&second.connection);
    QCOMPARE(second.connection.points[1], QPoint(200, 140));
    router.route(&first.connection);
    QCOMPARE(first.connection.points[1], QPoint(202, 100));
    router.remove(&second.connection);
    router.route(&first.connection);
    QCOMPARE(first.connection.points[1], QPoint(200, 100));
}

// Lifetimes

void tst_ManhattanRouter::deadConnectionFreesItsLines()
{
    QFETCH(bool, row);
    OpenManhattanRouter router;
    StubConnection remaining;
    auto connection = std::make_unique<StubConnection>();
    reserve(router, &remaining, 20, row);
    reserve(router, connection.get(), 10, row);
    connection.reset();
    QVERIFY(isUsable(router, 10, row));
    QVERIFY(!isUsable(router, 20, row));
}

void tst_ManhattanRouter::newConnectionAtAnOldAddressHasNoLines()
{
    OpenManhattanRouter router;
    alignas(StubConnection) unsigned char storage[sizeof(StubConnection)];
    auto *first = new (storage) StubConnection;
    router.reserveRow(first, 10);
    first->~StubConnection();

    auto *second = new (storage) StubConnection;
    QVERIFY(!router.isRowReservedBy(second, 10));
    router.reserveRow(second, 12);
    second->~StubConnection();
    QVERIFY(router.rowUsable(nullptr, 12));
}

void tst_ManhattanRouter::removedConnectionDoesNotFreeLinesWhenItDies()
{
    OpenManhattanRouter router;
    StubConnection successor;
    auto connection = std::make_unique<StubConnection>();
    router.reserveRow(connection.get(), 10);
    router.remove(connection.get());
    router.reserveRow(&successor, 10);
    connection.reset();
    QVERIFY(!router.rowUsable(nullptr, 10));
}

void tst_ManhattanRouter::routerMayDieBeforeItsConnections()
{
    StubConnection connection;
    auto router = std::make_unique<OpenManhattanRouter>();
    router->reserveRow(&connection, 10);
    router.reset();
}

namespace {

class CountingRouter : public ManhattanConnectionRouter
{
public:
    mutable int lookups = 0;

protected:
    bool rowUsable(IConnection *connection, int row) const override
    {
        ++lookups;
        return ManhattanConnectionRouter::rowUsable(connection, row);
    }
    bool colUsable(IConnection *connection, int column) const override
    {
        ++lookups;
        return ManhattanConnectionRouter::colUsable(connection, column);
    }
};

} // namespace

// Ten thousand connections between the same two sides, a hundred pixels apart: a search ends at the neighbours.
void tst_ManhattanRouter::manyConnectionsNeedFewLookups()
{
    CountingRouter router;
    Link ends(QPoint(990, 0), right, QPoint(1110, 500), left);
    std::vector<std::unique_ptr<StubConnection>> connections;
    for (int i = 0; i < 10000; ++i)
        connections.push_back(std::make_unique<StubConnection>(&ends.source.anchor, &ends.target.anchor));
    for (const auto &connection : connections)
        router.route(connection.get());
    QVERIFY2(router.lookups <= 10000 * 51, qPrintable(QString::number(router.lookups)));
    for (const auto &connection : connections)
        router.remove(connection.get());
    router.route(connections.back().get());
    QCOMPARE(connections.back()->points, Points({{1000, 0}, {1050, 0}, {1050, 500}, {1100, 500}}));
}

PICTEL_TEST_MAIN(tst_ManhattanRouter)
#include "tst_manhattanrouter.moc"
