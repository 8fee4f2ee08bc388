#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/figure/ITreeSearch.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <numeric>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// A search that answers from functions and remembers whom it was asked about.
class ProbeSearch : public ITreeSearch
{
public:
    bool accept(const Figure *figure) const override
    {
        asked << QStringLiteral("accept ") + figure->objectName();
        return !rejected.contains(figure);
    }
    bool prune(const Figure *figure) const override
    {
        asked << QStringLiteral("prune ") + figure->objectName();
        return pruned.contains(figure);
    }

    QList<const Figure *> rejected;
    QList<const Figure *> pruned;
    mutable QStringList asked;
};

/// parent (10,20 100x80, margin 5) > below and above, which overlap at (25..34, 25..34) of the parent's client area
struct Family
{
    Family()
        : parent("parent")
        , below("below")
        , above("above")
    {
        parent.setLayoutManager(&layout);
        parent.setBounds(QRect(10, 20, 100, 80));
        parent.setMargin(5);
        below.setBounds(QRect(15, 15, 20, 20));
        above.setBounds(QRect(25, 25, 20, 20));
        parent.add(&below);
        parent.add(&above);
    }

    ProbeLayout layout;
    ProbeFigure parent;
    ProbeFigure below;
    ProbeFigure above;
};

/// What findFigureAt() must answer, from the absolute bounds of all figures.
Figure *bruteForceHit(Figure *figure, const QPoint &absolute)
{
    QPoint point = absolute;
    figure->translateToRelative(point);
    if (!figure->getBounds().contains(point))
        return nullptr;
    const QList<Figure *> children = figure->childFigures();
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        Figure *hit = (*child)->isVisible() ? bruteForceHit(*child, absolute) : nullptr;
        if (hit)
            return hit;
    }
    return figure;
}

} // namespace

class tst_FigureHitTest : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void containsItsEdges_data();
    void containsItsEdges();
    void isContainedMeansWholly();
    void isIntersectingMeansTouchingAPixel();

    void childIsPreferredToItsParent();
    void topmostChildWins();
    void pointOutsideFindsNothingEvenIfAChildIsThere();
    void pointIsMappedIntoTheClientArea();
    void overloadsAgree();
    void hiddenChildIsNotFound();
    void ownVisibilityDoesNotMatter();
    void rejectedFigureGivesWayToWhatLiesBelow();
    void prunedFigureHidesItsSubtree();
    void searchIsAskedTopDown();
    void excludedFiguresAreSkippedWithTheirSubtree();
    void containsOfASubclassDecides();

    void figuresInAreaComeChildrenFirst();
    void figuresMerelyTouchedCountUnlessContainedIsAsked();
    void containedChildOfPartlyCoveredParent();
    void areaIsMappedIntoTheClientArea();
    void areaMissingTheParentFindsNothing();
    void resultIsAppendedTo();
    void figuresSearchIsConsulted();
    void containedDefaultsToFalse();

    void randomTreesAgreeWithBruteForce();
    void hundredThousandFiguresInRandomOrder();
};

void tst_FigureHitTest::containsItsEdges_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("inside");
    QTest::newRow("top left") << QPoint(10, 20) << true;
    QTest::newRow("bottom right") << QPoint(39, 59) << true;
    QTest::newRow("left of it") << QPoint(9, 20) << false;
    QTest::newRow("above it") << QPoint(10, 19) << false;
    QTest::newRow("right of it") << QPoint(40, 59) << false;
    QTest::newRow("below it") << QPoint(39, 60) << false;
}

void tst_FigureHitTest::containsItsEdges()
{
    QFETCH(QPoint, point);
    QFETCH(bool, inside);
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));
    QCOMPARE(figure.contains(point), inside);
    QCOMPARE(figure.findFigureAt(point), inside ? &figure : nullptr);
}

void tst_FigureHitTest::isContainedMeansWholly()
{
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));
    QVERIFY(figure.isContained(QRect(10, 20, 30, 40)));
    QVERIFY(figure.isContained(QRect(0, 0, 500, 500)));
    QVERIFY(!figure.isContained(QRect(11, 20, 30, 40)));
    QVERIFY(!figure.isContained(QRect(10, 20, 30, 39)));
    QVERIFY(!figure.isContained(QRect()));
}

void tst_FigureHitTest::isIntersectingMeansTouchingAPixel()
{
    Figure figure;
    figure.setBounds(QRect(10, 20, 30, 40));
    QVERIFY(figure.isIntersecting(QRect(0, 0, 11, 21)));
    QVERIFY(!figure.isIntersecting(QRect(0, 0, 10, 21)));
    QVERIFY(!figure.isIntersecting(QRect(0, 0, 11, 20)));
    QVERIFY(figure.isIntersecting(QRect(20, 30, 1, 1)));
    QVERIFY(!figure.isIntersecting(QRect()));
}

void tst_FigureHitTest::childIsPreferredToItsParent()
{
    Family family;
    QCOMPARE(family.parent.findFigureAt(30, 40), &family.below);
    QCOMPARE(family.parent.findFigureAt(16, 26), &family.parent);
}

void tst_FigureHitTest::topmostChildWins()
{
    Family family;
    QCOMPARE(family.parent.findFigureAt(45, 55), &family.above);
    family.parent.remove(&family.below);
    family.parent.add(&family.below);
    QCOMPARE(family.parent.findFigureAt(45, 55), &family.below);
}

void tst_FigureHitTest::pointOutsideFindsNothingEvenIfAChildIsThere()
{
    Family family;
    family.above.setBounds(QRect(50, 50, 200, 200));
    QCOMPARE(family.parent.findFigureAt(105, 95), &family.above);
    QCOMPARE(family.parent.findFigureAt(115, 105), nullptr);
}

void tst_FigureHitTest::pointIsMappedIntoTheClientArea()
{
    Family family;
    ProbeBorder border(Insets(3, 2, 0, 0));
    QCOMPARE(family.parent.findFigureAt(30, 40), &family.below);
    QCOMPARE(family.parent.findFigureAt(29, 39), &family.parent);
    family.parent.setBorder(&border);
    QCOMPARE(family.parent.findFigureAt(31, 43), &family.parent);
    QCOMPARE(family.parent.findFigureAt(32, 43), &family.below);
    family.layout.isRelative = false;
    QCOMPARE(family.parent.findFigureAt(15, 20), &family.below);
}

void tst_FigureHitTest::overloadsAgree()
{
    Family family;
    ProbeSearch everyone;
    QCOMPARE(family.parent.findFigureAt(QPoint(30, 40)), &family.below);
    QCOMPARE(family.parent.findFigureAt(30, 40, everyone), &family.below);
    QCOMPARE(family.parent.findFigureAtExcluding(30, 40, {}), &family.below);
}

void tst_FigureHitTest::hiddenChildIsNotFound()
{
    Family family;
    family.above.setVisible(false);
    QCOMPARE(family.parent.findFigureAt(45, 55), &family.below);
    family.below.setVisible(false);
    QCOMPARE(family.parent.findFigureAt(45, 55), &family.parent);
    QCOMPARE(family.parent.findFigures(QRect(0, 0, 500, 500)), QList<Figure *>({&family.parent}));
}

void tst_FigureHitTest::ownVisibilityDoesNotMatter()
{
    Family family;
    family.parent.setVisible(false);
    QCOMPARE(family.parent.findFigureAt(30, 40), &family.below);
    QCOMPARE(family.parent.findFigures(QRect(0, 0, 500, 500)).size(), 3);
}

void tst_FigureHitTest::rejectedFigureGivesWayToWhatLiesBelow()
{
    Family family;
    ProbeSearch search;
    search.rejected = {&family.above};
    QCOMPARE(family.parent.findFigureAt(45, 55, search), &family.below);
    search.rejected = {&family.above, &family.below};
    QCOMPARE(family.parent.findFigureAt(45, 55, search), &family.parent);
    search.rejected = {&family.above, &family.below, &family.parent};
    QCOMPARE(family.parent.findFigureAt(45, 55, search), nullptr);
}

void tst_FigureHitTest::prunedFigureHidesItsSubtree()
{
    Family family;
    ProbeSearch search;
    search.pruned = {&family.parent};
    QCOMPARE(family.parent.findFigureAt(45, 55, search), nullptr);
    search.pruned = {&family.above};
    QCOMPARE(family.parent.findFigureAt(45, 55, search), &family.below);
}

void tst_FigureHitTest::searchIsAskedTopDown()
{
    Family family;
    ProbeSearch search;
    search.rejected = {&family.above};
    family.parent.findFigureAt(45, 55, search);
    QCOMPARE(search.asked, QStringList({"prune parent", "prune above", "accept above", "prune below", "accept below"}));
    search.asked.clear();
    family.parent.findFigureAt(1, 1, search);
    QCOMPARE(search.asked, QStringList());
}

void tst_FigureHitTest::excludedFiguresAreSkippedWithTheirSubtree()
{
    Family family;
    ProbeLayout inner;
    Figure grandchild;
    family.above.setLayoutManager(&inner);
    grandchild.setBounds(QRect(0, 0, 20, 20));
    family.above.add(&grandchild);
    QCOMPARE(family.parent.findFigureAtExcluding(45, 55, {}), &grandchild);
    QCOMPARE(family.parent.findFigureAtExcluding(45, 55, {&family.above}), &family.below);
    QCOMPARE(family.parent.findFigureAtExcluding(45, 55, {&family.above, &family.below}), &family.parent);
    QCOMPARE(family.parent.findFigureAtExcluding(45, 55, {&family.parent}), nullptr);
}

void tst_FigureHitTest::containsOfASubclassDecides()
{
    class Hollow : public Figure
    {
    public:
        bool contains(const QPoint &) const override { return false; }
    };
    Family family;
    Hollow hollow;
    hollow.setBounds(QRect(25, 25, 20, 20));
    family.parent.add(&hollow);
    QCOMPARE(family.parent.findFigureAt(45, 55), &family.above);
}

void tst_FigureHitTest::figuresInAreaComeChildrenFirst()
{
    Family family;
    ProbeLayout inner;
    Figure grandchild;
    family.above.setLayoutManager(&inner);
    grandchild.setBounds(QRect(0, 0, 20, 20));
    family.above.add(&grandchild);
    QCOMPARE(family.parent.findFigures(QRect(0, 0, 500, 500), false),
             QList<Figure *>({&family.below, &grandchild, &family.above, &family.parent}));
}

void tst_FigureHitTest::figuresMerelyTouchedCountUnlessContainedIsAsked()
{
    Family family;
    const QRect touching(49, 59, 2, 2);
    QCOMPARE(family.parent.findFigures(touching, false),
             QList<Figure *>({&family.below, &family.above, &family.parent}));
    QCOMPARE(family.parent.findFigures(touching, true), QList<Figure *>());
}

void tst_FigureHitTest::containedChildOfPartlyCoveredParent()
{
    Family family;
    QCOMPARE(family.parent.findFigures(QRect(30, 40, 20, 20), true), QList<Figure *>({&family.below}));
    QCOMPARE(family.parent.findFigures(QRect(31, 40, 20, 20), true), QList<Figure *>());
    QCOMPARE(family.parent.findFigures(QRect(10, 20, 100, 80), true),
             QList<Figure *>({&family.below, &family.above, &family.parent}));
}

void tst_FigureHitTest::areaIsMappedIntoTheClientArea()
{
    Family family;
    QCOMPARE(family.parent.findFigures(QRect(29, 39, 1, 1)), QList<Figure *>({&family.parent}));
    QCOMPARE(family.parent.findFigures(QRect(30, 40, 1, 1)), QList<Figure *>({&family.below, &family.parent}));
    family.layout.isRelative = false;
    QCOMPARE(family.parent.findFigures(QRect(15, 20, 1, 1)), QList<Figure *>({&family.below, &family.parent}));
}

void tst_FigureHitTest::areaMissingTheParentFindsNothing()
{
    Family family;
    family.above.setBounds(QRect(200, 200, 10, 10));
    QCOMPARE(family.parent.findFigures(QRect(205, 215, 50, 50)), QList<Figure *>());
}

void tst_FigureHitTest::resultIsAppendedTo()
{
    Family family;
    Figure stranger;
    QList<Figure *> result {&stranger};
    family.parent.findFigures(result, QRect(30, 40, 1, 1), ProbeSearch(), false);
    QCOMPARE(result, QList<Figure *>({&stranger, &family.below, &family.parent}));
}

void tst_FigureHitTest::figuresSearchIsConsulted()
{
    Family family;
    ProbeSearch search;
    search.rejected = {&family.below};
    QList<Figure *> result;
    family.parent.findFigures(result, QRect(0, 0, 500, 500), search, false);
    QCOMPARE(result, QList<Figure *>({&family.above, &family.parent}));
    QCOMPARE(
        search.asked,
        QStringList({"prune parent", "prune below", "accept below", "prune above", "accept above", "accept parent"}));
    search.pruned = {&family.parent};
    result.clear();
    family.parent.findFigures(result, QRect(0, 0, 500, 500), search, false);
    QCOMPARE(result, QList<Figure *>());
}

void tst_FigureHitTest::containedDefaultsToFalse()
{
    Family family;
    QCOMPARE(family.parent.findFigures(QRect(10, 20, 1, 1)), QList<Figure *>({&family.parent}));
}

void tst_FigureHitTest::randomTreesAgreeWithBruteForce()
{
    constexpr quint32 seed = 417;
    QRandomGenerator random(seed);
    for (int round = 0; round < 20; ++round) {
        std::vector<std::unique_ptr<ProbeLayout>> layouts;
        std::vector<std::unique_ptr<Figure>> figures;
        for (int i = 0; i < 60; ++i) {
            layouts.push_back(std::make_unique<ProbeLayout>());
            layouts.back()->isRelative = random.bounded(2) == 0;
            figures.push_back(std::make_unique<Figure>());
            figures.back()->setLayoutManager(layouts.back().get());
            figures.back()->setMargin(random.bounded(3));
            if (i > 0)
                figures[static_cast<size_t>(random.bounded(i))]->add(figures.back().get());
            figures.back()->setBounds(
                QRect(random.bounded(100), random.bounded(100), 1 + random.bounded(200), 1 + random.bounded(200)));
            figures.back()->setVisible(random.bounded(8) > 0);
        }
        Figure *root = figures.front().get();
        for (int probe = 0; probe < 200; ++probe) {
            const QPoint point(random.bounded(300), random.bounded(300));
            QVERIFY2(root->findFigureAt(point) == bruteForceHit(root, point),
                     qPrintable(QStringLiteral("seed %1, round %2, probe %3").arg(seed).arg(round).arg(probe)));
        }
        QCOMPARE(brokenInvariant(root), QString());
    }
}

void tst_FigureHitTest::hundredThousandFiguresInRandomOrder()
{
    constexpr int count = 100000;
    constexpr int columns = 400;
    constexpr quint32 seed = 99;
    QRandomGenerator random(seed);
    ProbeLayout layout;
    ProbeFigure root;
    root.setLayoutManager(&layout);
    root.setBounds(QRect(0, 0, columns * 10, count / columns * 10));
    std::vector<std::unique_ptr<Figure>> figures;
    for (int i = 0; i < count; ++i) {
        figures.push_back(std::make_unique<Figure>());
        figures.back()->setBounds(QRect(i % columns * 10, i / columns * 10, 10, 10));
        QVERIFY(root.add(figures.back().get()));
    }
    root.validate();
    QCOMPARE(root.childFigureCount(), count);
    for (int probe = 0; probe < 20; ++probe) {
        const int i = random.bounded(count);
        QCOMPARE(root.findFigureAt(i % columns * 10 + 5, i / columns * 10 + 5), figures[static_cast<size_t>(i)].get());
    }
    std::shuffle(figures.begin(), figures.end(), random);
    for (int i = 0; i < count / 2; ++i)
        QVERIFY(root.remove(figures[static_cast<size_t>(i)].get()));
    QCOMPARE(root.childFigureCount(), count / 2);
    QCOMPARE(brokenInvariant(&root), QString());
    figures.clear();
    QCOMPARE(root.childFigureCount(), 0);
    QCOMPARE(root.childFigures(), QList<Figure *>());
}

PICTEL_TEST_MAIN(tst_FigureHitTest)
#include "tst_figurehittest.moc"
