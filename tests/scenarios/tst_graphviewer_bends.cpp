#include "GraphViewerTest.h"
#include "Screen.h"

#include <QAction>

using namespace GraphViewer;
using namespace GraphViewerSupport;
using namespace Vantrel::Pictel;

/// Bending edges with the mouse.
class tst_GraphViewerBends : public GraphViewerTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void dragOnALineAddsABendpoint();
    void newBendpointFollowsThePointer();
    void bendpointsKeepTheirOrderAlongTheLine();
    void clickOnALineAddsNone();
    void dragOfABendpointMovesIt();
    void doubleClickRemovesABendpoint();
    void doubleClickBesideBendpointsRemovesNone();
    void bendpointMovesHalfAsFarAsOneEnd();
    void bendpointMovesWithBothEnds();
    void bendpointsAreShownWhereThePointerIs();
    void bendpointOutOfThePageEnlargesThePicture();
    void bendpointsSurviveAnotherRouter();
    void otherRoutersLetTheViewBeDraggedByALine_data();
    void otherRoutersLetTheViewBeDraggedByALine();
    void loopsAreBentToo();
    void bendingRepaintsAllThatChanged();

private:
    EdgeConnection *straightEdge() { return edgeNamed(view(), QStringLiteral("a → b")); }
    QPoint onLine(const EdgeConnection &edge, double part);
    QPoint bendOf(const EdgeConnection &edge, int index) { return view().fromContent(edge.bends().at(index)); }
    void doubleClick(const QPoint &viewportPoint);
};

namespace {

double distance(const QPointF &one, const QPointF &other)
{
    return QLineF(one, other).length();
}

} // namespace

void tst_GraphViewerBends::init()
{
    GraphViewerTest::init();
    showGraph("digraph { ranksep=2; a -> b; a -> a; }");
}

QPoint tst_GraphViewerBends::onLine(const EdgeConnection &edge, double part)
{
    return view().fromContent(edge.track().at(edge.track().length() * part)).toPoint();
}

void tst_GraphViewerBends::doubleClick(const QPoint &viewportPoint)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                                    QEvent::MouseButtonRelease}) {
        const bool isRelease = type == QEvent::MouseButtonRelease;
        sendMouse(view(), type, viewportPoint, Qt::LeftButton, isRelease ? Qt::NoButton : Qt::LeftButton);
    }
}

void tst_GraphViewerBends::dragOnALineAddsABendpoint()
{
    EdgeConnection *edge = straightEdge();
    QCOMPARE(edge->bends().count(), 0);
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 10));
    screen();
    QCOMPARE(edge->bends().count(), 1);
    QCOMPARE(bendOf(*edge, 0), from + QPoint(60, 10));
    QCOMPARE(edge->getPointCount(), 3);
    QVERIFY(edge->track().nearestTo(edge->bends().at(0)).gap < 0.5);
}

void tst_GraphViewerBends::newBendpointFollowsThePointer()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    sendMouse(view(), QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (int step = 20; step <= 80; step += 20) {
        sendMouse(view(), QEvent::MouseMove, from + QPoint(step, 0), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(edge->bends().count(), 1);
        QCOMPARE(bendOf(*edge, 0), from + QPoint(step, 0));
    }
    sendMouse(view(), QEvent::MouseButtonRelease, from + QPoint(80, 0), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(edge->bends().count(), 1);
}

void tst_GraphViewerBends::bendpointsKeepTheirOrderAlongTheLine()
{
    EdgeConnection *edge = straightEdge();
    for (const double part : {0.5, 0.8, 0.2}) {
        const QPoint from = onLine(*edge, part);
        drag(view(), Qt::LeftButton, from, from + QPoint(30, 0));
        screen();
    }
    QCOMPARE(edge->bends().count(), 3);
    QVERIFY(edge->bends().at(0).y() < edge->bends().at(1).y());
    QVERIFY(edge->bends().at(1).y() < edge->bends().at(2).y());
}

void tst_GraphViewerBends::clickOnALineAddsNone()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from);
    drag(view(), Qt::LeftButton, from, from + QPoint(1, 1));
    QCOMPARE(edge->bends().count(), 0);
}

void tst_GraphViewerBends::dragOfABendpointMovesIt()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 10));
    screen();
    const QPoint bend = bendOf(*edge, 0);
    drag(view(), Qt::LeftButton, bend, bend + QPoint(-90, 25));
    screen();
    QCOMPARE(edge->bends().count(), 1);
    QCOMPARE(bendOf(*edge, 0), bend + QPoint(-90, 25));
    QVERIFY(edge->getBounds().contains(edge->bends().at(0)));
}

void tst_GraphViewerBends::doubleClickRemovesABendpoint()
{
    EdgeConnection *edge = straightEdge();
    const QPolygonF straight = edge->track().piece(0, edge->track().length());
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 10));
    screen();
    doubleClick(bendOf(*edge, 0));
    screen();
    QCOMPARE(edge->bends().count(), 0);
    QCOMPARE(edge->track().piece(0, edge->track().length()), straight);
}

void tst_GraphViewerBends::doubleClickBesideBendpointsRemovesNone()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 10));
    screen();
    doubleClick(onLine(*edge, 0.2));
    doubleClick(freeSpot());
    QCOMPARE(edge->bends().count(), 1);
}

void tst_GraphViewerBends::bendpointMovesHalfAsFarAsOneEnd()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 0));
    const QPoint before = edge->bends().at(0);
    view().scene()->move(node(view(), QStringLiteral("b")), {100, 40});
    QVERIFY(distance(edge->bends().at(0), before + QPoint(50, 20)) <= 2);
}

void tst_GraphViewerBends::bendpointMovesWithBothEnds()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.3);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 0));
    screen();
    const QList<QPoint> points = edge->getPoints();
    for (const QString &name : {QStringLiteral("a"), QStringLiteral("b")})
        view().scene()->move(node(view(), name), {-37, 21});
    screen();
    QList<QPoint> moved;
    for (const QPoint &point : points)
        moved << point + QPoint(-37, 21);
    QCOMPARE(edge->getPoints(), moved);
}

void tst_GraphViewerBends::bendpointsAreShownWhereThePointerIs()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 10));
    hover(freeSpot());
    const QPoint bend = bendOf(*edge, 0);
    QTRY_VERIFY(qGray(screen().pixel(bend)) < 130);
    hover(onLine(*edge, 0.3));
    QTRY_COMPARE(screen().pixelColor(bend), QColor(Qt::white));
    action(QStringLiteral("Straight"))->trigger();
    QVERIFY(!view().scene()->isBendable(edge));
}

void tst_GraphViewerBends::bendpointOutOfThePageEnlargesThePicture()
{
    EdgeConnection *edge = straightEdge();
    const QRect area = view().scene()->pictureArea();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(250, 0));
    QVERIFY(!area.contains(edge->bends().at(0)));
    QVERIFY(view().scene()->pictureArea().contains(edge->bends().at(0)));
}

void tst_GraphViewerBends::bendpointsSurviveAnotherRouter()
{
    EdgeConnection *edge = straightEdge();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(60, 10));
    screen();
    const QList<QPoint> points = edge->getPoints();
    for (const QString &router : {QStringLiteral("Straight"), QStringLiteral("Manhattan")}) {
        action(router)->trigger();
        screen();
        QVERIFY(edge->getPoints() != points);
    }
    action(QStringLiteral("With Bendpoints"))->trigger();
    screen();
    QCOMPARE(edge->getPoints(), points);
}

void tst_GraphViewerBends::otherRoutersLetTheViewBeDraggedByALine_data()
{
    QTest::addColumn<QString>("router");
    QTest::newRow("straight") << QStringLiteral("Straight");
    QTest::newRow("manhattan") << QStringLiteral("Manhattan");
}

void tst_GraphViewerBends::otherRoutersLetTheViewBeDraggedByALine()
{
    QFETCH(QString, router);
    action(router)->trigger();
    view().zoomAt(6.0, {450, 300});
    EdgeConnection *edge = straightEdge();
    screen();
    const QPoint from = onLine(*edge, 0.5);
    drag(view(), Qt::LeftButton, from, from + QPoint(30, 20));
    QCOMPARE(edge->bends().count(), 0);
    QVERIFY(qAbs(onLine(*edge, 0.5).y() - (from.y() + 20)) <= 1);
    doubleClick(onLine(*edge, 0.5));
    QCOMPARE(edge->bends().count(), 0);
}

void tst_GraphViewerBends::loopsAreBentToo()
{
    EdgeConnection *loop = edgeNamed(view(), QStringLiteral("a → a"));
    const int before = loop->bends().count();
    QVERIFY(before > 0);
    const QPoint bend = bendOf(*loop, before / 2);
    drag(view(), Qt::LeftButton, bend, bend + QPoint(40, -10));
    screen();
    QCOMPARE(loop->bends().count(), before);
    QCOMPARE(bendOf(*loop, before / 2), bend + QPoint(40, -10));
}

void tst_GraphViewerBends::bendingRepaintsAllThatChanged()
{
    EdgeConnection *edge = straightEdge();
    Screen seen(view());
    const auto sameEverywhere = [&] {
        seen.settle();
        return difference(seen.accumulated(), seen.repainted());
    };
    const QPoint from = onLine(*edge, 0.4);
    drag(view(), Qt::LeftButton, from, from + QPoint(70, 15));
    QCOMPARE(sameEverywhere(), QString());
    const QPoint bend = bendOf(*edge, 0);
    drag(view(), Qt::LeftButton, bend, bend + QPoint(-110, 30));
    QCOMPARE(sameEverywhere(), QString());
    hover(freeSpot());
    QCOMPARE(sameEverywhere(), QString());
    doubleClick(bendOf(*edge, 0));
    QCOMPARE(sameEverywhere(), QString());
}

PICTEL_TEST_MAIN(tst_GraphViewerBends)
#include "tst_graphviewer_bends.moc"
