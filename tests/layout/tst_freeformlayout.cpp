#include "layout/FreeformLayoutTest.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

class tst_FreeformLayout : public FreeformLayoutTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void examiningAnnouncesEachChangedEdge_data();
    void examiningAnnouncesEachChangedEdge();
    void examiningTheSameExtentAnnouncesNothing();
    void askingForTheExtentAnnouncesNothing();
    void addingAnnouncesNothing();

    void sizesAreThoseOfTheExtent();
    void sizesUseTheKeptExtent();
    void originIsZero();
    void layoutIsAbsoluteAndClips();

    void monitoredMoveAnnouncesTheExtent();
    void monitoredMoveInsideAnnouncesNothing();
    void unmonitoredMoveAnnouncesNothing();
    void moveBeforeFirstLayoutAnnouncesNothing();
    void childIsMonitoredByEitherAdd();
    void refusedDuplicateIsNotMonitoredTwice();
    void childTakenAwayWhileAddedIsNotMonitored();

    void removingAnnouncesTheExtent();
    void removingInsideAnnouncesNothing();
    void removingUnknownOrNullFails();
    void removedChildIsNotMonitored();
    void removingEndsAnyExaminationOfTheChild();
    void removingSurvivesDeletionOfTheLayout();
    void deletedChildAnnouncesTheExtent();

    void monitoringIsAPropertyGivenAtConstruction();
    void switchingOnWatchesTheContainer();
    void switchingOnTwiceWatchesTwice();
    void switchingOffEndsTheWatch();
    void switchingOffWhatIsOffEndsNothing();
    void switchingLeavesChildrenAsTheyWereAdded();
    void switchingWithoutContainerOnlyStores();

    void destructionInAnyOrder_data();
    void destructionInAnyOrder();
    void manyFiguresMovedAndRemoved();
};

void tst_FreeformLayout::examiningAnnouncesEachChangedEdge_data()
{
    QTest::addColumn<QRect>("changed");
    QTest::newRow("left") << QRect(9, 20, 31, 40);
    QTest::newRow("top") << QRect(10, 19, 30, 41);
    QTest::newRow("right") << QRect(10, 20, 31, 40);
    QTest::newRow("bottom") << QRect(10, 20, 30, 41);
}

void tst_FreeformLayout::examiningAnnouncesEachChangedEdge()
{
    QFETCH(QRect, changed);
    HintedFigure *child = addChild(QRect(10, 20, 30, 40));
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    disconnect(child, "2figureMoved(Figure *)", m_layout, "1examineExtent()");
    m_layout->setConstraint(child, changed);
    QCOMPARE(announcements.size(), 0);
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), changed);
}

void tst_FreeformLayout::examiningTheSameExtentAnnouncesNothing()
{
    addChild(QRect(10, 20, 30, 40));
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 1);
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 1);
}

void tst_FreeformLayout::askingForTheExtentAnnouncesNothing()
{
    addChild(QRect(10, 20, 30, 40));
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    m_layout->getFreeformExtent();
    QCOMPARE(announcements.size(), 0);
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::addingAnnouncesNothing()
{
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    addChild(QRect(10, 20, 30, 40));
    HintedFigure second;
    second.setBounds(QRect(1, 1, 2, 2));
    m_container->add(&second, 0U, 0U, -1);
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::sizesAreThoseOfTheExtent()
{
    addChild(QRect(-10, -20, 30, 40));
    QCOMPARE(m_layout->getMinimumSize(), QSize(30, 40));
    QCOMPARE(m_layout->getPreferredSize(), QSize(30, 40));
}

void tst_FreeformLayout::sizesUseTheKeptExtent()
{
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    addChild(QRect(-10, -20, 30, 40));
    m_layout->getPreferredSize();
    addChild(QRect(100, 100, 5, 5));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-10, -20, 30, 40));
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::originIsZero()
{
    m_container->setBounds(QRect(30, 40, 50, 60));
    QCOMPARE(m_layout->getOrigin(m_container.get()), QPoint(0, 0));
    QCOMPARE(m_layout->getOrigin(nullptr), QPoint(0, 0));
}

void tst_FreeformLayout::layoutIsAbsoluteAndClips()
{
    QVERIFY(!m_layout->isRelativeLayout());
    QVERIFY(m_layout->isClipping());
}

void tst_FreeformLayout::monitoredMoveAnnouncesTheExtent()
{
    HintedFigure *child = addChild(QRect(10, 20, 30, 40));
    m_container->validate();
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    child->setBounds(QRect(-5, -6, 30, 40));
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-5, -6, 30, 40));
}

void tst_FreeformLayout::monitoredMoveInsideAnnouncesNothing()
{
    addChild(QRect(0, 0, 100, 100));
    HintedFigure *child = addChild(QRect(10, 20, 30, 40));
    m_container->validate();
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    child->setBounds(QRect(50, 50, 30, 40));
    QCOMPARE(m_layout->getConstraint(child), QVariant(QRect(50, 50, 30, 40)));
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::unmonitoredMoveAnnouncesNothing()
{
    Figure container;
    OpenFreeformLayout layout(nullptr, false);
    container.setLayoutManager(&layout);
    HintedFigure child;
    HintedFigure second;
    second.setBounds(QRect(1, 1, 1, 1));
    container.add(&child, QRect(10, 20, 30, 40));
    container.add(&second, 0U, 0U, -1);
    container.validate();
    QSignalSpy announcements(&layout, &FreeformLayout::extentChanged);
    child.setBounds(QRect(-5, -6, 30, 40));
    second.setBounds(QRect(-50, -60, 30, 40));
    QCOMPARE(announcements.size(), 0);
    QCOMPARE(layout.calculateFreeformExtent(), QRect(-50, -60, 75, 94));
}

void tst_FreeformLayout::moveBeforeFirstLayoutAnnouncesNothing()
{
    HintedFigure *child = addChild(QRect(10, 20, 30, 40));
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    child->setBounds(QRect(-5, -6, 30, 40));
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::childIsMonitoredByEitherAdd()
{
    HintedFigure second;
    m_container->add(&second, 0U, 0U, -1);
    QCOMPARE(addChild(QVariant())->moveReceivers(), 2);
    QCOMPARE(second.moveReceivers(), 2);
}

void tst_FreeformLayout::refusedDuplicateIsNotMonitoredTwice()
{
    HintedFigure *child = addChild(QVariant());
    QVERIFY(!m_container->add(child));
    QVERIFY(!m_container->add(child, 0U, 0U, -1));
    QCOMPARE(child->moveReceivers(), 2);
}

void tst_FreeformLayout::childTakenAwayWhileAddedIsNotMonitored()
{
    HintedFigure child;
    connect(&child, &Figure::figureMoved, this, [&] { m_layout->remove(&child); });
    m_container->add(&child, QRect(5, 6, 7, 8));
    QCOMPARE(m_container->childFigureCount(), 0);
    QCOMPARE(child.moveReceivers(), 1);
}

void tst_FreeformLayout::removingAnnouncesTheExtent()
{
    addChild(QRect(10, 20, 30, 40));
    HintedFigure *second = addChild(QRect(-5, -6, 3, 4));
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    QVERIFY(m_container->remove(second));
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::removingInsideAnnouncesNothing()
{
    addChild(QRect(10, 20, 30, 40));
    HintedFigure *second = addChild(QRect(15, 26, 3, 4));
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    QVERIFY(m_container->remove(second));
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::removingUnknownOrNullFails()
{
    addChild(QRect(10, 20, 30, 40));
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    HintedFigure stranger;
    QVERIFY(!m_layout->remove(nullptr));
    QVERIFY(!m_layout->remove(&stranger));
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformLayout::removedChildIsNotMonitored()
{
    HintedFigure *child = addChild(QRect(10, 20, 30, 40));
    m_container->remove(child);
    QCOMPARE(child->moveReceivers(), 0);
}

void tst_FreeformLayout::removingEndsAnyExaminationOfTheChild()
{
    Figure container;
    OpenFreeformLayout layout(nullptr, false);
    container.setLayoutManager(&layout);
    HintedFigure child;
    container.add(&child, QRect(10, 20, 30, 40));
    connect(&child, "2figureMoved(Figure *)", &layout, "1examineExtent()");
    QCOMPARE(child.moveReceivers(), 2);
    container.remove(&child);
    QCOMPARE(child.moveReceivers(), 0);
}

void tst_FreeformLayout::removingSurvivesDeletionOfTheLayout()
{
    HintedFigure *child = addChild(QRect(10, 20, 30, 40));
    connect(child, &Figure::propertyChanged, this, [this] { delete m_layout; });
    QVERIFY(m_container->remove(child));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(child->getParentFigure(), nullptr);
}

void tst_FreeformLayout::deletedChildAnnouncesTheExtent()
{
    addChild(QRect(10, 20, 30, 40));
    addChild(QRect(-5, -6, 3, 4));
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    m_children.pop_back();
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::monitoringIsAPropertyGivenAtConstruction()
{
    FreeformLayout unmonitored(this, false);
    QCOMPARE(unmonitored.parent(), this);
    QCOMPARE(unmonitored.isContentMonitored(), false);
    QCOMPARE(unmonitored.property("contentMonitored"), QVariant(false));
    QVERIFY(unmonitored.setProperty("contentMonitored", true));
    QCOMPARE(unmonitored.isContentMonitored(), true);
    QCOMPARE(m_layout->isContentMonitored(), true);
    m_layout->setContentMonitored(false);
    QCOMPARE(m_layout->property("contentMonitored"), QVariant(false));
}

void tst_FreeformLayout::switchingOnWatchesTheContainer()
{
    QCOMPARE(m_container->moveReceivers(), 0);
    m_layout->setContentMonitored(true);
    QCOMPARE(m_container->moveReceivers(), 1);
    addChild(QRect(10, 20, 30, 40));
    QSignalSpy announcements(m_layout, &FreeformLayout::extentChanged);
    m_container->setBounds(QRect(0, 0, 50, 50));
    QCOMPARE(announcements.size(), 1);
}

void tst_FreeformLayout::switchingOnTwiceWatchesTwice()
{
    m_layout->setContentMonitored(true);
    m_layout->setContentMonitored(true);
    QCOMPARE(m_container->moveReceivers(), 2);
}

void tst_FreeformLayout::switchingOffEndsTheWatch()
{
    m_layout->setContentMonitored(true);
    m_layout->setContentMonitored(true);
    m_layout->setContentMonitored(false);
    QCOMPARE(m_container->moveReceivers(), 0);
    QVERIFY(!m_layout->isContentMonitored());
}

void tst_FreeformLayout::switchingOffWhatIsOffEndsNothing()
{
    m_layout->setContentMonitored(false);
    connect(m_container.get(), "2figureMoved(Figure *)", m_layout, "1examineExtent()");
    m_layout->setContentMonitored(false);
    QCOMPARE(m_container->moveReceivers(), 1);
}

void tst_FreeformLayout::switchingLeavesChildrenAsTheyWereAdded()
{
    HintedFigure *monitored = addChild(QVariant());
    m_layout->setContentMonitored(false);
    HintedFigure *unmonitored = addChild(QVariant());
    m_layout->setContentMonitored(true);
    QCOMPARE(monitored->moveReceivers(), 2);
    QCOMPARE(unmonitored->moveReceivers(), 1);
}

void tst_FreeformLayout::switchingWithoutContainerOnlyStores()
{
    FreeformLayout layout(nullptr, true);
    layout.setContentMonitored(false);
    QVERIFY(!layout.isContentMonitored());
    layout.setContentMonitored(true);
    QVERIFY(layout.isContentMonitored());
}

void tst_FreeformLayout::destructionInAnyOrder_data()
{
    QTest::addColumn<QString>("order");
    for (const char *order : {"container layout child", "container child layout", "layout container child",
                              "layout child container", "child layout container", "child container layout"})
        QTest::newRow(order) << QString::fromLatin1(order);
}

void tst_FreeformLayout::destructionInAnyOrder()
{
    QFETCH(QString, order);
    auto container = std::make_unique<Figure>();
    auto layout = std::make_unique<OpenFreeformLayout>(nullptr, true);
    auto child = std::make_unique<HintedFigure>(QSize(40, 20));
    container->setLayoutManager(layout.get());
    container->add(child.get(), QRect(10, 20, 30, 40));
    container->validate();
    layout->setContentMonitored(true);
    for (const QString &victim : order.split(QLatin1Char(' '))) {
        if (victim == QLatin1String("container"))
            container.reset();
        else if (victim == QLatin1String("layout"))
            layout.reset();
        else
            child.reset();
        if (layout) {
            layout->examineExtent();
            QCOMPARE(layout->getFreeformExtent().isValid(), layout->getFigure() && child);
        }
        if (child)
            child->setBounds(child->getBounds().translated(1, 1));
        if (container)
            container->setBounds(QRect(0, 0, container->getBounds().width() + 1, 50));
    }
}

void tst_FreeformLayout::manyFiguresMovedAndRemoved()
{
    constexpr int count = 100000;
    std::vector<std::unique_ptr<Figure>> figures;
    for (int number = 0; number < count; ++number) {
        figures.push_back(std::make_unique<Figure>());
        m_container->add(figures.back().get(), QRect(number, 0, 10, 10));
    }
    m_container->validate();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(0, 0, count + 9, 10));
    for (int number = 0; number < count; ++number)
        figures[size_t(number)]->setBounds(QRect(0, number, 10, 10));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(0, 0, 10, count + 9));
    QRandomGenerator random(7);
    std::shuffle(figures.begin(), figures.end(), random);
    for (const auto &figure : figures)
        m_container->remove(figure.get());
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    QCOMPARE(m_container->childFigureCount(), 0);
}

PICTEL_TEST_MAIN(tst_FreeformLayout)
#include "tst_freeformlayout.moc"
