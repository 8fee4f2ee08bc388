#include "support/TestMain.h"

#include "FigureNest.h"
#include "StubAnchor.h"
#include "StubConnection.h"

#include <vtlpictel/connections/AbsoluteBendpoint.h>
#include <vtlpictel/connections/BendpointConnectionRouter.h>
#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/RelativeBendpoint.h>

#include <QTest>

#include <memory>
#include <new>

using namespace Vantrel::Pictel;

namespace {

/// A router whose protected operations can be called.
class RouterProbe : public BendpointConnectionRouter
{
public:
    using BendpointConnectionRouter::getBendpointList;
    using BendpointConnectionRouter::getBendpointLocation;
};

/// A router that answers every bendpoint with the same place, and every connection with the same list.
class GivenBendpointsRouter : public BendpointConnectionRouter
{
public:
    QVariant getConstraint(IConnection *) override { return QVariantList {1, 2}; }

protected:
    QPoint getBendpointLocation(const QVariant &bendpoint) const override { return {bendpoint.toInt(), 100}; }
};

/// A router that notes whom it was asked to forget.
class ForgettingRouter : public BendpointConnectionRouter
{
public:
    void remove(IConnection *connection) override
    {
        removed.append(connection);
        BendpointConnectionRouter::remove(connection);
    }

    QList<IConnection *> removed;
};

QVariant bendpointAt(int x, int y)
{
    return QVariant::fromValue(AbsoluteBendpoint(x, y));
}

} // namespace

class tst_BendpointRouter : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newRouterHasNoConstraints();
    void constraintIsKeptPerConnection();
    void constraintIsReplaced();
    void invalidConstraintIsTheSameAsRemove();
    void nullConnectionIsIgnored();
    void removeForgetsTheConstraint();
    void removeOfAnUnknownConnectionIsIgnored();
    void invalidateKeepsTheConstraint();

    void listIsTheConstraintsList();
    void constraintOfAnotherKindGivesNoBendpoints();
    void locationOfABendpoint();
    void locationOfAnythingElseIsTheOrigin_data();
    void locationOfAnythingElseIsTheOrigin();

    void routeWithoutConstraintIsStraight();
    void anchorsAimAtTheNearestBendpoints();
    void singleBendpointIsTheAimOfBothAnchors();
    void endsAreTranslatedAndBendpointsAreNot();
    void relativeBendpointTranslatesItself();
    void elementThatIsNoBendpointIsAtTheOrigin();
    void chopboxIsLeftTowardsTheFirstBendpoint();
    void floatingPointRouteHasTheSamePoints();
    void overriddenBendpointsAreUsed();
    void connectionWithoutAnchorIsNotRouted();

    void deadConnectionTakesItsConstraintAlong();
    void removedConnectionMayDieBeforeItsNewConstraint();
    void routerMayDieBeforeItsConnections();
    void deadBendpointConnectionIsHarmless();
};

// Constraints

void tst_BendpointRouter::newRouterHasNoConstraints()
{
    QObject parent;
    auto *router = new BendpointConnectionRouter(&parent);
    StubConnection connection;
    QCOMPARE(router->parent(), &parent);
    QCOMPARE(router->getConstraint(&connection), QVariant());
    QCOMPARE(router->getConstraint(nullptr), QVariant());
}

void tst_BendpointRouter::constraintIsKeptPerConnection()
{
    BendpointConnectionRouter router;
    StubConnection first;
    StubConnection second;
    router.setConstraint(&first, 1);
    router.setConstraint(&second, 2);
    QCOMPARE(router.getConstraint(&first), QVariant(1));
    QCOMPARE(router.getConstraint(&second), QVariant(2));
    QCOMPARE(router.getConstraint(nullptr), QVariant());
}

void tst_BendpointRouter::constraintIsReplaced()
{
    BendpointConnectionRouter router;
    StubConnection connection;
    router.setConstraint(&connection, 1);
    router.setConstraint(&connection, QVariantList {2, 3});
    QCOMPARE(router.getConstraint(&connection), QVariant(QVariantList {2, 3}));
}

void tst_BendpointRouter::invalidConstraintIsTheSameAsRemove()
{
    ForgettingRouter router;
    StubConnection connection;
    router.setConstraint(&connection, 1);
    QCOMPARE(router.removed, QList<IConnection *>());
    router.setConstraint(&connection, QVariant());
    QCOMPARE(router.removed, QList<IConnection *>({&connection}));
    QCOMPARE(router.getConstraint(&connection), QVariant());
}

void tst_BendpointRouter::nullConnectionIsIgnored()
{
    ForgettingRouter router;
    router.setConstraint(nullptr, 1);
    QCOMPARE(router.getConstraint(nullptr), QVariant());
    router.setConstraint(nullptr, QVariant());
    QCOMPARE(router.removed, QList<IConnection *>());
    router.remove(nullptr);
    router.invalidate(nullptr);
    QCOMPARE(router.doRoute(nullptr), QList<QPoint>());
    QCOMPARE(router.doRouteF(nullptr), QList<QPointF>());
}

void tst_BendpointRouter::removeForgetsTheConstraint()
{
    BendpointConnectionRouter router;
    StubConnection removed;
    StubConnection remaining;
    router.setConstraint(&removed, 1);
    router.setConstraint(&remaining, 2);
    router.remove(&removed);
    QCOMPARE(router.getConstraint(&removed), QVariant());
    QCOMPARE(router.getConstraint(&remaining), QVariant(2));
}

void tst_BendpointRouter::removeOfAnUnknownConnectionIsIgnored()
{
    BendpointConnectionRouter router;
    StubConnection known;
    StubConnection unknown;
    router.remove(&unknown);
    router.setConstraint(&known, 1);
    router.remove(&unknown);
    QCOMPARE(router.getConstraint(&known), QVariant(1));
}

void tst_BendpointRouter::invalidateKeepsTheConstraint()
{
    BendpointConnectionRouter router;
    StubConnection connection;
    router.setConstraint(&connection, 1);
    router.invalidate(&connection);
    QCOMPARE(router.getConstraint(&connection), QVariant(1));
}

// Reading a constraint

void tst_BendpointRouter::listIsTheConstraintsList()
{
    RouterProbe router;
    StubConnection connection;
    router.setConstraint(&connection, QVariantList {7, 8});
    QCOMPARE(router.getBendpointList(&connection), QVariantList({7, 8}));
}

void tst_BendpointRouter::constraintOfAnotherKindGivesNoBendpoints()
{
    RouterProbe router;
    StubConnection connection;
    QCOMPARE(router.getBendpointList(&connection), QVariantList());
    QCOMPARE(router.getBendpointList(nullptr), QVariantList());
    router.setConstraint(&connection, 5);
    QCOMPARE(router.getBendpointList(&connection), QVariantList());
}

void tst_BendpointRouter::locationOfABendpoint()
{
    RouterProbe router;
    StubAnchor source(QPoint(10, 20), QPoint());
    StubAnchor target(QPoint(110, 220), QPoint());
    StubConnection connection(&source, &target);
    QCOMPARE(router.getBendpointLocation(bendpointAt(3, 4)), QPoint(3, 4));
    QCOMPARE(router.getBendpointLocation(QVariant::fromValue(RelativeBendpoint(&connection))), QPoint(59, 119));
}

void tst_BendpointRouter::locationOfAnythingElseIsTheOrigin_data()
{
    QTest::addColumn<QVariant>("element");
    QTest::newRow("invalid") << QVariant();
    QTest::newRow("text") << QVariant(QStringLiteral("bend"));
    QTest::newRow("point") << QVariant(QPoint(3, 4));
    QTest::newRow("null pointer to a bendpoint") << QVariant::fromValue(static_cast<IBendpoint *>(nullptr));
}

void tst_BendpointRouter::locationOfAnythingElseIsTheOrigin()
{
    QFETCH(QVariant, element);
    QCOMPARE(RouterProbe().getBendpointLocation(element), QPoint(0, 0));
}

// Routing

void tst_BendpointRouter::routeWithoutConstraintIsStraight()
{
    BendpointConnectionRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    router.route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(11, 12), QPoint(13, 14)}));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(3, 4)}));
    QCOMPARE(target.aims, QList<QPoint>({QPoint(1, 2)}));
}

void tst_BendpointRouter::anchorsAimAtTheNearestBendpoints()
{
    BendpointConnectionRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    router.setConstraint(&connection, QVariantList {bendpointAt(50, 51), bendpointAt(60, 61), bendpointAt(70, 71)});
    router.route(&connection);
    QCOMPARE(connection.points,
             QList<QPoint>({QPoint(11, 12), QPoint(50, 51), QPoint(60, 61), QPoint(70, 71), QPoint(13, 14)}));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(50, 51)}));
    QCOMPARE(target.aims, QList<QPoint>({QPoint(70, 71)}));
}

void tst_BendpointRouter::singleBendpointIsTheAimOfBothAnchors()
{
    BendpointConnectionRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    router.setConstraint(&connection, QVariantList {bendpointAt(50, 51)});
    router.route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(11, 12), QPoint(50, 51), QPoint(13, 14)}));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(50, 51)}));
    QCOMPARE(target.aims, QList<QPoint>({QPoint(50, 51)}));
}

void tst_BendpointRouter::endsAreTranslatedAndBendpointsAreNot()
{
    BendpointConnectionRouter router;
    FigureNest nest;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 200, 50, 50), true));
    router.setConstraint(&connection, QVariantList {bendpointAt(50, 51), bendpointAt(60, 61)});
    router.route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(-89, -188), QPoint(50, 51), QPoint(60, 61), QPoint(-87, -186)}));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(150, 251)}));
    QCOMPARE(target.aims, QList<QPoint>({QPoint(160, 261)}));
}

void tst_BendpointRouter::relativeBendpointTranslatesItself()
{
    BendpointConnectionRouter router;
    FigureNest nest;
    StubAnchor source(QPoint(10, 20), QPoint(11, 12));
    StubAnchor target(QPoint(110, 220), QPoint(13, 14));
    StubConnection connection(&source, &target);
    nest.put(&connection, nest.addContainer(nullptr, QRect(100, 200, 50, 50), true));
    router.setConstraint(&connection, QVariantList {QVariant::fromValue(RelativeBendpoint(&connection))});
    QCOMPARE(router.doRoute(&connection), QList<QPoint>({QPoint(-89, -188), QPoint(-41, -81), QPoint(-87, -186)}));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(59, 119)}));
}

void tst_BendpointRouter::elementThatIsNoBendpointIsAtTheOrigin()
{
    BendpointConnectionRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    router.setConstraint(&connection, QVariantList {bendpointAt(50, 51), QVariant(9), bendpointAt(70, 71)});
    router.route(&connection);
    QCOMPARE(connection.points,
             QList<QPoint>({QPoint(11, 12), QPoint(50, 51), QPoint(0, 0), QPoint(70, 71), QPoint(13, 14)}));
}

void tst_BendpointRouter::chopboxIsLeftTowardsTheFirstBendpoint()
{
    BendpointConnectionRouter router;
    Figure figure;
    figure.setBounds(QRect(10, 20, 9, 9)); // chopped at x 9 to 19 and y 19 to 29
    ChopboxAnchor source(&figure);
    StubAnchor target(QPoint(14, 500), QPoint(14, 500));
    StubConnection connection(&source, &target);
    router.setConstraint(&connection, QVariantList {bendpointAt(114, 24)});
    router.route(&connection);
    QCOMPARE(connection.points, QList<QPoint>({QPoint(19, 24), QPoint(114, 24), QPoint(14, 500)}));
}

void tst_BendpointRouter::floatingPointRouteHasTheSamePoints()
{
    BendpointConnectionRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    router.setConstraint(&connection, QVariantList {bendpointAt(50, 51)});
    router.routeF(&connection);
    QCOMPARE(connection.pointsF, QList<QPointF>({QPointF(11, 12), QPointF(50, 51), QPointF(13, 14)}));
}

void tst_BendpointRouter::overriddenBendpointsAreUsed()
{
    GivenBendpointsRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    QCOMPARE(router.doRoute(&connection),
             QList<QPoint>({QPoint(11, 12), QPoint(1, 100), QPoint(2, 100), QPoint(13, 14)}));
    QCOMPARE(source.aims, QList<QPoint>({QPoint(1, 100)}));
    QCOMPARE(target.aims, QList<QPoint>({QPoint(2, 100)}));
}

void tst_BendpointRouter::connectionWithoutAnchorIsNotRouted()
{
    BendpointConnectionRouter router;
    StubAnchor anchor(QPoint(1, 2), QPoint(11, 12));
    StubConnection onlySource(&anchor, nullptr);
    StubConnection onlyTarget(nullptr, &anchor);
    onlySource.points = {QPoint(1, 1), QPoint(2, 2)};
    expectWarning("AbstractRouter::route(): invalid route");
    router.route(&onlySource);
    expectWarning("AbstractRouter::route(): invalid route");
    router.routeF(&onlyTarget);
    QCOMPARE(onlySource.points, QList<QPoint>({QPoint(1, 1), QPoint(2, 2)}));
}

// Lifetimes

void tst_BendpointRouter::deadConnectionTakesItsConstraintAlong()
{
    BendpointConnectionRouter router;
    alignas(StubConnection) unsigned char storage[sizeof(StubConnection)];
    auto *first = new (storage) StubConnection;
    IConnection *address = first;
    router.setConstraint(first, 1);
    first->~StubConnection();
    QCOMPARE(router.getConstraint(address), QVariant());

    auto *second = new (storage) StubConnection;
    QCOMPARE(router.getConstraint(second), QVariant());
    router.setConstraint(second, 2);
    QCOMPARE(router.getConstraint(second), QVariant(2));
    second->~StubConnection();
}

void tst_BendpointRouter::removedConnectionMayDieBeforeItsNewConstraint()
{
    BendpointConnectionRouter router;
    StubConnection remaining;
    auto connection = std::make_unique<StubConnection>();
    router.setConstraint(&remaining, 1);
    router.setConstraint(connection.get(), 2);
    router.remove(connection.get());
    router.setConstraint(connection.get(), 3);
    QCOMPARE(router.getConstraint(connection.get()), QVariant(3));
    IConnection *address = connection.get();
    connection.reset();
    QCOMPARE(router.getConstraint(address), QVariant());
    QCOMPARE(router.getConstraint(&remaining), QVariant(1));
}

void tst_BendpointRouter::routerMayDieBeforeItsConnections()
{
    StubConnection connection;
    auto router = std::make_unique<BendpointConnectionRouter>();
    router->setConstraint(&connection, 1);
    router.reset();
}

void tst_BendpointRouter::deadBendpointConnectionIsHarmless()
{
    BendpointConnectionRouter router;
    StubAnchor source(QPoint(1, 2), QPoint(11, 12));
    StubAnchor target(QPoint(3, 4), QPoint(13, 14));
    StubConnection connection(&source, &target);
    auto other = std::make_unique<StubConnection>(&source, &target);
    router.setConstraint(&connection, QVariantList {QVariant::fromValue(RelativeBendpoint(other.get()))});
    other.reset();
    QCOMPARE(router.doRoute(&connection), QList<QPoint>({QPoint(11, 12), QPoint(0, 0), QPoint(13, 14)}));
}

PICTEL_TEST_MAIN(tst_BendpointRouter)
#include "tst_bendpointrouter.moc"
