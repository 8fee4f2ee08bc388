#include "connections/Interference.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/connections/RelativeBendpoint.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

enum Kind { Straight, Bent, Rectilinear };

std::unique_ptr<AbstractRouter> routerOf(int kind)
{
    if (kind == Straight)
        return std::make_unique<NullRouter>();
    if (kind == Bent)
        return std::make_unique<BendpointConnectionRouter>();
    return std::make_unique<ManhattanConnectionRouter>();
}

/// A connection whose anchors interfere as it is routed.
struct RoutedConnection
{
    RoutedConnection()
    {
        QFETCH(int, kind);
        router = routerOf(kind);
        connection = std::make_unique<StubConnection>(source.get(), target.get());
    }

    void interfere(const Action &action) const
    {
        QFETCH(bool, atLocation);
        (atLocation ? source->onLocation : source->onReference) = action;
    }
    void route() const
    {
        QFETCH(bool, isReal);
        if (isReal)
            router->routeF(connection.get());
        else
            router->route(connection.get());
    }

    std::unique_ptr<InterferingAnchor> source = std::make_unique<InterferingAnchor>(QPoint(10, 20));
    std::unique_ptr<InterferingAnchor> target = std::make_unique<InterferingAnchor>(QPoint(110, 220));
    std::unique_ptr<AbstractRouter> router;
    std::unique_ptr<StubConnection> connection;
};

void addRoutes()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("isReal");
    QTest::addColumn<bool>("atLocation");
    const char *const kinds[] = {"null", "bendpoint", "manhattan"};
    for (int kind : {Straight, Bent, Rectilinear}) {
        for (bool isReal : {false, true}) {
            for (bool atLocation : {false, true})
                QTest::addRow("%s%s, %s", kinds[kind], isReal ? "F" : "", atLocation ? "location" : "reference")
                    << kind << isReal << atLocation;
        }
    }
}

/// A rectilinear router that acts when it is asked whether a column is free.
class InterferingManhattan : public ManhattanConnectionRouter
{
public:
    mutable Action onColumn;
    Action onDirection;

    bool colUsable(IConnection *connection, int column) const override
    {
        const bool usable = ManhattanConnectionRouter::colUsable(connection, column);
        run(onColumn);
        return usable;
    }
    Ray getDirection(const QRect &box, const QPoint &point, bool inward) override
    {
        const Ray direction = ManhattanConnectionRouter::getDirection(box, point, inward);
        run(onDirection);
        return direction;
    }
};

class InterferingBox : public ChopboxAnchor
{
public:
    using ChopboxAnchor::ChopboxAnchor;

    Action onBox;

protected:
    QRect getBox() override
    {
        const QRect box = ChopboxAnchor::getBox();
        run(onBox);
        return box;
    }
};

} // namespace

class tst_RouteReentrance : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void anchorMayDeleteTheConnection_data() { addRoutes(); }
    void anchorMayDeleteTheConnection();
    void anchorMayDeleteTheRouter_data() { addRoutes(); }
    void anchorMayDeleteTheRouter();
    void anchorMayDeleteTheOther_data() { addRoutes(); }
    void anchorMayDeleteTheOther();

    void searchForALineMayDeleteTheConnection();
    void searchForALineMayDeleteTheRouter();
    void searchForADirectionMayDeleteTheRouter();
    void ownerThatIsAskedForItsBoxMayDeleteItself();

    void relativeBendpointMayLoseTheOtherAnchor();
    void relativeBendpointMayLoseItsConnection();
    void relativeBendpointMayDie();
    void constraintThatEndsMayTakeItselfBack();

    void ownerMayDeleteItselfForAReferencePoint_data();
    void ownerMayDeleteItselfForAReferencePoint();
    void ownerMayDeleteItselfForALocation_data();
    void ownerMayDeleteItselfForALocation();
    void boxMayDeleteTheAnchor();
    void ownerMayDeleteTheAnchorThatComes();
    void ownerMayDeleteTheAnchorThatLeaves();
    void leftOwnerMayDeleteTheNextOne();
    void leftOwnerMayDeleteTheAnchor();
};

void tst_RouteReentrance::anchorMayDeleteTheConnection()
{
    RoutedConnection routed;
    routed.interfere([&] { routed.connection.reset(); });
    routed.route();
    QVERIFY(!routed.connection);
}

void tst_RouteReentrance::anchorMayDeleteTheRouter()
{
    RoutedConnection routed;
    QFETCH(bool, isReal);
    routed.interfere([&] { routed.router.reset(); });
    expectWarning("AbstractRouter::route(): invalid route");
    routed.route();
    QVERIFY(!routed.router);
    QVERIFY(isReal ? routed.connection->pointsF.isEmpty() : routed.connection->points.isEmpty());
}

void tst_RouteReentrance::anchorMayDeleteTheOther()
{
    QFETCH(int, kind);
    QFETCH(bool, isReal);
    RoutedConnection routed;
    routed.interfere([&] {
        routed.connection->targetAnchor = nullptr;
        routed.target.reset();
    });
    if (kind == Bent)
        expectWarning("AbstractRouter::route(): invalid route");
    routed.route();
    QVERIFY(!routed.target);
    const qsizetype count = isReal ? routed.connection->pointsF.size() : routed.connection->points.size();
    QCOMPARE(count >= 2, kind != Bent);
}

void tst_RouteReentrance::searchForALineMayDeleteTheConnection()
{
    InterferingManhattan router;
    XYAnchor source(QPoint(10, 20));
    XYAnchor target(QPoint(110, 220));
    auto connection = std::make_unique<StubConnection>(&source, &target);
    router.onColumn = [&] { connection.reset(); };
    router.route(connection.get());
    if (connection) // the route needs no column
        router.onDirection = [&] { connection.reset(); };
    router.route(connection.get());
    QVERIFY(!connection);
}

void tst_RouteReentrance::searchForALineMayDeleteTheRouter()
{
    auto router = std::make_unique<InterferingManhattan>();
    Figure left;
    Figure right;
    left.setBounds(QRect(10, 10, 20, 100));
    right.setBounds(QRect(210, 40, 20, 100));
    ChopboxAnchor source(&left);
    ChopboxAnchor target(&right);
    StubConnection connection(&source, &target);
    router->onColumn = [&] { router.reset(); };
    expectWarning("AbstractRouter::route(): invalid route");
    router->route(&connection);
    QVERIFY(!router);
    QCOMPARE(connection.points, QList<QPoint>());
}

void tst_RouteReentrance::searchForADirectionMayDeleteTheRouter()
{
    auto router = std::make_unique<InterferingManhattan>();
    XYAnchor source(QPoint(10, 20));
    XYAnchor target(QPoint(110, 220));
    StubConnection connection(&source, &target);
    router->onDirection = [&] { router.reset(); };
    expectWarning("AbstractRouter::route(): invalid route");
    router->route(&connection);
    QVERIFY(!router);
    QCOMPARE(connection.points, QList<QPoint>());
}

void tst_RouteReentrance::ownerThatIsAskedForItsBoxMayDeleteItself()
{
    ManhattanConnectionRouter router;
    auto owner = std::make_unique<InterferingFigure>();
    owner->setBounds(QRect(10, 10, 20, 100));
    XYAnchor target(QPoint(110, 220));
    EllipseAnchor source(owner.get());
    StubConnection connection(&source, &target);
    owner->onBounds = [&] { owner->onBounds = [&] { owner.reset(); }; };
    expectWarning("EllipseAnchor::getLocation(): no owner present");
    router.route(&connection);
    QVERIFY(!owner);
    QVERIFY(connection.points.size() >= 2);
}

void tst_RouteReentrance::relativeBendpointMayLoseTheOtherAnchor()
{
    InterferingAnchor source(QPoint(10, 20));
    auto target = std::make_unique<XYAnchor>(QPoint(110, 220));
    StubConnection connection(&source, target.get());
    RelativeBendpoint bendpoint(&connection);
    bendpoint.setWeight(0.5F);
    bendpoint.setRelativeDimensions(QSize(0, 0), QSize(0, 0));
    source.onReference = [&] {
        connection.targetAnchor = nullptr;
        target.reset();
    };
    QCOMPARE(bendpoint.getLocation(), QPoint(5, 10));
    QCOMPARE(bendpoint.getLocation(), QPoint());
}

void tst_RouteReentrance::relativeBendpointMayLoseItsConnection()
{
    InterferingAnchor source(QPoint(10, 20));
    InterferingAnchor target(QPoint(110, 220));
    auto connection = std::make_unique<StubConnection>(&source, &target);
    RelativeBendpoint bendpoint(connection.get());
    target.onReference = [&] { connection.reset(); };
    QCOMPARE(bendpoint.getLocation(), QPoint());
    QVERIFY(bendpoint.isNull());
}

void tst_RouteReentrance::relativeBendpointMayDie()
{
    InterferingAnchor source(QPoint(10, 20));
    XYAnchor target(QPoint(110, 220));
    StubConnection connection(&source, &target);
    auto bendpoint = std::make_unique<RelativeBendpoint>(&connection);
    source.onReference = [&] { bendpoint.reset(); };
    QCOMPARE(bendpoint->getLocation(), QPoint());
    QVERIFY(!bendpoint);
}

void tst_RouteReentrance::constraintThatEndsMayTakeItselfBack()
{
    BendpointConnectionRouter router;
    StubConnection connection;
    const auto takeBack = [&](QObject *object) {
        router.remove(&connection);
        delete object;
    };
    router.setConstraint(&connection, QVariant::fromValue(std::shared_ptr<QObject>(new QObject, takeBack)));
    router.setConstraint(&connection, QVariant(7));
    QCOMPARE(router.getConstraint(&connection), QVariant());
}

void tst_RouteReentrance::ownerMayDeleteItselfForAReferencePoint_data()
{
    QTest::addColumn<bool>("isBox");
    QTest::newRow("chopbox") << true;
    QTest::newRow("ellipse") << false;
}

namespace {

std::unique_ptr<AbstractConnectionAnchor> anchorOn(Figure *owner)
{
    QFETCH(bool, isBox);
    if (isBox)
        return std::make_unique<ChopboxAnchor>(owner);
    return std::make_unique<EllipseAnchor>(owner);
}

} // namespace

void tst_RouteReentrance::ownerMayDeleteItselfForAReferencePoint()
{
    auto owner = std::make_unique<InterferingFigure>();
    owner->setBounds(QRect(10, 20, 11, 21));
    const auto anchor = anchorOn(owner.get());
    owner->onBounds = [&] { owner.reset(); };
    QFETCH(bool, isBox);
    QCOMPARE(anchor->getReferencePoint(), isBox ? QPoint(15, 30) : QPoint(16, 31));
    QCOMPARE(anchor->getOwner(), nullptr);
}

void tst_RouteReentrance::ownerMayDeleteItselfForALocation_data()
{
    ownerMayDeleteItselfForAReferencePoint_data();
}

void tst_RouteReentrance::ownerMayDeleteItselfForALocation()
{
    auto owner = std::make_unique<InterferingFigure>();
    owner->setBounds(QRect(10, 20, 10, 20));
    const auto anchor = anchorOn(owner.get());
    owner->onBounds = [&] { owner.reset(); };
    QFETCH(bool, isBox);
    QCOMPARE(anchor->getLocation(QPoint(115, 30)), isBox ? QPoint(20, 30) : QPoint(20, 30));
    QCOMPARE(anchor->getOwner(), nullptr);
}

void tst_RouteReentrance::boxMayDeleteTheAnchor()
{
    Figure owner;
    owner.setBounds(QRect(10, 20, 10, 20));
    auto anchor = std::make_unique<InterferingBox>(&owner);
    anchor->onBox = [&] { anchor.reset(); };
    QCOMPARE(anchor->getReferencePoint(), QPoint(14, 29));
    anchor = std::make_unique<InterferingBox>(&owner);
    anchor->onBox = [&] { anchor.reset(); };
    QCOMPARE(anchor->getLocation(QPoint(115, 30)), QPoint(20, 30));
    QVERIFY(!anchor);
}

namespace {

class AnchorListener : public QObject, public IAnchorListener
{
    Q_OBJECT

public:
    int moves = 0;

public Q_SLOTS:
    void anchorMoved(IConnectionAnchor *) override { ++moves; }
};

} // namespace

void tst_RouteReentrance::ownerMayDeleteTheAnchorThatComes()
{
    InterferingFigure owner;
    AnchorListener listener;
    auto anchor = std::make_unique<ChopboxAnchor>(&owner);
    owner.onAddListener = [&] { anchor.reset(); };
    anchor->addAnchorListener(&listener);
    QVERIFY(!anchor);
    anchor = std::make_unique<ChopboxAnchor>();
    owner.onAddListener = [&] { anchor.reset(); };
    anchor->setOwner(&owner);
    QVERIFY(!anchor);
    Q_EMIT owner.figureMoved(&owner);
    QCOMPARE(listener.moves, 0);
}

void tst_RouteReentrance::ownerMayDeleteTheAnchorThatLeaves()
{
    InterferingFigure owner;
    AnchorListener listener;
    auto anchor = std::make_unique<ChopboxAnchor>(&owner);
    anchor->addAnchorListener(&listener);
    owner.onRemoveListener = [&] { anchor.reset(); };
    anchor->removeAnchorListener(&listener);
    QVERIFY(!anchor);
}

void tst_RouteReentrance::leftOwnerMayDeleteTheNextOne()
{
    InterferingFigure owner;
    auto next = std::make_unique<Figure>();
    ChopboxAnchor anchor;
    anchor.setOwner(&owner);
    owner.onRemoveListener = [&] { next.reset(); };
    anchor.setOwner(next.get());
    QCOMPARE(anchor.getOwner(), nullptr);
    QVERIFY(!next);
}

void tst_RouteReentrance::leftOwnerMayDeleteTheAnchor()
{
    InterferingFigure owner;
    InterferingFigure next;
    bool isHeard = false;
    auto anchor = std::make_unique<ChopboxAnchor>();
    anchor->setOwner(&owner);
    owner.onRemoveListener = [&] { anchor.reset(); };
    next.onAddListener = [&] { isHeard = true; };
    anchor->setOwner(&next);
    QVERIFY(!anchor);
    QVERIFY(!isHeard);
}

PICTEL_TEST_MAIN(tst_RouteReentrance)
#include "tst_routereentrance.moc"
