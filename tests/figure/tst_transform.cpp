#include "support/TestMain.h"

#include <vtlpictel/figure/Transform.h>

#include <limits>

using namespace Vantrel::Pictel;

class tst_Transform : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheIdentityAtFirst();
    void belongsToItsParent();
    void oneScaleServesBothAxes();
    void eachAxisHasItsOwnScale();
    void translates();
    void rotationTurnsTheXAxisTowardsTheYAxis();
    void scalesBeforeItRotatesAndTranslatesLast();
    void roundsHalfAwayFromZero_data();
    void roundsHalfAwayFromZero();
    void hugeResultsBecomeTheNearestInteger();
    void notANumberBecomesZero();
};

namespace {

constexpr double quarterTurn = 1.57079632679489661923;
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

void tst_Transform::isTheIdentityAtFirst()
{
    QCOMPARE(Transform().getTransformed(QPoint(7, -3)), QPoint(7, -3));
}

void tst_Transform::belongsToItsParent()
{
    QObject parent;
    const auto *transform = new Transform(&parent);
    QCOMPARE(transform->parent(), &parent);
}

void tst_Transform::oneScaleServesBothAxes()
{
    Transform transform;
    transform.setScale(3.0);
    QCOMPARE(transform.getTransformed(QPoint(7, -3)), QPoint(21, -9));
}

void tst_Transform::eachAxisHasItsOwnScale()
{
    Transform transform;
    transform.setScale(2.0, 5.0);
    QCOMPARE(transform.getTransformed(QPoint(7, -3)), QPoint(14, -15));
}

void tst_Transform::translates()
{
    Transform transform;
    transform.setTranslation(10.0, 20.0);
    QCOMPARE(transform.getTransformed(QPoint(7, -3)), QPoint(17, 17));
}

void tst_Transform::rotationTurnsTheXAxisTowardsTheYAxis()
{
    Transform transform;
    transform.setRotation(quarterTurn);
    QCOMPARE(transform.getTransformed(QPoint(10, 0)), QPoint(0, 10));
    QCOMPARE(transform.getTransformed(QPoint(0, 10)), QPoint(-10, 0));
}

void tst_Transform::scalesBeforeItRotatesAndTranslatesLast()
{
    Transform transform;
    transform.setTranslation(100.0, 200.0);
    transform.setRotation(quarterTurn);
    transform.setScale(2.0, 3.0);
    QCOMPARE(transform.getTransformed(QPoint(10, 1)), QPoint(97, 220));
}

void tst_Transform::roundsHalfAwayFromZero_data()
{
    QTest::addColumn<double>("offset");
    QTest::addColumn<int>("rounded");
    QTest::newRow("just below half") << 2.4375 << 2;
    QTest::newRow("half") << 2.5 << 3;
    QTest::newRow("small half") << 0.5 << 1;
    QTest::newRow("nothing") << 0.0 << 0;
    QTest::newRow("negative small half") << -0.5 << -1;
    QTest::newRow("negative half") << -2.5 << -3;
    QTest::newRow("negative just below half") << -2.4375 << -2;
}

void tst_Transform::roundsHalfAwayFromZero()
{
    QFETCH(const double, offset);
    QFETCH(const int, rounded);
    Transform transform;
    transform.setTranslation(offset, -offset);
    QCOMPARE(transform.getTransformed(QPoint(0, 0)), QPoint(rounded, -rounded));
}

void tst_Transform::hugeResultsBecomeTheNearestInteger()
{
    Transform transform;
    transform.setScale(1e300, -1e300);
    QCOMPARE(transform.getTransformed(QPoint(1, 1)), QPoint(largest, smallest));
}

void tst_Transform::notANumberBecomesZero()
{
    Transform transform;
    transform.setTranslation(std::numeric_limits<double>::quiet_NaN(), 5.0);
    QCOMPARE(transform.getTransformed(QPoint(1, 1)), QPoint(0, 6));
}

PICTEL_TEST_MAIN(tst_Transform)
#include "tst_transform.moc"
