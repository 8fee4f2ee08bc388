#include "LineProbe.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

QPainterPath closedPath(const QPolygonF &points)
{
    QPainterPath path = openPath(points);
    path.closeSubpath();
    return path;
}

} // namespace

class tst_Polygon : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newPolygonIsEmptyAndUnfilled();
    void parentOwnsThePolygon();
    void metaObjectTellsTheClass();
    void pathIsClosed();
    void pathOfOnePointIsEmpty();
    void boundsFollowThePath();
    void twoPointsHaveAnArea();
    void interiorIsContainedWithoutFill();
    void outsideIsNotContainedHoweverNear();
    void widthOfTheLineDoesNotCount();
    void pointOnAChildIsContained();
    void setPointOutOfBoundsIsRefusedAsAPolyline();
    void filledPolygonIsDrawnWithItsBrush();
    void deletedPolygonErasesItsArea();
};

void tst_Polygon::newPolygonIsEmptyAndUnfilled()
{
    Polygon polygon;
    QCOMPARE(polygon.getPointCount(), 0);
    QCOMPARE(polygon.getFill(), false);
}

void tst_Polygon::parentOwnsThePolygon()
{
    QObject owner;
    QCOMPARE((new Polygon(&owner))->parent(), &owner);
}

void tst_Polygon::metaObjectTellsTheClass()
{
    QCOMPARE(Polygon::staticMetaObject.className(), "Vantrel::Pictel::Polygon");
}

void tst_Polygon::pathIsClosed()
{
    ShownLine<Polygon> shown;
    QCOMPARE(shown.path(), closedPath({{0, 0}, {40, 0}, {40, 30}}));
    QCOMPARE(QPointF(shown.path().elementAt(3)), QPointF(0, 0));
}

void tst_Polygon::pathOfOnePointIsEmpty()
{
    ShownLine<Polygon> shown;
    shown.setPoints({{40, 0}});
    QCOMPARE(shown.path().elementCount(), 0);
}

void tst_Polygon::boundsFollowThePath()
{
    ShownLine<Polygon> shown;
    QCOMPARE(shown.line.getBounds(), QRect(0, 0, 40, 30));
}

void tst_Polygon::twoPointsHaveAnArea()
{
    ShownLine<Polygon> shown;
    shown.setPoints({{0, 10}, {100, 10}});
    QCOMPARE(shown.line.getBounds(), QRect(0, 10, 100, 1));
}

void tst_Polygon::interiorIsContainedWithoutFill()
{
    ShownLine<Polygon> shown;
    QCOMPARE(shown.line.getFill(), false);
    QVERIFY(shown.line.contains(QPoint(30, 10)));
}

void tst_Polygon::outsideIsNotContainedHoweverNear()
{
    ShownLine<Polygon> shown;
    QVERIFY(!shown.line.contains(QPoint(42, 10)));
    QVERIFY(!shown.line.contains(QPoint(20, -2)));
    QVERIFY(!shown.line.contains(QPoint(10, 20)));
}

void tst_Polygon::widthOfTheLineDoesNotCount()
{
    ShownLine<Polygon> shown;
    shown.line.setLineWidth(20);
    QVERIFY(!shown.line.contains(QPoint(42, 10)));
}

// The child lies beyond the polygon's bounds: it is asked all the same.
void tst_Polygon::pointOnAChildIsContained()
{
    ShownLine<Polygon> shown;
    ProbeLayout layout;
    shown.line.setLayoutManager(&layout);
    ProbeFigure child;
    shown.line.add(&child);
    child.setBounds(QRect(500, 500, 5, 5));
    QVERIFY(shown.line.contains(QPoint(502, 502)));
    QVERIFY(!shown.line.contains(QPoint(502, 506)));
}

void tst_Polygon::setPointOutOfBoundsIsRefusedAsAPolyline()
{
    ShownLine<Polygon> shown;
    expectWarning("Polyline::setPoint(): index out-of-bounds");
    shown.line.setPoint({1, 1}, 3);
    QCOMPARE(shown.line.getPointCount(), 3);
}

void tst_Polygon::filledPolygonIsDrawnWithItsBrush()
{
    ShownLine<Polygon> shown;
    shown.line.setFill(true);
    RecordingPaintDevice device;
    paint(shown.line, device);
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Path}));
    QCOMPARE(device.at(0).path, closedPath({{100, 200}, {140, 200}, {140, 230}}));
    QCOMPARE(device.at(0).brush, QBrush(QColor(2, 0, 0), Qt::SolidPattern));
}

void tst_Polygon::deletedPolygonErasesItsArea()
{
    ShownTree tree;
    auto polygon = std::make_unique<Polygon>();
    tree.show(*polygon);
    polygon->setLinePoints({{0, 0}, {40, 0}, {40, 30}});
    tree.forget();
    polygon.reset();
    QCOMPARE(tree.takeErased().first(), ShownTree::erased(QRect(0, 0, 40, 30)));
}

PICTEL_TEST_MAIN(tst_Polygon)

#include "tst_polygon.moc"
