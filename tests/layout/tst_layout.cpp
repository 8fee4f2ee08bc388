#include "support/CallLog.h"
#include "support/DisplayedRoot.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// A container with a layout, and three figures that are not children yet. Everything logs.
struct Bench
{
    Bench()
        : layout("layout", &log)
        , container("container", &log)
        , first("first", &log)
        , second("second", &log)
        , third("third", &log)
    {
        container.setLayoutManager(&layout);
        container.setBounds(QRect(0, 0, 100, 100));
        log.clear();
    }

    QStringList order() const
    {
        QStringList names;
        for (const Figure *child : layout.childFigures())
            names << child->objectName();
        return names;
    }

    CallLog log;
    ProbeLayout layout;
    ProbeFigure container;
    ProbeFigure first;
    ProbeFigure second;
    ProbeFigure third;
};

/// A listener that runs some code when a child is removed.
class ActingListener : public LayoutListenerProbe
{
public:
    ActingListener(CallLog &log, std::function<void()> act)
        : LayoutListenerProbe("acting", log)
        , m_act(std::move(act))
    { }

    void remove(Figure *) override { m_act(); }

private:
    std::function<void()> m_act;
};

} // namespace

class tst_Layout : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newLayoutHasItsDefaults();
    void metaObjectDeclaresNothing();
    void settersArePlainStores();
    void expandingDirectionsKeepTwoBits();

    void addOrderOfCalls();
    void addToDisplayedTreeNotifies();
    void stretchedAddOrderOfCalls();
    void stretchedAddTakesBoundsAsConstraint_data();
    void stretchedAddTakesBoundsAsConstraint();
    void stretchFactorsAreVerticalThenHorizontal();
    void plainAddHasNoStretch();
    void addIndexPlacesTheChild_data();
    void addIndexPlacesTheChild();
    void addOfPresentChildDoesNotMoveIt();
    void addWithoutContainerIsRefused();
    void addOfNullContainerOrAncestorIsRefused();
    void childIsListedBeforeItLearnsItsParent();

    void removeOrderOfCalls();
    void removeFromDisplayedTreeNotifiesAndRevalidates();
    void removeOfStrangersIsRefused();
    void removedChildIsStillListedWhenItLosesItsParent();
    void removeTellsListenersFirst();
    void removeWithoutContainerStillTakesTheChildOut();
    void removedChildCanBeAddedAgain();

    void helpersExistForChildrenOnly();
    void totalStretchIgnoresHiddenChildren();

    void setFigureIsAPlainStore();
    void childrenOutliveTheLayout();
    void replacedLayoutKeepsItsChildren();
    void deletedChildLeavesTheLayout();
    void deletedContainerLeavesTheLayoutEmpty();
    void layoutDeletedByItsListener();
    void childDeletedByAListenerOfItsRemoval();

    void nullListenersAreRefused();
    void listenerIsAddedOnce();
    void removedListenerHearsNothing();

    void randomEditsKeepTheInvariants();
};

void tst_Layout::newLayoutHasItsDefaults()
{
    ProbeLayout layout;
    QCOMPARE(layout.getFigure(), nullptr);
    QCOMPARE(layout.getAligment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(layout.getSpacing(), 2);
    QCOMPARE(layout.expandingDirections(), Qt::Horizontal | Qt::Vertical);
    QVERIFY(!layout.isLaidOut());
    QCOMPARE(layout.childFigures(), QList<Figure *>());
    QCOMPARE(layout.childFigureCount(), 0);
    QVERIFY(layout.Layout::isRelativeLayout());
}

void tst_Layout::metaObjectDeclaresNothing()
{
    const QMetaObject &meta = Layout::staticMetaObject;
    QCOMPARE(meta.className(), "Vantrel::Pictel::Layout");
    QCOMPARE(meta.methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta.propertyCount(), QObject::staticMetaObject.propertyCount());
    QObject parent;
    const auto *layout = new ProbeLayout(QString(), nullptr, &parent);
    QCOMPARE(layout->parent(), &parent);
}

void tst_Layout::settersArePlainStores()
{
    Bench bench;
    bench.layout.getPreferredSize();
    bench.layout.getMinimumSize();
    bench.layout.setLaidOut(true);
    bench.log.clear();
    bench.layout.setSpacing(-7);
    bench.layout.setAlignment(Qt::AlignBottom);
    bench.layout.setExpandingDirections(Qt::Horizontal);
    QCOMPARE(bench.layout.getSpacing(), -7);
    QCOMPARE(bench.layout.getAligment(), Qt::Alignment(Qt::AlignBottom));
    QCOMPARE(bench.layout.expandingDirections(), Qt::Orientations(Qt::Horizontal));
    bench.layout.getPreferredSize();
    bench.layout.getMinimumSize();
    QVERIFY(bench.layout.isLaidOut());
    QCOMPARE(bench.log.calls(), QStringList());
}

void tst_Layout::expandingDirectionsKeepTwoBits()
{
    ProbeLayout layout;
    layout.setExpandingDirections(Qt::Orientations(0x7d));
    QCOMPARE(layout.expandingDirections().toInt(), 1);
    layout.setExpandingDirections(Qt::Orientations());
    QCOMPARE(layout.expandingDirections().toInt(), 0);
}

void tst_Layout::addOrderOfCalls()
{
    Bench bench;
    bench.first.setBounds(QRect(1, 2, 3, 4));
    bench.log.clear();
    QVERIFY(bench.layout.add(&bench.first, QVariant(5), -1));
    QCOMPARE(
        bench.log.calls(),
        QStringList({"layout.add(first,5,-1)", "first.setParentFigure(container)", "layout.setConstraint(first)",
                     "layout.applyConstraint(first)", "first.revalidate", "first.invalidate", "container.revalidate",
                     "container.invalidate", "layout.invalidate", "first.repaint", "first.repaint(1,2 3x4)"}));
    QCOMPARE(bench.layout.getConstraint(&bench.first), QVariant(5));
}

void tst_Layout::addToDisplayedTreeNotifies()
{
    CallLog log;
    DisplayedRoot tree(&log);
    ProbeFigure child("child", &log);
    child.setBounds(QRect(1, 2, 3, 4));
    tree.root.validate();
    log.clear();
    QVERIFY(tree.layout.add(&child, QVariant(), -1));
    QCOMPARE(log.calls(),
             QStringList({"child.setParentFigure(root)", "child.revalidate", "child.invalidate", "root.revalidate",
                          "root.invalidate", "child.addNotify", "child.repaint", "child.repaint(1,2 3x4)"}));
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(1, 2, 3, 4)}));
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
    log.clear();
    tree.manager.performUpdate();
    QCOMPARE(log.only({"validate"}), QStringList({"root.validate", "child.validate"}));
}

void tst_Layout::stretchedAddOrderOfCalls()
{
    Bench bench;
    bench.container.addNotify();
    bench.first.setBounds(QRect(1, 2, 3, 4));
    bench.log.clear();
    QVERIFY(bench.layout.add(&bench.first, 6U, 7U, -1));
    QCOMPARE(bench.log.calls(),
             QStringList({"layout.add(first,6,7,-1)", "first.setParentFigure(container)", "layout.setConstraint(first)",
                          "layout.applyConstraint(first)", "first.revalidate", "first.invalidate",
                          "container.revalidate", "container.invalidate", "layout.invalidate", "first.addNotify",
                          "first.repaint", "first.repaint(1,2 3x4)"}));
}

void tst_Layout::stretchedAddTakesBoundsAsConstraint_data()
{
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<QVariant>("constraint");
    QTest::newRow("none") << QRect() << QVariant();
    QTest::newRow("some") << QRect(1, 2, 3, 4) << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("at the origin") << QRect(0, 0, 1, 1) << QVariant(QRect(0, 0, 1, 1));
    QTest::newRow("invalid but moved") << QRect(5, 0, 0, 0) << QVariant(QRect(5, 0, 0, 0));
}

void tst_Layout::stretchedAddTakesBoundsAsConstraint()
{
    QFETCH(QRect, bounds);
    QFETCH(QVariant, constraint);
    Bench bench;
    if (!bounds.isValid())
        expectDebug("Figure::resolveBounds(): resolved bounds still invalid");
    bench.first.setMaximumSize(QSize(0, 0));
    bench.first.setBounds(bounds);
    QVERIFY(bench.layout.add(&bench.first, 0U, 0U, -1));
    QCOMPARE(bench.layout.getConstraint(&bench.first), constraint);
    QCOMPARE(bench.log.only({"setConstraint"}).size(), constraint.isValid() ? 1 : 0);
}

void tst_Layout::stretchFactorsAreVerticalThenHorizontal()
{
    Bench bench;
    bench.layout.add(&bench.first, 6U, 7U, -1);
    QCOMPARE(bench.layout.getHelper(&bench.first)->vStretch, 6U);
    QCOMPARE(bench.layout.getHelper(&bench.first)->hStretch, 7U);
    QVERIFY(!bench.layout.getHelper(&bench.first)->constraint.isValid());
}

void tst_Layout::plainAddHasNoStretch()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(1), -1);
    QCOMPARE(bench.layout.getHelper(&bench.first)->vStretch, 0U);
    QCOMPARE(bench.layout.getHelper(&bench.first)->hStretch, 0U);
    QCOMPARE(bench.layout.getHelper(&bench.first)->constraint, QVariant(1));
}

void tst_Layout::addIndexPlacesTheChild_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("first") << 0 << QStringList({"third", "first", "second"});
    QTest::newRow("between") << 1 << QStringList({"first", "third", "second"});
    QTest::newRow("the count") << 2 << QStringList({"first", "second", "third"});
    QTest::newRow("beyond") << 100 << QStringList({"first", "second", "third"});
    QTest::newRow("-1") << -1 << QStringList({"first", "second", "third"});
    QTest::newRow("-100") << -100 << QStringList({"first", "second", "third"});
}

void tst_Layout::addIndexPlacesTheChild()
{
    QFETCH(int, index);
    QFETCH(QStringList, order);
    Bench bench;
    bench.layout.add(&bench.first, QVariant(), -1);
    bench.layout.add(&bench.second, QVariant(), -1);
    QVERIFY(bench.layout.add(&bench.third, QVariant(), index));
    QCOMPARE(bench.order(), order);
    bench.layout.remove(&bench.third);
    QVERIFY(bench.layout.add(&bench.third, 0U, 0U, index));
    QCOMPARE(bench.order(), order);
}

void tst_Layout::addOfPresentChildDoesNotMoveIt()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(1), -1);
    bench.layout.add(&bench.second, QVariant(), -1);
    bench.log.clear();
    QVERIFY(!bench.layout.add(&bench.first, QVariant(2), -1));
    QVERIFY(!bench.layout.add(&bench.first, 3U, 4U, -1));
    QCOMPARE(bench.order(), QStringList({"first", "second"}));
    QCOMPARE(bench.layout.getConstraint(&bench.first), QVariant(1));
    QCOMPARE(bench.layout.getHelper(&bench.first)->vStretch, 0U);
    QCOMPARE(bench.log.calls(), QStringList({"layout.add(first,2,-1)", "layout.add(first,3,4,-1)"}));
}

void tst_Layout::addWithoutContainerIsRefused()
{
    ProbeLayout layout;
    Figure child;
    QVERIFY(!layout.add(&child, QVariant(), -1));
    QVERIFY(!layout.add(&child, 0U, 0U, -1));
    QCOMPARE(layout.childFigureCount(), 0);
    QCOMPARE(child.getParentFigure(), nullptr);
}

void tst_Layout::addOfNullContainerOrAncestorIsRefused()
{
    Bench bench;
    ProbeLayout outer;
    Figure ancestor;
    ancestor.setLayoutManager(&outer);
    outer.add(&bench.container, QVariant(), -1);
    for (Figure *figure : {static_cast<Figure *>(nullptr), static_cast<Figure *>(&bench.container), &ancestor}) {
        QVERIFY(!bench.layout.add(figure, QVariant(), -1));
        QVERIFY(!bench.layout.add(figure, 0U, 0U, -1));
    }
    QCOMPARE(bench.layout.childFigureCount(), 0);
    QCOMPARE(brokenInvariant(&ancestor), QString());
}

void tst_Layout::childIsListedBeforeItLearnsItsParent()
{
    Bench bench;
    bool wasListed = false;
    bool hadHelper = true;
    connect(&bench.first, &Figure::propertyChanged, this, [&] {
        wasListed = bench.layout.childFigures().contains(&bench.first);
        hadHelper = bench.layout.getHelper(&bench.first) != nullptr;
    });
    bench.layout.add(&bench.first, QVariant(), -1);
    QVERIFY(wasListed);
    QVERIFY(!hadHelper);
}

void tst_Layout::removeOrderOfCalls()
{
    Bench bench;
    bench.first.setBounds(QRect(1, 2, 3, 4));
    bench.layout.add(&bench.first, QVariant(), -1);
    bench.log.clear();
    QVERIFY(bench.layout.remove(&bench.first));
    QCOMPARE(bench.log.calls(),
             QStringList(
                 {"layout.remove(first)", "first.erase", "container.repaint(1,2 3x4)", "first.setParentFigure(null)"}));
    QCOMPARE(bench.first.getParentFigure(), nullptr);
    QCOMPARE(bench.layout.childFigureCount(), 0);
}

void tst_Layout::removeFromDisplayedTreeNotifiesAndRevalidates()
{
    CallLog log;
    DisplayedRoot tree(&log);
    ProbeFigure child("child", &log);
    child.setBounds(QRect(1, 2, 3, 4));
    tree.root.add(&child);
    tree.root.validate();
    tree.manager.performUpdate();
    tree.takeDirtyRects();
    log.clear();
    QVERIFY(tree.layout.remove(&child));
    QCOMPARE(log.calls(),
             QStringList({"child.removeNotify", "root.revalidate", "root.invalidate", "child.erase",
                          "root.repaint(1,2 3x4)", "child.setParentFigure(null)"}));
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(1, 2, 3, 4)}));
    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Layout::removeOfStrangersIsRefused()
{
    Bench bench;
    LayoutListenerProbe listener("listener", bench.log);
    bench.layout.addListener(&listener);
    bench.layout.add(&bench.first, QVariant(), -1);
    bench.log.clear();
    QVERIFY(!bench.layout.remove(nullptr));
    QVERIFY(!bench.layout.remove(&bench.second));
    QCOMPARE(bench.log.calls(), QStringList({"layout.remove(null)", "layout.remove(second)"}));
}

void tst_Layout::removedChildIsStillListedWhenItLosesItsParent()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(1), -1);
    bool wasListed = false;
    bool hadHelper = true;
    connect(&bench.first, &Figure::propertyChanged, this, [&] {
        wasListed = bench.layout.childFigures().contains(&bench.first);
        hadHelper = bench.layout.getHelper(&bench.first) != nullptr;
    });
    bench.layout.remove(&bench.first);
    QVERIFY(wasListed);
    QVERIFY(!hadHelper);
}

void tst_Layout::removeTellsListenersFirst()
{
    Bench bench;
    LayoutListenerProbe first("one", bench.log);
    LayoutListenerProbe second("two", bench.log);
    bench.layout.addListener(&first);
    bench.layout.addListener(&second);
    bench.layout.add(&bench.first, QVariant(), -1);
    bench.log.clear();
    bench.layout.remove(&bench.first);
    QCOMPARE(bench.log.calls(),
             QStringList({"layout.remove(first)", "one.remove(container)", "two.remove(container)", "first.erase",
                          "first.setParentFigure(null)"}));
}

void tst_Layout::removeWithoutContainerStillTakesTheChildOut()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(), -1);
    bench.layout.setFigure(nullptr);
    QVERIFY(bench.layout.remove(&bench.first));
    QCOMPARE(bench.layout.childFigureCount(), 0);
    QCOMPARE(bench.first.getParentFigure(), nullptr);
}

void tst_Layout::removedChildCanBeAddedAgain()
{
    Bench bench;
    bench.layout.add(&bench.first, 3U, 4U, -1);
    bench.layout.remove(&bench.first);
    QVERIFY(bench.layout.add(&bench.first, QVariant(), -1));
    QCOMPARE(bench.layout.getHelper(&bench.first)->vStretch, 0U);
    QCOMPARE(brokenInvariant(&bench.container), QString());
}

void tst_Layout::helpersExistForChildrenOnly()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(1), -1);
    QVERIFY(bench.layout.getHelper(&bench.first) != nullptr);
    QCOMPARE(bench.layout.getHelper(&bench.second), nullptr);
    QCOMPARE(bench.layout.getHelper(nullptr), nullptr);
    bench.layout.remove(&bench.first);
    QCOMPARE(bench.layout.getHelper(&bench.first), nullptr);
}

void tst_Layout::totalStretchIgnoresHiddenChildren()
{
    Bench bench;
    QCOMPARE(bench.layout.getHTotalStretch(), 0U);
    bench.layout.add(&bench.first, 1U, 10U, -1);
    bench.layout.add(&bench.second, 2U, 20U, -1);
    bench.layout.add(&bench.third, 4U, 40U, -1);
    QCOMPARE(bench.layout.getVTotalStretch(), 7U);
    QCOMPARE(bench.layout.getHTotalStretch(), 70U);
    bench.second.setVisible(false);
    QCOMPARE(bench.layout.getVTotalStretch(), 5U);
    QCOMPARE(bench.layout.getHTotalStretch(), 50U);
}

void tst_Layout::setFigureIsAPlainStore()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(), -1);
    bench.log.clear();
    Figure other;
    bench.layout.setFigure(&other);
    QCOMPARE(bench.layout.getFigure(), &other);
    QCOMPARE(bench.first.getParentFigure(), &bench.container);
    QCOMPARE(bench.log.calls(), QStringList());
    bench.layout.setFigure(nullptr);
    QCOMPARE(bench.layout.getFigure(), nullptr);
}

void tst_Layout::childrenOutliveTheLayout()
{
    Figure container;
    Figure child;
    {
        ProbeLayout layout;
        container.setLayoutManager(&layout);
        layout.add(&child, QVariant(1), -1);
    }
    QCOMPARE(container.getLayoutManager(), nullptr);
    QCOMPARE(container.childFigures(), QList<Figure *>());
    QCOMPARE(child.getParentFigure(), &container);
}

void tst_Layout::replacedLayoutKeepsItsChildren()
{
    Bench bench;
    bench.layout.add(&bench.first, QVariant(), -1);
    ProbeLayout other;
    QCOMPARE(bench.container.setLayoutManager(&other), &bench.layout);
    QCOMPARE(bench.layout.childFigures(), QList<Figure *>({&bench.first}));
    QCOMPARE(bench.container.childFigures(), QList<Figure *>());
}

void tst_Layout::deletedChildLeavesTheLayout()
{
    CallLog log;
    DisplayedRoot tree(&log);
    auto child = std::make_unique<Figure>();
    child->setBounds(QRect(1, 2, 3, 4));
    tree.root.add(child.get(), QVariant(1));
    tree.root.validate();
    tree.takeDirtyRects();
    const Figure *address = child.get();
    child.reset();
    QCOMPARE(tree.root.childFigureCount(), 0);
    QCOMPARE(tree.layout.getHelper(const_cast<Figure *>(address)), nullptr);
    QVERIFY(!tree.root.isValid());
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(1, 2, 3, 4)}));
}

void tst_Layout::deletedContainerLeavesTheLayoutEmpty()
{
    ProbeLayout layout;
    Figure child;
    {
        Figure container;
        container.setLayoutManager(&layout);
        container.addNotify();
        container.add(&child);
    }
    QCOMPARE(layout.getFigure(), nullptr);
    QCOMPARE(layout.childFigureCount(), 0);
    QCOMPARE(child.getParentFigure(), nullptr);
    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Layout::layoutDeletedByItsListener()
{
    CallLog log;
    Figure container;
    Figure child;
    const QPointer<Layout> layout = new ProbeLayout;
    container.setLayoutManager(layout);
    ActingListener listener(log, [&layout] { delete layout.data(); });
    layout->addListener(&listener);
    layout->add(&child, QVariant(), -1);
    QVERIFY(layout->remove(&child));
    QVERIFY(layout.isNull());
    QCOMPARE(container.getLayoutManager(), nullptr);
}

void tst_Layout::childDeletedByAListenerOfItsRemoval()
{
    Bench bench;
    const QPointer<Figure> child = new Figure;
    ActingListener listener(bench.log, [&child] { delete child.data(); });
    bench.layout.addListener(&listener);
    bench.layout.add(child, QVariant(), -1);
    QVERIFY(bench.layout.remove(child));
    QVERIFY(child.isNull());
    QCOMPARE(bench.layout.childFigureCount(), 0);
}

void tst_Layout::nullListenersAreRefused()
{
    ProbeLayout layout;
    expectWarning("Layout::addListener(): null listener");
    layout.addListener(nullptr);
    expectWarning("Layout::removeListener(): null listener");
    layout.removeListener(nullptr);
    layout.invalidate();
}

void tst_Layout::listenerIsAddedOnce()
{
    Bench bench;
    LayoutListenerProbe listener("listener", bench.log);
    bench.layout.addListener(&listener);
    bench.layout.addListener(&listener);
    bench.layout.invalidate();
    QCOMPARE(bench.log.calls(), QStringList({"layout.invalidate", "listener.invalidate(container)"}));
}

void tst_Layout::removedListenerHearsNothing()
{
    Bench bench;
    LayoutListenerProbe listener("listener", bench.log);
    LayoutListenerProbe other("other", bench.log);
    bench.layout.addListener(&listener);
    bench.layout.addListener(&other);
    bench.layout.removeListener(&listener);
    bench.layout.removeListener(&listener);
    bench.layout.invalidate();
    QCOMPARE(bench.log.calls(), QStringList({"layout.invalidate", "other.invalidate(container)"}));
}

void tst_Layout::randomEditsKeepTheInvariants()
{
    constexpr quint32 seed = 7102;
    QRandomGenerator random(seed);
    DisplayedRoot tree;
    std::vector<std::unique_ptr<Figure>> figures;
    for (int i = 0; i < 40; ++i)
        figures.push_back(std::make_unique<Figure>());
    QList<Figure *> expected;
    for (int step = 0; step < 4000; ++step) {
        Figure *figure = figures[static_cast<size_t>(random.bounded(40))].get();
        const int index = random.bounded(-2, 45);
        const bool wasThere = expected.contains(figure);
        if (random.bounded(2)) {
            QCOMPARE(tree.root.add(figure, QVariant(step), index), !wasThere);
            if (!wasThere)
                expected.insert(index >= 0 && index < expected.size() ? index : expected.size(), figure);
        } else {
            QCOMPARE(tree.root.remove(figure), wasThere);
            expected.removeOne(figure);
        }
        QVERIFY2(tree.root.childFigures() == expected,
                 qPrintable(QStringLiteral("seed %1, step %2").arg(seed).arg(step)));
        QCOMPARE(brokenInvariant(&tree.root), QString());
    }
}

PICTEL_TEST_MAIN(tst_Layout)
#include "tst_layout.moc"
