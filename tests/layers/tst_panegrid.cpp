#include "support/DisplayedRoot.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/layers/FreeformLayer.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>

#include <QImage>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTest>

#include <limits>

using namespace Vantrel::Pictel;

class tst_PaneGrid : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void gridIsOffAtFirst();
    void gridNeedsAStepOfTwo_data();
    void gridNeedsAStepOfTwo();
    void mainGridIsSolidGrayAtEveryFifthStep();
    void subGridIsDottedAtEveryStep();
    void subGridIsPaintedOverTheMainGrid();
    void rowsComeBeforeColumns();
    void firstLineLiesAtAMultipleOfTheStep_data();
    void firstLineLiesAtAMultipleOfTheStep();
    void gridLeavesThePainterAsItWas();
    void gridOfInvalidRectPaintsNothing();
    void backgroundColorIsNotPainted();
    void hooksCanBeOverridden();
    void hooksIgnoreNullPainterAndBadStep();
    void nullPainterRendersNothing();
    void gridLiesBehindTheLayers();
    void enormousGridPaintsOnlyWhatIsVisible();
    void enormousGridLooksLikeASmallOne();
    void enormousGridHonoursTheClip();
    void denseGridPaintsALineForEveryPixel();
    void denseGridKeepsLinesThatLieApart();
    void settingTheGridRepaintsNothing();
    void gridAtTheEndsOfTheNumbersDoesNotHang_data();
    void gridAtTheEndsOfTheNumbersDoesNotHang();
};

namespace {

class TestPane : public FreeformLayeredPane
{
public:
    using FreeformLayeredPane::drawBackground;
    using FreeformLayeredPane::drawMainGrid;
    using FreeformLayeredPane::drawSubGrid;
    using FreeformLayeredPane::FreeformLayeredPane;
};

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

// What drawBackground() paints for a pane of those bounds.
void paintGrid(const TestPane &pane, QPaintDevice &device, const QRect &rect)
{
    QPainter painter(&device);
    pane.drawBackground(&painter, optionFor(rect));
}

QList<QLineF> horizontal(const QList<QLineF> &lines)
{
    QList<QLineF> found;
    for (const QLineF &line : lines) {
        if (line.y1() == line.y2())
            found << line;
    }
    return found;
}

QList<QLineF> vertical(const QList<QLineF> &lines)
{
    QList<QLineF> found;
    for (const QLineF &line : lines) {
        if (line.x1() == line.x2())
            found << line;
    }
    return found;
}

} // namespace

void tst_PaneGrid::gridIsOffAtFirst()
{
    TestPane pane;
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(), 0);
    pane.setDrawGrid(true);
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(PaintCall::Lines), 2);
    device.clear();
    pane.setDrawGrid(false);
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(), 0);
}

void tst_PaneGrid::gridNeedsAStepOfTwo_data()
{
    QTest::addColumn<int>("snapSize");
    QTest::addColumn<int>("calls");
    QTest::newRow("two") << 2 << 2;
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("negative") << -5 << 0;
}

void tst_PaneGrid::gridNeedsAStepOfTwo()
{
    QFETCH(int, snapSize);
    TestPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(snapSize);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QTEST(device.count(), "calls");
}

void tst_PaneGrid::mainGridIsSolidGrayAtEveryFifthStep()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 60, 40));
    const PaintCall call = device.at(0);
    QCOMPARE(call.pen.color(), QColor(Qt::gray));
    QCOMPARE(call.pen.widthF(), 1.0);
    QCOMPARE(call.pen.style(), Qt::SolidLine);
    QCOMPARE(call.lines,
             QList<QLineF>({QLineF(0, 0, 59, 0), QLineF(0, 25, 59, 25), QLineF(0, 0, 0, 39), QLineF(25, 0, 25, 39),
                            QLineF(50, 0, 50, 39)}));
}

void tst_PaneGrid::subGridIsDottedAtEveryStep()
{
    TestPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(10);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 22, 12));
    const PaintCall call = device.at(1);
    QCOMPARE(call.pen.color(), QColor("#e0e0e0"));
    QCOMPARE(call.pen.widthF(), 1.0);
    QCOMPARE(call.pen.style(), Qt::DotLine);
    QCOMPARE(call.lines,
             QList<QLineF>({QLineF(0, 0, 21, 0), QLineF(0, 10, 21, 10), QLineF(0, 0, 0, 11), QLineF(10, 0, 10, 11),
                            QLineF(20, 0, 20, 11)}));
}

void tst_PaneGrid::subGridIsPaintedOverTheMainGrid()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Lines, PaintCall::Lines}));
    QCOMPARE(device.at(0).lines.size(), 8);
    QCOMPARE(device.at(1).lines.size(), 40);
    QVERIFY(device.at(0).isIntegral);
}

void tst_PaneGrid::rowsComeBeforeColumns()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 30));
    const QList<QLineF> lines = device.at(1).lines;
    QCOMPARE(lines.mid(0, 6), horizontal(lines));
    QCOMPARE(lines.mid(6), vertical(lines));
}

void tst_PaneGrid::firstLineLiesAtAMultipleOfTheStep_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    // A rectangle of 11 pixels: its last pixel, where no line lies any more, is start + 10.
    QTest::newRow("on a line") << 5 << 5.0 << 10.0;
    QTest::newRow("behind a line") << 7 << 5.0 << 15.0;
    QTest::newRow("zero") << 0 << 0.0 << 5.0;
    QTest::newRow("negative") << -7 << -5.0 << 0.0;
    QTest::newRow("negative on a line") << -10 << -10.0 << -5.0;
}

void tst_PaneGrid::firstLineLiesAtAMultipleOfTheStep()
{
    QFETCH(int, start);
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(start, start, 11, 11));
    const QList<QLineF> rows = horizontal(device.last(PaintCall::Lines).lines);
    const QList<QLineF> columns = vertical(device.last(PaintCall::Lines).lines);
    QTEST(rows.first().y1(), "first");
    QTEST(rows.last().y1(), "last");
    QTEST(columns.first().x1(), "first");
    QTEST(columns.last().x1(), "last");
    QCOMPARE(rows.first().x1(), double(start));
    QCOMPARE(rows.first().x2(), double(start + 10));
    QCOMPARE(columns.first().y1(), double(start));
    QCOMPARE(columns.first().y2(), double(start + 10));
}

void tst_PaneGrid::gridLeavesThePainterAsItWas()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setPen(QPen(Qt::red, 7, Qt::DashLine));
    pane.drawBackground(&painter, optionFor(QRect(0, 0, 100, 100)));
    QCOMPARE(painter.pen(), QPen(Qt::red, 7, Qt::DashLine));
}

void tst_PaneGrid::gridOfInvalidRectPaintsNothing()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, -10, 10));
    paintGrid(pane, device, QRect());
    QCOMPARE(device.count(), 0);
}

void tst_PaneGrid::backgroundColorIsNotPainted()
{
    TestPane pane;
    pane.setBackgroundColor(Qt::red);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(device.count(), 0);
}

void tst_PaneGrid::hooksCanBeOverridden()
{
    class HookedPane : public TestPane
    {
    public:
        mutable QStringList calls;

    protected:
        void drawMainGrid(QPainter *, const QStyleOptionViewItem &) const override { calls << "main"; }
        void drawSubGrid(QPainter *, const QStyleOptionViewItem &) const override { calls << "sub"; }
    };
    HookedPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device;
    paintGrid(pane, device, QRect(0, 0, 100, 100));
    QCOMPARE(pane.calls, QStringList({"main", "sub"}));
}

void tst_PaneGrid::hooksIgnoreNullPainterAndBadStep()
{
    TestPane pane;
    pane.setDrawGrid(true);
    pane.drawBackground(nullptr, optionFor(QRect(0, 0, 10, 10)));
    pane.drawMainGrid(nullptr, optionFor(QRect(0, 0, 10, 10)));
    pane.drawSubGrid(nullptr, optionFor(QRect(0, 0, 10, 10)));
    RecordingPaintDevice device;
    QPainter painter(&device);
    for (const int snapSize : {0, -3}) {
        pane.setSnapSize(snapSize);
        pane.drawMainGrid(&painter, optionFor(QRect(0, 0, 10, 10)));
        pane.drawSubGrid(&painter, optionFor(QRect(0, 0, 10, 10)));
    }
    QCOMPARE(device.count(), 0);
    pane.setSnapSize(1);
    pane.drawSubGrid(&painter, optionFor(QRect(0, 0, 10, 10)));
    QCOMPARE(device.lines().size(), 18);
}

void tst_PaneGrid::nullPainterRendersNothing()
{
    FreeformLayeredPane pane;
    pane.setFreeformBounds(QRect(0, 0, 10, 10));
    pane.render(nullptr, optionFor(QRect(0, 0, 10, 10)));
    QCOMPARE(pane.getBounds(), QRect(0, 0, 10, 10));
}

void tst_PaneGrid::gridLiesBehindTheLayers()
{
    FreeformLayeredPane pane;
    FreeformLayer layer(nullptr, false);
    Figure figure;
    layer.add(&figure, QRect(20, 20, 10, 10));
    pane.addLayer(&layer, "layer");
    pane.setDrawGrid(true);
    pane.setFreeformBounds(QRect(0, 0, 60, 60));
    pane.validate();
    RecordingPaintDevice device;
    QPainter painter(&device);
    // The grid is painted over all of the pane, whatever part of it is asked for.
    pane.render(&painter, optionFor(QRect(15, 15, 20, 20)));
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Lines, PaintCall::Lines, PaintCall::Rects}));
    QCOMPARE(device.at(0).lines.first(), QLineF(0, 0, 59, 0));
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(20, 20, 10, 10)}));
}

void tst_PaneGrid::enormousGridPaintsOnlyWhatIsVisible()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(100, 50));
    QPainter painter(&device);
    painter.translate(-1002, -2002);
    pane.drawBackground(&painter, optionFor(QRect(-500000000, -500000000, 1000000000, 1000000000)));
    // What is two units beside the device, (1000, 2000) to (1104, 2054), could still be seen.
    QList<QLineF> rows;
    for (int y = 2000; y <= 2050; y += 5)
        rows << QLineF(-500000000, y, 499999999, y);
    QList<QLineF> columns;
    for (int x = 1000; x <= 1100; x += 5)
        columns << QLineF(x, -500000000, x, 499999999);
    QCOMPARE(horizontal(device.at(1).lines), rows);
    QCOMPARE(vertical(device.at(1).lines), columns);
}

void tst_PaneGrid::enormousGridLooksLikeASmallOne()
{
    TestPane pane;
    pane.setDrawGrid(true);
    QImage small(120, 90, QImage::Format_RGB32);
    small.fill(Qt::white);
    QImage enormous = small;
    // Dots begin where a line begins, so both rectangles begin at the same place.
    paintGrid(pane, small, QRect(-10, -10, 1000, 1000));
    paintGrid(pane, enormous, QRect(-10, -10, 1000000, 1000000));
    QCOMPARE(enormous, small);
}

void tst_PaneGrid::enormousGridHonoursTheClip()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(1000, 1000));
    QPainter painter(&device);
    painter.setClipRect(QRect(500, 600, 20, 10));
    pane.drawBackground(&painter, optionFor(QRect(0, 0, 1000000, 1000000)));
    const QList<QLineF> rows = horizontal(device.at(1).lines);
    QVERIFY(rows.first().y1() <= 600.0 && rows.first().y1() >= 590.0);
    QVERIFY(rows.last().y1() >= 605.0 && rows.last().y1() <= 615.0);
}

void tst_PaneGrid::denseGridPaintsALineForEveryPixel()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(1000, 1000));
    QPainter painter(&device);
    // A pixel is 100,000 units wide.
    painter.scale(0.00001, 0.00001);
    pane.drawBackground(&painter, optionFor(QRect(0, 0, 1000000, 2000000)));
    QCOMPARE(device.count(PaintCall::Lines), 2);
    for (int grid = 0; grid < 2; ++grid) {
        const QList<QLineF> rows = horizontal(device.at(grid).lines);
        QVERIFY(rows.size() >= 20 && rows.size() <= 22);
        for (qsizetype row = 1; row < rows.size(); ++row)
            QVERIFY(rows[row].y1() - rows[row - 1].y1() <= 100000);
        const QList<QLineF> columns = vertical(device.at(grid).lines);
        QVERIFY(columns.size() >= 10 && columns.size() <= 12);
        QCOMPARE(columns.constFirst(), QLineF(0, 0, 0, 1999999));
    }
}

void tst_PaneGrid::denseGridKeepsLinesThatLieApart()
{
    TestPane pane;
    pane.setDrawGrid(true);
    RecordingPaintDevice device(QSize(100, 100));
    QPainter painter(&device);
    // Rows lie 5 pixels apart, columns a thousandth of one.
    painter.scale(0.0002, 1.0);
    pane.drawSubGrid(&painter, optionFor(QRect(0, 0, 500000, 100)));
    const QList<QLineF> lines = device.at(0).lines;
    QCOMPARE(horizontal(lines).size(), 20);
    QVERIFY(vertical(lines).size() >= 100);
    QVERIFY(vertical(lines).size() <= 110);
    QVERIFY(vertical(lines).contains(QLineF(0, 0, 0, 99)));
}

void tst_PaneGrid::settingTheGridRepaintsNothing()
{
    CallLog log;
    DisplayedRoot tree(&log);
    FreeformLayeredPane pane;
    pane.setBounds(QRect(0, 0, 100, 100));
    tree.root.add(&pane);
    pane.validate();
    tree.takeDirtyRects();
    log.clear();
    pane.setDrawGrid(true);
    pane.setSnapSize(20);
    QCOMPARE(tree.takeDirtyRects(), QList<QRect>());
    QCOMPARE(log.calls(), QStringList());
    QVERIFY(pane.getFlag(Figure::FLAG_VALID));
}

void tst_PaneGrid::gridAtTheEndsOfTheNumbersDoesNotHang_data()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("snapSize");
    QTest::addColumn<int>("grids");
    QTest::newRow("all there is") << QRect(QPoint(lowest, lowest), QPoint(highest, highest)) << 5 << 2;
    QTest::newRow("last numbers") << QRect(QPoint(highest - 9, highest - 9), QPoint(highest, highest)) << 5 << 2;
    QTest::newRow("first numbers") << QRect(QPoint(lowest, lowest), QPoint(lowest + 9, lowest + 9)) << 5 << 1;
    QTest::newRow("largest step") << QRect(-10, -10, 20, 20) << highest << 2;
}

void tst_PaneGrid::gridAtTheEndsOfTheNumbersDoesNotHang()
{
    QFETCH(QRect, rect);
    QFETCH(int, snapSize);
    TestPane pane;
    pane.setDrawGrid(true);
    pane.setSnapSize(snapSize);
    RecordingPaintDevice device(QSize(100, 100));
    paintGrid(pane, device, rect);
    QTEST(device.count(), "grids");
    QVERIFY(device.lines().size() < 200);
}

PICTEL_TEST_MAIN(tst_PaneGrid)
#include "tst_panegrid.moc"
