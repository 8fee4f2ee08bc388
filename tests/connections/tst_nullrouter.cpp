#include "support/TestMain.h"

#include "FigureNest.h"
#include "StubAnchor.h"
#include "StubConnection.h"

#include <vtlpictel/connections/NullRouter.h>

#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// Routes as it is told, and lets the protected end points be asked for.
class FixedRouter : public AbstractRouter
{
public:
    using AbstractRouter::getEndPoint;
    using AbstractRouter::getStartPoint;

    QList<QPoint> doRoute(IConnection *) override { return points; }
    QList<QPointF> doRouteF(IConnection *) override { return pointsF; }

    QList<QPoint> points;
    QList<QPointF> pointsF;
};

/// A straight router whose ends are given.
class GivenEndsRouter : public NullRouter
{
protected:
    QPoint getEndPoint(IConnection *) override { return {30, 40}; }
    QPoint getStartPoint(IConnection *) override { return {10, 20}; }
};

} // namespace

class tst_NullRouter : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void routerIsFoundByItsInterface();
    void parentOwnsTheRouter();

    void constraintIsNeverKept();
    void invalidateAndRemoveAcceptAnything();
    void startPointAimsAtTheTarget();
    void endPointAimsAtTheSource();
    void endsOfAnIncompleteConnectionAreTheOrigin();
    void routeStoresThePoints();
    void routeFStoresThePoints();
    void routeOfFewerThanTwoPointsIsRefused();
    void routeFOfFewerThanTwoPointsIsRefused();
    void nullConnectionIsIgnored();

    void lineJoinsTheAnchors();
    void lineIsInTheConnectionsCoordinates();
    void connectionWithOneAnchorGetsTheOriginTwice();
    void lineUsesTheOverriddenEnds();
    void firstCallsFromSeveralThreadsGiveOneInstance();
    void sharedInstanceIsOneRouterWithoutParent();
};

void tst_NullRouter::routerIsFoundByItsInterface()
{
    NullRouter router;
    QObject *object = &router;
    QCOMPARE(qobject_cast<IConnectionRouter *>(object), static_cast<IConnectionRouter *>(&router));
    QCOMPARE(object->qt_metacast("IConnectionRouter.Pictel.Vantrel.vantrel.org"),
             static_cast<void *>(static_cast<IConnectionRouter *>(&router)));
}

void tst_NullRouter::parentOwnsTheRouter()
{
    QObject parent;
    QCOMPARE((new NullRouter(&parent))->parent(), &parent);
}

void tst_NullRouter::constraintIsNeverKept()
{
    FixedRouter router;
    StubConnection connection;
    router.setConstraint(&connection, 42);
    QCOMPARE(router.getConstraint(&connection), QVariant());
    QCOMPARE(router.getConstraint(nullptr), QVariant());
}

void tst_NullRouter::invalidateAndRemoveAcceptAnything()
{
    FixedRouter router;
    StubConnection connection;
    connection.points = {QPoint(1, 2), QPoint(3, 4)};
    router.invalidate(&connection);
    router.invalidate(nullptr);
    router.remove(&connection);
    router.remove(nullptr);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(1, 2), QPoint(3, 4)}));
}

void tst_NullRouter::startPointAimsAtTheTarget()
{
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    QCOMPARE(FixedRouter().getStartPoint(&connection), QPoint(11, 12));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(3, 4)}));
    QCOMPARE(target.aims, QList<QPoint>());
    QCOMPARE(connection.log, QStringList({"target", "source"}));
}

void tst_NullRouter::endPointAimsAtTheSource()
{
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    QCOMPARE(FixedRouter().getEndPoint(&connection), QPoint(13, 14));
    QCOMPARE(target.aims, QList<QPoint>({QPoint(1, 2)}));
    QCOMPARE(source.aims, QList<QPoint>());
    QCOMPARE(connection.log, QStringList({"source", "target"}));
}

void tst_NullRouter::endsOfAnIncompleteConnectionAreTheOrigin()
{
    FixedRouter router;
    StubAnchor anchor(QPoint(1, 2), QPoint(11, 12));
    StubConnection onlySource(&anchor, nullptr);
    StubConnection onlyTarget(nullptr, &anchor);
    for (IConnection *connection : {static_cast<IConnection *>(nullptr), static_cast<IConnection *>(&onlySource),
                                    static_cast<IConnection *>(&onlyTarget)}) {
        QCOMPARE(router.getStartPoint(connection), QPoint(0, 0));
        QCOMPARE(router.getEndPoint(connection), QPoint(0, 0));
    }
    QCOMPARE(anchor.aims, QList<QPoint>());
}

void tst_NullRouter::routeStoresThePoints()
{
    FixedRouter router;
    StubConnection connection;
    router.points = {QPoint(1, 2), QPoint(3, 4)};
    router.route(&connection);
    QCOMPARE(connection.points, router.points);
    QCOMPARE(connection.pointsF, QList<QPointF>());
}

void tst_NullRouter::routeFStoresThePoints()
{
    FixedRouter router;
    StubConnection connection;
    router.pointsF = {QPointF(1.5, 2), QPointF(3, 4.25)};
    router.routeF(&connection);
    QCOMPARE(connection.pointsF, router.pointsF);
    QCOMPARE(connection.points, QList<QPoint>());
}

void tst_NullRouter::routeOfFewerThanTwoPointsIsRefused()
{
    FixedRouter router;
    StubConnection connection;
    connection.points = {QPoint(1, 2), QPoint(3, 4)};
    router.points = {QPoint(9, 9)};
    expectWarning("AbstractRouter::route(): invalid route");
    router.route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(1, 2), QPoint(3, 4)}));
}

void tst_NullRouter::routeFOfFewerThanTwoPointsIsRefused()
{
    FixedRouter router;
    StubConnection connection;
    connection.pointsF = {QPointF(1, 2), QPointF(3, 4)};
    router.pointsF = {QPointF(9, 9)};
    expectWarning("AbstractRouter::route(): invalid route");
    router.routeF(&connection);
    QCOMPARE(connection.pointsF, QList<QPointF>({QPointF(1, 2), QPointF(3, 4)}));
}

void tst_NullRouter::nullConnectionIsIgnored()
{
    FixedRouter router;
    router.route(nullptr);
    router.routeF(nullptr);
    NullRouter straight;
    straight.route(nullptr);
    straight.routeF(nullptr);
    QCOMPARE(straight.doRoute(nullptr), QList<QPoint>());
    QCOMPARE(straight.doRouteF(nullptr), QList<QPointF>());
}

// The straight line

void tst_NullRouter::lineJoinsTheAnchors()
{
    NullRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    QCOMPARE(router.doRoute(&connection), QList<QPoint>({QPoint(11, 12), QPoint(13, 14)}));
    QCOMPARE(router.doRouteF(&connection), QList<QPointF>({QPointF(11, 12), QPointF(13, 14)}));
}

void tst_NullRouter::lineIsInTheConnectionsCoordinates()
{
    NullRouter router;
    FigureNest nest;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 200, 50, 50), true));
    QCOMPARE(router.doRoute(&connection), QList<QPoint>({QPoint(-89, -188), QPoint(-87, -186)}));
    router.routeF(&connection);
    QCOMPARE(connection.pointsF, QList<QPointF>({QPointF(-89, -188), QPointF(-87, -186)}));
}

void tst_NullRouter::connectionWithOneAnchorGetsTheOriginTwice()
{
    FigureNest nest;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubConnection connection(&source, nullptr);
    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 200, 50, 50), true));
    NullRouter().route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(-100, -200), QPoint(-100, -200)}));
}

void tst_NullRouter::lineUsesTheOverriddenEnds()
{
    StubConnection connection;
    GivenEndsRouter().route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(10, 20), QPoint(30, 40)}));
}

// Runs before the other test of instance(): the first call of this process is made by several threads.
void tst_NullRouter::firstCallsFromSeveralThreadsGiveOneInstance()
{
    std::atomic<NullRouter *> seen[4] = {};
    std::vector<std::unique_ptr<QThread>> threads;
    for (auto &slot : seen)
        threads.emplace_back(QThread::create([&slot] { slot = NullRouter::instance(); }))->start();
    for (const auto &thread : threads)
        thread->wait();
    for (const auto &slot : seen)
        QCOMPARE(slot.load(), NullRouter::instance());
}

void tst_NullRouter::sharedInstanceIsOneRouterWithoutParent()
{
    NullRouter *router = NullRouter::instance();
    QCOMPARE(router->parent(), nullptr);
    QCOMPARE(NullRouter::instance(), router);
    QCOMPARE(router->metaObject(), &NullRouter::staticMetaObject);
}

PICTEL_TEST_MAIN(tst_NullRouter)
#include "tst_nullrouter.moc"
