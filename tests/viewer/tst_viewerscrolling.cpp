#include "support/TestMain.h"

#include "Drawing.h"
#include "EventLog.h"

#include <QTest>

using namespace Vantrel::Pictel;

class tst_ViewerScrolling : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void contentAndViewportCoordinatesDifferByScrollAndScale();
    void integerConversionsRoundHalfAwayFromZero();
    void conversionsWithoutContentAreIdentity();
    void conversionAndBackIsExactAtScaleOne();
    void viewRectIsTheVisibleContent();
    void viewLocationIsItsRoundedTopLeft();
    void globalCoordinatesAreTheWidgets();
    void pageStepIsTheScrollBars();

    void moveToALocationScrolls();
    void moveBeyondTheContentGrowsIt();
    void moveToTheEdgeKeepsTheScrollBars();
    void moveAlongOneAxisKeepsTheOther();
    void deferredMoveWaitsForTheEventLoop();
    void moveUpdatesAHighlight();

    void scrollBarsGetRangeStepAndValue();
    void scrollBarsClampTheirValues();
    void scrollBarsOfASmallWidgetAreEmpty();
    void widgetMovesRightToLeft();
    void widgetIsHiddenWhileItMoves();
};

void tst_ViewerScrolling::contentAndViewportCoordinatesDifferByScrollAndScale()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(10, 20)));
    FreeformViewer &viewer = drawing.viewer;
    QCOMPARE(drawing.scrolled(), QPoint(120, 140));
    QCOMPARE(viewer.toContent(QPointF(5, 8)), QPointF(12.5, 24));
    QCOMPARE(viewer.toContent(QPoint(4, 8)), QPoint(12, 24));
    QCOMPARE(viewer.toContent(QRectF(5, 8, 3, 4)), QRectF(12.5, 24, 1.5, 2));
    QCOMPARE(viewer.toContent(QRect(4, 8, 6, 10)), QRect(12, 24, 3, 5));
    QCOMPARE(viewer.fromContent(QPointF(12.5, 24)), QPointF(5, 8));
    QCOMPARE(viewer.fromContent(QPoint(12, 24)), QPoint(4, 8));
    QCOMPARE(viewer.fromContent(QRectF(12.5, 24, 1.5, 2)), QRectF(5, 8, 3, 4));
    QCOMPARE(viewer.fromContent(QRect(12, 24, 3, 5)), QRect(4, 8, 6, 10));
}

void tst_ViewerScrolling::integerConversionsRoundHalfAwayFromZero()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(-50, -50)));
    // Viewport pixel p shows p / 2 - 50.
    QCOMPARE(drawing.viewer.toContent(QPoint(95, 105)), QPoint(-3, 3));
    QCOMPARE(drawing.viewer.toContent(QPoint(94, 106)), QPoint(-3, 3));
    const QPoint topLeft(-50, -50);
    drawing.viewer.setScale(0.5, &topLeft);
    QCOMPARE(drawing.viewer.fromContent(QPointF(-55, -45)), QPointF(-2.5, 2.5));
    QCOMPARE(drawing.viewer.fromContent(QPoint(-55, -45)), QPoint(-3, 3));
}

void tst_ViewerScrolling::conversionsWithoutContentAreIdentity()
{
    FreeformViewer viewer;
    QCOMPARE(viewer.toContent(QPoint(-3, 4)), QPoint(-3, 4));
    QCOMPARE(viewer.fromContent(QPoint(-3, 4)), QPoint(-3, 4));
    QCOMPARE(viewer.toContent(QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
    QCOMPARE(viewer.fromContent(QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
}

void tst_ViewerScrolling::conversionAndBackIsExactAtScaleOne()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    for (const QPoint point : {QPoint(0, 0), QPoint(-17, 23), QPoint(12345, -54321)})
        QCOMPARE(drawing.viewer.toContent(drawing.viewer.fromContent(point)), point);
}

void tst_ViewerScrolling::viewRectIsTheVisibleContent()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(30, 40)));
    QCOMPARE(drawing.viewer.getViewRect(), QRect(30, 40, 400, 300));
    drawing.viewer.horizontalScrollBar()->setValue(200);
    QCOMPARE(drawing.viewer.getViewRect(), QRect(150, 40, 400, 300));
}

void tst_ViewerScrolling::viewLocationIsItsRoundedTopLeft()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(-50, -50)));
    drawing.viewer.horizontalScrollBar()->setValue(95);
    drawing.viewer.verticalScrollBar()->setValue(105);
    QCOMPARE(drawing.viewer.getViewLocation(), QPoint(-3, 3));
}

void tst_ViewerScrolling::globalCoordinatesAreTheWidgets()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(30, 40)));
    QCOMPARE(drawing.viewer.toGlobal(QPoint(5, 6)), drawing.widget.mapToGlobal(QPoint(5, 6)));
    QCOMPARE(drawing.viewer.toGlobal(QPoint(5, 6)), drawing.viewer.mapToGlobal(QPoint(5, 6) - drawing.scrolled()));
    QCOMPARE(drawing.viewer.fromGlobal(drawing.viewer.toGlobal(QPoint(5, 6))), QPoint(5, 6));
}

void tst_ViewerScrolling::pageStepIsTheScrollBars()
{
    FreeformViewer viewer;
    viewer.horizontalScrollBar()->setPageStep(12);
    viewer.verticalScrollBar()->setPageStep(34);
    QCOMPARE(viewer.getPageStep(Qt::Horizontal), 12);
    QCOMPARE(viewer.getPageStep(Qt::Vertical), 34);
    QCOMPARE(viewer.getPageStep(Qt::Orientation(0)), 0);
    QCOMPARE(viewer.getPageStep(Qt::Orientation(3)), 0);
}

void tst_ViewerScrolling::moveToALocationScrolls()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(2.0, QPoint(-50, -50)));
    drawing.viewer.setViewLocation(QPoint(100, 200), false);
    QCOMPARE(drawing.scrolled(), QPoint(300, 500));
    QCOMPARE(drawing.viewer.getViewLocation(), QPoint(100, 200));
}

void tst_ViewerScrolling::moveBeyondTheContentGrowsIt()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.viewer.setViewLocation(QPoint(1000, 1100), false);
    QCOMPARE(drawing.pane.getBounds(), QRect(-50, -50, 1450, 1450));
    QCOMPARE(drawing.widget.size(), QSize(1450, 1450));
    QCOMPARE(drawing.viewer.getViewLocation(), QPoint(1000, 1100));
}

void tst_ViewerScrolling::moveToTheEdgeKeepsTheScrollBars()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(30, 40)));
    QCOMPARE(drawing.scrolled(), QPoint(80, 90));
    drawing.viewer.setViewLocation(QPoint(-50, -50), false);
    QCOMPARE(drawing.scrolled(), QPoint(80, 90));
}

void tst_ViewerScrolling::moveAlongOneAxisKeepsTheOther()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(30, 40)));
    drawing.viewer.setViewLocation(QPoint(100, -50), false);
    QCOMPARE(drawing.scrolled(), QPoint(150, 90));
    drawing.viewer.setViewLocation(QPoint(-50, 100), false);
    QCOMPARE(drawing.scrolled(), QPoint(150, 150));
}

void tst_ViewerScrolling::deferredMoveWaitsForTheEventLoop()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.viewer.setViewLocation(QPoint(100, 200), true);
    QCOMPARE(drawing.scrolled(), QPoint(0, 0));
    QCoreApplication::sendPostedEvents(&drawing.viewer, QEvent::MetaCall);
    QCOMPARE(drawing.scrolled(), QPoint(150, 250));
}

void tst_ViewerScrolling::moveUpdatesAHighlight()
{
    Large drawing;
    QVERIFY(drawing.showAtScale(1.0, QPoint(-50, -50)));
    drawing.viewer.setHighlighted(true);
    QCoreApplication::processEvents();
    EventLog log(drawing.widget, {QEvent::Paint});
    drawing.viewer.setViewLocation(QPoint(-40, -50), false);
    QTRY_COMPARE(log.painted().boundingRect(), QRect(10, 0, 400, 300));
    QCOMPARE(log.painted(), QRegion(10, 0, 400, 300));
    // Also without scrolling.
    const int paints = log.count();
    drawing.viewer.setViewLocation(QPoint(-40, -50), false);
    QTRY_COMPARE(log.count(), paints + 1);
}

void tst_ViewerScrolling::scrollBarsGetRangeStepAndValue()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.resize(1000, 700);
    drawing.viewer.horizontalScrollBar()->setPageStep(7);
    drawing.viewer.verticalScrollBar()->setPageStep(8);
    drawing.viewer.updateScrollBars(200, 100);
    QCOMPARE(drawing.viewer.horizontalScrollBar()->minimum(), 0);
    QCOMPARE(drawing.viewer.verticalScrollBar()->minimum(), 0);
    QCOMPARE(drawing.scrollRange(), QPoint(600, 400));
    QCOMPARE(drawing.viewer.getPageStep(Qt::Horizontal), 400);
    QCOMPARE(drawing.viewer.getPageStep(Qt::Vertical), 300);
    QCOMPARE(drawing.scrolled(), QPoint(200, 100));
    QCOMPARE(drawing.widget.pos(), QPoint(-200, -100));
}

void tst_ViewerScrolling::scrollBarsClampTheirValues()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.resize(1000, 700);
    drawing.viewer.updateScrollBars(5000, -100);
    QCOMPARE(drawing.scrolled(), QPoint(600, 0));
    QCOMPARE(drawing.widget.pos(), QPoint(-600, 0));
}

void tst_ViewerScrolling::scrollBarsOfASmallWidgetAreEmpty()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.resize(300, 700);
    drawing.viewer.updateScrollBars(50, 60);
    QCOMPARE(drawing.scrollRange(), QPoint(0, 400));
    QCOMPARE(drawing.widget.pos(), QPoint(0, -60));
    drawing.widget.resize(700, 200);
    drawing.viewer.updateScrollBars(50, 60);
    QCOMPARE(drawing.scrollRange(), QPoint(300, 0));
    QCOMPARE(drawing.widget.pos(), QPoint(-50, 0));
}

void tst_ViewerScrolling::widgetMovesRightToLeft()
{
    Drawing drawing;
    drawing.viewer.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(drawing.show());
    drawing.widget.resize(1000, 200);
    drawing.viewer.updateScrollBars(100, 0);
    // 100 pixels hidden at the right, 500 at the left.
    QCOMPARE(drawing.widget.pos(), QPoint(-500, 0));
    drawing.widget.resize(300, 200);
    drawing.viewer.updateScrollBars(100, 0);
    QCOMPARE(drawing.widget.pos(), QPoint(100, 0));
}

void tst_ViewerScrolling::widgetIsHiddenWhileItMoves()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.resize(1000, 700);
    EventLog log(drawing.widget, {QEvent::Hide, QEvent::Move, QEvent::Show});
    QCOMPARE(drawing.widget.pos(), QPoint(0, 0));
    drawing.viewer.horizontalScrollBar()->setRange(0, 10);
    drawing.viewer.updateScrollBars(10, 0);
    QCOMPARE(drawing.widget.isVisible(), true);
    QVERIFY(log.seen().contains(QEvent::Hide));
    QCOMPARE(log.seen().last(), QEvent::Show);
}

PICTEL_TEST_MAIN(tst_ViewerScrolling)
#include "tst_viewerscrolling.moc"
