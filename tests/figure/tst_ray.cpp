#include "support/TestMain.h"

#include <vtlpictel/figure/Ray.h>

#include <cmath>
#include <limits>

using namespace Vantrel::Pictel;

class tst_Ray : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isNullByDefault();
    void takesItsComponents();
    void leadsFromTheOriginToAPoint();
    void leadsFromOnePointToAnother();
    void isTheDifferenceOfTwoRays();
    void belongsToTheParentGivenLast();
    void copyHasTheSameValueAndParent();
    void assignmentKeepsTheParent();
    void dotProductAddsTheProductsOfTheComponents();
    void similarityIsTheAbsoluteDotProduct();
    void assimilarityIsTheAbsoluteCrossProduct_data();
    void assimilarityIsTheAbsoluteCrossProduct();
    void addsComponentwise();
    void averagesTruncateTowardZero_data();
    void averagesTruncateTowardZero();
    void scalesBothComponents();
    void resultsHaveNoParent();
    void lengthIsEuclidean();
    void lengthSumsItsSquaresAsIntegers();
    void anyHorizontalComponentIsHorizontal_data();
    void anyHorizontalComponentIsHorizontal();
    void equalityComparesBothComponents();
    void arithmeticWrapsSilently();
};

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

QPoint toPoint(const Ray &ray)
{
    return QPoint(ray.x(), ray.y());
}

} // namespace

void tst_Ray::isNullByDefault()
{
    const Ray ray;
    QCOMPARE(toPoint(ray), QPoint(0, 0));
    QCOMPARE(ray.parent(), nullptr);
}

void tst_Ray::takesItsComponents()
{
    QCOMPARE(toPoint(Ray(3, -5)), QPoint(3, -5));
}

void tst_Ray::leadsFromTheOriginToAPoint()
{
    QCOMPARE(toPoint(Ray(QPoint(3, -5))), QPoint(3, -5));
}

void tst_Ray::leadsFromOnePointToAnother()
{
    QCOMPARE(toPoint(Ray(QPoint(1, 2), QPoint(10, 30))), QPoint(9, 28));
}

void tst_Ray::isTheDifferenceOfTwoRays()
{
    QCOMPARE(toPoint(Ray(Ray(1, 2), Ray(10, 30))), QPoint(9, 28));
}

void tst_Ray::belongsToTheParentGivenLast()
{
    QObject parent;
    const auto *null = new Ray(&parent);
    const auto *fromComponents = new Ray(1, 2, &parent);
    const auto *fromPoint = new Ray(QPoint(1, 2), &parent);
    const auto *fromPoints = new Ray(QPoint(1, 2), QPoint(3, 4), &parent);
    const auto *fromRays = new Ray(Ray(1, 2), Ray(3, 4), &parent);
    QCOMPARE(null->parent(), &parent);
    QCOMPARE(fromComponents->parent(), &parent);
    QCOMPARE(fromPoint->parent(), &parent);
    QCOMPARE(fromPoints->parent(), &parent);
    QCOMPARE(fromRays->parent(), &parent);
}

void tst_Ray::copyHasTheSameValueAndParent()
{
    QObject parent;
    const auto *original = new Ray(3, -5, &parent);
    const auto *copy = new Ray(*original);
    QCOMPARE(toPoint(*copy), QPoint(3, -5));
    QCOMPARE(copy->parent(), &parent);
}

void tst_Ray::assignmentKeepsTheParent()
{
    QObject parent;
    const auto *original = new Ray(3, -5, &parent);
    Ray assigned;
    assigned = *original;
    QCOMPARE(toPoint(assigned), QPoint(3, -5));
    QCOMPARE(assigned.parent(), nullptr);
}

void tst_Ray::dotProductAddsTheProductsOfTheComponents()
{
    QCOMPARE(Ray(2, 3).dotProduct(Ray(5, -7)), -11);
}

void tst_Ray::similarityIsTheAbsoluteDotProduct()
{
    QCOMPARE(Ray(2, 3).similarity(Ray(5, -7)), 11);
    QCOMPARE(Ray(2, 3).similarity(Ray(5, 7)), 31);
}

void tst_Ray::assimilarityIsTheAbsoluteCrossProduct_data()
{
    QTest::addColumn<QPoint>("other");
    QTest::addColumn<int>("expected");
    QTest::newRow("negative product") << QPoint(5, -7) << 29;
    QTest::newRow("positive product") << QPoint(5, 8) << 1;
    QTest::newRow("parallel") << QPoint(-4, -6) << 0;
}

void tst_Ray::assimilarityIsTheAbsoluteCrossProduct()
{
    QFETCH(const QPoint, other);
    QTEST(Ray(2, 3).assimilarity(Ray(other)), "expected");
}

void tst_Ray::addsComponentwise()
{
    QCOMPARE(toPoint(Ray(2, 3).getAdded(Ray(5, -7))), QPoint(7, -4));
}

void tst_Ray::averagesTruncateTowardZero_data()
{
    QTest::addColumn<QPoint>("first");
    QTest::addColumn<QPoint>("second");
    QTest::addColumn<QPoint>("average");
    QTest::newRow("odd sums") << QPoint(3, -5) << QPoint(0, 0) << QPoint(1, -2);
    QTest::newRow("even sums") << QPoint(3, -5) << QPoint(5, -3) << QPoint(4, -4);
}

void tst_Ray::averagesTruncateTowardZero()
{
    QFETCH(const QPoint, first);
    QFETCH(const QPoint, second);
    QTEST(toPoint(Ray(first).getAveraged(Ray(second))), "average");
}

void tst_Ray::scalesBothComponents()
{
    QCOMPARE(toPoint(Ray(2, -3).getScaled(-4)), QPoint(-8, 12));
}

void tst_Ray::resultsHaveNoParent()
{
    QObject parent;
    const auto *ray = new Ray(2, 3, &parent);
    QCOMPARE(ray->getAdded(*ray).parent(), nullptr);
    QCOMPARE(ray->getAveraged(*ray).parent(), nullptr);
    QCOMPARE(ray->getScaled(2).parent(), nullptr);
}

void tst_Ray::lengthIsEuclidean()
{
    QCOMPARE(Ray(3, -4).length(), 5.0);
    QCOMPARE(Ray(1, 1).length(), std::sqrt(2.0));
}

void tst_Ray::lengthSumsItsSquaresAsIntegers()
{
    QCOMPARE(Ray(65536, 3).length(), 3.0);
    QVERIFY(std::isnan(Ray(46340, 46340).length()));
}

void tst_Ray::anyHorizontalComponentIsHorizontal_data()
{
    QTest::addColumn<QPoint>("ray");
    QTest::addColumn<bool>("horizontal");
    QTest::newRow("vertical") << QPoint(0, 7) << false;
    QTest::newRow("null") << QPoint(0, 0) << false;
    QTest::newRow("mostly vertical") << QPoint(1, 100) << true;
    QTest::newRow("to the left") << QPoint(-1, 0) << true;
}

void tst_Ray::anyHorizontalComponentIsHorizontal()
{
    QFETCH(const QPoint, ray);
    QTEST(Ray(ray).isHorizontal(), "horizontal");
}

void tst_Ray::equalityComparesBothComponents()
{
    QVERIFY(Ray(1, 2) == Ray(1, 2));
    QVERIFY(!(Ray(1, 2) == Ray(9, 2)));
    QVERIFY(!(Ray(1, 2) == Ray(1, 9)));
}

void tst_Ray::arithmeticWrapsSilently()
{
    QCOMPARE(toPoint(Ray(QPoint(-1, 1), QPoint(largest, smallest))), QPoint(smallest, largest));
    QCOMPARE(toPoint(Ray(largest, smallest).getAdded(Ray(1, -1))), QPoint(smallest, largest));
    QCOMPARE(toPoint(Ray(largest, largest).getAveraged(Ray(1, 1))), QPoint(smallest / 2, smallest / 2));
    QCOMPARE(toPoint(Ray(smallest, largest).getScaled(2)), QPoint(0, -2));
    QCOMPARE(Ray(65536, 0).dotProduct(Ray(65536, 0)), 0);
    QCOMPARE(Ray(smallest, 0).similarity(Ray(1, 0)), smallest);
    QCOMPARE(Ray(smallest, 0).assimilarity(Ray(0, 1)), smallest);
}

PICTEL_TEST_MAIN(tst_Ray)
#include "tst_ray.moc"
