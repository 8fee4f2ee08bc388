#include "FigureNest.h"
#include "OpenManhattanRouter.h"
#include "PlainManhattan.h"
#include "StubAnchor.h"
#include "StubConnection.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/ChopboxAnchor.h>
#include <vtlpictel/connections/EllipseAnchor.h>
#include <vtlpictel/connections/XYAnchor.h>

#include <QTest>

#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

using Points = QList<QPoint>;

/// Has connections routed by the library and by the plain statement, and tells where they differ.
class Comparison
{
public:
    explicit Comparison(const FigureNest &nest)
        : m_nest(nest)
    { }

    using Forgetting = void (ManhattanConnectionRouter::*)(IConnection *);

    void forget(StubConnection &connection, Forgetting operation = &ManhattanConnectionRouter::remove)
    {
        (m_router.*operation)(&connection);
        (m_openRouter.*operation)(&connection);
        m_plain.forget(&connection);
    }

    /// An error text; empty when there is none.
    QString route(StubConnection &connection)
    {
        const IConnectionAnchor &source = *connection.sourceAnchor;
        const IConnectionAnchor &target = *connection.targetAnchor;
        const Points expected
            = m_plain.route(&connection, endAt(source, target, connection), endAt(target, source, connection));
        for (ManhattanConnectionRouter *router : QList<ManhattanConnectionRouter *> {&m_router, &m_openRouter}) {
            const QString name = router == &m_router ? QStringLiteral("router: ") : QStringLiteral("subclass: ");
            if (router->doRoute(&connection) != expected)
                return name + difference(router->doRoute(&connection), expected);
            if (router->doRoute(&connection) != expected)
                return name + QStringLiteral("second time: ") + difference(router->doRoute(&connection), expected);
        }
        return brokenInvariant(expected);
    }

    /// As route(), for the lines in use.
    QString checkLines()
    {
        for (int line = -700; line <= 900; ++line) {
            const bool rowDiffers = m_openRouter.rowUsable(nullptr, line) == (m_plain.rows().count(line) != 0);
            const bool columnDiffers = m_openRouter.colUsable(nullptr, line) == (m_plain.columns().count(line) != 0);
            if (rowDiffers || columnDiffers)
                return QStringLiteral("line %1 is in use in one of them only").arg(line);
        }
        return {};
    }

    /// How many lines are in use.
    size_t lineCount() const { return m_plain.rows().size() + m_plain.columns().size(); }

private:
    static QString brokenInvariant(const Points &points)
    {
        if (points.size() < 2)
            return QStringLiteral("fewer than two points");
        for (qsizetype i = 1; i < points.size(); ++i) {
            if (points[i - 1].x() != points[i].x() && points[i - 1].y() != points[i].y())
                return QStringLiteral("segment %1 is slanted").arg(i);
        }
        return {};
    }

    PlainManhattan::End endAt(const IConnectionAnchor &anchor, const IConnectionAnchor &other,
                              const StubConnection &connection) const
    {
        const QPoint place = anchor.getLocation(other.getReferencePoint());
        Figure *owner = anchor.getOwner();
        const QRect box
            = owner ? owner->getBounds().translated(m_nest.offsetOf(owner)) : QRect(place.x() - 1, place.y() - 1, 2, 2);
        return {place - m_nest.offsetOf(&connection), place, box};
    }

    static QString difference(const Points &actual, const Points &expected)
    {
        QString text;
        QDebug(&text) << "routed" << actual << "instead of" << expected;
        return text;
    }

    const FigureNest &m_nest;
    /// Searches for free lines in its own way, while a subclass is asked about each line.
    ManhattanConnectionRouter m_router;
    OpenManhattanRouter m_openRouter;
    PlainManhattan m_plain;
};

/// Figures, anchors and connections thrown at random, routed both ways.
class Diagram
{
public:
    /// With anchors that stick to their figures, or that lie fixed near or far from them.
    Diagram(unsigned int seed, bool isSticking, int anchorCount, int connectionCount)
        : m_dice(seed)
        , m_isSticking(isSticking)
    {
        for (int i = 0; i < anchorCount; ++i)
            addAnchor();
        for (int i = 0; i < connectionCount; ++i)
            addConnection();
    }

    /// Routes, frees or moves something; an error text when library and plain statement differ.
    QString step()
    {
        StubConnection &connection = *any(m_connections);
        switch (m_dice.between(0, 9)) {
        case 0:
            m_comparison.forget(connection, &ManhattanConnectionRouter::invalidate);
            return m_comparison.checkLines();
        case 1:
            m_comparison.forget(connection, &ManhattanConnectionRouter::remove);
            return m_comparison.checkLines();
        case 2:
            any(m_figures)->setBounds(m_dice.rect(400, 150));
            break;
        case 3:
            moveContainer();
            break;
        default:
            break;
        }
        return m_comparison.route(connection);
    }

    /// Routes all connections in a row.
    QString routeAll()
    {
        QString error;
        for (const auto &connection : m_connections)
            error += m_comparison.route(*connection);
        return error + m_comparison.checkLines();
    }

    QString forgetAll()
    {
        for (const auto &connection : m_connections)
            m_comparison.forget(*connection);
        return m_comparison.checkLines();
    }

    size_t lineCount() const { return m_comparison.lineCount(); }

private:
    template <typename Thing>
    const Thing &any(const std::vector<Thing> &things)
    {
        return things[size_t(m_dice.between(0, int(things.size()) - 1))];
    }

    void addAnchor()
    {
        m_figures.push_back(m_nest.addFigure(m_dice.containers(m_nest), m_dice.rect(400, 150)));
        m_anchors.push_back(m_isSticking ? stickingAnchor(m_figures.back()) : fixedAnchor(m_figures.back()));
    }

    std::unique_ptr<IConnectionAnchor> stickingAnchor(Figure *owner)
    {
        if (m_dice.coin())
            return std::make_unique<ChopboxAnchor>(owner);
        return std::make_unique<EllipseAnchor>(owner);
    }

    std::unique_ptr<IConnectionAnchor> fixedAnchor(Figure *figure)
    {
        Figure *owner = m_dice.between(0, 4) == 0 ? nullptr : figure;
        const QPoint corner = owner ? owner->getBounds().topLeft() + m_nest.offsetOf(owner) : m_dice.point(600);
        const QPoint place = corner + QPoint(m_dice.between(-5, 155), m_dice.between(-5, 155));
        return std::make_unique<StubAnchor>(place, place, owner);
    }

    void addConnection()
    {
        IConnectionAnchor *source = any(m_anchors).get();
        IConnectionAnchor *target = any(m_anchors).get();
        m_connections.push_back(std::make_unique<StubConnection>(source, target));
        m_nest.put(m_connections.back().get(), m_dice.containers(m_nest));
    }

    void moveContainer()
    {
        if (!m_nest.containers().empty())
            any(m_nest.containers())->setBounds(m_dice.rect(300, 400));
    }

    Dice m_dice;
    bool m_isSticking;
    FigureNest m_nest;
    std::vector<Figure *> m_figures;
    std::vector<std::unique_ptr<IConnectionAnchor>> m_anchors;
    std::vector<std::unique_ptr<StubConnection>> m_connections;
    Comparison m_comparison {m_nest};
};

void addSeeds(unsigned int count)
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= count; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

} // namespace

/// Routes of the rectilinear router, compared with those of its plain statement.
class tst_ManhattanOracle : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void routesBetweenFixedAnchors_data() { addSeeds(100); }
    void routesBetweenFixedAnchors();
    void routesBetweenAnchorsThatFollowTheirFigures_data() { addSeeds(60); }
    void routesBetweenAnchorsThatFollowTheirFigures();
    void routesOfManyConnectionsBetweenFewFigures_data() { addSeeds(30); }
    void routesOfManyConnectionsBetweenFewFigures();
    void routesOfHundredsThatWantTheSameLines_data();
    void routesOfHundredsThatWantTheSameLines();
    void routesBetweenEndsOnOneLine();
};

void tst_ManhattanOracle::routesBetweenFixedAnchors()
{
    QFETCH(unsigned int, seed);
    Diagram diagram(seed, false, 10, 12);
    for (int step = 0; step < 80; ++step)
        QCOMPARE(diagram.step(), QString());
    QCOMPARE(diagram.forgetAll(), QString());
}

void tst_ManhattanOracle::routesBetweenAnchorsThatFollowTheirFigures()
{
    QFETCH(unsigned int, seed);
    Diagram diagram(seed, true, 8, 12);
    for (int step = 0; step < 80; ++step)
        QCOMPARE(diagram.step(), QString());
    QCOMPARE(diagram.forgetAll(), QString());
}

void tst_ManhattanOracle::routesOfManyConnectionsBetweenFewFigures()
{
    QFETCH(unsigned int, seed);
    Diagram diagram(seed, true, 3, 40);
    QCOMPARE(diagram.routeAll(), QString());
    for (int step = 0; step < 80; ++step)
        QCOMPARE(diagram.step(), QString());
    QCOMPARE(diagram.routeAll(), QString());
    QCOMPARE(diagram.forgetAll(), QString());
    QCOMPARE(diagram.lineCount(), size_t(0));
}

void tst_ManhattanOracle::routesOfHundredsThatWantTheSameLines_data()
{
    QTest::addColumn<QRect>("source");
    QTest::addColumn<QRect>("target");
    const QSize size(200, 300);
    QTest::newRow("side by side") << QRect(QPoint(100, 100), size) << QRect(QPoint(20100, 700), size);
    QTest::newRow("from right to left") << QRect(QPoint(20100, 700), size) << QRect(QPoint(100, 100), size);
    QTest::newRow("one above the other") << QRect(QPoint(100, 100), size) << QRect(QPoint(700, 20100), size);
    QTest::newRow("from below to above") << QRect(QPoint(700, 20100), size) << QRect(QPoint(100, 100), size);
    QTest::newRow("on a diagonal") << QRect(QPoint(100, 100), size) << QRect(QPoint(20100, 19000), size);
    // The line in the middle is so near to the origin that a search ends there.
    QTest::newRow("around the origin") << QRect(QPoint(-9900, 100), size) << QRect(QPoint(10100, 700), size);
    QTest::newRow("beyond the origin") << QRect(QPoint(-20100, -700), size) << QRect(QPoint(-100, -100), size);
    // Few lines lie between the ends, so that searches meet their bounds.
    for (int gap = 0; gap < 16; ++gap) {
        QTest::addRow("neighbours, %d apart", gap)
            << QRect(QPoint(100, 100), size) << QRect(QPoint(300 + gap, 350), size);
        QTest::addRow("above each other, %d apart", gap)
            << QRect(QPoint(100, 100), size) << QRect(QPoint(250, 400 + gap), size);
    }
}

void tst_ManhattanOracle::routesOfHundredsThatWantTheSameLines()
{
    QFETCH(QRect, source);
    QFETCH(QRect, target);
    FigureNest nest;
    ChopboxAnchor sourceAnchor(nest.addFigure(nest.addContainer(nullptr, QRect(0, 0, 10, 10), false), source));
    EllipseAnchor targetAnchor(nest.addFigure(nullptr, target));
    std::vector<std::unique_ptr<StubConnection>> connections;
    for (int i = 0; i < 300; ++i) {
        connections.push_back(std::make_unique<StubConnection>(&sourceAnchor, &targetAnchor));
        // Some the other way round: they want the same lines.
        if (i % 7 == 0)
            std::swap(connections.back()->sourceAnchor, connections.back()->targetAnchor);
    }
    Comparison comparison(nest);
    for (const auto &connection : connections)
        QCOMPARE(comparison.route(*connection), QString());
    for (size_t i = 0; i < connections.size(); i += 3)
        comparison.forget(*connections[i]);
    for (const auto &connection : connections)
        QCOMPARE(comparison.route(*connection), QString());
}

// Both bounds of the search are the line itself.
void tst_ManhattanOracle::routesBetweenEndsOnOneLine()
{
    FigureNest nest;
    Figure *left = nest.addFigure(nullptr, QRect(100, 50, 101, 100));
    Figure *right = nest.addFigure(nullptr, QRect(200, 250, 100, 100));
    StubAnchor source(QPoint(200, 100), QPoint(200, 100), left);
    StubAnchor target(QPoint(200, 300), QPoint(200, 300), right);
    StubConnection first(&source, &target);
    StubConnection second(&source, &target);
    StubConnection third(&source, &target);
    Comparison comparison(nest);
    for (StubConnection *connection : {&first, &second, &third})
        QCOMPARE(comparison.route(*connection), QString());
    QCOMPARE(comparison.checkLines(), QString());
    QCOMPARE(comparison.lineCount(), size_t(1));
}

PICTEL_TEST_MAIN(tst_ManhattanOracle)
#include "tst_manhattanoracle.moc"
