#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <QTest>

class tst_RecordingPaintDevice : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void fillIsARectangleWithoutOutline();
    void outlinedRectangleIsNoFill();
    void geometryIsKeptAsDrawnAndMapped();
    void integerAndRealOverloadsAreToldApart();
    void pathEllipsePolygonAndPointsKeepTheirKind();
    void textKeepsItsWordsPlaceAndFont();
    void pixmapKeepsTargetAndSource();
    void clipIsInDeviceCoordinates();
    void clipEndsWithRestore();
    void hintsAndCompositionAreThoseOfTheMoment();
    void sizeAndResolutionAreSettable();
};

void tst_RecordingPaintDevice::fillIsARectangleWithoutOutline()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.fillRect(QRect(1, 2, 3, 4), Qt::red);
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(1, 2, 3, 4)}));
    QCOMPARE(device.fillColors(), QList<QColor>({QColor(Qt::red)}));
}

void tst_RecordingPaintDevice::outlinedRectangleIsNoFill()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.drawRect(QRect(1, 2, 3, 4));
    QCOMPARE(device.rects(), QList<QRectF>({QRectF(1, 2, 3, 4)}));
    QCOMPARE(device.fills(), QList<QRectF>());
    QCOMPARE(device.at(0).pen.color(), QColor(Qt::black));
}

void tst_RecordingPaintDevice::geometryIsKeptAsDrawnAndMapped()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.translate(10, 20);
    painter.scale(2, 2);
    painter.drawLine(QLineF(0, 0, 1, 1));
    QCOMPARE(device.at(0).line(), QLineF(0, 0, 1, 1));
    QCOMPARE(device.at(0).deviceLine(), QLineF(10, 20, 12, 22));
    QCOMPARE(device.at(0).deviceBounds(), QRectF(10, 20, 2, 2));
}

void tst_RecordingPaintDevice::integerAndRealOverloadsAreToldApart()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.drawLine(0, 0, 5, 5);
    painter.drawLine(QPointF(0, 0), QPointF(5, 5));
    QVERIFY(device.at(0).isIntegral);
    QVERIFY(!device.at(1).isIntegral);
    QCOMPARE(device.lines(), QList<QLineF>({QLineF(0, 0, 5, 5), QLineF(0, 0, 5, 5)}));
}

void tst_RecordingPaintDevice::pathEllipsePolygonAndPointsKeepTheirKind()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    QPainterPath path;
    path.addRect(0, 0, 4, 4);
    painter.drawPath(path);
    painter.drawEllipse(QRect(0, 0, 6, 6));
    painter.drawPolygon(QPolygon({QPoint(0, 0), QPoint(5, 0), QPoint(5, 5)}));
    painter.drawPoint(7, 8);
    QCOMPARE(device.kinds(),
             QList<PaintCall::Kind>({PaintCall::Path, PaintCall::Ellipse, PaintCall::Polygon, PaintCall::Points}));
    QCOMPARE(device.at(0).path, path);
    QCOMPARE(device.at(1).rect(), QRectF(0, 0, 6, 6));
    QCOMPARE(device.at(2).points, QPolygonF({QPointF(0, 0), QPointF(5, 0), QPointF(5, 5)}));
    QCOMPARE(device.at(3).points, QPolygonF({QPointF(7, 8)}));
}

void tst_RecordingPaintDevice::textKeepsItsWordsPlaceAndFont()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(QPoint(3, 30), QStringLiteral("two words"));
    QCOMPARE(device.texts(), QStringList({QStringLiteral("two words")}));
    QCOMPARE(device.at(0).position, QPointF(3, 30));
    QVERIFY(device.at(0).font.bold());
}

void tst_RecordingPaintDevice::pixmapKeepsTargetAndSource()
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::blue);
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.drawPixmap(QRect(1, 1, 4, 4), pixmap, QRect(2, 2, 4, 4));
    QCOMPARE(device.kinds(), QList<PaintCall::Kind>({PaintCall::Pixmap}));
    QCOMPARE(device.at(0).rect(), QRectF(1, 1, 4, 4));
    QCOMPARE(device.at(0).sourceRect, QRectF(2, 2, 4, 4));
    QCOMPARE(device.at(0).pixmap.cacheKey(), pixmap.cacheKey());
}

void tst_RecordingPaintDevice::clipIsInDeviceCoordinates()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.translate(100, 0);
    painter.setClipRect(QRect(0, 0, 10, 10));
    painter.translate(0, 50);
    painter.fillRect(QRect(0, 0, 1, 1), Qt::red);
    QVERIFY(device.at(0).isClipped);
    QCOMPARE(device.at(0).deviceClipRect(), QRectF(100, 0, 10, 10));
}

void tst_RecordingPaintDevice::clipEndsWithRestore()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.save();
    painter.setClipRect(QRect(0, 0, 10, 10));
    painter.restore();
    painter.fillRect(QRect(0, 0, 1, 1), Qt::red);
    QVERIFY(!device.at(0).isClipped);
    QCOMPARE(device.at(0).deviceClipRect(), QRectF());
}

void tst_RecordingPaintDevice::hintsAndCompositionAreThoseOfTheMoment()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setOpacity(0.5);
    painter.drawPoint(0, 0);
    painter.setRenderHint(QPainter::Antialiasing, false);
    QVERIFY(device.at(0).renderHints.testFlag(QPainter::Antialiasing));
    QCOMPARE(device.at(0).compositionMode, QPainter::CompositionMode_Source);
    QCOMPARE(device.at(0).opacity, 0.5);
}

void tst_RecordingPaintDevice::sizeAndResolutionAreSettable()
{
    RecordingPaintDevice device(QSize(200, 100), 72);
    QCOMPARE(device.width(), 200);
    QCOMPARE(device.height(), 100);
    QCOMPARE(device.logicalDpiX(), 72);
    device.setDotsPerInch(300);
    device.setSize(QSize(600, 300));
    QCOMPARE(device.widthMM(), 51);
    QCOMPARE(device.physicalDpiY(), 300);
}

PICTEL_TEST_MAIN(tst_RecordingPaintDevice)
#include "tst_recordingpaintdevice.moc"
