#include "layout/NotedScene.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>

using namespace Vantrel::Pictel;

namespace {

const QRect corner(0, 0, 31, 31);
// A container that is moved so has there where here was.
const QRect moved(-490, -490, 1000, 1000);

/// Shows itself in one place and says that it is in another.
class DisplacedFigure : public ActingFigure
{
public:
    using ActingFigure::ActingFigure;
    QRect getBounds() override { return ActingFigure::getBounds().translated(490, 490); }
};

/// A container whose children are mirrored: those to the left are painted to the right.
class MirroringFigure : public ActingFigure
{
public:
    using ActingFigure::ActingFigure;
    using ActingFigure::translateToParent;
    QRect &translateToParent(QRect &rect) override { return rect = QRect(1000 - rect.right() - 1, rect.top(), 20, 20); }
};

/// A container that lies elsewhere than its parents do, mirrored.
class FloatingFigure : public ActingFigure
{
public:
    using ActingFigure::ActingFigure;
    using ActingFigure::translateToAbsolute;
    QRect &translateToAbsolute(QRect &rect) override
    {
        return rect = QRect(529 - rect.right(), 490 + rect.top(), 20, 20);
    }
};

/// A container that names another figure as its parent.
class FosteredFigure : public ActingFigure
{
public:
    using ActingFigure::ActingFigure;
    Figure *foster = nullptr;
    Figure *getParentFigure() const override { return foster ? foster : ActingFigure::getParentFigure(); }
};

/// Two nested containers, both covering (0, 0, 1000, 1000), and a child, all painted once.
template <typename Outer, typename Inner>
struct Nest
{
    Nest()
        : outer(nullptr, QColor(Qt::transparent))
        , inner(nullptr, QColor(Qt::transparent))
    {
        outer.setLayoutManager(&outerLayout);
        inner.setLayoutManager(&innerLayout);
        for (Figure *container : std::initializer_list<Figure *> {&outer, &inner})
            container->setBounds(QRect(0, 0, 1000, 1000));
        child.setBounds(here);
        outer.add(&inner);
        inner.add(&child);
        painted(QRect(0, 0, 1000, 1000));
    }

    // Beginning with the inner container's children.
    Rects painted(const QRect &area) { return fillsOf(innerLayout, area); }

    Outer outer;
    Inner inner;
    XYLayout outerLayout {nullptr};
    XYLayout innerLayout {nullptr};
    Figure child;
};

/// A layout that names its children in another order.
class ReversingLayout : public XYLayout
{
public:
    using XYLayout::XYLayout;
    Figures childFigures() const override
    {
        Figures figures = XYLayout::childFigures();
        std::reverse(figures.begin(), figures.end());
        return figures;
    }
};

/// A layout with constraints of its own, which it counts being asked for.
class OwnConstraints : public FreeformLayout
{
public:
    OwnConstraints()
        : FreeformLayout(nullptr, false)
    { }
    using FreeformLayout::getHelper;
    mutable int asked = 0;
    int applied = 0;
    QVariant getConstraint(Figure *child) const override
    {
        ++asked;
        return FreeformLayout::getConstraint(child);
    }

protected:
    bool applyConstraint(Figure *child, const QVariant &constraint) override
    {
        ++applied;
        return FreeformLayout::applyConstraint(child, constraint);
    }
};

} // namespace

/// Nothing is taken for granted about containers and layouts that do something in their own way.
class tst_ChildNotesContainers : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void mirroringContainerPaintsItsChildrenMirrored();
    void mirroringAncestorPaintsItsDescendantsMirrored();
    void floatingContainerPaintsItsChildrenWhereItFloats();
    void floatingAncestorPaintsItsDescendantsWhereItFloats();
    void fosteredContainerPaintsWhereItsFosterParentIs();
    void fosteredAncestorPaintsWhereItsFosterParentIs();
    void containerWithOwnBoundsPaintsThere();

    void overriddenListOfChildrenCounts();
    void overriddenConstraintsAreAskedForInEachPass();
    void constraintStoredBehindTheBackIsApplied();
    void constraintOfAValidChildIsAppliedByTheNextLayout();
    void childInvalidatedAloneIsValidatedWithItsParent();
    void validChildIsLaidOutOnce();
    void childrenAtRestAreNotified();
    void childMovedAwayFromItsConstraintIsMovedBack();
    void locatorIsAskedInEachLayout();
    void constraintThatLeavesTheSizeOpenIsResolvedInEachLayout();

    void childOfAnotherParentIsPaintedWhereItIs();
    void childOfTwoLayoutsIsSeenInBoth();
    void layoutTakenOverByAnotherContainerPaintsChildrenWhereTheyAre();
    void layoutTakenOverByAnotherContainerValidatesChildren();
    void layoutTakenOverWhilePaintingPaintsChildrenWhereTheyAre();
};

void tst_ChildNotesContainers::mirroringContainerPaintsItsChildrenMirrored()
{
    Nest<ActingFigure, MirroringFigure> nest;
    const QRect mirrored(970, 10, 20, 20);
    QCOMPARE(nest.painted(mirrored), Rects({mirrored}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::mirroringAncestorPaintsItsDescendantsMirrored()
{
    Nest<MirroringFigure, ActingFigure> nest;
    const QRect mirrored(970, 10, 20, 20);
    QCOMPARE(nest.painted(mirrored), Rects({mirrored}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::floatingContainerPaintsItsChildrenWhereItFloats()
{
    Nest<ActingFigure, FloatingFigure> nest;
    QCOMPARE(nest.painted(there), Rects({there}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::floatingAncestorPaintsItsDescendantsWhereItFloats()
{
    Nest<FloatingFigure, ActingFigure> nest;
    QCOMPARE(nest.painted(there), Rects({there}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::fosteredContainerPaintsWhereItsFosterParentIs()
{
    Nest<ActingFigure, FosteredFigure> nest;
    MirroringFigure foster;
    nest.inner.foster = &foster;
    const QRect mirrored(970, 10, 20, 20);
    QCOMPARE(nest.painted(mirrored), Rects({mirrored}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::fosteredAncestorPaintsWhereItsFosterParentIs()
{
    Nest<FosteredFigure, ActingFigure> nest;
    MirroringFigure foster;
    nest.outer.foster = &foster;
    const QRect mirrored(970, 10, 20, 20);
    QCOMPARE(nest.painted(mirrored), Rects({mirrored}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::containerWithOwnBoundsPaintsThere()
{
    Nest<ActingFigure, DisplacedFigure> nest;
    QCOMPARE(nest.painted(there), Rects({there}));
    QCOMPARE(nest.painted(here), Rects());
}

void tst_ChildNotesContainers::overriddenListOfChildrenCounts()
{
    NotedScene scene(new ReversingLayout);
    Figure *first = scene.addNoted(here);
    Figure *second = scene.addNoted(here.translated(5, 0));
    Figure *third = scene.addNoted(there);
    third->setBounds(here.translated(0, 5));
    QCOMPARE(scene.painted(here), Rects({third->getBounds(), second->getBounds(), first->getBounds()}));
    QCOMPARE(scene.hit(16, 16), first);
    QCOMPARE(scene.found(here), Figures({third, second, first}));
    first->setBounds(there);
    QCOMPARE(scene.painted(there), Rects({there}));
    QCOMPARE(scene.hit(16, 16), second);
}

void tst_ChildNotesContainers::overriddenConstraintsAreAskedForInEachPass()
{
    auto *layout = new OwnConstraints;
    NotedScene scene(layout);
    scene.add(here);
    scene.addNoted(there);
    for (int pass = 0; pass < 2; ++pass) {
        layout->asked = 0;
        layout->applied = 0;
        scene.layOut();
        QCOMPARE(layout->asked, 2);
        QCOMPARE(layout->applied, 2);
    }
}

void tst_ChildNotesContainers::constraintStoredBehindTheBackIsApplied()
{
    auto *layout = new OwnConstraints;
    NotedScene scene(layout);
    Figure *child = scene.addNoted(here);
    layout->getHelper(child)->constraint = there;
    scene.layOut();
    QCOMPARE(child->getBounds(), there);
    QCOMPARE(scene.painted(there), Rects({there}));
}

void tst_ChildNotesContainers::constraintOfAValidChildIsAppliedByTheNextLayout()
{
    NotedScene scene;
    auto *child = scene.addNoted<ActingFigure>(here);
    scene.layout->setConstraint(child, there);
    child->setValid(true);
    // Of its own accord, which the layout does not take up before it is laid out again.
    scene.layout->invalidate();
    child->setBounds(here);
    child->setValid(true);
    scene.layOut();
    QCOMPARE(child->getBounds(), there);
    scene.layout->setConstraint(child, QVariant());
    scene.layout->invalidate();
    child->setBounds(here);
    scene.layOut();
    QCOMPARE(child->getBounds(), here);
}

void tst_ChildNotesContainers::childInvalidatedAloneIsValidatedWithItsParent()
{
    NotedScene scene;
    auto *first = scene.addNoted<ActingFigure>(here);
    auto *second = scene.addNoted<ActingFigure>(there);
    first->layouts = second->layouts = 0;
    second->setFlag(Figure::FLAG_VALID, false);
    scene.validateAll();
    QCOMPARE(first->layouts, 0);
    QCOMPARE(second->layouts, 1);
    first->setValid(false);
    second->invalidate();
    scene.validateAll();
    QCOMPARE(first->layouts, 1);
    QCOMPARE(second->layouts, 2);
}

void tst_ChildNotesContainers::validChildIsLaidOutOnce()
{
    NotedScene scene;
    auto *child = scene.addNoted<ActingFigure>(here);
    scene.layout->setConstraint(child, there);
    child->layouts = 0;
    scene.validateAll();
    scene.validateAll();
    QCOMPARE(child->layouts, 0);
    child->invalidate();
    scene.validateAll();
    scene.validateAll();
    QCOMPARE(child->layouts, 1);
}

void tst_ChildNotesContainers::childrenAtRestAreNotified()
{
    NotedScene scene;
    const Figures children {scene.addNoted(here), scene.addNoted(there)};
    scene.root->addNotify();
    for (const Figure *child : children)
        QVERIFY(child->getFlag(Figure::FLAG_NOTIFIED));
    scene.root->removeNotify();
    for (const Figure *child : children)
        QVERIFY(!child->getFlag(Figure::FLAG_NOTIFIED));
}

void tst_ChildNotesContainers::childMovedAwayFromItsConstraintIsMovedBack()
{
    NotedScene scene(new FreeformLayout(nullptr, false));
    auto *child = scene.addNoted<ActingFigure>(here);
    scene.layout->setConstraint(child, there);
    scene.takeNotes();
    // The layout would take a move for a new constraint while it is laid out.
    for (const QRect &elsewhere : {there.translated(1, 0), there.adjusted(0, 0, 0, 1), here}) {
        scene.layout->invalidate();
        child->setBounds(elsewhere);
        child->setValid(true);
        scene.layout->layout(scene.root);
        QCOMPARE(child->getBounds(), there);
        scene.takeNotes();
    }
}

void tst_ChildNotesContainers::locatorIsAskedInEachLayout()
{
    NotedScene scene;
    Figure *child = scene.addNoted(here);
    ProbeLocator locator(here);
    locator.setParent(this);
    scene.layout->setConstraint(child, QVariant::fromValue<QObject *>(&locator));
    for (const QRect &place : {there, here, there}) {
        locator.place = place;
        scene.layOut();
        QCOMPARE(child->getBounds(), place);
        scene.takeNotes();
    }
}

void tst_ChildNotesContainers::constraintThatLeavesTheSizeOpenIsResolvedInEachLayout()
{
    NotedScene scene;
    Figure *child = scene.addNoted(here);
    child->setPreferredSize(here.size());
    scene.layout->setConstraint(child, QRect(here.topLeft(), QSize(0, 0)));
    QCOMPARE(child->getBounds(), here);
    child->setPreferredSize(QSize(70, 60));
    scene.layOut();
    QCOMPARE(child->getBounds(), QRect(here.topLeft(), QSize(70, 60)));
}

void tst_ChildNotesContainers::childOfAnotherParentIsPaintedWhereItIs()
{
    NotedScene scene;
    scene.addNoted(here);
    Figure *child = scene.addNoted(there);
    Figure other;
    other.setBounds(moved);
    child->setParentFigure(&other);
    QCOMPARE(scene.painted(here), Rects({here, here}));
    QCOMPARE(scene.painted(there), Rects());
    scene.takeNotes();
    QCOMPARE(scene.painted(here), Rects({here, here}));
    QCOMPARE(scene.painted(there), Rects());
    child->setParentFigure(scene.root);
    QCOMPARE(scene.painted(here), Rects({here}));
    QCOMPARE(scene.painted(there), Rects({there}));
}

void tst_ChildNotesContainers::childOfTwoLayoutsIsSeenInBoth()
{
    NotedScene scene;
    Figure *child = scene.addNoted(here);
    NotedScene other;
    other.root->setBounds(QRect(100, 100, 800, 800));
    other.root->add(child);
    other.takeNotes();
    scene.takeNotes();
    child->setBounds(QRect(600, 600, 20, 20));
    const QRect absolute(700, 700, 20, 20);
    QCOMPARE(other.painted(absolute), Rects({absolute}));
    QCOMPARE(scene.painted(absolute), Rects({absolute}));
    QCOMPARE(scene.found(child->getBounds()), Figures({child}));
    QCOMPARE(other.found(absolute), Figures({child}));
    QCOMPARE(scene.hit(601, 601), child);
    QCOMPARE(scene.found(here), Figures());
    child->setVisible(false);
    QCOMPARE(other.found(absolute), Figures());
    QCOMPARE(scene.found(child->getBounds()), Figures());
}

void tst_ChildNotesContainers::layoutTakenOverByAnotherContainerPaintsChildrenWhereTheyAre()
{
    NotedScene scene;
    scene.addNoted(here);
    scene.addNoted(there);
    Figure other(nullptr, QColor(Qt::transparent));
    other.setBounds(QRect(5, 5, 900, 900));
    other.setLayoutManager(scene.layout);
    QCOMPARE(fillsOf(other, QRect(10, 10, 3, 3)), Rects({here}));
    QCOMPARE(fillsOf(other, QRect(500, 500, 3, 3)), Rects({there}));
}

void tst_ChildNotesContainers::layoutTakenOverByAnotherContainerValidatesChildren()
{
    NotedScene scene;
    auto *child = scene.addNoted<ActingFigure>(here);
    ActingFigure other;
    other.setLayoutManager(scene.layout);
    other.validate();
    child->layouts = 0;
    child->invalidate();
    other.invalidate();
    other.validate();
    QCOMPARE(child->layouts, 1);
}

void tst_ChildNotesContainers::layoutTakenOverWhilePaintingPaintsChildrenWhereTheyAre()
{
    NotedScene scene;
    auto *first = scene.addNoted<ActingFigure>(QRect(0, 0, 5, 5));
    scene.addNoted(here);
    Figure *last = scene.addNoted(there);
    Figure other(nullptr, QColor(Qt::transparent));
    other.setBounds(moved);
    first->onDraw = [&scene, &other, last] {
        other.setLayoutManager(scene.layout);
        last->setParentFigure(&other);
        fillsOf(other, moved);
    };
    QCOMPARE(scene.painted(corner), Rects({first->getBounds(), here, here}));
}

PICTEL_TEST_MAIN(tst_ChildNotesContainers)
#include "tst_childnotescontainers.moc"
