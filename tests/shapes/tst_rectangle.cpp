#include "ShownTree.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/shapes/Ellipse.h>
#include <vtlpictel/shapes/Rectangle.h>
#include <vtlpictel/shapes/RoundedRectangle.h>

#include <QTest>

using namespace Vantrel::Pictel;

namespace {

/// Opens what is protected.
template <typename Base>
class Probe : public Base
{
public:
    using Base::Base;
    using Base::getPainterPath;
};

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

QPainterPath ellipsePath(const QRectF &rect)
{
    QPainterPath path;
    path.addEllipse(rect);
    return path;
}

/// A shape in a displayed tree, with the bounds (0, 0, 201, 101).
template <typename Base>
struct Shown
{
    Shown()
    {
        tree.show(shape);
        shape.setBounds(QRect(0, 0, 201, 101));
        tree.forget();
    }

    const QPainterPath &path() const { return shape.getPainterPath(); }

    ShownTree tree;
    Probe<Base> shape;
};

} // namespace

class tst_Rectangle : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void parentOwnsTheShapes();
    void metaObjectsTellTheClassesApart();
    void rectanglePathIsTheInsetBounds();
    void rectanglePathReplacesTheOldOne();
    void ellipsePathIsInscribedInTheInsetBounds();
    void ellipsePathReplacesTheOldOne();
    void ellipseDoesNotContainItsCorners();
    void roundedPathHasFourArcs();
    void roundedPathReplacesTheOldOne();
    void roundnessIsTakenOfEachSide();
    void roundedPathOfANegativeRectIsNormalised();
    void roundnessBelowOneMakesAPlainRectangle_data();
    void roundnessBelowOneMakesAPlainRectangle();
    void newRoundedRectangleIsAQuarterRound();
    void roundnessIsStored_data();
    void roundnessIsStored();
    void roundnessNeitherRebuildsNorRepaints();
    void lineStaysWithinTheBounds();
};

void tst_Rectangle::parentOwnsTheShapes()
{
    QObject owner;
    QCOMPARE((new Rectangle(&owner))->parent(), &owner);
    QCOMPARE((new RoundedRectangle(&owner))->parent(), &owner);
    QCOMPARE((new Ellipse(&owner))->parent(), &owner);
    QCOMPARE(Rectangle().parent(), nullptr);
}

void tst_Rectangle::metaObjectsTellTheClassesApart()
{
    QCOMPARE(Rectangle::staticMetaObject.className(), "Vantrel::Pictel::Rectangle");
    QCOMPARE(RoundedRectangle::staticMetaObject.className(), "Vantrel::Pictel::RoundedRectangle");
    QCOMPARE(Ellipse::staticMetaObject.className(), "Vantrel::Pictel::Ellipse");
}

void tst_Rectangle::rectanglePathIsTheInsetBounds()
{
    QCOMPARE(Shown<Rectangle>().path(), rectPath(QRectF(0, 0, 200, 100)));
}

void tst_Rectangle::rectanglePathReplacesTheOldOne()
{
    Shown<Rectangle> shown;
    shown.shape.setBounds(QRect(5, 6, 11, 21));
    QCOMPARE(shown.path(), rectPath(QRectF(5, 6, 10, 20)));
}

void tst_Rectangle::ellipsePathIsInscribedInTheInsetBounds()
{
    QCOMPARE(Shown<Ellipse>().path(), ellipsePath(QRectF(0, 0, 200, 100)));
}

void tst_Rectangle::ellipsePathReplacesTheOldOne()
{
    Shown<Ellipse> shown;
    shown.shape.setBounds(QRect(5, 6, 11, 21));
    QCOMPARE(shown.path(), ellipsePath(QRectF(5, 6, 10, 20)));
}

void tst_Rectangle::ellipseDoesNotContainItsCorners()
{
    Shown<Ellipse> shown;
    QVERIFY(shown.shape.contains(QPoint(100, 50)));
    QVERIFY(shown.shape.contains(QPoint(100, 2)));
    QVERIFY(!shown.shape.contains(QPoint(5, 5)));
}

// Of 200 by 100 a quarter is 50 by 25: the corner ellipses.
void tst_Rectangle::roundedPathHasFourArcs()
{
    Shown<RoundedRectangle> shown;
    QPainterPath expected;
    expected.moveTo(25, 0);
    expected.arcTo(QRectF(0, 0, 50, 25), 90, 90);
    expected.arcTo(QRectF(0, 75, 50, 25), 180, 90);
    expected.arcTo(QRectF(150, 75, 50, 25), 270, 90);
    expected.arcTo(QRectF(150, 0, 50, 25), 0, 90);
    expected.closeSubpath();
    QCOMPARE(shown.path(), expected);
    QCOMPARE(shown.path().boundingRect(), QRectF(0, 0, 200, 100));
}

void tst_Rectangle::roundedPathReplacesTheOldOne()
{
    Shown<RoundedRectangle> shown;
    shown.shape.setBounds(QRect(500, 600, 41, 31));
    QCOMPARE(shown.path().boundingRect(), QRectF(500, 600, 40, 30));
}

void tst_Rectangle::roundnessIsTakenOfEachSide()
{
    Shown<RoundedRectangle> shown;
    shown.shape.setXRnd(10);
    shown.shape.setYRnd(40);
    shown.shape.setBounds(QRect(0, 0, 401, 101));
    // The corner ellipses are 40 by 40.
    QCOMPARE(QPointF(shown.path().elementAt(0)), QPointF(20, 0));
    QCOMPARE(QPointF(shown.path().elementAt(3)), QPointF(0, 20));
}

void tst_Rectangle::roundedPathOfANegativeRectIsNormalised()
{
    Shown<RoundedRectangle> shown;
    const QPainterPath expected = shown.path();
    Q_EMIT shown.shape.pathChanged(QRectF(200, 100, -200, -100));
    QCOMPARE(shown.path(), expected);
}

void tst_Rectangle::roundnessBelowOneMakesAPlainRectangle_data()
{
    QTest::addColumn<int>("xRoundness");
    QTest::addColumn<int>("yRoundness");
    QTest::addColumn<bool>("isPlain");

    QTest::newRow("x is 0") << 0 << 25 << true;
    QTest::newRow("y is 0") << 25 << 0 << true;
    QTest::newRow("x is negative") << -10 << 25 << true;
    QTest::newRow("y is negative") << 25 << -10 << true;
    QTest::newRow("both are 1") << 1 << 1 << false;
}

void tst_Rectangle::roundnessBelowOneMakesAPlainRectangle()
{
    QFETCH(int, xRoundness);
    QFETCH(int, yRoundness);
    QFETCH(bool, isPlain);
    Shown<RoundedRectangle> shown;
    shown.shape.setXRnd(xRoundness);
    shown.shape.setYRnd(yRoundness);
    shown.shape.setBounds(QRect(3, 4, 101, 81));
    QCOMPARE(shown.path() == rectPath(QRectF(3, 4, 100, 80)), isPlain);
}

void tst_Rectangle::newRoundedRectangleIsAQuarterRound()
{
    QCOMPARE(RoundedRectangle().getXRnd(), 25);
    QCOMPARE(RoundedRectangle().getYRnd(), 25);
}

void tst_Rectangle::roundnessIsStored_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("stored");

    QTest::newRow("150") << 150 << 99;
    QTest::newRow("100") << 100 << 99;
    QTest::newRow("99") << 99 << 99;
    QTest::newRow("98") << 98 << 98;
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("-5") << -5 << -5;
}

void tst_Rectangle::roundnessIsStored()
{
    QFETCH(int, given);
    QFETCH(int, stored);
    RoundedRectangle shape;
    shape.setXRnd(given);
    QCOMPARE(shape.getXRnd(), stored);
    QCOMPARE(shape.getYRnd(), 25);
    shape.setXRnd(7);
    shape.setYRnd(given);
    QCOMPARE(shape.getXRnd(), 7);
    QCOMPARE(shape.getYRnd(), stored);
}

void tst_Rectangle::roundnessNeitherRebuildsNorRepaints()
{
    Shown<RoundedRectangle> shown;
    const QPainterPath path = shown.path();
    shown.shape.setXRnd(50);
    shown.shape.setYRnd(50);
    QCOMPARE(shown.path(), path);
    QCOMPARE(shown.tree.takeRepaints(), QList<QRect>());
}

void tst_Rectangle::lineStaysWithinTheBounds()
{
    ShownTree tree;
    Rectangle rectangle;
    tree.show(rectangle);
    rectangle.setEnabledFGColor(Qt::red);
    rectangle.setEnabledBGColor(Qt::green);
    rectangle.setBounds(QRect(-90, -190, 20, 15));
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    paint(rectangle, image);
    QCOMPARE(image.pixelColor(10, 10), QColor(Qt::red));
    QCOMPARE(image.pixelColor(29, 24), QColor(Qt::red));
    QCOMPARE(image.pixelColor(9, 10), QColor(Qt::white));
    QCOMPARE(image.pixelColor(30, 24), QColor(Qt::white));
    QCOMPARE(image.pixelColor(29, 25), QColor(Qt::white));
    QCOMPARE(image.pixelColor(20, 17), QColor(Qt::green));
}

PICTEL_TEST_MAIN(tst_Rectangle)

#include "tst_rectangle.moc"
