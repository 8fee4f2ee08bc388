#include "ArrowDecoration.h"
#include "GraphViewerTest.h"

#include <cmath>

using namespace GraphViewer;
using namespace GraphViewerSupport;
using namespace Vantrel::Pictel;

/// What edges look like: arrows, colours and labels.
class tst_GraphViewerEdgeLook : public GraphViewerTest
{
    Q_OBJECT

private Q_SLOTS:
    void arrowsAreThoseOfTheFile_data();
    void arrowsAreThoseOfTheFile();
    void arrowsTurnWithTheLine();
    void taperedEdgeFollowsItsHead();
    void colorsOfAListRunSideBySide();
    void colorsWithFractionsFollowOneAnother();

    void labelsFollowTheirLines_data() { addRouters(); }
    void labelsFollowTheirLines();
    void labelsKeepClearOfOtherEdges_data() { addRouters(); }
    void labelsKeepClearOfOtherEdges();

private:
    void drawList(const QByteArray &color);
};

namespace {

template <typename Child>
QList<Child *> childrenOf(EdgeConnection &edge)
{
    QList<Child *> children;
    for (Figure *figure : edge.childFigures()) {
        if (auto *child = dynamic_cast<Child *>(figure))
            children << child;
    }
    return children;
}

bool isReddish(const QColor &color)
{
    return color.red() > 240 && color.green() < 20 && color.blue() < 20;
}

} // namespace

void tst_GraphViewerEdgeLook::arrowsAreThoseOfTheFile_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<double>("tailLength");
    QTest::addColumn<double>("headLength");
    QTest::newRow("default") << QByteArray() << 0.0 << 10.0;
    QTest::newRow("back") << QByteArray("dir=back") << 10.0 << 0.0;
    QTest::newRow("both") << QByteArray("dir=both") << 10.0 << 10.0;
    QTest::newRow("none") << QByteArray("dir=none") << 0.0 << 0.0;
    QTest::newRow("no head") << QByteArray("arrowhead=none") << 0.0 << 0.0;
    QTest::newRow("dot") << QByteArray("arrowhead=dot") << 0.0 << 8.0;
    QTest::newRow("tail") << QByteArray("dir=both, arrowtail=dot, arrowhead=none") << 8.0 << 0.0;
    QTest::newRow("large") << QByteArray("arrowsize=2") << 0.0 << 20.0;
    QTest::newRow("two") << QByteArray("arrowhead=normalnormal") << 0.0 << 20.0;
    QTest::newRow("unknown") << QByteArray("arrowhead=frobnicate") << 0.0 << 0.0;
}

void tst_GraphViewerEdgeLook::arrowsAreThoseOfTheFile()
{
    QFETCH(QByteArray, attributes);
    QFETCH(double, tailLength);
    QFETCH(double, headLength);
    showGraph("digraph { ranksep=2; a -> b [" + attributes + "] }");
    EdgeConnection *edge = edges().first();
    double atTail = 0;
    double atHead = 0;
    for (ArrowDecoration *arrow : childrenOf<ArrowDecoration>(*edge)) {
        const bool isTail = QRectF(arrow->getBounds()).contains(startOf(*edge));
        QVERIFY(isTail || QRectF(arrow->getBounds()).contains(endOf(*edge)));
        (isTail ? atTail : atHead) = arrow->length();
    }
    // In points, which are 4/3 pixels.
    QVERIFY2(qAbs(atTail - tailLength * 4 / 3) < 0.8, qPrintable(QString::number(atTail)));
    QVERIFY2(qAbs(atHead - headLength * 4 / 3) < 0.8, qPrintable(QString::number(atHead)));
}

void tst_GraphViewerEdgeLook::arrowsTurnWithTheLine()
{
    showGraph("digraph { ranksep=3; nodesep=3; a -> b [color=red]; a -> c [style=invis] }");
    EdgeConnection *edge = edgeNamed(view(), QStringLiteral("a → b"));
    for (const RouterKind router : {RouterKind::Straight, RouterKind::Bendpoint}) {
        window().setRouter(router);
        for (const QPoint &move : {QPoint(0, 0), QPoint(120, -60), QPoint(-150, -60)}) {
            view().scene()->move(node(view(), QStringLiteral("b")), move);
            layOut();
            const double back = edge->track().length() - 9;
            const QPointF aside = rightOf(edge->track().directionAt(back)) * 2;
            for (const QPointF &point : {edge->track().at(back) + aside, edge->track().at(back) - aside})
                QVERIFY2(isReddish(pixelAt(point)), qPrintable(pixelAt(point).name()));
        }
    }
}

void tst_GraphViewerEdgeLook::taperedEdgeFollowsItsHead()
{
    showGraph("digraph { ranksep=2; a -> b [style=tapered, penwidth=12, color=blue, arrowhead=none] }");
    EdgeConnection *edge = edges().first();
    view().scene()->move(node(view(), QStringLiteral("b")), {60, 20});
    layOut();
    const auto isBlue = [&](double part, double aside) {
        const double at = edge->track().length() * part;
        return pixelAt(edge->track().at(at) + rightOf(edge->track().directionAt(at)) * aside) == QColor(Qt::blue);
    };
    QVERIFY(isBlue(0.1, 5) && isBlue(0.1, -5) && !isBlue(0.1, 9));
    QVERIFY(isBlue(0.5, 2) && !isBlue(0.5, 6));
    QVERIFY(!isBlue(0.9, 3) && !isBlue(0.9, -3));
}

void tst_GraphViewerEdgeLook::drawList(const QByteArray &color)
{
    showGraph("digraph { ranksep=2; a -> b [penwidth=2, color=\"" + color + "\", arrowhead=none] }");
    view().zoomAt(2.0, {450, 300});
    screen();
}

void tst_GraphViewerEdgeLook::colorsOfAListRunSideBySide()
{
    drawList("red:blue");
    const QPointF middle = edges().first()->track().at(60);
    QCOMPARE(pixelAt(middle - QPointF(1.5, 0)), QColor(Qt::red));
    QCOMPARE(pixelAt(middle + QPointF(1.5, 0)), QColor(Qt::blue));
}

void tst_GraphViewerEdgeLook::colorsWithFractionsFollowOneAnother()
{
    drawList("red;0.25:blue");
    const Track &track = edges().first()->track();
    QCOMPARE(pixelAt(track.at(track.length() * 0.15)), QColor(Qt::red));
    QCOMPARE(pixelAt(track.at(track.length() * 0.4)), QColor(Qt::blue));
}

void tst_GraphViewerEdgeLook::labelsFollowTheirLines()
{
    showGraph("digraph { ranksep=2; nodesep=2; a -> b [label=\"middle of the line\"]; a -> c }");
    useRouter();
    EdgeConnection *edge = edgeNamed(view(), QStringLiteral("a → b (middle of the line)"));
    for (const QPoint &move : {QPoint(), QPoint(400, -100), QPoint(-200, -250)}) {
        view().scene()->move(node(view(), QStringLiteral("b")), move);
        layOut();
        const QList<DrawnFigure *> labels = childrenOf<DrawnFigure>(*edge);
        QCOMPARE(labels.size(), 1);
        const QRectF label = labels.first()->getBounds();
        const double reach = std::hypot(label.width(), label.height()) / 2;
        QVERIFY(edge->track().nearestTo(label.center()).gap < reach + 15);
        for (double at = 0; at < edge->track().length(); at += 2)
            QVERIFY(!label.adjusted(3, 3, -3, -3).contains(edge->track().at(at)));
    }
}

void tst_GraphViewerEdgeLook::labelsKeepClearOfOtherEdges()
{
    show(sample(QStringLiteral("states.gv")));
    useRouter();
    const QList<EdgeConnection *> all = edges();
    for (EdgeConnection *edge : all) {
        for (DrawnFigure *label : childrenOf<DrawnFigure>(*edge)) {
            const QRectF area = QRectF(label->getBounds()).adjusted(4, 4, -4, -4);
            for (const EdgeConnection *other : all)
                QVERIFY2(!other->track().crosses(area), qPrintable(edge->name() + u'|' + other->name()));
        }
    }
}

PICTEL_TEST_MAIN(tst_GraphViewerEdgeLook)
#include "tst_graphviewer_edgelook.moc"
