#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/figure/FocusBorder.h>
#include <vtlpictel/figure/ScaledBorder.h>
#include <vtlpictel/figure/SimpleBorder.h>

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

using namespace Vantrel::Pictel;

Q_DECLARE_METATYPE(Vantrel::Pictel::Insets)

namespace {

/// Opens what a border keeps protected.
template <typename Base>
class OpenBorder : public Base
{
public:
    using Base::Base;
    using Base::createPen;
    using Base::toBorderRect;
};

/// The smallest concrete border.
class PlainBorder : public Border
{
public:
    using Border::Border;
    void render(QPainter *, const QStyleOptionViewItem &) const override { }
};

/// Answers other pens and rectangles than its base.
template <typename Base>
class CustomBorder : public Base
{
public:
    using Base::Base;

protected:
    QPen createPen() override { return QPen(Qt::red); }
    QRect toBorderRect(const QRect &) override { return QRect(QPoint(100, 100), QPoint(200, 200)); }
};

/// Remembers the focus frames it is asked to draw, and draws none.
class FocusStyle : public QProxyStyle
{
public:
    FocusStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    { }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_FrameFocusRect)
            return;
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFocusRect *>(option))
            frames << *frame;
        painters << painter;
        widgets << widget;
    }

    mutable QList<QStyleOptionFocusRect> frames;
    mutable QList<QPainter *> painters;
    mutable QList<const QWidget *> widgets;
};

QStyleOptionViewItem optionFor(const QRect &rect)
{
    QStyleOptionViewItem option;
    option.rect = rect;
    return option;
}

void renderOn(RecordingPaintDevice &device, const Border &border, const QRect &rect)
{
    QPainter painter(&device);
    border.render(&painter, optionFor(rect));
}

QList<QLineF> renderedLines(const Border &border, const QRect &rect)
{
    RecordingPaintDevice device;
    renderOn(device, border, rect);
    return device.lines();
}

template <typename ConcreteBorder>
QList<PaintCall> drawnSides(const ConcreteBorder &border, const QRect &rect, const Insets &insets)
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    border.drawBorderRect(&painter, rect, insets);
    return device.calls();
}

QList<QLineF> linesOf(const QList<PaintCall> &calls)
{
    QList<QLineF> lines;
    for (const PaintCall &call : calls)
        lines << call.lines;
    return lines;
}

const QRect frame(QPoint(10, 20), QPoint(110, 220));

} // namespace

class tst_Borders : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void borderHasNoInsetsAndASolidBlackPenAtFirst();
    void borderBelongsToItsParent();
    void borderStoresItsProperties();
    void penHasWidthOneAndTheStoredStyles();
    void borderRectRunsInTheMiddleOfTheInsets_data();
    void borderRectRunsInTheMiddleOfTheInsets();

    void widthBecomesTheInsets_data();
    void widthBecomesTheInsets();
    void borderWithoutInsetsPaintsNothing();
    void borderIgnoresANullPainter();
    void borderIgnoresAnInvalidRectangle();
    void painterIsLeftAsItWas();
    void subclassesDecideOnPenAndRectangle();

    void simpleBorderDrawsTopRightBottomLeft();
    void simpleBorderDrawsIntegerLines();
    void simpleBorderSkipsSidesWithoutInset_data();
    void simpleBorderSkipsSidesWithoutInset();
    void simpleBorderStaysThin_data();
    void simpleBorderStaysThin();
    void simpleBorderDrawsInTheMiddleOfItsInsets();

    void scaledBorderDrawsSidesAsWideAsTheirInsets();
    void scaledBorderHalvesOddWidthsExactly();
    void scaledBorderSkipsSidesWithoutInset_data();
    void scaledBorderSkipsSidesWithoutInset();
    void scaledBorderHasNoInnerMarginAtFirst();
    void scaledBorderDrawsASecondFrameInsideTheFirst();
    void scaledBorderSkipsASecondFrameThatDoesNotFit();
    void scaledBorderIgnoresANegativeInnerMargin();

    void focusBorderHasWidthOne();
    void focusBorderDrawsTheStylesFocusFrame();
    void focusBorderFollowsItsBorderRect();
    void focusBorderIgnoresANullPainter();
    void focusBorderIgnoresInvalidRectangles();
    void focusBorderPaintsWithoutInsets();
};

void tst_Borders::borderHasNoInsetsAndASolidBlackPenAtFirst()
{
    const PlainBorder border;
    QVERIFY(border.getInsets().isNull());
    QCOMPARE(border.getColor(), QColor(Qt::black));
    QCOMPARE(border.getPenStyle(), Qt::SolidLine);
    QCOMPARE(border.getPenCapStyle(), Qt::SquareCap);
    QCOMPARE(border.getPenJoinStyle(), Qt::BevelJoin);
}

void tst_Borders::borderBelongsToItsParent()
{
    QObject parent;
    QCOMPARE((new PlainBorder(&parent))->parent(), &parent);
    QCOMPARE((new SimpleBorder(&parent))->parent(), &parent);
    QCOMPARE((new ScaledBorder(&parent))->parent(), &parent);
    QCOMPARE((new FocusBorder(&parent))->parent(), &parent);
}

void tst_Borders::borderStoresItsProperties()
{
    PlainBorder border;
    border.setInsets(Insets(1, 2, 3, 4));
    border.setColor(Qt::red);
    border.setPenStyle(Qt::DashLine);
    border.setPenCapStyle(Qt::RoundCap);
    border.setPenJoinStyle(Qt::MiterJoin);
    QVERIFY(border.getInsets() == Insets(1, 2, 3, 4));
    QCOMPARE(border.getColor(), QColor(Qt::red));
    QCOMPARE(border.getPenStyle(), Qt::DashLine);
    QCOMPARE(border.getPenCapStyle(), Qt::RoundCap);
    QCOMPARE(border.getPenJoinStyle(), Qt::MiterJoin);
}

void tst_Borders::penHasWidthOneAndTheStoredStyles()
{
    OpenBorder<SimpleBorder> border(nullptr, 5);
    border.setColor(Qt::red);
    border.setPenStyle(Qt::DashLine);
    border.setPenCapStyle(Qt::RoundCap);
    border.setPenJoinStyle(Qt::MiterJoin);
    const QPen pen = border.createPen();
    QCOMPARE(pen.color(), QColor(Qt::red));
    QCOMPARE(pen.widthF(), 1.0);
    QCOMPARE(pen.style(), Qt::DashLine);
    QCOMPARE(pen.capStyle(), Qt::RoundCap);
    QCOMPARE(pen.joinStyle(), Qt::MiterJoin);
    QVERIFY(!pen.isCosmetic());
}

void tst_Borders::borderRectRunsInTheMiddleOfTheInsets_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<QRect>("expected");
    const QRect rect(0, 0, 10, 10);
    QTest::newRow("no insets") << rect << Insets() << rect;
    QTest::newRow("insets of 1") << rect << Insets(1, 1, 1, 1) << rect;
    QTest::newRow("insets of 4") << rect << Insets(4, 4, 4, 4) << QRect(QPoint(2, 2), QPoint(8, 8));
    QTest::newRow("each side its own") << QRect(100, 200, 50, 60) << Insets(2, 4, 7, 10)
                                       << QRect(QPoint(102, 201), QPoint(145, 256));
    QTest::newRow("negative insets") << rect << Insets(-3, -3, -3, -3) << QRect(QPoint(-1, -1), QPoint(11, 11));
    QTest::newRow("null rectangle") << QRect() << Insets(4, 4, 4, 4) << QRect();
    QTest::newRow("no width") << QRect(5, 5, 0, 10) << Insets(4, 4, 4, 4) << QRect();
}

void tst_Borders::borderRectRunsInTheMiddleOfTheInsets()
{
    QFETCH(const QRect, rect);
    QFETCH(const Insets, insets);
    OpenBorder<SimpleBorder> border;
    border.setInsets(insets);
    QTEST(border.toBorderRect(rect), "expected");
}

void tst_Borders::widthBecomesTheInsets_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<Insets>("insets");
    QTest::newRow("negative") << -3 << Insets();
    QTest::newRow("none") << 0 << Insets();
    QTest::newRow("one") << 1 << Insets(1, 1, 1, 1);
    QTest::newRow("many") << 5 << Insets(5, 5, 5, 5);
}

void tst_Borders::widthBecomesTheInsets()
{
    QFETCH(const int, width);
    QFETCH(const Insets, insets);
    QVERIFY(SimpleBorder(nullptr, width).getInsets() == insets);
    QVERIFY(ScaledBorder(nullptr, width).getInsets() == insets);
    QVERIFY(SimpleBorder().getInsets() == Insets(1, 1, 1, 1));
    QVERIFY(ScaledBorder().getInsets() == Insets(1, 1, 1, 1));
}

void tst_Borders::borderWithoutInsetsPaintsNothing()
{
    RecordingPaintDevice device;
    renderOn(device, SimpleBorder(nullptr, 0), frame);
    renderOn(device, SimpleBorder(nullptr, -3), frame);
    renderOn(device, ScaledBorder(nullptr, 0), frame);
    ScaledBorder twice(nullptr, 0);
    twice.setInnerMarginBorder(3);
    renderOn(device, twice, frame);
    QCOMPARE(device.count(), 0);
}

void tst_Borders::borderIgnoresANullPainter()
{
    SimpleBorder simple;
    ScaledBorder scaled;
    scaled.setInnerMarginBorder(3);
    simple.render(nullptr, optionFor(frame));
    simple.drawBorderRect(nullptr, frame, simple.getInsets());
    scaled.render(nullptr, optionFor(frame));
    scaled.drawBorderRect(nullptr, frame, scaled.getInsets());
    QVERIFY(simple.getInsets() == scaled.getInsets());
}

void tst_Borders::borderIgnoresAnInvalidRectangle()
{
    RecordingPaintDevice device;
    // These would make a valid frame of any rectangle.
    const CustomBorder<SimpleBorder> simple;
    const CustomBorder<ScaledBorder> scaled;
    renderOn(device, simple, QRect());
    renderOn(device, scaled, QRect());
    QCOMPARE(device.count(), 0);
    QCOMPARE(drawnSides(simple, QRect(), Insets(1, 1, 1, 1)).size(), 0);
    QCOMPARE(drawnSides(scaled, QRect(), Insets(1, 1, 1, 1)).size(), 0);
}

void tst_Borders::painterIsLeftAsItWas()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    const QPen pen(Qt::green, 9.0);
    painter.setPen(pen);
    SimpleBorder(nullptr, 2).render(&painter, optionFor(frame));
    QCOMPARE(painter.pen(), pen);
    ScaledBorder(nullptr, 2).render(&painter, optionFor(frame));
    QCOMPARE(painter.pen(), pen);
}

void tst_Borders::subclassesDecideOnPenAndRectangle()
{
    RecordingPaintDevice device;
    renderOn(device, CustomBorder<SimpleBorder>(), frame);
    QCOMPARE(device.lines().first(), QLineF(100, 100, 200, 100));
    QCOMPARE(device.at(0).pen.color(), QColor(Qt::red));
    device.clear();
    renderOn(device, CustomBorder<ScaledBorder>(), frame);
    QCOMPARE(device.lines().first(), QLineF(100.5, 100.5, 200, 100.5));
    QCOMPARE(device.at(0).pen.color(), QColor(Qt::red));
}

void tst_Borders::simpleBorderDrawsTopRightBottomLeft()
{
    const QList<QLineF> expected {QLineF(10, 20, 110, 20), QLineF(110, 20, 110, 220), QLineF(110, 220, 10, 220),
                                  QLineF(10, 220, 10, 20)};
    QCOMPARE(renderedLines(SimpleBorder(), frame), expected);
}

void tst_Borders::simpleBorderDrawsIntegerLines()
{
    const QList<PaintCall> sides = drawnSides(SimpleBorder(), frame, Insets(1, 1, 1, 1));
    QCOMPARE(sides.size(), 4);
    for (const PaintCall &side : sides)
        QVERIFY(side.isIntegral);
}

void tst_Borders::simpleBorderSkipsSidesWithoutInset_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<QList<QLineF>>("lines");
    QTest::newRow("top") << Insets(1, 0, 0, 0) << QList<QLineF> {QLineF(10, 20, 110, 20)};
    QTest::newRow("left") << Insets(0, 1, 0, 0) << QList<QLineF> {QLineF(10, 220, 10, 20)};
    QTest::newRow("bottom") << Insets(0, 0, 1, 0) << QList<QLineF> {QLineF(110, 220, 10, 220)};
    QTest::newRow("right") << Insets(0, 0, 0, 1) << QList<QLineF> {QLineF(110, 20, 110, 220)};
    QTest::newRow("negative") << Insets(-1, -1, -1, -1) << QList<QLineF>();
    QTest::newRow("none") << Insets() << QList<QLineF>();
}

void tst_Borders::simpleBorderSkipsSidesWithoutInset()
{
    QFETCH(const Insets, insets);
    QTEST(linesOf(drawnSides(SimpleBorder(), frame, insets)), "lines");
}

void tst_Borders::simpleBorderStaysThin_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<double>("scale");
    QTest::newRow("wide") << Insets(5, 5, 5, 5) << 1.0;
    QTest::newRow("hairline scale") << Insets(5, 5, 5, 5) << 0.1;
    QTest::newRow("magnified") << Insets(1, 1, 1, 1) << 3.0;
    QTest::newRow("unequal sides") << Insets(1, 2, 3, 40) << 0.3;
}

void tst_Borders::simpleBorderStaysThin()
{
    QFETCH(const Insets, insets);
    QFETCH(const double, scale);
    OpenBorder<SimpleBorder> border;
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.scale(scale, scale);
    border.drawBorderRect(&painter, frame, insets);
    QCOMPARE(device.count(), 4);
    for (const PaintCall &side : device.calls())
        QCOMPARE(side.pen, border.createPen());
}

void tst_Borders::simpleBorderDrawsInTheMiddleOfItsInsets()
{
    const QList<QLineF> lines = renderedLines(SimpleBorder(nullptr, 5), QRect(0, 0, 10, 10));
    const QList<QLineF> expected {QLineF(2, 2, 7, 2), QLineF(7, 2, 7, 7), QLineF(7, 7, 2, 7), QLineF(2, 7, 2, 2)};
    QCOMPARE(lines, expected);
}

void tst_Borders::scaledBorderDrawsSidesAsWideAsTheirInsets()
{
    ScaledBorder border;
    border.setColor(Qt::red);
    border.setPenCapStyle(Qt::FlatCap);
    const QList<PaintCall> sides = drawnSides(border, frame, Insets(2, 4, 6, 8));
    const QList<QLineF> expected {QLineF(11, 21, 110, 21), QLineF(114, 24, 114, 220), QLineF(110, 223, 13, 223),
                                  QLineF(12, 220, 12, 22)};
    QCOMPARE(linesOf(sides), expected);
    QList<double> widths;
    for (const PaintCall &side : sides) {
        widths << side.pen.widthF();
        QVERIFY(!side.isIntegral);
        QCOMPARE(side.pen.color(), QColor(Qt::red));
        QCOMPARE(side.pen.capStyle(), Qt::FlatCap);
    }
    QCOMPARE(widths, QList<double>({2.0, 8.0, 6.0, 4.0}));
}

void tst_Borders::scaledBorderHalvesOddWidthsExactly()
{
    const QList<QLineF> expected {QLineF(11.5, 21.5, 110, 21.5), QLineF(111.5, 21.5, 111.5, 220),
                                  QLineF(110, 221.5, 11.5, 221.5), QLineF(11.5, 220, 11.5, 21.5)};
    QCOMPARE(linesOf(drawnSides(ScaledBorder(), frame, Insets(3, 3, 3, 3))), expected);
}

void tst_Borders::scaledBorderSkipsSidesWithoutInset_data()
{
    QTest::addColumn<Insets>("insets");
    QTest::addColumn<QList<QLineF>>("lines");
    QTest::newRow("top") << Insets(2, 0, 0, 0) << QList<QLineF> {QLineF(11, 21, 110, 21)};
    QTest::newRow("left") << Insets(0, 2, 0, 0) << QList<QLineF> {QLineF(11, 220, 11, 21)};
    QTest::newRow("bottom") << Insets(0, 0, 2, 0) << QList<QLineF> {QLineF(110, 221, 11, 221)};
    QTest::newRow("right") << Insets(0, 0, 0, 2) << QList<QLineF> {QLineF(111, 21, 111, 220)};
    QTest::newRow("negative") << Insets(-1, -1, -1, -1) << QList<QLineF>();
}

void tst_Borders::scaledBorderSkipsSidesWithoutInset()
{
    QFETCH(const Insets, insets);
    QTEST(linesOf(drawnSides(ScaledBorder(), frame, insets)), "lines");
}

void tst_Borders::scaledBorderHasNoInnerMarginAtFirst()
{
    const ScaledBorder border(nullptr, 2);
    QCOMPARE(border.getInnerMarginBorder(), 0);
    QCOMPARE(renderedLines(border, frame).size(), 4);
}

void tst_Borders::scaledBorderDrawsASecondFrameInsideTheFirst()
{
    ScaledBorder border(nullptr, 2);
    border.setInnerMarginBorder(3);
    QCOMPARE(border.getInnerMarginBorder(), 3);
    const QList<QLineF> expected {QLineF(2, 2, 19, 2),   QLineF(20, 2, 20, 29), QLineF(19, 30, 2, 30),
                                  QLineF(2, 29, 2, 2),   QLineF(5, 5, 16, 5),   QLineF(17, 5, 17, 26),
                                  QLineF(16, 27, 5, 27), QLineF(5, 26, 5, 5)};
    QCOMPARE(renderedLines(border, QRect(0, 0, 20, 30)), expected);
}

void tst_Borders::scaledBorderSkipsASecondFrameThatDoesNotFit()
{
    ScaledBorder border(nullptr, 2);
    border.setInnerMarginBorder(10);
    QCOMPARE(renderedLines(border, QRect(0, 0, 20, 30)).size(), 4);
}

void tst_Borders::scaledBorderIgnoresANegativeInnerMargin()
{
    ScaledBorder border(nullptr, 2);
    border.setInnerMarginBorder(-1);
    QCOMPARE(renderedLines(border, QRect(0, 0, 20, 30)).size(), 4);
}

void tst_Borders::focusBorderHasWidthOne()
{
    QVERIFY(FocusBorder().getInsets() == Insets(1, 1, 1, 1));
}

namespace {

/// Puts a style in place of the application's for the duration of a test.
class StyleScope
{
public:
    StyleScope() { QApplication::setStyle(style); }
    ~StyleScope() { QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion"))); }

    FocusStyle *style = new FocusStyle;
};

} // namespace

void tst_Borders::focusBorderDrawsTheStylesFocusFrame()
{
    const StyleScope scope;
    RecordingPaintDevice device;
    QPainter painter(&device);
    QStyleOptionViewItem option = optionFor(frame);
    option.state = QStyle::State_Enabled;
    option.direction = Qt::RightToLeft;
    FocusBorder().render(&painter, option);
    QCOMPARE(scope.style->frames.size(), 1);
    const QStyleOptionFocusRect &drawn = scope.style->frames.first();
    QCOMPARE(drawn.rect, frame);
    QCOMPARE(drawn.state, QStyle::State_Enabled | QStyle::State_KeyboardFocusChange);
    QCOMPARE(drawn.direction, Qt::RightToLeft);
    QCOMPARE(drawn.backgroundColor, QColor(Qt::transparent));
    QCOMPARE(scope.style->painters, QList<QPainter *>({&painter}));
    QCOMPARE(scope.style->widgets, QList<const QWidget *>({nullptr}));
}

void tst_Borders::focusBorderFollowsItsBorderRect()
{
    const StyleScope scope;
    RecordingPaintDevice device;
    renderOn(device, CustomBorder<FocusBorder>(), frame);
    QCOMPARE(scope.style->frames.size(), 1);
    QCOMPARE(scope.style->frames.first().rect, QRect(QPoint(100, 100), QPoint(200, 200)));
}

void tst_Borders::focusBorderIgnoresANullPainter()
{
    const StyleScope scope;
    FocusBorder().render(nullptr, optionFor(frame));
    QCOMPARE(scope.style->frames.size(), 0);
}

void tst_Borders::focusBorderIgnoresInvalidRectangles()
{
    const StyleScope scope;
    RecordingPaintDevice device;
    renderOn(device, CustomBorder<FocusBorder>(), QRect());
    FocusBorder tooWide;
    tooWide.setInsets(Insets(40, 40, 40, 40));
    renderOn(device, tooWide, QRect(0, 0, 10, 10));
    QCOMPARE(scope.style->frames.size(), 0);
}

void tst_Borders::focusBorderPaintsWithoutInsets()
{
    const StyleScope scope;
    RecordingPaintDevice device;
    FocusBorder border;
    border.setInsets(Insets());
    renderOn(device, border, frame);
    QCOMPARE(scope.style->frames.size(), 1);
    QCOMPARE(scope.style->frames.first().rect, frame);
}

PICTEL_TEST_MAIN(tst_Borders)
#include "tst_borders.moc"
