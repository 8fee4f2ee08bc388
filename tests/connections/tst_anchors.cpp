#include "support/TestMain.h"

#include "FigureNest.h"
#include "FixedBoxAnchor.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/IAnchorListener.h>
#include <vtlpictel/connections/XYAnchor.h>

#include <QTest>

#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

/// A figure whose listeners can be counted.
class WatchedFigure : public Figure
{
public:
    explicit WatchedFigure(const QRect &bounds) { setBounds(bounds); }

    int moveReceivers() const { return receivers(SIGNAL(figureMoved(Figure *))); }
};

/// A chop-box anchor whose box can be read and replaced.
class BoxProbe : public ChopboxAnchor
{
public:
    using ChopboxAnchor::ChopboxAnchor;
    using ChopboxAnchor::getBox;
};

class DeafListener : public IAnchorListener
{
public:
    void anchorMoved(IConnectionAnchor *) override { }
};

using AnchorFactory = std::shared_ptr<ConnectionAnchorBase> (*)(Figure *);

template <typename Anchor>
std::shared_ptr<ConnectionAnchorBase> makeAnchorOn(Figure *owner)
{
    return std::make_shared<Anchor>(owner);
}

std::shared_ptr<ConnectionAnchorBase> makeXYAnchor(Figure *)
{
    return std::make_shared<XYAnchor>(QPoint(7, -9));
}

} // namespace

Q_DECLARE_METATYPE(AnchorFactory)

/// Notes every move that it is told of.
class MoveListener : public QObject, public IAnchorListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IAnchorListener)

public:
    QList<IConnectionAnchor *> moves;

public Q_SLOTS:
    void anchorMoved(IConnectionAnchor *anchor) override { moves.append(anchor); }
};

class tst_Anchors : public PictelTest
{
    Q_OBJECT

private:
    static void addAnchors();
    static void addFigureAnchors();
    static void move(Figure &figure) { figure.setBounds(figure.getBounds().translated(1, 0)); }

private Q_SLOTS:
    void anchorIsFoundByItsInterface_data() { addAnchors(); }
    void anchorIsFoundByItsInterface();
    void listenerIsToldOfAMove_data() { addAnchors(); }
    void listenerIsToldOfAMove();
    void listenerAddedTwiceIsToldTwiceAndRemovedAtOnce_data() { addAnchors(); }
    void listenerAddedTwiceIsToldTwiceAndRemovedAtOnce();
    void listenerThatIsNoObjectIsRefused_data() { addAnchors(); }
    void listenerThatIsNoObjectIsRefused();
    void deletedListenerIsNoLongerTold_data() { addAnchors(); }
    void deletedListenerIsNoLongerTold();
    void anchorDiesBeforeItsListeners_data() { addAnchors(); }
    void anchorDiesBeforeItsListeners();
    void parentOwnsTheAnchor();

    void nullListenerOfABaseAnchorLeavesAWarning();
    void nullListenerOfAFigureAnchorIsIgnored_data() { addFigureAnchors(); }
    void nullListenerOfAFigureAnchorIsIgnored();

    void constructionDoesNotListen_data() { addFigureAnchors(); }
    void constructionDoesNotListen();
    void firstListenerBeginsListening_data() { addFigureAnchors(); }
    void firstListenerBeginsListening();
    void secondListenerDoesNotListenTwice();
    void moveOfAnAncestorIsAnnounced();
    void changeOfParentsIsNotAnnounced();
    void removingOneListenerStopsAllMoves();
    void removedListenerCanBeAddedAgain();
    void listenersWithoutOwnerListenOnceThereIsOne();
    void setOwnerListensWithoutListeners();
    void setOwnerLeavesTheOldOwner();
    void setOwnerToNullStopsListening();
    void setOwnerEmitsNothing();
    void deadOwnerLeavesNoOwner_data() { addFigureAnchors(); }
    void deadOwnerLeavesNoOwner();
    void anchorListensToTheSuccessorOfADeadOwner();
    void dyingAnchorSignsOffFromItsOwner();
    void anchorOwnedByItsOwnerDiesWithIt();

    void referencePointIsTheRoundedCenter_data();
    void referencePointIsTheRoundedCenter();
    void referencePointIsAbsolute();
    void referencePointWithoutOwnerIsTheOrigin();

    void boxIsTheOwnersBounds();
    void chopboxReferencePointIsTheIntegerCenter_data();
    void chopboxReferencePointIsTheIntegerCenter();
    void chopboxWithoutOwnerWarns();
    void chopboxLocation_data();
    void chopboxLocation();
    void emptyGrownBoxGivesItsTruncatedCenter();
    void chopboxUsesTheBoxOfItsSubclass();
    void chopboxAnchorsWithSameOwnerAndBoxAreEqual();
    void chopboxAtTheLimitsOfIntegers();

    void ellipseWithoutOwnerWarns();
    void ellipseLocation_data();
    void ellipseLocation();
    void ellipseReferencePointIsTheRoundedCenter();
    void ellipseWithoutExtentIsItsCenter();
    void ellipseAtTheLimitsOfIntegers();

    void xyAnchorIsWhereItIsPut();
    void xyAnchorHasNoOwner();
    void xyAnchorAnnouncesTheSameLocationToo();
};

void tst_Anchors::addAnchors()
{
    addFigureAnchors();
    QTest::newRow("xy") << AnchorFactory(&makeXYAnchor);
}

void tst_Anchors::addFigureAnchors()
{
    QTest::addColumn<AnchorFactory>("make");
    QTest::newRow("chopbox") << AnchorFactory(&makeAnchorOn<ChopboxAnchor>);
    QTest::newRow("ellipse") << AnchorFactory(&makeAnchorOn<EllipseAnchor>);
}

// Every anchor

void tst_Anchors::anchorIsFoundByItsInterface()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    const auto anchor = make(&figure);
    QObject *object = anchor.get();
    QCOMPARE(qobject_cast<IConnectionAnchor *>(object), static_cast<IConnectionAnchor *>(anchor.get()));
    QCOMPARE(object->qt_metacast("IConnectionAnchor.Pictel.Vantrel.vantrel.org"),
             static_cast<void *>(static_cast<IConnectionAnchor *>(anchor.get())));
}

void tst_Anchors::listenerIsToldOfAMove()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    MoveListener listener;
    const auto anchor = make(&figure);
    anchor->addAnchorListener(&listener);
    Q_EMIT anchor->anchorMoved(anchor.get());
    QCOMPARE(listener.moves, QList<IConnectionAnchor *>({anchor.get()}));
}

void tst_Anchors::listenerAddedTwiceIsToldTwiceAndRemovedAtOnce()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    MoveListener listener;
    const auto anchor = make(&figure);
    anchor->addAnchorListener(&listener);
    anchor->addAnchorListener(&listener);
    Q_EMIT anchor->anchorMoved(anchor.get());
    QCOMPARE(listener.moves.size(), 2);

    anchor->removeAnchorListener(&listener);
    Q_EMIT anchor->anchorMoved(anchor.get());
    QCOMPARE(listener.moves.size(), 2);
}

void tst_Anchors::listenerThatIsNoObjectIsRefused()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    DeafListener listener;
    const auto anchor = make(&figure);
    expectWarning("ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
    anchor->addAnchorListener(&listener);
    expectWarning("ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
    anchor->removeAnchorListener(&listener);
}

void tst_Anchors::deletedListenerIsNoLongerTold()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    MoveListener remaining;
    const auto anchor = make(&figure);
    auto deleted = std::make_unique<MoveListener>();
    anchor->addAnchorListener(deleted.get());
    anchor->addAnchorListener(&remaining);
    deleted.reset();
    Q_EMIT anchor->anchorMoved(anchor.get());
    QCOMPARE(remaining.moves.size(), 1);
}

void tst_Anchors::anchorDiesBeforeItsListeners()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    MoveListener listener;
    auto anchor = make(&figure);
    anchor->addAnchorListener(&listener);
    anchor.reset();
    move(figure);
    QCOMPARE(listener.moves.size(), 0);
}

void tst_Anchors::parentOwnsTheAnchor()
{
    Figure figure;
    QObject parent;
    QCOMPARE((new ChopboxAnchor(&figure, &parent))->parent(), &parent);
    QCOMPARE((new ChopboxAnchor(&parent))->getOwner(), nullptr);
    QCOMPARE((new EllipseAnchor(&figure, &parent))->parent(), &parent);
    QCOMPARE((new EllipseAnchor(&parent))->getOwner(), nullptr);
    QCOMPARE((new XYAnchor(QPoint(), &parent))->parent(), &parent);
    QCOMPARE(parent.children().size(), 5);
}

void tst_Anchors::nullListenerOfABaseAnchorLeavesAWarning()
{
    XYAnchor anchor(QPoint(1, 2));
    expectWarning("ConnectionAnchorBase::addAnchorListener(): listener not a QObject");
    anchor.addAnchorListener(nullptr);
    expectWarning("ConnectionAnchorBase::removeAnchorListener(): listener not a QObject");
    anchor.removeAnchorListener(nullptr);
}

void tst_Anchors::nullListenerOfAFigureAnchorIsIgnored()
{
    QFETCH(AnchorFactory, make);
    WatchedFigure figure(QRect(0, 0, 10, 10));
    MoveListener listener;
    const auto anchor = make(&figure);
    anchor->addAnchorListener(nullptr);
    QCOMPARE(figure.moveReceivers(), 0);

    anchor->addAnchorListener(&listener);
    anchor->removeAnchorListener(nullptr);
    move(figure);
    QCOMPARE(listener.moves.size(), 1);
}

// Listening to the owner

void tst_Anchors::constructionDoesNotListen()
{
    QFETCH(AnchorFactory, make);
    WatchedFigure figure(QRect(0, 0, 10, 10));
    const auto anchor = make(&figure);
    QCOMPARE(anchor->getOwner(), &figure);
    QCOMPARE(figure.moveReceivers(), 0);
}

void tst_Anchors::firstListenerBeginsListening()
{
    QFETCH(AnchorFactory, make);
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    MoveListener listener;
    const auto anchor = make(&figure);
    anchor->addAnchorListener(&listener);
    move(figure);
    QCOMPARE(listener.moves, QList<IConnectionAnchor *>({anchor.get()}));
}

void tst_Anchors::secondListenerDoesNotListenTwice()
{
    WatchedFigure figure(QRect(0, 0, 10, 10));
    MoveListener first;
    MoveListener second;
    ChopboxAnchor anchor(&figure);
    anchor.addAnchorListener(&first);
    anchor.addAnchorListener(&second);
    move(figure);
    QCOMPARE(first.moves.size(), 1);
    QCOMPARE(second.moves.size(), 1);
}

void tst_Anchors::moveOfAnAncestorIsAnnounced()
{
    FigureNest nest;
    Figure *grandparent = nest.addContainer(nullptr, QRect(0, 0, 100, 100), true);
    Figure *parent = nest.addContainer(grandparent, QRect(0, 0, 50, 50), true);
    MoveListener listener;
    ChopboxAnchor anchor(nest.addFigure(parent, QRect(1, 1, 10, 10)));
    anchor.addAnchorListener(&listener);
    move(*grandparent);
    QCOMPARE(listener.moves, QList<IConnectionAnchor *>({&anchor}));
}

void tst_Anchors::changeOfParentsIsNotAnnounced()
{
    Figure parent;
    Figure figure;
    MoveListener listener;
    ChopboxAnchor anchor(&figure);
    anchor.addAnchorListener(&listener);
    figure.setParentFigure(&parent);
    figure.setParentFigure(nullptr);
    QCOMPARE(listener.moves.size(), 0);
}

void tst_Anchors::removingOneListenerStopsAllMoves()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    MoveListener removed;
    MoveListener remaining;
    ChopboxAnchor anchor(&figure);
    anchor.addAnchorListener(&removed);
    anchor.addAnchorListener(&remaining);
    anchor.removeAnchorListener(&removed);
    move(figure);
    QCOMPARE(remaining.moves.size(), 0);

    Q_EMIT anchor.anchorMoved(&anchor);
    QCOMPARE(remaining.moves.size(), 1);
    QCOMPARE(removed.moves.size(), 0);
}

void tst_Anchors::removedListenerCanBeAddedAgain()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    MoveListener listener;
    ChopboxAnchor anchor(&figure);
    anchor.addAnchorListener(&listener);
    anchor.removeAnchorListener(&listener);
    anchor.addAnchorListener(&listener);
    move(figure);
    QCOMPARE(listener.moves.size(), 1);
}

void tst_Anchors::listenersWithoutOwnerListenOnceThereIsOne()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    MoveListener listener;
    ChopboxAnchor anchor;
    anchor.addAnchorListener(&listener);
    anchor.setOwner(&figure);
    move(figure);
    QCOMPARE(listener.moves.size(), 1);
}

void tst_Anchors::setOwnerListensWithoutListeners()
{
    WatchedFigure figure(QRect(0, 0, 10, 10));
    ChopboxAnchor anchor;
    anchor.setOwner(&figure);
    QCOMPARE(anchor.getOwner(), &figure);
    QCOMPARE(figure.moveReceivers(), 1);

    MoveListener listener;
    anchor.addAnchorListener(&listener);
    move(figure);
    QCOMPARE(listener.moves.size(), 1);
}

void tst_Anchors::setOwnerLeavesTheOldOwner()
{
    WatchedFigure oldOwner(QRect(0, 0, 10, 10));
    WatchedFigure newOwner(QRect(20, 0, 10, 10));
    MoveListener listener;
    ChopboxAnchor anchor(&oldOwner);
    anchor.addAnchorListener(&listener);
    anchor.setOwner(&newOwner);
    QCOMPARE(oldOwner.moveReceivers(), 0);
    move(oldOwner);
    QCOMPARE(listener.moves.size(), 0);
    move(newOwner);
    QCOMPARE(listener.moves.size(), 1);
}

void tst_Anchors::setOwnerToNullStopsListening()
{
    WatchedFigure figure(QRect(0, 0, 10, 10));
    MoveListener listener;
    ChopboxAnchor anchor(&figure);
    anchor.addAnchorListener(&listener);
    anchor.setOwner(nullptr);
    QCOMPARE(anchor.getOwner(), nullptr);
    QCOMPARE(figure.moveReceivers(), 0);

    anchor.addAnchorListener(&listener);
    anchor.removeAnchorListener(&listener);
    QCOMPARE(figure.moveReceivers(), 0);
}

void tst_Anchors::setOwnerEmitsNothing()
{
    Figure figure;
    MoveListener listener;
    ChopboxAnchor anchor;
    anchor.addAnchorListener(&listener);
    anchor.setOwner(&figure);
    anchor.setOwner(nullptr);
    QCOMPARE(listener.moves.size(), 0);
}

void tst_Anchors::deadOwnerLeavesNoOwner()
{
    QFETCH(AnchorFactory, make);
    MoveListener listener;
    auto figure = std::make_unique<Figure>();
    const auto anchor = make(figure.get());
    anchor->addAnchorListener(&listener);
    figure.reset();
    QCOMPARE(anchor->getOwner(), nullptr);
    anchor->addAnchorListener(&listener);
    anchor->removeAnchorListener(&listener);
}

void tst_Anchors::anchorListensToTheSuccessorOfADeadOwner()
{
    MoveListener listener;
    Figure successor;
    successor.setBounds(QRect(0, 0, 10, 10));
    auto figure = std::make_unique<Figure>();
    ChopboxAnchor anchor(figure.get());
    anchor.addAnchorListener(&listener);
    figure.reset();
    anchor.setOwner(&successor);
    move(successor);
    QCOMPARE(listener.moves.size(), 1);
}

void tst_Anchors::dyingAnchorSignsOffFromItsOwner()
{
    WatchedFigure figure(QRect(0, 0, 10, 10));
    MoveListener listener;
    {
        ChopboxAnchor anchor(&figure);
        anchor.addAnchorListener(&listener);
        QCOMPARE(figure.moveReceivers(), 1);
    }
    QCOMPARE(figure.moveReceivers(), 0);
    move(figure);
    QCOMPARE(listener.moves.size(), 0);
}

void tst_Anchors::anchorOwnedByItsOwnerDiesWithIt()
{
    MoveListener listener;
    auto figure = std::make_unique<Figure>();
    const QPointer<ChopboxAnchor> anchor = new ChopboxAnchor(figure.get(), figure.get());
    anchor->addAnchorListener(&listener);
    figure.reset();
    QVERIFY(anchor.isNull());
    QCOMPARE(listener.moves.size(), 0);
}

// The reference point of a figure's anchor

void tst_Anchors::referencePointIsTheRoundedCenter_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("center");
    QTest::newRow("even size") << QRect(0, 0, 10, 20) << QPoint(5, 10);
    QTest::newRow("odd size rounds up") << QRect(0, 0, 3, 5) << QPoint(2, 3);
    QTest::newRow("negative halves round away from zero") << QRect(-4, -6, 3, 5) << QPoint(-3, -4);
    QTest::newRow("invalid size") << QRect(10, 20, -4, -6) << QPoint(8, 17);
    QTest::newRow("limits") << QRect(QPoint(lowest, lowest), QPoint(highest, highest)) << QPoint(0, 0);
}

void tst_Anchors::referencePointIsTheRoundedCenter()
{
    QFETCH(QRect, bounds);
    class BoundedFigure : public Figure
    {
    public:
        QRect getBounds() override { return bounds; }
        QRect bounds;
    } figure;
    figure.bounds = bounds;
    EllipseAnchor anchor(&figure);
    QTEST(anchor.getReferencePoint(), "center");
}

void tst_Anchors::referencePointIsAbsolute()
{
    FigureNest nest;
    Figure *outer = nest.addContainer(nullptr, QRect(100, 200, 500, 500), true, 3);
    Figure *shared = nest.addContainer(outer, QRect(50, 60, 200, 200), false);
    Figure *owner = nest.addFigure(shared, QRect(70, 80, 10, 20));
    QCOMPARE(EllipseAnchor(owner).getReferencePoint(), QPoint(75 + 103, 90 + 203));
    QCOMPARE(ChopboxAnchor(owner).getReferencePoint(), QPoint(74 + 103, 89 + 203));
}

void tst_Anchors::referencePointWithoutOwnerIsTheOrigin()
{
    QCOMPARE(EllipseAnchor().getReferencePoint(), QPoint(0, 0));
}

// Chop-box anchor

void tst_Anchors::boxIsTheOwnersBounds()
{
    Figure figure;
    figure.setBounds(QRect(1, 2, 3, 4));
    QCOMPARE(BoxProbe(&figure).getBox(), QRect(1, 2, 3, 4));
    QCOMPARE(BoxProbe().getBox(), QRect());
}

void tst_Anchors::chopboxReferencePointIsTheIntegerCenter_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QPoint>("center");
    QTest::newRow("even size") << QRect(0, 0, 10, 20) << QPoint(4, 9);
    QTest::newRow("odd size") << QRect(0, 0, 3, 5) << QPoint(1, 2);
    QTest::newRow("negative") << QRect(-4, -6, 3, 5) << QPoint(-3, -4);
}

void tst_Anchors::chopboxReferencePointIsTheIntegerCenter()
{
    QFETCH(QRect, bounds);
    Figure figure;
    figure.setBounds(bounds);
    QTEST(ChopboxAnchor(&figure).getReferencePoint(), "center");
}

void tst_Anchors::chopboxWithoutOwnerWarns()
{
    const ChopboxAnchor anchor;
    expectWarning("ChopboxAnchor::getLocation(): no owner present");
    QCOMPARE(anchor.getLocation(QPoint(5, 6)), QPoint(0, 0));
    expectWarning("ChopboxAnchor::getReferencePoint(): no owner present");
    QCOMPARE(anchor.getReferencePoint(), QPoint(0, 0));
}

// The box (10, 20) 9 x 9 grows to (9, 19) 10 x 10 with the centre (14, 24).
void tst_Anchors::chopboxLocation_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<QPoint>("location");
    QTest::newRow("centre") << QPoint(14, 24) << QPoint(14, 24);
    QTest::newRow("right") << QPoint(114, 24) << QPoint(19, 24);
    QTest::newRow("left") << QPoint(-86, 24) << QPoint(9, 24);
    QTest::newRow("above") << QPoint(14, -76) << QPoint(14, 19);
    QTest::newRow("below") << QPoint(14, 124) << QPoint(14, 29);
    QTest::newRow("diagonal") << QPoint(114, 124) << QPoint(19, 29);
    QTest::newRow("far right, at the height of the line") << QPoint(114, 64) << QPoint(19, 26);
    QTest::newRow("far below, at the place of the line") << QPoint(54, 124) << QPoint(16, 29);
    QTest::newRow("half-way rounds up") << QPoint(24, 25) << QPoint(19, 25);
    QTest::newRow("half-way above the centre rounds up too") << QPoint(24, 23) << QPoint(19, 24);
    QTest::newRow("inside is pushed out to the edge") << QPoint(15, 24) << QPoint(19, 24);
}

void tst_Anchors::chopboxLocation()
{
    QFETCH(QPoint, reference);
    Figure figure;
    figure.setBounds(QRect(10, 20, 9, 9));
    QTEST(ChopboxAnchor(&figure).getLocation(reference), "location");
}

void tst_Anchors::emptyGrownBoxGivesItsTruncatedCenter()
{
    Figure figure;
    QCOMPARE(FixedBoxAnchor(&figure, QRect(10, 20, -4, 8)).getLocation(QPoint(100, 100)), QPoint(7, 23));
    QCOMPARE(FixedBoxAnchor(&figure, QRect(10, 20, 8, -1)).getLocation(QPoint(100, 100)), QPoint(13, 19));
    QCOMPARE(FixedBoxAnchor(&figure, QRect(-10, -20, -2, -2)).getLocation(QPoint(100, 100)), QPoint(-11, -21));
}

void tst_Anchors::chopboxUsesTheBoxOfItsSubclass()
{
    FigureNest nest;
    Figure *parent = nest.addContainer(nullptr, QRect(1000, 2000, 500, 500), true);
    const FixedBoxAnchor anchor(nest.addFigure(parent, QRect(1, 2, 3, 4)), QRect(10, 20, 9, 9));
    QCOMPARE(anchor.getReferencePoint(), QPoint(1014, 2024));
    QCOMPARE(anchor.getLocation(QPoint(1114, 2024)), QPoint(1019, 2024));
}

void tst_Anchors::chopboxAnchorsWithSameOwnerAndBoxAreEqual()
{
    Figure figure;
    Figure other;
    figure.setBounds(QRect(10, 20, 9, 9));
    other.setBounds(QRect(10, 20, 9, 9));
    QVERIFY(ChopboxAnchor(&figure) == ChopboxAnchor(&figure));
    QVERIFY(ChopboxAnchor() == ChopboxAnchor());
    QVERIFY(!(ChopboxAnchor(&figure) == ChopboxAnchor(&other)));
    QVERIFY(!(ChopboxAnchor(&figure) == FixedBoxAnchor(&figure, QRect(10, 20, 9, 8))));
    QVERIFY((ChopboxAnchor(&figure) == FixedBoxAnchor(&figure, QRect(10, 20, 9, 9))));
}

void tst_Anchors::chopboxAtTheLimitsOfIntegers()
{
    Figure figure;
    const FixedBoxAnchor small(&figure, QRect(1, 1, 9, 9));
    QCOMPARE(small.getLocation(QPoint(highest, 5)), QPoint(10, 5));
    QCOMPARE(small.getLocation(QPoint(lowest, 5)), QPoint(0, 5));
    QCOMPARE(small.getLocation(QPoint(5, highest)), QPoint(5, 10));

    const FixedBoxAnchor huge(&figure, QRect(QPoint(lowest + 1, lowest + 1), QPoint(highest, highest)));
    QCOMPARE(huge.getLocation(QPoint(highest, 0)), QPoint(highest, 0));
    QCOMPARE(huge.getLocation(QPoint(lowest, 0)), QPoint(lowest, 0));
    // Single precision cannot tell 33554433 from the centre at 33554432.
    const FixedBoxAnchor far(&figure, QRect(33554428, 33554428, 9, 9));
    QCOMPARE(far.getLocation(QPoint(33554433, 33554433)), QPoint(33554432, 33554432));
}

// Ellipse anchor

void tst_Anchors::ellipseWithoutOwnerWarns()
{
    const EllipseAnchor anchor;
    expectWarning("EllipseAnchor::getLocation(): no owner present");
    QCOMPARE(anchor.getLocation(QPoint(5, 6)), QPoint(0, 0));
}

// The ellipse in (10, 20) 40 x 20 has the centre (30, 30).
void tst_Anchors::ellipseLocation_data()
{
    QTest::addColumn<QPoint>("reference");
    QTest::addColumn<QPoint>("location");
    QTest::newRow("above") << QPoint(30, -70) << QPoint(30, 20);
    QTest::newRow("below") << QPoint(30, 130) << QPoint(30, 40);
    QTest::newRow("right") << QPoint(130, 30) << QPoint(50, 30);
    QTest::newRow("left") << QPoint(-70, 30) << QPoint(10, 30);
    QTest::newRow("the centre itself gives the top") << QPoint(30, 30) << QPoint(30, 20);
    // On the line y = x / 2 both parts are 1 / sqrt(2) of the half axes: 14.14 and 7.07.
    QTest::newRow("lower right") << QPoint(70, 50) << QPoint(44, 37);
    QTest::newRow("upper left") << QPoint(-10, 10) << QPoint(16, 23);
    QTest::newRow("upper right") << QPoint(70, 10) << QPoint(44, 23);
    QTest::newRow("lower left") << QPoint(-10, 50) << QPoint(16, 37);
}

void tst_Anchors::ellipseLocation()
{
    QFETCH(QPoint, reference);
    Figure figure;
    figure.setBounds(QRect(10, 20, 40, 20));
    QTEST(EllipseAnchor(&figure).getLocation(reference), "location");
}

void tst_Anchors::ellipseReferencePointIsTheRoundedCenter()
{
    Figure figure;
    figure.setBounds(QRect(10, 20, 5, 7));
    QCOMPARE(EllipseAnchor(&figure).getReferencePoint(), QPoint(13, 24));
}

void tst_Anchors::ellipseWithoutExtentIsItsCenter()
{
    FigureNest nest;
    Figure *parent = nest.addContainer(nullptr, QRect(40, 50, 10, 10), true);
    Figure unsized;
    nest.put(&unsized, parent);
    const EllipseAnchor anchor(&unsized);
    QCOMPARE(anchor.getLocation(QPoint(100, 200)), QPoint(40, 50));
    QCOMPARE(anchor.getLocation(QPoint(-100, 20)), QPoint(40, 50));
}

void tst_Anchors::ellipseAtTheLimitsOfIntegers()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 10, 10));
    const EllipseAnchor anchor(&figure);
    QCOMPARE(anchor.getLocation(QPoint(highest, 5)), QPoint(10, 5));
    QCOMPARE(anchor.getLocation(QPoint(5, lowest)), QPoint(5, 0));
    QCOMPARE(anchor.getLocation(QPoint(highest, lowest)), QPoint(9, 1));
}

// XY anchor

void tst_Anchors::xyAnchorIsWhereItIsPut()
{
    XYAnchor anchor(QPoint(3, 4));
    QCOMPARE(anchor.getLocation(QPoint(100, 100)), QPoint(3, 4));
    QCOMPARE(anchor.getReferencePoint(), QPoint(3, 4));
    anchor.setLocation(QPoint(-5, 6));
    QCOMPARE(anchor.getLocation(QPoint(100, 100)), QPoint(-5, 6));
    QCOMPARE(anchor.getReferencePoint(), QPoint(-5, 6));
}

void tst_Anchors::xyAnchorHasNoOwner()
{
    QCOMPARE(XYAnchor(QPoint(3, 4)).getOwner(), nullptr);
}

void tst_Anchors::xyAnchorAnnouncesTheSameLocationToo()
{
    XYAnchor anchor(QPoint(3, 4));
    MoveListener listener;
    anchor.addAnchorListener(&listener);
    anchor.setLocation(QPoint(3, 4));
    QCOMPARE(listener.moves, QList<IConnectionAnchor *>({&anchor}));
}

PICTEL_TEST_MAIN(tst_Anchors)
#include "tst_anchors.moc"
