#include "layout/HintedFigure.h"
#include "support/FreeformProbe.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/FreeformStackLayout.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

namespace {

class OpenFreeformStackLayout : public FreeformStackLayout
{
public:
    using FreeformStackLayout::calculateFreeformExtent;
    using FreeformStackLayout::FreeformStackLayout;
    using FreeformStackLayout::getCurrentChildBounds;
    using FreeformStackLayout::isClipping;
    using FreeformStackLayout::isLaidOut;
    using FreeformStackLayout::performLayout;
};

// An override hears the signals that are connected to the slot of the base class.
class OverridingLayout : public FreeformStackLayout
{
public:
    int examinations = 0;

    void examineExtent() override { ++examinations; }
};

using Rects = QList<QRect>;

} // namespace

class tst_FreeformStackLayout : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newLayoutCountsAsLaidOut();
    void extentUnitesAllFreeformChildren();
    void extentLeavesOtherFiguresOut();
    void extentWithoutContainerIsNull();
    void extentIsKeptUntilExamined();
    void sizesAreThoseOfTheExtent();
    void sizesUseTheKeptExtent();
    void examiningAnnouncesEachChangedEdge_data();
    void examiningAnnouncesEachChangedEdge();
    void examiningTheSameExtentAnnouncesNothing();
    void examineExtentIsAVirtualSlot();
    void examiningSurvivesDeletionOfTheLayout();
    void boundsAreHandedToVisibleFreeformChildren();
    void boundsAreStoredAfterTheyWereHandedOn();
    void boundsGivenByReferenceToThemselvesAreKept();
    void layoutBeforeAnyBoundsTouchesNothing();
    void layoutHandsOnWhatDiffers();
    void layoutIgnoresTheClientArea();
    void layoutIsAbsoluteAndClips();
    void childDeletedMeanwhileIsSkipped();
    void layoutDeletedMeanwhileStops();
    void defaultParentIsNull();

private:
    std::unique_ptr<Figure> m_container;
    OpenFreeformStackLayout *m_layout = nullptr;
    std::unique_ptr<FreeformProbe> m_first;
    std::unique_ptr<FreeformProbe> m_second;
    HintedFigure *m_plain = nullptr;
};

void tst_FreeformStackLayout::init()
{
    PictelTest::init();
    m_container = std::make_unique<Figure>();
    m_layout = new OpenFreeformStackLayout(m_container.get());
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(0, 0, 300, 200));
    m_first = std::make_unique<FreeformProbe>(QRect(10, 20, 30, 40));
    m_second = std::make_unique<FreeformProbe>(QRect(-5, 30, 10, 100));
    m_plain = new HintedFigure;
    m_plain->setParent(m_container.get());
    m_plain->setBounds(QRect(-100, -100, 5, 5));
    m_container->add(m_first.get());
    m_container->add(m_plain);
    m_container->add(m_second.get());
}

void tst_FreeformStackLayout::cleanup()
{
    m_first.reset();
    m_second.reset();
    m_container.reset();
}

void tst_FreeformStackLayout::newLayoutCountsAsLaidOut()
{
    OpenFreeformStackLayout layout;
    QVERIFY(layout.isLaidOut());
    layout.invalidate();
    QVERIFY(!layout.isLaidOut());
}

void tst_FreeformStackLayout::extentUnitesAllFreeformChildren()
{
    m_second->setVisible(false);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect(-5, 20, 45, 110));
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-5, 20, 45, 110));
}

void tst_FreeformStackLayout::extentLeavesOtherFiguresOut()
{
    m_container->remove(m_first.get());
    m_container->remove(m_second.get());
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect());
}

void tst_FreeformStackLayout::extentWithoutContainerIsNull()
{
    m_layout->setFigure(nullptr);
    QCOMPARE(m_layout->calculateFreeformExtent(), QRect());
    QCOMPARE(m_layout->getFreeformExtent(), QRect());
}

void tst_FreeformStackLayout::extentIsKeptUntilExamined()
{
    QSignalSpy announcements(m_layout, &FreeformStackLayout::extentChanged);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-5, 20, 45, 110));
    m_first->extent = QRect(0, 0, 1000, 10);
    m_layout->invalidate();
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-5, 20, 45, 110));
    QCOMPARE(announcements.size(), 0);
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), QRect(-5, 0, 1005, 130));
}

void tst_FreeformStackLayout::sizesAreThoseOfTheExtent()
{
    QCOMPARE(m_layout->getMinimumSize(), QSize(45, 110));
    QCOMPARE(m_layout->getPreferredSize(), QSize(45, 110));
}

void tst_FreeformStackLayout::sizesUseTheKeptExtent()
{
    m_layout->getPreferredSize();
    m_first->extent = QRect(0, 0, 1000, 10);
    m_layout->invalidate();
    QCOMPARE(m_layout->getMinimumSize(), QSize(45, 110));
    QCOMPARE(m_layout->getPreferredSize(), QSize(45, 110));
}

void tst_FreeformStackLayout::examiningAnnouncesEachChangedEdge_data()
{
    QTest::addColumn<QRect>("changed");
    QTest::newRow("left") << QRect(-6, 20, 46, 110);
    QTest::newRow("top") << QRect(-5, 19, 45, 111);
    QTest::newRow("right") << QRect(-5, 20, 46, 110);
    QTest::newRow("bottom") << QRect(-5, 20, 45, 111);
}

void tst_FreeformStackLayout::examiningAnnouncesEachChangedEdge()
{
    QFETCH(QRect, changed);
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformStackLayout::extentChanged);
    m_first->extent = changed;
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 1);
    QCOMPARE(m_layout->getFreeformExtent(), changed);
}

void tst_FreeformStackLayout::examiningTheSameExtentAnnouncesNothing()
{
    m_layout->getFreeformExtent();
    QSignalSpy announcements(m_layout, &FreeformStackLayout::extentChanged);
    m_layout->examineExtent();
    QCOMPARE(announcements.size(), 0);
}

void tst_FreeformStackLayout::examineExtentIsAVirtualSlot()
{
    OverridingLayout layout;
    QVERIFY(connect(m_first.get(), "2extentChanged()", &layout, "1examineExtent()"));
    Q_EMIT m_first->extentChanged();
    QCOMPARE(layout.examinations, 1);
}

void tst_FreeformStackLayout::examiningSurvivesDeletionOfTheLayout()
{
    connect(m_layout, &FreeformStackLayout::extentChanged, this, [this] { delete m_layout; });
    m_layout->examineExtent();
    QCOMPARE(m_container->getLayoutManager(), nullptr);
}

void tst_FreeformStackLayout::boundsAreHandedToVisibleFreeformChildren()
{
    m_second->setVisible(false);
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    QCOMPARE(m_first->given, Rects({QRect(1, 2, 3, 4)}));
    QCOMPARE(m_second->given, Rects());
    QCOMPARE(m_plain->getBounds(), QRect(-100, -100, 5, 5));
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    QCOMPARE(m_first->given, Rects({QRect(1, 2, 3, 4), QRect(1, 2, 3, 4)}));
}

void tst_FreeformStackLayout::boundsAreStoredAfterTheyWereHandedOn()
{
    QRect storedMeanwhile(9, 9, 9, 9);
    connect(m_first.get(), &Figure::figureMoved, this, [&] { storedMeanwhile = m_layout->getCurrentChildBounds(); });
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    QCOMPARE(storedMeanwhile, QRect());
    QCOMPARE(m_layout->getCurrentChildBounds(), QRect(1, 2, 3, 4));
}

void tst_FreeformStackLayout::boundsGivenByReferenceToThemselvesAreKept()
{
    connect(m_first.get(), &Figure::figureMoved, this, [this] { m_first->extent = QRect(7, 7, 7, 7); });
    m_layout->setFreeformBounds(m_first->extent);
    QCOMPARE(m_second->given, Rects({QRect(10, 20, 30, 40)}));
    QCOMPARE(m_layout->getCurrentChildBounds(), QRect(10, 20, 30, 40));
}

void tst_FreeformStackLayout::layoutBeforeAnyBoundsTouchesNothing()
{
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(m_first->given, Rects());
    m_first->setPreferredSize(QSize(1, 1));
    m_second->setPreferredSize(QSize(1, 1));
    m_layout->setFreeformBounds(QRect(5, 5, 0, 0));
    m_first->given.clear();
    QVERIFY(m_layout->performLayout(QRect(0, 0, 10, 10)));
    QCOMPARE(m_first->given, Rects());
}

void tst_FreeformStackLayout::layoutHandsOnWhatDiffers()
{
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    m_first->given.clear();
    m_second->given.clear();
    m_second->setBounds(QRect(1, 2, 3, 5));
    FreeformProbe hidden;
    hidden.setVisible(false);
    m_container->add(&hidden);
    m_container->validate();
    QCOMPARE(m_first->given, Rects());
    QCOMPARE(m_second->given, Rects({QRect(1, 2, 3, 4)}));
    QCOMPARE(hidden.given, Rects());
    QCOMPARE(m_plain->getBounds(), QRect(-100, -100, 5, 5));
    QVERIFY(m_layout->isLaidOut());
}

void tst_FreeformStackLayout::layoutIgnoresTheClientArea()
{
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    m_second->setBounds(QRect(1, 2, 3, 5));
    QVERIFY(m_layout->performLayout(QRect()));
    QCOMPARE(m_second->getBounds(), QRect(1, 2, 3, 4));
}

void tst_FreeformStackLayout::layoutIsAbsoluteAndClips()
{
    QVERIFY(!m_layout->isRelativeLayout());
    QVERIFY(m_layout->isClipping());
}

void tst_FreeformStackLayout::childDeletedMeanwhileIsSkipped()
{
    connect(m_first.get(), &Figure::figureMoved, this, [this] { m_second.reset(); });
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    QCOMPARE(m_layout->getCurrentChildBounds(), QRect(1, 2, 3, 4));
    QCOMPARE(m_container->childFigureCount(), 2);
}

void tst_FreeformStackLayout::layoutDeletedMeanwhileStops()
{
    connect(m_first.get(), &Figure::figureMoved, this, [this] { delete m_layout; });
    m_layout->setFreeformBounds(QRect(1, 2, 3, 4));
    QCOMPARE(m_second->given, Rects());
    QCOMPARE(m_container->getLayoutManager(), nullptr);
}

void tst_FreeformStackLayout::defaultParentIsNull()
{
    FreeformStackLayout layout;
    QCOMPARE(layout.parent(), nullptr);
    QCOMPARE(m_layout->parent(), m_container.get());
}

PICTEL_TEST_MAIN(tst_FreeformStackLayout)
#include "tst_freeformstacklayout.moc"
