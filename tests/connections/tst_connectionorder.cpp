#include "connections/ShownConnection.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/figure/MidpointLocator.h>
#include <vtlpictel/shapes/PolygonDecoration.h>

#include <QTest>

#include <functional>

using namespace Vantrel::Pictel;

namespace {

using Note = std::function<void(const QString &)>;

/// Routes as its base does, and tells at once what it is asked.
class TellingRouter : public ProbeRouter
{
public:
    Note tell = [](const QString &) {};

    void invalidate(IConnection *) override { tell(QStringLiteral("router.invalidate")); }
    void remove(IConnection *) override { tell(QStringLiteral("router.remove")); }
};

/// Tells at once when a listener comes or goes.
class TellingAnchor : public XYAnchor
{
public:
    TellingAnchor(const QString &name, const QPoint &location)
        : XYAnchor(location)
        , m_name(name)
    { }

    Note tell = [](const QString &) {};

    void addAnchorListener(IAnchorListener *listener) override
    {
        tell(m_name + QStringLiteral(".hook"));
        XYAnchor::addAnchorListener(listener);
    }
    void removeAnchorListener(IAnchorListener *listener) override
    {
        tell(m_name + QStringLiteral(".unhook"));
        XYAnchor::removeAnchorListener(listener);
    }

private:
    QString m_name;
};

/// Tells at once what gets dirty.
class TellingViewer : public ViewerStub
{
public:
    Note tell = [](const QString &) {};

    void updateContentRect(const QRect &rect) override { tell(QStringLiteral("dirty ") + CallLog::text(rect)); }
};

/// A parent that tells when it is laid out anew.
class TellingParent : public Figure
{
public:
    Note tell = [](const QString &) {};

    void revalidate() override
    {
        tell(QStringLiteral("parent.revalidate"));
        Figure::revalidate();
    }
};

/// A shown and valid connection whose surroundings tell each step.
struct ToldConnection
{
    explicit ToldConnection(bool isReal)
        : connection(isReal)
    {
        parent.setLayoutManager(&layout);
        parent.setBounds(QRect(100, 200, 500, 500));
        displayed.root.add(&parent);
        displayed.manager.setViewer(&viewer);
        connection->setSourceAnchor(&source);
        connection->setTargetAnchor(&target);
        connection->setConnectionRouter(&router);
        parent.add(connection.figure());
        expectUnresolvedBounds(isReal);
        displayed.root.validate();
    }

    /// From now on \a note gets each step.
    void listen(const Note &note)
    {
        parent.tell = note;
        viewer.tell = note;
        router.tell = note;
        source.tell = note;
        target.tell = note;
    }
    void listen()
    {
        listen([this](const QString &step) { steps << step; });
    }
    void stop()
    {
        listen([](const QString &) {});
    }

    QStringList steps;
    TellingAnchor source {QStringLiteral("source"), QPoint(0, 0)};
    TellingAnchor target {QStringLiteral("target"), QPoint(50, 50)};
    TellingRouter router;
    ProbeLayout layout;
    TellingParent parent;
    TellingViewer viewer;
    DisplayedRoot displayed;
    AnyConnection connection;
};

QString text(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

} // namespace

class tst_ConnectionOrder : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void movedFigureRoutesItsOwnConnectionsOnly_data() { addBothClasses(); }
    void movedFigureRoutesItsOwnConnectionsOnly();

    void newRouterIsKnownBeforeItIsTold_data() { addBothClasses(); }
    void newRouterIsKnownBeforeItIsTold();
    void oldAreaIsDirtyBeforeTheRouteIsInvalid_data() { addBothClasses(); }
    void oldAreaIsDirtyBeforeTheRouteIsInvalid();
    void viewIsUpdatedBeforeTheRouteIsInvalid_data() { addBothClasses(); }
    void viewIsUpdatedBeforeTheRouteIsInvalid();
    void childrenArePlacedBetweenRouteAndPath_data() { addBothClasses(); }
    void childrenArePlacedBetweenRouteAndPath();
    void boundsAreStoredBeforeTheyAreRepaintedAndAnnounced_data() { addBothClasses(); }
    void boundsAreStoredBeforeTheyAreRepaintedAndAnnounced();
    void shownConnectionHooksSourceBeforeTarget_data() { addBothClasses(); }
    void shownConnectionHooksSourceBeforeTarget();
    void removedConnectionLeavesAnchorsBeforeTheRouter_data() { addBothClasses(); }
    void removedConnectionLeavesAnchorsBeforeTheRouter();
    void newAnchorIsKnownBeforeItIsHooked_data() { addBothClasses(); }
    void newAnchorIsKnownBeforeItIsHooked();
    void newDecorationIsKnownBeforeItIsAdded_data() { addBothClasses(); }
    void newDecorationIsKnownBeforeItIsAdded();
};

void tst_ConnectionOrder::movedFigureRoutesItsOwnConnectionsOnly()
{
    QFETCH(bool, isReal);
    ProbeRouter router;
    XYAnchor fixed(QPoint(200, 200));
    DisplayedRoot displayed;
    Figure first;
    Figure second;
    displayed.root.add(&first);
    displayed.root.add(&second);
    first.setBounds(QRect(0, 0, 20, 20));
    second.setBounds(QRect(100, 0, 20, 20));
    ChopboxAnchor firstAnchor(&first);
    ChopboxAnchor secondAnchor(&second);
    const AnyConnection one(isReal);
    const AnyConnection other(isReal);
    for (const AnyConnection *connection : {&one, &other}) {
        (*connection)->setSourceAnchor(connection == &one ? &firstAnchor : &secondAnchor);
        (*connection)->setTargetAnchor(&fixed);
        (*connection)->setConnectionRouter(&router);
        displayed.root.add(connection->figure());
        expectUnresolvedBounds(isReal);
    }
    displayed.manager.performUpdate();
    router.log.clear();
    first.setBounds(QRect(0, 40, 20, 20));
    QCOMPARE(one.isValid(), false);
    QCOMPARE(other.isValid(), true);
    displayed.manager.performUpdate();
    QCOMPARE(router.log, QStringList({"invalidate", isReal ? "doRouteF" : "doRoute"}));
    displayed.root.remove(one.figure());
    displayed.root.remove(other.figure());
}

void tst_ConnectionOrder::newRouterIsKnownBeforeItIsTold()
{
    QFETCH(bool, isReal);
    ShownConnection shown(isReal);
    ProbeRouter next;
    QStringList steps;
    connect(shown.connection.figure(), &Figure::propertyChanged, this, [&] {
        steps << QStringLiteral("known: ") + text(shown.connection->getConnectionRouter() == &next)
              << QStringLiteral("old: ") + shown.router.log.join(QLatin1Char(' '))
              << QStringLiteral("new: ") + next.log.join(QLatin1Char(' '))
              << QStringLiteral("valid: ") + text(shown.connection.isValid());
    });
    shown.connection->setConnectionRouter(&next);
    QCOMPARE(steps, QStringList({"known: yes", "old: remove", "new: ", "valid: yes"}));
    QCOMPARE(next.log, QStringList("invalidate"));
    shown.connection.destroy();
}

void tst_ConnectionOrder::oldAreaIsDirtyBeforeTheRouteIsInvalid()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    const QRect area = told.connection->getBounds().translated(100, 200);
    told.listen([&](const QString &step) {
        told.steps << step + QStringLiteral(", valid: ") + text(told.connection.isValid());
    });
    told.connection->revalidate();
    QCOMPARE(told.steps,
             QStringList({QStringLiteral("dirty %1, valid: yes").arg(CallLog::text(area)),
                          "parent.revalidate, valid: no", "router.invalidate, valid: no"}));
    told.stop();
}

void tst_ConnectionOrder::viewIsUpdatedBeforeTheRouteIsInvalid()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    const AnyConnection unplaced(isReal);
    told.parent.add(unplaced.figure());
    unplaced->setConnectionRouter(&told.router);
    const int before = told.viewer.viewport().updateCount();
    told.listen([&](const QString &step) {
        told.steps << step + QStringLiteral(", updates: %1").arg(told.viewer.viewport().updateCount() - before);
    });
    unplaced->revalidate();
    QCOMPARE(told.steps, QStringList({"parent.revalidate, updates: 1", "router.invalidate, updates: 1"}));
    told.stop();
    told.parent.remove(unplaced.figure());
}

void tst_ConnectionOrder::childrenArePlacedBetweenRouteAndPath()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    Figure label;
    label.setPreferredSize(QSize(4, 4));
    auto *locator = new MidpointLocator(told.connection.interface(), 0);
    told.connection->add(&label, QVariant::fromValue<QObject *>(locator), -1);
    told.displayed.root.validate();
    const QRect oldLabel = label.getBounds();
    const QRect oldBounds = told.connection->getBounds();
    told.router.points = {QPoint(100, 100), QPoint(120, 140)};
    told.router.pointsF = {QPointF(100, 100), QPointF(120, 140)};
    told.connection->revalidate();
    QList<QRect> labels;
    QList<QRect> bounds;
    connect(told.connection.figure(), &Shape::pathChanged, this, [&] {
        labels << label.getBounds();
        bounds << told.connection->getBounds();
    });
    told.connection.layout();
    // The first one comes from the points that the router sets.
    QCOMPARE(labels, QList<QRect>({oldLabel, QRect(108, 118, 4, 4)}));
    QCOMPARE(bounds, QList<QRect>({oldBounds, oldBounds}));
    QCOMPARE(told.connection->getBounds(), QRect(99, 99, 22, 42) | QRect(107, 117, 6, 6));
    told.connection.destroy();
}

void tst_ConnectionOrder::boundsAreStoredBeforeTheyAreRepaintedAndAnnounced()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    told.router.points = {QPoint(100, 100), QPoint(120, 140)};
    told.router.pointsF = {QPointF(100, 100), QPointF(120, 140)};
    const Note note = [&](const QString &step) {
        told.steps << step + QStringLiteral(" at ") + CallLog::text(told.connection->getBounds());
    };
    connect(told.connection.figure(), &Shape::pathChanged, this, [&] { note(QStringLiteral("path")); });
    connect(told.connection.figure(), &Figure::figureMoved, this, [&] { note(QStringLiteral("moved")); });
    const QString before = CallLog::text(told.connection->getBounds());
    told.listen(note);
    told.connection.layout();
    const QStringList last = told.steps.mid(told.steps.lastIndexOf(QStringLiteral("path at ") + before));
    QCOMPARE(last, QStringList({"path at " + before, "dirty 199,299 22x42 at 99,99 22x42", "moved at 99,99 22x42"}));
    told.stop();
}

void tst_ConnectionOrder::shownConnectionHooksSourceBeforeTarget()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    told.connection->removeNotify();
    told.listen([&](const QString &step) {
        told.steps << step + QStringLiteral(", shown: ")
                + text(told.connection.figure()->getFlag(Figure::FLAG_NOTIFIED));
    });
    told.connection->addNotify();
    QCOMPARE(told.steps, QStringList({"source.hook, shown: yes", "target.hook, shown: yes"}));
    told.stop();
}

void tst_ConnectionOrder::removedConnectionLeavesAnchorsBeforeTheRouter()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    told.listen([&](const QString &step) {
        told.steps << step + QStringLiteral(", shown: ")
                + text(told.connection.figure()->getFlag(Figure::FLAG_NOTIFIED));
    });
    told.connection->removeNotify();
    QCOMPARE(told.steps,
             QStringList({"source.unhook, shown: yes", "target.unhook, shown: yes", "router.remove, shown: yes"}));
    QCOMPARE(told.connection.figure()->getFlag(Figure::FLAG_NOTIFIED), false);
    told.stop();
}

void tst_ConnectionOrder::newAnchorIsKnownBeforeItIsHooked()
{
    QFETCH(bool, isReal);
    ToldConnection told(isReal);
    TellingAnchor next(QStringLiteral("next"), QPoint(5, 5));
    const Note note = [&](const QString &step) {
        told.steps << step + QStringLiteral(", known: ") + text(told.connection->getTargetAnchor() == &next);
    };
    told.listen(note);
    next.tell = note;
    told.connection->setTargetAnchor(&next);
    told.stop();
    next.tell = told.source.tell;
    QCOMPARE(told.steps.mid(0, 2), QStringList({"target.unhook, known: no", "next.hook, known: yes"}));
    QCOMPARE(told.steps.last(), QStringLiteral("router.invalidate, known: yes"));
    told.connection.destroy();
}

void tst_ConnectionOrder::newDecorationIsKnownBeforeItIsAdded()
{
    QFETCH(bool, isReal);
    const AnyConnection connection(isReal);
    PolygonDecoration tail;
    PolygonDecoration arrow;
    QStringList steps;
    connect(&tail, &Figure::propertyChanged, this,
            [&] { steps << QStringLiteral("source: ") + text(connection.sourceDecoration() == &tail); });
    connect(&arrow, &Figure::propertyChanged, this,
            [&] { steps << QStringLiteral("target: ") + text(connection.targetDecoration() == &arrow); });
    connection.setSourceDecoration(&tail);
    connection.setTargetDecoration(&arrow);
    QCOMPARE(steps, QStringList({"source: yes", "target: yes"}));
    tail.disconnect(this);
    arrow.disconnect(this);
}

PICTEL_TEST_MAIN(tst_ConnectionOrder)
#include "tst_connectionorder.moc"
