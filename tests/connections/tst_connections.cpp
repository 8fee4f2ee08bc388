#include "connections/PlainDecoration.h"
#include "connections/ShownConnection.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/layout/DelegatingLayout.h>
#include <vtlpictel/shapes/PolygonDecoration.h>
#include <vtlpictel/shapes/PolylineDecoration.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

using namespace Vantrel::Pictel;

class tst_Connections : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsADiagonalWithoutAnchors_data() { addBothClasses(); }
    void startsAsADiagonalWithoutAnchors();
    void isFoundByItsInterfaces_data() { addBothClasses(); }
    void isFoundByItsInterfaces();
    void withoutAnchorsIsNotRouted_data() { addBothClasses(); }
    void withoutAnchorsIsNotRouted();
    void withOneAnchorIsNotRouted_data() { addBothClasses(); }
    void withOneAnchorIsNotRouted();
    void pointsAreConvertedAndRounded_data() { addBothClasses(); }
    void pointsAreConvertedAndRounded();
    void singlePointsFollowTheList_data() { addBothClasses(); }
    void singlePointsFollowTheList();
    void layoutRoutesPlacesAndAnnounces_data() { addBothClasses(); }
    void layoutRoutesPlacesAndAnnounces();
    void shortRouteKeepsThePoints_data() { addBothClasses(); }
    void shortRouteKeepsThePoints();
    void boundsAreCachedUntilTheNextLayout_data() { addBothClasses(); }
    void boundsAreCachedUntilTheNextLayout();
    void boundsIncludeChildren_data() { addBothClasses(); }
    void boundsIncludeChildren();
    void childrenAloneMakeBounds_data() { addBothClasses(); }
    void childrenAloneMakeBounds();
    void emptyLineWithoutChildrenAnnouncesNothing_data() { addBothClasses(); }
    void emptyLineWithoutChildrenAnnouncesNothing();

    void anchorIsHookedOnlyInATree_data() { addBothClasses(); }
    void anchorIsHookedOnlyInATree();
    void anchorSetOnAChildIsHookedAtOnce_data() { addBothClasses(); }
    void anchorSetOnAChildIsHookedAtOnce();
    void sameAnchorChangesNothing_data() { addBothClasses(); }
    void sameAnchorChangesNothing();
    void movedAnchorRoutesAnew_data() { addBothClasses(); }
    void movedAnchorRoutesAnew();
    void movedOwnerRoutesAnew_data() { addBothClasses(); }
    void movedOwnerRoutesAnew();
    void removalUnhooksAndForgets_data() { addBothClasses(); }
    void removalUnhooksAndForgets();

    void routerChangeIsAnnounced_data() { addBothClasses(); }
    void routerChangeIsAnnounced();
    void sameRouterChangesNothing_data() { addBothClasses(); }
    void sameRouterChangesNothing();
    void noRouterMeansTheSharedOne_data() { addBothClasses(); }
    void noRouterMeansTheSharedOne();
    void constraintIsTheRouters_data() { addBothClasses(); }
    void constraintIsTheRouters();

    void revalidateMarksTheOldAreaDirty_data() { addBothClasses(); }
    void revalidateMarksTheOldAreaDirty();
    void revalidateWithoutBoundsUpdatesTheView_data() { addBothClasses(); }
    void revalidateWithoutBoundsUpdatesTheView();
    void revalidateOutsideATreeInvalidatesTheRoute_data() { addBothClasses(); }
    void revalidateOutsideATreeInvalidatesTheRoute();

    void decorationsSitAtTheEnds_data() { addBothClasses(); }
    void decorationsSitAtTheEnds();
    void sameDecorationChangesNothing_data() { addBothClasses(); }
    void sameDecorationChangesNothing();
    void decorationThatIsNoFigureIsStoredOnly_data() { addBothClasses(); }
    void decorationThatIsNoFigureIsStoredOnly();
    void replacedDecorationIsDeletedLater_data() { addBothClasses(); }
    void replacedDecorationIsDeletedLater();
    void nullTakesTheDecorationAway_data() { addBothClasses(); }
    void nullTakesTheDecorationAway();

    void anchorsAndRouterMayDieFirst_data() { addBothClasses(); }
    void anchorsAndRouterMayDieFirst();
    void connectionMayDieWhileShown_data() { addBothClasses(); }
    void connectionMayDieWhileShown();
    void decorationMayDieFirst_data() { addBothClasses(); }
    void decorationMayDieFirst();
    void deadAnchorIsReplacedAndHooked_data() { addBothClasses(); }
    void deadAnchorIsReplacedAndHooked();
};

void tst_Connections::startsAsADiagonalWithoutAnchors()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    QCOMPARE(connection->getPoints(), QList<QPoint>({QPoint(0, 0), QPoint(100, 100)}));
    QCOMPARE(connection->getPointsF(), QList<QPointF>({QPointF(0, 0), QPointF(100, 100)}));
    QCOMPARE(connection->getSourceAnchor(), nullptr);
    QCOMPARE(connection->getTargetAnchor(), nullptr);
    QCOMPARE(connection->getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
    QCOMPARE(connection.sourceDecoration(), nullptr);
    QCOMPARE(connection.targetDecoration(), nullptr);
    QCOMPARE(connection->getBounds(), QRect());
    QVERIFY(qobject_cast<DelegatingLayout *>(connection->getLayoutManager()));
    QCOMPARE(connection.figure()->getFill(), false);
}

void tst_Connections::isFoundByItsInterfaces()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    QObject *object = connection.figure();
    QCOMPARE(qobject_cast<IConnection *>(object), connection.interface());
    QCOMPARE(qobject_cast<IFigure *>(object), static_cast<IFigure *>(connection.interface()));
    QCOMPARE(qobject_cast<IAnchorListener *>(object), dynamic_cast<IAnchorListener *>(object));
    QCOMPARE(object->metaObject()->indexOfSlot("anchorMoved(IConnectionAnchor*)") >= 0, true);
}

void tst_Connections::withoutAnchorsIsNotRouted()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    ProbeRouter router;
    connection->setConnectionRouter(&router);
    router.log.clear();
    expectUnresolvedBounds(isReal);
    connection.layout();
    QCOMPARE(router.log, QStringList());
    QCOMPARE(connection->getPoints(), QList<QPoint>({QPoint(0, 0), QPoint(100, 100)}));
}

void tst_Connections::withOneAnchorIsNotRouted()
{
    QFETCH(bool, isReal);
    XYAnchor anchor(QPoint(5, 5));
    ProbeRouter router;
    const AnyConnection connection(isReal);
    connection->setConnectionRouter(&router);
    connection->setSourceAnchor(&anchor);
    router.log.clear();
    expectUnresolvedBounds(isReal);
    connection.layout();
    connection->setSourceAnchor(nullptr);
    connection->setTargetAnchor(&anchor);
    expectUnresolvedBounds(isReal);
    connection.layout();
    QVERIFY(!router.log.contains(isReal ? "doRouteF" : "doRoute"));
}

void tst_Connections::pointsAreConvertedAndRounded()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    const QList<QPointF> reals {QPointF(1.5, -1.5), QPointF(20.25, 30.75)};
    const QList<QPoint> rounded {QPoint(2, -2), QPoint(20, 31)};
    connection->setPointsF(reals);
    QCOMPARE(connection->getPoints(), rounded);
    QCOMPARE(connection->getPointsF(), isReal ? reals : QList<QPointF>({QPointF(2, -2), QPointF(20, 31)}));
    connection->setPoints(rounded);
    QCOMPARE(connection->getPoints(), rounded);
    QCOMPARE(connection->getPointsF(), QList<QPointF>({QPointF(2, -2), QPointF(20, 31)}));
}

void tst_Connections::singlePointsFollowTheList()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    connection->setPointsF({QPointF(1.5, -1.5), QPointF(20.25, 30.75), QPointF(4, 5)});
    QCOMPARE(connection->getPointCount(), 3);
    QCOMPARE(connection->getPoint(0), QPoint(2, -2));
    QCOMPARE(connection->getPointF(1), isReal ? QPointF(20.25, 30.75) : QPointF(20, 31));
    QCOMPARE(connection->getPoint(3), QPoint(0, 0));
    QCOMPARE(connection->getPointF(-1), QPointF(0, 0));
}

void tst_Connections::layoutRoutesPlacesAndAnnounces()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    QSignalSpy moved(shown.connection.figure(), &Figure::figureMoved);
    shown.router.points = {QPoint(10, 10), QPoint(60, 40)};
    shown.router.pointsF = {QPointF(10, 10), QPointF(60, 40)};
    shown.connection->revalidate();
    shown.forget();
    shown.connection->validate();
    QCOMPARE(shown.router.log, QStringList(isReal ? "doRouteF" : "doRoute"));
    QCOMPARE(shown.connection->getPoints(), QList<QPoint>({QPoint(10, 10), QPoint(60, 40)}));
    QCOMPARE(shown.connection->getBounds(), QRect(9, 9, 52, 32));
    QCOMPARE(shown.displayed.takeDirtyRects().last(), QRect(9, 9, 52, 32));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).value<Figure *>(), shown.connection.figure());
    QCOMPARE(shown.connection.with([](auto &c) { return c.getPainterPath().elementCount(); }), 2);
}

void tst_Connections::shortRouteKeepsThePoints()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    const QList<QPoint> before = shown.connection->getPoints();
    shown.router.points = {QPoint(7, 7)};
    shown.router.pointsF = {QPointF(7, 7)};
    expectWarning("AbstractRouter::route(): invalid route");
    shown.connection.layout();
    QCOMPARE(shown.connection->getPoints(), before);
}

void tst_Connections::boundsAreCachedUntilTheNextLayout()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    const AnyConnection connection(isReal);
    displayed.root.add(connection.figure());
    expectUnresolvedBounds(isReal);
    displayed.root.validate();
    const QRect cached = connection->getBounds();
    QCOMPARE(cached, QRect(-1, -1, 102, 102));
    connection->setPoints({QPoint(0, 0), QPoint(10, 10)});
    QCOMPARE(connection->getBounds(), cached);
    connection.layout();
    QCOMPARE(connection->getBounds(), QRect(-1, -1, 12, 12));
}

void tst_Connections::boundsIncludeChildren()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    const AnyConnection connection(isReal);
    Figure label;
    Figure unplaced;
    connection->add(&label, QVariant(), -1);
    connection->add(&unplaced, QVariant(), -1);
    label.setBounds(QRect(200, 20, 30, 10));
    displayed.root.add(connection.figure());
    expectUnresolvedBounds(isReal);
    displayed.root.validate();
    QCOMPARE(connection->getBounds(), QRect(-1, -1, 232, 102));
    connection->remove(&label);
    connection->remove(&unplaced);
}

void tst_Connections::childrenAloneMakeBounds()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    const AnyConnection connection(isReal);
    Figure label;
    connection->add(&label, QVariant(), -1);
    label.setBounds(QRect(200, 20, 30, 10));
    displayed.root.add(connection.figure());
    connection->setPoints({});
    expectUnresolvedBounds(isReal);
    connection.layout();
    QCOMPARE(connection->getBounds(), QRect(199, 19, 32, 12));
    connection->remove(&label);
}

void tst_Connections::emptyLineWithoutChildrenAnnouncesNothing()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    const AnyConnection connection(isReal);
    displayed.root.add(connection.figure());
    connection->setPoints({});
    displayed.takeDirtyRects();
    QSignalSpy moved(connection.figure(), &Figure::figureMoved);
    expectUnresolvedBounds(isReal);
    connection.layout();
    QCOMPARE(connection->getBounds(), QRect());
    QCOMPARE(moved.count(), 0);
    QCOMPARE(displayed.takeDirtyRects(), QList<QRect>());
}

void tst_Connections::anchorIsHookedOnlyInATree()
{
    QFETCH(bool, isReal);
    CountingAnchor anchor(QPoint(5, 5));
    AnyConnection connection(isReal);
    connection->setSourceAnchor(&anchor);
    connection->setTargetAnchor(&anchor);
    QCOMPARE(connection->getSourceAnchor(), static_cast<IConnectionAnchor *>(&anchor));
    QCOMPARE(connection->getTargetAnchor(), static_cast<IConnectionAnchor *>(&anchor));
    QCOMPARE(anchor.listeners, 0);
    DisplayedRoot displayed;
    displayed.root.add(connection.figure());
    QCOMPARE(anchor.listeners, 2);
    connection->setSourceAnchor(nullptr);
    QCOMPARE(anchor.listeners, 1);
    connection->setTargetAnchor(nullptr);
    QCOMPARE(anchor.listeners, 0);
}

void tst_Connections::anchorSetOnAChildIsHookedAtOnce()
{
    QFETCH(bool, isReal);
    CountingAnchor anchor(QPoint(5, 5));
    Figure parent;
    ProbeLayout layout;
    parent.setLayoutManager(&layout);
    AnyConnection connection(isReal);
    parent.add(connection.figure());
    connection->setSourceAnchor(&anchor);
    QCOMPARE(anchor.listeners, 1);
    // Shown later, it is not hooked twice.
    connection->addNotify();
    QCOMPARE(anchor.listeners, 1);
    connection->removeNotify();
    QCOMPARE(anchor.listeners, 0);
}

void tst_Connections::sameAnchorChangesNothing()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    shown.connection->setSourceAnchor(&shown.source);
    shown.connection->setTargetAnchor(&shown.target);
    QCOMPARE(shown.connection.isValid(), true);
    QCOMPARE(shown.source.listeners, 1);
    QCOMPARE(shown.router.log, QStringList());
}

void tst_Connections::movedAnchorRoutesAnew()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    shown.target.setLocation(QPoint(80, 80));
    QCOMPARE(shown.connection.isValid(), false);
    QCOMPARE(shown.router.log, QStringList("invalidate"));
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection.isValid(), true);
    QCOMPARE(shown.router.log, QStringList({"invalidate", isReal ? "doRouteF" : "doRoute"}));
}

void tst_Connections::movedOwnerRoutesAnew()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    Figure from;
    Figure to;
    ChopboxAnchor source(&from);
    ChopboxAnchor target(&to);
    const AnyConnection connection(isReal);
    displayed.root.add(&from);
    displayed.root.add(&to);
    from.setBounds(QRect(0, 0, 20, 20));
    to.setBounds(QRect(100, 0, 20, 20));
    displayed.root.add(connection.figure());
    connection->setSourceAnchor(&source);
    connection->setTargetAnchor(&target);
    expectUnresolvedBounds(isReal);
    displayed.manager.performUpdate();
    const QList<QPoint> before = connection->getPoints();
    to.setBounds(QRect(100, 80, 20, 20));
    displayed.manager.performUpdate();
    QVERIFY(connection->getPoints() != before);
    QCOMPARE(connection->getPoints().last(), target.getLocation(source.getReferencePoint()));
    displayed.root.remove(connection.figure());
}

void tst_Connections::removalUnhooksAndForgets()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    QCOMPARE(shown.source.listeners, 1);
    shown.displayed.root.remove(shown.connection.figure());
    QCOMPARE(shown.source.listeners, 0);
    QCOMPARE(shown.target.listeners, 0);
    QCOMPARE(shown.router.log.value(0), QStringLiteral("remove"));
    QVERIFY(!shown.connection.figure()->getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Connections::routerChangeIsAnnounced()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    QSignalSpy changed(shown.connection.figure(), &Figure::propertyChanged);
    ProbeRouter next;
    shown.connection->setConnectionRouter(&next);
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(&next));
    QCOMPARE(shown.router.log, QStringList("remove"));
    QCOMPARE(next.log, QStringList("invalidate"));
    QCOMPARE(shown.connection.isValid(), false);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("connectionRouter"));
    QCOMPARE(changed.at(0).at(1).value<QVariant>().value<QObject *>(), &shown.router);
    QCOMPARE(changed.at(0).at(2).value<QVariant>().value<QObject *>(), &next);
    shown.connection->setConnectionRouter(nullptr);
}

void tst_Connections::sameRouterChangesNothing()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    QSignalSpy changed(shown.connection.figure(), &Figure::propertyChanged);
    shown.connection->setConnectionRouter(&shown.router);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(shown.router.log, QStringList());
    QCOMPARE(shown.connection.isValid(), true);
}

void tst_Connections::noRouterMeansTheSharedOne()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    shown.connection->setConnectionRouter(nullptr);
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
    shown.forget();
    shown.connection->validate();
    shown.connection->setConnectionRouter(nullptr);
    QCOMPARE(shown.connection.isValid(), true);
}

void tst_Connections::constraintIsTheRouters()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    shown.connection->setRoutingConstraint(QStringLiteral("here"));
    QCOMPARE(shown.connection->getRoutingConstraint(), QVariant(QStringLiteral("here")));
    QCOMPARE(shown.router.log, QStringList({"setConstraint", "invalidate"}));
    QCOMPARE(shown.connection.isValid(), false);
    shown.connection->setConnectionRouter(nullptr);
    QCOMPARE(shown.connection->getRoutingConstraint(), QVariant());
}

void tst_Connections::revalidateMarksTheOldAreaDirty()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    shown.displayed.root.setBounds(QRect(100, 200, 1000, 1000));
    shown.displayed.root.validate();
    shown.forget();
    const QRect area = shown.connection->getBounds();
    shown.connection->revalidate();
    QCOMPARE(shown.displayed.takeDirtyRects(), QList<QRect>({area.translated(100, 200)}));
    QCOMPARE(shown.router.log, QStringList("invalidate"));
}

void tst_Connections::revalidateWithoutBoundsUpdatesTheView()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    const AnyConnection connection(isReal);
    displayed.root.add(connection.figure());
    const int updates = displayed.viewer.viewport().updateCount();
    connection->revalidate();
    QCOMPARE(displayed.viewer.viewport().updateCount(), updates + 1);
    QCOMPARE(displayed.takeDirtyRects(), QList<QRect>());
}

void tst_Connections::revalidateOutsideATreeInvalidatesTheRoute()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    ProbeRouter router;
    connection->setConnectionRouter(&router);
    expectUnresolvedBounds(isReal);
    connection->validate();
    router.log.clear();
    dynamic_cast<IAnchorListener *>(connection.figure())->anchorMoved(nullptr);
    QCOMPARE(connection.isValid(), false);
    QCOMPARE(router.log, QStringList("invalidate"));
}

void tst_Connections::decorationsSitAtTheEnds()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    shown.router.points = {QPoint(10, 20), QPoint(90, 20)};
    shown.router.pointsF = {QPointF(10, 20), QPointF(90, 20)};
    auto *arrow = new PolygonDecoration(shown.connection.figure());
    auto *tail = new PolylineDecoration(shown.connection.figure());
    shown.connection.setTargetDecoration(arrow);
    shown.connection.setSourceDecoration(tail);
    QCOMPARE(shown.connection.targetDecoration(), static_cast<IRotatableDecoration *>(arrow));
    QCOMPARE(shown.connection.sourceDecoration(), static_cast<IRotatableDecoration *>(tail));
    QCOMPARE(shown.connection->childFigures(), QList<Figure *>({arrow, tail}));
    shown.displayed.manager.performUpdate();
    QCOMPARE(arrow->getLinePoints(), QList<QPoint>({QPoint(83, 23), QPoint(90, 20), QPoint(83, 17)}));
    QCOMPARE(tail->getLinePoints(), QList<QPoint>({QPoint(17, 17), QPoint(10, 20), QPoint(17, 23)}));
    QCOMPARE(shown.connection->getBounds(), QRect(9, 16, 82, 8));
}

void tst_Connections::sameDecorationChangesNothing()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    QPointer<PolygonDecoration> arrow = new PolygonDecoration(shown.connection.figure());
    shown.connection.setTargetDecoration(arrow);
    shown.connection->validate();
    shown.forget();
    shown.connection.setTargetDecoration(arrow);
    QCOMPARE(shown.connection.isValid(), true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(arrow);
    QCOMPARE(shown.connection->childFigureCount(), 1);
}

void tst_Connections::decorationThatIsNoFigureIsStoredOnly()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    PlainDecoration plain;
    expectWarning(isReal ? "PolylineFConnection::setSourceDecoration(): decoration not a figure"
                         : "PolylineConnection::setSourceDecoration(): decoration not a figure");
    connection.setSourceDecoration(&plain);
    expectWarning(isReal ? "PolylineFConnection::setTargetDecoration(): decoration not a figure"
                         : "PolylineConnection::setTargetDecoration(): decoration not a figure");
    connection.setTargetDecoration(&plain);
    QCOMPARE(connection.sourceDecoration(), &plain);
    QCOMPARE(connection.targetDecoration(), &plain);
    QCOMPARE(connection.figure()->childFigureCount(), 0);
    connection.setSourceDecoration(nullptr);
    connection.setTargetDecoration(nullptr);
    QCOMPARE(connection.sourceDecoration(), nullptr);
    QCOMPARE(connection.targetDecoration(), nullptr);
}

void tst_Connections::replacedDecorationIsDeletedLater()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    QPointer<PolygonDecoration> first = new PolygonDecoration;
    auto *second = new PolylineDecoration(connection.figure());
    connection.setSourceDecoration(first);
    connection.setSourceDecoration(second);
    QCOMPARE(connection->childFigures(), QList<Figure *>({second}));
    QVERIFY(first);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_Connections::nullTakesTheDecorationAway()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    QPointer<PolygonDecoration> arrow = new PolygonDecoration;
    connection.setTargetDecoration(arrow);
    connection.setTargetDecoration(nullptr);
    QCOMPARE(connection.targetDecoration(), nullptr);
    QCOMPARE(connection->childFigureCount(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!arrow);
}

void tst_Connections::anchorsAndRouterMayDieFirst()
{
    QFETCH(bool, isReal);
    DisplayedRoot displayed;
    const AnyConnection connection(isReal);
    displayed.root.add(connection.figure());
    {
        XYAnchor source(QPoint(1, 1));
        XYAnchor target(QPoint(9, 9));
        ProbeRouter router;
        connection->setSourceAnchor(&source);
        connection->setTargetAnchor(&target);
        connection->setConnectionRouter(&router);
        expectUnresolvedBounds(isReal);
        displayed.manager.performUpdate();
    }
    QCOMPARE(connection->getSourceAnchor(), nullptr);
    QCOMPARE(connection->getTargetAnchor(), nullptr);
    QCOMPARE(connection->getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
    connection->revalidate();
    displayed.manager.performUpdate();
    QCOMPARE(connection.isValid(), true);
    displayed.root.remove(connection.figure());
}

void tst_Connections::connectionMayDieWhileShown()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    const QRect area = shown.connection->getBounds();
    shown.connection.destroy();
    QCOMPARE(shown.source.listeners, 0);
    QCOMPARE(shown.target.listeners, 0);
    QVERIFY(shown.router.log.contains("remove"));
    QVERIFY(shown.displayed.takeDirtyRects().contains(area));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    shown.source.setLocation(QPoint(3, 3));
    shown.displayed.manager.performUpdate();
}

void tst_Connections::decorationMayDieFirst()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    auto arrow = std::make_unique<PolygonDecoration>();
    shown.connection.setTargetDecoration(arrow.get());
    shown.displayed.manager.performUpdate();
    arrow.reset();
    QCOMPARE(shown.connection.targetDecoration(), nullptr);
    QCOMPARE(shown.connection->childFigureCount(), 0);
    shown.connection->revalidate();
    shown.displayed.manager.performUpdate();
    QCOMPARE(shown.connection.isValid(), true);
}

void tst_Connections::deadAnchorIsReplacedAndHooked()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    auto mortal = std::make_unique<CountingAnchor>(QPoint(1, 1));
    shown.connection->setSourceAnchor(mortal.get());
    QCOMPARE(shown.source.listeners, 0);
    mortal.reset();
    shown.connection->setSourceAnchor(&shown.source);
    QCOMPARE(shown.source.listeners, 1);
}

PICTEL_TEST_MAIN(tst_Connections)
#include "tst_connections.moc"
