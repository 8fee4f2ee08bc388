#include "support/FreeformProbe.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layout/DelegatingLayout.h>
#include <vtlpictel/layout/FreeformLayout.h>
#include <vtlpictel/layout/FreeformStackLayout.h>
#include <vtlpictel/layout/HBoxLayout.h>
#include <vtlpictel/layout/StackLayout.h>
#include <vtlpictel/layout/VBoxLayout.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

using Figures = QList<Figure *>;

template <typename LayoutClass>
Layout *make(QObject *parent)
{
    return new LayoutClass(parent);
}

template <bool contentMonitored>
Layout *makeFreeform(QObject *parent)
{
    return new FreeformLayout(parent, contentMonitored);
}

using LayoutMaker = Layout *(*)(QObject *parent);

enum class Part { Container, Layout, First, Second, Locator };

} // namespace

Q_DECLARE_METATYPE(LayoutMaker)

/// What every layout promises, whatever it does with its children. Each test runs once for each layout.
class tst_LayoutContract : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void cleanup();

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

    void partsDieInAnyOrder_data();
    void partsDieInAnyOrder();
    void childDyingDuringLayoutIsSkipped();
    void containerDyingDuringLayoutIsSurvived();
    void layoutDyingDuringLayoutIsSurvived();
    void childDyingWhileAddedIsSurvived();
    void layoutDyingWhileAChildIsAddedIsSurvived();
    void layoutDyingWhileAChildIsRemovedIsSurvived();
    void childDyingWhileRemovedIsSurvived();
    void replacedLayoutKeepsItsChildren();

    void manyChildrenAreAddedAndRemoved();

private:
    FreeformProbe *addChild();
    QVariant placeOf(Figure *child);
    void displace(const Figures &figures);
    void destroy(Part part);
    Figures children() const { return m_container->childFigures(); }

    std::unique_ptr<Figure> m_container;
    QPointer<Layout> m_layout;
    std::vector<std::unique_ptr<FreeformProbe>> m_children;
    std::vector<std::unique_ptr<ProbeLocator>> m_locators;
};

void tst_LayoutContract::initTestCase_data()
{
    QTest::addColumn<LayoutMaker>("make");
    QTest::newRow("XYLayout") << LayoutMaker(make<XYLayout>);
    QTest::newRow("FreeformLayout") << LayoutMaker(makeFreeform<false>);
    QTest::newRow("FreeformLayout, monitored") << LayoutMaker(makeFreeform<true>);
    QTest::newRow("StackLayout") << LayoutMaker(make<StackLayout>);
    QTest::newRow("FreeformStackLayout") << LayoutMaker(make<FreeformStackLayout>);
    QTest::newRow("DelegatingLayout") << LayoutMaker(make<DelegatingLayout>);
    QTest::newRow("HBoxLayout") << LayoutMaker(make<HBoxLayout>);
    QTest::newRow("VBoxLayout") << LayoutMaker(make<VBoxLayout>);
}

void tst_LayoutContract::init()
{
    PictelTest::init();
    QFETCH_GLOBAL(LayoutMaker, make);
    m_container = std::make_unique<Figure>();
    m_layout = make(nullptr);
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(0, 0, 300, 200));
}

void tst_LayoutContract::cleanup()
{
    delete m_layout;
    m_container.reset();
    m_children.clear();
    m_locators.clear();
}

// A figure that every layout can place, with a size to be given where a layout asks for one.
FreeformProbe *tst_LayoutContract::addChild()
{
    m_children.push_back(std::make_unique<FreeformProbe>(QRect(0, 0, 10, 10)));
    FreeformProbe *child = m_children.back().get();
    child->setPreferredSize(QSize(10, 10));
    m_container->add(child, placeOf(child));
    return child;
}

// The constraint by which this layout places the child.
QVariant tst_LayoutContract::placeOf(Figure *)
{
    if (qobject_cast<XYLayout *>(m_layout))
        return QRect(20, 30, 10, 10);
    if (!qobject_cast<DelegatingLayout *>(m_layout))
        return QVariant();
    m_locators.push_back(std::make_unique<ProbeLocator>(QRect(20, 30, 10, 10), this));
    return QVariant::fromValue(m_locators.back().get());
}

// Moves the children to where the next layout cannot leave them.
void tst_LayoutContract::displace(const Figures &figures)
{
    m_layout->invalidate();
    if (auto *stack = qobject_cast<FreeformStackLayout *>(m_layout))
        stack->setFreeformBounds(QRect(1, 1, 40, 40));
    for (Figure *child : figures)
        child->setBounds(QRect(900, 900, 5, 5));
}

void tst_LayoutContract::destroy(Part part)
{
    switch (part) {
    case Part::Container:
        m_container.reset();
        break;
    case Part::Layout:
        delete m_layout;
        break;
    case Part::First:
    case Part::Second:
        m_children[part == Part::First ? 0 : 1].reset();
        break;
    case Part::Locator:
        m_locators.clear();
    }
}

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
    QVERIFY(m_layout->add(child, placeOf(child), 0));
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
            m_layout->add(child, placeOf(child), index);
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

void tst_LayoutContract::partsDieInAnyOrder_data()
{
    QTest::addColumn<QList<int>>("order");
    QList<int> order {0, 1, 2, 3, 4};
    do {
        QString name;
        for (const int part : order)
            name += QStringLiteral("CL12P").at(part);
        QTest::newRow(qPrintable(name)) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

void tst_LayoutContract::partsDieInAnyOrder()
{
    QFETCH(QList<int>, order);
    addChild();
    addChild();
    m_container->addNotify();
    m_container->validate();
    for (const int part : order) {
        destroy(Part(part));
        if (m_layout)
            QCOMPARE(m_layout->getFigure(), m_container.get());
        if (m_container && m_layout)
            m_container->invalidate();
        if (m_container)
            m_container->validate();
        if (m_container)
            QCOMPARE(brokenInvariant(m_container.get()), QString());
        for (const auto &child : m_children) {
            if (child)
                child->setBounds(child->getBounds().translated(1, 1));
        }
    }
}

void tst_LayoutContract::childDyingDuringLayoutIsSkipped()
{
    FreeformProbe *first = addChild();
    addChild();
    FreeformProbe *third = addChild();
    displace({first, third});
    connect(first, &Figure::figureMoved, this, [this] { m_children[1].reset(); });
    QVERIFY(m_layout->layout(m_container.get()));
    QCOMPARE(children(), Figures({first, third}));
    QVERIFY(third->getBounds() != QRect(900, 900, 5, 5));
}

void tst_LayoutContract::containerDyingDuringLayoutIsSurvived()
{
    FreeformProbe *first = addChild();
    FreeformProbe *second = addChild();
    displace({first, second});
    connect(first, &Figure::figureMoved, this, [this] { m_container.reset(); });
    QVERIFY(!m_layout->layout(m_container.get()));
    QCOMPARE(m_layout->getFigure(), nullptr);
    QCOMPARE(m_layout->childFigureCount(), 0);
    QCOMPARE(first->getParentFigure(), nullptr);
}

void tst_LayoutContract::layoutDyingDuringLayoutIsSurvived()
{
    FreeformProbe *first = addChild();
    FreeformProbe *second = addChild();
    displace({first, second});
    connect(first, &Figure::figureMoved, this, [this] { delete m_layout; });
    QVERIFY(!m_layout->layout(m_container.get()));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(second->getBounds(), QRect(900, 900, 5, 5));
}

void tst_LayoutContract::childDyingWhileAddedIsSurvived()
{
    auto child = std::make_unique<FreeformProbe>();
    connect(child.get(), &Figure::propertyChanged, this, [&] { child.reset(); });
    m_layout->add(child.get(), QVariant(), -1);
    QCOMPARE(m_layout->childFigureCount(), 0);
    child = std::make_unique<FreeformProbe>();
    connect(child.get(), &Figure::propertyChanged, this, [&] { child.reset(); });
    m_layout->add(child.get(), 1U, 1U, -1);
    QCOMPARE(m_layout->childFigureCount(), 0);
}

void tst_LayoutContract::layoutDyingWhileAChildIsAddedIsSurvived()
{
    FreeformProbe child;
    connect(&child, &Figure::propertyChanged, this, [this] { delete m_layout; });
    m_container->add(&child, QRect(1, 2, 3, 4));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(child.getBounds(), QRect());
}

void tst_LayoutContract::layoutDyingWhileAChildIsRemovedIsSurvived()
{
    FreeformProbe *child = addChild();
    connect(child, &Figure::propertyChanged, this, [this] { delete m_layout; });
    QVERIFY(m_container->remove(child));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(child->getParentFigure(), nullptr);
}

void tst_LayoutContract::childDyingWhileRemovedIsSurvived()
{
    FreeformProbe *child = addChild();
    FreeformProbe *other = addChild();
    connect(child, &Figure::propertyChanged, this, [this] { m_children[0].reset(); });
    QVERIFY(m_layout->remove(child));
    QCOMPARE(children(), Figures({other}));
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
