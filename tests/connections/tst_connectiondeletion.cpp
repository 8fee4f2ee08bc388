#include "connections/ShownConnection.h"
#include "connections/Trigger.h"
#include "support/ActingListener.h"

#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/figure/ArrowLocator.h>
#include <vtlpictel/figure/MidpointLocator.h>
#include <vtlpictel/shapes/PolygonDecoration.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

QString routeCall(bool isReal)
{
    return isReal ? QStringLiteral("doRouteF") : QStringLiteral("doRoute");
}

} // namespace

class tst_ConnectionDeletion : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void ownPathDuringTheRouteMayDeleteIt_data() { addBothClasses(); }
    void ownPathDuringTheRouteMayDeleteIt();
    void ownPathAfterTheLayoutMayDeleteIt_data() { addBothClasses(); }
    void ownPathAfterTheLayoutMayDeleteIt();
    void ownMoveMayDeleteIt_data() { addBothClasses(); }
    void ownMoveMayDeleteIt();
    void labelThatMovesMayDeleteIt_data() { addBothClasses(); }
    void labelThatMovesMayDeleteIt();
    void pathOfADecorationMayDeleteIt_data() { addBothClasses(); }
    void pathOfADecorationMayDeleteIt();
    void pathOfADecorationThatItOwnsMayDeleteIt_data() { addBothClasses(); }
    void pathOfADecorationThatItOwnsMayDeleteIt();
    void invalidatedLayoutMayDeleteIt_data() { addBothClasses(); }
    void invalidatedLayoutMayDeleteIt();
    void routerChangeMayDeleteIt_data() { addBothClasses(); }
    void routerChangeMayDeleteIt();
    void routerChangeMayDeleteTheNewRouter_data() { addBothClasses(); }
    void routerChangeMayDeleteTheNewRouter();
    void routerChangeMaySetYetAnotherRouter_data() { addBothClasses(); }
    void routerChangeMaySetYetAnotherRouter();

    void leavingDecorationMayDeleteItself_data() { addBothClasses(); }
    void leavingDecorationMayDeleteItself();
    void leavingDecorationMayDeleteTheNextOne_data() { addBothClasses(); }
    void leavingDecorationMayDeleteTheNextOne();
    void leavingDecorationMayDeleteTheConnection_data() { addBothClasses(); }
    void leavingDecorationMayDeleteTheConnection();
    void leavingDecorationMayBringAnother_data() { addBothClasses(); }
    void leavingDecorationMayBringAnother();
    void comingDecorationMayDeleteItself_data() { addBothClasses(); }
    void comingDecorationMayDeleteItself();
    void comingDecorationMayDeleteTheConnection_data() { addBothClasses(); }
    void comingDecorationMayDeleteTheConnection();
    void comingDecorationMayBringAnother_data() { addBothClasses(); }
    void comingDecorationMayBringAnother();

    void arrowThatMovesMayDeleteTheConnection_data() { addBothClasses(); }
    void arrowThatMovesMayDeleteTheConnection();
    void arrowThatMovesMayDeleteItself_data() { addBothClasses(); }
    void arrowThatMovesMayDeleteItself();
    void arrowThatMovesMayDeleteItsLocator_data() { addBothClasses(); }
    void arrowThatMovesMayDeleteItsLocator();
};

void tst_ConnectionDeletion::ownPathDuringTheRouteMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    QSignalSpy moved(shown.connection.figure(), &Figure::figureMoved);
    trigger.onPathChange(shown.connection.figure(), [&] { shown.connection.destroy(); });
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.router.log, QStringList({"invalidate", routeCall(isReal), "remove"}));
    QCOMPARE(shown.source.listeners + shown.target.listeners, 0);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    QCOMPARE(moved.count(), 0);
    shown.displayed.manager.performUpdate();
}

void tst_ConnectionDeletion::ownPathAfterTheLayoutMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    Figure label;
    label.setPreferredSize(QSize(4, 4));
    shown.connection->add(&label, QVariant::fromValue<QObject *>(new MidpointLocator(shown.connection.interface(), 0)),
                          -1);
    shown.router.points = {QPoint(100, 100), QPoint(120, 140)};
    shown.router.pointsF = {QPointF(100, 100), QPointF(120, 140)};
    QSignalSpy moved(shown.connection.figure(), &Figure::figureMoved);
    trigger.onPathChange(
        shown.connection.figure(), [&] { shown.connection.destroy(); }, 1);
    shown.displayed.manager.performUpdate();
    QVERIFY(trigger.hasFired());
    QCOMPARE(label.getBounds(), QRect(108, 118, 4, 4));
    QCOMPARE(label.getParentFigure(), nullptr);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    shown.displayed.manager.performUpdate();
}

void tst_ConnectionDeletion::ownMoveMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    trigger.onMove(shown.connection.figure(), [&] { shown.connection.destroy(); });
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.router.log, QStringList({"invalidate", routeCall(isReal), "remove"}));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    shown.displayed.manager.performUpdate();
}

void tst_ConnectionDeletion::labelThatMovesMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    Figure first;
    Figure second;
    for (Figure *label : {&first, &second}) {
        label->setPreferredSize(QSize(4, 4));
        auto locator = std::make_unique<MidpointLocator>(shown.connection.interface(), 0);
        shown.connection->add(label, QVariant::fromValue<QObject *>(locator.release()), -1);
    }
    shown.displayed.manager.performUpdate();
    const QRect before = second.getBounds();
    shown.router.points = {QPoint(100, 100), QPoint(120, 140)};
    shown.router.pointsF = {QPointF(100, 100), QPointF(120, 140)};
    trigger.onMove(&first, [&] { shown.connection.destroy(); });
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QVERIFY(trigger.hasFired());
    QCOMPARE(first.getBounds(), QRect(108, 118, 4, 4));
    QCOMPARE(second.getBounds(), before);
    QCOMPARE(second.getParentFigure(), nullptr);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionDeletion::pathOfADecorationMayDeleteIt()
{
    QFETCH(bool, isReal);
    PolygonDecoration arrow;
    ShownConnection shown(isReal);
    Trigger trigger;
    shown.connection.setTargetDecoration(&arrow);
    shown.displayed.manager.performUpdate();
    trigger.onPathChange(&arrow, [&] { shown.connection.destroy(); });
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QVERIFY(trigger.hasFired());
    QCOMPARE(arrow.getParentFigure(), nullptr);
    QCOMPARE(arrow.getFlag(Figure::FLAG_NOTIFIED), false);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionDeletion::pathOfADecorationThatItOwnsMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    const QPointer<PolygonDecoration> arrow = new PolygonDecoration(shown.connection.figure());
    shown.connection.setSourceDecoration(arrow);
    trigger.onPathChange(arrow, [&] { shown.connection.destroy(); });
    shown.displayed.manager.performUpdate();
    QVERIFY(trigger.hasFired());
    QVERIFY(!arrow);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionDeletion::invalidatedLayoutMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    ActingListener listener([&] { shown.connection.destroy(); });
    shown.connection->getLayoutManager()->addListener(&listener);
    shown.connection->revalidate();
    QCOMPARE(shown.router.log, QStringList("remove"));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    shown.displayed.manager.performUpdate();
}

void tst_ConnectionDeletion::routerChangeMayDeleteIt()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    ProbeRouter next;
    Trigger trigger;
    trigger.onChange(shown.connection.figure(), routerProperty, [&] { shown.connection.destroy(); });
    shown.connection->setConnectionRouter(&next);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.router.log, QStringList("remove"));
    QCOMPARE(next.log, QStringList("remove"));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionDeletion::routerChangeMayDeleteTheNewRouter()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    auto next = std::make_unique<ProbeRouter>();
    Trigger trigger;
    trigger.onChange(shown.connection.figure(), routerProperty, [&] { next.reset(); });
    shown.connection->setConnectionRouter(next.get());
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
    QCOMPARE(shown.connection.isValid(), false);
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection->getPoints(), QList<QPoint>({QPoint(0, 0), QPoint(50, 50)}));
}

void tst_ConnectionDeletion::routerChangeMaySetYetAnotherRouter()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    ProbeRouter passedBy;
    ProbeRouter last;
    Trigger trigger;
    trigger.onChange(shown.connection.figure(), routerProperty, [&] { shown.connection->setConnectionRouter(&last); });
    shown.connection->setConnectionRouter(&passedBy);
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(&last));
    QCOMPARE(passedBy.log, QStringList("remove"));
    QCOMPARE(last.log, QStringList({"invalidate", "invalidate"}));
    shown.connection->setConnectionRouter(nullptr);
}

void tst_ConnectionDeletion::leavingDecorationMayDeleteItself()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    auto first = std::make_unique<PolygonDecoration>();
    PolygonDecoration second;
    shown.connection.setTargetDecoration(first.get());
    trigger.onChange(first.get(), parentProperty, [&] { first.reset(); });
    shown.connection.setTargetDecoration(&second);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection.targetDecoration(), static_cast<IRotatableDecoration *>(&second));
    QCOMPARE(shown.connection->childFigures(), QList<Figure *>({&second}));
    shown.connection.destroy();
}

void tst_ConnectionDeletion::leavingDecorationMayDeleteTheNextOne()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    const QPointer<PolygonDecoration> first = new PolygonDecoration;
    auto second = std::make_unique<PolygonDecoration>();
    shown.connection.setTargetDecoration(first);
    trigger.onChange(first, parentProperty, [&] { second.reset(); });
    shown.connection.setTargetDecoration(second.get());
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection.targetDecoration(), nullptr);
    QCOMPARE(shown.connection->childFigureCount(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_ConnectionDeletion::leavingDecorationMayDeleteTheConnection()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    const QPointer<PolygonDecoration> first = new PolygonDecoration;
    PolygonDecoration second;
    shown.connection.setTargetDecoration(first);
    trigger.onChange(first, parentProperty, [&] { shown.connection.destroy(); });
    shown.connection.setTargetDecoration(&second);
    QVERIFY(trigger.hasFired());
    QCOMPARE(second.getParentFigure(), nullptr);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_ConnectionDeletion::leavingDecorationMayBringAnother()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    const QPointer<PolygonDecoration> first = new PolygonDecoration;
    PolygonDecoration passedBy;
    PolygonDecoration last;
    shown.connection.setTargetDecoration(first);
    trigger.onChange(first, parentProperty, [&] { shown.connection.setTargetDecoration(&last); });
    shown.connection.setTargetDecoration(&passedBy);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection.targetDecoration(), static_cast<IRotatableDecoration *>(&last));
    QCOMPARE(shown.connection->childFigures(), QList<Figure *>({&last}));
    QCOMPARE(passedBy.getParentFigure(), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    shown.connection.destroy();
}

void tst_ConnectionDeletion::comingDecorationMayDeleteItself()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    auto arrow = std::make_unique<PolygonDecoration>();
    trigger.onChange(arrow.get(), parentProperty, [&] { arrow.reset(); });
    shown.connection.setSourceDecoration(arrow.get());
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection.sourceDecoration(), nullptr);
    QCOMPARE(shown.connection->childFigureCount(), 0);
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection.isValid(), true);
}

void tst_ConnectionDeletion::comingDecorationMayDeleteTheConnection()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    PolygonDecoration arrow;
    trigger.onChange(&arrow, parentProperty, [&] { shown.connection.destroy(); });
    shown.connection.setSourceDecoration(&arrow);
    QVERIFY(trigger.hasFired());
    QCOMPARE(arrow.getParentFigure(), nullptr);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

void tst_ConnectionDeletion::comingDecorationMayBringAnother()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    Trigger trigger;
    const QPointer<PolygonDecoration> passedBy = new PolygonDecoration;
    PolygonDecoration last;
    trigger.onChange(passedBy, parentProperty, [&] { shown.connection.setSourceDecoration(&last); });
    shown.connection.setSourceDecoration(passedBy);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection.sourceDecoration(), static_cast<IRotatableDecoration *>(&last));
    QCOMPARE(shown.connection->childFigures(), QList<Figure *>({&last}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!passedBy);
    shown.connection.destroy();
}

void tst_ConnectionDeletion::arrowThatMovesMayDeleteTheConnection()
{
    QFETCH(bool, isReal);
    AnyConnection connection(isReal);
    connection->setPoints({QPoint(10, 20), QPoint(10, 60)});
    Trigger trigger;
    PolygonDecoration arrow;
    ArrowLocator locator(connection.interface(), ConnectionLocator::SOURCE);
    trigger.onPathChange(&arrow, [&] { connection.destroy(); });
    locator.relocate(&arrow);
    QVERIFY(trigger.hasFired());
    // It is still turned, to where the line led.
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(13, 27), QPoint(10, 20), QPoint(7, 27)}));
}

void tst_ConnectionDeletion::arrowThatMovesMayDeleteItself()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    Trigger trigger;
    auto arrow = std::make_unique<PolygonDecoration>();
    ArrowLocator locator(connection.interface(), ConnectionLocator::TARGET);
    trigger.onPathChange(arrow.get(), [&] { arrow.reset(); });
    locator.relocate(arrow.get());
    QVERIFY(trigger.hasFired());
    QCOMPARE(connection->getPoints(), QList<QPoint>({QPoint(0, 0), QPoint(100, 100)}));
}

void tst_ConnectionDeletion::arrowThatMovesMayDeleteItsLocator()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    connection->setPoints({QPoint(10, 20), QPoint(10, 60)});
    Trigger trigger;
    PolygonDecoration arrow;
    auto locator = std::make_unique<ArrowLocator>(connection.interface(), ConnectionLocator::TARGET);
    trigger.onPathChange(&arrow, [&] { locator.reset(); });
    locator->relocate(&arrow);
    QVERIFY(trigger.hasFired());
    QCOMPARE(arrow.getLinePoints(), QList<QPoint>({QPoint(7, 53), QPoint(10, 60), QPoint(13, 53)}));
}

PICTEL_TEST_MAIN(tst_ConnectionDeletion)
#include "tst_connectiondeletion.moc"
