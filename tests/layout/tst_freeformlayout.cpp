#include "layout/HintedFigure.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/Border.h>
#include <vtlpictel/figure/Insets.h>
#include <vtlpictel/figure/SimpleBorder.h>
#include <vtlpictel/layout/FreeformLayout.h>

#include <QMetaProperty>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

class OpenFreeformLayout : public FreeformLayout
{
public:
    using FreeformLayout::calculateFreeformExtent;
    using FreeformLayout::FreeformLayout;
    using FreeformLayout::isClipping;
    using FreeformLayout::setLaidOut;
};

// Resolves rectangles as any figure does, or to larger ones, without a message and counting how often it is asked.
class ResolvingFigure : public HintedFigure
{
public:
    using HintedFigure::HintedFigure;

    int growth = 0;
    int asked = 0;

    QRect resolveBounds(const QRect &bounds) override
    {
        ++asked;
        QRect resolved = bounds.adjusted(-growth, -growth, growth, growth);
        if (!bounds.isValid() && bounds.width() < 1 && preferred.width() >= 1)
            resolved.setWidth(preferred.width());
        if (!bounds.isValid() && bounds.height() < 1 && preferred.height() >= 1)
            resolved.setHeight(preferred.height());
        return resolved;
    }
};

// Takes figures, itself perhaps, out of their parent when it is asked for its bounds.
class LeavingFigure : public HintedFigure
{
public:
    QList<Figure *> leaving;

    QRect resolveBounds(const QRect &bounds) override
    {
        const QList<Figure *> toRemove = std::exchange(leaving, {});
        for (Figure *figure : toRemove) {
            if (Figure *parent = figure->getParentFigure())
                parent->remove(figure);
        }
        return bounds;
    }
};

// The extent as a plain walk over the children finds it.
QRect walkedExtent(const FreeformLayout &layout)
{
    QRect extent;
    Figure *container = layout.getFigure();
    if (!container)
        return extent;
    for (Figure *child : layout.childFigures()) {
        const QVariant constraint = layout.getConstraint(child);
        const bool isRect = constraint.typeId() == QMetaType::QRect || constraint.typeId() == QMetaType::QRectF;
        if (child->isVisible() && isRect)
            extent = extent.united(child->resolveBounds(constraint.toRect()));
    }
    if (const Border *border = container->getBorder())
        border->getInsets().stripFrom(extent);
    return extent;
}

// A monitored or unmonitored sheet, and figures that come and go on it at random.
class RandomSheet
{
public:
    explicit RandomSheet(quint32 seed)
        : m_random(seed)
        , m_layout(nullptr, m_random.bounded(2) == 1)
    {
        m_border.setInsets(Insets(1, 2, 3, 4));
        m_sheet.setLayoutManager(&m_layout);
        m_sheet.setBounds(QRect(0, 0, 500, 400));
    }

    OpenFreeformLayout &layout() { return m_layout; }

    void step()
    {
        const int choice = m_figures.empty() ? 0 : m_random.bounded(14);
        if (choice < 3)
            addFigure();
        else if (choice == 3)
            m_sheet.remove(any());
        else if (choice == 4)
            m_figures.erase(m_figures.begin() + m_random.bounded(int(m_figures.size())));
        else if (choice < 8)
            m_layout.setConstraint(any(), constraint());
        else if (choice == 8)
            any()->setVisible(m_random.bounded(3) > 0);
        else if (choice < 11)
            any()->setBounds(rect());
        else if (choice == 11)
            any()->preferred = size();
        else if (choice == 12)
            changeContainer();
        else
            m_sheet.add(any(), constraint(), m_random.bounded(8) - 1);
    }

private:
    ResolvingFigure *any() { return m_figures[size_t(m_random.bounded(int(m_figures.size())))].get(); }
    int coordinate() { return m_random.bounded(400) - 200; }
    QSize size() { return QSize(m_random.bounded(60) - 10, m_random.bounded(60) - 10); }
    QRect rect() { return QRect(QPoint(coordinate(), coordinate()), size()); }

    QVariant constraint()
    {
        switch (m_random.bounded(8)) {
        case 0:
            return QVariant();
        case 1:
            return QStringLiteral("west");
        case 2:
            return QRectF(rect()).translated(0.5, 0.25);
        case 3:
            return QRect(coordinate(), coordinate(), 0, 0);
        case 4:
            return QRect(coordinate(), coordinate(), 0, m_random.bounded(20));
        default:
            return rect();
        }
    }

    void addFigure()
    {
        m_figures.push_back(std::make_unique<ResolvingFigure>(size()));
        m_figures.back()->growth = m_random.bounded(6) == 0 ? 3 : 0;
        if (m_random.bounded(4) == 0)
            m_figures.back()->setBounds(rect());
        if (m_random.bounded(4) == 0)
            m_sheet.add(m_figures.back().get(), 0U, 0U, m_random.bounded(8) - 1);
        else
            m_sheet.add(m_figures.back().get(), constraint(), m_random.bounded(8) - 1);
    }

    void changeContainer()
    {
        switch (m_random.bounded(5)) {
        case 0:
            m_sheet.setBorder(m_sheet.getBorder() ? nullptr : &m_border);
            break;
        case 1:
            m_layout.setFigure(m_layout.getFigure() ? nullptr : &m_sheet);
            break;
        case 2:
            m_layout.invalidate();
            break;
        default:
            m_layout.layout(&m_sheet);
        }
    }

    QRandomGenerator m_random;
    SimpleBorder m_border;
    Figure m_sheet;
    OpenFreeformLayout m_layout;
    std::vector<std::unique_ptr<ResolvingFigure>> m_figures;
};

} // namespace

class tst_FreeformLayout : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void extentUnitesRectangleConstraints();
    void extentLeavesOutHiddenAndOtherwiseConstrainedChildren();
    void extentOfRealRectangleIsRounded();
    void extentAsksTheChildToResolve();
    void extentFollowsThePreferredSizeOfUnsizedChild();
    void extentIncludesTheBorder();
    void extentWithoutContainerIsNull();
    void extentWithoutChildrenIsNull();
    void extentWithoutAreaKeepsThePlaceOfTheLastChild();
    void extentIsKeptUntilExamined();
    void extentIsComputedAnewWhileInvalid();
    void extentSurvivesInvalidation();
    void extentFollowsSizeConstraintAndVisibility();
    void extentEqualsAWalkOverTheChildren_data();
    void extentEqualsAWalkOverTheChildren();
    void examiningAsksOnlyTheChildThatChanged();
    void examiningLeavesOutAChildThatIsLeaving();
    void examiningSurvivesChildrenThatLeaveWhenAsked();

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

private:
    HintedFigure *addChild(const QVariant &constraint);

    std::unique_ptr<HintedFigure> m_container;
    OpenFreeformLayout *m_layout = nullptr;
    std::vector<std::unique_ptr<HintedFigure>> m_children;
};

void tst_FreeformLayout::init()
{
    PictelTest::init();
    m_container = std::make_unique<HintedFigure>();
    m_layout = new OpenFreeformLayout(m_container.get(), true);
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(0, 0, 500, 400));
}

void tst_FreeformLayout::cleanup()
{
    m_children.clear();
    m_container.reset();
}

HintedFigure *tst_FreeformLayout::addChild(const QVariant &constraint)
{
    m_children.push_back(std::make_unique<HintedFigure>(QSize(40, 20)));
    m_container->add(m_children.back().get(), constraint);
    return m_children.back().get();
}

void tst_FreeformLayout::extentUnitesRectangleConstraints()
{
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
    addChild(QRect(-50, 30, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(-50, 20, 90, 40));
    addChild(QRect(0, -60, 1, 1));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(-50, -60, 90, 120));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-50, -60, 90, 120));
}

void tst_FreeformLayout::extentLeavesOutHiddenAndOtherwiseConstrainedChildren()
{
    ProbeLocator locator(QRect(300, 300, 9, 10), this);
    addChild(QRect(10, 20, 30, 40));
    addChild(QRect(-50, -60, 5, 5))->setVisible(false);
    addChild(QVariant::fromValue(&locator));
    addChild(QStringLiteral("west"))->setBounds(QRect(400, 400, 5, 5));
    addChild(QVariant())->setBounds(QRect(500, 500, 5, 5));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::extentOfRealRectangleIsRounded()
{
    addChild(QRectF(-10.5, 20.25, 30.75, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRectF(-10.5, 20.25, 30.75, 40).toRect());
}

void tst_FreeformLayout::extentAsksTheChildToResolve()
{
    ResolvingFigure figure;
    figure.growth = 3;
    m_container->add(&figure, QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(7, 17, 36, 46));
    figure.growth = 5;
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(5, 15, 40, 50));
}

void tst_FreeformLayout::extentFollowsThePreferredSizeOfUnsizedChild()
{
    HintedFigure *child = addChild(QRect(10, 20, 0, 0));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 40, 20));
    child->preferred = QSize(50, 60);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 40, 20));
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 50, 60));
    child->preferred = QSize(51, 60);
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 51, 60));
}

void tst_FreeformLayout::extentIncludesTheBorder()
{
    SimpleBorder border;
    border.setInsets(Insets(1, 2, 3, 4));
    m_container->setBorder(&border);
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40).adjusted(-4, -1, 2, 3));
}

void tst_FreeformLayout::extentWithoutContainerIsNull()
{
    addChild(QRect(10, 20, 30, 40));
    m_layout->setFigure(nullptr);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect());
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    m_layout->setFigure(m_container.get());
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::extentWithoutChildrenIsNull()
{
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    QCOMPARE(m_layout->getMinimumSize(), QSize(0, 0));
}

void tst_FreeformLayout::extentWithoutAreaKeepsThePlaceOfTheLastChild()
{
    std::vector<std::unique_ptr<ResolvingFigure>> figures;
    for (const QRect &place : {QRect(5, 6, 0, 0), QRect(7, 8, 0, 0), QRect(9, 9, 0, 0)}) {
        figures.push_back(std::make_unique<ResolvingFigure>());
        m_container->add(figures.back().get(), place, 0);
    }
    m_layout->examineExtent();
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(5, 6, 0, 0));
    m_container->remove(figures.front().get());
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(7, 8, 0, 0));
}

void tst_FreeformLayout::extentIsKeptUntilExamined()
{
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    addChild(QRect(-10, -20, 3, 4));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    m_layout->examineExtent();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-10, -20, 50, 80));
}

void tst_FreeformLayout::extentIsComputedAnewWhileInvalid()
{
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::extentSurvivesInvalidation()
{
    addChild(QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getMinimumSize(), QSize(30, 40));
    addChild(QRect(-10, -20, 3, 4));
    m_layout->invalidate();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(10, 20, 30, 40));
    QCOMPARE(m_layout->getMinimumSize(), QSize(30, 40));
}

void tst_FreeformLayout::extentFollowsSizeConstraintAndVisibility()
{
    addChild(QRect(10, 20, 30, 40));
    HintedFigure *second = addChild(QRect(0, 0, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(0, 0, 40, 60));
    second->setVisible(false);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
    second->setVisible(true);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(0, 0, 40, 60));
    m_layout->setConstraint(second, QRect(50, 60, 5, 5));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 45, 45));
    m_layout->setConstraint(second, QStringLiteral("west"));
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::extentEqualsAWalkOverTheChildren_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 24; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_FreeformLayout::extentEqualsAWalkOverTheChildren()
{
    QFETCH(quint32, seed);
    RandomSheet sheet(seed);
    for (int step = 0; step < 400; ++step) {
        sheet.step();
        const QRect expected = walkedExtent(sheet.layout());
        const QRect actual = sheet.layout().calculateFreeformExtent();
        if (actual != expected)
            qInfo("seed %u, step %d", seed, step);
        QCOMPARE(actual, expected);
    }
}

void tst_FreeformLayout::examiningAsksOnlyTheChildThatChanged()
{
    std::vector<std::unique_ptr<ResolvingFigure>> figures;
    for (int place = 0; place < 100; ++place) {
        figures.push_back(std::make_unique<ResolvingFigure>());
        m_container->add(figures.back().get(), QRect(10 * place, 0, 5, 5));
    }
    m_layout->examineExtent();
    for (const auto &figure : figures)
        figure->asked = 0;
    m_layout->setConstraint(figures[50].get(), QRect(500, -100, 5, 5));
    m_layout->examineExtent();
    QCOMPARE(figures[50]->asked, 2); // once to move there, once for the extent
    QVERIFY(std::all_of(figures.begin(), figures.end(),
                        [&](const auto &figure) { return figure == figures[50] || figure->asked == 0; }));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(0, -100, 995, 105));
}

void tst_FreeformLayout::examiningLeavesOutAChildThatIsLeaving()
{
    addChild(QRect(10, 20, 30, 40));
    HintedFigure *leaving = addChild(QRect(-5, -6, 3, 4));
    m_layout->examineExtent();
    QRect extentMeanwhile;
    connect(leaving, &Figure::propertyChanged, this, [&] { extentMeanwhile = m_layout->calculateFreeformExtent(); });
    m_container->remove(leaving);
    QCOMPARE(extentMeanwhile, QRect(10, 20, 30, 40));
}

void tst_FreeformLayout::examiningSurvivesChildrenThatLeaveWhenAsked()
{
    addChild(QRect(10, 20, 30, 40));
    LeavingFigure first;
    LeavingFigure second;
    m_container->add(&first, QRect(-5, -6, 3, 4));
    m_container->add(&second, QRect(-7, -8, 3, 4));
    first.leaving = {&first, &second};
    second.leaving = {&first, &second};
    m_layout->examineExtent();
    QCOMPARE(m_container->childFigureCount(), 1);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(10, 20, 30, 40));
}

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
