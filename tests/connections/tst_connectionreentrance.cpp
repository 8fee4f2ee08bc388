#include "connections/Interference.h"
#include "connections/ShownConnection.h"
#include "connections/Trigger.h"
#include "support/ViewerStub.h"

#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/figure/ConnectionLocator.h>
#include <vtlpictel/shapes/PolygonDecoration.h>

#include <QPointer>
#include <QTest>

#include <memory>
#include <utility>

using namespace Vantrel::Pictel;

namespace {

IConnectionRouter *sharedRouter()
{
    return NullRouter::instance();
}

/// A connection in a displayed tree whose source anchor and router interfere.
struct Interfered
{
    explicit Interfered(bool isReal)
        : connection(isReal)
    {
        connection->setSourceAnchor(source.get());
        connection->setTargetAnchor(&target);
        connection->setConnectionRouter(router.get());
        displayed.root.add(connection.figure());
        expectUnresolvedBounds(isReal);
        displayed.root.validate();
        router->log.clear();
    }

    std::unique_ptr<InterferingAnchor> source = std::make_unique<InterferingAnchor>(QPoint(0, 0));
    CountingAnchor target {QPoint(50, 50)};
    std::unique_ptr<InterferingRouter> router = std::make_unique<InterferingRouter>();
    DisplayedRoot displayed;
    AnyConnection connection;
};

/// A viewer that acts at each repaint that is asked for, but not at those that its own acting causes.
class ActingViewer : public ViewerStub
{
public:
    Action act;

    void updateContentRect(const QRect &rect) override
    {
        ViewerStub::updateContentRect(rect);
        if (act && !std::exchange(m_isActing, true)) {
            act();
            m_isActing = false;
        }
    }

private:
    bool m_isActing = false;
};

} // namespace

class tst_ConnectionReentrance : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void leftAnchorMayDeleteTheConnection_data() { addBothClasses(); }
    void leftAnchorMayDeleteTheConnection();
    void leftAnchorMayDeleteTheNextOne_data() { addBothClasses(); }
    void leftAnchorMayDeleteTheNextOne();
    void leftAnchorMayDeleteItself_data() { addBothClasses(); }
    void leftAnchorMayDeleteItself();
    void leftAnchorMaySetYetAnotherOne_data() { addBothClasses(); }
    void leftAnchorMaySetYetAnotherOne();
    void anchorMayDeleteTheConnectionThatComes_data() { addBothClasses(); }
    void anchorMayDeleteTheConnectionThatComes();
    void anchorMayDeleteTheConnectionThatIsShown_data() { addBothClasses(); }
    void anchorMayDeleteTheConnectionThatIsShown();
    void anchorThatComesMayBeReplaced_data() { addBothClasses(); }
    void anchorThatComesMayBeReplaced();
    void anchorMayDeleteTheConnectionThatLeavesTheTree_data() { addBothClasses(); }
    void anchorMayDeleteTheConnectionThatLeavesTheTree();
    void anchorMayTakeItselfFromTheDyingConnection_data() { addBothClasses(); }
    void anchorMayTakeItselfFromTheDyingConnection();

    void leftRouterMayDeleteTheConnection_data() { addBothClasses(); }
    void leftRouterMayDeleteTheConnection();
    void leftRouterMayDeleteTheNextOne_data() { addBothClasses(); }
    void leftRouterMayDeleteTheNextOne();
    void leftRouterMayDeleteItself_data() { addBothClasses(); }
    void leftRouterMayDeleteItself();
    void leftRouterMaySetYetAnotherOne_data() { addBothClasses(); }
    void leftRouterMaySetYetAnotherOne();
    void routerMayDeleteTheConnectionThatLeavesTheTree_data() { addBothClasses(); }
    void routerMayDeleteTheConnectionThatLeavesTheTree();
    void routerMayDeleteTheConnectionItRoutes_data() { addBothClasses(); }
    void routerMayDeleteTheConnectionItRoutes();
    void routerMayDeleteItselfAsItRoutes_data() { addBothClasses(); }
    void routerMayDeleteItselfAsItRoutes();
    void routerMayDeleteTheConnectionItGetsAConstraintFor_data() { addBothClasses(); }
    void routerMayDeleteTheConnectionItGetsAConstraintFor();

    void connectionThatIsInvalidatedMayBeDeletedByTheViewer_data() { addBothClasses(); }
    void connectionThatIsInvalidatedMayBeDeletedByTheViewer();
    void childThatIsAskedForItsBoundsMayDeleteAnother_data() { addBothClasses(); }
    void childThatIsAskedForItsBoundsMayDeleteAnother();
    void childThatIsAskedForItsBoundsMayDeleteTheConnection_data() { addBothClasses(); }
    void childThatIsAskedForItsBoundsMayDeleteTheConnection();

    void dyingConnectionIsNoConnectionAnyMore_data() { addBothClasses(); }
    void dyingConnectionIsNoConnectionAnyMore();
    void dyingDecorationMayBeReplaced_data() { addBothClasses(); }
    void dyingDecorationMayBeReplaced();
};

void tst_ConnectionReentrance::leftAnchorMayDeleteTheConnection()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    CountingAnchor next {QPoint(5, 5)};
    shown.source->onRemove = [&] { shown.connection.destroy(); };
    shown.connection->setSourceAnchor(&next);
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(next.listeners, 0);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::leftAnchorMayDeleteTheNextOne()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    auto next = std::make_unique<CountingAnchor>(QPoint(5, 5));
    shown.source->onRemove = [&] { next.reset(); };
    shown.connection->setSourceAnchor(next.get());
    QCOMPARE(shown.connection->getSourceAnchor(), nullptr);
    QCOMPARE(shown.connection.isValid(), false);
    shown.connection.destroy();
}

void tst_ConnectionReentrance::leftAnchorMayDeleteItself()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    CountingAnchor next {QPoint(5, 5)};
    shown.source->onRemove = [&] { shown.source.reset(); };
    shown.connection->setSourceAnchor(&next);
    QCOMPARE(shown.connection->getSourceAnchor(), static_cast<IConnectionAnchor *>(&next));
    QCOMPARE(next.listeners, 1);
    shown.connection.destroy();
}

void tst_ConnectionReentrance::leftAnchorMaySetYetAnotherOne()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    CountingAnchor passedBy {QPoint(5, 5)};
    CountingAnchor last {QPoint(7, 7)};
    shown.source->onRemove = [&] { shown.connection->setSourceAnchor(&last); };
    shown.connection->setSourceAnchor(&passedBy);
    QCOMPARE(shown.connection->getSourceAnchor(), static_cast<IConnectionAnchor *>(&last));
    QCOMPARE(passedBy.listeners, 0);
    QCOMPARE(last.listeners, 1);
    shown.connection.destroy();
    QCOMPARE(last.listeners, 0);
}

void tst_ConnectionReentrance::anchorMayDeleteTheConnectionThatComes()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    InterferingAnchor next(QPoint(5, 5));
    next.onAdd = [&] { shown.connection.destroy(); };
    shown.connection->setSourceAnchor(&next);
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(shown.router->log, QStringList("remove"));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::anchorMayDeleteTheConnectionThatIsShown()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    InterferingAnchor source(QPoint(0, 0));
    CountingAnchor target(QPoint(50, 50));
    AnyConnection connection(isReal);
    connection->setSourceAnchor(&source);
    connection->setTargetAnchor(&target);
    source.onAdd = [&] { connection.destroy(); };
    displayed.root.add(connection.figure());
    QCOMPARE(connection.figure(), nullptr);
    QCOMPARE(target.listeners, 0);
    QCOMPARE(displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::anchorThatComesMayBeReplaced()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    InterferingAnchor passedBy(QPoint(5, 5));
    CountingAnchor last {QPoint(7, 7)};
    bool wasLeft = false;
    passedBy.onAdd = [&] { shown.connection->setSourceAnchor(&last); };
    passedBy.onRemove = [&] { wasLeft = true; };
    shown.connection->setSourceAnchor(&passedBy);
    QVERIFY(wasLeft);
    QCOMPARE(shown.connection->getSourceAnchor(), static_cast<IConnectionAnchor *>(&last));
    QCOMPARE(last.listeners, 1);
    shown.connection.destroy();
}

void tst_ConnectionReentrance::anchorMayDeleteTheConnectionThatLeavesTheTree()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    shown.source->onRemove = [&] { shown.connection.destroy(); };
    shown.displayed.root.remove(shown.connection.figure());
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(shown.target.listeners, 0);
    QCOMPARE(shown.router->log, QStringList("remove"));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::anchorMayTakeItselfFromTheDyingConnection()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    int removals = 0;
    const Action leave = [&] {
        shown.source->onRemove = [&] { ++removals; };
        ++removals;
        shown.connection->setSourceAnchor(nullptr);
    };
    shown.source->onRemove = leave;
    shown.displayed.root.remove(shown.connection.figure());
    QCOMPARE(removals, 1);
    QCOMPARE(shown.connection->getSourceAnchor(), nullptr);
    shown.connection.destroy();
}

void tst_ConnectionReentrance::leftRouterMayDeleteTheConnection()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    ProbeRouter next;
    shown.router->onRemove = [&] { shown.connection.destroy(); };
    shown.connection->setConnectionRouter(&next);
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(next.log, QStringList());
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::leftRouterMayDeleteTheNextOne()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    auto next = std::make_unique<ProbeRouter>();
    shown.router->onRemove = [&] { next.reset(); };
    shown.connection->setConnectionRouter(next.get());
    QCOMPARE(shown.connection->getConnectionRouter(), sharedRouter());
    QCOMPARE(shown.connection.isValid(), false);
    shown.connection.destroy();
}

void tst_ConnectionReentrance::leftRouterMayDeleteItself()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    ProbeRouter next;
    QList<QVariant> values;
    connect(shown.connection.figure(), &Figure::propertyChanged, this,
            [&](const QString &, const QVariant &before, const QVariant &after) {
                values = {before, after};
            });
    shown.router->onRemove = [&] { shown.router.reset(); };
    shown.connection->setConnectionRouter(&next);
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(&next));
    QCOMPARE(values, QList<QVariant>({QVariant::fromValue<QObject *>(nullptr), QVariant::fromValue<QObject *>(&next)}));
    shown.connection.destroy();
}

void tst_ConnectionReentrance::leftRouterMaySetYetAnotherOne()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    ProbeRouter passedBy;
    ProbeRouter last;
    shown.router->onRemove = [&] { shown.connection->setConnectionRouter(&last); };
    shown.connection->setConnectionRouter(&passedBy);
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(&last));
    QCOMPARE(passedBy.log, QStringList());
    QCOMPARE(last.log, QStringList("invalidate"));
    shown.connection.destroy();
}

void tst_ConnectionReentrance::routerMayDeleteTheConnectionThatLeavesTheTree()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    shown.router->onRemove = [&] { shown.connection.destroy(); };
    shown.displayed.root.remove(shown.connection.figure());
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(shown.router->log, QStringList({"remove", "remove"}));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::routerMayDeleteTheConnectionItRoutes()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    shown.router->onRoute = [&] { shown.connection.destroy(); };
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::routerMayDeleteItselfAsItRoutes()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    shown.router->points = {QPoint(3, 4), QPoint(50, 60)};
    shown.router->pointsF = {QPointF(3, 4), QPointF(50, 60)};
    shown.router->onRoute = [&] { shown.router.reset(); };
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection->getPoints(), QList<QPoint>({QPoint(3, 4), QPoint(50, 60)}));
    QCOMPARE(shown.connection->getConnectionRouter(), sharedRouter());
    shown.connection.destroy();
}

void tst_ConnectionReentrance::routerMayDeleteTheConnectionItGetsAConstraintFor()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    shown.router->onConstraint = [&] { shown.connection.destroy(); };
    shown.connection->setRoutingConstraint(QVariant(7));
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(shown.router->log, QStringList({"setConstraint", "remove"}));
}

void tst_ConnectionReentrance::connectionThatIsInvalidatedMayBeDeletedByTheViewer()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    ActingViewer viewer;
    viewer.act = [&] { shown.connection.destroy(); };
    shown.displayed.manager.setViewer(&viewer);
    shown.connection->revalidate();
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(shown.router->log, QStringList("remove"));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionReentrance::childThatIsAskedForItsBoundsMayDeleteAnother()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    InterferingFigure first;
    auto second = std::make_unique<Figure>();
    first.setBounds(QRect(60, 60, 10, 10));
    second->setBounds(QRect(200, 200, 10, 10));
    shown.connection->add(&first);
    shown.connection->add(second.get());
    shown.displayed.manager.performUpdate();
    // The last one to ask is the connection, for its own bounds: nobody asks after its path is complete.
    Trigger trigger;
    trigger.onPathChange(
        shown.connection.figure(), [&] { first.onBounds = [&] { second.reset(); }; }, 1);
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QVERIFY(!second);
    QVERIFY(!shown.connection->getBounds().contains(200, 200));
    QVERIFY(shown.connection->getBounds().contains(QRect(59, 59, 12, 12)));
    shown.connection.destroy();
}

void tst_ConnectionReentrance::childThatIsAskedForItsBoundsMayDeleteTheConnection()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    InterferingFigure child;
    child.setBounds(QRect(60, 60, 10, 10));
    shown.connection->add(&child);
    shown.displayed.manager.performUpdate();
    Trigger trigger;
    trigger.onPathChange(
        shown.connection.figure(), [&] { child.onBounds = [&] { shown.connection.destroy(); }; }, 1);
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection.figure(), nullptr);
    QCOMPARE(child.getParentFigure(), nullptr);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

// The area of a connection is given up once more when only its base classes are left.
void tst_ConnectionReentrance::dyingConnectionIsNoConnectionAnyMore()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    ConnectionLocator locator(shown.connection.interface());
    Figure label;
    label.setPreferredSize(QSize(4, 4));
    label.setBounds(QRect(90, 90, 4, 4));
    shown.displayed.root.add(&label);
    ActingViewer viewer;
    QList<QRect> places;
    viewer.act = [&] {
        locator.relocate(&label);
        places << label.getBounds();
    };
    shown.displayed.manager.setViewer(&viewer);
    shown.connection.destroy();
    viewer.act = {};
    shown.displayed.manager.setViewer(&shown.displayed.viewer);
    QCOMPARE(places.first(), isReal ? QRect(14, 20, 4, 4) : QRect(13, 19, 4, 4));
    QCOMPARE(places.last(), QRect(-2, -2, 4, 4));
}

void tst_ConnectionReentrance::dyingDecorationMayBeReplaced()
{
    QFETCH(bool, isReal);
    Interfered shown(isReal);
    auto first = std::make_unique<PolygonDecoration>();
    PolygonDecoration second;
    shown.connection.setTargetDecoration(first.get());
    shown.displayed.manager.performUpdate();
    ActingViewer viewer;
    viewer.act = [&] { shown.connection.setTargetDecoration(&second); };
    shown.displayed.manager.setViewer(&viewer);
    first.reset();
    viewer.act = {};
    shown.displayed.manager.setViewer(&shown.displayed.viewer);
    QCOMPARE(shown.connection.targetDecoration(), static_cast<IRotatableDecoration *>(&second));
    QCOMPARE(shown.connection->childFigures(), QList<Figure *>({&second}));
    shown.connection.destroy();
}

PICTEL_TEST_MAIN(tst_ConnectionReentrance)
#include "tst_connectionreentrance.moc"
