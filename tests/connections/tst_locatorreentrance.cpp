#include "connections/Interference.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/ArrowLocator.h>
#include <vtlpictel/figure/BendpointLocator.h>
#include <vtlpictel/figure/ConnectionEndpointLocator.h>
#include <vtlpictel/figure/MidpointLocator.h>
#include <vtlpictel/figure/RelativeLocator.h>
#include <vtlpictel/shapes/PolygonDecoration.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

enum Kind { Connection, Midpoint, Bendpoint, Endpoint, Relative };

/// A locator of each class, for a target that interferes as it is measured.
struct LocatorScene
{
    LocatorScene()
    {
        QFETCH(int, kind);
        connection->points = {QPoint(10, 20), QPoint(30, 60)};
        owner->setBounds(QRect(10, 20, 30, 40));
        target->setPreferredSize(QSize(4, 4));
        target->setBounds(QRect(1, 2, 3, 4));
        if (kind == Connection)
            take(std::make_unique<ConnectionLocator>(connection.get()));
        else if (kind == Midpoint)
            take(std::make_unique<MidpointLocator>(connection.get(), 0));
        else if (kind == Bendpoint)
            take(std::make_unique<BendpointLocator>(connection.get(), 1));
        else if (kind == Endpoint)
            take(std::make_unique<ConnectionEndpointLocator>(connection.get(), false));
        else
            take(std::make_unique<RelativeLocator>(owner.get(), 0.5, 0.5));
    }

    void relocate() const { interface->relocate(target.get()); }

    std::unique_ptr<InterferingFigure> owner = std::make_unique<InterferingFigure>();
    std::unique_ptr<InterferingConnection> connection = std::make_unique<InterferingConnection>();
    std::unique_ptr<InterferingFigure> target = std::make_unique<InterferingFigure>();
    std::unique_ptr<QObject> locator;

private:
    template <typename Some>
    void take(std::unique_ptr<Some> some)
    {
        interface = some.get();
        locator = std::move(some);
    }

    ILocator *interface = nullptr;
};

void addLocators(bool ofConnections)
{
    QTest::addColumn<int>("kind");
    QTest::newRow("ConnectionLocator") << int(Connection);
    QTest::newRow("MidpointLocator") << int(Midpoint);
    QTest::newRow("BendpointLocator") << int(Bendpoint);
    QTest::newRow("ConnectionEndpointLocator") << int(Endpoint);
    if (!ofConnections)
        QTest::newRow("RelativeLocator") << int(Relative);
}

} // namespace

class tst_LocatorReentrance : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void targetThatIsMeasuredMayDie_data() { addLocators(false); }
    void targetThatIsMeasuredMayDie();
    void targetThatIsMeasuredMayDeleteTheLocator_data() { addLocators(false); }
    void targetThatIsMeasuredMayDeleteTheLocator();
    void connectionThatIsAskedMayDie_data() { addLocators(true); }
    void connectionThatIsAskedMayDie();
    void connectionThatIsAskedMayDeleteTheTarget_data() { addLocators(true); }
    void connectionThatIsAskedMayDeleteTheTarget();
    void connectionThatIsAskedMayDeleteTheLocator_data() { addLocators(true); }
    void connectionThatIsAskedMayDeleteTheLocator();

    void connectionOfAnArrowMayDieAsItIsAsked();
    void connectionOfAnArrowMayDeleteTheArrow();
    void connectionOfAnArrowMayDeleteTheLocator();

    void referenceFigureThatIsAskedMayDie();
    void referenceFigureThatIsAskedMayDeleteTheTarget();
    void referenceFigureThatIsAskedMayDeleteTheLocator();
    void endOwnerThatIsAskedMayDie();
    void endOwnerThatIsAskedMayDeleteTheConnection();
    void endOwnerThatIsAskedMayDeleteTheLocator();
};

void tst_LocatorReentrance::targetThatIsMeasuredMayDie()
{
    LocatorScene scene;
    scene.target->onMeasure = [&] { scene.target.reset(); };
    scene.relocate();
    QVERIFY(!scene.target);
}

void tst_LocatorReentrance::targetThatIsMeasuredMayDeleteTheLocator()
{
    LocatorScene scene;
    scene.target->onMeasure = [&] { scene.locator.reset(); };
    scene.relocate();
    QVERIFY(!scene.locator);
    QCOMPARE(scene.target->getBounds(), QRect(1, 2, 3, 4));
}

void tst_LocatorReentrance::connectionThatIsAskedMayDie()
{
    QFETCH(int, kind);
    LocatorScene scene;
    scene.connection->onPoints = [&] { scene.connection.reset(); };
    if (kind == Midpoint)
        expectWarning("MidpointLocator::getReferencePoint(): index, 0, out-of-bound");
    if (kind == Bendpoint)
        expectWarning("BendpointLocator::getReferencePoint(): index, 1, out-of-bound");
    scene.relocate();
    QVERIFY(!scene.connection);
}

void tst_LocatorReentrance::connectionThatIsAskedMayDeleteTheTarget()
{
    LocatorScene scene;
    scene.connection->onPoints = [&] { scene.target.reset(); };
    scene.relocate();
    QVERIFY(!scene.target);
}

void tst_LocatorReentrance::connectionThatIsAskedMayDeleteTheLocator()
{
    LocatorScene scene;
    scene.connection->onPoints = [&] { scene.locator.reset(); };
    scene.relocate();
    QVERIFY(!scene.locator);
    QCOMPARE(scene.target->getBounds(), QRect(1, 2, 3, 4));
}

namespace {

struct ArrowScene
{
    ArrowScene() { connection->points = {QPoint(10, 20), QPoint(10, 60)}; }

    std::unique_ptr<InterferingConnection> connection = std::make_unique<InterferingConnection>();
    std::unique_ptr<ArrowLocator> locator = std::make_unique<ArrowLocator>(connection.get(), ConnectionLocator::SOURCE);
    std::unique_ptr<PolygonDecoration> arrow = std::make_unique<PolygonDecoration>();
    const QList<QPoint> shape = arrow->getLinePoints();
};

} // namespace

void tst_LocatorReentrance::connectionOfAnArrowMayDieAsItIsAsked()
{
    ArrowScene scene;
    scene.connection->onPoints = [&] { scene.connection.reset(); };
    scene.locator->relocate(scene.arrow.get());
    QVERIFY(!scene.connection);
    QCOMPARE(scene.arrow->getLinePoints(), scene.shape);
}

void tst_LocatorReentrance::connectionOfAnArrowMayDeleteTheArrow()
{
    ArrowScene scene;
    scene.connection->onPoints = [&] { scene.arrow.reset(); };
    scene.locator->relocate(scene.arrow.get());
    QVERIFY(!scene.arrow);
}

void tst_LocatorReentrance::connectionOfAnArrowMayDeleteTheLocator()
{
    ArrowScene scene;
    scene.connection->onPoints = [&] { scene.locator.reset(); };
    scene.locator->relocate(scene.arrow.get());
    QVERIFY(!scene.locator);
    QCOMPARE(scene.arrow->getLinePoints(), scene.shape);
}

namespace {

/// A locator that places a target on the middle of a figure, which interferes as it is asked for its bounds.
struct RelativeScene
{
    RelativeScene()
    {
        reference->setBounds(QRect(10, 20, 30, 40));
        target->setPreferredSize(QSize(4, 4));
        target->setBounds(QRect(1, 2, 3, 4));
    }

    std::unique_ptr<InterferingFigure> reference = std::make_unique<InterferingFigure>();
    std::unique_ptr<Figure> target = std::make_unique<Figure>();
    std::unique_ptr<RelativeLocator> locator = std::make_unique<RelativeLocator>(reference.get(), 0.5, 0.5);
};

/// A locator at the source of a connection, on a figure that interferes as it is asked for its bounds.
struct EndpointScene
{
    EndpointScene()
    {
        owner->setBounds(QRect(10, 20, 30, 40));
        connection->points = {QPoint(40, 30), QPoint(90, 30)};
        target.setPreferredSize(QSize(4, 4));
        target.setBounds(QRect(1, 2, 3, 4));
    }

    struct OwnedAnchor : InterferingAnchor
    {
        explicit OwnedAnchor(const EndpointScene &scene)
            : InterferingAnchor(QPoint())
            , m_scene(scene)
        { }
        Figure *getOwner() const override { return m_scene.owner.get(); }

        const EndpointScene &m_scene;
    };

    std::unique_ptr<InterferingFigure> owner = std::make_unique<InterferingFigure>();
    OwnedAnchor anchor {*this};
    std::unique_ptr<StubConnection> connection = std::make_unique<StubConnection>(&anchor, &anchor);
    std::unique_ptr<ConnectionEndpointLocator> locator
        = std::make_unique<ConnectionEndpointLocator>(connection.get(), false);
    Figure target;
};

} // namespace

void tst_LocatorReentrance::referenceFigureThatIsAskedMayDie()
{
    RelativeScene scene;
    scene.reference->onBounds = [&] { scene.reference.reset(); };
    scene.locator->relocate(scene.target.get());
    QVERIFY(!scene.reference);
    QCOMPARE(scene.target->getBounds(), QRect(1, 2, 3, 4));
}

void tst_LocatorReentrance::referenceFigureThatIsAskedMayDeleteTheTarget()
{
    RelativeScene scene;
    scene.reference->onBounds = [&] { scene.target.reset(); };
    scene.locator->relocate(scene.target.get());
    QVERIFY(!scene.target);
}

void tst_LocatorReentrance::referenceFigureThatIsAskedMayDeleteTheLocator()
{
    RelativeScene scene;
    scene.reference->onBounds = [&] { scene.locator.reset(); };
    scene.locator->relocate(scene.target.get());
    QVERIFY(!scene.locator);
    QCOMPARE(scene.target->getBounds(), QRect(1, 2, 3, 4));
}

void tst_LocatorReentrance::endOwnerThatIsAskedMayDie()
{
    EndpointScene scene;
    scene.owner->onBounds = [&] { scene.owner.reset(); };
    scene.locator->relocate(&scene.target);
    QVERIFY(!scene.owner);
    QCOMPARE(scene.target.getBounds(), QRect(54, 34, 4, 4));
}

void tst_LocatorReentrance::endOwnerThatIsAskedMayDeleteTheConnection()
{
    EndpointScene scene;
    scene.owner->onBounds = [&] { scene.connection.reset(); };
    scene.locator->relocate(&scene.target);
    QVERIFY(!scene.connection);
    QCOMPARE(scene.target.getBounds(), QRect(1, 2, 3, 4));
}

void tst_LocatorReentrance::endOwnerThatIsAskedMayDeleteTheLocator()
{
    EndpointScene scene;
    scene.owner->onBounds = [&] { scene.locator.reset(); };
    scene.locator->relocate(&scene.target);
    QVERIFY(!scene.locator);
    QCOMPARE(scene.target.getBounds(), QRect(1, 2, 3, 4));
}

PICTEL_TEST_MAIN(tst_LocatorReentrance)
#include "tst_locatorreentrance.moc"
