#include "support/TestMain.h"

#include <vtlpictel/figure/Insets.h>
#include <vtlpictel/figure/Transposer.h>

#include <limits>

using namespace Vantrel::Pictel;

class tst_Transposer : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isDisabledAtFirst();
    void belongsToItsParent();
    void canBeEnabledAndDisabled();
    void leavesEverythingAsItIsWhileDisabled();
    void swapsTheCoordinatesOfPoints();
    void swapsTheDimensionsOfSizes();
    void swapsPositionAndSizeOfRectangles_data();
    void swapsPositionAndSizeOfRectangles();
    void swapsTopWithLeftAndBottomWithRight();
};

void tst_Transposer::isDisabledAtFirst()
{
    QCOMPARE(Transposer().isEnabled(), false);
}

void tst_Transposer::belongsToItsParent()
{
    QObject parent;
    const auto *transposer = new Transposer(&parent);
    QCOMPARE(transposer->parent(), &parent);
}

void tst_Transposer::canBeEnabledAndDisabled()
{
    Transposer transposer;
    transposer.enable();
    QCOMPARE(transposer.isEnabled(), true);
    transposer.disable();
    QCOMPARE(transposer.isEnabled(), false);
    transposer.setEnabled(true);
    QCOMPARE(transposer.isEnabled(), true);
    transposer.setEnabled(false);
    QCOMPARE(transposer.isEnabled(), false);
}

void tst_Transposer::leavesEverythingAsItIsWhileDisabled()
{
    const Transposer transposer;
    QCOMPARE(transposer.t(QPoint(1, 2)), QPoint(1, 2));
    QCOMPARE(transposer.t(QSize(1, 2)), QSize(1, 2));
    QCOMPARE(transposer.t(QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
    QVERIFY(transposer.t(Insets(1, 2, 3, 4)) == Insets(1, 2, 3, 4));
}

void tst_Transposer::swapsTheCoordinatesOfPoints()
{
    Transposer transposer;
    transposer.enable();
    QCOMPARE(transposer.t(QPoint(1, 2)), QPoint(2, 1));
}

void tst_Transposer::swapsTheDimensionsOfSizes()
{
    Transposer transposer;
    transposer.enable();
    QCOMPARE(transposer.t(QSize(1, 2)), QSize(2, 1));
}

void tst_Transposer::swapsPositionAndSizeOfRectangles_data()
{
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("transposed");
    QTest::newRow("valid") << QRect(1, 2, 3, 4) << QRect(2, 1, 4, 3);
    QTest::newRow("null") << QRect() << QRect();
    QTest::newRow("negative size") << QRect(1, 2, -3, -4) << QRect(2, 1, -4, -3);
    QTest::newRow("everything") << QRect(QPoint(smallest, smallest), QPoint(largest, 0))
                                << QRect(QPoint(smallest, smallest), QPoint(0, largest));
}

void tst_Transposer::swapsPositionAndSizeOfRectangles()
{
    QFETCH(const QRect, rect);
    QFETCH(const QRect, transposed);
    Transposer transposer;
    transposer.enable();
    QCOMPARE(transposer.t(rect), transposed);
}

void tst_Transposer::swapsTopWithLeftAndBottomWithRight()
{
    Transposer transposer;
    transposer.enable();
    const Insets transposed = transposer.t(Insets(1, 2, 3, 4));
    QCOMPARE(transposed.top(), 2);
    QCOMPARE(transposed.left(), 1);
    QCOMPARE(transposed.bottom(), 4);
    QCOMPARE(transposed.right(), 3);
}

PICTEL_TEST_MAIN(tst_Transposer)
#include "tst_transposer.moc"
