#include "support/DisplayedRoot.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/ManhattanConnectionRouter.h>
#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/connections/PolylineFConnection.h>
#include <vtlpictel/layers/ConnectionLayer.h>
#include <vtlpictel/layout/FreeformLayout.h>

#include <QStyleOptionViewItem>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

class tst_ConnectionLayer : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithoutRouterAndAntialiasing();
    void monitoringIsPassedOn_data();
    void monitoringIsPassedOn();
    void addedConnectionGetsTheRouter();
    void connectionAddedByStretchGetsTheRouter();
    void connectionAddedBeforeTheRouterKeepsItsOwn();
    void refusedConnectionGetsTheRouterAllTheSame();
    void connectionKeepsItsRouterInALayerWithoutOne();
    void removedConnectionLosesTheRouter();
    void removalClearsTheRouterEvenWhenItFails();
    void plainFiguresComeAndGo();
    void nullIsRefused();
    void deletedRouterIsForgotten();
    void rendersWithAntialiasingAsAsked_data();
    void rendersWithAntialiasingAsAsked();
    void renderingRestoresThePainter();
    void nullPainterIsIgnored();
    void settingRouterAndAntialiasingTellsNobody();
};

void tst_ConnectionLayer::startsWithoutRouterAndAntialiasing()
{
    const ConnectionLayer layer(nullptr, false);
    QCOMPARE(layer.getConnectionRouter(), nullptr);
    QCOMPARE(layer.isAntialias(), false);
}

void tst_ConnectionLayer::monitoringIsPassedOn_data()
{
    QTest::addColumn<bool>("monitored");
    QTest::newRow("monitored") << true;
    QTest::newRow("unmonitored") << false;
}

void tst_ConnectionLayer::monitoringIsPassedOn()
{
    QFETCH(bool, monitored);
    ConnectionLayer layer(nullptr, monitored);
    QCOMPARE(layer.isContentMonitored(), monitored);
    QCOMPARE(qobject_cast<IFreeformFigure *>(static_cast<QObject *>(&layer)), static_cast<IFreeformFigure *>(&layer));
}

void tst_ConnectionLayer::addedConnectionGetsTheRouter()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    QCOMPARE(layer.getConnectionRouter(), static_cast<IConnectionRouter *>(&router));
    PolylineConnection connection;
    QCOMPARE(layer.add(&connection), true);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(&router));
}

void tst_ConnectionLayer::connectionAddedByStretchGetsTheRouter()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    PolylineFConnection connection;
    QCOMPARE(layer.add(&connection, 0, 0, -1), true);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(&router));
}

void tst_ConnectionLayer::connectionAddedBeforeTheRouterKeepsItsOwn()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    PolylineConnection connection;
    layer.add(&connection);
    layer.setConnectionRouter(&router);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
}

void tst_ConnectionLayer::refusedConnectionGetsTheRouterAllTheSame()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    PolylineConnection connection;
    layer.add(&connection);
    layer.setConnectionRouter(&router);
    QCOMPARE(layer.add(&connection), false);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(&router));
}

void tst_ConnectionLayer::connectionKeepsItsRouterInALayerWithoutOne()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    PolylineConnection connection;
    connection.setConnectionRouter(&router);
    layer.add(&connection);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(&router));
}

void tst_ConnectionLayer::removedConnectionLosesTheRouter()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    PolylineConnection connection;
    layer.add(&connection);
    QCOMPARE(layer.remove(&connection), true);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
    QCOMPARE(layer.childFigureCount(), 0);
}

void tst_ConnectionLayer::removalClearsTheRouterEvenWhenItFails()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    PolylineConnection stranger;
    stranger.setConnectionRouter(&router);
    QCOMPARE(layer.remove(&stranger), false);
    QCOMPARE(stranger.getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
}

void tst_ConnectionLayer::plainFiguresComeAndGo()
{
    ManhattanConnectionRouter router;
    ConnectionLayer layer(nullptr, false);
    layer.setConnectionRouter(&router);
    Figure figure;
    QCOMPARE(layer.add(&figure, QRect(1, 2, 3, 4)), true);
    QCOMPARE(figure.getBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(layer.remove(&figure), true);
    QCOMPARE(figure.getParentFigure(), nullptr);
}

void tst_ConnectionLayer::nullIsRefused()
{
    ConnectionLayer layer(nullptr, false);
    QCOMPARE(layer.add(nullptr), false);
    QCOMPARE(layer.add(nullptr, 0, 0, -1), false);
    QCOMPARE(layer.remove(nullptr), false);
}

void tst_ConnectionLayer::deletedRouterIsForgotten()
{
    ConnectionLayer layer(nullptr, false);
    auto router = std::make_unique<ManhattanConnectionRouter>();
    layer.setConnectionRouter(router.get());
    PolylineConnection connection;
    layer.add(&connection);
    router.reset();
    QCOMPARE(layer.getConnectionRouter(), nullptr);
    QCOMPARE(connection.getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
}

void tst_ConnectionLayer::rendersWithAntialiasingAsAsked_data()
{
    QTest::addColumn<bool>("antialias");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void tst_ConnectionLayer::rendersWithAntialiasingAsAsked()
{
    QFETCH(bool, antialias);
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 100, 100));
    layer.setAntialias(antialias);
    QCOMPARE(layer.isAntialias(), antialias);
    Figure figure;
    layer.add(&figure, QRect(10, 10, 20, 20));
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing, !antialias);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);
    layer.render(&painter, option);
    painter.end();
    QCOMPARE(device.calls().size(), 1);
    QCOMPARE(device.calls().at(0).renderHints.testFlag(QPainter::Antialiasing), antialias);
}

void tst_ConnectionLayer::renderingRestoresThePainter()
{
    ConnectionLayer layer(nullptr, false);
    layer.setBounds(QRect(0, 0, 100, 100));
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing, true);
    layer.render(&painter, QStyleOptionViewItem());
    QCOMPARE(painter.testRenderHint(QPainter::Antialiasing), true);
}

void tst_ConnectionLayer::nullPainterIsIgnored()
{
    ConnectionLayer layer(nullptr, false);
    layer.render(nullptr, QStyleOptionViewItem());
    QCOMPARE(layer.getBounds(), QRect());
}

void tst_ConnectionLayer::settingRouterAndAntialiasingTellsNobody()
{
    CallLog log;
    DisplayedRoot tree(&log);
    ConnectionLayer layer(nullptr, false);
    PolylineConnection connection;
    layer.setBounds(QRect(0, 0, 100, 100));
    layer.add(&connection);
    tree.root.add(&layer);
    layer.validate();
    tree.takeDirtyRects();
    log.clear();
    const IConnectionRouter *before = connection.getConnectionRouter();
    NullRouter router;
    layer.setConnectionRouter(&router);
    layer.setAntialias(true);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
    QCOMPARE(log.calls(), QStringList());
    QVERIFY(layer.getFlag(Figure::FLAG_VALID));
    QCOMPARE(static_cast<const IConnectionRouter *>(connection.getConnectionRouter()), before);
}

PICTEL_TEST_MAIN(tst_ConnectionLayer)
#include "tst_connectionlayer.moc"
