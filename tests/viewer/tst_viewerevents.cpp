#include "support/TestMain.h"

#include "Drawing.h"
#include "EventLog.h"

#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

using namespace Vantrel::Pictel;

namespace {

/// Lets no paint event through to a widget as long as it lives.
class PaintSwallower : public QObject
{
public:
    explicit PaintSwallower(QObject &widget) { widget.installEventFilter(this); }
    int count() const { return m_count; }

    bool eventFilter(QObject *, QEvent *event) override
    {
        const bool isSwallowed = event->type() == QEvent::Paint;
        m_count += isSwallowed ? 1 : 0;
        return isSwallowed;
    }

private:
    int m_count = 0;
};

} // namespace

class tst_ViewerEvents : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void dirtyRectIsRepainted_data();
    void dirtyRectIsRepainted();
    void dirtyRectIsRepaintedWithAFringeWhenScaled();
    void invalidDirtyRectIsIgnored();
    void dirtyRectOutOfSightIsIgnored();
    void manyDirtyRectsBecomeTheRectAroundThem_data();
    void manyDirtyRectsBecomeTheRectAroundThem();
    void dirtyRectsBeyondManyWidenTheRectAroundThem();
    void touchingDirtyRectsBecomeTheRectAroundThem_data();
    void touchingDirtyRectsBecomeTheRectAroundThem();
    void dirtyRectsAreExactAgainAfterPainting();
    void dirtyRectsAreRepaintedAfterAPaintingThatWasSwallowed();
    void figureChangeIsRepainted();
    void updateAndRepaintAreTheWidgets();

    void clickLocationIsInContentCoordinates();
    void clickLocationDefaultsToTheCentre();
    void wheelScrolls();
    void resizeGrowsTheContent();
    void resizeAdaptsTheScrollBars();
    void resizeUpdatesAHighlight();
    void framedViewportGetsTheWholeSize();
    void mousePressGoesOnToTheParent();
    void resizeOfTheViewport();
    void scrollingIsIgnoredDuringAZoom();
    void widgetResizeIsFilteredDuringAZoomOnly();
    void releasedScrollBarShrinksTheContent();
    void scrollingUpdatesAHighlight();
    void nullEventsAreIgnored();
};

void tst_ViewerEvents::dirtyRectIsRepainted_data()
{
    QTest::addColumn<QRect>("dirty");
    QTest::addColumn<QRect>("painted");
    QTest::newRow("inside") << QRect(10, 20, 30, 40) << QRect(60, 70, 30, 40);
    QTest::newRow("negative") << QRect(-20, -10, 5, 6) << QRect(30, 40, 5, 6);
    QTest::newRow("partly visible") << QRect(300, 200, 500, 500) << QRect(350, 250, 50, 50);
}

void tst_ViewerEvents::dirtyRectIsRepainted()
{
    QFETCH(QRect, dirty);
    QFETCH(QRect, painted);
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.updateContentRect(dirty);
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), QRegion(painted));
}

void tst_ViewerEvents::dirtyRectIsRepaintedWithAFringeWhenScaled()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(-50, -50)));
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.updateContentRect(QRect(10, 20, 30, 40));
    QTRY_COMPARE(log.count(), 1);
    // (120, 140, 60, 80) in pixels, grown by one content unit and one pixel.
    QCOMPARE(log.painted(), QRegion(117, 137, 66, 86));
}

void tst_ViewerEvents::invalidDirtyRectIsIgnored()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(-50, -50)));
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.updateContentRect(QRect(10, 20, 0, 40));
    drawing.viewer.updateContentRect(QRect());
    QCoreApplication::processEvents();
    QCOMPARE(log.count(), 0);
}

void tst_ViewerEvents::dirtyRectOutOfSightIsIgnored()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(100, 100)));
    EventLog log(drawing.widget, {QEvent::Paint});
    for (const QRect dirty :
         {QRect(90, 100, 10, 10), QRect(100, 90, 10, 10), QRect(500, 100, 9, 9), QRect(100, 400, 9, 9)})
        drawing.viewer.updateContentRect(dirty);
    drawing.viewer.updateContentRect(QRect(95, 95, 10, 10));
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), QRegion(150, 150, 5, 5));
    drawing.viewer.setUpdatesEnabled(false);
    drawing.viewer.updateContentRect(QRect(200, 200, 10, 10));
    QCoreApplication::processEvents();
    QCOMPARE(log.count(), 1);
}

void tst_ViewerEvents::manyDirtyRectsBecomeTheRectAroundThem_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("exact");
    QTest::newRow("few") << 32 << true;
    QTest::newRow("many") << 33 << false;
    QTest::newRow("more") << 90 << false;
}

void tst_ViewerEvents::manyDirtyRectsBecomeTheRectAroundThem()
{
    QFETCH(int, count);
    QFETCH(bool, exact);
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    EventLog log(drawing.widget, {QEvent::Paint});
    QRegion rects;
    for (int i = 0; i < count; ++i) {
        drawing.viewer.updateContentRect(QRect(3 * i - 50, 2 * i - 50, 2, 1));
        rects += QRect(3 * i, 2 * i, 2, 1);
    }
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), exact ? rects : QRegion(rects.boundingRect()));
}

void tst_ViewerEvents::dirtyRectsBeyondManyWidenTheRectAroundThem()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    EventLog log(drawing.widget, {QEvent::Paint});
    for (int i = 0; i < 40; ++i)
        drawing.viewer.updateContentRect(QRect(3 * i - 50, 2 * i - 50, 2, 1));
    drawing.viewer.updateContentRect(QRect(0, 0, 3, 3));
    drawing.viewer.updateContentRect(QRect(200, 150, 5, 5));
    drawing.viewer.updateContentRect(QRect(220, 150, 5, 5));
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), QRegion(0, 0, 275, 205));
}

void tst_ViewerEvents::touchingDirtyRectsBecomeTheRectAroundThem_data()
{
    const QRect first(0, 0, 20, 10);
    QTest::addColumn<QList<QRect>>("dirty");
    QTest::addColumn<QRegion>("painted");
    const auto row = [](const char *name, const QList<QRect> &dirty, const QRegion &painted) {
        QTest::newRow(name) << dirty << painted;
    };
    row("overlapping", {first, QRect(3, 2, 20, 10)}, QRect(0, 0, 23, 12));
    row("side by side", {first, QRect(20, 4, 20, 10)}, QRect(0, 0, 40, 14));
    row("corner to corner", {first, QRect(20, 10, 20, 10)}, QRect(0, 0, 40, 20));
    row("a pixel apart", {first, QRect(21, 4, 20, 10)}, QRegion(first) + QRect(21, 4, 20, 10));
    row("around twice as many pixels", {QRect(0, 0, 10, 10), QRect(10, 10, 10, 10)}, QRect(0, 0, 20, 20));
    row("around more than twice as many pixels", {QRect(0, 0, 10, 10), QRect(10, 10, 11, 9)},
        QRegion(0, 0, 10, 10) + QRect(10, 10, 11, 9));
    row("overlapping pixels count once", {QRect(0, 0, 10, 10), QRect(1, 0, 10, 10), QRect(11, 10, 12, 9)},
        QRegion(0, 0, 11, 10) + QRect(11, 10, 12, 9));
    row("inside", {first, QRect(5, 5, 4, 4)}, first);
    row("joined by a third", {QRect(0, 0, 10, 10), QRect(20, 0, 10, 10), QRect(10, 0, 10, 10)}, QRect(0, 0, 30, 10));
    row("a chain", {QRect(0, 0, 10, 10), QRect(10, 10, 10, 10), QRect(20, 20, 10, 10)},
        QRegion(0, 0, 20, 20) + QRect(20, 20, 10, 10));
}

void tst_ViewerEvents::touchingDirtyRectsBecomeTheRectAroundThem()
{
    QFETCH(QList<QRect>, dirty);
    QFETCH(QRegion, painted);
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(0, 0)));
    EventLog log(drawing.widget, {QEvent::Paint});
    for (const QRect &rect : dirty)
        drawing.viewer.updateContentRect(rect);
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted().translated(-drawing.widget.fromLogical(QPointF(0, 0)).toPoint()), painted);
}

void tst_ViewerEvents::dirtyRectsAreExactAgainAfterPainting()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    for (int i = 0; i < 100; ++i)
        drawing.viewer.updateContentRect(QRect(3 * i - 50, 2 * i - 50, 2, 1));
    QCoreApplication::processEvents();
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.updateContentRect(QRect(0, 0, 2, 2));
    drawing.viewer.updateContentRect(QRect(100, 100, 2, 2));
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), QRegion(50, 50, 2, 2) + QRegion(150, 150, 2, 2));
}

void tst_ViewerEvents::dirtyRectsAreRepaintedAfterAPaintingThatWasSwallowed()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    EventLog log(drawing.widget, {QEvent::Paint});
    {
        const PaintSwallower swallower(drawing.widget);
        drawing.viewer.updateContentRect(QRect(10, 20, 30, 40));
        QTRY_COMPARE(swallower.count(), 1);
    }
    QCOMPARE(log.count(), 0);
    drawing.viewer.updateContentRect(QRect(10, 20, 30, 40));
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), QRegion(60, 70, 30, 40));
}

void tst_ViewerEvents::figureChangeIsRepainted()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.figure.setBounds(QRect(150, 20, 30, 40));
    QTRY_COMPARE(log.count(), 1);
    QCOMPARE(log.painted(), QRegion(0, 0, 100, 100) + QRegion(150, 20, 30, 40));
}

void tst_ViewerEvents::updateAndRepaintAreTheWidgets()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.repaint();
    QCOMPARE(log.count(), 1);
    drawing.viewer.update();
    QCOMPARE(log.count(), 1);
    QTRY_COMPARE(log.count(), 2);
    QCOMPARE(log.painted(), QRegion(0, 0, 400, 300));
}

void tst_ViewerEvents::clickLocationIsInContentCoordinates()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 20)));
    QWindow *window = drawing.viewer.windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, QPoint(30, 40));
    QCOMPARE(drawing.viewer.getLastClickLocation(), QPoint(25, 40));
    drawing.viewer.horizontalScrollBar()->setValue(0);
    QCOMPARE(drawing.viewer.getLastClickLocation(), QPoint(25, 40));
    QTest::mouseClick(window, Qt::RightButton, Qt::NoModifier, QPoint(2, 4));
    QCOMPARE(drawing.viewer.getLastClickLocation(), QPoint(-49, 22));
}

void tst_ViewerEvents::clickLocationDefaultsToTheCentre()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(0, 0)));
    QCOMPARE(drawing.viewer.getLastClickLocation(), QPoint(199, 149));
    drawing.viewer.setViewLocation(QPoint(100, 100), false);
    QCOMPARE(drawing.viewer.getLastClickLocation(), QPoint(199, 149));
    drawing.viewer.resetLastClickLocation();
    QCOMPARE(drawing.viewer.getLastClickLocation(), QPoint(299, 249));
}

void tst_ViewerEvents::wheelScrolls()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    const QPointF position(20, 30);
    QWheelEvent wheel(position, drawing.viewer.viewport()->mapToGlobal(position), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(drawing.viewer.viewport(), &wheel);
    const int scrolled = drawing.viewer.verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    QCOMPARE(drawing.widget.pos(), QPoint(0, -scrolled));
    QCOMPARE(drawing.viewer.getViewRect(), QRect(-50, -50 + scrolled, 400, 300));
}

void tst_ViewerEvents::resizeGrowsTheContent()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.viewer.resize(600, 250);
    QCoreApplication::processEvents();
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 600, 300));
    QCOMPARE(drawing.widget.size(), QSize(600, 300));
    QCOMPARE(drawing.scrollRange(), QPoint(0, 50));
}

void tst_ViewerEvents::resizeAdaptsTheScrollBars()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    QCOMPARE(drawing.scrollRange(), QPoint(700, 800));
    drawing.viewer.resize(500, 350);
    QCoreApplication::processEvents();
    QCOMPARE(drawing.widget.size(), QSize(1100, 1100));
    QCOMPARE(drawing.scrollRange(), QPoint(600, 750));
}

void tst_ViewerEvents::resizeUpdatesAHighlight()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.viewer.setHighlighted(true);
    QCoreApplication::processEvents();
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.resize(350, 280);
    QTRY_COMPARE(log.painted(), QRegion(0, 0, 350, 280));
}

void tst_ViewerEvents::framedViewportGetsTheWholeSize()
{
    FreeformViewer viewer;
    viewer.setFrameStyle(QFrame::Box);
    viewer.resizeViewport(QSize(350, 250));
    QCOMPARE(viewer.size(), QSize(350, 250));
    QCOMPARE(viewer.viewport()->size(), QSize(350, 250));
}

void tst_ViewerEvents::mousePressGoesOnToTheParent()
{
    class OpenViewer : public FreeformViewer
    {
    public:
        using FreeformViewer::mousePressEvent;
    };
    OpenViewer viewer;
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(3, 4), QPointF(3, 4), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    press.accept();
    viewer.mousePressEvent(&press);
    QCOMPARE(press.isAccepted(), false);
    QCOMPARE(viewer.getLastClickLocation(), QPoint(3, 4));
}

void tst_ViewerEvents::resizeOfTheViewport()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.viewer.resizeViewport(QSize(350, 250));
    QCOMPARE(drawing.viewer.size(), QSize(350, 250));
    QCOMPARE(drawing.viewer.viewport()->size(), QSize(350, 250));
}

void tst_ViewerEvents::scrollingIsIgnoredDuringAZoom()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    QPoint movedTo;
    connect(&drawing.pane, &Figure::figureMoved, this, [&] {
        drawing.viewer.horizontalScrollBar()->setValue(77);
        movedTo = drawing.widget.pos();
    });
    const QPoint topLeft(-100, -50);
    drawing.viewer.setScale(1.0, &topLeft);
    QCOMPARE(movedTo, QPoint(0, 0));
    drawing.pane.disconnect(this);
    drawing.viewer.horizontalScrollBar()->setValue(77);
    QCOMPARE(drawing.widget.pos(), QPoint(-77, 0));
}

void tst_ViewerEvents::widgetResizeIsFilteredDuringAZoomOnly()
{
    class OpenViewer : public FreeformViewer
    {
    public:
        using FreeformViewer::eventFilter;
    };
    OpenViewer viewer;
    viewer.resize(400, 300);
    auto *widget = qobject_cast<FreeformWidget *>(viewer.widget());
    widget->resize(1000, 700);
    // Outside a zoom the scroll area follows the widget's size.
    QResizeEvent resize(QSize(1000, 700), QSize(300, 200));
    viewer.horizontalScrollBar()->setRange(0, 1);
    QCOMPARE(viewer.eventFilter(widget, &resize), false);
    QVERIFY(viewer.horizontalScrollBar()->maximum() > 1);

    FreeformLayeredPane pane;
    FreeformLayer layer(nullptr, false);
    Figure figure;
    layer.add(&figure, QRect(0, 0, 1000, 1000));
    pane.addLayer(&layer, "layer");
    viewer.setContent(&pane);
    bool filtered = true;
    int range = -1;
    connect(&pane, &Figure::figureMoved, this, [&] {
        viewer.horizontalScrollBar()->setRange(0, 1);
        filtered = viewer.eventFilter(widget, &resize);
        range = viewer.horizontalScrollBar()->maximum();
    });
    viewer.setScale(2.0);
    QCOMPARE(filtered, false);
    QCOMPARE(range, 1);
}

void tst_ViewerEvents::releasedScrollBarShrinksTheContent()
{
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        Square drawing;
        QVERIFY(drawing.show());
        drawing.widget.ensureViewable(QRect(0, 0, 2000, 2000), false, true);
        const bool isHorizontal = orientation == Qt::Horizontal;
        QScrollBar *bar = isHorizontal ? drawing.viewer.horizontalScrollBar() : drawing.viewer.verticalScrollBar();
        bar->setSliderDown(true);
        bar->setSliderPosition(100);
        QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 2000, 2000));
        bar->setSliderDown(false);
        const QRect expected = isHorizontal ? QRect(-50, -50, 550, 350) : QRect(-50, -50, 450, 450);
        QCOMPARE(drawing.pane.getBounds(), expected);
    }
}

void tst_ViewerEvents::scrollingUpdatesAHighlight()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.viewer.setHighlighted(true);
    QCoreApplication::processEvents();
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.horizontalScrollBar()->setValue(10);
    QTRY_COMPARE(log.painted(), QRegion(10, 0, 400, 300));
}

void tst_ViewerEvents::nullEventsAreIgnored()
{
    class OpenViewer : public FreeformViewer
    {
    public:
        using FreeformViewer::eventFilter;
        using FreeformViewer::mousePressEvent;
        using FreeformViewer::resizeEvent;
    };
    OpenViewer viewer;
    viewer.resize(400, 300);
    viewer.mousePressEvent(nullptr);
    viewer.resizeEvent(nullptr);
    QCOMPARE(viewer.eventFilter(viewer.widget(), nullptr), false);
    QCOMPARE(viewer.getLastClickLocation(), viewer.getViewRect().center());
}

PICTEL_TEST_MAIN(tst_ViewerEvents)
#include "tst_viewerevents.moc"
