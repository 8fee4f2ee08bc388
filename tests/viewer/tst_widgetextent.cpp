#include "support/TestMain.h"

#include "Drawing.h"
#include "EventLog.h"

#include <QTest>

using namespace Vantrel::Pictel;

class tst_WidgetExtent : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void rectInsideTheBoundsNeedsNothing();
    void invalidRectNeedsNothing();
    void rectOutsideIsReportedWithoutApplying();
    void boundsGrowToTheRect();
    void boundsGrowToTheRectWithMargins();
    void boundsGrowToTheTopLeft();
    void invalidBoundsBecomeTheRect();
    void grownWidgetIsScaled();

    void boundsShrinkToExtentAndView();
    void boundsShrinkToTheExtentWithoutAView();
    void neededBoundsStayAsTheyAre();
    void sameSizeElsewhereMovesTheOriginOnly();
    void shrinkingHidesTheWidgetMeanwhile();
    void withoutExtentTheWidgetIsHidden();
    void withoutExtentTheSameSizeHidesNothing();

    void changedExtentHasNoEffect();
    void extentHandlingIsStored();
    void boundsAreSavedAndRestored();
    void withoutContentNothingHappens();
};

void tst_WidgetExtent::rectInsideTheBoundsNeedsNothing()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.ensureViewable(QRect(0, 0, 400, 300), true, true), false);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
}

void tst_WidgetExtent::invalidRectNeedsNothing()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.ensureViewable(QRect(1000, 1000, 0, 10), true, true), false);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
}

void tst_WidgetExtent::rectOutsideIsReportedWithoutApplying()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.ensureViewable(QRect(350, 250, 100, 100), true, false), true);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
}

void tst_WidgetExtent::boundsGrowToTheRect()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.ensureViewable(QRect(350, 250, 100, 100), false, true), true);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 450, 350));
    QCOMPARE(drawing.layer.getBounds(), QRect(0, 0, 450, 350));
    QCOMPARE(drawing.widget.size(), QSize(450, 350));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(0, 0));
}

void tst_WidgetExtent::boundsGrowToTheRectWithMargins()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setMargins(30, 40);
    QCOMPARE(drawing.widget.ensureViewable(QRect(350, 250, 100, 100), true, true), true);
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 480, 390));
}

void tst_WidgetExtent::boundsGrowToTheTopLeft()
{
    Square drawing;
    QVERIFY(drawing.show());
    QCOMPARE(drawing.widget.ensureViewable(QRect(-20, -30, 10, 10), false, true), true);
    QCOMPARE(drawing.pane.getBounds(), QRect(-20, -30, 420, 330));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-20, -30));
    QCOMPARE(drawing.widget.fromLogical(QPointF(-20, -30)), QPointF(0, 0));
    QCOMPARE(drawing.widget.size(), QSize(420, 330));
}

void tst_WidgetExtent::invalidBoundsBecomeTheRect()
{
    Square drawing;
    QCOMPARE(drawing.pane.getBounds(), QRect());
    QCOMPARE(drawing.widget.ensureViewable(QRect(500, 600, 700, 800), false, true), true);
    QCOMPARE(drawing.pane.getBounds(), QRect(500, 600, 700, 800));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(500, 600));
    QCOMPARE(drawing.widget.size(), QSize(700, 800));
}

void tst_WidgetExtent::grownWidgetIsScaled()
{
    Square drawing;
    QVERIFY(drawing.show());
    const QPoint topLeft(-50, -50);
    drawing.widget.setScale(2.0, &topLeft);
    QCOMPARE(drawing.pane.getBounds(), QRect(-50, -50, 200, 200));
    drawing.widget.ensureViewable(QRect(150, 0, 50, 10), false, true);
    QCOMPARE(drawing.pane.getBounds(), QRect(-50, -50, 250, 200));
    QCOMPARE(drawing.widget.size(), QSize(500, 400));
}

void tst_WidgetExtent::boundsShrinkToExtentAndView()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.ensureViewable(QRect(0, 0, 1000, 1000), false, true);
    drawing.widget.minimizeViewable(QRect(0, 0, 400, 300));
    QCOMPARE(drawing.pane.getBounds(), QRect(-50, -50, 450, 350));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-50, -50));
    QCOMPARE(drawing.widget.size(), QSize(450, 350));
    QVERIFY(drawing.widget.isVisible());
}

void tst_WidgetExtent::boundsShrinkToTheExtentWithoutAView()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.setMargins(200, 150);
    drawing.widget.minimizeViewable(QRect(9000, 9000, 0, 0));
    QCOMPARE(drawing.pane.getBounds(), QRect(-200, -150, 500, 400));
    QCOMPARE(drawing.widget.size(), QSize(500, 400));
}

void tst_WidgetExtent::neededBoundsStayAsTheyAre()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.pane.setFreeformBounds(QRect(-50, -50, 450, 350));
    drawing.widget.minimizeViewable(QRect(0, 0, 400, 300));
    QCOMPARE(drawing.pane.getBounds(), QRect(-50, -50, 450, 350));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(0, 0));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
}

void tst_WidgetExtent::sameSizeElsewhereMovesTheOriginOnly()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.pane.setFreeformBounds(QRect(0, 0, 450, 350));
    EventLog log(drawing.widget, {QEvent::Hide, QEvent::Resize});
    drawing.widget.minimizeViewable(QRect(0, 0, 400, 300));
    QCOMPARE(drawing.pane.getBounds(), QRect(-50, -50, 450, 350));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(-50, -50));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
    QCOMPARE(log.seen(), QList<QEvent::Type>());
}

void tst_WidgetExtent::shrinkingHidesTheWidgetMeanwhile()
{
    Square drawing;
    QVERIFY(drawing.show());
    EventLog log(drawing.widget, {QEvent::Hide, QEvent::Resize, QEvent::Show});
    drawing.widget.minimizeViewable(QRect(0, 0, 400, 300));
    // A hidden widget is told of its new size when it is shown again.
    QCOMPARE(log.seen(), QList<QEvent::Type>({QEvent::Hide, QEvent::Resize, QEvent::Show}));
    QCOMPARE(drawing.widget.size(), QSize(450, 350));
}

void tst_WidgetExtent::withoutExtentTheWidgetIsHidden()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.minimizeViewable(QRect(10, 20, 500, 600));
    QCOMPARE(drawing.pane.getBounds(), QRect(10, 20, 500, 600));
    QCOMPARE(drawing.widget.size(), QSize(500, 600));
    QCOMPARE(drawing.widget.isHidden(), true);
    Figure figure;
    drawing.add(figure, QRect(0, 0, 100, 100));
    drawing.widget.setScale(2.0);
    QCOMPARE(drawing.widget.isVisible(), true);
}

void tst_WidgetExtent::withoutExtentTheSameSizeHidesNothing()
{
    Drawing drawing;
    QVERIFY(drawing.show());
    drawing.widget.minimizeViewable(QRect(10, 20, 400, 300));
    QCOMPARE(drawing.pane.getBounds(), QRect(10, 20, 400, 300));
    QCOMPARE(drawing.widget.isVisible(), true);
}

void tst_WidgetExtent::changedExtentHasNoEffect()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.figure.setBounds(QRect(-500, -500, 2000, 2000));
    QCOMPARE(drawing.pane.getFreeformExtent(), QRect(-500, -500, 2000, 2000));
    drawing.widget.enableExtentHandling(true);
    QCoreApplication::processEvents();
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
    QCOMPARE(drawing.widget.size(), QSize(400, 300));
    QCOMPARE(drawing.widget.getPointAtOrigin(), QPointF(0, 0));
}

void tst_WidgetExtent::extentHandlingIsStored()
{
    Square drawing;
    drawing.widget.enableExtentHandling(false);
    QCOMPARE(drawing.widget.extentHandlingEnabled(), false);
    drawing.widget.enableExtentHandling(true);
    QCOMPARE(drawing.widget.extentHandlingEnabled(), true);
}

void tst_WidgetExtent::boundsAreSavedAndRestored()
{
    Square drawing;
    QVERIFY(drawing.show());
    drawing.widget.saveBounds();
    drawing.pane.setFreeformBounds(QRect(-10, -10, 1000, 1000));
    drawing.widget.restoreBounds();
    QCOMPARE(drawing.pane.getBounds(), QRect(0, 0, 400, 300));
}

void tst_WidgetExtent::withoutContentNothingHappens()
{
    FreeformWidget widget(nullptr);
    widget.resize(400, 300);
    widget.enableExtentHandling(true);
    widget.saveBounds();
    widget.restoreBounds();
    widget.minimizeViewable(QRect(0, 0, 10, 10));
    widget.setScaleBounds(2.0, 4.0);
    QCOMPARE(widget.ensureViewable(QRect(0, 0, 10, 10), true, true), false);
    QCOMPARE(widget.getScale(), 1.0);
    QCOMPARE(widget.size(), QSize(400, 300));
    QVERIFY(!widget.grab().isNull());
}

PICTEL_TEST_MAIN(tst_WidgetExtent)
#include "tst_widgetextent.moc"
