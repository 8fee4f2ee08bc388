#include "ShownTree.h"
#include "support/RecordingPaintDevice.h"
#include "support/TestMain.h"

#include <vtlpictel/shapes/Shape.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

namespace {

/// A rectangle that remembers for which rectangles its path was rebuilt and drawn.
class ProbeShape : public Shape
{
public:
    using Shape::absolutePath;
    using Shape::clipToPath;
    using Shape::drawFigure;
    using Shape::getPainterPath;
    using Shape::painterPath;
    using Shape::Shape;

    QList<QRectF> rebuilt;
    mutable QList<QRect> drawn;

    void drawShape(QPainter *painter, const QStyleOptionViewItem &option) const override
    {
        drawn << option.rect;
        Shape::drawShape(painter, option);
    }

protected:
    void regeneratePath(const QRectF &bounds) override
    {
        rebuilt << bounds;
        painterPath() = QPainterPath();
        painterPath().addRect(bounds);
    }
};

QPainterPath rectPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

const QColor activeText(1, 0, 0);
const QColor activeButton(2, 0, 0);
const QColor disabledText(3, 0, 0);
const QColor disabledButton(4, 0, 0);

} // namespace

class tst_Shape : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void metaObjectTellsSignalAndSlot();
    void cleanup();

    void newShapeHasItsDefaults();
    void parentOwnsTheShape();
    void lineWidthIsStoredAndRepaintedWhenItDiffers();
    void lineStyleIsStoredAndRepaintedWhenItDiffers();
    void capStyleIsStoredAndRepaintedWhenItDiffers();
    void joinStyleIsStoredAndRepaintedWhenItDiffers();
    void fillIsStoredAndRepaintedAlways();
    void enabledForegroundIsStoredAndRepaintedAlways();
    void enabledBackgroundIsStoredAndRepaintedAlways();
    void disabledForegroundIsStoredAndRepaintedAlways();
    void disabledBackgroundIsStoredAndRepaintedAlways();

    void boundsRebuildThePathWhileShown();
    void addNotifyDoesNotRebuildThePath();
    void pathIsNotRebuiltBeforeTheShapeIsShown();
    void pathIsNotRebuiltAfterTheShapeIsTakenAway();
    void shapeShownAgainRebuildsItsPathAgain();
    void shapeAnnouncedTwiceRebuildsItsPathOnce();
    void childrenAreNotifiedWithTheShape();
    void sameBoundsEmitNoPathChanged();
    void pathChangesBeforeTheBounds();
    void pathLeavesHalfTheLineFree_data();
    void pathLeavesHalfTheLineFree();
    void shapeDeletedByItsPathChangedListenerStopsThere();

    void pointsOfThePathAreContained();
    void emptyPathContainsNothing();

    void enabledColorsComeFromThePaletteOnce();
    void disabledColorComesFromThePaletteOnce();
    void ownColorsWinOverThePalette();
    void missingColorAloneComesFromThePalette();
    void disabledShapeFillsWithItsForeground();
    void disabledShapeIgnoresItsBackground();
    void textColorIsKeptWhenADisabledShapeHasNoColor();
    void paletteWithoutColorsIsNotAskedToRepaint();
    void unfilledShapeHasNoBrush();
    void penFollowsWidthScaleAndResolution_data();
    void penFollowsWidthScaleAndResolution();
    void penKeepsItsLineStyle();
    void capAndJoinStyleDoNotReachThePen();
    void shapeIsDrawnWithoutHalfTheLine();
    void painterIsLeftAsItWas();
    void nullPainterDrawsNothing();
    void pathIsDrawnAtItsAbsolutePlace();
    void emptyPathIsNotDrawn();
    void absolutePathIsUnchangedOutsideADisplayedTree();
    void absolutePathMovesToTheRoot();
    void clipIsIntersectedWithThePath();
    void emptyPathDoesNotClip();
    void nullPainterIsNotClipped();

private:
    template <typename Value>
    void checkSetter(Value (Shape::*get)() const, const std::function<void(Shape &, Value)> &set, const Value &first,
                     const Value &other, int repaintsWhenSame);
    PaintCall paintedPath(int dotsPerInch = 96, double scale = 1.0);

    std::unique_ptr<ShownTree> m_tree;
    std::unique_ptr<ProbeShape> m_shape;
    const QRect m_bounds {10, 20, 100, 50};
};

void tst_Shape::init()
{
    PictelTest::init();
    m_tree = std::make_unique<ShownTree>();
    m_shape = std::make_unique<ProbeShape>();
    m_tree->show(*m_shape);
    m_shape->setBounds(m_bounds);
    m_shape->rebuilt.clear();
    m_tree->forget();
}

void tst_Shape::cleanup()
{
    m_shape.reset();
    m_tree.reset();
}

template <typename Value>
void tst_Shape::checkSetter(Value (Shape::*get)() const, const std::function<void(Shape &, Value)> &set,
                            const Value &first, const Value &other, int repaintsWhenSame)
{
    QCOMPARE((m_shape.get()->*get)(), first);
    set(*m_shape, other);
    QCOMPARE((m_shape.get()->*get)(), other);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    set(*m_shape, other);
    QCOMPARE((m_shape.get()->*get)(), other);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>(repaintsWhenSame, m_bounds));
    QCOMPARE(m_tree->takeErased(), QStringList());
    QCOMPARE(m_shape->rebuilt, QList<QRectF>());
}

PaintCall tst_Shape::paintedPath(int dotsPerInch, double scale)
{
    RecordingPaintDevice device(QSize(1000, 1000), dotsPerInch);
    paint(*m_shape, device, paintEverything(), scale);
    return device.first(PaintCall::Path);
}

void tst_Shape::newShapeHasItsDefaults()
{
    ProbeShape shape;
    QVERIFY(shape.getPainterPath().isEmpty());
    QCOMPARE(shape.getLineStyle(), Qt::SolidLine);
    QCOMPARE(shape.getCapStyle(), Qt::SquareCap);
    QCOMPARE(shape.getJoinStyle(), Qt::MiterJoin);
    QCOMPARE(shape.getLineWidth(), 1);
    QCOMPARE(shape.getFill(), true);
    QCOMPARE(shape.getEnabledFGColor(), QColor());
    QCOMPARE(shape.getEnabledBGColor(), QColor());
    QCOMPARE(shape.getDisabledFGColor(), QColor());
    QCOMPARE(shape.getDisabledBGColor(), QColor());
    QCOMPARE(shape.getBackgroundColor(), QColor(Qt::transparent));
    QCOMPARE(shape.parent(), nullptr);
}

void tst_Shape::parentOwnsTheShape()
{
    QObject owner;
    QCOMPARE((new ProbeShape(&owner))->parent(), &owner);
}

void tst_Shape::lineWidthIsStoredAndRepaintedWhenItDiffers()
{
    checkSetter<int>(&Shape::getLineWidth, &Shape::setLineWidth, 1, 4, 0);
}

void tst_Shape::lineStyleIsStoredAndRepaintedWhenItDiffers()
{
    checkSetter<Qt::PenStyle>(&Shape::getLineStyle, &Shape::setLineStyle, Qt::SolidLine, Qt::DotLine, 0);
}

void tst_Shape::capStyleIsStoredAndRepaintedWhenItDiffers()
{
    checkSetter<Qt::PenCapStyle>(&Shape::getCapStyle, &Shape::setCapStyle, Qt::SquareCap, Qt::RoundCap, 0);
}

void tst_Shape::joinStyleIsStoredAndRepaintedWhenItDiffers()
{
    checkSetter<Qt::PenJoinStyle>(&Shape::getJoinStyle, &Shape::setJoinStyle, Qt::MiterJoin, Qt::RoundJoin, 0);
}

void tst_Shape::fillIsStoredAndRepaintedAlways()
{
    checkSetter<bool>(&Shape::getFill, &Shape::setFill, true, false, 1);
}

void tst_Shape::enabledForegroundIsStoredAndRepaintedAlways()
{
    checkSetter<QColor>(&Shape::getEnabledFGColor, &Shape::setEnabledFGColor, QColor(), Qt::red, 1);
    QCOMPARE(m_shape->getEnabledBGColor(), QColor());
}

void tst_Shape::enabledBackgroundIsStoredAndRepaintedAlways()
{
    checkSetter<QColor>(&Shape::getEnabledBGColor, &Shape::setEnabledBGColor, QColor(), Qt::red, 1);
}

void tst_Shape::disabledForegroundIsStoredAndRepaintedAlways()
{
    checkSetter<QColor>(&Shape::getDisabledFGColor, &Shape::setDisabledFGColor, QColor(), Qt::red, 1);
}

void tst_Shape::disabledBackgroundIsStoredAndRepaintedAlways()
{
    checkSetter<QColor>(&Shape::getDisabledBGColor, &Shape::setDisabledBGColor, QColor(), Qt::red, 1);
}

void tst_Shape::boundsRebuildThePathWhileShown()
{
    m_shape->setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(m_shape->getPainterPath(), rectPath(QRectF(0, 0, 29, 39)));
    QCOMPARE(m_shape->rebuilt.size(), 1);
    QCOMPARE(m_shape->getBounds(), QRect(0, 0, 30, 40));
}

void tst_Shape::addNotifyDoesNotRebuildThePath()
{
    ProbeShape shape;
    shape.setBounds(QRect(0, 0, 30, 40));
    m_tree->show(shape);
    QCOMPARE(shape.rebuilt, QList<QRectF>());
}

void tst_Shape::pathIsNotRebuiltBeforeTheShapeIsShown()
{
    ProbeShape shape;
    QSignalSpy changes(&shape, &Shape::pathChanged);
    shape.setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toRectF(), QRectF(0, 0, 29, 39));
    QCOMPARE(shape.rebuilt, QList<QRectF>());
}

void tst_Shape::pathIsNotRebuiltAfterTheShapeIsTakenAway()
{
    m_tree->root().remove(m_shape.get());
    m_shape->setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(m_shape->rebuilt, QList<QRectF>());
    QVERIFY(!m_shape->getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Shape::shapeShownAgainRebuildsItsPathAgain()
{
    m_tree->root().remove(m_shape.get());
    m_tree->show(*m_shape);
    m_shape->setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(m_shape->rebuilt, QList<QRectF>({QRectF(0, 0, 29, 39)}));
}

void tst_Shape::shapeAnnouncedTwiceRebuildsItsPathOnce()
{
    expectDebug("Figure::addNotify() should not be call multiple times");
    m_shape->addNotify();
    m_shape->setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(m_shape->rebuilt.size(), 1);
}

void tst_Shape::childrenAreNotifiedWithTheShape()
{
    ProbeLayout layout;
    ProbeShape parent;
    parent.setLayoutManager(&layout);
    ProbeFigure child;
    parent.add(&child);
    m_tree->show(parent);
    QVERIFY(child.getFlag(Figure::FLAG_NOTIFIED));
    m_tree->root().remove(&parent);
    QVERIFY(!child.getFlag(Figure::FLAG_NOTIFIED));
}

void tst_Shape::sameBoundsEmitNoPathChanged()
{
    QSignalSpy changes(m_shape.get(), &Shape::pathChanged);
    m_shape->setBounds(m_bounds);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::pathChangesBeforeTheBounds()
{
    QList<QRect> boundsAtChange;
    QObject::connect(m_shape.get(), &Shape::pathChanged, m_shape.get(),
                     [&] { boundsAtChange << m_shape->getBounds(); });
    m_shape->setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(boundsAtChange, QList<QRect>({m_bounds}));
}

void tst_Shape::pathLeavesHalfTheLineFree_data()
{
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<QRectF>("path");

    QTest::newRow("0") << 0 << QRectF(0, 0, 40, 30);
    QTest::newRow("1") << 1 << QRectF(0, 0, 39, 29);
    QTest::newRow("2") << 2 << QRectF(1, 1, 38, 28);
    QTest::newRow("3") << 3 << QRectF(1, 1, 37, 27);
    QTest::newRow("wider than the shape") << 41 << QRectF(20, 20, -1, -11);
    QTest::newRow("-3") << -3 << QRectF(-2, -2, 43, 33);
}

void tst_Shape::pathLeavesHalfTheLineFree()
{
    QFETCH(int, lineWidth);
    QFETCH(QRectF, path);
    m_shape->setLineWidth(lineWidth);
    m_shape->setBounds(QRect(0, 0, 40, 30));
    QCOMPARE(m_shape->rebuilt, QList<QRectF>({path}));
}

void tst_Shape::shapeDeletedByItsPathChangedListenerStopsThere()
{
    QObject::connect(m_shape.get(), &Shape::pathChanged, &m_tree->root(), [this] { m_shape.reset(); });
    m_shape->setBounds(QRect(0, 0, 30, 40));
    QCOMPARE(m_tree->root().childFigures(), QList<Figure *>());
}

void tst_Shape::pointsOfThePathAreContained()
{
    m_shape->painterPath() = rectPath(QRectF(500, 500, 10, 10));
    QVERIFY(m_shape->contains(QPoint(505, 505)));
    QVERIFY(m_shape->contains(QPoint(501, 509)));
    QVERIFY(!m_shape->contains(QPoint(498, 505)));
    QVERIFY(!m_shape->contains(QPoint(512, 505)));
    QVERIFY(!m_shape->contains(m_bounds.center()));
}

void tst_Shape::emptyPathContainsNothing()
{
    m_shape->painterPath() = QPainterPath();
    QVERIFY(!m_shape->contains(m_bounds.center()));
}

void tst_Shape::enabledColorsComeFromThePaletteOnce()
{
    const PaintCall call = paintedPath();
    QCOMPARE(call.pen.color(), activeText);
    QCOMPARE(call.brush, QBrush(activeButton, Qt::SolidPattern));
    QCOMPARE(m_shape->getEnabledFGColor(), activeText);
    QCOMPARE(m_shape->getEnabledBGColor(), activeButton);
    QCOMPARE(m_shape->getDisabledFGColor(), QColor());
    QCOMPARE(m_shape->getDisabledBGColor(), QColor());
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds, m_bounds}));
    paintedPath();
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::disabledColorComesFromThePaletteOnce()
{
    m_shape->setEnabled(false);
    const PaintCall call = paintedPath();
    QCOMPARE(call.pen.color(), disabledButton);
    QCOMPARE(call.brush, QBrush(disabledButton, Qt::SolidPattern));
    QCOMPARE(m_shape->getEnabledFGColor(), QColor());
    QCOMPARE(m_shape->getEnabledBGColor(), QColor());
    QCOMPARE(m_shape->getDisabledFGColor(), disabledButton);
    QCOMPARE(m_shape->getDisabledBGColor(), QColor());
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    paintedPath();
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::ownColorsWinOverThePalette()
{
    m_shape->setEnabledFGColor(Qt::red);
    m_shape->setEnabledBGColor(Qt::green);
    m_tree->forget();
    const PaintCall call = paintedPath();
    QCOMPARE(call.pen.color(), QColor(Qt::red));
    QCOMPARE(call.brush.color(), QColor(Qt::green));
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::missingColorAloneComesFromThePalette()
{
    m_shape->setEnabledBGColor(Qt::green);
    m_tree->forget();
    const PaintCall call = paintedPath();
    QCOMPARE(call.pen.color(), activeText);
    QCOMPARE(call.brush.color(), QColor(Qt::green));
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
}

void tst_Shape::disabledShapeFillsWithItsForeground()
{
    m_shape->setEnabled(false);
    m_shape->setDisabledFGColor(Qt::red);
    m_shape->setEnabledFGColor(Qt::green);
    m_shape->setEnabledBGColor(Qt::green);
    m_tree->forget();
    const PaintCall call = paintedPath();
    QCOMPARE(call.pen.color(), QColor(Qt::red));
    QCOMPARE(call.brush.color(), QColor(Qt::red));
    QCOMPARE(m_shape->getDisabledBGColor(), QColor());
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::disabledShapeIgnoresItsBackground()
{
    m_shape->setEnabled(false);
    m_shape->setDisabledBGColor(Qt::blue);
    const PaintCall call = paintedPath();
    QCOMPARE(call.pen.color(), disabledButton);
    QCOMPARE(call.brush.color(), disabledButton);
    QCOMPARE(m_shape->getDisabledBGColor(), QColor(Qt::blue));
}

void tst_Shape::textColorIsKeptWhenADisabledShapeHasNoColor()
{
    QStyleOptionViewItem option = paintEverything();
    option.palette.setBrush(QPalette::Disabled, QPalette::Button, QBrush(QColor()));
    m_shape->setEnabled(false);
    RecordingPaintDevice device;
    paint(*m_shape, device, option);
    QCOMPARE(m_shape->getDisabledFGColor(), QColor());
    QCOMPARE(m_shape->getDisabledBGColor(), disabledText);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    paint(*m_shape, device, option);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::paletteWithoutColorsIsNotAskedToRepaint()
{
    QStyleOptionViewItem option = paintEverything();
    option.palette.setBrush(QPalette::Active, QPalette::Button, QBrush(QColor()));
    RecordingPaintDevice device;
    paint(*m_shape, device, option);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>({m_bounds}));
    paint(*m_shape, device, option);
    QCOMPARE(m_tree->takeRepaints(), QList<QRect>());
}

void tst_Shape::unfilledShapeHasNoBrush()
{
    m_shape->setFill(false);
    QCOMPARE(paintedPath().brush, QBrush(Qt::NoBrush));
    QCOMPARE(m_shape->getEnabledBGColor(), activeButton);
}

void tst_Shape::penFollowsWidthScaleAndResolution_data()
{
    QTest::addColumn<int>("dotsPerInch");
    QTest::addColumn<Qt::PenStyle>("style");
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("penWidth");
    QTest::addColumn<bool>("penIsCosmetic");

    const Qt::PenStyle solid = Qt::SolidLine;
    QTest::newRow("screen") << 96 << solid << 2 << 1.5 << 3.0 << true;
    QTest::newRow("printer") << 300 << solid << 2 << 1.5 << 2.0 << false;
    QTest::newRow("finest screen") << 149 << solid << 2 << 1.5 << 3.0 << true;
    QTest::newRow("coarsest printer") << 150 << solid << 2 << 1.5 << 2.0 << false;
    QTest::newRow("screen, a half is rounded down") << 96 << solid << 5 << 0.5 << 2.0 << true;
    QTest::newRow("screen, more than a half is rounded up") << 96 << solid << 1 << 0.51 << 1.0 << true;
    QTest::newRow("screen, small line") << 96 << solid << 1 << 0.5 << 0.0 << true;
    QTest::newRow("screen, dashed") << 96 << Qt::DashLine << 2 << 1.5 << 2.0 << false;
    QTest::newRow("printer, dashed") << 300 << Qt::DashLine << 2 << 1.5 << 2.0 << false;
    // A pen of width 0 counts as cosmetic in itself.
    QTest::newRow("printer, one pixel") << 300 << solid << 1 << 1.0 << 0.0 << true;
    QTest::newRow("printer, below one pixel") << 300 << solid << 3 << 0.25 << 0.0 << true;
    QTest::newRow("printer, just above one pixel") << 300 << solid << 3 << 0.35 << 3.0 << false;
    QTest::newRow("screen, no width") << 96 << solid << 0 << 1.0 << 0.0 << true;
    QTest::newRow("screen, negative width") << 96 << solid << -7 << 1.0 << 0.0 << true;
    QTest::newRow("screen, huge width") << 96 << solid << std::numeric_limits<int>::max() << 1.0 << 32767.0 << true;
    QTest::newRow("screen, huge scale") << 96 << solid << 2 << 1e30 << 32767.0 << true;
    QTest::newRow("printer, huge width") << 300 << solid << 40000 << 1.0 << 32767.0 << false;
}

void tst_Shape::penFollowsWidthScaleAndResolution()
{
    QFETCH(int, dotsPerInch);
    QFETCH(Qt::PenStyle, style);
    QFETCH(int, lineWidth);
    QFETCH(double, scale);
    QFETCH(double, penWidth);
    QFETCH(bool, penIsCosmetic);
    m_shape->setLineStyle(style);
    m_shape->setLineWidth(lineWidth);
    const QPen pen = paintedPath(dotsPerInch, scale).pen;
    QCOMPARE(pen.widthF(), penWidth);
    QCOMPARE(pen.isCosmetic(), penIsCosmetic);
    QCOMPARE(pen.style(), style);
}

void tst_Shape::penKeepsItsLineStyle()
{
    m_shape->setLineStyle(Qt::NoPen);
    QCOMPARE(paintedPath().pen.style(), Qt::NoPen);
}

void tst_Shape::capAndJoinStyleDoNotReachThePen()
{
    m_shape->setCapStyle(Qt::RoundCap);
    m_shape->setJoinStyle(Qt::RoundJoin);
    const QPen pen = paintedPath().pen;
    QCOMPARE(pen.capStyle(), QPen().capStyle());
    QCOMPARE(pen.joinStyle(), QPen().joinStyle());
}

void tst_Shape::shapeIsDrawnWithoutHalfTheLine()
{
    m_shape->setLineWidth(3);
    paintedPath();
    QCOMPARE(m_shape->drawn, QList<QRect>({m_bounds.translated(ShownTree::origin()).adjusted(1, 1, -2, -2)}));
}

void tst_Shape::painterIsLeftAsItWas()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    const QPen pen(Qt::yellow, 9);
    painter.setPen(pen);
    painter.setBrush(Qt::cyan);
    m_shape->drawFigure(&painter, paintEverything());
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.brush(), QBrush(Qt::cyan));
}

void tst_Shape::nullPainterDrawsNothing()
{
    m_shape->drawFigure(nullptr, paintEverything());
    QCOMPARE(m_shape->drawn, QList<QRect>());
    QCOMPARE(m_shape->getEnabledFGColor(), QColor());
    m_shape->drawShape(nullptr, paintEverything());
}

void tst_Shape::pathIsDrawnAtItsAbsolutePlace()
{
    QCOMPARE(paintedPath().path, rectPath(QRectF(110, 220, 99, 49)));
}

void tst_Shape::emptyPathIsNotDrawn()
{
    m_shape->painterPath() = QPainterPath();
    RecordingPaintDevice device;
    paint(*m_shape, device);
    QVERIFY(device.isEmpty());
    QCOMPARE(m_shape->drawn.size(), 1);
}

void tst_Shape::absolutePathIsUnchangedOutsideADisplayedTree()
{
    ProbeLayout layout;
    ProbeFigure parent;
    parent.setLayoutManager(&layout);
    parent.setBounds(QRect(100, 200, 800, 600));
    ProbeShape shape;
    parent.add(&shape);
    QCOMPARE(shape.absolutePath(rectPath(QRectF(1, 2, 3, 4))), rectPath(QRectF(1, 2, 3, 4)));
}

void tst_Shape::absolutePathMovesToTheRoot()
{
    QCOMPARE(m_shape->absolutePath(rectPath(QRectF(1, 2, 3, 4))), rectPath(QRectF(101, 202, 3, 4)));
}

void tst_Shape::clipIsIntersectedWithThePath()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    painter.setClipRect(QRect(150, 200, 500, 500));
    m_shape->clipToPath(&painter);
    QCOMPARE(painter.clipBoundingRect(), QRectF(150, 220, 59, 49));
}

void tst_Shape::emptyPathDoesNotClip()
{
    RecordingPaintDevice device;
    QPainter painter(&device);
    m_shape->painterPath() = QPainterPath();
    m_shape->clipToPath(&painter);
    QVERIFY(!painter.hasClipping());
}

void tst_Shape::nullPainterIsNotClipped()
{
    m_shape->clipToPath(nullptr);
    QCOMPARE(m_shape->getPainterPath(), rectPath(QRectF(10, 20, 99, 49)));
}

void tst_Shape::metaObjectTellsSignalAndSlot()
{
    const QMetaObject &meta = Shape::staticMetaObject;
    const QMetaMethod changed = meta.method(meta.indexOfSignal("pathChanged(QRectF)"));
    QCOMPARE(changed.parameterNames(), QList<QByteArray>({"bounds"}));
    const QMetaMethod regenerate = meta.method(meta.indexOfSlot("regeneratePath(QRectF)"));
    QCOMPARE(regenerate.access(), QMetaMethod::Protected);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
}

PICTEL_TEST_MAIN(tst_Shape)

#include "tst_shape.moc"
