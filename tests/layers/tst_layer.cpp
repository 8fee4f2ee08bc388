#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/layers/Layer.h>

#include <QPainter>
#include <QStyleOptionViewItem>
#include <QTest>

using namespace Vantrel::Pictel;

class tst_Layer : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void backgroundIsTransparent();
    void startsAsAFigureWithoutLayout();
    void parentOwnsTheLayer();
    void paintsNoBackground();
    void paintsABackgroundThatWasSet();
    void metaObjectHasNothingOfItsOwn();
};

namespace {

void paint(Layer &layer, RecordingPaintDevice &device)
{
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 100);
    QPainter painter(&device);
    layer.render(&painter, option);
}

} // namespace

void tst_Layer::backgroundIsTransparent()
{
    Layer layer;
    QCOMPARE(layer.getBackgroundColor(), QColor(Qt::transparent));
}

void tst_Layer::startsAsAFigureWithoutLayout()
{
    Layer layer;
    QCOMPARE(layer.getLayoutManager(), nullptr);
    QCOMPARE(layer.getBounds(), QRect());
    QCOMPARE(layer.isVisible(), true);
    QCOMPARE(layer.parent(), nullptr);
}

void tst_Layer::parentOwnsTheLayer()
{
    QObject owner;
    auto *layer = new Layer(&owner);
    QCOMPARE(owner.children(), QObjectList({layer}));
}

void tst_Layer::paintsNoBackground()
{
    Layer layer;
    layer.setBounds(QRect(0, 0, 50, 50));
    RecordingPaintDevice device;
    paint(layer, device);
    QCOMPARE(device.count(), 0);
}

void tst_Layer::paintsABackgroundThatWasSet()
{
    Layer layer;
    layer.setBounds(QRect(10, 20, 50, 40));
    layer.setBackgroundColor(Qt::red);
    RecordingPaintDevice device;
    paint(layer, device);
    QCOMPARE(device.fills(), QList<QRectF>({QRectF(10, 20, 50, 40)}));
    QCOMPARE(device.fillColors(), QList<QColor>({QColor(Qt::red)}));
}

void tst_Layer::metaObjectHasNothingOfItsOwn()
{
    const QMetaObject &meta = Layer::staticMetaObject;
    QCOMPARE(meta.className(), "Vantrel::Pictel::Layer");
    QCOMPARE(meta.superClass(), &Figure::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

PICTEL_TEST_MAIN(tst_Layer)
#include "tst_layer.moc"
