#include "support/TestMain.h"

#include "PrintedDrawing.h"

#include <QImage>
#include <QMimeData>
#include <QPixmap>
#include <QTest>

#include <limits>

using namespace Vantrel::Pictel;

class tst_ViewerPictures : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pictureShowsTheAreaWithMargins();
    void pictureIgnoresTheZoom();
    void pictureHasTheBaseColorOfThePalette();
    void pictureOfAllFreeformLayers();
    void pictureOfALayerWithoutFreeformLayersIsNull();
    void pictureOfAPlainLayerNeedsAnArea();
    void pictureNeedsContentManagerLayerAndArea();
    void pictureOfNestedLayer();
    void enormousPictureIsNull_data();
    void enormousPictureIsNull();
    void copyPutsThePictureIntoMimeData();
    void copyOfNothingIsANullPicture();
};

void tst_ViewerPictures::pictureShowsTheAreaWithMargins()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(10, 20);
    const QPixmap picture = drawing.widget.printToPixmap("probe", QRect(0, 0, 120, 130));
    QCOMPARE(picture.size(), QSize(140, 170));
    QCOMPARE(drawing.layer.areas, QList<QRect>({QRect(-10, -20, 140, 170)}));
    const QImage image = picture.toImage();
    QCOMPARE(image.pixelColor(10, 20), QColor(Qt::red));
    QCOMPARE(image.pixelColor(109, 119), QColor(Qt::red));
    QCOMPARE(image.pixelColor(9, 20), QColor(Qt::white));
    QCOMPARE(image.pixelColor(10, 19), QColor(Qt::white));
    QCOMPARE(image.pixelColor(110, 119), QColor(Qt::white));
}

void tst_ViewerPictures::pictureIgnoresTheZoom()
{
    PrintedDrawing drawing;
    drawing.viewer.setScale(3.0);
    const QPixmap picture = drawing.widget.printToPixmap("probe", QRect(0, 0, 100, 100));
    QCOMPARE(picture.size(), QSize(200, 200));
    QCOMPARE(drawing.layer.transforms, QList<QTransform>({QTransform::fromTranslate(50, 50)}));
}

void tst_ViewerPictures::pictureHasTheBaseColorOfThePalette()
{
    PrintedDrawing drawing;
    QPalette palette = drawing.widget.palette();
    palette.setColor(QPalette::Active, QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Inactive, QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::cyan);
    drawing.widget.setPalette(palette);
    const QRect area(0, 0, 100, 100);
    QCOMPARE(drawing.widget.printToPixmap("probe", area).toImage().pixelColor(0, 0), QColor(Qt::yellow));
    drawing.widget.setEnabled(false);
    QCOMPARE(drawing.widget.printToPixmap("probe", area).toImage().pixelColor(0, 0), QColor(Qt::cyan));
}

void tst_ViewerPictures::pictureOfAllFreeformLayers()
{
    PrintedDrawing drawing;
    FreeformLayer second(nullptr, true);
    Figure far;
    second.add(&far, QRect(-30, 200, 50, 40));
    second.setFreeformBounds(QRect(-1000, -1000, 3000, 3000));
    drawing.inner.addLayer(&second, "second");
    drawing.viewer.setXYMargins(0, 0);
    const QPixmap picture = drawing.widget.printToPixmap("all", QRect());
    QCOMPARE(picture.size(), QSize(130, 240));
    QCOMPARE(picture.toImage().pixelColor(30, 0), QColor(Qt::red));
    QCOMPARE(drawing.widget.printToPixmap("all", QRect(5000, 5000, 0, 10)).size(), QSize(130, 240));
}

void tst_ViewerPictures::pictureOfALayerWithoutFreeformLayersIsNull()
{
    PrintedDrawing drawing;
    QVERIFY(drawing.widget.printToPixmap("probe", QRect()).isNull());
    QVERIFY(drawing.widget.printToPixmap("plain", QRect(0, 0, 0, 10)).isNull());
}

void tst_ViewerPictures::pictureOfAPlainLayerNeedsAnArea()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(0, 0);
    QCOMPARE(drawing.widget.printToPixmap("plain", QRect(0, 0, 30, 20)).size(), QSize(30, 20));
}

void tst_ViewerPictures::pictureNeedsContentManagerLayerAndArea()
{
    const QRect area(0, 0, 10, 10);
    PrintedDrawing drawing;
    QVERIFY(drawing.widget.printToPixmap("unknown", area).isNull());
    QVERIFY(!drawing.widget.printToPixmap("probe", area).isNull());
    drawing.viewer.setUpdateManager(nullptr);
    QVERIFY(drawing.widget.printToPixmap("probe", area).isNull());
    FreeformViewer empty;
    QVERIFY(qobject_cast<FreeformWidget *>(empty.widget())->printToPixmap("probe", area).isNull());
}

void tst_ViewerPictures::pictureOfNestedLayer()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(0, 0);
    const QPixmap picture = drawing.widget.printToPixmap("all", QRect(50, 50, 100, 100));
    QCOMPARE(picture.toImage().pixelColor(49, 49), QColor(Qt::red));
    QCOMPARE(picture.toImage().pixelColor(50, 50), QColor(Qt::white));
}

void tst_ViewerPictures::enormousPictureIsNull_data()
{
    constexpr int highest = std::numeric_limits<int>::max();
    QTest::addColumn<QRect>("area");
    QTest::newRow("too wide") << QRect(0, 0, 32668, 1);
    QTest::newRow("too high") << QRect(0, 0, 1, 32668);
    QTest::newRow("too many pixels") << QRect(0, 0, 32000, 32000);
    QTest::newRow("all there is") << QRect(QPoint(-highest, -highest), QPoint(highest, highest));
}

void tst_ViewerPictures::enormousPictureIsNull()
{
    QFETCH(QRect, area);
    PrintedDrawing drawing;
    QVERIFY(drawing.widget.printToPixmap("probe", area).isNull());
    QCOMPARE(drawing.layer.areas.size(), 0);
    QCOMPARE(drawing.widget.printToPixmap("probe", QRect(0, 0, 32667, 1)).width(), 32767);
}

void tst_ViewerPictures::copyPutsThePictureIntoMimeData()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(5, 5);
    QMimeData data;
    drawing.viewer.copy(&data, "probe", QRect(0, 0, 100, 100));
    QVERIFY(data.hasImage());
    const QImage image = data.imageData().value<QImage>();
    QCOMPARE(image.size(), QSize(110, 110));
    QCOMPARE(image.pixelColor(4, 5), QColor(Qt::white));
    QCOMPARE(image.pixelColor(5, 5), QColor(Qt::red));
}

void tst_ViewerPictures::copyOfNothingIsANullPicture()
{
    PrintedDrawing drawing;
    QMimeData data;
    drawing.viewer.copy(&data, "unknown", QRect(0, 0, 100, 100));
    QVERIFY(data.imageData().value<QPixmap>().isNull());
}

PICTEL_TEST_MAIN(tst_ViewerPictures)
#include "tst_viewerpictures.moc"
