#include "connections/LocatorProbes.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/PolylineConnection.h>
#include <vtlpictel/figure/ArrowLocator.h>
#include <vtlpictel/figure/ConnectionEndpointLocator.h>
#include <vtlpictel/figure/GeometryUtils.h>
#include <vtlpictel/figure/RelativeLocator.h>

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

/// A locator with a reference point of its own.
class PointLocator : public Locator
{
public:
    using Locator::Locator;
    QPoint point;

protected:
    QPoint getReferencePoint() override { return point; }
};

class OpenRelativeLocator : public RelativeLocator
{
public:
    using RelativeLocator::getReferenceBox;
    using RelativeLocator::getReferenceFigure;
    using RelativeLocator::RelativeLocator;
};

} // namespace

class tst_Locators : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void locatorStartsWithoutGapAndCentred();
    void locatorPlacesByRelativePosition_data();
    void locatorPlacesByRelativePosition();
    void locatorTakesTheReferencePointAsAbsolute();
    void locatorsLeaveNullAndHiddenFiguresAlone();
    void relativeLocatorReadsPositionCodes_data();
    void relativeLocatorReadsPositionCodes();
    void relativeLocatorPlacesInFractionsOfTheBox_data();
    void relativeLocatorPlacesInFractionsOfTheBox();
    void relativeLocatorPlacesAtNegativeCoordinates_data();
    void relativeLocatorPlacesAtNegativeCoordinates();
    void relativeLocatorCutsOffWhatIsTooFar_data();
    void relativeLocatorCutsOffWhatIsTooFar();
    void relativeLocatorCrossesCoordinateSystems();
    void relativeLocatorWithoutReferenceDoesNothing();
    void locatorsAreFoundByInterface();
};

void tst_Locators::locatorStartsWithoutGapAndCentred()
{
    const PointLocator locator;
    QCOMPARE(locator.getGap(), 0);
    QCOMPARE(locator.getRelativePosition(), 2);
}

void tst_Locators::locatorPlacesByRelativePosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QPoint>("topLeft");
    // Size 21 x 11 at (100, 200) with gap 3: half sizes 10 and 5.
    QTest::newRow("centred") << 2 << QPoint(90, 195);
    QTest::newRow("north") << POSITION_NORTH << QPoint(90, 187);
    QTest::newRow("south") << POSITION_SOUTH << QPoint(90, 203);
    QTest::newRow("west") << POSITION_WEST << QPoint(77, 195);
    QTest::newRow("east") << POSITION_EAST << QPoint(103, 195);
    QTest::newRow("north west") << (POSITION_NORTH | POSITION_WEST) << QPoint(77, 187);
    QTest::newRow("west wins over east") << (POSITION_WEST | POSITION_EAST) << QPoint(77, 195);
    QTest::newRow("north wins over south") << (POSITION_NORTH | POSITION_SOUTH) << QPoint(90, 187);
}

void tst_Locators::locatorPlacesByRelativePosition()
{
    QFETCH(int, position);
    PointLocator locator;
    locator.point = QPoint(100, 200);
    locator.setGap(3);
    locator.setRelativePosition(position);
    const auto figure = figureOfSize(QSize(21, 11));
    locator.relocate(figure.get());
    QTEST(figure->getBounds().topLeft(), "topLeft");
    QCOMPARE(figure->getBounds().size(), QSize(21, 11));
}

void tst_Locators::locatorTakesTheReferencePointAsAbsolute()
{
    RelativeParent parent;
    const auto figure = figureOfSize(QSize(10, 10));
    parent.container.add(figure.get());
    PointLocator locator;
    locator.point = QPoint(150, 90);
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(45, 35, 10, 10));
    parent.container.remove(figure.get());
}

void tst_Locators::locatorsLeaveNullAndHiddenFiguresAlone()
{
    PolylineConnection connection;
    Figure reference;
    reference.setBounds(QRect(0, 0, 10, 10));
    PointLocator point;
    ArrowLocator arrow(&connection, ConnectionLocator::SOURCE);
    RelativeLocator relative(&reference, POSITION_EAST);
    ConnectionEndpointLocator endpoint(&connection, true);
    const auto hidden = figureOfSize(QSize(10, 10));
    hidden->setVisible(false);
    for (ILocator *locator : QList<ILocator *> {&point, &arrow, &relative, &endpoint}) {
        locator->relocate(nullptr);
        locator->relocate(hidden.get());
    }
    QCOMPARE(hidden->getBounds(), QRect());
}

void tst_Locators::relativeLocatorReadsPositionCodes_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::newRow("none") << 0 << 0.5 << 0.5;
    QTest::newRow("north") << 1 << 0.5 << 0.0;
    QTest::newRow("south") << 4 << 0.5 << 1.0;
    QTest::newRow("west") << 8 << 0.0 << 0.5;
    QTest::newRow("east") << 16 << 1.0 << 0.5;
    QTest::newRow("south east") << 20 << 1.0 << 1.0;
    QTest::newRow("contradictions") << 29 << 0.5 << 0.5;
}

void tst_Locators::relativeLocatorReadsPositionCodes()
{
    QFETCH(int, position);
    const RelativeLocator locator(nullptr, position);
    QTEST(locator.relativeX(), "x");
    QTEST(locator.relativeY(), "y");
    RelativeLocator moved(nullptr, 0.25, 0.75);
    moved.setLocation(position);
    QTEST(moved.relativeX(), "x");
    QTEST(moved.relativeY(), "y");
}

void tst_Locators::relativeLocatorPlacesInFractionsOfTheBox_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<QRect>("bounds");
    // A figure of 5 x 4 at a box of 100 x 40 whose top-left is (10, 20): half sizes, rounded up, are 3 and 2.
    QTest::newRow("top left") << 0.0 << 0.0 << QRect(7, 18, 5, 4);
    QTest::newRow("centre") << 0.5 << 0.5 << QRect(57, 38, 5, 4);
    QTest::newRow("bottom right") << 1.0 << 1.0 << QRect(107, 58, 5, 4);
    QTest::newRow("truncated toward zero") << 0.026 << 0.04 << QRect(10, 20, 5, 4);
    QTest::newRow("not a number stays at the box") << qQNaN() << qQNaN() << QRect(10, 20, 5, 4);
}

void tst_Locators::relativeLocatorPlacesInFractionsOfTheBox()
{
    QFETCH(double, x);
    QFETCH(double, y);
    Figure reference;
    reference.setBounds(QRect(10, 20, 100, 40));
    const auto figure = figureOfSize(QSize(5, 4));
    RelativeLocator(&reference, x, y).relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_Locators::relativeLocatorPlacesAtNegativeCoordinates_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<QRect>("bounds");
    QTest::newRow("top left") << 0.0 << 0.0 << QRect(-113, -62, 5, 4);
    QTest::newRow("centre") << 0.5 << 0.5 << QRect(-63, -42, 5, 4);
    QTest::newRow("bottom right") << 1.0 << 1.0 << QRect(-13, -22, 5, 4);
    QTest::newRow("truncated toward zero") << 0.026 << 0.04 << QRect(-110, -60, 5, 4);
    QTest::newRow("before the box") << -0.5 << -0.5 << QRect(-163, -82, 5, 4);
}

void tst_Locators::relativeLocatorPlacesAtNegativeCoordinates()
{
    QFETCH(double, x);
    QFETCH(double, y);
    Figure reference;
    reference.setBounds(QRect(-110, -60, 100, 40));
    const auto figure = figureOfSize(QSize(5, 4));
    RelativeLocator(&reference, x, y).relocate(figure.get());
    QTEST(figure->getBounds(), "bounds");
}

void tst_Locators::relativeLocatorCutsOffWhatIsTooFar_data()
{
    QTest::addColumn<double>("fraction");
    QTest::addColumn<int>("coordinate");
    QTest::newRow("infinity") << qInf() << (1 << 29);
    QTest::newRow("minus infinity") << -qInf() << -(1 << 29);
    QTest::newRow("huge") << 1e300 << (1 << 29);
    QTest::newRow("hugely negative") << -1e300 << -(1 << 29);
}

void tst_Locators::relativeLocatorCutsOffWhatIsTooFar()
{
    QFETCH(double, fraction);
    QFETCH(int, coordinate);
    Figure reference;
    reference.setBounds(QRect(10, 20, 100, 40));
    const auto figure = figureOfSize(QSize(5, 4));
    RelativeLocator(&reference, fraction, 0.5).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(coordinate, 38, 5, 4));
    RelativeLocator(&reference, 0.5, fraction).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(57, coordinate, 5, 4));
}

void tst_Locators::relativeLocatorCrossesCoordinateSystems()
{
    RelativeParent there;
    Figure reference;
    there.container.add(&reference, QRect(10, 20, 100, 40));
    RelativeParent here;
    here.container.setBounds(QRect(5, 5, 400, 400));
    const auto figure = figureOfSize(QSize(4, 4));
    here.container.add(figure.get());
    RelativeLocator(&reference, POSITION_EAST | POSITION_SOUTH).relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(203, 103, 4, 4));
    here.container.remove(figure.get());
    there.container.remove(&reference);
}

void tst_Locators::relativeLocatorWithoutReferenceDoesNothing()
{
    auto reference = std::make_unique<Figure>();
    reference->setBounds(QRect(0, 0, 10, 10));
    OpenRelativeLocator locator(reference.get(), 0);
    QCOMPARE(locator.getReferenceFigure(), reference.get());
    QCOMPARE(locator.getReferenceBox(), QRect(0, 0, 10, 10));
    reference.reset();
    QCOMPARE(locator.getReferenceFigure(), nullptr);
    QCOMPARE(locator.getReferenceBox(), QRect());
    const auto figure = figureOfSize(QSize(4, 4));
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect());
    Figure other;
    other.setBounds(QRect(100, 100, 10, 10));
    locator.setReferenceFigure(&other);
    locator.relocate(figure.get());
    QCOMPARE(figure->getBounds(), QRect(103, 103, 4, 4));
}

void tst_Locators::locatorsAreFoundByInterface()
{
    RelativeLocator relative(nullptr, 0);
    ConnectionEndpointLocator endpoint(nullptr, true);
    ArrowLocator arrow(nullptr, ConnectionLocator::TARGET);
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&relative)), static_cast<ILocator *>(&relative));
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&endpoint)), static_cast<ILocator *>(&endpoint));
    QCOMPARE(qobject_cast<ILocator *>(static_cast<QObject *>(&arrow)), static_cast<ILocator *>(&arrow));
    QCOMPARE(qobject_interface_iid<ILocator *>(), "ILocator.Pictel.Vantrel.vantrel.org");
}

PICTEL_TEST_MAIN(tst_Locators)
#include "tst_locators.moc"
