#include "support/CallLog.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/ProbeLocator.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSharedPointer>
#include <QTest>

#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// A container with one child, all logging.
struct Bench
{
    Bench()
        : layout("layout", &log)
        , container("container", &log)
        , child("child", &log)
        , listener("listener", log)
    {
        container.setLayoutManager(&layout);
        container.add(&child);
        layout.addListener(&listener);
        log.clear();
    }

    CallLog log;
    ProbeLayout layout;
    ProbeFigure container;
    ProbeFigure child;
    LayoutListenerProbe listener;
};

QVariant objectVariant(QObject *object)
{
    return QVariant::fromValue(object);
}

void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

const QString told = QStringLiteral("listener.setConstraint(container)");
const QString applied = QStringLiteral("layout.applyConstraint(child)");

} // namespace

class tst_LayoutConstraints : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void plainValueIsToldStoredAndApplied();
    void listenersAreToldBeforeItIsStored();
    void allListenersAreTold();
    void equalPlainValueChangesNothing();
    void invalidValueOnAFreshChildChangesNothing();
    void invalidValueTakesTheConstraintAway();
    void unknownChildIsRefused();
    void constraintOfUnknownChildIsInvalid();
    void constraintIsACopy();
    void setConstraintNeitherInvalidatesNorRevalidates();

    void locatorIsAppliedWhenSet();
    void sameObjectIsAppliedAgainButToldOnce();
    void locatorHeldAsItsOwnTypeIsTheSameObject();
    void objectThatIsNoLocatorIsStored();
    void applyConstraintAnswers();

    void replacedObjectWithoutParentIsReleased();
    void replacedObjectWithParentIsLeftAlone();
    void objectIsReleasedWhenItsChildIsRemoved();
    void objectIsReleasedWhenItsLayoutDies();
    void objectIsReleasedWhenItsChildDies();
    void objectWithParentSurvivesRemovalAndLayout();
    void releaseIsDeferred();
    void deletedObjectLeavesAnInvalidConstraint();
    void plainValueReplacesAnObject();
    void guardedPointerCountsAsItsObject();
    void sharedPointerKeepsItsObject();
    void objectSharedByManyChildrenIsLetGoQuickly();
    void deletedObjectOfManyChildrenLeavesNone();
};

void tst_LayoutConstraints::plainValueIsToldStoredAndApplied()
{
    Bench bench;
    QVERIFY(bench.layout.setConstraint(&bench.child, QVariant(QRect(1, 2, 3, 4))));
    QCOMPARE(bench.layout.getConstraint(&bench.child), QVariant(QRect(1, 2, 3, 4)));
    QCOMPARE(bench.log.calls(), QStringList({"layout.setConstraint(child)", told, applied}));
    bench.log.clear();
    QVERIFY(bench.layout.setConstraint(&bench.child, QVariant(5)));
    QCOMPARE(bench.layout.getConstraint(&bench.child), QVariant(5));
    QCOMPARE(bench.log.calls(), QStringList({"layout.setConstraint(child)", told, applied}));
}

void tst_LayoutConstraints::listenersAreToldBeforeItIsStored()
{
    class Witness : public LayoutListenerProbe
    {
    public:
        Witness(Bench &bench)
            : LayoutListenerProbe("witness", bench.log)
            , m_bench(bench)
        { }
        void setConstraint(Figure *, const QVariant &constraint) override
        {
            before = m_bench.layout.getConstraint(&m_bench.child);
            announced = constraint;
        }
        QVariant before;
        QVariant announced;

    private:
        Bench &m_bench;
    };
    Bench bench;
    bench.layout.setConstraint(&bench.child, QVariant(1));
    Witness witness(bench);
    bench.layout.addListener(&witness);
    bench.layout.setConstraint(&bench.child, QVariant(2));
    QCOMPARE(witness.before, QVariant(1));
    QCOMPARE(witness.announced, QVariant(2));
}

void tst_LayoutConstraints::allListenersAreTold()
{
    Bench bench;
    LayoutListenerProbe second("second", bench.log);
    bench.layout.addListener(&second);
    bench.layout.setConstraint(&bench.child, QVariant(1));
    QCOMPARE(bench.log.calls(),
             QStringList({"layout.setConstraint(child)", told, "second.setConstraint(container)", applied}));
}

void tst_LayoutConstraints::equalPlainValueChangesNothing()
{
    Bench bench;
    bench.layout.setConstraint(&bench.child, QVariant(QSize(1, 2)));
    bench.log.clear();
    QVERIFY(!bench.layout.setConstraint(&bench.child, QVariant(QSize(1, 2))));
    QCOMPARE(bench.log.calls(), QStringList({"layout.setConstraint(child)"}));
}

void tst_LayoutConstraints::invalidValueOnAFreshChildChangesNothing()
{
    Bench bench;
    QVERIFY(!bench.layout.setConstraint(&bench.child, QVariant()));
    QCOMPARE(bench.log.calls(), QStringList({"layout.setConstraint(child)"}));
}

void tst_LayoutConstraints::invalidValueTakesTheConstraintAway()
{
    Bench bench;
    bench.layout.setConstraint(&bench.child, QVariant(1));
    bench.log.clear();
    QVERIFY(bench.layout.setConstraint(&bench.child, QVariant()));
    QVERIFY(!bench.layout.getConstraint(&bench.child).isValid());
    QCOMPARE(bench.log.calls(), QStringList({"layout.setConstraint(child)", told, applied}));
}

void tst_LayoutConstraints::unknownChildIsRefused()
{
    Bench bench;
    Figure stranger;
    QVERIFY(!bench.layout.setConstraint(nullptr, QVariant(1)));
    QVERIFY(!bench.layout.setConstraint(&stranger, QVariant(1)));
    QCOMPARE(bench.log.only({"applyConstraint"}), QStringList());
    QVERIFY(!bench.log.calls().contains(told));
}

void tst_LayoutConstraints::constraintOfUnknownChildIsInvalid()
{
    Bench bench;
    Figure stranger;
    QVERIFY(!bench.layout.getConstraint(nullptr).isValid());
    QVERIFY(!bench.layout.getConstraint(&stranger).isValid());
}

void tst_LayoutConstraints::constraintIsACopy()
{
    Bench bench;
    bench.layout.setConstraint(&bench.child, QVariant(1));
    QVariant copy = bench.layout.getConstraint(&bench.child);
    copy = 2;
    QCOMPARE(bench.layout.getConstraint(&bench.child), QVariant(1));
}

void tst_LayoutConstraints::setConstraintNeitherInvalidatesNorRevalidates()
{
    Bench bench;
    bench.layout.setLaidOut(true);
    bench.container.setValid(true);
    bench.layout.setConstraint(&bench.child, QVariant(1));
    QVERIFY(bench.layout.isLaidOut());
    QVERIFY(bench.container.isValid());
    QCOMPARE(bench.log.only({"invalidate", "revalidate", "repaint"}), QStringList());
}

void tst_LayoutConstraints::locatorIsAppliedWhenSet()
{
    Bench bench;
    ProbeLocator locator;
    locator.setParent(this);
    QVERIFY(bench.layout.setConstraint(&bench.child, objectVariant(&locator)));
    QCOMPARE(locator.calls, 1);
    QCOMPARE(locator.lastTarget, &bench.child);
    QCOMPARE(bench.layout.getConstraint(&bench.child).value<QObject *>(), &locator);
}

void tst_LayoutConstraints::sameObjectIsAppliedAgainButToldOnce()
{
    Bench bench;
    ProbeLocator locator;
    locator.setParent(this);
    QVERIFY(bench.layout.setConstraint(&bench.child, objectVariant(&locator)));
    QVERIFY(bench.layout.setConstraint(&bench.child, objectVariant(&locator)));
    QCOMPARE(bench.log.calls().count(told), 1);
    QCOMPARE(bench.log.calls().count(applied), 2);
    QCOMPARE(locator.calls, 2);
}

void tst_LayoutConstraints::locatorHeldAsItsOwnTypeIsTheSameObject()
{
    Bench bench;
    ProbeLocator locator;
    locator.setParent(this);
    QVERIFY(bench.layout.setConstraint(&bench.child, QVariant::fromValue(&locator)));
    QVERIFY(bench.layout.setConstraint(&bench.child, objectVariant(&locator)));
    QCOMPARE(bench.log.calls().count(told), 1);
    QCOMPARE(locator.calls, 2);
}

void tst_LayoutConstraints::objectThatIsNoLocatorIsStored()
{
    Bench bench;
    QObject object;
    object.setParent(this);
    QVERIFY(bench.layout.setConstraint(&bench.child, objectVariant(&object)));
    QCOMPARE(bench.layout.getConstraint(&bench.child).value<QObject *>(), &object);
}

void tst_LayoutConstraints::applyConstraintAnswers()
{
    Bench bench;
    ProbeLocator locator;
    QObject object;
    QVERIFY(!bench.layout.applyConstraint(nullptr, objectVariant(&locator)));
    QVERIFY(!bench.layout.applyConstraint(&bench.child, QVariant()));
    QVERIFY(bench.layout.applyConstraint(&bench.child, QVariant(1)));
    QVERIFY(bench.layout.applyConstraint(&bench.child, objectVariant(nullptr)));
    QVERIFY(bench.layout.applyConstraint(&bench.child, objectVariant(&object)));
    QCOMPARE(locator.calls, 0);
    QVERIFY(bench.layout.applyConstraint(&bench.child, objectVariant(&locator)));
    QCOMPARE(locator.calls, 1);
    QCOMPARE(locator.lastTarget, &bench.child);
}

void tst_LayoutConstraints::replacedObjectWithoutParentIsReleased()
{
    Bench bench;
    const QPointer<QObject> first = new ProbeLocator;
    const QPointer<QObject> second = new ProbeLocator;
    bench.layout.setConstraint(&bench.child, objectVariant(first));
    bench.layout.setConstraint(&bench.child, objectVariant(second));
    deleteDeferred();
    QVERIFY(first.isNull());
    QVERIFY(!second.isNull());
    bench.layout.setConstraint(&bench.child, objectVariant(second));
    deleteDeferred();
    QVERIFY(!second.isNull());
    bench.layout.setConstraint(&bench.child, QVariant());
    deleteDeferred();
    QVERIFY(second.isNull());
}

void tst_LayoutConstraints::replacedObjectWithParentIsLeftAlone()
{
    Bench bench;
    QObject parent;
    const QPointer<QObject> locator = new ProbeLocator(QRect(), &parent);
    bench.layout.setConstraint(&bench.child, objectVariant(locator));
    bench.layout.setConstraint(&bench.child, QVariant(1));
    deleteDeferred();
    QVERIFY(!locator.isNull());
}

void tst_LayoutConstraints::objectIsReleasedWhenItsChildIsRemoved()
{
    Bench bench;
    const QPointer<QObject> locator = new ProbeLocator;
    bench.layout.setConstraint(&bench.child, objectVariant(locator));
    bench.layout.remove(&bench.child);
    deleteDeferred();
    QVERIFY(locator.isNull());
}

void tst_LayoutConstraints::objectIsReleasedWhenItsLayoutDies()
{
    Figure container;
    Figure child;
    const QPointer<QObject> locator = new ProbeLocator;
    {
        ProbeLayout layout;
        container.setLayoutManager(&layout);
        container.add(&child, objectVariant(locator));
    }
    deleteDeferred();
    QVERIFY(locator.isNull());
}

void tst_LayoutConstraints::objectIsReleasedWhenItsChildDies()
{
    Bench bench;
    const QPointer<QObject> locator = new ProbeLocator;
    {
        Figure mortal;
        bench.container.add(&mortal, objectVariant(locator));
    }
    deleteDeferred();
    QVERIFY(locator.isNull());
}

void tst_LayoutConstraints::objectWithParentSurvivesRemovalAndLayout()
{
    QObject parent;
    const QPointer<QObject> first = new ProbeLocator(QRect(), &parent);
    const QPointer<QObject> second = new ProbeLocator(QRect(), &parent);
    {
        Bench bench;
        Figure other;
        bench.layout.setConstraint(&bench.child, objectVariant(first));
        bench.container.add(&other, objectVariant(second));
        bench.layout.remove(&bench.child);
    }
    deleteDeferred();
    QVERIFY(!first.isNull());
    QVERIFY(!second.isNull());
}

void tst_LayoutConstraints::releaseIsDeferred()
{
    Bench bench;
    const QPointer<QObject> locator = new ProbeLocator;
    bench.layout.setConstraint(&bench.child, objectVariant(locator));
    bench.layout.setConstraint(&bench.child, QVariant(1));
    QVERIFY(!locator.isNull());
    deleteDeferred();
    QVERIFY(locator.isNull());
}

void tst_LayoutConstraints::deletedObjectLeavesAnInvalidConstraint()
{
    Bench bench;
    auto locator = std::make_unique<ProbeLocator>();
    Figure other;
    bench.layout.setConstraint(&bench.child, objectVariant(locator.get()));
    bench.container.add(&other, objectVariant(locator.get()));
    locator.reset();
    QVERIFY(!bench.layout.getConstraint(&bench.child).isValid());
    QVERIFY(!bench.layout.getConstraint(&other).isValid());
    QVERIFY(bench.layout.remove(&bench.child));
    QVERIFY(bench.layout.setConstraint(&other, QVariant(3)));
}

void tst_LayoutConstraints::plainValueReplacesAnObject()
{
    Bench bench;
    ProbeLocator locator;
    locator.setParent(this);
    bench.layout.setConstraint(&bench.child, objectVariant(&locator));
    bench.log.clear();
    QVERIFY(bench.layout.setConstraint(&bench.child, QVariant(1)));
    QCOMPARE(bench.layout.getConstraint(&bench.child), QVariant(1));
    QCOMPARE(bench.log.calls(), QStringList({"layout.setConstraint(child)", told, applied}));
    QCOMPARE(locator.calls, 1);
}

void tst_LayoutConstraints::guardedPointerCountsAsItsObject()
{
    Bench bench;
    auto *locator = new ProbeLocator(QRect(1, 2, 3, 4));
    const QPointer<ProbeLocator> guard(locator);
    QVERIFY(bench.layout.setConstraint(&bench.child, QVariant::fromValue(guard)));
    QCOMPARE(locator->calls, 1);
    QCOMPARE(bench.child.getBounds(), QRect(1, 2, 3, 4));
    bench.log.clear();
    QVERIFY(bench.layout.setConstraint(&bench.child, objectVariant(locator)));
    QCOMPARE(locator->calls, 2);
    QVERIFY(!bench.log.calls().contains(told));
    bench.layout.remove(&bench.child);
    deleteDeferred();
    QVERIFY(guard.isNull());
}

void tst_LayoutConstraints::sharedPointerKeepsItsObject()
{
    Bench bench;
    const QSharedPointer<ProbeLocator> locator(new ProbeLocator(QRect(1, 2, 3, 4)));
    bench.layout.setConstraint(&bench.child, QVariant::fromValue(locator));
    bench.layout.remove(&bench.child);
    deleteDeferred();
    QCOMPARE(locator->parent(), nullptr);
    QCOMPARE(locator->calls, 0);
}

// Slow enough to be noticed if each removal looked through the other children.
void tst_LayoutConstraints::objectSharedByManyChildrenIsLetGoQuickly()
{
    Figure container;
    ProbeLayout layout;
    container.setLayoutManager(&layout);
    ProbeLocator locator(QRect(), this);
    std::vector<std::unique_ptr<Figure>> figures;
    for (int number = 0; number < 100000; ++number) {
        figures.push_back(std::make_unique<Figure>());
        container.add(figures.back().get(), objectVariant(&locator));
    }
    QCOMPARE(locator.calls, 100000);
    for (const auto &figure : figures)
        QVERIFY(container.remove(figure.get()));
    QCOMPARE(container.childFigureCount(), 0);
}

void tst_LayoutConstraints::deletedObjectOfManyChildrenLeavesNone()
{
    Figure container;
    ProbeLayout layout;
    container.setLayoutManager(&layout);
    Figure figures[4];
    ProbeLocator other(QRect(), this);
    auto shared = std::make_unique<ProbeLocator>();
    container.add(&figures[0], objectVariant(&other));
    for (int number = 1; number < 4; ++number)
        container.add(&figures[number], objectVariant(shared.get()));
    container.remove(&figures[1]);
    QCOMPARE(layout.getConstraint(&figures[2]).value<QObject *>(), shared.get());
    shared.reset();
    QVERIFY(!layout.getConstraint(&figures[2]).isValid());
    QVERIFY(!layout.getConstraint(&figures[3]).isValid());
    QCOMPARE(layout.getConstraint(&figures[0]).value<QObject *>(), &other);
}

PICTEL_TEST_MAIN(tst_LayoutConstraints)
#include "tst_layoutconstraints.moc"
