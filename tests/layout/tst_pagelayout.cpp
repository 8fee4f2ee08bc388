#include "support/TestMain.h"

#include <vtlpictel/layout/PageLayout.h>

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QVariant>

using namespace Vantrel::Pictel;

namespace {

QImage imageOf(const QSize &size, int dotsPerInchX, int dotsPerInchY)
{
    constexpr double inch = 0.0254;
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(dotsPerInchX / inch));
    image.setDotsPerMeterY(qRound(dotsPerInchY / inch));
    return image;
}

} // namespace

class tst_PageLayout : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void contentLiesWithinTwentyMillimetres_data();
    void contentLiesWithinTwentyMillimetres();
    void contentWithoutPainterIsNull();
    void contentWithoutDeviceIsNull();
    void decorationPaintsNothing();
    void defaultParentIsNull();
};

void tst_PageLayout::contentLiesWithinTwentyMillimetres_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("horizontalResolution");
    QTest::addColumn<int>("verticalResolution");
    QTest::addColumn<QRectF>("content");

    QTest::newRow("screen") << QSize(800, 600) << 96 << 96 << QRectF(75, 75, 650, 450);
    QTest::newRow("printer") << QSize(5000, 7000) << 600 << 600 << QRectF(472, 472, 4056, 6056);
    QTest::newRow("vertical resolution counts") << QSize(800, 600) << 300 << 96 << QRectF(75, 75, 650, 450);
    QTest::newRow("smaller than the margins") << QSize(100, 400) << 96 << 96 << QRectF(75, 75, -50, 250);
}

void tst_PageLayout::contentLiesWithinTwentyMillimetres()
{
    QFETCH(QSize, size);
    QFETCH(int, horizontalResolution);
    QFETCH(int, verticalResolution);
    QFETCH(QRectF, content);
    QImage image = imageOf(size, horizontalResolution, verticalResolution);
    QCOMPARE(image.logicalDpiY(), verticalResolution);
    QPainter painter(&image);
    QCOMPARE(PageLayout().getContentRect(&painter), content);
}

void tst_PageLayout::contentWithoutPainterIsNull()
{
    QCOMPARE(PageLayout().getContentRect(nullptr), QRectF());
}

void tst_PageLayout::contentWithoutDeviceIsNull()
{
    QPainter painter;
    QCOMPARE(PageLayout().getContentRect(&painter), QRectF());
}

void tst_PageLayout::decorationPaintsNothing()
{
    QImage image = imageOf(QSize(80, 60), 96, 96);
    const QImage untouched = image;
    QPainter painter(&image);
    PageLayout layout;
    layout.paintPageDecoration(&painter, QVariant());
    layout.paintPageDecoration(nullptr, QVariant());
    painter.end();
    QCOMPARE(image, untouched);
}

void tst_PageLayout::defaultParentIsNull()
{
    QCOMPARE(PageLayout().parent(), nullptr);
    auto *child = new PageLayout(this);
    QCOMPARE(child->parent(), this);
    delete child;
}

PICTEL_TEST_MAIN(tst_PageLayout)
#include "tst_pagelayout.moc"
