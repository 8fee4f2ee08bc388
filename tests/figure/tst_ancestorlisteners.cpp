#include "figure/AncestorProbes.h"
#include "support/TestMain.h"

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

/// Listeners that come, go and act while they are told.
class tst_AncestorListeners : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void listenerAddedTwiceHearsTwice();
    void listenerAddedAndRemovedTwiceLeavesNoHelper();
    void listenerMayComeBackAfterItLeft();
    void strangerThatLeavesKeepsTheHelperOfTheOthers();
    void strangerThatLeavesFirstDoesNoHarm();
    void lastListenerMayLeaveWhileItIsTold();
    void listenerMayLeaveWhileOthersAreTold();

    void listenerMayDeleteAFigureOfTheChainOnRemoval();
    void listenerMayDeleteTheFigureOnRemoval();
    void listenerMayDeleteTheFigureOnAddition();
    void listenerMayDeleteTheNewParent();
    void listenerMayMoveTheFigureOn();
    void earlierListenerMayMoveTheFigureOn();
};

void tst_AncestorListeners::listenerAddedTwiceHearsTwice()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.addAncestorListener(&listener);
    families.parent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved parent"), QStringLiteral("moved parent")}));
}

void tst_AncestorListeners::listenerAddedAndRemovedTwiceLeavesNoHelper()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.addAncestorListener(&listener);
    families.figure.removeAncestorListener(&listener);
    families.figure.removeAncestorListener(&listener);
    QCOMPARE(families.figure.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
    families.parent.move();
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorListeners::listenerMayComeBackAfterItLeft()
{
    Families families;
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.addAncestorListener(&listener);
    families.figure.removeAncestorListener(&listener);
    families.figure.removeAncestorListener(&listener);
    families.figure.addAncestorListener(&listener);
    QCOMPARE(families.grandparent.observers(), observed);
    families.parent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved parent")}));
    families.figure.removeAncestorListener(&listener);
    QCOMPARE(families.grandparent.observers(), unobserved);
}

void tst_AncestorListeners::strangerThatLeavesKeepsTheHelperOfTheOthers()
{
    Families families;
    AncestorListener listener;
    AncestorListener stranger;
    families.figure.addAncestorListener(&listener);
    families.figure.removeAncestorListener(&stranger);
    families.figure.removeAncestorListener(nullptr);
    QCOMPARE(families.grandparent.observers(), observed);
    families.grandparent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved grandparent")}));
}

void tst_AncestorListeners::strangerThatLeavesFirstDoesNoHarm()
{
    Families families;
    AncestorListener listener;
    AncestorListener stranger;
    families.figure.removeAncestorListener(&stranger);
    families.figure.addAncestorListener(&listener);
    families.grandparent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved grandparent")}));
    families.figure.removeAncestorListener(&listener);
    QCOMPARE(families.figure.observers(), unobserved);
}

void tst_AncestorListeners::lastListenerMayLeaveWhileItIsTold()
{
    Families families;
    AncestorListener listener;
    listener.actOnMove = [&] { families.figure.removeAncestorListener(&listener); };
    families.figure.addAncestorListener(&listener);
    families.parent.move();
    QCOMPARE(listener.take(), QStringList({QStringLiteral("moved parent")}));
    QCOMPARE(families.figure.observers(), unobserved);
    QCOMPARE(families.grandparent.observers(), unobserved);
    families.parent.move();
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorListeners::listenerMayLeaveWhileOthersAreTold()
{
    Families families;
    AncestorListener first;
    AncestorListener second;
    first.actOnMove = [&] { families.figure.removeAncestorListener(&second); };
    families.figure.addAncestorListener(&first);
    families.figure.addAncestorListener(&second);
    families.parent.move();
    QCOMPARE(first.take(), QStringList({QStringLiteral("moved parent")}));
    QCOMPARE(second.take(), QStringList());
    QCOMPARE(families.grandparent.observers(), observed);
}

// The observation ends for good, and what came after the removal is not announced.
void tst_AncestorListeners::listenerMayDeleteAFigureOfTheChainOnRemoval()
{
    Families families;
    ObservedFigure figure(QStringLiteral("low figure"));
    auto middle = std::make_unique<ObservedFigure>(QStringLiteral("middle"));
    figure.setParentFigure(middle.get());
    middle->setParentFigure(&families.parent);
    AncestorListener listener;
    listener.actOnRemoval = [&] { middle.reset(); };
    figure.addAncestorListener(&listener);
    families.parent.setParentFigure(&families.newParent);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed grandparent")}));
    for (const ObservedFigure *survivor :
         {&figure, &families.parent, &families.grandparent, &families.newParent, &families.newGrandparent})
        QCOMPARE(survivor->observers(), unobserved);
    families.parent.move();
    families.newParent.move();
    figure.move();
    figure.setParentFigure(&families.parent);
    QCOMPARE(listener.take(), QStringList());
}

void tst_AncestorListeners::listenerMayDeleteTheFigureOnRemoval()
{
    Families families;
    auto figure = std::make_unique<ObservedFigure>(QStringLiteral("figure"));
    figure->setParentFigure(&families.parent);
    AncestorListener listener;
    listener.actOnRemoval = [&] { figure.reset(); };
    figure->addAncestorListener(&listener);
    families.parent.setParentFigure(&families.newParent);
    QCOMPARE(figure.get(), nullptr);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed grandparent")}));
    QCOMPARE(families.newParent.observers(), unobserved);
}

void tst_AncestorListeners::listenerMayDeleteTheFigureOnAddition()
{
    Families families;
    auto figure = std::make_unique<ObservedFigure>(QStringLiteral("figure"));
    figure->setParentFigure(&families.parent);
    AncestorListener listener;
    listener.actOnAddition = [&] { figure.reset(); };
    figure->addAncestorListener(&listener);
    families.parent.setParentFigure(&families.newParent);
    QCOMPARE(figure.get(), nullptr);
    QCOMPARE(families.newParent.observers(), unobserved);
}

void tst_AncestorListeners::listenerMayDeleteTheNewParent()
{
    Families families;
    auto newParent = std::make_unique<ObservedFigure>(QStringLiteral("short-lived"));
    AncestorListener listener;
    listener.actOnRemoval = [&] { newParent.reset(); };
    families.figure.addAncestorListener(&listener);
    families.figure.setParentFigure(newParent.get());
    QCOMPARE(newParent.get(), nullptr);
    QCOMPARE(listener.take(), QStringList({QStringLiteral("removed parent")}));
    QCOMPARE(families.figure.observers(), observed);
}

void tst_AncestorListeners::listenerMayMoveTheFigureOn()
{
    Families families;
    ObservedFigure passedBy(QStringLiteral("passed by"));
    AncestorListener listener;
    listener.actOnRemoval = [&] { families.figure.setParentFigure(&families.newParent); };
    families.figure.addAncestorListener(&listener);
    families.figure.setParentFigure(&passedBy);
    QCOMPARE(passedBy.observers(), unobserved);
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.figure.observers(), observed);
    QCOMPARE(families.newParent.observers(), observed);
    QCOMPARE(families.newGrandparent.observers(), observed);
}

void tst_AncestorListeners::earlierListenerMayMoveTheFigureOn()
{
    Families families;
    ObservedFigure passedBy(QStringLiteral("passed by"));
    connect(&families.figure, &Figure::propertyChanged, this, [&] {
        if (families.figure.getParentFigure() == &passedBy)
            families.figure.setParentFigure(&families.newParent);
    });
    AncestorListener listener;
    families.figure.addAncestorListener(&listener);
    families.figure.setParentFigure(&passedBy);
    QCOMPARE(passedBy.observers(), unobserved);
    QCOMPARE(families.parent.observers(), unobserved);
    QCOMPARE(families.newParent.observers(), observed);
    QCOMPARE(families.newGrandparent.observers(), observed);
}

PICTEL_TEST_MAIN(tst_AncestorListeners)
#include "tst_ancestorlisteners.moc"
