#include "layout/NotedScene.h"
#include "support/DisplayedRoot.h"
#include "support/ProbeBorder.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/Insets.h>

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

constexpr char invalidBounds[] = "Figure::render(): invalid figure bounds";

class OpenFigure : public Figure
{
public:
    using Figure::Figure;
    using Figure::primTranslate;
};

} // namespace

/// What a layout remembers about its children is always as they are now. Each test runs with a layout that makes them
/// relative to their container, and with one that does not.
class tst_ChildNotes : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void cleanup() { m_scene.reset(); }

    void movedChildIsSeenWhereItIs();
    void resizedChildIsSeenWhereItIs();
    void childMovedByPrimTranslateIsSeenWhereItIs();
    void translatedAbsoluteChildIsSeenWhereItIs();
    void childrenOfATranslatedAbsoluteChildAreSeenWhereTheyAre();
    void childMovedByItsConstraintIsSeenWhereItIs();
    void hiddenChildIsNotSeen();
    void shownChildIsSeenAgain();
    void childHiddenByItsFlagIsNotSeen();
    void childShownByItsFlagIsSeen();
    void invalidBoundsAreComplainedAboutEachTime();
    void invalidBoundsOfAHiddenChildAreNotMentioned();
    void childThatLosesItsValidBoundsIsComplainedAbout();

    void newChildIsSeenAtOnce();
    void childInsertedBelowOthersIsSeenInItsPlace();
    void childrenAboveAnInsertedOneAreFollowed();
    void removedChildIsNotSeen();
    void childrenAroundARemovedOneAreFollowed();
    void childAddedAgainIsSeenAsItIsNow();
    void childrenOfAReleasedLayoutCanBeAddedAgain();
    void deletedChildIsNotSeen();
    void manyChildrenComingAndGoingAreFollowed();

    void movedContainerTakesRelativeChildrenAlong();
    void marginMovesChildrenThatAreRelative();
    void borderMovesChildrenThatAreRelative();
    void otherLayoutOfTheContainerDecidesWhereChildrenAre();
    void displayedTreeIsFollowed();

private:
    // Expects the child at area, and nothing at the other place.
    void expectOnlyAt(Figure *child, const QRect &area, const QRect &other);
    void expectNowhere(const QRect &area);
    int relativeOffset(int offset) const { return m_isRelative ? offset : 0; }

    std::unique_ptr<NotedScene> m_scene;
    bool m_isRelative = false;
};

void tst_ChildNotes::initTestCase_data()
{
    QTest::addColumn<bool>("isRelative");
    QTest::newRow("relative") << true;
    QTest::newRow("absolute") << false;
}

void tst_ChildNotes::init()
{
    PictelTest::init();
    QFETCH_GLOBAL(bool, isRelative);
    m_isRelative = isRelative;
    m_scene = std::make_unique<NotedScene>(isRelative);
}

void tst_ChildNotes::expectOnlyAt(Figure *child, const QRect &area, const QRect &other)
{
    QCOMPARE(m_scene->painted(area), Rects({child->getBounds()}));
    QCOMPARE(m_scene->hit(area.center().x(), area.center().y()), child);
    QCOMPARE(m_scene->found(area), Figures({child}));
    expectNowhere(other);
}

void tst_ChildNotes::expectNowhere(const QRect &area)
{
    QCOMPARE(m_scene->painted(area), Rects());
    QCOMPARE(m_scene->hit(area.center().x(), area.center().y()), nullptr);
    QCOMPARE(m_scene->found(area), Figures());
}

void tst_ChildNotes::movedChildIsSeenWhereItIs()
{
    Figure *child = m_scene->addNoted(here);
    expectOnlyAt(child, here, there);
    child->setBounds(there);
    expectOnlyAt(child, there, here);
    child->setBounds(here);
    expectOnlyAt(child, here, there);
}

void tst_ChildNotes::resizedChildIsSeenWhereItIs()
{
    Figure *child = m_scene->addNoted(here);
    child->setBounds(QRect(10, 10, 700, 700));
    expectOnlyAt(child, there, QRect(800, 10, 20, 20));
    child->setBounds(here);
    expectOnlyAt(child, here, there);
}

void tst_ChildNotes::childMovedByPrimTranslateIsSeenWhereItIs()
{
    auto *child = m_scene->addNoted<OpenFigure>(here);
    child->primTranslate(490, 490);
    expectOnlyAt(child, there, here);
}

void tst_ChildNotes::translatedAbsoluteChildIsSeenWhereItIs()
{
    Figure *child = m_scene->addNoted(here);
    FreeformLayout layout(nullptr, false);
    child->setLayoutManager(&layout);
    child->translate(490, 490);
    expectOnlyAt(child, there, here);
}

void tst_ChildNotes::childrenOfATranslatedAbsoluteChildAreSeenWhereTheyAre()
{
    auto *child = m_scene->add(QRect(10, 10, 600, 600));
    child->setBackgroundColor(Qt::transparent);
    FreeformLayout layout(nullptr, false);
    FreeformLayout innerLayout(nullptr, false);
    Figure inner;
    child->setLayoutManager(&layout);
    inner.setLayoutManager(&innerLayout);
    inner.setBounds(here);
    child->add(&inner);
    m_scene->takeNotes();
    child->translate(300, 300);
    QCOMPARE(m_scene->painted(here.translated(300, 300)), Rects({here.translated(300, 300)}));
    QCOMPARE(m_scene->hit(315, 315), &inner);
    QCOMPARE(m_scene->found(QRect(315, 315, 1, 1)), Figures({&inner, child}));
    QCOMPARE(m_scene->painted(here), Rects());
    QCOMPARE(m_scene->hit(315, 350), child);
}

void tst_ChildNotes::childMovedByItsConstraintIsSeenWhereItIs()
{
    Figure *child = m_scene->addNoted(here);
    m_scene->layout->setConstraint(child, there);
    expectOnlyAt(child, there, here);
}

void tst_ChildNotes::hiddenChildIsNotSeen()
{
    Figure *child = m_scene->addNoted(here);
    child->setVisible(false);
    expectNowhere(here);
    expectNowhere(QRect(0, 0, 1000, 1000));
}

void tst_ChildNotes::shownChildIsSeenAgain()
{
    Figure *child = m_scene->add(here);
    child->setVisible(false);
    m_scene->takeNotes();
    expectNowhere(here);
    child->setVisible(true);
    expectOnlyAt(child, here, there);
}

void tst_ChildNotes::childHiddenByItsFlagIsNotSeen()
{
    auto *child = m_scene->addNoted<ActingFigure>(here);
    child->setFlag(Figure::FLAG_VISIBLE, false);
    expectNowhere(here);
}

void tst_ChildNotes::childShownByItsFlagIsSeen()
{
    auto *child = m_scene->add<ActingFigure>(here);
    child->setVisible(false);
    m_scene->takeNotes();
    child->setFlag(Figure::FLAG_VISIBLE | Figure::FLAG_ENABLED, true);
    expectOnlyAt(child, here, there);
}

void tst_ChildNotes::invalidBoundsAreComplainedAboutEachTime()
{
    m_scene->add(here);
    m_scene->add(QRect());
    for (int pass = 0; pass < 3; ++pass) {
        expectDebug(invalidBounds);
        QCOMPARE(m_scene->painted(there), Rects());
    }
}

void tst_ChildNotes::invalidBoundsOfAHiddenChildAreNotMentioned()
{
    Figure *child = m_scene->add(QRect());
    child->setVisible(false);
    m_scene->takeNotes();
    QCOMPARE(m_scene->painted(), Rects());
    child->setVisible(true);
    expectDebug(invalidBounds);
    QCOMPARE(m_scene->painted(there), Rects());
}

void tst_ChildNotes::childThatLosesItsValidBoundsIsComplainedAbout()
{
    Figure *child = m_scene->addNoted(here);
    expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    child->setBounds(QRect(10, 10, -50, -50));
    for (int pass = 0; pass < 2; ++pass) {
        expectDebug(invalidBounds);
        QCOMPARE(m_scene->painted(there), Rects());
    }
    // A rectangle that is turned over still covers something for a search.
    QCOMPARE(m_scene->found(QRect(-20, -20, 2, 2)), Figures());
    QCOMPARE(m_scene->found(QRect(5, 5, 5, 5)), Figures({child}));
    QCOMPARE(m_scene->hit(5, 5), child);
}

void tst_ChildNotes::newChildIsSeenAtOnce()
{
    m_scene->addNoted(QRect(800, 800, 10, 10));
    Figure *child = m_scene->add(here);
    expectOnlyAt(child, here, there);
}

void tst_ChildNotes::childInsertedBelowOthersIsSeenInItsPlace()
{
    Figure *above = m_scene->addNoted(QRect(15, 15, 20, 20));
    Figure *below = m_scene->addNoted(here, 0);
    QCOMPARE(m_scene->painted(here), Rects({below->getBounds(), above->getBounds()}));
    QCOMPARE(m_scene->hit(16, 16), above);
    QCOMPARE(m_scene->hit(12, 12), below);
    QCOMPARE(m_scene->found(here), Figures({below, above}));
}

void tst_ChildNotes::childrenAboveAnInsertedOneAreFollowed()
{
    Figures children;
    for (int number = 0; number < 4; ++number)
        children << m_scene->addNoted(QRect(100 * number, 0, 10, 10));
    children.insert(1, m_scene->addNoted(QRect(500, 0, 10, 10), 1));
    for (Figure *child : std::as_const(children))
        child->setBounds(child->getBounds().translated(0, 600));
    for (Figure *child : std::as_const(children)) {
        const QRect bounds = child->getBounds();
        expectOnlyAt(child, bounds, bounds.translated(0, -600));
    }
    QCOMPARE(m_scene->found(QRect(0, 600, 1000, 10)), children);
}

void tst_ChildNotes::removedChildIsNotSeen()
{
    Figure *below = m_scene->addNoted(here);
    Figure *above = m_scene->addNoted(here);
    m_scene->root->remove(below);
    QCOMPARE(m_scene->found(here), Figures({above}));
    QCOMPARE(m_scene->painted(here), Rects({here}));
    m_scene->root->remove(above);
    expectNowhere(here);
    below->setBounds(there);
    expectNowhere(there);
}

void tst_ChildNotes::childrenAroundARemovedOneAreFollowed()
{
    Figures children;
    for (int number = 0; number < 5; ++number)
        children << m_scene->addNoted(QRect(100 * number, 0, 10, 10));
    m_scene->root->remove(children.takeAt(2));
    m_scene->root->remove(children.takeAt(0));
    for (Figure *child : std::as_const(children))
        child->setBounds(child->getBounds().translated(0, 600));
    for (Figure *child : std::as_const(children)) {
        const QRect bounds = child->getBounds();
        expectOnlyAt(child, bounds, bounds.translated(0, -600));
    }
    children.last()->setBounds(here);
    expectOnlyAt(children.last(), here, there);
}

void tst_ChildNotes::childAddedAgainIsSeenAsItIsNow()
{
    Figure *child = m_scene->addNoted(here);
    Figure *other = m_scene->addNoted(here);
    m_scene->root->remove(child);
    child->setBounds(there);
    m_scene->root->add(child);
    expectOnlyAt(child, there, QRect(800, 800, 5, 5));
    QCOMPARE(m_scene->found(here), Figures({other}));
    QCOMPARE(m_scene->painted(), Rects({here, there}));
}

void tst_ChildNotes::childrenOfAReleasedLayoutCanBeAddedAgain()
{
    Figure *first = m_scene->addNoted(here);
    Figure *second = m_scene->addNoted(here, 0);
    delete m_scene->root;
    NotedScene other(m_scene->layout);
    other.root->add(second);
    other.root->add(first);
    other.takeNotes();
    first->setBounds(there);
    QCOMPARE(other.painted(there), Rects({there}));
    QCOMPARE(other.found(there), Figures({first}));
    QCOMPARE(other.found(here), Figures({second}));
    QCOMPARE(other.painted(), Rects({here, there}));
}

void tst_ChildNotes::deletedChildIsNotSeen()
{
    Figure *below = m_scene->addNoted(here);
    Figure *above = m_scene->addNoted(there);
    delete below;
    expectOnlyAt(above, there, here);
    above->setBounds(here);
    expectOnlyAt(above, here, there);
}

void tst_ChildNotes::manyChildrenComingAndGoingAreFollowed()
{
    Figures children;
    for (int number = 0; number < 20; ++number)
        children.insert(number / 2, m_scene->addNoted(QRect(30 * number, 0, 10, 10), number / 2));
    for (int round = 0; round < 6; ++round) {
        m_scene->root->remove(children.takeAt(3 * round % children.size()));
        m_scene->root->remove(children.takeLast());
        children.insert(round, m_scene->addNoted(QRect(30 * round, 100, 10, 10), round));
        for (Figure *child : std::as_const(children)) {
            child->setBounds(child->getBounds().translated(0, 40));
            QCOMPARE(m_scene->found(child->getBounds()), Figures({child}));
            QCOMPARE(m_scene->painted(child->getBounds()), Rects({child->getBounds()}));
        }
        QCOMPARE(m_scene->found(QRect(0, 0, 1000, 1000)), children);
        QCOMPARE(m_scene->painted().size(), children.size());
    }
}

void tst_ChildNotes::movedContainerTakesRelativeChildrenAlong()
{
    const QRect bounds(450, 350, 20, 20);
    const QRect shifted = bounds.translated(400, 300);
    m_scene->addNoted(bounds);
    m_scene->root->setBounds(QRect(400, 300, 600, 600));
    QCOMPARE(m_scene->painted(shifted), m_isRelative ? Rects({shifted}) : Rects());
    QCOMPARE(m_scene->painted(bounds), m_isRelative ? Rects() : Rects({bounds}));
}

void tst_ChildNotes::marginMovesChildrenThatAreRelative()
{
    m_scene->addNoted(here);
    m_scene->root->setMargin(100);
    const int offset = relativeOffset(100);
    const Rects painted = m_isRelative ? Rects({here.translated(offset, offset)}) : Rects();
    QCOMPARE(m_scene->painted(QRect(100, 100, 20, 20)), painted);
    QCOMPARE(m_scene->painted(QRect(140, 140, 20, 20)), Rects());
    m_scene->root->setMargin(0);
    QCOMPARE(m_scene->painted(here), Rects({here}));
}

void tst_ChildNotes::borderMovesChildrenThatAreRelative()
{
    ProbeBorder border(Insets(7, 7, 7, 7));
    m_scene->addNoted(here);
    m_scene->root->setBorder(&border);
    const int offset = relativeOffset(7);
    QCOMPARE(m_scene->painted(QRect(30, 30, 7, 7)), m_isRelative ? Rects({here.translated(offset, offset)}) : Rects());
    m_scene->root->setBorder(nullptr);
    QCOMPARE(m_scene->painted(QRect(30, 30, 7, 7)), Rects());
}

void tst_ChildNotes::otherLayoutOfTheContainerDecidesWhereChildrenAre()
{
    const QRect bounds(410, 310, 20, 20);
    const QRect shifted = bounds.translated(400, 300);
    m_scene->root->setBounds(QRect(400, 300, 600, 600));
    Figure *child = m_scene->addNoted(bounds);
    QCOMPARE(m_scene->painted(shifted), m_isRelative ? Rects({shifted}) : Rects());
    const NotedScene other(!m_isRelative);
    m_scene->root->setLayoutManager(other.layout);
    m_scene->root->add(child);
    m_scene->takeNotes();
    QCOMPARE(m_scene->painted(shifted), m_isRelative ? Rects() : Rects({shifted}));
    QCOMPARE(m_scene->painted(bounds), m_isRelative ? Rects({bounds}) : Rects());
    m_scene->root->setLayoutManager(m_scene->layout);
    QCOMPARE(m_scene->painted(shifted), m_isRelative ? Rects({shifted}) : Rects());
}

void tst_ChildNotes::displayedTreeIsFollowed()
{
    DisplayedRoot displayed;
    displayed.root.setBackgroundColor(Qt::transparent);
    displayed.root.add(m_scene->root);
    Figure *child = m_scene->addNoted(here);
    displayed.manager.performUpdate();
    QCOMPARE(fillsOf(displayed.root, here), Rects({here}));
    displayed.takeDirtyRects();
    child->setBounds(there);
    displayed.manager.performUpdate();
    QCOMPARE(fillsOf(displayed.root, there), Rects({there}));
    QCOMPARE(fillsOf(displayed.root, here), Rects());
    displayed.root.remove(m_scene->root);
}

PICTEL_TEST_MAIN(tst_ChildNotes)
#include "tst_childnotes.moc"
