#include "ShownTree.h"
#include "SizeSetterProbe.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"
#include "support/UpdateOrderProbe.h"

#include <vtlpictel/shapes/PixmapFigure.h>

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

using ProbePixmapFigure = SizeSetterProbe<PixmapFigure>;

QPixmap pixmapOf(const QSize &size, const QColor &color = Qt::red)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

void compareSizes(PixmapFigure &figure, const QSize &size)
{
    QCOMPARE(figure.getMinimumSize(), size);
    QCOMPARE(figure.getPreferredSize(), size);
    QCOMPARE(figure.getMaximumSize(), size);
}

} // namespace

class tst_PixmapFigure : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newFigureHasNoPixmapAndNoLimits();
    void constructorTakesPixmapParentAndBackground();
    void backgroundIsWhiteByDefault();
    void metaObjectTellsTheClass();
    void pixmapFixesTheSize();
    void pixmapAndMarginFixTheSize();
    void otherPixmapFixesAnotherSize_data();
    void otherPixmapFixesAnotherSize();
    void nullPixmapFixesTheMarginAlone();
    void limitsSetBeforeAreLost();
    void sizeIsSetInOrder();
    void settingRevalidatesAndRepaints();
    void settingRevalidatesBeforeItRepaints();
    void contentSizeIsThatOfThePixmap();
    void pixmapIsStretchedToTheBounds();
    void nullPixmapIsNotDrawn();
    void nullPainterDrawsNothing();
};

void tst_PixmapFigure::newFigureHasNoPixmapAndNoLimits()
{
    QObject owner;
    auto *figure = new PixmapFigure(&owner);
    QCOMPARE(figure->parent(), &owner);
    QVERIFY(figure->getPixmap().isNull());
    QCOMPARE(figure->getMaximumSize(), Figure().getMaximumSize());
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::white));
}

void tst_PixmapFigure::constructorTakesPixmapParentAndBackground()
{
    QObject owner;
    const QPixmap pixmap = pixmapOf(QSize(20, 10));
    auto *figure = new PixmapFigure(pixmap, &owner, Qt::blue);
    QCOMPARE(figure->parent(), &owner);
    QCOMPARE(figure->getPixmap().cacheKey(), pixmap.cacheKey());
    QCOMPARE(figure->getBackgroundColor(), QColor(Qt::blue));
    compareSizes(*figure, QSize(20, 10));
}

void tst_PixmapFigure::backgroundIsWhiteByDefault()
{
    QCOMPARE(PixmapFigure(QPixmap()).getBackgroundColor(), QColor(Qt::white));
    QCOMPARE(PixmapFigure(QPixmap()).parent(), nullptr);
}

void tst_PixmapFigure::metaObjectTellsTheClass()
{
    QCOMPARE(PixmapFigure::staticMetaObject.className(), "Vantrel::Pictel::PixmapFigure");
}

void tst_PixmapFigure::pixmapFixesTheSize()
{
    PixmapFigure figure;
    figure.setPixmap(pixmapOf(QSize(20, 10)));
    QCOMPARE(figure.getPixmap().size(), QSize(20, 10));
    compareSizes(figure, QSize(20, 10));
}

void tst_PixmapFigure::pixmapAndMarginFixTheSize()
{
    PixmapFigure figure;
    figure.setMargin(3);
    figure.setPixmap(pixmapOf(QSize(20, 10)));
    compareSizes(figure, QSize(26, 16));
}

void tst_PixmapFigure::otherPixmapFixesAnotherSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("larger") << QSize(40, 30);
    QTest::newRow("smaller") << QSize(4, 3);
    QTest::newRow("wider and lower") << QSize(40, 3);
}

void tst_PixmapFigure::otherPixmapFixesAnotherSize()
{
    QFETCH(QSize, size);
    PixmapFigure figure(pixmapOf(QSize(20, 10)));
    figure.setPixmap(pixmapOf(size));
    compareSizes(figure, size);
}

void tst_PixmapFigure::nullPixmapFixesTheMarginAlone()
{
    PixmapFigure figure(pixmapOf(QSize(20, 10)));
    figure.setMargin(4);
    figure.setPixmap(QPixmap());
    compareSizes(figure, QSize(8, 8));
    compareSizes(*std::make_unique<PixmapFigure>(QPixmap()), QSize(0, 0));
}

void tst_PixmapFigure::limitsSetBeforeAreLost()
{
    PixmapFigure figure;
    figure.setMaximumSize(QSize(60, 60));
    figure.setMinimumSize(QSize(50, 50));
    figure.setPixmap(pixmapOf(QSize(20, 100)));
    compareSizes(figure, QSize(20, 100));
}

void tst_PixmapFigure::sizeIsSetInOrder()
{
    ProbePixmapFigure figure;
    figure.setPixmap(pixmapOf(QSize(20, 10)));
    QCOMPARE(figure.setters.mid(figure.setters.size() - 3), QStringList({"preferred", "minimum", "maximum"}));
}

void tst_PixmapFigure::settingRevalidatesAndRepaints()
{
    ShownTree tree;
    PixmapFigure figure;
    tree.show(figure);
    figure.setBounds(QRect(1, 2, 30, 40));
    figure.validate();
    const QPixmap pixmap = pixmapOf(QSize(20, 10));
    for (int round = 0; round < 2; ++round) {
        tree.forget();
        figure.setPixmap(pixmap);
        QCOMPARE(tree.takeRepaints(), QList<QRect>({QRect(1, 2, 30, 40)}));
        QCOMPARE(tree.takeRevalidations(), 1);
        QVERIFY(!figure.getFlag(Figure::FLAG_VALID));
    }
}

void tst_PixmapFigure::settingRevalidatesBeforeItRepaints()
{
    CallLog log;
    UpdateOrderProbe<PixmapFigure> figure(log);
    figure.setPixmap(pixmapOf(QSize(20, 10)));
    QCOMPARE(log.take(), QStringList({"figure.revalidate", "figure.repaint"}));
}

void tst_PixmapFigure::contentSizeIsThatOfThePixmap()
{
    ProbePixmapFigure figure;
    QCOMPARE(figure.calculateContentSize(), QSize(0, 0));
    figure.setPixmap(pixmapOf(QSize(20, 10)));
    QCOMPARE(figure.calculateContentSize(), QSize(20, 10));
}

void tst_PixmapFigure::pixmapIsStretchedToTheBounds()
{
    ShownTree tree;
    PixmapFigure figure;
    tree.show(figure);
    const QPixmap pixmap = pixmapOf(QSize(20, 10));
    figure.setPixmap(pixmap);
    figure.setBounds(QRect(1, 2, 60, 50));
    RecordingPaintDevice device;
    paint(figure, device);
    const PaintCall call = device.first(PaintCall::Pixmap);
    QCOMPARE(call.rect(), QRectF(101, 202, 60, 50));
    QCOMPARE(call.sourceRect, QRectF(0, 0, 20, 10));
    QCOMPARE(call.pixmap.cacheKey(), pixmap.cacheKey());
}

void tst_PixmapFigure::nullPixmapIsNotDrawn()
{
    ShownTree tree;
    PixmapFigure figure;
    tree.show(figure);
    figure.setBounds(QRect(1, 2, 60, 50));
    RecordingPaintDevice device;
    paint(figure, device);
    QCOMPARE(device.count(PaintCall::Pixmap), 0);
}

void tst_PixmapFigure::nullPainterDrawsNothing()
{
    ProbePixmapFigure figure(pixmapOf(QSize(20, 10)));
    figure.drawFigure(nullptr, paintEverything());
    QCOMPARE(figure.getPixmap().size(), QSize(20, 10));
}

PICTEL_TEST_MAIN(tst_PixmapFigure)

#include "tst_pixmapfigure.moc"
