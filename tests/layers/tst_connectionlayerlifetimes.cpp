#include "connections/ShownConnection.h"
#include "connections/Trigger.h"

#include <vtlpictel/connections/NullRouter.h>
#include <vtlpictel/layers/ConnectionLayer.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

/// A connection in a connection layer of a displayed tree, and a router for it.
struct ShownLayer
{
    explicit ShownLayer(bool isReal)
        : connection(isReal)
    {
        displayed.root.add(layer.get());
        layer->setConnectionRouter(&router);
    }

    ProbeRouter router;
    DisplayedRoot displayed;
    std::unique_ptr<ConnectionLayer> layer = std::make_unique<ConnectionLayer>(nullptr, false);
    AnyConnection connection;
};

// Both classes, each with both signals that reach the outside while a layer takes or gives up a connection.
void addClassesAndSignals()
{
    QTest::addColumn<bool>("isReal");
    QTest::addColumn<QString>("property");
    QTest::newRow("PolylineConnection, parent") << false << parentProperty;
    QTest::newRow("PolylineConnection, router") << false << routerProperty;
    QTest::newRow("PolylineFConnection, parent") << true << parentProperty;
    QTest::newRow("PolylineFConnection, router") << true << routerProperty;
}

} // namespace

class tst_ConnectionLayerLifetimes : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void connectionMayDieAsItJoinsALayer_data();
    void connectionMayDieAsItJoinsALayer();
    void connectionMayDieAsItLeavesALayer_data();
    void connectionMayDieAsItLeavesALayer();
    void layerMayDieAsAConnectionJoins_data();
    void layerMayDieAsAConnectionJoins();
    void layerMayDieAsAConnectionLeaves_data();
    void layerMayDieAsAConnectionLeaves();
    void routerComesAfterTheConnectionJoined_data();
    void routerComesAfterTheConnectionJoined();
    void routerGoesBeforeTheConnectionLeaves_data();
    void routerGoesBeforeTheConnectionLeaves();
};

void tst_ConnectionLayerLifetimes::connectionMayDieAsItJoinsALayer_data()
{
    addClassesAndSignals();
}

void tst_ConnectionLayerLifetimes::connectionMayDieAsItJoinsALayer()
{
    QFETCH(bool, isReal);
    QFETCH(QString, property);
    ShownLayer shown(isReal);
    Trigger trigger;
    trigger.onChange(shown.connection.figure(), property, [&] { shown.connection.destroy(); });
    QCOMPARE(shown.layer->add(shown.connection.figure()), true);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.layer->childFigureCount(), 0);
    QCOMPARE(shown.router.log, property == parentProperty ? QStringList() : QStringList("remove"));
}

void tst_ConnectionLayerLifetimes::connectionMayDieAsItLeavesALayer_data()
{
    addClassesAndSignals();
}

void tst_ConnectionLayerLifetimes::connectionMayDieAsItLeavesALayer()
{
    QFETCH(bool, isReal);
    QFETCH(QString, property);
    ShownLayer shown(isReal);
    Trigger trigger;
    shown.layer->add(shown.connection.figure());
    trigger.onChange(shown.connection.figure(), property, [&] { shown.connection.destroy(); });
    QCOMPARE(shown.layer->remove(shown.connection.figure()), property == parentProperty);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.layer->childFigureCount(), 0);
}

void tst_ConnectionLayerLifetimes::layerMayDieAsAConnectionJoins_data()
{
    addClassesAndSignals();
}

void tst_ConnectionLayerLifetimes::layerMayDieAsAConnectionJoins()
{
    QFETCH(bool, isReal);
    QFETCH(QString, property);
    ShownLayer shown(isReal);
    Trigger trigger;
    trigger.onChange(shown.connection.figure(), property, [&] { shown.layer.reset(); });
    QCOMPARE(shown.layer->add(shown.connection.figure()), true);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection->getParentFigure(), nullptr);
    QCOMPARE(shown.connection->getUpdateManager(), nullptr);
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
    IConnectionRouter *shared = NullRouter::instance();
    QCOMPARE(shown.connection->getConnectionRouter(), property == parentProperty ? shared : &shown.router);
}

void tst_ConnectionLayerLifetimes::layerMayDieAsAConnectionLeaves_data()
{
    addClassesAndSignals();
}

void tst_ConnectionLayerLifetimes::layerMayDieAsAConnectionLeaves()
{
    QFETCH(bool, isReal);
    QFETCH(QString, property);
    ShownLayer shown(isReal);
    Trigger trigger;
    shown.layer->add(shown.connection.figure());
    trigger.onChange(shown.connection.figure(), property, [&] { shown.layer.reset(); });
    QCOMPARE(shown.layer->remove(shown.connection.figure()), property == parentProperty);
    QVERIFY(trigger.hasFired());
    QCOMPARE(shown.connection->getParentFigure(), nullptr);
    QCOMPARE(shown.connection->getConnectionRouter(), static_cast<IConnectionRouter *>(NullRouter::instance()));
    QCOMPARE(shown.displayed.root.childFigureCount(), 0);
}

namespace {

struct Step
{
    QString property;
    bool isChild;
    bool isShown;

    bool operator==(const Step &other) const
    {
        return property == other.property && isChild == other.isChild && isShown == other.isShown;
    }
};

// What the connection announces, and whether it is in the layer and shown by then.
void noteSteps(const ShownLayer &shown, QObject *context, QList<Step> &steps)
{
    const Figure *connection = shown.connection.figure();
    QObject::connect(connection, &Figure::propertyChanged, context, [&shown, &steps, connection](const QString &name) {
        steps << Step {name, shown.layer->childFigures().contains(connection),
                       connection->getFlag(Figure::FLAG_NOTIFIED)};
    });
}

} // namespace

void tst_ConnectionLayerLifetimes::routerComesAfterTheConnectionJoined_data()
{
    addBothClasses();
}

void tst_ConnectionLayerLifetimes::routerComesAfterTheConnectionJoined()
{
    QFETCH(bool, isReal);
    ShownLayer shown(isReal);
    QList<Step> steps;
    noteSteps(shown, this, steps);
    shown.layer->add(shown.connection.figure());
    QCOMPARE(steps, QList<Step>({{parentProperty, true, false}, {routerProperty, true, true}}));
    shown.connection.destroy();
}

void tst_ConnectionLayerLifetimes::routerGoesBeforeTheConnectionLeaves_data()
{
    addBothClasses();
}

void tst_ConnectionLayerLifetimes::routerGoesBeforeTheConnectionLeaves()
{
    QFETCH(bool, isReal);
    ShownLayer shown(isReal);
    shown.layer->add(shown.connection.figure());
    QList<Step> steps;
    noteSteps(shown, this, steps);
    shown.layer->remove(shown.connection.figure());
    QCOMPARE(steps, QList<Step>({{routerProperty, true, true}, {parentProperty, true, false}}));
    shown.connection.destroy();
}

PICTEL_TEST_MAIN(tst_ConnectionLayerLifetimes)
#include "tst_connectionlayerlifetimes.moc"
