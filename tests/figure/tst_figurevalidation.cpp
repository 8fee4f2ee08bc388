#include "support/CallLog.h"
#include "support/DisplayedRoot.h"
#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <QPointer>
#include <QTest>

using namespace Vantrel::Pictel;

namespace {

/// A parent with two children, all logging.
struct Family
{
    Family()
        : layout("layout", &log)
        , parent("parent", &log)
        , first("first", &log)
        , second("second", &log)
    {
        parent.setLayoutManager(&layout);
        parent.setBounds(QRect(10, 20, 100, 100));
        parent.add(&first);
        parent.add(&second);
        first.setBounds(QRect(1, 2, 10, 10));
        log.clear();
    }

    CallLog log;
    ProbeLayout layout;
    ProbeFigure parent;
    ProbeFigure first;
    ProbeFigure second;
};

/// Deletes another figure when it is validated.
class DeletingFigure : public Figure
{
public:
    explicit DeletingFigure(Figure *victim)
        : m_victim(victim)
    { }

    void validate() override
    {
        delete m_victim.data();
        Figure::validate();
    }

private:
    QPointer<Figure> m_victim;
};

} // namespace

class tst_FigureValidation : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void invalidateTellsTheLayoutButNotTheParent();
    void validateLaysOutThenValidatesChildrenThenIsValid();
    void figureCountsAsValidOnlyAfterItsSubtree();
    void validFigureIsNotLaidOutAgainEvenIfAChildIsInvalid();
    void figureWithoutLayoutBecomesValid();
    void layoutGetsTheClientAreaInChildCoordinates();
    void revalidateInvalidatesAllTheWayUp();
    void revalidateStopsAtAValidateRoot();
    void revalidateRegistersTheTopFigure();
    void revalidateRegistersTheValidateRoot();
    void revalidateOfUnshownTreeRegistersNothing();
    void childDeletedDuringValidationIsSkipped();
    void figureDeletedDuringItsValidation();

    void updateManagerIsFoundByNotifiedFiguresOnly();
    void updateManagerOfFigureWithParentIsTheParents();

    void repaintReachesTheViewerInAbsoluteCoordinates();
    void repaintWithoutArgumentsAsksForTheBoundingRect();
    void repaintOfFourNumbersIsThatRect();
    void repaintOfInvalidRectSchedulesNothing();
    void repaintOfHiddenFigureSchedulesNothing();
    void repaintOfUnshownFigureSchedulesNothing();
    void eraseAsksTheParentInTheParentsTerms();
    void eraseUsesTheBoundingRect();
    void eraseOfHiddenFigureSchedulesNothing();
    void eraseOfInvalidBoundsSchedulesNothing();
    void eraseWithoutParentSchedulesNothing();
    void eraseUnderHiddenParentSchedulesNothing();
    void moveDirtiesOldAndNewArea();
    void hideAndShowDirtyTheArea();
    void addAndRemoveDirtyTheArea();
    void slotsAreCalledThroughTheMetaObject();
};

void tst_FigureValidation::invalidateTellsTheLayoutButNotTheParent()
{
    Family family;
    ProbeLayout inner("inner", &family.log);
    family.first.setLayoutManager(&inner);
    family.parent.setValid(true);
    family.first.setValid(true);
    family.first.invalidate();
    QVERIFY(!family.first.isValid());
    QVERIFY(family.parent.isValid());
    QCOMPARE(family.log.calls(), QStringList({"first.invalidate", "inner.invalidate"}));
}

void tst_FigureValidation::validateLaysOutThenValidatesChildrenThenIsValid()
{
    Family family;
    family.parent.validate();
    QCOMPARE(family.log.calls(),
             QStringList({"parent.validate", "parent.layout", "layout.performLayout(0,0 100x100)", "first.validate",
                          "first.layout", "second.validate", "second.layout"}));
    QCOMPARE(brokenInvariantOfValidTree(&family.parent), QString());
}

void tst_FigureValidation::figureCountsAsValidOnlyAfterItsSubtree()
{
    class Witness : public Figure
    {
    public:
        void validate() override
        {
            parentWasValid = getParentFigure()->getFlag(FLAG_VALID);
            Figure::validate();
        }
        bool parentWasValid = true;
    };
    ProbeLayout layout;
    Figure parent;
    parent.setLayoutManager(&layout);
    parent.setBounds(QRect(0, 0, 10, 10));
    Witness child;
    parent.add(&child);
    parent.validate();
    QVERIFY(!child.parentWasValid);
    QVERIFY(parent.getFlag(Figure::FLAG_VALID));
}

void tst_FigureValidation::validFigureIsNotLaidOutAgainEvenIfAChildIsInvalid()
{
    Family family;
    family.parent.validate();
    family.first.invalidate();
    family.log.clear();
    family.parent.validate();
    QCOMPARE(family.log.calls(), QStringList({"parent.validate"}));
    QVERIFY(!family.first.isValid());
}

void tst_FigureValidation::figureWithoutLayoutBecomesValid()
{
    ProbeFigure figure;
    figure.validate();
    QVERIFY(figure.isValid());
}

void tst_FigureValidation::layoutGetsTheClientAreaInChildCoordinates()
{
    Family family;
    ProbeBorder border(Insets(1, 2, 3, 2));
    family.parent.setMargin(5);
    family.parent.setBorder(&border);
    family.parent.validate();
    QCOMPARE(family.log.only({"performLayout"}), QStringList({"layout.performLayout(0,0 86x86)"}));
    family.layout.isRelative = false;
    family.parent.invalidate();
    family.log.clear();
    family.parent.validate();
    QCOMPARE(family.log.only({"performLayout"}), QStringList({"layout.performLayout(17,26 86x86)"}));
}

void tst_FigureValidation::revalidateInvalidatesAllTheWayUp()
{
    Family family;
    family.parent.validate();
    family.log.clear();
    family.first.revalidate();
    QCOMPARE(family.log.calls(),
             QStringList({"first.revalidate", "first.invalidate", "parent.revalidate", "parent.invalidate",
                          "layout.invalidate"}));
    QVERIFY(!family.first.isValid());
    QVERIFY(!family.parent.isValid());
    QVERIFY(family.second.isValid());
}

void tst_FigureValidation::revalidateStopsAtAValidateRoot()
{
    Family family;
    family.first.setValidateRoot(true);
    family.parent.validate();
    family.log.clear();
    family.first.revalidate();
    QCOMPARE(family.log.calls(), QStringList({"first.revalidate", "first.invalidate"}));
    QVERIFY(family.parent.isValid());
}

void tst_FigureValidation::revalidateRegistersTheTopFigure()
{
    CallLog log;
    DisplayedRoot tree(&log);
    ProbeFigure child("child", &log);
    tree.root.add(&child);
    tree.manager.performUpdate();
    log.clear();
    child.revalidate();
    tree.manager.performUpdate();
    QCOMPARE(log.only({"validate"}), QStringList({"root.validate", "child.validate"}));
    log.clear();
    tree.manager.performUpdate();
    QCOMPARE(log.calls(), QStringList());
}

void tst_FigureValidation::revalidateRegistersTheValidateRoot()
{
    CallLog log;
    DisplayedRoot tree(&log);
    ProbeLayout layout;
    ProbeFigure island("island", &log);
    island.setLayoutManager(&layout);
    island.setBounds(QRect(0, 0, 10, 10));
    island.setValidateRoot(true);
    ProbeFigure child("child", &log);
    tree.root.add(&island);
    island.add(&child);
    tree.manager.performUpdate();
    tree.root.validate();
    log.clear();
    child.revalidate();
    tree.manager.performUpdate();
    QCOMPARE(log.only({"validate"}), QStringList({"island.validate", "child.validate"}));
}

void tst_FigureValidation::revalidateOfUnshownTreeRegistersNothing()
{
    CallLog log;
    DisplayedRoot tree(&log);
    tree.root.removeNotify();
    log.clear();
    tree.root.revalidate();
    tree.manager.performUpdate();
    QCOMPARE(log.only({"validate"}), QStringList());
}

void tst_FigureValidation::childDeletedDuringValidationIsSkipped()
{
    ProbeLayout layout;
    ProbeFigure parent;
    parent.setLayoutManager(&layout);
    parent.setBounds(QRect(0, 0, 10, 10));
    const QPointer<Figure> victim = new Figure;
    DeletingFigure killer(victim);
    parent.add(&killer);
    parent.add(victim);
    parent.validate();
    QVERIFY(victim.isNull());
    QVERIFY(parent.isValid());
    QCOMPARE(parent.childFigures(), QList<Figure *>({&killer}));
}

void tst_FigureValidation::figureDeletedDuringItsValidation()
{
    ProbeLayout layout;
    const QPointer<Figure> parent = new Figure;
    parent->setLayoutManager(&layout);
    parent->setBounds(QRect(0, 0, 10, 10));
    DeletingFigure killer(parent);
    parent->add(&killer);
    parent->validate();
    QVERIFY(parent.isNull());
    QVERIFY(killer.getFlag(Figure::FLAG_VALID));
    QCOMPARE(killer.getParentFigure(), nullptr);
}

void tst_FigureValidation::updateManagerIsFoundByNotifiedFiguresOnly()
{
    DisplayedRoot tree;
    Figure child;
    QCOMPARE(child.getUpdateManager(), nullptr);
    tree.root.add(&child);
    QCOMPARE(child.getUpdateManager(), &tree.manager);
    QCOMPARE(brokenInvariant(&tree.root), QString());
    child.removeNotify();
    QCOMPARE(child.getUpdateManager(), nullptr);
    child.addNotify();
    tree.root.remove(&child);
    QCOMPARE(child.getUpdateManager(), nullptr);
    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_FigureValidation::updateManagerOfFigureWithParentIsTheParents()
{
    DisplayedRoot tree;
    Figure unshown;
    Figure child;
    child.addNotify();
    child.setParentFigure(&unshown);
    QCOMPARE(child.getUpdateManager(), nullptr);
    child.setParentFigure(&tree.root);
    QCOMPARE(child.getUpdateManager(), &tree.manager);
}

void tst_FigureValidation::repaintReachesTheViewerInAbsoluteCoordinates()
{
    DisplayedRoot tree;
    ProbeLayout layout;
    Figure panel;
    panel.setLayoutManager(&layout);
    Figure child;
    tree.root.add(&panel);
    panel.setBounds(QRect(100, 200, 300, 300));
    panel.setMargin(7);
    panel.add(&child);
    tree.takeDirtyRects();
    child.repaint(QRect(1, 2, 3, 4));
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(108, 209, 3, 4)}));
    panel.repaint(QRect(1, 2, 3, 4));
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(1, 2, 3, 4)}));
}

void tst_FigureValidation::repaintWithoutArgumentsAsksForTheBoundingRect()
{
    DisplayedRoot tree;
    tree.root.repaint();
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(0, 0, 1000, 1000)}));
    tree.root.setBoundingRect(QRect(-5, -5, 1010, 1010));
    tree.root.repaint();
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(-5, -5, 1010, 1010)}));
}

void tst_FigureValidation::repaintOfFourNumbersIsThatRect()
{
    DisplayedRoot tree;
    tree.root.repaint(1, 2, 3, 4);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(1, 2, 3, 4)}));
}

void tst_FigureValidation::repaintOfInvalidRectSchedulesNothing()
{
    DisplayedRoot tree;
    tree.root.repaint(QRect());
    tree.root.repaint(1, 2, 0, 4);
    tree.root.repaint(1, 2, 3, -1);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
}

void tst_FigureValidation::repaintOfHiddenFigureSchedulesNothing()
{
    DisplayedRoot tree;
    tree.root.setVisible(false);
    tree.takeDirtyRects();
    tree.root.repaint();
    tree.root.repaint(QRect(1, 1, 1, 1));
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
}

void tst_FigureValidation::repaintOfUnshownFigureSchedulesNothing()
{
    DisplayedRoot tree;
    tree.root.removeNotify();
    tree.root.repaint();
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
}

void tst_FigureValidation::eraseAsksTheParentInTheParentsTerms()
{
    Family family;
    family.parent.setMargin(3);
    family.log.clear();
    family.first.erase();
    QCOMPARE(family.log.calls(), QStringList({"first.erase", "parent.repaint(14,25 10x10)"}));
}

void tst_FigureValidation::eraseUsesTheBoundingRect()
{
    Family family;
    family.first.setBoundingRect(QRect(0, 0, 50, 60));
    family.first.erase();
    QCOMPARE(family.log.calls(), QStringList({"first.erase", "parent.repaint(10,20 50x60)"}));
}

void tst_FigureValidation::eraseOfHiddenFigureSchedulesNothing()
{
    Family family;
    family.first.setVisible(false);
    family.log.clear();
    family.first.erase();
    QCOMPARE(family.log.calls(), QStringList({"first.erase"}));
}

void tst_FigureValidation::eraseOfInvalidBoundsSchedulesNothing()
{
    Family family;
    family.second.erase();
    QCOMPARE(family.log.calls(), QStringList({"second.erase"}));
}

void tst_FigureValidation::eraseWithoutParentSchedulesNothing()
{
    DisplayedRoot tree;
    tree.root.erase();
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
}

void tst_FigureValidation::eraseUnderHiddenParentSchedulesNothing()
{
    DisplayedRoot tree;
    Figure child;
    tree.root.add(&child);
    child.setBounds(QRect(1, 1, 5, 5));
    tree.root.setVisible(false);
    tree.takeDirtyRects();
    child.erase();
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
}

void tst_FigureValidation::moveDirtiesOldAndNewArea()
{
    DisplayedRoot tree;
    Figure child;
    tree.root.add(&child);
    child.setBounds(QRect(10, 10, 5, 5));
    tree.takeDirtyRects();
    child.setBounds(QRect(30, 40, 6, 7));
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(10, 10, 5, 5), QRect(30, 40, 6, 7)}));
}

void tst_FigureValidation::hideAndShowDirtyTheArea()
{
    DisplayedRoot tree;
    Figure child;
    tree.root.add(&child);
    child.setBounds(QRect(10, 10, 5, 5));
    tree.takeDirtyRects();
    child.setVisible(false);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(10, 10, 5, 5)}));
    child.setVisible(true);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(10, 10, 5, 5)}));
}

void tst_FigureValidation::addAndRemoveDirtyTheArea()
{
    DisplayedRoot tree;
    Figure child;
    child.setBounds(QRect(10, 10, 5, 5));
    tree.root.add(&child);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(10, 10, 5, 5)}));
    tree.root.remove(&child);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(10, 10, 5, 5)}));
    QCOMPARE(brokenInvariant(&tree.root), QString());
}

void tst_FigureValidation::slotsAreCalledThroughTheMetaObject()
{
    CallLog log;
    ProbeFigure figure("figure", &log);
    QVERIFY(QMetaObject::invokeMethod(&figure, "erase"));
    QVERIFY(QMetaObject::invokeMethod(&figure, "revalidate"));
    QVERIFY(QMetaObject::invokeMethod(&figure, "repaint", Q_ARG(QRect, QRect(1, 2, 3, 4))));
    QVERIFY(QMetaObject::invokeMethod(&figure, "repaint", Q_ARG(int, 1), Q_ARG(int, 2), Q_ARG(int, 3), Q_ARG(int, 4)));
    QCOMPARE(log.calls(),
             QStringList({"figure.erase", "figure.revalidate", "figure.invalidate", "figure.repaint(1,2 3x4)",
                          "figure.repaint(1,2,3,4)", "figure.repaint(1,2 3x4)"}));
}

PICTEL_TEST_MAIN(tst_FigureValidation)
#include "tst_figurevalidation.moc"
