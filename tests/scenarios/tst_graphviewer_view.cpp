#include "Export.h"
#include "GraphViewerTest.h"

#include <vtlpictel/shapes/PolylineF.h>
#include <vtlpictel/shapes/TextFigure.h>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QScrollBar>
#include <QSet>

#include <cmath>

using namespace GraphViewer;
using namespace GraphViewerSupport;
using namespace Vantrel::Pictel;

/// Looking around in a graph and moving its parts, with real events on a shown window.
class tst_GraphViewerView : public GraphViewerTest
{
    Q_OBJECT

private Q_SLOTS:
    void largeGraphIsShownInFull();
    void smallGraphIsNotEnlarged();
    void nextGraphReplacesTheOneBefore();
    void emptyViewIgnoresAllEvents();

    void zoomKeepsThePointUnderThePointer_data();
    void zoomKeepsThePointUnderThePointer();
    void zoomThereAndBackEndsWhereItStarted();
    void scaleStaysWithinItsBounds();
    void wheelAloneScrolls();
    void touchPadPinchZoomsAtThePointer();
    void fingersPinchZoom();
    void zoomActionsHaveStandardShortcuts();
    void statusBarShowsTheZoom();

    void dragOnPaperMovesTheView();
    void middleButtonMovesTheViewAnywhere();
    void dragMovesNodeWithItsChildren();
    void otherButtonsLeaveADragAlone();
    void dragMovesClusterWithAllThatIsInIt();
    void dragOutOfThePageKeepsTheNodeUnderThePointer();
    void movedNodeStaysWhenPainted();

    void nodeUnderThePointerIsHighlightedAndNamed();
    void edgeUnderThePointerIsHighlightedAndNamed();
    void cornerOfAnEllipseIsNotTheNode();
    void nothingIsHighlightedWhenThePointerLeaves();
    void picturesHaveNoHighlight();

    void gridIsPaintedOnDemand();
    void antialiasingIsOptional();
    void graphIsLegibleInBothPalettes_data();
    void graphIsLegibleInBothPalettes();
};

namespace {

QList<QRect> childBounds(Figure *figure)
{
    QList<QRect> bounds;
    for (Figure *child : figure->childFigures()) {
        QRect rect = child->getBounds();
        bounds << figure->translateToParent(rect);
    }
    return bounds;
}

QList<QRect> translated(QList<QRect> rects, const QPoint &offset)
{
    for (QRect &rect : rects)
        rect.translate(offset);
    return rects;
}

double distance(const QPointF &one, const QPointF &other)
{
    return std::hypot(one.x() - other.x(), one.y() - other.y());
}

int colorCount(const QImage &image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors << image.pixel(x, y);
    }
    return int(colors.size());
}

QPalette darkPalette()
{
    QPalette palette(QColor(45, 45, 48), QColor(37, 37, 38));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(60, 130, 220));
    return palette;
}

} // namespace

// Content

void tst_GraphViewerView::largeGraphIsShownInFull()
{
    QVERIFY(view().getScale() < 1.0);
    QVERIFY(view().getViewRect().contains(view().scene()->pictureArea()));
}

void tst_GraphViewerView::smallGraphIsNotEnlarged()
{
    show(bundled(QStringLiteral("records.gv")));
    QCOMPARE(view().getScale(), 1.0);
    const QPointF middle = view().fromContent(QRectF(view().scene()->pictureArea())).center();
    const double off = distance(middle, QRectF(view().viewport()->rect()).center());
    QVERIFY2(off <= 2.0, qPrintable(QString::number(off)));
}

void tst_GraphViewerView::nextGraphReplacesTheOneBefore()
{
    show(bundled(QStringLiteral("records.gv")));
    QVERIFY(!node(view(), QStringLiteral("cart (Shopping cart)")));
    QVERIFY(node(view(), QStringLiteral("one (1)")));
    show(sample(QStringLiteral("webshop.dot")));
    QVERIFY(node(view(), QStringLiteral("cart (Shopping cart)")));
}

void tst_GraphViewerView::emptyViewIgnoresAllEvents()
{
    MainWindow empty;
    empty.show();
    GraphView &blank = *empty.view();
    turnWheel(blank, {50, 50}, 120, Qt::ControlModifier);
    drag(blank, Qt::LeftButton, {50, 50}, {80, 60});
    blank.zoomIn();
    blank.zoomToFit();
    blank.setGridVisible(true);
    QCOMPARE(blank.getScale(), 1.0);
    QVERIFY(!blank.scene());
}

// Zooming

void tst_GraphViewerView::zoomKeepsThePointUnderThePointer_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::newRow("middle") << QPoint(450, 300);
    QTest::newRow("left top") << QPoint(3, 2);
    QTest::newRow("right bottom") << QPoint(880, 590);
    QTest::newRow("on a node") << QPoint(471, 122);
}

void tst_GraphViewerView::zoomKeepsThePointUnderThePointer()
{
    QFETCH(QPoint, pointer);
    const QPointF point = view().toContent(QPointF(pointer));
    const double scale = view().getScale();
    for (int step = 0; step < 30; ++step) {
        const bool inward = step < 15;
        turnWheel(view(), pointer, inward ? 120 : -120, Qt::ControlModifier);
        const int level = inward ? step + 1 : 29 - step;
        QVERIFY(qFuzzyCompare(view().getScale(), scale * std::pow(1.25, level)));
        const double drift = distance(view().fromContent(point), pointer);
        QVERIFY2(drift <= 1.0, qPrintable(QStringLiteral("%1 pixels off after step %2").arg(drift).arg(step)));
    }
}

void tst_GraphViewerView::zoomThereAndBackEndsWhereItStarted()
{
    const double scale = view().getScale();
    const QPointF point = view().toContent(QPointF(100, 100));
    for (int round = 0; round < 20; ++round) {
        turnWheel(view(), {600, 200}, 120, Qt::ControlModifier);
        turnWheel(view(), {200, 500}, 120, Qt::ControlModifier);
        turnWheel(view(), {200, 500}, -120, Qt::ControlModifier);
        turnWheel(view(), {600, 200}, -120, Qt::ControlModifier);
    }
    QVERIFY(qFuzzyCompare(view().getScale(), scale));
    const double drift = distance(view().fromContent(point), QPointF(100, 100));
    QVERIFY2(drift <= 6.0, qPrintable(QString::number(drift)));
}

void tst_GraphViewerView::scaleStaysWithinItsBounds()
{
    for (int step = 0; step < 60; ++step)
        turnWheel(view(), {300, 300}, 120, Qt::ControlModifier);
    QCOMPARE(view().getScale(), 16.0);
    for (int step = 0; step < 120; ++step)
        turnWheel(view(), {300, 300}, -120, Qt::ControlModifier);
    QCOMPARE(view().getScale(), 0.0005);
    QVERIFY(!screen().isNull());
}

void tst_GraphViewerView::wheelAloneScrolls()
{
    view().zoomToActualSize();
    view().verticalScrollBar()->setValue(100);
    const double scale = view().getScale();
    turnWheel(view(), {300, 300}, -120, Qt::NoModifier);
    QVERIFY(view().verticalScrollBar()->value() > 100);
    QCOMPARE(view().getScale(), scale);
}

void tst_GraphViewerView::touchPadPinchZoomsAtThePointer()
{
    const QPoint pointer(300, 200);
    const QPointF point = view().toContent(QPointF(pointer));
    const double scale = view().getScale();
    QWidget *target = view().viewport();
    QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, pointer, pointer,
                              target->mapToGlobal(QPointF(pointer)), 0.5, QPointF());
    QCoreApplication::sendEvent(target, &event);
    QVERIFY(qFuzzyCompare(view().getScale(), scale * 1.5));
    QVERIFY(distance(view().fromContent(point), pointer) <= 1.0);
}

void tst_GraphViewerView::fingersPinchZoom()
{
    const double scale = view().getScale();
    const std::unique_ptr<QPointingDevice> touchDevice(QTest::createTouchDevice());
    QPointingDevice *screenDevice = touchDevice.get();
    QWidget *target = view().viewport();
    QTest::touchEvent(target, screenDevice).press(0, QPoint(280, 200)).press(1, QPoint(320, 200));
    QTest::touchEvent(target, screenDevice).move(0, QPoint(240, 200)).move(1, QPoint(360, 200));
    QTest::touchEvent(target, screenDevice).move(0, QPoint(200, 200)).move(1, QPoint(400, 200));
    QTest::touchEvent(target, screenDevice).release(0, QPoint(200, 200)).release(1, QPoint(400, 200));
    QVERIFY2(view().getScale() > scale * 1.5, qPrintable(QString::number(view().getScale() / scale)));
}

void tst_GraphViewerView::zoomActionsHaveStandardShortcuts()
{
    view().zoomToActualSize();
    QTest::keyClick(&window(), Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(view().getScale(), 1.25);
    QTest::keyClick(&window(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(view().getScale(), 1.0);
    QTest::keyClick(&window(), Qt::Key_9, Qt::ControlModifier);
    QVERIFY(view().getScale() < 1.0);
    QTest::keyClick(&window(), Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view().getScale(), 1.0);
}

void tst_GraphViewerView::statusBarShowsTheZoom()
{
    QStringList texts;
    view().zoomToActualSize();
    view().zoomIn();
    for (QLabel *label : window().findChildren<QLabel *>())
        texts << label->text();
    QVERIFY2(texts.contains(QStringLiteral("125 %")), qPrintable(texts.join(u'|')));
}

// Dragging

void tst_GraphViewerView::dragOnPaperMovesTheView()
{
    view().zoomAt(2.0, {400, 300});
    const QPoint from = freeSpot();
    const QPointF point = view().toContent(QPointF(from));
    drag(view(), Qt::LeftButton, from, from + QPoint(40, 30));
    QCOMPARE(view().fromContent(point).toPoint(), from + QPoint(40, 30));
}

void tst_GraphViewerView::middleButtonMovesTheViewAnywhere()
{
    view().zoomAt(2.0, {400, 300});
    Element *cart = node(view(), QStringLiteral("cart (Shopping cart)"));
    const QRect bounds = cart->getBounds();
    const QPoint from = middleOf(view(), cart);
    drag(view(), Qt::MiddleButton, from, from + QPoint(-25, 35));
    QCOMPARE(cart->getBounds(), bounds);
    QCOMPARE(middleOf(view(), cart), from + QPoint(-25, 35));
}

void tst_GraphViewerView::dragMovesNodeWithItsChildren()
{
    view().zoomAt(1.0, {400, 300});
    Element *order = node(view(), QStringLiteral("order (Order id: int total: money items: list)"));
    QVERIFY(order);
    const QRect bounds = order->getBounds();
    const QList<QRect> children = childBounds(order);
    QCOMPARE(children.size(), 8);
    const QPoint from = middleOf(view(), order);
    drag(view(), Qt::LeftButton, from, from + QPoint(30, -20));
    QCOMPARE(order->getBounds(), bounds.translated(30, -20));
    QCOMPARE(childBounds(order), translated(children, {30, -20}));
}

void tst_GraphViewerView::otherButtonsLeaveADragAlone()
{
    view().zoomAt(1.0, {400, 300});
    Element *order = node(view(), QStringLiteral("order (Order id: int total: money items: list)"));
    const QRect bounds = order->getBounds();
    const QPoint from = middleOf(view(), order);
    QTest::mousePress(view().viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(view().viewport(), from + QPoint(10, 0));
    QTest::mousePress(view().viewport(), Qt::MiddleButton, {}, from + QPoint(10, 0));
    QTest::mouseRelease(view().viewport(), Qt::MiddleButton, {}, from + QPoint(10, 0));
    QTest::mouseMove(view().viewport(), from + QPoint(30, -20));
    QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, from + QPoint(30, -20));
    QCOMPARE(order->getBounds(), bounds.translated(30, -20));
}

void tst_GraphViewerView::dragMovesClusterWithAllThatIsInIt()
{
    Element *cluster = clusterNamed(view(), QStringLiteral("cluster_back (Orders)"));
    Element *inner = clusterNamed(view(), QStringLiteral("cluster_ship (Shipping)"));
    Element *pack = node(view(), QStringLiteral("pack (Pack)"));
    Element *outside = node(view(), QStringLiteral("mail (E-mail)"));
    QVERIFY(cluster && inner && pack && outside);
    const QList<QRect> before {cluster->getBounds(), inner->getBounds(), pack->getBounds()};
    const QRect untouched = outside->getBounds();
    const QPoint corner = view().fromContent(cluster->getBounds().bottomLeft() + QPoint(15, -15));
    const QPoint offset = view().toContent(corner + QPoint(12, 8)) - view().toContent(corner);
    drag(view(), Qt::LeftButton, corner, corner + QPoint(12, 8));
    QCOMPARE(QList<QRect>({cluster->getBounds(), inner->getBounds(), pack->getBounds()}), translated(before, offset));
    QCOMPARE(outside->getBounds(), untouched);
}

void tst_GraphViewerView::dragOutOfThePageKeepsTheNodeUnderThePointer()
{
    Element *done = node(view(), QStringLiteral("done (Done)"));
    const QRect area = view().scene()->pictureArea();
    const QPoint from = middleOf(view(), done);
    const QPoint to(from.x() + 10, view().viewport()->height() + 150);
    drag(view(), Qt::LeftButton, from, to);
    QVERIFY((middleOf(view(), done) - to).manhattanLength() <= 3);
    QVERIFY(view().scene()->content()->getBounds().contains(done->getBounds()));
    QVERIFY(!area.contains(done->getBounds()));
    QVERIFY(view().scene()->pictureArea().contains(done->getBounds()));
}

void tst_GraphViewerView::movedNodeStaysWhenPainted()
{
    Element *mail = node(view(), QStringLiteral("mail (E-mail)"));
    const QRect bounds = mail->getBounds();
    view().scene()->move(mail, {5, 6});
    screen();
    mail->revalidate();
    screen();
    QCOMPARE(mail->getBounds(), bounds.translated(5, 6));
}

// Pointing

void tst_GraphViewerView::nodeUnderThePointerIsHighlightedAndNamed()
{
    QSignalSpy hovered(&view(), &GraphView::partHovered);
    Element *customer = node(view(), QStringLiteral("customer (Customer)"));
    hover(middleOf(view(), customer));
    QTRY_COMPARE(hovered.count(), 1);
    QCOMPARE(hovered[0][0].toString(), QStringLiteral("customer (Customer)"));
    QVERIFY(customer->isClientAreaHighlighted());

    Element *cart = node(view(), QStringLiteral("cart (Shopping cart)"));
    hover(middleOf(view(), cart));
    QTRY_VERIFY(cart->isClientAreaHighlighted());
    QVERIFY(!customer->isClientAreaHighlighted());
    QStringList texts;
    for (QLabel *label : window().findChildren<QLabel *>())
        texts << label->text();
    QVERIFY2(texts.contains(QStringLiteral("cart (Shopping cart)")), qPrintable(texts.join(u'|')));
}

void tst_GraphViewerView::edgeUnderThePointerIsHighlightedAndNamed()
{
    view().zoomAt(2.0, {400, 300});
    QSignalSpy hovered(&view(), &GraphView::partHovered);
    EdgeConnection *edge = edgeNamed(view(), QStringLiteral("queue → pack"));
    view().setViewLocation(edge->getBounds().topLeft() - QPoint(100, 100), false);
    const QPointF start = edge->track().at(edge->track().length() * 0.3);
    hover(view().fromContent(start).toPoint());
    QTRY_VERIFY(!hovered.isEmpty());
    QCOMPARE(hovered.last()[0].toString(), QStringLiteral("queue → pack"));
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    const QPoint spot = view().fromContent(start).toPoint();
    QCOMPARE(screen().pixelColor(spot), highlight);
    view().zoomToFit();
    hover(freeSpot());
    QTRY_VERIFY(hovered.last()[0].toString().isEmpty());
}

void tst_GraphViewerView::cornerOfAnEllipseIsNotTheNode()
{
    view().zoomAt(2.0, {400, 300});
    Element *customer = node(view(), QStringLiteral("customer (Customer)"));
    const QRect bounds = customer->getBounds();
    QCOMPARE(view().scene()->partAt(bounds.center()), customer);
    QVERIFY(view().scene()->partAt(bounds.topLeft() + QPoint(4, 4)) != customer);
}

void tst_GraphViewerView::nothingIsHighlightedWhenThePointerLeaves()
{
    Element *customer = node(view(), QStringLiteral("customer (Customer)"));
    hover(middleOf(view(), customer));
    QTRY_VERIFY(customer->isClientAreaHighlighted());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view().viewport(), &leave);
    QVERIFY(!customer->isClientAreaHighlighted());
}

void tst_GraphViewerView::picturesHaveNoHighlight()
{
    QMimeData plain;
    QCOMPARE(copyPicture(view(), plain), QString());
    Element *cart = node(view(), QStringLiteral("cart (Shopping cart)"));
    hover(middleOf(view(), cart));
    QTRY_VERIFY(cart->isClientAreaHighlighted());
    QMimeData hovered;
    QCOMPARE(copyPicture(view(), hovered), QString());
    QCOMPARE(qvariant_cast<QImage>(hovered.imageData()), qvariant_cast<QImage>(plain.imageData()));
}

// Looks

void tst_GraphViewerView::gridIsPaintedOnDemand()
{
    show(bundled(QStringLiteral("records.gv")));
    const QPoint crossing = view().fromContent(QPoint(-100, -100));
    const QColor paper = screen().pixelColor(crossing);
    QCOMPARE(paper, QColor(Qt::white));
    action(QStringLiteral("Grid"))->trigger();
    QVERIFY(screen().pixelColor(crossing) != paper);
    QCOMPARE(screen().pixelColor(crossing + QPoint(2, 2)), paper);
    action(QStringLiteral("Grid"))->trigger();
    QCOMPARE(screen().pixelColor(crossing), paper);
}

void tst_GraphViewerView::antialiasingIsOptional()
{
    showGraph("digraph { a [label=\"\"] }");
    QVERIFY(colorCount(screen()) > 10);
    action(QStringLiteral("Antialiasing"))->trigger();
    QCOMPARE(colorCount(screen()), 2);
    action(QStringLiteral("Antialiasing"))->trigger();
    QVERIFY(colorCount(screen()) > 10);
}

void tst_GraphViewerView::graphIsLegibleInBothPalettes_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::style()->standardPalette();
    QTest::newRow("dark") << darkPalette();
}

void tst_GraphViewerView::graphIsLegibleInBothPalettes()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    show(bundled(QStringLiteral("records.gv")));
    const QImage image = screen();
    QCOMPARE(image.pixelColor(2, 2), QColor(Qt::white));
    QCOMPARE(image.pixelColor(image.width() - 3, image.height() - 3), QColor(Qt::white));
    Element *one = node(view(), QStringLiteral("one (1)"));
    const QImage drawn = image.copy(view().fromContent(one->getBounds()));
    int darkest = 255;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x)
            darkest = qMin(darkest, qGray(drawn.pixel(x, y)));
    }
    QVERIFY(darkest < 60);
    QCOMPARE(qGray(drawn.pixel(drawn.width() / 2, 4)), 255);
}

PICTEL_TEST_MAIN(tst_GraphViewerView)
#include "tst_graphviewer_view.moc"
