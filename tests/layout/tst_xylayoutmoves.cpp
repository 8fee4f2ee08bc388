#include "layout/XYLayoutTest.h"
#include "support/ProbeLocator.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

// Runs an action after a constraint was stored.
class InterruptedXYLayout : public OpenXYLayout
{
public:
    std::function<void()> interruption;

    bool setConstraint(Figure *child, const QVariant &constraint) override
    {
        const std::function<void()> interrupt = interruption;
        const bool stored = XYLayout::setConstraint(child, constraint);
        if (interrupt)
            interrupt();
        return stored;
    }
};

} // namespace

/// How an XYLayout follows children that move on their own.
class tst_XYLayoutMoves : public XYLayoutTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void movedChildBecomesItsConstraint();
    void moveBeforeFirstLayoutChangesNothing();
    void moveToTheConstraintEmitsNothing();
    void moveBelowTheMinimumIsRaised();
    void moveOfRealRectangleStoresIntegers();
    void moveKeepsAskingForThePreferredSize_data();
    void moveKeepsAskingForThePreferredSize();
    void moveOfLocatedChildIsUndone();
    void moveOfChildWithoutConstraintIsIgnored();
    void moveOfChildWithOtherConstraintIsIgnored();
    void moveIsIgnoredForNull();
    void moveGoesThroughSetConstraint();
    void restlessLocatorComesToAnEnd();
    void childDeletedByItsMoveIsNotAnnounced();
    void layoutDeletedByAMoveAnnouncesNothing();

    void childIsWatchedOnceByEitherAdd();
    void refusedDuplicateIsNotWatchedTwice();
    void removedChildIsNotWatched();
    void watchingCanBeEndedBySignature();
    void childTakenAwayWhileAddedIsNotWatched();
    void longChainOfMovesIsFollowedToItsEnd();
    void metaObjectNamesTheMovedFigure();
    void layoutForAnotherContainerWatchesOnce();
    void addHasDefaultArguments();
};

void tst_XYLayoutMoves::movedChildBecomesItsConstraint()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_child->setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(15, 16, 17, 18)));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).value<Figure *>(), m_child.get());
}

void tst_XYLayoutMoves::moveBeforeFirstLayoutChangesNothing()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_child->setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(5, 6, 7, 8)));
    QCOMPARE(changes.size(), 0);
}

void tst_XYLayoutMoves::moveToTheConstraintEmitsNothing()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_layout->childMoved(m_child.get());
    QCOMPARE(changes.size(), 0);
    m_layout->setConstraint(m_child.get(), QRect(25, 26, 7, 8));
    QCOMPARE(m_child->getBounds(), QRect(25, 26, 7, 8));
    QCOMPARE(changes.size(), 0);
}

void tst_XYLayoutMoves::moveBelowTheMinimumIsRaised()
{
    m_child->minimum = QSize(10, 10);
    m_container->add(m_child.get(), QRect(5, 6, 17, 18));
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_child->setBounds(QRect(50, 60, 3, 4));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(50, 60, 10, 10)));
    QCOMPARE(m_child->getBounds(), QRect(50, 60, 10, 10));
    QCOMPARE(changes.size(), 1);
}

void tst_XYLayoutMoves::moveOfRealRectangleStoresIntegers()
{
    m_container->add(m_child.get(), QRectF(5.25, 6, 7, 8));
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_child->setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(15, 16, 17, 18)));
    QCOMPARE(changes.size(), 1);
}

void tst_XYLayoutMoves::moveKeepsAskingForThePreferredSize_data()
{
    QTest::addColumn<QVariant>("constraint");
    QTest::addColumn<QSize>("preferredBefore");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("width") << QVariant(QRect(0, 0, -1, 5)) << QSize(-1, 9) << QRect(7, 8, 40, 6);
    QTest::newRow("height") << QVariant(QRect(0, 0, 5, -1)) << QSize(9, -1) << QRect(7, 8, 6, 20);
    QTest::newRow("both") << QVariant(QRect(0, 0, -1, -1)) << QSize(-1, -1) << QRect(7, 8, 40, 20);
    QTest::newRow("real width") << QVariant(QRectF(0, 0, -1, 5)) << QSize(-1, 9) << QRect(7, 8, 40, 6);
    QTest::newRow("real height") << QVariant(QRectF(0, 0, 5, -1)) << QSize(9, -1) << QRect(7, 8, 6, 20);
}

void tst_XYLayoutMoves::moveKeepsAskingForThePreferredSize()
{
    QFETCH(QVariant, constraint);
    QFETCH(QSize, preferredBefore);
    QFETCH(QRect, expected);
    m_child->preferred = preferredBefore;
    expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    m_container->add(m_child.get(), constraint);
    m_layout->setLaidOut(true);
    m_child->preferred = QSize(40, 20);
    m_child->setBounds(QRect(7, 8, 6, 6));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(expected));
    QCOMPARE(m_child->getBounds(), expected);
}

void tst_XYLayoutMoves::moveOfLocatedChildIsUndone()
{
    ProbeLocator locator(QRect(7, 8, 9, 10), this);
    m_container->add(m_child.get(), QVariant::fromValue(&locator));
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    locator.calls = 0;
    m_layout->childMoved(m_child.get());
    QCOMPARE(locator.calls, 1);
    QCOMPARE(locator.lastTarget.data(), m_child.get());
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).value<Figure *>(), m_child.get());
    m_child->setBounds(QRect(90, 90, 9, 9));
    QCOMPARE(m_child->getBounds(), QRect(7, 8, 9, 10));
}

void tst_XYLayoutMoves::moveOfChildWithoutConstraintIsIgnored()
{
    m_container->add(m_child.get());
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_child->setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant());
    QCOMPARE(changes.size(), 0);
}

void tst_XYLayoutMoves::moveOfChildWithOtherConstraintIsIgnored()
{
    QObject plain;
    plain.setParent(this);
    HintedFigure second;
    m_container->add(m_child.get(), QStringLiteral("west"));
    m_container->add(&second, QVariant::fromValue(&plain));
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_child->setBounds(QRect(15, 16, 17, 18));
    second.setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QStringLiteral("west")));
    QCOMPARE(changes.size(), 0);
    plain.setParent(nullptr);
}

void tst_XYLayoutMoves::moveIsIgnoredForNull()
{
    m_container->validate();
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    m_layout->childMoved(nullptr);
    QCOMPARE(changes.size(), 0);
}

void tst_XYLayoutMoves::moveGoesThroughSetConstraint()
{
    Figure container;
    CountingXYLayout layout;
    container.setLayoutManager(&layout);
    container.add(m_child.get(), QRect(5, 6, 7, 8));
    layout.setLaidOut(true);
    layout.constraintCalls = 0;
    m_child->setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(layout.constraintCalls, 1);
}

void tst_XYLayoutMoves::restlessLocatorComesToAnEnd()
{
    ProbeLocator locator(QRect(0, 0, 9, 10), this);
    m_container->add(m_child.get(), QVariant::fromValue(&locator));
    m_container->validate();
    locator.step = QPoint(1, 0);
    locator.calls = 0;
    m_child->setBounds(QRect(900, 90, 9, 9));
    QCOMPARE(locator.calls, 64);
    locator.step = QPoint();
    locator.calls = 0;
    m_layout->childMoved(m_child.get());
    QVERIFY2(locator.calls > 0, "moves are still followed after the end of a restless one");
}

void tst_XYLayoutMoves::childDeletedByItsMoveIsNotAnnounced()
{
    Figure container;
    InterruptedXYLayout layout;
    container.setLayoutManager(&layout);
    container.add(m_child.get(), QRect(5, 6, 17, 18));
    layout.setLaidOut(true);
    QSignalSpy changes(&layout, &XYLayout::constraintChanged);
    layout.interruption = [this] { m_child.reset(); };
    m_child->setBounds(QRect(50, 60, 3, 4));
    QCOMPARE(changes.size(), 0);
    QCOMPARE(container.childFigureCount(), 0);
}

void tst_XYLayoutMoves::layoutDeletedByAMoveAnnouncesNothing()
{
    Figure container;
    auto layout = std::make_unique<InterruptedXYLayout>();
    container.setLayoutManager(layout.get());
    container.add(m_child.get(), QRect(5, 6, 17, 18));
    layout->setLaidOut(true);
    int announcements = 0;
    connect(layout.get(), &XYLayout::constraintChanged, this, [&] { ++announcements; });
    layout->interruption = [&] { layout.reset(); };
    m_child->setBounds(QRect(50, 60, 3, 4));
    QCOMPARE(container.getLayoutManager(), nullptr);
    QCOMPARE(announcements, 0);
}

void tst_XYLayoutMoves::childIsWatchedOnceByEitherAdd()
{
    HintedFigure second;
    QVERIFY(m_layout->add(m_child.get(), QVariant(), -1));
    QVERIFY(m_layout->add(&second, 1U, 2U, -1));
    QCOMPARE(m_child->moveReceivers(), 1);
    QCOMPARE(second.moveReceivers(), 1);
}

void tst_XYLayoutMoves::refusedDuplicateIsNotWatchedTwice()
{
    m_layout->add(m_child.get(), QVariant(), -1);
    QVERIFY(!m_layout->add(m_child.get(), QVariant(), -1));
    QVERIFY(!m_layout->add(m_child.get(), 1U, 2U, -1));
    QCOMPARE(m_child->moveReceivers(), 1);
}

void tst_XYLayoutMoves::removedChildIsNotWatched()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    m_container->validate();
    QVERIFY(m_container->remove(m_child.get()));
    QCOMPARE(m_child->moveReceivers(), 0);
}

void tst_XYLayoutMoves::watchingCanBeEndedBySignature()
{
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    m_container->validate();
    QVERIFY(disconnect(m_child.get(), "2figureMoved(Figure *)", m_layout, "1childMoved(Figure *)"));
    QVERIFY(!disconnect(m_child.get(), "2figureMoved(Figure *)", m_layout, "1childMoved(Figure *)"));
    m_child->setBounds(QRect(15, 16, 17, 18));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant(QRect(5, 6, 7, 8)));
}

void tst_XYLayoutMoves::childTakenAwayWhileAddedIsNotWatched()
{
    connect(m_child.get(), &Figure::figureMoved, this, [this] { m_layout->remove(m_child.get()); });
    m_container->add(m_child.get(), QRect(5, 6, 7, 8));
    QCOMPARE(m_container->childFigureCount(), 0);
    QCOMPARE(m_child->moveReceivers(), 1);
}

// Each figure of the chain pushes the next one from within its own move.
void tst_XYLayoutMoves::longChainOfMovesIsFollowedToItsEnd()
{
    std::vector<std::unique_ptr<Figure>> chain;
    for (int number = 0; number < 200; ++number) {
        chain.push_back(std::make_unique<Figure>());
        m_container->add(chain.back().get(), QRect(number, 0, 10, 10));
    }
    for (size_t number = 0; number + 1 < chain.size(); ++number) {
        Figure *next = chain[number + 1].get();
        connect(chain[number].get(), &Figure::figureMoved, this,
                [next] { next->setBounds(QRect(next->getBounds().x(), 50, 10, 10)); });
    }
    m_layout->setLaidOut(true);
    QSignalSpy changes(m_layout, &XYLayout::constraintChanged);
    chain[0]->setBounds(QRect(0, 50, 10, 10));
    for (int number = 0; number < 200; ++number)
        QCOMPARE(m_layout->getConstraint(chain[size_t(number)].get()), QVariant(QRect(number, 50, 10, 10)));
    QCOMPARE(changes.size(), 200);
}

void tst_XYLayoutMoves::metaObjectNamesTheMovedFigure()
{
    const QMetaObject &meta = XYLayout::staticMetaObject;
    const QMetaMethod changed = meta.method(meta.indexOfSignal("constraintChanged(Figure*)"));
    QCOMPARE(changed.parameterNames(), QList<QByteArray>({"pFigure"}));
    const QMetaMethod moved = meta.method(meta.indexOfSlot("childMoved(Figure*)"));
    QCOMPARE(moved.parameterNames(), QList<QByteArray>({"pFigure"}));
    QCOMPARE(moved.access(), QMetaMethod::Public);
}

void tst_XYLayoutMoves::layoutForAnotherContainerWatchesOnce()
{
    OpenXYLayout layout;
    auto container = std::make_unique<Figure>();
    container->setLayoutManager(&layout);
    container->add(m_child.get(), QRect(5, 6, 7, 8));
    container.reset();
    QCOMPARE(m_child->moveReceivers(), 0);
    Figure next;
    next.setLayoutManager(&layout);
    next.add(m_child.get(), QRect(5, 6, 7, 8));
    QCOMPARE(m_child->moveReceivers(), 1);
}

void tst_XYLayoutMoves::addHasDefaultArguments()
{
    Figure second;
    QVERIFY(m_layout->add(m_child.get()));
    QVERIFY(static_cast<Layout *>(m_layout)->add(&second));
    QCOMPARE(m_layout->childFigures(), QList<Figure *>({m_child.get(), &second}));
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant());
}

PICTEL_TEST_MAIN(tst_XYLayoutMoves)
#include "tst_xylayoutmoves.moc"
