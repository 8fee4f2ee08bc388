#include "support/CallLog.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/figure/Figure.h>

#include <QSignalSpy>
#include <QTest>

using namespace Vantrel::Pictel;

namespace {

Figure *figureOf(const QVariant &value)
{
    return value.value<Figure *>();
}

} // namespace

class tst_FigureTree : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void addWithoutLayoutFails();
    void stretchedAddWithoutLayoutFails();
    void removeWithoutLayoutFails();
    void childCountWithoutLayoutFails();
    void childListWithoutLayoutIsEmptyAndSilent();
    void addRemoveAndChildrenGoToTheLayout();
    void addHasDefaultArguments();
    void addOfNullIsRefused();
    void addOfAChildTwiceIsRefused();
    void addOfItselfIsRefused();
    void addOfAnAncestorIsRefused();
    void ancestorsAreFoundOnAnyWayUp();
    void manyWaysUpAreFollowedQuickly();
    void addToASecondParentMovesTheParentPointer();
    void nullLayoutIsIgnored();
    void layoutIsReplacedAndHandedBack();
    void layoutThatIsSetAgainStaysAttached();
    void replacedLayoutIsNeitherDeletedNorInvalidated();
    void setParentAnnouncesOldAndNew();
    void setSameParentStillAnnounces();
    void parentThatWouldMakeACycleIsRefused();

    void addNotifyReachesChildrenInOrder();
    void secondAddNotifyWarnsAndStopsThere();
    void removeNotifyGoesBottomUp();
    void removeNotifyOfUnnotifiedFigureIsSilent();
};

void tst_FigureTree::addWithoutLayoutFails()
{
    Figure parent;
    Figure child;
    expectDebug("Figure::add(): failed, no layout manager");
    QVERIFY(!parent.add(&child));
    QCOMPARE(child.getParentFigure(), nullptr);
}

void tst_FigureTree::stretchedAddWithoutLayoutFails()
{
    Figure parent;
    Figure child;
    expectDebug("Figure::add(): failed, no layout manager");
    QVERIFY(!parent.add(&child, 1U, 2U, -1));
    QCOMPARE(child.getParentFigure(), nullptr);
}

void tst_FigureTree::removeWithoutLayoutFails()
{
    Figure parent;
    Figure child;
    expectDebug("Figure::remove(): failed, no layout manager");
    QVERIFY(!parent.remove(&child));
}

void tst_FigureTree::childCountWithoutLayoutFails()
{
    expectDebug("Figure::childFigureCount(): failed, no layout manager");
    QCOMPARE(Figure().childFigureCount(), 0);
}

void tst_FigureTree::childListWithoutLayoutIsEmptyAndSilent()
{
    QCOMPARE(Figure().childFigures(), QList<Figure *>());
}

void tst_FigureTree::addRemoveAndChildrenGoToTheLayout()
{
    CallLog log;
    ProbeLayout layout("layout", &log);
    Figure parent;
    parent.setLayoutManager(&layout);
    ProbeFigure first("first");
    ProbeFigure second("second");
    QVERIFY(parent.add(&first, QVariant(7), 3));
    QVERIFY(parent.add(&second, 4U, 5U, 0));
    QCOMPARE(parent.childFigures(), QList<Figure *>({&second, &first}));
    QCOMPARE(parent.childFigureCount(), 2);
    QVERIFY(parent.remove(&first));
    QVERIFY(!parent.remove(&first));
    QCOMPARE(parent.childFigures(), QList<Figure *>({&second}));
    QCOMPARE(log.only({"add", "remove"}),
             QStringList({"layout.add(first,7,3)", "layout.add(second,4,5,0)", "layout.remove(first)",
                          "layout.remove(first)"}));
    QCOMPARE(brokenInvariant(&parent), QString());
}

void tst_FigureTree::addHasDefaultArguments()
{
    CallLog log;
    ProbeLayout layout("layout", &log);
    Figure parent;
    parent.setLayoutManager(&layout);
    ProbeFigure child("child");
    QVERIFY(parent.add(&child));
    QCOMPARE(log.only({"add"}), QStringList({"layout.add(child,,-1)"}));
    QVERIFY(!layout.getConstraint(&child).isValid());
}

void tst_FigureTree::addOfNullIsRefused()
{
    ProbeLayout layout;
    Figure parent;
    parent.setLayoutManager(&layout);
    QVERIFY(!parent.add(nullptr));
    QVERIFY(!parent.add(nullptr, 0U, 0U, -1));
    QVERIFY(!parent.remove(nullptr));
    QCOMPARE(parent.childFigureCount(), 0);
}

void tst_FigureTree::addOfAChildTwiceIsRefused()
{
    ProbeLayout layout;
    Figure parent;
    parent.setLayoutManager(&layout);
    Figure child;
    QVERIFY(parent.add(&child));
    QVERIFY(!parent.add(&child));
    QVERIFY(!parent.add(&child, 0U, 0U, -1));
    QCOMPARE(parent.childFigures(), QList<Figure *>({&child}));
}

void tst_FigureTree::addOfItselfIsRefused()
{
    ProbeLayout layout;
    Figure figure;
    figure.setLayoutManager(&layout);
    QVERIFY(!figure.add(&figure));
    QVERIFY(!figure.add(&figure, 0U, 0U, -1));
    QCOMPARE(figure.getParentFigure(), nullptr);
    QCOMPARE(figure.childFigureCount(), 0);
}

void tst_FigureTree::addOfAnAncestorIsRefused()
{
    ProbeLayout rootLayout;
    ProbeLayout middleLayout;
    ProbeLayout leafLayout;
    Figure root;
    Figure middle;
    Figure leaf;
    root.setLayoutManager(&rootLayout);
    middle.setLayoutManager(&middleLayout);
    leaf.setLayoutManager(&leafLayout);
    QVERIFY(root.add(&middle));
    QVERIFY(middle.add(&leaf));
    QVERIFY(!leaf.add(&root));
    QVERIFY(!leaf.add(&middle, 0U, 0U, -1));
    QCOMPARE(leaf.childFigureCount(), 0);
    QCOMPARE(root.getParentFigure(), nullptr);
    QCOMPARE(brokenInvariant(&root), QString());
}

void tst_FigureTree::ancestorsAreFoundOnAnyWayUp()
{
    ProbeFigure left;
    ProbeFigure right;
    ProbeFigure below;
    ProbeLayout layouts[3];
    left.setLayoutManager(&layouts[0]);
    right.setLayoutManager(&layouts[1]);
    below.setLayoutManager(&layouts[2]);
    QVERIFY(left.add(&below));
    QVERIFY(right.add(&below));
    QVERIFY(!below.add(&left));
    QVERIFY(!below.add(&right));
    QVERIFY(!below.add(&below));
    QVERIFY(left.add(&right));
    QVERIFY(!right.add(&left));
}

// Two figures on each level, both children of both figures above: the ways up double with each level.
void tst_FigureTree::manyWaysUpAreFollowedQuickly()
{
    constexpr size_t levels = 60;
    ProbeFigure figures[levels][2];
    ProbeLayout layouts[levels][2];
    for (size_t level = 0; level < levels; ++level) {
        for (size_t side = 0; side < 2; ++side) {
            figures[level][side].setLayoutManager(&layouts[level][side]);
            for (size_t above = 0; level > 0 && above < 2; ++above)
                QVERIFY(layouts[level - 1][above].add(&figures[level][side], QVariant(), -1));
        }
    }
    QVERIFY(!figures[levels - 1][0].add(&figures[0][1]));
    ProbeFigure last;
    QVERIFY(figures[levels - 1][1].add(&last));
}

void tst_FigureTree::addToASecondParentMovesTheParentPointer()
{
    ProbeLayout firstLayout;
    ProbeLayout secondLayout;
    Figure first;
    Figure second;
    first.setLayoutManager(&firstLayout);
    second.setLayoutManager(&secondLayout);
    Figure child;
    QVERIFY(first.add(&child));
    QVERIFY(second.add(&child));
    QCOMPARE(child.getParentFigure(), &second);
    QCOMPARE(first.childFigures(), QList<Figure *>({&child}));
    QCOMPARE(second.childFigures(), QList<Figure *>({&child}));
}

void tst_FigureTree::nullLayoutIsIgnored()
{
    ProbeLayout layout;
    Figure figure;
    QCOMPARE(figure.setLayoutManager(nullptr), nullptr);
    figure.setLayoutManager(&layout);
    QCOMPARE(figure.setLayoutManager(nullptr), nullptr);
    QCOMPARE(figure.getLayoutManager(), &layout);
    QCOMPARE(layout.getFigure(), &figure);
}

void tst_FigureTree::layoutIsReplacedAndHandedBack()
{
    ProbeLayout first;
    ProbeLayout second;
    Figure figure;
    QCOMPARE(figure.setLayoutManager(&first), nullptr);
    QCOMPARE(first.getFigure(), &figure);
    QCOMPARE(figure.setLayoutManager(&second), &first);
    QCOMPARE(first.getFigure(), nullptr);
    QCOMPARE(second.getFigure(), &figure);
    QCOMPARE(figure.getLayoutManager(), &second);
}

void tst_FigureTree::layoutThatIsSetAgainStaysAttached()
{
    ProbeLayout layout;
    Figure figure;
    figure.setLayoutManager(&layout);
    QCOMPARE(figure.setLayoutManager(&layout), &layout);
    QCOMPARE(layout.getFigure(), &figure);
    QCOMPARE(figure.getLayoutManager(), &layout);
}

void tst_FigureTree::replacedLayoutIsNeitherDeletedNorInvalidated()
{
    CallLog log;
    ProbeLayout first("first", &log);
    ProbeLayout second("second", &log);
    ProbeFigure figure("figure", &log);
    figure.setLayoutManager(&first);
    figure.setValid(true);
    figure.setLayoutManager(&second);
    QVERIFY(figure.isValid());
    QCOMPARE(log.calls(), QStringList());
}

void tst_FigureTree::setParentAnnouncesOldAndNew()
{
    Figure first;
    Figure second;
    Figure figure;
    QSignalSpy spy(&figure, &Figure::propertyChanged);
    figure.setParentFigure(&first);
    figure.setParentFigure(&second);
    figure.setParentFigure(nullptr);
    QCOMPARE(figure.getParentFigure(), nullptr);
    QCOMPARE(spy.size(), 3);
    const QList<QPair<Figure *, Figure *>> steps {{nullptr, &first}, {&first, &second}, {&second, nullptr}};
    for (qsizetype i = 0; i < steps.size(); ++i) {
        QCOMPARE(spy.at(i).at(0).toString(), QStringLiteral("parent"));
        QCOMPARE(figureOf(spy.at(i).at(1).value<QVariant>()), steps.at(i).first);
        QCOMPARE(figureOf(spy.at(i).at(2).value<QVariant>()), steps.at(i).second);
    }
}

void tst_FigureTree::setSameParentStillAnnounces()
{
    Figure parent;
    Figure figure;
    figure.setParentFigure(&parent);
    QSignalSpy spy(&figure, &Figure::propertyChanged);
    figure.setParentFigure(&parent);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(figureOf(spy.at(0).at(1).value<QVariant>()), &parent);
    QCOMPARE(figureOf(spy.at(0).at(2).value<QVariant>()), &parent);
}

void tst_FigureTree::parentThatWouldMakeACycleIsRefused()
{
    Figure grandparent;
    Figure parent;
    Figure figure;
    parent.setParentFigure(&grandparent);
    figure.setParentFigure(&parent);
    QSignalSpy spy(&grandparent, &Figure::propertyChanged);
    for (Figure *descendant : {&grandparent, &parent, &figure}) {
        expectDebug("Figure::setParentFigure(): failed, would make a cycle");
        grandparent.setParentFigure(descendant);
        QCOMPARE(grandparent.getParentFigure(), nullptr);
    }
    QCOMPARE(spy.size(), 0);
}

void tst_FigureTree::addNotifyReachesChildrenInOrder()
{
    CallLog log;
    ProbeLayout layout;
    ProbeFigure root("root", &log);
    root.setLayoutManager(&layout);
    ProbeFigure first("first", &log);
    ProbeFigure second("second", &log);
    root.add(&first);
    root.add(&second);
    log.clear();
    root.addNotify();
    QCOMPARE(log.calls(), QStringList({"root.addNotify", "first.addNotify", "second.addNotify"}));
    QVERIFY(root.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(second.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_FigureTree::secondAddNotifyWarnsAndStopsThere()
{
    CallLog log;
    ProbeLayout layout;
    ProbeFigure root("root", &log);
    root.setLayoutManager(&layout);
    ProbeFigure child("child", &log);
    root.add(&child);
    root.addNotify();
    log.clear();
    expectDebug("Figure::addNotify() should not be call multiple times");
    root.addNotify();
    QCOMPARE(log.calls(), QStringList({"root.addNotify"}));
}

void tst_FigureTree::removeNotifyGoesBottomUp()
{
    ProbeLayout layout;
    ProbeFigure root("root");
    root.setLayoutManager(&layout);
    CallLog log;
    class Witness : public ProbeFigure
    {
    public:
        using ProbeFigure::ProbeFigure;
        void removeNotify() override
        {
            parentWasNotified = getParentFigure()->getFlag(FLAG_NOTIFIED);
            ProbeFigure::removeNotify();
        }
        bool parentWasNotified = false;
    };
    Witness first("first", &log);
    Witness second("second", &log);
    root.add(&first);
    root.add(&second);
    root.addNotify();
    log.clear();
    root.removeNotify();
    QCOMPARE(log.calls(), QStringList({"first.removeNotify", "second.removeNotify"}));
    QVERIFY(first.parentWasNotified);
    QVERIFY(second.parentWasNotified);
    QVERIFY(!root.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(!first.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_FigureTree::removeNotifyOfUnnotifiedFigureIsSilent()
{
    Figure figure;
    figure.removeNotify();
    QVERIFY(!figure.getFlag(Figure::FLAG_NOTIFIED));
    figure.addNotify();
    figure.removeNotify();
    figure.addNotify();
    QVERIFY(figure.getFlag(Figure::FLAG_NOTIFIED));
}

PICTEL_TEST_MAIN(tst_FigureTree)
#include "tst_figuretree.moc"
