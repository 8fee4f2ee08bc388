#include "support/CallLog.h"
#include "support/DisplayedRoot.h"
#include "support/ProbeBorder.h"
#include "support/ProbeFigure.h"
#include "support/ProbeLayout.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"
#include "support/TreeInvariants.h"

#include <vtlpictel/figure/IAncestorListener.h>
#include <vtlpictel/figure/IPropertyChangeListener.h>

#include <QPainter>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

class Listener : public QObject, public IAncestorListener, public IPropertyChangeListener
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::IAncestorListener Vantrel::Pictel::IPropertyChangeListener)

public:
    QStringList heard;

public Q_SLOTS:
    void ancestorAdded(Figure *) override { heard << QStringLiteral("added"); }
    void ancestorMoved(Figure *) override { heard << QStringLiteral("moved"); }
    void ancestorRemoved(Figure *) override { heard << QStringLiteral("removed"); }
    void propertyChanged(const QString &, const QVariant &, const QVariant &) override
    {
        heard << QStringLiteral("property");
    }
};

void paint(Figure &figure)
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 1000, 1000);
    figure.render(&painter, option);
}

/// Figures in a random displayed tree, each with its own layout, border and tooltip; nothing has a QObject parent.
class World
{
public:
    explicit World(quint32 seed)
        : m_random(seed)
    {
        for (int i = 0; i < figureCount; ++i)
            addFigure();
    }
    ~World()
    {
        while (!m_objects.isEmpty())
            deleteRandomObject();
    }

    bool isEmpty() const { return m_objects.isEmpty(); }
    void deleteRandomObject() { delete m_objects.takeAt(m_random.bounded(m_objects.size())).data(); }
    void disturbSurvivors();
    QString brokenInvariant();

private:
    static constexpr int figureCount = 30;

    void addFigure();
    QRect randomBounds();

    QRandomGenerator m_random;
    DisplayedRoot m_tree;
    Listener m_listener;
    QList<QPointer<Figure>> m_figures;
    QList<QPointer<QObject>> m_objects;
};

QRect World::randomBounds()
{
    return QRect(m_random.bounded(200), m_random.bounded(200), 1 + m_random.bounded(300), 1 + m_random.bounded(300));
}

void World::addFigure()
{
    Figure *parent = m_figures.isEmpty() ? nullptr : m_figures.at(m_random.bounded(m_figures.size())).data();
    auto *figure = new ProbeFigure;
    auto *layout = new ProbeLayout;
    auto *border = new ProbeBorder(Insets(1, 1, 1, 1));
    auto *tooltip = new Figure;
    layout->isRelative = m_random.bounded(2) == 0;
    figure->setLayoutManager(layout);
    figure->setBorder(border);
    figure->setTooltip(tooltip);
    figure->setBounds(randomBounds());
    figure->addAncestorListener(&m_listener);
    (parent ? parent : &m_tree.root)->add(figure);
    m_figures << figure;
    for (QObject *object : {static_cast<QObject *>(figure), static_cast<QObject *>(layout),
                            static_cast<QObject *>(border), static_cast<QObject *>(tooltip)})
        m_objects << object;
}

void World::disturbSurvivors()
{
    for (const QPointer<Figure> &figure : std::as_const(m_figures)) {
        if (!figure)
            continue;
        figure->setBounds(randomBounds());
        figure->setVisible(m_random.bounded(4) > 0);
        figure->getPreferredSize();
        figure->revalidate();
        figure->findFigureAt(m_random.bounded(500), m_random.bounded(500));
        if (figure->getTooltip())
            figure->getTooltip()->setBounds(randomBounds());
        paint(*figure);
    }
    m_tree.manager.performUpdate();
    paint(m_tree.root);
}

QString World::brokenInvariant()
{
    for (const QPointer<Figure> &figure : std::as_const(m_figures)) {
        const bool isTop = figure && !figure->getParentFigure();
        const QString breach = isTop ? ::brokenInvariant(figure) : QString();
        if (!breach.isEmpty())
            return breach;
    }
    return ::brokenInvariant(&m_tree.root);
}

} // namespace

class tst_FigureDestruction : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void deletedChildLeavesItsParentAndDirtiesItsArea();
    void deletedHiddenChildDirtiesNothing();
    void deletedParentReleasesItsChildren();
    void deletedGrandparentStopsNotificationOfAll();
    void childOfTwoParentsLeavesBoth();
    void childOfTwoParentsSurvivesOne();
    void deletedLayoutLeavesAFigureWithoutChildren();
    void deletedLayoutLetsTheFigureTakeAnother();
    void layoutThatOutlivesItsFigureServesAnother();
    void replacedLayoutOutlivesTheFigureItLeft();
    void deletedBorderIsForgotten();
    void sharedBorderIsForgottenByAll();
    void deletedTooltipIsForgotten();
    void figureDeletedWhileRegisteredIsForgotten();
    void figureDeletedWhileAnotherIsValidated();
    void deletedListenersHearNothing();
    void deletedFigureCallsNoListenerOfItsOwn();
    void objectTreeMayOwnEverything();
    void figureDeletedByItsParentAnnouncement();
    void figureDeletedByBeingShown();
    void parentDeletedWhileItsChildMoves();
    void objectsDieInAnyOrder_data();
    void objectsDieInAnyOrder();
};

void tst_FigureDestruction::deletedChildLeavesItsParentAndDirtiesItsArea()
{
    DisplayedRoot tree;
    auto child = std::make_unique<Figure>();
    child->setBounds(QRect(1, 2, 30, 40));
    tree.root.add(child.get());
    tree.root.validate();
    tree.takeDirtyRects();
    child.reset();
    QCOMPARE(tree.root.childFigures(), QList<Figure *>());
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>({QRect(1, 2, 30, 40)}));
    QVERIFY(!tree.root.isValid());
}

void tst_FigureDestruction::deletedHiddenChildDirtiesNothing()
{
    DisplayedRoot tree;
    auto child = std::make_unique<Figure>();
    child->setBounds(QRect(1, 2, 30, 40));
    child->setVisible(false);
    tree.root.add(child.get());
    tree.takeDirtyRects();
    child.reset();
    QCOMPARE(tree.root.childFigureCount(), 0);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
}

void tst_FigureDestruction::deletedParentReleasesItsChildren()
{
    DisplayedRoot tree;
    ProbeLayout layout;
    Figure child;
    auto parent = std::make_unique<Figure>();
    parent->setLayoutManager(&layout);
    tree.root.add(parent.get());
    parent->add(&child, QVariant(1));
    parent.reset();
    QCOMPARE(child.getParentFigure(), nullptr);
    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(child.getUpdateManager(), nullptr);
    QCOMPARE(layout.getFigure(), nullptr);
    QCOMPARE(layout.childFigureCount(), 0);
    QVERIFY(!layout.getConstraint(&child).isValid());
    QCOMPARE(brokenInvariant(&tree.root), QString());
    QVERIFY(tree.root.add(&child));
}

void tst_FigureDestruction::deletedGrandparentStopsNotificationOfAll()
{
    DisplayedRoot tree;
    ProbeLayout layout;
    ProbeLayout innerLayout;
    Figure parent;
    Figure child;
    auto grandparent = std::make_unique<Figure>();
    grandparent->setLayoutManager(&layout);
    parent.setLayoutManager(&innerLayout);
    tree.root.add(grandparent.get());
    grandparent->add(&parent);
    parent.add(&child);
    grandparent.reset();
    QVERIFY(!parent.getFlag(Figure::FLAG_NOTIFIED));
    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
    QCOMPARE(child.getParentFigure(), &parent);
    QCOMPARE(brokenInvariant(&parent), QString());
}

void tst_FigureDestruction::childOfTwoParentsLeavesBoth()
{
    ProbeLayout firstLayout;
    ProbeLayout secondLayout;
    Figure first;
    Figure second;
    first.setLayoutManager(&firstLayout);
    second.setLayoutManager(&secondLayout);
    {
        Figure child;
        first.add(&child);
        second.add(&child);
    }
    QCOMPARE(first.childFigureCount(), 0);
    QCOMPARE(second.childFigureCount(), 0);
}

void tst_FigureDestruction::childOfTwoParentsSurvivesOne()
{
    ProbeLayout firstLayout;
    Figure first;
    first.setLayoutManager(&firstLayout);
    Figure child;
    {
        ProbeLayout secondLayout;
        Figure second;
        second.setLayoutManager(&secondLayout);
        first.add(&child);
        second.add(&child);
    }
    QCOMPARE(child.getParentFigure(), nullptr);
    QCOMPARE(first.childFigures(), QList<Figure *>({&child}));
    QVERIFY(first.remove(&child));
}

void tst_FigureDestruction::deletedLayoutLeavesAFigureWithoutChildren()
{
    DisplayedRoot tree;
    Figure parent;
    parent.setBounds(QRect(10, 10, 50, 50));
    Figure child;
    child.setBounds(QRect(0, 0, 5, 5));
    tree.root.add(&parent);
    {
        ProbeLayout layout;
        parent.setLayoutManager(&layout);
        parent.add(&child);
    }
    QCOMPARE(parent.getLayoutManager(), nullptr);
    QCOMPARE(parent.childFigures(), QList<Figure *>());
    QCOMPARE(child.getParentFigure(), &parent);
    expectDebug("Figure::remove(): failed, no layout manager");
    QVERIFY(!parent.remove(&child));
    paint(tree.root);
}

void tst_FigureDestruction::deletedLayoutLetsTheFigureTakeAnother()
{
    Figure parent;
    Figure child;
    {
        ProbeLayout layout;
        parent.setLayoutManager(&layout);
        parent.add(&child);
    }
    ProbeLayout other;
    QCOMPARE(parent.setLayoutManager(&other), nullptr);
    QVERIFY(parent.add(&child));
    QCOMPARE(brokenInvariant(&parent), QString());
}

void tst_FigureDestruction::layoutThatOutlivesItsFigureServesAnother()
{
    ProbeLayout layout;
    {
        Figure mortal;
        mortal.setLayoutManager(&layout);
    }
    QCOMPARE(layout.getFigure(), nullptr);
    Figure figure;
    Figure child;
    figure.setLayoutManager(&layout);
    QVERIFY(figure.add(&child));
    QCOMPARE(child.getParentFigure(), &figure);
}

void tst_FigureDestruction::replacedLayoutOutlivesTheFigureItLeft()
{
    ProbeLayout first;
    ProbeLayout second;
    Figure other;
    Figure child;
    {
        Figure mortal;
        mortal.setLayoutManager(&first);
        mortal.setLayoutManager(&second);
        other.setLayoutManager(&first);
        other.add(&child);
    }
    QCOMPARE(first.getFigure(), &other);
    QCOMPARE(other.childFigures(), QList<Figure *>({&child}));
}

void tst_FigureDestruction::deletedBorderIsForgotten()
{
    Figure figure;
    figure.setBounds(QRect(0, 0, 100, 100));
    {
        ProbeBorder border(Insets(5, 5, 5, 5));
        figure.setBorder(&border);
    }
    QCOMPARE(figure.getBorder(), nullptr);
    QCOMPARE(figure.getClientArea(), QRect(0, 0, 100, 100));
    paint(figure);
}

void tst_FigureDestruction::sharedBorderIsForgottenByAll()
{
    Figure first;
    Figure second;
    {
        ProbeBorder border(Insets(5, 5, 5, 5));
        first.setBorder(&border);
        second.setBorder(&border);
    }
    QCOMPARE(first.getBorder(), nullptr);
    QCOMPARE(second.getBorder(), nullptr);
}

void tst_FigureDestruction::deletedTooltipIsForgotten()
{
    Figure figure;
    {
        Figure tooltip;
        figure.setTooltip(&tooltip);
    }
    QCOMPARE(figure.getTooltip(), nullptr);
}

void tst_FigureDestruction::figureDeletedWhileRegisteredIsForgotten()
{
    CallLog log;
    DisplayedRoot tree(&log);
    {
        ProbeFigure island("island", &log);
        island.setValidateRoot(true);
        tree.root.add(&island);
        island.revalidate();
    }
    tree.root.validate();
    log.clear();
    tree.manager.performUpdate();
    QCOMPARE(log.only({"validate"}), QStringList({"root.validate"}));
}

void tst_FigureDestruction::figureDeletedWhileAnotherIsValidated()
{
    class Killer : public ProbeFigure
    {
    public:
        void validate() override { delete victim.data(); }
        QPointer<Figure> victim;
    };
    DisplayedRoot tree;
    Killer killer;
    killer.victim = new Figure;
    tree.manager.addInvalidFigure(&killer);
    tree.manager.addInvalidFigure(killer.victim);
    tree.manager.performUpdate();
    QVERIFY(killer.victim.isNull());
}

void tst_FigureDestruction::deletedListenersHearNothing()
{
    Figure figure;
    Figure parent;
    auto listener = std::make_unique<Listener>();
    figure.addAncestorListener(listener.get());
    figure.addPropertyChangeListener(listener.get());
    figure.setParentFigure(&parent);
    QCOMPARE(listener->heard, QStringList({"added", "property"}));
    listener.reset();
    figure.setParentFigure(nullptr);
    parent.setBounds(QRect(0, 0, 1, 1));
    QCOMPARE(figure.getParentFigure(), nullptr);
}

void tst_FigureDestruction::deletedFigureCallsNoListenerOfItsOwn()
{
    Listener listener;
    ProbeLayout layout;
    Figure parent;
    parent.setLayoutManager(&layout);
    auto figure = std::make_unique<Figure>();
    parent.add(figure.get());
    figure->addAncestorListener(&listener);
    figure->addPropertyChangeListener(&listener);
    figure.reset();
    parent.setBounds(QRect(0, 0, 1, 1));
    QCOMPARE(listener.heard, QStringList());
}

void tst_FigureDestruction::objectTreeMayOwnEverything()
{
    DisplayedRoot tree;
    const QPointer<Figure> parent = new Figure;
    const QPointer<Layout> layout = new ProbeLayout(QString(), nullptr, parent);
    const QPointer<Figure> first = new Figure(parent);
    const QPointer<Figure> second = new Figure(first);
    const QPointer<Border> border = new ProbeBorder(Insets(1, 1, 1, 1), nullptr, parent);
    parent->setLayoutManager(layout);
    parent->setBorder(border);
    parent->add(first);
    parent->add(second);
    tree.root.add(parent);
    delete parent;
    QVERIFY(layout.isNull() && first.isNull() && second.isNull() && border.isNull());
    QCOMPARE(tree.root.childFigureCount(), 0);
}

void tst_FigureDestruction::figureDeletedByItsParentAnnouncement()
{
    ProbeLayout layout;
    Figure parent;
    parent.setLayoutManager(&layout);
    const QPointer<Figure> child = new Figure;
    connect(child, &Figure::propertyChanged, child, [&child] { delete child.data(); });
    QVERIFY(parent.add(child));
    QVERIFY(child.isNull());
    QCOMPARE(parent.childFigureCount(), 0);
}

void tst_FigureDestruction::figureDeletedByBeingShown()
{
    class Mayfly : public ProbeFigure
    {
    public:
        void addNotify() override { delete this; }
    };
    DisplayedRoot tree;
    const QPointer<Figure> mayfly = new Mayfly;
    QVERIFY(tree.root.add(mayfly));
    QVERIFY(mayfly.isNull());
    QCOMPARE(tree.root.childFigureCount(), 0);
}

void tst_FigureDestruction::parentDeletedWhileItsChildMoves()
{
    ProbeLayout layout;
    layout.isRelative = false;
    const QPointer<Figure> parent = new Figure;
    parent->setLayoutManager(&layout);
    Figure first;
    Figure second;
    parent->add(&first);
    parent->add(&second);
    connect(&first, &Figure::figureMoved, this, [&parent] { delete parent.data(); });
    parent->setBounds(QRect(5, 5, 10, 10));
    QVERIFY(parent.isNull());
    QCOMPARE(second.getParentFigure(), nullptr);
}

void tst_FigureDestruction::objectsDieInAnyOrder_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_FigureDestruction::objectsDieInAnyOrder()
{
    QFETCH(quint32, seed);
    World world(seed);
    while (!world.isEmpty()) {
        world.disturbSurvivors();
        world.deleteRandomObject();
        QCOMPARE(world.brokenInvariant(), QString());
    }
}

PICTEL_TEST_MAIN(tst_FigureDestruction)
#include "tst_figuredestruction.moc"
