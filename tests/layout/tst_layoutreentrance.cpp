#include "layout/LayoutContractTest.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/layout/ILayoutListener.h>
#include <vtlpictel/layout/XYLayout.h>

#include <QPointer>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

using namespace Vantrel::Pictel;

namespace {

using Action = std::function<void()>;

// Runs an action once.
void run(Action &action)
{
    if (const Action current = std::exchange(action, nullptr))
        current();
}

// A child that interferes with its parent from the calls it gets.
class InterferingFigure : public FreeformProbe
{
public:
    using FreeformProbe::FreeformProbe;

    Action onRevalidate;
    Action onAddNotify;
    Action onRemoveNotify;
    Action onErase;
    Action onMeasure;
    int addNotifications = 0;
    int removeNotifications = 0;

    void revalidate() override
    {
        // A listener may have deleted this figure.
        const QPointer<InterferingFigure> self(this);
        FreeformProbe::revalidate();
        if (self)
            run(onRevalidate);
    }
    void addNotify() override
    {
        ++addNotifications;
        FreeformProbe::addNotify();
        run(onAddNotify);
    }
    void removeNotify() override
    {
        ++removeNotifications;
        FreeformProbe::removeNotify();
        run(onRemoveNotify);
    }
    void erase() override
    {
        FreeformProbe::erase();
        run(onErase);
    }
    QSize getMinimumSize() override
    {
        const QSize size = FreeformProbe::getMinimumSize();
        run(onMeasure);
        return size;
    }
};

class InterferingListener : public ILayoutListener
{
public:
    Action onInvalidate;
    Action onRemove;
    int removals = 0;

    void invalidate(Figure *) override { run(onInvalidate); }
    bool layout(Figure *) override { return false; }
    void postLayout(Figure *) override { }
    void remove(Figure *) override
    {
        ++removals;
        run(onRemove);
    }
    void setConstraint(Figure *, const QVariant &) override { }
};

} // namespace

/// Children are added and removed while others, called by just that, remove or delete them. Each test runs once for
/// each layout, in a displayed container.
class tst_LayoutReentrance : public LayoutContractTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addLayouts(); }
    void init();
    void cleanup();

    void childTakenOutWhenParentedIsNotNotified();
    void childTakenOutWhenRevalidatedIsNotNotified();
    void childTakenOutWhenNotifiedIsNotRepainted();
    void childDeletedWhenRevalidatedIsLetGo();
    void childDeletedWhenNotifiedIsLetGo();
    void layoutDeletedWhenTheChildIsRevalidatedIsSurvived();
    void listenerMayDeleteTheChildThatIsAdded();
    void listenerMayDeleteTheLayoutThatIsAddedTo();
    void layoutDeletedWhenTheChildIsMeasuredIsSurvived();
    void childDeletedWhenMeasuredIsLetGo();
    void figureAtTheAddressOfADeletedChildIsAddedOnce();
    void constraintOfAChildAddedAgainMeanwhileIsReleased();

    void leavingChildCannotBeRemovedAgain_data();
    void leavingChildCannotBeRemovedAgain();
    void leavingChildCannotBeAddedAgain();
    void childDeletedWhileLeavingIsLetGo();
    void containerDeletedWhileAChildLeavesIsSurvived();
    void anotherChildMayBeRemovedMeanwhile();
    void removedChildCanBeRemovedOnceMoreLater();

    void layoutOfADeadContainerWatchesNoChild();

private:
    std::unique_ptr<InterferingFigure> m_child;
};

void tst_LayoutReentrance::init()
{
    PictelTest::init();
    setUp();
    m_container->addNotify();
    m_child = std::make_unique<InterferingFigure>(QRect(0, 0, 10, 10));
    m_child->setPreferredSize(QSize(10, 10));
}

void tst_LayoutReentrance::cleanup()
{
    m_child.reset();
    tearDown();
}

void tst_LayoutReentrance::childTakenOutWhenParentedIsNotNotified()
{
    connect(m_child.get(), &Figure::propertyChanged, this, [this] { m_container->remove(m_child.get()); });
    m_container->add(m_child.get(), place());
    QCOMPARE(m_child->addNotifications, 0);
    QCOMPARE(m_child->getParentFigure(), nullptr);
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::childTakenOutWhenRevalidatedIsNotNotified()
{
    m_child->onRevalidate = [this] { m_container->remove(m_child.get()); };
    m_container->add(m_child.get(), place());
    QCOMPARE(m_child->addNotifications, 0);
    QVERIFY(!m_child->getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::childTakenOutWhenNotifiedIsNotRepainted()
{
    m_child->onAddNotify = [this] { m_container->remove(m_child.get()); };
    QVERIFY(m_container->add(m_child.get(), place()));
    QCOMPARE(m_child->addNotifications, 1);
    QCOMPARE(m_child->removeNotifications, 1);
    QVERIFY(!m_child->getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::childDeletedWhenRevalidatedIsLetGo()
{
    m_child->onRevalidate = [this] { m_child.reset(); };
    QVERIFY(m_container->add(m_child.get(), place()));
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::childDeletedWhenNotifiedIsLetGo()
{
    m_child->onAddNotify = [this] { m_child.reset(); };
    QVERIFY(m_container->add(m_child.get(), place()));
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::layoutDeletedWhenTheChildIsRevalidatedIsSurvived()
{
    m_child->onRevalidate = [this] { delete m_layout; };
    m_container->add(m_child.get(), place());
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(m_child->addNotifications, 0);
}

void tst_LayoutReentrance::listenerMayDeleteTheChildThatIsAdded()
{
    InterferingListener listener;
    m_layout->addListener(&listener);
    listener.onInvalidate = [this] { m_child.reset(); };
    m_container->add(m_child.get(), place());
    QCOMPARE(m_child.get(), nullptr);
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::listenerMayDeleteTheLayoutThatIsAddedTo()
{
    InterferingListener listener;
    m_layout->addListener(&listener);
    listener.onInvalidate = [this] { delete m_layout; };
    m_container->add(m_child.get(), 1U, 1U, -1);
    QCOMPARE(m_container->getLayoutManager(), nullptr);
    QCOMPARE(m_child->addNotifications, 0);
}

void tst_LayoutReentrance::layoutDeletedWhenTheChildIsMeasuredIsSurvived()
{
    addChild();
    m_container->add(m_child.get(), place());
    m_child->onMeasure = [this] { delete m_layout; };
    const QVariant other = qobject_cast<XYLayout *>(m_layout) ? QVariant(QRect(1, 2, 3, 4)) : QVariant(QSize(3, 4));
    m_layout->setConstraint(m_child.get(), other);
    QCOMPARE(m_child->getMinimumSize(), QSize(0, 0));
    QCOMPARE(m_container->getLayoutManager(), nullptr);
}

void tst_LayoutReentrance::childDeletedWhenMeasuredIsLetGo()
{
    m_child->onMeasure = [this] { m_child.reset(); };
    const QVariant unsized = qobject_cast<XYLayout *>(m_layout) ? QVariant(QRect(1, 2, -1, 4)) : QVariant(QSize(3, 4));
    m_container->add(m_child.get(), unsized);
    if (m_child)
        m_child->getMinimumSize();
    QCOMPARE(m_child.get(), nullptr);
    QCOMPARE(children(), Figures());
}

void tst_LayoutReentrance::figureAtTheAddressOfADeletedChildIsAddedOnce()
{
    std::optional<InterferingFigure> place(std::in_place);
    InterferingListener listener;
    m_layout->addListener(&listener);
    listener.onInvalidate = [&] {
        place.emplace(QRect(0, 0, 10, 10));
        QVERIFY(m_container->add(&*place));
        QVERIFY(m_container->getFlag(Figure::FLAG_NOTIFIED));
    };
    QVERIFY(m_container->add(&*place));
    QCOMPARE(children(), Figures({&*place}));
    QCOMPARE(place->addNotifications, 1);
    QVERIFY(m_container->remove(&*place));
    QVERIFY(!disconnect(&*place, &Figure::figureMoved, m_layout, nullptr));
}

void tst_LayoutReentrance::constraintOfAChildAddedAgainMeanwhileIsReleased()
{
    m_container->removeNotify();
    QPointer<QObject> first = new QObject;
    QObject last(this);
    Action addAgain = [&] {
        m_container->remove(m_child.get());
        m_container->add(m_child.get(), QVariant::fromValue(first.data()));
    };
    connect(m_child.get(), &Figure::propertyChanged, this, [&] { run(addAgain); });
    m_container->add(m_child.get(), QVariant::fromValue(&last));
    QCOMPARE(children(), Figures({m_child.get()}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    QCOMPARE(m_layout->getConstraint(m_child.get()), QVariant::fromValue(&last));
}

void tst_LayoutReentrance::leavingChildCannotBeRemovedAgain_data()
{
    QTest::addColumn<QString>("moment");
    QTest::newRow("listener") << QStringLiteral("listener");
    QTest::newRow("removeNotify") << QStringLiteral("removeNotify");
    QTest::newRow("erase") << QStringLiteral("erase");
    QTest::newRow("parent") << QStringLiteral("parent");
}

void tst_LayoutReentrance::leavingChildCannotBeRemovedAgain()
{
    QFETCH(QString, moment);
    FreeformProbe *other = addChild();
    m_container->add(m_child.get(), place());
    InterferingListener listener;
    m_layout->addListener(&listener);
    int refusals = 0;
    const Action removeAgain = [&] { refusals += m_container->remove(m_child.get()) ? 100 : 1; };
    if (moment == QLatin1String("listener"))
        listener.onRemove = removeAgain;
    else if (moment == QLatin1String("removeNotify"))
        m_child->onRemoveNotify = removeAgain;
    else if (moment == QLatin1String("erase"))
        m_child->onErase = removeAgain;
    else
        connect(m_child.get(), &Figure::propertyChanged, this, removeAgain);
    QVERIFY(m_container->remove(m_child.get()));
    QCOMPARE(refusals, 1);
    QCOMPARE(listener.removals, 1);
    QCOMPARE(m_child->removeNotifications, 1);
    QCOMPARE(m_child->getParentFigure(), nullptr);
    QCOMPARE(children(), Figures({other}));
    QCOMPARE(brokenInvariant(m_container.get()), QString());
}

void tst_LayoutReentrance::leavingChildCannotBeAddedAgain()
{
    m_container->add(m_child.get(), place());
    bool added = true;
    m_child->onRemoveNotify = [&] { added = m_container->add(m_child.get(), place()); };
    QVERIFY(m_container->remove(m_child.get()));
    QVERIFY(!added);
    QCOMPARE(children(), Figures());
    QCOMPARE(m_child->getParentFigure(), nullptr);
}

void tst_LayoutReentrance::childDeletedWhileLeavingIsLetGo()
{
    FreeformProbe *other = addChild();
    m_container->add(m_child.get(), place());
    m_child->onRemoveNotify = [this] { m_child.reset(); };
    QVERIFY(m_container->remove(m_child.get()));
    QCOMPARE(children(), Figures({other}));
}

void tst_LayoutReentrance::containerDeletedWhileAChildLeavesIsSurvived()
{
    FreeformProbe *other = addChild();
    m_container->add(m_child.get(), place());
    m_child->onRemoveNotify = [this] { m_container.reset(); };
    QVERIFY(m_layout->remove(m_child.get()));
    QCOMPARE(m_layout->childFigureCount(), 0);
    QCOMPARE(m_child->getParentFigure(), nullptr);
    QCOMPARE(other->getParentFigure(), nullptr);
}

void tst_LayoutReentrance::anotherChildMayBeRemovedMeanwhile()
{
    FreeformProbe *first = addChild();
    FreeformProbe *second = addChild();
    m_container->add(m_child.get(), place());
    m_child->onRemoveNotify = [&] { QVERIFY(m_container->remove(first)); };
    QVERIFY(m_container->remove(m_child.get()));
    QCOMPARE(children(), Figures({second}));
    QCOMPARE(first->getParentFigure(), nullptr);
    QCOMPARE(m_child->getParentFigure(), nullptr);
}

void tst_LayoutReentrance::removedChildCanBeRemovedOnceMoreLater()
{
    for (int round = 0; round < 2; ++round) {
        QVERIFY(m_container->add(m_child.get(), place()));
        QVERIFY(m_container->remove(m_child.get()));
        QVERIFY(!m_container->remove(m_child.get()));
    }
    QCOMPARE(m_child->removeNotifications, 2);
}

void tst_LayoutReentrance::layoutOfADeadContainerWatchesNoChild()
{
    m_container->add(m_child.get(), QRect(1, 2, 3, 4));
    m_container.reset();
    QVERIFY(!disconnect(m_child.get(), &Figure::figureMoved, m_layout, nullptr));
    QCOMPARE(m_layout->childFigureCount(), 0);
}

PICTEL_TEST_MAIN(tst_LayoutReentrance)
#include "tst_layoutreentrance.moc"
