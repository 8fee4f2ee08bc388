#include "ConnectedDiagram.h"

#include "support/TestMain.h"

#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/connections/XYAnchor.h>
#include <vtlpictel/layout/XYLayout.h>
#include <vtlpictel/shapes/PolygonDecoration.h>
#include <vtlpictel/shapes/PolylineDecoration.h>

#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <vector>

using namespace Vantrel::Pictel;

class tst_ConnectionScenarios : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void connectionIsDrawnBetweenItsFigures();
    void draggedFigureTakesItsConnectionAlong_data() { addAllKinds(); }
    void draggedFigureTakesItsConnectionAlong();
    void draggedAncestorTakesTheConnectionAlong_data() { addAllKinds(); }
    void draggedAncestorTakesTheConnectionAlong();
    void reparentedFigureKeepsItsConnection_data() { addAllKinds(); }
    void reparentedFigureKeepsItsConnection();
    void hiddenFiguresLeaveTheConnection_data() { addAllKinds(); }
    void hiddenFiguresLeaveTheConnection();
    void changedAnchorsMoveTheEnds_data() { addAllKinds(); }
    void changedAnchorsMoveTheEnds();
    void missingAnchorLeavesTheLastRoute_data() { addAllKinds(); }
    void missingAnchorLeavesTheLastRoute();
    void swappedRoutersDrawAnew_data() { addBothClasses(); }
    void swappedRoutersDrawAnew();
    void removedConnectionIsErasedAndComesBack_data() { addAllKinds(); }
    void removedConnectionIsErasedAndComesBack();
    void removedConnectionFollowsNothing_data() { addAllKinds(); }
    void removedConnectionFollowsNothing();
    void decorationsComeAndGo_data() { addAllKinds(); }
    void decorationsComeAndGo();
    void hiddenLayerHidesItsConnections_data() { addAllKinds(); }
    void hiddenLayerHidesItsConnections();
    void layerHandsItsRouterToWhatIsAddedOnScreen_data() { addBothClasses(); }
    void layerHandsItsRouterToWhatIsAddedOnScreen();
    void deletedConnectionIsErased_data() { addAllKinds(); }
    void deletedConnectionIsErased();
    void deletedFigureAndConnectionLeaveNothing();
    void draggingWorksZoomedAndScrolled_data() { addBothClasses(); }
    void draggingWorksZoomedAndScrolled();
    void connectionsOfOneRouterMoveOnTheirOwn_data() { addBothClasses(); }
    void connectionsOfOneRouterMoveOnTheirOwn();
    void randomSessionLeavesNothingBehind_data();
    void randomSessionLeavesNothingBehind();

private:
    static void addAllKinds();
    static void addBothClasses();
    static std::unique_ptr<ConnectedDiagram> rowDiagram();
    static std::unique_ptr<ConnectedDiagram> routedRowDiagram();
};

namespace {

using Diagram = ConnectedDiagram;

bool isRealRow()
{
    return QByteArray(QTest::currentDataTag()).startsWith("PolylineF");
}

// Without an outline, which would reach half a pixel beyond the bounds.
PolygonDecoration *newArrow(QObject *parent)
{
    auto *arrow = new PolygonDecoration(parent);
    arrow->setLineStyle(Qt::NoPen);
    return arrow;
}

// The pixels of the connections' colour, black, in the picture on screen.
int blackPixels(const Screen &screen)
{
    const QImage image = screen.accumulated();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == Qt::black ? 1 : 0;
    }
    return count;
}

// Gives the two figures outlines that are not black.
void drawFiguresInGrey(Diagram &diagram)
{
    diagram.source.setEnabledFGColor(Qt::gray);
    diagram.target.setEnabledFGColor(Qt::gray);
}

} // namespace

void tst_ConnectionScenarios::addAllKinds()
{
    QTest::addColumn<int>("router");
    for (const char *className : {"PolylineConnection", "PolylineFConnection"}) {
        QTest::addRow("%s, straight", className) << int(Diagram::Straight);
        QTest::addRow("%s, bent", className) << int(Diagram::Bent);
        QTest::addRow("%s, rectilinear", className) << int(Diagram::Rectilinear);
    }
}

void tst_ConnectionScenarios::addBothClasses()
{
    QTest::addColumn<int>("unused");
    QTest::newRow("PolylineConnection") << 0;
    QTest::newRow("PolylineFConnection") << 0;
}

// A diagram with the connection class of the data row. A floating-point line has no bounds before its first layout.
std::unique_ptr<ConnectedDiagram> tst_ConnectionScenarios::rowDiagram()
{
    if (isRealRow())
        expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    return std::make_unique<ConnectedDiagram>(isRealRow());
}

std::unique_ptr<ConnectedDiagram> tst_ConnectionScenarios::routedRowDiagram()
{
    QFETCH(int, router);
    std::unique_ptr<ConnectedDiagram> diagram = rowDiagram();
    diagram->route(static_cast<Diagram::RouterKind>(router));
    return diagram;
}

void tst_ConnectionScenarios::connectionIsDrawnBetweenItsFigures()
{
    Diagram diagram(false);
    drawFiguresInGrey(diagram);
    diagram.panel.remove(&diagram.target);
    place(diagram.nodes, diagram.target, QRect(320, 64, 60, 40));
    QCOMPARE(diagram.breach(), QString());
    QCOMPARE(diagram.connection->getPoints(), QList<QPoint>({QPoint(120, 84), QPoint(320, 84)}));
    QCOMPARE(diagram.screen->accumulated().pixelColor(220, 84), QColor(Qt::black));
    QCOMPARE(diagram.screen->accumulated().pixelColor(220, 83), QColor(Qt::white));
    QCOMPARE(diagram.screen->accumulated().pixelColor(220, 85), QColor(Qt::white));
}

void tst_ConnectionScenarios::draggedFigureTakesItsConnectionAlong()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(190, 350)), QString());
    QCOMPARE(diagram->source.getBounds(), QRect(160, 330, 80, 50));
    QVERIFY(diagram->isAttached());
    QCOMPARE(diagram->drag(QPoint(370, 270), QPoint(430, 330)), QString());
    QCOMPARE(diagram->target.getBounds(), QRect(90, 100, 60, 40));
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::draggedAncestorTakesTheConnectionAlong()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->drag(QPoint(480, 340), QPoint(280, 410)), QString());
    QCOMPARE(diagram->panel.getBounds(), QRect(100, 270, 200, 160));
    QCOMPARE(diagram->target.getBounds(), QRect(30, 40, 60, 40));
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::reparentedFigureKeepsItsConnection()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    diagram->panel.remove(&diagram->target);
    QCOMPARE(diagram->breach(), QString());
    place(diagram->nodes, diagram->target, QRect(200, 300, 70, 50));
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    diagram->nodes.remove(&diagram->target);
    place(diagram->panel, diagram->target, QRect(90, 20, 50, 30));
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    QCOMPARE(diagram->drag(QPoint(480, 340), QPoint(380, 410)), QString());
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::hiddenFiguresLeaveTheConnection()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    QCOMPARE(diagram->breach(), QString());
    const QList<QPoint> route = diagram->connection->getPoints();
    for (Figure *figure : QList<Figure *>({&diagram->source, &diagram->target, &diagram->panel})) {
        figure->setVisible(false);
        QCOMPARE(diagram->breach(), QString());
        figure->setVisible(true);
        QCOMPARE(diagram->breach(), QString());
    }
    QCOMPARE(diagram->connection->getPoints(), route);
    diagram->source.setVisible(false);
    diagram->source.setBounds(QRect(60, 300, 80, 50));
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::changedAnchorsMoveTheEnds()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    QCOMPARE(diagram->breach(), QString());
    EllipseAnchor round(&diagram->source, nullptr);
    diagram->connection->setSourceAnchor(&round);
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    ChopboxAnchor around(&diagram->panel, nullptr);
    diagram->connection->setTargetAnchor(&around);
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    round.setOwner(&diagram->target);
    diagram->target.setBounds(QRect(20, 90, 60, 40));
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    XYAnchor fixed(QPoint(550, 20), nullptr);
    diagram->connection->setTargetAnchor(&fixed);
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->connection->getPoints().last(), QPoint(550, 20));
    fixed.setLocation(QPoint(20, 400));
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->connection->getPoints().last(), QPoint(20, 400));
    diagram->connection->setSourceAnchor(&diagram->sourceAnchor);
    diagram->connection->setTargetAnchor(&diagram->targetAnchor);
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::missingAnchorLeavesTheLastRoute()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    QCOMPARE(diagram->breach(), QString());
    const QList<QPoint> route = diagram->connection->getPoints();
    diagram->connection->setSourceAnchor(nullptr);
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(90, 200)), QString());
    QCOMPARE(diagram->connection->getPoints(), route);
    diagram->connection->setSourceAnchor(&diagram->sourceAnchor);
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    QVERIFY(diagram->connection->getPoints() != route);
}

void tst_ConnectionScenarios::swappedRoutersDrawAnew()
{
    const std::unique_ptr<Diagram> diagram = rowDiagram();
    QCOMPARE(diagram->breach(), QString());
    for (const Diagram::RouterKind kind :
         {Diagram::Bent, Diagram::Rectilinear, Diagram::Straight, Diagram::Rectilinear, Diagram::Bent}) {
        diagram->route(kind);
        QCOMPARE(diagram->breach(), QString());
        QVERIFY(diagram->isAttached());
        QCOMPARE(diagram->isRectilinear(), kind == Diagram::Rectilinear);
        QCOMPARE(diagram->connection->getPoints().contains(QPoint(250, 50)), kind == Diagram::Bent);
    }
    diagram->connection->setRoutingConstraint(QVariant());
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->connection->getPointCount(), 2);
    QVERIFY(diagram->isAttached());
    diagram->connection->setConnectionRouter(nullptr);
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->connection->getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
}

void tst_ConnectionScenarios::removedConnectionIsErasedAndComesBack()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    drawFiguresInGrey(*diagram);
    QCOMPARE(diagram->breach(), QString());
    const int drawn = blackPixels(*diagram->screen);
    QVERIFY(drawn > 100);
    IConnectionRouter *router = diagram->connection->getConnectionRouter();
    const QVariant constraint = diagram->connection->getRoutingConstraint();
    for (int round = 0; round < 2; ++round) {
        diagram->connections.remove(diagram->connection.figure());
        QCOMPARE(diagram->breach(), QString());
        QCOMPARE(blackPixels(*diagram->screen), 0);
        diagram->connections.add(diagram->connection.figure());
        diagram->connection->setConnectionRouter(router);
        diagram->connection->setRoutingConstraint(constraint);
        QCOMPARE(diagram->breach(), QString());
        QCOMPARE(blackPixels(*diagram->screen), drawn);
        QVERIFY(diagram->isAttached());
    }
}

void tst_ConnectionScenarios::removedConnectionFollowsNothing()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    drawFiguresInGrey(*diagram);
    QCOMPARE(diagram->breach(), QString());
    const QList<QPoint> route = diagram->connection->getPoints();
    diagram->connections.remove(diagram->connection.figure());
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(90, 300)), QString());
    QCOMPARE(diagram->connection->getPoints(), route);
    QCOMPARE(blackPixels(*diagram->screen), 0);
    diagram->connections.add(diagram->connection.figure());
    diagram->connection->revalidate();
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    QCOMPARE(diagram->drag(QPoint(90, 300), QPoint(200, 400)), QString());
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::decorationsComeAndGo()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    QCOMPARE(diagram->breach(), QString());
    const QPointer<PolygonDecoration> first = newArrow(diagram->connection.figure());
    diagram->connection.setTargetDecoration(first);
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(first->getPoint(1), diagram->connection->getPoints().last());
    diagram->connection.setSourceDecoration(new PolylineDecoration(diagram->connection.figure()));
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(100, 300)), QString());
    QCOMPARE(first->getPoint(1), diagram->connection->getPoints().last());
    PolygonDecoration *second = newArrow(diagram->connection.figure());
    second->setScale(15.0, 9.0);
    diagram->connection.setTargetDecoration(second);
    QCOMPARE(diagram->breach(), QString());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->drag(QPoint(480, 340), QPoint(400, 230)), QString());
    diagram->connection.setSourceDecoration(nullptr);
    diagram->connection.setTargetDecoration(nullptr);
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(diagram->connection.figure()->childFigureCount(), 0);
}

void tst_ConnectionScenarios::hiddenLayerHidesItsConnections()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    drawFiguresInGrey(*diagram);
    QCOMPARE(diagram->breach(), QString());
    diagram->connections.setVisible(false);
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(blackPixels(*diagram->screen), 0);
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(100, 300)), QString());
    diagram->connections.setVisible(true);
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isAttached());
    QVERIFY(blackPixels(*diagram->screen) > 100);
}

void tst_ConnectionScenarios::layerHandsItsRouterToWhatIsAddedOnScreen()
{
    const std::unique_ptr<Diagram> diagram = rowDiagram();
    QCOMPARE(diagram->breach(), QString());
    diagram->connections.remove(diagram->connection.figure());
    diagram->connections.setConnectionRouter(&diagram->rectilinearRouter);
    diagram->connections.add(diagram->connection.figure());
    QCOMPARE(diagram->breach(), QString());
    QVERIFY(diagram->isRectilinear());
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::deletedConnectionIsErased()
{
    const std::unique_ptr<Diagram> diagram = routedRowDiagram();
    drawFiguresInGrey(*diagram);
    diagram->connection.setTargetDecoration(newArrow(diagram->connection.figure()));
    QCOMPARE(diagram->breach(), QString());
    diagram->connection.destroy();
    QCOMPARE(diagram->breach(), QString());
    QCOMPARE(blackPixels(*diagram->screen), 0);
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(100, 300)), QString());
}

void tst_ConnectionScenarios::deletedFigureAndConnectionLeaveNothing()
{
    Diagram diagram(false);
    drawFiguresInGrey(diagram);
    auto figure = std::make_unique<Vantrel::Pictel::Rectangle>();
    figure->setEnabledFGColor(Qt::gray);
    place(diagram.nodes, *figure, QRect(60, 300, 60, 60));
    ChopboxAnchor anchor(figure.get(), nullptr);
    diagram.connection->setSourceAnchor(&anchor);
    QCOMPARE(diagram.breach(), QString());
    figure.reset();
    QCOMPARE(anchor.getOwner(), nullptr);
    QCOMPARE(diagram.breach(), QString());
    diagram.connection.destroy();
    QCOMPARE(diagram.breach(), QString());
    QCOMPARE(blackPixels(*diagram.screen), 0);
}

void tst_ConnectionScenarios::draggingWorksZoomedAndScrolled()
{
    const std::unique_ptr<Diagram> diagram = rowDiagram();
    diagram->route(Diagram::Rectilinear);
    QCOMPARE(diagram->breach(), QString());
    const QPoint topLeft(20, 40);
    diagram->viewer.setScale(2.0, &topLeft);
    diagram->screen->restart();
    QCOMPARE(diagram->drag(QPoint(70, 80), QPoint(130, 200)), QString());
    QCOMPARE(diagram->source.getBounds(), QRect(100, 180, 80, 50));
    QVERIFY(diagram->isAttached());
    diagram->viewer.setScale(0.5, &topLeft);
    diagram->screen->restart();
    QCOMPARE(diagram->drag(QPoint(480, 340), QPoint(680, 440)), QString());
    QCOMPARE(diagram->panel.getBounds(), QRect(500, 300, 200, 160));
    QVERIFY(diagram->isAttached());
}

void tst_ConnectionScenarios::connectionsOfOneRouterMoveOnTheirOwn()
{
    const std::unique_ptr<Diagram> diagram = rowDiagram();
    diagram->route(Diagram::Rectilinear);
    Vantrel::Pictel::Rectangle below;
    place(diagram->nodes, below, QRect(40, 340, 80, 50));
    ChopboxAnchor anchor(&below, nullptr);
    if (isRealRow())
        expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    const AnyConnection second(isRealRow());
    second->setConnectionRouter(&diagram->rectilinearRouter);
    diagram->connections.add(second.figure());
    second->setSourceAnchor(&anchor);
    second->setTargetAnchor(&diagram->targetAnchor);
    QCOMPARE(diagram->breach(), QString());
    const QList<QPoint> first = diagram->connection->getPoints();
    QCOMPARE(diagram->drag(QPoint(60, 360), QPoint(160, 380)), QString());
    QCOMPARE(diagram->connection->getPoints(), first);
    QCOMPARE(second->getPoints().first(), anchor.getLocation(diagram->targetAnchor.getReferencePoint()));
    QCOMPARE(diagram->drag(QPoint(480, 340), QPoint(530, 300)), QString());
    QVERIFY(diagram->isAttached());
    QCOMPARE(second->getPoints().last(), diagram->targetAnchor.getLocation(anchor.getReferencePoint()));
}

void tst_ConnectionScenarios::randomSessionLeavesNothingBehind_data()
{
    QTest::addColumn<quint32>("seed");
    const auto firstSeed = static_cast<quint32>(qMax(1, qEnvironmentVariableIntValue("PICTEL_SEED")));
    for (quint32 seed = firstSeed; seed < firstSeed + 3; ++seed) {
        QTest::addRow("PolylineConnection, seed %u", seed) << seed;
        QTest::addRow("PolylineFConnection, seed %u", seed) << seed;
    }
}

void tst_ConnectionScenarios::randomSessionLeavesNothingBehind()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const auto below = [&random](int limit) { return static_cast<int>(random.bounded(limit)); };
    const std::unique_ptr<Diagram> diagram = rowDiagram();
    Figure *connection = diagram->connection.figure();
    EllipseAnchor panelAnchor(&diagram->panel, nullptr);
    const auto moved = [&below](int right, int bottom) { return QRect(below(right), below(bottom), 80, 50); };
    const std::vector<std::function<void()>> steps = {
        [&] { diagram->source.setBounds(moved(500, 380)); },
        [&] { diagram->target.setBounds(moved(100, 90)); },
        [&] { diagram->panel.setBounds(QRect(moved(380, 260).topLeft(), QSize(200, 160))); },
        [&] { diagram->route(static_cast<Diagram::RouterKind>(below(3))); },
        [&] { diagram->connection->setSourceAnchor(&panelAnchor); },
        [&] { diagram->connection->setSourceAnchor(&diagram->sourceAnchor); },
        [&] { diagram->connection.setTargetDecoration(below(2) ? newArrow(connection) : nullptr); },
        [&] { diagram->panel.setVisible(!diagram->panel.isVisible()); },
        [&] { connection->setVisible(!connection->isVisible()); },
        [&] {
            if (!diagram->connections.remove(connection))
                diagram->connections.add(connection);
        },
        [&] {
            Figure *parent = diagram->target.getParentFigure();
            parent->remove(&diagram->target);
            place(parent == &diagram->panel ? diagram->nodes : diagram->panel, diagram->target, moved(100, 90));
        },
    };
    for (int step = 0; step < 60; ++step) {
        const int chosen = below(static_cast<int>(steps.size()));
        steps.at(static_cast<std::size_t>(chosen))();
        const QString breach = diagram->breach();
        QVERIFY2(
            breach.isEmpty(),
            qPrintable(QStringLiteral("seed %1, step %2 (kind %3): %4").arg(seed).arg(step).arg(chosen).arg(breach)));
    }
}

PICTEL_TEST_MAIN(tst_ConnectionScenarios)
#include "tst_connectionscenarios.moc"
