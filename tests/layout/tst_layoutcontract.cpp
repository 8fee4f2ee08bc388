#include "layout/LayoutContractTest.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layout/StackLayout.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

/// What every layout promises, whatever it does with its children. Each test runs once for each layout.
class tst_LayoutContract : public LayoutContractTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addLayouts(); }
    void init()
    {
        PictelTest::init();
        setUp();
    }
    void cleanup() { tearDown(); }

    void addedChildIsListedBelowItsContainer();
    void childrenStandInTheOrderOfTheirIndices();
    void duplicateIsRefusedAndStaysInPlace();
    void nullIsRefused();
    void withoutContainerNothingIsAdded();
    void containerAndItsAncestorsAreRefused();
    void stretchAddTakesBoundsAsConstraint();
    void stretchAddWithoutBoundsHasNoConstraint();

    void removedChildIsFreeAndAlive();
    void removedChildCanBeAddedAgain();
    void removingAStrangerFails();
    void childrenRemovedInAnyOrderLeaveTheOthersInOrder();

    void constraintIsKeptPerChild();
    void constraintOfAStrangerIsRefused();
    void equalConstraintIsRefused();
    void locatorIsAppliedEachTimeItIsSet();
    void orphanedLocatorIsReleasedWhenReplaced();
    void ownedLocatorIsLeftAlone();

    void layoutOfNullFails();
    void layoutHappensOnceUntilInvalidated();
    void emptyContainerIsLaidOut();

    void replacedLayoutKeepsItsChildren();

    void manyChildrenAreAddedAndRemoved();
};

void tst_LayoutContract::addedChildIsListedBelowItsContainer()
{
    Figure child;
    QVERIFY(m_layout->add(&child, QVariant(), -1));
    QCOMPARE(m_layout->childFigures(), Figures({&child}));
    QCOMPARE(m_layout->childFigureCount(), 1);
    QCOMPARE(child.getParentFigure(), m_container.get());
    QCOMPARE(child.parent(), nullptr);
    QCOMPARE(brokenInvariant(m_container.get()), QString());
}

void tst_LayoutContract::childrenStandInTheOrderOfTheirIndices()
{
    Figure figures[6];
    m_layout->add(&figures[0], QVariant(), -1);
    m_layout->add(&figures[1], QVariant(), 1);
    m_layout->add(&figures[2], QVariant(), 0);
    m_layout->add(&figures[3], QVariant(), 99);
    m_layout->add(&figures[4], 0U, 0U, 2);
    m_layout->add(&figures[5], 0U, 0U, -7);
    const Figures expected {&figures[2], &figures[0], &figures[4], &figures[1], &figures[3], &figures[5]};
    QCOMPARE(children(), expected);
}

void tst_LayoutContract::duplicateIsRefusedAndStaysInPlace()
{
    Figure first;
    Figure second;
    m_layout->add(&first, QVariant(), -1);
    m_layout->add(&second, QVariant(), -1);
    QVERIFY(!m_layout->add(&first, QVariant(), -1));
    QVERIFY(!m_layout->add(&first, 1U, 2U, -1));
    QCOMPARE(children(), Figures({&first, &second}));
}

void tst_LayoutContract::nullIsRefused()
{
    QVERIFY(!m_layout->add(nullptr, QVariant(), -1));
    QVERIFY(!m_layout->add(nullptr, QRect(1, 2, 3, 4), 0));
    QVERIFY(!m_layout->add(nullptr, 1U, 2U, -1));
    QVERIFY(!m_layout->remove(nullptr));
    QVERIFY(!m_layout->setConstraint(nullptr, QRect(1, 2, 3, 4)));
    QVERIFY(!m_layout->setConstraint(nullptr, QSize(3, 4)));
    QCOMPARE(m_layout->getConstraint(nullptr), QVariant());
    QCOMPARE(m_layout->childFigureCount(), 0);
}

void tst_LayoutContract::withoutContainerNothingIsAdded()
{
    Figure child;
    m_layout->setFigure(nullptr);
    QVERIFY(!m_layout->add(&child, QVariant(), -1));
    QVERIFY(!m_layout->add(&child, 1U, 2U, -1));
    QCOMPARE(m_layout->childFigureCount(), 0);
    QCOMPARE(child.getParentFigure(), nullptr);
    m_layout->setFigure(m_container.get());
}

void tst_LayoutContract::containerAndItsAncestorsAreRefused()
{
    Figure root;
    XYLayout rootLayout;
    root.setLayoutManager(&rootLayout);
    root.add(m_container.get());
    QVERIFY(!m_layout->add(m_container.get(), QVariant(), -1));
    QVERIFY(!m_layout->add(&root, QVariant(), -1));
    QVERIFY(!m_layout->add(&root, 1U, 2U, -1));
    QCOMPARE(m_layout->childFigureCount(), 0);
}

void tst_LayoutContract::stretchAddTakesBoundsAsConstraint()
{
    Figure child;
    child.setBounds(QRect(5, 6, 7, 8));
    QVERIFY(m_layout->add(&child, 3U, 4U, -1));
    QCOMPARE(m_layout->getConstraint(&child), QVariant(QRect(5, 6, 7, 8)));
    QCOMPARE(child.getBounds(), QRect(5, 6, 7, 8));
}

void tst_LayoutContract::stretchAddWithoutBoundsHasNoConstraint()
{
    Figure child;
    QVERIFY(m_layout->add(&child, 3U, 4U, -1));
    QCOMPARE(m_layout->getConstraint(&child), QVariant());
}

void tst_LayoutContract::removedChildIsFreeAndAlive()
{
    FreeformProbe *child = addChild();
    FreeformProbe *other = addChild();
    QVERIFY(m_layout->remove(child));
    QCOMPARE(child->getParentFigure(), nullptr);
    QCOMPARE(children(), Figures({other}));
    QCOMPARE(m_layout->getConstraint(child), QVariant());
    child->setBounds(QRect(1, 2, 3, 4));
    QCOMPARE(m_layout->getConstraint(child), QVariant());
    QCOMPARE(brokenInvariant(m_container.get()), QString());
}

void tst_LayoutContract::removedChildCanBeAddedAgain()
{
    FreeformProbe *child = addChild();
    addChild();
    m_layout->remove(child);
    QVERIFY(m_layout->add(child, place(), 0));
    QCOMPARE(children().constFirst(), child);
    QCOMPARE(child->getParentFigure(), m_container.get());
}

void tst_LayoutContract::removingAStrangerFails()
{
    Figure stranger;
    addChild();
    QVERIFY(!m_layout->remove(&stranger));
    QVERIFY(!m_layout->remove(m_container.get()));
    QCOMPARE(m_layout->childFigureCount(), 1);
}

void tst_LayoutContract::childrenRemovedInAnyOrderLeaveTheOthersInOrder()
{
    QRandomGenerator random(5);
    Figures expected;
    for (int step = 0; step < 600; ++step) {
        if (expected.isEmpty() || random.bounded(3) > 0) {
            const int index = random.bounded(int(expected.size()) + 1);
            FreeformProbe *child = addChild();
            m_layout->remove(child);
            m_layout->add(child, place(), index);
            expected.insert(index, child);
        } else {
            m_layout->remove(expected.takeAt(random.bounded(int(expected.size()))));
        }
        QCOMPARE(children(), expected);
    }
}

void tst_LayoutContract::constraintIsKeptPerChild()
{
    Figure first;
    Figure second;
    m_layout->add(&first, QStringLiteral("north"), -1);
    m_layout->add(&second, QStringLiteral("south"), -1);
    QCOMPARE(m_layout->getConstraint(&first), QVariant(QStringLiteral("north")));
    QCOMPARE(m_layout->getConstraint(&second), QVariant(QStringLiteral("south")));
    QVERIFY(m_layout->setConstraint(&first, 7));
    QCOMPARE(m_layout->getConstraint(&first), QVariant(7));
    QCOMPARE(m_layout->getConstraint(&second), QVariant(QStringLiteral("south")));
}

void tst_LayoutContract::constraintOfAStrangerIsRefused()
{
    Figure stranger;
    QVERIFY(!m_layout->setConstraint(&stranger, QRect(1, 2, 3, 4)));
    QVERIFY(!m_layout->setConstraint(&stranger, QSize(3, 4)));
    QCOMPARE(m_layout->getConstraint(&stranger), QVariant());
    QCOMPARE(stranger.getBounds(), QRect());
}

void tst_LayoutContract::equalConstraintIsRefused()
{
    Figure child;
    m_layout->add(&child, QStringLiteral("north"), -1);
    QVERIFY(!m_layout->setConstraint(&child, QStringLiteral("north")));
    QVERIFY(m_layout->setConstraint(&child, QStringLiteral("south")));
}

void tst_LayoutContract::locatorIsAppliedEachTimeItIsSet()
{
    ProbeLocator locator(QRect(1, 2, 3, 4), this);
    Figure child;
    m_layout->add(&child, QVariant::fromValue(&locator), -1);
    QCOMPARE(locator.calls, 1);
    QVERIFY(m_layout->setConstraint(&child, QVariant::fromValue(&locator)));
    QCOMPARE(locator.calls, 2);
    QCOMPARE(locator.lastTarget.data(), &child);
    QCOMPARE(child.getBounds(), QRect(1, 2, 3, 4));
}

void tst_LayoutContract::orphanedLocatorIsReleasedWhenReplaced()
{
    const QPointer<ProbeLocator> replaced(new ProbeLocator(QRect(1, 2, 3, 4)));
    const QPointer<ProbeLocator> dropped(new ProbeLocator(QRect(1, 2, 3, 4)));
    const QPointer<ProbeLocator> left(new ProbeLocator(QRect(1, 2, 3, 4)));
    Figure child;
    Figure second;
    m_layout->add(&child, QVariant::fromValue(replaced.data()), -1);
    m_layout->setConstraint(&child, QVariant::fromValue(dropped.data()));
    m_layout->add(&second, QVariant::fromValue(left.data()), -1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(replaced.isNull());
    QVERIFY(!dropped.isNull());
    m_layout->remove(&child);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(dropped.isNull());
    QVERIFY(!left.isNull());
    delete m_layout;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(left.isNull());
}

void tst_LayoutContract::ownedLocatorIsLeftAlone()
{
    ProbeLocator owned(QRect(1, 2, 3, 4), this);
    const QPointer<ProbeLocator> guard(&owned);
    Figure child;
    m_layout->add(&child, QVariant::fromValue(&owned), -1);
    m_layout->remove(&child);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(guard.data(), &owned);
}

void tst_LayoutContract::layoutOfNullFails()
{
    QVERIFY(!m_layout->layout(nullptr));
}

void tst_LayoutContract::layoutHappensOnceUntilInvalidated()
{
    FreeformProbe *child = addChild();
    displace({child});
    QVERIFY(m_layout->layout(m_container.get()));
    const QRect placed = child->getBounds();
    QVERIFY(placed != QRect(900, 900, 5, 5));
    if (!qobject_cast<XYLayout *>(m_layout)) {
        child->setBounds(QRect(900, 900, 5, 5));
        QVERIFY(m_layout->layout(m_container.get()));
        QCOMPARE(child->getBounds(), QRect(900, 900, 5, 5));
    }
    displace({child});
    QVERIFY(m_layout->layout(m_container.get()));
    QCOMPARE(child->getBounds(), placed);
}

void tst_LayoutContract::emptyContainerIsLaidOut()
{
    m_layout->invalidate();
    QVERIFY(m_layout->layout(m_container.get()));
}

void tst_LayoutContract::replacedLayoutKeepsItsChildren()
{
    FreeformProbe *child = addChild();
    StackLayout other;
    QCOMPARE(m_container->setLayoutManager(&other), m_layout.data());
    QCOMPARE(m_layout->getFigure(), nullptr);
    QCOMPARE(m_layout->childFigures(), Figures({child}));
    QCOMPARE(m_container->childFigures(), Figures());
    m_container->setLayoutManager(m_layout);
    QCOMPARE(m_container->childFigures(), Figures({child}));
}

void tst_LayoutContract::manyChildrenAreAddedAndRemoved()
{
    constexpr size_t count = 100000;
    std::vector<std::unique_ptr<Figure>> figures;
    for (size_t number = 0; number < count; ++number) {
        figures.push_back(std::make_unique<Figure>());
        QVERIFY(m_container->add(figures.back().get(), QRect(int(number), 0, 10, 10)));
    }
    QCOMPARE(m_container->childFigureCount(), int(count));
    QRandomGenerator random(11);
    std::shuffle(figures.begin(), figures.end(), random);
    for (size_t number = 0; number < count / 2; ++number)
        QVERIFY(m_container->remove(figures[number].get()));
    QCOMPARE(m_container->childFigureCount(), int(count / 2));
    figures.clear();
    QCOMPARE(m_container->childFigureCount(), 0);
    QCOMPARE(m_container->childFigures(), Figures());
}

PICTEL_TEST_MAIN(tst_LayoutContract)
#include "tst_layoutcontract.moc"
