#include "layout/NotedScene.h"
#include "support/TestMain.h"

#include <QTest>

#include <limits>

using namespace Vantrel::Pictel;

namespace {

constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();
constexpr int fairlyMuch = 1 << 29;
constexpr int much = 1 << 30;

// Where coordinates begin to be handled with care, and what lies next to it.
const QList<int> delicate {least,       least + 1,       -much - 1, -much, -much + 1, -fairlyMuch - 1,
                           -fairlyMuch, -fairlyMuch + 1, -1,        0,     1,         fairlyMuch - 1,
                           fairlyMuch,  fairlyMuch + 1,  much - 1,  much,  much + 1,  most - 1,
                           most};

/// A figure that says when it is drawn.
class LoggingFigure : public Figure
{
public:
    LoggingFigure()
        : Figure(nullptr, QColor(Qt::transparent))
    { }
    mutable int drawn = 0;

protected:
    void drawFigure(QPainter *, const QStyleOptionViewItem &) const override { ++drawn; }
};

/// Overrides the first thing that is asked of a child, so that it has to be asked each time.
class AskedFigure : public LoggingFigure
{
public:
    bool isVisible() const override { return LoggingFigure::isVisible(); }
};

/// One child in a container that is not in its way; what is done to it is done without looking at the container first.
template <typename Child>
class Lone
{
public:
    explicit Lone(bool isRelative, const QPoint &origin)
        : m_layout(isRelative ? static_cast<Layout *>(new XYLayout) : new FreeformLayout(nullptr, false))
    {
        m_container.setBounds(QRect(origin, QSize(10, 10)));
        m_container.setLayoutManager(m_layout.get());
        m_child.setBounds(QRect(0, 0, 1, 1));
        m_container.add(&m_child);
        isDrawnIn(QRect(0, 0, 1, 1));
    }

    void setBounds(const QRect &bounds) { m_child.setBounds(bounds); }
    bool isDrawnIn(const QRect &area)
    {
        m_child.drawn = 0;
        fillsOf(*m_layout, area);
        return m_child.drawn > 0;
    }
    bool isFoundIn(const QRect &area) const
    {
        Figures found;
        m_layout->findDescendantFigures(found, area, m_everyFigure, false);
        return found.size() == 1;
    }
    bool isHitAt(int x, int y) const { return m_layout->findDescendantAtExcluding(x, y, m_everyFigure) == &m_child; }

private:
    const std::unique_ptr<Layout> m_layout;
    const WatchingSearch m_everyFigure;
    Figure m_container;
    Child m_child;
};

/// Both kinds, in the same place.
struct Pair
{
    explicit Pair(bool isRelative = false, const QPoint &origin = QPoint(0, 0))
        : asked(isRelative, origin)
        , plain(isRelative, origin)
    { }

    void setBounds(const QRect &bounds)
    {
        asked.setBounds(bounds);
        plain.setBounds(bounds);
    }
    bool isPaintedAlike(const QRect &area) { return asked.isDrawnIn(area) == plain.isDrawnIn(area); }
    bool isFoundAlike(const QRect &area) const { return asked.isFoundIn(area) == plain.isFoundIn(area); }
    bool isHitAlike(int x, int y) const { return asked.isHitAt(x, y) == plain.isHitAt(x, y); }

    Lone<AskedFigure> asked;
    Lone<LoggingFigure> plain;
};

// One to three pixels wide, from the first edge on or up to it.
QList<QRect> rectsAt(int edge, bool isHorizontal)
{
    QList<QRect> rects;
    for (const int length : {1, 3}) {
        const int other = edge < 0 ? edge + (length - 1) : edge - (length - 1);
        QRect rect(0, 0, 5, 5);
        if (isHorizontal)
            rect.setCoords(qMin(edge, other), 0, qMax(edge, other), 4);
        else
            rect.setCoords(0, qMin(edge, other), 4, qMax(edge, other));
        rects << rect;
    }
    return rects;
}

QByteArray text(const QRect &bounds, const QRect &area)
{
    QString line;
    QDebug(&line) << bounds << area;
    return line.toUtf8();
}

} // namespace

/// Children are painted and found in the same areas whether they are asked or known, however odd the areas.
class tst_ChildNotesAreas : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void coordinatesAtTheLimits_data();
    void coordinatesAtTheLimits();
    void hitTestsAtTheLimits();
    void areasNextToTheChild();
    void invalidAreas_data();
    void invalidAreas();
    void remoteContainers_data();
    void remoteContainers();
    void coordinatesThatWrapAround();
    void wideChildren();
};

void tst_ChildNotesAreas::coordinatesAtTheLimits_data()
{
    QTest::addColumn<bool>("isHorizontal");
    QTest::newRow("left and right") << true;
    QTest::newRow("top and bottom") << false;
}

void tst_ChildNotesAreas::coordinatesAtTheLimits()
{
    QFETCH(bool, isHorizontal);
    Pair pair;
    for (const int childEdge : delicate) {
        for (const QRect &bounds : rectsAt(childEdge, isHorizontal)) {
            pair.setBounds(bounds);
            for (const int areaEdge : delicate) {
                for (const QRect &area : rectsAt(areaEdge, isHorizontal)) {
                    QVERIFY2(pair.isPaintedAlike(area), text(bounds, area));
                    QVERIFY2(pair.isFoundAlike(area), text(bounds, area));
                }
            }
        }
    }
}

void tst_ChildNotesAreas::hitTestsAtTheLimits()
{
    Pair pair;
    for (const int childEdge : delicate) {
        for (const bool isHorizontal : {true, false}) {
            for (const QRect &bounds : rectsAt(childEdge, isHorizontal)) {
                pair.setBounds(bounds);
                for (const int edge : delicate) {
                    const QPoint point = isHorizontal ? QPoint(edge, 2) : QPoint(2, edge);
                    QVERIFY2(pair.isHitAlike(point.x(), point.y()), text(bounds, QRect(point, point)));
                    QCOMPARE(pair.plain.isHitAt(point.x(), point.y()), bounds.contains(point));
                }
            }
        }
    }
}

void tst_ChildNotesAreas::areasNextToTheChild()
{
    Pair pair(true, QPoint(100, 200));
    const QRect bounds(10, 10, 3, 3);
    pair.setBounds(bounds);
    for (int x = 6; x < 16; ++x) {
        for (int y = 6; y < 16; ++y) {
            const QRect area(x, y, 2, 2);
            const QRect absolute = area.translated(100, 200);
            QCOMPARE(pair.plain.isDrawnIn(absolute), area.intersects(bounds));
            QVERIFY2(pair.isPaintedAlike(absolute), text(bounds, area));
            QCOMPARE(pair.plain.isFoundIn(area), area.intersects(bounds));
            QVERIFY2(pair.isFoundAlike(area), text(bounds, area));
            QCOMPARE(pair.plain.isHitAt(x, y), bounds.contains(x, y));
            QVERIFY2(pair.isHitAlike(x, y), text(bounds, area));
        }
    }
}

void tst_ChildNotesAreas::invalidAreas_data()
{
    QTest::addColumn<QRect>("area");
    QTest::newRow("null") << QRect();
    QTest::newRow("empty") << QRect(11, 11, 0, 0);
    QTest::newRow("no width") << QRect(11, 11, 0, 5);
    QTest::newRow("no height") << QRect(11, 11, 5, 0);
    QTest::newRow("turned over, on it") << QRect(13, 13, -3, -3);
    QTest::newRow("turned over, within it") << QRect(12, 12, -1, -1);
    QTest::newRow("turned over, next to it") << QRect(5, 5, -3, -3);
    QTest::newRow("turned over, around it") << QRect(20, 20, -20, -20);
    QTest::newRow("far away") << QRect(500, 500, -3, -3);
}

void tst_ChildNotesAreas::invalidAreas()
{
    QFETCH(QRect, area);
    Pair pair;
    const QRect bounds(10, 10, 3, 3);
    pair.setBounds(bounds);
    QCOMPARE(pair.plain.isDrawnIn(area), area.intersects(bounds));
    QVERIFY(pair.isPaintedAlike(area));
    QCOMPARE(pair.plain.isFoundIn(area), area.intersects(bounds));
    QVERIFY(pair.isFoundAlike(area));
}

void tst_ChildNotesAreas::remoteContainers_data()
{
    QTest::addColumn<QPoint>("origin");
    for (const int edge : delicate) {
        QTest::addRow("x %d", edge) << QPoint(qMin(edge, most - 20), 0);
        QTest::addRow("y %d", edge) << QPoint(0, qMin(edge, most - 20));
    }
}

void tst_ChildNotesAreas::remoteContainers()
{
    QFETCH(QPoint, origin);
    Pair pair(true, origin);
    const QRect bounds(4, 4, 3, 3);
    pair.setBounds(bounds);
    for (int offset = 0; offset < 10; ++offset) {
        const QRect area(offset, offset, 2, 2);
        const QRect absolute = area.translated(origin);
        QCOMPARE(pair.plain.isDrawnIn(absolute), area.intersects(bounds));
        QVERIFY2(pair.isPaintedAlike(absolute), text(bounds, area));
    }
}

void tst_ChildNotesAreas::coordinatesThatWrapAround()
{
    Pair pair(true, QPoint(most - 20, 0));
    pair.setBounds(QRect(100, 4, 3, 3));
    const QRect area(least + 80, 4, 1, 1);
    QVERIFY(pair.asked.isDrawnIn(area));
    QVERIFY(pair.plain.isDrawnIn(area));
}

void tst_ChildNotesAreas::wideChildren()
{
    Pair pair;
    for (const QRect &bounds : {QRect(-much, 0, most, 5), QRect(0, -much, 5, most), QRect(-much, -much, most, most),
                                QRect(0, 0, most, most), QRect(-fairlyMuch, -fairlyMuch, much, much)}) {
        pair.setBounds(bounds);
        for (const int edge : delicate) {
            for (const QRect &area : rectsAt(edge, true) + rectsAt(edge, false)) {
                QVERIFY2(pair.isPaintedAlike(area), text(bounds, area));
                QVERIFY2(pair.isFoundAlike(area), text(bounds, area));
                QVERIFY2(pair.isHitAlike(area.left(), area.top()), text(bounds, area));
            }
        }
    }
}

PICTEL_TEST_MAIN(tst_ChildNotesAreas)
#include "tst_childnotesareas.moc"
