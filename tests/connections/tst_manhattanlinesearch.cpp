#include "connections/StubAnchor.h"
#include "connections/StubConnection.h"
#include "support/TestMain.h"

#include <vtlpictel/connections/ManhattanConnectionRouter.h>

#include <QRandomGenerator>
#include <QTest>

#include <limits>
#include <memory>
#include <vector>

using namespace Vantrel::Pictel;

namespace {

/// Changes nothing, but could: the router asks it about every single line.
class AskingRouter : public ManhattanConnectionRouter
{ };

/// Anchors on random boxes, joined by more connections than there are free lines between them.
class CrowdedDiagram
{
public:
    CrowdedDiagram(unsigned int seed, int extent, const QPoint &origin)
        : m_dice(seed)
        , m_extent(extent)
        , m_origin(origin)
    {
        for (int i = 0; i < 6; ++i)
            addAnchor();
        for (int i = 0; i < 60; ++i)
            m_connections.push_back(std::make_unique<StubConnection>(anyAnchor(), anyAnchor()));
    }

    StubConnection *anyConnection() { return m_connections[size_t(m_dice.bounded(60))].get(); }
    int bounded(int end) { return m_dice.bounded(end); }

private:
    void addAnchor()
    {
        const QPoint corner = m_origin + QPoint(m_dice.bounded(m_extent), m_dice.bounded(m_extent));
        m_figures.push_back(std::make_unique<Figure>());
        m_figures.back()->setBounds(QRect(corner, QSize(20, 20)));
        const QPoint place = corner + QPoint(m_dice.bounded(20), m_dice.bounded(20));
        m_anchors.push_back(std::make_unique<StubAnchor>(place, place, m_figures.back().get()));
    }

    StubAnchor *anyAnchor() { return m_anchors[size_t(m_dice.bounded(6))].get(); }

    QRandomGenerator m_dice;
    int m_extent;
    QPoint m_origin;
    std::vector<std::unique_ptr<Figure>> m_figures;
    std::vector<std::unique_ptr<StubAnchor>> m_anchors;
    std::vector<std::unique_ptr<StubConnection>> m_connections;
};

QList<QPoint> routed(ManhattanConnectionRouter &router, StubConnection *connection)
{
    router.route(connection);
    return connection->points;
}

} // namespace

class tst_ManhattanLineSearch : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void jumpingOverLinesInUseFindsWhatAskingForEachDoes_data();
    void jumpingOverLinesInUseFindsWhatAskingForEachDoes();
    void wideGapsAreFilledFromTheMiddle();
    void freedLineIsTakenAgain();
};

void tst_ManhattanLineSearch::jumpingOverLinesInUseFindsWhatAskingForEachDoes_data()
{
    QTest::addColumn<unsigned int>("seed");
    QTest::addColumn<int>("extent");
    QTest::addColumn<QPoint>("origin");
    constexpr int far = std::numeric_limits<int>::max() - 1000;
    for (unsigned int seed = 1; seed <= 40; ++seed) {
        QTest::addRow("narrow, seed %u", seed) << seed << 60 << QPoint(0, 0);
        QTest::addRow("wide, seed %u", seed) << seed << 900 << QPoint(0, 0);
        QTest::addRow("around zero, seed %u", seed) << seed << 120 << QPoint(-60, -60);
        QTest::addRow("far out, seed %u", seed) << seed << 400 << QPoint(far, far);
    }
}

void tst_ManhattanLineSearch::jumpingOverLinesInUseFindsWhatAskingForEachDoes()
{
    QFETCH(unsigned int, seed);
    QFETCH(int, extent);
    QFETCH(QPoint, origin);
    CrowdedDiagram diagram(seed, extent, origin);
    ManhattanConnectionRouter jumping;
    AskingRouter asking;
    for (int step = 0; step < 300; ++step) {
        StubConnection *connection = diagram.anyConnection();
        if (diagram.bounded(5) == 0) {
            jumping.remove(connection);
            asking.remove(connection);
        }
        QCOMPARE(routed(jumping, connection), routed(asking, connection));
    }
}

void tst_ManhattanLineSearch::wideGapsAreFilledFromTheMiddle()
{
    Figure left;
    Figure right;
    left.setBounds(QRect(0, 0, 10, 10));
    right.setBounds(QRect(200000, 500, 10, 10));
    StubAnchor source(QPoint(9, 5), QPoint(9, 5), &left);
    StubAnchor target(QPoint(200000, 505), QPoint(200000, 505), &right);
    ManhattanConnectionRouter router;
    std::vector<std::unique_ptr<StubConnection>> connections;
    for (int i = 0; i < 10000; ++i) {
        connections.push_back(std::make_unique<StubConnection>(&source, &target));
        router.route(connections.back().get());
    }
    // 0, 2, -2, 4, -4, ... beside the middle at 100004
    QCOMPARE(connections.at(0)->points.at(1).x(), 100004);
    QCOMPARE(connections.at(1)->points.at(1).x(), 100006);
    QCOMPARE(connections.at(2)->points.at(1).x(), 100002);
    QCOMPARE(connections.at(9999)->points.at(1).x(), 100004 + 10000);
    QCOMPARE(connections.at(9998)->points.at(1).x(), 100004 - 9998);
}

void tst_ManhattanLineSearch::freedLineIsTakenAgain()
{
    Figure left;
    Figure right;
    left.setBounds(QRect(0, 0, 10, 10));
    right.setBounds(QRect(2000, 500, 10, 10));
    StubAnchor source(QPoint(9, 5), QPoint(9, 5), &left);
    StubAnchor target(QPoint(2000, 505), QPoint(2000, 505), &right);
    ManhattanConnectionRouter router;
    std::vector<std::unique_ptr<StubConnection>> connections;
    for (int i = 0; i < 9; ++i) {
        connections.push_back(std::make_unique<StubConnection>(&source, &target));
        router.route(connections.back().get());
    }
    router.remove(connections.at(2).get());
    StubConnection another(&source, &target);
    router.route(&another);
    QCOMPARE(another.points.at(1).x(), 1002);
}

PICTEL_TEST_MAIN(tst_ManhattanLineSearch)
#include "tst_manhattanlinesearch.moc"
