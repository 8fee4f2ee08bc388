#include "support/TestMain.h"

#include "FigureNest.h"
#include "StubConnection.h"

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/connections/XYAnchor.h>

#include <QTest>

#include <limits>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

using RouterFactory = std::shared_ptr<AbstractRouter> (*)();

template <typename Router>
std::shared_ptr<AbstractRouter> makeRouter()
{
    return std::make_shared<Router>();
}

std::shared_ptr<ConnectionAnchorBase> randomAnchor(Dice &dice, FigureNest &nest)
{
    if (dice.coin())
        return std::make_shared<XYAnchor>(dice.point(500));
    Figure *owner = nest.addFigure(dice.containers(nest), dice.rect(400, 150));
    if (dice.coin())
        return std::make_shared<ChopboxAnchor>(owner);
    return std::make_shared<EllipseAnchor>(owner);
}

/// A connection between two random anchors in a random parent.
struct RandomConnection
{
    explicit RandomConnection(Dice &dice)
        : source(randomAnchor(dice, nest))
        , target(randomAnchor(dice, nest))
        , connection(source.get(), target.get())
    {
        nest.put(&connection, dice.containers(nest));
    }

    QPoint startPoint() const { return source->getLocation(target->getReferencePoint()) - nest.offsetOf(&connection); }
    QPoint endPoint() const { return target->getLocation(source->getReferencePoint()) - nest.offsetOf(&connection); }

    FigureNest nest;
    std::shared_ptr<ConnectionAnchorBase> source;
    std::shared_ptr<ConnectionAnchorBase> target;
    StubConnection connection;
};

} // namespace

Q_DECLARE_METATYPE(RouterFactory)

/// What every router keeps to, whatever its routes look like.
class tst_Routers : public PictelTest
{
    Q_OBJECT

private:
    static void addRouters();
    static void addRoutersAndSeeds();
    static void addSeeds();

private Q_SLOTS:
    void routeRunsFromStartToEnd_data() { addRoutersAndSeeds(); }
    void routeRunsFromStartToEnd();
    void endIsNotRepeated_data() { addRoutersAndSeeds(); }
    void endIsNotRepeated();
    void manhattanSegmentsAreHorizontalOrVertical_data() { addSeeds(); }
    void manhattanSegmentsAreHorizontalOrVertical();
    void unchangedConnectionKeepsItsRoute_data() { addRoutersAndSeeds(); }
    void unchangedConnectionKeepsItsRoute();
    void floatingPointRouteHasTheSamePoints_data() { addRoutersAndSeeds(); }
    void floatingPointRouteHasTheSamePoints();
    void endsAtOnePlaceGiveTwoPoints_data() { addRouters(); }
    void endsAtOnePlaceGiveTwoPoints();
    void endsAtTheLimitsOfIntegersGiveARoute_data() { addRouters(); }
    void endsAtTheLimitsOfIntegersGiveARoute();
    void removedConnectionIsRoutedAsIfNew_data() { addRoutersAndSeeds(); }
    void removedConnectionIsRoutedAsIfNew();
    void connectionAndRouterDieInAnyOrder_data() { addRouters(); }
    void connectionAndRouterDieInAnyOrder();
    void childConnectionsDieWithTheRouter_data() { addRouters(); }
    void childConnectionsDieWithTheRouter();
};

void tst_Routers::addRouters()
{
    QTest::addColumn<RouterFactory>("make");
    QTest::newRow("null") << RouterFactory(&makeRouter<NullRouter>);
    QTest::newRow("bendpoint") << RouterFactory(&makeRouter<BendpointConnectionRouter>);
    QTest::newRow("manhattan") << RouterFactory(&makeRouter<ManhattanConnectionRouter>);
}

void tst_Routers::addRoutersAndSeeds()
{
    QTest::addColumn<RouterFactory>("make");
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 100; ++seed) {
        QTest::addRow("null, seed %u", seed) << RouterFactory(&makeRouter<NullRouter>) << seed;
        QTest::addRow("bendpoint, seed %u", seed) << RouterFactory(&makeRouter<BendpointConnectionRouter>) << seed;
        QTest::addRow("manhattan, seed %u", seed) << RouterFactory(&makeRouter<ManhattanConnectionRouter>) << seed;
    }
}

void tst_Routers::addSeeds()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 300; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_Routers::routeRunsFromStartToEnd()
{
    QFETCH(RouterFactory, make);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    RandomConnection random(dice);
    make()->route(&random.connection);
    QVERIFY(random.connection.points.size() >= 2);
    QCOMPARE(random.connection.points.first(), random.startPoint());
    QCOMPARE(random.connection.points.last(), random.endPoint());
}

void tst_Routers::endIsNotRepeated()
{
    QFETCH(RouterFactory, make);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    RandomConnection random(dice);
    const QList<QPoint> points = make()->doRoute(&random.connection);
    QVERIFY(points.size() == 2 || points.at(points.size() - 2) != points.last());
}

// Also where other connections already lie on the lines.
void tst_Routers::manhattanSegmentsAreHorizontalOrVertical()
{
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    ManhattanConnectionRouter router;
    std::vector<std::unique_ptr<RandomConnection>> connections;
    for (int i = 0; i < 10; ++i) {
        connections.push_back(std::make_unique<RandomConnection>(dice));
        const QList<QPoint> points = router.doRoute(&connections.back()->connection);
        for (qsizetype j = 1; j < points.size(); ++j)
            QVERIFY(points[j - 1].x() == points[j].x() || points[j - 1].y() == points[j].y());
    }
}

void tst_Routers::unchangedConnectionKeepsItsRoute()
{
    QFETCH(RouterFactory, make);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    RandomConnection random(dice);
    RandomConnection other(dice);
    const auto router = make();
    router->route(&other.connection);
    const QList<QPoint> points = router->doRoute(&random.connection);
    QCOMPARE(router->doRoute(&random.connection), points);
    router->invalidate(&random.connection);
    QCOMPARE(router->doRoute(&random.connection), points);
}

void tst_Routers::floatingPointRouteHasTheSamePoints()
{
    QFETCH(RouterFactory, make);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    RandomConnection random(dice);
    const auto router = make();
    router->route(&random.connection);
    router->routeF(&random.connection);
    QCOMPARE(random.connection.pointsF.size(), random.connection.points.size());
    for (qsizetype i = 0; i < random.connection.points.size(); ++i)
        QCOMPARE(random.connection.pointsF[i], QPointF(random.connection.points[i]));
}

void tst_Routers::endsAtOnePlaceGiveTwoPoints()
{
    QFETCH(RouterFactory, make);
    XYAnchor anchor(QPoint(30, 40));
    StubConnection connection(&anchor, &anchor);
    QList<QPoint> points = make()->doRoute(&connection);
    QVERIFY(points.size() >= 2);
    QCOMPARE(points.first(), QPoint(30, 40));
    QCOMPARE(points.last(), QPoint(30, 40));
}

void tst_Routers::endsAtTheLimitsOfIntegersGiveARoute()
{
    QFETCH(RouterFactory, make);
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    FigureNest nest;
    XYAnchor source(QPoint(lowest, highest));
    XYAnchor target(QPoint(highest, lowest));
    StubConnection connection(&source, &target);
    const auto router = make();
    router->route(&connection);
    QCOMPARE(connection.points.first(), QPoint(lowest, highest));
    QCOMPARE(connection.points.last(), QPoint(highest, lowest));

    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 100, 10, 10), true));
    router->route(&connection);
    QVERIFY(connection.points.size() >= 2);
}

void tst_Routers::removedConnectionIsRoutedAsIfNew()
{
    QFETCH(RouterFactory, make);
    QFETCH(unsigned int, seed);
    Dice dice(seed);
    RandomConnection random(dice);
    const QList<QPoint> fresh = make()->doRoute(&random.connection);
    const auto router = make();
    router->setConstraint(&random.connection, QVariantList {QVariant::fromValue(AbsoluteBendpoint(3, 4))});
    router->route(&random.connection);
    router->remove(&random.connection);
    QCOMPARE(router->getConstraint(&random.connection), QVariant());
    QCOMPARE(router->doRoute(&random.connection), fresh);
}

void tst_Routers::connectionAndRouterDieInAnyOrder()
{
    QFETCH(RouterFactory, make);
    XYAnchor source(QPoint(30, 40));
    XYAnchor target(QPoint(130, 240));
    auto router = make();
    auto first = std::make_unique<StubConnection>(&source, &target);
    auto second = std::make_unique<StubConnection>(&source, &target);
    for (StubConnection *connection : {first.get(), second.get()}) {
        router->setConstraint(connection, QVariantList {QVariant::fromValue(AbsoluteBendpoint(3, 4))});
        router->route(connection);
    }
    IConnection *dead = first.get();
    first.reset();
    QCOMPARE(router->getConstraint(dead), QVariant());
    router->remove(dead);
    router.reset();
    QCOMPARE(second->points.last(), QPoint(130, 240));
}

void tst_Routers::childConnectionsDieWithTheRouter()
{
    QFETCH(RouterFactory, make);
    XYAnchor anchor(QPoint(30, 40));
    auto router = make();
    auto *connection = new StubConnection(&anchor, &anchor);
    connection->setParent(router.get());
    const QPointer<StubConnection> guard = connection;
    router->setConstraint(connection, 1);
    router->route(connection);
    router.reset();
    QVERIFY(guard.isNull());
}

PICTEL_TEST_MAIN(tst_Routers)
#include "tst_routers.moc"
