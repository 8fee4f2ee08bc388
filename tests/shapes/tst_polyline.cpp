#include "LineProbe.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <QTest>

#include <memory>

using namespace Vantrel::Pictel;

/// What integer and floating-point lines have in common: every test runs for both.
class tst_Polyline : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();

    void newLineIsEmptyAndUnfilled();
    void parentOwnsTheLine();
    void addedPointIsTheLast();
    void insertedPointStandsBeforeItsIndex_data();
    void insertedPointStandsBeforeItsIndex();
    void insertingRepaintsTheNewArea();
    void setPointReplacesOnePoint();
    void setPointOutOfBoundsIsRefused_data();
    void setPointOutOfBoundsIsRefused();
    void removedPointIsGone();
    void removePointOutOfBoundsIsRefused_data();
    void removePointOutOfBoundsIsRefused();
    void allPointsAreRemoved();
    void allPointsAreReplaced();
    void listOfPointsIsACopy();
    void pointOutOfBoundsIsTheOrigin();
    void startAndEndAreTheOutermostPoints();
    void startAndEndOfAnEmptyLineAreTheOrigin();
    void setStartOfAnEmptyLineAddsIt();
    void setStartReplacesTheFirstPoint();
    void setEndOfAnEmptyLineAddsIt();
    void setEndOfOnePointAppends();
    void setEndReplacesTheLastPoint();
    void setEndPointsOfAnEmptyLineAddsBoth();
    void setEndPointsOfOnePointReplacesAndAppends();
    void setEndPointsReplacesBothOfMany();
    void lineWidthErasesRebuildsAndRepaints();
    void sameLineWidthDoesNothing();

    void pathRunsThroughThePointsInOrder();
    void pathRunsThroughTheVirtualPoints();
    void onePointMakesNoPath();
    void pathIsNotRebuiltOutsideADisplayedTree();
    void boundsFollowThePath();
    void boundsOfOnePointAreEmpty();
    void setBoundsDoesNotMoveThePoints();
    void lineIsDrawnUnfilledAtItsAbsolutePlace();

    void pointOnAChildIsContained();
    void childOutsideTheGrownBoundsIsNotAsked();
    void emptyLineContainsNothing();
    void hitBandFollowsTheTolerance();
    void halfTheLineWidthWidensTheBoundsOnly();
    void toleranceCanBeChanged();
    void extremeToleranceContainsNothing();

    void deletedLineErasesItsArea();
    void deletedLineOutsideADisplayedTreeErasesNothing();
    void lineDeletedByItsPathChangedListenerStopsThere();
    void metaObjectTellsTheClass();

private:
    template <typename Check>
    void withLine(Check check);
};

void tst_Polyline::initTestCase_data()
{
    QTest::addColumn<bool>("isFloating");
    QTest::newRow("Polyline") << false;
    QTest::newRow("PolylineF") << true;
}

template <typename Check>
void tst_Polyline::withLine(Check check)
{
    QFETCH_GLOBAL(bool, isFloating);
    if (isFloating) {
        ShownLine<PolylineF> shown;
        check(shown, shown.line);
    } else {
        ShownLine<Polyline> shown;
        check(shown, shown.line);
    }
}

namespace {

template <typename Shown>
using PointOf = typename std::decay_t<Shown>::Point;

template <typename Shown>
using PointsOf = QList<PointOf<Shown>>;

template <typename Line>
auto lineOutsideATree(const Line &)
{
    return std::make_unique<Line>();
}

QByteArray outOfBounds(const char *className, const char *operation)
{
    return QByteArray(className) + "::" + operation + "(): index out-of-bounds";
}

template <typename Line>
const char *nameOf(const LineProbe<Line> &)
{
    return LineTraits<Line>::name;
}

} // namespace

void tst_Polyline::newLineIsEmptyAndUnfilled()
{
    withLine([](auto &shown, auto &line) {
        const auto fresh = lineOutsideATree(line);
        QCOMPARE(fresh->getPointCount(), 0);
        QCOMPARE(fresh->getLinePoints(), PointsOf<decltype(shown)>());
        QCOMPARE(fresh->getFill(), false);
        QCOMPARE(fresh->getLineWidth(), 1);
        QVERIFY(fresh->getPainterPath().isEmpty());
    });
}

void tst_Polyline::parentOwnsTheLine()
{
    QObject owner;
    QCOMPARE((new Polyline(&owner))->parent(), &owner);
    QCOMPARE((new PolylineF(&owner))->parent(), &owner);
}

void tst_Polyline::addedPointIsTheLast()
{
    withLine([](auto &shown, auto &line) {
        line.addPoint({60, 50});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{0, 0}, {40, 0}, {40, 30}, {60, 50}}));
        QCOMPARE(line.getPointCount(), 4);
        QCOMPARE(shown.changes, QList<QRectF>({QRectF()}));
        QCOMPARE(shown.tree.takeErased(), QStringList());
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>({QRect(0, 0, 60, 50)}));
    });
}

void tst_Polyline::insertedPointStandsBeforeItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("place");

    QTest::newRow("before the first") << 0 << 0;
    QTest::newRow("in between") << 1 << 1;
    QTest::newRow("after the last") << 3 << 3;
    QTest::newRow("-3") << -3 << 0;
    QTest::newRow("99") << 99 << 3;
}

void tst_Polyline::insertedPointStandsBeforeItsIndex()
{
    QFETCH(int, index);
    QFETCH(int, place);
    withLine([=](auto &shown, auto &line) {
        PointsOf<decltype(shown)> expected {{0, 0}, {40, 0}, {40, 30}};
        expected.insert(place, {7, 8});
        line.insertPoint({7, 8}, index);
        QCOMPARE(line.getLinePoints(), expected);
    });
}

void tst_Polyline::insertingRepaintsTheNewArea()
{
    withLine([](auto &shown, auto &line) {
        line.insertPoint({60, 50}, 1);
        QCOMPARE(shown.changes, QList<QRectF>({QRectF()}));
        QCOMPARE(shown.tree.takeErased(), QStringList());
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>({QRect(0, 0, 60, 50)}));
    });
}

void tst_Polyline::setPointReplacesOnePoint()
{
    withLine([](auto &shown, auto &line) {
        line.setPoint({20, 90}, 1);
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{0, 0}, {20, 90}, {40, 30}}));
        QCOMPARE(shown.changes, QList<QRectF>({QRectF()}));
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>({shown.firstBounds(), QRect(0, 0, 40, 90)}));
        QCOMPARE(shown.tree.takeErased(), QStringList({ShownTree::erased(shown.firstBounds())}));
    });
}

void tst_Polyline::setPointOutOfBoundsIsRefused_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("count") << 3;
    QTest::newRow("5") << 5;
}

void tst_Polyline::setPointOutOfBoundsIsRefused()
{
    QFETCH(int, index);
    withLine([=](auto &shown, auto &line) {
        expectWarning(outOfBounds(nameOf(line), "setPoint"));
        line.setPoint({20, 90}, index);
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{0, 0}, {40, 0}, {40, 30}}));
        QCOMPARE(shown.changes, QList<QRectF>());
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>());
    });
}

void tst_Polyline::removedPointIsGone()
{
    withLine([](auto &shown, auto &line) {
        line.removePoint(2);
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{0, 0}, {40, 0}}));
        line.removePoint(0);
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{40, 0}}));
        QCOMPARE(shown.changes, QList<QRectF>({QRectF(), QRectF()}));
        QCOMPARE(shown.tree.takeErased().first(), ShownTree::erased(shown.firstBounds()));
        QCOMPARE(shown.tree.takeRepaints().first(), shown.firstBounds());
    });
}

void tst_Polyline::removePointOutOfBoundsIsRefused_data()
{
    setPointOutOfBoundsIsRefused_data();
}

void tst_Polyline::removePointOutOfBoundsIsRefused()
{
    QFETCH(int, index);
    withLine([=](auto &shown, auto &line) {
        expectWarning(outOfBounds(nameOf(line), "removePoint"));
        line.removePoint(index);
        QCOMPARE(line.getPointCount(), 3);
        QCOMPARE(shown.changes, QList<QRectF>());
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>());
    });
}

void tst_Polyline::allPointsAreRemoved()
{
    withLine([](auto &shown, auto &line) {
        line.removeAllPoints();
        QCOMPARE(line.getPointCount(), 0);
        QVERIFY(shown.path().isEmpty());
        QCOMPARE(shown.changes, QList<QRectF>({QRectF()}));
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>({shown.firstBounds()}));
        QCOMPARE(shown.tree.takeErased(), QStringList({ShownTree::erased(shown.firstBounds())}));
    });
}

void tst_Polyline::allPointsAreReplaced()
{
    withLine([](auto &shown, auto &line) {
        line.setLinePoints({{5, 6}, {25, 16}});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{5, 6}, {25, 16}}));
        QCOMPARE(shown.changes, QList<QRectF>({QRectF()}));
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>({shown.firstBounds(), QRect(5, 6, 20, 10)}));
        QCOMPARE(shown.tree.takeErased(), QStringList({ShownTree::erased(shown.firstBounds())}));
    });
}

void tst_Polyline::listOfPointsIsACopy()
{
    withLine([](auto &, auto &line) {
        auto points = line.getLinePoints();
        points.clear();
        QCOMPARE(line.getPointCount(), 3);
    });
}

void tst_Polyline::pointOutOfBoundsIsTheOrigin()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({{1, 2}, {3, 4}});
        QCOMPARE(line.getPoint(0), QPoint(1, 2));
        QCOMPARE(line.getPoint(1), QPoint(3, 4));
        QCOMPARE(line.getPoint(2), QPoint(0, 0));
        QCOMPARE(line.getPoint(-1), QPoint(0, 0));
    });
}

void tst_Polyline::startAndEndAreTheOutermostPoints()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({{1, 2}, {3, 4}, {5, 6}});
        QCOMPARE(line.getStart(), PointOf<decltype(shown)>(1, 2));
        QCOMPARE(line.getEnd(), PointOf<decltype(shown)>(5, 6));
    });
}

void tst_Polyline::startAndEndOfAnEmptyLineAreTheOrigin()
{
    withLine([](auto &shown, auto &line) {
        line.removeAllPoints();
        QCOMPARE(line.getStart(), PointOf<decltype(shown)>(0, 0));
        QCOMPARE(line.getEnd(), PointOf<decltype(shown)>(0, 0));
    });
}

void tst_Polyline::setStartOfAnEmptyLineAddsIt()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({});
        line.setStart({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}}));
    });
}

void tst_Polyline::setStartReplacesTheFirstPoint()
{
    withLine([](auto &shown, auto &line) {
        line.setStart({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}, {40, 0}, {40, 30}}));
        QCOMPARE(shown.tree.takeErased(), QStringList({ShownTree::erased(shown.firstBounds())}));
        shown.setPoints({{9, 9}});
        line.setStart({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}}));
    });
}

void tst_Polyline::setEndOfAnEmptyLineAddsIt()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({});
        line.setEnd({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}}));
    });
}

void tst_Polyline::setEndOfOnePointAppends()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({{9, 9}});
        line.setEnd({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{9, 9}, {1, 2}}));
    });
}

void tst_Polyline::setEndReplacesTheLastPoint()
{
    withLine([](auto &shown, auto &line) {
        line.setEnd({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{0, 0}, {40, 0}, {1, 2}}));
        shown.setPoints({{9, 9}, {8, 8}});
        line.setEnd({1, 2});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{9, 9}, {1, 2}}));
    });
}

void tst_Polyline::setEndPointsOfAnEmptyLineAddsBoth()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({});
        line.setEndPoints({1, 2}, {3, 4});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}, {3, 4}}));
    });
}

void tst_Polyline::setEndPointsOfOnePointReplacesAndAppends()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({{9, 9}});
        line.setEndPoints({1, 2}, {3, 4});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}, {3, 4}}));
    });
}

void tst_Polyline::setEndPointsReplacesBothOfMany()
{
    withLine([](auto &shown, auto &line) {
        line.setEndPoints({1, 2}, {3, 4});
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{1, 2}, {40, 0}, {3, 4}}));
        QCOMPARE(shown.changes.size(), 2);
    });
}

void tst_Polyline::lineWidthErasesRebuildsAndRepaints()
{
    withLine([](auto &shown, auto &line) {
        line.setLineWidth(5);
        QCOMPARE(line.getLineWidth(), 5);
        QCOMPARE(shown.changes, QList<QRectF>({QRectF()}));
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>({shown.firstBounds(), shown.firstBounds()}));
        QCOMPARE(shown.tree.takeErased(), QStringList({ShownTree::erased(shown.firstBounds())}));
    });
}

void tst_Polyline::sameLineWidthDoesNothing()
{
    withLine([](auto &shown, auto &line) {
        line.setLineWidth(1);
        QCOMPARE(shown.changes, QList<QRectF>());
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>());
    });
}

void tst_Polyline::pathRunsThroughThePointsInOrder()
{
    withLine([](auto &shown, auto &) { QCOMPARE(shown.path(), openPath({{0, 0}, {40, 0}, {40, 30}})); });
}

void tst_Polyline::pathRunsThroughTheVirtualPoints()
{
    withLine([](auto &shown, auto &line) {
        line.pathPoints = {{7, 7}, {8, 9}};
        Q_EMIT line.pathChanged(QRectF(1, 2, 3, 4));
        QCOMPARE(shown.path(), openPath({{7, 7}, {8, 9}}));
    });
}

void tst_Polyline::onePointMakesNoPath()
{
    withLine([](auto &shown, auto &line) {
        line.setLinePoints({{40, 0}});
        QCOMPARE(shown.path().elementCount(), 0);
    });
}

void tst_Polyline::pathIsNotRebuiltOutsideADisplayedTree()
{
    withLine([](auto &, auto &line) {
        const auto hidden = lineOutsideATree(line);
        QSignalSpy changes(hidden.get(), &Shape::pathChanged);
        hidden->setLinePoints({{0, 0}, {40, 0}, {40, 30}});
        QCOMPARE(changes.size(), 1);
        QCOMPARE(hidden->getPainterPath().elementCount(), 0);
        QCOMPARE(hidden->getBounds(), QRect());
    });
}

void tst_Polyline::boundsFollowThePath()
{
    withLine([](auto &shown, auto &line) {
        QCOMPARE(line.getBounds(), QRect(0, 0, 40, 30));
        QCOMPARE(line.getBoundingRect(), QRect(0, 0, 40, 30));
        shown.setPoints({{-5, 10}, {20, 70}, {8, -3}});
        QCOMPARE(line.getBounds(), QRect(-5, -3, 25, 73));
    });
}

void tst_Polyline::boundsOfOnePointAreEmpty()
{
    withLine([](auto &shown, auto &line) {
        shown.setPoints({{40, 0}});
        QCOMPARE(line.getBounds(), QRect());
    });
}

void tst_Polyline::setBoundsDoesNotMoveThePoints()
{
    withLine([](auto &shown, auto &line) {
        line.setBounds(QRect(500, 500, 10, 10));
        QCOMPARE(line.getBounds(), shown.firstBounds());
        QCOMPARE(line.getLinePoints(), PointsOf<decltype(shown)>({{0, 0}, {40, 0}, {40, 30}}));
    });
}

void tst_Polyline::lineIsDrawnUnfilledAtItsAbsolutePlace()
{
    withLine([](auto &, auto &line) {
        RecordingPaintDevice device;
        paint(line, device);
        QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Path}));
        QCOMPARE(device.at(0).path, openPath({{100, 200}, {140, 200}, {140, 230}}));
        QCOMPARE(device.at(0).brush.style(), Qt::NoBrush);
        QCOMPARE(device.at(0).pen.color(), QColor(1, 0, 0));
    });
}

void tst_Polyline::pointOnAChildIsContained()
{
    withLine([](auto &, auto &line) {
        ProbeLayout layout;
        line.setLayoutManager(&layout);
        ProbeFigure first;
        ProbeFigure second;
        line.add(&first);
        line.add(&second);
        second.setBounds(QRect(10, 15, 5, 5));
        QVERIFY(line.contains(QPoint(12, 17)));
        QVERIFY(!line.contains(QPoint(20, 17)));
    });
}

void tst_Polyline::childOutsideTheGrownBoundsIsNotAsked()
{
    withLine([](auto &, auto &line) {
        ProbeLayout layout;
        line.setLayoutManager(&layout);
        ProbeFigure child;
        line.add(&child);
        child.setBounds(QRect(100, 100, 5, 5));
        QVERIFY(!line.contains(QPoint(102, 102)));
    });
}

void tst_Polyline::emptyLineContainsNothing()
{
    withLine([](auto &shown, auto &line) {
        QVERIFY(line.contains(QPoint(40, 10)));
        shown.setPoints({{0, 0}});
        QVERIFY(!line.contains(QPoint(0, 0)));
        line.removeAllPoints();
        QVERIFY(!line.contains(QPoint(0, 0)));
    });
}

void tst_Polyline::hitBandFollowsTheTolerance()
{
    withLine([](auto &shown, auto &line) {
        const int reach = std::decay_t<decltype(line)>::M_tolerance;
        shown.setPoints({{0, 0}, {100, 0}, {100, 100}});
        QVERIFY(line.contains(QPoint(50, -reach + 1)));
        QVERIFY(!line.contains(QPoint(50, -reach - 1)));
        QVERIFY(line.contains(QPoint(100 + reach - 1, 50)));
        QVERIFY(!line.contains(QPoint(100 + reach + 1, 50)));
        QVERIFY(!line.contains(QPoint(50, reach + 1)));
        QVERIFY(!line.contains(QPoint(100 - reach - 1, 50)));
    });
}

// The child shows how far the bounds reach where the stroke does not.
void tst_Polyline::halfTheLineWidthWidensTheBoundsOnly()
{
    withLine([](auto &shown, auto &line) {
        const int reach = std::decay_t<decltype(line)>::M_tolerance + 3;
        ProbeLayout layout;
        line.setLayoutManager(&layout);
        shown.setPoints({{0, 0}, {100, 0}, {100, 100}});
        line.setLineWidth(7);
        QVERIFY(!line.contains(QPoint(50, -reach)));
        ProbeFigure child;
        line.add(&child);
        child.setBounds(QRect(-100, -100, 400, 400));
        QVERIFY(line.contains(QPoint(50, -reach)));
        QVERIFY(!line.contains(QPoint(50, -reach - 1)));
        QVERIFY(line.contains(QPoint(-reach, 50)));
        QVERIFY(!line.contains(QPoint(-reach - 1, 50)));
        QVERIFY(line.contains(QPoint(99 + reach, 50)));
        QVERIFY(!line.contains(QPoint(100 + reach, 50)));
        QVERIFY(line.contains(QPoint(50, 99 + reach)));
        QVERIFY(!line.contains(QPoint(50, 100 + reach)));
    });
}

void tst_Polyline::toleranceCanBeChanged()
{
    withLine([](auto &shown, auto &line) {
        int &tolerance = std::decay_t<decltype(line)>::M_tolerance;
        shown.setPoints({{0, 0}, {100, 0}, {100, 100}});
        const int original = std::exchange(tolerance, 20);
        const bool isHit = line.contains(QPoint(50, 18));
        const bool isMissed = !line.contains(QPoint(50, 22));
        tolerance = original;
        QVERIFY(isHit);
        QVERIFY(isMissed);
        QVERIFY(!line.contains(QPoint(50, 18)));
    });
}

void tst_Polyline::extremeToleranceContainsNothing()
{
    withLine([](auto &shown, auto &line) {
        int &tolerance = std::decay_t<decltype(line)>::M_tolerance;
        shown.setPoints({{0, 0}, {100, 0}, {100, 100}});
        const int original = std::exchange(tolerance, std::numeric_limits<int>::min());
        line.setLineWidth(-100);
        const bool isHit = line.contains(QPoint(50, 0));
        tolerance = original;
        QVERIFY(!isHit);
    });
}

void tst_Polyline::deletedLineErasesItsArea()
{
    withLine([](auto &shown, auto &line) {
        auto other = lineOutsideATree(line);
        shown.tree.show(*other);
        other->setLinePoints({{500, 300}, {520, 340}});
        shown.tree.forget();
        other.reset();
        QCOMPARE(shown.tree.takeErased().first(), ShownTree::erased(QRect(500, 300, 20, 40)));
        QCOMPARE(shown.tree.root().childFigureCount(), 1);
    });
}

void tst_Polyline::deletedLineOutsideADisplayedTreeErasesNothing()
{
    withLine([](auto &shown, auto &line) {
        auto other = lineOutsideATree(line);
        shown.tree.show(*other);
        other->setLinePoints({{500, 300}, {520, 340}});
        shown.tree.root().remove(other.get());
        shown.tree.forget();
        other.reset();
        QCOMPARE(shown.tree.takeRepaints(), QList<QRect>());
    });
}

void tst_Polyline::lineDeletedByItsPathChangedListenerStopsThere()
{
    withLine([](auto &shown, auto &line) {
        for (int operation = 0; operation < 5; ++operation) {
            auto other = lineOutsideATree(line);
            shown.tree.show(*other);
            auto *const mortal = other.get();
            QObject::connect(mortal, &Shape::pathChanged, &shown.tree.root(), [&other] { other.reset(); });
            switch (operation) {
            case 0:
                mortal->addPoint({1, 1});
                break;
            case 1:
                mortal->insertPoint({1, 1}, 0);
                break;
            case 2:
                mortal->setLinePoints({{1, 1}, {2, 2}});
                break;
            case 3:
                mortal->setEndPoints({1, 1}, {2, 2});
                break;
            default:
                mortal->setLineWidth(3);
            }
            QCOMPARE(other.get(), nullptr);
            QCOMPARE(shown.tree.root().childFigureCount(), 1);
        }
    });
}

void tst_Polyline::metaObjectTellsTheClass()
{
    QCOMPARE(Polyline::staticMetaObject.className(), "Vantrel::Pictel::Polyline");
    QCOMPARE(PolylineF::staticMetaObject.className(), "Vantrel::Pictel::PolylineF");
}

PICTEL_TEST_MAIN(tst_Polyline)

#include "tst_polyline.moc"
