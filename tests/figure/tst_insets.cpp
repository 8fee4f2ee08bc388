#include "support/TestMain.h"

#include <vtlpictel/figure/Insets.h>

#include <limits>
#include <type_traits>

using namespace Vantrel::Pictel;

static_assert(std::has_virtual_destructor_v<Insets>);

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

class tst_Insets : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void areNullByDefault();
    void takeTheirWidthsInTheOrderTopLeftBottomRight();
    void copyAllFourWidths();
    void isNullAsksAllFourWidths_data();
    void isNullAsksAllFourWidths();
    void equalityComparesAllFourWidths_data();
    void equalityComparesAllFourWidths();
    void addToGrowsTheSizeInPlace();
    void removeFromShrinksTheSizeInPlace();
    void applyToCrossesLeftAndRight();
    void applyToCrossesLeftAndRightOfFloatingRectangles();
    void stripFromCrossesLeftAndRight();
    void stripFromCrossesLeftAndRightOfFloatingRectangles();
    void stripFromUndoesApplyTo();
    void sizesWrapSilently();
    void rectanglesWrapSilently();
    void floatingRectanglesDoNotWrap();
};

void tst_Insets::areNullByDefault()
{
    const Insets insets;
    QVERIFY(insets.isNull());
    QCOMPARE(insets.top(), 0);
    QCOMPARE(insets.left(), 0);
    QCOMPARE(insets.bottom(), 0);
    QCOMPARE(insets.right(), 0);
}

void tst_Insets::takeTheirWidthsInTheOrderTopLeftBottomRight()
{
    const Insets insets(1, 2, 3, 4);
    QCOMPARE(insets.top(), 1);
    QCOMPARE(insets.left(), 2);
    QCOMPARE(insets.bottom(), 3);
    QCOMPARE(insets.right(), 4);
}

void tst_Insets::copyAllFourWidths()
{
    const Insets original(1, 2, 3, 4);
    const Insets copy(original);
    Insets assigned;
    assigned = original;
    QVERIFY(copy == original);
    QVERIFY(assigned == original);
}

void tst_Insets::isNullAsksAllFourWidths_data()
{
    QTest::addColumn<QList<int>>("widths");
    QTest::addColumn<bool>("null");
    QTest::newRow("all 0") << QList<int> {0, 0, 0, 0} << true;
    QTest::newRow("top") << QList<int> {1, 0, 0, 0} << false;
    QTest::newRow("left") << QList<int> {0, 1, 0, 0} << false;
    QTest::newRow("bottom") << QList<int> {0, 0, 1, 0} << false;
    QTest::newRow("right") << QList<int> {0, 0, 0, -1} << false;
}

void tst_Insets::isNullAsksAllFourWidths()
{
    QFETCH(const QList<int>, widths);
    QTEST(Insets(widths[0], widths[1], widths[2], widths[3]).isNull(), "null");
}

void tst_Insets::equalityComparesAllFourWidths_data()
{
    QTest::addColumn<QList<int>>("widths");
    QTest::addColumn<bool>("equal");
    QTest::newRow("same") << QList<int> {1, 2, 3, 4} << true;
    QTest::newRow("other top") << QList<int> {9, 2, 3, 4} << false;
    QTest::newRow("other left") << QList<int> {1, 9, 3, 4} << false;
    QTest::newRow("other bottom") << QList<int> {1, 2, 9, 4} << false;
    QTest::newRow("other right") << QList<int> {1, 2, 3, 9} << false;
}

void tst_Insets::equalityComparesAllFourWidths()
{
    QFETCH(const QList<int>, widths);
    QFETCH(const bool, equal);
    const Insets reference(1, 2, 3, 4);
    const Insets other(widths[0], widths[1], widths[2], widths[3]);
    QCOMPARE(reference == other, equal);
    QCOMPARE(reference != other, !equal);
}

void tst_Insets::addToGrowsTheSizeInPlace()
{
    QSize size(100, 200);
    QSize &result = Insets(1, 2, 3, 4).addTo(size);
    QCOMPARE(size, QSize(106, 204));
    QCOMPARE(&result, &size);
}

void tst_Insets::removeFromShrinksTheSizeInPlace()
{
    QSize size(100, 200);
    QSize &result = Insets(1, 2, 3, 4).removeFrom(size);
    QCOMPARE(size, QSize(94, 196));
    QCOMPARE(&result, &size);
}

void tst_Insets::applyToCrossesLeftAndRight()
{
    QRect rect(0, 0, 100, 100);
    QRect &result = Insets(1, 2, 3, 4).applyTo(rect);
    QCOMPARE(rect, QRect(QPoint(4, 1), QPoint(97, 96)));
    QCOMPARE(&result, &rect);
}

void tst_Insets::applyToCrossesLeftAndRightOfFloatingRectangles()
{
    QRectF rect(0.5, 0.25, 100.0, 100.0);
    QRectF &result = Insets(1, 2, 3, 4).applyTo(rect);
    QCOMPARE(rect, QRectF(4.5, 1.25, 94.0, 96.0));
    QCOMPARE(&result, &rect);
}

void tst_Insets::stripFromCrossesLeftAndRight()
{
    QRect rect(0, 0, 100, 100);
    QRect &result = Insets(1, 2, 3, 4).stripFrom(rect);
    QCOMPARE(rect, QRect(QPoint(-4, -1), QPoint(101, 102)));
    QCOMPARE(&result, &rect);
}

void tst_Insets::stripFromCrossesLeftAndRightOfFloatingRectangles()
{
    QRectF rect(0.5, 0.25, 100.0, 100.0);
    QRectF &result = Insets(1, 2, 3, 4).stripFrom(rect);
    QCOMPARE(rect, QRectF(-3.5, -0.75, 106.0, 104.0));
    QCOMPARE(&result, &rect);
}

void tst_Insets::stripFromUndoesApplyTo()
{
    const Insets insets(1, 2, 3, 4);
    QRect rect(10, 20, 30, 40);
    QCOMPARE(insets.stripFrom(insets.applyTo(rect)), QRect(10, 20, 30, 40));
}

void tst_Insets::sizesWrapSilently()
{
    QSize grown(largest, largest);
    QCOMPARE(Insets(1, 1, 0, 0).addTo(grown), QSize(smallest, smallest));
    QSize shrunk(smallest, smallest);
    QCOMPARE(Insets(0, 0, 1, 1).removeFrom(shrunk), QSize(largest, largest));
    QSize wide(0, 0);
    QCOMPARE(Insets(largest, largest, largest, largest).addTo(wide), QSize(-2, -2));
}

void tst_Insets::rectanglesWrapSilently()
{
    const Insets insets(1, 1, 1, 1);
    QRect shrunk(QPoint(largest, largest), QPoint(smallest, smallest));
    insets.applyTo(shrunk);
    QCOMPARE(shrunk.topLeft(), QPoint(smallest, smallest));
    QCOMPARE(shrunk.bottomRight(), QPoint(largest, largest));
    insets.stripFrom(shrunk);
    QCOMPARE(shrunk.topLeft(), QPoint(largest, largest));
    QCOMPARE(shrunk.bottomRight(), QPoint(smallest, smallest));
}

void tst_Insets::floatingRectanglesDoNotWrap()
{
    const Insets insets(smallest, smallest, smallest, smallest);
    QRectF rect(0.0, 0.0, 1.0, 1.0);
    QCOMPARE(insets.applyTo(rect), QRectF(-2147483648.0, -2147483648.0, 4294967297.0, 4294967297.0));
    QCOMPARE(insets.stripFrom(rect), QRectF(0.0, 0.0, 1.0, 1.0));
}

PICTEL_TEST_MAIN(tst_Insets)
#include "tst_insets.moc"
