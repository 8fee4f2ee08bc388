#include "layout/XYLayoutTest.h"
#include "support/ProbeLocator.h"

#include <QTest>

#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

const QSize NoMinimum(0, 0);

} // namespace

class tst_XYLayout : public XYLayoutTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void rectangleIsCompletedWhenItIsSet_data();
    void rectangleIsCompletedWhenItIsSet();
    void realRectangleIsCompletedAndStoredAsItIs_data();
    void realRectangleIsCompletedAndStoredAsItIs();
    void zeroSizeIsStoredAndResolvedByTheChild();
    void otherValueIsStoredUnchanged();
    void nullChildIsRefused();
    void unknownChildIsRefused();
    void equalRectangleIsRefused();
    void locatorPlacesTheChild();
    void invalidConstraintIsNotApplied();
    void unusableNumbersLeaveTheChildWithinIntegers_data();
    void unusableNumbersLeaveTheChildWithinIntegers();

    void layoutRestoresTheConstraintRectangles();
    void layoutLeavesHiddenChildrenAlone();
    void layoutIgnoresTheClientArea();
    void layoutGoesThroughApplyConstraint();
    void layoutSkipsChildDeletedMeanwhile();
    void layoutSurvivesItsOwnDeletion();

    void minimumSizeCoversOriginAndChildren_data();
    void minimumSizeCoversOriginAndChildren();
    void minimumSizeWithoutContainerIsInvalid();
    void minimumSizeOfEmptyContainerIsOnePixel();
    void minimumSizeLeavesHiddenChildrenOut();
    void minimumSizeUnitesAllChildren();
    void preferredSizeAddsTenPixels();
    void sizesAtTheEndsOfTheNumbersDoNotWrap();

    void originIsTheClientAreasCorner();
    void originOfNullOrInvalidAreaIsZero();

    void stretchAddTakesTheBoundsAsConstraint();
    void removeOfNullOrUnknownFails();

    void layoutIsRelativeAndClips();
    void defaultParentIsNull();
};

void tst_XYLayout::rectangleIsCompletedWhenItIsSet_data()
{
    QTest::addColumn<QRect>("constraint");
    QTest::addColumn<QSize>("preferred");
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<QRect>("stored");

    QTest::newRow("complete") << QRect(5, 6, 7, 8) << QSize(40, 20) << NoMinimum << QRect(5, 6, 7, 8);
    QTest::newRow("both negative") << QRect(5, 5, -1, -1) << QSize(40, 20) << NoMinimum << QRect(5, 5, 40, 20);
    QTest::newRow("both far below zero") << QRect(5, 5, -9, -7) << QSize(40, 20) << NoMinimum << QRect(5, 5, 40, 20);
    QTest::newRow("below minimum") << QRect(0, 0, 3, 4) << QSize(40, 20) << QSize(10, 11) << QRect(0, 0, 10, 11);
    QTest::newRow("width below minimum") << QRect(0, 0, 3, 50) << QSize(40, 20) << QSize(10, 11) << QRect(0, 0, 10, 50);
    QTest::newRow("height below minimum")
        << QRect(0, 0, 50, 3) << QSize(40, 20) << QSize(10, 11) << QRect(0, 0, 50, 11);
    QTest::newRow("only height negative")
        << QRect(1, 2, 3, -1) << QSize(40, 20) << QSize(10, 11) << QRect(1, 2, 10, 20);
    QTest::newRow("only width negative") << QRect(1, 2, -1, 3) << QSize(40, 20) << QSize(10, 11) << QRect(1, 2, 40, 11);
    QTest::newRow("width kept") << QRect(1, 2, 30, -1) << QSize(40, 20) << QSize(10, 11) << QRect(1, 2, 30, 20);
    QTest::newRow("height kept") << QRect(1, 2, -1, 30) << QSize(40, 20) << QSize(10, 11) << QRect(1, 2, 40, 30);
    QTest::newRow("preferred below minimum")
        << QRect(1, 2, -1, -1) << QSize(4, 5) << QSize(10, 11) << QRect(1, 2, 4, 5);
    QTest::newRow("zero width counts as given")
        << QRect(1, 2, 0, -1) << QSize(4, 5) << QSize(10, 11) << QRect(1, 2, 10, 5);
    QTest::newRow("zero height counts as given")
        << QRect(1, 2, -1, 0) << QSize(4, 5) << QSize(10, 11) << QRect(1, 2, 4, 11);
    QTest::newRow("negative corner") << QRect(-70, -80, 7, 8) << QSize(40, 20) << NoMinimum << QRect(-70, -80, 7, 8);
}

void tst_XYLayout::rectangleIsCompletedWhenItIsSet()
{
    QFETCH(QRect, constraint);
    QFETCH(QSize, preferred);
    QFETCH(QSize, minimum);
    QFETCH(QRect, stored);
    m_child->preferred = preferred;
    m_child->minimum = minimum;
    QVERIFY(m_container->add(m_child.get(), constraint));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(stored));
    QCOMPARE(m_child->getBounds(), stored);
}

void tst_XYLayout::realRectangleIsCompletedAndStoredAsItIs_data()
{
    QTest::addColumn<QRectF>("constraint");
    QTest::addColumn<QRectF>("stored");
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("complete") << QRectF(5.25, 6, 17, 18.25) << QRectF(5.25, 6, 17, 18.25) << QRect(5, 6, 17, 18);
    QTest::newRow("both negative") << QRectF(5.5, 5, -0.5, -1) << QRectF(5.5, 5, 40, 20) << QRect(6, 5, 40, 20);
    QTest::newRow("below minimum") << QRectF(0, 0, 9.75, 10.5) << QRectF(0, 0, 10, 11) << QRect(0, 0, 10, 11);
    QTest::newRow("only height negative") << QRectF(0, 0, 3.5, -0.1) << QRectF(0, 0, 10, 20) << QRect(0, 0, 10, 20);
    QTest::newRow("only width negative") << QRectF(0, 0, -0.1, 3.5) << QRectF(0, 0, 40, 11) << QRect(0, 0, 40, 11);
    QTest::newRow("above minimum") << QRectF(0, 0, 10.5, 11.25) << QRectF(0, 0, 10.5, 11.25) << QRect(0, 0, 11, 11);
}

void tst_XYLayout::realRectangleIsCompletedAndStoredAsItIs()
{
    QFETCH(QRectF, constraint);
    QFETCH(QRectF, stored);
    QFETCH(QRect, bounds);
    m_child->minimum = QSize(10, 11);
    QVERIFY(m_container->add(m_child.get(), constraint));
    QCOMPARE(m_layout->getConstraint(m_child.get()).typeId(), int(QMetaType::QRectF));
    QCOMPARE(m_layout->getConstraint(m_child.get()).toRectF(), stored);
    QCOMPARE(m_child->getBounds(), bounds);
}

void tst_XYLayout::zeroSizeIsStoredAndResolvedByTheChild()
{
    m_container->add(m_child.get(), QRect(3, 4, 0, 0));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(3, 4, 0, 0)));
    QCOMPARE(m_child->getBounds(), QRect(3, 4, 40, 20));
}

void tst_XYLayout::otherValueIsStoredUnchanged()
{
    m_child->setBounds(QRect(1, 2, 3, 4));
    m_container->add(m_child.get(), QStringLiteral("west"));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QStringLiteral("west")));
    QCOMPARE(m_child->getBounds(), QRect(1, 2, 3, 4));
}

void tst_XYLayout::nullChildIsRefused()
{
    QVERIFY(!m_layout->setConstraint(nullptr, QRect(1, 2, 3, 4)));
    QVERIFY(!m_layout->setConstraint(nullptr, QRectF(1, 2, 3, 4)));
    QVERIFY(!m_layout->applyConstraint(nullptr, QRect(1, 2, 3, 4)));
}

void tst_XYLayout::unknownChildIsRefused()
{
    QVERIFY(!m_layout->setConstraint(m_child.get(), QRect(1, 2, 3, 4)));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant());
    QCOMPARE(m_child->getBounds(), QRect());
}

void tst_XYLayout::equalRectangleIsRefused()
{
    m_container->add(m_child.get(), QRect(5, 5, 40, 20));
    QVERIFY(!m_layout->setConstraint(m_child.get(), QRect(5, 5, 40, 20)));
    QVERIFY(!m_layout->setConstraint(m_child.get(), QRect(5, 5, -1, -1)));
    QVERIFY(m_layout->setConstraint(m_child.get(), QRect(5, 5, 40, 21)));
}

void tst_XYLayout::locatorPlacesTheChild()
{
    ProbeLocator locator(QRect(7, 8, 9, 10), this);
    m_container->add(m_child.get(), QVariant::fromValue(&locator));
    QCOMPARE(locator.calls, 1);
    QCOMPARE(m_child->getBounds(), QRect(7, 8, 9, 10));
}

void tst_XYLayout::invalidConstraintIsNotApplied()
{
    m_child->setBounds(QRect(1, 2, 3, 4));
    QVERIFY(!m_layout->applyConstraint(m_child.get(), QVariant()));
    QVERIFY(m_layout->applyConstraint(m_child.get(), QStringLiteral("west")));
    QCOMPARE(m_child->getBounds(), QRect(1, 2, 3, 4));
    QVERIFY(m_layout->applyConstraint(m_child.get(), QRect(5, 6, 7, 8)));
    QCOMPARE(m_child->getBounds(), QRect(5, 6, 7, 8));
}

void tst_XYLayout::unusableNumbersLeaveTheChildWithinIntegers_data()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr int limit = 1 << 29;
    QTest::addColumn<QRectF>("constraint");
    QTest::addColumn<QRect>("bounds");

    QTest::newRow("no number as size") << QRectF(1, 2, nan, nan) << QRect(1, 2, 40, 20);
    QTest::newRow("no number as corner") << QRectF(nan, nan, 5, 6) << QRect(0, 0, 0, 0);
    QTest::newRow("infinite size") << QRectF(0, 0, infinity, 6) << QRect(0, 0, limit, 6);
    QTest::newRow("beyond integers") << QRectF(-1e300, 5, 1e300, 6) << QRect(-limit, 5, limit, 6);
}

void tst_XYLayout::unusableNumbersLeaveTheChildWithinIntegers()
{
    QFETCH(QRectF, constraint);
    QFETCH(QRect, bounds);
    m_container->add(m_child.get(), constraint);
    if (bounds.isEmpty())
        bounds.setSize(m_child->preferred);
    QCOMPARE(m_child->getBounds(), bounds);
}

void tst_XYLayout::layoutRestoresTheConstraintRectangles()
{
    HintedFigure second;
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    m_container->add(&second, QRectF(-15.5, 6, 7, 8));
    m_child->setBounds(QRect(90, 90, 9, 9));
    second.setBounds(QRect(90, 90, 9, 9));
    m_container->validate();
    QCOMPARE(m_child->getBounds(), QRect(5, 6, 7, 8));
    QCOMPARE(second.getBounds(), QRectF(-15.5, 6, 7, 8).toRect());
    QVERIFY(m_layout->isLaidOut());
}

void tst_XYLayout::layoutLeavesHiddenChildrenAlone()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    m_child->setVisible(false);
    m_child->setBounds(QRect(90, 90, 9, 9));
    m_container->validate();
    QCOMPARE(m_child->getBounds(), QRect(90, 90, 9, 9));
}

void tst_XYLayout::layoutIgnoresTheClientArea()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    for (const QRect &area : {QRect(), QRect(100, 100, 1, 1), QRect(-5, -5, 900, 900)}) {
        m_child->setBounds(QRect(90, 90, 9, 9));
        QVERIFY(m_layout->performLayout(area));
        QCOMPARE(m_child->getBounds(), QRect(5, 6, 7, 8));
    }
}

void tst_XYLayout::layoutGoesThroughApplyConstraint()
{
    Figure container;
    CountingXYLayout layout;
    container.setLayoutManager(&layout);
    HintedFigure hidden;
    HintedFigure unconstrained;
    hidden.setVisible(false);
    container.add(m_child.get(), QRect(5, 6, 7, 8));
    container.add(&hidden, QRect(5, 6, 7, 8));
    container.add(&unconstrained);
    layout.applyCalls = 0;
    QVERIFY(layout.performLayout(QRect()));
    QCOMPARE(layout.applyCalls, 2);
}

void tst_XYLayout::layoutSkipsChildDeletedMeanwhile()
{
    auto second = std::make_unique<HintedFigure>();
    auto third = std::make_unique<HintedFigure>();
    m_container->add(m_child.get(), QRect(1, 1, 5, 5));
    m_container->add(second.get(), QRect(2, 2, 5, 5));
    m_container->add(third.get(), QRect(3, 3, 5, 5));
    m_child->setBounds(QRect(90, 90, 9, 9));
    third->setBounds(QRect(90, 90, 9, 9));
    connect(m_child.get(), &Figure::figureMoved, this, [&] { second.reset(); });
    m_container->validate();
    QCOMPARE(m_container->childFigures(), QList<Figure *>({m_child.get(), third.get()}));
    QCOMPARE(third->getBounds(), QRect(3, 3, 5, 5));
}

void tst_XYLayout::layoutSurvivesItsOwnDeletion()
{
    HintedFigure second;
    m_container->add(m_child.get(), QRect(1, 1, 5, 5));
    m_container->add(&second, QRect(2, 2, 5, 5));
    m_child->setBounds(QRect(90, 90, 9, 9));
    second.setBounds(QRect(90, 90, 9, 9));
    connect(m_child.get(), &Figure::figureMoved, this, [this] { delete m_layout; });
    m_container->validate();
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(m_child->getBounds(), QRect(1, 1, 5, 5));
    QCOMPARE(second.getBounds(), QRect(90, 90, 9, 9));
}

void tst_XYLayout::minimumSizeCoversOriginAndChildren_data()
{
    QTest::addColumn<QVariant>("constraint");
    QTest::addColumn<QSize>("preferred");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("away from the origin") << QVariant(QRect(100, 100, 20, 20)) << QSize(20, 20) << QSize(120, 120);
    QTest::newRow("preferred is wider") << QVariant(QRect(10, 20, 5, 6)) << QSize(40, 3) << QSize(50, 26);
    QTest::newRow("preferred is higher") << QVariant(QRect(10, 20, 5, 6)) << QSize(3, 40) << QSize(15, 60);
    QTest::newRow("negative corner") << QVariant(QRect(-50, -20, 10, 10)) << QSize(0, 0) << QSize(51, 21);
    QTest::newRow("around the origin") << QVariant(QRect(-50, -20, 100, 100)) << QSize(0, 0) << QSize(100, 100);
    QTest::newRow("real rectangle") << QVariant(QRectF(9.5, 20, 5, 6)) << QSize(0, 0) << QSize(15, 26);
    QTest::newRow("other constraint") << QVariant(QStringLiteral("west")) << QSize(40, 20) << QSize(40, 20);
    QTest::newRow("no constraint") << QVariant() << QSize(40, 20) << QSize(40, 20);
    QTest::newRow("nothing at all") << QVariant() << QSize(-1, -1) << QSize(1, 1);
}

void tst_XYLayout::minimumSizeCoversOriginAndChildren()
{
    QFETCH(QVariant, constraint);
    QFETCH(QSize, preferred);
    QFETCH(QSize, expected);
    m_child->preferred = preferred;
    m_container->add(m_child.get(), constraint);
    QCOMPARE(m_layout->getMinimumSize(), expected);
    QCOMPARE(m_layout->getPreferredSize(), expected + QSize(10, 10));
}

void tst_XYLayout::minimumSizeWithoutContainerIsInvalid()
{
    XYLayout layout;
    QCOMPARE(layout.getMinimumSize(), QSize(-1, -1));
    QCOMPARE(layout.getPreferredSize(), QSize(9, 9));
}

void tst_XYLayout::minimumSizeOfEmptyContainerIsOnePixel()
{
    QCOMPARE(m_layout->getMinimumSize(), QSize(1, 1));
}

void tst_XYLayout::minimumSizeLeavesHiddenChildrenOut()
{
    m_container->add(m_child.get(), QRect(100, 100, 20, 20));
    m_child->setVisible(false);
    QCOMPARE(m_layout->getMinimumSize(), QSize(1, 1));
}

void tst_XYLayout::minimumSizeUnitesAllChildren()
{
    HintedFigure second;
    m_container->add(m_child.get(), QRect(-30, 5, 50, 20));
    m_container->add(&second, QRect(50, -7, 11, 13));
    QCOMPARE(m_layout->getMinimumSize(), QSize(91, 32));
}

void tst_XYLayout::preferredSizeAddsTenPixels()
{
    m_container->add(m_child.get(), QRect(100, 100, 40, 20));
    QCOMPARE(m_layout->getPreferredSize(), QSize(150, 130));
}

void tst_XYLayout::sizesAtTheEndsOfTheNumbersDoNotWrap()
{
    constexpr int highest = std::numeric_limits<int>::max();
    m_container->add(m_child.get(), QRect(QPoint(highest - 49, highest - 49), QPoint(highest, highest)));
    QCOMPARE(m_layout->getMinimumSize(), QSize(highest, highest));
    QCOMPARE(m_layout->getPreferredSize(), QSize(highest, highest));
}

void tst_XYLayout::originIsTheClientAreasCorner()
{
    Figure figure;
    figure.setBounds(QRect(30, 40, 50, 60));
    figure.setMargin(3);
    QCOMPARE(m_layout->getOrigin(&figure), QPoint(33, 43));
}

void tst_XYLayout::originOfNullOrInvalidAreaIsZero()
{
    QCOMPARE(m_layout->getOrigin(nullptr), QPoint(0, 0));
    Figure figure;
    figure.setBounds(QRect(30, 40, 5, 5));
    figure.setMargin(3);
    QVERIFY(!figure.getClientArea().isValid());
    QCOMPARE(m_layout->getOrigin(&figure), QPoint(0, 0));
}

void tst_XYLayout::stretchAddTakesTheBoundsAsConstraint()
{
    m_child->setBounds(QRect(5, 6, 7, 8));
    m_layout->add(m_child.get(), 0U, 0U, -1);
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(5, 6, 7, 8)));
}

void tst_XYLayout::removeOfNullOrUnknownFails()
{
    QVERIFY(!m_layout->remove(nullptr));
    QVERIFY(!m_layout->remove(m_child.get()));
}

void tst_XYLayout::layoutIsRelativeAndClips()
{
    QVERIFY(m_layout->isRelativeLayout());
    QVERIFY(m_layout->isClipping());
}

void tst_XYLayout::defaultParentIsNull()
{
    XYLayout layout;
    QCOMPARE(layout.parent(), nullptr);
    QCOMPARE(m_layout->parent(), m_container.get());
}

PICTEL_TEST_MAIN(tst_XYLayout)
#include "tst_xylayout.moc"
