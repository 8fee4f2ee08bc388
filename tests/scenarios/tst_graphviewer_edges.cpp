#include "GraphViewerTest.h"
#include "NodeAnchors.h"
#include "Screen.h"

#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/layers/ConnectionLayer.h>

#include <QAction>

#include <algorithm>
#include <cmath>

using namespace GraphViewer;
using namespace GraphViewerSupport;
using namespace Vantrel::Pictel;

/// Edges as connections: their anchors, routers, arrows and labels, and how they follow what is moved.
class tst_GraphViewerEdges : public GraphViewerTest
{
    Q_OBJECT

private Q_SLOTS:
    void edgesAreConnectionsInAConnectionLayer();
    void anchorsSuitTheOutlines();
    void unfilledRoundOutlinesAreReached_data();
    void unfilledRoundOutlinesAreReached();
    void edgesOfRecordsStartAtTheirFields();
    void compoundEdgesEndAtClusters();

    void bendpointRouterFollowsGraphviz_data();
    void bendpointRouterFollowsGraphviz();
    void straightRouterDrawsStraightLines();
    void manhattanRouterDrawsUprightLines();
    void menuShowsTheRouterInUse();
    void nextGraphKeepsTheRouter();

    void movedNodeTakesItsEdgesAlong_data() { addRouters(); }
    void movedNodeTakesItsEdgesAlong();
    void nodeMovedInAClusterTakesItsEdgesAlong();
    void movedClusterTakesTheEdgesInItAlong_data() { addRouters(); }
    void movedClusterTakesTheEdgesInItAlong();
    void edgesAreRoutedAnewWhileANodeIsDragged();
    void movingRepaintsAllThatChanged_data() { addRouters(); }
    void movingRepaintsAllThatChanged();

    void loopsAndParallelEdgesStayDistinct_data() { addRouters(); }
    void loopsAndParallelEdgesStayDistinct();

    void unusualGraphsMakeNoNoise_data();
    void unusualGraphsMakeNoNoise();
};

namespace {

double distance(const QPointF &one, const QPointF &other)
{
    return QLineF(one, other).length();
}

// How far the one line gets away from the other.
double farthestFrom(const Track &line, const Track &other)
{
    double farthest = 0;
    for (double at = 0; at <= line.length(); at += 2)
        farthest = std::max(farthest, other.nearestTo(line.at(at)).gap);
    return farthest;
}

// Whether that point, an end of a line, lies on the outline of what \a anchor sits on.
bool isOnOutline(const QPointF &point, const IConnectionAnchor *anchor)
{
    return Track(straightPath(outlineOf(*anchor))).nearestTo(point).gap <= 2.5;
}

bool meetsBothEnds(const EdgeConnection &edge)
{
    return isOnOutline(startOf(edge), edge.getSourceAnchor()) && isOnOutline(endOf(edge), edge.getTargetAnchor());
}

} // namespace

// Anchors

void tst_GraphViewerEdges::edgesAreConnectionsInAConnectionLayer()
{
    Layer *layer = view().scene()->content()->getLayer(QStringLiteral("edges"));
    QVERIFY(qobject_cast<ConnectionLayer *>(layer));
    QCOMPARE(layer->childFigureCount(), 17);
    for (EdgeConnection *edge : edges()) {
        QVERIFY(qobject_cast<IConnection *>(static_cast<QObject *>(edge)));
        QVERIFY(edge->getSourceAnchor());
        QVERIFY(edge->getTargetAnchor());
    }
}

void tst_GraphViewerEdges::anchorsSuitTheOutlines()
{
    showGraph("digraph { box [shape=box]; round [shape=ellipse]; tip [shape=diamond]; bare [shape=none];"
              " box -> round -> tip -> bare }");
    const auto anchorsOf = [&](const char *name) {
        EdgeConnection *edge = edgeNamed(view(), QString::fromUtf8(name));
        return QPair<IConnectionAnchor *, IConnectionAnchor *>(edge->getSourceAnchor(), edge->getTargetAnchor());
    };
    const auto [box, round] = anchorsOf("box → round");
    const auto [tip, bare] = anchorsOf("tip → bare");
    QVERIFY(dynamic_cast<ChopboxAnchor *>(box) && !dynamic_cast<PortAnchor *>(box));
    QVERIFY(dynamic_cast<EllipseAnchor *>(round));
    QVERIFY(dynamic_cast<OutlineAnchor *>(tip));
    QVERIFY(dynamic_cast<ChopboxAnchor *>(bare) && !dynamic_cast<PortAnchor *>(bare));
    QCOMPARE(bare->getOwner(), node(view(), QStringLiteral("bare")));
}

void tst_GraphViewerEdges::unfilledRoundOutlinesAreReached_data()
{
    QTest::addColumn<QByteArray>("shape");
    QTest::addColumn<QByteArray>("style");
    QTest::newRow("rounded box") << QByteArray("box") << QByteArray("rounded");
    QTest::newRow("dashed") << QByteArray("box") << QByteArray("rounded,dashed");
    QTest::newRow("record") << QByteArray("Mrecord") << QByteArray("solid");
}

// Graphviz draws them as curves, but they have an inside all the same.
void tst_GraphViewerEdges::unfilledRoundOutlinesAreReached()
{
    QFETCH(QByteArray, shape);
    QFETCH(QByteArray, style);
    const auto startAtNode = [&](const QByteArray &look) {
        showGraph("digraph { a [label=x width=2 height=1 penwidth=4 shape=" + shape + " style=\"" + look
                  + "\"]; a -> b }");
        return startOf(*edgeNamed(view(), QStringLiteral("a → b")));
    };
    const QPointF filled = startAtNode(style + ",filled");
    QCOMPARE(startAtNode(style), filled);
    Element *round = node(view(), QStringLiteral("a (x)"));
    QVERIFY(round->contains(round->getBounds().center() + QPoint(60, 30)));
    QCOMPARE(qobject_cast<Shape *>(round->outline())->getFill(), false);
}

void tst_GraphViewerEdges::edgesOfRecordsStartAtTheirFields()
{
    EdgeConnection *edge = edgeNamed(view(), QStringLiteral("order → orders (stores)"));
    Element *order = node(view(), QStringLiteral("order (Order id: int total: money items: list)"));
    const QPointF offset = startOf(*edge) - order->getBounds().topLeft();
    QVERIFY(offset.y() > order->getBounds().height() * 0.7);
    view().scene()->move(order, {40, -30});
    layOut();
    QVERIFY(distance(startOf(*edge) - order->getBounds().topLeft(), offset) <= 1.5);
}

void tst_GraphViewerEdges::compoundEdgesEndAtClusters()
{
    showGraph("digraph { compound=true; a; subgraph cluster_x { b; c } a -> b [lhead=cluster_x];"
              " c -> a [ltail=cluster_x]; b -> c [lhead=cluster_x]; a -> c [lhead=nowhere] }");
    const auto headOf
        = [&](const char *name) { return edgeNamed(view(), QString::fromUtf8(name))->getTargetAnchor()->getOwner(); };
    Element *cluster = clusterNamed(view(), QStringLiteral("cluster_x"));
    QCOMPARE(headOf("a → b"), cluster->outline());
    QCOMPARE(headOf("b → c"), node(view(), QStringLiteral("c"))->outline());
    QCOMPARE(headOf("a → c"), node(view(), QStringLiteral("c"))->outline());
    QCOMPARE(edgeNamed(view(), QStringLiteral("c → a"))->getSourceAnchor()->getOwner(), cluster->outline());
    const QPointF end = endOf(*edgeNamed(view(), QStringLiteral("a → b")));
    view().scene()->move(cluster, {30, 20});
    layOut();
    QVERIFY(distance(endOf(*edgeNamed(view(), QStringLiteral("a → b"))), end + QPointF(30, 20)) < 20);
    QVERIFY(meetsBothEnds(*edgeNamed(view(), QStringLiteral("a → b"))));
}

// Routers

void tst_GraphViewerEdges::bendpointRouterFollowsGraphviz_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("web shop") << sample(QStringLiteral("webshop.dot"));
    QTest::newRow("states") << sample(QStringLiteral("states.gv"));
    QTest::newRow("records") << bundled(QStringLiteral("records.gv"));
    QTest::newRow("clusters") << bundled(QStringLiteral("clusters.gv"));
}

void tst_GraphViewerEdges::bendpointRouterFollowsGraphviz()
{
    QFETCH(QString, file);
    show(file);
    for (EdgeConnection *edge : edges()) {
        const double off = farthestFrom(Track(edge->course()), edge->track());
        QVERIFY2(off < 6, qPrintable(QStringLiteral("%1 is %2 pixels off").arg(edge->name()).arg(off)));
        QVERIFY2(edge->bends().count() <= 12, qPrintable(edge->name()));
    }
}

void tst_GraphViewerEdges::straightRouterDrawsStraightLines()
{
    action(QStringLiteral("Straight"))->trigger();
    layOut();
    for (const EdgeConnection *edge : edges()) {
        QCOMPARE(edge->getPointCount(), 2);
        QVERIFY(qAbs(distance(startOf(*edge), endOf(*edge)) - edge->track().length()) < 0.01);
    }
}

void tst_GraphViewerEdges::manhattanRouterDrawsUprightLines()
{
    showGraph("digraph { a -> b; a -> c; a -> d; a -> a; b -> d; c -> d; d -> a }");
    action(QStringLiteral("Manhattan"))->trigger();
    layOut();
    for (EdgeConnection *edge : edges()) {
        const QList<QPoint> points = edge->getPoints();
        for (qsizetype i = 0; i + 1 < points.size(); ++i) {
            const QPoint way = points[i + 1] - points[i];
            QVERIFY2(way.x() == 0 || way.y() == 0, qPrintable(edge->name()));
        }
    }
}

void tst_GraphViewerEdges::menuShowsTheRouterInUse()
{
    const auto checked = [&] {
        QStringList texts;
        for (const QString &text :
             {QStringLiteral("Straight"), QStringLiteral("With Bendpoints"), QStringLiteral("Manhattan")}) {
            if (action(text)->isChecked())
                texts << text;
        }
        return texts;
    };
    QCOMPARE(checked(), QStringList(QStringLiteral("With Bendpoints")));
    action(QStringLiteral("Manhattan"))->trigger();
    QCOMPARE(checked(), QStringList(QStringLiteral("Manhattan")));
    QCOMPARE(view().router(), RouterKind::Manhattan);
    window().setRouter(RouterKind::Straight);
    QCOMPARE(checked(), QStringList(QStringLiteral("Straight")));
    QCOMPARE(view().router(), RouterKind::Straight);
}

void tst_GraphViewerEdges::nextGraphKeepsTheRouter()
{
    action(QStringLiteral("Straight"))->trigger();
    showGraph("digraph { rankdir=LR; a -> b -> c -> d; a -> d }");
    for (const EdgeConnection *edge : edges())
        QCOMPARE(edge->getPointCount(), 2);
}

// Moving

void tst_GraphViewerEdges::movedNodeTakesItsEdgesAlong()
{
    useRouter();
    Element *paid = node(view(), QStringLiteral("paid (Paid?)"));
    EdgeConnection *coming = edgeNamed(view(), QStringLiteral("order → paid"));
    EdgeConnection *going = edgeNamed(view(), QStringLiteral("paid → queue (yes)"));
    const QPoint from = middleOf(view(), paid);
    for (const QPoint &way : {QPoint(80, -10), QPoint(-30, 15)}) {
        drag(view(), Qt::LeftButton, from, from + way);
        screen();
        QVERIFY(meetsBothEnds(*coming));
        QVERIFY(meetsBothEnds(*going));
    }
}

void tst_GraphViewerEdges::nodeMovedInAClusterTakesItsEdgesAlong()
{
    Element *pack = node(view(), QStringLiteral("pack (Pack)"));
    EdgeConnection *edge = edgeNamed(view(), QStringLiteral("queue → pack"));
    EdgeConnection *other = edgeNamed(view(), QStringLiteral("van → done (delivered)"));
    const QPolygonF untouched = other->track().piece(0, 1e6);
    const QPoint from = middleOf(view(), pack);
    drag(view(), Qt::LeftButton, from, from + QPoint(25, 5));
    screen();
    QVERIFY(meetsBothEnds(*edge));
    QCOMPARE(other->track().piece(0, 1e6), untouched);
}

void tst_GraphViewerEdges::movedClusterTakesTheEdgesInItAlong()
{
    useRouter();
    Element *cluster = clusterNamed(view(), QStringLiteral("cluster_ship (Shipping)"));
    EdgeConnection *inner = edgeNamed(view(), QStringLiteral("label_it → van"));
    EdgeConnection *crossing = edgeNamed(view(), QStringLiteral("queue → pack"));
    const QPointF start = startOf(*inner);
    const QPointF end = endOf(*inner);
    const QPointF crossingStart = startOf(*crossing);
    const QPoint corner = view().fromContent(cluster->getBounds().bottomLeft() + QPoint(6, -20));
    const QPointF offset = view().toContent(QPointF(corner + QPoint(30, 8))) - view().toContent(QPointF(corner));
    drag(view(), Qt::LeftButton, corner, corner + QPoint(30, 8));
    screen();
    QVERIFY(distance(startOf(*inner), start + offset) <= 2);
    QVERIFY(distance(endOf(*inner), end + offset) <= 2);
    QVERIFY(distance(startOf(*crossing), crossingStart) < 40);
    QVERIFY(meetsBothEnds(*crossing));
}

void tst_GraphViewerEdges::edgesAreRoutedAnewWhileANodeIsDragged()
{
    Element *mail = node(view(), QStringLiteral("mail (E-mail)"));
    EdgeConnection *edge = edgeNamed(view(), QStringLiteral("paid → mail (no)"));
    const QPoint from = middleOf(view(), mail);
    sendMouse(view(), QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (int step = 10; step <= 40; step += 10) {
        sendMouse(view(), QEvent::MouseMove, from - QPoint(step, step), Qt::NoButton, Qt::LeftButton);
        screen();
        QVERIFY(meetsBothEnds(*edge));
    }
    sendMouse(view(), QEvent::MouseButtonRelease, from - QPoint(40, 40), Qt::LeftButton, Qt::NoButton);
}

void tst_GraphViewerEdges::movingRepaintsAllThatChanged()
{
    useRouter();
    Screen seen(view());
    for (const QString &name : {QStringLiteral("paid (Paid?)"), QStringLiteral("mail (E-mail)")}) {
        const QPoint from = middleOf(view(), node(view(), name));
        drag(view(), Qt::LeftButton, from, from + QPoint(-35, 20));
        seen.settle();
        QCOMPARE(difference(seen.accumulated(), seen.repainted()), QString());
    }
    action(QStringLiteral("Straight"))->trigger();
    seen.settle();
    QCOMPARE(difference(seen.accumulated(), seen.repainted()), QString());
}

// Distinctness

void tst_GraphViewerEdges::loopsAndParallelEdgesStayDistinct()
{
    showGraph("digraph { ranksep=1; a -> b; a -> b; a -> b [style=dashed]; b -> a; a -> a; a -> a; b -> b; }");
    useRouter();
    for (const QPoint &move : {QPoint(), QPoint(120, 0), QPoint(-60, -50), QPoint(200, -150)}) {
        view().scene()->move(node(view(), QStringLiteral("b")), move);
        layOut();
        const QList<EdgeConnection *> all = edges();
        QCOMPARE(all.size(), 7);
        for (const EdgeConnection *edge : all) {
            QVERIFY2(edge->track().length() > 20, qPrintable(edge->name()));
            for (const EdgeConnection *other : all) {
                const double apart = other == edge ? 100 : farthestFrom(edge->track(), other->track());
                QVERIFY2(apart >= 4, qPrintable(QStringLiteral("%1, %2").arg(edge->name()).arg(apart)));
            }
        }
    }
}

// Robustness

void tst_GraphViewerEdges::unusualGraphsMakeNoNoise_data()
{
    QTest::addColumn<QByteArray>("graph");
    for (const char *splines : {"ortho", "polyline", "line", "false", "none", "curved", "nonsense"})
        QTest::addRow("splines %s", splines)
            << QByteArray("digraph { splines=\"") + splines + "\"; a -> b -> c -> a; a -> c; b -> b; a -> b }";
    QTest::newRow("concentrated") << QByteArray("digraph { concentrate=true; a -> {b c d} -> e; a -> e }");
    QTest::newRow("arrows") << QByteArray(
        "digraph { a -> b [arrowhead=oops, arrowtail=42, dir=sideways, arrowsize=-3] }");
    QTest::newRow("ports") << QByteArray("digraph { r [shape=record, label=\"<x> 1|<y> 2\"]; r:z -> a:n; r:x:q -> r:y;"
                                         " a:ne -> a:sw; b:_ -> r:y:s }");
    QTest::newRow("clusters") << QByteArray("digraph { compound=true; subgraph cluster_a { subgraph cluster_b { x } }"
                                            " y -> x [lhead=cluster_b]; x -> y [ltail=cluster_a];"
                                            " x -> x [lhead=cluster_a]; y -> x [lhead=cluster_none] }");
    QTest::newRow("hidden nodes") << QByteArray("digraph { a [style=invis]; a -> b; b -> a; a -> a [label=x] }");
    QTest::newRow("points") << QByteArray("graph { node [shape=point]; a -- b; a -- a; a -- b; b -- b [label=l] }");
    QTest::newRow("no size") << QByteArray(
        "digraph { node [shape=none, label=\"\", width=0, height=0]; a -> b; b -> b }");
    QTest::newRow("labels alone") << QByteArray("digraph { a -> b [style=invis, label=unseen, taillabel=t]; b -> a"
                                                " [penwidth=0, headlabel=h, xlabel=x, decorate=true] }");
    QTest::newRow("widths") << QByteArray("digraph { a -> b [penwidth=200]; b -> a [penwidth=\"-5\", style=tapered] }");
}

void tst_GraphViewerEdges::unusualGraphsMakeNoNoise()
{
    QFETCH(QByteArray, graph);
    showGraph(graph);
    for (const RouterKind router : everyRouter) {
        window().setRouter(router);
        for (Figure *each : view().scene()->content()->getLayer(QStringLiteral("nodes"))->childFigures()) {
            view().scene()->move(static_cast<Element *>(each), {13, -7});
            screen();
        }
        for (EdgeConnection *edge : edges()) {
            edge->setHighlighted(true);
            QVERIFY(!screen().isNull());
            edge->setHighlighted(false);
        }
    }
}

PICTEL_TEST_MAIN(tst_GraphViewerEdges)
#include "tst_graphviewer_edges.moc"
